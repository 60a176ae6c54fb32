// An evening at the main window, with the mouse and the keyboard of a person.
#include <gtest/gtest.h>

#include <QLineF>
#include <QMenu>
#include <QPushButton>
#include <filesystem>
#include <fstream>

#include "display/amountbox.h"
#include "display/rollpad.h"
#include "display/windowplaces.h"
#include "stats/accumulators.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/rolldice.h"
#include "window/evening.h"

namespace tarnwick {
namespace {

TEST_F(EveningTest, APlayerSitsDownBetsAndRolls) {
    Seat(3, "Ann");
    EXPECT_EQ(T.ActivePlayer, 3);
    T.SelectedCheck = 2;
    ClickBet(Row::PassLine);
    ClickBet(Row::PassLine);
    EXPECT_EQ(T.BetAmount(3, Row::PassLine), Dollars(10));
    ClickBet(Row::PassLine, Qt::RightButton);
    EXPECT_EQ(T.BetAmount(3, Row::PassLine), Dollars(5));
    EXPECT_TRUE(Status().startsWith("Pass Line:  $5")) << Status().toStdString();

    T.WinnerHandling[3] = T.LoserHandling[3] = 1;
    const auto before = SessionRolls(T);
    ClickAt({624, 510}, Qt::RightButton);  // the wood: no bet
    EXPECT_EQ(SessionRolls(T), before + 1);
    Press(Qt::Key_Return);
    EXPECT_EQ(SessionRolls(T), before + 2);
}

TEST_F(EveningTest, ADecidedBetIsAskedAbout) {
    Seat(1, "Ann");
    T.SelectedCheck = 3;
    ClickBet(Row::Field);
    ASSERT_EQ(T.BetAmount(1, Row::Field), Dollars(25));
    DialogDriver driver({[](QDialog& d) {
        EXPECT_EQ(d.objectName(), "frmSettleBet");
        QTest::keyClick(d.windowHandle(), Qt::Key_S, Qt::AltModifier);
    }});
    PadRoll(T, 1, 3);
    EXPECT_EQ(driver.Left(), 0u);
    EXPECT_EQ(T.BetAmount(1, Row::Field), Dollars(25));
    EXPECT_EQ(T.Bankroll[1], Dollars(1025));
}

TEST_F(EveningTest, AmountsCanBeKeyedIn) {
    Seat(6, "Ann");
    MenuEntry("&Key in amounts")->trigger();
    auto* box = Window.findChild<AmountBox*>();
    ClickBet(Row::Hard6);
    ASSERT_TRUE(box->IsOpen());
    QTest::keyClicks(box, "12");
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_FALSE(box->IsOpen());
    EXPECT_EQ(T.BetAmount(6, Row::Hard6), Dollars(12));

    ClickBet(Row::Hard6);
    QTest::keyClicks(box, "99");
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_EQ(T.BetAmount(6, Row::Hard6), Dollars(12)) << "Escape changes nothing";

    ClickBet(Row::Hard6);
    QTest::keyClicks(box, "3");
    T.LoserHandling[6] = T.WinnerHandling[6] = 1;
    PadRoll(T, 1, 1);
    EXPECT_EQ(T.BetAmount(6, Row::Hard6), Dollars(3)) << "what is being typed is placed before a roll";
}

TEST_F(EveningTest, ChecksThatArentArrangedStayWhereTheyWerePut) {
    Seat(2, "Ann");
    const QPointF own = *BetSpot(T, 2, Row::Field), put = own + QPointF(9, 4);
    const auto near = [&](QPointF place) { return QLineF(*BetSpot(T, 2, Row::Field), place).length() < 2; };
    ClickAt(put);
    EXPECT_TRUE(near(own));
    T.AutoArrangeChips = false;
    ClickAt(put);
    ASSERT_EQ(T.BetAmount(2, Row::Field), Dollars(2));
    EXPECT_TRUE(near(put));
    ClickAt(own, Qt::RightButton);
    EXPECT_TRUE(near(put)) << "taking a check off moves nothing";
    T.AutoArrangeChips = true;
    EXPECT_TRUE(near(own));
    T.AutoArrangeChips = false;
    ClickAt(put, Qt::RightButton);
    EXPECT_TRUE(near(own)) << "a bet that is gone leaves no place behind";
}

TEST_F(EveningTest, ARenamedPlayerMayTakeTheSessionsLogAlong) {
    Seat(4, "Ann");
    const std::string present = Window.CurrentGame().LogsOf().SessionsLog(T, 4), wanted = Folder.Path("bea.slg");
    std::ofstream(present) << "sessions";
    DialogDriver driver({[](QDialog& d) {
                             d.findChild<QLineEdit*>()->selectAll();
                             Type(d, "Bea");
                             QTest::keyClick(d.windowHandle(), Qt::Key_Return);
                         },
                         [&](QDialog& d) {
                             EXPECT_EQ(d.windowTitle(), "Rename Sessions Log");
                             EXPECT_TRUE(d.findChild<QLabel*>("lblText")->text().contains(
                                 QString::fromStdString("Currently:\n" + present)));
                             d.findChild<QPushButton*>()->click();  // Yes; it may not be active yet
                         },
                         [&](QDialog& d) {
                             ASSERT_EQ(d.objectName(), "frmFile");
                             d.findChild<QLineEdit*>()->setText(QString::fromStdString(wanted));
                             QMetaObject::invokeMethod(&d, "accept");
                         }});
    MenuEntry("Re&name player ...")->trigger();
    EXPECT_EQ(driver.Left(), 0u);
    EXPECT_EQ(T.PlayerName[4], "Bea");
    EXPECT_EQ(Window.CurrentGame().LogsOf().SessionsLog(T, 4), wanted);
    EXPECT_FALSE(std::filesystem::exists(present));
    EXPECT_EQ(Folder.Read("bea.slg"), "sessions");
}

TEST_F(EveningTest, ThePointerGoesToTheButtonAndBack) {
    for (const bool snaps : {true, false}) {
        T.SnapMouse = snaps;
        const QPoint before(3, 4);
        QCursor::setPos(before);
        DialogDriver driver({[&](QDialog& d) {
            const auto* yes = d.findChild<QPushButton*>();
            const QRect button(yes->mapToGlobal(QPoint()), yes->size());
            QTest::qWait(20);
            EXPECT_EQ(button.contains(QCursor::pos()), snaps);
            QTest::keyClick(d.windowHandle(), Qt::Key_Escape);
        }});
        ClickAt(TheFelt().Seats[3].NameCentre);
        EXPECT_EQ(driver.Left(), 0u);
        EXPECT_EQ(QCursor::pos(), before);
    }
}

TEST_F(EveningTest, TheActionMenuWaitsForItsBet) {
    Seat(2, "Ann");
    T.SelectedCheck = 4;
    ClickBet(Row::Place4);
    MenuEntry("&Buy a Place bet")->trigger();
    EXPECT_EQ(Status(), "Click the bet to buy");
    Press(Qt::Key_Escape);
    EXPECT_NE(Status(), "Click the bet to buy");
    MenuEntry("&Buy a Place bet")->trigger();
    T.NotifyBits = 0;
    ClickBet(Row::Place4);
    EXPECT_EQ(T.BetAmount(2, Row::Buy4), Dollars(100));
    EXPECT_TRUE(IsZero(T.BetAmount(2, Row::Place4)));
}

TEST_F(EveningTest, TheTableTurnsAndTheBetsTurnWithIt) {
    Seat(4, "Ann");
    for (const char* caption : {"Turn c&lockwise", "Zoom &in", "Turn co&unter-clockwise", "Zoom &out"}) {
        MenuEntry(caption)->trigger();
        const currency before = T.BetAmount(4, Row::Come + 4);
        ClickBet(Row::Field);
        EXPECT_EQ(T.BetAmount(4, Row::Come + 4), before + Dollars(1)) << caption;
    }
    EXPECT_EQ(T.TableAngle, 0);
    Press(Qt::Key_3, Qt::ControlModifier);
    MenuEntry("Turn c&lockwise")->trigger();
    ASSERT_NE(T.TableAngle, 0);
    MenuEntry("&Restore")->menu()->actions().at(3)->trigger();
    EXPECT_EQ(T.TableAngle, 0);
}

TEST_F(EveningTest, ThePadRollsWhatIsPicked) {
    Seat(5, "Ann");
    T.WinnerHandling[5] = T.LoserHandling[5] = 1;
    MenuEntry("Roll &your own numbers")->trigger();
    auto* pad = Window.findChild<RollPad*>();
    ASSERT_NE(pad, nullptr);
    pad->SetForm(PadForm::Box);
    pad->findChild<QPushButton*>("cell62")->click();
    EXPECT_EQ(T.Die1, 6);
    EXPECT_EQ(T.Die2, 2);
    EXPECT_EQ(T.Point, 8);
}

TEST_F(EveningTest, TheGameIsThereTheNextEvening) {
    Seat(7, "Ann");
    T.SelectedCheck = 5;
    ClickBet(Row::PassLine);
    PadRoll(T, 3, 1);
    MenuEntry("Turn c&lockwise")->trigger();
    MenuEntry("Roll &your own numbers")->trigger();
    Window.findChild<RollPad*>()->move(120, 90);
    const std::int32_t angle = T.TableAngle;
    {
        DialogDriver staying({[](QDialog& d) {
            EXPECT_EQ(d.windowTitle(), "Save Session");
            QTest::keyClick(d.windowHandle(), Qt::Key_Escape);
        }});
        EXPECT_FALSE(Window.close());
    }
    DialogDriver leaving({[](QDialog& d) { QTest::keyClick(d.windowHandle(), Qt::Key_N, Qt::AltModifier); }});
    EXPECT_TRUE(Window.close());
    EXPECT_EQ(leaving.Left(), 0u);

    MainWindow next(Folder.Path(""));
    const Table& t = next.CurrentGame().T();
    EXPECT_EQ(t.PlayerName[7], "Ann");
    EXPECT_EQ(t.BetAmount(7, Row::PassLine), Dollars(500));
    EXPECT_EQ(t.Point, 4);
    EXPECT_EQ(t.TableAngle, angle);
    EXPECT_EQ(t.SelectedCheck, 5);
    ASSERT_NE(next.findChild<RollPad*>(), nullptr) << "a window that was open opens again";
    EXPECT_EQ(next.findChild<RollPad*>()->pos(), QPoint(120, 90));
}

TEST(WindowPlacesTest, EveryWindowComesOntoTheScreen) {
    const QRect screen(0, 0, 800, 600);
    const std::pair<QRect, QRect> cases[] = {
        {{10, 20, 300, 200}, {10, 20, 300, 200}},         {{-5000, 20, 300, 200}, {0, 20, 300, 200}},
        {{700, 590, 300, 200}, {500, 400, 300, 200}},     {{100, 100, 2000, 1000}, {0, 0, 800, 600}},
        {{90000, 90000, 300, 200}, {500, 400, 300, 200}},
    };
    for (const auto& [place, expected] : cases) EXPECT_EQ(WithinScreen(place, screen), expected);
}

}  // namespace
}  // namespace tarnwick
