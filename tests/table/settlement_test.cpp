#include "table/settlement.h"

#include "support/table_fixture.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Dice {
    int Die1, Die2;
};

struct SettlementTest : TableTest {
    SettlementTest() { Restart(); }

    void Restart() {
        SubMain(t, &Front);
        t.ShooterBetRequirement = 0;
        Seat(1, "Ann", 100'000);
        t.NotifyBits = 0;
    }

    /// What a roll does to the bankroll of p.
    currency Result(Dice dice, int p = 1) {
        const currency before = BankrollOf(p);
        Roll(dice.Die1, dice.Die2);
        return BankrollOf(p) - before;
    }
};

TEST_F(SettlementTest, ResultsOfBetsThatStandOnTheFelt) {
    struct Case {
        int BetRow;
        std::int64_t Amount;
        int Point;  ///< 0: on the come-out
        Dice Thrown;
        std::int64_t Net;
        bool Stays = false;
    };
    const Case cases[] = {
        // Lay: a win of 20 on 40 costs a vig of 1, paid up front.
        {Row::Lay4, 40, 0, {3, 4}, 19},
        {Row::Lay4, 40, 0, {2, 2}, -41},
        {Row::Lay4 + 1, 30, 5, {1, 6}, 19},
        {Row::Lay4 + 2, 60, 9, {3, 4}, 48},  // 50 less a vig of 2, a tie going down
        {Row::Lay4 + 2, 60, 9, {2, 4}, -62},
        {Row::Lay10, 40, 9, {5, 5}, -41},
        {Row::Lay10, 40, 9, {5, 6}, 0, true},
        // Place, also where the win isn't whole checks.
        {Row::Place4, 5, 8, {1, 3}, 9},
        {Row::Place4 + 1, 5, 8, {2, 3}, 7},
        {Row::Place4 + 2, 12, 8, {5, 1}, 14},
        {Row::Place4 + 2, 10, 8, {5, 1}, 11},
        {Row::Place4 + 2, 1, 8, {5, 1}, 1},
        {Row::Place10, 5, 8, {4, 6}, 9},
        {Row::Place10, 5, 8, {4, 3}, -5},
        {Row::Place10, 5, 0, {4, 6}, 0, true},
        {Row::Place10, 5, 0, {4, 3}, 0, true},
        // Buy: 25 on the 4 wins 50 less a vig of 1.
        {Row::Buy4, 25, 8, {2, 2}, 49},
        {Row::Buy4, 25, 8, {3, 4}, -26},
        {Row::Buy4 + 3, 20, 6, {2, 6}, 23},
        {Row::Buy4, 25, 0, {3, 4}, 0, true},
        // The line.
        {Row::PassLine, 10, 0, {3, 4}, 10},
        {Row::PassLine, 10, 0, {5, 6}, 10},
        {Row::PassLine, 10, 0, {1, 1}, -10},
        {Row::PassLine, 10, 0, {1, 2}, -10},
        {Row::PassLine, 10, 0, {6, 6}, -10},
        {Row::PassLine, 10, 0, {4, 4}, 0, true},
        {Row::DontPass, 10, 0, {3, 4}, -10},
        {Row::DontPass, 10, 0, {5, 6}, -10},
        {Row::DontPass, 10, 0, {1, 1}, 10},
        {Row::DontPass, 10, 0, {1, 2}, 10},
        {Row::DontPass, 10, 0, {6, 6}, 0, true},
        // Come boxes behind a point.
        {Row::Come, 10, 8, {3, 4}, 10},
        {Row::Come, 10, 8, {5, 6}, 10},
        {Row::Come, 10, 8, {1, 1}, -10},
        {Row::Come, 10, 8, {6, 6}, -10},
        {Row::DontCome, 10, 8, {3, 4}, -10},
        {Row::DontCome, 10, 8, {5, 6}, -10},
        {Row::DontCome, 10, 8, {1, 2}, 10},
        {Row::DontCome, 10, 8, {1, 1}, 10},
        {Row::DontCome, 10, 8, {6, 6}, 0, true},
        // Big 6 and 8, hardways.
        {Row::Big6, 10, 0, {3, 3}, 10},
        {Row::Big6, 10, 0, {3, 4}, -10},
        {Row::Big8, 10, 0, {2, 6}, 10},
        {Row::Big8, 10, 0, {3, 3}, 0, true},
        {Row::Hard4, 10, 0, {2, 2}, 70},
        {Row::Hard4, 10, 0, {1, 3}, -10},
        {Row::Hard6, 10, 0, {3, 3}, 90},
        {Row::Hard6, 10, 0, {5, 1}, -10},
        {Row::Hard8, 10, 0, {4, 4}, 90},
        {Row::Hard8, 10, 0, {6, 1}, -10},
        {Row::Hard10, 10, 0, {5, 5}, 70},
        {Row::Hard10, 10, 0, {6, 4}, -10},
        {Row::Hard10, 10, 0, {6, 5}, 0, true},
        // One roll.
        {Row::Two, 10, 0, {1, 1}, 300},
        {Row::Two, 10, 0, {1, 2}, -10},
        {Row::Three, 10, 0, {1, 2}, 150},
        {Row::Seven, 10, 0, {1, 6}, 40},
        {Row::Eleven, 10, 0, {5, 6}, 150},
        {Row::Eleven, 10, 0, {5, 2}, -10},
        {Row::Twelve, 10, 0, {6, 6}, 300},
        {Row::Craps, 10, 0, {1, 1}, 70},
        {Row::Craps, 10, 0, {2, 1}, 70},
        {Row::Craps, 10, 0, {6, 6}, 70},
        {Row::Craps, 10, 0, {6, 5}, -10},
        {Row::Over7, 10, 0, {6, 2}, 10},
        {Row::Over7, 10, 0, {6, 1}, -10},
        {Row::Under7, 10, 0, {4, 2}, 10},
        {Row::Under7, 10, 0, {6, 1}, -10},
        // Split over several results, of which one wins.
        {Row::CandE, 2, 0, {1, 1}, 6},
        {Row::CandE, 2, 0, {5, 6}, 14},
        {Row::CandE, 2, 0, {5, 5}, -2},
        {Row::CandE, 1, 0, {1, 2}, 3},
        {Row::CandE, 3, 0, {1, 2}, 9},
        {Row::Horn, 4, 0, {1, 1}, 27},
        {Row::Horn, 4, 0, {1, 2}, 12},
        {Row::Horn, 4, 0, {5, 6}, 12},
        {Row::Horn, 4, 0, {6, 6}, 27},
        {Row::Horn, 4, 0, {6, 1}, -4},
        {Row::Horn, 1, 0, {1, 1}, 6},  // 6.75
        {Row::World, 5, 0, {1, 1}, 26},
        {Row::World, 5, 0, {6, 5}, 11},
        {Row::World, 5, 0, {6, 1}, 0},
        {Row::World, 5, 0, {6, 2}, -5},
        // Field and Midway by tables of their own.
        {Row::Field, 10, 0, {1, 1}, 20},
        {Row::Field, 10, 0, {1, 2}, 10},
        {Row::Field, 10, 0, {2, 2}, 10},
        {Row::Field, 10, 0, {2, 3}, -10},
        {Row::Field, 10, 0, {5, 1}, -10},
        {Row::Field, 10, 0, {6, 1}, -10},
        {Row::Field, 10, 0, {4, 4}, -10},
        {Row::Field, 10, 0, {4, 5}, 10},
        {Row::Field, 10, 0, {5, 5}, 10},
        {Row::Field, 10, 0, {5, 6}, 10},
        {Row::Field, 10, 0, {6, 6}, 20},
        {Row::Midway, 10, 0, {3, 3}, 20},
        {Row::Midway, 10, 0, {5, 1}, 10},
        {Row::Midway, 10, 0, {5, 2}, 10},
        {Row::Midway, 10, 0, {5, 3}, 10},
        {Row::Midway, 10, 0, {4, 4}, 20},
        {Row::Midway, 10, 0, {4, 5}, -10},
        {Row::Midway, 10, 0, {2, 3}, -10},
        // Specials that a point decides.
        {Row::Point7, 10, 0, {3, 4}, -10},
        {Row::Point7, 10, 0, {5, 6}, -10},
        {Row::SevenPoint7, 10, 0, {3, 4}, 20},
        {Row::SevenPoint7, 10, 0, {5, 6}, -10},
        {Row::SevenPoint7, 10, 0, {2, 2}, 0, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << BetName(c.BetRow) << ", point " << c.Point << ", " << c.Thrown.Die1 << "."
                                        << c.Thrown.Die2);
        Restart();
        if (c.Point != 0) RollTotal(c.Point);
        Bet(1, c.BetRow, c.Amount);
        EXPECT_EQ(Result(c.Thrown), Dollars(c.Net));
        EXPECT_EQ(!IsZero(Amount(1, c.BetRow)), c.Stays);
        EXPECT_EQ(t.BetsOnTable[1], BetsOnTableOf(t, 1));
        EXPECT_EQ(IsZero(t.BetsOnTable[1]), !c.Stays) << "reserved vig goes with its bet";
    }
}

TEST_F(SettlementTest, EveryHopPaysItsDiceAlone) {
    for (int row = Row::Hop13; row <= Row::Hop55; ++row) {
        const int a = BetName(row)[4] - '0', b = BetName(row)[5] - '0';
        for (int die1 = 1; die1 <= 6; ++die1) {
            for (int die2 = 1; die2 <= 6; ++die2) {
                const bool hits = (die1 == a && die2 == b) || (die1 == b && die2 == a);
                Bet(1, row, 10);
                EXPECT_EQ(Result({die1, die2}), Dollars(!hits    ? -10
                                                        : a == b ? 300
                                                                 : 150))
                    << BetName(row) << " on " << die1 << "." << die2;
            }
        }
    }
}

TEST_F(SettlementTest, PointsDecideLineAndNumbers) {
    struct Case {
        int Point;
        std::int64_t OddsOf60, DontOddsOf60;
    };
    for (const Case& c :
         {Case{4, 120, 30}, Case{5, 90, 40}, Case{6, 72, 50}, Case{8, 72, 50}, Case{9, 90, 40}, Case{10, 120, 30}}) {
        for (const bool made : {true, false}) {
            SCOPED_TRACE(testing::Message() << c.Point << (made ? " made" : " missed"));
            Restart();
            Seat(2, "Bo", 100'000);
            Bet(1, Row::PassLine, 50);
            Bet(2, Row::DontPass, 50);
            RollTotal(c.Point);
            Bet(1, Row::PassLineOdds, 60);
            Bet(2, Row::DontPassOdds, 60);
            const currency before = BankrollOf(2);
            EXPECT_EQ(Result({made ? c.Point / 2 : 3, made ? c.Point - c.Point / 2 : 4}),
                      Dollars(made ? 50 + c.OddsOf60 : -110));
            EXPECT_EQ(BankrollOf(2) - before, Dollars(made ? -110 : 50 + c.DontOddsOf60));
            EXPECT_THAT((std::vector<currency>{t.BetsOnTable[1], t.BetsOnTable[2]}),
                        ElementsAre(currency{}, currency{}));

            // The same through the boxes, behind another point.
            Restart();
            Seat(2, "Bo", 100'000);
            RollTotal(c.Point == 6 ? 8 : 6);
            Bet(1, Row::Come, 50);
            Bet(2, Row::DontCome, 50);
            RollTotal(c.Point);
            const int n = PointIndex(c.Point);
            EXPECT_EQ(Amount(1, Row::Come4 + n), Dollars(50));
            EXPECT_EQ(Amount(2, Row::DontCome4 + n), Dollars(50));
            Bet(1, Row::Come4Odds + n, 60);
            Bet(2, Row::DontCome4Odds + n, 60);
            const currency start = BankrollOf(2);
            EXPECT_EQ(Result({made ? c.Point / 2 : 3, made ? c.Point - c.Point / 2 : 4}),
                      Dollars(made ? 50 + c.OddsOf60 : -110));
            EXPECT_EQ(BankrollOf(2) - start, Dollars(made ? -110 : 50 + c.DontOddsOf60));
        }
    }
}

TEST_F(SettlementTest, TheBarMovesWhatTheDontSideLeavesStanding) {
    struct Case {
        int Bar;
        Dice Thrown;
        std::int64_t Net;
        bool Stays;
    };
    const Case cases[] = {{12, {1, 1}, 10, false}, {12, {6, 6}, 0, true}, {2, {1, 1}, 0, true}, {2, {6, 6}, 10, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "bar " << c.Bar << ", " << c.Thrown.Die1);
        for (const int row : {Row::DontPass, Row::DontCome}) {
            Restart();
            t.BarDont = c.Bar;
            if (row == Row::DontCome) RollTotal(8);
            Bet(1, row, 10);
            Bet(1, row == Row::DontCome ? Row::Come : Row::PassLine, 7);
            EXPECT_EQ(Result(c.Thrown), Dollars(c.Net - 7));
            EXPECT_EQ(!IsZero(Amount(1, row)), c.Stays);
        }
    }
}

TEST_F(SettlementTest, LinePayoffsComeFromTheRowsOfComeBets) {
    t.Payoff[Row::Come].Pays = Dollars(2);
    t.Payoff[Row::Come4 + 2].Pays = Dollars(3);
    t.Payoff[Row::DontCome].Pays = Dollars(4);
    t.Payoff[Row::DontCome4 + 3].Pays = Dollars(5);
    Bet(1, Row::PassLine, 10);
    EXPECT_EQ(Result({3, 4}), Dollars(20));
    Bet(1, Row::PassLine, 10);
    RollTotal(6);
    EXPECT_EQ(Result({3, 3}), Dollars(30));
    Bet(1, Row::DontPass, 10);
    EXPECT_EQ(Result({1, 2}), Dollars(40));
    Bet(1, Row::DontPass, 10);
    RollTotal(8);
    EXPECT_EQ(Result({3, 4}), Dollars(50));
    t.Payoff[Row::DontCome4 + 3].Pays = currency{};  // no decision: nothing moves
    Bet(1, Row::DontPass, 10);
    RollTotal(8);
    EXPECT_EQ(Result({3, 4}), currency{});
    EXPECT_EQ(Amount(1, Row::DontPass), Dollars(10));
}

TEST_F(SettlementTest, ChangedTablesOfFieldMidwayAndSevens) {
    t.FieldPayoff[9] = {{}, Dollars(5), Dollars(-1), Dollars(2)};    // 6 as 3-3: 5 to 2
    t.FieldPayoff[2] = {{}, currency{}, Dollars(-1), Dollars(1)};    // 3: no decision
    t.FieldPayoff[11] = {{}, Dollars(-1), Dollars(-1), Dollars(2)};  // 7 as 2-5: half is lost
    t.MidwayPayoff[1] = {{}, Dollars(5), Dollars(-1), Dollars(2)};
    t.MidwayPayoff[4] = {{}, currency{}, Dollars(-1), Dollars(1)};
    t.SevenPointSevenPayoff[1] = {{}, Dollars(7), Dollars(-1), Dollars(2)};
    struct Case {
        int BetRow;
        Dice Thrown;
        std::int64_t Net;
        bool Stays;
    };
    const Case cases[] = {
        {Row::Field, {3, 3}, 25, false},       {Row::Field, {2, 1}, 0, true},    {Row::Field, {5, 2}, -5, false},
        {Row::Field, {4, 3}, -10, false},      {Row::Midway, {3, 3}, 25, false}, {Row::Midway, {6, 2}, 0, true},
        {Row::SevenPoint7, {1, 6}, 35, false},
    };
    const Table prepared = t;
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << BetName(c.BetRow) << " " << c.Thrown.Die1 << "." << c.Thrown.Die2);
        t = prepared;
        Bet(1, c.BetRow, 10);
        EXPECT_EQ(Result(c.Thrown), Dollars(c.Net));
        EXPECT_EQ(!IsZero(Amount(1, c.BetRow)), c.Stays);
    }
}

TEST_F(SettlementTest, TwentyOneFieldEntriesAreFoundByTheDice) {
    struct Case {
        int Entry;
        Dice Thrown;
    };
    const Case cases[] = {{1, {1, 1}},  {2, {2, 1}},  {3, {3, 1}},  {4, {2, 2}},  {5, {4, 1}},  {6, {2, 3}},
                          {7, {1, 5}},  {8, {4, 2}},  {9, {3, 3}},  {10, {6, 1}}, {11, {2, 5}}, {12, {4, 3}},
                          {13, {6, 2}}, {14, {3, 5}}, {15, {4, 4}}, {16, {3, 6}}, {17, {5, 4}}, {18, {4, 6}},
                          {19, {5, 5}}, {20, {6, 5}}, {21, {6, 6}}};
    for (const Case& c : cases) t.FieldPayoff[At(c.Entry)] = {{}, Dollars(c.Entry), Dollars(-1), Dollars(1)};
    for (const Case& c : cases) {
        Bet(1, Row::Field, 1);
        EXPECT_EQ(Result(c.Thrown), Dollars(c.Entry));
        Bet(1, Row::Field, 1);
        EXPECT_EQ(Result({c.Thrown.Die2, c.Thrown.Die1}), Dollars(c.Entry)) << "the dice in the other order";
    }
}

TEST_F(SettlementTest, FirePaysByDistinctPoints) {
    struct Case {
        std::vector<int> Points;
        std::int64_t Net;
        bool Stays;
    };
    const Case cases[] = {{{}, -5, false},
                          {{4, 5, 6}, -5, false},
                          {{4, 4, 5, 6, 5}, -5, false},
                          {{4, 5, 6, 8}, 120, false},
                          {{4, 5, 6, 8, 9}, 5 * 249, false},
                          {{10, 9, 8, 6, 5, 4, 4}, 5 * 999, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Points.size());
        Restart();
        Bet(1, Row::Fire, 5);
        for (const int point : c.Points) {
            RollTotal(point);
            RollTotal(point);
        }
        RollTotal(8);
        EXPECT_EQ(Result({3, 4}), Dollars(c.Net));
        EXPECT_EQ(!IsZero(Amount(1, Row::Fire)), c.Stays);
        EXPECT_EQ(t.PointsMadeMask, 0);
        EXPECT_EQ(t.PointsMadeCount, 0);
    }
    // A payoff of 0 is no decision, a partial loss keeps its remainder out of the house's hands.
    t.FirePayoff[1] = {{}, currency{}, Dollars(-1), Dollars(1)};
    t.FirePayoff[0] = {{}, Dollars(-1), Dollars(-1), Dollars(2)};
    Bet(1, Row::Fire, 4);
    RollTotal(8);
    RollTotal(8);
    RollTotal(8);
    EXPECT_EQ(Result({3, 4}), currency{});
    EXPECT_EQ(Amount(1, Row::Fire), Dollars(4)) << "it stays for the next hand";
    RollTotal(8);
    EXPECT_EQ(Result({3, 4}), Dollars(-2));
}

TEST_F(SettlementTest, VigOnWinsOnly) {
    t.BuyVigOnAllBets = t.LayVigOnAllBets = false;
    struct Case {
        int BetRow;
        std::int64_t Amount;
        Dice Thrown;
        std::int64_t Net;
    };
    for (const Case& c : {Case{Row::Buy4, 25, {2, 2}, 49}, Case{Row::Buy4, 25, {3, 4}, -25},
                          Case{Row::Lay4, 40, {3, 4}, 19}, Case{Row::Lay4, 40, {1, 3}, -40}}) {
        RollTotal(8);
        Bet(1, c.BetRow, c.Amount);
        EXPECT_EQ(t.BetsOnTable[1], Dollars(c.Amount));
        EXPECT_EQ(Result(c.Thrown), Dollars(c.Net)) << BetName(c.BetRow);
        EXPECT_EQ(t.BetsOnTable[1], currency{});
        if (t.Point != 0) RollTotal(7);
    }
}

TEST_F(SettlementTest, WinsRoundDownAndLossesAwayToTheSmallestCheck) {
    struct Case {
        currency Check, Bet;
        bool Wins;
        currency Net;
    };
    const Case cases[] = {
        {Dollars(5), Dollars(5), true, Dollars(5)},     // 5.83
        {Dollars(25), Dollars(25), true, Dollars(25)},  // 29.17
        {{1'000}, {3'000}, true, {3'000}},              // 0.35: three checks of 0.10, which no double could count
        {{1'000}, {6'000}, true, {7'000}},
        {{2'500}, {2'500}, false, {-2'500}},
        {Dollars(5), Dollars(5), false, Dollars(-5)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Check);
        Restart();
        t.CheckDenominations = {currency{}, c.Check, c.Check * 2, c.Check * 4, c.Check * 8, c.Check * 16};
        t.MinPlacardBet = c.Check;
        RollTotal(8);
        Bet(1, Row::Place4 + 2, c.Bet);
        EXPECT_EQ(Result(c.Wins ? Dice{1, 5} : Dice{3, 4}), c.Net);
    }
    // A bet of odd size, from before the checks changed: what it loses is rounded against the player.
    Restart();
    RollTotal(8);
    Bet(1, Row::Place4 + 2, 7);
    t.CheckDenominations = {currency{}, Dollars(5), Dollars(10), Dollars(25), Dollars(100), Dollars(500)};
    EXPECT_EQ(Result({3, 4}), Dollars(-10));
}

TEST_F(SettlementTest, BetsThatAreOffStay) {
    RollTotal(8);
    Bet(1, Row::Place4, 10);
    Bet(1, Row::Hard6, 10);
    ASSERT_TRUE(CallBet(t, 1, Row::Place4, false));
    ASSERT_TRUE(CallBet(t, 1, Row::Hard6, false));
    EXPECT_EQ(Result({2, 2}), currency{});
    EXPECT_EQ(Result({5, 1}), currency{});
    EXPECT_EQ(Result({3, 4}), currency{});
    EXPECT_EQ(Amount(1, Row::Place4), Dollars(10));
    EXPECT_EQ(Amount(1, Row::Hard6), Dollars(10));
    // Called ON, a Place bet works on the come-out.
    Bet(1, Row::Place4 + 1, 10);
    ASSERT_TRUE(CallBet(t, 1, Row::Place4 + 1, true));
    EXPECT_EQ(Result({3, 4}), Dollars(-10));
}

TEST_F(SettlementTest, ComeOddsAreOffOnTheComeOutAndComeBackWithTheirFlat) {
    for (const bool made : {true, false}) {
        SCOPED_TRACE(made);
        Restart();
        Bet(1, Row::PassLine, 10);
        RollTotal(8);
        Bet(1, Row::Come, 10);
        RollTotal(6);
        Bet(1, Row::Come4Odds + 2, 25);
        EXPECT_EQ(Result({4, 4}), Dollars(10));
        EXPECT_EQ(BetWorking(t, 1, Row::Come4Odds + 2), 0);
        const auto decided = BetStatWagers(t, 1 + 18, Row::Come4Odds + 2, 1);
        EXPECT_EQ(Result(made ? Dice{3, 3} : Dice{3, 4}), Dollars(made ? 10 : -10)) << "the flat alone";
        EXPECT_EQ(Amount(1, Row::Come4Odds + 2), currency{});
        EXPECT_EQ(t.BetsOnTable[1], currency{});
        EXPECT_EQ(BetStatWagers(t, 1 + 18, Row::Come4Odds + 2, 1), decided) << "a returned bet is no decision";
        EXPECT_EQ(t.BetStreak(1, Row::Come4Odds + 2), 0);
    }
}

TEST_F(SettlementTest, StreaksCountRunsAndPushesLeaveThem) {
    struct Step {
        Dice Thrown;
        int Streak;
    };
    t.WinnerHandling[1] = t.LoserHandling[1] = 2;
    Bet(1, Row::World, 5);
    int before = 0;
    for (const Step& step : {Step{{1, 1}, 1}, Step{{5, 6}, 2}, Step{{3, 4}, 2}, Step{{2, 2}, -1}, Step{{3, 3}, -2},
                             Step{{1, 6}, -2}, Step{{1, 2}, 1}}) {
        Roll(step.Thrown.Die1, step.Thrown.Die2);
        EXPECT_EQ(t.BetStreak(1, Row::World), step.Streak);
        EXPECT_EQ(t.PrevBetStreak(1, Row::World), before);
        before = step.Streak;
    }
}

TEST_F(SettlementTest, SeatsArePaidFromTheEndsInward) {
    for (int p = 2; p <= 8; ++p) Seat(p, std::string("P") + std::to_string(p));
    t.EventsLogOn = true;
    for (int p = 1; p <= 8; ++p) Bet(p, Row::Field, 10);
    Front.Logged.clear();
    Roll(1, 2);
    std::string order;
    for (const std::string& line : Front.Logged) {
        for (int p = 1; p <= 8; ++p) {
            if (line == "      " + t.PlayerName[At(p)] + " won $10 on Field") order += std::to_string(p);
        }
    }
    EXPECT_EQ(order, "18273645");
}

TEST_F(SettlementTest, ASettledBetIsEstablishedNoMore) {
    t.WinnerHandling[1] = 2;
    Bet(1, Row::DontPass, 10);
    Roll(1, 2);
    EXPECT_EQ(Amount(1, Row::DontPass), Dollars(10));
    EXPECT_EQ(t.EstablishedBet(1, Row::DontPass), currency{});
    EXPECT_EQ(t.PrevBetAmount(1, Row::DontPass), Dollars(10));
    RollTotal(8);
    EXPECT_EQ(t.EstablishedBet(1, Row::DontPass), Dollars(10));
}

TEST_F(SettlementTest, AbandonedBetsAreLostWithoutRebetOrQuestion) {
    t.LoserHandling[1] = 2;
    Bet(1, Row::PassLine, 10);
    RollTotal(8);
    const currency before = BankrollOf(1);
    SettleAbandoned(t, 1, Row::PassLine);
    EXPECT_EQ(BankrollOf(1), before - Dollars(10));
    EXPECT_EQ(Amount(1, Row::PassLine), currency{});
    EXPECT_THAT(Front.Asked, IsEmpty());
}

}  // namespace
}  // namespace tarnwick
