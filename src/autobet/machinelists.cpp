#include "autobet/machinelists.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "autobet/functions.h"

namespace tarnwick {

namespace {

/// The rows first..last of word 0 or 1 of a mask.
std::uint64_t RowsOfWord(int word, int first, int last) {
    const int low = std::max(first - 64 * word, 0);
    const int high = std::min(last - 64 * word, 63);
    if (low > 63 || high < 0 || low > high) return 0;
    const std::uint64_t upTo = high == 63 ? ~std::uint64_t{0} : (std::uint64_t{1} << (high + 1)) - 1;
    return upTo & ~((std::uint64_t{1} << low) - 1);
}

bool Passes(const RowSet& set, double amount) { return set.Op == 0 || CompareNumbers(amount, set.Op, set.Limit); }

/// Calls `visit` with each amount of the set that isn't 0, in the order of rows; returns how many rows are 0.
template <class Visit>
int VisitStanding(const Table& t, const RowSet& set, Visit visit) {
    const RowMask& standing = t.RowsOf[static_cast<std::size_t>(set.Position)];
    int zeros = set.LastRow - set.FirstRow + 1;
    for (int word = 0; word < 2; ++word) {
        std::uint64_t rows = standing[static_cast<std::size_t>(word)] & RowsOfWord(word, set.FirstRow, set.LastRow);
        for (; rows != 0; rows &= rows - 1) {
            --zeros;
            visit(ToDouble(t.BetAmount(set.Position, 64 * word + std::countr_zero(rows))));
        }
    }
    return zeros;
}

}  // namespace

void StartList(double* sums) {
    for (int i = 0; i < 4; ++i) sums[i] = 0;
}

void TakeListItem(double* sums, int function, double value) {
    if (sums[0] == 0 || (function == 127 ? value < sums[2] : value > sums[2])) sums[2] = value;
    sums[0] += 1;
    sums[1] += value;
}

void TakeListSquare(double* sums, double value) {
    const double difference = value - sums[1] / sums[0];
    sums[3] += difference * difference;
}

double ListResult(RunState& run, const double* sums, int function) {
    if (sums[0] == 0 && (function == 128 || function == 129)) {
        run.Warn("Division by zero.");
        return 0;
    }
    switch (function) {
        case 126:
        case 127:
            return sums[2];
        case 128:
            return sums[1] / sums[0];
        case 129:
            return std::sqrt(sums[3] / sums[0]);
        case 130:
            return sums[1];
        default:
            return sums[0];
    }
}

bool TestRows(const Table& t, const RowSet& set) {
    bool any = false, all = true;
    const int zeros = VisitStanding(t, set, [&](double amount) {
        const bool passes = Passes(set, amount);
        any = any || passes;
        all = all && passes;
    });
    if (zeros > 0) {
        const bool passes = Passes(set, 0);
        any = any || passes;
        all = all && passes;
    }
    return set.All ? all : any;
}

double SumRows(const Table& t, const RowSet& set) {
    double sum = 0;
    VisitStanding(t, set, [&](double amount) { sum += Passes(set, amount) ? amount : 0; });
    return sum;
}

double CountRows(const Table& t, const RowSet& set) {
    double count = 0;
    const int zeros = VisitStanding(t, set, [&](double amount) { count += Passes(set, amount) ? 1 : 0; });
    return count + (Passes(set, 0) ? zeros : 0);
}

}  // namespace tarnwick
