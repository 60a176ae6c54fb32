// Where the 36 ordered results lie in the probability matrix, and their true chances.
//
// Kind 1 holds values in thousandths of a percent, kind 0 the state of each cell (128: locked by the user). The results
// fill the triangle of columns 2..7 and rows col-1..13-col. Column 1, rows 1..11, holds the totals 2..12; rows 12 and
// 13, columns 2..7, the six faces of the first and the second die. Kind 0, column 0, row 0 is the mode: 0 the results
// follow the faces (Percentage Dice), else each is free (Free Form Dice); rows 1 and 2 beside it are the column and the
// row of the cell selected for display.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "dice/dicestate.h"

namespace tarnwick {

struct MatrixCell {
    std::uint8_t Col, Row;
    std::uint8_t Die1, Die2;
};

constexpr MatrixCell CellAt(int col, int row) {
    const int die1 = row >= 7 ? col + row - 7 : col - 1;
    const int die2 = row >= 7 ? 8 - col : row - col + 2;
    return {static_cast<std::uint8_t>(col), static_cast<std::uint8_t>(row), static_cast<std::uint8_t>(die1),
            static_cast<std::uint8_t>(die2)};
}

/// The result cells in the order in which a draw walks them.
constexpr std::array<MatrixCell, 36> MatrixWalk = [] {
    std::array<MatrixCell, 36> cells{};
    std::size_t n = 0;
    for (int col = 2; col <= 7; ++col)
        for (int row = col - 1; row <= 13 - col; ++row) cells[n++] = CellAt(col, row);
    return cells;
}();

/// Sum of all chances: 100%.
constexpr std::int32_t WholeChance = 100'000;

/// Chance `i` (from 0) of `n` equal ones. Running sums are rounded, not the chances, so that all n are exactly 100%.
constexpr std::int32_t EqualChance(int i, int n) {
    const auto sumOf = [n](int k) { return (2 * WholeChance * k + n) / (2 * n); };
    return sumOf(i + 1) - sumOf(i);
}

constexpr int FirstDieRow = 12, SecondDieRow = 13;
/// Row of a total's cell, in column 1.
constexpr int TotalRow(int total) { return total - 1; }

/// Makes each total the sum of its results.
void SumMatrixTotals(MatrixCells& cells);

}  // namespace tarnwick
