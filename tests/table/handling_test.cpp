#include "table/handling.h"

#include "support/table_fixture.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Slot {
    int Operator = 0;
    currency Amount{};
    int Unit = 0;
};

struct HandlingTest : TableTest {
    HandlingTest() { Restart(); }

    void Restart() {
        SubMain(t, &Front);
        t.ShooterBetRequirement = 0;
        Seat(1, "Ann", 100'000);
        t.NotifyBits = 0;
    }

    void SetSlot(int slot, const Slot& value) {
        t.HandleOperator[1][At(slot)] = value.Operator;
        t.HandleAmount[1][At(slot)] = value.Amount;
        t.HandleUnit[1][At(slot)] = value.Unit;
    }

    /// A Place 6 of 12 that the next 6 pays 14 and the next 7 takes.
    void PlaceSix() {
        RollTotal(8);
        Bet(1, Row::Place4 + 2, 12);
    }
};

constexpr currency Half{5'000};

TEST_F(HandlingTest, StandingOrdersForWinners) {
    struct Case {
        const char* Name;
        int Code;
        Slot Arithmetic;
        std::int64_t Bet;
    };
    const Case cases[] = {
        {"take all", 1, {}, 0},
        {"same", 2, {}, 12},
        {"press a unit that pays whole", 3, {}, 18},
        {"double", 4, {}, 24},
        {"parlay", 5, {}, 26},
        {"plus $5", 6, {0, Dollars(5), 0}, 17},
        {"minus $5", 6, {1, Dollars(5), 0}, 7},
        {"minus more than there is", 6, {1, Dollars(50), 0}, 0},
        {"times 3", 6, {2, Dollars(3), 0}, 36},
        {"divided by 4", 6, {3, Dollars(4), 0}, 3},
        {"divided by nothing", 6, {3, {}, 0}, 12},
        {"plus 50%", 6, {0, Dollars(50), 1}, 18},
        {"minus 25%", 6, {1, Dollars(25), 1}, 9},
        {"times 150%", 6, {2, Dollars(150), 1}, 18},
        {"divided by 50%", 6, {3, Dollars(50), 1}, 24},
        {"plus 2 units of the smallest check", 6, {0, Dollars(2), 2}, 24},
        {"plus a unit of the second check", 6, {0, Dollars(1), 3}, 42},
        {"$20", 7, {0, Dollars(20), 0}, 20},
        {"150%", 7, {0, Dollars(150), 1}, 18},
        {"2 units", 7, {0, Dollars(2), 2}, 12},
        {"nothing", 7, {}, 0},
        {"no such code", 9, {}, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        Restart();
        t.WinnerHandling[1] = c.Code;
        SetSlot(c.Code == 6 ? 4 : 6, c.Arithmetic);
        PlaceSix();
        Roll(1, 5);
        EXPECT_EQ(BankrollOf(1), Dollars(100'014));
        EXPECT_EQ(Amount(1, Row::Place4 + 2), Dollars(c.Bet));
        EXPECT_EQ(t.BetsOnTable[1], Dollars(c.Bet));
        EXPECT_THAT(Front.Asked, IsEmpty());
    }
}

TEST_F(HandlingTest, StandingOrdersForLosers) {
    struct Case {
        const char* Name;
        int Code;
        Slot Arithmetic;
        std::int64_t Bet;
    };
    const Case cases[] = {
        {"none", 1, {}, 0},
        {"same", 2, {}, 12},
        {"nothing remains", 3, {}, 0},
        {"plus a unit", 4, {}, 18},
        {"double", 5, {}, 24},
        {"times 3", 6, {2, Dollars(3), 0}, 36},
        {"$20", 7, {0, Dollars(20), 0}, 20},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        Restart();
        t.LoserHandling[1] = c.Code;
        SetSlot(c.Code == 6 ? 5 : 7, c.Arithmetic);
        PlaceSix();
        Roll(3, 4);
        EXPECT_EQ(BankrollOf(1), Dollars(99'988));
        EXPECT_EQ(Amount(1, Row::Place4 + 2), Dollars(c.Bet));
        EXPECT_EQ(t.BetsOnTable[1], Dollars(c.Bet));
    }
}

TEST_F(HandlingTest, TheRemainderOfAPartialLossIsBetAgain) {
    t.FieldPayoff[15] = {{}, Dollars(-1), Dollars(-1), Dollars(4)};
    t.LoserHandling[1] = 3;
    Bet(1, Row::Field, 20);
    Roll(4, 4);
    EXPECT_EQ(BankrollOf(1), Dollars(99'995));
    EXPECT_EQ(Amount(1, Row::Field), Dollars(15));
}

TEST_F(HandlingTest, ReservedVigIsChargedAfreshWithEachHandling) {
    struct Case {
        const char* Name;
        int Code;
        bool UpFront;
        std::int64_t Bet, Vig;
    };
    // A Buy 4 of 25 wins 50 less a vig of 1. The parlay counts the vig as won, in both ways of charging.
    const Case cases[] = {{"take", 1, true, 0, 0},    {"same", 2, true, 25, 1},  {"double", 4, true, 50, 2},
                          {"parlay", 5, true, 75, 4}, {"same", 2, false, 25, 1}, {"parlay", 5, false, 75, 4}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.Name << (c.UpFront ? " up front" : " of wins"));
        Restart();
        t.BuyVigOnAllBets = c.UpFront;
        t.WinnerHandling[1] = c.Code;
        RollTotal(8);
        Bet(1, Row::Buy4, 25);
        Roll(1, 3);
        EXPECT_EQ(BankrollOf(1), Dollars(100'049));
        EXPECT_EQ(Amount(1, Row::Buy4), Dollars(c.Bet));
        EXPECT_EQ(t.BuyVigCharged[1][0], Dollars(c.Vig));
        EXPECT_EQ(t.BetsOnTable[1], Dollars(c.Bet + (c.UpFront ? c.Vig : 0)));
    }
}

/// Rows that can't stand where they were decided come down, whatever the order says; their likes that can, stay.
TEST_F(HandlingTest, WhatMustComeDownDoes) {
    struct Case {
        const char* Name;
        std::function<void(HandlingTest&)> Prepare;
        int BetRow;
        int Die1, Die2;
        bool Stays;
    };
    const auto line = [](HandlingTest& f, int point) {
        f.Bet(1, Row::PassLine, 10);
        f.Bet(1, Row::DontPass, 10);
        f.RollTotal(point);
    };
    const auto box = [line](int row) {
        return [line, row](HandlingTest& f) {
            line(f, 8);
            f.Bet(1, row, 10);
        };
    };
    const auto number = [line](int boxRow, int total, int odds, bool put) {
        return [=](HandlingTest& f) {
            f.t.AllowPutBets = put;
            line(f, 8);
            f.Bet(1, boxRow, 10);
            f.RollTotal(total);
            if (odds != 0) f.Bet(1, odds, 10);
        };
    };
    const auto odds = [line](int row) {
        return [line, row](HandlingTest& f) {
            line(f, 8);
            f.Bet(1, row, 10);
        };
    };
    const int six = 2;
    const std::vector<Case> cases = {
        {"Come on the 7", box(Row::Come), Row::Come, 3, 4, false},
        {"Come on 11", box(Row::Come), Row::Come, 5, 6, true},
        {"Come on craps", box(Row::Come), Row::Come, 1, 2, true},
        {"Don't Come on the 7", box(Row::DontCome), Row::DontCome, 3, 4, false},
        {"Don't Come on 3", box(Row::DontCome), Row::DontCome, 1, 2, true},
        {"line odds made", odds(Row::PassLineOdds), Row::PassLineOdds, 4, 4, false},
        {"line odds missed", odds(Row::PassLineOdds), Row::PassLineOdds, 3, 4, false},
        {"Don't odds won", odds(Row::DontPassOdds), Row::DontPassOdds, 3, 4, false},
        {"Don't odds lost", odds(Row::DontPassOdds), Row::DontPassOdds, 4, 4, false},
        {"line made", [line](HandlingTest& f) { line(f, 8); }, Row::PassLine, 4, 4, true},
        {"line missed", [line](HandlingTest& f) { line(f, 8); }, Row::PassLine, 3, 4, true},
        {"Don't Come number", number(Row::DontCome, 6, 0, true), Row::DontCome4 + six, 3, 4, false},
        {"Don't Come number lost", number(Row::DontCome, 6, 0, true), Row::DontCome4 + six, 3, 3, false},
        {"Don't Come odds", number(Row::DontCome, 6, Row::DontCome4Odds + six, true), Row::DontCome4Odds + six, 3, 4,
         false},
        {"Come number as a Put bet", number(Row::Come, 6, 0, true), Row::Come4 + six, 3, 3, true},
        {"Come number without Put bets", number(Row::Come, 6, 0, false), Row::Come4 + six, 3, 3, false},
        {"Come odds with their flat", number(Row::Come, 6, Row::Come4Odds + six, true), Row::Come4Odds + six, 3, 3,
         true},
        {"Come odds without", number(Row::Come, 6, Row::Come4Odds + six, false), Row::Come4Odds + six, 3, 3, false},
        {"Point 7 on a point",
         [](HandlingTest& f) {
             f.Bet(1, Row::Point7, 10);
             f.RollTotal(8);
         },
         Row::Point7, 2, 2, false},
        {"Point 7 on the come-out", [](HandlingTest& f) { f.Bet(1, Row::Point7, 10); }, Row::Point7, 5, 6, true},
        {"7 Point 7 on a point",
         [](HandlingTest& f) {
             f.Bet(1, Row::SevenPoint7, 10);
             f.RollTotal(8);
         },
         Row::SevenPoint7, 2, 2, false},
        {"7 Point 7 on the 7", [](HandlingTest& f) { f.Bet(1, Row::SevenPoint7, 10); }, Row::SevenPoint7, 3, 4, true},
        {"Fire lost",
         [line](HandlingTest& f) {
             f.Bet(1, Row::Fire, 5);
             f.RollTotal(8);
         },
         Row::Fire, 3, 4, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        Restart();
        c.Prepare(*this);
        const currency stood = Amount(1, c.BetRow);
        ASSERT_NE(stood, currency{});
        t.WinnerHandling[1] = t.LoserHandling[1] = 2;
        Messages();
        t.NotifyBits = c.BetRow == Row::Fire ? 0 : 1;
        Roll(c.Die1, c.Die2);
        EXPECT_EQ(Amount(1, c.BetRow), c.Stays ? stood : currency{});
        EXPECT_THAT(Messages(), IsEmpty()) << "nothing was asked for that the rules would refuse";
        EXPECT_EQ(t.BetsOnTable[1], BetsOnTableOf(t, 1));
    }
}

TEST_F(HandlingTest, ACallSurvivesAHandlingButNotANewBet) {
    for (const int state : {2, -1}) {
        Restart();
        t.WinnerHandling[1] = 4;
        Bet(1, Row::Hard6, 10);
        SetBetWorking(t, 1, Row::Hard6, state);
        Roll(3, 3);
        EXPECT_EQ(Amount(1, Row::Hard6), Dollars(state == 2 ? 20 : 10));
        EXPECT_EQ(BetWorking(t, 1, Row::Hard6), state);
        RemoveBet(t, 1, Row::Hard6);
        Bet(1, Row::Hard6, 10);
        EXPECT_EQ(BetWorking(t, 1, Row::Hard6), 1);
    }
}

TEST_F(HandlingTest, HandlingsAreBentByTheRulesOfTheTable) {
    t.WinnerHandling[1] = 4;
    Bet(1, Row::Place4 + 2, 600);
    ASSERT_TRUE(CallBet(t, 1, Row::Place4 + 2, true));
    Roll(1, 5);
    EXPECT_EQ(Amount(1, Row::Place4 + 2), Dollars(1000)) << "the maximum";
    // A loser who can't pay the same bet again bets what is left.
    Restart();
    t.LoserHandling[1] = 2;
    Bet(1, Row::Field, 600);
    SetBankroll(t, 1, Dollars(700));
    Roll(3, 4);
    EXPECT_EQ(BankrollOf(1), Dollars(100));
    EXPECT_EQ(Amount(1, Row::Field), Dollars(100));
}

TEST_F(HandlingTest, ChangesAreTold) {
    struct Case {
        int Code;
        const char *Title, *What;
    };
    for (const Case& c : {Case{3, "Press 1 Unit", "increased by: $6"}, Case{4, "Press Double", "increased by: $12"},
                          Case{5, "Parlay", "increased by: $14"}}) {
        Restart();
        t.WinnerHandling[1] = c.Code;
        PlaceSix();
        t.NotifyBits = 4;
        Roll(1, 5);
        EXPECT_THAT(Messages(), ElementsAre("[" + std::string(c.Title) + "] Ann\n\nPlace 6 bet " + c.What));
    }
    for (const int code : {1, 2}) {
        Restart();
        t.WinnerHandling[1] = code;
        PlaceSix();
        t.NotifyBits = 4;
        Roll(1, 5);
        EXPECT_THAT(Messages(), IsEmpty());
    }
    Restart();
    t.WinnerHandling[1] = 6;
    SetSlot(4, {1, Dollars(5), 0});
    PlaceSix();
    t.NotifyBits = 4;
    Roll(1, 5);
    EXPECT_THAT(Messages(), ElementsAre("[Same bet minus $] Ann\n\nPlace 6 bet decreased by: $5"));
}

TEST_F(HandlingTest, TheDialogAsksWhoHasNoOrderAndUsesItsOwnSlots) {
    struct Case {
        const char* Name;
        bool Wins;
        int Code, SlotUsed;
        std::int64_t Bet;
    };
    const Case cases[] = {{"win, same", true, 2, -1, 12},
                          {"win, modified", true, 6, 0, 15},
                          {"win, exactly", true, 7, 1, 3},
                          {"loss, modified", false, 6, 2, 15},
                          {"loss, exactly", false, 7, 3, 3},
                          {"loss, closed", false, 0, -1, 0},
                          {"win, a code not offered", true, 8, -1, 0}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        Restart();
        t.WinnerHandling[1] = t.LoserHandling[1] = 0;
        if (c.SlotUsed >= 0) SetSlot(c.SlotUsed, {0, Dollars(3), 0});
        PlaceSix();
        Front.Asked.clear();
        Front.SettleCodes = {c.Code};
        Roll(c.Wins ? 1 : 3, c.Wins ? 5 : 4);
        ASSERT_EQ(Front.Asked.size(), 1u);
        EXPECT_EQ(Front.Asked[0].Winner, c.Wins);
        EXPECT_EQ(Front.Asked[0].Lines[0].Left, c.Wins ? "Ann wins!" : "Ann lost");
        EXPECT_EQ(Amount(1, Row::Place4 + 2), Dollars(c.Bet));
    }
}

TEST_F(HandlingTest, ABetThatMustComeDownOffersNothingElse) {
    t.WinnerHandling[1] = t.LoserHandling[1] = 0;
    Bet(1, Row::PassLine, 10);
    RollTotal(8);
    Bet(1, Row::PassLineOdds, 10);
    Front.SettleCodes = {2, 2};
    Roll(4, 4);
    ASSERT_EQ(Front.Asked.size(), 2u);
    EXPECT_EQ(Front.Asked[0].Choices.size(), 7u);
    EXPECT_EQ(Front.Asked[1].Choices.size(), 1u);
    EXPECT_EQ(Amount(1, Row::PassLine), Dollars(10));
    EXPECT_EQ(Amount(1, Row::PassLineOdds), currency{});
}

TEST_F(HandlingTest, NobodyIsAskedInHyperDriveNorAboutABetThatWasNotThere) {
    t.WinnerHandling[1] = t.LoserHandling[1] = 0;
    t.HyperDriveActive = true;
    PlaceSix();
    Roll(1, 5);
    EXPECT_EQ(Amount(1, Row::Place4 + 2), currency{});
    Bet(1, Row::Field, 5);
    Roll(1, 5);
    EXPECT_EQ(Amount(1, Row::Field), currency{});
    t.HyperDriveActive = false;
    Bet(1, Row::Field, 5);
    t.PrevBetAmount(1, Row::Field) = currency{};
    t.Die1 = 3;
    t.Die2 = 4;
    SettleSeat(t, 1, 1, Row::Field);
    EXPECT_THAT(Front.Asked, IsEmpty());
    EXPECT_EQ(Amount(1, Row::Field), currency{});
}

TEST_F(HandlingTest, TheFeltShowsWhatBecameOfABet) {
    struct Case {
        int Code;
        bool HyperDrive;
    };
    for (const Case& c : {Case{1, false}, Case{2, false}, Case{1, true}, Case{2, true}}) {
        Restart();
        t.LoserHandling[1] = c.Code;
        t.HyperDriveActive = c.HyperDrive;
        PlaceSix();
        Front.BetRedraws = 0;
        Roll(3, 4);
        EXPECT_EQ(Front.BetRedraws > 0, !c.HyperDrive) << c.Code;
    }
}

struct ReturnedOddsTest : HandlingTest {
    /// A Come 6 with odds of 10 on a come-out roll, where odds are off.
    void ComeSixOnTheComeOut() {
        Bet(1, Row::PassLine, 10);
        RollTotal(8);
        Bet(1, Row::Come, 10);
        RollTotal(6);
        Bet(1, Row::Come4Odds + 2, 10);
        RollTotal(8);
        ASSERT_EQ(t.Point, 0);
    }
};

TEST_F(ReturnedOddsTest, StandingOrders) {
    struct Case {
        const char* Name;
        int WinnerCode, LoserCode, Streak;
        bool Put, Made;
        std::int64_t Odds;
    };
    const Case cases[] = {
        {"losers' same", 2, 2, 0, true, true, 10},
        {"losers' none", 2, 1, 1, true, true, 0},  // a streak of one is no run yet; the flat stays by the winners' code
        {"losers' double", 2, 5, -2, true, true, 20},
        {"winners' double on a run", 4, 1, 2, true, true, 20},
        {"flat taken down", 1, 2, 0, true, true, 0},
        {"no Put bets", 2, 2, 0, false, true, 0},
        {"flat lost", 2, 1, 0, true, false, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        Restart();
        t.AllowPutBets = c.Put;
        ComeSixOnTheComeOut();
        t.WinnerHandling[1] = c.WinnerCode;
        t.LoserHandling[1] = c.LoserCode;
        t.BetStreak(1, Row::Come4Odds + 2) = c.Streak;
        const currency before = BankrollOf(1);
        Roll(3, c.Made ? 3 : 4);
        EXPECT_EQ(BankrollOf(1) - before, Dollars(c.Made ? 10 : -10));
        EXPECT_EQ(Amount(1, Row::Come4Odds + 2), Dollars(c.Odds));
        EXPECT_EQ(t.BetStreak(1, Row::Come4Odds + 2), c.Streak);
        EXPECT_EQ(t.BetsOnTable[1], BetsOnTableOf(t, 1));
    }
}

TEST_F(ReturnedOddsTest, TheDialogOffersMaxOdds) {
    ComeSixOnTheComeOut();
    t.WinnerHandling[1] = 2;
    t.LoserHandling[1] = 0;
    Front.SettleCodes = {ReturnedMaxOdds};
    Roll(3, 3);
    ASSERT_EQ(Front.Asked.size(), 1u);
    EXPECT_THAT(Front.Asked[0].Lines[0].Left, HasSubstr("Come 6 Odds bet:"));
    EXPECT_EQ(Front.Asked[0].Lines[1].Left, "wasn't working!");
    EXPECT_EQ(Amount(1, Row::Come4Odds + 2), Dollars(25));
}

}  // namespace
}  // namespace tarnwick
