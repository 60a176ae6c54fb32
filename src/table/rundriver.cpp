#include "table/rundriver.h"

#include <algorithm>
#include <optional>

#include "stats/accumulators.h"
#include "table/format.h"
#include "table/messages.h"
#include "table/placement.h"
#include "table/rolldice.h"
#include "table/screen.h"

namespace tarnwick {

namespace {

void TellRunState(Table& t) {
    if (t.Logs != nullptr) t.Logs->RunStateChanged(t);
    if (t.Front != nullptr) t.Front->RunStateChanged(t.AutoRollActive, t.HyperDriveActive);
}

std::string ScriptQuestion(const Table& t) {
    const std::string& name = t.PlayerName[static_cast<std::size_t>(t.ScriptPlayer)];
    return name + "'s script processing.\n\nDo you want to interrupt auto-betting?";
}

/// A script in a step may be interrupted; ShowMessage notes the reason.
bool OfferInterrupt(Table& t) {
    const bool stop = AskYesNo(t, "Auto-Bet Active", ScriptQuestion(t));
    if (stop) t.ScriptStopRequested = true;
    return stop;
}

std::optional<currency> AskAmount(Table& t, std::string title, std::string text, currency present) {
    Message message{std::move(title), std::move(text), MsgButton::InputQuestion, 400, PlainAmount(present), {}};
    const Answer answer = ShowMessage(t, message);
    if (answer.Result != MsgAnswer::Ok) return std::nullopt;
    return ParseAmount(answer.Input);
}

}  // namespace

void StopAutoRoll(Table& t) {
    if (!t.AutoRollActive) return;
    t.AutoRollActive = false;
    const bool hyperDrive = t.HyperDriveActive;
    t.HyperDriveActive = false;
    TellRunState(t);
    if (!hyperDrive) return;
    if (!t.StopReason.empty()) ShowNote(t, "Hyper-Drive Stopped", t.StopReason);
    RedrawAllBets(t);
    if (t.Front != nullptr) t.Front->RedrawTable();
}

void ToggleAutoRoll(Table& t) {
    if (t.AutoRollActive) return StopAutoRoll(t);
    if (t.ScriptRunning) {
        OfferInterrupt(t);
        return;
    }
    if (t.RollInProgress) return;
    t.AutoRollActive = true;
    t.HyperDriveActive = t.HyperThrottle != AutoRollThrottle;
    TellRunState(t);
    RollDice(t);
    // A call that ended before its first roll leaves no run behind.
    if (t.AutoRollActive) StopAutoRoll(t);
}

std::string RunButtonText(const Table& t) {
    const char* const kind = t.HyperThrottle != AutoRollThrottle ? "&Hyper-Drive" : "&Auto-Roll";
    return std::string(t.AutoRollActive ? "Stop " : "Start ") + kind;
}

void SetHyperThrottle(Table& t, int throttle) {
    t.HyperThrottle = std::clamp(throttle, 0, AutoRollThrottle);
    t.GameChanged = true;
    if (!t.AutoRollActive) return;
    const bool hyperDrive = t.HyperThrottle != AutoRollThrottle;
    if (hyperDrive == t.HyperDriveActive) return;
    t.HyperDriveActive = hyperDrive;
    TellRunState(t);
    if (!hyperDrive) RedrawAllBets(t);
}

RunAnswer AskAboutRun(Table& t) {
    if (t.AutoRollActive) {
        const bool hyper = t.HyperDriveActive;
        const bool stop = hyper ? AskYesNo(t, "Hyper-Drive Active", "Do you want to stop the Hyper-Drive?")
                                : AskYesNo(t, "Auto-Roll Active", "Do you want to stop Auto-Rolling?");
        if (stop) StopAutoRoll(t);
        return stop ? RunAnswer::Stopped : RunAnswer::GoesOn;
    }
    if (!t.ScriptRunning) return RunAnswer::NothingRuns;
    return OfferInterrupt(t) ? RunAnswer::Stopped : RunAnswer::GoesOn;
}

bool GuardCommand(Table& t) { return AskAboutRun(t) != RunAnswer::NothingRuns; }

bool AutoStopDue(const Table& t) {
    if (t.AutoStopRolls <= currency{}) return false;
    const std::int64_t rolls = SessionRolls(t);
    return rolls > 0 && Dollars(rolls).TenThousandths % t.AutoStopRolls.TenThousandths == 0;
}

void AskAutoRollDelay(Table& t) {
    const auto seconds = AskAmount(t, "Set Auto-Roll Time Delay",
                                   "Enter seconds of delay desired between rolls \n(min 0, max 300, fractional "
                                   "amounts allowed.)",
                                   t.AutoRollDelay);
    if (!seconds) return;
    t.AutoRollDelay = std::clamp(*seconds, currency{}, Dollars(300));
    t.GameChanged = true;
}

void AskAutoStop(Table& t) {
    const auto rolls = AskAmount(t, "Set Auto-Stop",
                                 "How often (number of rolls) would you like Auto-Roll / Hyper-Drive to "
                                 "automatically stop?  \n(This is in addition to any auto-stops of the scripts.)",
                                 t.AutoStopRolls);
    if (!rolls) return;
    t.AutoStopRolls = std::max(currency{}, *rolls);
    t.GameChanged = true;
}

}  // namespace tarnwick
