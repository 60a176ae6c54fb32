// Payoff tables, vig and odds limits.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "table/crapcnst.h"

namespace tarnwick {

constexpr currency ToWord = Dollars(-1);  ///< `ToForm` of "Pays to For"
constexpr currency ForWord = {};          ///< `ToForm` of "Pays + For for For"

/// Every payoff to its default; units and reserved vigs follow.
void RestoreDefaultPayoffs(Table& t);
/// The same behind its question; false when the user said no, or a player couldn't pay the vigs (who was told).
bool AskRestoreDefaultPayoffs(Table& t);

/// Element `Unit` of every payoff: the smallest check times For over the greatest common divisor of Pays and For; one
/// check for a loss. After any change of payoffs or of the smallest check. Rows 44 and 47 follow the point first.
void UpdatePayoffUnits(Table& t);
/// Copies the odds payoffs of the point to rows 44 and 47, where the game file keeps them; nothing on a come-out.
void FollowPointPayoffs(Table& t);

/// Element Pays over element For of the payoff in force for row 1..91; 0 when For isn't above 0.
double PayoffRatio(const Table& t, int row);
/// The payoff in force for row 1..91 with `point` on, or on a come-out (0). Line bets are paid as the Come box on a
/// come-out (43 by row 45, 46 by row 48) and as the Come or Don't Come bet of the point behind it; 44 and 47 by the
/// odds rows of the point. Other rows, and line odds on a come-out, have their own entry.
const PayoffEntry& PayoffOf(const Table& t, int row, int point);
/// With the point that stands now.
const PayoffEntry& PayoffOf(const Table& t, int row);

/// "30 to 1", or in the other form "31 for 1", and back: `Unit` is left 0. Nothing for any other text, for a second
/// number not above 0, and for numbers beyond 9,999,999.
std::string PayoffText(const PayoffEntry& payoff);
std::optional<PayoffEntry> ParsePayoff(std::string_view text);

/// Vig in whole smallest checks of a Buy bet (row 37..42) or Lay bet (1..6) of `amount`: at least one check when rate
/// and amount are above 0. A Lay bet is charged on what it wins. Other rows: 0.
currency BuyVig(const Table& t, int row, currency amount);
currency LayVig(const Table& t, int row, currency amount);
/// The vig of the amount charged, by the rate and rounding of the family, with the same least charge.
currency ChargeBuyVig(const Table& t, currency amount);
currency ChargeLayVig(const Table& t, currency winAmount);

/// The largest odds bet on `row` (44, 47, 13..18, 25..30) behind a flat bet `flat`, by OddsCalcMethod, at most
/// MaxOddsBet, in whole smallest checks. `pays` and `forAmount` are those of the odds row, exchanged by the caller for
/// Don't odds. Row 44 or 47 without a point: 0. In exact arithmetic; a color that no whole unit of money ever pays
/// exactly doesn't count.
currency MaxOddsFor(const Table& t, int row, currency flat, currency pays, currency forAmount);

/// `x` (0 or above) up to a whole multiple of m (above 0): 0 when x/m is below 0.5.
currency RoundUpTo(currency x, currency m);

}  // namespace tarnwick
