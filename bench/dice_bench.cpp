// Rolls per second of each source of dice.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "dice/dice.h"
#include "dice/dicefile.h"

namespace tarnwick {
namespace {

std::unique_ptr<Table> SeededTable(int rngIndex) {
    auto t = std::make_unique<Table>();
    t->RngIndex = rngIndex;
    ResetProbabilityMatrix(*t);
    SeedEverything(*t, 1);
    return t;
}

void Draw(benchmark::State& state, bool skewed) {
    const auto t = SeededTable(static_cast<int>(state.range(0)));
    t->UseSkewedProbability = skewed;
    for (auto _ : state) {
        DrawDice(*t);
        benchmark::DoNotOptimize(t->Die1);
        benchmark::DoNotOptimize(t->Die2);
    }
    state.SetItemsProcessed(state.iterations());
}

void FairDice(benchmark::State& state) { Draw(state, false); }
void SkewedDice(benchmark::State& state) { Draw(state, true); }
BENCHMARK(FairDice)->ArgName("RngIndex")->DenseRange(0, 7);
BENCHMARK(SkewedDice)->ArgName("RngIndex")->DenseRange(0, 7);

/// A dice roll file in a folder of its own.
class ScratchFile {
  public:
    ScratchFile() {
        std::string made = (std::filesystem::temp_directory_path() / "tarnwick-bench-XXXXXX").string();
        if (mkdtemp(made.data()) != nullptr) Folder = made;
    }
    ~ScratchFile() {
        std::error_code error;
        std::filesystem::remove_all(Folder, error);
    }
    std::string Path() const { return (Folder / "bench.rol").string(); }

  private:
    std::filesystem::path Folder;
};

constexpr int FileRolls = 1'000'000;

void RecordAndFlush(Table& t) {
    SetDiceFileMode(t, 1);
    t.DiceFileNextRecord = 1;
    for (int i = 0; i < FileRolls; ++i) RecordRoll(t);
    FlushDiceFile(t);
}

void RecordedDice(benchmark::State& state) {
    const ScratchFile file;
    const auto t = SeededTable(0);
    OpenDiceRollFile(*t, file.Path());
    for (auto _ : state) RecordAndFlush(*t);
    state.SetItemsProcessed(state.iterations() * FileRolls);
}
BENCHMARK(RecordedDice)->Unit(benchmark::kMillisecond);

void PlayedDice(benchmark::State& state) {
    const ScratchFile file;
    const auto t = SeededTable(0);
    OpenDiceRollFile(*t, file.Path());
    RecordAndFlush(*t);
    SetDiceFileMode(*t, 2);
    for (auto _ : state) {
        t->DiceFileNextRecord = 1;
        while (PeekFileRoll(*t) == FileRoll::Ready) NextFileRoll(*t);
    }
    state.SetItemsProcessed(state.iterations() * FileRolls);
}
BENCHMARK(PlayedDice)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarnwick
