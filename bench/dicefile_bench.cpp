// Dice roll files of 100,000,000 rolls: played back, checked, edited and written as text, and the most memory that the
// process took meanwhile.

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "dice/dice.h"
#include "dice/dicefile.h"
#include "dice/dicefileedit.h"
#include "dice/dicefiletext.h"

namespace tarnwick {
namespace {

constexpr std::int32_t FileRolls = 100'000'000;

/// A file in a folder of its own, recorded once and open.
class LongFile {
  public:
    LongFile() {
        std::string made = (std::filesystem::temp_directory_path() / "tarnwick-bench-XXXXXX").string();
        if (mkdtemp(made.data()) == nullptr || !OpenDiceRollFile(T, Path("long.rol", made)).empty()) std::abort();
        Folder = made;
        SeedEverything(T, 1);
        SetDiceFileMode(T, 1);
        for (std::int32_t i = 0; i < FileRolls; ++i) {
            DrawDice(T);
            RecordRoll(T);
        }
        SetDiceFileMode(T, 0);
    }
    ~LongFile() {
        std::error_code error;
        std::filesystem::remove_all(Folder, error);
    }
    static std::string Path(const char* name, const std::filesystem::path& folder) { return (folder / name).string(); }
    std::string Path(const char* name) const { return Path(name, Folder); }

    std::unique_ptr<Table> Storage = std::make_unique<Table>();
    Table& T = *Storage;
    std::filesystem::path Folder;
};

LongFile& TheFile() {
    static LongFile file;
    return file;
}

/// Runs `work`, which returns what went wrong, on the file; items are the `rolls` that it handles.
template <class Work>
void OnLongFile(benchmark::State& state, Work work, std::int64_t rolls = FileRolls) {
    LongFile& file = TheFile();
    std::string fault;
    for (auto _ : state) fault += work(file);
    if (!fault.empty()) state.SkipWithError(fault.c_str());
    state.SetItemsProcessed(state.iterations() * rolls);
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    state.counters["peak_MB"] = static_cast<double>(usage.ru_maxrss) / 1024;
}

std::string PlayAll(LongFile& file) {
    Table& t = file.T;
    SetDiceFileMode(t, 2);
    SetDiceFileNextRecord(t, 1);
    std::int64_t sum = 0;
    while (PeekFileRoll(t) == FileRoll::Ready) {
        NextFileRoll(t);
        sum += t.Die1 + t.Die2;
    }
    benchmark::DoNotOptimize(sum);
    SetDiceFileMode(t, 0);
    return t.DiceFileLastRecord == t.DiceFileLength ? "" : "stopped early";
}

void LongFilePlayed(benchmark::State& state) { OnLongFile(state, PlayAll); }
void LongFileChecked(benchmark::State& state) {
    OnLongFile(state, [](LongFile& file) { return OpenDiceRollFile(file.T, file.Path("long.rol")); });
}
void LongFileRollChanged(benchmark::State& state) {
    const auto change = [](LongFile& file) {
        RollSelection at{FileRolls / 2};
        return EnterRoll(file.T, at, RollEntry::TypeOver, 6, 1);
    };
    OnLongFile(state, change, 1);
}
void LongFileRollInserted(benchmark::State& state) {
    OnLongFile(state, [](LongFile& file) {
        RollSelection at{2};
        return EnterRoll(file.T, at, RollEntry::Insert, 6, 1);
    });
}
void LongFileHalfCutAndPasted(benchmark::State& state) {
    OnLongFile(state, [](LongFile& file) {
        std::string fault = CutRolls(file.T, {1, FileRolls / 2}, file.Folder.string());
        RollSelection at{file.T.DiceFileLength + 1};
        return fault + PasteRolls(file.T, at, RollEntry::Insert, file.Folder.string());
    });
}
void LongFileExportedAndImported(benchmark::State& state) {
    OnLongFile(state, [](LongFile& file) {
        std::string fault =
            CopyToTextFile(file.T, AllRolls(file.T), file.Path("long.txt"), RollFormat("die1.die2"), false);
        fault += ConvertTextToRolls(file.Path("long.txt"), file.Path("back.rol"));
        std::filesystem::remove(file.Path("long.txt"));
        std::filesystem::remove(file.Path("back.rol"));
        return fault;
    });
}
BENCHMARK(LongFilePlayed)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();
BENCHMARK(LongFileChecked)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();
BENCHMARK(LongFileRollChanged)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();
BENCHMARK(LongFileRollInserted)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();
BENCHMARK(LongFileHalfCutAndPasted)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();
BENCHMARK(LongFileExportedAndImported)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

}  // namespace
}  // namespace tarnwick
