// Reading the table for scripts. A variable is bound once, when its script is lowered, to a reader that gets the
// position alone; nothing is decoded while scripts run.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "autobet/expression.h"
#include "autobet/runstate.h"

namespace tarnwick {

struct Reading;
/// A reader for position p 0..8. Amounts come as value / 10000; flags as -1 and 0, where not said otherwise.
using ReadFunction = double (*)(RunState& run, const Reading& reading, int p);

struct Reading {
    ReadFunction Read = nullptr;
    std::int32_t Row = 0;    ///< bet row, roll event, point total or CheckStack row
    std::int32_t Stat = 0;   ///< stat 1..6, or c 1..3 of a point tally
    std::int32_t First = 0;  ///< position of the scope: 9 * (H - 1)
    std::int32_t Kind = 0;   ///< 0 wagers, 1 wins, 2 losses; or what the reader says

    double operator()(RunState& run, int p) const { return Read(run, *this, p); }
};

/// The reader of variable `number` (a V that gives a number) with the scope, result and statistic of `qualifiers`. A
/// combination that no script can hold reads as 0.
Reading BindVariable(int number, const Reference& qualifiers);

/// Whether reading `number` with these qualifiers draws nothing and never warns.
bool IsQuietVariable(int number, const Reference& qualifiers);

/// The row that bet function 1..10 means for `argument`; 0 when it is out of limits. CheckStacks (21) give row 100..199
/// or 0, names (800) 800..899 or 0.
int VariableOfFunction(int function, double argument);

/// What is said of an argument of F1..F10, F21, F50, F190, F800, F850 that is out of limits.
std::string_view OutOfLimitsText(int function);

/// Roll event 2..64 of the ordered pair, each 1..6.
int PairEvent(int die1, int die2);

/// Roll event of a statistic behind a roll count: 0, a total 2..12, faces 78..89, or die 1 + die 2 * 0.1. -1 for
/// others.
int RollEventOf(double statistic);

/// Text of a special value: the date (-1), the time (-2), the prompts (-10, -11), a player's name (-901..-908), a
/// CheckStack's name (-1800..-8899); empty for 0, -15 and an unknown one, of which a warning tells.
std::string SpecialTextOf(RunState& run, double value);

/// Name of CheckStack `index` 0..99 of p.
const std::string& StackNameOf(const Table& t, int p, int index);

}  // namespace tarnwick
