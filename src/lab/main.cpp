// tarnwick-lab: the table without a screen. Exit statuses: 0 all went well, 1 a command of the console failed or a
// script is wrong, 2 the command line or what it names can't be used, 130 interrupted.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <limits>

#include "autobet/compilation.h"
#include "lab/check.h"
#include "lab/console.h"
#include "lab/convert.h"
#include "lab/events.h"
#include "lab/labtable.h"
#include "lab/rollscli.h"
#include "lab/run.h"
#include "lab/sessions.h"
#include "table/crapcnst.h"

namespace tarnwick::lab {

namespace {

constexpr int BadUsage = 2;

/// Texts of the command line, before they are read.
struct RawOptions {
    std::string Game;
    std::vector<std::string> Players, Bets, Settings;
    std::string Rolls = "1000", Sessions = "1", Seed, Rng, Jobs;
    std::string Format = "text";
    std::string DiceFile, StatementLimit, OutputFolder;
    std::vector<std::string> Files, Names;
    bool Elements = false;
    std::string After;
    std::string OldScript, NewScript;
    bool Rebet = false;
    bool Json = false;
    bool EventsLog = false, SessionsLogs = false;
    std::string LogFile, Stat, Include, BreakPoint, Find, Top, Most;
    int BarWidth = 25;
    bool Histogram = false, RawData = false;
};

/// Reads each text with `read` into `out`; false with a message at the first that is wrong.
template <class T, class Read>
bool ReadAll(const std::vector<std::string>& texts, const char* option, Read read, std::vector<T>& out) {
    for (const std::string& text : texts) {
        auto parsed = read(text);
        if (!parsed) {
            std::fprintf(stderr, "tarnwick-lab: %s: %s\n", option, parsed.Fault.c_str());
            return false;
        }
        out.push_back(std::move(parsed.Value));
    }
    return true;
}

/// Reads a number, if one was given, into `out`.
template <class Int>
bool ReadNumber(const std::string& text, const char* option, std::uint64_t lowest, std::uint64_t highest, Int& out) {
    if (text.empty()) return true;
    std::vector<std::uint64_t> values;
    const auto read = [&](const std::string& digits) { return ParseCount(digits, lowest, highest); };
    if (!ReadAll({text}, option, read, values)) return false;
    out = static_cast<Int>(values[0]);
    return true;
}

constexpr std::uint64_t MostStatements = 1'000'000'000'000;
constexpr std::uint64_t AnySeed = std::numeric_limits<std::uint64_t>::max();

int StartRun(const RawOptions& raw) {
    if (!raw.Game.empty()) {
        std::fprintf(stderr,
                     "tarnwick-lab run: %s: game files can't be read yet; describe the table with --player and --set\n",
                     raw.Game.c_str());
        return BadUsage;
    }
    RunOptions options;
    options.Seed = ClockSeed();
    options.Rebet = raw.Rebet;
    options.DiceFile = raw.DiceFile;
    options.OutputFolder = raw.OutputFolder;
    options.EventsLog = raw.EventsLog;
    options.SessionsLogs = raw.SessionsLogs;
    options.Json = raw.Format == "json";
    const bool good = ReadAll(raw.Players, "--player", ParsePlayerOption, options.Players) &&
                      ReadAll(raw.Bets, "--bet", ParseBetOption, options.Bets) &&
                      ReadAll(raw.Settings, "--set", ParseSettingOption, options.Settings) &&
                      ReadNumber(raw.Rolls, "--rolls", 1, MaxSessionRolls, options.Rolls) &&
                      ReadNumber(raw.Sessions, "--sessions", 1, 1'000'000'000, options.Sessions) &&
                      ReadNumber(raw.Seed, "--seed", 0, AnySeed, options.Seed) &&
                      ReadNumber(raw.Rng, "--rng", 1, 8, options.Rng) &&
                      ReadNumber(raw.StatementLimit, "--statement-limit", 1, MostStatements, options.StatementLimit) &&
                      ReadNumber(raw.Jobs, "--jobs", 1, 1024, options.Jobs);
    return good ? Run(options) : BadUsage;
}

int StartCheck(const RawOptions& raw) {
    CheckOptions options;
    options.Files = raw.Files;
    options.Elements = raw.Elements || !raw.After.empty();
    if (!raw.After.empty()) options.After = raw.After;
    options.Json = raw.Format == "json";
    return ReadAll(raw.Names, "--player", ParseNameOption, options.Players) ? Check(options) : BadUsage;
}

int StartConsole(const RawOptions& raw) {
    ConsoleOptions options;
    options.Json = raw.Json;
    std::uint64_t seed = 0;
    const bool good = ReadAll(raw.Settings, "--set", ParseSettingOption, options.Settings) &&
                      ReadNumber(raw.Seed, "--seed", 0, AnySeed, seed) &&
                      ReadNumber(raw.Rng, "--rng", 1, 8, options.Rng) &&
                      ReadNumber(raw.StatementLimit, "--statement-limit", 1, MostStatements, options.StatementLimit);
    if (!raw.Seed.empty()) options.Seed = seed;
    return good ? RunConsole(options) : BadUsage;
}

int StartSessions(const RawOptions& raw) {
    SessionsOptions options;
    options.File = raw.LogFile;
    options.Histogram = raw.Histogram;
    options.BarWidth = raw.BarWidth;
    options.RawData = raw.RawData;
    options.Json = raw.Format == "json";
    std::vector<int> stats;
    if (!raw.Stat.empty() && !ReadAll({raw.Stat}, "--stat", ParseSessionStat, stats)) return BadUsage;
    if (!stats.empty()) options.View.Stat = stats[0];
    const auto read = [](const char* option, const std::string& fault) {
        if (!fault.empty()) std::fprintf(stderr, "tarnwick-lab: %s: %s\n", option, fault.c_str());
        return fault.empty();
    };
    if (!raw.Include.empty() && !read("--include", ReadInclude(raw.Include, options.View))) return BadUsage;
    if (!raw.BreakPoint.empty() && !read("--break", ReadBreakPoint(raw.BreakPoint, options.View))) return BadUsage;
    return Sessions(options);
}

int StartEvents(const RawOptions& raw) {
    EventsOptions options;
    options.File = raw.LogFile;
    options.Find = raw.Find;
    options.Json = raw.Format == "json";
    const auto most = static_cast<std::uint64_t>(options.Most);
    const bool good =
        ReadNumber(raw.Top, "--top", 1, most, options.Top) && ReadNumber(raw.Most, "--lines", 0, most, options.Most);
    return good ? Events(options) : BadUsage;
}

void AddShared(CLI::App& command, RawOptions& raw) {
    const auto one = [](CLI::Option* option) { option->allow_extra_args(false); };
    one(command.add_option("--set", raw.Settings, "A setting, such as MaxPlacardBet=5000 or WinnerHandling[1]=2")
            ->type_name("NAME=VALUE"));
    command.add_option("--seed", raw.Seed, "Seed of the dice; without it the clock gives one")->type_name("S");
    command.add_option("--rng", raw.Rng, "Random number generator 1 to 8; 2 if left out")->type_name("K");
}

void AddFormat(CLI::App& command, RawOptions& raw) {
    command.add_option("--format", raw.Format, "text or json")->check(CLI::IsMember({"text", "json"}));
}

void AddStatementLimit(CLI::App& command, RawOptions& raw) {
    command
        .add_option("--statement-limit", raw.StatementLimit,
                    "Ends scripts that run more statements at one time; no limit if left out")
        ->type_name("N");
}

void AddRun(CLI::App& command, RawOptions& raw) {
    command.add_option("game", raw.Game, "Game file to start from")->type_name("GAME.crp");
    command.add_option("--player", raw.Players, "Seats a player; repeat it for more")
        ->type_name("P:NAME:BUYIN[:SCRIPT.bet]")
        ->allow_extra_args(false);
    command.add_option("--bet", raw.Bets, "A bet as soon as the rules allow it; ROW is a number or a bet's name")
        ->type_name("P:ROW:AMOUNT")
        ->allow_extra_args(false);
    command.add_flag("--rebet", raw.Rebet, "Makes each --bet again whenever it is down");
    command.add_option("--rolls", raw.Rolls, "Rolls of a session, 1 to 100000000; 1000 if left out")->type_name("N");
    command.add_option("--sessions", raw.Sessions, "Sessions, each from the same start")->type_name("M");
    command.add_option("--dice-file", raw.DiceFile, "Plays the rolls of a dice roll file")->type_name("F.rol");
    command.add_option("--jobs", raw.Jobs, "Threads; as many as the machine has if left out")->type_name("J");
    AddStatementLimit(command, raw);
    command.add_option("--output-folder", raw.OutputFolder, "Where files lie that scripts name; here if left out")
        ->type_name("DIR");
    command.add_flag("--events-log", raw.EventsLog, "Keeps an Events Log in the output folder");
    command.add_flag("--sessions-log", raw.SessionsLogs, "Keeps each player's Sessions Log in the output folder");
    AddFormat(command, raw);
    AddShared(command, raw);
}

void AddSessions(CLI::App& command, RawOptions& raw) {
    command.add_option("file", raw.LogFile, "Sessions Log")->type_name("FILE.slg")->required();
    command.add_option("--stat", raw.Stat, "The field to sum up, 0 to 31 or its name; 8, the net, if left out")
        ->type_name("N");
    command.add_option("--include", raw.Include, "Which sessions count; all if left out")->type_name("won,even,lost");
    command.add_option("--break", raw.BreakPoint, "Net results that count as even; 0 if left out")
        ->type_name("LOW:HIGH");
    command.add_flag("--histogram", raw.Histogram, "The distribution as bars");
    command.add_option("--bar-width", raw.BarWidth, "Of the 525 bins, in one bar; 25 if left out")
        ->check(CLI::IsMember({1, 5, 25, 105}));
    command.add_flag("--raw", raw.RawData, "Every session that counts");
    AddFormat(command, raw);
}

void AddEvents(CLI::App& command, RawOptions& raw) {
    command.add_option("file", raw.LogFile, "Events Log")->type_name("FILE")->required();
    command.add_option("--find", raw.Find, "Only lines with this text, in capitals or small letters")
        ->type_name("TEXT");
    command.add_option("--top", raw.Top, "The line to begin with")->type_name("N");
    command.add_option("--lines", raw.Most, "How many lines at most")->type_name("N");
    AddFormat(command, raw);
}

void AddCheck(CLI::App& command, RawOptions& raw) {
    std::vector<std::string> passes;
    for (const NamedPass& pass : CompilePasses) passes.emplace_back(pass.Name);
    command.add_option("files", raw.Files, "Scripts")->type_name("FILE.bet")->required();
    command.add_option("--player", raw.Names, "The name of a player that the scripts speak of; repeat it for more")
        ->type_name("P:NAME")
        ->allow_extra_args(false);
    command.add_flag("--elements", raw.Elements, "Prints the elements that the scripts are compiled to");
    command.add_option("--after", raw.After, "Prints the elements after a pass of the compiler")
        ->type_name("PASS")
        ->check(CLI::IsMember(passes));
    AddFormat(command, raw);
}

}  // namespace

int Main(int argc, char** argv) {
    RawOptions raw;
    CLI::App app("Tarnwick's laboratory: craps sessions without a screen", "tarnwick-lab");
    app.set_version_flag("--version", "tarnwick-lab " TARNWICK_VERSION);
    app.require_subcommand(1);
    CLI::App* run = app.add_subcommand("run", "Plays sessions unattended and sums them up");
    AddRun(*run, raw);
    CLI::App* check = app.add_subcommand("check", "Tells whether scripts are properly structured");
    AddCheck(*check, raw);
    CLI::App* console =
        app.add_subcommand("console", "The table as text: one command a line, from a terminal or a pipe");
    console->add_flag("--json", raw.Json, "Prints one JSON object a line");
    AddStatementLimit(*console, raw);
    AddShared(*console, raw);
    CLI::App* convert = app.add_subcommand("convert", "Writes a script of an earlier version as text");
    convert->add_option("old", raw.OldScript, "The script to read, of any form")->type_name("OLD")->required();
    convert->add_option("new", raw.NewScript, "The text file to write")->type_name("NEW")->required();
    CLI::App* sessions = app.add_subcommand("sessions", "Sums up a Sessions Log");
    AddSessions(*sessions, raw);
    CLI::App* events = app.add_subcommand("events", "Prints or searches an Events Log");
    AddEvents(*events, raw);
    RollsCommandLine rolls;
    rolls.Add(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : BadUsage;
    }
    if (rolls.Parsed()) return rolls.Run();
    if (check->parsed()) return StartCheck(raw);
    if (convert->parsed()) return Convert(raw.OldScript, raw.NewScript);
    if (sessions->parsed()) return StartSessions(raw);
    if (events->parsed()) return StartEvents(raw);
    return run->parsed() ? StartRun(raw) : StartConsole(raw);
}

}  // namespace tarnwick::lab

int main(int argc, char** argv) { return tarnwick::lab::Main(argc, argv); }
