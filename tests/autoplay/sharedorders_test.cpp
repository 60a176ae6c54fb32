// Standing orders of several players at once.
#include "autoplay/sharedorders.h"

#include "support/table_fixture.h"
#include "table/rundriver.h"

namespace tarnwick {
namespace {

constexpr SeatMask Mask(std::initializer_list<int> players) {
    unsigned mask = 0;
    for (const int p : players) mask |= 1u << p;
    return static_cast<SeatMask>(mask);
}

struct SharedOrdersTest : TableTest {
    SharedOrdersTest() {
        Seat(2, "Ann");
        Seat(5, "Bo");
        Seat(8, "Cy");
        t.GameChanged = false;
    }
};

TEST_F(SharedOrdersTest, TheHeadingNamesWhoIsShown) {
    const std::pair<std::int32_t, const char*> cases[] = {
        {0, "No players selected"},
        {1 << 5, "Settings for Bo"},
        {1 << 5 | 1 << 3, "Settings for Bo"},  // nobody sits at 3
        {1 << 2 | 1 << 5, "Settings for these 2 selected players:"},
        {0x1FE, "Settings for these 3 selected players:"},
        {~0, "Settings for these 3 selected players:"},
    };
    for (const auto& [players, heading] : cases) {
        t.AutoPlayPlayers = players;
        EXPECT_EQ(OrdersHeading(t), heading) << players;
    }
    for (const int p : {2, 5, 8}) RemovePlayer(t, p);
    t.AutoPlayPlayers = 0x1FE;
    EXPECT_EQ(OrdersHeading(t), "No players present");
}

TEST_F(SharedOrdersTest, OnlyWhatAllHaveIsShown) {
    t.AutoPassDice[2] = t.AutoPassDice[5] = true;
    t.PlaceBias[2] = 1;
    t.PlaceBias[5] = 1;
    t.HandleAmount[2][4] = t.HandleAmount[5][4] = t.HandleAmount[8][4] = Dollars(7);
    t.HandleUnit[8][7] = 3;
    t.HandleOperator[5][5] = 2;
    SetComeOutWorking(t, 8, Row::Place4, true);
    SetComeOutWorking(t, 5, Row::Place4, true);

    const SharedOrders two = OrdersOf(t, Mask({2, 5}));
    EXPECT_EQ(two.Flag(OrderFlag::PassDice), true);
    EXPECT_EQ(two.Code(OrderCode::PlaceBias), 1);
    EXPECT_EQ(two.Operators[5], std::nullopt);
    EXPECT_EQ(two.Units[7], 0);
    EXPECT_EQ(two.Working[Row::Place4], std::nullopt);

    const SharedOrders all = OrdersOf(t, Mask({2, 5, 8}));
    EXPECT_EQ(all.Flag(OrderFlag::PassDice), std::nullopt);
    EXPECT_EQ(all.Flag(OrderFlag::TakeFullOdds), false);
    EXPECT_EQ(all.Code(OrderCode::PlaceBias), std::nullopt) << "differing in the third player only";
    EXPECT_EQ(all.Code(OrderCode::WinnerHandling), 1);
    EXPECT_EQ(all.Amounts[4], Dollars(7));
    EXPECT_EQ(all.Units[7], std::nullopt);
    EXPECT_EQ(all.Working[Row::PassLine], true);

    EXPECT_EQ(OrdersOf(t, 0), SharedOrders{}) << "nobody has nothing in common";
}

TEST_F(SharedOrdersTest, AChangeReachesEachOfThemAndNobodyElse) {
    const SeatMask both = Mask({2, 8});
    SetOrderFlag(t, both, OrderFlag::PassDice, true);
    SetOrderCode(t, both, OrderCode::DontBias, 2);
    SetOrderCode(t, both, OrderCode::LoserHandling, 7);
    SetOrderOperator(t, both, LosersSameBetSlot, 3);
    SetOrderUnit(t, both, LosersBetSlot, 6);
    EXPECT_EQ(SetOrderAmount(t, both, WinnersBetSlot, "$1,234.5"), "");
    for (const int p : {2, 5, 8}) {
        const bool chosen = p != 5;
        EXPECT_EQ(t.AutoPassDice[At(p)], chosen) << p;
        EXPECT_EQ(t.DontBias[At(p)], chosen ? 2 : 0) << p;
        EXPECT_EQ(t.LoserHandling[At(p)], chosen ? 7 : 1) << p;
        EXPECT_EQ(t.HandleOperator[At(p)][5], chosen ? 3 : 0) << p;
        EXPECT_EQ(t.HandleUnit[At(p)][7], chosen ? 6 : 0) << p;
        EXPECT_EQ(t.HandleAmount[At(p)][6], chosen ? currency{12'345'000} : currency{}) << p;
    }
    EXPECT_TRUE(t.GameChanged);
}

TEST_F(SharedOrdersTest, ValuesThatDontExistChangeNothing) {
    const Settings before = t;
    for (const int value : {-1, 3, 8}) SetOrderCode(t, Mask({2}), OrderCode::AdjustMode, value);
    for (const int value : {-1, 8}) SetOrderCode(t, Mask({2}), OrderCode::WinnerHandling, value);
    for (const int value : {-1, 7}) SetOrderUnit(t, Mask({2}), 4, value);
    for (const int value : {-1, 4}) SetOrderOperator(t, Mask({2}), 4, value);
    for (const char* text : {"", "abc", "-1", "9,999,999.01", "1e3", "12 50", "99999999999999999999"}) {
        EXPECT_NE(SetOrderAmount(t, Mask({2}), 4, text), "") << text;
    }
    EXPECT_TRUE(before == static_cast<const Settings&>(t));
    EXPECT_FALSE(t.GameChanged);
    EXPECT_EQ(SetOrderAmount(t, Mask({2}), 4, "9,999,999"), "");
}

TEST_F(SharedOrdersTest, WorkingOnTheComeOutIsAPlayersOwn) {
    SetOrderWorking(t, Mask({2, 5}), {Row::PassLine, Row::Place4, Row::Hard6}, WorkingChoice::No);
    SetOrderWorking(t, Mask({5}), {Row::Place4, Row::Hard6}, WorkingChoice::Default);
    SetOrderWorking(t, Mask({2}), {Row::Buy4, 0, 92, 100}, WorkingChoice::Yes);
    const auto works = [this](int p, int row) { return t.ComeOutWorking(p, row) != 0; };
    EXPECT_FALSE(works(2, Row::Hard6));
    EXPECT_TRUE(works(2, Row::Buy4));
    EXPECT_TRUE(works(5, Row::Hard6));
    EXPECT_FALSE(works(5, Row::Place4));
    EXPECT_FALSE(works(5, Row::PassLine));
    for (int row = 1; row <= Row::LastBet; ++row) {
        EXPECT_EQ(works(8, row), WorksOnComeOutByDefault(row)) << row;
        EXPECT_EQ(works(0, row), WorksOnComeOutByDefault(row)) << row;
    }
}

TEST_F(SharedOrdersTest, FullOddsAreTakenAtOnceByEachOfThem) {
    for (const int p : {2, 5, 8}) Bet(p, Row::PassLine, 10);
    Bet(8, Row::DontPass, 10);
    RollTotal(6);
    SetOrderFlag(t, Mask({2, 8}), OrderFlag::TakeFullOdds, true);
    EXPECT_EQ(Amount(2, Row::PassLineOdds), Dollars(25));
    EXPECT_EQ(Amount(8, Row::PassLineOdds), Dollars(25));
    EXPECT_EQ(Amount(5, Row::PassLineOdds), currency{});
    SetOrderFlag(t, Mask({2, 8}), OrderFlag::LayFullOdds, true);
    EXPECT_GT(Amount(8, Row::DontPassOdds), currency{});
    EXPECT_EQ(Amount(2, Row::DontPassOdds), currency{}) << "without a Don't Pass bet";
}

TEST_F(SharedOrdersTest, PlaceBetsOfThoseComeDownWhoLayFullOdds) {
    for (const bool on : {true, false}) {
        for (const int p : {2, 5}) {
            Bet(p, Row::PassLine, 10);
            Bet(p, Row::Place4 + 2, 12);
            t.AutoLayFullOdds[At(p)] = p == 5;
            t.AutoDownPlaceBets[At(p)] = false;  // or the roll takes them down
        }
        RollTotal(6);
        SetOrderFlag(t, Mask({2, 5}), OrderFlag::DownPlaceBets, on);
        EXPECT_EQ(Amount(2, Row::Place4 + 2), Dollars(12)) << on;
        EXPECT_EQ(Amount(5, Row::Place4 + 2), currency{}) << on;
        RollTotal(7);
    }
}

TEST_F(SharedOrdersTest, ARunIsOnlyDisturbedByThoseWhoStopIt) {
    struct Case {
        bool Run, Hyper, Script, Yes, May;
        const char* Title;
    };
    const Case cases[] = {
        {false, false, false, false, true, ""},
        {true, true, false, false, false, "Hyper-Drive Active"},
        {true, true, false, true, true, "Hyper-Drive Active"},
        {true, false, false, false, false, "Auto-Roll Active"},
        {true, false, false, true, true, "Auto-Roll Active"},
        {false, false, true, false, false, "Auto-Bet Active"},
        {false, false, true, true, true, "Auto-Bet Active"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.Title << " " << c.Yes);
        t.AutoRollActive = c.Run;
        t.HyperDriveActive = c.Hyper;
        t.ScriptRunning = c.Script;
        t.ScriptPlayer = 5;
        t.ScriptStopRequested = false;
        Front.Shown.clear();
        Front.Answers = {{c.Yes ? MsgAnswer::Yes : MsgAnswer::No, {}, false}};
        EXPECT_EQ(MayChangeOrders(t), c.May);
        ASSERT_EQ(Front.Shown.size(), *c.Title != '\0' ? 1u : 0u);
        for (const Message& shown : Front.Shown) EXPECT_EQ(shown.Title, c.Title);
        EXPECT_EQ(t.AutoRollActive, c.Run && !c.Yes);
    }
    t.AutoRollActive = t.HyperDriveActive = t.ScriptRunning = false;
}

}  // namespace
}  // namespace tarnwick
