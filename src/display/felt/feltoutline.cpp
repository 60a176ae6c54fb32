#include "display/felt/feltoutline.h"

#include <algorithm>
#include <cmath>

namespace tarnwick {

double DistanceFrom(const RoundedBox& box, QPointF point) {
    const double middle = (box.Top + box.Bottom) / 2;
    const double radius = point.y() < middle ? box.TopRadius : box.BottomRadius;
    const double x = std::abs(point.x() - (box.Left + box.Right) / 2) - (box.Right - box.Left) / 2 + radius;
    const double y = std::abs(point.y() - middle) - (box.Bottom - box.Top) / 2 + radius;
    return x > 0 && y > 0 ? std::hypot(x, y) - radius : std::max(x, y) - radius;
}

QPainterPath PathOf(const RoundedBox& box) {
    const double top = 2 * box.TopRadius;
    const double bottom = 2 * box.BottomRadius;
    QPainterPath path;
    path.moveTo(box.Left + box.TopRadius, box.Top);
    path.arcTo(box.Right - top, box.Top, top, top, 90, -90);
    path.arcTo(box.Right - bottom, box.Bottom - bottom, bottom, bottom, 0, -90);
    path.arcTo(box.Left, box.Bottom - bottom, bottom, bottom, 270, -90);
    path.arcTo(box.Left, box.Top, top, top, 180, -90);
    path.closeSubpath();
    return path;
}

QPainterPath TableOutline() { return PathOf(OuterBox); }

}  // namespace tarnwick
