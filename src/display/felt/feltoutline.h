// The shape of the table itself: two nested boxes with round corners, the padded rail between them, and inside the
// inner one the wooden rack and the felt.
#pragma once

#include <QPainterPath>
#include <QPointF>

namespace tarnwick {

/// A box with round corners, in table units; the two upper corners may be rounded otherwise than the lower ones.
struct RoundedBox {
    double Left, Top, Right, Bottom;
    double TopRadius, BottomRadius;
};

constexpr RoundedBox OuterBox = {0, -23, 1248, 537, 195, 195};
constexpr RoundedBox RackBox = {28, 22, 1220, 509, 150, 167};
constexpr double RackDepth = 32;  ///< of the wood that the checks lie in, inward from RackBox
constexpr double WallDepth = 38;  ///< where the felt begins

/// `box` with every side moved inward by `inset`.
constexpr RoundedBox Inset(const RoundedBox& box, double inset) {
    return {box.Left + inset,   box.Top + inset,       box.Right - inset,
            box.Bottom - inset, box.TopRadius - inset, box.BottomRadius - inset};
}

/// Distance from the edge of `box`, negative inside.
double DistanceFrom(const RoundedBox& box, QPointF point);

QPainterPath PathOf(const RoundedBox& box);

/// The outer edge of the rail.
QPainterPath TableOutline();

}  // namespace tarnwick
