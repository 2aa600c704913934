#include "view/Colours.h"

#include <QPalette>
#include <QWidget>
#include <array>
#include <cmath>

#include "base/Text.h"

namespace quorvin {

namespace {

constexpr int kPaletteSize = 16;

constexpr std::array<QRgb, kPaletteSize> kPalette = {
    0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000, 0xC0C0C0,
    0x808080, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF,
};

}  // namespace

QColor paletteColour(double index)
{
    const double rest = std::fmod(std::trunc(index), kPaletteSize);
    return QColor(kPalette[static_cast<std::size_t>(rest < 0 ? rest + kPaletteSize : rest)]);
}

QColor bgrColour(std::uint32_t value)
{
    return QColor(static_cast<int>(value & 0xFFU), static_cast<int>((value >> 8) & 0xFFU),
                  static_cast<int>((value >> 16) & 0xFFU));
}

QColor systemColour0()
{
    return QColor(0xC8, 0xC8, 0xC8);
}

ColourPair decodeColourCode(const std::string& code)
{
    const double number = std::trunc(val(code));
    return {paletteColour(std::floor(number / kPaletteSize)), paletteColour(number)};
}

void paintWidget(QWidget& widget, const ColourPair& colours)
{
    if (!colours.background.isValid()) {
        widget.setPalette(QPalette());
        widget.setAutoFillBackground(false);
        return;
    }
    QPalette palette = widget.palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
            palette.setColor(group, role, colours.background);
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            palette.setColor(group, role, colours.foreground);
    }
    widget.setPalette(palette);
    widget.setAutoFillBackground(true);
}

}  // namespace quorvin
