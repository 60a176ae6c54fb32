// What a run of the scripts carries from statement to statement.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "autobet/outputfiles.h"
#include "config/advantage.h"
#include "table/crapcnst.h"

namespace tarnwick {

struct RunState {
    Table* Game = nullptr;           ///< set throughout a run
    std::int32_t RunningPlayer = 0;  ///< 0..8
    std::int32_t Answer = 1;         ///< button of the last question
    bool Initializing = false;       ///< the cycle before the first roll
    bool HotKeyRunning = false;      ///< a fragment, for the bettor
    bool CollectWarnings = false;    ///< Steps are shown and Hyper-Drive is off
    bool StepsWanted = false;        ///< a script asked for Steps
    bool Restart = false;            ///< a new session began: the run starts again
    bool Taken = false;              ///< the statement at hand did something
    std::string WarningText;         ///< run-time messages of the statement at hand, each behind a line feed
    ScriptOutputs Outputs;
    AdvantageCache Advantages;      ///< of the bets whose expected value was read
    AdvantageCache CompAdvantages;  ///< of those that comps were figured from

    /// Adds `text` to the warnings of the statement, if anybody will see them.
    void Warn(std::string_view text) {
        if (CollectWarnings) WarningText.append("\n").append(text);
    }
};

/// Position 0..8 that player code 0..15 means now: 10 shooter, 11 last shooter, 12 original shooter, 13 bettor, 14 the
/// player whose script runs, 15 the whole table. Any other code gives 0.
inline int PlayerOfCode(const RunState& run, int code) {
    const Table& t = *run.Game;
    switch (code) {
        case 10:
            return t.Shooter;
        case 11:
            return t.LastHandShooter;
        case 12:
            return t.HandShooter;
        case 13:
            return t.ActivePlayer;
        case 14:
            return run.RunningPlayer;
        default:
            return 0 <= code && code <= 8 ? code : 0;
    }
}

}  // namespace tarnwick
