// One bet as a chain of states: the real roll is driven with all 36 dice from every state of the line that the bet can
// meet, and the chain is solved for any chances of the dice.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "dice/chances.h"
#include "stats/accumulators.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/rolldice.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick {

/// All that decides the future of one bet.
struct ChainState {
    int Point = 0, PrevPoint = 0, BetRow = 0, Marked = 0, PointsMade = 0, FourRolls = 0;
    auto operator<=>(const ChainState&) const = default;
};

/// What one roll of given dice makes of the bet: the next state, or none, and the money won or lost.
struct Transition {
    int Next = -1;  ///< index of a state; -1: the bet is down
    double Money = 0;
};

/// Plays one bet of one player from all states that it can reach.
class BetChain {
  public:
    /// `setUp` changes the rules.
    BetChain(
        int row, currency amount, int comeOutPoint, const std::function<void(Table&)>& setUp = [](Table&) {})
        : Amount(amount) {
        SubMain(T, &Front);
        Front.KeepShown = false;
        T.ShooterBetRequirement = 0;
        T.NotifyBits = 0;
        T.MaxPropBetPayoff = T.MaxPlacardBet = Dollars(100'000);
        setUp(T);
        EXPECT_EQ(AddPlayer(T, 1, "Ann", Dollars(1'000'000)), "");
        T.WinnerHandling[1] = T.LoserHandling[1] = 1;  // every decided bet comes down
        ChainState first;
        first.Point = first.PrevPoint = comeOutPoint;
        first.BetRow = row;
        Explore(first);
    }

    struct Expectation {
        double Money = 0;    ///< expected money of the bet until it is down
        double Rolls = 0;    ///< expected rolls until then
        double Decided = 0;  ///< chance that money moves by then
    };

    /// Solves the chain for the first state.
    Expectation Solve(const DiceChances& dice = TrueChances()) const {
        std::vector<Expectation> value(States.size());
        for (double change = 1; change > 1e-14;) {
            change = 0;
            for (std::size_t s = states(); s-- > 0;) {
                // The rolls that leave the state as it is are taken to the other side.
                Expectation now{0, 1, 0};
                double leave = 0;
                for (std::size_t i = 0; i < 36; ++i) {
                    const Transition& to = States[s].To[i];
                    const double chance = dice.Results[i];
                    now.Money += chance * to.Money;
                    if (to.Next == static_cast<int>(s)) continue;
                    leave += chance;
                    if (to.Next < 0) {
                        now.Decided += to.Money != 0 ? chance : 0;
                    } else {
                        const Expectation& next = value[static_cast<std::size_t>(to.Next)];
                        now.Money += chance * next.Money;
                        now.Rolls += chance * next.Rolls;
                        now.Decided += chance * next.Decided;
                    }
                }
                if (leave <= 0) continue;
                now = {now.Money / leave, now.Rolls / leave, now.Decided / leave};
                change = std::max({change, std::abs(now.Money - value[s].Money), std::abs(now.Rolls - value[s].Rolls)});
                value[s] = now;
            }
        }
        return value[0];
    }

    std::size_t states() const { return States.size(); }

  private:
    struct Node {
        ChainState At;
        std::array<Transition, 36> To;
    };

    SilentScreen Front;
    std::unique_ptr<Table> Owner = std::make_unique<Table>();
    Table& T = *Owner;
    currency Amount;
    std::vector<Node> States;
    std::map<ChainState, int> Known;

    int IndexOf(const ChainState& state) {
        const auto [at, fresh] = Known.emplace(state, static_cast<int>(States.size()));
        if (fresh) States.push_back({state, {}});
        return at->second;
    }

    void Explore(const ChainState& first) {
        IndexOf(first);
        for (std::size_t s = 0; s < States.size(); ++s) {
            for (int die1 = 1; die1 <= 6; ++die1) {
                for (int die2 = 1; die2 <= 6; ++die2) {
                    const Transition to = Play(States[s].At, die1, die2);
                    States[s].To[static_cast<std::size_t>(6 * (die1 - 1) + die2 - 1)] = to;
                }
            }
        }
    }

    void TakeDown() {
        for (int row = 1; row <= Row::LastBet; ++row) SetBetAmount(T, 1, row, currency{});
        T.BuyVigCharged[1] = T.LayVigCharged[1] = {};
        T.BetsOnTable[1] = currency{};
    }

    void Restore(const ChainState& state) {
        TakeDown();
        T.MarkedNumbers = 0;
        T.FourRollsCount = T.Point = T.PrevPoint = 0;
        T.PointsMadeMask = T.PointsMadeCount = 0;
        EndHandRollover(T);
        // Contract bets are put where they stand; every other bet goes through the rules.
        const bool needsPoint = state.BetRow == Row::Come || state.BetRow == Row::DontCome;
        if (needsPoint || IsComeNumber(state.BetRow)) T.Point = state.Point;
        if (IsDontComeNumber(state.BetRow)) {
            SetBetAmount(T, 1, state.BetRow, Amount);
            T.BetsOnTable[1] = Amount;
        } else {
            PlaceBet(T, 1, state.BetRow, Amount);
        }
        ASSERT_EQ(T.BetAmount(1, state.BetRow), Amount);
        T.Point = state.Point;
        T.PrevPoint = state.PrevPoint;
        T.MarkedNumbers = state.Marked;
        T.FourRollsCount = state.FourRolls;
        T.PointsMadeMask = state.PointsMade;
        T.PointsMadeCount = std::popcount(static_cast<unsigned>(state.PointsMade));
        SetBetWorking(T, 1, state.BetRow, 2);
    }

    Transition Play(const ChainState& from, int die1, int die2) {
        Restore(from);
        const currency before = T.Bankroll[1];
        PadRoll(T, die1, die2);
        Transition to;
        to.Money = ToDouble(T.Bankroll[1] - before);
        for (int row = 1; row <= Row::LastBet; ++row) {
            if (!IsZero(T.BetAmount(1, row))) to.Next = IndexOf(StateNow(row));
        }
        return to;
    }

    ChainState StateNow(int row) const {
        ChainState state;
        state.BetRow = row;
        const bool special = Row::AllSmall <= row && row <= Row::MakeAll;
        // States that differ only in what can't touch the bet are one state.
        if (!special && row != Row::FourRollsNo7) {
            state.Point = T.Point;
            if (row == Row::Point7 || row == Row::SevenPoint7) state.PrevPoint = T.PrevPoint;
        }
        state.Marked = T.MarkedNumbers;
        state.FourRolls = T.FourRollsCount;
        if (row == Row::Fire) state.PointsMade = T.PointsMadeMask;
        return state;
    }
};

}  // namespace tarnwick
