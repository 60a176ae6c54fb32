// Figures that move from scope to scope and from position to position.
#include <algorithm>
#include <utility>

#include "stats/accumulators.h"
#include "stats/bankrollgraph.h"

namespace tarnwick {

using namespace StatsDetail;

namespace StatsDetail {

void Merge(BetSide& into, const BetSide& later);

namespace {

void CloseHandFigures(Table& t, std::size_t p) {
    t.Folded.HandCounts[p + 9] = t.Folded.HandCounts[p];
    t.Folded.HandCounts[p] = 0;
    t.SeenLastHand[p] = PlayerRolls(t, static_cast<int>(p));
    t.SeenHandFrom[p] = t.RollTotal;
    const currency now = t.Bankroll[p];
    t.BankrollBegin[p + 9] = std::exchange(t.BankrollBegin[p], now);
    t.Bankroll[p + 9] = now;
    t.BankrollHigh[p + 9] = std::exchange(t.BankrollHigh[p], now);
    t.BankrollLow[p + 9] = std::exchange(t.BankrollLow[p], now);
}

/// The stretch begins again with the hand's counters at 0.
void ResetHandCounters(Table& t) {
    FoldedFigures& f = t.Folded;
    t.HandComeouts = t.HandPasses = t.HandMisses = 0;
    f.LiveComeouts = f.LivePasses = f.LiveMisses = 0;
    f.LiveFrom = t.RollTotal;
    f.HandCredited = false;
    f.HandRollsOf = {};
    t.HandStart = t.RollTotal;
}

void ResetGaps(Table& t) {
    t.GapStart = t.RollTotal;
    t.Folded.Gaps = {};
    t.ComeFlatNow = {};
}

template <class Into, class From>
void AddRows(RollRows<Into>& into, const RollRows<From>& from) {
    for (std::size_t p = 0; p < Positions; ++p) {
        for (std::size_t i = 0; i < DicePairs; ++i) into.Pairs[p][i] += from.Pairs[p][i];
        for (std::size_t i = 0; i < LineSlots; ++i) into.Lines[p][i] += from.Lines[p][i];
    }
}

void MergeBook(BetBook& into, const BetBook& from) {
    for (int p = 1; p < Positions; ++p) {
        for (int word = 0; word < 2; ++word) {
            for (std::uint64_t left = from.Used[At(p)][At(word)]; left != 0; left &= left - 1) {
                const int row = 64 * word + __builtin_ctzll(left);
                BetFigures& sum = OpenRecord(into, p, row);
                const BetFigures& added = from.Record(p, row);
                Merge(sum.Wagers, added.Wagers);
                Merge(sum.Wins, added.Wins);
                Merge(sum.Losses, added.Losses);
                sum.ComeFlat = SaturatedAdd(sum.ComeFlat, added.ComeFlat);
            }
        }
    }
}

/// What shooter p rolled is the table's from now on.
template <class Count>
void DisownRows(RollRows<Count>& rows, std::size_t p) {
    for (std::size_t i = 0; i < DicePairs; ++i) rows.Pairs[0][i] += std::exchange(rows.Pairs[p][i], Count{0});
    for (std::size_t i = 0; i < LineSlots; ++i) rows.Lines[0][i] += std::exchange(rows.Lines[p][i], Count{0});
}

template <class Count>
void SwapRows(RollRows<Count>& rows, std::size_t p, std::size_t q) {
    std::swap(rows.Pairs[p], rows.Pairs[q]);
    std::swap(rows.Lines[p], rows.Lines[q]);
}

/// Calls `act` with each array that is indexed by pos.
template <class Act>
void ForEachByPos(Table& t, Act act) {
    act(t.Bankroll);
    act(t.BankrollBegin);
    act(t.BankrollHigh);
    act(t.BankrollLow);
    act(t.Folded.HandCounts);
    for (auto& most : t.Folded.Most) act(most);
}

/// Calls `act` with each array that is indexed by position.
template <class Act>
void ForEachByPosition(Table& t, Act act) {
    act(t.BankrollInvested);
    act(t.SumFrom);
    act(t.SumSettled);
    act(t.SeenHandFrom);
    act(t.SeenSessionFrom);
    act(t.SeenAllFrom);
    act(t.SeenLastHand);
    act(t.SeenLastSession);
    act(t.Folded.HandRollsOf);
}

template <class Act>
void ForEachBook(Table& t, Act act) {
    act(t.HandBooks[0]);
    act(t.HandBooks[1]);
    act(t.SessionBooks[0]);
    act(t.SessionBooks[1]);
    act(t.AllBook);
}

template <class Act>
void ForEachRows(Table& t, Act act) {
    act(t.Folded.Hand);
    act(t.Folded.LastHand);
    act(t.Folded.Session);
    act(t.LastSessionRolls);
    act(t.AllRolls);
}

}  // namespace

}  // namespace StatsDetail

void SettleHandShooter(Table& t) { BeginStretch(t, t.HandShooter); }

void EndHandRollover(Table& t) {
    BeginStretch(t, t.Folded.LiveShooter);
    if (HandRolls(t) > 0 && t.RollTotal > t.Folded.RollsFolded) {
        t.RollLog[LogPlace(t.RollTotal - 1)] |= LoggedRoll::HandEnd;
    } else {
        FoldRolls(t);
        t.Folded.LastHand = t.Folded.Hand;
        t.Folded.Hand = {};
    }
    CloseHandFigures(t, 0);
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p)) continue;
        CloseHandFigures(t, At(p));
        t.HandBook[At(p)] ^= 1;
        t.HandBooks[t.HandBook[At(p)]].Clear(p);
    }
    ResetHandCounters(t);
}

void SetBeginningBankroll(Table& t, int p, currency amount) {
    const std::size_t at = At(p);
    const bool first = PlayerRolls(t, p + 36) == 0;
    SetBankroll(t, p, amount);
    t.SumSettled[at] = amount;
    t.BankrollInvested[at] = amount;
    t.PrevBankroll[at] = amount;
    for (const std::size_t pos : {at, at + 18}) {
        t.BankrollBegin[pos] = amount;
        t.BankrollHigh[pos] = amount;
        t.BankrollLow[pos] = amount;
    }
    if (first) t.BankrollBegin[at + 36] = amount;
    if (first || amount > t.BankrollHigh[at + 36]) t.BankrollHigh[at + 36] = amount;
    if (first || amount < t.BankrollLow[at + 36]) t.BankrollLow[at + 36] = amount;
    if (amount < currency{}) t.AllowNegativeBankroll[at] = true;
}

void RolloverSession(Table& t) {
    if (HandRolls(t) > 0) EndHandRollover(t);
    BeginStretch(t, t.Folded.LiveShooter);
    FoldRolls(t);
    FoldedFigures& f = t.Folded;
    AddRows(t.AllRolls, f.Session);
    MergeBook(t.AllBook, t.SessionBooks[t.SessionBook]);
    if (SessionRolls(t) > 0) {
        t.LastSessionRolls = f.Session;
        t.SessionBook ^= 1;
        for (int p = 0; p < Positions; ++p) {
            const std::size_t from = At(p + 18);
            const std::size_t to = At(p + 27);
            t.SeenLastSession[At(p)] = PlayerRolls(t, p + 18);
            ForEachByPos(t, [&](auto& array) { array[to] = array[from]; });
        }
    }
    f.Session = {};
    f.Hand = {};
    t.SessionStart = t.RollTotal;
    for (int p = 0; p < Positions; ++p) {
        t.SeenHandFrom[At(p)] = t.SeenSessionFrom[At(p)] = t.RollTotal;
        t.HandBooks[t.HandBook[At(p)]].Clear(p);
        t.SessionBooks[t.SessionBook].Clear(p);
        for (const std::size_t pos : {At(p), At(p + 18)}) {
            f.HandCounts[pos] = 0;
            for (auto& most : f.Most) most[pos] = 0;
        }
    }
    ResetHandCounters(t);
    ResetGaps(t);
}

void EraseStatistics(Table& t) {
    ForEachRows(t, [](auto& rows) { rows = {}; });
    ForEachBook(t, [](BetBook& book) { book.Used = {}; });
    for (int p = 0; p < Positions; ++p) SetBankroll(t, p, {});
    ForEachByPos(t, [](auto& array) { array = {}; });
    t.SeenHandFrom.fill(t.RollTotal);
    t.SeenSessionFrom.fill(t.RollTotal);
    t.SeenAllFrom.fill(t.RollTotal);
    t.SeenLastHand = {};
    t.SeenLastSession = {};
    t.SessionStart = t.RollTotal;
    t.Folded.RollsFolded = t.RollTotal;
    ResetHandCounters(t);
    ResetGaps(t);
}

void ClearPositionStatistics(Table& t, int p) {
    const std::size_t at = At(p);
    BeginStretch(t, t.Folded.LiveShooter);
    FoldRolls(t);
    ForEachRows(t, [at](auto& rows) { DisownRows(rows, at); });
    ForEachBook(t, [p](BetBook& book) { book.Clear(p); });
    ForEachByPos(t, [at](auto& array) {
        for (std::size_t pos = at; pos < StatPositions; pos += Positions) array[pos] = {};
    });
    ForEachByPosition(t, [at](auto& array) { array[at] = {}; });
    t.SeenHandFrom[at] = t.SeenSessionFrom[at] = t.SeenAllFrom[at] = t.RollTotal;
    t.SumFrom[at] = t.BankrollSamples;
    t.ComeFlatNow[at] = {};
    ClearGraphPosition(t, p);
}

void SwapPositionStatistics(Table& t, int p, int q) {
    const std::size_t a = At(p);
    const std::size_t b = At(q);
    BeginStretch(t, t.Folded.LiveShooter);
    FoldRolls(t);
    ForEachRows(t, [&](auto& rows) { SwapRows(rows, a, b); });
    ForEachBook(t, [&](BetBook& book) {
        std::swap(book.Used[a], book.Used[b]);
        std::swap(book.Records[a - 1], book.Records[b - 1]);
    });
    std::swap(t.HandBook[a], t.HandBook[b]);
    ForEachByPos(t, [&](auto& array) {
        for (std::size_t scope = 0; scope < StatPositions; scope += Positions)
            std::swap(array[a + scope], array[b + scope]);
    });
    ForEachByPosition(t, [&](auto& array) { std::swap(array[a], array[b]); });
    const std::uint32_t changed = t.BankrollsToSample;
    const std::uint32_t others = changed & ~(1u << p | 1u << q);
    t.BankrollsToSample = others | ((changed >> p) & 1u) << q | ((changed >> q) & 1u) << p;
    SwapGraphPositions(t, p, q);
}

}  // namespace tarnwick
