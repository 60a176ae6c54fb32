// What presses on the table do, by the values of the hot-spot map.
#include "display/tableactions.h"

#include <gtest/gtest.h>

#include "config/advantage.h"
#include "display/bettext.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/rolldice.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick {
namespace {

struct TableActionsTest : testing::Test {
    Table T;
    SilentScreen Screen;
    TableActions Hand{T};

    void SetUp() override {
        SubMain(T, &Screen);
        T.ShooterBetRequirement = 0;
    }
    void SeatTwo() {
        AddPlayer(T, 1, "Ann", Dollars(1000));
        AddPlayer(T, 4, "Bob", Dollars(1000));
        T.ActivePlayer = 1;
    }
    currency Bet(int row, int p = 1) const { return T.BetAmount(p, row); }
    std::string LastTitle() const { return Screen.Shown.empty() ? "" : Screen.Shown.back().Title; }
};

TEST_F(TableActionsTest, WithoutPlayersOrBettorAPressOnABetAsksForOne) {
    EXPECT_EQ(Hand.PressLeft(Row::Field), 0);
    EXPECT_EQ(LastTitle(), "No Players Present");
    SeatTwo();
    T.ActivePlayer = 0;
    Hand.PressLeft(Row::Field);
    EXPECT_EQ(LastTitle(), "Bettor Not Selected");
    Screen.Shown.clear();
    Hand.PressLeft(HotSpot::None);
    EXPECT_TRUE(Screen.Shown.empty()) << "an empty place asks nothing";
}

TEST_F(TableActionsTest, TheRailSelectsSeatsAndChecks) {
    Screen.Answers = {{MsgAnswer::Yes, "", false}, {MsgAnswer::Ok, "Cid", false}, {MsgAnswer::Ok, "250", false}};
    Hand.PressLeft(3000);
    EXPECT_EQ(T.PlayerName[3], "Cid");
    EXPECT_EQ(T.ActivePlayer, 3);
    Screen.Answers = {{MsgAnswer::No, "", false}};
    Hand.PressLeft(5001);
    EXPECT_TRUE(T.PlayerName[5].empty());
    EXPECT_EQ(T.ActivePlayer, 3);
    SeatTwo();
    Hand.PressLeft(4003);
    EXPECT_EQ(T.ActivePlayer, 4);
    EXPECT_EQ(T.SelectedCheck, 3);
}

TEST_F(TableActionsTest, LeftAddsAndRightTakesTheSelectedCheck) {
    SeatTwo();
    T.SelectedCheck = 2;
    Hand.PressLeft(Row::Field);
    Hand.PressLeft(Row::Field);
    EXPECT_EQ(Bet(Row::Field), Dollars(10));
    EXPECT_TRUE(Hand.PressRight(Row::Field));
    EXPECT_EQ(Bet(Row::Field), Dollars(5));
    EXPECT_FALSE(Hand.PressRight(HotSpot::None)) << "the dice are to be rolled";
    EXPECT_FALSE(Hand.PressRight(2000));
    EXPECT_TRUE(IsZero(Bet(Row::Field, 4)));
}

TEST_F(TableActionsTest, TheFlatBetBehindEmptyOddsCanBeTakenDown) {
    SeatTwo();
    T.SelectedCheck = 3;
    Hand.PressLeft(Row::DontPass);
    PadRoll(T, 2, 2);
    ASSERT_EQ(T.Point, 4);
    Hand.PressLeft(Row::DontPassOdds);
    ASSERT_EQ(Bet(Row::DontPassOdds), Dollars(25));
    Hand.PressRight(Row::DontPassOdds);
    EXPECT_TRUE(IsZero(Bet(Row::DontPassOdds)));
    EXPECT_EQ(Bet(Row::DontPass), Dollars(25));
    Hand.PressRight(Row::DontPassOdds);
    EXPECT_TRUE(IsZero(Bet(Row::DontPass)));
}

TEST_F(TableActionsTest, PendingActionsApplyOnceToTheBetUnderThePointer) {
    SeatTwo();
    T.SelectedCheck = 3;
    Hand.PressLeft(Row::Place4 + 2);
    Hand.Pending = PendingAction::Buy;
    EXPECT_STREQ(Hand.PendingText(), "Click the bet to buy");
    Hand.PressLeft(Row::Place4 + 2);
    EXPECT_TRUE(IsZero(Bet(Row::Place4 + 2)));
    EXPECT_FALSE(IsZero(Bet(Row::Buy4 + 2)));
    EXPECT_EQ(Hand.Pending, PendingAction::Bet);

    Hand.Pending = PendingAction::CallOn;
    Hand.PressLeft(Row::Buy4 + 2);
    EXPECT_EQ(BetWorking(T, 1, Row::Buy4 + 2), 2);
    Hand.Pending = PendingAction::Remove;
    Hand.PressLeft(Row::Buy4 + 2);
    EXPECT_TRUE(IsZero(Bet(Row::Buy4 + 2)));
}

TEST_F(TableActionsTest, AMoveTakesTheNextRailPosition) {
    SeatTwo();
    Hand.MovingPlayer = 1;
    Hand.Pending = PendingAction::MovePlayer;
    Hand.PressLeft(Row::Field);
    EXPECT_EQ(T.PlayerName[1], "Ann") << "a bet is no place to stand";
    Hand.PressLeft(7002);
    EXPECT_EQ(T.PlayerName[7], "Ann");
    EXPECT_TRUE(T.PlayerName[1].empty());
    EXPECT_EQ(T.ActivePlayer, 7);
    EXPECT_EQ(Hand.Pending, PendingAction::Bet);
}

TEST_F(TableActionsTest, KeyInModeOpensTheAmountBoxAndTheAmountReplacesTheBet) {
    SeatTwo();
    T.KeyInMode = true;
    EXPECT_EQ(Hand.PressLeft(Row::Hard8), Row::Hard8);
    EXPECT_TRUE(IsZero(Bet(Row::Hard8)));
    Hand.SetAmount(Row::Hard8, Dollars(12));
    EXPECT_EQ(Bet(Row::Hard8), Dollars(12));
    Hand.SetAmount(Row::Hard8, Dollars(7));
    EXPECT_EQ(Bet(Row::Hard8), Dollars(7));
    EXPECT_EQ(T.BetsOnTable[1], Dollars(7));
}

TEST_F(TableActionsTest, SlotsStandForTheCheckStacksShownThere) {
    SeatTwo();
    T.VisibleStack[1] = {0, 101, 140, 103, 104};
    EXPECT_EQ(RowOfHotSpot(T, 102), 140);
    EXPECT_EQ(RowOfHotSpot(T, 105), 0);
    EXPECT_EQ(RowOfHotSpot(T, Row::LastBet), Row::LastBet);
    Hand.PressLeft(102);
    EXPECT_EQ(Bet(140), Dollars(1));
    EXPECT_TRUE(IsZero(T.BetsOnTable[1])) << "a CheckStack is a number, not money";
}

TEST_F(TableActionsTest, TheStatusLineTellsWhatABetIsWorth) {
    SeatTwo();
    AdvantageCache advantages;
    T.NotifyBits = 0;
    PlaceBet(T, 1, Row::PassLine, Dollars(10));
    PadRoll(T, 2, 2);
    PlaceBet(T, 1, Row::PassLineOdds, Dollars(20));
    PlaceBet(T, 1, Row::Buy4 + 5, Dollars(40));
    SetStack(T, 1, 101, Dollars(-3));
    T.CheckStackName[1][1] = "lost";
    const std::pair<int, const char*> cases[] = {
        {Row::PassLine, "Pass Line:  Flat $10, Odds $20     pays 1 to 1,  house advantage 1.41%"},
        {Row::PassLineOdds, "Pass Line Odds:  Flat $10, Odds $20     pays 2 to 1,  house advantage 0.00%"},
        {Row::Buy4 + 5, "Buy 10:  $40, vig $2     pays 2 to 1,  house advantage 4.76%"},
        {Row::Come4, "Come 4     pays 1 to 1,  house advantage 33.33%"},
        {Row::DontCome4, "Don't Come 4     pays 1 to 1,  player's advantage 33.33%"},
        {Row::Field, "Field     house advantage 5.56%"},
        {101, "CheckStack #1 (lost):  -$3"},
    };
    for (const auto& [row, text] : cases) EXPECT_EQ(BetText(T, row, advantages), text);
}

TEST_F(TableActionsTest, ARunIsGuarded) {
    SeatTwo();
    T.AutoRollActive = true;
    Screen.Answers = {{MsgAnswer::No, "", false}};
    Hand.PressLeft(Row::Field);
    EXPECT_EQ(LastTitle(), "Auto-Roll Active");
    EXPECT_TRUE(IsZero(Bet(Row::Field)));
    EXPECT_TRUE(T.AutoRollActive);
}

}  // namespace
}  // namespace tarnwick
