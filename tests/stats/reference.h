// The accumulators and the graph written plainly: every figure has its element, and every act touches them all. Slow,
// and only there to be compared with.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <utility>
#include <vector>

#include "table/crapcnst.h"

namespace tarnwick::reference {

using Money = std::int64_t;

template <class T, std::size_t... Sizes>
struct GridOf;
template <class T, std::size_t Size>
struct GridOf<T, Size> {
    using Type = std::array<T, Size>;
};
template <class T, std::size_t Size, std::size_t... Rest>
struct GridOf<T, Size, Rest...> {
    using Type = std::array<typename GridOf<T, Rest...>::Type, Size>;
};
template <class T, std::size_t... Sizes>
using Grid = typename GridOf<T, Sizes...>::Type;

using Counts = Grid<std::int32_t, 45>;
using Sums = Grid<Money, 45>;
using BetArray = Grid<Money, 45, 101, 7>;

inline std::size_t U(int i) { return static_cast<std::size_t>(i); }

inline void Increment(std::int32_t& n) {
    if (n < std::numeric_limits<std::int32_t>::max()) ++n;
}

inline Money HalfEven(Money sum, Money n) { return static_cast<Money>(HalfEvenDivide(sum, n)); }

/// Reads of the table only what the roll cycle owns: dice, point, shooter, names, vigs, Come flats, graph settings.
struct Reference {
    Grid<std::int32_t, 45, 91> RollCount{};
    Grid<std::int32_t, 91> RollsSince{};
    Grid<std::int32_t, 91, 201> RollGapTally{};
    Grid<std::int32_t, 45, 13, 4> PointTally{};
    Counts HandCount{}, PlayerRolls{}, MostRolls{}, MostComeouts{}, MostPasses{}, MostMisses{};
    std::int32_t HandComeouts = 0, HandPasses = 0, HandMisses = 0;
    Sums BankrollBegin{}, Bankroll{}, BankrollHigh{}, BankrollLow{};
    Grid<Money, 9> BankrollInvested{}, BankrollSum{};
    std::array<BetArray, 3> BetStat{};  // wagers, wins, losses
    Grid<Money, 45, 25> ComeFlatSum{};
    Grid<Money, 9, 1051> GraphBankroll{};
    Grid<Money, 9> GraphLow{}, GraphHigh{};
    int GraphCount = 0;

    // --- rolls ---

    static std::vector<int> PosOf(const Table& t) {
        std::vector<int> positions = {0, 18, 36};
        if (t.HandShooter > 0)
            positions.insert(positions.end(), {t.HandShooter, t.HandShooter + 18, t.HandShooter + 36});
        return positions;
    }

    void TallyRollEvent(const Table& t, int k) {
        for (const int pos : PosOf(t)) Increment(RollCount[U(pos)][U(k)]);
        const std::int32_t gap = RollsSince[U(k)];
        if (gap < 200) {
            ++RollGapTally[U(k)][U(gap)];
        } else {
            ++RollGapTally[U(k)][200];
            RollGapTally[U(k)][0] += gap;
        }
        RollsSince[U(k)] = 0;
    }

    void TallyRoll(const Table& t) {
        if (RollCount[0][0] == 0) {
            HandCount[0] = 1;
            Increment(HandCount[18]);
            Increment(HandCount[36]);
            if (t.HandShooter > 0) {
                HandCount[U(t.HandShooter)] = 1;
                Increment(HandCount[U(t.HandShooter + 18)]);
                Increment(HandCount[U(t.HandShooter + 36)]);
            }
        }
        CountRollAt(0);
        if (t.HandShooter > 0) CountRollAt(t.HandShooter);
        for (int p = 0; p <= 8; ++p) {
            for (const int scope : {0, 18, 36}) Increment(PlayerRolls[U(p + scope)]);
        }
        for (std::int32_t& since : RollsSince) ++since;
        TallyRollEvent(t, 77 + t.Die1);
        TallyRollEvent(t, 83 + t.Die2);
        for (const int k : EventsOfDice(t.Die1, t.Die2)) TallyRollEvent(t, k);
    }

    void CountRollAt(int p) {
        for (const int scope : {0, 18, 36}) Increment(RollCount[U(p + scope)][0]);
        for (const int scope : {18, 36}) {
            if (RollCount[U(p)][0] > MostRolls[U(p + scope)]) MostRolls[U(p + scope)] = RollCount[U(p)][0];
        }
    }

    /// The pair's event and the list of the total, in their order.
    static std::vector<int> EventsOfDice(int die1, int die2) {
        static constexpr int PairEvent[6][6] = {
            {2, 22, 24, 27, 33, 39},  {23, 13, 29, 35, 41, 48}, {25, 30, 14, 43, 50, 54},
            {28, 36, 44, 15, 56, 60}, {34, 42, 51, 57, 16, 63}, {40, 49, 55, 61, 64, 12},
        };
        std::vector<int> events = {PairEvent[die1 - 1][die2 - 1]};
        const auto add = [&](std::initializer_list<int> list) { events.insert(events.end(), list); };
        const auto addIf = [&](int a, int b, int k) {
            if (die1 == a || die1 == b) events.push_back(k);
        };
        switch (die1 + die2) {
            case 2:
                add({21, 65, 66, 20, 69, 74});
                break;
            case 3:
                add({3, 21, 65, 66, 20, 70, 74, 75});
                break;
            case 4:
                add({4}), addIf(1, 3, 26), add({21, 17, 19, 67, 71});
                break;
            case 5:
                add({5}), addIf(1, 4, 31), addIf(2, 3, 32), add({17, 18, 19, 67, 72});
                break;
            case 6:
                add({6}), addIf(1, 5, 37), addIf(2, 4, 38), add({17, 18, 67, 73});
                break;
            case 7:
                add({7}), addIf(1, 6, 45), addIf(2, 5, 46), addIf(3, 4, 47), add({65, 76});
                break;
            case 8:
                add({8}), addIf(2, 6, 52), addIf(3, 5, 53), add({17, 18, 68, 73});
                break;
            case 9:
                add({9}), addIf(3, 6, 58), addIf(4, 5, 59), add({21, 17, 18, 19, 68, 72});
                break;
            case 10:
                add({10}), addIf(4, 6, 62), add({21, 17, 19, 68, 71});
                break;
            case 11:
                add({11, 21, 65, 66, 70, 76, 77});
                break;
            default:
                add({21, 65, 66, 20, 69, 75, 77});
                break;
        }
        return events;
    }

    void TallyLine(const Table& t, std::int32_t& inHand, Counts& most, int total, int c) {
        ++inHand;
        for (const int pos : PosOf(t)) {
            if (inHand > most[U(pos)]) most[U(pos)] = inHand;
            Increment(PointTally[U(pos)][U(total)][U(c)]);
        }
    }
    static int LineTotal(const Table& t) { return t.Point > 0 ? t.Point : t.DiceTotal; }
    void TallyPass(const Table& t) { TallyLine(t, HandPasses, MostPasses, LineTotal(t), 2); }
    void TallyMiss(const Table& t) { TallyLine(t, HandMisses, MostMisses, LineTotal(t), 3); }
    void TallyComeout(const Table& t) { TallyLine(t, HandComeouts, MostComeouts, t.DiceTotal, 1); }

    // --- bets and bankrolls ---

    static void AddResult(Grid<Money, 7>& stat, Money amount, std::int32_t roll) {
        stat[1] += 10'000;
        stat[2] += amount;
        if (amount > stat[3]) stat[3] = amount;
        if (amount > 0 && (stat[4] == 0 || amount < stat[4])) stat[4] = amount;
        stat[5] = Money{roll} * 10'000;
        stat[6] = amount;
    }

    void RecordBetResult(const Table& t, int p, int bet, Money wager, Money net) {
        if (net == 0) return;
        if (bet <= 6 && t.LayVigOnAllBets) wager += t.LayVigCharged[U(p)][U(bet - 1)].TenThousandths;
        if (bet >= 37 && bet <= 42 && t.BuyVigOnAllBets) wager += t.BuyVigCharged[U(p)][U(bet - 37)].TenThousandths;
        for (const int pos : {p, p + 18, p + 36}) {
            AddResult(BetStat[0][U(pos)][U(bet)], wager, RollCount[18][0]);
            if (net > 0) AddResult(BetStat[1][U(pos)][U(bet)], net, RollCount[18][0]);
            if (net < 0) AddResult(BetStat[2][U(pos)][U(bet)], -net, RollCount[18][0]);
            if (bet >= 19 && bet <= 24) {
                ComeFlatSum[U(pos)][U(bet)] += t.ComeFlatNow[U(p)][U(bet - 19)].TenThousandths;
            }
        }
    }

    void SetBankroll(int p, Money amount) {
        for (const int pos : {p, p + 18, p + 36}) Bankroll[U(pos)] = amount;
    }

    void TallyBankrolls() {
        for (int p = 1; p <= 8; ++p) {
            const Money now = Bankroll[U(p)];
            if (__builtin_add_overflow(BankrollSum[U(p)], now, &BankrollSum[U(p)])) {
                BankrollSum[U(p)] = now > 0 ? std::numeric_limits<Money>::max() : std::numeric_limits<Money>::min();
            }
            for (const int pos : {p, p + 18, p + 36}) {
                if (now > BankrollHigh[U(pos)]) BankrollHigh[U(pos)] = now;
                if (now < BankrollLow[U(pos)]) BankrollLow[U(pos)] = now;
            }
        }
    }

    void SetBeginningBankroll(int p, Money amount) {
        const std::size_t hand = U(p), session = U(p + 18), all = U(p + 36);
        const bool first = PlayerRolls[all] == 0;
        BankrollInvested[U(p)] = amount;
        BankrollBegin[hand] = BankrollBegin[session] = amount;
        if (first) BankrollBegin[all] = amount;
        SetBankroll(p, amount);
        BankrollHigh[hand] = BankrollHigh[session] = amount;
        if (first || amount > BankrollHigh[all]) BankrollHigh[all] = amount;
        BankrollLow[hand] = BankrollLow[session] = amount;
        if (first || amount < BankrollLow[all]) BankrollLow[all] = amount;
        BankrollSum[U(p)] = amount;
    }

    // --- scopes ---

    template <class Array>
    static void MoveOn(Array& array, int from) {
        array[U(from + 9)] = std::exchange(array[U(from)], {});
    }

    void EndHandRollover(const Table& t) {
        for (int p = 0; p <= 8; ++p) {
            MoveOn(RollCount, p);
            if (IsSeated(t, p)) {
                for (BetArray& stat : BetStat) MoveOn(stat, p);
                MoveOn(ComeFlatSum, p);
            }
            if (IsSeated(t, p) || p == 0) {
                MoveOn(PointTally, p);
                MoveOn(PlayerRolls, p);
                MoveOn(HandCount, p);
                const Money now = Bankroll[U(p)];
                Bankroll[U(p + 9)] = now;
                for (Sums* sums : {&BankrollBegin, &BankrollHigh, &BankrollLow}) {
                    MoveOn(*sums, p);
                    (*sums)[U(p)] = now;
                }
            }
        }
        HandComeouts = HandPasses = HandMisses = 0;
    }

    /// Calls `act` with each array by pos; bankrolls only if asked for.
    template <class Act>
    void ForEachByPos(bool bankrolls, Act act) {
        act(RollCount), act(PointTally), act(HandCount), act(PlayerRolls);
        act(MostRolls), act(MostComeouts), act(MostPasses), act(MostMisses);
        for (BetArray& stat : BetStat) act(stat);
        act(ComeFlatSum);
        if (bankrolls) act(Bankroll), act(BankrollBegin), act(BankrollHigh), act(BankrollLow);
    }

    void ResetSessionFigures() {
        RollsSince = {};
        RollGapTally = {};
        HandComeouts = HandPasses = HandMisses = 0;
    }

    void RolloverSession(const Table& t) {
        if (RollCount[0][0] > 0) EndHandRollover(t);
        if (RollCount[18][0] > 0) {
            ForEachByPos(true, [](auto& array) {
                for (std::size_t pos = 18; pos <= 26; ++pos) array[pos + 9] = array[pos];
            });
        }
        ForEachByPos(false, [](auto& array) {
            for (std::size_t p = 0; p <= 8; ++p) array[p] = array[p + 18] = {};
        });
        ResetSessionFigures();
    }

    void EraseStatistics() {
        ForEachByPos(true, [](auto& array) { array = {}; });
        ResetSessionFigures();
    }

    void ClearPosition(int p) {
        ForEachByPos(true, [p](auto& array) {
            for (int scope = 0; scope <= 36; scope += 9) array[U(p + scope)] = {};
        });
        BankrollInvested[U(p)] = BankrollSum[U(p)] = 0;
        for (std::size_t i = 1; i <= 1050; ++i) GraphBankroll[U(p)][i] = 0;
        GraphLow[U(p)] = GraphHigh[U(p)] = 0;
    }

    void SwapPositions(int p, int q) {
        ForEachByPos(true, [p, q](auto& array) {
            for (int scope = 0; scope <= 36; scope += 9) std::swap(array[U(p + scope)], array[U(q + scope)]);
        });
        std::swap(BankrollInvested[U(p)], BankrollInvested[U(q)]);
        std::swap(BankrollSum[U(p)], BankrollSum[U(q)]);
        std::swap(GraphBankroll[U(p)], GraphBankroll[U(q)]);
        std::swap(GraphLow[U(p)], GraphLow[U(q)]);
        std::swap(GraphHigh[U(p)], GraphHigh[U(q)]);
    }

    // --- graph ---

    void TakeIn(std::size_t p, Money value) {
        if (value < GraphLow[p]) GraphLow[p] = value;
        if (value > GraphHigh[p]) GraphHigh[p] = value;
    }

    void RestartGraph() {
        GraphCount = 0;
        GraphBankroll = {};
        for (std::size_t p = 1; p <= 8; ++p) {
            GraphBankroll[p][0] = 10'000;
            GraphLow[p] = GraphHigh[p] = Bankroll[p];
        }
    }

    void AddGraphPoint(const Table& t) {
        for (std::size_t p = 1; p <= 8; ++p) TakeIn(p, Bankroll[p]);
        if (GraphCount == 525) {
            for (std::size_t p = 1; p <= 8; ++p) {
                auto& points = GraphBankroll[p];
                GraphLow[p] = GraphHigh[p] = Bankroll[p];
                if (t.GraphPlotType == 1) {
                    points[0] = points[1];
                    for (std::size_t i = 1; i <= 524; ++i) TakeIn(p, points[i] = points[i + 1]);
                    for (std::size_t i = 526; i <= 1049; ++i) points[i] = points[i + 1];
                    points[1050] = points[0];
                    points[0] = Money{RollCount[18][0] - 524} * 10'000;
                } else {
                    points[0] = Money{RollCount[18][0]} * 10'000;
                    for (std::size_t i = 1; i <= 525; ++i) points[i + 525] = points[i];
                }
            }
            GraphCount = t.GraphPlotType == 1 ? 524 : 0;
        }
        ++GraphCount;
        for (std::size_t p = 1; p <= 8; ++p) GraphBankroll[p][U(GraphCount)] = Bankroll[p];
    }

    void RebuildGraphRange(std::size_t p) {
        if (GraphCount == 0) return;
        GraphLow[p] = GraphHigh[p] = GraphBankroll[p][1];
        for (int i = 1; i <= GraphCount; ++i) TakeIn(p, GraphBankroll[p][U(i)]);
    }

    Money AverageBankroll(int p, bool atPoint, int i, int n) const {
        if (n > 525) n = 525;
        if (n < 1) return SessionAverage(p, 0, BankrollSum[U(p)]);
        int point = i == 0 || !atPoint ? i - 1 : i;
        if (point < 0) return 0;
        Money before = GraphBankroll[U(p)][0] / 10'000 - 1;  // points of the session before the page
        if (before > 525) before = 525;
        Money sum = 0;
        int taken = 0;
        while (taken < n) {
            if (point == 0) point = 1050;
            if (point > 525 && 1050 - point >= before) break;
            sum += GraphBankroll[U(p)][U(point--)];
            ++taken;
        }
        return taken == 0 ? 0 : HalfEven(sum, taken);
    }

    Money SessionAverage(int p, int rollsBack, Money sum) const {
        const int samples = PlayerRolls[U(p + 18)] + 1 - rollsBack;
        return samples < 1 ? 0 : HalfEven(sum, samples);
    }

    /// The averages of the whole page.
    std::array<Money, 526> Averages(int p, int n) const {
        std::array<Money, 526> averages{};
        Money sum = BankrollSum[U(p)];
        for (int i = GraphCount; i >= 1; --i) {
            averages[U(i)] = n > 0 ? AverageBankroll(p, true, i, n) : SessionAverage(p, GraphCount - i, sum);
            sum -= GraphBankroll[U(p)][U(i)];
        }
        return averages;
    }
};

}  // namespace tarnwick::reference
