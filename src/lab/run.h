// tarnwick-lab run: sessions played unattended, and their sum.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "lab/commandline.h"

namespace tarnwick::lab {

struct RunOptions {
    std::vector<PlayerOption> Players;
    std::vector<BetOption> Bets;
    bool Rebet = false;
    std::vector<SettingOption> Settings;
    std::int64_t StatementLimit = 0;  ///< of scripts in one roll; 0: none
    std::string OutputFolder;         ///< of files that scripts name; empty: the current one
    bool EventsLog = false;           ///< kept in the output folder, or in those of the sessions
    bool SessionsLogs = false;        ///< one a player, in the output folder
    std::string DiceFile;             ///< empty: the generator's dice
    std::uint64_t Rolls = 1'000;      ///< of a session, 1..100,000,000
    std::uint64_t Sessions = 1;
    std::uint64_t Seed = 0;
    int Rng = 0;   ///< 1..8, or 0 for the default
    int Jobs = 0;  ///< threads; 0: as many as the machine has
    bool Json = false;
};

/// The options as a command that repeats the run, without --jobs, which changes nothing in the result.
std::string RunCommand(const RunOptions& options);

/// Plays and prints the summary. Returns the exit status: 0, 130 when interrupted, 2 when the options can't be used.
int Run(const RunOptions& options);

}  // namespace tarnwick::lab
