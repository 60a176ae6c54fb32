// The Events Log's lines.
#pragma once

#include <string>
#include <string_view>

#include "table/crapcnst.h"

namespace tarnwick {

/// Gives one line to the log. The caller has tested EventsLogOn and the flag of the line's kind.
void LogEvent(Table& t, std::string_view line);

/// A detail line under `heading`, which is logged first when it isn't the heading of the present block.
void LogUnderHeading(Table& t, std::string_view heading, std::string_view line);

/// Begins a new block: the next heading is written again.
inline void BeginLogBlock(Table& t) { t.EventsLogHeading.clear(); }

/// The changes since the last roll: scripts, bankrolls, bets, CheckStacks.
void LogChangesSinceRoll(Table& t);
/// The roll with its source.
void LogRoll(Table& t, std::string_view source);
/// Bankrolls that changed over the roll, and after a seven-out the next shooter.
void LogBankrollResults(Table& t);
void LogNextShooter(Table& t);
/// The lines that open a session. `fileExists`: a rule line goes first.
void LogSessionStart(Table& t, bool fileExists);
/// Remembers what the next roll's change lines are compared with.
void RememberForLog(Table& t);
/// Turns the log on or off.
void SetEventsLogOn(Table& t, bool on);

}  // namespace tarnwick
