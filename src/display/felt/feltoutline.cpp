#include "display/felt/feltoutline.h"

namespace tarnwick {

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
