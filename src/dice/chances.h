// The chance of every result of the dice.
#pragma once

#include <array>
#include <cstddef>

#include "dice/dicestate.h"

namespace tarnwick {

struct DiceChances {
    std::array<double, 36> Results{};  ///< 6 * (die1 - 1) + die2 - 1
    std::array<double, 13> Totals{};   ///< 2..12

    double Of(int die1, int die2) const { return Results[static_cast<std::size_t>(6 * (die1 - 1) + die2 - 1)]; }
    double OfTotal(int total) const { return Totals[static_cast<std::size_t>(total)]; }
};

/// Fair dice.
const DiceChances& TrueChances();

/// What draws from the matrix give: a value over 100000, as far as the running sum stays within 100000; a matrix that
/// sums to less is as if scaled up, since draws beyond its sum are drawn again, and one that sums to nothing is fair.
DiceChances MatrixChances(const MatrixCells& cells);

}  // namespace tarnwick
