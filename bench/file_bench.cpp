// Saving and opening a game of eight players.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "files/gamefile.h"
#include "files/gameimage.h"
#include "table/players.h"
#include "table/rolldice.h"
#include "tables.h"

namespace {

using namespace tarnwick;

/// Eight players, some bets of each, and a session of rolls behind them.
std::unique_ptr<bench::BenchTable> PlayedTable() {
    auto table = std::make_unique<bench::BenchTable>();
    for (int p = 1; p <= 8; ++p) table->Seat(p);
    table->T.ShooterBetRequirement = 0;
    for (int roll = 0; roll < 2000; ++roll) {
        for (int p = 1; p <= 8; ++p) PlaceBet(table->T, p, 1 + (roll + 11 * p) % Row::LastBet, Dollars(10));
        RollDice(table->T);
    }
    return table;
}

std::string BytesOf(const Table& t) {
    GameImage image = ImageOf(t);
    std::vector<std::string> lost;
    return GameBytes(image, lost);
}

void GameToBytes(benchmark::State& state) {
    const auto table = PlayedTable();
    std::size_t size = 0;
    for (auto _ : state) size = BytesOf(table->T).size();
    state.counters["bytes"] = static_cast<double>(size);
}

void GameFromBytes(benchmark::State& state) {
    const auto table = PlayedTable();
    const std::string bytes = BytesOf(table->T);
    for (auto _ : state) {
        GameImage image = ImageOf(table->T);
        ReadGame(bytes, image);
        benchmark::DoNotOptimize(TableOfImage(image).PlayerCount);
    }
}

/// With the disk: written beside, flushed, renamed.
void SaveToDisk(benchmark::State& state) {
    const auto table = PlayedTable();
    const std::string path = (std::filesystem::temp_directory_path() / "tarnwick-bench.crp").string();
    for (auto _ : state) {
        if (!SaveGame(table->T, path, {})) state.SkipWithError("can't be saved");
    }
    std::remove(path.c_str());
}

void OpenFromDisk(benchmark::State& state) {
    const auto table = PlayedTable();
    const std::string path = (std::filesystem::temp_directory_path() / "tarnwick-bench.crp").string();
    if (!SaveGame(table->T, path, {})) state.SkipWithError("can't be saved");
    for (auto _ : state) {
        if (!OpenGame(table->T, path, {})) state.SkipWithError("can't be opened");
    }
    std::remove(path.c_str());
}

BENCHMARK(GameToBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(GameFromBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveToDisk)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenFromDisk)->Unit(benchmark::kMillisecond);

}  // namespace
