#include <gtest/gtest.h>
#include <tuple>

#include "output/RtfReader.h"
#include "output/RtfWriter.h"
#include "tests/support/ShownText.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WholeText.h"

namespace quorvin {
namespace {

using test::isWhole;
using test::shown;

/// Fonts 1 to 5 and colours 1 and 2.
constexpr const char* kTables =
    "{\\fonttbl{\\f0\\froman Times New Roman;}{\\f1 Arial{\\*\\falt Helvetica};}{\\f2\\fnil\\fcharset2 "
    "Symbol;}{\\f3\\fcharset238 Arial CE;}{\\f4\\fcharset204 Arial Cyr;}{\\f5\\fcharset128 MS Mincho;}}"
    "{\\colortbl;\\red255\\green0\\blue16;\\blue128;}";

RichText read(const std::string& body)
{
    return readRtf("{\\rtf1\\ansi\\deff0" + std::string(kTables) + body + "}");
}

TEST(Rtf, WhatTheReaderMakesOfIt)
{
    using Case = std::tuple<const char*, const char*>;
    const Case cases[] = {
        // Formats.
        {"\\b a\\b0 b{\\i c\\ul d}e", "<b>a<>b<i>c<i u>d<>e"},
        {"\\strike a\\strike0\\ulw b\\ulnone c\\ulthdashd d\\ul0 e\\b1\\plain f", "<s>a<u>b<>c<u>d<>ef"},
        {"\\f1\\fs20 a\\f0 b\\f9 c\\plain d\\f1 e\\fs28 f", "<Arial 20>a<20>bc<>d<Arial>e<Arial 28>f"},
        {"\\cf1\\highlight2 a\\cf0 b\\highlight0\\cb1 c\\cf9 d\\plain\\chcbpat2 e",
         "<cff0010 g000080>a<g000080>b<gff0010>cd<g000080>e"},
        {"\\deff1 a\\f0 b", "<Arial>a<>b"},
        {"\\fs99999999999 a\\fs0 b\\fs c", "<3276>a<1>b<>c"},
        // Paragraphs.
        {"\\qc a\\par\\qr b\\par\\qj\\li720\\ri100\\fi-360 c\\par d\\par\\pard e\\par\\lin5\\rin6 f\\par\\ql",
         "[c 0 0 0]a\n[r 0 0 0]b\n[j 720 100 -360]c\n[j 720 100 -360]d\ne\n[l 5 6 0]f"},
        {"\\tx100\\tqc\\tx200\\tqr\\tx300\\tqdec\\tx400 a\\tab b\\par\\pard c",
         "[l 0 0 0 l100 c200 r300 d400]a\tb\nc"},
        {"\\li99999999999\\fi-99999999999\\tx-5 a", "[l 31680 0 -31680]a"},
        {"a\\par", "a"},
        {"a\\par\\par", "a\n"},
        {"\\par\\par a\\par\\b\\par\\par", "\n\na\n<b>\n"},
        {"a\\\nb\\line c\\lbr d\\page e\\sect f", "a\nb\u2028c\u2028d\ne\nf"},
        {"a\r\nb\\tab c\td\\par\\trowd\\cellx9\\intbl e\\cell f\\cell\\row g", "ab\tc\td\ne\tf\t\ng"},
        {"a\\nestcell b\\nestrow c\\column d", "a\tb\nc\nd"},
        // Characters.
        {"\\'e8\\'E8\\'80\\~\\_\\-\\emdash\\endash\\lquote\\rquote\\ldblquote\\rdblquote\\bullet x\\\\\\{\\}",
         "èè€\u00A0\u2011\u00AD—–‘’“”•x\\{}"},
        {"\\u8364?a\\u8364\\'80b\\u-28589 ?c\\u233ec", "€a€b道céc"},
        {"\\u-10179?\\u-8704?\\uc0\\u55357\\uc1\\u56832 ?a\\u-8704?b", "😀😀a\uFFFDb"},
        {"{\\uc0\\u8364 a}\\u8364 ?b\\uc2\\u8364 ??c\\u8364\\'80\\'80d\\u8364{e}{\\u8364}f\\u8364\\tab xg",
         "€a€b€c€d€e€f€g"},
        {"\\uc3\\u8364\\tab x\\{g\\uc-1\\u8364 h\\uc2\\u8364\\b ij", "€g€h€<b>ij"},
        {"\\u8364\\u99999999999 ?", "€\uFFFF"},
        // Code pages.
        {"\\f3\\'b3\\f4\\'cf\\f5\\'83\\\\\\'83\\'5ca\\f0\\'e0", "<Arial CE>ł<Arial Cyr>П<MS Mincho>ソソa<>à"},
        {"\\ansicpg1251\\'cf\\f3\\'b3\\ansicpg4711\\plain\\'cf", "П<Arial CE>ł<>Ï"},
        {"\\ansicpg65001\\'c3{\\b \\'a8}", "\uFFFD<b>\uFFFD"},
        {"\\ansicpg65001 \\'e2\\'82\\'ac\xC3\xA8\\mac\\'8e\\pc\\'82\\pca\\'9b\\ansi\\'9b", "€èéé\u00F8›"},
        // Lists.
        {"{\\pntext\\f2\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf2{\\pntxtb\\'B7}}a\\par{\\listtext\\f2\\'d8\\tab}b",
         "<Symbol>•\t<>a\n<Symbol>➢\t<>b"},
        {"{\\f2\\'a7\\'e0\\u-3913?}\\u-3844?\\u-4000?", "<Symbol>▪à•<>✓\uF060"},
        // Left out.
        {"{\\*\\unknown x{\\b y}}a{\\stylesheet{\\s0 Normal;}}{\\info{\\title T}}b\\nosuch7 c{\\*}{\\i d}",
         "abc<i>d"},
        {"{\\pict\\wmetafile8 0102{\\*\\x y}}a{\\pict\\bin3 {}}}b\\bin2 \\}c", "abc"},
        {"{\\v a}b\\v c\\v0 d\\v e\\plain f{\\header g}{\\footnote h}\\'00", "bdf"},
        {"{\\field{\\*\\fldinst HYPERLINK x}{\\fldrslt a}}{\\*\\shppict{\\pict 1}}{\\nonshppict{\\pict 1}}b",
         "ab"},
        {"{\\shp{\\*\\shpinst\\shpleft1{\\sp{\\sn x}{\\sv y}}{\\shptxt "
         "a\\par}}{\\shprslt{\\*\\do{\\dptxbxtext z}}}}b",
         "a\nb"},
        {"\\qc a{\\shpgrp{\\*\\shpinst\\x{\\shp{\\*\\shpinst{\\shptxt\\pard b\\par}}}}}c\\par",
         "[c 0 0 0]a\nb\n[c 0 0 0]c"},
        {"{\\qc\\pict 01}a{\\field{\\b\\fldinst x}{\\fldrslt b}}{\\super\\footnote c}", "ab"},
        {"{\\*\\do\\dobx{\\dptxbxtext a}}{\\upr{b?}{\\*\\ud{\\u321?b}}}{\\deleted c}d\\deleted e\\deleted0 f",
         "aŁbdf"},
        // Damaged.
        {"}}a\\b b", "a<b>b"},
        {"{\\b a", "<b>a"},
        {"a\\'zzb\\'4", "azzb"},
        {"a\\* b\\b c\\u-10179?d", "a b<b>c\uFFFDd"},
        {"a\\*\\foo b\\footnote c\\fonttbl d", "abcd"},
        {"\\abcdefghijklmnopqrstuvwxyzabcdefghijklm x", "x"},
        {"a{\\fonttbl{\\f1", "a"},
        {"a\\bin99999999999 b", "a"},
        {"a\\", "a}"},
    };
    for (const auto& [rtf, text] : cases)
        EXPECT_EQ(shown(read(rtf)), text) << rtf;
    EXPECT_EQ(shown(readRtf("{\\rtf1{\\fonttbl\\f0 Arial;\\f1\\fcharset238 \\'a3;\\f2 ;}a\\f1 b\\f2 c")),
              "<Arial>a<Ł>b<>c");
    EXPECT_EQ(shown(readRtf("{\\rtf1{\\fonttbl{\\f0 A\tb\\u59?\\u8232?c;}}a")), "<A b  c>a");
    EXPECT_EQ(shown(readRtf("{\\rtf1{\\fonttbl{\\f0 A\\u321?\\'e0\\u-10179?\\u-8704?;}}a")), "<AŁà😀>a");
    EXPECT_EQ(shown(readRtf("{\\rtf1{\\fonttbl{\\f0 Arial}{\\upr{\\f1 ??;}{\\*\\ud{\\f1 B;}}}}a\\f1 b")),
              "<Arial>a<B>b");
    EXPECT_EQ(shown(readRtf("no RTF\\")), "no RTF");
}

/// What the reader makes of a file written by a word processor.
std::string shownFile(const char* name)
{
    const std::string rtf = test::bytesOf(std::filesystem::path(TEST_DATA) / name);
    EXPECT_TRUE(isRtf(rtf)) << name;
    return shown(readRtf(rtf));
}

TEST(Rtf, LettersOfAWordProcessorAreWhole)
{
    EXPECT_EQ(shownFile("lettera.rtf"),
              "[c 0 0 0]<Arial 36 b>Comunicazione al paziente\n"
              "[r 0 0 0]<>Roma, *(2)*          \n"
              "\n"
              "[j 0 1440 720]Gentile <b>*(3)*          <>, la visita è fissata <i>perché<> il <u>controllo<> "
              "costa <s>50<> 30 €: “città di Łódź” <cc00000>urgente<> e <gffff00>giallo<>, {così} \\ "
              "<Arial 20>in piccolo<>.\u2028A capo.\n"
              "[l 0 0 0 l2880 r5760]uno\tdue\ttre 😀\n"
              "[l 720 0 -360] •\tprimo\n"
              "[l 720 0 -360] •\tsecondo\n"
              "cella\taltra\t\n"
              "Cordiali saluti’");
    // With the font that its words have by default left out.
    std::string form = shownFile("modulo.rtf");
    const std::string usual = "Liberation Serif";
    for (std::size_t at = form.find(usual); at != std::string::npos; at = form.find(usual, at))
        form.erase(at, usual.size() + (form[at + usual.size()] == ' ' ? 1 : 0));
    EXPECT_EQ(form, "[c 0 0 0]<Liberation Sans 32 b>Modulo di consenso\n"
                    "<>Il sottoscritto <i>*(1)* <>nato il <u>*(4)* <>a <c0000ff>Forlì<>:\n"
                    "[l 709 0 -283 l709] 1.\tè informato;\n"
                    "[l 709 0 -283 l709] 2.\taccetta <s>tutto<> <b>le cure<>.\n"
                    "peso\taltezza\t\n70 kg\t1,75 m\t\n"
                    "[l 1134 0 -567]Firma:\u2028“data e luogo” – 5 €");
}

TEST(Rtf, OtherReadersFindWhatTheyKnow)
{
    ParagraphFormat lines;
    lines.alignment = Alignment::justified;
    lines.firstIndent = -9;
    lines.tabs = {{7, TabKind::decimal}};
    CharFormat red;
    red.bold = true;
    red.colour = 0xFF0010;
    RichText text;
    text.append(U"a\tà\"\uFF01\U0001F600", {});
    text.endParagraph({});
    text.setParagraphFormat(lines);
    text.append(U"{", red);
    EXPECT_EQ(
        writeRtf(text),
        "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Times New Roman;}}{\\colortbl "
        ";\\red255\\green0\\blue16;}\\pard \\plain\\f0\\fs28 a\\tab \\'e0\\'22\\u-255?\\u-10179?\\u-8704?"
        "\\par \\pard\\qj\\fi-9\\tqdec\\tx7 \\plain\\f0\\fs28\\b\\cf1 \\{\\par}");
}

TEST(Rtf, LettersCutAnywhereAreSoundAndReadAgain)
{
    for (const char* name : {"lettera.rtf", "modulo.rtf"}) {
        const std::string rtf = test::bytesOf(std::filesystem::path(TEST_DATA) / name);
        for (std::size_t length = 0; length <= rtf.size(); ++length) {
            const RichText text = readRtf(std::string_view(rtf).substr(0, length));
            ASSERT_TRUE(isWhole(text)) << name << length;
            ASSERT_EQ(readRtf(writeRtf(text)), text) << name << length;
        }
    }
}

TEST(Rtf, NothingIsTooDeepOrTooLong)
{
    std::string deep = "{\\b ";
    std::string tabs;
    for (int i = 0; i < 100000; ++i) {
        deep += "{\\i ";
        tabs += "\\tx1";
    }
    EXPECT_EQ(shown(read(deep)), "");
    EXPECT_EQ(shown(read(deep + "a" + std::string(100000, '}') + "b}c")), "<b i>a<b>b<>c");
    EXPECT_EQ(read(tabs + "a").paragraphs()[0].tabs.size(), 32U);

    std::string formats;
    for (int i = 0; i < 3000; ++i)
        formats += "\\b a\\b0 a";
    EXPECT_EQ(read(formats + "\\par\\b c").runs().size(), RichText::kMostRuns + 1);
    EXPECT_EQ(read(formats).text().size(), 6000U);

    const std::string most(RichText::kMostCharacters - 1, 'a');
    EXPECT_EQ(read(most + "bc\\par d").text(), toUnicode(most + "b"));
    const RichText ended = read(most + "\\par b\\par c");
    EXPECT_EQ(ended.text(), toUnicode(most + "\n"));
    EXPECT_TRUE(isWhole(ended));
    EXPECT_EQ(read("\\qc " + most + "bc\\par\\pard d").paragraphs()[0].alignment, Alignment::centre);
    EXPECT_EQ(ended.replaced({{{0, 1, U"xyz"}}}).text().size(), RichText::kMostCharacters);
}

TEST(RichText, WhatIsNoCharacterOfALineBecomesABlank)
{
    RichText text;
    text.append({U"a\tb\r\n\u0001\u2029\uFFFC\uFDD0\uFDEF\u0000\u0085c", 13}, {});
    const char32_t none[] = {0xD800, 0xDFFF, 0x110000};
    text.append({none, 3}, {});
    EXPECT_EQ(text.text(), std::u32string(U"a\tb") + std::u32string(8, U' ') + U"\u0085c   ");
    EXPECT_EQ(text.runs().size(), 1U);
}

}  // namespace
}  // namespace quorvin
