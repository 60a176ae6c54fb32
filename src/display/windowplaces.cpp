#include "display/windowplaces.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace tarnwick {

namespace {

/// The free part of the screen that shows most of `place`; of the first one when none does.
QRect ScreenOf(const QRect& place) {
    const QScreen* best = QGuiApplication::primaryScreen();
    int most = 0;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect seen = screen->availableGeometry() & place;
        if (seen.width() * seen.height() > most) {
            most = seen.width() * seen.height();
            best = screen;
        }
    }
    return best != nullptr ? best->availableGeometry() : place;
}

}  // namespace

QRect WithinScreen(QRect place, const QRect& screen) {
    place.setSize(place.size().boundedTo(screen.size()));
    place.moveLeft(qBound(screen.left(), place.left(), screen.right() - place.width() + 1));
    place.moveTop(qBound(screen.top(), place.top(), screen.bottom() - place.height() + 1));
    return place;
}

void KeepPlace(const QWidget& window, FormPlacement& place, bool sized) {
    place.Shown = window.isVisible();
    place.Left = window.x();
    place.Top = window.y();
    const QRect normal = window.isMaximized() ? window.normalGeometry() : window.geometry();
    place.Width = sized ? normal.width() : 0;
    place.Height = sized ? normal.height() : 0;
}

void TakePlace(QWidget& window, const FormPlacement& place, bool sized) {
    const bool isNoted = sized ? place.Width > 0 && place.Height > 0 : place.Shown || place.Left != 0 || place.Top != 0;
    if (!isNoted) return;
    const QSize size = sized ? QSize(place.Width, place.Height) : window.sizeHint();
    const QRect wanted(QPoint(place.Left, place.Top), size);
    const QRect onScreen = WithinScreen(wanted, ScreenOf(wanted));
    window.move(onScreen.topLeft());
    if (sized) window.resize(onScreen.size());
}

}  // namespace tarnwick
