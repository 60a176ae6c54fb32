// The functions of scripts that are no bets and no lists, and the comparisons and arithmetic of values.
#pragma once

#include <string>
#include <string_view>

#include "autobet/runstate.h"

namespace tarnwick {

/// Whether `left` op `right` holds; op 50..55 (=, <>, <, >, <=, >=).
bool CompareNumbers(double left, int op, double right);
/// The same on lower-cased texts by code points.
bool CompareTexts(std::string_view left, int op, std::string_view right);

/// Outcome of an operation that can end the run: false leaves `result` undefined.
using Checked = bool;

/// Op 60..66 (^ * / \ mod + -). Division by zero gives 0 and a warning; an overflow, a power that isn't a number, or a
/// side of \ and mod beyond 32 bits is a fault.
Checked Arithmetic(RunState& run, int op, double left, double right, double& result);
/// Op 71..73 on 32-bit integers, rounded half to even; a side beyond them is a fault.
Checked Logic(int op, double left, double right, double& result);
/// The complement of the 32-bit integer.
Checked Complement(double value, double& result);

// --- functions of numbers, by their numbers in scripts ---

/// F100: root of a number; 0 and a warning below 0.
double SquareRoot(RunState& run, double value);
/// F110: average bankroll of the running player over the last `rolls` rolls, below 1 over the whole session.
double AverageOfBankroll(RunState& run, double rolls);
/// F190: the face of die 1 or 2; 0 and a warning for another.
double FaceOfDie(RunState& run, double die);
/// F50 alone: the position, 1..8; 0 and a warning for another.
double PositionOf(RunState& run, double position);

// --- functions of texts ---

/// F801 Left$, F802 Right$, F803 RemoveLeft$, F804 RemoveRight$: a count is held in 0 and the text's length.
std::string CutText(int function, std::string_view text, double count);
/// F805 Mid$ (what a cut at `start`, from 1, of `count` characters takes) and F806 RemoveMid$ (what it leaves). A start
/// below 1 gives the text unchanged.
std::string MiddleText(int function, std::string_view text, double start, double count);
/// F809: `added` put in ahead of character `position`, from 1; below 1 the text unchanged, beyond its end behind it.
std::string InsertText(std::string_view text, double position, std::string_view added);
/// F203: place, from 1, of `wanted` in `text` at or behind `start`; 0 when it isn't there. A start below 1 or beyond
/// the text's length warns.
double PlaceInText(RunState& run, double start, std::string_view text, std::string_view wanted);
/// F811: a code outside 0..255 is a fault.
Checked CharacterText(double code, std::string& result);
/// F812; a count beyond a million is a fault.
Checked Blanks(double count, std::string& result);
/// F850: name of the player at a position; empty and a warning for another than 1..8.
std::string NameOfPlayer(RunState& run, double position);

// --- asking ---

/// Title of the messages of the running player's script: "Auto-Bet (" name ")".
std::string ScriptTitle(const RunState& run);
/// F125 and F825: what the user types under `prompt`; empty when the user gave up.
std::string AskInput(RunState& run, const std::string& prompt);

}  // namespace tarnwick
