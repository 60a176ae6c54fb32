#include "dice/matrix.h"

#include "dice/dice.h"

namespace tarnwick {

namespace {

/// Sets the dice by the first cell at which the running sum of the chances reaches `d`; false when none does. As every
/// sum before is below `d` (above 0), such a cell has a chance above 0.
bool FindCell(Table& t, std::int32_t d) {
    if (d < 1) return false;
    std::int64_t sum = 0;
    for (int col = 2; col <= 7; ++col) {
        const auto& chances = t.ProbabilityMatrix[1][static_cast<std::size_t>(col)];
        for (int row = col - 1; row <= 13 - col; ++row) {
            sum += chances[static_cast<std::size_t>(row)];
            if (sum < d) continue;
            const MatrixCell cell = CellAt(col, row);
            t.Die1 = cell.Die1;
            t.Die2 = cell.Die2;
            return true;
        }
    }
    return false;
}

}  // namespace

void LookupDice(Table& t, std::int32_t d) {
    if (FindCell(t, d)) return;
    if (!FindCell(t, 1)) {
        // No draw can ever find a cell of such a table: the dice are fair then.
        const MatrixCell& cell = MatrixWalk[static_cast<std::size_t>(36 * Uniform(t))];
        t.Die1 = cell.Die1;
        t.Die2 = cell.Die2;
        return;
    }
    while (!FindCell(t, static_cast<std::int32_t>(WholeChance * Uniform(t)) + 1)) continue;
}

void SumMatrixTotals(MatrixCells& cells) {
    auto& chance = cells[1];
    for (std::size_t row = 1; row <= 11; ++row) chance[1][row] = 0;
    for (const MatrixCell& cell : MatrixWalk) chance[1][cell.Row] += chance[cell.Col][cell.Row];
}

void ResetProbabilityMatrix(Table& t) {
    t.ProbabilityMatrix = {};
    auto& state = t.ProbabilityMatrix[0];
    auto& chance = t.ProbabilityMatrix[1];
    state[0][1] = 1;  // the selected cell of the matrix's display
    state[0][2] = 6;
    for (int i = 0; i < 36; ++i) {
        const MatrixCell& cell = MatrixWalk[static_cast<std::size_t>(i)];
        chance[cell.Col][cell.Row] = EqualChance(i, 36);
    }
    for (int i = 0; i < 6; ++i) {
        const auto col = static_cast<std::size_t>(i + 2);
        chance[col][FirstDieRow] = chance[col][SecondDieRow] = EqualChance(i, 6);
    }
    SumMatrixTotals(t.ProbabilityMatrix);
}

}  // namespace tarnwick
