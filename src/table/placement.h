// Placing, changing and removing bets. Every change of a bet, by hand, script, standing order or settlement, is a
// signed request that goes through CheckBetRules, which bends it to the rules, says why and applies what is left.
#pragma once

#include "table/crapcnst.h"

namespace tarnwick {

/// What became of a request.
struct BetChange {
    currency Delta;      ///< the change applied to the bet (BetDelta)
    currency MinBetNow;  ///< the limits of the bet at hand, 0 when the request ended before they were needed
    currency MaxBetNow;
};

enum class Speak { Aloud, Silent };

/// The front door: refuses increases of bets that the table doesn't offer, else CheckBetRules; then the check sound and
/// the redraw outside Hyper-Drive. p 1..8, row 1..91 or 100..199; any amount.
BetChange PlaceBet(Table& t, int p, int row, currency request);

/// All rules of row 1..91 or 100..199 of position p 1..8 for a signed request. `Speak::Silent` shows nothing, whatever
/// NotifyBits says. Rows above 91 hold any value within +-99,999,999,999,999.9999 and touch no money.
BetChange CheckBetRules(Table& t, int p, int row, currency request, Speak speak = Speak::Aloud);

/// Leaves a settled bet of row 1..91 (nothing of it is established any more) where it stands, as if it had been taken
/// down and made again through CheckBetRules. False, with nothing changed, when the rules might bend it or have
/// something to say: then it must go through them.
bool KeepSettledBet(Table& t, int p, int row);

/// Takes the whole bet off through PlaceBet; does nothing on a bet of 0.
void RemoveBet(Table& t, int p, int row);

/// Sets a bet (row 1..91) to `amount`, below 0 as 0: what stands is taken off first, then the amount is placed.
void SetBet(Table& t, int p, int row, currency amount);
/// Sets a CheckStack (row 100..199), held within its limits.
void SetStack(Table& t, int p, int row, currency amount);

/// The largest bet that the rules allow, silently.
void MaxOutBet(Table& t, int p, int row);
/// MaxOutBet on every odds row of the Do (44, 25..30) or the Don't side (47, 13..18) whose flat bet stands.
void MaxAllOdds(Table& t, int p);
void MaxAllDontOdds(Table& t, int p);

/// Moves a Place bet (31..36) to the Buy row of its number, with its called state; other rows get a message.
void BuyPlaceBet(Table& t, int p, int row);

/// Calls a standing bet ON or OFF. From a script the state becomes 2 or -1; from the user, calling the opposite of what
/// was called returns the bet to its default. Rows that can't be called get a message. False when nothing was done.
bool CallBet(Table& t, int p, int row, bool on, bool fromScript = false);

/// Moves what stands in the Come (45) or Don't Come (48) box of p to row 19..24 or 7..12.
void MoveContractBet(Table& t, int p, int fromRow, int toRow);

/// Shows every bet and CheckStack anew, outside Hyper-Drive.
void RedrawAllBets(Table& t);

/// Sets the state of a new bet on row 1..91: ComeOutWorking on a come-out, else 1.
void ResetBetWorking(Table& t, int p, int row);

/// Limits of the bet at hand, whole smallest checks.
currency MinimumBet(const Table& t, int row);
currency MaximumBet(const Table& t, int p, int row);

/// State of the bet: 0 off by default, 1 works, 2 called ON, -1 called OFF. Row 0..100.
int BetWorking(const Table& t, int p, int row);
void SetBetWorking(Table& t, int p, int row, int state);
/// The whole table of it as cells, for the log and the game file.
PerBet<std::int8_t, 101> AllBetWorking(const Table& t);
/// Changes one entry of the come-out list; bets that stand keep their state until the point next moves.
void SetComeOutWorking(Table& t, int p, int row, bool works);
/// The point went on or off: uncalled bets take their state from it.
void ApplyPointWorking(Table& t);

/// Recomputes reserved vigs and BetsOnTable of every seat after a change of vig settings, Lay payoffs or checks.
void RecomputeVigs(Table& t);
/// Sum that BetsOnTable[p] must hold: rows 1..91 and the vig cells of families charged up front.
currency BetsOnTableOf(const Table& t, int p);

}  // namespace tarnwick
