// Bets that a table may do without.
#pragma once

#include "config/configure.h"

namespace tarnwick {

/// Takes the bets of row 1..91 of all seats down at once, past the rules for contract bets; the money returns to the
/// bankrolls. For rows without a vig.
void TakeDownRow(Table& t, int row);

/// TakeDownRow for every row whose option is off.
void TakeDownUnoffered(Table& t);

}  // namespace tarnwick
