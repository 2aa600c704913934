#include "stats/ValueSlots.h"

#include <cstring>
#include <utility>

#include "base/RuntimeError.h"

namespace quorvin {

namespace {

template<class Word>
std::uint64_t wordAt(const char* bytes)
{
    Word word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

/// A product carries differences upwards only, and the places are chosen by the lowest bits: twice, with the
/// halves folded, every character reaches them.
std::uint64_t mixed(std::uint64_t hash, std::uint64_t word)
{
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;
    constexpr unsigned kHalf = 32;
    hash = (hash ^ word) * kFactor;
    hash = (hash ^ (hash >> kHalf)) * kFactor;
    return hash ^ (hash >> kHalf);
}

/// Eight characters at a time; the last eight may overlap those before them, so that most values take two
/// steps. `text` must not be empty.
std::uint64_t hashOf(std::string_view text)
{
    using Eight = std::uint64_t;
    using Four = std::uint32_t;
    const char* const end = text.data() + text.size();
    std::uint64_t hash = text.size();
    if (text.size() >= sizeof(Eight)) {
        for (; text.size() > sizeof(Eight); text.remove_prefix(sizeof(Eight)))
            hash = mixed(hash, wordAt<Eight>(text.data()));
        return mixed(hash, wordAt<Eight>(end - sizeof(Eight)));
    }
    if (text.size() >= sizeof(Four))
        return mixed(mixed(hash, wordAt<Four>(text.data())), wordAt<Four>(end - sizeof(Four)));
    for (const char c : text)
        hash = hash << 8U | static_cast<unsigned char>(c);
    return mixed(hash, 0);
}

}  // namespace

const std::string& ValueSlots::at(int slot) const
{
    if (slot < 0 || slot > next()) throw RuntimeError(ErrorNumber::subscript);
    return texts_[slot == next() ? 0 : static_cast<std::size_t>(slot)];
}

int ValueSlots::slotOf(std::string_view text)
{
    if (texts_.size() * 2 > places_.size()) grow();
    const std::uint64_t hash = hashOf(text);
    Place& place = placeOf(hash, text);
    if (place.slot == 0) {
        texts_.emplace_back(text);
        place = {hash, next() - 1};
    }
    return place.slot;
}

/// Where the text is, or where it is to be put.
ValueSlots::Place& ValueSlots::placeOf(std::uint64_t hash, std::string_view text)
{
    const std::size_t mask = places_.size() - 1;
    std::size_t i = static_cast<std::size_t>(hash) & mask;
    const auto isOther = [&](const Place& place) {
        return place.slot != 0 &&
               (place.hash != hash || texts_[static_cast<std::size_t>(place.slot)] != text);
    };
    while (isOther(places_[i]))
        i = (i + 1) & mask;
    return places_[i];
}

void ValueSlots::grow()
{
    constexpr std::size_t kFirst = 16;
    const std::vector<Place> before =
        std::exchange(places_, std::vector<Place>(places_.empty() ? kFirst : 2 * places_.size()));
    for (const Place& place : before) {
        if (place.slot != 0) placeOf(place.hash, texts_[static_cast<std::size_t>(place.slot)]) = place;
    }
}

void ValueSlots::clear()
{
    texts_.resize(1);
    places_.clear();
}

}  // namespace quorvin
