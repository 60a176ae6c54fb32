// A short look at each generator's dice; tarnwick_dice_statistics looks longer.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>

#include "dice/dice.h"
#include "stats/accumulators.h"
#include "tools/roll_statistics.h"

namespace tarnwick {
namespace {

constexpr int RollsOfATest = 100'000;
constexpr double Extreme = 1e-5;

/// Names of the tests that fair dice would hardly ever fail like this.
std::string FailedTests(const RollStatistics& statistics) {
    std::string failed;
    for (const ChiSquare& test : statistics.Results())
        if (test.Chance() < Extreme || test.Chance() > 1 - Extreme) failed += "[" + test.Name + "]";
    return failed;
}

TEST(DiceStatistics, EveryGeneratorRollsFairAndIndependentDice) {
    for (int rngIndex = 0; rngIndex <= 7; ++rngIndex) {
        Table t;
        t.RngIndex = rngIndex;
        SeedEverything(t, 20'240);
        RollStatistics statistics;
        for (int i = 0; i < RollsOfATest; ++i) {
            DrawDice(t);
            statistics.Add(t.Die1, t.Die2);
            TallyRoll(t);
        }
        EXPECT_EQ(FailedTests(statistics), "") << "RNG #" << rngIndex + 1;
    }
}

TEST(DiceStatistics, TheTrueMatrixRollsNearlyFairDice) {
    for (int rngIndex = 0; rngIndex <= 7; ++rngIndex) {
        Table t;
        t.RngIndex = rngIndex;
        t.UseSkewedProbability = true;
        ResetProbabilityMatrix(t);
        SeedEverything(t, 20'241);
        RollStatistics statistics;
        for (int i = 0; i < RollsOfATest; ++i) {
            DrawDice(t);
            statistics.Add(t.Die1, t.Die2);
            TallyRoll(t);
        }
        EXPECT_EQ(FailedTests(statistics), "") << "RNG #" << rngIndex + 1;
    }
}

TEST(DiceStatistics, FaultsAreSeen) {
    struct Case {
        const char* name;
        void (*spoil)(int roll, int& die1, int& die2);
        const char* test;
    };
    const Case cases[] = {
        {"an honest stream", [](int, int&, int&) {}, ""},
        {"one face 7% too often",
         [](int roll, int& die1, int&) {
             if (roll % 13 == 0) die1 = 6;
         },
         "[ordered pairs]"},
        {"the dice in order",
         [](int, int& die1, int& die2) {
             if (die1 > die2) std::swap(die1, die2);
         },
         "[ordered pairs]"},
        {"too even", [](int roll, int& die1, int& die2) { die1 = roll % 6 + 1, die2 = roll / 6 % 6 + 1; },
         "[ordered pairs]"},
        {"each second roll like the one before",
         [](int roll, int& die1, int& die2) {
             static int first = 0, second = 0;
             if (roll % 10 == 1) die1 = first, die2 = second;
             first = die1, second = die2;
         },
         "[serial pairs]"},
        {"no seven after a seven",
         [](int, int& die1, int& die2) {
             static bool seven = false;
             if (seven && die1 + die2 == 7) die1 = die1 % 6 + 1;
             seven = die1 + die2 == 7;
         },
         "[runs between sevens]"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::mt19937_64 source(3);
        RollStatistics statistics;
        for (int i = 0; i < RollsOfATest; ++i) {
            int die1 = static_cast<int>(source() % 6) + 1, die2 = static_cast<int>(source() % 6) + 1;
            c.spoil(i, die1, die2);
            statistics.Add(die1, die2);
        }
        const std::string failed = FailedTests(statistics);
        if (*c.test == '\0') {
            EXPECT_EQ(failed, "");
        } else {
            EXPECT_NE(failed.find(c.test), std::string::npos) << failed;
        }
    }
}

}  // namespace
}  // namespace tarnwick
