// Figures of bets and of the bankroll graph.

#include "stats/betfigures.h"

#include <gmock/gmock.h>

#include "stats/graphfigures.h"
#include "support/table_fixture.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;

constexpr SeatMask Ann = 1u << 1, Bob = 1u << 3, Both = Ann | Bob;

std::vector<std::string> Texts(const BetResultsRow& row) {
    return {row.Number.Text,  row.Amount.Text,     row.High.Text,      row.Low.Text,
            row.Average.Text, row.LastNumber.Text, row.LastAmount.Text};
}

struct BetFigureTests : TableTest {
    BetFigureTests() {
        for (const auto& [p, name] : {std::pair{1, "Ann"}, {3, "Bob"}}) t.PlayerName[At(p)] = name;
    }
    void TallyOne() { TallyRoll(t); }
    void Decide(int p, int row, currency wager, currency net) { RecordBetResult(t, p, row, wager, net); }
};

TEST_F(BetFigureTests, Results) {
    TallyOne();
    Decide(1, Row::PassLine, Dollars(10), Dollars(10));
    Decide(1, Row::Field, Dollars(5), Dollars(-5));
    TallyOne();
    Decide(1, Row::PassLine, Dollars(1500), Dollars(-1500));
    Decide(3, Row::PassLine, Dollars(7), {70'000});
    Decide(3, Row::Field, Dollars(2), {25'000});
    BetSelection passLine, field;
    passLine.set(Row::PassLine);
    field.set(Row::Field);
    SetBetAmount(t, 1, Row::PassLine, Dollars(20));
    SetBetAmount(t, 3, Row::PassLine, Dollars(30));
    SetBetAmount(t, 3, Row::Field, Dollars(1));
    struct {
        const char* Name;
        SeatMask Players;
        BetSelection Bets;
        bool Separators;
        std::array<std::vector<std::string>, 5> Rows;
        const char *CurrentNumber, *CurrentAmount;
    } const cases[] = {
        {"Ann's line",
         Ann,
         passLine,
         true,
         {{{"2", "1,510", "1,500", "10", "755", "1", "1,500"},
           {"1", "10", "10", "10", "10", "0", "0"},
           {"1", "1,500", "1,500", "1,500", "1,500", "1", "1,500"},
           {"0", "-1,490", "-1,490", "-1,490", "-1,490", "-1", "-1,500"},
           {"0", "-98.68", "-99.33", "-14,900.00", "-197.35", "-100.00", "-100.00"}}},
         "1",
         "20"},
        {"both, all bets",
         Both,
         AllBets(),
         false,
         {{{"5", "1524", "1500", "2", "304.80", "3", "1509"},
           {"3", "19.50", "10", "2.50", "6.50", "2", "9.50"},
           {"2", "1505", "1500", "5", "752.50", "1", "1500"},
           {"1", "-1485.50", "-1490", "-2.50", "-746", "1", "-1490.50"},
           {"20.00", "-97.47", "-99.33", "-125.00", "-244.75", "33.33", "-98.77"}}},
         "3",
         "51"},
        {"nobody", 0, AllBets(), true, {}, "0", "0"},
        {"no bets", Both, {}, true, {}, "0", "0"},
        {"a bet nobody made", Both, BetSelection().set(Row::Horn), true, {}, "0", "0"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        const BetResultsFigures f = FiguresOfBetResults(t, Scope::Session, c.Players, c.Bets, c.Separators);
        for (std::size_t i = 0; i < 5; ++i) {
            EXPECT_EQ(Texts(f.Rows[i]), c.Rows[i].empty() ? std::vector<std::string>(7, "0") : c.Rows[i]) << i;
        }
        EXPECT_EQ(f.CurrentNumber.Text, c.CurrentNumber);
        EXPECT_EQ(f.CurrentAmount.Text, c.CurrentAmount);
    }
    EXPECT_EQ(Texts(FiguresOfBetResults(t, Scope::LastSession, Both, AllBets(), true).Rows[0]),
              std::vector<std::string>(7, "0"));
    TallyOne();
    const BetResultsFigures later = FiguresOfBetResults(t, Scope::Session, Both, field, true);
    EXPECT_EQ(later.Rows[0].LastNumber.Text, "0") << "nothing was decided by the last roll";
    EXPECT_EQ(later.Rows[0].Number.Text, "2");
}

TEST_F(BetFigureTests, CaptionsOfBets) {
    BetSelection bets;
    EXPECT_EQ(BetsCaption(bets), "No bets selected");
    bets.set(0);
    EXPECT_EQ(BetsCaption(bets), "No bets selected");
    bets.set(91);
    EXPECT_EQ(BetsCaption(bets), "1 bet selected");
    bets.set(1);
    EXPECT_EQ(BetsCaption(bets), "2 bets selected");
    EXPECT_EQ(BetsCaption(AllBets()), "All bets selected");
}

TEST_F(BetFigureTests, TrendsFollowWinsAndLosses) {
    t.PlayerName[1].clear();
    t.PlayerName[3].clear();
    Seat(1, "Ann", 100'000);
    struct {
        int Die1, Die2;  ///< of the Field bet's roll
        const char* Text;
    } const rolls[] = {{5, 5, " 1"}, {5, 5, " 2"}, {3, 4, "-1"}, {3, 4, "-2"}, {1, 2, " 1"}};
    for (const auto& roll : rolls) {
        Bet(1, Row::Field, 5);
        Roll(roll.Die1, roll.Die2);
        EXPECT_EQ(FiguresOfBetTrends(t, 1)[Row::Field - 1].Text, roll.Text);
    }
    const std::vector<BetTrend> trends = FiguresOfBetTrends(t, 1);
    ASSERT_EQ(trends.size(), 91u);
    EXPECT_EQ(trends[Row::Field - 1].Name, "Field");
    EXPECT_EQ(trends[Row::Horn - 1].Text, " ");
}

// --- the graph ---

struct GraphFigures : testing::Test {
    GraphFigures() {
        t.Front = &Front;
        t.PlayerName[2] = "Bob";
        t.GraphPlayer = 2;
        t.GraphWindowOpen = true;
        SetBeginningBankroll(t, 2, Dollars(1000));
        RestartBankrollGraph(t);
        ResetBankrollGraph(t, true);
    }
    void RollTo(currency bankroll) {
        TallyRoll(t);
        SetBankroll(t, 2, bankroll);
        TallyBankrolls(t);
        AddGraphPoint(t);
        ResetBankrollGraph(t, false);
    }
    SilentScreen Front;
    std::unique_ptr<Table> Storage = std::make_unique<Table>();
    Table& t = *Storage;
};

TEST_F(GraphFigures, APage) {
    EXPECT_TRUE(FiguresOfGraph(t).Bankrolls.empty());
    EXPECT_EQ(FiguresOfGraph(t).TotalRolls.Text, "0");
    RollTo(Dollars(1010));
    RollTo(Dollars(990));
    RollTo({9'955'000});
    t.GraphAverageRolls = 2;
    const GraphPicture picture = FiguresOfGraph(t);
    EXPECT_THAT(picture.Bankrolls, ElementsAre(Dollars(1010), Dollars(990), currency{9'955'000}));
    EXPECT_THAT(picture.Averages, ElementsAre(Dollars(1010), Dollars(1000), currency{9'927'500}));
    EXPECT_THAT(picture.AxisLabels, ElementsAre("1,150", "1,100", "1,050", "1,000", "950", "900", "850"));
    EXPECT_EQ(picture.LeftRoll, "1");
    EXPECT_EQ(picture.RightRoll, "526");
    EXPECT_EQ(picture.AverageLabel, "2 roll avg");
    EXPECT_EQ(picture.RollsBetween, "Rolls:  175");
    EXPECT_EQ(picture.BankrollBetween, "Bankroll:");
    EXPECT_EQ(picture.TotalRolls.Text, "3");
    EXPECT_EQ(picture.SimulatedHours.Text, ".025");
    EXPECT_EQ(picture.High.Text, "1,010");
    EXPECT_EQ(picture.Low.Text, "990");
    EXPECT_EQ(picture.Current.Text, "995.50");
    EXPECT_DOUBLE_EQ(GraphY(t, Dollars(1150), 600), 0);
    EXPECT_DOUBLE_EQ(GraphY(t, Dollars(850), 600), 600);
    EXPECT_DOUBLE_EQ(GraphY(t, Dollars(1000), 600), 300);
    t.GraphMovingAverage = false;
    EXPECT_TRUE(FiguresOfGraph(t).Averages.empty());
    t.GraphAverageRolls = 0;
    EXPECT_EQ(FiguresOfGraph(t).AverageLabel, "All rolls avg");
}

TEST_F(GraphFigures, ReferenceLines) {
    for (const int bankroll : {1010, 990, 1000}) RollTo(Dollars(bankroll));
    RollTo({9'955'000});
    t.GraphAverageRolls = 2;
    struct {
        const char* Name;
        int Line, Point;
        bool OnAverage, Both;
        int First, Second;
        const char *Rolls, *Bankroll;
    } const cases[] = {
        {"first", 1, 1, false, false, 1, 349, "Rolls:  348", "Bankroll:"},
        {"second", 2, 4, false, false, 1, 4, "Rolls:  3", "Bankroll:  14"},  // 995.5 rounds to the even 996
        {"second on the average", 2, 2, true, false, 1, 2, "Rolls:  1", "Bankroll:  10"},
        {"the other follows", 1, 3, false, true, 3, 4, "Rolls:  1", "Bankroll:  2"},  // average of 1000 and 995.5
        {"to the left edge", 1, -9, false, true, 1, 2, "Rolls:  1", "Bankroll:  10"},
        {"to the right edge", 2, 999, false, true, 524, 525, "Rolls:  1", "Bankroll:"},
        {"held there", 1, 525, false, true, 525, 525, "Rolls:  0", "Bankroll:"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        MoveGraphReference(t, c.Line, c.Point, c.OnAverage, c.Both);
        EXPECT_EQ(t.GraphRefLine1, c.First);
        EXPECT_EQ(t.GraphRefLine2, c.Second);
        EXPECT_EQ(FiguresOfGraph(t).RollsBetween, c.Rolls);
        EXPECT_EQ(FiguresOfGraph(t).BankrollBetween, c.Bankroll);
    }
    t.GraphMovingAverage = false;
    t.GraphRefOnAverage1 = true;
    t.BankrollInvested[2] = Dollars(777);
    EXPECT_EQ(GraphReferenceValue(t, 1), Dollars(777));
    for (const double width : {525.0, 700.0, 131.0}) {
        for (int point = 1; point <= 525; ++point) ASSERT_EQ(GraphPointAt(GraphX(point, width), width), point) << width;
        EXPECT_EQ(GraphPointAt(-50, width), 1);
        EXPECT_EQ(GraphPointAt(width * 3, width), 525);
    }
}

TEST_F(GraphFigures, Commands) {
    t.GraphAdjustType = 0;
    StepGraphScale(t, true);
    EXPECT_EQ(t.GraphScale, Dollars(2));
    EXPECT_EQ(t.GraphBaseScale, Dollars(2));
    EXPECT_EQ(t.GraphTop, Dollars(1300));
    ShiftGraphBand(t, true);
    EXPECT_EQ(t.GraphTop, Dollars(1400));
    ShiftGraphBand(t, false);
    ShiftGraphBand(t, false);
    EXPECT_EQ(t.GraphTop, Dollars(1200));
    struct {
        int Result;
        const char* Input;
        int Rolls;
    } const answers[] = {{MsgAnswer::Ok, "30", 30},   {MsgAnswer::Ok, "9999", 525}, {MsgAnswer::Cancel, "7", 525},
                         {MsgAnswer::Ok, "-3", 0},    {MsgAnswer::Ok, "12.5", 12},  {MsgAnswer::Ok, "x", 12},
                         {MsgAnswer::Ok, "525", 525}, {MsgAnswer::Ok, "", 525}};
    for (const auto& a : answers) {
        Front.Answers.push_back({a.Result, a.Input, false});
        AskGraphAverage(t);
        EXPECT_EQ(t.GraphAverageRolls, a.Rolls) << a.Input;
    }
    EXPECT_EQ(Front.Shown[0].Title, "Set Bankroll Moving Average");
}

TEST_F(GraphFigures, PrintingFillsPages) {
    t.GraphsPerPage = 3;
    Front.Shown.clear();
    EXPECT_FALSE(AskPrintLastGraph(t)) << "no roll since";
    EXPECT_FALSE(AskFinishGraphPage(t)) << "nothing sent";
    EXPECT_TRUE(Front.Shown.empty());
    RollTo(Dollars(1000));
    Front.Answers.push_back({MsgAnswer::Yes, {}, false});
    EXPECT_TRUE(AskPrintLastGraph(t));
    EXPECT_FALSE(GraphPrinted(t));
    EXPECT_FALSE(AskPrintLastGraph(t));
    EXPECT_FALSE(GraphPrinted(t));
    Front.Answers.push_back({MsgAnswer::Yes, {}, false});
    EXPECT_TRUE(AskFinishGraphPage(t));
    EXPECT_EQ(Front.Shown.back().Text,
              "3 graphs will fit on a page.\nSo far you've sent 2 to the current page.\nWould you like to finish "
              "printing now?");
    EXPECT_TRUE(GraphPrinted(t));
    EXPECT_EQ(t.GraphsOnPage, 0);
}

}  // namespace
}  // namespace tarnwick
