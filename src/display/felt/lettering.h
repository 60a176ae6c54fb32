// Letters as paths, fitted to a height and a width, so that any font keeps the geometry of the layout.
#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QString>

namespace tarnwick {

enum class Typeface { Serif, Sans };

/// `text` with capitals `capHeight` high, centred on `centre` and turned clockwise by `angle` degrees. A `width` above
/// 0 is the width of the whole text; a `room` above 0 is the most that it may take.
QPainterPath Lettering(const QString& text, Typeface face, double capHeight, QPointF centre, double angle = 0,
                       double width = 0, double room = 0);

}  // namespace tarnwick
