// The texts of the Sessions window: labels of the statistics, lines of the raw data, the search in it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "stats/sessionstatistics.h"

namespace tarnwick {

/// A value of a statistic as the raw data shows it: counts by "#,#;-#,#;0", percentages with " %", money with cents.
std::string SessionValueText(int stat, currency value);

/// "Won", "Broke-even", "Lost"; with a break-point range "> high", "low - high", "< low".
std::string SessionClassText(SessionClass outcome, const SessionsQuery& view);

struct SessionsLabel {
    std::string Name, Text;
};
/// The statistics of the chosen field, "Sum" to "Kurtosis". Empty texts when nothing is included.
std::vector<SessionsLabel> DistributionLabels(const SessionStatistics& s, int stat);
/// The classes with their share of all sessions, and "Total".
std::vector<SessionsLabel> ClassLabels(const SessionStatistics& s, const SessionsQuery& view);
/// "# Rolls", "Handle $", "Net $" and "Advantage" of those included.
std::vector<SessionsLabel> SumLabels(const SessionStatistics& s);
/// A deviation of a mark: "0.########;-0.########,0".
std::string DeviationText(double deviation);
/// "12 sessions 34.5%": what the pointer over a bar shows behind its range of values.
std::string BarRangeText(const HistogramBar& bar);
std::string BarCountText(const HistogramBar& bar, const SessionStatistics& s);

struct RawDataLine {
    std::int32_t Session = 0;
    std::string Outcome, Value;
};
/// Included sessions from number `top` on, `count` lines at most.
std::vector<RawDataLine> RawDataPage(const SessionsLog& log, const SessionsQuery& view, std::int32_t top, int count);

/// The next included session whose field reads as `text`, behind `from` or backward before it, around the ends, `from`
/// itself last. An amount may be typed in any form. 0 when there is none.
std::int32_t FindSession(const SessionsLog& log, const SessionsQuery& view, std::string_view text, std::int32_t from,
                         bool forward);

/// The scroll bar of the raw data has the range 1..30,000, whatever the count.
std::int32_t SessionsScrollValue(std::int32_t topSession, std::int32_t sessions);
std::int32_t TopSessionOf(std::int32_t scrollValue, std::int32_t sessions);
/// `topSession` within 1..sessions; 1 for an empty log.
std::int32_t ClampedTopSession(std::int64_t topSession, std::int32_t sessions);

}  // namespace tarnwick
