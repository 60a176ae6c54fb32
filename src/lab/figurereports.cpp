#include "lab/figurereports.h"

#include <algorithm>
#include <array>

#include "lab/texttable.h"
#include "stats/handfigures.h"
#include "stats/summaryfigures.h"
#include "table/format.h"

namespace tarnwick::lab {

namespace {

using Rows = std::vector<std::vector<std::string>>;

void WriteFigure(JsonWriter& json, std::string_view name, const Figure& figure) {
    json.Key(name);
    switch (figure.Kind) {
        case Figure::Unit::Count:
            json.Value(figure.Value.TenThousandths / CurrencyScale);
            break;
        case Figure::Unit::Money:
            json.Value(figure.Value);
            break;
        case Figure::Unit::Ratio:
            json.Value(ToDouble(figure.Value));
            break;
    }
}

std::string Heading(int scope, const std::string& selection) {
    return std::string(ScopeText(scope)) + ", " + selection + "\n";
}

// --- summary ---

std::string SummaryText(const Table& t, const FigureQuery& q) {
    const SummaryFigures f = FiguresOfSummary(t, q.StatScope, q.Players);
    const std::string percent = f.PlayerPercent.Text;
    Rows rows = {{"", "Table", "Player"},
                 {"Hands", f.Table.Hands.Text, f.Player.Hands.Text},
                 {"Rolls", f.Table.Rolls.Text, f.Player.Rolls.Text, percent},
                 {"Rolls / hr", f.Table.RollsPerHour.Text, f.Player.RollsPerHour.Text},
                 {"Sim hrs", f.Table.SimulatedHours.Text, f.Player.SimulatedHours.Text}};
    std::string out = Heading(q.StatScope, f.Players) + TextTable(rows) + "\n";
    rows = {{"Bets", "Decided", "Won", "Lost", "Net", "Net %"}};
    for (const auto& [name, bets] : {std::pair{"#", &f.Numbers}, {"$", &f.Amounts}})
        rows.push_back({name, bets->Made.Text, bets->Won.Text, bets->Lost.Text, bets->Net.Text, bets->NetPercent.Text});
    out += TextTable(rows) + "\n";
    rows = {{"Bankroll", "Beginning", std::string(f.CurrentCaption), "High", "Low", "Average"},
            {"$", f.BankrollBeginning.Text, f.BankrollCurrent.Text, f.BankrollHigh.Text, f.BankrollLow.Text,
             f.BankrollAverage.Text}};
    out += TextTable(rows);
    for (const CompLine& line : f.Comps) {
        if (f.HasComps) out += line.Caption + "  " + line.Amount.Text + "\n";
    }
    return out;
}

void WriteCourse(JsonWriter& json, std::string_view name, const SummaryCourse& course) {
    json.Key(name).BeginObject();
    WriteFigure(json, "hands", course.Hands);
    WriteFigure(json, "rolls", course.Rolls);
    WriteFigure(json, "rollsPerHour", course.RollsPerHour);
    WriteFigure(json, "simHours", course.SimulatedHours);
    json.EndObject();
}

void WriteSummary(JsonWriter& json, const Table& t, const FigureQuery& q) {
    const SummaryFigures f = FiguresOfSummary(t, q.StatScope, q.Players);
    json.Field("scope", q.StatScope).Field("players", f.Players);
    WriteCourse(json, "table", f.Table);
    WriteCourse(json, "player", f.Player);
    WriteFigure(json, "playerPercent", f.PlayerPercent);
    for (const auto& [name, bets] : {std::pair{"numbers", &f.Numbers}, {"amounts", &f.Amounts}}) {
        json.Key(name).BeginObject();
        WriteFigure(json, "decided", bets->Made);
        WriteFigure(json, "won", bets->Won);
        WriteFigure(json, "lost", bets->Lost);
        WriteFigure(json, "net", bets->Net);
        WriteFigure(json, "netPercent", bets->NetPercent);
        json.EndObject();
    }
    json.Key("bankroll").BeginObject();
    WriteFigure(json, "begin", f.BankrollBeginning);
    WriteFigure(json, "end", f.BankrollCurrent);
    WriteFigure(json, "high", f.BankrollHigh);
    WriteFigure(json, "low", f.BankrollLow);
    WriteFigure(json, "average", f.BankrollAverage);
    json.EndObject();
}

// --- hands ---

constexpr std::array<const char*, 3> LineKinds = {"comeouts", "passes", "misses"};

std::string HandsText(const Table& t, const FigureQuery& q) {
    const HandsFigures f = FiguresOfHands(t, q.StatScope, q.Players);
    std::string out = Heading(q.StatScope, f.Players) + "Hands " + f.Hands.Text + ", rolls " + f.Rolls.Text + "\n\n";
    out += TextTable({{"In a hand", "Most", "Average"},
                      {"Rolls", f.MostRolls.Text, f.AverageRolls.Text},
                      {"Come-outs", f.MostComeouts.Text, f.AverageComeouts.Text},
                      {"Passes", f.MostPasses.Text, f.AveragePasses.Text},
                      {"Misses", f.MostMisses.Text, f.AverageMisses.Text}});
    Rows rows = {{"Total", "Come-outs", "%", "Passes", "%", "Misses", "%"}};
    for (const HandsRow& row : f.Rows) {
        std::vector<std::string> cells = {row.Heading == "Total" ? "All" : row.Heading};
        for (std::size_t c = 0; c < 3; ++c) {
            cells.push_back(row.Counts[c].Text);
            cells.push_back(row.Percents[c].Text);
        }
        rows.push_back(std::move(cells));
    }
    return out + "\n" + TextTable(rows);
}

void WriteHands(JsonWriter& json, const Table& t, const FigureQuery& q) {
    const HandsFigures f = FiguresOfHands(t, q.StatScope, q.Players);
    json.Field("scope", q.StatScope).Field("players", f.Players);
    WriteFigure(json, "hands", f.Hands);
    WriteFigure(json, "rolls", f.Rolls);
    json.Key("most").BeginObject();
    WriteFigure(json, "rolls", f.MostRolls);
    WriteFigure(json, "comeouts", f.MostComeouts);
    WriteFigure(json, "passes", f.MostPasses);
    WriteFigure(json, "misses", f.MostMisses);
    json.EndObject().Key("average").BeginObject();
    WriteFigure(json, "rolls", f.AverageRolls);
    WriteFigure(json, "comeouts", f.AverageComeouts);
    WriteFigure(json, "passes", f.AveragePasses);
    WriteFigure(json, "misses", f.AverageMisses);
    json.EndObject().Key("totals").BeginList();
    for (const HandsRow& row : f.Rows) {
        json.BeginObject().Field("total", row.Heading == "Total" ? "all" : row.Heading);
        for (std::size_t c = 0; c < 3; ++c) WriteFigure(json, LineKinds[c], row.Counts[c]);
        json.EndObject();
    }
    json.EndList();
}

// --- rolls ---

std::string TotalsText(const Table& t, const FigureQuery& q) {
    const RollTotalsFigures f = FiguresOfRollTotals(t, q.StatScope, q.Players, q.Totals);
    Rows rows = {{std::string(RollTotalsModeText(q.Totals)), "appeared", "since last", "actual %", "probable %"}};
    for (const RollTotalsEntry& e : f.Entries)
        rows.push_back({e.Heading, e.Appeared.Text, e.SinceLast.Text, e.Actual.Text, e.Probable.Text});
    return Heading(q.StatScope, f.Players) + "Total rolls " + f.TotalRolls.Text + "\n\n" + TextTable(rows);
}

void WriteTotals(JsonWriter& json, const Table& t, const FigureQuery& q) {
    const RollTotalsFigures f = FiguresOfRollTotals(t, q.StatScope, q.Players, q.Totals);
    json.Field("scope", q.StatScope).Field("players", f.Players);
    WriteFigure(json, "rolls", f.TotalRolls);
    json.Key("entries").BeginList();
    for (const RollTotalsEntry& e : f.Entries) {
        json.BeginObject().Field("name", e.Heading).Field("event", e.Event);
        WriteFigure(json, "appeared", e.Appeared);
        WriteFigure(json, "sinceLast", e.SinceLast);
        WriteFigure(json, "actual", e.Actual);
        WriteFigure(json, "probable", e.Probable);
        json.EndObject();
    }
    json.EndList();
}

std::string FrequenciesText(const Table& t, const FigureQuery& q) {
    const RollFrequencyFigures f = FiguresOfRollFrequency(t, q.Event, q.Skewed);
    std::string out = f.Event + "\n" +
                      TextTable({{"Total rolls", f.TotalRolls.Text},
                                 {"Times rolled", f.TimesRolled.Text},
                                 {"Actual %", f.Actual.Text},
                                 {std::string(f.ProbableCaption), f.Probable.Text},
                                 {"Rolls since", f.Since.Text},
                                 {"Average # of rolls to achieve", f.Average.Text}});
    Rows rows;
    for (int row = 1; row <= GapRowsShown; ++row) {
        std::vector<std::string> cells;
        for (int column = 0; column < GapColumnsShown; ++column) {
            const int gap = column * GapRowsShown + row;
            cells.push_back(GapText(gap) + ":");
            cells.push_back(Grouped(f.Gaps[static_cast<std::size_t>(gap)]));
        }
        rows.push_back(std::move(cells));
    }
    return out + "\n" + TextTable(rows, 0);
}

void WriteFrequencies(JsonWriter& json, const Table& t, const FigureQuery& q) {
    const RollFrequencyFigures f = FiguresOfRollFrequency(t, q.Event, q.Skewed);
    json.Field("event", q.Event).Field("name", f.Event);
    WriteFigure(json, "rolls", f.TotalRolls);
    WriteFigure(json, "times", f.TimesRolled);
    WriteFigure(json, "actual", f.Actual);
    json.Field("skewed", f.ProbableCaption[0] == 'S');
    WriteFigure(json, "probable", f.Probable);
    WriteFigure(json, "since", f.Since);
    WriteFigure(json, "average", f.Average);
    json.Key("gaps").BeginObject();
    for (int gap = 1; gap <= 200; ++gap) {
        if (f.Gaps[static_cast<std::size_t>(gap)] != 0) json.Field(GapText(gap), f.Gaps[static_cast<std::size_t>(gap)]);
    }
    json.EndObject();
}

// --- bets ---

std::string ResultsText(const Table& t, const FigureQuery& q) {
    const BetResultsFigures f = FiguresOfBetResults(t, q.StatScope, q.Players, q.Bets, true);
    Rows rows = {{"", "#", "$", "High", "Low", "Average", "Last roll #", "Last roll $"}};
    for (const BetResultsRow& r : f.Rows) {
        rows.push_back({std::string(r.Caption), r.Number.Text, r.Amount.Text, r.High.Text, r.Low.Text, r.Average.Text,
                        r.LastNumber.Text, r.LastAmount.Text});
    }
    return Heading(q.StatScope, f.Players + ", " + f.Bets) + TextTable(rows) + "Current: # " + f.CurrentNumber.Text +
           ", $ " + f.CurrentAmount.Text + "\n";
}

void WriteResults(JsonWriter& json, const Table& t, const FigureQuery& q) {
    const BetResultsFigures f = FiguresOfBetResults(t, q.StatScope, q.Players, q.Bets, true);
    json.Field("scope", q.StatScope).Field("players", f.Players).Field("bets", f.Bets);
    constexpr std::array<const char*, 5> names = {"wagers", "wins", "losses", "net", "netPercent"};
    for (std::size_t i = 0; i < f.Rows.size(); ++i) {
        const BetResultsRow& r = f.Rows[i];
        json.Key(names[i]).BeginObject();
        WriteFigure(json, "number", r.Number);
        WriteFigure(json, "amount", r.Amount);
        WriteFigure(json, "high", r.High);
        WriteFigure(json, "low", r.Low);
        WriteFigure(json, "average", r.Average);
        WriteFigure(json, "lastNumber", r.LastNumber);
        WriteFigure(json, "lastAmount", r.LastAmount);
        json.EndObject();
    }
    WriteFigure(json, "currentNumber", f.CurrentNumber);
    WriteFigure(json, "currentAmount", f.CurrentAmount);
}

std::string TrendsText(const Table& t, const FigureQuery& q) {
    Rows rows;
    for (const BetTrend& trend : FiguresOfBetTrends(t, q.Player)) {
        if (trend.Streak != 0) rows.push_back({std::string(trend.Name), trend.Text});
    }
    const std::string name = t.PlayerName[static_cast<std::size_t>(q.Player)];
    return (name.empty() ? "Nobody" : name) + "\n" + (rows.empty() ? "no streaks\n" : TextTable(rows));
}

void WriteTrends(JsonWriter& json, const Table& t, const FigureQuery& q) {
    json.Field("p", q.Player).Key("BetStreak").BeginObject();
    for (const BetTrend& trend : FiguresOfBetTrends(t, q.Player)) {
        if (trend.Streak != 0) json.Field(std::to_string(trend.BetRow), trend.Streak);
    }
    json.EndObject();
}

Parsed<RollTotalsMode> ParseTotalsMode(std::string_view text) {
    const std::string word = LowerCase(text);
    for (int mode = 0; mode < 4; ++mode) {
        const auto value = static_cast<RollTotalsMode>(mode);
        if (word == LowerCase(RollTotalsModeText(value))) return {value, {}};
    }
    return {{}, "\"" + std::string(text) + "\" is none of number, combinations, die1, die2"};
}

}  // namespace

const std::vector<FigureReport>& FigureReports() {
    static const std::vector<FigureReport> reports = {
        {"summary", SummaryText, WriteSummary}, {"hands", HandsText, WriteHands},
        {"totals", TotalsText, WriteTotals},    {"frequencies", FrequenciesText, WriteFrequencies},
        {"results", ResultsText, WriteResults}, {"trends", TrendsText, WriteTrends},
    };
    return reports;
}

const FigureReport* FindFigureReport(std::string_view name) {
    for (const FigureReport& report : FigureReports()) {
        if (name == report.Name) return &report;
    }
    return nullptr;
}

Parsed<SeatMask> ParsePlayers(std::string_view text) {
    const std::string word = LowerCase(text);
    if (word == "all") return {0x1fe, {}};
    if (word == "none") return {0, {}};
    unsigned mask = 0;
    for (const char c : word) {
        if (c == ',') continue;
        if (c < '1' || c > '8')
            return {0, "\"" + std::string(text) + "\" is neither all, none nor positions such as 1,3"};
        mask |= 1u << (c - '0');
    }
    return {static_cast<SeatMask>(mask), {}};
}

Parsed<int> ParseRollEvent(std::string_view text) {
    const std::optional<int> number = ParseInteger(text);
    for (const RollEventName& name : RollFrequencyList()) {
        if (number ? *number == name.Event : LowerCase(text) == LowerCase(name.Text)) return {name.Event, {}};
    }
    return {0, "\"" + std::string(text) + "\" is no roll event: 2 to 89, or a name such as \"Any 7\""};
}

Parsed<FigureQuery> ParseFigureQuery(std::string_view report, const std::vector<std::string>& words, int bettor) {
    FigureQuery query;
    query.Player = bettor;
    std::string fault;
    std::size_t next = 0;
    const auto read = [&](auto parse, auto& value) {
        if (!fault.empty() || next >= words.size()) return;
        auto parsed = parse(words[next++]);
        fault = parsed.Fault;
        if (fault.empty()) value = parsed.Value;
    };
    if (report == "trends") {
        read([](const std::string& word) { return ParsePosition(word); }, query.Player);
    } else if (report == "frequencies") {
        read(ParseRollEvent, query.Event);
        if (next < words.size()) {
            const std::string word = LowerCase(words[next++]);
            query.Skewed = word == "skewed";
            if (!query.Skewed && word != "true") fault = "\"" + word + "\" is neither true nor skewed";
        }
    } else {
        read(ParseScope, query.StatScope);
        read(ParsePlayers, query.Players);
        if (report == "totals") read(ParseTotalsMode, query.Totals);
        if (report == "results" && next < words.size()) query.Bets.reset();
        while (report == "results" && next < words.size() && fault.empty()) {
            int row = 0;
            read(ParseRow, row);
            if (fault.empty() && !IsLayoutRow(row)) fault = "a CheckStack has no results";
            if (fault.empty()) query.Bets.set(static_cast<std::size_t>(row));
        }
    }
    if (fault.empty() && next < words.size()) fault = "\"" + words[next] + "\" is one word too many";
    if (fault.empty() && report == "trends" && query.Player == 0) fault = "name the position";
    return {query, fault};
}

}  // namespace tarnwick::lab
