// The exact figures of every bet: fractions worked out by hand, the rounding of what is shown, and each switch.
#include "config/advantage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "config/advantagelines.h"
#include "config/configure.h"
#include "config/payoffs.h"
#include "dice/dice.h"
#include "dice/matrix.h"
#include "dice/matrixeditor.h"

namespace tarnwick {
namespace {

class Advantages : public testing::Test {
  protected:
    Advantages() {
        SetDefaultSettings(T);
        ResetProbabilityMatrix(T);
    }
    void Set(const std::string& name, const std::string& value) { ASSERT_EQ(SetSetting(T, name, value), "") << name; }
    Advantage Exact(int row) const { return ExactAdvantage(T, ChancesInForce(T), row); }
    /// A matrix that has these chances, the others 0.
    void Skew(const std::vector<std::pair<std::pair<int, int>, int>>& chances) {
        T.UseSkewedProbability = true;
        for (const MatrixCell& cell : MatrixWalk) T.ProbabilityMatrix[1][cell.Col][cell.Row] = 0;
        for (const auto& [dice, value] : chances) {
            const CellPlace at = ResultPlace(dice.first, dice.second);
            T.ProbabilityMatrix[1][static_cast<std::size_t>(at.Col)][static_cast<std::size_t>(at.Row)] = value;
        }
    }

    std::unique_ptr<Table> Owner = std::make_unique<Table>();
    Table& T = *Owner;
};

/// A family of six is told for 4, 5 and 6; 10, 9 and 8 are the same.
struct Family {
    int First;
    double EvDec[3];
    double RollsDec[3];
};
constexpr double ThreeRolls[3] = {4, 3.6, 36.0 / 11};

struct Single {
    int Bet;
    double EvDec, RollsDec;
    double Near = 1e-14;  ///< figures told with so many places
};

TEST_F(Advantages, FamiliesOfSix) {
    const Family families[] = {
        {Row::Come4, {-1.0 / 3, -1.0 / 5, -1.0 / 11}, {4, 3.6, 36.0 / 11}},
        {Row::DontCome4, {1.0 / 3, 1.0 / 5, 1.0 / 11}, {4, 3.6, 36.0 / 11}},
        {Row::Come4Odds, {0, 0, 0}, {4, 3.6, 36.0 / 11}},
        {Row::DontCome4Odds, {0, 0, 0}, {4, 3.6, 36.0 / 11}},
        {Row::Place4, {-1.0 / 15, -1.0 / 25, -1.0 / 66}, {4, 3.6, 36.0 / 11}},
        {Row::Buy4, {-1.0 / 21, -1.0 / 21, -1.0 / 21}, {4, 3.6, 36.0 / 11}},
        {Row::Lay4, {-1.0 / 41, -1.0 / 31, -1.0 / 25}, {4, 3.6, 36.0 / 11}},
    };
    const auto expect = [this](const Family& family) {
        for (int n = 0; n < 6; ++n) {
            SCOPED_TRACE(BetName(family.First + n));
            const Advantage a = Exact(family.First + n);
            const int as = n < 3 ? n : 5 - n;
            EXPECT_NEAR(a.EvDec, family.EvDec[as], 1e-14);
            EXPECT_NEAR(a.RollsDec, family.RollsDec[as], 1e-13);
            EXPECT_NEAR(a.EvRoll, family.EvDec[as] / family.RollsDec[as], 1e-14);
        }
    };
    for (const Family& family : families) expect(family);
    Set("BuyVigOnAllBets", "no");
    Set("LayVigOnAllBets", "no");
    for (const int first : {Row::Buy4, Row::Lay4}) {
        expect({first, {-1.0 / 60, -1.0 / 50, -1.0 / 44}, {ThreeRolls[0], ThreeRolls[1], ThreeRolls[2]}});
    }
    Set("BuyVigRate", "0");
    expect({Row::Buy4, {0, 0, 0}, {4, 3.6, 36.0 / 11}});
}

TEST_F(Advantages, SingleBets) {
    constexpr double rolls6 = 36.0 / 11;
    const double small = 20049.0 / 760760;
    const Single singles[] = {
        {Row::PassLine, -7.0 / 495, 557.0 / 165},
        {Row::DontPass, -27.0 / 1925, 557.0 / 165 * 1980 / 1925},
        {Row::PassLineOdds, 0, 196.0 / 55},
        {Row::DontPassOdds, 0, 196.0 / 55},
        {Row::Come, 1.0 / 3, 3},
        {Row::DontCome, -5.0 / 11, rolls6},
        {Row::Field, -1.0 / 18, 1},
        {Row::Big6, -1.0 / 11, rolls6},
        {Row::Big8, -1.0 / 11, rolls6},
        {Row::Hard4, -1.0 / 9, 4},
        {Row::Hard6, -1.0 / 11, rolls6},
        {Row::Hard8, -1.0 / 11, rolls6},
        {Row::Hard10, -1.0 / 9, 4},
        {Row::Two, -5.0 / 36, 1},
        {Row::Three, -1.0 / 9, 1},
        {Row::Seven, -1.0 / 6, 1},
        {Row::Eleven, -1.0 / 9, 1},
        {Row::Twelve, -5.0 / 36, 1},
        {Row::Craps, -1.0 / 9, 1},
        {Row::CandE, -1.0 / 9, 1},
        {Row::Horn, -1.0 / 8, 1},
        {Row::World, -4.0 / 25, 1.2},
        {Row::Over7, -1.0 / 6, 1},
        {Row::Under7, -1.0 / 6, 1},
        {Row::AllSmall, 35 * small - 1, 5.8419, 5e-5},
        {Row::AllTall, 35 * small - 1, 5.8419, 5e-5},
        {Row::MakeAll, -0.074644, 5.9685, 5e-5},
        {Row::FourRollsNo7, -23.0 / 648, 671.0 / 216},
        {Row::Point7, -1.0 / 9, 5.0 / 3},
        {Row::SevenPoint7, -1.0 / 18, 5.0 / 3},
        {Row::Midway, -1.0 / 18, 1},
        {Row::Fire, -0.207628, 1671.0 / 196, 5e-7},
    };
    for (const Single& bet : singles) {
        SCOPED_TRACE(BetName(bet.Bet));
        const Advantage a = Exact(bet.Bet);
        EXPECT_NEAR(a.EvDec, bet.EvDec, std::min(bet.Near, 5e-7));
        EXPECT_NEAR(a.RollsDec, bet.RollsDec, std::max(bet.Near, 1e-12));
        EXPECT_NEAR(a.EvRoll * a.RollsDec, a.EvDec, 1e-14);
    }
    for (int row = Row::Hop13; row <= Row::Hop55; ++row) {
        const bool pair = row == Row::Hop22 || row == Row::Hop33 || row == Row::Hop44 || row == Row::Hop55;
        EXPECT_NEAR(Exact(row).EvDec, pair ? -5.0 / 36 : -1.0 / 9, 1e-14) << BetName(row);
        EXPECT_NEAR(Exact(row).RollsDec, 1, 1e-14) << BetName(row);
    }
    EXPECT_NEAR(Exact(Row::World).EvRoll, -2.0 / 15, 1e-14);
    EXPECT_NEAR(Exact(Row::DontPass).EvRoll, -3.0 / 220 / (557.0 / 165), 1e-14);
}

TEST_F(Advantages, DeviationsOfBetsWithKnownVariance) {
    struct Case {
        int Bet;
        double PerRoll, PerDecision;  ///< variances
    };
    const Case cases[] = {
        // 1 to 1: 1 - ev^2
        {Row::Over7, 1 - 1.0 / 36, 1 - 1.0 / 36},
        {Row::Seven, 25 * (1.0 / 6) * (5.0 / 6), 25 * (1.0 / 6) * (5.0 / 6)},
        {Row::Big6, 11.0 / 36 - 1.0 / (36 * 36), 1 - 1.0 / 121},
        {Row::PassLineOdds, 0, 0},
        {Row::PassLine, 0.544243 * 0.544243, 1 - 49.0 / (495 * 495)},
        // the barred number is left out: 1925 of 1980
        {Row::DontPass, 0, 1925.0 / 1980 * (1 - std::pow(27.0 / 1925, 2))},
        {Row::FourRollsNo7, 0, 1 - std::pow(23.0 / 648, 2)},
        {Row::Point7, 0, 64 * (1.0 / 9) * (8.0 / 9)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(BetName(c.Bet));
        if (c.PerRoll > 0) {
            EXPECT_NEAR(Exact(c.Bet).SdRoll, std::sqrt(c.PerRoll), 5e-7);
        }
        if (c.PerDecision > 0) {
            EXPECT_NEAR(Exact(c.Bet).SdDec, std::sqrt(c.PerDecision), 1e-12);
        }
    }
}

TEST_F(Advantages, ZeroOutcomesAsDecisions) {
    const double place6 = Exact(Row::Place4 + 2).EvRoll;
    Set("CountZeroOutcomes", "yes");
    const Advantage a = Exact(Row::Place4 + 2);
    EXPECT_DOUBLE_EQ(a.EvDec, place6);
    EXPECT_DOUBLE_EQ(a.EvDec, a.EvRoll);
    EXPECT_DOUBLE_EQ(a.SdDec, a.SdRoll);
    EXPECT_EQ(a.RollsDec, 1);
    EXPECT_NEAR(Exact(Row::World).EvDec, -2.0 / 15, 1e-14);
    EXPECT_NEAR(Exact(Row::DontPass).EvDec, -3.0 / 220, 1e-14) << "the barred 12 counts";
    EXPECT_NEAR(Exact(Row::DontPass).RollsDec, 557.0 / 165, 1e-13);
    EXPECT_NEAR(Exact(Row::PassLine).EvDec, -7.0 / 495, 1e-14);
}

TEST_F(Advantages, FirePaysNothingForSomeCount) {
    // One point made decides nothing: the bet waits for the next hand.
    const double onePoint = 0.260750;
    const Advantage before = Exact(Row::Fire);
    T.FirePayoff[1].Pays = {};
    const Advantage a = Exact(Row::Fire);
    EXPECT_NEAR(a.EvDec, (before.EvDec + onePoint) / (1 - onePoint), 2e-6);
    EXPECT_NEAR(a.RollsDec, before.RollsDec / (1 - onePoint), 2e-5);
    Set("CountZeroOutcomes", "yes");
    EXPECT_NEAR(Exact(Row::Fire).EvDec, before.EvDec + onePoint, 2e-6);
    EXPECT_NEAR(Exact(Row::Fire).RollsDec, before.RollsDec, 1e-12);
}

TEST_F(Advantages, FireByTheCountOfPoints) {
    const double chances[] = {.593939, .260750, .101275, .033434, .008798, .001640, .000162};
    for (PayoffEntry& payoff : T.FirePayoff) payoff = {{}, Dollars(-1), ToWord, Dollars(1)};
    for (std::size_t made = 0; made < 7; ++made) {
        T.FirePayoff[made].Pays = Dollars(1);
        EXPECT_NEAR((Exact(Row::Fire).EvDec + 1) / 2, chances[made], 6e-7) << made;
        T.FirePayoff[made].Pays = Dollars(-1);
    }
}

TEST_F(Advantages, ChangedRules) {
    struct Case {
        const char* Setting;
        const char* Value;
        int Bet;
        double EvDec;
    };
    const Case cases[] = {
        {"BarDont", "2", Row::DontPass, -27.0 / 1925},
        {"Payoff[45]", "2 to 1", Row::PassLine, -7.0 / 495 + 8.0 / 36},    // a natural pays double
        {"Payoff[48]", "2 to 1", Row::DontPass, (-27 + 3 * 55.0) / 1925},  // 3 of 36 are 165 of 1980
        {"Payoff[19]", "2 to 1", Row::PassLine, -7.0 / 495 + 1.0 / 36},    // made fours: 3/36 * 1/3
        {"Payoff[7]", "2 to 1", Row::DontPass, (-27 + 110.0) / 1925},      // 3/36 * 2/3 are 110 of 1980
        {"Payoff[56]", "31 for 1", Row::Two, -5.0 / 36},
        {"Payoff[56]", "30 for 1", Row::Horn, (-18 - 1) / 144.0},
        {"Payoff[59]", "16 to 1", Row::CandE, (-8 + 2) / 72.0},
        {"Payoff[58]", "5 to 1", Row::World, (-24 + 6) / 180.0},  // the 7 now wins
        {"FieldPayoff[21]", "3 to 1", Row::Field, -1.0 / 36},
        {"FieldPayoff[10]", "0 to 1", Row::Field, (-2 + 2) / 34.0},  // 1.6 and 6.1 decide nothing
        {"MidwayPayoff[3]", "3 to 2", Row::Midway, (-2 + 3) / 36.0},
        {"Payoff[84]", "35 for 1", Row::AllSmall, 35 * 20049.0 / 760760 - 1},
        {"SevenPointSevenPayoff[1]", "3 to 1", Row::SevenPoint7, -1.0 / 18 + 1.0 / 6},
        {"Payoff[37]", "9 to 5", Row::Buy4, (1.8 / 1.05 - 0.05 / 1.05 - 2) / 3},
        {"LayVigRate", "0.1", Row::Lay4, (2 * (0.5 / 1.05 - 0.05 / 1.05) - 1) / 3},
        {"Payoff[25]", "3 to 1", Row::PassLineOdds, 1.0 / 24},
    };
    const Settings defaults = T;
    for (const Case& c : cases) {
        static_cast<Settings&>(T) = defaults;
        Set(c.Setting, c.Value);
        EXPECT_NEAR(Exact(c.Bet).EvDec, c.EvDec, 1e-14) << c.Setting << " " << c.Value;
    }
}

TEST_F(Advantages, SkewedDice) {
    Skew({{{1, 6}, 25'000}, {{4, 4}, 75'000}});
    EXPECT_NEAR(Exact(Row::Seven).EvDec, 0.25 * 5 - 1, 1e-14);
    EXPECT_NEAR(Exact(Row::Hard8).EvDec, 0.75 * 10 - 1, 1e-14);
    EXPECT_NEAR(Exact(Row::PassLine).EvDec, 0.25 + 0.75 * 0.75 - 0.75 * 0.25, 1e-14);
    EXPECT_NEAR(Exact(Row::Fire).EvDec, -1, 1e-14) << "one point at most";
    EXPECT_EQ(Exact(Row::Place4), Exact(Row::Come4)) << "lost by every 7";
    T.UseSkewedProbability = false;
    EXPECT_NEAR(Exact(Row::Seven).EvDec, -1.0 / 6, 1e-14);
}

TEST_F(Advantages, DiceWithoutSevens) {
    Skew({{{2, 2}, 50'000}, {{6, 6}, 50'000}});
    EXPECT_NEAR(Exact(Row::PassLine).EvDec, 0, 1e-14);
    EXPECT_NEAR(Exact(Row::PassLine).RollsDec, 2, 1e-14) << "1 for craps, 3 for the point";
    EXPECT_NEAR(Exact(Row::PassLineOdds).EvDec, 2, 1e-14);
    EXPECT_NEAR(Exact(Row::FourRollsNo7).EvDec, 1, 1e-14);
    EXPECT_NEAR(Exact(Row::Place4).EvDec, 1.8, 1e-14);
    // Nothing ever decides these.
    for (const int row : {Row::Place4 + 1, +Row::Big6, +Row::Hard6, +Row::AllSmall, +Row::AllTall, +Row::MakeAll,
                          +Row::Fire, Row::DontCome4 + 2}) {
        EXPECT_EQ(Exact(row), Advantage{}) << BetName(row);
    }
}

TEST_F(Advantages, ChancesAreThoseOfTheDraw) {
    struct Case {
        const char* Name;
        int First, Last;  ///< values of 1.1 and 6.1
        double FirstChance;
    };
    const Case cases[] = {{"a sum above the whole", 60'000, 60'000, 0.6},
                          {"a sum below", 10'000, 30'000, 0.25},
                          {"a value below 0", -5, 100'000, 0},
                          {"a first value above the whole", 2'000'000'000, 2'000'000'000, 1}};
    for (const Case& c : cases) {
        Skew({{{1, 1}, c.First}, {{6, 1}, c.Last}});
        const DiceChances chances = ChancesInForce(T);
        EXPECT_DOUBLE_EQ(chances.Of(1, 1), c.FirstChance) << c.Name;
        EXPECT_DOUBLE_EQ(chances.OfTotal(7), 1 - c.FirstChance) << c.Name;
    }
    Skew({});
    EXPECT_DOUBLE_EQ(ChancesInForce(T).Of(1, 1), 1.0 / 36) << "fair dice, as they are thrown then";
}

TEST_F(Advantages, EveryDrawCountsOnce) {
    std::vector<std::pair<std::pair<int, int>, int>> uneven;
    for (int die1 = 1; die1 <= 6; ++die1)
        for (int die2 = 1; die2 <= 6; ++die2) uneven.push_back({{die1, die2}, 1500 * die1 - 150 * die2 * die2});
    Skew(uneven);  // some are below 0, and the last cells lie beyond the whole
    std::array<int, 36> drawn{};
    for (std::int32_t d = 1; d <= WholeChance; ++d) {
        LookupDice(T, d);
        ++drawn[static_cast<std::size_t>(6 * (T.Die1 - 1) + T.Die2 - 1)];
    }
    const DiceChances chances = ChancesInForce(T);
    for (std::size_t i = 0; i < 36; ++i) EXPECT_DOUBLE_EQ(chances.Results[i], drawn[i] / 100'000.0) << i;
}

TEST_F(Advantages, FiguresAreRoundedAtTheEnd) {
    const Advantage pass = FigureAdvantage(T, Row::PassLine);
    EXPECT_EQ(pass.EvDec, -0.014141);
    EXPECT_EQ(pass.RollsDec, 3.38);
    EXPECT_EQ(pass.EvRoll, -0.004189);
    EXPECT_EQ(pass.SdRoll, 0.544243);
    EXPECT_EQ(pass.SdDec, 0.9999);
    EXPECT_EQ(FigureAdvantage(T, Row::Seven).EvRoll, -0.166667);
    EXPECT_EQ(FigureAdvantage(T, Row::PassLineOdds).EvDec, 0);
    EXPECT_EQ(FigureAdvantage(T, 0), Advantage{});
    EXPECT_EQ(FigureAdvantage(T, 92), Advantage{});
}

TEST_F(Advantages, CacheFollowsEveryRule) {
    AdvantageCache cache;
    const auto check = [&](const std::string& change) {
        for (int row = 0; row <= Row::LastBet; ++row) {
            ASSERT_EQ(cache.Of(T, row), FigureAdvantage(T, row)) << change << " " << BetName(row);
        }
    };
    check("defaults");
    const char* const changes[][2] = {
        {"Payoff[31]", "2 to 1"},      {"FieldPayoff[1]", "3 to 1"}, {"SevenPointSevenPayoff[2]", "4 to 1"},
        {"MidwayPayoff[1]", "3 to 1"}, {"FirePayoff[3]", "6 to 1"},  {"BarDont", "2"},
        {"Payoff[48]", "3 to 2"},      {"LayVigRate", "0.04"},       {"BuyVigRate", "0.04"},
        {"LayVigOnAllBets", "no"},     {"BuyVigOnAllBets", "no"},    {"CountZeroOutcomes", "yes"}};
    for (const auto& [name, value] : changes) {
        Set(name, value);
        check(name);
    }
    Skew({{{1, 6}, 25'000}, {{4, 4}, 75'000}});
    check("skewed");
    Skew({{{1, 6}, 35'000}, {{4, 4}, 65'000}});
    check("skewed otherwise");
    const double skewed = cache.Of(T, Row::Seven).EvDec;
    EXPECT_EQ(cache.Of(T, Row::Seven, true).EvDec, -0.166667);
    EXPECT_EQ(cache.Of(T, Row::Seven).EvDec, skewed);
}

// --- the list ---

TEST_F(Advantages, LinesOfTheList) {
    struct Case {
        int Bet;
        const char* Label;
        std::array<std::string, 5> Values, Times;
    };
    const Case cases[] = {
        {Row::PassLine,
         "Passline/Come",
         {"-0.42", "54.42", "-1.41", "99.99", "-50.27"},
         {"3.38", "0.30", "35.50", "0.59", "00:01:41.4"}},
        {Row::Seven,
         "Seven",
         {"-16.67", "186.34", "-16.67", "186.34", "-2000.00"},
         {"1.00", "1.00", "120.00", "2.00", "00:00:30.0"}},
        {Row::PassLineOdds,
         "Passline/Come Odds",
         {"0.00", "64.88", "0.00", "122.47", "0.00"},
         {"3.56", "0.28", "33.71", "0.56", "00:01:46.8"}},
    };
    for (const bool misc : {false, true}) {
        T.ShowMiscData = misc;
        const std::vector<AdvantageLine> lines = AdvantageLines(T);
        ASSERT_EQ(lines.size(), 91u);
        for (const Case& c : cases) {
            const AdvantageLine& line = lines[static_cast<std::size_t>(c.Bet - 1)];
            EXPECT_EQ(line.Label, c.Label);
            EXPECT_EQ(line.Texts, misc ? c.Times : c.Values) << c.Label;
        }
    }
    const std::pair<int, const char*> labels[] = {{Row::Lay4, "Lay 4"},
                                                  {7, "DP/DC 4"},
                                                  {18, "DP/DC 10 Odds"},
                                                  {22, "Pass/Come 8"},
                                                  {27, "Pass/Come 6 Odds"},
                                                  {Row::Come, "Passline/Come (c.o.)"},
                                                  {Row::DontPass, "Don't Pass/Come"},
                                                  {Row::DontPassOdds, "Don't Pass/Come Odds"},
                                                  {Row::DontCome, "Don't Pass/Come (c.o.)"},
                                                  {Row::Hop13, "Hop 13"}};
    for (const auto& [row, label] : labels) EXPECT_EQ(AdvantageLabel(row), label);
}

TEST_F(Advantages, BetsThatAreNotOfferedAreLeftOut) {
    const std::pair<const char*, std::size_t> options[] = {
        {"UseBig68", 89}, {"UseSpecialPropBets", 83}, {"UseMidwayBet", 82}, {"UseFireBet", 81}};
    for (const auto& [option, left] : options) {
        Set(option, "no");
        EXPECT_EQ(AdvantageLines(T).size(), left) << option;
    }
    EXPECT_EQ(AdvantageLines(T).back().BetRow, Row::Hop55);
}

TEST_F(Advantages, TimesCarryIntoTheNextUnit) {
    struct Case {
        double Rolls, PerHour;
        const char* Text;
    };
    const Case cases[] = {{1, 60.0, "00:01:00.0"},       {0, 120, "00:00:00.0"},      {1, 0, "00:00:00.0"},
                          {59.96, 3600, "00:01:00.0"},   {59.94, 3600, "00:00:59.9"}, {3599.99, 3600, "01:00:00.0"},
                          {12'345.5, 1, "12345:30:00.0"}};
    for (const Case& c : cases) EXPECT_EQ(RollTimeText(c.Rolls, c.PerHour), c.Text) << c.Rolls;
}

}  // namespace
}  // namespace tarnwick
