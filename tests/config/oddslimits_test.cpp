#include <gtest/gtest.h>

#include "config/configure.h"
#include "config/payoffs.h"
#include "table/format.h"

namespace tarnwick {
namespace {

constexpr int NoPush = 1, MinorPush = 2, ColorPush = 3, SingleOdds = 4, FlatSingleOdds = 5;

currency Money(const char* text) { return *ParseAmount(text); }

class OddsLimits : public testing::Test {
  protected:
    void SetUp() override { SetDefaultSettings(t); }

    /// Limit behind `flat` on `row` with the payoff in force, exchanged on the don't side.
    std::string Limit(int row, const char* flat) {
        const PayoffEntry& payoff = PayoffOf(t, row);
        const bool dont = row == Row::DontPassOdds || IsDontComeOdds(row);
        return PlainAmount(dont ? MaxOddsFor(t, row, Money(flat), payoff.For, payoff.Pays)
                                : MaxOddsFor(t, row, Money(flat), payoff.Pays, payoff.For));
    }

    Table t;
};

// Flat f, multiple M, checks of 1, 5, 25, 100, 500 and odds of 2 to 1 (4, 10), 3 to 2 (5, 9), 6 to 5 (6, 8).
TEST_F(OddsLimits, EachSchemeByHand) {
    struct Case {
        int Method;
        const char* Multiple;
        int BetRow;
        const char* Flat;
        const char* Limit;
    };
    const Case cases[] = {
        // M * f, in whole checks
        {NoPush, "2.5", 27, "10", "25"},
        {NoPush, "2.5", 27, "5", "12"},  // 12.50
        {NoPush, "3", 25, "7", "21"},
        // Minor push: multiples of the unit, here 5. Below M * f one unit more, if that stays below (M + 1) * f.
        {MinorPush, "2", 27, "5", "10"},
        {MinorPush, "2.5", 27, "5", "15"},  // 10, and 15 is below 17.50
        {MinorPush, "2", 27, "1", "2"},     // no unit fits: 5 isn't below 3
        {MinorPush, "2", 27, "3", "5"},     // 5, and 10 isn't below 9
        {MinorPush, "2", 27, "6", "15"},    // 10, and 15 is below 18
        {MinorPush, "2", 26, "5", "10"},    // units of 2
        {MinorPush, "2.5", 26, "5", "14"},  // 12, and 14 is below 17.50
        {MinorPush, "2", 25, "7", "14"},    // units of 1
        // Color push: the first of M * f, + 1, ... whose win is whole checks of the largest color that fits
        {ColorPush, "2", 27, "1", "5"},      // 2 wins 2.40, ..., 5 wins 6; the smallest check knows no cap
        {ColorPush, "2", 27, "3", "10"},     // 6 wins 7.20, ..., 10 wins 12
        {ColorPush, "2", 27, "10", "25"},    // 5s: 25 wins 30, below 30
        {ColorPush, "2", 27, "5", "10"},     // 5s: 25 wins 30, not below 15; 1s: 10 wins 12
        {ColorPush, "2", 26, "10", "20"},    // 5s: 20 wins 30 at once, no push; 1s: the same
        {ColorPush, "2", 26, "25", "50"},    // 25s: 50 wins 75 at once; so do 5s and 1s
        {ColorPush, "2", 26, "20", "40"},    // no 25 in 20; 40 wins 60 in 5s at once
        {ColorPush, "2", 25, "100", "200"},  // 200 wins 400 in every color but 500
        {ColorPush, "2", 27, "100", "250"},  // 100s: 250 wins 300, below 300
        {ColorPush, "2", 27, "125", "250"},  // 250 wins 300 in 100s at once, but 125 isn't 100s; 25s: at once
        {ColorPush, "2", 27, "75", "150"},   // 150 wins 180: 25s: 250 is beyond 225 (multiples of 125); 5s at once
        {ColorPush, "2", 27, "50", "125"},   // 25s: 125 wins 150, below 150
        {ColorPush, "2.5", 26, "5", "12"},   // 12.50 + n wins x.25 or x.75 for ever: M * f
        {ColorPush, "2.5", 26, "4", "10"},   // 10 wins 15 at once
        {ColorPush, "1", 25, "5", "5"},      // wins 10 at once
        // Single odds: whole checks in M * f, up to a multiple of For, for each color
        {SingleOdds, "1", 27, "7", "10"},   // 1s: 7 to 10; 5s: 1 to 0 (a fifth)
        {SingleOdds, "1", 27, "15", "25"},  // 1s: 15; 5s: 3 to 5 = 25; 25s: 0
        {SingleOdds, "1", 26, "5", "10"},   // 1s: 5 to 6; 5s: 1 is half of 2, so up to 2 = 10
        {SingleOdds, "1", 25, "30", "30"},
        {SingleOdds, "2", 27, "7", "15"},  // 1s: 14 to 15; 5s: 2 to 0 (0.4)
        // Flat as single odds, times M
        {FlatSingleOdds, "3", 27, "10", "30"},   // 1s: 10; 5s: 2 to 0
        {FlatSingleOdds, "3", 27, "15", "75"},   // 5s: 3 to 5 = 25, times 3
        {FlatSingleOdds, "3", 26, "5", "30"},    // 5s: 1 to 2 = 10, times 3
        {FlatSingleOdds, "3", 26, "25", "150"},  // 25s: 1 to 2 = 50
        {FlatSingleOdds, "3", 25, "7", "21"},
    };
    for (const Case& c : cases) {
        t.OddsCalcMethod = c.Method;
        t.OddsAllowed410 = t.OddsAllowed59 = t.OddsAllowed68 = Money(c.Multiple);
        EXPECT_EQ(Limit(c.BetRow, c.Flat), c.Limit)
            << "method " << c.Method << ", " << c.Multiple << " x " << c.Flat << " on " << BetName(c.BetRow);
    }
}

TEST_F(OddsLimits, AutoSelectPicksTheScheme) {
    for (const auto& [multiple, method] : {std::pair{"2.5", NoPush},
                                           {"0.5", NoPush},
                                           {"1", SingleOdds},
                                           {"2", ColorPush},
                                           {"3", FlatSingleOdds},
                                           {"4", ColorPush},
                                           {"10", ColorPush}}) {
        t.OddsAllowed410 = t.OddsAllowed59 = t.OddsAllowed68 = Money(multiple);
        for (const int row : {25, 26, 27}) {
            for (const char* flat : {"1", "3", "5", "7", "10", "15", "25", "35", "100"}) {
                t.OddsCalcMethod = method;
                const std::string wanted = Limit(row, flat);
                t.OddsCalcMethod = 0;
                EXPECT_EQ(Limit(row, flat), wanted) << multiple << " x " << flat;
            }
        }
    }
}

TEST_F(OddsLimits, MultipleOfTheNumber) {
    t.OddsCalcMethod = NoPush;
    t.OddsAllowed410 = Dollars(3);
    t.OddsAllowed59 = Dollars(4);
    t.OddsAllowed68 = Dollars(5);
    const int byRow[][2] = {{13, 30}, {14, 40}, {15, 50}, {16, 50}, {17, 40}, {18, 30},
                            {25, 30}, {26, 40}, {27, 50}, {28, 50}, {29, 40}, {30, 30}};
    for (const auto& [row, limit] : byRow) EXPECT_EQ(Limit(row, "10"), std::to_string(limit)) << row;
    for (const int row : {44, 47}) EXPECT_EQ(Limit(row, "10"), "0");  // no point
    const int byPoint[][2] = {{4, 30}, {5, 40}, {6, 50}, {8, 50}, {9, 40}, {10, 30}};
    for (const auto& [point, limit] : byPoint) {
        t.Point = point;
        for (const int row : {44, 47}) EXPECT_EQ(Limit(row, "10"), std::to_string(limit)) << point;
    }
}

// Behind Don't bets the limit is on what may be won; it is rounded before the caller turns it into what is laid.
TEST_F(OddsLimits, DontOddsLimitTheWin) {
    EXPECT_EQ(Limit(15, "5"), "12");  // 2.5 * 5 = 12.50; laid: 12 * 6/5 = 14.40
    EXPECT_EQ(Limit(13, "10"), "20");
    EXPECT_EQ(Limit(14, "10"), "20");
    EXPECT_EQ(Limit(13, "0"), "0");
}

TEST_F(OddsLimits, CeilingAndSmallestCheck) {
    t.OddsCalcMethod = NoPush;
    EXPECT_EQ(Limit(25, "1000"), "2000");
    t.MaxOddsBet = Money("57");
    EXPECT_EQ(Limit(25, "1000"), "57");
    t.CheckDenominations = {currency{}, Dollars(5), Dollars(10), Dollars(50), Dollars(100), Dollars(500)};
    EXPECT_EQ(Limit(25, "1000"), "55");
    EXPECT_EQ(Limit(25, "6"), "10");
    t.CheckDenominations[1] = Money("0.1");
    EXPECT_EQ(Limit(27, "0.3"), "0.7");  // 0.75
    t.MaxOddsBet = {};
    EXPECT_EQ(Limit(27, "10"), "0");
}

TEST_F(OddsLimits, OddPayoffsAndCheckSizesEnd) {
    t.OddsCalcMethod = ColorPush;
    t.OddsAllowed410 = Dollars(2);
    t.Payoff[25] = *ParsePayoff("1.27 to 1");
    EXPECT_EQ(Limit(25, "10"), "100");  // the first whole win of 127 hundredths a dollar
    t.Payoff[25] = *ParsePayoff("0.0003 to 9999999");
    EXPECT_EQ(Limit(25, "10"), "3000");  // far beyond: the ceiling
    t.CheckDenominations = {currency{}, Money("0.07"), Money("0.7"), Dollars(7), Dollars(70), Dollars(700)};
    t.Payoff[25] = *ParsePayoff("6 to 5");
    EXPECT_EQ(Limit(25, "10"), "21");  // wins are multiples of .07 when bets are multiples of .35: 20 + 1
    for (const char* payoff : {"9999999 to 0.0001", "0.0001 to 9999999", "-1 to 1", "0 to 1"}) {
        t.Payoff[25] = *ParsePayoff(payoff);
        for (int method = 0; method <= 5; ++method) {
            t.OddsCalcMethod = method;
            for (const char* flat : {"0", "0.0001", "9999999", "-5", "922337203685477"}) {
                const currency limit = MaxOddsFor(t, 25, Money(flat), t.Payoff[25].Pays, t.Payoff[25].For);
                EXPECT_GE(limit, currency{});
                EXPECT_LE(limit, t.MaxOddsBet);
            }
        }
    }
}

// The color push told as a person would count it out: one unit of money more at a time, with wins as exact fractions.
std::int64_t CountedOut(std::int64_t twiceMultiple, std::int64_t flat, std::int64_t pays, std::int64_t forAmount,
                        const std::array<std::int64_t, 6>& checks) {
    const std::int64_t start = twiceMultiple * flat;  // all in halves of a dollar
    const std::int64_t cap = start + 2 * flat;
    const auto firstWhole = [&](std::int64_t check, std::int64_t steps) -> std::int64_t {
        for (std::int64_t k = 0; k <= steps; ++k) {
            const std::int64_t amount = start + 2 * k;
            if (amount * pays % (2 * forAmount * check) == 0) return amount;
        }
        return start;
    };
    const std::int64_t stepOf[] = {1, 1, 1, 5, 25, 100};
    for (std::size_t i = 5; i >= 2; --i) {
        if (flat < checks[i] || flat % stepOf[i] != 0) continue;
        const std::int64_t amount = firstWhole(checks[i], flat);
        if (amount > start && amount < cap) return amount;
    }
    return flat < checks[1] ? start : firstWhole(checks[1], forAmount * checks[1]);
}

TEST_F(OddsLimits, ColorPushAsCountedOut) {
    t.OddsCalcMethod = ColorPush;
    t.MaxOddsBet = Dollars(1'000'000);
    const std::array<std::int64_t, 6> sets[] = {
        {0, 1, 5, 25, 100, 500}, {0, 2, 10, 20, 100, 1000}, {0, 5, 25, 100, 500, 1000}};
    const std::int64_t payoffs[][2] = {{2, 1}, {3, 2}, {6, 5}, {1, 2}, {7, 6}, {9, 5}, {11, 7}};
    for (const auto& checks : sets) {
        for (std::size_t i = 1; i <= 5; ++i) t.CheckDenominations[i] = Dollars(checks[i]);
        for (std::int64_t twice = 1; twice <= 11; ++twice) {
            t.OddsAllowed410 = {twice * 5'000};
            for (const auto& [pays, forAmount] : payoffs) {
                for (std::int64_t flat = 1; flat <= 300; flat += flat < 40 ? 1 : 5) {
                    const std::int64_t counted = CountedOut(twice, flat, pays, forAmount, checks);
                    const currency wanted = FloorTo(currency{counted * 5'000}, Dollars(checks[1]));
                    ASSERT_EQ(MaxOddsFor(t, 25, Dollars(flat), Dollars(pays), Dollars(forAmount)), wanted)
                        << twice << " halves x " << flat << " at " << pays << " to " << forAmount << ", " << checks[1];
                }
            }
        }
    }
}

TEST(RoundUpToMultiple, SmallSharesCountNothing) {
    const int cases[][3] = {{0, 5, 0}, {2, 5, 0}, {3, 5, 5}, {5, 5, 5}, {6, 5, 10}, {1, 2, 2}, {9, 10, 10}, {7, 1, 7}};
    for (const auto& [x, m, result] : cases) {
        EXPECT_EQ(RoundUpTo(Dollars(x), Dollars(m)), Dollars(result)) << x << " to " << m;
    }
}

}  // namespace
}  // namespace tarnwick
