#include "output/RtfWriter.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Ansi.h"
#include "output/RichText.h"

namespace quorvin {

namespace {

/// Entries of a table in the order of their first use, numbered from 0.
template<class Value>
class Table {
public:
    std::size_t number(const Value& value)
    {
        const auto [entry, isNew] = numbers_.try_emplace(value, values_.size());
        if (isNew) values_.push_back(value);
        return entry->second;
    }

    const std::vector<Value>& values() const { return values_; }

private:
    std::map<Value, std::size_t> numbers_;
    std::vector<Value> values_;
};

/// Escapes of characters that are control words, or would be taken for part of the format.
constexpr std::array<std::pair<char32_t, std::string_view>, 6> kEscapes = {{
    {U'\\', "\\\\"},
    {U'{', "\\{"},
    {U'}', "\\}"},
    {U'"', "\\'22"},
    {U'\t', "\\tab "},
    {RichText::kLineBreak, "\\line "},
}};

class Writer {
public:
    std::string write(const RichText& text)
    {
        writeBody(text);
        std::string rtf = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl";
        swap(rtf);
        for (std::size_t i = 0; i < fonts_.values().size(); ++i)
            writeFont(i);
        out_ += "}{\\colortbl ;";
        for (const std::uint32_t colour : colours_.values())
            writeColour(colour);
        out_ += '}';
        swap(rtf);
        return rtf + out_ + '}';
    }

private:
    void swap(std::string& other) { out_.swap(other); }

    void writeBody(const RichText& text)
    {
        std::size_t paragraph = 0;
        std::size_t position = 0;
        fonts_.number(CharFormat().font);
        writeParagraphFormat(text.paragraphs()[0]);
        for (const RichText::Run& run : text.runs()) {
            writeFormat(run.format);
            for (const std::size_t end = position + run.length; position < end; ++position) {
                if (text.text()[position] != RichText::kParagraphEnd) {
                    writeCharacter(text.text()[position]);
                    continue;
                }
                out_ += "\\par ";
                ++paragraph;
                // What is not said goes on as before.
                if (text.paragraphs()[paragraph] != text.paragraphs()[paragraph - 1])
                    writeParagraphFormat(text.paragraphs()[paragraph]);
            }
        }
        out_ += "\\par";
    }

    void writeParagraphFormat(const ParagraphFormat& format)
    {
        constexpr std::string_view kAlignments[] = {"", "\\qc", "\\qr", "\\qj"};
        constexpr std::string_view kTabKinds[] = {"", "\\tqc", "\\tqr", "\\tqdec"};
        out_ += "\\pard";
        out_ += kAlignments[static_cast<std::size_t>(format.alignment)];
        writeNumber("\\li", format.leftIndent);
        writeNumber("\\ri", format.rightIndent);
        writeNumber("\\fi", format.firstIndent);
        for (const TabStop& tab : format.tabs) {
            out_ += kTabKinds[static_cast<std::size_t>(tab.kind)];
            out_ += "\\tx" + std::to_string(tab.position);
        }
        out_ += ' ';
    }

    /// A length, when it is not the initial 0.
    void writeNumber(std::string_view word, int number)
    {
        if (number != 0) out_.append(word).append(std::to_string(number));
    }

    void writeFormat(const CharFormat& format)
    {
        out_ += "\\plain\\f" + std::to_string(fonts_.number(format.font));
        out_ += "\\fs" + std::to_string(format.halfPoints);
        if (format.bold) out_ += "\\b";
        if (format.italic) out_ += "\\i";
        if (format.underline) out_ += "\\ul";
        if (format.strikeOut) out_ += "\\strike";
        // Colour 0 is the usual one.
        if (format.colour) out_ += "\\cf" + std::to_string(colours_.number(*format.colour) + 1);
        if (format.background)
            out_ += "\\highlight" + std::to_string(colours_.number(*format.background) + 1);
        out_ += ' ';
    }

    void writeFont(std::size_t number)
    {
        out_ += "{\\f" + std::to_string(number) + "\\fnil\\fcharset0 ";
        // A semicolon ends the name.
        for (const char32_t c : fonts_.values()[number])
            writeCharacter(c == U';' ? U' ' : c);
        out_ += ";}";
    }

    void writeColour(std::uint32_t colour)
    {
        out_ += "\\red" + std::to_string(colour >> 16 & 0xFF);
        out_ += "\\green" + std::to_string(colour >> 8 & 0xFF);
        out_ += "\\blue" + std::to_string(colour & 0xFF) + ';';
    }

    void writeCharacter(char32_t c)
    {
        const auto escape = std::find_if(kEscapes.begin(), kEscapes.end(),
                                         [c](const auto& entry) { return entry.first == c; });
        if (escape != kEscapes.end()) {
            out_ += escape->second;
        } else if (c >= U' ' && c < 0x7F) {
            out_ += static_cast<char>(c);
        } else if (const char code = fromUnicode(c); code != '?') {
            writeByte(static_cast<unsigned char>(code));
        } else if (c < 0x10000) {
            writeUnit(c);
        } else {
            writeUnit(0xD800 + ((c - 0x10000) >> 10));
            writeUnit(0xDC00 + ((c - 0x10000) & 0x3FF));
        }
    }

    void writeByte(unsigned char code)
    {
        constexpr char kDigits[] = "0123456789abcdef";
        out_ += "\\'";
        out_ += kDigits[code >> 4];
        out_ += kDigits[code & 15];
    }

    /// A unit of UTF-16 as a signed number, and what readers that do not know it show instead.
    void writeUnit(char32_t unit)
    {
        const int number = static_cast<int>(unit);
        out_ += "\\u" + std::to_string(number < 0x8000 ? number : number - 0x10000) + '?';
    }

    std::string out_;
    Table<std::u32string> fonts_;
    Table<std::uint32_t> colours_;
};

}  // namespace

std::string writeRtf(const RichText& text)
{
    return Writer().write(text);
}

}  // namespace quorvin
