// The console's commands.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "autobet/autobets.h"
#include "lab/commandline.h"
#include "lab/consoleio.h"
#include "lab/consolescreen.h"

namespace tarnwick::lab {

class StepPrinter;

struct Console {
    Table& T;
    ConsoleScreen& Screen;
    Printer& Out;
    LineSource& Lines;
    AutoBets& Scripts;
    StepPrinter& Steps;
    std::uint64_t Seed = 0;               ///< the first session's seed follows it
    std::uint64_t SessionNumber = 1;      ///< counts on with `new`, and again from 1 with `seed`
    std::map<char, std::string> HotKeys;  ///< pieces of script by letter A to Z
};

/// Runs one command (at least one word); returns what is wrong, or nothing.
std::string RunCommandLine(Console& console, const CommandLine& command);

}  // namespace tarnwick::lab
