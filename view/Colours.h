/// Colours as the program counts them.
#pragma once

#include <QColor>
#include <cstdint>
#include <string>

class QWidget;

namespace quorvin {

/// Colour 0..15 of the classic 16-colour palette; other numbers are taken modulo 16, fractions cut off.
QColor paletteColour(double index);

/// A colour given as 0xBBGGRR.
QColor bgrColour(std::uint32_t value);

/// The background of scroll bars, system colour 0; marks a record that is not deleted.
QColor systemColour0();

/// The two colours in one colour code of a REC file.
struct ColourPair {
    QColor background;
    QColor foreground;
};

/// Splits a colour code: background = code div 16, foreground the rest, both modulo 16.
ColourPair decodeColourCode(const std::string& code);

/// Shows `colours` on a widget, or its usual colours again when they are not valid.
void paintWidget(QWidget& widget, const ColourPair& colours);

}  // namespace quorvin
