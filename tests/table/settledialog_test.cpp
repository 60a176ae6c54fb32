#include "table/settledialog.h"

#include <gmock/gmock.h>

#include <memory>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

constexpr int Ann = 2;
constexpr int Place6 = Row::Place4 + 2;
constexpr bool MustTakeDown = true;

constexpr PayoffEntry To(std::int64_t pays, std::int64_t bet) { return {{}, Dollars(pays), Dollars(-1), Dollars(bet)}; }

struct SettleDialogTest : testing::Test {
    SettleDialogTest() {
        t.PlayerName[Ann] = "Ann";
        for (PayoffEntry& payoff : t.Payoff) payoff = To(1, 1);
        t.Payoff[Place6] = To(7, 6);
    }

    std::vector<std::string> Lines(const DecidedBet& bet) const {
        std::vector<std::string> lines;
        for (const auto& line : DescribeSettlement(t, bet).Lines) lines.push_back(line.Left + "|" + line.Right);
        return lines;
    }
    std::vector<std::string> Choices(const DecidedBet& bet) const {
        std::vector<std::string> choices;
        for (const auto& choice : DescribeSettlement(t, bet).Choices) {
            choices.push_back(std::to_string(choice.Code) + " " + choice.Caption);
        }
        return choices;
    }

    std::unique_ptr<Table> Game = std::make_unique<Table>();
    Table& t = *Game;
};

struct LinesCase {
    const char* What;
    int Row;
    currency Bet;
    SettleKind Kind;
    PayoffEntry Payoff;
    currency Gross, Net;
    std::vector<std::string> Lines;
};

TEST_F(SettleDialogTest, LinesOfWinnersAndPushes) {
    t.PointsMadeCount = 4;
    const PayoffEntry tenForOne = {{}, Dollars(9), {}, Dollars(1)};
    const LinesCase cases[] = {
        {"exact",
         Place6,
         Dollars(1200),
         SettleKind::Winner,
         To(7, 6),
         Dollars(1400),
         Dollars(1400),
         {"Ann wins!|", "Place 6 bet:|$1,200", "Payoff at 7 to 6:|$1,400"}},
        {"rounded",
         Place6,
         Dollars(7),
         SettleKind::Winner,
         To(7, 6),
         {81'667},
         Dollars(8),
         {"Ann wins!|", "Place 6 bet:|$7", "Payoff at 7 to 6:|$8.1667", "Net payoff (rounded): |$8"}},
        {"a push",
         Row::Field,
         {9'000},
         SettleKind::Winner,
         To(1, 1),
         {9'000},
         {},
         {"Ann pushes|", "Field bet:|$.90", "Payoff at 1 to 1:|$.90", "Net payoff (rounded): |$0"}},
        {"the other form",
         Row::Hard8,
         Dollars(5),
         SettleKind::Winner,
         tenForOne,
         Dollars(45),
         Dollars(45),
         {"Ann wins!|", "Hard 8 bet:|$5", "Payoff at 10 for 1:|$45"}},
        {"Fire",
         Row::Fire,
         Dollars(5),
         SettleKind::Winner,
         To(24, 1),
         Dollars(120),
         Dollars(120),
         {"Ann wins!|", "Fire bet (4 points made):|$5", "Payoff at 24 to 1:|$120"}},
        {"C and E on 11",
         Row::CandE,
         Dollars(10),
         SettleKind::Winner,
         To(15, 1),
         Dollars(70),
         Dollars(70),
         {"Ann wins!|", "C and E bet:|$10", "1/2 of bet:|$5", "Payoff at 15 to 1:|$75", "Less 1/2 of bet:|$-5",
          "Net payoff: |$70"}},
        {"Horn on 2",
         Row::Horn,
         Dollars(5),
         SettleKind::Winner,
         To(30, 1),
         {337'500},
         Dollars(33),
         {"Ann wins!|", "Horn bet:|$5", "1/4 of bet:|$1.25", "Payoff at 30 to 1:|$37.50", "Less 3/4 of bet:|$-3.75",
          "Net payoff (rounded): |$33"}},
        {"World on 7",
         Row::World,
         Dollars(5),
         SettleKind::Winner,
         To(4, 1),
         {},
         {},
         {"Ann pushes|", "World bet:|$5", "1/5 of bet:|$1", "Payoff at 4 to 1:|$4", "Less 4/5 of bet:|$-4",
          "Net payoff: |$0"}},
    };
    for (const LinesCase& c : cases) {
        SCOPED_TRACE(c.What);
        SetBetAmount(t, Ann, c.Row, c.Bet);
        EXPECT_THAT(Lines({Ann, c.Row, c.Kind, {c.Payoff, c.Gross, c.Net}, false}), ElementsAreArray(c.Lines));
    }
}

TEST_F(SettleDialogTest, LinesOfLosersAndReturnedBets) {
    t.PointsMadeCount = 1;
    const PayoffEntry half = {{}, {-5'000}, Dollars(-1), Dollars(1)};
    const PayoffEntry halfBack = {{}, Dollars(-1), {}, Dollars(2)};
    const LinesCase cases[] = {
        {"the whole bet",
         Row::Field,
         Dollars(10),
         SettleKind::Loser,
         To(-1, 1),
         Dollars(-10),
         Dollars(-10),
         {"Ann lost|", "Field bet:|$10", "Net loss: |$10"}},
        {"rounded away from zero",
         Row::Hard4,
         Dollars(7),
         SettleKind::Loser,
         To(-1, 1),
         Dollars(-7),
         Dollars(-10),
         {"Ann lost|", "Hard 4 bet:|$7", "Net loss (rounded): |$10"}},
        {"a part",
         Row::Fire,
         Dollars(5),
         SettleKind::Loser,
         half,
         {-25'000},
         Dollars(-3),
         {"Ann lost|", "Fire bet (1 point made):|$5", "Loss at 0.5 to 1:|$2.50", "Net loss (rounded): |$3",
          "Remainder: |$2"}},
        {"a part, in the other form",
         Row::Field,
         Dollars(10),
         SettleKind::Loser,
         halfBack,
         Dollars(-5),
         Dollars(-5),
         {"Ann lost|", "Field bet:|$10", "Loss at 1 for 2:|$5", "Net loss: |$5", "Remainder: |$5"}},
        {"odds that come back",
         Row::Come4Odds,
         Dollars(20),
         SettleKind::Returned,
         {},
         {},
         {},
         {"Come 4 Odds bet:|$20", "wasn't working!|"}},
    };
    for (const LinesCase& c : cases) {
        SCOPED_TRACE(c.What);
        SetBetAmount(t, Ann, c.Row, c.Bet);
        EXPECT_THAT(Lines({Ann, c.Row, c.Kind, {c.Payoff, c.Gross, c.Net}, false}), ElementsAreArray(c.Lines));
    }
}

TEST_F(SettleDialogTest, VigIsShownWhereTheResultHoldsIt) {
    struct Case {
        const char* What;
        int Row, Bet, Vig;
        bool UpFront;
        SettleKind Kind;
        PayoffEntry Payoff;
        int Gross, Net;
        std::vector<std::string> Lines;
    };
    const Case cases[] = {
        {"Buy, up front",
         Row::Buy4,
         20,
         1,
         true,
         SettleKind::Winner,
         To(2, 1),
         39,
         39,
         {"Ann wins!|", "Buy 4 bet:|$20", "Payoff at 2 to 1:|$40", "5% vig:|$-1", "Net payoff: |$39"}},
        {"Buy, on wins only",
         Row::Buy4,
         20,
         1,
         false,
         SettleKind::Winner,
         To(2, 1),
         39,
         35,
         {"Ann wins!|", "Buy 4 bet:|$20", "Payoff at 2 to 1:|$40", "5% vig:|$-1", "Net payoff (rounded): |$35"}},
        {"Buy without a vig",
         Row::Buy10,
         20,
         0,
         true,
         SettleKind::Winner,
         To(2, 1),
         40,
         40,
         {"Ann wins!|", "Buy 10 bet:|$20", "Payoff at 2 to 1:|$40"}},
        {"Lay",
         Row::Lay10,
         40,
         1,
         false,
         SettleKind::Winner,
         To(1, 2),
         19,
         19,
         {"Ann wins!|", "Lay 10 bet:|$40", "Payoff at 1 to 2:|$20", "4.75% vig:|$-1", "Net payoff: |$19"}},
        {"Buy lost, up front",
         Row::Buy4,
         20,
         1,
         true,
         SettleKind::Loser,
         To(-1, 1),
         -21,
         -21,
         {"Ann lost|", "Buy 4 bet:|$20", "5% vig:|$-1", "Net loss: |$21"}},
        {"Buy lost, on wins only",
         Row::Buy4,
         20,
         1,
         false,
         SettleKind::Loser,
         To(-1, 1),
         -20,
         -20,
         {"Ann lost|", "Buy 4 bet:|$20", "Net loss: |$20"}},
        {"Lay lost, up front",
         Row::Lay4,
         40,
         1,
         true,
         SettleKind::Loser,
         To(-1, 1),
         -41,
         -41,
         {"Ann lost|", "Lay 4 bet:|$40", "4.75% vig:|$-1", "Net loss: |$41"}},
        {"Lay lost, on wins only",
         Row::Lay4,
         40,
         1,
         false,
         SettleKind::Loser,
         To(-1, 1),
         -40,
         -40,
         {"Ann lost|", "Lay 4 bet:|$40", "Net loss: |$40"}},
    };
    t.BuyVigRate = {500};
    t.LayVigRate = {475};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.What);
        t.BuyVigOnAllBets = t.LayVigOnAllBets = c.UpFront;
        t.BuyVigCharged[Ann].fill(Dollars(c.Vig));
        t.LayVigCharged[Ann].fill(Dollars(c.Vig));
        SetBetAmount(t, Ann, c.Row, Dollars(c.Bet));
        const Settlement result = {c.Payoff, Dollars(c.Gross), Dollars(c.Net)};
        EXPECT_THAT(Lines({Ann, c.Row, c.Kind, result, false}), ElementsAreArray(c.Lines));
    }
}

TEST_F(SettleDialogTest, ChoicesOfAWinner) {
    SetBetAmount(t, Ann, Place6, Dollars(12));
    t.HandleOperator[Ann] = {1, 3, 2, 0, 3, 3, 3, 3};
    t.HandleAmount[Ann] = {Dollars(1500), {25'000}, Dollars(3), Dollars(4), Dollars(9), Dollars(9), Dollars(9)};
    t.HandleUnit[Ann] = {0, 4, 1, 2, 0, 0, 0, 0};
    DecidedBet bet{Ann, Place6, SettleKind::Winner, {To(7, 6), Dollars(14), Dollars(14)}, false};
    EXPECT_THAT(Choices(bet),
                ElementsAre("1 &Take Bet and Winnings", "2 &Same Bet - Take Winnings",
                            "3 Press &1 Unit - Add $6 to Bet", "4 Press - Add Winnings to &Double Bet",
                            "5 Parlay - Add &All Winnings to Bet", "6 Sa&me Bet: - $1,500", "7 &Bet: 2.50 $25 Units"));
    const SettleQuestion question = DescribeSettlement(t, bet);
    EXPECT_TRUE(question.Winner);
    EXPECT_EQ(question.Position, Ann);
    EXPECT_EQ(question.BetRow, Place6);

    bet.MustTakeDown = MustTakeDown;
    EXPECT_THAT(Choices(bet), ElementsAre("1 &Take Bet and Winnings"));
}

TEST_F(SettleDialogTest, ChoicesOfALoser) {
    SetBetAmount(t, Ann, Row::Field, Dollars(10));
    t.HandleOperator[Ann] = {1, 3, 2, 0};
    t.HandleAmount[Ann] = {Dollars(8), Dollars(8), Dollars(3), Dollars(4)};
    t.HandleUnit[Ann] = {0, 0, 1, 2};
    DecidedBet bet{Ann, Row::Field, SettleKind::Loser, {To(-1, 1), Dollars(-10), Dollars(-10)}, false};
    EXPECT_THAT(Choices(bet), ElementsAre("1 &No Bet", "2 &Same Bet", "4 Press &1 Unit - Add $1 to Bet",
                                          "5 &Double Bet", "6 Sa&me Bet: x 3%", "7 &Bet: 4 $1 Units"));
    EXPECT_FALSE(DescribeSettlement(t, bet).Winner);

    bet.Result.NetResult = Dollars(-9);
    EXPECT_THAT(Choices(bet)[2], "3 Bet &Remainder");
    bet.MustTakeDown = MustTakeDown;
    EXPECT_THAT(Choices(bet), ElementsAre("1 &No Bet"));
}

TEST_F(SettleDialogTest, ChoicesOfAReturnedBet) {
    SetBetAmount(t, Ann, Row::Come10Odds, Dollars(20));
    DecidedBet bet{Ann, Row::Come10Odds, SettleKind::Returned, {}, false};
    t.BetStreak(Ann, Row::Come10Odds) = 2;
    EXPECT_THAT(Choices(bet),
                ElementsAre("1 &Take Returned Bet", "2 &Same Bet", "3 Press &1 Unit - Add $1 to Bet",
                            "4 Press - &Double Bet", "5 Take M&ax Odds", "6 Sa&me Bet: + $0", "7 &Bet: $0"));
    t.BetStreak(Ann, Row::Come10Odds) = 1;
    EXPECT_EQ(Choices(bet)[0], "1 &No Bet/Take Back");
    bet.MustTakeDown = MustTakeDown;
    EXPECT_THAT(Choices(bet), ElementsAre("1 &No Bet/Take Back"));
}

TEST_F(SettleDialogTest, PressUnitIsASmallestCheckForEachOfTheRowsFor) {
    t.Payoff[Row::Come4 + 2] = To(4, 3);
    t.Payoff[Row::Come] = To(2, 2);  // as it stands, not in lowest terms
    t.Payoff[Row::CandE] = To(1, 2);
    struct Case {
        int Row, Check, Point, Unit;
    };
    const Case cases[] = {{Place6, 1, 0, 6},        {Place6, 5, 0, 30},        {Row::CandE, 1, 0, 2},
                          {Row::Field, 25, 0, 25},  {Row::PassLine, 1, 0, 2},  {Row::PassLine, 1, 6, 3},
                          {Row::DontPass, 5, 6, 5}, {Row::Come4 + 2, 5, 8, 15}};
    for (const Case& c : cases) {
        t.CheckDenominations[1] = Dollars(c.Check);
        t.Point = c.Point;
        EXPECT_EQ(PressUnit(t, c.Row), Dollars(c.Unit)) << BetName(c.Row) << ' ' << c.Check << ' ' << c.Point;
    }
}

TEST_F(SettleDialogTest, OperatorsAndUnitsStepThroughTheirRounds) {
    std::vector<std::string> operators, units;
    int op = 3, unit = 6;
    for (int i = 0; i < 4; ++i) operators.push_back(OperatorText(op = NextOperator(op)));
    for (int i = 0; i < 7; ++i) units.push_back(UnitText(t, unit = NextUnit(unit)));
    EXPECT_THAT(operators, ElementsAre("+", "-", "x", "/"));
    EXPECT_THAT(units, ElementsAre("$", "%", "$1 Units", "$5 Units", "$25 Units", "$100 Units", "$500 Units"));
}

}  // namespace
}  // namespace tarnwick
