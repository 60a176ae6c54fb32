// The accumulators as plain arrays, the way a game file keeps them, and back.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "table/crapcnst.h"

namespace tarnwick {

/// [row - 1][stat - 1] of rows 1..91 and stats 1..6.
using PlainBetStats = std::array<std::array<currency, 6>, Row::LastBet>;

/// The figures of one seated player. Kinds: 0 wagers, 1 wins, 2 losses.
struct PlainPlayerFigures {
    std::array<std::array<PlainBetStats, Scopes>, 3> BetStats{};           ///< [kind][scope]
    std::array<std::array<currency, 6>, Scopes> ComeFlatSum{};             ///< [scope][row - 19]
    std::array<currency, std::size_t{2} * GraphPage + 1> GraphBankroll{};  ///< by page point, 0 the roll of point 1
    currency BankrollSum;
    currency GraphExtra;  ///< a value that the page's low and high take in beside its points
    bool GraphHasExtra = false;
};

template <class T>
using ByPos = std::array<T, static_cast<std::size_t>(StatPositions)>;

struct PlainFigures {
    ByPos<std::array<std::int32_t, RollEvents>> RollCount{};
    std::array<std::int32_t, RollEvents> RollsSince{};
    std::array<std::array<std::int32_t, GapSlots>, RollEvents> RollGapTally{};  ///< [event][gap]
    ByPos<std::array<std::array<std::int32_t, 4>, 13>> PointTally{};  ///< [pos][total][1 come-outs, 2 passes, 3 misses]
    ByPos<std::int32_t> HandCount{}, PlayerRolls{}, MostRolls{}, MostComeouts{}, MostPasses{}, MostMisses{};
    std::array<std::unique_ptr<PlainPlayerFigures>, Positions> Players;  ///< null at an empty position
};

/// All of them as they read now.
std::unique_ptr<PlainFigures> FiguresOf(const Table& t);

/// Makes every figure read as in `figures`, and all later play count on from there. Needs the names, HandShooter (0 or
/// seated), the bankroll arrays and the hand's counters in place. Any numbers are taken: what can't be (a count below
/// 0, a hand longer than its session) is brought to the nearest that can; the table's rolls are those of its event 0,
/// all other rolls and events are made from the counts of single pairs.
void SetFigures(Table& t, const PlainFigures& figures);

}  // namespace tarnwick
