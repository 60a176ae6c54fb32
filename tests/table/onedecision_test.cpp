// Every bet that one roll can decide, over all 36 dice and both states of the line, against money worked out by hand.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>

#include "table/placement.h"
#include "table/players.h"
#include "table/rolldice.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick {
namespace {

class OneDecisionTest : public ::testing::Test {
  protected:
    OneDecisionTest() {
        SubMain(T, &Front);
        T.ShooterBetRequirement = T.NotifyBits = 0;
        AddPlayer(T, 1, "Ann", Dollars(10'000));
        T.WinnerHandling[1] = T.LoserHandling[1] = 1;
    }

    /// Dollars won or lost by `amount` on `row` when the dice are thrown with `point` on.
    std::int64_t Result(int row, int amount, int point, int die1, int die2) {
        for (int standing = 1; standing <= Row::LastBet; ++standing) SetBetAmount(T, 1, standing, currency{});
        T.BetsOnTable[1] = currency{};
        T.Point = T.PrevPoint = point;
        EXPECT_EQ(PlaceBet(T, 1, row, Dollars(amount)).Delta, Dollars(amount));
        const currency before = T.Bankroll[1];
        PadRoll(T, die1, die2);
        const currency net = T.Bankroll[1] - before;
        EXPECT_EQ(net.TenThousandths % CurrencyScale, 0);
        return net.TenThousandths / CurrencyScale;
    }

    SilentScreen Front;
    std::unique_ptr<Table> Owner = std::make_unique<Table>();
    Table& T = *Owner;
};

/// Where a bet may be made.
enum class Line { Either, ComeOut, PointOn };

struct ByTotal {
    int Bet, Amount;
    std::array<int, 11> Net;  ///< totals 2..12; 0: nothing is decided
    Line When = Line::Either;
};

constexpr ByTotal TotalBets[] = {
    {Row::Field, 1, {2, 1, 1, -1, -1, -1, -1, 1, 1, 1, 2}},
    {Row::Two, 1, {30, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1}},
    {Row::Three, 1, {-1, 15, -1, -1, -1, -1, -1, -1, -1, -1, -1}},
    {Row::Seven, 1, {-1, -1, -1, -1, -1, 4, -1, -1, -1, -1, -1}},
    {Row::Eleven, 1, {-1, -1, -1, -1, -1, -1, -1, -1, -1, 15, -1}},
    {Row::Twelve, 1, {-1, -1, -1, -1, -1, -1, -1, -1, -1, -1, 30}},
    {Row::Craps, 1, {7, 7, -1, -1, -1, -1, -1, -1, -1, -1, 7}},
    {Row::CandE, 2, {6, 6, -2, -2, -2, -2, -2, -2, -2, 14, 6}},
    {Row::Horn, 4, {27, 12, -4, -4, -4, -4, -4, -4, -4, 12, 27}},
    {Row::World, 5, {26, 11, -5, -5, -5, 0, -5, -5, -5, 11, 26}},
    {Row::Over7, 1, {-1, -1, -1, -1, -1, -1, 1, 1, 1, 1, 1}},
    {Row::Under7, 1, {1, 1, 1, 1, 1, -1, -1, -1, -1, -1, -1}},
    {Row::PassLine, 10, {-10, -10, 0, 0, 0, 10, 0, 0, 0, 10, -10}, Line::ComeOut},
    {Row::DontPass, 10, {10, 10, 0, 0, 0, -10, 0, 0, 0, -10, 0}, Line::ComeOut},
    {Row::Come, 10, {-10, -10, 0, 0, 0, 10, 0, 0, 0, 10, -10}, Line::PointOn},
    {Row::DontCome, 10, {10, 10, 0, 0, 0, -10, 0, 0, 0, -10, 0}, Line::PointOn},
};

bool MayBeMade(Line when, int point) { return when == Line::Either || (when == Line::ComeOut) == (point == 0); }

TEST_F(OneDecisionTest, BetsOnTotals) {
    for (const ByTotal& bet : TotalBets) {
        for (const int point : {0, 4, 8}) {
            if (!MayBeMade(bet.When, point)) continue;
            for (int die1 = 1; die1 <= 6; ++die1) {
                for (int die2 = 1; die2 <= 6; ++die2) {
                    EXPECT_EQ(Result(bet.Bet, bet.Amount, point, die1, die2),
                              bet.Net[static_cast<std::size_t>(die1 + die2 - 2)])
                        << BetName(bet.Bet) << ", point " << point << ", dice " << die1 << "." << die2;
                }
            }
        }
    }
}

TEST_F(OneDecisionTest, HopsAndMidway) {
    for (const int point : {0, 9}) {
        for (int die1 = 1; die1 <= 6; ++die1) {
            for (int die2 = 1; die2 <= 6; ++die2) {
                SCOPED_TRACE(std::to_string(point) + ", dice " + std::to_string(die1) + "." + std::to_string(die2));
                const int total = die1 + die2;
                const bool hard = die1 == die2;
                const int midway = total < 6 || total > 8 ? -1 : hard ? 2 : 1;
                EXPECT_EQ(Result(Row::Midway, 1, point, die1, die2), midway);
                const std::string low = std::to_string(std::min(die1, die2)),
                                  high = std::to_string(std::max(die1, die2));
                for (int row = Row::Hop13; row <= Row::Hop55; ++row) {
                    const bool hit = BetName(row) == "Hop " + low + high;
                    EXPECT_EQ(Result(row, 1, point, die1, die2), !hit ? -1 : hard ? 30 : 15) << BetName(row);
                }
            }
        }
    }
}

}  // namespace
}  // namespace tarnwick
