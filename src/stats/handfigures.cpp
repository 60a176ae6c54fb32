#include "stats/handfigures.h"

#include <algorithm>

#include "stats/accumulators.h"

namespace tarnwick {

namespace {

constexpr std::string_view AveragePattern = "#,#.00;-#,#;0";
constexpr std::string_view ComeoutAveragePattern = "#,0.##;-#,0.##;0";

using Tallies = std::array<std::int64_t, 3>;  // come-outs, passes, misses

Figure Average(std::int64_t sum, std::int64_t hands, std::string_view pattern) {
    return RatioFigure(hands == 0 ? 0 : static_cast<double>(sum) / static_cast<double>(hands), pattern);
}

HandsRow RowOf(std::string heading, const Tallies& tallies, std::int64_t comeouts) {
    HandsRow row;
    row.Heading = std::move(heading);
    for (std::size_t c = 0; c < 3; ++c) {
        row.Counts[c] = CountFigure(tallies[c]);
        row.Percents[c] = PercentFigure(static_cast<double>(tallies[c]), static_cast<double>(comeouts));
    }
    return row;
}

}  // namespace

HandsFigures FiguresOfHands(const Table& t, int scope, SeatMask players) {
    const std::vector<int> positions = FigurePositions(t, players);
    const auto sum = [&](auto figure) {
        std::int64_t all = 0;
        for (const int p : positions) all += figure(StatPos(p, scope));
        return all;
    };
    const auto most = [&](std::int32_t (*figure)(const Table&, int)) {
        std::int32_t greatest = 0;
        for (const int p : positions) greatest = std::max(greatest, figure(t, StatPos(p, scope)));
        return CountFigure(greatest);
    };
    std::array<Tallies, 11> byTotal{};
    Tallies all{};
    for (std::size_t i = 0; i < byTotal.size(); ++i) {
        for (std::size_t c = 0; c < 3; ++c) {
            byTotal[i][c] =
                sum([&](int pos) { return PointTally(t, pos, static_cast<int>(i) + 2, static_cast<int>(c) + 1); });
            all[c] += byTotal[i][c];
        }
    }
    const std::int64_t hands = sum([&](int pos) { return HandCount(t, pos); });
    const std::int64_t rolls = sum([&](int pos) { return RollCount(t, pos, 0); });
    HandsFigures figures;
    figures.Players = PlayersCaption(t, players);
    figures.Hands = CountFigure(hands);
    figures.Rolls = CountFigure(rolls);
    figures.MostRolls = most(MostRolls);
    figures.AverageRolls = Average(rolls, hands, AveragePattern);
    figures.MostComeouts = most(MostComeouts);
    figures.AverageComeouts = Average(all[0], hands, ComeoutAveragePattern);
    figures.MostPasses = most(MostPasses);
    figures.AveragePasses = Average(all[1], hands, AveragePattern);
    figures.MostMisses = most(MostMisses);
    figures.AverageMisses = Average(all[2], hands, AveragePattern);
    for (std::size_t i = 0; i < byTotal.size(); ++i) figures.Rows[i] = RowOf(std::to_string(i + 2), byTotal[i], all[0]);
    figures.Rows[11] = RowOf("Total", all, all[0]);
    return figures;
}

}  // namespace tarnwick
