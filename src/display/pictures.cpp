#include "display/pictures.h"

#include <QPainter>
#include <cmath>

namespace tarnwick {

namespace {

constexpr double CheckPart = 0.86;  ///< the rest is for the shadow

QPixmap Blank(QSizeF size, double pixelRatio) {
    QPixmap picture((size * pixelRatio).toSize());
    picture.setDevicePixelRatio(pixelRatio);
    picture.fill(Qt::transparent);
    return picture;
}

}  // namespace

QPixmap CheckPicture(const CheckFaces& faces, int denomination, int size, double pixelRatio) {
    QPixmap picture = Blank(QSizeF(size, size), pixelRatio);
    QPainter painter(&picture);
    CheckPainter checks;
    checks.Prepare(faces, 0, pixelRatio);
    const QPointF centre(size * 0.47, size * 0.46);
    checks.PaintShadow(painter, centre, size * CheckPart);
    checks.PaintCheck(painter, centre, size * CheckPart, denomination);
    return picture;
}

QPixmap ChecksPicture(const CheckFaces& faces, int height, double pixelRatio) {
    constexpr int shown[] = {2, 3, 4};
    const double step = height * 0.7;
    QPixmap picture = Blank(QSizeF(height + 2 * step, height), pixelRatio);
    QPainter painter(&picture);
    CheckPainter checks;
    checks.Prepare(faces, 0, pixelRatio);
    QPointF centre(height * 0.47, height * 0.46);
    for (const int denomination : shown) {
        checks.PaintShadow(painter, centre, height * CheckPart);
        checks.PaintCheck(painter, centre, height * CheckPart, denomination);
        centre.rx() += step;
    }
    return picture;
}

QPixmap DicePicture(const DieLook& first, const DieLook& second, int height, double pixelRatio) {
    QPixmap picture = Blank(QSizeF(height * 2.1, height), pixelRatio);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const double size = height * 0.72;
    PaintDie(painter, QPointF(height * 0.5, height * 0.47), size, -8, 5, first);
    PaintDie(painter, QPointF(height * 1.5, height * 0.47), size, 10, 6, second);
    return picture;
}

QPixmap SwatchPicture(const QColor& color, int height, double pixelRatio) {
    const QSizeF size(height * 1.5, height);
    QPixmap picture = Blank(size, pixelRatio);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0, 0, 0, 140), 1));
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(QPointF(0.5, 0.5), size - QSizeF(1, 1)), 3, 3);
    return picture;
}

}  // namespace tarnwick
