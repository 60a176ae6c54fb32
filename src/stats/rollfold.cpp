// Counts the logged rolls: rows of the shooters, and gaps between the occurrences of each roll event.
#include <algorithm>
#include <limits>

#include "stats/accumulators.h"

namespace tarnwick::StatsDetail {

namespace {

using Word = std::uint32_t;

std::size_t PairOf(Word roll) { return roll & LoggedRoll::PairBits; }
std::size_t ShooterOf(Word roll) { return (roll >> LoggedRoll::ShooterShift) & 15; }
std::size_t ComeoutOf(Word roll) { return (roll >> LoggedRoll::ComeoutShift) & 63; }
std::size_t DecisionOf(Word roll) { return (roll >> LoggedRoll::DecisionShift) & 63; }

inline void CountRoll(RollRows<std::int32_t>& rows, Word roll) {
    const std::size_t shooter = ShooterOf(roll);
    ++rows.Pairs[shooter][PairOf(roll)];
    ++rows.Lines[shooter][ComeoutOf(roll)];
    ++rows.Lines[shooter][DecisionOf(roll)];
}

void CountRolls(RollRows<std::int32_t>& rows, const Word* first, const Word* end) {
    for (; first != end; ++first) CountRoll(rows, *first);
}

/// The hand that ended last before `end`, and the one in progress; earlier hands of the log leave no figures of a hand.
void CountHands(FoldedFigures& f, const Word* first, const Word* end) {
    const auto endedAt = [&](const Word* before) {  // past the last roll that ended a hand, or null
        while (before != first) {
            if ((before[-1] & LoggedRoll::HandEnd) != 0) return before;
            --before;
        }
        return static_cast<const Word*>(nullptr);
    };
    const Word* running = endedAt(end);
    if (running != nullptr) {
        const Word* lastHand = endedAt(running - 1);
        if (lastHand != nullptr) f.Hand = {};
        CountRolls(f.Hand, lastHand != nullptr ? lastHand : first, running);
        f.LastHand = f.Hand;
        f.Hand = {};
        first = running;
    }
    CountRolls(f.Hand, first, end);
}

/// Events that a pair counts as, filled up with rows that count nowhere, so that each roll takes the same path.
constexpr int MostEventsOfPair = 11;

constexpr auto EventsOfPair = [] {
    std::array<std::array<std::uint8_t, MostEventsOfPair>, DicePairs> lists{};
    for (std::size_t pair = 0; pair < DicePairs; ++pair) {
        std::size_t n = 0;
        for (std::size_t k = 1; k < RollEvents; ++k) {
            if ((PairsOfEvent[k] >> pair) & 1u) lists[pair][n++] = static_cast<std::uint8_t>(k);
        }
        for (std::size_t spare = RollEvents; n < MostEventsOfPair; ++spare) {
            lists[pair][n++] = static_cast<std::uint8_t>(spare);
        }
    }
    return lists;
}();

void KeepRecentGaps(GapFigures& gaps) {
    for (std::size_t k = 0; k < GapRows; ++k) {
        for (std::size_t gap = 0; gap < GapSlots; ++gap) gaps.Counts[k][gap] += gaps.Recent[k][gap];
    }
    gaps.Recent = {};
    gaps.RecentRolls = 0;
}

/// Counts the session's rolls and the gaps before their events; `roll` is the number of the roll before `first`. Both
/// in one pass, as the memory that one waits for leaves room for the other.
void CountSession(FoldedFigures& f, const Word* first, const Word* end, Word roll) {
    GapFigures& gaps = f.Gaps;
    const auto count = static_cast<Word>(end - first);
    if (gaps.RecentRolls + count > std::numeric_limits<std::uint16_t>::max()) KeepRecentGaps(gaps);
    gaps.RecentRolls += count;
    for (; first != end; ++first) {
        ++roll;
        CountRoll(f.Session, *first);
        for (const std::uint8_t k : EventsOfPair[PairOf(*first)]) {
            const Word gap = roll - gaps.LastAt[k];
            gaps.LastAt[k] = roll;
            if (gap < 200) {
                ++gaps.Recent[k][gap];
            } else {
                ++gaps.Counts[k][200];
                gaps.Counts[k][0] += gap;
            }
        }
    }
}

}  // namespace

void FoldRolls(const Statistics& s) {
    FoldedFigures& f = s.Folded;
    if (f.RollsFolded == s.RollTotal) return;
    const Word* first = &s.RollLog[LogPlace(f.RollsFolded)];
    const Word* end = first + (s.RollTotal - f.RollsFolded);
    CountSession(f, first, end, static_cast<Word>(f.RollsFolded - s.GapStart));
    CountHands(f, first, end);
    f.RollsFolded = s.RollTotal;
}

void AddLine(Statistics& s, int shooter, std::size_t slot) {
    ++s.Folded.Session.Lines[At(shooter)][slot];
    ++s.Folded.Hand.Lines[At(shooter)][slot];
}

namespace {

/// Raises a figure of the hand, the session and all sessions at position p.
void RaiseMost(std::array<std::int32_t, StatPositions>& most, std::size_t p, std::size_t firstScope, std::int32_t n) {
    for (std::size_t scope = firstScope; scope < Scopes; scope += 2) {
        most[p + Positions * scope] = std::max(most[p + Positions * scope], n);
    }
}

}  // namespace

void BeginStretch(const Statistics& s, int shooter) {
    FoldedFigures& f = s.Folded;
    const std::int64_t rolls = s.RollTotal - f.LiveFrom;
    const std::size_t players[] = {0, At(f.LiveShooter)};
    const std::size_t count = f.LiveShooter > 0 ? 2 : 1;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t p = players[i];
        if (!f.HandCredited && rolls > 0) {
            f.HandCounts[p] = 1;
            ++f.HandCounts[p + 18];
            ++f.HandCounts[p + 36];
        }
        f.HandRollsOf[p] += static_cast<std::int32_t>(rolls);
        if (rolls > 0) RaiseMost(f.Most[MostOf::Rolls], p, Scope::Session, f.HandRollsOf[p]);
        if (s.HandComeouts > f.LiveComeouts) RaiseMost(f.Most[MostOf::Comeouts], p, Scope::Hand, s.HandComeouts);
        if (s.HandPasses > f.LivePasses) RaiseMost(f.Most[MostOf::Passes], p, Scope::Hand, s.HandPasses);
        if (s.HandMisses > f.LiveMisses) RaiseMost(f.Most[MostOf::Misses], p, Scope::Hand, s.HandMisses);
    }
    f.HandCredited = f.HandCredited || rolls > 0;
    f.LiveShooter = shooter;
    f.LiveFrom = s.RollTotal;
    f.LiveComeouts = s.HandComeouts;
    f.LivePasses = s.HandPasses;
    f.LiveMisses = s.HandMisses;
}

}  // namespace tarnwick::StatsDetail
