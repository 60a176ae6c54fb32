#include "display/felt/lettering.h"

#include <QFont>
#include <QHash>
#include <QMutex>
#include <QMutexLocker>
#include <QPair>
#include <QStringList>
#include <QTransform>

namespace tarnwick {

namespace {

constexpr int DrawnSize = 200;  ///< pixels; large, so that no hinting is left

QFont FontOf(Typeface face) {
    const bool serif = face == Typeface::Serif;
    QFont font(serif ? QStringList{QStringLiteral("Liberation Serif"), QStringLiteral("Times New Roman"),
                                   QStringLiteral("DejaVu Serif"), QStringLiteral("Arial")}
                     : QStringList{QStringLiteral("Liberation Sans"), QStringLiteral("Arial")});
    font.setPixelSize(DrawnSize);
    font.setBold(true);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QPainterPath Drawn(const QString& text, Typeface face) {
    QPainterPath path;
    path.addText(0, 0, FontOf(face), text);
    return path;
}

/// The text at its drawn size; the felt uses the same two hundred texts again and again, from two threads.
QPainterPath Remembered(const QString& text, Typeface face) {
    static QMutex oneAtATime;
    static QHash<QPair<QString, int>, QPainterPath> known;
    const QMutexLocker locker(&oneAtATime);
    if (known.size() > 2000) known.clear();
    const auto key = qMakePair(text, static_cast<int>(face));
    auto found = known.find(key);
    if (found == known.end()) found = known.insert(key, Drawn(text, face));
    return *found;
}

}  // namespace

QPainterPath Lettering(const QString& text, Typeface face, double capHeight, QPointF centre, double angle, double width,
                       double room) {
    static const double capitals[] = {Drawn(QStringLiteral("H"), Typeface::Serif).boundingRect().height(),
                                      Drawn(QStringLiteral("H"), Typeface::Sans).boundingRect().height()};
    const double drawnCap = capitals[static_cast<int>(face)];
    const QPainterPath drawn = Remembered(text, face);
    const QRectF box = drawn.boundingRect();
    if (drawn.isEmpty() || drawnCap <= 0 || box.width() <= 0) return {};
    const double tall = capHeight / drawnCap;
    double wide = width > 0 ? width / box.width() : tall;
    if (room > 0) wide = std::min(wide, room / box.width());
    QTransform place;
    place.translate(centre.x(), centre.y());
    place.rotate(angle);
    place.scale(wide, tall);
    place.translate(-box.center().x(), drawnCap / 2);
    return place.map(drawn);
}

}  // namespace tarnwick
