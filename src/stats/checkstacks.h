// The hundred numbers that each player's scripts keep: CheckStacks. They are rows 100..199 of the bets, touch no money,
// and may be negative.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "table/crapcnst.h"

namespace tarnwick {

constexpr currency CheckStackLimit{999'999'999'999'999'999};  ///< 99,999,999,999,999.9999 either way

/// Value of CheckStack n 0..99 of p 0..8.
inline currency CheckStack(const Table& t, int p, int n) { return t.BetAmount(p, Row::FirstStack + n); }
/// Sets it, within the limit. Returns what is wrong, or nothing.
std::string SetCheckStack(Table& t, int p, int n, currency value);
/// Names it; an empty name takes the name away. Line breaks become blanks.
void NameCheckStack(Table& t, int p, int n, std::string_view name);

struct CheckStackLine {
    int Number = 0;
    std::string Name;
    currency Value;
};
/// All stacks of p 1..8, or with `zeroValues` off those that aren't 0.
std::vector<CheckStackLine> CheckStackLines(const Table& t, int p, bool zeroValues);

/// The row that slot 1..4 at the rail of p shows.
inline int VisibleStackRow(const Table& t, int p, int slot) {
    return t.VisibleStack[static_cast<std::size_t>(p)][static_cast<std::size_t>(slot)];
}
constexpr std::string_view SameVisibleStack = "Each CheckStack entry should be a different number.";
/// Shows stacks `numbers` (each 0..99) at the rail, in clockwise order. Returns what is wrong, or nothing.
std::string SetVisibleStacks(Table& t, int p, const std::array<int, 4>& numbers);

/// Takes away values, names or both of p 1..8.
void ClearCheckStacks(Table& t, int p, bool values, bool names);

}  // namespace tarnwick
