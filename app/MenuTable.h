/// The menu tree as data: one row per menu, item and separator, in display order.
#pragma once

#include <span>
#include <string_view>

namespace quorvin {

enum class MenuKind { menu, item, separator };

enum class Availability {
    always,    ///< also without a file
    withFile,  ///< while a file is open
    inMode,    ///< while a mode that it belongs to is on
    never,     ///< shown, but not part of this version
};

/// What becomes of an item's tick when another file is opened.
enum class Tick {
    none,  ///< carries no tick
    off,   ///< off at the start and with every file
    on,    ///< on at the start and with every file
    kept,  ///< off at the start, then as the user leaves it until the program ends
};

/// A row belongs to the menu named `parent`; rows without parent stand in the menu bar.
struct MenuRow {
    std::string_view name;
    std::string_view caption;  ///< UTF-8; empty for separators
    std::string_view parent;
    MenuKind kind = MenuKind::item;
    Availability availability = Availability::never;
    Tick tick = Tick::none;
    std::string_view shortcut = {};  ///< portable key text
    char accessKey = 0;              ///< letter of the caption that opens it together with Alt
};

std::span<const MenuRow> menuTable();

}  // namespace quorvin
