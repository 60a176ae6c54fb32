// The machine that runs lowered scripts.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "autobet/program.h"
#include "autobet/runstate.h"

namespace tarnwick {

/// How a stretch of running ended.
enum class RunEnd : std::uint8_t {
    Finished,
    Faulted,    ///< Machine::FaultText says why
    Stopped,    ///< by the user or the statement limit
    Restarted,  ///< a new session began: start again from the first statement
    Watched,    ///< a script asked for Steps: Machine::Next comes next, in watched code
    Paused      ///< end of the code of one statement
};

class Machine {
  public:
    /// Statement that comes next when a run ended as Watched.
    std::int32_t Next = 0;
    std::string FaultText;
    /// Return stack: statements behind which RETURN goes on. It outlives scripts, restarts and a change of code.
    std::vector<std::int32_t> Returns;
    /// Set from outside, also by another thread, to end a run; may be null.
    const std::atomic<bool>* StopRequested = nullptr;

    /// Makes room for the registers of `program`, so that running allocates nothing.
    void Prepare(const Program& program);

    /// Runs fast code from statement `from` on. `run.Game` is the table that the program was lowered for.
    RunEnd Run(const Program& program, RunState& run, std::int32_t from);

    /// Runs the code of one statement of watched code: Paused, Faulted or Restarted.
    RunEnd RunStatement(const Program& program, RunState& run, std::int32_t statement);
    /// What the last statement, a condition of watched code, gave.
    bool ConditionResult(const StatementPlace& place) const { return N[static_cast<std::size_t>(place.Result)] != 0; }

    /// Serves the user during loops and at the start of scripts: true when the run must end.
    bool MustStop(RunState& run);
    /// Remembers `statement` on the return stack; false when it is full.
    bool PushReturn(std::int32_t statement);

  private:
    RunEnd Execute(const Program& program, RunState& run, std::size_t pc);
    RunEnd Fault(const char* what);

    std::vector<double> N;
    std::vector<std::string_view> T;
    std::vector<std::string> Kept;  ///< what T points to, where nothing else holds it
    std::uint32_t Polls = 0;
};

/// Sets the running player to `slot`, or to the bettor for 0.
void EnterScriptOf(RunState& run, int slot);

}  // namespace tarnwick
