// Chi-square tests of a stream of rolls: how likely fair and independent dice are to be as uneven, and as even.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tarnwick {

struct ChiSquare {
    std::string Name;
    double Value = 0;
    int Degrees = 0;

    /// Chance of a greater value, by the approximation of E. Wilson and M. Hilferty, "The distribution of chi-square"
    /// (1931). Near 0 the stream is too uneven, near 1 too even.
    double Chance() const {
        const double ninth = 2.0 / (9.0 * Degrees);
        const double z = (std::cbrt(Value / Degrees) - (1 - ninth)) / std::sqrt(ninth);
        return 0.5 * std::erfc(z / std::sqrt(2.0));
    }
};

/// Counts rolls, and tests the counts of ordered pairs, of totals, of each roll with the one before, and of the lengths
/// of the runs between sevens.
class RollStatistics {
  public:
    /// Dice 1..6.
    void Add(int die1, int die2) {
        const std::size_t pair = static_cast<std::size_t>(6 * (die1 - 1) + die2 - 1);
        ++Rolls;
        ++Pairs[pair];
        ++Totals[static_cast<std::size_t>(die1 + die2)];
        // Each roll belongs to one couple only, so that the couples are independent.
        if (Rolls % 2 == 0) ++Couples[Previous * 36 + pair];
        Previous = pair;
        ++RunLength;
        if (die1 + die2 != 7) return;
        ++Runs[RunLength < LongRun ? RunLength : LongRun];
        ++RunCount;
        RunLength = 0;
    }

    std::int64_t Count() const { return Rolls; }
    std::int64_t CountOfTotal(int total) const { return Totals[static_cast<std::size_t>(total)]; }

    /// Needs some 20,000 rolls to mean anything.
    std::vector<ChiSquare> Results() const {
        ChiSquare pairs{"ordered pairs", 0, -1};
        for (const std::int64_t n : Pairs) AddTerm(pairs, n, static_cast<double>(Rolls) / 36);
        ChiSquare totals{"totals", 0, -1};
        for (int total = 2; total <= 12; ++total) {
            const int ways = total <= 7 ? total - 1 : 13 - total;
            AddTerm(totals, CountOfTotal(total), static_cast<double>(Rolls) * ways / 36);
        }
        ChiSquare serial{"serial pairs", 0, -1};
        const auto couples = static_cast<double>(Rolls / 2);
        for (const std::int64_t n : Couples) AddTerm(serial, n, couples / (36 * 36));
        return {pairs, totals, serial, RunsBetweenSevens()};
    }

  private:
    static constexpr std::size_t LongRun = 40;

    static void AddTerm(ChiSquare& test, std::int64_t observed, double expected) {
        const double off = static_cast<double>(observed) - expected;
        test.Value += off * off / expected;
        ++test.Degrees;
    }

    ChiSquare RunsBetweenSevens() const {
        ChiSquare runs{"runs between sevens", 0, -1};
        double longer = 1;  // chance of a run of this length or more
        for (std::size_t length = 1; length < LongRun; ++length) {
            AddTerm(runs, Runs[length], static_cast<double>(RunCount) * longer / 6);
            longer *= 5.0 / 6;
        }
        AddTerm(runs, Runs[LongRun], static_cast<double>(RunCount) * longer);
        return runs;
    }

    std::int64_t Rolls = 0;
    std::array<std::int64_t, 36> Pairs{};
    std::array<std::int64_t, 13> Totals{};
    std::array<std::int64_t, 36 * 36> Couples{};
    std::array<std::int64_t, LongRun + 1> Runs{};
    std::int64_t RunCount = 0;
    std::size_t Previous = 0;
    std::size_t RunLength = 0;
};

}  // namespace tarnwick
