// The scripts of an unattended run.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "autobet/autobets.h"
#include "lab/commandline.h"
#include "lab/rollgoal.h"
#include "lab/runscreen.h"

namespace tarnwick::lab {

/// The scripts of every session of a run.
struct ScriptPlan {
    std::array<std::vector<std::string>, Positions> Lines;
    bool Any = false;
    bool Write = false;  ///< one of them opens an output file
    std::int64_t StatementLimit = 0;

    /// Reads and checks the scripts of `players`, who sit at `t`, and switches them on there. Returns what is wrong, or
    /// nothing.
    std::string Load(Table& t, const std::vector<PlayerOption>& players);
};

/// Makes the scripts of `plan` those of `t`, a copy of the table that they were loaded at. A session of scripts that
/// write no files may take over the compiled ones of the last session of the same table.
void GiveScripts(const ScriptPlan& plan, Table& t, std::unique_ptr<AutoBets>& bets);

/// Stands behind each roll of a session with scripts: new sessions, faults of scripts, Ctrl-C.
class ScriptedRun : public RollGoal {
  public:
    /// `t` must have `bets` as its scripts.
    ScriptedRun(Table& t, std::int32_t rolls, AutoBets& bets, RunScreen& screen)
        : RollGoal(t, rolls), Bets(bets), Screen(screen) {}

    /// Runs the scripts once ahead of the first roll. False when the session ends with that; the screen has the reason.
    bool Initialize();

  private:
    void AfterRoll() override;

    AutoBets& Bets;
    RunScreen& Screen;
};

}  // namespace tarnwick::lab
