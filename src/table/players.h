// Seating, renaming, moving and removing players, and passing the dice.
#pragma once

#include <string>

#include "table/crapcnst.h"

namespace tarnwick {

/// "4-left" .. "1-left" for positions 1..4, "1-right" .. "4-right" for 5..8.
std::string StickName(int p);

/// Empty when `name` can be given to a player at position `exceptPosition` (0: a new one); else why not.
std::string NameRefusal(const Table& t, const std::string& name, int exceptPosition);

/// Seats a player at the empty position p 1..8 with a buy-in within +-9,999,999. Returns what is wrong, or nothing.
std::string AddPlayer(Table& t, int p, const std::string& name, currency buyIn);
/// The same with its questions; false when the user gave up.
bool AskAddPlayer(Table& t, int p);

/// Gives p another name; returns what is wrong, or nothing. The sessions log keeps its file.
std::string RenamePlayer(Table& t, int p, const std::string& name);
bool AskRenamePlayer(Table& t, int p);

/// Money that leaving would abandon: Pass Line with a point on, and Come bets on numbers; 0 when such bets are
/// returned.
currency AbandonedBets(const Table& t, int p);
/// Cashes out p 1..8: logs, settles abandoned bets as lost, reports the session, clears the position, passes the dice.
void RemovePlayer(Table& t, int p);
/// The same behind its question.
bool AskRemovePlayer(Table& t, int p);

/// Makes p 1..8 an empty position: bets, figures, settings, script and name go. Shooter and counts are the caller's.
void ClearPosition(Table& t, int p);

/// Exchanges two positions 1..8 whole.
void MovePlayer(Table& t, int from, int to);

enum class PassMode { SevenOut = 0, Request = 1, PlayerLeft = 2 };
void PassTheDice(Table& t, PassMode mode);

/// What the shooter's requirement counts: a Pass Line or Don't Pass bet of p.
bool HasLineBet(const Table& t, int p);

}  // namespace tarnwick
