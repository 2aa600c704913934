/// A cheap test that most values fail, before the exact one.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

namespace quorvin {

/// Looks for two characters of a search text at their distance, in both cases, over a whole field at once,
/// eight bytes in one step. It may let values through that do not hold the text, but never stops one that
/// does.
class ByteFilter {
public:
    /// A filter for values that hold `needle`, given in capitals: by the two characters of it that are rarest
    /// in such data. `contiguous`: the needle's characters stand side by side in the value; without it only
    /// one of them is looked for. Nothing when the needle has no character that would do.
    static std::optional<ByteFilter> forNeedle(std::string_view needle, bool contiguous);

    /// False when `value`, a field's stored text in either case, cannot hold the needle.
    bool mayHold(std::string_view value) const
    {
        if (value.size() <= distance_) return false;
        const std::size_t places = value.size() - distance_;
        const char* at = value.data();
        if (places < sizeof(Word)) return mayHoldSlowly(at, places);
        // The last step overlaps the one before it, so that no byte behind the value is read.
        const char* const last = at + (places - sizeof(Word));
        // Most values lack the rarer character already, which keeps the look for both rare.
        bool found = rarerAt(last) != 0;
        for (const char* step = at; !found && step < last; step += sizeof(Word))
            found = rarerAt(step) != 0;
        if (!found) return false;
        found = bothAt(last) != 0;
        for (; !found && at < last; at += sizeof(Word))
            found = bothAt(at) != 0;
        return found;
    }

private:
    using Word = std::uint64_t;

    static constexpr Word kEach = 0x0101010101010101U;
    /// Letters differ in this bit from their capitals, in the whole code page but for four; those are not
    /// looked for.
    static constexpr unsigned char kCaseBit = 0x20;
    static constexpr Word kFold = kEach * kCaseBit;

    ByteFilter(char rarer, std::size_t rarerPlace, char other, std::size_t otherPlace);

    static Word load(const char* at)
    {
        Word word;
        std::memcpy(&word, at, sizeof(word));
        return word;
    }

    /// High bits set where a byte of `word` is zero; a borrow may set more, but only above such a byte.
    static Word zeroBytes(Word word) { return (word - kEach) & ~word & (kEach << 7); }

    /// Bits set where the rarer character stands in the eight bytes of its place; where both do.
    Word rarerAt(const char* at) const { return zeroBytes((load(at + rarerOffset_) | kFold) ^ rarer_); }
    Word bothAt(const char* at) const
    {
        return zeroBytes((load(at) | kFold) ^ first_) & zeroBytes((load(at + distance_) | kFold) ^ second_);
    }

    bool mayHoldSlowly(const char* at, std::size_t places) const;

    Word first_;   ///< the character in front, case bit set, in each byte
    Word second_;  ///< the one behind it, likewise
    Word rarer_;   ///< one of the two
    std::size_t distance_;
    std::size_t rarerOffset_;  ///< 0 or the distance
};

}  // namespace quorvin
