#include "config/fieldpayoffs.h"

#include <gtest/gtest.h>

#include <map>

#include "config/advantage.h"
#include "config/configure.h"
#include "config/payoffs.h"
#include "table/dicepayoffs.h"

namespace tarnwick {
namespace {

enum : int { TwoTwelve, Pass, DontPass, Place6, Lose8, Buy10, Lay4, Hard8, Horn, World, Hop13, Midway, Crapless };

class FieldFillingTable : public testing::Test {
  protected:
    void SetUp() override { SetDefaultSettings(t); }
    Table t;
};

// The expected value of a roll over all 36 dice, in exact fractions.
TEST_F(FieldFillingTable, AreWorthWhatTheirBetsAreWorth) {
    struct Case {
        int Filling;
        std::int64_t Numerator, Denominator;
    };
    const Case cases[] = {
        {TwoTwelve, -1, 18},         // two more units on 2 of 36
        {Pass, -7, 495},             // as known for a decision
        {DontPass, -3, 220},         // with the barred 12 counted
        {Place6, -1, 66 * 36 / 11},  // -1/66 on each of the 11 dice that decide
        {Lose8, -1, 55 * 36 / 11},   // a vig of 1/55
        {Buy10, -9, 21 * 36},        // -1/21 on each of 9
        {Lay4, -9, 60 * 36},
        {Hard8, -11, 11 * 36},
        {Horn, -1, 8},
        {World, -2, 15},
        {Hop13, -1, 9},
        {Midway, -1, 18},
        {Crapless, -373, 6930},
    };
    constexpr std::int64_t common = 3 * 5 * 7 * 8 * 11;  // a multiple of the second number of every entry
    ASSERT_EQ(std::size(cases), static_cast<std::size_t>(FieldFillings));
    for (const Case& c : cases) {
        const auto payoffs = FieldFilling(c.Filling);
        std::int64_t sum = 0;
        for (int i = 0; i < 36; ++i) {
            const PayoffEntry& entry = payoffs[static_cast<std::size_t>(FieldIndex(i / 6 + 1, i % 6 + 1))];
            const std::int64_t divisor = entry.For.TenThousandths / CurrencyScale;
            ASSERT_EQ(common % divisor, 0) << c.Filling;
            sum += entry.Pays.TenThousandths / CurrencyScale * (common / divisor);
        }
        EXPECT_EQ(sum * c.Denominator, c.Numerator * 36 * common) << FieldFillingCaption(c.Filling);
    }
}

// The other bet itself, as the table settles it by default, has the same value, decisions and spread.
TEST_F(FieldFillingTable, ComeOutLikeTheBetsOfTheTable) {
    const std::pair<int, int> singles[] = {{TwoTwelve, Row::Field}, {Place6, 33},        {Buy10, Row::Buy10},
                                           {Lay4, Row::Lay4},       {Hard8, Row::Hard8}, {Horn, Row::Horn},
                                           {World, Row::World},     {Hop13, Row::Hop13}, {Midway, Row::Midway}};
    t.LayVigOnAllBets = false;
    const DiceChances dice = TrueChances();
    for (const auto& [filling, row] : singles) {
        const Advantage wanted = ExactAdvantage(t, dice, row);
        Table like = t;
        ASSERT_TRUE(FillFieldPayoffs(like, filling));
        const Advantage got = ExactAdvantage(like, dice, Row::Field);
        EXPECT_NEAR(got.EvDec, wanted.EvDec, 1e-12) << row;
        EXPECT_NEAR(got.EvRoll, wanted.EvRoll, 1e-12) << row;
        EXPECT_NEAR(got.RollsDec, wanted.RollsDec, 1e-12) << row;
        EXPECT_NEAR(got.SdDec, wanted.SdDec, 1e-12) << row;
    }
    t.CountZeroOutcomes = true;
    for (const auto& [filling, row] : {std::pair{Pass, +Row::PassLine}, std::pair{DontPass, +Row::DontPass}}) {
        const double wanted = ExactAdvantage(t, dice, row).EvDec;
        ASSERT_TRUE(FillFieldPayoffs(t, filling));
        EXPECT_NEAR(ExactAdvantage(t, dice, Row::Field).EvRoll, wanted, 1e-12) << row;
    }
}

TEST_F(FieldFillingTable, EntriesStandBehindTheirDice) {
    struct Case {
        int Filling;
        std::map<int, const char*> Entries;  // the others pay 0
        const char* Others;
    };
    const Case cases[] = {
        {Pass,
         {{3, "-1 to 3"},
          {4, "-1 to 3"},
          {5, "-1 to 5"},
          {7, "-1 to 11"},
          {9, "-1 to 11"},
          {11, "1 to 1"},
          {14, "-1 to 11"},
          {17, "-1 to 5"},
          {19, "-1 to 3"},
          {20, "1 to 1"},
          {21, "-1 to 1"},
          {1, "-1 to 1"}},
         nullptr},
        {DontPass,
         {{1, "1 to 1"}, {2, "1 to 1"}, {4, "1 to 3"}, {10, "-1 to 1"}, {20, "-1 to 1"}, {21, "0 to 1"}},
         nullptr},
        {Hard8,
         {{10, "-1 to 1"}, {11, "-1 to 1"}, {12, "-1 to 1"}, {13, "-1 to 1"}, {14, "-1 to 1"}, {15, "9 to 1"}},
         "0 to 1"},
        {World,
         {{1, "26 to 5"},
          {2, "11 to 5"},
          {10, "0 to 1"},
          {11, "0 to 1"},
          {12, "0 to 1"},
          {20, "11 to 5"},
          {21, "26 to 5"}},
         "-1 to 1"},
        {Hop13, {{3, "15 to 1"}}, "-1 to 1"},
        {Midway,
         {{7, "1 to 1"},
          {8, "1 to 1"},
          {9, "2 to 1"},
          {10, "1 to 1"},
          {11, "1 to 1"},
          {12, "1 to 1"},
          {13, "1 to 1"},
          {14, "1 to 1"},
          {15, "2 to 1"}},
         "-1 to 1"},
        {Crapless, {{1, "-5 to 7"}, {2, "-1 to 2"}, {10, "1 to 1"}, {20, "-1 to 2"}, {21, "-5 to 7"}}, nullptr},
    };
    for (const Case& c : cases) {
        const auto payoffs = FieldFilling(c.Filling);
        for (int i = 1; i <= 21; ++i) {
            const auto named = c.Entries.find(i);
            const char* wanted = named != c.Entries.end() ? named->second : c.Others;
            if (wanted != nullptr) {
                EXPECT_EQ(PayoffText(payoffs[static_cast<std::size_t>(i)]), wanted)
                    << FieldFillingCaption(c.Filling) << " entry " << i;
            }
        }
    }
}

// Every filling is one that the list of payoffs lets stand, with units in whole checks.
TEST_F(FieldFillingTable, StandOnTheTable) {
    for (int filling = 0; filling < FieldFillings; ++filling) {
        t.GameChanged = false;
        t.FieldPayoff[1] = {{}, Dollars(77), ForWord, Dollars(3)};
        ASSERT_TRUE(FillFieldPayoffs(t, filling));
        EXPECT_EQ(PayoffFault(t).Text, "") << filling;
        EXPECT_TRUE(t.GameChanged);
        EXPECT_EQ(t.FieldPayoff[1].ToForm, ToWord);
    }
    FillFieldPayoffs(t, Lay4);
    EXPECT_EQ(t.FieldPayoff[11].Unit, Dollars(40));
    FillFieldPayoffs(t, TwoTwelve);
    Table standard;
    SetDefaultSettings(standard);
    EXPECT_EQ(t.FieldPayoff, standard.FieldPayoff);
}

}  // namespace
}  // namespace tarnwick
