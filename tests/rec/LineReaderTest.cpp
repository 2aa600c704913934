#include "rec/LineReader.h"

#include <gtest/gtest.h>

#include <vector>

#include "rec/RecFormat.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/TempFolder.h"

namespace quorvin {
namespace {

constexpr std::size_t kAll = SIZE_MAX;

class LineReaderTest : public testing::Test {
protected:
    LineReader& read(const std::string& bytes)
    {
        file_.open(folder_.write("a.txt", bytes));
        reader_.seek(1);
        return reader_;
    }

    test::TempFolder folder_;
    InputFile file_;
    LineReader reader_{file_};
};

TEST_F(LineReaderTest, LineEnds)
{
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"a\r\nb\r\n", {"a", "b"}}, {"a\nb", {"a", "b"}},           {"a\r\r\nb\rc\r\n", {"a\r", "b\rc"}},
        {"\r\n\n", {"", ""}},       {"a\r\nb\32c\r\n", {"a", "b"}}, {"", {}},
    };
    for (const auto& [bytes, lines] : cases) {
        LineReader& reader = read(bytes);
        for (const std::string& line : lines)
            EXPECT_EQ(reader.readLine(kAll).text, line) << bytes;
        EXPECT_EQ(test::errorOf([&] { reader.readLine(kAll); }), 62) << bytes;
    }
}

TEST_F(LineReaderTest, LinesAcrossBlocksAndPositions)
{
    // Around every likely block size, so that CR and LF fall into different blocks once.
    for (std::size_t length = 16380; length <= 16386; ++length) {
        LineReader& reader = read(std::string(length, 'x') + "\r\nsecond\r\n");
        EXPECT_EQ(reader.readLine(kAll).length, static_cast<std::int64_t>(length));
        EXPECT_EQ(reader.lineEndBytes(), 2);
        EXPECT_EQ(reader.position(), static_cast<std::int64_t>(length) + 3);
        EXPECT_EQ(reader.readLine(kAll).text, "second");
        reader.seek(static_cast<std::int64_t>(length));
        EXPECT_EQ(reader.readLine(kAll).text, "x");
    }
}

TEST_F(LineReaderTest, EndlessLinesAreRefused)
{
    const auto most = static_cast<std::size_t>(kMaxLineLength);
    EXPECT_EQ(read(std::string(most, '\0') + "\n").readLine(0).length, kMaxLineLength);
    LineReader& reader = read(std::string(most + 1, '\0'));
    EXPECT_EQ(test::errorOf([&] { reader.readLine(kAll); }), 7);
}

}  // namespace
}  // namespace quorvin
