// What scripts may write for the handling of winning and losing bets.
#pragma once

#include "autobet/actions.h"

namespace tarnwick {

/// Sets WinnerHandling or LoserHandling of position p from a mode 1..8 or one of the handling texts ("parlay", "same
/// bet
/// + $5", "bet 20"). False, with a warning, for any other value.
bool SetHandling(RunState& run, int p, bool winner, const ScriptValue& value);

}  // namespace tarnwick
