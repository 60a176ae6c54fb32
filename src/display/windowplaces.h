// Where windows stand, from one evening to the next.
#pragma once

#include <QRect>

#include "config/displaystate.h"

class QWidget;

namespace tarnwick {

/// Notes where `window` stands and whether it is shown; `sized`: its size too.
void KeepPlace(const QWidget& window, FormPlacement& place, bool sized);
/// Puts `window` there, onto a screen if need be. Nothing for a place that was never noted.
void TakePlace(QWidget& window, const FormPlacement& place, bool sized);

/// `place` moved, and cut if it is larger, so that all of it lies in `screen`.
QRect WithinScreen(QRect place, const QRect& screen);

}  // namespace tarnwick
