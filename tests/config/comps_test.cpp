// Comps: the bets that count, the three measures and what they come to.
#include "config/comps.h"

#include <gtest/gtest.h>

#include <string>

#include "config/configure.h"
#include "dice/matrix.h"
#include "dice/matrixeditor.h"
#include "support/table_fixture.h"

namespace tarnwick {
namespace {

class CompsTest : public TableTest {
  protected:
    static constexpr int Session = 2 * Positions;

    /// Ann wagers 60 on the Pass Line, 60 on Place 6, 40 on Pass Line odds and 12 on Any Seven over four rolls, Bob 5.
    void Wager() {
        Seat(1, "Ann");
        Seat(2, "Bob");
        Bet(1, Row::PassLine, 60);
        Bet(2, Row::PassLine, 5);
        Roll(2, 2);
        Bet(1, Row::PassLineOdds, 40);
        Bet(1, Row::Place4 + 2, 60);
        Bet(1, Row::Seven, 12);
        Roll(5, 4);  // Any Seven is lost
        Roll(3, 3);  // Place 6 wins
        Roll(1, 3);  // the point
    }
};

TEST_F(CompsTest, MeasuresOfOnePosition) {
    Wager();
    const Comps ann = FigureComps(t, 1 + Session);
    EXPECT_EQ(ann.Action, Dollars(132)) << "odds don't count";
    EXPECT_EQ(ann.Count, 3);
    EXPECT_EQ(ann.Rolls, 4);
    EXPECT_NEAR(ann.TheoreticalSum, 60 * -0.014141 + 60 * -0.015152 + 12 * -0.166667, 1e-12);
    EXPECT_EQ(ann.AvgActionTime, ToCurrency(132.0 * 4 / 120 / 3));
    EXPECT_EQ(FigureComps(t, 2 + Session).Action, Dollars(5));
    EXPECT_EQ(FigureComps(t, 1 + 4 * Positions).Action, Dollars(132)) << "all sessions";
    EXPECT_EQ(FigureComps(t, 1 + 3 * Positions).Action, currency{}) << "the session before";
}

TEST_F(CompsTest, ValueByEachBase) {
    Wager();
    struct Case {
        const char *Base, *Rate;
        std::int64_t Value;  ///< ten-thousandths
    };
    // 30% of 3.75758..., of 132 and of 132 * 4 / 120 / 3 = 1.4667
    const Case cases[] = {
        {"0", "30", 11273}, {"1", "30", 396'000}, {"2", "30", 4400}, {"1", "12.5", 165'000}, {"0", "0", 0}};
    for (const Case& c : cases) {
        ASSERT_EQ(SetSetting(t, "CompBase", c.Base), "");
        ASSERT_EQ(SetSetting(t, "CompRate", c.Rate), "");
        EXPECT_EQ(FigureComps(t, 1 + Session).CompValue.TenThousandths, c.Value) << c.Base << " " << c.Rate;
    }
}

TEST_F(CompsTest, NoWagersGiveNothing) {
    for (int base = 0; base < 3; ++base) {
        t.CompBase = base;
        const Comps none = FigureComps(t, 1 + Session);
        EXPECT_EQ(none.CompValue, currency{});
        EXPECT_EQ(none.Action, currency{});
        EXPECT_EQ(none.AvgActionTime, currency{});
        EXPECT_EQ(none.TheoreticalSum, 0);
    }
    Wager();
    for (int row = 1; row <= Row::LastBet; ++row) SetCountsForComps(t, row, false);
    const Comps none = FigureComps(t, 1 + Session);
    EXPECT_EQ(none.Action, currency{});
    EXPECT_EQ(none.Count, 0);
    EXPECT_EQ(none.Rolls, 4);
    EXPECT_EQ(none.AvgActionTime, currency{});
}

TEST_F(CompsTest, UncheckedBetsLeaveAllMeasures) {
    Wager();
    SetCountsForComps(t, Row::Seven, false);
    const Comps ann = FigureComps(t, 1 + Session);
    EXPECT_EQ(ann.Action, Dollars(120));
    EXPECT_EQ(ann.Count, 2);
    EXPECT_NEAR(ann.TheoreticalSum, 60 * -0.014141 + 60 * -0.015152, 1e-12);
    SetCountsForComps(t, Row::PassLineOdds, true);
    EXPECT_EQ(FigureComps(t, 1 + Session).Action, Dollars(160));
}

TEST_F(CompsTest, TrueDiceWhateverIsThrown) {
    Wager();
    const Comps fair = FigureComps(t, 1 + Session);
    ComputeAxisDice(t, {1, 80}, {1, 80});
    t.UseSkewedProbability = true;
    AdvantageCache cache;
    EXPECT_EQ(FigureComps(t, 1 + Session, cache).TheoreticalSum, fair.TheoreticalSum);
    t.CompsUseTrueProbs = false;
    const double skewed = FigureComps(t, 1 + Session, cache).TheoreticalSum;
    EXPECT_NEAR(skewed,
                60 * FigureAdvantage(t, Row::PassLine).EvDec + 60 * FigureAdvantage(t, Row::Place4 + 2).EvDec +
                    12 * FigureAdvantage(t, Row::Seven).EvDec,
                1e-12);
    EXPECT_GT(std::abs(skewed - fair.TheoreticalSum), 0.5);
    EXPECT_TRUE(t.UseSkewedProbability);
}

TEST_F(CompsTest, MasksByBet) {
    struct Case {
        int Bet;
        std::size_t Mask;
        int Bit;
    };
    const Case cases[] = {{1, 1, 0}, {31, 1, 30}, {32, 2, 0}, {62, 2, 30}, {63, 3, 0}, {91, 3, 28}};
    for (const Case& c : cases) {
        Settings s;
        s.CompBetMasks = {};
        SetCountsForComps(s, c.Bet, true);
        EXPECT_EQ(s.CompBetMasks[c.Mask], 1u << c.Bit) << c.Bet;
        for (int row = 0; row <= 100; ++row) EXPECT_EQ(CountsForComps(s, row), row == c.Bet) << row;
        SetCountsForComps(s, c.Bet, false);
        EXPECT_EQ(s.CompBetMasks, (std::array<std::uint32_t, 4>{}));
    }
    for (int row = 1; row <= Row::LastBet; ++row) EXPECT_NE(CountsForCompsByDefault(row), IsOddsRow(row)) << row;
}

TEST_F(CompsTest, LinesOfTheSummary) {
    Wager();
    const Comps ann = FigureComps(t, 1 + Session);
    const char* const labels[] = {"Theoretical vig $", "Total comp action $", "Avg action x time $"};
    const char* const amounts[] = {"3.76", "132.00", "1.47"};
    for (int base = 0; base < 3; ++base) {
        t.CompBase = base;
        const auto lines = CompLines(t, ann);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(lines[i].Label, (static_cast<int>(i) == base ? "* " : "") + std::string(labels[i]));
            EXPECT_EQ(lines[i].Amount, amounts[i]);
        }
    }
    EXPECT_EQ(CompLines(t, Comps{})[0].Amount, "0");
    EXPECT_EQ(CompRateText(t), "30");
    t.CompRate = {125'000};
    EXPECT_EQ(CompRateText(t), "12.50");
}

}  // namespace
}  // namespace tarnwick
