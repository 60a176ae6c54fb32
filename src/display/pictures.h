// Small pictures of what lies on the table, for buttons and labels.
#pragma once

#include <QPixmap>

#include "display/felt/checkpainter.h"
#include "display/felt/dicepainter.h"

namespace tarnwick {

/// Check 1..5, `size` wide.
QPixmap CheckPicture(const CheckFaces& faces, int denomination, int size, double pixelRatio);
/// Three checks side by side, `height` high.
QPixmap ChecksPicture(const CheckFaces& faces, int height, double pixelRatio);
/// Two dice side by side, `height` high.
QPixmap DicePicture(const DieLook& first, const DieLook& second, int height, double pixelRatio);
/// A field of one color, `height` high.
QPixmap SwatchPicture(const QColor& color, int height, double pixelRatio);

}  // namespace tarnwick
