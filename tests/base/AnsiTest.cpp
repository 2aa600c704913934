#include "base/Ansi.h"

#include <gtest/gtest.h>

namespace quorvin {
namespace {

TEST(Ansi, EveryCodeSurvivesTheWayThroughUtf8)
{
    for (int code = 0; code < 256; ++code) {
        const std::string one(1, static_cast<char>(code));
        EXPECT_EQ(fromUtf8(toUtf8(one)), one) << code;
    }
}

TEST(Ansi, CapitalsAreTheCodePages)
{
    struct Case {
        const char* small;
        const char* capital;
    };
    for (const Case& c : {Case{"abcxyz", "ABCXYZ"}, Case{"àèéìòù", "ÀÈÉÌÒÙ"}, Case{"þ", "Þ"}, Case{"ÿ", "Ÿ"},
                          Case{"šœž", "ŠŒŽ"}, Case{"ß", "ß"}, Case{"ªºµƒ", "ªºµƒ"}, Case{"÷×", "÷×"},
                          Case{"AZ09[`{", "AZ09[`{"}, Case{"€…–", "€…–"}}) {
        EXPECT_EQ(toUtf8(upper(fromUtf8(c.small))), c.capital) << c.small;
    }
}

TEST(Ansi, CapitalsDoNotDependOnTheCharactersBesideThem)
{
    std::string page;
    std::string capitals;
    for (int code = 0; code < 256; ++code) {
        page.push_back(static_cast<char>(code));
        capitals.push_back(toUpper(static_cast<char>(code)));
    }
    for (std::size_t from = 0; from < page.size(); ++from) {
        for (const std::size_t length : {7U, 8U, 9U, 23U})
            ASSERT_EQ(upper(page.substr(from, length)), capitals.substr(from, length)) << from;
    }
}

TEST(Ansi, UnicodeBecomesUtf8)
{
    EXPECT_EQ(toUtf8(U"\u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF"),
              "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
}

TEST(Ansi, WhatIsNotInTheCodePageBecomesAQuestionMark)
{
    struct Case {
        const char* utf8;
        const char* ansi;
    };
    for (const Case& c : {Case{"€", "\x80"}, Case{"“à”", "\x93\xE0\x94"}, Case{"日本", "??"}, Case{"😀", "?"},
                          Case{"a\xC3", "a?"}, Case{"\xFFz", "?z"}, Case{"\xE2\x82z", "?z"},
                          Case{"\xC0\xAF", "??"}, Case{"\xC2\x80", "?"}, Case{"\xC2\x81", "\x81"},
                          Case{"Nicolo\u0300", "Nicol\xF2"}, Case{"S\u030Cy\u0308", "\x8A\xFF"},
                          Case{"q\u0300", "q?"}, Case{"\u0301", "?"}, Case{"\u212B", "\xC5"}}) {
        EXPECT_EQ(fromUtf8(c.utf8), c.ansi) << c.utf8;
    }
}

}  // namespace
}  // namespace quorvin
