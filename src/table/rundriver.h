// Auto-Roll and Hyper-Drive.
#pragma once

#include <string>

#include "table/crapcnst.h"

namespace tarnwick {

/// The HyperThrottle of Auto-Roll; below it are the speeds of Hyper-Drive.
constexpr int AutoRollThrottle = 12;

/// Starts a run (Auto-Roll at AutoRollThrottle, else Hyper-Drive) and rolls until it stops; stops a running one.
void ToggleAutoRoll(Table& t);

/// Ends a run. In Hyper-Drive the stop reason is shown.
void StopAutoRoll(Table& t);

/// Caption of the button that starts and stops runs, with its mnemonic: "Start &Hyper-Drive".
std::string RunButtonText(const Table& t);

/// Moves the speed bar 0..12; a run that is on changes its kind at once.
void SetHyperThrottle(Table& t, int throttle);

enum class RunAnswer { NothingRuns, Stopped, GoesOn };
/// Asks whether the run, or the script in hand, is to be stopped, and stops it on Yes.
RunAnswer AskAboutRun(Table& t);

/// The question before a command that would disturb a run or a script; true when the command must be dropped.
bool GuardCommand(Table& t);

/// Whether the run must stop at the session's present roll.
bool AutoStopDue(const Table& t);

/// The dialogs of the delay (0..300 seconds) and of the Auto-Stop (0: none).
void AskAutoRollDelay(Table& t);
void AskAutoStop(Table& t);

}  // namespace tarnwick
