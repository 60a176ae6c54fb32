// An unattended run in the main window beside the same run without one: the speed that the desktop keeps.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>
#include <memory>

#include "dice/dice.h"
#include "display/game.h"
#include "display/mainwindow.h"
#include "stats/accumulators.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/rundriver.h"
#include "table/screen.h"
#include "table/session.h"

namespace {

using namespace tarnwick;

constexpr std::int64_t Rolls = 20'000'000;

/// A Pass Line player who goes on with the same bet, for a run of Rolls rolls.
void PrepareRun(Table& t) {
    if (t.PlayerCount == 0) AddPlayer(t, 3, "Ann", Dollars(1000));
    t.ActivePlayer = 3;
    t.AllowNegativeBankroll[3] = true;
    t.WinnerHandling[3] = t.LoserHandling[3] = 2;
    t.HyperThrottle = 0;
    SeedEverything(t, 7);
    PlaceBet(t, 3, Row::PassLine, Dollars(5));
    t.RunUntilRoll = SessionRolls(t) + Rolls;
}

void RunWithoutAWindow(benchmark::State& state) {
    SilentScreen front;
    const auto table = std::make_unique<Table>();
    SubMain(*table, &front);
    for (auto _ : state) {
        PrepareRun(*table);
        ToggleAutoRoll(*table);
    }
    state.SetItemsProcessed(state.iterations() * Rolls);
}
BENCHMARK(RunWithoutAWindow)->Unit(benchmark::kMillisecond)->UseRealTime();

struct ShownWindow {
    ShownWindow() {
        Window.resize(1280, 760);
        Window.show();
        QCoreApplication::processEvents();
    }
    QTemporaryDir Folder;
    MainWindow Window{Folder.path().toStdString()};
};

void RunInTheMainWindow(benchmark::State& state) {
    ShownWindow shown;
    MainWindow& window = shown.Window;
    Table& t = window.CurrentGame().T();
    for (auto _ : state) {
        PrepareRun(t);
        window.ToggleRun();
    }
    state.SetItemsProcessed(state.iterations() * Rolls);
}
BENCHMARK(RunInTheMainWindow)->Unit(benchmark::kMillisecond)->UseRealTime();

/// From the moment at which the user's stop is due until the table is drawn again.
void StopOfARun(benchmark::State& state) {
    ShownWindow shown;
    MainWindow& window = shown.Window;
    Table& t = window.CurrentGame().T();
    constexpr int due = 50;
    for (auto _ : state) {
        PrepareRun(t);
        t.RunUntilRoll = 0;
        QElapsedTimer clock;
        clock.start();
        QTimer::singleShot(due, Qt::PreciseTimer, &window, [&window] { window.ToggleRun(); });
        window.ToggleRun();
        QCoreApplication::processEvents();
        state.SetIterationTime(static_cast<double>(clock.nsecsElapsed()) / 1e9 - due / 1e3);
    }
}
BENCHMARK(StopOfARun)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace
