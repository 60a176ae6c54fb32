// What the figures of the advantage cost: one bet, the whole list when a rule changes, and a script that reads them.
#include <benchmark/benchmark.h>

#include <memory>

#include "config/advantagelines.h"
#include "config/comps.h"
#include "config/configure.h"
#include "dice/dice.h"
#include "dice/matrixeditor.h"

namespace {

using namespace tarnwick;

std::unique_ptr<Table> MakeTable() {
    auto t = std::make_unique<Table>();
    SetDefaultSettings(*t);
    ResetProbabilityMatrix(*t);
    ComputeAxisDice(*t, {1, 20}, {3, 30});
    t->UseSkewedProbability = true;
    return t;
}

void OneBet(benchmark::State& state) {
    const auto t = MakeTable();
    const DiceChances dice = ChancesInForce(*t);
    const int row = static_cast<int>(state.range(0));
    for (auto _ : state) benchmark::DoNotOptimize(ExactAdvantage(*t, dice, row));
}
BENCHMARK(OneBet)->ArgName("row")->Arg(Row::Place4)->Arg(Row::PassLine)->Arg(Row::MakeAll)->Arg(Row::Fire);

/// The list as a window shows it after a change of the configuration, with its texts.
void WholeList(benchmark::State& state) {
    const auto t = MakeTable();
    for (auto _ : state) benchmark::DoNotOptimize(AdvantageLines(*t));
}
BENCHMARK(WholeList);

/// Reading one bet's figure under rules that stand.
void CachedBet(benchmark::State& state) {
    const auto t = MakeTable();
    AdvantageCache cache;
    for (auto _ : state) benchmark::DoNotOptimize(cache.Of(*t, Row::Place4).EvDec);
}
BENCHMARK(CachedBet);

/// Typing a face and having all results follow.
void EditMatrix(benchmark::State& state) {
    const auto t = MakeTable();
    for (auto _ : state) {
        benchmark::DoNotOptimize(EnterCell(*t, FacePlace(1, 6), "20"));
        benchmark::DoNotOptimize(EnterCell(*t, FacePlace(1, 6), "21"));
    }
}
BENCHMARK(EditMatrix);

}  // namespace
