#include "lab/run.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "dice/dice.h"
#include "lab/interrupt.h"
#include "lab/labtable.h"
#include "lab/runlogs.h"
#include "lab/runscreen.h"
#include "lab/runscripts.h"
#include "lab/runsummary.h"
#include "lab/texttable.h"
#include "stats/accumulators.h"
#include "table/format.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/rundriver.h"
#include "table/session.h"

namespace tarnwick::lab {

namespace {

/// What every session starts from, and what the threads share.
struct Plan {
    explicit Plan(const RunOptions& options) : Options(options) {}

    const RunOptions& Options;
    std::unique_ptr<Table> Start = std::make_unique<Table>();
    std::vector<BetOrder> Orders;
    ScriptPlan Scripts;
    std::optional<SessionsFiler> Filer;
    std::atomic<std::uint64_t> NextSession{1};
    std::atomic<std::uint64_t> RollsPlayed{0};
};

std::string SeatPlayers(Table& t, const RunOptions& options) {
    AutoBets names;  // a name that scripts take for a word of theirs is refused
    t.Scripts = &names;
    const std::unique_ptr<Table, void (*)(Table*)> restore(&t, [](Table* table) { table->Scripts = nullptr; });
    for (const PlayerOption& player : options.Players) {
        if (IsSeated(t, player.Position)) return "position " + std::to_string(player.Position) + " is taken twice";
        const std::string fault = AddPlayer(t, player.Position, player.Name, player.BuyIn);
        if (!fault.empty()) return fault;
    }
    return {};
}

/// The orders of --bet; those that the rules allow at the start are put up, a bent one is told.
std::string PlaceFirstBets(Plan& plan) {
    Table& t = *plan.Start;
    const std::int32_t notifyBits = t.NotifyBits;
    t.NotifyBits = 0;
    for (const BetOption& bet : plan.Options.Bets) {
        const auto p = static_cast<std::size_t>(bet.Position);
        if (!IsSeated(t, bet.Position)) return "nobody stands at position " + std::to_string(bet.Position);
        BetOrder order{bet.Position, bet.BetRow, bet.Amount, plan.Options.Rebet};
        const currency placed = PlaceBet(t, bet.Position, bet.BetRow, bet.Amount).Delta;
        if (!IsZero(placed)) order.Placed = true;
        if (!IsZero(placed) && placed != bet.Amount) {
            std::fprintf(stderr, "tarnwick-lab: %s's bet on %s is $%s, not $%s\n", t.PlayerName[p].c_str(),
                         BetTitle(bet.BetRow).c_str(), PlainAmount(placed).c_str(), PlainAmount(bet.Amount).c_str());
        }
        if (!order.Placed || order.Again) plan.Orders.push_back(order);
    }
    t.NotifyBits = notifyBits;
    return {};
}

std::string PrepareScripts(Plan& plan) {
    const RunOptions& options = plan.Options;
    plan.Scripts.StatementLimit = options.StatementLimit;
    std::string fault = plan.Scripts.Load(*plan.Start, options.Players);
    if (!fault.empty()) return fault;
    if (options.OutputFolder.empty()) {
        if (options.Sessions == 1) return {};
        if (options.EventsLog) return "--events-log needs --output-folder when there are several sessions";
        return plan.Scripts.Write ? "scripts that write files need --output-folder when there are several sessions"
                                  : std::string();
    }
    std::error_code error;
    std::filesystem::create_directories(options.OutputFolder, error);
    if (!std::filesystem::is_directory(options.OutputFolder, error)) {
        return "the folder " + options.OutputFolder + " can't be made";
    }
    plan.Start->GameFolder = options.OutputFolder;
    return {};
}

std::string Prepare(Plan& plan) {
    Table& t = *plan.Start;
    SubMain(t, nullptr);
    if (plan.Options.Rng > 0) SelectRng(t, plan.Options.Rng);
    std::string fault = SeatPlayers(t, plan.Options);
    if (fault.empty()) fault = ApplySettings(t, plan.Options.Settings);
    if (fault.empty()) fault = PrepareScripts(plan);
    if (fault.empty()) fault = PlaceFirstBets(plan);
    if (fault.empty() && !plan.Options.DiceFile.empty()) fault = PlayDiceFile(t, plan.Options.DiceFile);
    if (plan.Options.SessionsLogs) plan.Filer.emplace(t.GameFolder);
    t.HyperThrottle = 0;
    t.RunUntilRoll = static_cast<std::int32_t>(plan.Options.Rolls);
    return fault;
}

/// Several sessions at once can't write the same files: each has a folder of its own.
bool MakeSessionFolder(const Plan& plan, Table& t, std::uint64_t number) {
    const bool writes = plan.Scripts.Write || plan.Options.EventsLog;
    if (!writes || plan.Options.Sessions == 1) return true;
    const auto folder = std::filesystem::path(t.GameFolder) / ("session-" + std::to_string(number));
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    t.GameFolder = folder.string();
    return !error;
}

/// Plays session `number` on `t`. `bets` are the scripts of the session that `t` played before, if any.
void PlaySession(Plan& plan, Table& t, std::unique_ptr<AutoBets>& bets, std::uint64_t number, RunSummary& summary) {
    t = *plan.Start;
    const std::uint64_t seed = SessionSeed(plan.Options.Seed, number);
    SeedEverything(t, seed);
    RunScreen screen(t, plan.RollsPlayed);
    screen.Scripts.Seed = seed;
    screen.EndedByScripts = &summary;
    if (plan.Options.Sessions > 1) screen.Heading = "session " + std::to_string(number) + ": ";
    if (plan.Scripts.Any) GiveScripts(plan.Scripts, t, bets);
    bool ready = MakeSessionFolder(plan, t, number);
    if (!ready) screen.StopReason = "The folder " + t.GameFolder + " can't be made.";
    RunLogs logs(t, t.GameFolder, plan.Options.EventsLog, plan.Filer ? &*plan.Filer : nullptr, number);
    if (ready) logs.Begin();
    std::optional<OrderHost> orders;
    if (!plan.Orders.empty()) orders.emplace(t, plan.Orders);
    std::optional<ScriptedRun> scripted;
    if (plan.Scripts.Any) {
        scripted.emplace(t, static_cast<std::int32_t>(plan.Options.Rolls), *bets, screen);
        ready = ready && scripted->Initialize();
    }
    if (ready) ToggleAutoRoll(t);
    logs.End();
    const bool complete = scripted ? scripted->Reached() : SessionRolls(t) >= t.RunUntilRoll;
    // A session that a script began with the last roll has nothing to tell.
    if (complete && SessionRolls(t) == 0 && screen.StopReason.empty()) return;
    const std::string silent = complete ? "All rolls played." : "Stopped.";
    summary.AddSession(t, screen.StopReason.empty() ? silent : screen.StopReason);
}

/// Plays sessions until none is left, all on one table.
RunSummary PlaySessions(Plan& plan) {
    RunSummary summary;
    const auto table = std::make_unique<Table>();
    std::unique_ptr<AutoBets> bets;
    while (!Interrupted()) {
        const std::uint64_t number = plan.NextSession.fetch_add(1);
        if (number > plan.Options.Sessions) break;
        PlaySession(plan, *table, bets, number, summary);
    }
    return summary;
}

void ShowProgress(std::uint64_t rolls, std::uint64_t wanted, double seconds) {
    const double speed = seconds > 0 ? static_cast<double>(rolls) / seconds : 0;
    const double left = speed > 0 ? static_cast<double>(wanted - std::min(rolls, wanted)) / speed : 0;
    const auto whole = static_cast<std::int64_t>(left + 0.5);
    std::fprintf(stderr, "\r\033[K%s of %s rolls, %s a second, %lld:%02lld left",
                 FormatPattern(static_cast<double>(rolls), "#,#;;0").c_str(),
                 FormatPattern(static_cast<double>(wanted), "#,#;;0").c_str(), FormatPattern(speed, "#,#;;0").c_str(),
                 static_cast<long long>(whole / 60), static_cast<long long>(whole % 60));
    std::fflush(stderr);
}

/// Lets `jobs` threads play; meanwhile shows the progress on a terminal.
RunSummary PlayOnThreads(Plan& plan, std::size_t jobs) {
    std::vector<RunSummary> parts(jobs);
    std::mutex mutex;
    std::condition_variable finished;
    std::size_t running = jobs;
    std::vector<std::thread> threads;
    for (RunSummary& part : parts) {
        threads.emplace_back([&] {
            part = PlaySessions(plan);
            const std::lock_guard lock(mutex);
            --running;
            finished.notify_one();
        });
    }
    if (isatty(STDERR_FILENO)) {
        const auto start = std::chrono::steady_clock::now();
        const std::uint64_t wanted = plan.Options.Rolls * plan.Options.Sessions;
        std::unique_lock lock(mutex);
        while (!finished.wait_for(lock, std::chrono::milliseconds(250), [&] { return running == 0; })) {
            const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
            ShowProgress(plan.RollsPlayed, wanted, passed.count());
        }
        std::fputs("\r\033[K", stderr);
    }
    RunSummary summary;
    for (std::size_t i = 0; i < jobs; ++i) {
        threads[i].join();
        summary.Merge(parts[i]);
    }
    return summary;
}

std::size_t JobsToUse(const RunOptions& options) {
    const unsigned machine = std::max(1u, std::thread::hardware_concurrency());
    const auto wanted = static_cast<std::uint64_t>(options.Jobs > 0 ? static_cast<unsigned>(options.Jobs) : machine);
    return static_cast<std::size_t>(std::min(wanted, options.Sessions));
}

}  // namespace

std::string RunCommand(const RunOptions& options) {
    std::string command = "tarnwick-lab run";
    const auto add = [&](const char* name, const std::string& value) {
        command += std::string(" ") + name + " " + ShellQuoted(value);
    };
    if (options.Rng > 0) add("--rng", std::to_string(options.Rng));
    add("--seed", std::to_string(options.Seed));
    add("--rolls", std::to_string(options.Rolls));
    if (options.Sessions > 1) add("--sessions", std::to_string(options.Sessions));
    if (!options.DiceFile.empty()) add("--dice-file", options.DiceFile);
    for (const PlayerOption& player : options.Players) {
        const std::string script = player.Script.empty() ? std::string() : ":" + player.Script;
        add("--player", std::to_string(player.Position) + ":" + player.Name + ":" + PlainAmount(player.BuyIn) + script);
    }
    for (const SettingOption& setting : options.Settings) add("--set", setting.Name + "=" + setting.Value);
    for (const BetOption& bet : options.Bets) {
        add("--bet", std::to_string(bet.Position) + ":" + std::to_string(bet.BetRow) + ":" + PlainAmount(bet.Amount));
    }
    if (options.StatementLimit > 0) add("--statement-limit", std::to_string(options.StatementLimit));
    if (!options.OutputFolder.empty()) add("--output-folder", options.OutputFolder);
    if (options.Rebet) command += " --rebet";
    if (options.EventsLog) command += " --events-log";
    if (options.SessionsLogs) command += " --sessions-log";
    if (options.Json) add("--format", "json");
    return command;
}

int Run(const RunOptions& options) {
    CatchInterrupts();
    Plan plan(options);
    const std::string fault = Prepare(plan);
    if (!fault.empty()) {
        std::fprintf(stderr, "tarnwick-lab run: %s\n", OneLine(fault).c_str());
        return 2;
    }
    const auto start = std::chrono::steady_clock::now();
    const RunSummary summary = PlayOnThreads(plan, JobsToUse(options));
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;

    const RunReport report{RunCommand(options), options.Seed, plan.Start->RngIndex + 1, passed.count()};
    const std::string text = options.Json ? SummaryJson(summary, report) : SummaryText(summary, report);
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout);
    const std::string unfiled = plan.Filer ? plan.Filer->Fault() : std::string();
    if (!unfiled.empty()) std::fprintf(stderr, "tarnwick-lab run: not all sessions were filed: %s\n", unfiled.c_str());
    return Interrupted() ? 130 : unfiled.empty() ? 0 : 2;
}

}  // namespace tarnwick::lab
