#include "base/Ansi.h"

#include <gtest/gtest.h>
#include <tuple>

#include "base/CodePage.h"

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
    using Case = std::tuple<const char*, const char*>;
    for (const auto& [small, capital] :
         {Case{"abcxyz", "ABCXYZ"}, Case{"àèéìòù", "ÀÈÉÌÒÙ"}, Case{"þ", "Þ"}, Case{"ÿ", "Ÿ"},
          Case{"šœž", "ŠŒŽ"}, Case{"ß", "ß"}, Case{"ªºµƒ", "ªºµƒ"}, Case{"÷×", "÷×"},
          Case{"AZ09[`{", "AZ09[`{"}, Case{"€…–", "€…–"}}) {
        EXPECT_EQ(toUtf8(upper(fromUtf8(small))), capital) << small;
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
    using Case = std::tuple<const char*, const char*>;
    for (const auto& [utf8, ansi] :
         {Case{"€", "\x80"}, Case{"“à”", "\x93\xE0\x94"}, Case{"日本", "??"}, Case{"😀", "?"},
          Case{"a\xC3", "a?"}, Case{"\xFFz", "?z"}, Case{"\xE2\x82z", "?z"}, Case{"\xC0\xAF", "??"},
          Case{"\xC2\x80", "?"}, Case{"\xC2\x81", "\x81"}, Case{"Nicolo\u0300", "Nicol\xF2"},
          Case{"S\u030Cy\u0308", "\x8A\xFF"}, Case{"q\u0300", "q?"}, Case{"\u0301", "?"},
          Case{"\u212B", "\xC5"}}) {
        EXPECT_EQ(fromUtf8(utf8), ansi) << utf8;
    }
}

TEST(CodePage, BytesBecomeTheirCharacters)
{
    std::string many;
    std::string manyRead;
    for (int i = 0; i < 1000; ++i) {
        many += "\x83\x5C.";
        manyRead += "ソ.";
    }
    using Case = std::tuple<std::string, int, std::string>;
    const Case cases[] = {
        {"a\xB3\xE8", 1250, "ałč"},
        {"\xCF\xE8", 1251, "Пи"},
        {"\xE8\x80", 1252, "è€"},
        {many, 932, manyRead},
        {"\xC3\xA8\xF0\x9F\x98\x80", 65001, "è😀"},
        {"a\xFFz", 65001, "a\uFFFDz"},
        {"\x8E", 10000, "é"},
        {"", 932, ""},
        {"\xE8", 4711, "è"},
        {"\xE8", -1, "è"},
        {"\xE8", 1, "è"},
        {"Gentile", 1258, "Gentile"},
        {"\xF9\xEC\xE5\xED", 1255, "שלום"},
    };
    for (const auto& [bytes, page, text] : cases)
        EXPECT_EQ(toUtf8(fromCodePage(bytes, page)), text) << page;
}

}  // namespace
}  // namespace quorvin
