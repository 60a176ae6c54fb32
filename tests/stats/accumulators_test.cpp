// Cases of the accumulators that can be worked out by hand.
#include "stats/accumulators.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "stats/reference.h"

namespace tarnwick {
namespace {

constexpr std::int32_t MostInt = std::numeric_limits<std::int32_t>::max();

struct Accumulators : testing::Test {
    Accumulators() { t.HandShooter = 0; }

    void Seat(int p, currency amount = Dollars(1000)) {
        ClearPositionStatistics(t, p);
        SetBeginningBankroll(t, p, amount);
        t.PlayerName[static_cast<std::size_t>(p)] = "Ann";
    }
    void Roll(int die1, int die2) {
        t.Die1 = die1;
        t.Die2 = die2;
        t.DiceTotal = die1 + die2;
        TallyRoll(t);
        TallyBankrolls(t);
    }
    std::vector<int> Rolled(std::initializer_list<int> positions, int k = 0) {
        std::vector<int> counts;
        for (const int pos : positions) counts.push_back(RollCount(t, pos, k));
        return counts;
    }

    std::unique_ptr<Table> Storage = std::make_unique<Table>();
    Table& t = *Storage;
};

TEST_F(Accumulators, EachPairCountsAsItsEvents) {
    for (int die1 = 1; die1 <= 6; ++die1) {
        for (int die2 = 1; die2 <= 6; ++die2) {
            EraseStatistics(t);
            Roll(die1, die2);
            std::vector<int> wanted(91, 0);
            wanted[0] = 1;
            wanted[static_cast<std::size_t>(77 + die1)] = 1;
            wanted[static_cast<std::size_t>(83 + die2)] = 1;
            for (const int k : reference::Reference::EventsOfDice(die1, die2)) wanted[static_cast<std::size_t>(k)] = 1;
            for (int k = 0; k <= 90; ++k) {
                EXPECT_EQ(RollCount(t, 18, k), wanted[static_cast<std::size_t>(k)])
                    << die1 << "." << die2 << " as " << k;
                const bool silent = k < 2 || k == 90;
                const int since = silent || RollCount(t, 18, k) == 0 ? 1 : 0;
                EXPECT_EQ(RollsSince(t, k), since) << die1 << "." << die2 << " as " << k;
            }
        }
    }
}

TEST_F(Accumulators, EventsHaveTheirChances) {
    for (int die1 = 1; die1 <= 6; ++die1) {
        for (int die2 = 1; die2 <= 6; ++die2) Roll(die1, die2);
    }
    struct {
        int FirstEvent, LastEvent, Ways;
    } const cases[] = {
        {0, 0, 36},   {1, 1, 0},    {2, 2, 1},   {3, 3, 2},    {4, 4, 3},   {5, 5, 4},    {6, 6, 5},    {7, 7, 6},
        {8, 8, 5},    {9, 9, 4},    {10, 10, 3}, {11, 11, 2},  {12, 16, 1}, {17, 17, 24}, {18, 18, 18}, {19, 19, 14},
        {20, 20, 4},  {21, 21, 16}, {22, 25, 1}, {26, 26, 2},  {27, 30, 1}, {31, 32, 2},  {33, 36, 1},  {37, 38, 2},
        {39, 44, 1},  {45, 47, 2},  {48, 51, 1}, {52, 53, 2},  {54, 57, 1}, {58, 59, 2},  {60, 61, 1},  {62, 62, 2},
        {63, 64, 1},  {65, 65, 12}, {66, 66, 6}, {67, 68, 12}, {69, 69, 2}, {70, 70, 4},  {71, 71, 6},  {72, 72, 8},
        {73, 73, 10}, {74, 75, 3},  {76, 76, 8}, {77, 77, 3},  {78, 89, 6}, {90, 90, 0},
    };
    for (const auto& c : cases) {
        for (int k = c.FirstEvent; k <= c.LastEvent; ++k) EXPECT_EQ(RollCount(t, 36, k), c.Ways) << "event " << k;
    }
}

TEST_F(Accumulators, GapsAreCountedByLengthAndTheLongOnesSummed) {
    struct {
        int Gap, Slot, LongSum;
    } const cases[] = {{1, 1, 0}, {2, 2, 0}, {199, 199, 0}, {200, 200, 200}, {201, 200, 201}, {2500, 200, 2500}};
    for (const auto& c : cases) {
        EraseStatistics(t);
        Roll(6, 6);
        const int first = RollGapTally(t, 12, 1);
        for (int i = 1; i < c.Gap; ++i) Roll(1, 1);
        EXPECT_EQ(RollsSince(t, 12), c.Gap - 1);
        Roll(6, 6);
        EXPECT_EQ(first, 1) << "the session's first roll is one roll after its start";
        EXPECT_EQ(RollGapTally(t, 12, c.Slot), c.Slot == 1 ? 2 : 1) << "gap " << c.Gap;
        EXPECT_EQ(RollGapTally(t, 12, 0), c.LongSum) << "gap " << c.Gap;
        EXPECT_EQ(RollsSince(t, 12), 0);
    }
}

TEST_F(Accumulators, GapsOfManyRollsDoNotOverflow) {
    for (int i = 0; i < 140'000; ++i) Roll(3, 4);
    EXPECT_EQ(RollGapTally(t, 7, 1), 140'000);
    EXPECT_EQ(RollGapTally(t, 0, 1), 0);
    EXPECT_EQ(RollsSince(t, 8), 140'000);
    RolloverSession(t);
    EXPECT_EQ(RollGapTally(t, 7, 1), 0);
    EXPECT_EQ(RollsSince(t, 8), 0);
    EXPECT_EQ(RollCount(t, 36, 7), 140'000);
}

TEST_F(Accumulators, CountsOfAllSessionsStopAtTheEndOfTheirRange) {
    Seat(1);
    t.HandShooter = 1;
    t.AllRolls.Pairs[1][PairIndex(1, 1)] = MostInt - 1;
    t.SeenAllFrom[1] = t.RollTotal - (MostInt - 1);
    for (int i = 0; i < 3; ++i) Roll(1, 1);
    EXPECT_EQ(Rolled({0, 1, 18, 19}, 2), (std::vector<int>{3, 3, 3, 3}));
    EXPECT_EQ(Rolled({36, 37}, 2), (std::vector<int>{MostInt, MostInt}));
    EXPECT_EQ(PlayerRolls(t, 37), MostInt);
    EXPECT_EQ(PlayerRolls(t, 19), 3);
}

TEST_F(Accumulators, BankrollSumStopsAtTheEndOfItsRange) {
    for (const std::int64_t sign : {1, -1}) {
        SetBeginningBankroll(t, 4, Dollars(9'999'999) * sign);
        for (int i = 0; i < 100; ++i) {
            TallyBankrolls(t);
        }
        EXPECT_EQ(BankrollSum(t, 4), Dollars(9'999'999) * (101 * sign));
        t.BankrollSamples += 100'000'000;
        const currency end = {sign > 0 ? std::numeric_limits<std::int64_t>::max()
                                       : std::numeric_limits<std::int64_t>::min()};
        EXPECT_EQ(BankrollSum(t, 4), end);
        SetBankroll(t, 4, Dollars(-5) * sign);
        TallyBankrolls(t);
        EXPECT_EQ(BankrollSum(t, 4), end - Dollars(5) * sign) << "from the end it counts on";
    }
}

TEST_F(Accumulators, ASevenOutStandsInTheLastHand) {
    Seat(5);
    t.HandShooter = 5;
    Roll(2, 2);
    Roll(3, 4);
    SetBankroll(t, 5, Dollars(990));
    TallyBankrolls(t);
    EndHandRollover(t);
    EXPECT_EQ(Rolled({0, 9, 18, 5, 14, 23}), (std::vector<int>{0, 2, 2, 0, 2, 2}));
    EXPECT_EQ(Rolled({9, 14}, 7), (std::vector<int>{1, 1}));
    EXPECT_EQ(HandCount(t, 5), 0);
    EXPECT_EQ(HandCount(t, 14), 1);
    EXPECT_EQ(MostRolls(t, 23), 2);
    EXPECT_EQ(MostRolls(t, 5), 0) << "never in the hand";
    EXPECT_EQ(MostRolls(t, 14), 0);
    EXPECT_EQ(t.Bankroll[14], Dollars(990));
    EXPECT_EQ(t.BankrollBegin[14], Dollars(1000));
    EXPECT_EQ(t.BankrollHigh[14], Dollars(1000));
    for (const auto& array : {t.BankrollBegin, t.BankrollHigh, t.BankrollLow}) EXPECT_EQ(array[5], Dollars(990));
}

TEST_F(Accumulators, AHandThatNobodyIsCreditedWithCountsForTheTable) {
    Seat(2);
    Roll(4, 6);
    t.Point = 10;
    Roll(5, 5);
    TallyPass(t);
    EXPECT_EQ(Rolled({0, 18, 36, 2, 20, 38}), (std::vector<int>{2, 2, 2, 0, 0, 0}));
    EXPECT_EQ(PointTally(t, 18, 10, 2), 1);
    EXPECT_EQ(PointTally(t, 20, 10, 2), 0);
    EXPECT_EQ(HandCount(t, 0), 1);
    EXPECT_EQ(PlayerRolls(t, 2), 2) << "seen, though not shot";
}

TEST_F(Accumulators, AShooterWhoLeavesInMidHandTakesTheFiguresButNotTheTables) {
    Seat(3);
    Seat(8);
    t.HandShooter = 3;
    for (int i = 0; i < 4; ++i) Roll(6, 2);
    ClearPositionStatistics(t, 3);
    t.HandShooter = 0;
    t.PlayerName[3].clear();
    Roll(6, 2);
    EXPECT_EQ(Rolled({0, 18, 36}, 48), (std::vector<int>{0, 0, 0}));
    EXPECT_EQ(Rolled({0, 18, 36}, 49), (std::vector<int>{5, 5, 5}));
    EXPECT_EQ(Rolled({3, 21, 39}), (std::vector<int>{0, 0, 0}));
    EXPECT_EQ(MostRolls(t, 18), 5);
    EXPECT_EQ(MostRolls(t, 21), 0);
    EXPECT_EQ(HandCount(t, 18), 1);
    EXPECT_EQ(HandCount(t, 21), 0);
    EndHandRollover(t);
    EXPECT_EQ(PlayerRolls(t, 3), 1) << "runs on at an empty position";
    EXPECT_EQ(PlayerRolls(t, 8), 0);
    EXPECT_EQ(PlayerRolls(t, 17), 5);
}

TEST_F(Accumulators, ALineRecordBelongsToWhoShotIt) {
    Seat(1);
    Seat(2);
    t.HandShooter = 1;
    for (int i = 0; i < 3; ++i) {
        Roll(3, 4);
        TallyPass(t);
        TallyComeout(t);
    }
    t.HandShooter = 2;
    Roll(6, 6);
    TallyMiss(t);
    TallyComeout(t);
    EXPECT_EQ(MostPasses(t, 19), 3);
    EXPECT_EQ(MostPasses(t, 20), 0);
    EXPECT_EQ(MostMisses(t, 20), 1);
    EXPECT_EQ(MostComeouts(t, 20), 4) << "of the whole hand";
    EXPECT_EQ(MostRolls(t, 20), 1) << "of the own rolls";
    EndHandRollover(t);
    EXPECT_EQ(MostPasses(t, 1), 3) << "stays in the hand's scope";
    EXPECT_EQ(MostPasses(t, 10), 0);
    EXPECT_EQ(RollGapTally(t, 7, 1), 3) << "every come-out 7 is a roll of 7";
    EXPECT_EQ(PointTally(t, 10, 7, 2), 3);
}

TEST_F(Accumulators, ASessionWithoutARollLeavesTheLastSession) {
    Seat(1, Dollars(300));
    t.HandShooter = 1;
    Roll(1, 1);
    RecordBetResult(t, 1, Row::Two, Dollars(1), Dollars(30));
    RolloverSession(t);
    EXPECT_EQ(Rolled({9, 18, 27, 28, 36}), (std::vector<int>{1, 0, 1, 1, 1})) << "the hand was closed";
    t.HandComeouts = 3;
    RolloverSession(t);
    EXPECT_EQ(t.HandComeouts, 0);
    EXPECT_EQ(Rolled({9, 18, 27, 28, 36}), (std::vector<int>{1, 0, 1, 1, 1}));
    EXPECT_EQ(BetStatWins(t, 28, Row::Two, 2), Dollars(30));
    EXPECT_EQ(t.BankrollBegin[28], Dollars(300));
}

TEST_F(Accumulators, DecidedBetsLeaveTheirMarks) {
    struct {
        const char* Name;
        std::vector<std::pair<int, int>> Decisions;  // wager, net
        int Wagers[7], Wins[7], Losses[7];
    } const cases[] = {
        {"a push leaves no mark", {{10, 0}}, {}, {}, {}},
        {"one win", {{10, 12}}, {0, 1, 10, 10, 10, 1, 10}, {0, 1, 12, 12, 12, 1, 12}, {}},
        {"low and high",
         {{10, -10}, {40, 40}, {20, -20}},
         {0, 3, 70, 40, 10, 1, 20},
         {0, 1, 40, 40, 40, 1, 40},
         {0, 2, 30, 20, 10, 1, 20}},
        {"no wager is no lowest",
         {{0, 5}, {15, 5}, {0, -5}},
         {0, 3, 15, 15, 15, 1, 0},
         {0, 2, 10, 5, 5, 1, 5},
         {0, 1, 5, 5, 5, 1, 5}},
    };
    for (const auto& c : cases) {
        EraseStatistics(t);
        Seat(6);
        Roll(2, 4);
        for (const auto& [wager, net] : c.Decisions) RecordBetResult(t, 6, Row::Field, Dollars(wager), Dollars(net));
        for (const int pos : {6, 24, 42}) {
            for (int stat = 1; stat <= 6; ++stat) {
                EXPECT_EQ(BetStatWagers(t, pos, Row::Field, stat), Dollars(c.Wagers[stat]))
                    << c.Name << " stat " << stat;
                EXPECT_EQ(BetStatWins(t, pos, Row::Field, stat), Dollars(c.Wins[stat])) << c.Name << " stat " << stat;
                EXPECT_EQ(BetStatLosses(t, pos, Row::Field, stat), Dollars(c.Losses[stat]))
                    << c.Name << " stat " << stat;
            }
        }
    }
}

TEST_F(Accumulators, AVigThatIsTakenUpFrontBelongsToTheWager) {
    struct {
        int Row;
        bool BuyUpFront, LayUpFront;
        currency Wager;
    } const cases[] = {
        {Row::Lay4, false, true, Dollars(43)},  {Row::Lay4, true, false, Dollars(40)},
        {Row::Buy10, true, false, Dollars(42)}, {Row::Buy10, false, true, Dollars(40)},
        {Row::Place4, true, true, Dollars(40)},
    };
    for (const auto& c : cases) {
        EraseStatistics(t);
        t.LayVigCharged[1][0] = Dollars(3);
        t.BuyVigCharged[1][5] = Dollars(2);
        t.BuyVigOnAllBets = c.BuyUpFront;
        t.LayVigOnAllBets = c.LayUpFront;
        RecordBetResult(t, 1, c.Row, Dollars(40), Dollars(-40));
        EXPECT_EQ(BetStatWagers(t, 19, c.Row, 2), c.Wager) << "row " << c.Row;
        EXPECT_EQ(BetStatLosses(t, 19, c.Row, 2), Dollars(40));
    }
}

TEST_F(Accumulators, RowsAreSummedColumnByColumn) {
    Seat(1);
    Roll(1, 2);
    RecordBetResult(t, 1, Row::Hard4, Dollars(5), Dollars(-5));
    RecordBetResult(t, 1, Row::Hard6, Dollars(9), Dollars(-9));
    Roll(3, 3);
    RecordBetResult(t, 1, Row::Hard6, Dollars(4), Dollars(36));
    RecordBetResult(t, 1, Row::Hard8, Dollars(7), Dollars(-7));
    struct {
        int First, Last, Stat, Wagers, Wins, Losses;
    } const cases[] = {
        {1, 91, 1, 4, 1, 3},   {1, 91, 2, 25, 36, 21}, {1, 91, 3, 9, 36, 9}, {1, 91, 4, 4, 36, 5}, {1, 91, 5, 2, 2, 2},
        {1, 91, 6, 11, 36, 7}, {52, 53, 6, 4, 36, 14}, {52, 52, 5, 1, 0, 1}, {54, 54, 4, 7, 0, 7}, {60, 70, 2, 0, 0, 0},
    };
    for (const auto& c : cases) {
        const auto sum = [&](int kind) { return SumBetStats(t, kind, 19, c.First, c.Last, c.Stat); };
        const auto where =
            "rows " + std::to_string(c.First) + ".." + std::to_string(c.Last) + " stat " + std::to_string(c.Stat);
        EXPECT_EQ(sum(0), Dollars(c.Wagers)) << where;
        EXPECT_EQ(sum(1), Dollars(c.Wins)) << where;
        EXPECT_EQ(sum(2), Dollars(c.Losses)) << where;
    }
}

TEST_F(Accumulators, ALaterPlayersAllSessionsBeginWithTheBuyIn) {
    Seat(1);
    Roll(1, 2);
    Seat(2, Dollars(50));
    EXPECT_EQ(t.BankrollBegin[38], Dollars(50));
    EXPECT_EQ(t.BankrollLow[38], Dollars(50));
    Roll(1, 2);
    for (const int amount : {20, 700}) SetBeginningBankroll(t, 2, Dollars(amount));
    EXPECT_EQ(t.BankrollBegin[38], Dollars(50)) << "of the first session";
    EXPECT_EQ(t.BankrollLow[38], Dollars(20));
    EXPECT_EQ(t.BankrollHigh[38], Dollars(700));
    EXPECT_EQ(BankrollSum(t, 2), Dollars(700));
    EXPECT_FALSE(t.AllowNegativeBankroll[2]);
    SetBeginningBankroll(t, 2, Dollars(-1));
    EXPECT_TRUE(t.AllowNegativeBankroll[2]);
}

TEST_F(Accumulators, HighsAndLowsAreSampledOnceARoll) {
    Seat(7, Dollars(100));
    SetBankroll(t, 7, Dollars(500));
    SetBankroll(t, 7, Dollars(90));
    EXPECT_EQ(t.BankrollLow[7], Dollars(100)) << "not yet sampled";
    Roll(2, 3);
    for (std::size_t pos = 7; pos <= 43; pos += 18) {
        EXPECT_EQ(t.BankrollHigh[pos], Dollars(100));
        EXPECT_EQ(t.BankrollLow[pos], Dollars(90));
    }
    EXPECT_EQ(BankrollSum(t, 7), Dollars(190));
}

}  // namespace
}  // namespace tarnwick
