// The console's commands.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "autobet/autobets.h"
#include "autobet/hotkeys.h"
#include "lab/commandline.h"
#include "lab/consoleio.h"
#include "lab/consolescreen.h"

namespace tarnwick::lab {

class ConsoleLog;
class StepPrinter;

struct Console {
    Table& T;
    ConsoleScreen& Screen;
    Printer& Out;
    LineSource& Lines;
    AutoBets& Scripts;
    StepPrinter& Steps;
    std::uint64_t Seed = 0;                 ///< the first session's seed follows it
    std::uint64_t SessionNumber = 1;        ///< counts on with `new`, and again from 1 with `seed`
    HotKeyList HotKeys;                     ///< of a file
    std::map<char, std::string> TypedKeys;  ///< pieces of script by letter a to z, ahead of those of the file
    std::unique_ptr<ConsoleLog> Log;        ///< the Events Log that is kept, if any
};

/// Runs one command (at least one word); returns what is wrong, or nothing.
std::string RunCommandLine(Console& console, const CommandLine& command);

}  // namespace tarnwick::lab
