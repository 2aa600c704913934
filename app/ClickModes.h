/// What a click in a field box does to selections and colours, by the modes that are on.
#pragma once

#include <cstdint>
#include <functional>
#include <span>

#include "view/Colours.h"
#include "view/Selections.h"

namespace quorvin {

/// Palette colour of the form, and of the labels until a click gives them another, in both statistics modes.
inline constexpr int kCountingColour = 5;

/// One effect of a click. All effects that apply are carried out in the table's order, so that in a
/// statistics mode the field enters both selections and the box ends up in the colours of the mode.
struct ClickMode {
    FieldList Selections::*list;
    std::span<const char* const> onlyIn;   ///< applies while one of these is ticked; always when empty
    std::span<const char* const> neverIn;  ///< but not while one of these is
    std::uint32_t background;              ///< 0xBBGGRR
    std::uint32_t foreground;              ///< 0xBBGGRR
    int labelColour = -1;                  ///< palette colour of all labels, -1 to leave them

    bool appliesTo(const std::function<bool(const char*)>& isTicked) const;
    ColourPair box() const { return {bgrColour(background), bgrColour(foreground)}; }
};

std::span<const ClickMode> clickModes();

}  // namespace quorvin
