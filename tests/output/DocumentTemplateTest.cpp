#include "output/DocumentTemplate.h"

#include <gtest/gtest.h>

#include <map>
#include <tuple>

#include "tests/support/ErrorNumber.h"
#include "tests/support/ShownText.h"

namespace quorvin {
namespace {

using test::errorOf;
using Fields = std::map<int, std::string>;
using test::shown;

std::string blanks(std::size_t count)
{
    return std::string(count, ' ');
}

const Fields kFields = {{1, "ab"},     {3, "Castelvetrano"}, {4, "quat"},      {11, "dodicicaratt"},
                        {12, "Rossi"}, {13, "  Verdi "},     {14, "\xE0\x80"}, {20, "*(1)*"},
                        {21, "a*"},    {100, "z"},           {200, "ultimo"}};

std::string textOf(int n)
{
    if (!kFields.contains(n)) throw RuntimeError(ErrorNumber::subscript);
    return kFields.at(n);
}

TEST(DocumentTemplate, WhatAMarkerTakesWithIt)
{
    struct Case {
        std::string text;
        std::string filled;
        int error = 0;
    };
    const Case cases[] = {
        {"", ""},
        {"senza * ( ) marca", "senza * ( ) marca"},
        {"Sig. " + DocumentTemplate::marker(12) + ", ", "Sig. Rossi, "},
        {"a " + DocumentTemplate::marker(3) + "b", "a Castelvetrano b"},
        {"*(4)*123456", "quat456"},
        {DocumentTemplate::marker(11), "dodicicaratt*" + blanks(10)},
        {"*(13)*" + blanks(11) + "!", "Verdi!"},
        {DocumentTemplate::marker(14) + "ef!", "\xE0\x80!"},
        {"*(100)*" + DocumentTemplate::marker(3) + std::string(82, '-') + "b", "zb"},
        {"*(200)*", "ultimo"},
        {"*()*ab*(0)*", "ab*"},
        {"*(x12)*", "2)*", 5},
        {"*( 1 2 )*" + blanks(10) + "!", "Rossi   !"},
        {"*(\xE0)*", "*"},
        {"*(1*(12)*", "ab12)*", 5},
        {"*(1)**(12)*" + blanks(10) + "*(1)*", "abRossiab"},
        // A value is no marker, and makes none with what stands beside it.
        {"*(20)*" + blanks(18) + "*(1)*", "*(1)*ab"},
        {"*(21)*" + blanks(19) + "(1)*", "a*(1)*", 5},
        {"*(1)*c*(", "abc*(", 5},
        {"*(1)*c)*", "abc)*", 5},
        {"a)*", "a)*", 5},
        {")**(1)*", ")**(1)*", 5},
        {"*(1)**(1.5)*", "ab*(1.5)*", 9},
        {"*(-1)*", "*(-1)*", 9},
        {"*(1)*\r\n*(7)*\n*(1)*", "ab\n*(7)*\n*(1)*", 9},
        {"*(201)*", "*(201)*", 9},
        {"*(99999999999999999999)*", "*(99999999999999999999)*", 9},
    };
    for (const Case& c : cases) {
        RichText filled = RichText::plain("before");
        const DocumentTemplate document{c.text};
        EXPECT_EQ(errorOf([&] { document.elabcom(textOf, filled); }), c.error) << c.text;
        EXPECT_EQ(filled, RichText::plain(c.filled)) << c.text;
    }
}

TEST(DocumentTemplate, FormatsSurviveTheFilling)
{
    const std::pair<const char*, const char*> cases[] = {
        {"{\\b a}*(12)*          {\\i b}", "<b>a<>Rossi<i>b"},
        {"a{\\b *(12)*          }b", "a<b>Rossi<>b"},
        {"a*(\\b 12)*          b", "aRossi<b>b"},
        {"a{\\i *}(12)*          b", "a<i>Rossi<>b"},
        {"\\b *(1)*\\i *(1)*\\b0 *(1)*c", "<b>ab<b i>ab<i>abc"},
        {"\\qc a\\par\\qr *(12)*\\par\\qj x\\par\\ql y      z\\par\\qc b",
         "[c 0 0 0]a\n[r 0 0 0]Rossiz\n[c 0 0 0]b"},
        {"\\b *(12)*\\par\\i x\\par\\par y", "<b>Rossi"},
    };
    for (const auto& [rtf, result] : cases) {
        RichText filled;
        DocumentTemplate("{\\rtf1 " + std::string(rtf) + "}").elabcom(textOf, filled);
        EXPECT_EQ(shown(filled), result) << rtf;
    }
}

TEST(DocumentTemplate, ManyMarkersTakeNoLonger)
{
    using Case = std::tuple<const char*, const char*, const char*, int>;
    for (const auto& [piece, end, begins, error] : {Case{"*(", ")*", ")*", 5}, Case{"*(0 ", ")*", ")*", 5},
                                                    Case{"*(1)*", "", "ab", 0}, Case{")*", "*(", ")*", 5}}) {
        std::string pieces;
        for (int i = 0; i < 50000; ++i)
            pieces += piece;
        const DocumentTemplate document(pieces + end);
        RichText filled;
        EXPECT_EQ(errorOf([&] { document.elabcom(textOf, filled); }), error) << piece;
        EXPECT_EQ(toUtf8(filled.text().substr(0, 2)), begins);
    }
}

TEST(DocumentTemplate, TheStoredTextIsOneItemOfALine)
{
    for (const std::string text : {"", " ", "due\r\nrighe\r\n", "solo\nLF\rCR\n\r",
                                   "\"a, b\" {c} \\rtf \x93\xE0\x80\x94\x81\t*(3)*   ",
                                   "{\\rtf1 {\\b a}\\par\\'22\\u321?\\u-10179?\\u-8704?\\par\\par}"}) {
        const DocumentTemplate document(text);
        const std::string stored = document.toStored();
        EXPECT_EQ(DocumentTemplate(stored).Textserb, document.Textserb) << text;
        EXPECT_EQ(stored.empty(), text.empty());
    }
    EXPECT_EQ(DocumentTemplate("a\r\nb\rc\n\nd").Textserb.text(), U"a\nb\nc\n\nd");
    EXPECT_EQ(shown(DocumentTemplate("a").Textserb), "<28>a");
}

}  // namespace
}  // namespace quorvin
