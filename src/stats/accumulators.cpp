// Readers of the accumulators.
#include "stats/accumulators.h"

#include <algorithm>
#include <limits>

namespace tarnwick {

using namespace StatsDetail;

namespace {

std::int32_t Count32(std::int64_t n) {
    return static_cast<std::int32_t>(std::min<std::int64_t>(n, std::numeric_limits<std::int32_t>::max()));
}

/// Adds up `figure(row)` over the rows of position p: all nine for the table.
template <class Figure>
std::int64_t SumRows(int p, Figure figure) {
    if (p > 0) return figure(At(p));
    std::int64_t sum = 0;
    for (std::size_t row = 0; row < Positions; ++row) sum += figure(row);
    return sum;
}

/// Adds up `figure(rows, row)` over the rolls of `pos`.
template <class Figure>
std::int32_t SumRolls(const Table& t, int pos, Figure figure) {
    FoldRolls(t);
    const FoldedFigures& f = t.Folded;
    const int p = pos % Positions;
    const auto of = [&](const auto& rows) { return SumRows(p, [&](std::size_t row) { return figure(rows, row); }); };
    switch (pos / Positions) {
        case Scope::Hand:
            return Count32(of(f.Hand));
        case Scope::LastHand:
            return Count32(of(f.LastHand));
        case Scope::Session:
            return Count32(of(f.Session));
        case Scope::LastSession:
            return Count32(of(t.LastSessionRolls));
        default:
            return Count32(of(t.AllRolls) + of(f.Session));
    }
}

std::int32_t Most(const Table& t, std::size_t kind, int pos) {
    BeginStretch(t, t.Folded.LiveShooter);
    return t.Folded.Most[kind][At(pos)];
}

}  // namespace

std::int32_t RollCount(const Table& t, int pos, int k) {
    if (k == 0 && pos == 0) return HandRolls(t);
    if (k == 0 && pos == 18) return SessionRolls(t);
    const PairMask pairs = PairsOfEvent[At(k)];
    return SumRolls(t, pos, [pairs](const auto& rows, std::size_t row) {
        std::int64_t sum = 0;
        for (PairMask left = pairs; left != 0; left &= left - 1) sum += rows.Pairs[row][At(__builtin_ctzll(left))];
        return sum;
    });
}

std::int32_t RollsSince(const Table& t, int k) {
    FoldRolls(t);
    return static_cast<std::int32_t>(t.RollTotal - t.GapStart - t.Folded.Gaps.LastAt[At(k)]);
}

std::int32_t RollGapTally(const Table& t, int k, int gap) {
    FoldRolls(t);
    const GapFigures& gaps = t.Folded.Gaps;
    return static_cast<std::int32_t>(gaps.Counts[At(k)][At(gap)] + gaps.Recent[At(k)][At(gap)]);
}

std::int32_t PointTally(const Table& t, int pos, int total, int c) {
    const std::size_t slot = LineSlot(total, c);
    return SumRolls(t, pos,
                    [slot](const auto& rows, std::size_t row) -> std::int64_t { return rows.Lines[row][slot]; });
}

std::int32_t HandCount(const Table& t, int pos) {
    BeginStretch(t, t.Folded.LiveShooter);
    return Count32(t.Folded.HandCounts[At(pos)]);
}

std::int32_t PlayerRolls(const Table& t, int pos) {
    const std::size_t p = At(pos % Positions);
    switch (pos / Positions) {
        case Scope::Hand:
            return Count32(t.RollTotal - t.SeenHandFrom[p]);
        case Scope::LastHand:
            return t.SeenLastHand[p];
        case Scope::Session:
            return Count32(t.RollTotal - t.SeenSessionFrom[p]);
        case Scope::LastSession:
            return t.SeenLastSession[p];
        default:
            return Count32(t.RollTotal - t.SeenAllFrom[p]);
    }
}

std::int32_t MostRolls(const Table& t, int pos) { return Most(t, MostOf::Rolls, pos); }
std::int32_t MostComeouts(const Table& t, int pos) { return Most(t, MostOf::Comeouts, pos); }
std::int32_t MostPasses(const Table& t, int pos) { return Most(t, MostOf::Passes, pos); }
std::int32_t MostMisses(const Table& t, int pos) { return Most(t, MostOf::Misses, pos); }

currency BankrollSum(const Table& t, int p) {
    const std::int64_t samples = t.BankrollSamples - t.SumFrom[At(p)];
    return {
        Saturate(static_cast<int128>(t.Bankroll[At(p)].TenThousandths) * samples + t.SumSettled[At(p)].TenThousandths)};
}

// --- bets ---

namespace StatsDetail {

void Merge(BetSide& into, const BetSide& later) {
    if (later.Count == 0) return;
    into.Count = SaturatedAdd(into.Count, later.Count);
    into.Sum = SaturatedAdd(into.Sum, later.Sum);
    into.High = std::max(into.High, later.High);
    if (into.Low == 0 || (later.Low != 0 && later.Low < into.Low)) into.Low = later.Low;
    into.LastRoll = later.LastRoll;
    into.Last = later.Last;
}

}  // namespace StatsDetail

namespace {

const BetFigures NoBets{};

const BetFigures& Find(const BetBook& book, int p, int row) {
    return book.IsUsed(p, row) ? book.Record(p, row) : NoBets;
}

bool HasBets(int pos, int row) { return pos % Positions > 0 && IsLayoutRow(row); }

/// Gives `read` the record of (pos, row), the session's second where there are two.
const BetFigures& FindBet(const Table& t, int pos, int row) {
    const int p = pos % Positions;
    const std::size_t hand = t.HandBook[At(p)];
    const std::size_t session = t.SessionBook;
    switch (pos / Positions) {
        case Scope::Hand:
            return Find(t.HandBooks[hand], p, row);
        case Scope::LastHand:
            return Find(t.HandBooks[1 - hand], p, row);
        case Scope::Session:
            return Find(t.SessionBooks[session], p, row);
        case Scope::LastSession:
            return Find(t.SessionBooks[1 - session], p, row);
        default:
            return Find(t.AllBook, p, row);
    }
}

using SideOf = BetSide BetFigures::*;
constexpr SideOf Sides[] = {&BetFigures::Wagers, &BetFigures::Wins, &BetFigures::Losses};

BetSide ReadSide(const Table& t, SideOf kind, int pos, int row) {
    if (!HasBets(pos, row)) return {};
    BetSide side = FindBet(t, pos, row).*kind;
    if (pos / Positions == Scope::All) Merge(side, FindBet(t, pos - 18, row).*kind);
    return side;
}

currency StatOf(const BetSide& side, int stat) {
    switch (stat) {
        case 1:
            return Dollars(side.Count);
        case 2:
            return {side.Sum};
        case 3:
            return {side.High};
        case 4:
            return {side.Low};
        case 5:
            return Dollars(side.LastRoll);
        default:
            return {side.Last};
    }
}

}  // namespace

currency BetStatWagers(const Table& t, int pos, int row, int stat) {
    return StatOf(ReadSide(t, &BetFigures::Wagers, pos, row), stat);
}
currency BetStatWins(const Table& t, int pos, int row, int stat) {
    return StatOf(ReadSide(t, &BetFigures::Wins, pos, row), stat);
}
currency BetStatLosses(const Table& t, int pos, int row, int stat) {
    return StatOf(ReadSide(t, &BetFigures::Losses, pos, row), stat);
}

currency ComeFlatSum(const Table& t, int pos, int row) {
    if (!HasBets(pos, row)) return {};
    const currency sum = {FindBet(t, pos, row).ComeFlat};
    return pos / Positions == Scope::All ? SaturatedSum(sum, {FindBet(t, pos - 18, row).ComeFlat}) : sum;
}

currency SumBetStats(const Table& t, int kind, int pos, int firstRow, int lastRow, int stat) {
    BetSide sum;
    for (int row = firstRow; row <= lastRow; ++row) {
        const BetSide side = ReadSide(t, Sides[kind], pos, row);
        sum.Count = SaturatedAdd(sum.Count, side.Count);
        sum.Sum = SaturatedAdd(sum.Sum, side.Sum);
        sum.High = std::max(sum.High, side.High);
        if (side.Low != 0 && (sum.Low == 0 || side.Low < sum.Low)) sum.Low = side.Low;
        if (side.LastRoll > sum.LastRoll) {
            sum.LastRoll = side.LastRoll;
            sum.Last = side.Last;
        } else if (side.LastRoll == sum.LastRoll) {
            sum.Last = SaturatedAdd(sum.Last, side.Last);
        }
    }
    return StatOf(sum, stat);
}

}  // namespace tarnwick
