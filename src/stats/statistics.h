// Storage of the accumulators and of the bankroll graph. Read and write it only through stats/accumulators.h and
// stats/bankrollgraph.h: most of it is kept folded, so that a roll costs little.
//
// How the figures are folded:
//  - A roll writes one word to RollLog. FoldRolls later counts the words into the rows of their shooter, and into the
//    gaps of the roll events. Whoever reads such a figure folds first.
//  - Roll and line tallies are kept by ordered dice pair and by shooter; the row of shooter 0 takes what nobody present
//    shot. A roll event is the sum of its pairs, and the table is the sum of all nine rows.
//  - Session rows hold the hand in progress too. "All sessions" holds finished sessions; readers add the session.
//  - Counts of rolls since a moment are differences of RollTotal.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "stats/rollevents.h"
#include "table/currency.h"
#include "table/perbet.h"

namespace tarnwick {

constexpr int Scopes = 5;                          ///< current hand, last hand, session, last session, all sessions
constexpr int StatPositions = Positions * Scopes;  ///< pos = p + 9 * scope, 0..44

namespace Scope {
enum : int { Hand = 0, LastHand = 1, Session = 2, LastSession = 3, All = 4 };
}

// --- rolls ---

/// Line tallies of total t 2..12 and kind c 1..3 stand in slot 3 * (t - 2) + c; slot 0 takes what counts nowhere.
constexpr std::size_t LineSlots = 34;

template <class Count>
struct RollRows {
    std::array<std::array<Count, DicePairs>, Positions> Pairs{};  ///< by shooter
    std::array<std::array<Count, LineSlots>, Positions> Lines{};
};

/// A logged roll: the pair, its shooter, the line slots of the come-out and of the decision, and whether the hand ended
/// with it.
namespace LoggedRoll {
constexpr std::uint32_t PairBits = 63;
constexpr int ShooterShift = 8;
constexpr int ComeoutShift = 12;
constexpr int DecisionShift = 18;
constexpr std::uint32_t HandEnd = 1u << 31;
}  // namespace LoggedRoll

constexpr std::int64_t RollLogSize = 2048;  ///< a power of 2

/// Gaps of the roll events: by length 1..199, slot 200 the longer ones, slot 0 the sum of those. The counts are kept
/// small while they grow, because a roll touches ten of them all over the table, and moved before they can overflow.
constexpr std::size_t GapSlots = 201;
constexpr std::size_t GapRows = RollEvents + 4;  ///< the last four take what counts nowhere

struct GapFigures {
    std::array<std::array<std::uint32_t, GapSlots>, GapRows> Counts{};
    std::array<std::array<std::uint16_t, GapSlots>, GapRows> Recent{};  ///< to be added to the counts
    std::uint32_t RecentRolls = 0;
    std::array<std::uint32_t, GapRows> LastAt{};  ///< the event's last roll, numbered from 1 at the session's first
};

namespace MostOf {
enum : std::size_t { Rolls, Comeouts, Passes, Misses, Kinds };
}

/// The part of the figures that reading may bring up to date.
struct FoldedFigures {
    std::int64_t RollsFolded = 0;  ///< rolls of the log that are counted below
    RollRows<std::int32_t> Hand;
    RollRows<std::int32_t> LastHand;
    RollRows<std::int32_t> Session;
    GapFigures Gaps;

    // The stretch of the hand that one shooter has rolled; settled when it ends.
    std::int32_t LiveShooter = 0;
    std::int64_t LiveFrom = 0;  ///< RollTotal at its start
    std::int32_t LiveComeouts = 0;
    std::int32_t LivePasses = 0;
    std::int32_t LiveMisses = 0;
    bool HandCredited = false;                             ///< the hand is in HandCounts
    std::array<std::int32_t, Positions> HandRollsOf{};     ///< the hand's rolls before the stretch; 0 the table
    std::array<std::int64_t, StatPositions> HandCounts{};  ///< by pos
    std::array<std::array<std::int32_t, StatPositions>, MostOf::Kinds> Most{};
};

// --- bets ---

/// Figures of the wagers, the wins or the losses of one bet, money in ten-thousandths.
struct BetSide {
    std::int64_t Count = 0;
    std::int64_t Sum = 0;
    std::int64_t High = 0;
    std::int64_t Low = 0;  ///< above 0; 0 when there is none
    std::int64_t LastRoll = 0;
    std::int64_t Last = 0;
};

struct BetFigures {
    BetSide Wagers, Wins, Losses;
    std::int64_t ComeFlat = 0;
};

/// The bets of one scope. A record whose bit is not set counts as zero, whatever it holds.
struct BetBook {
    std::array<std::array<std::uint64_t, 2>, Positions> Used{};
    std::array<std::array<BetFigures, Row::LastBet>, Positions - 1> Records{};  ///< by position - 1, row - 1

    BetFigures& Record(int p, int row) {
        return Records[static_cast<std::size_t>(p - 1)][static_cast<std::size_t>(row - 1)];
    }
    const BetFigures& Record(int p, int row) const {
        return Records[static_cast<std::size_t>(p - 1)][static_cast<std::size_t>(row - 1)];
    }
    bool IsUsed(int p, int row) const {
        return (Used[static_cast<std::size_t>(p)][static_cast<std::size_t>(row >> 6)] >> (row & 63)) & 1u;
    }
    void Clear(int p) { Used[static_cast<std::size_t>(p)] = {}; }
};

// --- the bankroll graph ---

constexpr int GraphPage = 525;

/// From roll From of the session on, the bankroll after each roll is Value; SumBefore is the sum over the rolls before,
/// modulo 2^64.
struct GraphRun {
    std::int64_t From = 1;
    std::int64_t Value = 0;
    std::uint64_t SumBefore = 0;

    /// Sum over rolls 1..roll, modulo 2^64; `roll` in the run, or the one before it.
    std::uint64_t SumTo(std::int64_t roll) const {
        return SumBefore + static_cast<std::uint64_t>(Value) * static_cast<std::uint64_t>(roll + 1 - From);
    }
};

/// The bankrolls of one position as runs, the newest at Newest, older ones before it in the ring. There is room for two
/// pages that change on every roll, the run that the older page begins in, and the run of the next roll.
struct GraphSeries {
    static constexpr std::uint32_t Room = 2 * GraphPage + 2;
    std::array<GraphRun, Room> Runs{};
    std::uint32_t Newest = 0;
    std::uint32_t Count = 1;
};

/// What the user chose for the graph, with the state of its axis.
struct GraphSettings {
    currency GraphScale = Dollars(1);  ///< money per unit of the axis, which has six bands of 50 units
    currency GraphBaseScale = Dollars(1);
    currency GraphTop = Dollars(150);  ///< value at the top of the axis, a multiple of 50 units
    std::int32_t GraphPlotType = 0;    ///< 0 page, 1 scroll
    std::int32_t GraphAdjustType = 3;  ///< 0 manual, 1 shift, 2 shift and expand, 3 shift and snap back
    std::int32_t GraphStyle = 1;       ///< 0 plain, 1 striped, 2 solid
    std::int32_t GraphColor = 0;       ///< 0..9
    bool GraphGridLines = true;
    bool GraphRefLines = false;
    bool GraphMovingAverage = true;
    std::int32_t GraphAverageRolls = 120;  ///< 0..525; 0 averages the session
    std::int32_t GraphRefLine1 = 174;      ///< 1..525
    std::int32_t GraphRefLine2 = 349;
    bool GraphRefOnAverage1 = false;
    bool GraphRefOnAverage2 = false;
    std::int32_t GraphPlayer = 1;  ///< 1..8
    bool AutoPrintGraphs = false;
    std::int32_t GraphsPerPage = 0;
    std::int32_t GraphsOnPage = 0;
    std::int32_t LastPrintedRoll = 0;
    bool GraphWindowOpen = false;  ///< scale and axis are kept up to date
};

struct Statistics : GraphSettings {
    // Bankroll[pos]: scopes 0, 2 and 4 hold the bankroll now. Change it through SetBankroll.
    std::array<currency, StatPositions> Bankroll{};
    std::array<currency, StatPositions> BankrollBegin{};
    std::array<currency, StatPositions> BankrollHigh{};
    std::array<currency, StatPositions> BankrollLow{};
    std::array<currency, Positions> BankrollInvested{};
    std::int32_t HandComeouts = 0;
    std::int32_t HandPasses = 0;
    std::int32_t HandMisses = 0;

    // Sums of bankroll samples: SumSettled plus the bankroll once for each sample since SumFrom.
    std::int64_t BankrollSamples = 0;
    std::array<std::int64_t, Positions> SumFrom{};
    std::array<currency, Positions> SumSettled{};
    std::uint32_t BankrollsToSample = 0;  ///< positions whose bankroll changed since the last sample

    // Rolls, all of the table's life; the rest are values of RollTotal.
    std::int64_t RollTotal = 0;
    std::int64_t HandStart = 0;
    std::int64_t SessionStart = 0;
    std::int64_t GapStart = 0;
    std::array<std::int64_t, Positions> SeenHandFrom{};  ///< PlayerRolls counts from here
    std::array<std::int64_t, Positions> SeenSessionFrom{};
    std::array<std::int64_t, Positions> SeenAllFrom{};
    std::array<std::int32_t, Positions> SeenLastHand{};
    std::array<std::int32_t, Positions> SeenLastSession{};
    std::array<std::uint32_t, static_cast<std::size_t>(RollLogSize)> RollLog{};
    RollRows<std::int32_t> LastSessionRolls;
    RollRows<std::int64_t> AllRolls;  ///< without the session in progress
    mutable FoldedFigures Folded;

    // Bets. Two books of a kind take turns: one is the current, the other the last.
    std::array<BetBook, 2> HandBooks;
    std::array<std::uint8_t, Positions> HandBook{};  ///< which is the current, by position
    std::array<BetBook, 2> SessionBooks;
    std::uint8_t SessionBook = 0;
    BetBook AllBook;  ///< without the session in progress

    // The graph.
    std::array<GraphSeries, Positions> GraphOf;
    std::int32_t GraphStart = 1;                   ///< roll of page point 1
    std::int32_t GraphPoints = 0;                  ///< roll of the last point
    std::array<currency, Positions> GraphExtra{};  ///< a value that low and high take in beside the page's points
    std::uint32_t GraphHasExtra = 0;               ///< by position
};

}  // namespace tarnwick
