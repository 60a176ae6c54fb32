// Cases of the bankroll graph that can be worked out by hand.
#include "stats/bankrollgraph.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "stats/accumulators.h"

namespace tarnwick {
namespace {

struct Graph : testing::Test {
    Graph() {
        t.PlayerName[1] = "Ann";
        SetBeginningBankroll(t, 1, Dollars(1000));
        RestartBankrollGraph(t);
    }
    /// Rolls with the bankroll at roll r of the session being 1000 + r.
    void Rise(int rolls) {
        for (int i = 0; i < rolls; ++i) {
            TallyRoll(t);
            SetBankroll(t, 1, Dollars(1000 + SessionRolls(t)));
            TallyBankrolls(t);
            AddGraphPoint(t);
        }
    }
    std::unique_ptr<Table> Storage = std::make_unique<Table>();
    Table& t = *Storage;
};

TEST_F(Graph, PagesAndScrolls) {
    struct {
        int Plot, Rolls, Start, Count, First, Last, Before, Low, High;  // first, last and before: rolls, 0 none
    } const cases[] = {
        {0, 0, 1, 0, 0, 0, 0, 1000, 1000},
        {0, 3, 1, 3, 1, 3, 0, 1000, 1003},
        {0, 525, 1, 525, 1, 525, 0, 1000, 1525},
        {0, 526, 526, 1, 526, 526, 525, 1526, 1526},
        {0, 1050, 526, 525, 526, 1050, 525, 1526, 2050},
        {0, 1051, 1051, 1, 1051, 1051, 1050, 2051, 2051},
        {1, 525, 1, 525, 1, 525, 0, 1000, 1525},
        {1, 526, 2, 525, 2, 526, 1, 1002, 1526},
        {1, 1700, 1176, 525, 1176, 1700, 1175, 2176, 2700},
    };
    for (const auto& c : cases) {
        RolloverSession(t);
        SetBeginningBankroll(t, 1, Dollars(1000));
        RestartBankrollGraph(t);
        t.GraphPlotType = c.Plot;
        Rise(c.Rolls);
        const auto value = [](int roll) { return roll == 0 ? currency{} : Dollars(1000 + roll); };
        const auto where = testing::Message() << "plot " << c.Plot << ", roll " << c.Rolls;
        EXPECT_EQ(GraphCount(t), c.Count) << where;
        EXPECT_EQ(GraphCount(t), SessionRolls(t) - c.Start + 1) << where;
        EXPECT_EQ(GraphBankroll(t, 1, 0), Dollars(c.Start)) << where;
        EXPECT_EQ(GraphBankroll(t, 1, 1), value(c.First)) << where;
        EXPECT_EQ(GraphBankroll(t, 1, std::max(c.Count, 1)), value(c.Last)) << where;
        EXPECT_EQ(GraphBankroll(t, 1, 1050), value(c.Before)) << where;
        EXPECT_EQ(GraphLow(t, 1), Dollars(c.Low)) << where;
        EXPECT_EQ(GraphHigh(t, 1), Dollars(c.High)) << where;
    }
}

TEST_F(Graph, AveragesReachBackToTheSessionsFirstRoll) {
    EXPECT_EQ(AverageBankroll(t, 1, true, 0, 0), Dollars(1000)) << "no roll yet: the beginning bankroll";
    EXPECT_EQ(AverageBankroll(t, 1, true, 0, 120), currency{});
    struct {
        int Plot, Rolls;
        bool AtPoint;
        int Point, Length;
        double Wanted;
    } const cases[] = {
        {0, 1, true, 1, 0, 1000.5},       // 1000 and 1001
        {0, 1, true, 1, 120, 1001},       // point 1 averages itself
        {0, 1, false, 1, 120, 0},         // nothing before it
        {0, 50, true, 50, 120, 1025.5},   // rolls 1..50
        {0, 50, false, 50, 120, 1025},    // rolls 1..49
        {0, 50, true, 50, 2, 1049.5},     // rolls 49, 50
        {0, 525, true, 525, 525, 1263},   // the whole page
        {0, 525, true, 525, 9999, 1263},  // no more than a page
        {0, 526, true, 1, 2, 1525.5},     // rolls 525, 526
        {0, 526, false, 1, 2, 1524.5},    // rolls 524, 525
        {0, 526, true, 1, 525, 1264},     // rolls 2..526
        {1, 526, true, 1, 5, 1001.5},     // point 1 is roll 2; only roll 1 lies before
        {1, 2000, true, 1, 525, 2214},    // rolls 952..1476
        {0, 4, true, 4, 0, 1002},         // 1000 and rolls 1..4
    };
    for (const auto& c : cases) {
        RolloverSession(t);
        SetBeginningBankroll(t, 1, Dollars(1000));
        RestartBankrollGraph(t);
        t.GraphPlotType = c.Plot;
        Rise(c.Rolls);
        EXPECT_EQ(AverageBankroll(t, 1, c.AtPoint, c.Point, c.Length), ToCurrency(c.Wanted))
            << "plot " << c.Plot << ", roll " << c.Rolls << ", point " << c.Point << ", " << c.Length << " rolls";
    }
}

TEST_F(Graph, SessionAveragesOfAPageTakeTheBeginningIn) {
    t.GraphAverageRolls = 0;
    Rise(4);
    for (int i = 1; i <= 4; ++i) EXPECT_EQ(GraphAverage(t, 1, i), ToCurrency(1000 + i / 2.0)) << "point " << i;
    EXPECT_EQ(GraphAverage(t, 1, 5), currency{});
}

TEST_F(Graph, RebuildingForgetsTheBeginningBankroll) {
    Rise(4);
    EXPECT_EQ(GraphLow(t, 1), Dollars(1000));
    RecalcGraphAverage(t, 1);
    EXPECT_EQ(GraphLow(t, 1), Dollars(1001));
    EXPECT_EQ(GraphHigh(t, 1), Dollars(1004));
}

TEST_F(Graph, ScaleStepsThroughItsSequence) {
    struct {
        double Scale, Up, Down;
    } const cases[] = {
        {0.01, 0.02, 0.01}, {0.02, 0.04, 0.01}, {0.04, 0.1, 0.02},         {1, 2, 0.4},
        {2, 4, 1},          {4, 10, 2},         {40'000, 100'000, 20'000}, {100'000, 100'000, 40'000},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(NextGraphScale(ToCurrency(c.Scale), true), ToCurrency(c.Up)) << c.Scale;
        EXPECT_EQ(NextGraphScale(ToCurrency(c.Scale), false), ToCurrency(c.Down)) << c.Scale;
    }
}

TEST_F(Graph, AxisFollowsTheBankroll) {
    struct Case {
        const char* Name;
        int Adjust;
        bool Recentre;
        int Base, Scale, Top;  // before
        int First, Second;     // bankrolls of the two points
        int WantedScale, WantedTop;
    } const cases[] = {
        {"manual stays", 0, false, 1, 1, 150, 1000, 1000, 1, 150},
        {"manual recentres: 1000 lies on the third line", 0, true, 1, 1, 150, 1000, 1000, 1, 1150},
        {"a negative bankroll recentres downward", 0, true, 1, 1, 150, -1, -1, 1, 100},
        {"at the top it shifts by one band", 1, false, 1, 1, 150, 100, 150, 1, 200},
        {"below the top it stays", 1, false, 1, 1, 150, 100, 149, 1, 150},
        {"at the bottom it shifts too", 1, false, 1, 1, 150, 0, -150, 1, 100},
        {"far above", 1, false, 1, 1, 150, 100, 1000, 1, 1050},
        {"a spread of 250 fits", 2, false, 1, 1, 300, 20, 270, 1, 300},
        {"a wider one doubles the scale", 2, false, 1, 1, 300, 10, 270, 2, 500},
        {"and again", 2, false, 1, 2, 300, 0, 1001, 10, 2500},
        {"type 3 first snaps back, then shifts down", 3, false, 1, 4, 1000, 100, 120, 1, 350},
        {"type 2 keeps the wider scale", 2, false, 1, 4, 1000, 100, 120, 4, 1000},
    };
    for (const Case& c : cases) {
        RolloverSession(t);
        SetBeginningBankroll(t, 1, Dollars(c.First));
        RestartBankrollGraph(t);
        for (const int amount : {c.First, c.Second}) {
            TallyRoll(t);
            SetBankroll(t, 1, Dollars(amount));
            AddGraphPoint(t);
        }
        t.GraphAdjustType = c.Adjust;
        t.GraphPlotType = 1;
        t.GraphBaseScale = Dollars(c.Base);
        t.GraphScale = Dollars(c.Scale);
        t.GraphTop = Dollars(c.Top);
        ResetBankrollGraph(t, c.Recentre);
        EXPECT_EQ(t.GraphScale, Dollars(c.WantedScale)) << c.Name;
        EXPECT_EQ(t.GraphTop, Dollars(c.WantedTop)) << c.Name;
    }
}

TEST_F(Graph, RecentresOnTheReferenceLines) {
    Rise(10);  // points 1001..1010
    t.GraphAdjustType = 0;
    t.GraphRefLines = true;
    t.GraphScale = {100};  // bands of 0.50
    struct {
        int Line1, Line2;
        double Top;
    } const cases[] = {{3, 400, 1004.5}, {400, 5, 1006.5}, {3, 6, 1006}, {400, 401, 1011.5}};
    for (const auto& c : cases) {
        t.GraphRefLine1 = c.Line1;
        t.GraphRefLine2 = c.Line2;
        ResetBankrollGraph(t, true);
        EXPECT_EQ(t.GraphTop, ToCurrency(c.Top)) << c.Line1 << ", " << c.Line2;
    }
}

TEST_F(Graph, AnOpenWindowFollowsTheRolls) {
    Rise(524);
    t.GraphWindowOpen = true;
    t.GraphScale = Dollars(40);
    Rise(1);
    EXPECT_EQ(t.GraphScale, Dollars(40)) << "nothing happens within a page";
    Rise(1);
    EXPECT_EQ(t.GraphScale, Dollars(1)) << "a new page snaps back";
    EXPECT_EQ(t.GraphTop, Dollars(1550));
    t.GraphPlotType = 1;
    Rise(525);
    EXPECT_EQ(t.GraphScale, Dollars(4)) << "a scrolled page of 1527..2051 needs 4 x 250";
    EXPECT_GT(t.GraphTop, GraphHigh(t, 1));
}

TEST_F(Graph, ABadScaleIsMended) {
    t.GraphScale = Dollars(-3);
    t.GraphBaseScale = {};
    ResetBankrollGraph(t, true);
    EXPECT_GT(t.GraphScale, currency{});
    EXPECT_GT(t.GraphTop, Dollars(1000));
}

}  // namespace
}  // namespace tarnwick
