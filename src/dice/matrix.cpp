#include "dice/matrix.h"

#include "dice/dice.h"

namespace tarnwick {

namespace {

/// The first cell that reaches `d` in a running sum of the chances; null when none does. `highest` gets the greatest
/// sum met.
const MatrixCell* FindCell(const MatrixCells& matrix, std::int32_t d, std::int64_t& highest) {
    std::int64_t sum = 0;
    highest = 0;
    for (const MatrixCell& cell : MatrixWalk) {
        const std::int64_t before = sum;
        sum += matrix[1][cell.Col][cell.Row];
        if (sum >= d && d > before) return &cell;
        if (sum > highest) highest = sum;
    }
    return nullptr;
}

}  // namespace

void LookupDice(Table& t, std::int32_t d) {
    std::int64_t highest = 0;
    const MatrixCell* cell = FindCell(t.ProbabilityMatrix, d, highest);
    while (cell == nullptr) {
        const double u = Uniform(t);
        if (highest < 1) {
            // No draw can ever find a cell of such a table: the dice are fair then.
            cell = &MatrixWalk[static_cast<std::size_t>(36 * u)];
            break;
        }
        cell = FindCell(t.ProbabilityMatrix, static_cast<std::int32_t>(WholeChance * u) + 1, highest);
    }
    t.Die1 = cell->Die1;
    t.Die2 = cell->Die2;
}

void ResetProbabilityMatrix(Table& t) {
    t.ProbabilityMatrix = {};
    auto& state = t.ProbabilityMatrix[0];
    auto& chance = t.ProbabilityMatrix[1];
    state[0][1] = 1;  // the selected cell of the matrix's display
    state[0][2] = 6;
    for (const MatrixCell& cell : MatrixWalk) chance[cell.Col][cell.Row] = TrueChance(1);
    for (int row = 1; row <= 11; ++row)
        chance[1][static_cast<std::size_t>(row)] = TrueChance(6 - (row < 6 ? 6 - row : row - 6));
    for (std::size_t col = 2; col <= 7; ++col) chance[col][12] = chance[col][13] = TrueChance(6);
}

}  // namespace tarnwick
