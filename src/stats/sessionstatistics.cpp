#include "stats/sessionstatistics.h"

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

/// Sums that note when they leave the range of money.
class Adder {
  public:
    explicit Adder(bool& excessive) : Excessive(excessive) {}

    void Add(currency& sum, currency amount) const {
        if (__builtin_add_overflow(sum.TenThousandths, amount.TenThousandths, &sum.TenThousandths)) Excessive = true;
    }
    /// Money of a double, which must be within the range.
    currency Money(double value) const {
        constexpr double limit = 922'337'203'685'477.0;
        if (!(std::fabs(value) <= limit)) {
            Excessive = true;
            return {};
        }
        return ToCurrency(value);
    }
    currency Exact(int128 count) const {
        if (Saturate(count) != count) Excessive = true;
        return {Saturate(count)};
    }

  private:
    bool& Excessive;
};

int128 Wide(currency a) { return a.TenThousandths; }

/// a - b, which may lie outside the range of money.
double Difference(currency a, currency b) {
    return static_cast<double>(Wide(a) - Wide(b)) / static_cast<double>(CurrencyScale);
}

currency Middle(currency a, currency b) { return {Saturate(HalfEvenDivide<int128>(Wide(a) + Wide(b), 2))}; }

/// Bin of x in low..high: a quotient of doubles, halves to the even bin.
int BinOf(currency x, currency low, currency high) {
    constexpr int last = HistogramBins - 1;
    if (low == high) return HistogramBins / 2;
    if (x == low) return 0;
    if (x == high) return last;
    const auto numerator = static_cast<double>((Wide(x) - Wide(low)) * last);
    const auto range = static_cast<double>(Wide(high) - Wide(low));
    return std::clamp(static_cast<int>(std::nearbyint(numerator / range)), 0, last);
}

/// Calls `each` with every record that `view` includes.
template <class Each>
void ForIncluded(const SessionsLog& log, const SessionsQuery& view, Each each) {
    log.ForEach([&](std::int32_t, const SessionRecord& record) {
        if (view.Includes(ClassOf(record, view))) each(record);
        return true;
    });
}

void FirstPass(const SessionsLog& log, const SessionsQuery& view, SessionStatistics& s) {
    const Adder adder(s.Excessive);
    log.ForEach([&](std::int32_t, const SessionRecord& record) {
        const SessionClass outcome = ClassOf(record, view);
        ++(outcome == SessionClass::Won ? s.Won : outcome == SessionClass::Even ? s.Even : s.Lost);
        if (!view.Includes(outcome)) return true;
        const currency x = record[At(view.Stat)];
        adder.Add(s.Rolls, record[SessionStat::Rolls]);
        adder.Add(s.Handle, record[SessionStat::Handle]);
        adder.Add(s.Net, record[SessionStat::MoneyNet]);
        adder.Add(s.Sum, x);
        s.High = s.Included == 0 ? x : std::max(s.High, x);
        s.Low = s.Included == 0 ? x : std::min(s.Low, x);
        ++s.Included;
        return true;
    });
}

void AddToBin(HistogramBin& bin, currency x) {
    bin.High = bin.Count == 0 ? x : std::max(bin.High, x);
    bin.Low = bin.Count == 0 ? x : std::min(bin.Low, x);
    ++bin.Count;
}

void SecondPass(const SessionsLog& log, const SessionsQuery& view, SessionStatistics& s) {
    const Adder adder(s.Excessive);
    double squares = 0;
    ForIncluded(log, view, [&](const SessionRecord& record) {
        const currency x = record[At(view.Stat)];
        const double distance = Difference(x, s.Mean);
        squares += distance * distance;
        AddToBin(s.Bins[At(BinOf(x, s.Low, s.High))], x);
    });
    s.Variance = adder.Money(squares / static_cast<double>(s.Included));
    s.Deviation = ToCurrency(std::sqrt(ToDouble(s.Variance)));
}

void CompleteMarks(SessionStatistics& s) {
    for (SessionsMark& mark : s.Marks) {
        if (mark.Value) {
            mark.Deviation = IsZero(s.Deviation) ? 0 : Difference(*mark.Value, s.Mean) / ToDouble(s.Deviation);
        } else if (mark.Deviation) {
            mark.Value = ToCurrency(ToDouble(s.Mean) + *mark.Deviation * ToDouble(s.Deviation));
        }
    }
}

/// Skew and kurtosis from the sums of z^3 and z^4, z being the distance from the mean in standard deviations.
void ThirdPass(const SessionsLog& log, const SessionsQuery& view, SessionStatistics& s) {
    const Adder adder(s.Excessive);
    const bool marked = s.Marks[0].Value && s.Marks[1].Value;
    const currency from = marked ? std::min(*s.Marks[0].Value, *s.Marks[1].Value) : currency{};
    const currency to = marked ? std::max(*s.Marks[0].Value, *s.Marks[1].Value) : currency{};
    const double deviation = ToDouble(s.Deviation);
    currency cubes, fourths;
    ForIncluded(log, view, [&](const SessionRecord& record) {
        const currency x = record[At(view.Stat)];
        if (marked && from <= x && x <= to) ++s.Between;
        if (IsZero(s.Deviation)) return;
        const double z = Difference(x, s.Mean) / deviation;
        adder.Add(cubes, adder.Money(z * z * z));
        adder.Add(fourths, adder.Money(z * z * z * z));
    });
    if (IsZero(s.Deviation)) return;
    const auto count = static_cast<double>(s.Included);
    s.Skew = ToCurrency(ToDouble(cubes) / count);
    s.Kurtosis = ToCurrency(ToDouble(fourths) / count - 3);
}

/// The value that half of the sessions don't pass, as exactly as the bins tell it.
void FindMedian(SessionStatistics& s) {
    const bool even = s.Included % 2 == 0;
    const std::int64_t middle = even ? s.Included / 2 : (s.Included + 1) / 2;
    std::int64_t passed = 0;
    std::size_t i = 0;
    while ((passed += s.Bins[i].Count) < middle) ++i;
    const HistogramBin& bin = s.Bins[i];
    if (even && passed == middle) {
        // One of the two middle values is the highest of this bin, the other the lowest of the next one that has any.
        std::size_t next = i + 1;
        while (s.Bins[next].Count == 0) ++next;
        s.Median = Middle(bin.High, s.Bins[next].Low);
        s.MedianEstimated = bin.High != s.Bins[next].Low;
    } else {
        s.Median = Middle(bin.Low, bin.High);
        s.MedianEstimated = bin.Low != bin.High;
    }
}

void FindMode(SessionStatistics& s) {
    const auto* const fullest = std::max_element(
        s.Bins.begin(), s.Bins.end(), [](const HistogramBin& a, const HistogramBin& b) { return a.Count < b.Count; });
    s.Mode = fullest->Low;
}

}  // namespace

SessionClass ClassOf(const SessionRecord& record, const SessionsQuery& view) {
    const currency net = record[SessionStat::MoneyNet];
    if (net < view.BreakLow) return SessionClass::Lost;
    return net > view.BreakHigh ? SessionClass::Won : SessionClass::Even;
}

SessionStatistics SumUpSessions(const SessionsLog& log, const SessionsQuery& view,
                                const std::array<SessionsMark, 2>& marks) {
    SessionStatistics s;
    s.Sessions = log.Count();
    FirstPass(log, view, s);
    if (s.Included == 0) return s;
    s.Marks = marks;
    const Adder adder(s.Excessive);
    s.Mean = adder.Money(ToDouble(s.Sum) / static_cast<double>(s.Included));
    SecondPass(log, view, s);
    CompleteMarks(s);
    FindMedian(s);
    FindMode(s);
    ThirdPass(log, view, s);
    s.Mid = Middle(s.High, s.Low);
    s.Range = adder.Exact(Wide(s.High) - Wide(s.Low));
    if (!IsZero(s.Handle)) s.Advantage = MultiplyDivide(s.Net, Dollars(100), s.Handle);
    if (!s.Excessive) return s;
    SessionStatistics counts;
    counts.Sessions = s.Sessions;
    counts.Won = s.Won;
    counts.Even = s.Even;
    counts.Lost = s.Lost;
    counts.Excessive = true;
    return counts;
}

std::vector<HistogramBar> HistogramBars(const SessionStatistics& statistics, int width) {
    std::vector<HistogramBar> bars;
    if (statistics.Included == 0 || width < 1) return bars;
    const double low = ToDouble(statistics.Low);
    // A value falls into the nearest bin: bin i stands for what is nearest to low + i steps.
    const double step = Difference(statistics.High, statistics.Low) / (HistogramBins - 1);
    for (int first = 0; first < HistogramBins; first += width) {
        const int end = std::min(first + width, HistogramBins);
        HistogramBar bar;
        for (int i = first; i < end; ++i) bar.Count += statistics.Bins[At(i)].Count;
        bar.From = low + step * std::max(first - 0.5, 0.0);
        bar.To = low + step * std::min(end - 0.5, HistogramBins - 1.0);
        bars.push_back(bar);
    }
    return bars;
}

std::string ExcessiveText(const std::string& playerName) {
    return "An error has occurred in calculating the statistics for " + playerName +
           ". This may have been due to excessive variance or corruption in your data.\n\nYou should be able to view "
           "the actual data by selecting Display Data";
}

}  // namespace tarnwick
