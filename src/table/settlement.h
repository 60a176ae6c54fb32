// Settling a bet that the dice decided: exact result, rounding to checks, money, statistics, and what becomes of the
// bet.
#pragma once

#include "table/crapcnst.h"

namespace tarnwick {

/// Positions are paid from the two ends of the table inward, as a dealer does.
constexpr std::array<int, Positions> PayOrder = {0, 1, 8, 2, 7, 3, 6, 4, 5};

/// A result before and after rounding.
struct Settlement {
    PayoffEntry CurrentPayoff;
    currency GrossResult;  ///< exact to the ten-thousandth; negative for a loss
    currency NetResult;    ///< whole smallest checks, rounded down: what reaches Bankroll
};

/// Settles `row` for all positions in PayOrder. outcome: +1 and -1 the flat part wins or loses, +2 and -2 an odds bet.
void SettleRow(Table& t, int outcome, int row);

/// Settles `row` of the one position p 1..8.
void SettleSeat(Table& t, int p, int outcome, int row);

/// Settles a standing bet as lost and takes it down, without dialog, rebet or sound: for bets that are abandoned.
void SettleAbandoned(Table& t, int p, int row);

/// The result of `amount` on `row` under the dice, PrevPoint and PointsMadeCount as they stand. Changes nothing.
Settlement ComputePayoff(const Table& t, int p, int row, int outcome, currency amount);

}  // namespace tarnwick
