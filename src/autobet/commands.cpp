// The actions that have no target: sessions, runs, files, messages, money.
#include <algorithm>
#include <filesystem>
#include <system_error>

#include "autobet/actions.h"
#include "autobet/functions.h"
#include "autobet/numbertext.h"
#include "dice/dicefile.h"
#include "dice/probabilityfile.h"
#include "table/bankroll.h"
#include "table/messages.h"
#include "table/players.h"
#include "table/rundriver.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick {

namespace {

std::size_t Seat(int p) { return static_cast<std::size_t>(p); }

bool Refuse(RunState& run, std::string_view text) {
    run.Warn(text);
    return false;
}

/// Refusal for want of a permission, with the way to it.
bool RefuseFor(RunState& run, const char* what) {
    if (run.CollectWarnings) {
        run.Warn(run.Game->PlayerName[Seat(run.RunningPlayer)] + what + "\nSee Options - Permissions.");
    }
    return false;
}

bool StartNewSession(RunState& run, int action) {
    Table& t = *run.Game;
    if (!t.AllowReset[Seat(run.RunningPlayer)]) return RefuseFor(run, " is not allowed to start new sessions.");
    SessionOptions options;
    options.KeepCheckStacks = action == 101 || action == 103;
    const bool keepFile = action == 102 || action == 103;
    options.File = keepFile ? SessionOptions::DiceFile::Continue : SessionOptions::DiceFile::Drop;
    NewSession(t, options);
    run.Restart = true;
    return true;
}

bool StopRun(Table& t) {
    if (t.HyperDriveActive) t.StopReason = "Stopped by Auto-Bet command.";
    if (t.AutoRollActive) StopAutoRoll(t);
    return true;
}

bool PassDice(RunState& run) {
    Table& t = *run.Game;
    if (t.Shooter != run.RunningPlayer && !t.AllowAct4Others[Seat(run.RunningPlayer)]) {
        return RefuseFor(run, " is not the shooter.");
    }
    PassTheDice(t, PassMode::Request);
    return true;
}

bool MayUseFiles(const RunState& run) { return run.Game->AllowActProb[Seat(run.RunningPlayer)]; }

bool DropDiceFile(RunState& run) {
    Table& t = *run.Game;
    if (!MayUseFiles(run)) return RefuseFor(run, " is not allowed to deactivate roll files.");
    if (t.DiceRollFileName.empty()) return Refuse(run, "Dice roll file is not open.");
    SetDiceFileMode(t, 0);
    return true;
}

bool DropProbabilities(RunState& run) {
    if (!MayUseFiles(run)) return RefuseFor(run, " is not allowed to deactivate probability files.");
    run.Game->UseSkewedProbability = false;
    return true;
}

bool UseProbabilities(RunState& run, const std::string& name) {
    Table& t = *run.Game;
    if (!MayUseFiles(run)) return RefuseFor(run, " is not allowed to activate probability files.");
    if (!name.empty()) {
        const std::string path = PathInFolder(t.GameFolder, name);
        if (path.empty() || !OpenProbabilities(t, path)) {
            return Refuse(run, "File not found or file is not a valid probability file.");
        }
    }
    t.UseSkewedProbability = true;
    return true;
}

bool ShowScriptMessage(RunState& run, const std::string& text) {
    Table& t = *run.Game;
    if ((t.NotifyBits & (t.HyperDriveActive ? 16 : 8)) == 0) return false;
    ShowNote(t, ScriptTitle(run), text);
    return true;
}

bool AskQuestion(RunState& run, const std::string& text) {
    Message message;
    message.Title = ScriptTitle(run);
    message.Text = text;
    message.Buttons = MsgButton::YesNoQuestion;
    run.Answer = ShowMessage(*run.Game, message).Result;
    return true;
}

bool PlayFile(RunState& run, const std::string& name) {
    const Table& t = *run.Game;
    if (t.HyperDriveActive || t.DisableAllSound || t.DisableAutoBetSounds || t.Front == nullptr) return false;
    const std::string path = PathInFolder(t.GameFolder, name);
    if (path.empty()) return false;
    t.Front->PlaySoundFile(path);
    return true;
}

bool OpenOutput(RunState& run, const std::string& name, bool clear) {
    const std::string path = PathInFolder(run.Game->GameFolder, name);
    if (path.empty()) return Refuse(run, "The output file must lie in the game folder.");
    if (!run.Outputs.Open(run.RunningPlayer, path, clear)) return Refuse(run, "Unable to open the output file.");
    run.Game->ScriptOutputFile[static_cast<std::size_t>(run.RunningPlayer)] = name;
    return true;
}

bool WriteOutput(RunState& run, const ScriptValue& value) {
    // A game that was opened goes on writing where it did.
    const std::string& file = run.Game->ScriptOutputFile[static_cast<std::size_t>(run.RunningPlayer)];
    const bool again = !run.Outputs.IsOpen(run.RunningPlayer) && !file.empty();
    if (again) run.Outputs.Open(run.RunningPlayer, PathInFolder(run.Game->GameFolder, file), false);
    if (!run.Outputs.IsOpen(run.RunningPlayer)) return Refuse(run, "Output file not open.");
    const std::string text = TextOfValue(value);
    run.Outputs.Write(run.RunningPlayer, text == "\t" ? text : text + "\n");
    return true;
}

bool MoveMoney(RunState& run, double amount) {
    return !IsZero(AtmTransaction(*run.Game, run.RunningPlayer, ToCurrency(amount)));
}

/// Opens another dice roll file; false, with the warning, when it is missing or not valid.
bool OpenForPlayback(RunState& run, const std::string& path) {
    std::error_code ignored;
    if (path.empty() || !std::filesystem::exists(path, ignored)) return Refuse(run, "File not found.");
    if (!OpenDiceRollFile(*run.Game, path).empty()) return Refuse(run, "File is not a valid dice roll file.");
    return true;
}

}  // namespace

bool Command(RunState& run, int action) {
    if (run.RunningPlayer < 1) return false;
    switch (action) {
        case 100:
        case 101:
        case 102:
        case 103:
            return StartNewSession(run, action);
        case 114:
            return DropProbabilities(run);
        case 115:
            return StopRun(*run.Game);
        case 116:
            run.StepsWanted = true;
            return true;
        case 118:
            return PassDice(run);
        case 119:
            return DropDiceFile(run);
        case 213:
            return UseProbabilities(run, {});
        case 310:
            return PlayDiceFile(run, {}, 0, 0);
        default:
            return false;
    }
}

bool Command(RunState& run, int action, const ScriptValue& operand) {
    if (run.RunningPlayer < 1) return false;
    const auto text = [&] { return TextOfValue(operand); };
    switch (action) {
        case 210:
            return ShowScriptMessage(run, text());
        case 211:
            return AskQuestion(run, text());
        case 212:
            return PlayFile(run, text());
        case 213:
            return UseProbabilities(run, text());
        case 220:
            return OpenOutput(run, text(), false);
        case 221:
            return OpenOutput(run, text(), true);
        case 223:
            return WriteOutput(run, operand);
        case 225:
            return MoveMoney(run, -NumberOfValue(operand));
        case 226:
            return MoveMoney(run, NumberOfValue(operand));
        default:
            return false;
    }
}

bool PlayDiceFile(RunState& run, std::string_view name, double firstRoll, double lastRoll) {
    Table& t = *run.Game;
    if (run.RunningPlayer < 1) return false;
    if (!MayUseFiles(run)) return RefuseFor(run, " is not allowed to activate roll files.");
    const int first = RoundToInt32(firstRoll).value_or(-1);
    const int last = RoundToInt32(lastRoll).value_or(-1);
    if (first < 0 || last < 0) return Refuse(run, "Reference to rolls out of limits.");
    if (name.empty()) {
        if (t.DiceRollFileName.empty()) return Refuse(run, "Dice roll file not open.");
    } else {
        const std::string path = PathInFolder(t.GameFolder, name);
        if (path != t.DiceRollFileName && !OpenForPlayback(run, path)) return false;
    }
    if (!SetDiceFileMode(t, 2)) return false;
    if (first > 0) {
        t.DiceFileNextRecord = first;
        t.DiceFileLastRecord = first;
        t.DiceFilePosition = first;
        t.DiceFileEnd = last;
    }
    return true;
}

}  // namespace tarnwick
