// The scripts of a table's players: their sources, the compiled program and the run.
//
// What belongs to a saved game lies in the table (ScriptOn, ScriptName, CheckStackName, the permissions) and here
// (the source lines); everything else is made anew.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "autobet/compilation.h"
#include "autobet/machine.h"
#include "autobet/program.h"
#include "autobet/runstate.h"
#include "table/crapcnst.h"

namespace tarnwick {

/// One step of a run that is shown, in the words of its statement.
struct ScriptStep {
    int Position = 0;  ///< the running player
    /// Source of the statement: lines from 1, columns from 0; a last column of 0 is the end of the line.
    int FirstLine = 0, LastLine = 0, FirstCol = 0, LastCol = 0;
    std::string Text;
};

enum class StepAnswer { Next, Stop, Close };

/// Shows steps and waits: Stop ends the run, Close switches Steps off.
struct StepsView {
    virtual ~StepsView() = default;
    virtual StepAnswer ShowStep(const ScriptStep& step) = 0;
};

class AutoBets final : public ScriptHost {
  public:
    // --- the sources ---

    /// Gives position p 1..8 a script, not yet active, under the file name `name` (empty: untitled). Refused (false)
    /// while scripts run.
    bool SetScript(Table& t, int p, std::vector<std::string> lines, std::string name);
    const std::vector<std::string>& ScriptLines(int p) const { return Lines[static_cast<std::size_t>(p)]; }
    /// Switches p's script on or off. False while scripts run, at an empty position, or when a script then active has
    /// an error, which was shown: the script is off then.
    bool SetActive(Table& t, int p, bool on);
    /// The same for all players that have a script.
    bool SetAllActive(Table& t, bool on);
    /// A compilation of p's script as it stands (0: of no player, with no lines), for checking and printing.
    Compilation CompilationOf(const Table& t, int p) const;

    // --- ScriptHost ---

    bool CompileAll(Table& t) override;
    void RunAll(Table& t) override;
    std::string NameRefusal(const Table& t, const std::string& name, int exceptPosition) override;
    bool OpenScript(Table& t, int p, const std::string& path) override;
    void SwapPositions(Table& t, int p, int q) override;
    void NameChanged(Table& /*t*/) override { Drop(); }

    // --- running ---

    /// The one cycle before the first roll: all scripts that are on, with "initializing script" true. False when one
    /// has an error, which was shown.
    bool Initialize(Table& t);
    /// Runs `lines` once for the bettor, as a hot key does; the error if they don't compile. Does nothing while scripts
    /// run.
    std::optional<CompileError> RunFragment(Table& t, std::vector<std::string> lines);
    bool Running() const { return InRun; }
    /// Ends the run in hand at the next statement that can be interrupted.
    void Stop(Table& t) const { t.ScriptStopRequested = true; }

    bool StepsOn = false;             ///< show each statement, outside Hyper-Drive
    StepsView* View = nullptr;        ///< who shows them; none: nothing waits
    std::int64_t StatementLimit = 0;  ///< a run of more statements is ended; 0: no limit
    std::string LastError;            ///< why the last run that failed did
    /// A flag that ends runs from outside; may be set by another thread. Null: none.
    void SetStopFlag(const std::atomic<bool>* flag) { Engine.StopRequested = flag; }
    /// Statements run under Steps or a statement limit since the last run began.
    std::int64_t StatementCount() const { return Statements; }

  private:
    struct Compiled {
        std::vector<std::unique_ptr<Compilation>> Scripts;
        std::vector<CheckedScript> Checked;
        Program Fast, Watched;
        bool HasWatched = false;
    };
    enum class Occasion { Roll, Initializing, HotKey };

    bool Lower(const Table& t, Compiled& compiled, int& failedScript, CompileError& error) const;
    void Drop();
    void Run(Table& t, Compiled& compiled, Occasion occasion);
    RunEnd RunProgram(Table& t, Compiled& compiled);
    RunEnd RunWatched(Table& t, const Compiled& compiled, std::int32_t& next);
    RunEnd RunWatchedStatement(const Program& program, const Statement& statement, std::int32_t& at, std::string& text);
    bool CountStatement(Table& t);
    void FinishRun(Table& t, RunEnd end);
    bool Show(Table& t, const Compiled& compiled, std::int32_t at, std::string text);
    bool Watches(const Table& t) const { return (StepsOn && !t.HyperDriveActive) || StatementLimit > 0; }

    std::array<std::vector<std::string>, Positions> Lines;
    std::unique_ptr<Compiled> Current;               ///< null: to be compiled
    std::vector<std::unique_ptr<Compiled>> Retired;  ///< dropped during a run that may still be using them
    RunState State;
    Machine Engine;
    std::int64_t Statements = 0;
    bool InRun = false;
    bool ConditionTrue = false;
};

}  // namespace tarnwick
