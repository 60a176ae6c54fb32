// "Check Script": what a user is told about a script, and which source to select.
#pragma once

#include <string>

#include "autobet/compilation.h"

namespace tarnwick {

struct ScriptVerdict {
    bool Proper = false;
    std::string Title;
    std::string Text;
    /// The source at fault: lines from 1 to the number of lines, columns from 0 in characters, the last one exclusive.
    /// All 0 when nothing is to be selected.
    int FirstLine = 0, FirstCol = 0, LastLine = 0, LastCol = 0;
};

/// Compiles c's source and says what came of it.
ScriptVerdict CheckScript(Compilation& c);

/// The selection for an error of a script with these lines: within the script, and without blanks and colons in front.
ScriptVerdict VerdictOf(const CompileError& error, const std::vector<std::string>& lines);

/// Message when the script of the player `name` stops a run that is about to begin; its title is "Auto-bet script
/// error".
std::string ScriptErrorMessage(const std::string& name);

}  // namespace tarnwick
