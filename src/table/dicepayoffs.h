// Which entry of a payoff table, or which part of a split bet, two dice decide.
#pragma once

#include "table/bets.h"

namespace tarnwick {

/// FieldPayoff's entry 1..21 of the dice.
constexpr int FieldIndex(int die1, int die2) {
    const int low = die1 < die2 ? die1 : die2;
    switch (die1 + die2) {
        case 2:
            return 1;
        case 3:
            return 2;
        case 4:
            return low == 1 ? 3 : 4;
        case 5:
            return low == 1 ? 5 : 6;
        case 6:
            return 6 + low;
        case 7:
            return 9 + low;
        case 8:
            return 11 + low;
        case 9:
            return 13 + low;
        case 10:
            return 14 + low;
        case 11:
            return 20;
        default:
            return 21;
    }
}

/// MidwayPayoff's entry 1..5 of a total 6, 7 or 8.
constexpr int MidwayIndex(int total, int die1, int die2) {
    if (total == 7) return 3;
    return total == 6 ? (die1 == die2 ? 1 : 2) : (die1 == die2 ? 5 : 4);
}

/// The row that a split bet's winning part is paid by.
constexpr int PartRow(int row, int total) {
    if (row == Row::CandE) return total == 11 ? Row::Eleven : Row::Craps;
    switch (total) {
        case 2:
            return Row::Two;
        case 3:
            return Row::Three;
        case 7:
            return Row::Seven;
        case 11:
            return Row::Eleven;
        default:
            return Row::Twelve;
    }
}

/// Parts of a split bet; 0 for every other row.
constexpr int PartsOf(int row) { return row == Row::CandE ? 2 : row == Row::Horn ? 4 : row == Row::World ? 5 : 0; }

}  // namespace tarnwick
