// Standing orders of a player.
#pragma once

#include <string>

#include "table/crapcnst.h"

namespace tarnwick {

/// What AutoAdjustBet works on, as the bet rules hand it over.
struct AdjustRequest {
    currency Delta;
    currency MinBet;
    currency MaxBet;
    std::string* Text = nullptr;  ///< the rules' message, brought into line; null when nothing will be shown
};

/// Changes `request.Delta` to one that leaves the bet (p 1..8, row 1..91) a multiple of what pays exactly, by the
/// player's AutoAdjustMode (above 0) and bias.
void AutoAdjustBet(const Table& t, int p, int row, AdjustRequest& request);

/// The unit that pays `row` exactly as things stand: of the Come row for a line bet with a point on, and so on.
currency AdjustUnit(const Table& t, int row);

/// Switches of the Auto-Play window, with what they do at once.
void SetAutoTakeFullOdds(Table& t, int p, bool on);
void SetAutoLayFullOdds(Table& t, int p, bool on);
void SetAutoDownPlaceBets(Table& t, int p, bool on);

/// The standing orders of a new point, for all players in turn: full odds, Place and Buy bets on the point down.
void ApplyNewPointOrders(Table& t);

/// A position's standing orders back to those of a new player.
void ResetStandingOrders(Table& t, int p);

}  // namespace tarnwick
