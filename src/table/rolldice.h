// The roll cycle.
#pragma once

#include "table/crapcnst.h"

namespace tarnwick {

/// One whole roll of the dice, or with a run on, rolls until the run stops. Does nothing while a roll is in progress.
void RollDice(Table& t);

/// One roll with the pad's dice, 1..6 each.
void PadRoll(Table& t, int die1, int die2);

/// What the stick person calls before a come-out roll, where somebody may roll: a new hand, the come-out.
void PlayComeOutCall(Table& t);

/// The payoff rows 44 and 47 take those of the point's odds rows.
void SetOddsRowsForPoint(Table& t);

}  // namespace tarnwick
