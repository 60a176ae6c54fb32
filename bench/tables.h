// The tables that the benchmarks play and whose results a test pins.
#pragma once

#include <cstdint>
#include <memory>

#include "dice/dice.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/rundriver.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick::bench {

constexpr std::uint64_t Seed = 20'000'229;
constexpr std::int32_t Rolls = 1'000'000;  ///< of a session

/// A table at the start of a session of `Rolls` rolls. The front end shows nothing and keeps nothing.
struct BenchTable {
    BenchTable() {
        Front.KeepShown = false;
        SubMain(T, &Front);
        SeedEverything(T, Seed);
        T.RunUntilRoll = Rolls;
    }

    /// Seats a player rich enough to lose for the whole session; bets stay up by standing orders.
    void Seat(int p) {
        constexpr const char* names[] = {"House", "Ann", "Bob", "Cleo", "Dan", "Eve", "Finn", "Gus", "Hal"};
        AddPlayer(T, p, names[p], Dollars(5'000'000));
        T.WinnerHandling[static_cast<std::size_t>(p)] = T.LoserHandling[static_cast<std::size_t>(p)] = 2;
    }

    SilentScreen Front;
    Table T;
};

using TablePtr = std::unique_ptr<BenchTable>;

inline TablePtr EmptyTable() {
    auto table = std::make_unique<BenchTable>();
    table->T.ShooterBetRequirement = 0;
    return table;
}

inline TablePtr FlatPassLines(int players) {
    auto table = std::make_unique<BenchTable>();
    for (int p = 1; p <= players; ++p) {
        table->Seat(p);
        PlaceBet(table->T, p, Row::PassLine, Dollars(10));
    }
    return table;
}

inline TablePtr OnePassLine() { return FlatPassLines(1); }
inline TablePtr EightPassLines() { return FlatPassLines(8); }

/// Pass Line with full odds, Place 6 and 8.
inline TablePtr OddsAndPlace() {
    TablePtr table = FlatPassLines(1);
    table->T.AutoTakeFullOdds[1] = true;
    PlaceBet(table->T, 1, Row::Place4 + 2, Dollars(12));
    PlaceBet(table->T, 1, Row::Place4 + 3, Dollars(12));
    return table;
}

/// Plays the session in Hyper-Drive.
inline void PlaySession(Table& t) { ToggleAutoRoll(t); }

/// One number folded from all bankrolls (FNV-1a over their bytes).
inline std::uint64_t Signature(const Table& t) {
    std::uint64_t hash = 0xCBF29CE484222325u;
    for (int p = 1; p < Positions; ++p) {
        auto rest = static_cast<std::uint64_t>(t.Bankroll[static_cast<std::size_t>(p)].TenThousandths);
        for (int byte = 0; byte < 8; ++byte, rest >>= 8) hash = (hash ^ (rest & 0xFF)) * 0x100000001B3u;
    }
    return hash;
}

}  // namespace tarnwick::bench
