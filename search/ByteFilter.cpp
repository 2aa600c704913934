#include "search/ByteFilter.h"

#include <algorithm>
#include <array>
#include <limits>

#include "base/Ansi.h"
#include "base/Text.h"

namespace quorvin {

namespace {

/// Capitals from the most to the least frequent in names, places and words of Italian data; what is not
/// listed is rarer still.
constexpr std::string_view kFrequent = " AEIONRTLSCMDUPGBVFZHQJXYKW";
constexpr int kDigitWeight = 12;
constexpr int kRareWeight = 1;

int weightOf(char capital)
{
    const std::size_t rank = kFrequent.find(capital);
    if (rank != std::string_view::npos) return static_cast<int>(2 * (kFrequent.size() - rank));
    return isDigit(capital) ? kDigitWeight : kRareWeight;
}

/// Whether the case bit is all that tells `capital` from the characters whose capital it is.
bool differsByCaseBitOnly(char capital, unsigned char caseBit)
{
    const auto folded = static_cast<unsigned char>(static_cast<unsigned char>(capital) | caseBit);
    for (unsigned code = 0; code <= std::numeric_limits<unsigned char>::max(); ++code) {
        const auto c = static_cast<char>(code);
        if (toUpper(c) == capital && static_cast<unsigned char>(code | caseBit) != folded) return false;
    }
    return true;
}

}  // namespace

ByteFilter::ByteFilter(char rarer, std::size_t rarerPlace, char other, std::size_t otherPlace)
{
    const auto inEachByte = [](char c) {
        return kEach * static_cast<unsigned char>(static_cast<unsigned char>(c) | kCaseBit);
    };
    const bool rarerInFront = rarerPlace <= otherPlace;
    rarer_ = inEachByte(rarer);
    first_ = inEachByte(rarerInFront ? rarer : other);
    second_ = inEachByte(rarerInFront ? other : rarer);
    distance_ = std::max(rarerPlace, otherPlace) - std::min(rarerPlace, otherPlace);
    rarerOffset_ = rarerInFront ? 0 : distance_;
}

std::optional<ByteFilter> ByteFilter::forNeedle(std::string_view needle, bool contiguous)
{
    constexpr std::size_t kNone = std::string_view::npos;
    std::size_t rarest = kNone;
    std::size_t second = kNone;
    for (std::size_t i = 0; i < needle.size(); ++i) {
        if (!differsByCaseBitOnly(needle[i], kCaseBit)) continue;
        if (rarest == kNone || weightOf(needle[i]) < weightOf(needle[rarest])) {
            second = rarest;
            rarest = i;
        } else if (second == kNone || weightOf(needle[i]) < weightOf(needle[second])) {
            second = i;
        }
    }
    if (rarest == kNone) return std::nullopt;
    if (!contiguous || second == kNone) second = rarest;
    return ByteFilter(needle[rarest], rarest, needle[second], second);
}

bool ByteFilter::mayHoldSlowly(const char* at, std::size_t places) const
{
    std::array<char, 2 * sizeof(Word)> padded{};
    // Both characters' runs of places, each padded to a whole step.
    std::memcpy(padded.data(), at, places);
    std::memcpy(padded.data() + sizeof(Word), at + distance_, places);
    const Word hits = zeroBytes((load(padded.data()) | kFold) ^ first_) &
                      zeroBytes((load(padded.data() + sizeof(Word)) | kFold) ^ second_);
    return hits != 0;
}

}  // namespace quorvin
