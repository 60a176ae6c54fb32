// The bankroll graph as figures: 525 rolls a page for every player, moving average, scale and axis.
#pragma once

#include "table/crapcnst.h"

namespace tarnwick {

/// Takes in the bankrolls once a roll, after TallyBankrolls; starts a page or scrolls when the page is full.
void AddGraphPoint(Table& t);
/// Clears the graph for a new session: one unit of scale, the axis from 150 down, low and high at the bankrolls.
void RestartBankrollGraph(Table& t);
/// Recomputes scale and axis top; `recentre` moves the axis to the bankroll or to the reference lines.
void ResetBankrollGraph(Table& t, bool recentre);
/// Average of up to `n` rolls of position p 1..8 ending at page point `i` (`atPoint` true) or at i - 1; n 0 averages
/// the whole session.
currency AverageBankroll(const Table& t, int p, bool atPoint, int i, int n);
/// Rebuilds the averages, low and high of position p's page.
void RecalcGraphAverage(Table& t, int p);

/// Bankroll at page point i: 0 the roll number of point 1, 1..525 the page, 526..1050 the page before.
currency GraphBankroll(const Table& t, int p, int i);
currency GraphAverage(const Table& t, int p, int i);
std::int32_t GraphCount(const Table& t);

}  // namespace tarnwick
