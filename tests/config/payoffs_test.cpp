#include "config/payoffs.h"

#include <gtest/gtest.h>

#include "config/configure.h"
#include "table/format.h"

namespace tarnwick {
namespace {

class PayoffTables : public testing::Test {
  protected:
    void SetUp() override { SetDefaultSettings(t); }
    PayoffEntry& Entry(int row) { return t.Payoff[static_cast<std::size_t>(row)]; }

    Table t;
};

TEST_F(PayoffTables, Defaults) {
    struct Case {
        int FirstRow, LastRow;
        const char* Text;
    };
    const Case cases[] = {
        {1, 1, "1 to 2"},    {2, 2, "2 to 3"},    {3, 4, "5 to 6"},     {5, 5, "2 to 3"},    {6, 6, "1 to 2"},
        {7, 12, "1 to 1"},   {13, 13, "1 to 2"},  {15, 16, "5 to 6"},   {18, 18, "1 to 2"},  {19, 24, "1 to 1"},
        {25, 25, "2 to 1"},  {26, 26, "3 to 2"},  {27, 28, "6 to 5"},   {29, 29, "3 to 2"},  {30, 30, "2 to 1"},
        {31, 31, "9 to 5"},  {32, 32, "7 to 5"},  {33, 34, "7 to 6"},   {35, 35, "7 to 5"},  {36, 36, "9 to 5"},
        {37, 37, "2 to 1"},  {38, 38, "3 to 2"},  {39, 40, "6 to 5"},   {42, 42, "2 to 1"},  {43, 51, "1 to 1"},
        {52, 52, "7 to 1"},  {53, 54, "9 to 1"},  {55, 55, "7 to 1"},   {56, 56, "30 to 1"}, {57, 57, "15 to 1"},
        {58, 58, "4 to 1"},  {59, 59, "15 to 1"}, {60, 60, "30 to 1"},  {61, 61, "7 to 1"},  {62, 62, "1 to 2"},
        {63, 63, "1 to 4"},  {64, 64, "1 to 5"},  {65, 66, "1 to 1"},   {67, 70, "15 to 1"}, {71, 71, "30 to 1"},
        {72, 75, "15 to 1"}, {76, 76, "30 to 1"}, {77, 79, "15 to 1"},  {80, 80, "30 to 1"}, {81, 82, "15 to 1"},
        {83, 83, "30 to 1"}, {84, 85, "34 to 1"}, {86, 86, "175 to 1"}, {87, 87, "1 to 1"},  {88, 88, "7 to 1"},
    };
    for (const Case& c : cases) {
        for (int row = c.FirstRow; row <= c.LastRow; ++row) EXPECT_EQ(PayoffText(Entry(row)), c.Text) << row;
    }
    // By dice: 2; 3 and the 4s; 5 to 8; 9 to 11; 12.
    for (std::size_t i = 1; i <= 21; ++i) {
        const std::string wanted = i == 1 || i == 21 ? "2 to 1" : 5 <= i && i <= 15 ? "-1 to 1" : "1 to 1";
        EXPECT_EQ(PayoffText(t.FieldPayoff[i]), wanted) << i;
    }
    const auto texts = [](const auto& payoffs, std::size_t first) {
        std::string all;
        for (std::size_t i = first; i < payoffs.size(); ++i) all += PayoffText(payoffs[i]) + ", ";
        return all;
    };
    EXPECT_EQ(texts(t.SevenPointSevenPayoff, 1), "2 to 1, 3 to 1, ");
    EXPECT_EQ(texts(t.MidwayPayoff, 1), "2 to 1, 1 to 1, 1 to 1, 1 to 1, 2 to 1, ");
    EXPECT_EQ(texts(t.FirePayoff, 0), "-1 to 1, -1 to 1, -1 to 1, -1 to 1, 24 to 1, 249 to 1, 999 to 1, ");
    EXPECT_EQ(PayoffFault(t).Text, "");
}

// A bet of one unit, and of no less, wins whole checks.
TEST_F(PayoffTables, UnitsOfBets) {
    struct Case {
        const char* Payoff;
        std::int64_t Check;  // ten-thousandths
        std::int64_t Unit;
    };
    const Case cases[] = {
        {"7 to 6", 10'000, 60'000},       {"9 to 5", 10'000, 50'000},    {"6 to 5", 50'000, 250'000},
        {"1 to 2", 10'000, 20'000},       {"30 to 1", 250'000, 250'000}, {"31 for 1", 10'000, 10'000},
        {"12 to 10", 10'000, 50'000},      // lowest terms 6 to 5
        {"1.27 to 1", 10'000, 1'000'000},  // 127 to 100
        {"0.5 to 0.3", 10'000, 30'000},    // 5 to 3
        {"7 to 6", 2'500, 15'000},        {"0 to 5", 10'000, 10'000},    {"-1 to 2", 50'000, 50'000},
    };
    for (const Case& c : cases) {
        t.CheckDenominations[1] = {c.Check};
        t.FieldPayoff[7] = *ParsePayoff(c.Payoff);
        UpdatePayoffUnits(t);
        EXPECT_EQ(t.FieldPayoff[7].Unit, currency{c.Unit}) << c.Payoff;
    }
    SetDefaultSettings(t);
    const int units[][2] = {{33, 6}, {31, 5}, {37, 1}, {38, 2}, {39, 5}, {27, 5}, {15, 6}, {3, 6},
                            {2, 3},  {62, 2}, {63, 4}, {64, 5}, {43, 1}, {90, 1}, {56, 1}};
    for (const auto& [row, unit] : units) EXPECT_EQ(Entry(row).Unit, Dollars(unit)) << row;
    EXPECT_EQ(t.FirePayoff[0].Unit, Dollars(1));
}

TEST_F(PayoffTables, LineBetsFollowThePoint) {
    for (std::size_t row = 1; row <= 91; ++row)
        t.Payoff[row].Pays = Dollars(static_cast<int>(row));  // tells rows apart
    const int comeOut[][2] = {{43, 45}, {46, 48}, {44, 44}, {47, 47}, {45, 45}, {25, 25}, {91, 91}};
    for (const auto& [row, source] : comeOut) EXPECT_EQ(PayoffOf(t, row).Pays, Dollars(source)) << row;
    const int on[][5] = {{4, 19, 25, 7, 13},  {5, 20, 26, 8, 14},  {6, 21, 27, 9, 15},
                         {8, 22, 28, 10, 16}, {9, 23, 29, 11, 17}, {10, 24, 30, 12, 18}};
    for (const auto& [point, pass, odds, dont, dontOdds] : on) {
        t.Point = point;
        EXPECT_EQ(PayoffOf(t, Row::PassLine).Pays, Dollars(pass));
        EXPECT_EQ(PayoffOf(t, Row::PassLineOdds).Pays, Dollars(odds));
        EXPECT_EQ(PayoffOf(t, Row::DontPass).Pays, Dollars(dont));
        EXPECT_EQ(PayoffOf(t, Row::DontPassOdds).Pays, Dollars(dontOdds));
        EXPECT_EQ(PayoffOf(t, Row::Place4).Pays, Dollars(31));
        EXPECT_DOUBLE_EQ(PayoffRatio(t, Row::PassLine), pass);
        FollowPointPayoffs(t);
        EXPECT_EQ(Entry(44).Pays, Dollars(odds));
        EXPECT_EQ(Entry(47).Pays, Dollars(dontOdds));
        EXPECT_EQ(PayoffOf(t, Row::PassLine, 0).Pays, Dollars(45));
    }
    t.Point = 0;
    FollowPointPayoffs(t);
    EXPECT_EQ(Entry(44).Pays, Dollars(30));  // as the last point left it
    Entry(31).For = {};
    EXPECT_EQ(PayoffRatio(t, 31), 0);
}

TEST_F(PayoffTables, TextsReadBackAsTheyWereWritten) {
    struct Case {
        const char* Text;
        std::int64_t Pays, ToForm, For;  // whole units
        const char* Shown;
    };
    const Case good[] = {
        {"30 to 1", 30, -1, 1, "30 to 1"},
        {"31 for 1", 30, 0, 1, "31 for 1"},
        {" 7 TO  5 ", 7, -1, 5, "7 to 5"},
        {"-1 to 1", -1, -1, 1, "-1 to 1"},
        {"0 for 1", -1, 0, 1, "0 for 1"},
        {"$1,000 to 1", 1000, -1, 1, "1000 to 1"},
        {"9999999 to 9999999", 9'999'999, -1, 9'999'999, "9999999 to 9999999"},
    };
    for (const Case& c : good) {
        const auto payoff = ParsePayoff(c.Text);
        ASSERT_TRUE(payoff) << c.Text;
        EXPECT_EQ(*payoff, (PayoffEntry{{}, Dollars(c.Pays), Dollars(c.ToForm), Dollars(c.For)})) << c.Text;
        EXPECT_EQ(PayoffText(*payoff), c.Shown);
    }
    for (const char* text :
         {"", "30", "30:1", "30 to", " to 1", "30to1", "30 to 0", "30 to -1", "a to b", "1 to 2 to 3", "10000000 to 1",
          "1 to 10000000", "-10000000 to 1", "922337203685477.5807 for 1"}) {
        EXPECT_FALSE(ParsePayoff(text)) << text;
    }
}

TEST_F(PayoffTables, VigByRoundingAndCheck) {
    constexpr int Normally = 0, Down = 1, Up = 2;
    struct Case {
        const char* Amount;
        const char* Rate;
        const char* Check;
        int Rounding;
        const char* Vig;
    };
    const Case cases[] = {
        {"25", "0.05", "1", Normally, "1"},  // 1.25
        {"25", "0.05", "1", Down, "1"},
        {"25", "0.05", "1", Up, "2"},
        {"30", "0.05", "1", Normally, "1"},  // 1.50: a tie goes down
        {"31", "0.05", "1", Normally, "2"},  // 1.55
        {"50", "0.05", "1", Normally, "2"},  // 2.50
        {"40", "0.05", "1", Up, "2"},        // 2 exactly
        {"5", "0.05", "1", Normally, "1"},   // 0.25: one check at least
        {"5", "0.05", "1", Down, "1"},
        {"5", "0.05", "1", Up, "1"},
        {"0.01", "0.0001", "1", Down, "1"},
        {"0", "0.05", "1", Up, "0"},
        {"-20", "0.05", "1", Up, "0"},
        {"100", "0", "1", Up, "0"},
        {"100", "0.05", "5", Normally, "5"},
        {"150", "0.05", "5", Normally, "5"},   // 7.50 in checks of 5: 1.5, a tie
        {"152", "0.05", "5", Normally, "10"},  // 7.60
        {"101", "0.05", "5", Up, "10"},
        {"6", "0.05", "0.1", Normally, "0.3"},  // a third of a dollar in doubles is not three dimes
        {"7", "0.05", "0.1", Normally, "0.3"},  // 0.35
        {"7", "0.05", "0.1", Up, "0.4"},
        {"20", "0.0475", "0.25", Normally, "1"},  // 0.95 is 3.8 quarters
        {"9999999", "1", "1", Down, "9999999"},
    };
    for (const Case& c : cases) {
        t.CheckDenominations[1] = *ParseAmount(c.Check);
        t.BuyVigRate = t.LayVigRate = *ParseAmount(c.Rate);
        t.BuyVigRounding = t.LayVigRounding = c.Rounding;
        const currency amount = *ParseAmount(c.Amount);
        EXPECT_EQ(PlainAmount(ChargeBuyVig(t, amount)), c.Vig) << c.Amount << " " << c.Rate << " " << c.Check;
        EXPECT_EQ(PlainAmount(ChargeLayVig(t, amount)), c.Vig);
        EXPECT_EQ(PlainAmount(BuyVig(t, Row::Buy10, amount)), c.Vig);
    }
}

// A Lay bet is charged on what it wins: 40 on the 4 at 1 to 2 wins 20.
TEST_F(PayoffTables, LayVigIsOnTheWin) {
    struct Case {
        int BetRow, Amount, Vig;
    };
    const Case cases[] = {
        {1, 40, 1}, {6, 80, 2},  // wins 20, 40
        {2, 90, 3}, {5, 60, 2},  // wins 60, 40
        {3, 72, 3}, {4, 48, 2},  // wins 60, 40
        {1, 2, 1},               // wins 1: the least vig
    };
    for (const Case& c : cases) EXPECT_EQ(LayVig(t, c.BetRow, Dollars(c.Amount)), Dollars(c.Vig)) << c.BetRow;
    Entry(1) = *ParsePayoff("1 to 1");
    EXPECT_EQ(LayVig(t, 1, Dollars(40)), Dollars(2));
    for (const int row : {7, 36, 37, 43}) EXPECT_EQ(LayVig(t, row, Dollars(100)), currency{}) << row;
    for (const int row : {1, 36, 43}) EXPECT_EQ(BuyVig(t, row, Dollars(100)), currency{}) << row;
}

}  // namespace
}  // namespace tarnwick
