#include "display/desktopscreen.h"

#include <QApplication>
#include <QDateTime>
#include <QEventLoop>
#include <QTimer>
#include <QWidget>

#include "display/messagedialog.h"
#include "display/pointersnap.h"
#include "display/settlebetdialog.h"
#include "display/words.h"

namespace tarnwick {

namespace {

/// Between two looks at the user's input in a run: often enough that nobody feels it, seldom enough to cost nothing.
constexpr qint64 PumpInterval = 15;

}  // namespace

DesktopScreen::DesktopScreen(Table& t, QWidget* owner) : QObject(owner), T(t), Owner(owner) { Clock.start(); }

Answer DesktopScreen::Show(const Message& message) {
    // Over the window that the user is at, so that this one is active again afterwards.
    QWidget* above = QApplication::activeModalWidget();
    if (above == nullptr) above = QApplication::activeWindow();
    MessageDialog dialog(message, above != nullptr ? above : Owner);
    connect(&dialog, &MessageDialog::helpWanted, this, &DesktopScreen::helpWanted);
    const PointerSnap snap(dialog, T.SnapMouse);
    return dialog.Ask();
}

int DesktopScreen::AskSettleBet(const SettleQuestion& question) {
    SettleBetDialog dialog(T, question, Owner);
    const PointerSnap snap(dialog, T.SnapMouse);
    return dialog.Ask();
}

void DesktopScreen::ShowStatus(std::string_view text) { emit statusDue(Words(text)); }

void DesktopScreen::PlaySoundFile(const std::string& path) { emit soundFileDue(Words(path)); }

void DesktopScreen::PumpEvents() {
    const qint64 now = Clock.elapsed();
    if (T.HyperDriveActive && now - LastPump < PumpInterval) return;
    QCoreApplication::processEvents();
    LastPump = Clock.elapsed();
}

void DesktopScreen::WaitEvents(int milliseconds) {
    if (milliseconds <= 0) return PumpEvents();
    const qint64 end = Clock.elapsed() + milliseconds;
    do {
        QEventLoop loop;
        QTimer::singleShot(qMin<qint64>(20, qMax<qint64>(0, end - Clock.elapsed())), &loop, &QEventLoop::quit);
        loop.exec();
    } while (T.AutoRollActive && Clock.elapsed() < end);
}

std::uint32_t DesktopScreen::Milliseconds() { return static_cast<std::uint32_t>(Clock.elapsed()); }

std::string DesktopScreen::DateText() { return Utf8(QDate::currentDate().toString(QStringLiteral("MM-dd-yyyy"))); }

std::string DesktopScreen::TimeText() { return Utf8(QTime::currentTime().toString(QStringLiteral("HH:mm:ss"))); }

}  // namespace tarnwick
