/// Control words of RTF (version 1.9) and what they stand for, as far as one table says it all.
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

#include "output/RichText.h"

namespace quorvin {

template<class Table>
bool contains(const Table& table, std::string_view word)
{
    return std::find(std::begin(table), std::end(table), word) != std::end(table);
}

/// What a table has for a key, if anything.
template<class Table, class Key>
auto lookUp(const Table& table, const Key& key)
{
    const auto found = std::find_if(std::begin(table), std::end(table),
                                    [&key](const auto& row) { return row.first == key; });
    return found == std::end(table) ? std::nullopt : std::optional(found->second);
}

using WordForCharacter = std::pair<std::string_view, char32_t>;

inline constexpr WordForCharacter kCharacterWords[] = {
    {"tab", U'\t'},
    {"cell", U'\t'},
    {"nestcell", U'\t'},
    {"line", RichText::kLineBreak},
    {"lbr", RichText::kLineBreak},
    {"emdash", 0x2014},
    {"endash", 0x2013},
    {"lquote", 0x2018},
    {"rquote", 0x2019},
    {"ldblquote", 0x201C},
    {"rdblquote", 0x201D},
    {"bullet", 0x2022},
    {"emspace", 0x2003},
    {"enspace", 0x2002},
    {"qmspace", 0x2005},
    {"zwj", 0x200D},
    {"zwnj", 0x200C},
    {"~", 0xA0},
    {"_", 0x2011},
    {"-", 0xAD},
};

/// The escaped characters of the format itself; they are bytes of the text like any other.
inline constexpr std::string_view kEscapedCharacters = "\\{}";

inline constexpr std::string_view kParagraphEnds[] = {"par", "sect",    "page", "column",
                                                      "row", "nestrow", "\r",   "\n"};

inline constexpr std::pair<std::string_view, bool CharFormat::*> kToggles[] = {
    {"b", &CharFormat::bold},
    {"i", &CharFormat::italic},
    {"strike", &CharFormat::strikeOut},
    {"striked", &CharFormat::strikeOut},
};

/// Lines of all kinds below the text; they can be switched like the toggles.
inline constexpr std::string_view kUnderlines[] = {
    "ul",  "uld",    "uldash", "uldashd", "uldashdd", "uldb",      "ulhwave",    "ulldash",   "ululdbwave",
    "ulw", "ulwave", "ulth",   "ulthd",   "ulthdash", "ulthdashd", "ulthdashdd", "ulthldash",
};

inline constexpr std::pair<std::string_view, Alignment> kAlignments[] = {
    {"ql", Alignment::left},
    {"qc", Alignment::centre},
    {"qr", Alignment::right},
    {"qj", Alignment::justified},
};

inline constexpr std::pair<std::string_view, int ParagraphFormat::*> kIndents[] = {
    {"li", &ParagraphFormat::leftIndent},  {"lin", &ParagraphFormat::leftIndent},
    {"ri", &ParagraphFormat::rightIndent}, {"rin", &ParagraphFormat::rightIndent},
    {"fi", &ParagraphFormat::firstIndent},
};

/// Kind of the next tab stop.
inline constexpr std::pair<std::string_view, TabKind> kTabWords[] = {
    {"tqc", TabKind::centre},
    {"tqr", TabKind::right},
    {"tqdec", TabKind::decimal},
};

inline constexpr std::pair<std::string_view, std::optional<std::uint32_t> CharFormat::*> kColourWords[] = {
    {"cf", &CharFormat::colour},
    {"highlight", &CharFormat::background},
    {"cb", &CharFormat::background},
    {"chcbpat", &CharFormat::background},
};

/// Groups that hold no text of the document, although older readers are not told to pass over them.
inline constexpr std::string_view kSkippedGroups[] = {
    "stylesheet", "info",      "pict",
    "nonshppict", "objdata",   "objclass",
    "objname",    "fldinst",   "filetbl",
    "header",     "headerl",   "headerr",
    "headerf",    "footer",    "footerl",
    "footerr",    "footerf",   "footnote",
    "ftnsep",     "ftnsepc",   "ftncn",
    "aftnsep",    "aftnsepc",  "aftncn",
    "xe",         "tc",        "rxe",
    "bkmkstart",  "bkmkend",   "pntxta",
    "pntxtb",     "listtable", "listoverridetable",
    "shprslt",
};

/// Groups of which one group within is text of the document: the frame of a text box, and a text once for
/// readers that do not know Unicode and once for those that do.
inline constexpr std::string_view kChoosingGroups[] = {"shp", "shpgrp", "shpinst", "do", "upr"};
inline constexpr std::string_view kChosenGroups[] = {"shptxt", "dptxbxtext", "ud"};
/// Those of them that stand beside the text around them, not in it.
inline constexpr std::string_view kBoxTexts[] = {"shptxt", "dptxbxtext"};

/// Words that choose the document's code page.
inline constexpr std::pair<std::string_view, int> kPageWords[] = {
    {"ansi", 1252},
    {"mac", 10000},
    {"pc", 437},
    {"pca", 850},
};

/// Windows' numbers of character sets and their code pages; for others the document's is in force.
inline constexpr std::pair<int, int> kCharsetPages[] = {
    {0, 1252},   {77, 10000}, {128, 932},  {129, 949},  {130, 1361}, {134, 936},
    {136, 950},  {161, 1253}, {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256},
    {186, 1257}, {204, 1251}, {222, 874},  {238, 1250}, {254, 437},  {255, 850},
};

/// The character set of fonts that are pictures, and what the usual bullets among these are in Unicode. Other
/// codes are left to the font.
inline constexpr int kSymbolCharset = 2;
inline constexpr std::pair<unsigned char, char32_t> kSymbols[] = {
    {0xB7, 0x2022}, {0xA7, 0x25AA}, {0xA8, 0x25FB}, {0xD8, 0x27A2}, {0xFC, 0x2713},
};

}  // namespace quorvin
