#include "display/pointersnap.h"

#include <QCursor>
#include <QDialog>
#include <QEvent>
#include <QGuiApplication>
#include <QPushButton>
#include <QTimer>

namespace tarnwick {

PointerSnap::PointerSnap(QDialog& dialog, bool on) : Dialog(dialog) {
    if (on) dialog.installEventFilter(this);
}

PointerSnap::~PointerSnap() {
    if (Before && Dialog.frameGeometry().contains(QCursor::pos())) QCursor::setPos(*Before);
}

bool PointerSnap::eventFilter(QObject* watched, QEvent* event) {
    // The dialog has its place and its buttons theirs once it has been shown.
    if (watched == &Dialog && event->type() == QEvent::Show && !Before) QTimer::singleShot(0, this, [this] { Snap(); });
    return false;
}

void PointerSnap::Snap() {
    if (QGuiApplication::applicationState() != Qt::ApplicationActive) return;
    for (const QPushButton* button : Dialog.findChildren<QPushButton*>()) {
        if (!button->isDefault() || !button->isVisible()) continue;
        Before = QCursor::pos();
        QCursor::setPos(button->mapToGlobal(button->rect().center()));
        return;
    }
}

}  // namespace tarnwick
