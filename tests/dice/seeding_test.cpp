// Where a seed comes from, when it is refused, and what it restarts.

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "dice/dice.h"
#include "stats/accumulators.h"
#include "table/screen.h"

namespace tarnwick {
namespace {

using Rolls = std::vector<std::pair<int, int>>;

/// `count` rolls, each counted as the roll cycle does.
Rolls RollTimes(Table& t, int count) {
    Rolls rolls;
    for (int i = 0; i < count; ++i) {
        DrawDice(t);
        rolls.emplace_back(t.Die1, t.Die2);
        TallyRoll(t);
    }
    return rolls;
}

TEST(SeedRNG, TakesEntryOrClock) {
    struct Case {
        const char* name;
        int rngIndex;
        SeedMode mode;
        currency entry;
        std::uint32_t clock;
        std::int32_t lastSeed;
        bool used;
        std::int32_t seed;
    };
    constexpr std::int32_t greatest = 2'147'483'647;
    const Case cases[] = {
        {"entry", 0, SeedMode::Entry, Dollars(12), 999, 5, true, 12},
        {"the greatest entry", 3, SeedMode::Entry, Dollars(greatest), 999, 5, true, greatest},
        {"entry above the limit", 3, SeedMode::Entry, Dollars(std::int64_t{greatest} + 1), 999, 5, false, 5},
        {"entry of RNG #3 at its limit", 2, SeedMode::Entry, Dollars(999'999), 999, 5, true, 999'999},
        {"entry of RNG #3 above its limit", 2, SeedMode::Entry, Dollars(1'000'000), 999, 5, false, 5},
        {"entry between two, to the even", 0, SeedMode::Entry, currency{25'000}, 999, 5, true, 2},
        {"entry below 1 means the clock", 0, SeedMode::Entry, currency{9'999}, 777, 5, true, 777},
        {"entry equal to the last seed stands", 0, SeedMode::Entry, Dollars(5), 777, 5, true, 5},
        {"clock", 0, SeedMode::Normal, Dollars(12), 777, 5, true, 777},
        {"clock at the last seed", 0, SeedMode::Normal, Dollars(12), 777, 777, true, 778},
        {"clock at the last seed and limit", 0, SeedMode::Normal, {}, greatest, greatest, true, greatest},
        {"clock beyond the limit", 0, SeedMode::Normal, {}, 3'000'000'000u, 5, false, 5},
        {"clock of 0", 0, SeedMode::Normal, {}, 0, 5, false, 5},
        {"clock of 0 just seeded", 0, SeedMode::Entry, {}, 0, 0, true, 1},
        {"clock of RNG #3 in tenths", 2, SeedMode::Normal, {}, 77'760, 5, true, 778},
        {"clock of RNG #3 at the last seed", 2, SeedMode::Normal, {}, 77'700, 777, true, 778},
        {"clock of RNG #3 beyond its limit", 2, SeedMode::Normal, {}, 100'000'000, 5, false, 5},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        SilentScreen screen;
        Table t;
        t.Front = &screen;
        screen.Clock = c.clock;
        t.RngIndex = c.rngIndex;
        t.SeedEntry = c.entry;
        t.LastSeed = c.lastSeed;
        t.EventsLogOn = true;
        const Table before = t;
        EXPECT_EQ(SeedRNG(t, c.mode), c.used);
        EXPECT_EQ(t.LastSeed, c.seed);
        EXPECT_TRUE(screen.Shown.empty());
        if (c.used) {
            const std::string line =
                "    RNG #" + std::to_string(c.rngIndex + 1) + " seeded: " + std::to_string(c.seed);
            EXPECT_EQ(screen.Logged, std::vector<std::string>{line});
            if (c.rngIndex != 2) {
                EXPECT_EQ(t.Rng3State, c.seed);
            }
        } else {
            EXPECT_TRUE(screen.Logged.empty());
            EXPECT_EQ(t.Rng3State, before.Rng3State);
            EXPECT_EQ(IsSeeded(t.Rng.First), IsSeeded(before.Rng.First));
        }
    }
}

TEST(SeedRNG, AsksUntilTheAnswerIsInRange) {
    const std::string first = "Please enter a whole number between 1 and ";
    const std::string again = "Your seed value is out of limits.\n\nPlease enter a value between 1 and ";
    const std::string tail = " to seed the random number generator:\n";
    struct Case {
        const char* name;
        int rngIndex;
        const char* limit;
        std::vector<Answer> answers;
        bool used;
        std::int32_t seed;
    };
    const auto typed = [](const char* text) { return Answer{MsgAnswer::Ok, text, false}; };
    const Answer cancel{MsgAnswer::Cancel, "7", false};
    const Case cases[] = {
        {"at once", 0, "2,147,483,647", {typed("2147483647")}, true, 2'147'483'647},
        {"with separators", 0, "2,147,483,647", {typed("12,345")}, true, 12'345},
        {"0, 1,000,000, then the limit", 2, "999,999", {typed("0"), typed("1000000"), typed("999999")}, true, 999'999},
        {"words, nothing, a sign", 4, "2,147,483,647", {typed("dice"), typed(""), typed("-3"), typed("3")}, true, 3},
        {"too long a number", 4, "2,147,483,647", {typed("99999999999999999999"), typed("3")}, true, 3},
        {"cancel", 0, "2,147,483,647", {cancel}, false, 41},
        {"wrong, then cancel", 0, "2,147,483,647", {typed("0"), cancel}, false, 41},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        SilentScreen screen;
        screen.Clock = 5'000;
        screen.Answers.assign(c.answers.begin(), c.answers.end());
        Table t;
        t.Front = &screen;
        t.RngIndex = c.rngIndex;
        t.UserSeedOn = true;
        t.LastSeed = 41;
        EXPECT_EQ(SeedRNG(t, SeedMode::Normal), c.used);
        EXPECT_EQ(t.LastSeed, c.seed);
        ASSERT_EQ(screen.Shown.size(), c.answers.size());
        for (std::size_t i = 0; i < screen.Shown.size(); ++i) {
            const Message& shown = screen.Shown[i];
            EXPECT_EQ(shown.Title, "RNG Seed");
            EXPECT_EQ(shown.Input, "41");
            EXPECT_EQ(shown.Buttons, 1097);
            EXPECT_EQ(shown.Text, (i == 0 ? first : again) + c.limit + tail);
        }
    }
}

TEST(SeedRNG, NeverAsksWhereItMayNot) {
    for (const int way : {0, 1, 2, 3}) {
        SCOPED_TRACE(way);
        SilentScreen screen;
        screen.Clock = 5'000;
        Table t;
        t.UserSeedOn = true;
        if (way != 3) t.Front = &screen;
        t.HyperDriveActive = way == 1;
        t.SeedEntry = Dollars(9);
        const bool used = SeedRNG(t, way == 2 ? SeedMode::Entry : SeedMode::Normal, way != 0);
        EXPECT_TRUE(screen.Shown.empty());
        EXPECT_EQ(used, way != 3) << "without a front end the question counts as cancelled";
        EXPECT_EQ(t.LastSeed, way == 2 ? 9 : way == 3 ? 0 : 5'000);
    }
}

TEST(SeedRNG, GivesUpOnAFrontEndThatRepeatsAWrongAnswer) {
    SilentScreen screen;  // answers OK with what the line opens with: 0
    Table t;
    t.Front = &screen;
    t.UserSeedOn = true;
    EXPECT_FALSE(SeedRNG(t, SeedMode::Normal));
    EXPECT_GT(screen.Shown.size(), 1u);
}

TEST(SeedRNG, RestartsTheStreamOfEveryGenerator) {
    for (int rngIndex = 0; rngIndex <= 7; ++rngIndex) {
        SCOPED_TRACE(rngIndex);
        Table t;
        t.RngIndex = rngIndex;
        const auto rollsAfter = [&](std::int32_t seed) {
            t.SeedEntry = Dollars(seed);
            EXPECT_TRUE(SeedRNG(t, SeedMode::Entry));
            return RollTimes(t, 400);  // an even number, so that a pair of generators begins with the same one
        };
        const Rolls first = rollsAfter(1234);
        EXPECT_NE(rollsAfter(1236), first);
        EXPECT_EQ(rollsAfter(1234), first);
    }
}

TEST(SeedRNG, DropsOneValueOfTheCongruentialGenerators) {
    Table t;
    for (const int rngIndex : {2, 3, 4}) {
        t.RngIndex = rngIndex;
        t.SeedEntry = Dollars(500);
        ASSERT_TRUE(SeedRNG(t, SeedMode::Entry));
        DiceState expected;
        std::int32_t seed1 = -500, seed2 = -500;
        if (rngIndex == 2) {
            EXPECT_EQ(t.Rng3State, 500 * 1366 + 150889 - 714025);
            continue;
        }
        Ran1(expected, seed1);
        Ran2(expected, seed2);
        std::int32_t one = 1, other = 1;
        for (int i = 0; i < 200; ++i) {
            const auto next = rngIndex == 4 ? Ran1 : Ran2;
            ASSERT_EQ(next(t, one), next(expected, other)) << i;
        }
    }
}

TEST(SeedEverything, MakesWholeRunsRepeatable) {
    constexpr std::uint64_t seeds[] = {
        0, 1, 2, 999'999, 1'000'000, 2'147'483'647, 2'147'483'648, std::numeric_limits<std::uint64_t>::max()};
    for (int rngIndex = 0; rngIndex <= 7; ++rngIndex) {
        std::vector<Rolls> seen;
        for (const std::uint64_t seed : seeds) {
            SCOPED_TRACE(seed);
            Table t, u;
            t.RngIndex = u.RngIndex = rngIndex;
            u.LastSeed = 77;
            u.Rng3State = 4;
            SeedEverything(u, 99);
            Uniform(u);
            SeedEverything(t, seed);
            SeedEverything(u, seed);
            EXPECT_EQ(t.RngIndex, rngIndex);
            const Rolls rolls = RollTimes(t, 100);
            EXPECT_EQ(RollTimes(u, 100), rolls);
            EXPECT_EQ(Uniform(t), Uniform(u));
            for (const Rolls& other : seen) EXPECT_TRUE(rngIndex == 2 || other != rolls);
            seen.push_back(rolls);
        }
    }
}

TEST(SeedEverything, SeedsTheDiceAsATypedSeedWould) {
    // RNG #7 is left out: one of its two generators gets the number, the other twice the number and 1.
    const std::pair<int, int> typed[] = {{0, 4711}, {1, 9423}, {2, 4711}, {3, 4711}, {4, 4711}, {5, 4711}, {7, 4711}};
    for (const auto& [rngIndex, seed] : typed) {
        SCOPED_TRACE(rngIndex);
        Table t, u;
        t.RngIndex = u.RngIndex = rngIndex;
        SeedEverything(t, 4711);
        EXPECT_EQ(t.LastSeed, 4711);
        u.SeedEntry = Dollars(seed);
        ASSERT_TRUE(SeedRNG(u, SeedMode::Entry));
        EXPECT_EQ(RollTimes(t, 100), RollTimes(u, 100));
    }
}

TEST(MissingGenerator, FallsBackToTheFourth) {
    struct Case {
        std::int32_t missing;
        std::vector<int> corrected;  // by RngIndex 0..7
    };
    const Case cases[] = {
        {0, {0, 1, 2, 3, 4, 5, 6, 7}},
        {1, {3, 1, 2, 3, 4, 3, 6, 3}},
        {2, {0, 3, 2, 3, 4, 5, 3, 7}},
        {3, {3, 3, 2, 3, 4, 3, 3, 3}},
    };
    for (const Case& c : cases) {
        for (int rngIndex = 0; rngIndex <= 7; ++rngIndex) {
            Table t;
            t.MissingRngLibraries = c.missing;
            t.RngIndex = rngIndex;
            CorrectMissingGenerator(t);
            EXPECT_EQ(t.RngIndex, c.corrected[static_cast<std::size_t>(rngIndex)]) << c.missing << " " << rngIndex;
        }
    }
}

}  // namespace
}  // namespace tarnwick
