/// The working modes as data: what each of them switches off while it lasts.
#pragma once

#include <span>
#include <string_view>

namespace quorvin {

/// A mode is on while the menu item of the same name is ticked.
struct ModeRow {
    std::string_view name;
    std::span<const std::string_view> disables;  ///< menus, items and controls
};

std::span<const ModeRow> modeTable();

}  // namespace quorvin
