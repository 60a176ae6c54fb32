// The classes of variables and functions, by their numbers. The class says which qualifiers a variable takes and in
// which order they stand behind it.
#pragma once

#include "autobet/element.h"

namespace tarnwick {

enum class VariableClass {
    Bet,     ///< 1..91, groups 4000..4100 and the points 4606, 4607: P, H, X, Y
    Player,  ///< CheckStacks, their names, settings of a player: P
    Result,  ///< 1000..1999: P, H
    Rolls,   ///< 2000..2999: P, H, Y
    Table    ///< 3000..3999: none
};

constexpr VariableClass ClassOf(int variable) {
    if (variable < 92 || variable >= 4000) return VariableClass::Bet;
    if (variable < 1000) return VariableClass::Player;
    if (variable < 2000) return VariableClass::Result;
    return variable < 3000 ? VariableClass::Rolls : VariableClass::Table;
}

constexpr bool IsPoints(int variable) { return variable == 4606 || variable == 4607; }

/// Groups of bets, and the lists of all CheckStacks and of all their names.
constexpr bool IsGroup(int variable) {
    return (4000 <= variable && variable <= 4100) || variable == 980 || variable == 990;
}

/// Functions whose result is a place with qualifiers: bets, CheckStacks and their names.
constexpr bool IsPlaceFunction(int function) { return function < 50 || function == 800; }
constexpr bool IsBetFunction(int function) { return function < 20; }

constexpr bool IsListFunction(int function) { return 126 <= function && function <= 131; }
constexpr bool IsTextFunction(int function) { return function >= 800; }
constexpr bool IsTextVariable(int variable) { return 800 <= variable && variable <= 899; }

/// Whether a bracket behind `e` holds a list.
constexpr bool OpensList(const Element& e) {
    return e.Code == Code::Quantifier || (e.Code == Code::Function && IsListFunction(NumberOf(e)));
}

}  // namespace tarnwick
