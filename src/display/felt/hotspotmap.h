// The hidden map that tells what lies under a pixel of the window: every box filled with its bet's number.
#pragma once

#include <QImage>
#include <QPoint>

#include "table/bets.h"

namespace tarnwick {

struct Table;

/// What a pixel of the map can hold beside a bet's row 1..91.
namespace HotSpot {
constexpr int Nothing = 0xFFFFFF;
constexpr int Outline = 996;  ///< the edge of the table
constexpr int Rail =
    1000;  ///< 1000 p + m: player p's place; m 0 area and name, 1..5 a check, 11..14 a CheckStack shown
}  // namespace HotSpot

/// Player of a rail value 1000..8999; 0 for other values.
constexpr int RailPlayer(int value) { return 1000 <= value && value <= 8999 ? value / 1000 : 0; }
/// Part of a rail value, as above.
constexpr int RailPart(int value) { return value % 1000; }
/// Whether an adjusted value is a bet of the layout or a CheckStack shown (101..104).
constexpr bool IsBetSpot(int value) { return IsLayoutRow(value) || (101 <= value && value <= 104); }

class HotSpotMap {
  public:
    /// Paints the map for the view and settings of the table, for a window of `size`.
    void Rebuild(const Table& t, QSize size);
    /// The value under a pixel; Nothing outside the window.
    int At(QPoint pixel) const;
    const QImage& Image() const { return Map; }

  private:
    QImage Map;
};

/// What a raw value of the map means for the active player: 0 for nothing; a Don't Come box is the flat bet until there
/// is something to give odds to; Don't Pass takes its odds once a point is on; Place is Buy where a Buy bet stands; the
/// CheckStacks of the active player are 101..104.
int HotSpotAt(const Table& t, int raw);

/// The row that the right button lowers where the left one raises `value`: the flat bet while the odds hold nothing.
int RowToLower(const Table& t, int value);

}  // namespace tarnwick
