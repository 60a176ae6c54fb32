// The bankroll graph as figures: 525 rolls a page for every player, moving average, scale and axis.
//
// A series is kept as runs of one bankroll with running sums, so that a roll without a decision writes nothing, nothing
// ever moves, and an average is one difference. The page is a window on it: points 1..525 the page, 526..1050 the rolls
// before it.
#pragma once

#include <array>

#include "stats/accumulators.h"
#include "table/crapcnst.h"

namespace tarnwick {

/// Takes in the bankrolls once a roll, after TallyBankrolls; starts a page or scrolls when the page is full. Brings
/// scale and axis up to date then, if the window is open.
inline void AddGraphPoint(Table& t);
/// Clears the graph for a new session: one unit of scale, the axis from 150 down, low and high at the bankrolls.
void RestartBankrollGraph(Table& t);
/// Recomputes scale and axis top for GraphPlayer by GraphAdjustType; `recentre` moves the axis to the bankroll or to
/// the reference lines.
void ResetBankrollGraph(Table& t, bool recentre);
/// The next step up (true) or down of the sequence 0.01, 0.02, 0.04, 0.1 .. 40,000, 100,000; `scale` itself at the end.
currency NextGraphScale(currency scale, bool up);
/// Average of up to `n` rolls of position p 1..8 ending at page point `i` (`atPoint` true) or at i - 1; n 0 averages
/// the whole session. Halves of a ten-thousandth go to the even one.
currency AverageBankroll(const Table& t, int p, bool atPoint, int i, int n);
/// Rebuilds the low and high of position p 1..8 from its page's points.
void RecalcGraphAverage(Table& t, int p);
/// Zeroes the points of p 1..8, and its low and high.
void ClearGraphPosition(Table& t, int p);
void SwapGraphPositions(Table& t, int p, int q);

/// Bankroll of p 1..8 at page point i: 0 the roll number of point 1, 1..525 the page, 526..1050 the page before.
currency GraphBankroll(const Table& t, int p, int i);
/// The moving average of GraphAverageRolls at page point i 0..525; 0 beyond the last point.
currency GraphAverage(const Table& t, int p, int i);
/// All of them at once.
std::array<currency, GraphPage + 1> GraphAverages(const Table& t, int p);
/// Points on the page, 0..525.
inline std::int32_t GraphCount(const Table& t) { return t.GraphPoints - t.GraphStart + 1; }
/// Lowest and highest value of p's page.
currency GraphLow(const Table& t, int p);
currency GraphHigh(const Table& t, int p);

namespace StatsDetail {
/// The page is full: makes room for a point.
void TurnGraphPage(Table& t);
}  // namespace StatsDetail

inline void AddGraphPoint(Table& t) {
    const bool full = GraphCount(t) == GraphPage;
    if (full) StatsDetail::TurnGraphPage(t);
    ++t.GraphPoints;
    if (full && t.GraphWindowOpen && t.GraphPlotType == 1) ResetBankrollGraph(t, false);
}

}  // namespace tarnwick
