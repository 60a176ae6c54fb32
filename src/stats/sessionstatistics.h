// The sessions of a log as a distribution: what the Sessions window shows of one field.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "stats/sessionslog.h"

namespace tarnwick {

enum class SessionClass { Won, Even, Lost };

/// What of a log is looked at.
struct SessionsQuery {
    int Stat = SessionStat::MoneyNet;  ///< 0..31
    bool Won = true, Even = true, Lost = true;
    currency BreakLow, BreakHigh;  ///< BreakLow <= BreakHigh: a net below is lost, above is won

    bool Includes(SessionClass outcome) const {
        return outcome == SessionClass::Won ? Won : outcome == SessionClass::Even ? Even : Lost;
    }
};

SessionClass ClassOf(const SessionRecord& record, const SessionsQuery& view);

/// A value or its distance from the mean in standard deviations; neither when not given. A value goes first.
struct SessionsMark {
    std::optional<currency> Value;
    std::optional<double> Deviation;
};

constexpr int HistogramBins = 525;

struct HistogramBin {
    std::int64_t Count = 0;
    currency High, Low;  ///< of the values in it; 0 when it is empty
};

struct SessionStatistics {
    std::int64_t Sessions = 0;  ///< of the log
    std::int64_t Won = 0, Even = 0, Lost = 0;
    std::int64_t Included = 0;
    currency Rolls, Handle, Net;  ///< sums of those included
    currency Advantage;           ///< net in percent of the handle, 0 without one
    currency Sum, Mean, Median, Mode, High, Mid, Low, Range;
    currency Variance, Deviation;  ///< of the whole, not of a sample of it
    currency Skew, Kurtosis;       ///< 0 when all values are the same
    bool MedianEstimated = false;
    std::array<HistogramBin, HistogramBins> Bins;
    std::array<SessionsMark, 2> Marks;  ///< both parts, where one was given
    std::int64_t Between = 0;           ///< sessions from one mark to the other, both given

    /// An amount that left the range; then all but the counts of classes is 0.
    bool Excessive = false;
};

/// Sums up `log`. Nothing of it is kept in memory.
SessionStatistics SumUpSessions(const SessionsLog& log, const SessionsQuery& view,
                                const std::array<SessionsMark, 2>& marks = {});

/// One bar of the histogram: `width` bins (1, 5, 25 or 105) from bin `first` on.
struct HistogramBar {
    std::int64_t Count = 0;
    double From = 0, To = 0;  ///< what its bins stand for
};
std::vector<HistogramBar> HistogramBars(const SessionStatistics& statistics, int width);

/// What the window shows when the statistics are Excessive.
std::string ExcessiveText(const std::string& playerName);

}  // namespace tarnwick
