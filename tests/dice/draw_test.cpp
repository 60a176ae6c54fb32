// From a generator's number to the dice: directly, through the probability matrix, and for the pad.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <map>
#include <set>
#include <utility>

#include "dice/dice.h"
#include "dice/matrix.h"
#include "dice/matrixeditor.h"
#include "stats/accumulators.h"
#include "table/screen.h"

namespace tarnwick {
namespace {

using Pair = std::pair<int, int>;

Pair Dice(const Table& t) { return {t.Die1, t.Die2}; }

/// Makes `bits` the next output.
void SetNext(Mt19937& m, std::uint32_t bits) {
    m.Index = 0;
    m.Ready[0] = bits;
}

/// The smallest output whose real is at least k/n.
std::uint32_t FirstOutputOf(std::uint64_t k, std::uint64_t n) {
    return static_cast<std::uint32_t>(((k << 32) + n - 1) / n);
}

TEST(DrawDice, MapsOneCallOntoAllPairsForRng8) {
    Table t;
    t.RngIndex = 7;
    std::set<Pair> seen;
    for (std::uint32_t k = 0; k < 36; ++k) {
        const std::uint32_t lowest = FirstOutputOf(k, 36);
        const std::uint32_t highest = k == 35 ? 0xFFFFFFFFu : FirstOutputOf(k + 1, 36) - 1;
        for (const std::uint32_t bits : {lowest, highest}) {
            SetNext(t.Rng.First, bits);
            DrawDice(t);
            EXPECT_EQ(Dice(t), Pair(static_cast<int>(k % 6) + 1, static_cast<int>(k / 6) + 1)) << k;
            EXPECT_EQ(t.Rng.First.Index, 1) << "one call for both dice";
        }
        seen.insert(Dice(t));
    }
    EXPECT_EQ(seen.size(), 36u);
}

TEST(DrawDice, DrawsTheFirstDieFirstAndFromTheRightSource) {
    for (int rngIndex = 0; rngIndex <= 6; ++rngIndex) {
        SCOPED_TRACE(rngIndex);
        Table t;
        t.RngIndex = rngIndex;
        SeedEverything(t, 2024);
        Table source = t;  // drawn from by hand
        std::int32_t one = 1;
        const auto ran = [&](auto generator) {
            return static_cast<int>(std::floor(static_cast<double>(generator(source, one)) * 6)) + 1;
        };
        for (int roll = 0; roll < 500; ++roll) {
            const bool even = SessionRolls(t) % 2 == 0;
            const auto die = [&] {
                switch (rngIndex) {
                    case 0:
                        return static_cast<int>(std::floor(6 * genrand_real2(source.Rng.First))) + 1;
                    case 1:
                        return static_cast<int>(std::floor(6 * randomMT(source.Rng.Second))) + 1;
                    case 2:
                        return Rng3(source, 6);
                    case 3:
                        return ran(Ran2);
                    case 4:
                        return ran(Ran1);
                    case 5:
                        return even ? ran(Ran1) : static_cast<int>(std::floor(6 * genrand_real2(source.Rng.First))) + 1;
                    default:
                        return even ? ran(Ran2) : static_cast<int>(std::floor(6 * randomMT(source.Rng.Second))) + 1;
                }
            };
            const int first = die();
            const int second = die();
            DrawDice(t);
            ASSERT_EQ(Dice(t), Pair(first, second)) << roll;
            TallyRoll(t);
        }
        EXPECT_EQ(t.Rng.Private.Index, source.Rng.Private.Index) << "the private generator is never used for dice";
    }
}

TEST(DrawDice, TakesBothDiceAcrossTheEndOfABlock) {
    for (const int rngIndex : {0, 1}) {
        Table t;
        t.RngIndex = rngIndex;
        SeedEverything(t, 2024);
        Mt19937& source = rngIndex == 0 ? t.Rng.First : t.Rng.Second;
        genrand_int32(source);  // an odd place: the last roll of the block has its second die in the next
        Mt19937 expected = source;
        for (int roll = 0; roll < 1'000; ++roll) {
            const int first = static_cast<int>(genrand_int32(expected) / (4294967296.0 / 6)) + 1;
            const int second = static_cast<int>(genrand_int32(expected) / (4294967296.0 / 6)) + 1;
            DrawDice(t);
            ASSERT_EQ(Dice(t), Pair(first, second)) << roll;
        }
    }
}

TEST(DrawDice, FloorsExactlyWhereSinglePrecisionWouldRoundUp) {
    // 13981013 / 2^24 lies below 5/6; six times it rounds to 5 in single precision, which would be a 6.
    Table t;
    t.RngIndex = 4;
    std::int32_t seed = -1;
    Ran1(t, seed);
    t.Rng.Ran1.R.fill(13981013.0f / 16777216.0f);
    DrawDice(t);
    EXPECT_EQ(t.Die1, 5);
}

// --- the matrix ---

TEST(ProbabilityMatrix, HoldsTheTrueChances) {
    Table t;
    t.ProbabilityMatrix[0][3][3] = 128;
    t.ProbabilityMatrix[1][0][0] = 5;
    ResetProbabilityMatrix(t);
    const auto& m = t.ProbabilityMatrix;
    std::map<int, int> results, faces, sums;
    for (std::size_t col = 2; col <= 7; ++col) {
        ++faces[m[1][col][12]];
        ++faces[m[1][col][13]];
        for (std::size_t row = 1; row <= 11; ++row) {
            if (KindOfCell({static_cast<int>(col), static_cast<int>(row)}) != CellKind::Result) continue;
            ++results[m[1][col][row]];
            sums[static_cast<int>(row)] += m[1][col][row];
        }
    }
    // Thousandths of a percent can't be equal shares of 100%, but their sum is exactly that.
    EXPECT_EQ(results, (std::map<int, int>{{2777, 8}, {2778, 28}}));
    EXPECT_EQ(faces, (std::map<int, int>{{16666, 4}, {16667, 8}}));
    int all = 0;
    for (std::size_t row = 1; row <= 11; ++row) {
        const int total = m[1][1][row];
        EXPECT_EQ(total, sums[static_cast<int>(row)]) << row;
        EXPECT_NEAR(total, (6 - std::abs(static_cast<int>(row) - 6)) * 100'000 / 36.0, 2) << row;
        all += total;
    }
    EXPECT_EQ(all, 100'000);
    EXPECT_EQ(m[0][3][3], 0);
    EXPECT_EQ(m[0][0][0], 0);
    EXPECT_EQ(m[0][0][1], 1);
    EXPECT_EQ(m[0][0][2], 6);
    EXPECT_EQ(m[1][0][0], 0);
}

TEST(ProbabilityMatrix, CellsHoldEveryPairOnceAndTheTotalOfTheirRow) {
    std::set<Pair> seen;
    for (const MatrixCell& cell : MatrixWalk) {
        EXPECT_EQ(cell.Die1 + cell.Die2, cell.Row + 1);
        EXPECT_TRUE(1 <= cell.Die1 && cell.Die1 <= 6 && 1 <= cell.Die2 && cell.Die2 <= 6);
        seen.insert({cell.Die1, cell.Die2});
    }
    EXPECT_EQ(seen.size(), 36u);
}

TEST(LookupDice, FindsTheCellOfADraw) {
    struct Case {
        const char* name;
        std::map<Pair, int> cells;  // (col, row) to its value; empty: the true table
        std::int32_t d;
        Pair dice;
    };
    const std::map<Pair, int> few = {{{2, 1}, 0}, {{2, 2}, 10'000}, {{2, 7}, 40'000}, {{2, 8}, 0}, {{7, 6}, 50'000}};
    const Case cases[] = {
        {"the first", {}, 1, {1, 1}},
        {"the first to its end", {}, 2778, {1, 1}},
        {"the second", {}, 2779, {1, 2}},
        {"end of the first column", {}, 30'556, {6, 6}},
        {"begin of the second column", {}, 30'557, {2, 1}},
        {"the last", {}, 100'000, {6, 1}},
        {"past a zero cell at the front", few, 1, {1, 2}},
        {"the end of a cell", few, 10'000, {1, 2}},
        {"past zero cells between", few, 10'001, {2, 6}},
        {"the end of the second", few, 50'000, {2, 6}},
        {"past all zero cells", few, 50'001, {6, 1}},
        {"the end of all", few, 100'000, {6, 1}},
        {"past a cell below zero", {{{2, 1}, -5}, {{2, 2}, 10}, {{7, 6}, 99'995}}, 1, {1, 2}},
        {"a sum that fell below the draw", {{{2, 1}, 10}, {{2, 2}, -5}, {{7, 6}, 99'995}}, 11, {6, 1}},
        {"sums above the whole never reach their last cells", {{{2, 1}, 100'000}, {{7, 6}, 100'000}}, 100'000, {1, 1}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Table t;
        if (c.cells.empty()) ResetProbabilityMatrix(t);
        for (const auto& [place, value] : c.cells)
            t.ProbabilityMatrix[1][static_cast<std::size_t>(place.first)][static_cast<std::size_t>(place.second)] =
                value;
        const int untouched = t.Rng.Private.Index;
        LookupDice(t, c.d);
        EXPECT_EQ(Dice(t), c.dice);
        EXPECT_EQ(t.Rng.Private.Index, untouched) << "no draw of its own";
    }
}

TEST(LookupDice, DrawsAgainByThePrivateGeneratorWhenNoCellIsReached) {
    Table t;
    SeedEverything(t, 3);
    // Half of all draws fall beyond the sum, and 100001 beyond any.
    t.ProbabilityMatrix[1][2][1] = 20'000;
    t.ProbabilityMatrix[1][7][6] = 30'000;
    std::map<Pair, int> seen;
    constexpr int count = 20'000;
    Mt19937 expected = t.Rng.Private;
    for (int i = 0; i < count; ++i) {
        double d = 0;
        do d = std::floor(100'000 * genrand_real2(expected)) + 1;
        while (d > 50'000);
        LookupDice(t, i % 2 == 0 ? 100'001 : 0);
        ASSERT_EQ(Dice(t), d <= 20'000 ? Pair(1, 1) : Pair(6, 1));
        ASSERT_EQ(t.Rng.Private.Index, expected.Index);
        ++seen[Dice(t)];
    }
    EXPECT_NEAR(seen[Pair(1, 1)], 0.4 * count, 5 * std::sqrt(0.24 * count));
}

TEST(LookupDice, RollsFairDiceFromATableThatNoDrawCanFind) {
    struct Case {
        const char* name;
        int first, last;
    };
    for (const Case& c :
         {Case{"zeros", 0, 0}, Case{"below zero", -5, -2'147'483'647}, Case{"never above zero", -50, 50}}) {
        SCOPED_TRACE(c.name);
        Table t;
        SeedEverything(t, 3);
        t.ProbabilityMatrix[1][2][1] = c.first;
        t.ProbabilityMatrix[1][7][6] = c.last;
        std::set<Pair> seen;
        for (int i = 0; i < 1'000; ++i) {
            LookupDice(t, 50'000);
            seen.insert(Dice(t));
        }
        EXPECT_EQ(seen.size(), 36u);
    }
}

TEST(LookupDice, AddsHugeCellsWithoutOverflow) {
    Table t;
    for (const MatrixCell& cell : MatrixWalk) t.ProbabilityMatrix[1][cell.Col][cell.Row] = -2'147'483'647;
    t.ProbabilityMatrix[1][7][6] = 2'147'483'647;
    LookupDice(t, 1);
    EXPECT_TRUE(1 <= t.Die1 && t.Die1 <= 6 && 1 <= t.Die2 && t.Die2 <= 6);
}

/// A matrix whose first cell takes draws 1..below and whose last takes the rest to 100000.
void SplitAt(Table& t, std::int32_t below) {
    t.ProbabilityMatrix = {};
    t.ProbabilityMatrix[1][2][1] = below;
    t.ProbabilityMatrix[1][7][6] = 100'000 - below;
}

TEST(DrawDice, DrawsOnceForSkewedDice) {
    for (int rngIndex = 0; rngIndex <= 7; ++rngIndex) {
        SCOPED_TRACE(rngIndex);
        Table t;
        t.RngIndex = rngIndex;
        t.UseSkewedProbability = true;
        SeedEverything(t, 11);
        Table source = t;
        std::int32_t one = 1;
        for (int roll = 0; roll < 200; ++roll) {
            const bool even = SessionRolls(t) % 2 == 0;
            const auto mersenne = [&](Mt19937& m) { return std::floor(100'000 * genrand_real2(m)) + 1; };
            // Rounded, not floored.
            const auto single = [&](auto ran) {
                return std::rint(100'000 * static_cast<double>(ran(source, one))) + 1;
            };
            double d = 0;
            switch (rngIndex) {
                case 1:
                    d = mersenne(source.Rng.Second);
                    break;
                case 2:
                    d = Rng3(source, 100'000);
                    break;
                case 3:
                    d = single(Ran2);
                    break;
                case 4:
                    d = single(Ran1);
                    break;
                case 5:
                    d = even ? single(Ran1) : mersenne(source.Rng.First);
                    break;
                case 6:
                    d = even ? single(Ran2) : mersenne(source.Rng.Second);
                    break;
                default:
                    d = mersenne(source.Rng.First);
            }
            Table copy = t;
            SplitAt(t, static_cast<std::int32_t>(d));
            SplitAt(copy, static_cast<std::int32_t>(d) - 1);
            DrawDice(t);
            DrawDice(copy);
            ASSERT_EQ(Dice(t), Pair(1, 1)) << "the draw is at most " << d;
            ASSERT_EQ(Dice(copy), Pair(6, 1)) << "and no less";
            TallyRoll(t);
        }
    }
}

TEST(DrawDice, DrawsAgainAboveTheWhole) {
    Table t;
    t.RngIndex = 4;
    t.UseSkewedProbability = true;
    ResetProbabilityMatrix(t);
    SplitAt(t, 50'000);
    SeedEverything(t, 1);
    t.Rng.Ran1.R.fill(std::nextafter(1.0f, 0.0f));  // rounds to 100000, so d is 100001
    const int before = t.Rng.Private.Index;
    DrawDice(t);
    EXPECT_GT(t.Rng.Private.Index % 624, before % 624);
}

// --- the engine's own numbers ---

TEST(Uniform, IsSeededOnceByTheClock) {
    SilentScreen screen;
    Table t, same, other, noFront;
    t.Front = same.Front = other.Front = &screen;
    screen.Clock = 1234;
    const double first = Uniform(t);
    EXPECT_EQ(Uniform(same), first);
    screen.Clock = 1235;
    EXPECT_NE(Uniform(other), first);
    EXPECT_NE(Uniform(t), first) << "not seeded again";
    EXPECT_TRUE(0 <= Uniform(noFront) && Uniform(noFront) < 1);
}

TEST(DiceForTotal, GivesEveryWayOfATotalAndNoOther) {
    Table t;
    SeedEverything(t, 5);
    for (int total = 2; total <= 12; ++total) {
        std::map<Pair, int> seen;
        constexpr int count = 6'000;
        for (int i = 0; i < count; ++i) {
            int die1 = 0, die2 = 0;
            DiceForTotal(t, total, die1, die2);
            ASSERT_TRUE(1 <= die1 && die1 <= 6 && 1 <= die2 && die2 <= 6 && die1 + die2 == total);
            ++seen[{die1, die2}];
        }
        const std::size_t ways = static_cast<std::size_t>(total <= 7 ? total - 1 : 13 - total);
        EXPECT_EQ(seen.size(), ways) << total;
        const double chance = 1.0 / static_cast<double>(ways);
        for (const auto& [pair, n] : seen)
            EXPECT_NEAR(n, count * chance, 6 * std::sqrt(count * chance * (1 - chance))) << pair.first << pair.second;
    }
}

}  // namespace
}  // namespace tarnwick
