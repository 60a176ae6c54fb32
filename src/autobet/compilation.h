// The state of one compilation, and its passes in their order. A pass changes only what it says, and either succeeds
// or returns the error that ends the compilation.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "autobet/element.h"
#include "autobet/expression.h"

namespace tarnwick {

struct Compilation {
    // --- given ---
    int Slot = 1;                            ///< 1..8; 0 compiles a fragment for the bettor
    int Bettor = 0;                          ///< the position that stands for slot 0 in the qualifiers left out
    std::vector<std::string> Lines;          ///< the source; Lines[0] is line 1
    std::array<std::string, 9> PlayerNames;  ///< by position 1..8; empty for an empty position

    // --- made ---
    std::vector<Element> Elements;  ///< [0] is unused
    std::vector<PoolString> Pool;   ///< [0] is the empty text
    Tree Program;                   ///< made by CompileCheck
};

using Pass = std::optional<CompileError> (*)(Compilation&);

/// Source to elements by the phrase table. Makes Elements and Pool anew.
std::optional<CompileError> TranslatePhrases(Compilation& c);
/// Brackets, ends of lists, labels.
std::optional<CompileError> CompileStructure(Compilation& c);
/// Qualifiers to one order with defaults filled in.
std::optional<CompileError> CompileVariablesOrganize(Compilation& c);
/// Groups of bets to lists of bets; statistics to their reduced numbers.
std::optional<CompileError> ExpandGroups(Compilation& c);
/// Variables and functions that are assigned to become targets.
std::optional<CompileError> MarkAssignments(Compilation& c);
/// Jump targets, label indexes.
std::optional<CompileError> CompileLogic(Compilation& c);
/// Proves every statement and makes Program.
std::optional<CompileError> CompileCheck(Compilation& c);

struct NamedPass {
    std::string_view Name;
    Pass Run;
};

constexpr std::array<NamedPass, 7> CompilePasses = {{{"translate", TranslatePhrases},
                                                     {"structure", CompileStructure},
                                                     {"organise", CompileVariablesOrganize},
                                                     {"expand", ExpandGroups},
                                                     {"mark", MarkAssignments},
                                                     {"logic", CompileLogic},
                                                     {"check", CompileCheck}}};

/// Runs the passes up to and including `lastPass` (a name of CompilePasses) on c's source. Stops at the first error.
std::optional<CompileError> CompileAutobets(Compilation& c, std::string_view lastPass = "check");

}  // namespace tarnwick
