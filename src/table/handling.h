// What becomes of a settled bet: by the player's standing rule, by the dialog, or down it comes.
#pragma once

#include "table/settledialog.h"

namespace tarnwick {

/// The choice "Take Max Odds" of a returned bet, in the place of the winners' Parlay.
constexpr int ReturnedMaxOdds = 5;

/// Disposes of a bet that won or pushed, lost, or (odds that were off) comes back.
void HandleWinner(Table& t, DecidedBet& bet);
void HandleLoser(Table& t, DecidedBet& bet);
void HandleReturnedBet(Table& t, DecidedBet& bet);

/// Takes the settled bet off the felt, silently; its vig was released before.
void TakeBetDown(Table& t, const DecidedBet& bet);

/// The vig reserved for the settled bet leaves BetsOnTable, and its cell becomes 0. Returns what the cell held.
currency ReleaseVig(Table& t, const DecidedBet& bet);

}  // namespace tarnwick
