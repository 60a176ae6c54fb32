// The main window, shown and active, with the hands of a person: for tests of whole evenings.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>

#include "display/felt/feltlayout.h"
#include "display/felt/felttransform.h"
#include "display/felt/feltview.h"
#include "display/game.h"
#include "display/mainwindow.h"
#include "support/temporaryfolder.h"
#include "window/windows.h"

namespace tarnwick {

struct EveningTest : testing::Test {
    testsupport::TemporaryFolder Folder;
    MainWindow Window{Folder.Path("")};
    Table& T = Window.CurrentGame().T();

    void SetUp() override {
        Window.resize(1280, 760);
        Window.show();
        Window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Window));
        T.DiceAction = 1;  // no animation to wait for
        T.ShooterBetRequirement = 0;
    }
    void TearDown() override { T.AutoRollActive = T.HyperDriveActive = false; }

    QPoint Pixel(QPointF felt) const {
        const QPoint inView = TableToScreen(T, felt);
        return Window.findChild<QWidget*>("picLayout")->mapTo(&Window, inView);
    }
    void ClickAt(QPointF felt, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(Window.windowHandle(), button, {}, Pixel(felt));
    }
    /// Clicks into the first box of `row`.
    void ClickBet(int row, Qt::MouseButton button = Qt::LeftButton) {
        for (const FeltRegion& region : TheFelt().Regions) {
            if (region.BetRow == row && IsShown(T, region.Option)) return ClickAt(region.Seed, button);
        }
        FAIL() << "no box for row " << row;
    }
    void Seat(int p, const char* name) {
        DialogDriver driver({[](QDialog& d) { QTest::keyClick(d.windowHandle(), Qt::Key_Return); },
                             [name](QDialog& d) {
                                 Type(d, QString::fromLatin1(name));
                                 QTest::keyClick(d.windowHandle(), Qt::Key_Return);
                             },
                             [](QDialog& d) {
                                 Type(d, "1000");
                                 QTest::keyClick(d.windowHandle(), Qt::Key_Return);
                             }});
        ClickAt(TheFelt().Seats[static_cast<std::size_t>(p)].NameCentre);
        EXPECT_EQ(driver.Left(), 0u);
        ASSERT_EQ(T.PlayerName[static_cast<std::size_t>(p)], name);
    }
    /// A key at the main window, which a window manager would have made active again after a dialog.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        Window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Window));
        QTest::keyClick(Window.windowHandle(), key, modifiers);
    }
    QString Status() const { return Window.findChild<QLabel*>("lblStatus")->text(); }
    QAction* MenuEntry(const QString& caption) {
        for (QAction* action : Window.findChildren<QAction*>()) {
            if (action->text() == caption) return action;
        }
        ADD_FAILURE() << "no menu entry " << caption.toStdString();
        return nullptr;
    }
};

}  // namespace tarnwick
