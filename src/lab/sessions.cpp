#include "lab/sessions.h"

#include <algorithm>
#include <cstdio>

#include "files/sharedfile.h"
#include "lab/json.h"
#include "lab/texttable.h"
#include "stats/sessionsview.h"
#include "table/format.h"

namespace tarnwick::lab {

namespace {

std::string_view ClassName(SessionClass outcome) {
    return outcome == SessionClass::Won ? "won" : outcome == SessionClass::Even ? "even" : "lost";
}

std::string LabelTable(const std::vector<SessionsLabel>& labels) {
    std::vector<std::vector<std::string>> rows;
    for (const SessionsLabel& label : labels) rows.push_back({std::string(Trim(label.Name)), label.Text});
    return TextTable(rows);
}

/// A picture of text: the fullest bar is fifty characters long.
std::string HistogramText(const SessionStatistics& s, int width) {
    constexpr std::int64_t longest = 50;
    const std::vector<HistogramBar> bars = HistogramBars(s, width);
    std::int64_t most = 1;
    for (const HistogramBar& bar : bars) most = std::max(most, bar.Count);
    std::vector<std::vector<std::string>> rows;
    for (const HistogramBar& bar : bars) {
        const auto length = static_cast<std::size_t>((bar.Count * longest + most - 1) / most);
        rows.push_back({BarRangeText(bar), std::to_string(bar.Count), "|" + std::string(length, '#')});
    }
    // The last column is aligned left by hand: TextTable would put it to the right.
    for (auto& row : rows) row[2].resize(static_cast<std::size_t>(longest) + 1, ' ');
    return TextTable(rows);
}

std::string RawDataText(const SessionsLog& log, const SessionsQuery& view) {
    std::string text;
    constexpr int atOnce = 4'096;
    for (std::int32_t top = 1; top <= log.Count();) {
        const auto lines = RawDataPage(log, view, top, atOnce);
        if (lines.empty()) break;
        for (const RawDataLine& line : lines) {
            text += std::to_string(line.Session) + "  " + line.Outcome + "  " + line.Value + "\n";
        }
        if (lines.back().Session == log.Count()) break;
        top = lines.back().Session + 1;
    }
    return text;
}

void PrintText(const SessionsOptions& options, const SessionsLog& log, const SessionStatistics& s) {
    std::string text = "# " + options.File + ": " + SessionStatName(options.View.Stat) + "\n";
    text += LabelTable(ClassLabels(s, options.View)) + "\n";
    if (s.Excessive) {
        text += "The statistics can't be calculated: excessive variance or corruption in the data.\n";
    } else {
        text += "Included     " + Grouped(s.Included) + "\n" + LabelTable(SumLabels(s)) + "\n";
        text += LabelTable(DistributionLabels(s, options.View.Stat));
        if (options.Histogram && s.Included > 0) text += "\n" + HistogramText(s, options.BarWidth);
    }
    if (options.RawData) text += "\n" + RawDataText(log, options.View);
    std::fputs(text.c_str(), stdout);
}

void WriteFigures(JsonWriter& json, const SessionStatistics& s) {
    json.Field("IncludedCount", s.Included).Field("rolls", s.Rolls).Field("handle", s.Handle).Field("net", s.Net);
    json.Field("advantage", s.Advantage).Field("sum", s.Sum).Field("mean", s.Mean).Field("median", s.Median);
    json.Field("medianEstimated", s.MedianEstimated).Field("mode", s.Mode).Field("high", s.High).Field("mid", s.Mid);
    json.Field("low", s.Low).Field("range", s.Range).Field("variance", s.Variance);
    json.Field("standardDeviation", s.Deviation).Field("skew", s.Skew).Field("kurtosis", s.Kurtosis);
}

void WriteHistogram(JsonWriter& json, const SessionStatistics& s, int width) {
    json.Key("histogram").BeginList();
    for (const HistogramBar& bar : HistogramBars(s, width)) {
        json.BeginObject().Field("from", bar.From).Field("to", bar.To).Field("count", bar.Count).EndObject();
    }
    json.EndList();
}

void WriteRawData(JsonWriter& json, const SessionsLog& log, const SessionsQuery& view) {
    json.Key("sessions").BeginList();
    log.ForEach([&](std::int32_t number, const SessionRecord& record) {
        const SessionClass outcome = ClassOf(record, view);
        if (!view.Includes(outcome)) return true;
        json.BeginObject().Field("session", number).Field("outcome", ClassName(outcome)).Key("fields").BeginList();
        for (const currency field : record) json.Value(field);
        json.EndList().EndObject();
        return true;
    });
    json.EndList();
}

void PrintJson(const SessionsOptions& options, const SessionsLog& log, const SessionStatistics& s) {
    JsonWriter json;
    json.BeginObject().Field("file", options.File).Field("stat", options.View.Stat);
    json.Field("name", SessionStatName(options.View.Stat));
    json.Field("BreakLow", options.View.BreakLow).Field("BreakHigh", options.View.BreakHigh);
    json.Field("SessionCount", s.Sessions).Field("won", s.Won).Field("even", s.Even).Field("lost", s.Lost);
    json.Field("excessive", s.Excessive);
    WriteFigures(json, s);
    if (options.Histogram) WriteHistogram(json, s, options.BarWidth);
    if (options.RawData) WriteRawData(json, log, options.View);
    std::fputs((json.EndObject().Text() + "\n").c_str(), stdout);
}

}  // namespace

Parsed<int> ParseSessionStat(std::string_view text) {
    if (const std::optional<int> number = ParseInteger(text); number && 0 <= *number && *number < SessionStatCount) {
        return {*number, {}};
    }
    for (int stat = 0; stat < SessionStatCount; ++stat) {
        if (LowerCase(text) == LowerCase(SessionStatName(stat))) return {stat, {}};
    }
    return {0, "\"" + std::string(text) + "\" is no statistic: they are 0 to 31"};
}

std::string ReadInclude(std::string_view text, SessionsQuery& view) {
    view.Won = view.Even = view.Lost = false;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(','), text.size());
        const std::string word = LowerCase(text.substr(0, end));
        bool* const flag = word == "won"    ? &view.Won
                           : word == "even" ? &view.Even
                           : word == "lost" ? &view.Lost
                                            : nullptr;
        if (flag == nullptr) return "\"" + word + "\" is none of won, even and lost";
        *flag = true;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return {};
}

std::string ReadBreakPoint(std::string_view text, SessionsQuery& view) {
    const std::size_t colon = std::min(text.find(':'), text.size());
    const auto low = ParseMoney(text.substr(0, colon));
    const auto high = ParseMoney(colon < text.size() ? text.substr(colon + 1) : text);
    if (!low) return low.Fault;
    if (!high) return high.Fault;
    view.BreakLow = std::min(low.Value, high.Value);
    view.BreakHigh = std::max(low.Value, high.Value);
    return {};
}

int Sessions(const SessionsOptions& options) {
    SessionsLog log;
    std::string fault = FileExists(options.File) ? log.Open(options.File) : "there is no such file";
    if (!fault.empty()) {
        std::fprintf(stderr, "tarnwick-lab sessions: %s: %s\n", options.File.c_str(), fault.c_str());
        return 2;
    }
    const SessionStatistics statistics = SumUpSessions(log, options.View);
    if (options.Json) {
        PrintJson(options, log, statistics);
    } else {
        PrintText(options, log, statistics);
    }
    return 0;
}

}  // namespace tarnwick::lab
