#include "lab/consolecommands.h"

#include <functional>
#include <limits>
#include <utility>
#include <vector>

#include "config/configure.h"
#include "config/payoffs.h"
#include "dice/dice.h"
#include "dice/dicefile.h"
#include "lab/consolearguments.h"
#include "lab/consoleevents.h"
#include "lab/consolereports.h"
#include "lab/consolescripts.h"
#include "lab/figurereports.h"
#include "lab/labtable.h"
#include "lab/rollgoal.h"
#include "lab/texttable.h"
#include "stats/accumulators.h"
#include "stats/eventslog.h"
#include "table/bankroll.h"
#include "table/format.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/rolldice.h"
#include "table/rundriver.h"
#include "table/session.h"

namespace tarnwick::lab {

namespace {

constexpr std::size_t Endless = std::numeric_limits<std::size_t>::max();

using Handler = std::string (*)(Console&, Arguments&);

struct Command {
    const char* Name;
    const char* Usage;
    const char* Help;
    std::size_t Least, Most;  // words after the name
    Handler Run;
};

std::string NameAt(const Table& t, int p) { return t.PlayerName[static_cast<std::size_t>(p)]; }

/// What a person wants to see after a command that moved a bet.
void TellBet(const Console& c, int p, int row) {
    if (c.Out.WritesJson()) return;
    const currency amount = c.T.BetAmount(p, row);
    c.Out.PrintLine(NameAt(c.T, p) + ": " + BetTitle(row) + (IsZero(amount) ? " no bet" : " " + DollarText(amount)));
}

/// What a person wants to see after rolls: the dice, and who won or lost since `before`.
class RollTeller {
  public:
    RollTeller(const Console& c, const RollGoal& goal) : C(c), Goal(goal), Before(c.T.Bankroll) {}

    void Tell() const {
        const Table& t = C.T;
        const std::int32_t rolled = Goal.Played();
        if (C.Out.WritesJson() || rolled <= 0) return;
        std::string line = rolled > 1           ? Grouped(rolled) + " rolls, the last"
                           : Goal.NewSessions() ? std::string("Last roll of the session")
                                                : "Roll " + Grouped(SessionRolls(t));
        line += ": " + std::to_string(t.DiceTotal) + " (" + std::to_string(t.Die1) + "." + std::to_string(t.Die2) + ")";
        C.Out.PrintLine(line + (t.Point == 0 ? ", come-out next" : ", point " + std::to_string(t.Point)));
        if (Goal.NewSessions())
            C.Out.PrintLine("  scripts began a new session, now at roll " + Grouped(SessionRolls(t)));
        for (int p = 1; p < Positions && !Goal.NewSessions(); ++p) {
            const auto i = static_cast<std::size_t>(p);
            const currency change = t.Bankroll[i] - Before[i];
            if (!IsSeated(t, p) || IsZero(change)) continue;
            C.Out.PrintLine("  " + NameAt(t, p) + (change < currency{} ? " lost " : " won ") + DollarText(Abs(change)) +
                            ", bankroll " + DollarText(t.Bankroll[i]));
        }
    }

  private:
    const Console& C;
    const RollGoal& Goal;
    std::array<currency, StatPositions> Before;
};

// --- players ---

std::string DoPlayer(Console& c, Arguments& a) {
    const int p = a.Position();
    const std::string name = a.Text();
    const currency buyIn = a.Money();
    if (!a.Ok()) return a.Fault;
    if (IsSeated(c.T, p)) return NameAt(c.T, p) + " stands at position " + std::to_string(p) + " already";
    return AddPlayer(c.T, p, name, buyIn);
}

std::string DoRemove(Console& c, Arguments& a) {
    const int p = a.Seat();
    if (!a.Ok()) return a.Fault;
    c.Screen.WhenNotAsked = Answer{MsgAnswer::Yes, {}, false};  // the command itself said so
    AskRemovePlayer(c.T, p);
    c.Screen.WhenNotAsked.reset();
    return {};
}

std::string DoRename(Console& c, Arguments& a) {
    const int p = a.Seat();
    return a.Ok() ? RenamePlayer(c.T, p, a.Rest()) : a.Fault;
}

std::string DoMove(Console& c, Arguments& a) {
    const int p = a.Seat();
    const int q = a.Position();
    if (a.Ok() && p != q) MovePlayer(c.T, p, q);
    return a.Fault;
}

std::string DoPass(Console& c, Arguments&) {
    PassTheDice(c.T, PassMode::Request);
    return {};
}

std::string DoBettor(Console& c, Arguments& a) {
    const int p = a.Seat();
    if (a.Ok()) c.T.ActivePlayer = p;
    return a.Fault;
}

std::string DoAtm(Console& c, Arguments& a) {
    const int p = a.Seat();
    const currency amount = a.Money();
    if (!a.Ok()) return a.Fault;
    AtmTransaction(c.T, p, amount);
    if (!c.Out.WritesJson()) {
        c.Out.PrintLine(NameAt(c.T, p) + ": bankroll " + DollarText(c.T.Bankroll[static_cast<std::size_t>(p)]));
    }
    return {};
}

// --- bets ---

std::string DoBet(Console& c, Arguments& a) {
    const int row = a.BetRow();
    const currency amount = a.Money();
    const int p = a.Bettor();
    if (!a.Ok()) return a.Fault;
    PlaceBet(c.T, p, row, amount);
    TellBet(c, p, row);
    return {};
}

std::string DoMax(Console& c, Arguments& a) {
    const int row = a.BetRow();
    const int p = a.Bettor();
    if (a.Ok() && IsStack(row)) return "a CheckStack has no largest bet";
    if (!a.Ok()) return a.Fault;
    MaxOutBet(c.T, p, row);
    TellBet(c, p, row);
    return {};
}

std::string DoBuy(Console& c, Arguments& a) {
    const int row = a.BetRow();
    const int p = a.Bettor();
    if (!a.Ok()) return a.Fault;
    BuyPlaceBet(c.T, p, row);
    if (IsPlace(row)) TellBet(c, p, row + Row::Buy4 - Row::Place4);
    return {};
}

std::string DoCall(Console& c, Arguments& a) {
    const int row = a.BetRow();
    const bool on = a.OnOrOff();
    const int p = a.Bettor();
    if (!a.Ok()) return a.Fault;
    if (!IsLayoutRow(row) || IsZero(c.T.BetAmount(p, row))) {
        return NameAt(c.T, p) + " has no " + BetTitle(row) + " bet to call";
    }
    CallBet(c.T, p, row, on);
    return {};
}

std::string DoLimits(Console& c, Arguments& a) {
    const int row = a.BetRow();
    const int p = a.Bettor();
    if (a.Ok() && !IsLayoutRow(row)) return "a CheckStack has no limits";
    if (!a.Ok()) return a.Fault;
    const currency lowest = MinimumBet(c.T, row);
    const currency highest = MaximumBet(c.T, p, row);
    if (c.Out.WritesJson()) {
        JsonWriter json;
        json.BeginObject().Key("limits").BeginObject().Field("p", p).Field("row", row);
        c.Out.PrintJson(json.Field("MinBetNow", lowest).Field("MaxBetNow", highest).EndObject().EndObject());
    } else {
        c.Out.PrintLine(BetTitle(row) + ": MinBetNow " + PlainAmount(lowest) + ", MaxBetNow " + PlainAmount(highest));
    }
    return {};
}

std::string DoVig(Console& c, Arguments& a) {
    const int row = a.BetRow();
    const currency amount = a.Money();
    if (a.Ok() && !IsBuy(row) && !IsLay(row)) return "only Buy and Lay bets have a vig";
    if (a.Ok() && amount < currency{}) return "a bet is not below 0";
    if (!a.Ok()) return a.Fault;
    const currency vig = IsBuy(row) ? BuyVig(c.T, row, amount) : LayVig(c.T, row, amount);
    if (c.Out.WritesJson()) {
        JsonWriter json;
        json.BeginObject().Key("vig").BeginObject().Field("row", row).Field("amount", amount).Field("vig", vig);
        c.Out.PrintJson(json.EndObject().EndObject());
    } else {
        c.Out.PrintLine(BetTitle(row) + " of " + PlainAmount(amount) + ": vig " + PlainAmount(vig));
    }
    return {};
}

// --- dice ---

std::string DoRoll(Console& c, Arguments& a) {
    const RollGoal goal(c.T, 1);
    const RollTeller teller(c, goal);
    c.Screen.LastStopReason.clear();
    if (a.More()) {
        const auto die1 = static_cast<int>(a.Count(1, 6));
        if (!a.More()) return a.Ok() ? "the second die is missing" : a.Fault;
        const auto die2 = static_cast<int>(a.Count(1, 6));
        if (!a.Ok()) return a.Fault;
        PadRoll(c.T, die1, die2);
    } else {
        RollDice(c.T);
    }
    teller.Tell();
    return ScriptFault(c, goal.Played() > 0 && AnyScriptOn(c.T));
}

/// Rolls by itself until `rolls` more rolls are made or something stops it. `throttle` says which kind of run it is.
std::string RollByItself(Console& c, std::uint64_t rolls, int throttle) {
    const RollGoal goal(c.T, static_cast<std::int32_t>(rolls));
    const RollTeller teller(c, goal);
    const std::int32_t userThrottle = c.T.HyperThrottle;
    c.Screen.LastStopReason.clear();
    c.T.HyperThrottle = throttle;
    ToggleAutoRoll(c.T);
    c.T.HyperThrottle = userThrottle;
    teller.Tell();
    return ScriptFault(c, goal.Played() > 0 && AnyScriptOn(c.T));
}

std::string DoRun(Console& c, Arguments& a) {
    const std::uint64_t rolls = a.Count(1, MaxSessionRolls);
    constexpr int autoRoll = 12;
    return a.Ok() ? RollByItself(c, rolls, c.T.HyperThrottle == autoRoll ? 0 : c.T.HyperThrottle) : a.Fault;
}

std::string DoAutoRoll(Console& c, Arguments& a) {
    const std::uint64_t rolls = a.Count(1, MaxSessionRolls);
    return a.Ok() ? RollByItself(c, rolls, 12) : a.Fault;
}

std::string DoDiceFile(Console& c, Arguments& a) {
    const std::string path = a.Text();
    const std::string mode = a.More() ? LowerCase(a.Text()) : path;
    if (mode == "off") {
        CloseDiceRollFile(c.T);
        return {};
    }
    if (mode == "play") return PlayDiceFile(c.T, path);
    if (mode != "record") return "\"" + mode + "\" is none of record, play and off";
    std::string fault = OpenDiceRollFile(c.T, path);
    if (fault.empty() && !SetDiceFileMode(c.T, 1)) fault = "the dice roll file " + path + " can't be recorded";
    return fault;
}

std::string DoSeed(Console& c, Arguments& a) {
    const std::uint64_t seed = a.Count(0, std::numeric_limits<std::uint64_t>::max());
    if (!a.Ok()) return a.Fault;
    c.Seed = seed;
    c.SessionNumber = 1;
    c.Screen.Scripts = {seed, 0};
    SeedEverything(c.T, seed);
    return {};
}

std::string DoRng(Console& c, Arguments& a) {
    const std::uint64_t number = a.Count(1, 8);
    if (a.Ok()) SelectRng(c.T, static_cast<int>(number));
    return a.Fault;
}

// --- the console itself, sessions, settings ---

std::string DoAnswer(Console& c, Arguments& a) {
    Word answer = a.Whole();
    if (a.More()) return "an answer of several words goes in quotes";
    c.Screen.Answers.push_back(std::move(answer));
    return {};
}

std::string DoSet(Console& c, Arguments& a) {
    const std::string rest = a.Rest();
    const std::size_t end = rest.find_first_of("= \t");
    if (end == std::string::npos) return "the value is missing";
    std::string_view value = Trim(std::string_view(rest).substr(end));
    if (!value.empty() && value.front() == '=') value = Trim(value.substr(1));
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"') value = value.substr(1, value.size() - 2);
    return SetSetting(c.T, rest.substr(0, end), value);
}

std::string DoNew(Console& c, Arguments& a) {
    SessionOptions options;
    options.Ask = true;
    options.KeepData = options.KeepCheckStacks = options.KeepLogs = false;
    options.File = SessionOptions::DiceFile::Drop;
    while (a.More()) {
        const std::string word = LowerCase(a.Text());
        const bool retained = options.File != SessionOptions::DiceFile::Drop;
        if (word == "preserve-data") {
            options.KeepData = true;
        } else if (word == "preserve-checkstacks") {
            options.KeepCheckStacks = true;
        } else if (word == "preserve-logs") {
            options.KeepLogs = true;
        } else if (word == "retain-dice-file" || (word == "continue" && retained)) {
            options.File = SessionOptions::DiceFile::Continue;
        } else if (word == "rewind" && retained) {
            options.File = SessionOptions::DiceFile::Rewind;
        } else if (word == "drop-scripts") {
            options.KeepScripts = false;
        } else {
            return "\"" + word + "\" is no option of a new session";
        }
    }
    c.Screen.LastStopReason.clear();
    // A new session seeds from the clock; here it must be repeatable, unless the user is asked for the seed.
    const bool seeds = c.T.ReSeedNewSessions && !c.T.UserSeedOn;
    if (seeds) c.T.ReSeedNewSessions = false;
    NewSession(c.T, options);
    ++c.SessionNumber;
    if (seeds) {
        c.T.ReSeedNewSessions = true;
        SeedEverything(c.T, SessionSeed(c.Seed, c.SessionNumber));
        LogSeeded(c.T, c.T.LastSeed);
    }
    return AnyScriptOn(c.T) ? InitializeScripts(c) : std::string();
}

// --- reports ---

std::string Report(Console& c, const std::function<void(JsonWriter&)>& write,
                   const std::function<std::string()>& text) {
    if (c.Out.WritesJson()) {
        JsonWriter json;
        write(json);
        c.Out.PrintJson(json);
    } else {
        c.Out.Print(text());
    }
    return {};
}

std::string DoState(Console& c, Arguments&) {
    return Report(
        c, [&](JsonWriter& json) { WriteState(json, c.T, c.Screen.LastStopReason); }, [&] { return StateText(c.T); });
}

std::string DoStats(Console& c, Arguments& a) {
    const int p = a.Position();
    const int scope = a.Scope();
    if (!a.Ok()) return a.Fault;
    return Report(
        c, [&](JsonWriter& json) { WriteStats(json, c.T, p, scope); }, [&] { return StatsText(c.T, p, scope); });
}

std::string DoRolls(Console& c, Arguments& a) {
    const int p = a.Position(true);
    const int scope = a.Scope();
    if (!a.Ok()) return a.Fault;
    return Report(
        c, [&](JsonWriter& json) { WriteRolls(json, c.T, p, scope); }, [&] { return RollsText(c.T, p, scope); });
}

/// One of the statistics windows.
std::string DoFigures(Console& c, Arguments& a) {
    const FigureReport& report = *FindFigureReport(a.Name());
    std::vector<std::string> words;
    while (a.More()) words.push_back(a.Text());
    const Parsed<FigureQuery> query = ParseFigureQuery(report.Name, words, c.T.ActivePlayer);
    if (!query) return query.Fault;
    const auto write = [&](JsonWriter& json) {
        json.BeginObject().Key(report.Name).BeginObject();
        report.Write(json, c.T, query.Value);
        json.EndObject().EndObject();
    };
    return Report(c, write, [&] { return report.Text(c.T, query.Value); });
}

std::string DoSettings(Console& c, Arguments&) {
    return Report(
        c, [&](JsonWriter& json) { WriteSettings(json, c.T); }, [&] { return SettingsText(c.T); });
}

std::string DoHelp(Console& c, Arguments&);

constexpr Command Commands[] = {
    {"player", "player P NAME AMOUNT", "seats a player at position 1 to 8", 3, 3, DoPlayer},
    {"remove", "remove P", "cashes a player out", 1, 1, DoRemove},
    {"rename", "rename P NAME", "gives a player another name", 2, Endless, DoRename},
    {"move", "move P Q", "moves a player, or exchanges two", 2, 2, DoMove},
    {"pass", "pass", "passes the dice", 0, 0, DoPass},
    {"bettor", "bettor P", "whom the bets below are for when P is left out", 1, 1, DoBettor},
    {"atm", "atm P AMOUNT", "money from the ATM, or with a minus to it", 2, 2, DoAtm},
    {"bet", "bet ROW AMOUNT [P]", "raises a bet, or with a minus lowers it", 2, 3, DoBet},
    {"max", "max ROW [P]", "makes the largest bet allowed", 1, 2, DoMax},
    {"buy", "buy ROW [P]", "makes a Place bet a Buy bet", 1, 2, DoBuy},
    {"call", "call ROW on|off [P]", "calls a bet ON or OFF", 2, 3, DoCall},
    {"limits", "limits ROW [P]", "the smallest and largest bet now", 1, 2, DoLimits},
    {"vig", "vig ROW AMOUNT", "the vig of a Buy or Lay bet", 2, 2, DoVig},
    {"roll", "roll [D1 D2]", "rolls the dice, or gives them", 0, 2, DoRoll},
    {"run", "run N", "Hyper-Drive for N rolls or until it stops", 1, 1, DoRun},
    {"autoroll", "autoroll N", "Auto-Roll for N rolls or until it stops", 1, 1, DoAutoRoll},
    {"dice-file", "dice-file F record|play|off", "writes or plays a dice roll file", 1, 2, DoDiceFile},
    {"seed", "seed N", "seeds every generator", 1, 1, DoSeed},
    {"rng", "rng K", "selects generator 1 to 8", 1, 1, DoRng},
    {"script", "script P FILE|-", "gives a player a script: a file, or the lines up to `end`", 2, Endless, DoScript},
    {"activate", "activate P|all", "switches scripts on", 1, 1, DoActivate},
    {"deactivate", "deactivate P|all", "switches scripts off", 1, 1, DoDeactivate},
    {"init", "init", "runs the scripts once ahead of the next roll", 0, 0, DoInit},
    {"do", "do TEXT", "runs a piece of script for the bettor; colons separate statements", 1, Endless, DoFragment},
    {"hotkey", "hotkey LETTER [TEXT]", "keeps a piece of script under a letter, or runs it", 1, Endless, DoHotKey},
    {"hotkeys", "hotkeys FILE", "takes the hot keys of a HotKeys.dta", 1, Endless, DoHotKeys},
    {"steps", "steps on|off", "prints each step of the scripts, but not in Hyper-Drive", 1, 1, DoSteps},
    {"permit", "permit P prob|others|sessions on|off", "what a player's script may do beyond its own bets", 3, 3,
     DoPermit},
    {"elements", "elements P", "the elements that a player's script is compiled to", 1, 1, DoElements},
    {"answer", "answer VALUE", "queues the answer to the next question", 1, Endless, DoAnswer},
    {"log", "log on|off", "prints the lines of the Events Log", 1, 1, DoLog},
    {"events", "events on [FILE]|off|[TOP [COUNT]]|find TEXT|next|previous",
     "keeps the Events Log, shows its lines, searches it", 0, Endless, DoEvents},
    {"set", "set NAME VALUE", "changes a setting", 1, Endless, DoSet},
    {"new", "new [OPTION...]",
     "another session; OPTIONs are preserve-data, preserve-checkstacks, preserve-logs, drop-scripts, retain-dice-file "
     "continue|rewind",
     0, 6, DoNew},
    {"state", "state", "the table and its bets", 0, 0, DoState},
    {"stats", "stats P SCOPE", "bets and bankroll in a scope: hand, last-hand, session, last-session, all", 2, 2,
     DoStats},
    {"rolls", "rolls P SCOPE", "rolls and points in a scope; P 0 is the table", 2, 2, DoRolls},
    {"summary", "summary [SCOPE [PLAYERS]]", "table, players, bets and bankrolls at a glance", 0, 2, DoFigures},
    {"hands", "hands [SCOPE [PLAYERS]]", "hands, come-outs, passes and misses", 0, 2, DoFigures},
    {"totals", "totals [SCOPE [PLAYERS [number|combinations|die1|die2]]]", "rolls beside their chances", 0, 3,
     DoFigures},
    {"frequencies", "frequencies [EVENT [true|skewed]]", "how often an event came, and after how many rolls", 0, 2,
     DoFigures},
    {"results", "results [SCOPE [PLAYERS [ROW...]]]", "how bets fared", 0, Endless, DoFigures},
    {"trends", "trends [P]", "the streaks of a player's bets", 0, 1, DoFigures},
    {"settings", "settings", "every setting", 0, 0, DoSettings},
    {"help", "help", "this list", 0, 0, DoHelp},
};

std::string DoHelp(Console& c, Arguments&) {
    const auto write = [](JsonWriter& json) {
        json.BeginObject().Key("help").BeginList();
        for (const Command& command : Commands) {
            json.BeginObject().Field("command", command.Usage).Field("help", command.Help).EndObject();
        }
        json.EndList().EndObject();
    };
    const auto text = [] {
        std::vector<std::vector<std::string>> rows;
        for (const Command& command : Commands) rows.push_back({command.Usage, command.Help});
        rows.push_back({"quit", "ends the console"});
        return TextTable(rows, 2) + "ROW is a number or a bet's name in quotes. # starts a comment.\n";
    };
    return Report(c, write, text);
}

}  // namespace

std::string RunCommandLine(Console& console, const CommandLine& command) {
    const std::string& name = command.Words[0].Text;
    for (const Command& known : Commands) {
        if (name != known.Name) continue;
        const std::size_t count = command.Words.size() - 1;
        if (count < known.Least || count > known.Most) return std::string("the command is: ") + known.Usage;
        Arguments arguments(console.T, command);
        return known.Run(console, arguments);
    }
    return "there is no command \"" + name + "\"; help lists them";
}

}  // namespace tarnwick::lab
