// Help for the window tests: dialogs that wait are answered by what is queued here.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>

namespace tarnwick {

/// Runs each step once, on the next modal dialog that opens. Dies with the test; steps left over are a failure that the
/// test sees in Left().
class DialogDriver : public QObject {
  public:
    using Step = std::function<void(QDialog&)>;

    explicit DialogDriver(std::deque<Step> steps) : Steps(std::move(steps)) {
        connect(&Timer, &QTimer::timeout, this, &DialogDriver::Look);
        Timer.start(5);
    }
    std::size_t Left() const { return Steps.size(); }

  private:
    void Look() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isVisible() || Steps.empty()) return;
        const Step step = std::move(Steps.front());
        Steps.pop_front();
        step(*dialog);
    }

    std::deque<Step> Steps;
    QTimer Timer;
};

/// Types `keys` into the window of `dialog`, as a person does.
inline void Type(QWidget& dialog, const QString& text) {
    for (const QChar c : text) QTest::keyClick(dialog.windowHandle(), c.toLatin1());
}

}  // namespace tarnwick
