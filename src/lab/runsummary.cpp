#include "lab/runsummary.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "lab/consolereports.h"
#include "lab/json.h"
#include "lab/texttable.h"
#include "stats/accumulators.h"
#include "table/format.h"

namespace tarnwick::lab {

namespace {

enum Kind : int { Wagers = 0, Wins = 1, Losses = 2 };

BetSum SessionBets(const Table& t, int p, Kind kind) {
    const int pos = p + Positions * Scope::Session;
    const auto stat = [&](int n) { return SumBetStats(t, kind, pos, 1, Row::LastBet, n); };
    return {stat(1).TenThousandths / CurrencyScale, stat(2).TenThousandths};
}

currency Money(int128 tenThousandths) { return {Saturate(tenThousandths)}; }

currency Mean(int128 sum, std::int64_t count) { return count == 0 ? currency{} : Money(HalfEvenDivide(sum, count)); }

int128 Net(const PlayerSum& player) { return player.Won.Amount - player.Lost.Amount; }

/// Net in percent of the money wagered, to four places; 0 without wagers.
double NetPercent(const PlayerSum& player) {
    if (player.Decided.Amount == 0) return 0;
    const double percent = 100.0 * static_cast<double>(Net(player)) / static_cast<double>(player.Decided.Amount);
    return std::round(percent * 10'000) / 10'000;
}

std::int64_t PerSecond(const RunSummary& summary, const RunReport& report) {
    return report.Seconds > 0 ? std::llround(static_cast<double>(summary.Rolls) / report.Seconds) : 0;
}

/// Reasons, the most frequent first.
std::vector<std::pair<std::string, std::int64_t>> Reasons(const RunSummary& summary) {
    std::vector<std::pair<std::string, std::int64_t>> reasons(summary.StopReasons.begin(), summary.StopReasons.end());
    std::stable_sort(reasons.begin(), reasons.end(), [](const auto& a, const auto& b) { return a.second > b.second; });
    return reasons;
}

std::string BankrollTable(const RunSummary& summary) {
    const bool many = summary.Sessions > 1;
    std::vector<std::vector<std::string>> rows;
    if (many) {
        rows.push_back({"Bankroll", "Begin", "Mean end", "Best end", "Worst end", "High", "Low"});
    } else {
        rows.push_back({"Bankroll", "Begin", "End", "High", "Low"});
    }
    for (const PlayerSum& player : summary.Players) {
        if (player.Name.empty()) continue;
        std::vector<std::string> row = {"  " + player.Name, DollarText(Mean(player.Begin, summary.Sessions)),
                                        DollarText(Mean(player.End, summary.Sessions))};
        if (many) row.insert(row.end(), {DollarText(player.BestEnd), DollarText(player.WorstEnd)});
        row.insert(row.end(), {DollarText(player.High), DollarText(player.Low)});
        rows.push_back(std::move(row));
    }
    return TextTable(rows);
}

std::string BetsTable(const RunSummary& summary) {
    std::vector<std::vector<std::string>> rows = {
        {"Bets", "Decided", "Won", "Lost", "$ wagered", "$ won", "$ lost", "$ net", "Net %"}};
    for (const PlayerSum& player : summary.Players) {
        if (player.Name.empty()) continue;
        rows.push_back({"  " + player.Name, Grouped(player.Decided.Number), Grouped(player.Won.Number),
                        Grouped(player.Lost.Number), DollarText(Money(player.Decided.Amount)),
                        DollarText(Money(player.Won.Amount)), DollarText(Money(player.Lost.Amount)),
                        DollarText(Money(Net(player))), FormatPattern(NetPercent(player), "0.0000")});
    }
    return TextTable(rows);
}

void WriteBets(JsonWriter& json, std::string_view key, const BetSum& bets) {
    json.Key(key).BeginObject().Field("number", bets.Number).Field("amount", Money(bets.Amount)).EndObject();
}

void WritePlayer(JsonWriter& json, int p, const PlayerSum& player, std::int64_t sessions) {
    json.BeginObject().Field("p", p).Field("name", player.Name);
    json.Key("bankroll").BeginObject();
    json.Field("begin", Mean(player.Begin, sessions)).Field("end", Mean(player.End, sessions));
    json.Field("high", player.High).Field("low", player.Low);
    json.Field("bestEnd", player.BestEnd).Field("worstEnd", player.WorstEnd).EndObject();
    WriteBets(json, "decided", player.Decided);
    WriteBets(json, "won", player.Won);
    WriteBets(json, "lost", player.Lost);
    json.Field("net", Money(Net(player))).Field("netPercent", NetPercent(player)).EndObject();
}

}  // namespace

void BetSum::Add(const BetSum& other) {
    Number += other.Number;
    Amount += other.Amount;
}

void RunSummary::AddSession(const Table& t, const std::string& stopReason) {
    RunSummary session;
    session.Sessions = 1;
    session.Rolls = SessionRolls(t);
    session.Hands = HandCount(t, Positions * Scope::Session);
    session.StopReasons[stopReason] = 1;
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p)) continue;
        const auto pos = static_cast<std::size_t>(p + Positions * Scope::Session);
        PlayerSum& player = session.Players[static_cast<std::size_t>(p)];
        player.Name = t.PlayerName[static_cast<std::size_t>(p)];
        player.Begin = t.BankrollBegin[pos].TenThousandths;
        player.End = t.Bankroll[pos].TenThousandths;
        player.BestEnd = player.WorstEnd = t.Bankroll[pos];
        player.High = t.BankrollHigh[pos];
        player.Low = t.BankrollLow[pos];
        player.Decided = SessionBets(t, p, Wagers);
        player.Won = SessionBets(t, p, Wins);
        player.Lost = SessionBets(t, p, Losses);
    }
    Merge(session);
}

void RunSummary::Merge(const RunSummary& other) {
    Sessions += other.Sessions;
    Rolls += other.Rolls;
    Hands += other.Hands;
    for (const auto& [reason, count] : other.StopReasons) StopReasons[reason] += count;
    for (std::size_t p = 0; p < Players.size(); ++p) {
        PlayerSum& mine = Players[p];
        const PlayerSum& theirs = other.Players[p];
        if (theirs.Name.empty()) continue;
        if (mine.Name.empty()) {
            mine = theirs;
            continue;
        }
        mine.Begin += theirs.Begin;
        mine.End += theirs.End;
        mine.BestEnd = std::max(mine.BestEnd, theirs.BestEnd);
        mine.WorstEnd = std::min(mine.WorstEnd, theirs.WorstEnd);
        mine.High = std::max(mine.High, theirs.High);
        mine.Low = std::min(mine.Low, theirs.Low);
        mine.Decided.Add(theirs.Decided);
        mine.Won.Add(theirs.Won);
        mine.Lost.Add(theirs.Lost);
    }
}

std::string SummaryText(const RunSummary& summary, const RunReport& report) {
    std::vector<std::vector<std::string>> rows = {{"Sessions", Grouped(summary.Sessions)},
                                                  {"Rolls", Grouped(summary.Rolls)},
                                                  {"Hands", Grouped(summary.Hands)},
                                                  {"Rolls per second", Grouped(PerSecond(summary, report))}};
    std::string heading = "Stopped";
    for (const auto& [reason, count] : Reasons(summary)) {
        const std::string times = summary.Sessions > 1 ? Grouped(count) + " x " : "";
        rows.push_back({heading, times + reason});
        heading.clear();
    }
    std::string out = "# " + report.Command + "\n" + TextTable(rows, 2);
    const bool anyone = std::any_of(summary.Players.begin(), summary.Players.end(),
                                    [](const PlayerSum& player) { return !player.Name.empty(); });
    if (anyone) out += "\n" + BankrollTable(summary) + "\n" + BetsTable(summary);
    return out;
}

std::string SummaryJson(const RunSummary& summary, const RunReport& report) {
    JsonWriter json;
    json.BeginObject().Field("command", report.Command).Field("seed", report.Seed).Field("rng", report.Rng);
    json.Field("sessions", summary.Sessions).Field("rolls", summary.Rolls).Field("hands", summary.Hands);
    json.Field("seconds", report.Seconds).Field("rollsPerSecond", PerSecond(summary, report));
    const auto reasons = Reasons(summary);
    json.Field("stopReason", reasons.empty() ? std::string() : reasons.front().first);
    json.Key("stopReasons").BeginList();
    for (const auto& [reason, count] : reasons) {
        json.BeginObject().Field("reason", reason).Field("sessions", count).EndObject();
    }
    json.EndList().Key("players").BeginList();
    for (std::size_t p = 1; p < summary.Players.size(); ++p) {
        if (!summary.Players[p].Name.empty()) {
            WritePlayer(json, static_cast<int>(p), summary.Players[p], summary.Sessions);
        }
    }
    return json.EndList().EndObject().Text() + "\n";
}

}  // namespace tarnwick::lab
