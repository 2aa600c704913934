#include "base/Text.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

#include "base/Dates.h"
#include "tests/support/ErrorNumber.h"

namespace quorvin {
namespace {

TEST(Text, NumberToText)
{
    using Case = std::tuple<double, const char*>;
    for (const auto& [number, text] :
         {Case{0, " 0"}, Case{-0.0, " 0"}, Case{12, " 12"}, Case{-3.5, "-3.5"}, Case{0.5, " 0.5"},
          Case{0.1 + 0.2, " 0.3"}, Case{1234567890123456789.0, " 1234567890123460000"},
          Case{0.000025, " 0.000025"}, Case{1e15, " 1000000000000000"}, Case{100, " 100"},
          Case{999999999999999.9, " 1000000000000000"}, Case{12.25, " 12.25"}}) {
        EXPECT_EQ(str(number), text);
    }
    EXPECT_EQ(str(std::int64_t{9007199254740993}), " 9007199254740993") << "counts are exact beyond 53 bits";
    EXPECT_EQ(bareStr(6), "6");
}

TEST(Text, LeadingNumber)
{
    using Case = std::tuple<std::string, double>;
    constexpr double most = std::numeric_limits<double>::max();
    for (const auto& [text, number] : {Case{"", 0},
                                       Case{"abc", 0},
                                       Case{"  12 34x5", 1234},
                                       Case{"- 5", -5},
                                       Case{"+7", 7},
                                       Case{"--7", 0},
                                       Case{"3.5.7", 3.5},
                                       Case{".5", 0.5},
                                       Case{"-.5", -0.5},
                                       Case{"5.", 5},
                                       Case{".", 0},
                                       Case{"1e5", 1},
                                       Case{"1,5", 1},
                                       Case{"&H10", 0},
                                       Case{"7-3", 7},
                                       Case{"12/03/2004", 12},
                                       Case{"99999999999999999999", 1e20},
                                       Case{std::string(400, '9') + ".5", most},
                                       Case{"-" + std::string(400, '9'), -most},
                                       Case{"0." + std::string(400, '0') + "1", 0}}) {
        EXPECT_EQ(val(text), number) << text;
    }
}

TEST(Text, TrimsTakeBlanksOnly)
{
    using Case = std::tuple<const char*, const char*, const char*, const char*>;
    for (const auto& [text, left, right, both] :
         {Case{"  a b ", "a b ", "  a b", "a b"}, Case{"   ", "", "", ""}, Case{"", "", "", ""},
          Case{"\ta ", "\ta ", "\ta", "\ta"}, Case{"                 ", "", "", ""},
          Case{"a        b        ", "a        b        ", "a        b", "a        b"}}) {
        EXPECT_EQ(lTrim(text), left);
        EXPECT_EQ(rTrim(text), right);
        EXPECT_EQ(trim(text), both);
    }
}

TEST(Text, PositionInText)
{
    using Case = std::tuple<const char*, const char*, std::size_t>;
    for (const auto& [haystack, needle, position] :
         {Case{"", "", 0}, Case{"", "a", 0}, Case{"a", "", 1}, Case{"banana", "an", 2},
          Case{"banana", "na", 3}, Case{"banana", "nab", 0}, Case{"a", "aa", 0}}) {
        EXPECT_EQ(inStr(haystack, needle), position) << haystack << " / " << needle;
    }
}

TEST(Text, PartOfText)
{
    EXPECT_EQ(mid("abcdef", 2, 3), "bcd");
    EXPECT_EQ(mid("abcdef", 5, 9), "ef");
    EXPECT_EQ(mid("abcdef", 7, 1), "");
    EXPECT_EQ(mid("abcdef", 1, 0), "");
    EXPECT_EQ(test::errorOf([] { mid("abc", 0, 1); }), 5);
    EXPECT_EQ(test::errorOf([] { mid("abc", 1, -1); }), 5);
}

TEST(Dates, DayNumbers)
{
    using Case = std::tuple<const char*, std::int64_t>;
    for (const auto& [text, day] :
         {Case{"30/12/1899", 0}, Case{"31/12/1899", 1}, Case{"1/1/1900", 2}, Case{"01/01/2000", 36526},
          Case{"29/02/2000", 36585}, Case{"1/3/2000", 36586}, Case{"12/03/2004", 38058},
          Case{"29/12/1899", -1}, Case{"31/12/9999", 2958465}}) {
        EXPECT_EQ(dayNumber(text), day) << text;
    }
}

TEST(Dates, TextsThatAreNoDates)
{
    for (const char* text :
         {"", "1/1/04", "31/04/2004", "29/02/1900", "00/01/2000", "1/13/2000", "1/1/20000", " 1/1/2000",
          "1/1/2000 ", "1-1-2000", "001/1/2000", "2000/1/1", "1/1", "a/b/cccc", "+1/1/2000", "1//2000"}) {
        EXPECT_FALSE(dayNumber(text)) << text;
    }
}

}  // namespace
}  // namespace quorvin
