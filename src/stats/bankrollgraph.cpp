#include "stats/bankrollgraph.h"

#include <algorithm>
#include <utility>

namespace tarnwick {

using namespace StatsDetail;

namespace {

/// Run `age` of the series, 0 the newest.
const GraphRun& RunOfAge(const GraphSeries& series, std::uint32_t age) {
    return series.Runs[series.Newest >= age ? series.Newest - age : series.Newest + GraphSeries::Room - age];
}

/// Age of the run that `roll` lies in; of the oldest when that is younger.
std::uint32_t AgeAt(const GraphSeries& series, std::int64_t roll) {
    std::uint32_t youngest = 0;
    std::uint32_t oldest = series.Count - 1;
    while (youngest < oldest) {
        const std::uint32_t middle = (youngest + oldest) / 2;
        if (RunOfAge(series, middle).From <= roll) {
            oldest = middle;
        } else {
            youngest = middle + 1;
        }
    }
    return youngest;
}

/// Sum of p's bankrolls after rolls 1..roll, modulo 2^64.
std::uint64_t SumTo(const Table& t, int p, int roll) {
    if (roll < 1) return 0;
    const GraphSeries& series = t.GraphOf[At(p)];
    return RunOfAge(series, AgeAt(series, roll)).SumTo(roll);
}

currency ValueAfter(const Table& t, int p, int roll) {
    if (roll < 1) return {};
    const GraphSeries& series = t.GraphOf[At(p)];
    return {RunOfAge(series, AgeAt(series, roll)).Value};
}

/// The roll that page point i 1..1050 shows; a point that the page hasn't reached still shows the page before. 0 or
/// less before the session's first roll.
int RollOfPoint(const Table& t, int i) {
    if (i > GraphPage) return t.GraphStart - 2 * GraphPage - 1 + i;
    return i <= GraphCount(t) ? t.GraphStart + i - 1 : t.GraphStart + i - GraphPage - 1;
}

struct Range {
    currency Low, High;
};

Range PageRange(const Table& t, int p) {
    Range range;
    bool any = ((t.GraphHasExtra >> p) & 1u) != 0;
    if (any) range = {t.GraphExtra[At(p)], t.GraphExtra[At(p)]};
    if (GraphCount(t) == 0) return range;
    const GraphSeries& series = t.GraphOf[At(p)];
    const std::uint32_t oldest = AgeAt(series, t.GraphStart);
    for (std::uint32_t age = AgeAt(series, t.GraphPoints); age <= oldest; ++age) {
        const currency value = {RunOfAge(series, age).Value};
        range.Low = any ? std::min(range.Low, value) : value;
        range.High = any ? std::max(range.High, value) : value;
        any = true;
    }
    return range;
}

constexpr std::uint32_t AllPlayers = 0x1fe;

/// One run from the session's first roll on.
void StartSeries(GraphSeries& series, currency value) {
    series.Newest = 0;
    series.Count = 1;
    series.Runs[0] = {1, value.TenThousandths, 0};
}

currency SessionAverage(const Table& t, int p, std::int64_t rollsBack, currency sum) {
    const std::int64_t samples = std::int64_t{PlayerRolls(t, p + 18)} + 1 - rollsBack;
    return samples < 1 ? currency{} : currency{static_cast<std::int64_t>(HalfEvenDivide(sum.TenThousandths, samples))};
}

}  // namespace

namespace StatsDetail {

void TurnGraphPage(Table& t) {
    if (t.GraphPlotType == 1) {
        ++t.GraphStart;
        t.GraphHasExtra = 0;
        return;
    }
    t.GraphStart = t.GraphPoints + 1;
    for (std::size_t p = 1; p < Positions; ++p) t.GraphExtra[p] = t.Bankroll[p];
    t.GraphHasExtra = AllPlayers;
    if (t.GraphWindowOpen) ResetBankrollGraph(t, false);
}

}  // namespace StatsDetail

void RestartBankrollGraph(Table& t) {
    t.GraphStart = 1;
    t.GraphPoints = 0;
    t.GraphScale = Dollars(1);
    t.GraphTop = Dollars(150);
    for (std::size_t p = 1; p < Positions; ++p) {
        StartSeries(t.GraphOf[p], t.Bankroll[p]);
        t.GraphExtra[p] = t.Bankroll[p];
    }
    t.GraphHasExtra = AllPlayers;
}

void ClearGraphPosition(Table& t, int p) {
    StartSeries(t.GraphOf[At(p)], {});
    t.GraphExtra[At(p)] = {};
    t.GraphHasExtra |= 1u << p;
}

void SwapGraphPositions(Table& t, int p, int q) {
    std::swap(t.GraphOf[At(p)], t.GraphOf[At(q)]);
    std::swap(t.GraphExtra[At(p)], t.GraphExtra[At(q)]);
    const std::uint32_t extra = t.GraphHasExtra;
    t.GraphHasExtra = (extra & ~(1u << p | 1u << q)) | ((extra >> p) & 1u) << q | ((extra >> q) & 1u) << p;
}

currency GraphBankroll(const Table& t, int p, int i) {
    return i == 0 ? Dollars(t.GraphStart) : ValueAfter(t, p, RollOfPoint(t, i));
}

currency GraphLow(const Table& t, int p) { return PageRange(t, p).Low; }
currency GraphHigh(const Table& t, int p) { return PageRange(t, p).High; }

currency AverageBankroll(const Table& t, int p, bool atPoint, int i, int n) {
    n = std::min(n, GraphPage);
    if (n < 1) return SessionAverage(t, p, 0, BankrollSum(t, p));
    const int end = atPoint && i != 0 ? i : i - 1;
    if (end < 0) return {};
    n = std::min(n, end + std::min(GraphPage, t.GraphStart - 1));
    if (n < 1) return {};
    if (end <= GraphCount(t)) {
        const int roll = t.GraphStart + end - 1;
        const auto sum = static_cast<std::int64_t>(SumTo(t, p, roll) - SumTo(t, p, roll - n));
        return {static_cast<std::int64_t>(HalfEvenDivide(sum, n))};
    }
    currency sum;
    for (int taken = 0; taken < n; ++taken) {
        const int point = end - taken;
        sum += GraphBankroll(t, p, point > 0 ? point : 2 * GraphPage + point);
    }
    return {static_cast<std::int64_t>(HalfEvenDivide(sum.TenThousandths, n))};
}

std::array<currency, GraphPage + 1> GraphAverages(const Table& t, int p) {
    std::array<currency, GraphPage + 1> averages{};
    const int count = GraphCount(t);
    currency sum = BankrollSum(t, p);
    for (int i = count; i > 0; --i) {
        if (t.GraphAverageRolls > 0) {
            averages[At(i)] = AverageBankroll(t, p, true, i, t.GraphAverageRolls);
        } else {
            averages[At(i)] = SessionAverage(t, p, count - i, sum);
            sum -= GraphBankroll(t, p, i);
        }
    }
    return averages;
}

currency GraphAverage(const Table& t, int p, int i) {
    if (t.GraphAverageRolls < 1) return GraphAverages(t, p)[At(i)];
    return i > GraphCount(t) ? currency{} : AverageBankroll(t, p, true, i, t.GraphAverageRolls);
}

void RecalcGraphAverage(Table& t, int p) {
    if (GraphCount(t) > 0) t.GraphHasExtra &= ~(1u << p);
}

// --- scale and axis ---

namespace {

/// 0.01, 0.02, 0.04, 0.1 ... 40,000, 100,000.
constexpr auto GraphScales = [] {
    std::array<currency, 22> scales{};
    std::int64_t power = CurrencyScale / 100;
    for (std::size_t i = 0; i + 1 < scales.size(); i += 3, power *= 10) {
        scales[i] = {power};
        scales[i + 1] = {2 * power};
        scales[i + 2] = {4 * power};
    }
    scales.back() = {power};
    return scales;
}();
static_assert(GraphScales.back() == Dollars(100'000));

currency Band(const Table& t) { return t.GraphScale * 50; }

/// Puts `v` into the third band from the top.
void CentreAxis(Table& t, currency v) { t.GraphTop = FloorTo(v, Band(t)) + Band(t) * 3; }

/// Moves the axis band by band until `high` lies below its top and `low` above its bottom; the bottom is served last.
void ShiftAxis(Table& t, currency low, currency high) {
    const std::int64_t band = Band(t).TenThousandths;
    if (high >= t.GraphTop) t.GraphTop += Band(t) * ((high - t.GraphTop).TenThousandths / band + 1);
    const currency bottom = t.GraphTop - Band(t) * 6;
    if (low <= bottom) t.GraphTop -= Band(t) * ((bottom - low).TenThousandths / band + 1);
}

/// What a recentred axis shows in its middle: the bankroll, or the bankrolls at the reference lines.
currency CentreValue(const Table& t, int p) {
    if (!t.GraphRefLines) return t.Bankroll[At(p)];
    const bool first = t.GraphRefLine1 <= GraphCount(t);
    const bool second = t.GraphRefLine2 <= GraphCount(t);
    const currency atFirst = GraphBankroll(t, p, t.GraphRefLine1);
    const currency atSecond = GraphBankroll(t, p, t.GraphRefLine2);
    if (first && second) return {static_cast<std::int64_t>(HalfEvenDivide((atFirst + atSecond).TenThousandths, 2))};
    return first ? atFirst : second ? atSecond : t.Bankroll[At(p)];
}

}  // namespace

currency NextGraphScale(currency scale, bool up) {
    if (up) {
        const auto next = std::upper_bound(GraphScales.begin(), GraphScales.end(), scale);
        return next == GraphScales.end() ? scale : *next;
    }
    const auto at = std::lower_bound(GraphScales.begin(), GraphScales.end(), scale);
    return at == GraphScales.begin() ? scale : *std::prev(at);
}

void ResetBankrollGraph(Table& t, bool recentre) {
    const int p = t.GraphPlayer;
    if (t.GraphAdjustType == 3 && (t.GraphPlotType == 1 || GraphCount(t) == 0)) t.GraphScale = t.GraphBaseScale;
    if (t.GraphScale <= currency{}) t.GraphScale = GraphScales.front();
    const currency centre = recentre ? CentreValue(t, p) : t.Bankroll[At(p)];
    if (recentre) CentreAxis(t, centre);
    if (t.GraphAdjustType >= 2) {
        const Range range = PageRange(t, p);
        while (range.High - range.Low > t.GraphScale * 250 && t.GraphScale < GraphScales.back()) {
            t.GraphScale = NextGraphScale(t.GraphScale, true);
            CentreAxis(t, centre);
        }
        ShiftAxis(t, range.Low, range.High);
    } else if (t.GraphAdjustType == 1) {
        ShiftAxis(t, t.Bankroll[At(p)], t.Bankroll[At(p)]);
    }
}

}  // namespace tarnwick
