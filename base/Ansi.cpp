#include "base/Ansi.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

namespace quorvin {

namespace {

/// Codes 80 to 9F; the rest of the page equals Latin-1.
constexpr std::array<char32_t, 32> kUpperControls = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178,
};
constexpr unsigned kFirstSpecial = 0x80;
constexpr unsigned kLastSpecial = 0x9F;

constexpr unsigned char capitalOf(unsigned c)
{
    if (c >= 'a' && c <= 'z') return static_cast<unsigned char>(c - 0x20);
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return static_cast<unsigned char>(c - 0x20);
    switch (c) {
    case 0x9A:  // š
    case 0x9C:  // œ
    case 0x9E:  // ž
        return static_cast<unsigned char>(c - 0x10);
    case 0xFF:  // ÿ
        return 0x9F;
    default:
        return static_cast<unsigned char>(c);
    }
}

constexpr auto kCapitals = [] {
    std::array<unsigned char, 256> table{};
    for (unsigned c = 0; c < table.size(); ++c)
        table[c] = capitalOf(c);
    return table;
}();

/// Characters whose capitals are found at once.
constexpr std::size_t kStep = 8;

/// Puts the capitals of so many characters at `to`.
void raiseStep(const char* from, char* to)
{
    using Word = std::uint64_t;
    static_assert(sizeof(Word) == kStep);
    constexpr Word kEach = 0x0101010101010101U;
    constexpr Word kHighBits = kEach << 7U;
    Word word = 0;
    std::memcpy(&word, from, kStep);
    if ((word & kHighBits) != 0) {
        std::transform(from, from + kStep, to, toUpper);
        return;
    }
    // Adding what lacks to the high bit sets it in the bytes from 'a' on, and in those behind 'z'.
    const Word fromA = word + kEach * (0x80U - 'a');
    const Word behindZ = word + kEach * (0x80U - 'z' - 1U);
    constexpr unsigned kToCaseBit = 2;
    word ^= ((fromA ^ behindZ) & kHighBits) >> kToCaseBit;
    std::memcpy(to, &word, kStep);
}

void appendUtf8(std::string& out, char32_t c)
{
    if (c < 0x80) {
        out.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (c >> 6)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else {
        if (c < 0x10000) {
            out.push_back(static_cast<char>(0xE0 | (c >> 12)));
        } else {
            out.push_back(static_cast<char>(0xF0 | (c >> 18)));
            out.push_back(static_cast<char>(0x80 | ((c >> 12) & 0x3F)));
        }
        out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    }
}

constexpr char32_t kDamaged = 0xFFFD;

struct Decoded {
    char32_t character;
    std::size_t bytes;  ///< at least 1
};

std::size_t sequenceLength(unsigned char lead)
{
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    if (lead >= 0xF0 && lead < 0xF5) return 4;
    return 0;
}

/// The character that `utf8`, not empty, begins with; a damaged sequence counts its intact beginning as one.
Decoded decodeFirst(std::string_view utf8)
{
    const auto lead = static_cast<unsigned char>(utf8[0]);
    const std::size_t length = sequenceLength(lead);
    if (length == 0) return {kDamaged, 1};
    if (length == 1) return {lead, 1};
    auto character = static_cast<char32_t>(lead & (0x7FU >> length));
    for (std::size_t i = 1; i < length; ++i) {
        if (i >= utf8.size()) return {kDamaged, i};
        const auto next = static_cast<unsigned char>(utf8[i]);
        if ((next & 0xC0U) != 0x80U) return {kDamaged, i};
        character = (character << 6) | (next & 0x3FU);
    }
    return {character, length};
}

/// A mark that follows its letter as a character of its own, and the letters of the code page that carry it:
/// first those without the mark, then, in the same order, those with it.
struct CombiningMark {
    char32_t mark;
    std::string_view plain;
    std::string_view marked;
};

constexpr CombiningMark kCombiningMarks[] = {
    {0x300, "AEIOUaeiou", "\xC0\xC8\xCC\xD2\xD9\xE0\xE8\xEC\xF2\xF9"},            // grave
    {0x301, "AEIOUYaeiouy", "\xC1\xC9\xCD\xD3\xDA\xDD\xE1\xE9\xED\xF3\xFA\xFD"},  // acute
    {0x302, "AEIOUaeiou", "\xC2\xCA\xCE\xD4\xDB\xE2\xEA\xEE\xF4\xFB"},            // circumflex
    {0x303, "ANOano", "\xC3\xD1\xD5\xE3\xF1\xF5"},                                // tilde
    {0x308, "AEIOUYaeiouy", "\xC4\xCB\xCF\xD6\xDC\x9F\xE4\xEB\xEF\xF6\xFC\xFF"},  // diaeresis
    {0x30A, "Aa", "\xC5\xE5"},                                                    // ring
    {0x30C, "SZsz", "\x8A\x8E\x9A\x9E"},                                          // caron
    {0x327, "Cc", "\xC7\xE7"},                                                    // cedilla
};

/// Characters that stand for one of the code page's, for the units and marks they once were.
constexpr std::pair<char32_t, char> kSameCharacters[] = {
    {0x212A, 'K'}, {0x212B, '\xC5'}, {0x37E, ';'}, {0x387, '\xB7'}, {0x1FEF, '`'}, {0x1FFD, '\xB4'},
};

char usualCharacter(char32_t character)
{
    for (const auto& [same, code] : kSameCharacters) {
        if (same == character) return code;
    }
    return fromUnicode(character);
}

/// Puts a combining mark on the last character of `text`; false when the code page has no such letter.
bool combine(std::string& text, char32_t mark)
{
    for (const CombiningMark& row : kCombiningMarks) {
        if (row.mark != mark || text.empty()) continue;
        const std::size_t letter = row.plain.find(text.back());
        if (letter == std::string_view::npos) return false;
        text.back() = row.marked[letter];
        return true;
    }
    return false;
}

}  // namespace

char toUpper(char c)
{
    return static_cast<char>(kCapitals[static_cast<unsigned char>(c)]);
}

std::string upper(std::string_view text)
{
    std::string result;
    appendUpper(result, text);
    return result;
}

void appendUpper(std::string& target, std::string_view text)
{
    const std::size_t before = target.size();
    target.resize(before + text.size());
    char* const to = target.data() + before;
    if (text.size() < kStep) {
        std::transform(text.begin(), text.end(), to, toUpper);
        return;
    }
    const std::size_t last = text.size() - kStep;
    for (std::size_t i = 0; i < last; i += kStep)
        raiseStep(text.data() + i, to + i);
    // May overlap the one before it.
    raiseStep(text.data() + last, to + last);
}

char32_t toUnicode(char c)
{
    const auto code = static_cast<unsigned char>(c);
    if (code < kFirstSpecial || code > kLastSpecial) return code;
    return kUpperControls[code - kFirstSpecial];
}

std::u32string toUnicode(std::string_view ansi)
{
    std::u32string text;
    text.reserve(ansi.size());
    for (const char c : ansi)
        text.push_back(toUnicode(c));
    return text;
}

char fromUnicode(char32_t character)
{
    if (character < kFirstSpecial || (character > kLastSpecial && character <= 0xFF)) {
        return static_cast<char>(character);
    }
    const auto found = std::find(kUpperControls.begin(), kUpperControls.end(), character);
    if (found == kUpperControls.end()) return '?';
    return static_cast<char>(kFirstSpecial + static_cast<unsigned>(found - kUpperControls.begin()));
}

std::string toUtf8(std::string_view ansi)
{
    std::string out;
    out.reserve(ansi.size());
    appendUtf8(out, ansi);
    return out;
}

void appendUtf8(std::string& target, std::string_view ansi)
{
    while (!ansi.empty()) {
        // Nearly all characters stand for themselves.
        const auto special = std::find_if(
            ansi.begin(), ansi.end(), [](char c) { return static_cast<unsigned char>(c) >= kFirstSpecial; });
        const auto plain = static_cast<std::size_t>(special - ansi.begin());
        target.append(ansi.substr(0, plain));
        ansi.remove_prefix(plain);
        if (ansi.empty()) return;
        appendUtf8(target, toUnicode(ansi.front()));
        ansi.remove_prefix(1);
    }
}

std::string toUtf8(std::u32string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (const char32_t c : text)
        appendUtf8(out, c);
    return out;
}

std::string fromUtf8(std::string_view utf8)
{
    std::string out;
    out.reserve(utf8.size());
    while (!utf8.empty()) {
        const Decoded decoded = decodeFirst(utf8);
        if (!combine(out, decoded.character)) out.push_back(usualCharacter(decoded.character));
        utf8.remove_prefix(decoded.bytes);
    }
    return out;
}

}  // namespace quorvin
