// Hot keys at the main window.
#include <gmock/gmock.h>

#include <QAction>
#include <QLabel>

#include "display/game.h"
#include "display/mainwindow.h"
#include "support/temporaryfolder.h"
#include "table/players.h"
#include "window/windows.h"

namespace tarnwick {
namespace {

struct HotKeyTest : testing::Test {
    testsupport::TemporaryFolder Folder;
    std::unique_ptr<MainWindow> Window;

    /// Opens the window as a program that starts with these keys.
    void Open(const HotKeyList& keys) {
        Folder.Write("HotKeys.dta", HotKeyFileBytes(keys));
        Window = std::make_unique<MainWindow>(Folder.Path(""));
        if (!IsSeated(T(), 2)) AddPlayer(T(), 2, "Ann", Dollars(500));
        T().ActivePlayer = 2;
        Window->show();
    }
    Table& T() { return Window->CurrentGame().T(); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        Window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Window.get()));
        QTest::keyClick(Window->windowHandle(), key, modifiers);
    }
    currency Field() { return T().BetAmount(2, Row::Field); }
    std::string Script(const std::string& name, const std::string& text) { return Folder.Write(name, text); }
    bool Leave() {
        DialogDriver leaving({[](QDialog& d) { QTest::keyClick(d.windowHandle(), Qt::Key_N, Qt::AltModifier); }});
        return Window->close();
    }
};

TEST_F(HotKeyTest, CtrlAndALetterRunTheFileForTheBettor) {
    Open({{"F", "", Script("field.bet", "bet 5 on Field\n")},
          {"G", "", Script("more.bet", "bet Field + 1 on Field : bet 10 on PassLine\n")}});
    Press(Qt::Key_F);
    EXPECT_EQ(Field(), Dollars(5));
    Press(Qt::Key_G);
    EXPECT_EQ(Field(), Dollars(6));
    EXPECT_EQ(T().BetAmount(2, Row::PassLine), Dollars(10));
    for (const auto& modifiers : {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ShiftModifier),
                                  Qt::ControlModifier | Qt::ShiftModifier, Qt::ControlModifier | Qt::AltModifier}) {
        Press(Qt::Key_G, modifiers);
        EXPECT_EQ(Field(), Dollars(6)) << modifiers;
    }
    Press(Qt::Key_H);
    EXPECT_EQ(Field(), Dollars(6)) << "a letter without a key";
}

TEST_F(HotKeyTest, WhatIsWrongIsTold) {
    Open({{"J", "", Folder.Path("none.bet")}, {"W", "", Script("wrong.bet", "bet on on\n")}});
    struct Case {
        Qt::Key Key;
        const char* Title;
        const char* Text;
    };
    const Case cases[] = {
        {Qt::Key_J, "Hot-Key",
         "The Auto-Bet file defined for that Hot-Key was not found in the specified location.\n\n"
         "Please check the path and file name on the Hot-Key screen."},
        {Qt::Key_W, "Auto-Bet Script Error",
         "The Auto-Bet script for this hot-key contains a syntax error which must be corrected before you can use it."},
    };
    for (const Case& c : cases) {
        DialogDriver driver({[&c](QDialog& d) {
            EXPECT_EQ(d.windowTitle(), c.Title);
            EXPECT_EQ(d.findChild<QLabel*>("lblText")->text(), c.Text);
            QTest::keyClick(d.windowHandle(), Qt::Key_Return);
        }});
        Press(c.Key);
        EXPECT_EQ(driver.Left(), 0u) << c.Title;
        EXPECT_EQ(Field(), currency{});
    }
}

TEST_F(HotKeyTest, AHotKeyGoesBeforeTheMenuAndALetterWithoutOneIsTheMenus) {
    Open({{"N", "", Script("field.bet", "bet 5 on Field\n")}});
    int opened = 0;
    for (QAction* action : Window->findChildren<QAction*>()) {
        if (action->shortcut() != QKeySequence::New && action->shortcut() != QKeySequence::Open) continue;
        action->disconnect();
        QObject::connect(action, &QAction::triggered, [&opened, action] {
            EXPECT_EQ(action->shortcut(), QKeySequence(QKeySequence::Open));
            ++opened;
        });
    }
    Press(Qt::Key_N);
    EXPECT_EQ(Field(), Dollars(5));
    Press(Qt::Key_O);
    EXPECT_EQ(opened, 1);
}

TEST_F(HotKeyTest, AKeyThatIsHeldDownRunsOnce) {
    Open({{"F", "", Script("more.bet", "bet Field + 5 on Field\n")}});
    Press(Qt::Key_F);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_F, Qt::ControlModifier, QString(), true);
    QApplication::sendEvent(Window.get(), &repeated);
    EXPECT_EQ(Field(), Dollars(5));
}

TEST_F(HotKeyTest, TheFileIsKeptAtTheEnd) {
    const HotKeyList keys = {{"F", "five on the field", "/bets/field.bet"}};
    // Keys that weren't touched leave the file alone, whatever else it holds.
    Open(keys);
    const std::string bytes = HotKeyFileBytes(keys) + "something more";
    Folder.Write("HotKeys.dta", bytes);
    EXPECT_TRUE(Leave());
    EXPECT_EQ(Folder.Read("HotKeys.dta"), bytes);

    Open(keys);
    EXPECT_EQ(Window->CurrentGame().HotKeys(), keys);
    Window->CurrentGame().HotKeys().push_back({"G", "", "/bets/g.bet"});
    EXPECT_TRUE(Leave());
    HotKeyList kept;
    EXPECT_EQ(LoadHotKeys(Folder.Path("HotKeys.dta"), kept), "");
    EXPECT_EQ(kept, Window->CurrentGame().HotKeys());
}

TEST_F(HotKeyTest, AFileThatCannotBeReadIsToldAndStays) {
    std::filesystem::create_directory(Folder.Path("HotKeys.dta"));
    DialogDriver driver({[](QDialog& d) {
        EXPECT_EQ(d.windowTitle(), "Hot-Key");
        QTest::keyClick(d.windowHandle(), Qt::Key_Return);
    }});
    Window = std::make_unique<MainWindow>(Folder.Path(""));
    EXPECT_EQ(driver.Left(), 0u);
    Window->CurrentGame().HotKeys() = {{"A", "", "a.bet"}};
    EXPECT_TRUE(Leave());
    EXPECT_TRUE(std::filesystem::is_directory(Folder.Path("HotKeys.dta")));
}

}  // namespace
}  // namespace tarnwick
