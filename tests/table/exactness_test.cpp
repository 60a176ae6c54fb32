// The expected value of every bet under the default rules, by driving the real roll with all 36 dice from every state
// of the line that the bet can meet and solving the chain, against exact fractions derived by hand.
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "dice/dice.h"
#include "table/betchain.h"

namespace tarnwick {
namespace {

/// Chance that all numbers of a set are rolled before a 7, by inclusion and exclusion: a subset of `ways` ways stays
/// unrolled before the 7 with chance 6 / (6 + ways).
double ChanceOfAll(const std::vector<int>& waysOfNumbers) {
    double chance = 0;
    for (unsigned subset = 0; subset < 1u << waysOfNumbers.size(); ++subset) {
        int ways = 0, sign = 1;
        for (std::size_t i = 0; i < waysOfNumbers.size(); ++i) {
            if ((subset >> i & 1u) == 0) continue;
            ways += waysOfNumbers[i];
            sign = -sign;
        }
        chance += sign * 6.0 / (6 + ways);
    }
    return chance;
}

/// Chance of exactly `wanted` distinct points before the seven-out, over subsets of points made: from a come-out, a
/// point n is set with w/24 and made with w/(w+6).
double ChanceOfPoints(int wanted) {
    constexpr std::array<int, 6> ways = {3, 4, 5, 5, 4, 3};
    std::array<double, 64> reach{};
    reach[0] = 1;
    double chance = 0;
    for (unsigned made = 0; made < 64; ++made) {
        double again = 0, out = 0;
        std::array<double, 6> next{};
        for (std::size_t n = 0; n < 6; ++n) {
            const double set = ways[n] / 24.0;
            const double win = set * ways[n] / (ways[n] + 6);
            out += set - win;
            if ((made >> n & 1u) != 0) {
                again += win;
            } else {
                next[n] = win;
            }
        }
        for (std::size_t n = 0; n < 6; ++n)
            reach[made | 1u << n] += next[n] > 0 ? reach[made] * next[n] / (1 - again) : 0;
        if (std::popcount(made) == wanted) chance += reach[made] * out / (1 - again);
    }
    return chance;
}

struct Case {
    int Bet;
    int Amount;
    double Expected;  ///< money per bet made
    const char* Derivation;
    int Point = 0;  ///< point on when the bet is made
};

std::vector<Case> Cases() {
    const double small = ChanceOfAll({1, 2, 3, 4, 5});
    const double all = ChanceOfAll({1, 2, 3, 4, 5, 5, 4, 3, 2, 1});
    const double fire4 = ChanceOfPoints(4), fire5 = ChanceOfPoints(5), fire6 = ChanceOfPoints(6);
    return {
        {Row::PassLine, 10, 10 * -7.0 / 495, "244/495 won, 251/495 lost"},
        {Row::DontPass, 10, 10 * -27.0 / 1925, "949 won, 976 lost of 1925 decided; a barred 12 decides nothing"},
        {Row::Come, 10, 10 * -7.0 / 495, "as the Pass Line", 5},
        {Row::DontCome, 10, 10 * -27.0 / 1925, "as the Don't Pass", 5},
        {Row::Place4, 5, 5 * -1.0 / 15, "9 to 5: (3*9 - 6*5) / 9 per 5"},
        {Row::Place4 + 1, 5, 5 * -1.0 / 25, "7 to 5: (4*7 - 6*5) / 10 per 5"},
        {Row::Place4 + 2, 6, 6 * -1.0 / 66, "7 to 6: (5*7 - 6*6) / 11 per 6"},
        {Row::Place4 + 3, 6, 6 * -1.0 / 66, "as 6"},
        {Row::Place4 + 4, 5, 5 * -1.0 / 25, "as 5"},
        {Row::Place10, 5, 5 * -1.0 / 15, "as 4"},
        {Row::Buy4, 20, -1.0, "vig 1: (39 - 2*21) / 3"},
        {Row::Buy4 + 1, 20, -1.0, "vig 1: (4*29 - 6*21) / 10"},
        {Row::Buy4 + 2, 20, -1.0, "vig 1: (5*23 - 6*21) / 11"},
        {Row::Buy10, 20, -1.0, "as 4"},
        {Row::Lay4, 40, -1.0, "vig 1 on 20: (2*19 - 41) / 3"},
        {Row::Lay4 + 1, 30, -1.0, "vig 1 on 20: (6*19 - 4*31) / 10"},
        {Row::Lay4 + 2, 24, -1.0, "vig 1 on 20: (6*19 - 5*25) / 11"},
        {Row::Field, 1, -1.0 / 18, "14 at 1, 2 at 2, 20 lost"},
        {Row::Big6, 1, -1.0 / 11, "5 to 6"},
        {Row::Big8, 1, -1.0 / 11, "5 to 6"},
        {Row::Hard4, 1, -1.0 / 9, "7 to 1: 1 won, 2 easy and 6 sevens lost"},
        {Row::Hard6, 1, -1.0 / 11, "9 to 1: 1 won, 4 easy and 6 sevens lost"},
        {Row::Hard8, 1, -1.0 / 11, "as 6"},
        {Row::Hard10, 1, -1.0 / 9, "as 4"},
        {Row::Two, 1, -5.0 / 36, "30 to 1"},
        {Row::Three, 1, -4.0 / 36, "15 to 1, two ways"},
        {Row::Seven, 1, -6.0 / 36, "4 to 1, six ways"},
        {Row::Eleven, 1, -4.0 / 36, "15 to 1, two ways"},
        {Row::Twelve, 1, -5.0 / 36, "30 to 1"},
        {Row::Craps, 1, -4.0 / 36, "7 to 1, four ways"},
        {Row::CandE, 2, -8.0 / 36, "4*(7-1) + 2*(15-1) - 30*2"},
        {Row::Horn, 4, -18.0 / 36, "2*(30-3) + 4*(15-3) - 30*4"},
        {Row::World, 5, -24.0 / 36, "2*(30-4) + 4*(15-4) + 6*(4-4) - 24*5"},
        {Row::Over7, 1, -6.0 / 36, "15 won, 21 lost"},
        {Row::Under7, 1, -6.0 / 36, "15 won, 21 lost"},
        {Row::Hop13, 1, -4.0 / 36, "15 to 1, two ways"},
        {Row::Hop16, 1, -4.0 / 36, "15 to 1, two ways"},
        {Row::Hop46, 1, -4.0 / 36, "15 to 1, two ways"},
        {Row::Hop22, 1, -5.0 / 36, "30 to 1"},
        {Row::Hop55, 1, -5.0 / 36, "30 to 1"},
        {Row::Midway, 1, -1.0 / 18, "14 at 1, 2 at 2, 20 lost"},
        {Row::AllSmall, 1, 35 * small - 1, "34 to 1, inclusion and exclusion over 2 to 6"},
        {Row::AllTall, 1, 35 * small - 1, "34 to 1, the same ways over 8 to 12"},
        {Row::MakeAll, 1, 176 * all - 1, "175 to 1, inclusion and exclusion over ten numbers"},
        {Row::FourRollsNo7, 1, -23.0 / 648, "2 * (5/6)^4 - 1"},
        {Row::Point7, 1, -1.0 / 9, "7 to 1 at 24/36 * 6/36"},
        {Row::SevenPoint7, 1, -1.0 / 18, "2 at 1/6, 3 at 1/9, else lost"},
        {Row::Fire, 5, 5 * (25 * fire4 + 250 * fire5 + 1000 * fire6 - 1), "24, 249, 999 to 1 by subsets of points"},
    };
}

TEST(Exactness, EveryBetHasItsExactExpectedValue) {
    for (const Case& c : Cases()) {
        SCOPED_TRACE(std::string(BetName(c.Bet)) + ": " + c.Derivation);
        const BetChain chain(c.Bet, Dollars(c.Amount), c.Point);
        EXPECT_NEAR(chain.Solve().Money, c.Expected, 1e-11) << chain.states() << " states";
    }
}

/// Mean result of one bet at a time over many rolls, with its standard error.
struct LongRun {
    int Bets = 0;
    double Mean = 0, StandardError = 0;
};

LongRun PlayOneBetAtATime(const Case& c, int rolls) {
    SilentScreen front;
    front.KeepShown = false;
    const auto owner = std::make_unique<Table>();
    Table& t = *owner;
    SubMain(t, &front);
    SeedEverything(t, 4711);
    t.ShooterBetRequirement = t.NotifyBits = 0;
    t.MaxPlacardBet = t.MaxPropBetPayoff = Dollars(100'000);
    AddPlayer(t, 1, "Ann", Dollars(1'000'000));
    t.WinnerHandling[1] = t.LoserHandling[1] = 1;
    LongRun run;
    double sum = 0, squares = 0;
    currency before;
    bool up = false;
    for (int roll = 0; roll < rolls; ++roll) {
        if (!up) {
            const bool boxWaits = c.Point != 0 && t.Point == 0;
            before = t.Bankroll[1];
            up = !boxWaits && !IsZero(PlaceBet(t, 1, c.Bet, Dollars(c.Amount)).Delta);
            if (up && !boxWaits && IsPlace(c.Bet)) CallBet(t, 1, c.Bet, true);
        }
        RollDice(t);
        if (up && IsZero(t.BetsOnTable[1])) {
            const double result = ToDouble(t.Bankroll[1] - before);
            sum += result;
            squares += result * result;
            ++run.Bets;
            up = false;
        }
    }
    run.Mean = sum / run.Bets;
    run.StandardError = std::sqrt((squares / run.Bets - run.Mean * run.Mean) / run.Bets);
    return run;
}

TEST(Exactness, LongRunsOfEveryBetAgreeWithItsExactChance) {
    for (const Case& c : Cases()) {
        SCOPED_TRACE(std::string(BetName(c.Bet)));
        const LongRun run = PlayOneBetAtATime(c, 20'000);
        EXPECT_GT(run.Bets, 1000);
        EXPECT_LT(std::abs(run.Mean - c.Expected), 4 * run.StandardError)
            << run.Mean << " over " << run.Bets << " bets";
    }
}

TEST(Exactness, PublishedPercentagesOfTheSpecials) {
    EXPECT_NEAR(35 * ChanceOfAll({1, 2, 3, 4, 5}) - 1, -0.07761, 5e-6);
    EXPECT_NEAR(176 * ChanceOfAll({1, 2, 3, 4, 5, 5, 4, 3, 2, 1}) - 1, -0.07464, 5e-6);
    EXPECT_NEAR(25 * ChanceOfPoints(4) + 250 * ChanceOfPoints(5) + 1000 * ChanceOfPoints(6) - 1, -0.20763, 5e-6);
}

}  // namespace
}  // namespace tarnwick
