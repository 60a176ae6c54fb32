// Where the 36 ordered results lie in the probability matrix.
//
// Kind 1 holds values in thousandths of a percent, kind 0 the state of each cell (128: locked by the user). The results
// fill the triangle of columns 2..7 and rows col-1..13-col. Column 1, rows 1..11, holds the totals 2..12; rows 12 and
// 13, columns 2..7, the six faces of the first and the second die. Kind 0, column 0, row 0 is the mode: 0 the results
// follow the faces, else each is free.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

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

/// `ways` of 36 in thousandths of a percent, to the nearest.
constexpr std::int32_t TrueChance(int ways) { return (2 * ways * WholeChance + 36) / 72; }

}  // namespace tarnwick
