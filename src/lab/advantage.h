// tarnwick-lab advantage: the exact figures of every bet.
#pragma once

#include <string>
#include <vector>

#include "lab/commandline.h"

namespace tarnwick::lab {

struct AdvantageOptions {
    std::string Game;           ///< its rules and dice; empty: those of a new table
    std::string Probabilities;  ///< probability file whose dice are thrown; empty: as the game says
    std::vector<SettingOption> Settings;
    bool Misc = false;       ///< rolls, decisions and time instead of values
    bool CountZero = false;  ///< a roll that decides nothing counts as a decision
    bool Json = false;
};

/// Prints the list of all bets that the table offers. Returns the exit status: 0, or 2 when an option can't be used.
int ShowAdvantage(const AdvantageOptions& options);

}  // namespace tarnwick::lab
