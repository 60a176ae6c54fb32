#include <gmock/gmock.h>

#include <memory>

#include "autoplay/autoplay.h"
#include "stats/accumulators.h"
#include "table/placement.h"
#include "table/screen.h"

namespace tarnwick {
namespace {

constexpr int Ann = 1, Bo = 5;
constexpr int Place6 = Row::Place4 + 2, Place8 = Row::Place4 + 3, Buy6 = Row::Buy4 + 2, Buy8 = Row::Buy4 + 3;
constexpr int Come8 = Row::Come4 + 3, Come8Odds = Row::Come4Odds + 3, Dont8 = Row::DontCome4 + 3;
constexpr int Dont8Odds = Row::DontCome4Odds + 3;

constexpr PayoffEntry To(int pays, int bet) { return {Dollars(bet), Dollars(pays), Dollars(-1), Dollars(bet)}; }

/// Odds of 2.5 times the flat bet on 6 and 8, with nothing pushed up.
struct StandingOrdersTest : testing::Test {
    StandingOrdersTest() {
        t.Front = &Front;
        t.NotifyBits = 0;
        for (PayoffEntry& payoff : t.Payoff) payoff = To(1, 1);
        for (const int first : {Row::Come4Odds, Row::Buy4}) {
            t.Payoff[static_cast<std::size_t>(first) + 2] = t.Payoff[static_cast<std::size_t>(first) + 3] = To(6, 5);
        }
        for (const int first : {Row::DontCome4Odds, Row::Lay4}) {
            t.Payoff[static_cast<std::size_t>(first) + 2] = t.Payoff[static_cast<std::size_t>(first) + 3] = To(5, 6);
        }
        t.OddsCalcMethod = 1;
        Seat(Ann, "Ann", 1000);
    }

    void Seat(int p, const char* name, int bankroll) {
        t.PlayerName[static_cast<std::size_t>(p)] = name;
        SetBeginningBankroll(t, p, Dollars(bankroll));
    }

    /// A bet as a roll left it.
    void Stand(int p, int row, int dollars) {
        SetBetAmount(t, p, row, Dollars(dollars));
        t.EstablishedBet(p, row) = Dollars(dollars);
        t.BetsOnTable[static_cast<std::size_t>(p)] = BetsOnTableOf(t, p);
    }

    void ExpectBets(int p, std::initializer_list<std::pair<int, int>> bets) {
        for (const auto& [row, dollars] : bets) EXPECT_EQ(ToDouble(t.BetAmount(p, row)), dollars) << BetName(row);
        EXPECT_EQ(t.BetsOnTable[static_cast<std::size_t>(p)], BetsOnTableOf(t, p));
    }

    std::unique_ptr<Table> Game = std::make_unique<Table>();
    Table& t = *Game;
    SilentScreen Front;
};

TEST_F(StandingOrdersTest, ANewPointWithEveryOrder) {
    t.AutoTakeFullOdds[Ann] = t.AutoLayFullOdds[Ann] = t.AutoDownPlaceBets[Ann] = true;
    Stand(Ann, Row::PassLine, 10);
    Stand(Ann, Row::DontPass, 10);
    Stand(Ann, Place6, 12);
    Stand(Ann, Buy6, 20);
    Stand(Ann, Place8, 18);
    Stand(Ann, Buy8, 25);
    t.Point = 6;
    ApplyNewPointOrders(t);
    ExpectBets(Ann, {{Row::PassLineOdds, 25},
                     {Row::DontPassOdds, 30},
                     {Place6, 0},
                     {Buy6, 0},
                     {Place8, 18},
                     {Buy8, 25},
                     {Row::PassLine, 10},
                     {Row::DontPass, 10}});
}

TEST_F(StandingOrdersTest, MoneyGoesToTheOddsBeforePlaceBetsAndToDontOddsAfterThem) {
    // 18 lie free for odds of 25; the Place bet then frees 12 for Don't odds of 14.
    Seat(Ann, "Ann", 45);
    t.AutoTakeFullOdds[Ann] = t.AutoLayFullOdds[Ann] = t.AutoDownPlaceBets[Ann] = true;
    Stand(Ann, Row::PassLine, 10);
    Stand(Ann, Row::DontPass, 5);
    Stand(Ann, Place6, 12);
    t.Point = 6;
    t.HyperDriveActive = true;
    ApplyNewPointOrders(t);
    ExpectBets(Ann, {{Row::PassLineOdds, 18}, {Place6, 0}, {Row::DontPassOdds, 12}});
}

TEST_F(StandingOrdersTest, OrdersNeedTheirFlatBetAndTheirFlag) {
    Seat(Bo, "Bo", 1000);
    t.AutoTakeFullOdds[Ann] = t.AutoDownPlaceBets[Ann] = true;  // without a Pass Line bet
    t.AutoLayFullOdds[Ann] = true;                              // without a Don't Pass bet
    Stand(Ann, Place8, 12);
    Stand(Ann, Buy8, 20);
    Stand(Bo, Row::PassLine, 10);  // without an order
    Stand(Bo, Row::DontPass, 10);
    Stand(Bo, Place8, 12);
    t.Point = 8;
    ApplyNewPointOrders(t);
    ExpectBets(Ann, {{Row::PassLineOdds, 0}, {Row::DontPassOdds, 0}, {Place8, 12}, {Buy8, 20}});
    ExpectBets(Bo, {{Row::PassLineOdds, 0}, {Row::DontPassOdds, 0}, {Place8, 12}});
}

TEST_F(StandingOrdersTest, SwitchingFullOddsOnRaisesThePresentOddsAndOffLeavesThem) {
    t.Point = 6;
    Stand(Ann, Row::PassLine, 10);
    Stand(Ann, Row::DontPass, 10);
    Stand(Ann, Come8, 20);
    Stand(Ann, Dont8, 20);
    SetAutoTakeFullOdds(t, Ann, true);
    ExpectBets(Ann, {{Row::PassLineOdds, 25}, {Come8Odds, 50}, {Row::DontPassOdds, 0}, {Dont8Odds, 0}});
    SetAutoTakeFullOdds(t, Ann, false);
    SetAutoLayFullOdds(t, Ann, true);
    ExpectBets(Ann, {{Row::PassLineOdds, 25}, {Come8Odds, 50}, {Row::DontPassOdds, 30}, {Dont8Odds, 60}});
    EXPECT_FALSE(t.AutoTakeFullOdds[Ann]);
    EXPECT_TRUE(t.AutoLayFullOdds[Ann]);

    RemoveBet(t, Ann, Dont8Odds);
    SetAutoLayFullOdds(t, Ann, false);
    SetAutoTakeFullOdds(t, Ann, false);
    ExpectBets(Ann, {{Dont8Odds, 0}, {Row::DontPassOdds, 30}});
    EXPECT_FALSE(t.AutoLayFullOdds[Ann]);
    EXPECT_TRUE(t.GameChanged);
}

TEST_F(StandingOrdersTest, SwitchingPlaceBetsDownAsksTheOtherFlag) {
    for (const bool on : {true, false}) {
        for (const bool layFullOdds : {true, false}) {
            SCOPED_TRACE(testing::Message() << on << layFullOdds);
            t.Point = 6;
            t.AutoLayFullOdds[Ann] = layFullOdds;
            Stand(Ann, Row::PassLine, 10);
            Stand(Ann, Come8, 10);
            Stand(Ann, Place6, 12);
            Stand(Ann, Place8, 12);
            Stand(Ann, Buy8, 20);
            Stand(Ann, Row::Place10, 15);
            SetAutoDownPlaceBets(t, Ann, on);
            EXPECT_EQ(t.AutoDownPlaceBets[Ann], on);
            const int stays = layFullOdds ? 0 : 12;
            ExpectBets(Ann, {{Place6, stays}, {Place8, stays}, {Buy8, 20}, {Row::Place10, 15}});
        }
    }
    t.AutoLayFullOdds[Ann] = true;
    Stand(Ann, Place6, 12);
    t.Point = 0;
    SetAutoDownPlaceBets(t, Ann, true);
    ExpectBets(Ann, {{Place6, 12}});
}

TEST_F(StandingOrdersTest, ANewPlayerHasNoneAndTheTablesComeOutList) {
    for (int row = 1; row <= Row::LastBet; ++row) SetComeOutWorking(t, 0, row, row % 3 == 0);
    for (const int p : {Ann, Bo}) {
        const auto i = static_cast<std::size_t>(p);
        t.AutoTakeFullOdds[i] = t.AutoLayFullOdds[i] = t.AutoDownPlaceBets[i] = t.AutoPassDice[i] = true;
        t.AutoAdjustMode[i] = t.LayBias[i] = t.PlaceBias[i] = t.DoBias[i] = t.DontBias[i] = 2;
        t.WinnerHandling[i] = t.LoserHandling[i] = 6;
        t.HandleOperator[i].fill(3);
        t.HandleUnit[i].fill(4);
        t.HandleAmount[i].fill(Dollars(9));
        for (int row = 1; row <= Row::LastBet; ++row) SetComeOutWorking(t, p, row, row % 2 == 0);
    }
    ResetStandingOrders(t, Ann);

    const auto orders = [this](std::size_t i) {
        return std::vector<int>{t.AutoTakeFullOdds[i], t.AutoLayFullOdds[i], t.AutoDownPlaceBets[i], t.AutoPassDice[i],
                                t.AutoAdjustMode[i],   t.LayBias[i],         t.PlaceBias[i],         t.DoBias[i],
                                t.DontBias[i],         t.WinnerHandling[i],  t.LoserHandling[i]};
    };
    EXPECT_THAT(orders(Ann), testing::Each(0));
    EXPECT_THAT(orders(Bo), testing::Each(testing::Gt(0)));
    EXPECT_THAT(t.HandleOperator[Ann], testing::Each(0));
    EXPECT_THAT(t.HandleUnit[Ann], testing::Each(0));
    EXPECT_THAT(t.HandleAmount[Ann], testing::Each(currency{}));
    EXPECT_THAT(t.HandleAmount[Bo], testing::Each(Dollars(9)));
    for (int row = 1; row <= Row::LastBet; ++row) {
        EXPECT_EQ(t.ComeOutWorking(Ann, row), row % 3 == 0) << row;
        EXPECT_EQ(t.ComeOutWorking(Bo, row), row % 2 == 0) << row;
    }
}

}  // namespace
}  // namespace tarnwick
