// What scripts do to the game, through the table's own rules and under the permissions of the running player. A refusal
// leaves everything as it was and goes to the warnings of the statement.
#pragma once

#include <string>
#include <string_view>

#include "autobet/runstate.h"

namespace tarnwick {

/// A number or a text. The text lives as long as its maker says.
struct ScriptValue {
    bool IsText = false;
    double Number = 0;
    std::string_view Text;
};

/// Number of a value: texts by the number at their start.
double NumberOfValue(const ScriptValue& value);
/// Text of a value: numbers in the general format.
std::string TextOfValue(const ScriptValue& value);

/// Whether the running player may act on position p now: somebody sits there, and it is the running player or one with
/// the permission to act for others.
bool MayActOn(RunState& run, int p);

/// Assigns to target `number`: a bet 1..91, a CheckStack 100..199 or its name 800..899, a setting (670, 671, 700..703),
/// the beginning bankroll (1300, 1301), rolls per hour 3603, seed 3655, generator 3672, comp rate 3691; all but the
/// last four for position p. Without `absolute` the value is added. False when nothing was done.
bool SetTarget(RunState& run, int number, int p, const ScriptValue& value, bool absolute = true);

/// Actions 481 set, 482 multiply, 483 divide, 484 add, 485 subtract, 487 round, 488 round down, 489 round up.
bool ApplyAmount(RunState& run, int action, int number, int p, const ScriptValue& value);
/// Actions 450 buy, 451 call off, 452 call on, 453 remove the button, 454 forget the streak, 460 clear.
bool ApplyToTarget(RunState& run, int action, int number, int p);
/// Action 300: exchanges the values of two targets, each set by its own rules.
bool SwapTargets(RunState& run, int first, int firstPlayer, int second, int secondPlayer);

/// What target `number` of p holds now. `text` keeps the characters of a text.
ScriptValue ReadTarget(RunState& run, int number, int p, std::string& text);

/// Actions without operands: 100..103 start a new session, 114 and 119 switch probability and dice roll file off, 115
/// stop the run, 116 show Steps, 118 pass the dice, 213 and 310 as below without any.
bool Command(RunState& run, int action);
/// Actions with one operand: 210, 211 messages, 212 sound, 213 probability file, 220, 221, 223 output, 225, 226 ATM.
bool Command(RunState& run, int action, const ScriptValue& operand);
/// Action 310: plays the dice roll file `name` (empty: the one that is open) from `firstRoll` to `lastRoll`; 0 each for
/// none given.
bool PlayDiceFile(RunState& run, std::string_view name, double firstRoll, double lastRoll);

}  // namespace tarnwick
