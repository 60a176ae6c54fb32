#include "autobet/autobets.h"

#include <utility>

#include "autobet/checkscript.h"
#include "autobet/scriptfile.h"
#include "autobet/translate.h"
#include "table/messages.h"
#include "table/screen.h"

namespace tarnwick {

namespace {

std::size_t Seat(int p) { return static_cast<std::size_t>(p); }

/// A run at least this long leaves the status boxes drawn anew.
constexpr std::uint32_t LongRun = 300;

}  // namespace

// --- the sources ---

bool AutoBets::SetScript(Table& t, int p, std::vector<std::string> lines, std::string name) {
    if (InRun) return false;
    Lines[Seat(p)] = std::move(lines);
    t.ScriptName[Seat(p)] = std::move(name);
    t.ScriptOn[Seat(p)] = false;
    t.GameChanged = true;
    Drop();
    return true;
}

bool AutoBets::SetActive(Table& t, int p, bool on) {
    if (InRun || !IsSeated(t, p)) return false;
    t.ScriptOn[Seat(p)] = on;
    t.GameChanged = true;
    Drop();
    if (!on || CompileAll(t)) return true;
    t.ScriptOn[Seat(p)] = false;
    return false;
}

bool AutoBets::SetAllActive(Table& t, bool on) {
    if (InRun) return false;
    const auto before = t.ScriptOn;
    for (int p = 1; p < Positions; ++p) t.ScriptOn[Seat(p)] = on && IsSeated(t, p) && !Lines[Seat(p)].empty();
    t.GameChanged = true;
    Drop();
    if (!on || CompileAll(t)) return true;
    t.ScriptOn = before;
    return false;
}

Compilation AutoBets::CompilationOf(const Table& t, int p) const {
    Compilation c;
    c.Slot = p;
    c.Bettor = t.ActivePlayer;
    c.Lines = Lines[Seat(p)];
    c.PlayerNames = t.PlayerName;
    c.PlayerNames[0].clear();
    return c;
}

void AutoBets::Drop() {
    if (Current == nullptr) return;
    if (InRun) Retired.push_back(std::move(Current));
    Current.reset();
}

bool AutoBets::OpenScript(Table& t, int p, const std::string& path) {
    ScriptText script;
    return ReadScriptFile(path, script).empty() && SetScript(t, p, std::move(script.Lines), path);
}

void AutoBets::SwapPositions(Table& /*t*/, int p, int q) {
    if (q == 0) {
        Lines[Seat(p)].clear();
        State.Outputs.Close(p);
    } else {
        std::swap(Lines[Seat(p)], Lines[Seat(q)]);
        State.Outputs.Swap(p, q);
    }
    Drop();
}

std::string AutoBets::NameRefusal(const Table& t, const std::string& name, int exceptPosition) {
    std::array<std::string, 9> names = t.PlayerName;
    names[0].clear();
    return tarnwick::NameRefusal(name, names, exceptPosition);
}

// --- compiling ---

bool AutoBets::Lower(const Table& t, Compiled& compiled, int& failedScript, CompileError& error) const {
    StatementPlace failed;
    if (LowerScripts(t, compiled.Checked, false, compiled.Fast, failed)) return true;
    failedScript = failed.Script;
    const Statement& statement =
        compiled.Checked[Seat(failed.Script)].Statements->Statements[static_cast<std::size_t>(failed.Statement)];
    error = {"The statement is too long.", statement.FirstLine, statement.LastLine, statement.FirstCol,
             statement.LastCol};
    return false;
}

bool AutoBets::CompileAll(Table& t) {
    if (Current != nullptr) return true;
    auto compiled = std::make_unique<Compiled>();
    const auto refuse = [&](int p) {
        ShowNote(t, "Auto-bet script error", ScriptErrorMessage(t.PlayerName[Seat(p)]));
        return false;
    };
    for (int p = 1; p < Positions; ++p) {
        if (!t.ScriptOn[Seat(p)] || !IsSeated(t, p)) continue;
        auto script = std::make_unique<Compilation>(CompilationOf(t, p));
        if (CompileAutobets(*script)) return refuse(p);
        compiled->Checked.push_back({p, &script->Program, &script->Pool});
        compiled->Scripts.push_back(std::move(script));
    }
    int failedScript = 0;
    CompileError error;
    if (!Lower(t, *compiled, failedScript, error)) return refuse(compiled->Checked[Seat(failedScript)].Slot);
    Current = std::move(compiled);
    return true;
}

// --- running ---

void AutoBets::RunAll(Table& t) {
    if (InRun || !CompileAll(t) || Current->Scripts.empty()) return;
    Run(t, *Current, Occasion::Roll);
}

bool AutoBets::Initialize(Table& t) {
    if (InRun || !CompileAll(t)) return false;
    if (!Current->Scripts.empty()) Run(t, *Current, Occasion::Initializing);
    return true;
}

std::optional<CompileError> AutoBets::RunFragment(Table& t, std::vector<std::string> lines) {
    if (InRun) return std::nullopt;
    Compiled compiled;
    auto script = std::make_unique<Compilation>(CompilationOf(t, 0));
    script->Lines = std::move(lines);
    if (auto error = CompileAutobets(*script)) return error;
    compiled.Checked.push_back({0, &script->Program, &script->Pool});
    compiled.Scripts.push_back(std::move(script));
    int failedScript = 0;
    CompileError error;
    if (!Lower(t, compiled, failedScript, error)) return error;
    Run(t, compiled, Occasion::HotKey);
    return std::nullopt;
}

void AutoBets::Run(Table& t, Compiled& compiled, Occasion occasion) {
    InRun = true;
    t.ScriptRunning = true;
    t.ScriptStopRequested = false;
    State.Game = &t;
    State.Answer = 1;
    State.Initializing = occasion != Occasion::Roll;
    State.HotKeyRunning = occasion == Occasion::HotKey;
    State.WarningText.clear();
    State.Restart = false;
    State.StepsWanted = false;
    Engine.Returns.clear();
    Engine.Prepare(compiled.Fast);
    Statements = 0;
    const bool shown = t.Front != nullptr && !t.HyperDriveActive;
    const std::uint32_t start = shown ? t.Front->Milliseconds() : 0;
    if (shown) t.Front->ShowStatus(occasion == Occasion::HotKey ? "Hot-Key" : "Auto-Betting");
    FinishRun(t, RunProgram(t, compiled));
    if (shown && t.Front->Milliseconds() - start >= LongRun) t.Front->RedrawTable();
}

RunEnd AutoBets::RunProgram(Table& t, Compiled& compiled) {
    std::int32_t next = 0;
    for (;;) {
        RunEnd end = RunEnd::Finished;
        if (Watches(t)) {
            if (!compiled.HasWatched) {
                StatementPlace failed;
                if (!LowerScripts(t, compiled.Checked, true, compiled.Watched, failed)) {
                    Engine.FaultText = "Out of memory, Error #7";
                    return RunEnd::Faulted;
                }
                compiled.HasWatched = true;
            }
            Engine.Prepare(compiled.Watched);
            end = RunWatched(t, compiled, next);
        } else {
            State.CollectWarnings = false;
            end = Engine.Run(compiled.Fast, State, next);
        }
        if (end == RunEnd::Restarted) {
            State.Restart = false;
            next = 0;
            if (Engine.MustStop(State)) return RunEnd::Stopped;
        } else if (end == RunEnd::Watched) {
            // Either kind of code goes on where the other one left.
            if (State.StepsWanted) {
                State.StepsWanted = false;
                StepsOn = true;
                next = Engine.Next;
            }
        } else {
            return end;
        }
    }
}

void AutoBets::FinishRun(Table& t, RunEnd end) {
    if (end == RunEnd::Faulted) {
        LastError = Engine.FaultText + "\n occurred, at: Auto-bet run";
        if (StepsOn && !t.HyperDriveActive && View != nullptr) {
            ScriptStep step;
            step.Position = State.RunningPlayer;
            step.Text = LastError;
            View->ShowStep(step);
        }
    }
    if (!State.Outputs.Flush()) LastError = "An output file of a script could not be written.";
    State.Initializing = false;
    State.HotKeyRunning = false;
    State.CollectWarnings = false;
    t.ScriptRunning = false;
    t.ScriptStopRequested = false;
    t.ScriptPlayer = 0;
    InRun = false;
    Retired.clear();
}

}  // namespace tarnwick
