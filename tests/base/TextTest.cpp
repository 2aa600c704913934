#include "base/Text.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/ErrorNumber.h"

namespace quorvin {
namespace {

TEST(Text, NumberToText)
{
    struct Case {
        double number;
        const char* text;
    };
    for (const Case& c :
         {Case{0, " 0"}, Case{-0.0, " 0"}, Case{12, " 12"}, Case{-3.5, "-3.5"}, Case{0.5, " 0.5"},
          Case{0.1 + 0.2, " 0.3"}, Case{1234567890123456789.0, " 1234567890123460000"},
          Case{0.000025, " 0.000025"}, Case{1e15, " 1000000000000000"}, Case{100, " 100"},
          Case{999999999999999.9, " 1000000000000000"}, Case{12.25, " 12.25"}}) {
        EXPECT_EQ(str(c.number), c.text);
    }
    EXPECT_EQ(str(std::int64_t{9007199254740993}), " 9007199254740993") << "counts are exact beyond 53 bits";
    EXPECT_EQ(bareStr(6), "6");
}

TEST(Text, LeadingNumber)
{
    struct Case {
        std::string text;
        double number;
    };
    constexpr double most = std::numeric_limits<double>::max();
    for (const Case& c : {Case{"", 0},
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
        EXPECT_EQ(val(c.text), c.number) << c.text;
    }
}

TEST(Text, TrimsTakeBlanksOnly)
{
    struct Case {
        const char* text;
        const char* left;
        const char* right;
        const char* both;
    };
    for (const Case& c :
         {Case{"  a b ", "a b ", "  a b", "a b"}, Case{"   ", "", "", ""}, Case{"", "", "", ""},
          Case{"\ta ", "\ta ", "\ta", "\ta"}, Case{"                 ", "", "", ""},
          Case{"a        b        ", "a        b        ", "a        b", "a        b"}}) {
        EXPECT_EQ(lTrim(c.text), c.left);
        EXPECT_EQ(rTrim(c.text), c.right);
        EXPECT_EQ(trim(c.text), c.both);
    }
}

TEST(Text, PositionInText)
{
    struct Case {
        const char* haystack;
        const char* needle;
        std::size_t position;
    };
    for (const Case& c : {Case{"", "", 0}, Case{"", "a", 0}, Case{"a", "", 1}, Case{"banana", "an", 2},
                          Case{"banana", "na", 3}, Case{"banana", "nab", 0}, Case{"a", "aa", 0}}) {
        EXPECT_EQ(inStr(c.haystack, c.needle), c.position) << c.haystack << " / " << c.needle;
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

}  // namespace
}  // namespace quorvin
