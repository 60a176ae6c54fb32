// The accumulators: every figure by roll, bet, hand, session and player is read from here.
//
// pos = p + 9 * scope: position p 0..8 (0 the table), scope 0 current hand, 1 last hand, 2 current session, 3 last
// session, 4 all sessions. Readers give exactly the figures told, whatever the storage; some fold the log of rolls
// first, so a table is read by one thread at a time too.
#pragma once

#include <cstdint>

#include "table/crapcnst.h"

namespace tarnwick {

// --- the roll cycle's part, in its order ---

/// Counts the roll that Die1 and Die2 show: opens a hand if none runs, counts the roll for the table and HandShooter,
/// and tallies its roll events. Needs Die1, Die2 1..6, and HandShooter 0 or a seated position.
inline void TallyRoll(Table& t);
/// A pass of the roll just counted, before Point moves: counts it under Point, or under DiceTotal on a come-out. At
/// most one pass or miss, and one come-out, a roll.
inline void TallyPass(Table& t);
/// A miss, likewise.
inline void TallyMiss(Table& t);
/// The roll just counted is a come-out, whatever its total.
inline void TallyComeout(Table& t);
/// One decided bet of position p 1..8, row 1..91, with its amount (0 or more) and net result; a net of 0 leaves no
/// mark. Adds the vig of a Lay or Buy bet, and the flat amount of a Come bet on a number.
inline void RecordBetResult(Table& t, int p, int row, currency wager, currency net);
/// After settlement, once a roll: bankroll sums, highs and lows.
inline void TallyBankrolls(Table& t);
/// Closes the hand in progress: its figures become those of the last hand.
void EndHandRollover(Table& t);

// --- sessions and positions ---

/// The start of a session for p 1..8 with `amount`. A negative amount also allows negative bankrolls.
void SetBeginningBankroll(Table& t, int p, currency amount);
/// Sets the live bankroll of p and its copies in the session and all-sessions scopes.
inline void SetBankroll(Table& t, int p, currency amount);
/// New session with previous data kept: closes a hand that has rolls, current session into last session, then the hand
/// and session figures and the gaps to 0. A session without a roll leaves the last session as it was. Bankrolls stay.
/// Clears ComeFlatNow too; the vig cells fall with the bets.
void RolloverSession(Table& t);
/// New session with nothing kept: every scope to 0, bankrolls and ComeFlatNow too.
void EraseStatistics(Table& t);
/// Zeroes all figures of p 1..8 in every scope, its ComeFlatNow and its points of the graph. The table keeps its own.
/// For a player who leaves (before the name goes) or joins.
void ClearPositionStatistics(Table& t, int p);
/// Exchanges all figures of two positions 1..8, the graph's points too; ComeFlatNow, with the bets, is the caller's.
void SwapPositionStatistics(Table& t, int p, int q);
/// What was rolled so far stays with HandShooter. The next roll notices a new HandShooter by itself; calling this
/// before the change is allowed.
void SettleHandShooter(Table& t);

// --- readers; k 0..90 a roll event, gap 0..200, total 2..12, c 1 come-outs, 2 passes, 3 misses ---

std::int32_t RollCount(const Table& t, int pos, int k);
std::int32_t RollsSince(const Table& t, int k);
std::int32_t RollGapTally(const Table& t, int k, int gap);
std::int32_t PointTally(const Table& t, int pos, int total, int c);
std::int32_t HandCount(const Table& t, int pos);
std::int32_t PlayerRolls(const Table& t, int pos);
std::int32_t MostRolls(const Table& t, int pos);
std::int32_t MostComeouts(const Table& t, int pos);
std::int32_t MostPasses(const Table& t, int pos);
std::int32_t MostMisses(const Table& t, int pos);
/// Sum of the session's bankroll samples, the beginning bankroll being the first.
currency BankrollSum(const Table& t, int p);
/// stat 1 count, 2 sum, 3 highest, 4 lowest above 0, 5 session roll of the last, 6 last; row 0..100.
currency BetStatWagers(const Table& t, int pos, int row, int stat);
currency BetStatWins(const Table& t, int pos, int row, int stat);
currency BetStatLosses(const Table& t, int pos, int row, int stat);
/// Flat amounts of decided Come bets, row 19..24.
currency ComeFlatSum(const Table& t, int pos, int row);

/// Rolls of the session (RollCount of position 0, scope 2, event 0).
inline std::int32_t SessionRolls(const Table& t);
/// Rolls of the hand in progress.
inline std::int32_t HandRolls(const Table& t);

/// One stat of rows first..last of `pos` together: 1, 2 summed; 3 the highest; 4 the lowest above 0; 5 the greatest; 6
/// the sum over the rows whose stat 5 is that greatest. `kind` 0 wagers, 1 wins, 2 losses.
currency SumBetStats(const Table& t, int kind, int pos, int firstRow, int lastRow, int stat);

}  // namespace tarnwick

#include "stats/hot.h"
