#include "rec/RecWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <random>

#include "rec/RecordScanner.h"
#include "tests/rec/SameReading.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/FileFaults.h"
#include "tests/support/RecBuilder.h"
#include "tests/support/TempFolder.h"

namespace quorvin {
namespace {

using test::bytesOf;
using test::FieldSpec;
using test::rec;

/// What stands behind the first `lines` lines.
std::string behind(const std::string& text, std::size_t lines)
{
    std::size_t start = 0;
    for (; lines > 0; --lines)
        start = text.find('\n', start) + 1;
    return text.substr(start);
}

/// The file with the numbers and questions of its definitions one column to the left.
std::string oneColumnLeft(std::string bytes, std::size_t fields)
{
    for (std::size_t n = 1; n <= fields; ++n)
        bytes.erase(bytes.size() - behind(bytes, n).size() + 11, 1);
    return bytes;
}

class RecWriterTest : public testing::Test {
protected:
    void open(const std::string& bytes) { test::load(file_, folder_.write("prova.rec", bytes)); }

    /// The file with these fields of all records.
    std::string written(const std::vector<int>& fields, int longest = 250)
    {
        RecWriter writer;
        writer.start(target_, file_, fields, longest);
        RecordScanner scanner(file_);
        for (scanner.start(1, file_.recordCount()); scanner.next();)
            writer.add(scanner);
        writer.finish();
        EXPECT_EQ(writer.recordCount(), file_.recordCount());
        return bytesOf(target_);
    }

    test::TempFolder folder_;
    std::filesystem::path target_ = folder_.path() / "nuovo.rec";
    RecFile file_;
    test::FileFaults noWaiting_;
};

TEST_F(RecWriterTest, AFileByteForByte)
{
    const std::string source = "3 14 VLAB Filelabel: x\n"
                               "_TITOLO        1   1  30   0   0  15   0 112 Titolo\n"
                               "#ETA          45   3  31  59   0   0   2 113 Et\xE0, \n"
                               "?NOME        100   3  30 115   4   1   3  12 Nome\n"
                               " 7Ada!\n42Ev\x80?\n  Bo ^\n";
    const std::string expected = "3 14\r\n"
                                 "?NOME        100   1  30 115   1   1   3  12 Nome\r\n"
                                 "_TITOLO        1   2  30   0   2  15   0 112 Titolo\r\n"
                                 "#ETA          45   2  31  59   2   0   2 113 Et\xE0, \r\n"
                                 "Ada 7!\r\nEv\x80"
                                 "42?\r\nBo   ^\r\n";
    open(source);
    EXPECT_EQ(written({3, 1, 2, 3}), expected);
    open(oneColumnLeft(source, 3));
    EXPECT_EQ(written({3, 1, 2, 3}), oneColumnLeft(expected, 3));
}

TEST_F(RecWriterTest, RecordsThatAreNotWhole)
{
    const std::string x76(76, 'x');
    struct Case {
        int first, second;  ///< lengths
        std::string record, inOrder, swapped;
    };
    for (const Case& c : {Case{5, 0, "ab!", "ab!  !", "ab!  !"}, Case{3, 4, "ab?", "ab?    ?", "    ab??"},
                          Case{2, 3, "", "     !", "     !"}, Case{2, 2, "abcdef^", "abcd^", "cdab^"},
                          Case{78, 2, x76 + "xx!\r\n", x76 + "xx!\r\n  !", "  " + x76 + "!\r\nxx!"}}) {
        open(rec({{.length = c.first}, {.length = c.second}}).bytes() + c.record + "\r\n");
        EXPECT_EQ(behind(written({1, 2}), 3), c.inOrder + "\r\n");
        EXPECT_EQ(behind(written({2, 1}), 3), c.swapped + "\r\n");
    }
}

TEST_F(RecWriterTest, DefinitionsThatAreNotWhole)
{
    open("3 1 \r\n\r\n_AB\r\n" + test::definitionLine({.length = 1}) + "\r\nx!\r\n");
    const std::string rest = "1" + std::string(11, ' ') + "1" + std::string(13, ' ') + "\r\n";
    EXPECT_EQ(written({1, 2, 3}),
              "3 1\r\n" + std::string(19, ' ') + rest + "_AB" + std::string(16, ' ') + rest +
                  test::definitionLine({.length = 1, .questionY = 2, .fieldY = 2}) + "\r\nx!\r\n");

    // One column left, the last line cut behind its length: it must not make the others read otherwise, nor
    // itself when it is alone.
    for (const auto& [lengths, fields] : {std::pair(std::pair(100, 3), std::vector{2, 1}), {{5, 100}, {2}}}) {
        const auto [first, last] = lengths;
        std::string source = oneColumnLeft(rec({{.length = first}, {.length = last}}).bytes(), 2);
        source.erase(source.size() - 14, 12);
        open(source + std::string(78, 'a') + "!\r\n" + std::string(30, 'b') + "!\r\n");
        open(written(fields));
        EXPECT_EQ(file_.fields().length(1), last);
        EXPECT_EQ(file_.recordLength(), fields.size() == 2 ? first + last : last);
    }
}

TEST_F(RecWriterTest, WhatIsRefused)
{
    const std::string source = rec({{}, {.length = 0}}).record({"a"}).bytes();
    open(source);
    for (const auto& c :
         {std::pair(std::vector{1, 0}, 9), {{-1}, 9}, {{1, 3}, 9}, {{INT_MAX}, 9}, {{2, 2}, 11}, {{}, 11}})
        EXPECT_EQ(test::errorOf([&] { written(c.first); }), c.second);
    EXPECT_FALSE(std::filesystem::exists(target_));
    std::filesystem::create_hard_link(file_.dataFileName(), target_);
    EXPECT_EQ(test::errorOf([&] { written({1}); }), 75);
}

/// Against a file put together from the values instead of the source's lines.
TEST_F(RecWriterTest, RandomFiles)
{
    std::mt19937 random(1);
    const auto below = [&](std::size_t bound) { return static_cast<int>(random() % bound); };
    const auto text = [&](int length) {
        std::string bytes;
        for (; length > 0; --length)
            bytes += static_cast<char>(' ' + below(224));
        return bytes;
    };
    constexpr std::array kLengths = {0, 1, 7, 77, 78, 79, 80, 81, 156, 250, 251, 300};
    for (int round = 0; round < 300; ++round) {
        std::vector<FieldSpec> fields{{}};
        for (int n = below(8); n > 0; --n) {
            fields.push_back({kLengths.at(static_cast<std::size_t>(below(kLengths.size()))), text(below(30)),
                              below(1000), below(4), below(1000), below(4), below(256), below(256),
                              text(10)});
        }
        const int longest = below(2) ? 80 : 250;
        std::vector<int> list;
        std::vector<std::size_t> once;
        std::vector<FieldSpec> chosen;
        int line = 1;
        // The last one has a length, which a file needs.
        for (int n = 1 + below(12); n >= 0; --n) {
            const auto i = n == 0 ? std::size_t{0} : static_cast<std::size_t>(below(fields.size()));
            list.push_back(static_cast<int>(i) + 1);
            if (std::count(once.begin(), once.end(), i)) continue;
            FieldSpec field = fields[i];
            if (!once.empty()) {
                const FieldSpec& last = fields[once.back()];
                if (last.questionY != field.questionY && last.fieldY != field.fieldY) ++line;
            }
            field.questionY = field.fieldY = line;
            field.length = std::min(field.length, longest);
            chosen.push_back(field);
            once.push_back(i);
        }
        test::RecBuilder source = rec(fields, round % 16, below(2) ? "\r\n" : "\n");
        test::RecBuilder expected = rec(chosen);
        for (int n = 1 + below(4); n > 0; --n) {
            std::vector<std::string> values, chosenValues;
            for (const FieldSpec& field : fields)
                values.push_back(text(field.length));
            for (const std::size_t i : once)
                chosenValues.push_back(values[i]);
            const char mark = "!?^ "[below(4)];
            source.record(values, mark);
            expected.record(chosenValues, mark);
        }
        const bool left = below(2) != 0;
        open(left ? oneColumnLeft(source.bytes(), fields.size()) : source.bytes());
        const std::string bytes = left ? oneColumnLeft(expected.bytes(), chosen.size()) : expected.bytes();
        const std::string header = std::to_string(chosen.size()) + " " + std::to_string(round % 16) + "\r\n";
        ASSERT_EQ(written(list, longest), header + behind(bytes, 1)) << "round " << round;
    }
}

}  // namespace
}  // namespace quorvin
