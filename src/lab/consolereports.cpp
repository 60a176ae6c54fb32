#include "lab/consolereports.h"

#include <functional>

#include "config/configure.h"
#include "lab/commandline.h"
#include "lab/texttable.h"
#include "stats/accumulators.h"
#include "table/format.h"
#include "table/placement.h"
#include "table/players.h"

namespace tarnwick::lab {

namespace {

constexpr int RollEvents = 91;

std::size_t At(int i) { return static_cast<std::size_t>(i); }

int Pos(int p, int scope) { return p + Positions * scope; }

/// An object `name` of the rows first..last that `wanted` picks, with what `value` gives.
template <class Wanted, class Value>
void WriteByRow(JsonWriter& json, std::string_view name, int first, int last, Wanted wanted, Value value) {
    json.Key(name).BeginObject();
    for (int row = first; row <= last; ++row) {
        if (wanted(row)) json.Field(std::to_string(row), value(row));
    }
    json.EndObject();
}

void WriteBetsOf(JsonWriter& json, const Table& t, int p) {
    const auto stands = [&](int row) { return !IsZero(t.BetAmount(p, row)); };
    const auto amount = [&](int row) { return t.BetAmount(p, row); };
    const auto established = [&](int row) { return t.EstablishedBet(p, row); };
    const auto streak = [&](int row) { return t.BetStreak(p, row); };
    WriteByRow(json, "BetAmount", 1, Row::LastBet, stands, amount);
    WriteByRow(json, "BetWorking", 1, Row::LastBet, stands, [&](int row) { return BetWorking(t, p, row); });
    WriteByRow(
        json, "EstablishedBet", 1, Row::LastBet, [&](int row) { return stands(row) || !IsZero(established(row)); },
        established);
    WriteByRow(
        json, "BetStreak", 1, Row::LastBet, [&](int row) { return stands(row) || streak(row) != 0; }, streak);
    const auto writeVig = [&](std::string_view name, int first, int last, const auto& cells) {
        const auto vig = [&](int row) { return cells[At(p)][At(row - first)]; };
        WriteByRow(
            json, name, first, last, [&](int row) { return stands(row) || !IsZero(vig(row)); }, vig);
    };
    writeVig("BuyVigCharged", Row::Buy4, Row::Buy10, t.BuyVigCharged);
    writeVig("LayVigCharged", Row::Lay4, Row::Lay10, t.LayVigCharged);
    WriteByRow(json, "CheckStack", Row::FirstStack, Row::LastStack, stands, amount);
    const auto stackName = [&](int row) { return t.CheckStackName[At(p)][At(row - Row::FirstStack)]; };
    WriteByRow(
        json, "CheckStackName", Row::FirstStack, Row::LastStack, [&](int row) { return !stackName(row).empty(); },
        stackName);
}

void WritePlayerState(JsonWriter& json, const Table& t, int p) {
    json.BeginObject().Field("p", p).Field("PlayerName", t.PlayerName[At(p)]);
    json.Field("Bankroll", t.Bankroll[At(p)]).Field("BetsOnTable", t.BetsOnTable[At(p)]);
    json.Field("RailAmount", t.RailAmount[At(p)]).Field("BankrollInvested", t.BankrollInvested[At(p)]);
    WriteBetsOf(json, t, p);
    json.EndObject();
}

using BetStat = currency (*)(const Table&, int, int, int);

void WriteBetStats(JsonWriter& json, const Table& t, std::string_view name, BetStat figure, int pos) {
    json.Key(name).BeginObject();
    for (int row = 1; row <= Row::LastBet; ++row) {
        if (IsZero(BetStatWagers(t, pos, row, 1))) continue;
        json.Key(std::to_string(row)).BeginList();
        for (int stat = 1; stat <= 6; ++stat) json.Value(figure(t, pos, row, stat));
        json.EndList();
    }
    json.EndObject();
}

std::string WorkingText(int working) {
    switch (working) {
        case 0:
            return "off";
        case 2:
            return "called ON";
        case -1:
            return "called OFF";
        default:
            return {};
    }
}

std::string PlayerHeading(const Table& t, int p) {
    std::string heading = std::to_string(p) + " " + t.PlayerName[At(p)] + ", " + StickName(p);
    if (p == t.Shooter) heading += ", shooter";
    if (p == t.ActivePlayer) heading += ", bettor";
    return heading + "\n  bankroll " + DollarText(t.Bankroll[At(p)]) + ", on the table " +
           DollarText(t.BetsOnTable[At(p)]) + "\n";
}

/// Roll events that have a name people use, in the order of the report.
struct NamedEvent {
    int Event;
    const char* Name;
};
constexpr NamedEvent TotalEvents[] = {{2, "2"}, {3, "3"}, {4, "4"},   {5, "5"},   {6, "6"},  {7, "7"},
                                      {8, "8"}, {9, "9"}, {10, "10"}, {11, "11"}, {12, "12"}};
constexpr NamedEvent HardEvents[] = {{13, "hard 4"}, {14, "hard 6"}, {15, "hard 8"}, {16, "hard 10"}};

std::string PercentText(std::int64_t part, std::int64_t whole) {
    return whole == 0 ? ""
                      : FormatPattern(100.0 * static_cast<double>(part) / static_cast<double>(whole), "0.00") + "%";
}

/// Calls `visit` with each setting's full name, elements of arrays in turn.
void ForEachSetting(const std::function<void(const std::string&)>& visit) {
    for (const SettingInfo& info : AllSettings()) {
        const std::string name(info.Name);
        if (info.LastIndex < info.FirstIndex) visit(name);
        for (int i = info.FirstIndex; i <= info.LastIndex; ++i) {
            const std::string element = name + "[" + std::to_string(i) + "]";
            if (info.LastIndex2 < info.FirstIndex2) visit(element);
            for (int j = info.FirstIndex2; j <= info.LastIndex2; ++j) visit(element + "[" + std::to_string(j) + "]");
        }
    }
}

}  // namespace

std::string DollarText(currency amount) {
    return amount < currency{} ? "-$" + FormatCommas(-amount) : "$" + FormatCommas(amount);
}

void WriteState(JsonWriter& json, const Table& t, const std::string& stopReason) {
    json.BeginObject().Key("state").BeginObject();
    json.Field("Point", t.Point).Field("PrevPoint", t.PrevPoint).Field("PrevPrevPoint", t.PrevPrevPoint);
    json.Field("LastPoint", t.LastPoint);
    json.Field("Die1", t.Die1).Field("Die2", t.Die2).Field("DiceTotal", t.DiceTotal);
    json.Field("Shooter", t.Shooter).Field("HandShooter", t.HandShooter).Field("LastHandShooter", t.LastHandShooter);
    json.Field("PlayerCount", t.PlayerCount).Field("ActivePlayer", t.ActivePlayer);
    json.Field("PointsMadeMask", t.PointsMadeMask).Field("PointsMadeCount", t.PointsMadeCount);
    json.Field("MarkedNumbers", t.MarkedNumbers).Field("FourRollsCount", t.FourRollsCount);
    json.Field("StopReason", t.StopReason.empty() ? stopReason : t.StopReason);
    json.Field("RollCount", SessionRolls(t)).Field("HandRolls", HandRolls(t));
    json.Key("players").BeginList();
    for (int p = 1; p < Positions; ++p) {
        if (IsSeated(t, p)) WritePlayerState(json, t, p);
    }
    json.EndList().EndObject().EndObject();
}

std::string StateText(const Table& t) {
    std::string out = t.Point == 0 ? "Come-out roll" : "Point " + std::to_string(t.Point);
    out += ", last dice " + std::to_string(t.Die1) + "." + std::to_string(t.Die2) + " (" + std::to_string(t.DiceTotal) +
           "), roll " + Grouped(HandRolls(t)) + " of the hand, " + Grouped(SessionRolls(t)) + " of the session\n";
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p)) continue;
        out += PlayerHeading(t, p);
        std::vector<std::vector<std::string>> rows;
        for (int row = 1; row <= Row::LastStack; ++row) {
            if (IsZero(t.BetAmount(p, row))) continue;
            const std::string state = IsLayoutRow(row) ? WorkingText(BetWorking(t, p, row)) : "";
            rows.push_back({"    " + BetTitle(row), DollarText(t.BetAmount(p, row)), state});
        }
        out += TextTable(rows);
    }
    return out;
}

void WriteStats(JsonWriter& json, const Table& t, int p, int scope) {
    const int pos = Pos(p, scope);
    json.BeginObject().Key("stats").BeginObject().Field("p", p).Field("scope", scope);
    json.Field("BankrollBegin", t.BankrollBegin[At(pos)]).Field("Bankroll", t.Bankroll[At(pos)]);
    json.Field("BankrollHigh", t.BankrollHigh[At(pos)]).Field("BankrollLow", t.BankrollLow[At(pos)]);
    json.Field("BankrollInvested", t.BankrollInvested[At(p)]).Field("BankrollSum", BankrollSum(t, p));
    json.Field("PlayerRolls", PlayerRolls(t, pos)).Field("HandCount", HandCount(t, pos));
    WriteBetStats(json, t, "BetStatWagers", BetStatWagers, pos);
    WriteBetStats(json, t, "BetStatWins", BetStatWins, pos);
    WriteBetStats(json, t, "BetStatLosses", BetStatLosses, pos);
    const auto flat = [&](int row) { return ComeFlatSum(t, pos, row); };
    WriteByRow(
        json, "ComeFlatSum", Row::Come4, Row::Come10, [&](int row) { return !IsZero(flat(row)); }, flat);
    json.EndObject().EndObject();
}

std::string StatsText(const Table& t, int p, int scope) {
    const int pos = Pos(p, scope);
    const std::string title = t.PlayerName[At(p)] + ", " + std::string(ScopeName(scope)) + ": bankroll ";
    std::string out = title + DollarText(t.BankrollBegin[At(pos)]) + " at the start, " +
                      DollarText(t.Bankroll[At(pos)]) + " at the end, high " + DollarText(t.BankrollHigh[At(pos)]) +
                      ", low " + DollarText(t.BankrollLow[At(pos)]) + "\n";
    std::vector<std::vector<std::string>> rows = {
        {"Bet", "Decided", "Won", "Lost", "$ wagered", "$ won", "$ lost", "$ net"}};
    const auto number = [&](BetStat figure, int row) { return FormatCommas(figure(t, pos, row, 1)); };
    const auto money = [&](BetStat figure, int row) { return FormatCommas(figure(t, pos, row, 2)); };
    for (int row = 1; row <= Row::LastBet; ++row) {
        if (IsZero(BetStatWagers(t, pos, row, 1))) continue;
        const currency net = BetStatWins(t, pos, row, 2) - BetStatLosses(t, pos, row, 2);
        rows.push_back({BetTitle(row), number(BetStatWagers, row), number(BetStatWins, row), number(BetStatLosses, row),
                        money(BetStatWagers, row), money(BetStatWins, row), money(BetStatLosses, row),
                        FormatCommas(net)});
    }
    return rows.size() == 1 ? out + "no bets decided\n" : out + TextTable(rows);
}

void WriteRolls(JsonWriter& json, const Table& t, int p, int scope) {
    const int pos = Pos(p, scope);
    const auto all = [](int) { return true; };
    json.BeginObject().Key("rolls").BeginObject().Field("p", p).Field("scope", scope);
    WriteByRow(json, "RollCount", 0, RollEvents - 1, all, [&](int k) { return RollCount(t, pos, k); });
    json.Key("PointTally").BeginObject();
    for (int total = 2; total <= 12; ++total) {
        json.Key(std::to_string(total)).BeginList();
        for (int c = 1; c <= 3; ++c) json.Value(PointTally(t, pos, total, c));
        json.EndList();
    }
    json.EndObject().Field("HandCount", HandCount(t, pos)).Field("PlayerRolls", PlayerRolls(t, pos));
    json.Field("MostRolls", MostRolls(t, pos)).Field("MostComeouts", MostComeouts(t, pos));
    json.Field("MostPasses", MostPasses(t, pos)).Field("MostMisses", MostMisses(t, pos));
    if (p == 0) WriteByRow(json, "RollsSince", 0, RollEvents - 1, all, [&](int k) { return RollsSince(t, k); });
    json.EndObject().EndObject();
}

std::string RollsText(const Table& t, int p, int scope) {
    const int pos = Pos(p, scope);
    const std::int32_t rolls = RollCount(t, pos, 0);
    std::string out = (p == 0 ? "The table" : t.PlayerName[At(p)]) + ", " + std::string(ScopeName(scope)) + ": " +
                      "rolls " + Grouped(rolls) + ", hands " + Grouped(HandCount(t, pos)) + "; most in a hand: rolls " +
                      Grouped(MostRolls(t, pos)) + ", come-outs " + Grouped(MostComeouts(t, pos)) + ", passes " +
                      Grouped(MostPasses(t, pos)) + ", misses " + Grouped(MostMisses(t, pos)) + "\n";
    std::vector<std::vector<std::string>> rows = {{"Total", "Rolls", "%", "Come-outs", "Passes", "Misses"}};
    for (const auto& [event, name] : TotalEvents) {
        const std::int32_t count = RollCount(t, pos, event);
        rows.push_back({name, Grouped(count), PercentText(count, rolls), Grouped(PointTally(t, pos, event, 1)),
                        Grouped(PointTally(t, pos, event, 2)), Grouped(PointTally(t, pos, event, 3))});
    }
    for (const auto& [event, name] : HardEvents) {
        const std::int32_t count = RollCount(t, pos, event);
        rows.push_back({name, Grouped(count), PercentText(count, rolls)});
    }
    return out + TextTable(rows);
}

void WriteSettings(JsonWriter& json, const Table& t) {
    json.BeginObject().Key("settings").BeginObject();
    ForEachSetting([&](const std::string& name) { json.Field(name, SettingText(t, name)); });
    json.EndObject().EndObject();
}

std::string SettingsText(const Table& t) {
    std::string out;
    ForEachSetting([&](const std::string& name) { out += name + "=" + SettingText(t, name) + "\n"; });
    return out;
}

}  // namespace tarnwick::lab
