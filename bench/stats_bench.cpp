// What the statistics of a roll cost.
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include "stats/accumulators.h"
#include "stats/bankrollgraph.h"

namespace {

using namespace tarnwick;

struct Dice {
    int Die1, Die2;
};

std::vector<Dice> MakeDice(std::size_t count) {
    std::vector<Dice> dice(count);
    std::uint64_t state = 88172645463325252u;
    const auto die = [&state] {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        return static_cast<int>((state >> 32) * 6 >> 32) + 1;
    };
    for (Dice& d : dice) d = {die(), die()};
    return dice;
}

std::unique_ptr<Table> MakeTable(int players) {
    auto t = std::make_unique<Table>();
    for (int p = 1; p <= players; ++p) {
        t->PlayerName[static_cast<std::size_t>(p)].assign(1, 'P');
        SetBeginningBankroll(*t, p, Dollars(1000));
    }
    t->Shooter = t->HandShooter = 1;
    RestartBankrollGraph(*t);
    return t;
}

enum Work { DrawOnly, Tallies, Lines, Bankrolls, Graph, Bets };

/// One roll by the rules of the line, with as much of the statistics as `work` says. Each player has a flat Pass Line.
void Roll(Table& t, Dice dice, int players, Work work) {
    t.Die1 = dice.Die1;
    t.Die2 = dice.Die2;
    t.DiceTotal = dice.Die1 + dice.Die2;
    const int total = t.DiceTotal;
    t.PrevPoint = t.Point;
    if (work >= Tallies) TallyRoll(t);
    int net = 0;
    if (t.Point != 0) {
        if (total == t.Point || total == 7) {
            net = total == 7 ? -10 : 10;
            if (work >= Lines) {
                if (total == 7) {
                    TallyMiss(t);
                } else {
                    TallyPass(t);
                }
            }
            t.Point = 0;
        }
    } else {
        if (total == 7 || total == 11) {
            net = 10;
            if (work >= Lines) TallyPass(t);
        } else if (total == 2 || total == 3 || total == 12) {
            net = -10;
            if (work >= Lines) TallyMiss(t);
        } else {
            t.Point = total;
        }
        if (work >= Lines) TallyComeout(t);
    }
    if (net != 0 && work >= Bankrolls) {
        for (int p = 1; p <= players; ++p) {
            if (work >= Bets) RecordBetResult(t, p, Row::PassLine, Dollars(10), Dollars(net));
            SetBankroll(t, p, t.Bankroll[static_cast<std::size_t>(p)] + Dollars(net));
        }
    }
    if (work >= Bankrolls) TallyBankrolls(t);
    if (total == 7 && t.PrevPoint > 0 && work >= Lines) EndHandRollover(t);
    if (work >= Graph) AddGraphPoint(t);
}

void Statistics(benchmark::State& state) {
    static const std::vector<Dice> Rolls = MakeDice(1 << 20);
    const int players = static_cast<int>(state.range(0));
    const auto work = static_cast<Work>(state.range(1));
    const auto t = MakeTable(players);
    std::size_t i = 0;
    for (auto _ : state) {
        Roll(*t, Rolls[i], players, work);
        i = (i + 1) & (Rolls.size() - 1);
        if (SessionRolls(*t) == 100'000'000) RolloverSession(*t);
    }
    benchmark::DoNotOptimize(*t);
}

/// The second argument: 0 the dice and the line alone, then the tallies of rolls, of the line with the ends of hands,
/// the bankrolls, the graph, the bets.
BENCHMARK(Statistics)
    ->ArgsProduct({{1, 8}, {DrawOnly, Tallies, Lines, Bankrolls, Graph, Bets}})
    ->ArgNames({"players", "work"});

/// A script that asks for a count of the roll events on every roll.
void ReadEveryRoll(benchmark::State& state) {
    static const std::vector<Dice> Rolls = MakeDice(1 << 16);
    const auto t = MakeTable(1);
    std::size_t i = 0;
    std::int64_t sum = 0;
    for (auto _ : state) {
        Roll(*t, Rolls[i], 1, Bets);
        i = (i + 1) & (Rolls.size() - 1);
        sum += RollCount(*t, 18, 7) + RollsSince(*t, 7);
    }
    benchmark::DoNotOptimize(sum);
}
BENCHMARK(ReadEveryRoll);

}  // namespace
