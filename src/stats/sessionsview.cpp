#include "stats/sessionsview.h"

#include <algorithm>
#include <cmath>

#include "table/format.h"

namespace tarnwick {

namespace {

constexpr std::string_view WholeNumber = "#,#;-#,#;0";
constexpr std::string_view Cents = "#,##0.0#;-#,##0.0#;0";
constexpr std::string_view AllPlaces = "#,##0.0###;-#,##0.0###;0";
constexpr std::string_view InPercent = "#,##0.0# %;-#,##0.0# %;0 %";
constexpr std::string_view Share = "0.0#;-0.0#;0";
constexpr std::int32_t ScrollSteps = 30'000;

/// Of values of a field, which may be counts, and of what is computed from them, which is seldom whole.
std::string_view ValuePattern(int stat) {
    if (stat < SessionStat::Handle) return WholeNumber;
    if (stat == SessionStat::Percent) return InPercent;
    return stat < SessionStat::FirstStack ? Cents : AllPlaces;
}
std::string_view ComputedPattern(int stat) { return stat < SessionStat::Handle ? Cents : ValuePattern(stat); }

std::string Count(std::int64_t n) { return FormatPattern(Dollars(n), WholeNumber); }

std::string CountWithShare(std::int64_t n, std::int64_t all) {
    if (all == 0) return Count(n) + " 0%";
    const double share = 100.0 * static_cast<double>(n) / static_cast<double>(all);
    return Count(n) + " " + FormatPattern(share, Share) + "%";
}

/// What is looked for, in the form that the field's values have.
std::string WantedText(int stat, std::string_view text) {
    const std::string_view typed = Trim(text);
    const bool percent = !typed.empty() && typed.back() == '%';
    const auto amount = ParseAmount(percent ? typed.substr(0, typed.size() - 1) : typed);
    return amount ? SessionValueText(stat, *amount) : std::string(typed);
}

/// The first or last included session of `first` to `last` whose field reads as `wanted`; 0 without one.
std::int32_t FindIn(const SessionsLog& log, const SessionsQuery& view, const std::string& wanted, std::int32_t first,
                    std::int32_t last, bool lastMatch) {
    std::int32_t found = 0;
    constexpr std::int32_t atOnce = 1'024;
    std::vector<SessionRecord> records;
    for (std::int32_t begin = first; begin <= last; begin += atOnce) {
        log.Read(begin, std::min(atOnce, last - begin + 1), records);
        for (std::size_t i = 0; i < records.size(); ++i) {
            if (!view.Includes(ClassOf(records[i], view))) continue;
            const currency value = records[i][static_cast<std::size_t>(view.Stat)];
            if (SessionValueText(view.Stat, value) != wanted) continue;
            found = begin + static_cast<std::int32_t>(i);
            if (!lastMatch) return found;
        }
        if (records.empty()) break;
    }
    return found;
}

}  // namespace

std::string SessionValueText(int stat, currency value) { return FormatPattern(value, ValuePattern(stat)); }

std::string SessionClassText(SessionClass outcome, const SessionsQuery& view) {
    const bool range = view.BreakLow != view.BreakHigh;
    switch (outcome) {
        case SessionClass::Won:
            return range ? "> " + FormatCommas(view.BreakHigh) : "Won";
        case SessionClass::Lost:
            return range ? "< " + FormatCommas(view.BreakLow) : "Lost";
        case SessionClass::Even:
            break;
    }
    return range ? FormatCommas(view.BreakLow) + " - " + FormatCommas(view.BreakHigh) : "Broke-even";
}

std::vector<SessionsLabel> DistributionLabels(const SessionStatistics& s, int stat) {
    const std::string_view value = ValuePattern(stat), computed = ComputedPattern(stat);
    struct Row {
        const char* Name;
        currency Amount;
        std::string_view Pattern;
    };
    const Row rows[] = {{"Sum", s.Sum, value},
                        {"Mean", s.Mean, computed},
                        {s.MedianEstimated ? "   Median *" : "Median", s.Median, computed},
                        {"Mode", s.Mode, value},
                        {"High", s.High, value},
                        {"Mid", s.Mid, computed},
                        {"Low", s.Low, value},
                        {"Range", s.Range, value},
                        {"Variance", s.Variance, AllPlaces},
                        {"Std Dev", s.Deviation, computed},
                        {"Skew", s.Skew, AllPlaces},
                        {"Kurtosis", s.Kurtosis, AllPlaces}};
    std::vector<SessionsLabel> labels;
    for (const Row& row : rows) {
        labels.push_back({row.Name, s.Included == 0 ? std::string() : FormatPattern(row.Amount, row.Pattern)});
    }
    return labels;
}

std::vector<SessionsLabel> ClassLabels(const SessionStatistics& s, const SessionsQuery& view) {
    return {{SessionClassText(SessionClass::Won, view), CountWithShare(s.Won, s.Sessions)},
            {SessionClassText(SessionClass::Even, view), CountWithShare(s.Even, s.Sessions)},
            {SessionClassText(SessionClass::Lost, view), CountWithShare(s.Lost, s.Sessions)},
            {"Total", Count(s.Sessions)}};
}

std::vector<SessionsLabel> SumLabels(const SessionStatistics& s) {
    return {{"# Rolls", FormatPattern(s.Rolls, WholeNumber)},
            {"Handle $", FormatPattern(s.Handle, Cents)},
            {"Net $", FormatPattern(s.Net, Cents)},
            {"Advantage", FormatPattern(s.Advantage, Share)}};
}

std::string DeviationText(double deviation) { return FormatPattern(deviation, "0.########;-0.########,0"); }

std::string BarRangeText(const HistogramBar& bar) {
    return FormatPattern(bar.From, Cents) + " - " + FormatPattern(bar.To, Cents);
}

std::string BarCountText(const HistogramBar& bar, const SessionStatistics& s) {
    const double share = s.Included == 0 ? 0 : 100.0 * static_cast<double>(bar.Count) / static_cast<double>(s.Included);
    return Count(bar.Count) + (bar.Count == 1 ? " session " : " sessions ") + FormatPattern(share, Share) + "%";
}

std::vector<RawDataLine> RawDataPage(const SessionsLog& log, const SessionsQuery& view, std::int32_t top, int count) {
    std::vector<RawDataLine> lines;
    std::vector<SessionRecord> records;
    constexpr std::int32_t atOnce = 256;
    const auto wanted = static_cast<std::size_t>(std::max(count, 0));
    for (std::int32_t first = std::max(top, 1); first <= log.Count() && lines.size() < wanted; first += atOnce) {
        log.Read(first, atOnce, records);
        if (records.empty()) break;
        std::int32_t number = first;
        for (const SessionRecord& record : records) {
            const SessionClass outcome = ClassOf(record, view);
            if (view.Includes(outcome) && lines.size() < wanted) {
                const currency value = record[static_cast<std::size_t>(view.Stat)];
                lines.push_back({number, SessionClassText(outcome, view), SessionValueText(view.Stat, value)});
            }
            ++number;
        }
    }
    return lines;
}

std::int32_t FindSession(const SessionsLog& log, const SessionsQuery& view, std::string_view text, std::int32_t from,
                         bool forward) {
    if (log.Count() == 0) return 0;
    const std::string wanted = WantedText(view.Stat, text);
    from = ClampedTopSession(from, log.Count());
    const std::int32_t first = forward ? FindIn(log, view, wanted, from + 1, log.Count(), false)
                                       : FindIn(log, view, wanted, 1, from - 1, true);
    if (first != 0) return first;
    return forward ? FindIn(log, view, wanted, 1, from, false) : FindIn(log, view, wanted, from, log.Count(), true);
}

std::int32_t ClampedTopSession(std::int64_t topSession, std::int32_t sessions) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(topSession, 1, std::max(sessions, 1)));
}

std::int32_t SessionsScrollValue(std::int32_t topSession, std::int32_t sessions) {
    if (sessions == 0) return 0;
    if (sessions == 1) return 1;
    const std::int64_t top = ClampedTopSession(topSession, sessions);
    return static_cast<std::int32_t>(std::max<std::int64_t>((top - 1) * ScrollSteps / (sessions - 1), 1));
}

std::int32_t TopSessionOf(std::int32_t scrollValue, std::int32_t sessions) {
    const std::int64_t value = std::clamp(scrollValue, 0, ScrollSteps);
    return ClampedTopSession(value * (sessions - 1) / ScrollSteps + 1, sessions);
}

}  // namespace tarnwick
