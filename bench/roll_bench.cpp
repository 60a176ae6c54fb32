// Rolls per second of one core in Hyper-Drive, full statistics, logs off, beside a bare loop as the yardstick of the
// machine.

#include <benchmark/benchmark.h>

#include <cinttypes>
#include <cstdio>

#include "dice/generators.h"
#include "tables.h"

namespace tarnwick::bench {
namespace {

std::string SignatureLabel(std::uint64_t signature) {
    char text[32];
    std::snprintf(text, sizeof text, "signature %016" PRIx64, signature);
    return text;
}

/// The same generator, two dice, point and Pass Line arithmetic, and nothing else.
void BareLoop(benchmark::State& state) {
    Mt19937 generator;
    srandMT(generator, static_cast<std::uint32_t>(Seed));
    std::int64_t bankroll = 0;
    int point = 0;
    for (auto _ : state) {
        for (std::int32_t i = 0; i < Rolls; ++i) {
            const int total = ScaledDown(genrand_int32(generator), 6) + ScaledDown(genrand_int32(generator), 6) + 2;
            if (point == 0) {
                if (total == 7 || total == 11) {
                    bankroll += 10;
                } else if (total == 2 || total == 3 || total == 12) {
                    bankroll -= 10;
                } else {
                    point = total;
                }
            } else if (total == point) {
                bankroll += 10;
                point = 0;
            } else if (total == 7) {
                bankroll -= 10;
                point = 0;
            }
        }
        benchmark::DoNotOptimize(bankroll);
    }
    state.SetItemsProcessed(state.iterations() * Rolls);
}
BENCHMARK(BareLoop)->Unit(benchmark::kMillisecond);

void Session(benchmark::State& state, TablePtr (*build)()) {
    const TablePtr start = build();
    const auto table = std::make_unique<Table>();
    for (auto _ : state) {
        state.PauseTiming();
        *table = start->T;
        state.ResumeTiming();
        PlaySession(*table);
    }
    state.SetItemsProcessed(state.iterations() * Rolls);
    state.SetLabel(SignatureLabel(Signature(*table)));
}
BENCHMARK_CAPTURE(Session, EmptyTable, EmptyTable)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Session, OnePassLine, OnePassLine)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Session, OddsAndPlace, OddsAndPlace)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Session, EightPassLines, EightPassLines)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarnwick::bench
