/// Formatted text: paragraphs of characters in runs of one format each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvin {

/// How characters look. The initial one is the usual letter font.
struct CharFormat {
    std::u32string font = U"Times New Roman";  ///< family
    int halfPoints = 28;                       ///< size
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;
    std::optional<std::uint32_t> colour;      ///< 0xRRGGBB; the usual one when there is none
    std::optional<std::uint32_t> background;  ///< likewise

    bool operator==(const CharFormat&) const = default;
};

enum class Alignment { left, centre, right, justified };
enum class TabKind { left, centre, right, decimal };

/// The largest size that is kept, in half points, and the greatest length, in twips.
inline constexpr int kMostHalfPoints = 3276;
inline constexpr int kMostTwips = 31680;

struct TabStop {
    int position = 0;  ///< twips (1/1440 inch) from the left indent of 0
    TabKind kind = TabKind::left;

    bool operator==(const TabStop&) const = default;
};

/// Lengths are twips.
struct ParagraphFormat {
    Alignment alignment = Alignment::left;
    int leftIndent = 0;
    int rightIndent = 0;
    int firstIndent = 0;  ///< of the first line, from leftIndent on; negative to the left of it
    std::vector<TabStop> tabs;

    bool operator==(const ParagraphFormat&) const = default;
};

/// Positions are counted from 0 in characters (Unicode code points); the end of a paragraph is one character,
/// and there is none behind the last paragraph. Never more than kMostCharacters: what is added beyond is left
/// out; nor more than kMostRuns of one paragraph: the rest of it looks like the last of them.
class RichText {
public:
    static constexpr char32_t kParagraphEnd = U'\n';
    /// A new line within the paragraph.
    static constexpr char32_t kLineBreak = U'\u2028';
    /// More than a hundred pages.
    static constexpr std::size_t kMostCharacters = 262144;
    /// Far beyond any letter's; the window's time for a paragraph grows with their square.
    static constexpr std::size_t kMostRuns = 4000;

    struct Run {
        std::size_t length = 0;
        CharFormat format;

        bool operator==(const Run&) const = default;
    };

    /// A stretch of the text and what comes in its place.
    struct Replacement {
        std::size_t position = 0;
        std::size_t length = 0;
        std::u32string text;
    };

    /// Unformatted text in Windows-1252, lines ended by CR LF, LF or CR.
    static RichText plain(std::string_view ansi);

    const std::u32string& text() const { return text_; }
    /// Formats of the text's characters, in their order; neighbours differ.
    const std::vector<Run>& runs() const { return runs_; }
    /// One more than there are paragraph ends.
    const std::vector<ParagraphFormat>& paragraphs() const { return paragraphs_; }
    bool empty() const { return text_.empty(); }
    bool isFull() const { return text_.size() >= kMostCharacters; }

    /// Adds characters to the last paragraph. What is no character of a line (control codes but the tab)
    /// becomes a blank.
    void append(std::u32string_view text, const CharFormat& format);
    /// Ends the last paragraph; the next one is formatted like it at first. `format` counts for a paragraph
    /// without characters; any other ends in the format of its last one.
    void endParagraph(const CharFormat& format);
    /// Formats the last paragraph.
    void setParagraphFormat(const ParagraphFormat& format);

    /// A copy with stretches replaced; they are in order and do not overlap, and may go beyond the end. What
    /// comes in takes the format of the first character that goes; the paragraph in which a stretch begins
    /// keeps its format.
    RichText replaced(std::span<const Replacement> replacements) const;
    /// The characters from `begin` on and before `end`, in their paragraphs' formats.
    RichText part(std::size_t begin, std::size_t end) const;

    bool operator==(const RichText&) const = default;

private:
    void add(std::u32string_view text, const CharFormat& format);

    std::u32string text_;
    std::vector<Run> runs_;
    std::size_t runsOfParagraph_ = 0;
    std::vector<ParagraphFormat> paragraphs_ = {ParagraphFormat()};
};

}  // namespace quorvin
