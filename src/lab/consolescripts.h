// The console's commands for scripts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lab/consolearguments.h"
#include "lab/consolecommands.h"

namespace tarnwick::lab {

/// Prints the steps of scripts, with the place in their source.
class StepPrinter : public StepsView {
  public:
    StepPrinter(const Table& t, const AutoBets& scripts, const Printer& out) : T(t), Scripts(scripts), Out(out) {}

    const std::vector<std::string>* Fragment = nullptr;  ///< the source while a piece of script runs

    StepAnswer ShowStep(const ScriptStep& step) override;

  private:
    const Table& T;
    const AutoBets& Scripts;
    const Printer& Out;
};

/// Whether the line is a command that takes the text behind it as script, quotes and all.
bool IsScriptCommand(std::string_view line);
/// The words of such a line; the script is the last one.
CommandLine SplitScriptCommand(std::string_view line);

bool AnyScriptOn(const Table& t);
/// Runs the scripts that are on once; what went wrong, or nothing.
std::string InitializeScripts(Console& c);
/// Why scripts failed in the command at hand, or nothing. `ran`: they were run in it.
std::string ScriptFault(Console& c, bool ran);

std::string DoScript(Console& c, Arguments& a);
std::string DoActivate(Console& c, Arguments& a);
std::string DoDeactivate(Console& c, Arguments& a);
std::string DoInit(Console& c, Arguments& a);
std::string DoFragment(Console& c, Arguments& a);
std::string DoHotKey(Console& c, Arguments& a);
std::string DoHotKeys(Console& c, Arguments& a);
std::string DoSteps(Console& c, Arguments& a);
std::string DoPermit(Console& c, Arguments& a);
std::string DoElements(Console& c, Arguments& a);

}  // namespace tarnwick::lab
