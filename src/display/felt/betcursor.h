// Betting by keyboard: the boxes that the arrow keys walk through.
#pragma once

#include <QPainterPath>
#include <QPointF>
#include <vector>

namespace tarnwick {

struct Table;

/// A box, or a CheckStack of the bettor at his rail.
struct CursorTarget {
    int Id = 0;   ///< stays the same while settings and players change; 0 is none
    int Raw = 0;  ///< the hot-spot map's value
    QPointF Centre;
    QPainterPath Path;
};

/// What the keyboard reaches now: every box shown that is everybody's or the bettor's own, and the bettor's
/// CheckStacks.
std::vector<CursorTarget> CursorTargets(const Table& t);

/// The target that an arrow key leads to from target `id`, as directions are seen on the screen (of a slanted table,
/// the nearest of its own axes): the nearest one that lies well in that direction; `id` itself when there is none, and
/// the Pass Line from none.
int NextTarget(const Table& t, int id, Qt::Key arrow);

}  // namespace tarnwick
