#include "app/ClickModes.h"

#include <algorithm>
#include <array>

namespace quorvin {

namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kBlue = 0x800000;
constexpr std::uint32_t kLightGreen = 0x00FF00;
constexpr std::uint32_t kYellow = 0x00FFFF;
constexpr std::uint32_t kRed = 0x0000FF;
constexpr int kRedLabels = 4;

constexpr const char* kNotSearching[] = {"impmat", "sommcamp", "sostituisci", "impostadoc"};
constexpr const char* kJoining[] = {"unirek"};
constexpr const char* kFrequency[] = {"freq"};
constexpr const char* kTable[] = {"tabella"};

constexpr std::array kClickModes = {
    ClickMode{&Selections::searchSelection, {}, kNotSearching, 0xC000C0, kWhite},
    ClickMode{&Selections::joinList, kJoining, kNotSearching, kRed, kWhite},
    ClickMode{&Selections::SelectedFields, kFrequency, {}, kLightGreen, kBlue, kCountingColour},
    ClickMode{&Selections::SelectedFields, kTable, {}, kYellow, kBlue, kRedLabels},
};

}  // namespace

bool ClickMode::appliesTo(const std::function<bool(const char*)>& isTicked) const
{
    const bool allowed = onlyIn.empty() || std::any_of(onlyIn.begin(), onlyIn.end(), isTicked);
    return allowed && std::none_of(neverIn.begin(), neverIn.end(), isTicked);
}

std::span<const ClickMode> clickModes()
{
    return kClickModes;
}

}  // namespace quorvin
