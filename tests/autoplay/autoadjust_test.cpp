#include <gmock/gmock.h>

#include <limits>
#include <memory>
#include <string>

#include "autoplay/autoplay.h"
#include "table/placement.h"
#include "table/screen.h"

namespace tarnwick {
namespace {

constexpr int Ann = 3;
constexpr int Lay5 = Row::Lay4 + 1, Dont8 = Row::DontCome4 + 3, Dont4Odds = Row::DontCome4Odds;
constexpr int Come6 = Row::Come4 + 2, Come5Odds = Row::Come4Odds + 1;
constexpr int Place5 = Row::Place4 + 1, Place6 = Row::Place4 + 2;

/// A table whose payoffs are no more than their units: the smallest bets that pay whole checks of $1.
struct AutoAdjustTest : testing::Test {
    AutoAdjustTest() {
        t.PlayerName[Ann] = "Ann";
        for (PayoffEntry& payoff : t.Payoff) payoff.Unit = Dollars(1);
        SetUnits(Row::Place4, {5, 5, 6, 6, 5, 5});
        SetUnits(Row::Come4Odds, {1, 2, 5, 5, 2, 1});
        SetUnits(Row::DontCome4Odds, {2, 3, 6, 6, 3, 2});
        SetUnits(Row::Lay4, {2, 3, 6, 6, 3, 2});
    }

    void SetUnits(int firstRow, std::initializer_list<int> dollars) {
        auto row = static_cast<std::size_t>(firstRow);
        for (const int unit : dollars) t.Payoff[row++].Unit = Dollars(unit);
    }

    std::unique_ptr<Table> Game = std::make_unique<Table>();
    Table& t = *Game;
};

enum Bias : int { Nearest = 0, Increase = 1, Decrease = 2 };
constexpr int Minor = 1, Color = 2;

struct AdjustCase {
    const char* What;
    int Row, Mode;
    int Bias;
    int Bet, Request;  // dollars, as are the results and limits
    int Change;
    int Point = 0;
    int Established = 0;
    int Min = 1, Max = 1000;
};

void ExpectChanges(Table& t, std::initializer_list<AdjustCase> cases) {
    for (const AdjustCase& c : cases) {
        SCOPED_TRACE(c.What);
        t.Point = c.Point;
        t.AutoAdjustMode[Ann] = c.Mode;
        t.LayBias[Ann] = t.PlaceBias[Ann] = t.DoBias[Ann] = t.DontBias[Ann] = c.Bias;
        SetBetAmount(t, Ann, c.Row, Dollars(c.Bet));
        t.EstablishedBet(Ann, c.Row) = Dollars(c.Established);
        AdjustRequest request{Dollars(c.Request), Dollars(c.Min), Dollars(c.Max), nullptr};
        AutoAdjustBet(t, Ann, c.Row, request);
        EXPECT_EQ(ToDouble(request.Delta), c.Change);
        EXPECT_EQ(t.BetAmount(Ann, c.Row), Dollars(c.Bet)) << "the bet itself stays";
        t.EstablishedBet(Ann, c.Row) = {};
    }
}

TEST_F(AutoAdjustTest, BiasesOfAPlace6InItsUnitOf6) {
    ExpectChanges(t, {
                         {"nearest of 6 and 12", Place6, Minor, Nearest, 0, 10, 12},
                         {"up", Place6, Minor, Increase, 0, 10, 12},
                         {"down", Place6, Minor, Decrease, 0, 10, 6},
                         {"nearest below", Place6, Minor, Nearest, 0, 8, 6},
                         {"a tie goes up", Place6, Minor, Nearest, 0, 9, 12},
                         {"whole already", Place6, Minor, Increase, 0, 18, 18},
                         {"manual", Place6, 0, Nearest, 0, 10, 10},
                         {"a decrease grows", Place6, Minor, Increase, 18, -4, -6},
                         {"a decrease shrinks", Place6, Minor, Decrease, 18, -8, -6},
                         {"a decrease can't shrink to nothing", Place6, Minor, Decrease, 12, -4, -6},
                         {"an increase can't shrink to nothing", Place6, Minor, Decrease, 0, 4, 6},
                         {"nor behind a bet that stands", Place6, Minor, Decrease, 12, 4, 6},
                         {"an increase shrinks", Place6, Minor, Decrease, 12, 10, 6},
                         {"the whole bet comes off untouched", Place6, Minor, Increase, 7, -7, -7},
                         {"nothing asked, nearest above", Place6, Minor, Nearest, 10, 0, 2},
                         {"nothing asked, nearest below", Place6, Minor, Nearest, 8, 0, -2},
                         {"nothing asked, up", Place6, Minor, Increase, 8, 0, 4},
                         {"nothing asked, down", Place6, Minor, Decrease, 10, 0, -4},
                         {"nothing asked of no bet", Place6, Minor, Increase, 0, 0, 0},
                     });
}

TEST_F(AutoAdjustTest, NearestPrefersThePlayersOwnStepsAndAlwaysLeavesAChange) {
    ExpectChanges(t, {
                         {"steps of 8 to 24, not 18", Place6, Minor, Nearest, 12, 8, 12},
                         {"steps of 8 to 24, not 30", Place6, Minor, Nearest, 20, 8, 4},
                         {"an increase of at least a unit", Place5, Minor, Nearest, 10, 2, 5},
                         {"a decrease of at least a unit", Place5, Minor, Nearest, 20, -2, -5},
                     });
}

TEST_F(AutoAdjustTest, LineBetsTakeTheUnitOfTheirPoint) {
    ExpectChanges(t, {
                         {"lay up", Lay5, Minor, Increase, 0, 31, 33},
                         {"lay down", Lay5, Minor, Decrease, 0, 32, 30},
                         {"Come odds up", Come5Odds, Minor, Increase, 0, 5, 6, 8},
                         {"Come odds down", Come5Odds, Minor, Decrease, 0, 5, 4, 8},
                         {"Don't Come odds up", Dont4Odds, Minor, Increase, 0, 5, 6, 8},
                         {"Don't Come odds down", Dont4Odds, Minor, Decrease, 0, 5, 4, 8},
                         {"line odds on 6", Row::PassLineOdds, Minor, Nearest, 0, 13, 15, 6},
                         {"line odds on 9", Row::PassLineOdds, Minor, Decrease, 0, 13, 12, 9},
                         {"Don't Pass odds on 8", Row::DontPassOdds, Minor, Decrease, 0, 13, 12, 8},
                         {"Don't Pass odds on 10", Row::DontPassOdds, Minor, Increase, 0, 13, 14, 10},
                     });
    SetUnits(Row::DontCome4, {2, 3, 4, 5, 6, 7});
    SetUnits(Row::Come4, {12, 13, 14, 15, 16, 17});
    SetUnits(Row::PassLine, {91, 92, 21, 93, 94, 22});  // 45 and 48: the boxes
    struct Case {
        int Point, Pass, DontPass;
    };
    for (const Case& c : {Case{0, 21, 22}, {4, 12, 2}, {6, 14, 4}, {8, 15, 5}, {10, 17, 7}}) {
        t.Point = c.Point;
        EXPECT_EQ(AdjustUnit(t, Row::PassLine), Dollars(c.Pass)) << c.Point;
        EXPECT_EQ(AdjustUnit(t, Row::DontPass), Dollars(c.DontPass)) << c.Point;
    }
}

TEST_F(AutoAdjustTest, ColorCorrection) {
    ExpectChanges(
        t, {
               {"greens: 150", Place6, Color, Nearest, 0, 200, 150},
               {"greens up", Place6, Color, Increase, 0, 200, 300},
               {"reds: 30", Place6, Color, Nearest, 0, 70, 60},
               {"too small for any color", Place6, Color, Nearest, 0, 25, 24},
               {"just large enough for reds", Place6, Color, Nearest, 7, 30, 53},
               {"ones make no color", Place6, Color, Nearest, 0, 203, 204},
               {"purples: 3000", Place6, Color, Nearest, 0, 4000, 3000, 0, 0, 1, 5000},
               {"nothing asked: the bet's own size counts", Place6, Color, Nearest, 200, 0, -50, 0, 0, 1, 200},
               {"a small change keeps the small unit", Place6, Color, Nearest, 200, 10, 10},
               {"even money in reds", Row::Field, Color, Nearest, 4, 25, 21, 0, 0, 1, 27},
               {"odds at the maximum keep the small unit", Row::PassLineOdds, Color, Nearest, 0, 30, 30, 6, 0, 1, 30},
               {"odds below the maximum", Row::PassLineOdds, Color, Nearest, 0, 30, 25, 6, 0, 1, 40},
               {"Don't Come odds at the maximum", Dont4Odds, Color, Nearest, 0, 25, 24, 6, 0, 1, 25},
               {"a Place bet at its maximum", Place6, Color, Nearest, 0, 40, 30, 0, 0, 1, 40},
           });
}

TEST_F(AutoAdjustTest, Limits) {
    ExpectChanges(t, {
                         {"high is too much", Place6, Minor, Increase, 0, 10, 6, 0, 0, 1, 10},
                         {"low is too little", Place6, Minor, Decrease, 0, 10, 12, 0, 0, 10},
                         {"a decrease below the minimum", Place6, Minor, Nearest, 12, -3, -12, 0, 0, 8},
                         {"a decrease above it", Place6, Minor, Decrease, 18, -4, -6, 0, 0, 8},
                         {"nothing fits an increase", Place6, Minor, Nearest, 0, 10, 11, 0, 0, 8, 11},
                         {"nothing fits above what stands", Place6, Minor, Nearest, 9, 1, 0, 0, 0, 7, 8},
                         {"nothing fits a decrease", Place6, Minor, Nearest, 10, -1, -10, 0, 0, 8, 11},
                         {"no color fits, the small unit does", Place6, Color, Nearest, 0, 50, 48, 0, 0, 35, 55},
                         {"nor does the small unit", Place6, Color, Nearest, 0, 50, 52, 0, 0, 49, 52},
                         {"a maximum below the minimum", Row::Fire, Minor, Nearest, 0, 5, 5, 0, 0, 10, 5},
                     });
}

TEST_F(AutoAdjustTest, WhatTheDiceHaveEstablished) {
    ExpectChanges(t, {
                         {"Pass Line keeps its contract", Row::PassLine, Color, Nearest, 23, -10, -8, 6, 11},
                         {"without one", Row::PassLine, Color, Nearest, 23, -10, -13, 6, 0},
                         {"Come keeps its contract", Come6, Color, Nearest, 23, -10, -8, 6, 11},
                         {"Come without one", Come6, Color, Nearest, 23, -10, -13, 6, 0},
                         {"a contract that no color fits", Come6, Color, Nearest, 7, 0, 0, 6, 7, 1, 9},
                         {"7 Point 7 keeps its contract", Row::SevenPoint7, Color, Nearest, 7, 0, 0, 6, 7},
                         {"7 Point 7 on a come-out", Row::SevenPoint7, Color, Nearest, 7, 0, -2, 0, 7},
                         {"Don't Pass isn't raised", Row::DontPass, Color, Nearest, 3, 5, 2, 6, 8},
                         {"a new Don't Pass", Row::DontPass, Color, Nearest, 3, 5, 7, 0, 0},
                         {"Don't Come isn't raised", Dont8, Color, Nearest, 3, 5, 2, 6, 8},
                     });
}

TEST_F(AutoAdjustTest, EachBiasGovernsItsOwnRowsOnly) {
    using BiasList = std::array<std::int32_t, Positions> Settings::*;
    struct Case {
        int Row;
        BiasList Bias;
    };
    const Case cases[] = {{Row::Lay4, &Settings::LayBias},
                          {Row::Lay10, &Settings::LayBias},
                          {Row::Place4, &Settings::PlaceBias},
                          {Row::Place10, &Settings::PlaceBias},
                          {Row::PassLineOdds, &Settings::DoBias},
                          {Row::Come4Odds, &Settings::DoBias},
                          {Row::Come10Odds, &Settings::DoBias},
                          {Row::DontPassOdds, &Settings::DontBias},
                          {Row::DontCome4Odds, &Settings::DontBias},
                          {Row::DontCome10Odds, &Settings::DontBias},
                          {Row::Buy4, nullptr},
                          {Row::Field, nullptr},
                          {Row::Fire, nullptr},
                          {Row::PassLine, nullptr}};
    t.AutoAdjustMode[Ann] = Minor;
    for (PayoffEntry& payoff : t.Payoff) payoff.Unit = Dollars(10);
    for (const Case& c : cases) {
        for (const BiasList bias : {&Settings::LayBias, &Settings::PlaceBias, &Settings::DoBias, &Settings::DontBias}) {
            (t.*bias)[Ann] = Increase;
            AdjustRequest request{Dollars(11), Dollars(1), Dollars(1000), nullptr};
            AutoAdjustBet(t, Ann, c.Row, request);
            EXPECT_EQ(request.Delta, bias == c.Bias ? Dollars(20) : Dollars(10)) << BetName(c.Row);
            (t.*bias)[Ann] = Nearest;
        }
    }
}

TEST_F(AutoAdjustTest, CentsAreExact) {
    t.CheckDenominations = {currency{}, {1'000}, {5'000}, Dollars(1), Dollars(5), Dollars(25)};
    t.Payoff[Place6].Unit = {6'000};
    t.AutoAdjustMode[Ann] = Minor;
    SetBetAmount(t, Ann, Place6, {12'000});
    AdjustRequest request{{6'000}, {1'000}, Dollars(100), nullptr};
    AutoAdjustBet(t, Ann, Place6, request);
    EXPECT_EQ(request.Delta, currency{6'000});

    t.AutoAdjustMode[Ann] = Color;  // halves on a unit of .60 make 3.00
    SetBetAmount(t, Ann, Place6, {});
    request.Delta = {35'000};
    AutoAdjustBet(t, Ann, Place6, request);
    EXPECT_EQ(request.Delta, Dollars(3));
}

TEST_F(AutoAdjustTest, UnitsBeyondAnyBetFallBackOnTheMaximum) {
    t.Payoff[Place6].Unit = {std::numeric_limits<std::int64_t>::max()};
    for (const int mode : {Minor, Color}) {
        t.AutoAdjustMode[Ann] = mode;
        AdjustRequest request{Dollars(50), Dollars(1), Dollars(1000), nullptr};
        AutoAdjustBet(t, Ann, Place6, request);
        EXPECT_EQ(request.Delta, Dollars(1000));
    }
}

TEST_F(AutoAdjustTest, MessagesFollowTheRulesOwn) {
    struct Case {
        const char* What;
        int Bet, Request, Min, Max;
        const char *Before, *After;
    };
    const Case cases[] = {
        {"nothing to say", 0, 10, 1, 1000, "", ""},
        {"the maximum cuts", 0, 10, 1, 10, "", "Maximum bet for proper odds payoff is: $6"},
        {"behind the rules' words", 0, 10, 1, 11, "The mAximum Place 6 bet is $11",
         "The mAximum Place 6 bet is $11\n\nMaximum bet for proper odds payoff is: $6"},
        {"a maximum that fits", 0, 1200, 1, 1300, "maximum",
         "maximum\n\nMaximum bet for proper odds payoff is: $1,200"},
        {"minimum", 0, 10, 10, 1000, "The minimum Place 6 bet is $10",
         "The minimum Place 6 bet is $10\n\nMinimum bet for proper odds payoff is: $12"},
        {"both words", 0, 12, 10, 12, "maximum, minimum",
         "maximum, minimum\n\nMaximum bet for proper odds payoff is: $12\n\nMinimum bet for proper odds payoff is: "
         "$12"},
        {"minimum, but the bet comes off", 12, -3, 8, 1000, "minimum", "minimum"},
        {"nothing fits", 0, 10, 8, 11, "", "Unable to auto-adjust bet for proper odds payoff."},
        {"nothing fits, behind words", 0, 10, 8, 11, "The maximum",
         "The maximum\n\nUnable to auto-adjust bet for proper odds payoff."},
        {"nothing fits a decrease", 10, -1, 8, 11, "The minimum", ""},
        {"untouched", 7, -7, 8, 11, "The maximum", "The maximum"},
    };
    t.AutoAdjustMode[Ann] = Minor;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.What);
        SetBetAmount(t, Ann, Place6, Dollars(c.Bet));
        std::string text = c.Before;
        AdjustRequest request{Dollars(c.Request), Dollars(c.Min), Dollars(c.Max), &text};
        AutoAdjustBet(t, Ann, Place6, request);
        EXPECT_EQ(text, c.After);
    }
}

}  // namespace
}  // namespace tarnwick
