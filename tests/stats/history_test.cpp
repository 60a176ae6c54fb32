// The accumulators and the graph beside a plain reference, over long random histories.
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <sstream>
#include <string>

#include "stats/accumulators.h"
#include "stats/bankrollgraph.h"
#include "stats/reference.h"
#include "stats/restore.h"

namespace tarnwick {
namespace {

using reference::Money;
using reference::Reference;
using reference::U;

/// Notes the first difference.
class Difference {
  public:
    template <class... Where>
    void Check(std::int64_t got, std::int64_t wanted, const char* what, Where... where) {
        if (got == wanted || !Text.empty()) return;
        std::ostringstream out;
        out << what << "[";
        ((out << " " << where), ...);
        out << " ] is " << got << " and should be " << wanted;
        Text = out.str();
    }
    template <class... Where>
    void Check(currency got, Money wanted, const char* what, Where... where) {
        Check(got.TenThousandths, wanted, what, where...);
    }
    std::string Text;
};

void CompareRolls(const Table& t, const Reference& r, Difference& d) {
    for (int k = 0; k <= 90; ++k) {
        d.Check(RollsSince(t, k), r.RollsSince[U(k)], "RollsSince", k);
        for (int pos = 0; pos < StatPositions; ++pos) {
            d.Check(RollCount(t, pos, k), r.RollCount[U(pos)][U(k)], "RollCount", pos, k);
        }
        for (int gap = 0; gap <= 200; ++gap) {
            d.Check(RollGapTally(t, k, gap), r.RollGapTally[U(k)][U(gap)], "RollGapTally", k, gap);
        }
    }
    for (int pos = 0; pos < StatPositions; ++pos) {
        for (int total = 2; total <= 12; ++total) {
            for (int c = 1; c <= 3; ++c) {
                d.Check(PointTally(t, pos, total, c), r.PointTally[U(pos)][U(total)][U(c)], "PointTally", pos, total,
                        c);
            }
        }
        d.Check(HandCount(t, pos), r.HandCount[U(pos)], "HandCount", pos);
        d.Check(PlayerRolls(t, pos), r.PlayerRolls[U(pos)], "PlayerRolls", pos);
        d.Check(MostRolls(t, pos), r.MostRolls[U(pos)], "MostRolls", pos);
        d.Check(MostComeouts(t, pos), r.MostComeouts[U(pos)], "MostComeouts", pos);
        d.Check(MostPasses(t, pos), r.MostPasses[U(pos)], "MostPasses", pos);
        d.Check(MostMisses(t, pos), r.MostMisses[U(pos)], "MostMisses", pos);
    }
    d.Check(SessionRolls(t), r.RollCount[18][0], "SessionRolls");
    d.Check(HandRolls(t), r.RollCount[0][0], "HandRolls");
    d.Check(t.HandComeouts, r.HandComeouts, "HandComeouts");
    d.Check(t.HandPasses, r.HandPasses, "HandPasses");
    d.Check(t.HandMisses, r.HandMisses, "HandMisses");
}

void CompareMoney(const Table& t, const Reference& r, Difference& d) {
    for (int pos = 0; pos < StatPositions; ++pos) {
        d.Check(t.Bankroll[U(pos)], r.Bankroll[U(pos)], "Bankroll", pos);
        d.Check(t.BankrollBegin[U(pos)], r.BankrollBegin[U(pos)], "BankrollBegin", pos);
        d.Check(t.BankrollHigh[U(pos)], r.BankrollHigh[U(pos)], "BankrollHigh", pos);
        d.Check(t.BankrollLow[U(pos)], r.BankrollLow[U(pos)], "BankrollLow", pos);
        for (int row = 0; row <= 100; ++row) {
            for (int stat = 1; stat <= 6; ++stat) {
                d.Check(BetStatWagers(t, pos, row, stat), r.BetStat[0][U(pos)][U(row)][U(stat)], "Wagers", pos, row,
                        stat);
                d.Check(BetStatWins(t, pos, row, stat), r.BetStat[1][U(pos)][U(row)][U(stat)], "Wins", pos, row, stat);
                d.Check(BetStatLosses(t, pos, row, stat), r.BetStat[2][U(pos)][U(row)][U(stat)], "Losses", pos, row,
                        stat);
            }
        }
        for (int row = 19; row <= 24; ++row) {
            d.Check(ComeFlatSum(t, pos, row), r.ComeFlatSum[U(pos)][U(row)], "ComeFlatSum", pos, row);
        }
    }
    for (int p = 0; p < Positions; ++p) {
        d.Check(t.BankrollInvested[U(p)], r.BankrollInvested[U(p)], "BankrollInvested", p);
        d.Check(BankrollSum(t, p), r.BankrollSum[U(p)], "BankrollSum", p);
    }
}

void CompareGraph(Table& t, const Reference& r, Difference& d) {
    d.Check(GraphCount(t), r.GraphCount, "GraphCount");
    const std::int32_t rolls = t.GraphAverageRolls;
    for (int p = 1; p < Positions; ++p) {
        for (int i = 0; i <= 1050; ++i) {
            d.Check(GraphBankroll(t, p, i), r.GraphBankroll[U(p)][U(i)], "GraphBankroll", p, i);
        }
        d.Check(GraphLow(t, p), r.GraphLow[U(p)], "GraphLow", p);
        d.Check(GraphHigh(t, p), r.GraphHigh[U(p)], "GraphHigh", p);
        for (const int n : {0, 1, 7, 120, 525}) {
            t.GraphAverageRolls = n;
            const auto averages = GraphAverages(t, p);
            const auto wanted = r.Averages(p, n);
            for (int i = 0; i <= 525; ++i) d.Check(averages[U(i)], wanted[U(i)], "GraphAverages", p, i, n);
            d.Check(GraphAverage(t, p, r.GraphCount), wanted[U(r.GraphCount)], "GraphAverage", p, n);
            for (const int i : {0, 1, 2, 300, 525}) {
                for (const bool atPoint : {false, true}) {
                    d.Check(AverageBankroll(t, p, atPoint, i, n), r.AverageBankroll(p, atPoint, i, n),
                            "AverageBankroll", p, atPoint, i, n);
                }
            }
        }
    }
    t.GraphAverageRolls = rolls;
}

/// A table and its reference, led through the same acts.
struct History {
    explicit History(unsigned seed) : Random(seed) {
        for (const int p : {2, 3, 7}) Join(p);
        StartSession(true);
        SetHandShooter(3);
    }

    int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(Random); }
    bool Chance(int oneIn) { return Pick(1, oneIn) == 1; }
    Money PickMoney(int low, int high) { return Money{Pick(low, high)} * 2500; }

    int PickPosition(bool seated) {
        for (;;) {
            const int p = Pick(1, 8);
            if (IsSeated(T, p) == seated) return p;
        }
    }
    int PlayersSeated() const {
        int count = 0;
        for (int p = 1; p <= 8; ++p) count += IsSeated(T, p) ? 1 : 0;
        return count;
    }

    void SetHandShooter(int p) {
        if (Chance(2)) SettleHandShooter(T);
        T.HandShooter = p;
    }

    void ChangeBankroll(int p, Money amount) {
        SetBankroll(T, p, {amount});
        R.SetBankroll(p, amount);
    }

    void Begin(int p, Money amount) {
        SetBeginningBankroll(T, p, {amount});
        R.SetBeginningBankroll(p, amount);
    }

    void Clear(int p) {
        ClearPositionStatistics(T, p);
        R.ClearPosition(p);
    }

    void Join(int p) {
        Clear(p);
        Begin(p, PickMoney(-100, 4000));
        T.PlayerName[U(p)] = "Player";
    }

    void Leave(int p) {
        if (T.HandShooter == p) SetHandShooter(0);
        Clear(p);
        T.PlayerName[U(p)].clear();
        if (HandRolls(T) == 0) SetHandShooter(PickPosition(true));
    }

    void Move(int p, int q) {
        SwapPositionStatistics(T, p, q);
        R.SwapPositions(p, q);
        std::swap(T.PlayerName[U(p)], T.PlayerName[U(q)]);
        std::swap(T.ComeFlatNow[U(p)], T.ComeFlatNow[U(q)]);
        if (T.HandShooter == p) {
            T.HandShooter = q;
        } else if (T.HandShooter == q) {
            T.HandShooter = p;
        }
    }

    void StartSession(bool erase) {
        if (erase) {
            EraseStatistics(T);
            R.EraseStatistics();
        } else {
            RolloverSession(T);
            R.RolloverSession(T);
        }
        for (int p = 1; p <= 8; ++p) {
            if (IsSeated(T, p)) Begin(p, PickMoney(-100, 4000));
        }
        T.Point = T.PrevPoint = 0;
        RestartBankrollGraph(T);
        R.RestartGraph();
    }

    /// Dice of any kind, and in some stretches only of low or high faces, so that other events stay away for long.
    void Throw() {
        if (Chance(400)) Faces = Chance(2) ? std::pair{1, 6} : std::pair{Pick(1, 3), Pick(4, 5)};
        T.Die1 = Pick(Faces.first, Faces.second);
        T.Die2 = Pick(Faces.first, Faces.second);
        T.DiceTotal = T.Die1 + T.Die2;
    }

    /// Reads a figure that must first be brought up to date; harmless if all is well.
    void Peek() {
        if (!Quiet && Chance(60)) {
            const int k = Pick(0, 90);
            D.Check(RollsSince(T, k), R.RollsSince[U(k)], "RollsSince", k);
            const int pos = Pick(0, 44);
            D.Check(HandCount(T, pos), R.HandCount[U(pos)], "HandCount", pos);
        }
    }

    void DecideLine() {
        T.PrevPoint = T.Point;
        const bool pass = T.Point > 0 ? T.DiceTotal == T.Point : T.DiceTotal == 7 || T.DiceTotal == 11;
        const bool miss = T.Point > 0 ? T.DiceTotal == 7 : T.DiceTotal < 4 || T.DiceTotal == 12;
        if (pass) {
            TallyPass(T);
            R.TallyPass(T);
        }
        if (miss) {
            TallyMiss(T);
            R.TallyMiss(T);
        }
        if (T.Point > 0) {
            if (pass || miss) T.Point = 0;
            return;
        }
        if (!pass && !miss) T.Point = T.DiceTotal;
        Peek();
        TallyComeout(T);
        R.TallyComeout(T);
    }

    void SettleBets() {
        for (int p = 1; p <= 8; ++p) {
            if (!IsSeated(T, p) || !Chance(3)) continue;
            for (int bets = Pick(1, 4); bets > 0; --bets) {
                const int row = Chance(2) ? Pick(1, 91) : Chance(2) ? 43 : Pick(19, 24);
                const Money wager = Chance(5) ? 0 : PickMoney(1, 900);
                const Money net = Chance(6) ? 0 : PickMoney(-600, 600);
                for (std::size_t i = 0; i < 6; ++i) {
                    T.ComeFlatNow[U(p)][i] = {PickMoney(0, 40)};
                    T.BuyVigCharged[U(p)][i] = {PickMoney(0, 9)};
                    T.LayVigCharged[U(p)][i] = {PickMoney(0, 9)};
                }
                T.LayVigOnAllBets = Chance(2);
                T.BuyVigOnAllBets = Chance(2);
                RecordBetResult(T, p, row, {wager}, {net});
                R.RecordBetResult(T, p, row, wager, net);
                ChangeBankroll(p, T.Bankroll[U(p)].TenThousandths + net);
            }
        }
    }

    void Roll() {
        Throw();
        TallyRoll(T);
        R.TallyRoll(T);
        Peek();
        DecideLine();
        Peek();
        SettleBets();
        TallyBankrolls(T);
        R.TallyBankrolls();
        if (T.DiceTotal == 7 && T.PrevPoint > 0) {
            EndHandRollover(T);
            R.EndHandRollover(T);
            if (Chance(2)) T.HandShooter = Chance(10) ? 0 : PickPosition(true);
        }
        AddGraphPoint(T);
        R.AddGraphPoint(T);
    }

    void ActBetweenRolls() {
        switch (Pick(1, 600)) {
            case 1:
                if (PlayersSeated() < 8) Join(PickPosition(false));
                break;
            case 2:
                if (PlayersSeated() > 2) Leave(PickPosition(true));
                break;
            case 3:
                Move(PickPosition(true), Pick(1, 8));
                break;
            case 4:
                SetHandShooter(Chance(3) ? 0 : PickPosition(true));
                break;
            case 5:
            case 6:
                ChangeBankroll(PickPosition(true), PickMoney(-500, 9000));
                break;
            case 7:
            case 8:
                T.GraphPlotType = 1 - T.GraphPlotType;
                break;
            case 9:
                if (Chance(4)) StartSession(Chance(6));
                break;
            case 10: {
                const int p = Pick(1, 8);
                RecalcGraphAverage(T, p);
                R.RebuildGraphRange(U(p));
                break;
            }
            case 11:
                SetFigures(T, *FiguresOf(T));  // as a game that is saved and opened again
                break;
            default:
                break;
        }
    }

    std::string Compare() {
        CompareRolls(T, R, D);
        CompareMoney(T, R, D);
        CompareGraph(T, R, D);
        return D.Text;
    }

    std::mt19937 Random;
    std::unique_ptr<Table> Storage = std::make_unique<Table>();
    std::unique_ptr<Reference> Plain = std::make_unique<Reference>();
    Table& T = *Storage;
    Reference& R = *Plain;
    Difference D;
    bool Quiet = false;  ///< nothing is read during rolls
    std::pair<int, int> Faces = {1, 6};
};

class RandomHistory : public testing::TestWithParam<unsigned> {};

TEST_P(RandomHistory, EveryFigureAgreesAtEveryMoment) {
    History h(GetParam());
    for (int roll = 1; roll <= 12'000; ++roll) {
        h.Roll();
        h.ActBetweenRolls();
        if (h.Chance(400) || roll % 12'000 == 0) {
            ASSERT_EQ(h.Compare(), "") << "after roll " << roll;
        }
    }
}

TEST_P(RandomHistory, ShortSessionsAgreeRollByRoll) {
    History h(GetParam() + 100);
    for (int session = 0; session < 12; ++session) {
        for (int rolls = h.Pick(0, 4); rolls > 0; --rolls) {
            h.Roll();
            ASSERT_EQ(h.Compare(), "") << "in session " << session;
        }
        if (h.Chance(2)) h.Move(h.PickPosition(true), h.Pick(1, 8));
        h.StartSession(h.Chance(5));
        ASSERT_EQ(h.Compare(), "") << "after session " << session;
    }
}

TEST_P(RandomHistory, AgreesAfterManyRollsThatNobodyRead) {
    History h(GetParam() + 300);
    h.Quiet = true;
    for (int read = 0; read < 5; ++read) {
        for (int rolls = h.Pick(2000, 9000); rolls > 0; --rolls) h.Roll();
        ASSERT_EQ(h.Compare(), "") << "at reading " << read;
    }
}

TEST_P(RandomHistory, ACopyGoesOnByItself) {
    History h(GetParam() + 200);
    for (int roll = 0; roll < 700; ++roll) h.Roll();
    const auto saved = std::make_unique<Table>(h.T);
    const Reference savedPlain = h.R;
    for (int roll = 0; roll < 300; ++roll) h.Roll();
    ASSERT_EQ(h.Compare(), "") << "the original";
    h.T = *saved;
    h.R = savedPlain;
    ASSERT_EQ(h.Compare(), "") << "the copy";
    for (int roll = 0; roll < 300; ++roll) h.Roll();
    ASSERT_EQ(h.Compare(), "") << "the copy, played on";
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomHistory, testing::Values(1u, 2u, 3u, 4u));

}  // namespace
}  // namespace tarnwick
