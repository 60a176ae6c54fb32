#include "display/quietwait.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>

namespace tarnwick {

namespace {

struct CloseFilter : QObject {
    CloseFilter() { QCoreApplication::instance()->installEventFilter(this); }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::Close) return false;
        event->ignore();
        return true;
    }
};

}  // namespace

void WaitQuietly(int milliseconds) {
    const CloseFilter staysOpen;
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace tarnwick
