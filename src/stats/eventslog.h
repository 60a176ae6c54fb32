// The Events Log's lines. LogEvent takes any line; every other procedure here tests EventsLogOn and the flag of its
// kind of event itself, and changes nothing of the table but EventsLogHeading. Amounts are plain decimals behind "$".
#pragma once

#include <string>
#include <string_view>

#include "table/crapcnst.h"

namespace tarnwick {

/// Gives one line to the log. The caller has tested EventsLogOn and the flag of the line's kind.
void LogEvent(Table& t, std::string_view line);

/// Begins a new block: the next heading is written again. LogChangesSinceRoll and LogBankrollResults do it themselves;
/// settlement needs it once a roll, before its first bet.
inline void BeginLogBlock(Table& t) { t.EventsLogHeading = {}; }

// --- the roll cycle ---

/// The changes since the last roll, before the snapshot: scripts, bankrolls, bets, CheckStacks. Bets are compared with
/// PrevBetAmount, what stood when the last roll began: a bet that the last roll resolved isn't told as removed, and
/// what moved from a box is taken to have stood on its number. Only rows that were touched, moved or may be called are
/// looked at.
void LogChangesSinceRoll(Table& t);
enum class DiceSource { Pad, File, Generator };
/// The roll of Die1 and Die2, not yet counted, with its source.
void LogRoll(Table& t, DiceSource source);
/// The line decision: "Pass (point rolled)", behind four blanks.
void LogDecision(Table& t, std::string_view decision);
/// A working bet of p 1..8 on row 1..91 was settled with a net result. The block's heading is written even if the line
/// isn't recorded.
void LogBetResult(Table& t, int p, int row, currency net);
/// What stood in a box moved to its number.
void LogContractMove(Table& t, int p, int fromRow, int toRow);
/// Bankrolls that changed since BankrollAtRollStart.
void LogBankrollResults(Table& t);
/// After a seven-out: who shoots next.
void LogNextShooter(Table& t);

/// Remember what LogChangesSinceRoll compares with: the working states before the scripts run, so that their calls are
/// told, scripts and bankrolls after them. Needed while the log is on. Of working states only those count of bets that
/// stand or stood when the roll began.
void RememberWorkingForLog(Table& t);
void RememberForLog(Table& t);
/// Turns the log on or off. What is remembered starts from the present state when it turns on; PrevBetAmount stays.
void SetEventsLogOn(Table& t, bool on);

// --- sessions, players, sources ---

/// The lines that open a session. `fileExists`: a rule line goes first.
void LogSessionStart(Table& t, bool fileExists);
/// Player p 1..8 joined with `buyIn`, or took another place `to`.
void LogJoined(Table& t, int p, currency buyIn);
void LogMovedSeat(Table& t, int p, int to);
void LogRenamed(Table& t, std::string_view oldName, std::string_view newName);
/// The dice were passed to p at a player's request.
void LogDicePassed(Table& t, int p);
/// Player p leaves; `abandoned` is what lies on bets that he leaves to the house. Needs Bankroll and BankrollInvested
/// as they were before those bets are settled.
void LogCashOut(Table& t, int p, currency abandoned);
void LogSeeded(Table& t, std::int64_t seed);
/// The open dice roll file begins to play.
void LogPlayback(Table& t);

}  // namespace tarnwick
