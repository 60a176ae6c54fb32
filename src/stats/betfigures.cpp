#include "stats/betfigures.h"

#include <algorithm>

#include "stats/accumulators.h"
#include "table/format.h"

namespace tarnwick {

namespace {

enum Side : std::size_t { Wagers, Wins, Losses, Sides };

/// The stats of one side over all selected bets and players.
struct SideSums {
    std::int64_t Count = 0;
    currency Sum, High, Low;
    std::int64_t LastCount = 0;
    currency LastSum;

    currency Average() const { return Count == 0 ? currency{} : currency{HalfEvenDivide(Sum.TenThousandths, Count)}; }
};

using BetStat = currency (*)(const Table&, int, int, int);
constexpr std::array<BetStat, Sides> Stats = {BetStatWagers, BetStatWins, BetStatLosses};

std::int64_t WholeOf(currency count) { return count.TenThousandths / CurrencyScale; }

void Add(SideSums& sums, const Table& t, BetStat stat, int pos, int row) {
    const currency count = stat(t, pos, row, 1);
    if (IsZero(count)) return;
    sums.Count += WholeOf(count);
    sums.Sum = SaturatedSum(sums.Sum, stat(t, pos, row, 2));
    sums.High = std::max(sums.High, stat(t, pos, row, 3));
    const currency low = stat(t, pos, row, 4);
    if (!IsZero(low)) sums.Low = IsZero(sums.Low) ? low : std::min(sums.Low, low);
    const std::int32_t rolls = SessionRolls(t);
    if (rolls < 1 || stat(t, pos, row, 5) != Dollars(rolls)) return;
    ++sums.LastCount;
    sums.LastSum = SaturatedSum(sums.LastSum, stat(t, pos, row, 6));
}

/// Texts of one table, with or without separators.
struct Texts {
    bool Separators;

    Figure Count(std::int64_t n) const {
        return {Figure::Unit::Count, Dollars(n), FormatPattern(Dollars(n), Separators ? "#,#;-#,#;0" : "0")};
    }
    Figure Money(currency amount) const {
        return {Figure::Unit::Money, amount, Separators ? FormatCommas(amount) : Plain(amount)};
    }
    Figure Percent(double part, double whole) const {
        return PercentFigure(part, whole, Separators ? "#,0.00;-#,0.00;0" : "0.00;-0.00;0");
    }

    /// FormatCommas without its commas.
    static std::string Plain(currency amount) {
        return FormatPattern(amount, IsMultipleOf(amount, Dollars(1)) ? "0" : "#.00##;-#.00##;0.00");
    }
};

BetResultsRow SideRow(std::string_view caption, const SideSums& s, const Texts& text) {
    return {caption,           text.Count(s.Count),     text.Money(s.Sum),       text.Money(s.High),
            text.Money(s.Low), text.Money(s.Average()), text.Count(s.LastCount), text.Money(s.LastSum)};
}

BetResultsRow NetRow(const SideSums& won, const SideSums& lost, const Texts& text) {
    return {"Net",
            text.Count(won.Count - lost.Count),
            text.Money(won.Sum - lost.Sum),
            text.Money(won.High - lost.High),
            text.Money(won.Low - lost.Low),
            text.Money(won.Average() - lost.Average()),
            text.Count(won.LastCount - lost.LastCount),
            text.Money(won.LastSum - lost.LastSum)};
}

/// Each figure of the net in percent of the same figure of the wagers.
BetResultsRow NetPercentRow(const SideSums& wagered, const SideSums& won, const SideSums& lost, const Texts& text) {
    const auto money = [&](currency won_, currency lost_, currency whole) {
        return text.Percent(ToDouble(won_ - lost_), ToDouble(whole));
    };
    const auto count = [&](std::int64_t won_, std::int64_t lost_, std::int64_t whole) {
        return text.Percent(static_cast<double>(won_ - lost_), static_cast<double>(whole));
    };
    return {"Net %",
            count(won.Count, lost.Count, wagered.Count),
            money(won.Sum, lost.Sum, wagered.Sum),
            money(won.High, lost.High, wagered.High),
            money(won.Low, lost.Low, wagered.Low),
            money(won.Average(), lost.Average(), wagered.Average()),
            count(won.LastCount, lost.LastCount, wagered.LastCount),
            money(won.LastSum, lost.LastSum, wagered.LastSum)};
}

/// Selected players with bets of their own: the table itself has none.
std::vector<int> Bettors(const Table& t, SeatMask players) {
    std::vector<int> positions = FigurePositions(t, players);
    if (positions == std::vector<int>{0}) positions.clear();
    return positions;
}

}  // namespace

BetSelection AllBets() { return BetSelection().set().reset(0); }

std::string BetsCaption(const BetSelection& bets) {
    const std::size_t count = (bets & AllBets()).count();
    if (count == 0) return "No bets selected";
    if (count == 1) return "1 bet selected";
    return count == Row::LastBet ? "All bets selected" : std::to_string(count) + " bets selected";
}

BetResultsFigures FiguresOfBetResults(const Table& t, int scope, SeatMask players, const BetSelection& bets,
                                      bool separators) {
    std::array<SideSums, Sides> sums;
    std::int64_t standing = 0;
    currency standingAmount;
    for (const int p : Bettors(t, players)) {
        for (int row = 1; row <= Row::LastBet; ++row) {
            if (!bets[static_cast<std::size_t>(row)]) continue;
            for (std::size_t side = 0; side < Sides; ++side) Add(sums[side], t, Stats[side], StatPos(p, scope), row);
            standing += t.BetAmount(p, row) > currency{} ? 1 : 0;
            standingAmount += t.BetAmount(p, row);
        }
    }
    const Texts text{separators};
    BetResultsFigures figures;
    figures.Players = PlayersCaption(t, players);
    figures.Bets = BetsCaption(bets);
    figures.Rows = {SideRow("Wagers", sums[Wagers], text), SideRow("Wins", sums[Wins], text),
                    SideRow("Losses", sums[Losses], text), NetRow(sums[Wins], sums[Losses], text),
                    NetPercentRow(sums[Wagers], sums[Wins], sums[Losses], text)};
    figures.CurrentNumber = text.Count(standing);
    figures.CurrentAmount = text.Money(standingAmount);
    return figures;
}

std::vector<BetTrend> FiguresOfBetTrends(const Table& t, int p) {
    std::vector<BetTrend> trends;
    for (int row = 1; row <= Row::LastBet; ++row) {
        const std::int32_t streak = t.BetStreak(p, row);
        trends.push_back({row, BetName(row), streak, FormatPattern(Dollars(streak), " #,#;-#,#")});
    }
    return trends;
}

}  // namespace tarnwick
