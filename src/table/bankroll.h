// The ATM and the limit of a bankroll.
#pragma once

#include "table/crapcnst.h"

namespace tarnwick {

/// Withdrawal (above 0: money comes to the table) or deposit (below 0) of p 1..8. Cut to what the limit of 9,999,999
/// either way allows, and a deposit to what lies free unless the player may go negative; a cut is told, unless it came
/// from the configuration window. Returns the amount moved, with its sign.
currency AtmTransaction(Table& t, int p, currency amount, bool fromConfiguration = false);

/// A bankroll beyond +-9,999,999 ends the run; tells who broke which limit.
void BankrollLimitStop(Table& t, int p);

/// The first position whose bankroll is beyond the limit, or 0.
int BankrollBeyondLimit(const Table& t);

}  // namespace tarnwick
