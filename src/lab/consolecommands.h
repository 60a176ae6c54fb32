// The console's commands.
#pragma once

#include <cstdint>
#include <string>

#include "lab/commandline.h"
#include "lab/consoleio.h"
#include "lab/consolescreen.h"

namespace tarnwick::lab {

struct Console {
    Table& T;
    ConsoleScreen& Screen;
    Printer& Out;
    std::uint64_t Seed = 0;           ///< the first session's seed follows it
    std::uint64_t SessionNumber = 1;  ///< counts on with `new`, and again from 1 with `seed`
};

/// Runs one command (at least one word); returns what is wrong, or nothing.
std::string RunCommandLine(Console& console, const CommandLine& command);

}  // namespace tarnwick::lab
