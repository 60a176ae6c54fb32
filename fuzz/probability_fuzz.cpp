// Any bytes as a probability file: what is taken has no chance below 0, can be rolled, figured and saved, and the first
// edit makes it exactly 100%.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "config/advantage.h"
#include "config/payoffs.h"
#include "dice/dice.h"
#include "dice/matrix.h"
#include "dice/matrixeditor.h"
#include "dice/probabilityfile.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

std::int64_t SumOfResults(const tarnwick::Table& t) {
    std::int64_t sum = 0;
    for (const tarnwick::MatrixCell& cell : tarnwick::MatrixWalk) {
        Require(t.ProbabilityMatrix[1][cell.Col][cell.Row] >= 0);
        sum += t.ProbabilityMatrix[1][cell.Col][cell.Row];
    }
    return sum;
}

void RequireFigures(const tarnwick::Table& t, int row) {
    const tarnwick::DiceChances dice = tarnwick::MatrixChances(t.ProbabilityMatrix);
    double sum = 0;
    for (const double chance : dice.Results) {
        Require(0 <= chance && chance <= 1);
        sum += chance;
    }
    Require(std::abs(sum - 1) < 1e-9);
    const tarnwick::Advantage a = tarnwick::FigureAdvantage(t, dice, row);
    Require(std::isfinite(a.EvRoll) && std::isfinite(a.EvDec) && std::isfinite(a.RollsDec) && std::isfinite(a.SdRoll) &&
            std::isfinite(a.SdDec));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarnwick;
    static const auto game = [] {
        auto t = std::make_unique<Table>();
        RestoreDefaultPayoffs(*t);
        SeedEverything(*t, 1);
        return t;
    }();
    Table& t = *game;
    ResetProbabilityMatrix(t);
    if (!ProbabilitiesFromBytes({reinterpret_cast<const char*>(data), size}, t.ProbabilityMatrix)) {
        Require(SumOfResults(t) == WholeChance);
        return 0;
    }
    MatrixCells again{};
    const MatrixCells taken = t.ProbabilityMatrix;
    Require(ProbabilitiesFromBytes(ProbabilityFileBytes(taken), again) && again == taken);
    const std::int64_t sum = SumOfResults(t);
    RequireFigures(t, 1 + (size > 0 ? data[size - 1] % 91 : 0));
    // Draws that needn't be repeated, which a tiny sum would make long.
    for (const std::int64_t draw : {std::int64_t{1}, std::clamp<std::int64_t>(sum, 1, WholeChance)}) {
        LookupDice(t, static_cast<std::int32_t>(draw));
        Require(1 <= t.Die1 && t.Die1 <= 6 && 1 <= t.Die2 && t.Die2 <= 6);
    }
    // The bytes behind the matrix say what is done with it.
    for (std::size_t at = 1152; at + 1 < size && at < 1160; at += 2) {
        const CellPlace place{data[at] % 9, data[at + 1] % 15};
        CellText(t, place);
        if (EnterCell(t, place, std::to_string(data[at] / 2)).empty()) Require(SumOfResults(t) == WholeChance);
    }
    t.ProbabilityMatrix = taken;
    SetFreeForm(t, !IsFreeForm(t));
    Require(SumOfResults(t) == WholeChance);
    ComputeAxisDice(t, {2, 30}, {3, 60});
    Require(SumOfResults(t) == WholeChance);
    return 0;
}
