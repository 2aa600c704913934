#include "rec/RecordScanner.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/rec/SameReading.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/RecBuilder.h"
#include "tests/support/TempFolder.h"

namespace quorvin {
namespace {

class RecordScannerTest : public testing::Test {
protected:
    void expectSameReading(const std::string& bytes, const std::string& what)
    {
        EXPECT_EQ(test::differentReading(folder_.write("prova.rec", bytes)), "") << what;
    }

    test::TempFolder folder_;
};

/// Fields on both lines of a record, one across; `cut` characters of the second line are missing.
std::string records(int count, const std::string& lineEnd, std::size_t cut = 0)
{
    std::string bytes = test::rec({{.length = 60}, {.length = 0}, {.length = 40}, {.length = 6}}).bytes();
    if (lineEnd == "\n") std::erase(bytes, '\r');
    std::string text = "bcdfghjklmnpqrstvwxz\xE0\xE8\xEC\xF2\xF9 0123456789";
    while (text.size() < 106)
        text += text;
    for (int n = 0; n < count; ++n) {
        std::rotate(text.begin(), text.begin() + 1, text.end());
        bytes += text.substr(0, 78) + "!" + lineEnd;
        bytes += text.substr(78, 28 - cut) + (n % 3 == 0 ? "?" : "!") + lineEnd;
    }
    return bytes;
}

TEST_F(RecordScannerTest, ReadsWhatSingleReadingDoes)
{
    for (const std::string lineEnd : {"\r\n", "\n"}) {
        expectSameReading(records(100, lineEnd, 6), "second line short");
        expectSameReading(records(100, lineEnd, 28), "second line but a mark");
        const std::string even = records(2500, lineEnd);
        expectSameReading(even, "more than one block");
        const std::size_t end = even.find('\n', even.size() / 2) - lineEnd.size() + 1;
        // Within a line, its mark, its line end, and the first of the next line.
        for (const std::size_t place : {end - 20, end - 1, end, end + lineEnd.size()}) {
            for (const char* bytes : {"x", "", "xx", "\n", "\t", "\x1A", "\r", "\r\n"})
                expectSameReading(std::string(even).replace(place, 1, bytes),
                                  "byte " + std::to_string(place) + " turned into " + bytes);
        }
    }
}

TEST_F(RecordScannerTest, AFileCutShortMeanwhileGivesWholeRecordsOnly)
{
    // Too short to be read ahead, and long enough. A thousand records and one byte more are cut off.
    for (const int count : {8000, 80000}) {
        RecFile file;
        const std::string bytes = test::rec({{.length = 40}}).records(count).bytes();
        test::load(file, folder_.write("prova.rec", bytes));
        RecordScanner scanner(file);
        scanner.start(1, count);
        int read = 0;
        const int error = test::errorOf([&] {
            for (; scanner.next(); ++read) {
                const std::string value = "r" + std::to_string(read + 1);
                ASSERT_EQ(scanner.fieldValue(1), value + std::string(40 - value.size(), ' '));
                if (read == 0) std::filesystem::resize_file(file.dataFileName(), bytes.size() - 43001);
            }
        });
        EXPECT_EQ(error, 62);
        EXPECT_EQ(read, count - 1001);
    }
}

}  // namespace
}  // namespace quorvin
