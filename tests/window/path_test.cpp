// The list of where the files in use lie, and the tool-tips over the felt.
#include "display/pathwindow.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QClipboard>
#include <QHelpEvent>
#include <QScrollBar>
#include <QTextEdit>
#include <QToolTip>

#include "config/advantage.h"
#include "display/felt/feltlayout.h"
#include "display/felt/felttransform.h"
#include "display/felt/feltview.h"
#include "display/felttooltips.h"
#include "display/game.h"
#include "display/mainwindow.h"
#include "display/tableactions.h"
#include "support/table_fixture.h"
#include "support/temporaryfolder.h"
#include "window/windows.h"

namespace tarnwick {
namespace {

struct PathWindowTest : testing::Test {
    std::vector<PathGroup> Groups = {{"Game File:", {{"", "/games/friday.crp"}}}, {"Dice Roll File:", {}}};
    int Asked = 0;
    PathWindow Window{[this] {
                          ++Asked;
                          return Groups;
                      },
                      nullptr};
    QTextEdit* List = Window.findChild<QTextEdit*>("picpath");

    void Show() {
        Window.show();
        Window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Window));
    }
    QStringList Lines() const { return List->toPlainText().split(QLatin1Char('\n')); }
};

TEST_F(PathWindowTest, HeadingsAndPathsStandInTheirOrder) {
    EXPECT_EQ(Asked, 0);
    Show();
    EXPECT_EQ(Lines(), QStringList({"Game File:", "/games/friday.crp", "Dice Roll File:", "(none)"}));
    Groups[1].Entries = {{"", "/rolls/<b>x</b>.rol"}};
    Groups.push_back({"Auto-Bet Files:", {{"Ann", "/a.bet"}, {"Bo", "/b.bet"}}});
    Window.close();
    Window.show();
    EXPECT_EQ(Lines(), QStringList({"Game File:", "/games/friday.crp", "Dice Roll File:", "/rolls/<b>x</b>.rol",
                                    "Auto-Bet Files:", "Ann:  /a.bet", "Bo:  /b.bet"}))
        << "a window that is shown again shows what is in use now";
}

TEST_F(PathWindowTest, LongPathsScrollAndCanBeCopied) {
    const std::string path = "/" + std::string(400, 'x') + "/game.crp";
    Groups[0].Entries = {{"", path}};
    for (int i = 0; i < 60; ++i) Groups[1].Entries.push_back({"", "/r" + std::to_string(i)});
    Show();
    for (const char* bar : {"hsbPath", "vsbPath"}) {
        auto* scroll = Window.findChild<QScrollBar*>(bar);
        ASSERT_NE(scroll, nullptr);
        EXPECT_TRUE(scroll->isVisible() && scroll->maximum() > 0) << bar;
    }
    EXPECT_TRUE(List->isReadOnly());
    List->setFocus();
    QTest::keyClick(Window.windowHandle(), Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(Window.windowHandle(), Qt::Key_Down);
    QTest::keyClick(Window.windowHandle(), Qt::Key_End, Qt::ShiftModifier);
    QTest::keyClick(Window.windowHandle(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), path);
    Window.Refresh();
    EXPECT_TRUE(List->textCursor().hasSelection()) << "a refresh that changes nothing leaves the selection";
    QTest::keyClick(Window.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(Window.isVisible());
}

struct TableWindowTest : testing::Test {
    testsupport::TemporaryFolder Folder;
    MainWindow Window{Folder.Path("")};
    Table& T = Window.CurrentGame().T();
    FeltView& Felt = Window.Felt();

    void SetUp() override {
        ASSERT_EQ(AddPlayer(T, 3, "Ann", Dollars(1000)), "");
        T.PlayerName[3] = "Ann <i>";  // as a game of another hand may have it
        T.ActivePlayer = 3;
        Window.resize(1280, 760);
        Window.show();
        Window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Window));
    }
    void Hover(QPoint pixel) {
        QTest::mouseMove(Window.windowHandle(), Felt.mapTo(&Window, pixel));
        QHelpEvent help(QEvent::ToolTip, pixel, Felt.mapToGlobal(pixel));
        QApplication::sendEvent(&Felt, &help);
    }
    QPoint PixelOfBet(int row) const {
        for (const FeltRegion& region : TheFelt().Regions) {
            if (region.BetRow == row && IsShown(T, region.Option)) return TableToScreen(T, region.Seed);
        }
        ADD_FAILURE() << row;
        return {};
    }
    QPoint PixelOfSeat(int p) const {
        return TableToScreen(T, TheFelt().Seats[static_cast<std::size_t>(p)].NameCentre);
    }
};

TEST_F(TableWindowTest, ShowPathListsTheFilesOfTheGame) {
    for (QAction* action : Window.findChildren<QAction*>()) {
        if (action->text() == "Show &Path ...") action->trigger();
    }
    auto* paths = Window.findChild<PathWindow*>("frmPath");
    ASSERT_NE(paths, nullptr);
    EXPECT_TRUE(paths->isVisible());
    const QString text = paths->findChild<QTextEdit*>("picpath")->toPlainText();
    for (const char* heading : {"Tarnwick location:", "Game File:", "Events Log File:", "Dice Roll File:",
                                "Probability File:", "Auto-Bet Files:", "Sessions Log Files:"}) {
        EXPECT_TRUE(text.contains(heading)) << heading;
    }
    EXPECT_TRUE(text.contains(QString::fromStdString(Folder.Path("default.crp")))) << text.toStdString();
}

TEST_F(TableWindowTest, TipsTellOfBetsAndSeats) {
    T.NotifyBits = 0;
    PlaceBet(T, 3, Row::Place4 + 2, Dollars(12));
    PlaceBet(T, 3, Row::Buy4, Dollars(20));
    AdvantageCache advantages;
    struct Case {
        const char* What;
        QPoint Pixel;
        QString Tip;
    };
    const Case cases[] = {
        {"a bet", PixelOfBet(Row::Place4 + 2), "Place 6:  $12\npays 7 to 6\nhouse advantage 1.52%"},
        {"a bought bet", PixelOfBet(Row::Place4), "Buy 4:  $20, vig $1\npays 2 to 1\nhouse advantage 4.76%"},
        {"no bet", PixelOfBet(Row::Hard6), "Hard 6\npays 9 to 1\nhouse advantage 9.09%"},
        {"several payoffs", PixelOfBet(Row::Field), "Field\nhouse advantage 5.56%"},
        {"a player", PixelOfSeat(3), "Ann <i>"},
        {"an empty seat", PixelOfSeat(6), "open position"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(FeltTip(T, Felt.hotSpot(c.Pixel), advantages).toStdString(), c.Tip.toStdString()) << c.What;
        Hover(c.Pixel);
        EXPECT_TRUE(QToolTip::isVisible()) << c.What;
        EXPECT_TRUE(QToolTip::text().contains(c.Tip.toHtmlEscaped())) << QToolTip::text().toStdString();
    }
    EXPECT_EQ(FeltTip(T, 0, advantages), QString());

    T.HyperDriveActive = true;
    for (const Case& c : cases) EXPECT_EQ(FeltTip(T, Felt.hotSpot(c.Pixel), advantages), QString()) << c.What;
    T.HyperDriveActive = false;
}

TEST_F(TableWindowTest, ATipLeavesWithItsBet) {
    Hover(PixelOfBet(Row::Hard6));
    ASSERT_TRUE(QToolTip::isVisible());
    QTest::mouseMove(Window.windowHandle(), Felt.mapTo(&Window, PixelOfBet(Row::Field)));
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 2000));
}

}  // namespace
}  // namespace tarnwick
