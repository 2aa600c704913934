#include "app/ModeTable.h"

#include <array>

namespace quorvin {

namespace {

constexpr std::string_view kPreferencesDisable[] = {"esporta", "stat", "stampa", "documento", "impostadoc"};

constexpr std::array kRows = {
    ModeRow{"preferenze", kPreferencesDisable},
};

}  // namespace

std::span<const ModeRow> modeTable()
{
    return kRows;
}

}  // namespace quorvin
