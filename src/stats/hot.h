// What runs on every roll and every decided bet, inline. Included by stats/accumulators.h.
#pragma once

#include <algorithm>
#include <limits>

#include "stats/accumulators.h"

namespace tarnwick {

namespace StatsDetail {

/// Counts the logged rolls.
void FoldRolls(const Statistics& s);
/// Settles the stretch of rolls of the shooter so far, and leaves the next to `shooter`.
void BeginStretch(const Statistics& s, int shooter);
/// Counts a line slot for `shooter` at once.
void AddLine(Statistics& s, int shooter, std::size_t slot);

inline std::size_t At(int i) { return static_cast<std::size_t>(i); }

inline std::size_t LogPlace(std::int64_t roll) { return static_cast<std::size_t>(roll) & (RollLogSize - 1); }

inline std::uint32_t LineSlot(int total, int c) { return static_cast<std::uint32_t>(3 * (total - 2) + c); }

inline void NoteLine(Table& t, std::uint32_t slot, int shift) {
    if (t.RollTotal > t.Folded.RollsFolded) {
        t.RollLog[LogPlace(t.RollTotal - 1)] |= slot << shift;
    } else {
        AddLine(t, t.HandShooter, slot);
    }
}

/// a + b, or the end of the range that it passes.
inline std::int64_t SaturatedAdd(std::int64_t a, std::int64_t b) {
    std::int64_t sum = 0;
    if (!__builtin_add_overflow(a, b, &sum)) return sum;
    return a < 0 ? std::numeric_limits<std::int64_t>::min() : std::numeric_limits<std::int64_t>::max();
}

inline void SettleSum(Statistics& s, std::size_t p) {
    const std::int64_t samples = s.BankrollSamples - s.SumFrom[p];
    s.SumFrom[p] = s.BankrollSamples;
    std::int64_t added = 0;
    if (!__builtin_mul_overflow(s.Bankroll[p].TenThousandths, samples, &added)) {
        s.SumSettled[p].TenThousandths = SaturatedAdd(s.SumSettled[p].TenThousandths, added);
    } else {
        s.SumSettled[p] = {
            Saturate(static_cast<int128>(s.Bankroll[p].TenThousandths) * samples + s.SumSettled[p].TenThousandths)};
    }
}

/// The bankroll after the next roll, and until it changes again, is `value`.
inline void BeginGraphRun(GraphSeries& series, std::int64_t from, std::int64_t value) {
    const GraphRun& last = series.Runs[series.Newest];
    if (last.From < from) {
        const std::uint64_t sum = last.SumTo(from - 1);
        series.Newest = series.Newest + 1 == GraphSeries::Room ? 0 : series.Newest + 1;
        series.Count += series.Count < GraphSeries::Room ? 1 : 0;
        series.Runs[series.Newest] = {from, value, sum};
    } else {
        series.Runs[series.Newest].Value = value;
    }
}

inline void AddResult(BetSide& side, std::int64_t amount, std::int64_t roll) {
    ++side.Count;
    side.Sum = SaturatedAdd(side.Sum, amount);
    if (amount > side.High) side.High = amount;
    if (amount > 0 && (side.Low == 0 || amount < side.Low)) side.Low = amount;
    side.LastRoll = roll;
    side.Last = amount;
}

/// The record of (p, row), zero at its first use.
inline BetFigures& OpenRecord(BetBook& book, int p, int row) {
    BetFigures& record = book.Record(p, row);
    std::uint64_t& used = book.Used[At(p)][At(row >> 6)];
    const std::uint64_t bit = std::uint64_t{1} << (row & 63);
    if ((used & bit) == 0) {
        used |= bit;
        record.Wagers = {};  // side by side: the whole at once would be zeroed by a slower instruction
        record.Wins = {};
        record.Losses = {};
        record.ComeFlat = 0;
    }
    return record;
}

inline void AddDecision(BetFigures& record, std::int64_t wager, std::int64_t net, std::int64_t comeFlat,
                        std::int64_t roll) {
    AddResult(record.Wagers, wager, roll);
    if (net > 0) {
        AddResult(record.Wins, net, roll);
    } else {
        AddResult(record.Losses, -net, roll);
    }
    if (comeFlat != 0) record.ComeFlat = SaturatedAdd(record.ComeFlat, comeFlat);
}

}  // namespace StatsDetail

inline std::int32_t SessionRolls(const Table& t) { return static_cast<std::int32_t>(t.RollTotal - t.SessionStart); }

inline std::int32_t HandRolls(const Table& t) { return static_cast<std::int32_t>(t.RollTotal - t.HandStart); }

inline void TallyRoll(Table& t) {
    const std::size_t place = StatsDetail::LogPlace(t.RollTotal);
    if (place == 0) StatsDetail::FoldRolls(t);
    if (t.HandShooter != t.Folded.LiveShooter) StatsDetail::BeginStretch(t, t.HandShooter);
    t.RollLog[place] = static_cast<std::uint32_t>(PairIndex(t.Die1, t.Die2)) | static_cast<std::uint32_t>(t.HandShooter)
                                                                                   << LoggedRoll::ShooterShift;
    ++t.RollTotal;
}

inline void TallyPass(Table& t) {
    ++t.HandPasses;
    StatsDetail::NoteLine(t, StatsDetail::LineSlot(t.Point > 0 ? t.Point : t.DiceTotal, 2), LoggedRoll::DecisionShift);
}

inline void TallyMiss(Table& t) {
    ++t.HandMisses;
    StatsDetail::NoteLine(t, StatsDetail::LineSlot(t.Point > 0 ? t.Point : t.DiceTotal, 3), LoggedRoll::DecisionShift);
}

inline void TallyComeout(Table& t) {
    ++t.HandComeouts;
    StatsDetail::NoteLine(t, StatsDetail::LineSlot(t.DiceTotal, 1), LoggedRoll::ComeoutShift);
}

inline void RecordBetResult(Table& t, int p, int row, currency wager, currency net) {
    using namespace StatsDetail;
    if (IsZero(net)) return;
    if (IsLay(row)) {
        if (t.LayVigOnAllBets) wager += t.LayVigCharged[At(p)][At(row - Row::Lay4)];
    } else if (IsBuy(row)) {
        if (t.BuyVigOnAllBets) wager += t.BuyVigCharged[At(p)][At(row - Row::Buy4)];
    }
    const std::int64_t comeFlat =
        IsComeNumber(row) ? t.ComeFlatNow[At(p)][At(row - Row::Come4)].TenThousandths : std::int64_t{0};
    const std::int64_t roll = SessionRolls(t);
    AddDecision(OpenRecord(t.HandBooks[t.HandBook[At(p)]], p, row), wager.TenThousandths, net.TenThousandths, comeFlat,
                roll);
    AddDecision(OpenRecord(t.SessionBooks[t.SessionBook], p, row), wager.TenThousandths, net.TenThousandths, comeFlat,
                roll);
}

inline void SetBankroll(Table& t, int p, currency amount) {
    const std::size_t at = StatsDetail::At(p);
    StatsDetail::SettleSum(t, at);
    StatsDetail::BeginGraphRun(t.GraphOf[at], std::int64_t{t.GraphPoints} + 1, amount.TenThousandths);
    t.Bankroll[at] = amount;
    t.Bankroll[at + 18] = amount;
    t.Bankroll[at + 36] = amount;
    t.BankrollsToSample |= 1u << p;
    TouchSeat(t, p);
}

inline void TallyBankrolls(Table& t) {
    ++t.BankrollSamples;
    for (std::uint32_t left = t.BankrollsToSample; left != 0; left &= left - 1) {
        const auto p = static_cast<std::size_t>(__builtin_ctz(left));
        const currency now = t.Bankroll[p];
        for (std::size_t pos = p; pos < StatPositions; pos += 18) {
            t.BankrollHigh[pos] = std::max(t.BankrollHigh[pos], now);
            t.BankrollLow[pos] = std::min(t.BankrollLow[pos], now);
        }
    }
    t.BankrollsToSample = 0;
}

}  // namespace tarnwick
