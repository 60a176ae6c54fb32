// tarnwick-lab console: the table as a text front end, one command a line, from a terminal or a pipe.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "lab/commandline.h"

namespace tarnwick::lab {

struct ConsoleOptions {
    bool Json = false;
    std::optional<std::uint64_t> Seed;  ///< without one the clock gives it
    int Rng = 0;                        ///< 1..8, or 0 for the default
    std::vector<SettingOption> Settings;
    std::int64_t StatementLimit = 0;  ///< of one run of scripts; 0: none
};

/// Reads commands from standard input until `quit` or its end. Returns the exit status: 0, 1 when a command failed, 2
/// when the options can't be used, 130 when interrupted at the prompt.
int RunConsole(const ConsoleOptions& options);

}  // namespace tarnwick::lab
