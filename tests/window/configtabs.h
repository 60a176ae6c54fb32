// Help for tests of the tabs of the configuration window.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>
#include <algorithm>
#include <string>

#include "stats/hot.h"
#include "table/betrules.h"
#include "table/placement.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick {

/// A table of a program just started, with Ann at position 1, that speaks through queued answers.
struct TabTest : testing::Test {
    SilentScreen Front;
    Table T;

    void SetUp() override {
        SubMain(T, &Front);
        T.PlayerName[1] = "Ann";
        T.PlayerCount = 1;
        SetBankroll(T, 1, Dollars(1000));
        T.GameChanged = false;
    }

    void Stand(int row, int dollars) {
        SetBetAmount(T, 1, row, Dollars(dollars));
        RecomputeVigs(T);
    }
    void Answering(int answer) { Front.Answers.push_back({answer, {}, false}); }
    /// The messages since the last look, as "title: text" lines.
    std::string Told() {
        std::string all;
        for (const Message& message : Front.Shown) all += message.Title + ": " + message.Text + "\n";
        Front.Shown.clear();
        return all;
    }
};

/// Shows a tab as its window and waits until keys reach it.
inline void Open(QWidget& tab) {
    tab.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&tab));
}

/// The child called `name`; the test fails when there is none.
template <class W>
W* Child(const QWidget& tab, const char* name) {
    W* child = tab.findChild<W*>(QString::fromLatin1(name));
    EXPECT_NE(child, nullptr) << name;
    return child;
}

/// A click at `at` of a widget, sent to its window.
inline void Click(QWidget& widget, QPoint at, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, modifiers, widget.mapTo(widget.window(), at));
}
inline void Click(QWidget& widget) {
    const int left = std::min(widget.width() / 2, 12);  // of a check box the box, not the room behind its caption
    Click(widget, QPoint(left, widget.height() / 2));
}

inline void PressKey(QWidget& tab, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(tab.window()->windowHandle(), key, modifiers);
}

/// A mnemonic of a button, which goes down and up again before it acts.
inline void PressMnemonic(QWidget& tab, QAbstractButton& button, Qt::Key key) {
    QSignalSpy clicked(&button, &QAbstractButton::clicked);
    PressKey(tab, key, Qt::AltModifier);
    EXPECT_TRUE(clicked.count() > 0 || clicked.wait(2000)) << button.text().toStdString();
}

/// Types into a field as a person does who replaces what stands there.
inline void Enter(QLineEdit& box, const QString& text) {
    Click(box);
    PressKey(box, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty()) PressKey(box, Qt::Key_Delete);
    for (const QChar c : text) QTest::keyClick(box.window()->windowHandle(), c.toLatin1());
}

}  // namespace tarnwick
