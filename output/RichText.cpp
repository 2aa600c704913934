#include "output/RichText.h"

#include <algorithm>

#include "base/Ansi.h"

namespace quorvin {

namespace {

/// Whether a character can stand in a line. Beyond control codes and halves of characters these are the
/// paragraph separator, codes that are none by definition, and the place holder for an object.
bool isOfLine(char32_t c)
{
    if (c == U'\t') return true;
    const bool none = (c >= 0xD800 && c < 0xE000) || (c >= 0xFDD0 && c < 0xFDF0) || c > 0x10FFFF;
    return c >= U' ' && c != 0x2029 && c != 0xFFFC && !none;
}

/// Copies a text from its beginning to its end, with stretches left out and others put in.
class Copier {
public:
    Copier(const RichText& from, RichText& to) : from_(from), to_(to) { takeParagraphFormat(); }

    void copyTo(std::size_t end)
    {
        end = std::min(end, from_.text().size());
        while (position_ < end) {
            const std::u32string& text = from_.text();
            if (text[position_] == RichText::kParagraphEnd) {
                to_.endParagraph(format());
                ++paragraph_;
                takeParagraphFormat();
                advance(1);
                continue;
            }
            const std::size_t lineEnd = std::min(text.find(RichText::kParagraphEnd, position_), end);
            const std::size_t length = std::min(lineEnd - position_, from_.runs()[run_].length - inRun_);
            to_.append(std::u32string_view(text).substr(position_, length), format());
            advance(length);
        }
    }

    /// Has the last paragraph look like the one at hand.
    void takeParagraphFormat() { to_.setParagraphFormat(from_.paragraphs()[paragraph_]); }

    void insert(std::u32string_view text) { to_.append(text, format()); }

    void skipTo(std::size_t end)
    {
        end = std::min(end, from_.text().size());
        while (position_ < end) {
            if (from_.text()[position_] == RichText::kParagraphEnd) ++paragraph_;
            advance(1);
        }
    }

private:
    CharFormat format() const { return from_.empty() ? CharFormat() : from_.runs()[run_].format; }

    /// Not beyond the run's end.
    void advance(std::size_t length)
    {
        position_ += length;
        inRun_ += length;
        if (inRun_ < from_.runs()[run_].length || run_ + 1 == from_.runs().size()) return;
        ++run_;
        inRun_ = 0;
    }

    const RichText& from_;
    RichText& to_;
    std::size_t position_ = 0;
    std::size_t paragraph_ = 0;
    std::size_t run_ = 0;
    std::size_t inRun_ = 0;
};

}  // namespace

RichText RichText::plain(std::string_view ansi)
{
    RichText result;
    const CharFormat usual;
    while (true) {
        const std::size_t end = ansi.find_first_of("\r\n");
        result.append(toUnicode(ansi.substr(0, std::min(end, kMostCharacters))), usual);
        if (end == std::string_view::npos || result.isFull()) return result;
        result.endParagraph(usual);
        ansi.remove_prefix(ansi.substr(end).starts_with("\r\n") ? end + 2 : end + 1);
    }
}

void RichText::append(std::u32string_view text, const CharFormat& format)
{
    std::u32string line(text.substr(0, kMostCharacters - text_.size()));
    std::replace_if(
        line.begin(), line.end(), [](char32_t c) { return !isOfLine(c); }, U' ');
    add(line, format);
}

void RichText::endParagraph(const CharFormat& format)
{
    if (isFull()) return;
    const bool blank = text_.empty() || text_.back() == kParagraphEnd;
    // A copy, for the runs may move.
    const CharFormat ofEnd = blank ? format : runs_.back().format;
    add(std::u32string_view(&kParagraphEnd, 1), ofEnd);
    paragraphs_.push_back(paragraphs_.back());
}

void RichText::setParagraphFormat(const ParagraphFormat& format)
{
    // What would come next is left out.
    if (isFull()) return;
    paragraphs_.back() = format;
}

void RichText::add(std::u32string_view text, const CharFormat& format)
{
    text = text.substr(0, kMostCharacters - text_.size());
    if (text.empty()) return;
    if (text_.empty() || text_.back() == kParagraphEnd) runsOfParagraph_ = 0;
    text_.append(text);
    if (runs_.empty() || (runs_.back().format != format && runsOfParagraph_ < kMostRuns)) {
        runs_.push_back({0, format});
        ++runsOfParagraph_;
    }
    runs_.back().length += text.size();
}

RichText RichText::replaced(std::span<const Replacement> replacements) const
{
    RichText result;
    Copier copier(*this, result);
    for (const Replacement& replacement : replacements) {
        copier.copyTo(replacement.position);
        copier.insert(replacement.text);
        copier.skipTo(replacement.position + replacement.length);
    }
    copier.copyTo(text_.size());
    return result;
}

RichText RichText::part(std::size_t begin, std::size_t end) const
{
    RichText result;
    Copier copier(*this, result);
    copier.skipTo(begin);
    copier.takeParagraphFormat();
    copier.copyTo(end);
    return result;
}

}  // namespace quorvin
