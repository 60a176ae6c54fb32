#include "dice/chances.h"

#include <algorithm>
#include <cstdint>

#include "dice/matrix.h"

namespace tarnwick {

namespace {

/// Chances in the proportion of `weights`, which sum to `whole`.
DiceChances InProportion(const std::array<std::int64_t, 36>& weights, std::int64_t whole) {
    DiceChances chances;
    std::array<std::int64_t, 13> totals{};
    for (std::size_t i = 0; i < 36; ++i) {
        chances.Results[i] = static_cast<double>(weights[i]) / static_cast<double>(whole);
        totals[i / 6 + i % 6 + 2] += weights[i];
    }
    for (std::size_t total = 2; total <= 12; ++total) {
        chances.Totals[total] = static_cast<double>(totals[total]) / static_cast<double>(whole);
    }
    return chances;
}

}  // namespace

const DiceChances& TrueChances() {
    static const DiceChances fair = [] {
        std::array<std::int64_t, 36> ways{};
        ways.fill(1);
        return InProportion(ways, 36);
    }();
    return fair;
}

DiceChances MatrixChances(const MatrixCells& cells) {
    std::array<std::int64_t, 36> weights{};
    std::int64_t sum = 0, reached = 0;
    for (const MatrixCell& cell : MatrixWalk) {
        sum += cells[1][cell.Col][cell.Row];
        const std::int64_t drawn = std::min<std::int64_t>(sum, WholeChance);
        if (drawn <= reached) continue;
        weights[static_cast<std::size_t>(6 * (cell.Die1 - 1) + cell.Die2 - 1)] = drawn - reached;
        reached = drawn;
    }
    return reached > 0 ? InProportion(weights, reached) : TrueChances();
}

}  // namespace tarnwick
