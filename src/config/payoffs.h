// Payoff tables, vig and odds limits.
#pragma once

#include "table/crapcnst.h"

namespace tarnwick {

/// Every payoff to its default.
void RestoreDefaultPayoffs(Table& t);
/// Element `Unit` of every payoff from the smallest check; after any change of payoffs or checks.
void UpdatePayoffUnits(Table& t);

/// Element Pays over element For of row 1..91.
double PayoffRatio(const Table& t, int row);
/// The payoff in force for a row: 44 and 47 follow the point's odds rows.
const PayoffEntry& PayoffOf(const Table& t, int row);

/// Vig in whole smallest checks of a Buy bet (row 37..42) or Lay bet (1..6) of `amount`: at least one check when rate
/// and amount are above 0. A Lay bet is charged on what it wins. Other rows: 0.
currency BuyVig(const Table& t, int row, currency amount);
currency LayVig(const Table& t, int row, currency amount);
/// The vig of the amount charged, by the rate and rounding of the family.
currency ChargeBuyVig(const Table& t, currency amount);
currency ChargeLayVig(const Table& t, currency winAmount);

/// The largest odds bet on `row` (44, 47, 13..18, 25..30) behind a flat bet `flat`, by OddsCalcMethod, at most
/// MaxOddsBet, in whole smallest checks. `pays` and `forAmount` are those of the odds row, exchanged by the caller for
/// Don't odds.
currency MaxOddsFor(const Table& t, int row, currency flat, currency pays, currency forAmount);

/// `x` up to a whole multiple of m: 0 when x/m is below 0.5.
currency RoundUpTo(currency x, currency m);

}  // namespace tarnwick
