// What the logs cost: rolls per second with the Events Log off and on, its search, and the sums of a Sessions Log.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "stats/eventslog.h"
#include "stats/sessionstatistics.h"
#include "stats/tablelogs.h"
#include "tables.h"

namespace tarnwick::bench {
namespace {

constexpr std::int32_t LoggedRolls = 200'000;

class BenchFolder {
  public:
    BenchFolder() {
        std::string made = (std::filesystem::temp_directory_path() / "tarnwick-bench-XXXXXX").string();
        if (mkdtemp(made.data()) == nullptr) std::abort();
        Path = made;
    }
    ~BenchFolder() { std::filesystem::remove_all(Path); }
    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;

    std::string Path;
};

enum Kind { Off, RollsOnly, Everything };

/// Pass Line players in Hyper-Drive.
void LoggedSession(benchmark::State& state) {
    const auto kind = static_cast<Kind>(state.range(0));
    const BenchFolder folder;
    TableLogs logs(folder.Path);
    const TablePtr start = FlatPassLines(static_cast<int>(state.range(1)));
    start->T.RunUntilRoll = LoggedRolls;
    const auto table = std::make_unique<Table>();
    for (auto _ : state) {
        state.PauseTiming();
        *table = start->T;
        table->Logs = &logs;
        if (kind == RollsOnly) {
            for (bool* flag : {&table->RecordBetChanges, &table->RecordBetsWon, &table->RecordBetsLost,
                               &table->RecordCheckStackChanges, &table->RecordPassesMisses,
                               &table->RecordShooterChanges, &table->RecordBankrollChanges}) {
                *flag = false;
            }
        }
        SetEventsLogOn(*table, kind != Off);
        DeleteEventsLog(logs.EventsLog(*table));
        state.ResumeTiming();
        PlaySession(*table);
    }
    state.SetItemsProcessed(state.iterations() * LoggedRolls);
}
/// 0 off, 1 the rolls alone, 2 all kinds of event.
BENCHMARK(LoggedSession)
    ->ArgsProduct({{Off, RollsOnly, Everything}, {1, 8}})
    ->ArgNames({"log", "players"})
    ->Unit(benchmark::kMillisecond);

void OneLineOutsideARun(benchmark::State& state) {
    const BenchFolder folder;
    EventsLogWriter writer;
    const EventsLogPaths paths{folder.Path + "/log.txt", folder.Path + "/log.ref"};
    for (auto _ : state) {
        writer.Collect(" Roll #1:  7 (3.4) from RNG #2");
        writer.Write(paths, false);
    }
}
BENCHMARK(OneLineOutsideARun);

/// Builds the reference of a log of 1,000,000 lines, searches it for what isn't there, shows a page.
void Viewer(benchmark::State& state) {
    const BenchFolder folder;
    EventsLogWriter writer;
    const EventsLogPaths paths{folder.Path + "/log.txt", folder.Path + "/log.ref"};
    for (int i = 0; i < 1'000'000; ++i) writer.Collect(" Roll #" + std::to_string(i) + ":  7 (3.4) from RNG #2");
    writer.Write(paths, false);
    const auto what = static_cast<int>(state.range(0));
    for (auto _ : state) {
        if (what == 0) std::filesystem::remove(paths.Reference);
        EventsLogReader reader;
        reader.Open(paths);
        if (what == 1) benchmark::DoNotOptimize(reader.Find("nobody", 500'000, true));
        if (what == 2) benchmark::DoNotOptimize(reader.Page(500'000, 50));
    }
}
/// 0 rebuild, 1 search, 2 page.
BENCHMARK(Viewer)->Arg(0)->Arg(1)->Arg(2)->ArgName("what")->Unit(benchmark::kMillisecond);

void SumUp(benchmark::State& state) {
    const BenchFolder folder;
    const std::string path = folder.Path + "/ann.slg";
    constexpr std::int64_t sessions = 100'000;
    std::uint64_t random = 88172645463325252u;
    for (std::int64_t i = 0; i < sessions; ++i) {
        SessionRecord record{};
        random ^= random << 13;
        random ^= random >> 7;
        random ^= random << 17;
        record[SessionStat::Handle] = Dollars(1'000);
        record[SessionStat::MoneyNet] = currency{static_cast<std::int64_t>(random % 10'000'000) - 5'000'000};
        if (!AppendSessionRecord(path, record).empty()) std::abort();
    }
    for (auto _ : state) {
        SessionsLog log;
        log.Open(path);
        benchmark::DoNotOptimize(SumUpSessions(log, {}));
    }
    state.SetItemsProcessed(state.iterations() * sessions);
}
BENCHMARK(SumUp)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarnwick::bench
