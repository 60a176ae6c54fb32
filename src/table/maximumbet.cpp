// The largest bet of each family, in whole smallest checks.
#include <array>

#include "config/payoffs.h"
#include "table/placement.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

/// A payoff as an exact ratio.
struct Ratio {
    std::int64_t Pays = 0, For = 1;
};

Ratio RatioOf(const PayoffEntry& payoff) { return {payoff.Pays.TenThousandths, payoff.For.TenThousandths}; }

bool IsLarger(const Ratio& a, const Ratio& b) { return int128{a.Pays} * b.For > int128{b.Pays} * a.For; }

Ratio LargestOf(const Table& t, std::initializer_list<int> rows) {
    Ratio largest = RatioOf(t.Payoff[At(*rows.begin())]);
    for (const int row : rows) {
        const Ratio ratio = RatioOf(t.Payoff[At(row)]);
        if (IsLarger(ratio, largest)) largest = ratio;
    }
    return largest;
}

/// amount * numerator / denominator, down to whole checks. Needs a denominator above 0.
currency ScaledDown(const Table& t, currency amount, int128 numerator, int128 denominator) {
    const int128 exact = FloorDivide<int128>(amount.TenThousandths * numerator, denominator);
    return FloorTo({Saturate(exact)}, SmallestCheck(t));
}

/// What may be bet so that a split bet of `parts` wins at most MaxPropBetPayoff: its winning part pays, the other parts
/// are lost. A payoff that can't win leaves the table's maximum.
currency MaximumSplit(const Table& t, const Ratio& part, int parts, currency base) {
    const int128 net = int128{part.Pays} - int128{parts - 1} * part.For;
    return net <= 0 ? base : ScaledDown(t, t.MaxPropBetPayoff, int128{parts} * part.For, net);
}

currency MaximumProp(const Table& t, const Ratio& ratio, currency base) {
    return ratio.Pays <= 0 ? base : ScaledDown(t, t.MaxPropBetPayoff, ratio.For, ratio.Pays);
}

/// Odds behind the Don't win no more than Do odds would on the same flat bet, so the limit is on what they win.
currency MaximumDontOdds(const Table& t, int row, currency flat, const PayoffEntry& payoff, currency base) {
    if (payoff.Pays <= currency{}) return base;
    const currency win = MaxOddsFor(t, row, flat, payoff.For, payoff.Pays);
    return ScaledDown(t, win, payoff.For.TenThousandths, payoff.Pays.TenThousandths);
}

currency MaximumOdds(const Table& t, int p, int row, currency base) {
    const currency flat = t.BetAmount(p, FlatRowOf(row));
    const bool lineOdds = row == Row::PassLineOdds || row == Row::DontPassOdds;
    if (IsZero(flat) || (lineOdds && t.Point == 0)) return {};
    const PayoffEntry& payoff = PayoffOf(t, row);
    if (row == Row::DontPassOdds || IsDontComeOdds(row)) return MaximumDontOdds(t, row, flat, payoff, base);
    return MaxOddsFor(t, row, flat, payoff.Pays, payoff.For);
}

currency MaximumLay(const Table& t, int row, currency base) {
    const Ratio ratio = RatioOf(t.Payoff[At(row)]);
    return ratio.Pays <= 0 ? base : ScaledDown(t, base, ratio.For, ratio.Pays);
}

}  // namespace

currency MaximumBet(const Table& t, int p, int row) {
    const currency base = FloorTo(t.MaxPlacardBet, SmallestCheck(t));
    if (IsOddsRow(row)) return MaximumOdds(t, p, row, base);
    if (IsLay(row)) return MaximumLay(t, row, base);
    switch (row) {
        case Row::CandE:
            return MaximumSplit(t, LargestOf(t, {Row::Craps, Row::Eleven}), 2, base);
        case Row::Horn:
            return MaximumSplit(t, LargestOf(t, {Row::Two, Row::Three, Row::Eleven, Row::Twelve}), 4, base);
        case Row::World:
            return MaximumSplit(t, LargestOf(t, {Row::Two, Row::Three, Row::Seven, Row::Eleven, Row::Twelve}), 5, base);
        case Row::SevenPoint7: {
            const Ratio comeOut = RatioOf(t.SevenPointSevenPayoff[1]), point = RatioOf(t.SevenPointSevenPayoff[2]);
            return MaximumProp(t, IsLarger(point, comeOut) ? point : comeOut, base);
        }
        case Row::Midway:
            return base;
        case Row::Fire:
            return FloorTo(t.MaxFireBet, SmallestCheck(t));
        default:
            break;
    }
    return row < Row::Hard4 ? base : MaximumProp(t, RatioOf(t.Payoff[At(row)]), base);
}

}  // namespace tarnwick
