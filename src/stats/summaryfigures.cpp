#include "stats/summaryfigures.h"

#include <vector>

#include "stats/accumulators.h"
#include "stats/bankrollgraph.h"
#include "table/format.h"

namespace tarnwick {

namespace {

constexpr std::string_view NetPercentPattern = "#,0.00%;-#,0.00%;0%";

SummaryCourse Course(const Table& t, std::int64_t hands, std::int64_t rolls) {
    return {CountFigure(hands), CountFigure(rolls), RollsPerHourFigure(t, false),
            SimulatedHoursFigure(t, rolls, false)};
}

/// Stat 1 or 2 of all bets of the players.
struct BetSums {
    currency Made, Won, Lost;
};

BetSums SumBets(const Table& t, int scope, const std::vector<int>& players, int stat) {
    BetSums sums;
    for (const int p : players) {
        const auto add = [&](currency& sum, int kind) {
            sum = SaturatedSum(sum, SumBetStats(t, kind, StatPos(p, scope), 1, Row::LastBet, stat));
        };
        add(sums.Made, 0);
        add(sums.Won, 1);
        add(sums.Lost, 2);
    }
    return sums;
}

SummaryBets BetsOf(const BetSums& sums, bool money) {
    const auto figure = [money](currency value) {
        return money ? MoneyFigure(value) : CountFigure(value.TenThousandths / CurrencyScale);
    };
    const currency net = sums.Won - sums.Lost;
    return {figure(sums.Made), figure(sums.Won), figure(sums.Lost), figure(net),
            PercentFigure(ToDouble(net), ToDouble(sums.Made), NetPercentPattern)};
}

template <class ValueOf>
Figure BankrollSumOf(const std::vector<int>& players, ValueOf valueOf) {
    currency sum;
    for (const int p : players) sum = SaturatedSum(sum, valueOf(p));
    return MoneyFigure(sum);
}

CompLine LineOfComps(std::string_view caption, currency amount, bool counts) {
    return {(counts ? "* " : "") + std::string(caption),
            {Figure::Unit::Money, amount, FormatPattern(amount, "#,0.00;-#,0.00;0")}};
}

}  // namespace

SummaryFigures FiguresOfSummary(const Table& t, int scope, SeatMask selected,
                                const std::optional<CompMeasures>& comps) {
    std::vector<int> players = FigurePositions(t, selected);
    if (PresentPlayers(t) == 0) players.clear();
    const int table = StatPos(0, scope);
    std::int64_t hands = 0;
    std::int64_t rolls = 0;
    for (const int p : players) {
        hands += HandCount(t, StatPos(p, scope));
        rolls += RollCount(t, StatPos(p, scope), 0);
    }
    SummaryFigures figures;
    figures.Players = PlayersCaption(t, selected);
    figures.Table = Course(t, HandCount(t, table), RollCount(t, table, 0));
    figures.Player = Course(t, hands, rolls);
    const std::int32_t seen = PlayerRolls(t, table);
    const bool small = rolls * 100 < seen;
    figures.PlayerPercent =
        PercentFigure(static_cast<double>(rolls), seen, small ? "#,0.0###%;-#,#%;0%" : "#,0.0#%;-#,#%;0%");
    figures.Amounts = BetsOf(SumBets(t, scope, players, 2), true);
    figures.Numbers = BetsOf(SumBets(t, scope, players, 1), false);
    const auto bankroll = [&](const std::array<currency, StatPositions>& cells) {
        return BankrollSumOf(players, [&](int p) { return cells[static_cast<std::size_t>(StatPos(p, scope))]; });
    };
    figures.BankrollBeginning = bankroll(t.BankrollBegin);
    figures.BankrollCurrent = bankroll(t.Bankroll);
    figures.BankrollHigh = bankroll(t.BankrollHigh);
    figures.BankrollLow = bankroll(t.BankrollLow);
    figures.BankrollAverage = BankrollSumOf(players, [&](int p) { return AverageBankroll(t, p, true, 0, 0); });
    figures.CurrentCaption = scope == Scope::LastHand || scope == Scope::LastSession ? "Ending" : "Current";
    figures.HasComps = comps.has_value();
    if (comps) {
        figures.Comps = {LineOfComps("Theoretical vig $", comps->TheoreticalVig, comps->CompBase == 0),
                         LineOfComps("Total comp action $", comps->TotalAction, comps->CompBase == 1),
                         LineOfComps("Avg action x time $", comps->AverageActionTime, comps->CompBase == 2)};
    }
    return figures;
}

}  // namespace tarnwick
