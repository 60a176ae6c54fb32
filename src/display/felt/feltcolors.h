// Colors of the table by element, and the eight sets of them that can be chosen whole.
#pragma once

#include <QColor>
#include <QString>
#include <array>
#include <cstdint>
#include <vector>

namespace tarnwick {

struct Table;

/// Elements of TableColors; 13..42 are the boxes, as the layout numbers them.
namespace ColorIndex {
enum : int {
    Felt = 0,
    Lines = 1,
    RailInside = 2,
    RailOutside = 3,
    Floor = 4,
    Die1 = 5,
    Pips1 = 6,
    Die2 = 7,
    Pips2 = 8,
    PropPayoffs = 42
};
}  // namespace ColorIndex

/// Color of element 0..42, whose value has red in its low byte.
QColor FeltColor(const Table& t, int index);

/// Contrast of two colors, 1..21, by relative luminance as WCAG 2.1 defines it.
double ContrastOf(const QColor& a, const QColor& b);
/// Below this a label can't be read on the felt and gets an outline.
constexpr double LeastContrast = 2.6;

struct ColorPreset {
    QString Caption;  ///< of its menu command
    std::array<std::uint32_t, 43> Colors{};
};

const std::vector<ColorPreset>& ColorPresets();

/// Sets all colors to those of preset 0..7.
void SetColorPreset(Table& t, int preset);

}  // namespace tarnwick
