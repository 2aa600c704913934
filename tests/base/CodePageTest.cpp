#include "base/CodePage.h"

#include <gtest/gtest.h>

#include "base/Ansi.h"

namespace quorvin {
namespace {

TEST(CodePage, BytesBecomeTheirCharacters)
{
    std::string many;
    std::string manyRead;
    for (int i = 0; i < 1000; ++i) {
        many += "\x83\x5C.";
        manyRead += "ソ.";
    }
    struct Case {
        std::string bytes;
        int page;
        std::string text;
    };
    const Case cases[] = {
        {"a\xB3\xE8", 1250, "ałč"},
        {"\xCF\xE8", 1251, "Пи"},
        {"\xE8\x80", 1252, "è€"},
        {many, 932, manyRead},
        {"a\x83", 932, "a\uFFFD"},
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
    for (const Case& c : cases)
        EXPECT_EQ(toUtf8(fromCodePage(c.bytes, c.page)), c.text) << c.page;
}

}  // namespace
}  // namespace quorvin
