/// The working modes as data: what each of them switches off while it lasts, and how it shows.
#pragma once

#include <span>
#include <string_view>

namespace quorvin {

/// A mode is on while the menu item of the same name is ticked.
struct ModeRow {
    std::string_view name;
    std::span<const std::string_view> disables;           ///< menus, items and controls, while it lasts
    std::span<const std::string_view> unticks = {};       ///< items and boxes, when it begins
    std::string_view menu = {};                           ///< the top-level menu that shows the mode
    std::string_view caption = {};                        ///< and how it reads meanwhile
    std::span<const std::string_view> enables = {};       ///< items that belong to it, while it lasts
    std::span<const std::string_view> unticksAtEnd = {};  ///< items and boxes, when the user leaves it
};

std::span<const ModeRow> modeTable();

}  // namespace quorvin
