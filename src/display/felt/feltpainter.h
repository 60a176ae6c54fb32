// The felt with its lines and letters: all that stands still while people play.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <array>
#include <cstdint>

#include "config/settings.h"

namespace tarnwick {

struct Table;
struct FeltLabel;

/// Everything that the picture of the felt depends on. Two equal keys give the same picture.
struct FeltKey {
    QSize Size;  ///< of the window, in its own pixels
    double PixelRatio = 1;
    std::array<std::int32_t, 4> View{};  ///< width, angle, offsets
    std::array<std::uint32_t, 43> Colors{};
    std::array<std::int32_t, 7> Options{};
    std::array<PayoffEntry, 101> Payoffs{};
    std::array<PayoffEntry, 22> FieldPayoffs{};

    bool operator==(const FeltKey&) const = default;
};

FeltKey FeltKeyOf(const Table& t, QSize size, double pixelRatio);

/// Draws the room, the rail and the felt as the table's view places them, for a window of `size`.
QImage PaintFelt(const Table& t, QSize size, double pixelRatio);

/// What the label says under the payoffs in force; payoffs and field multiples may leave it empty.
QString LabelText(const Table& t, const FeltLabel& label);

}  // namespace tarnwick
