/// Formatted text written out, so that a test shows at a glance what it expects.
#pragma once

#include <cstdio>
#include <ostream>
#include <string>

#include "base/Ansi.h"
#include "output/RichText.h"

namespace quorvin::test {

/// What of a format is not that of RTF's plain text, blanks between.
inline std::string shown(const CharFormat& format)
{
    std::string result;
    const auto add = [&](bool holds, const std::string& what) {
        if (holds) result += (result.empty() ? "" : " ") + what;
    };
    const auto colour = [](char kind, std::optional<std::uint32_t> value) {
        char text[16];
        std::snprintf(text, sizeof text, "%c%06x", kind, static_cast<unsigned>(value.value_or(0)));
        return std::string(text);
    };
    add(format.font != CharFormat().font, format.font.empty() ? "none" : toUtf8(format.font));
    add(format.halfPoints != 24, std::to_string(format.halfPoints));
    add(format.bold, "b");
    add(format.italic, "i");
    add(format.underline, "u");
    add(format.strikeOut, "s");
    add(format.colour.has_value(), colour('c', format.colour));
    add(format.background.has_value(), colour('g', format.background));
    return result;
}

inline std::string shown(const ParagraphFormat& format)
{
    std::string result(1, "lcrj"[static_cast<int>(format.alignment)]);
    for (const int length : {format.leftIndent, format.rightIndent, format.firstIndent})
        result += ' ' + std::to_string(length);
    for (const TabStop& tab : format.tabs)
        result += std::string(" ") + "lcrd"[static_cast<int>(tab.kind)] + std::to_string(tab.position);
    return result;
}

/// The text with <formats> where they change and the paragraphs' [formats] where they are not the initial
/// ones.
inline std::string shown(const RichText& text)
{
    std::string result;
    std::string last;
    std::size_t paragraph = 0;
    std::size_t position = 0;
    const auto beginParagraph = [&] {
        const std::string format = shown(text.paragraphs().at(paragraph++));
        if (format != "l 0 0 0") result += '[' + format + ']';
    };
    beginParagraph();
    for (const RichText::Run& run : text.runs()) {
        if (shown(run.format) != last) result += '<' + (last = shown(run.format)) + '>';
        for (const std::size_t end = position + run.length; position < end; ++position) {
            result += toUtf8(std::u32string(1, text.text().at(position)));
            if (text.text()[position] == RichText::kParagraphEnd) beginParagraph();
        }
    }
    return result;
}

}  // namespace quorvin::test

namespace quorvin {

/// For messages of failed tests.
inline void PrintTo(const RichText& text, std::ostream* out)
{
    *out << test::shown(text);
}

}  // namespace quorvin
