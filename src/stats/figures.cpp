#include "stats/figures.h"

#include <array>
#include <bit>
#include <cmath>

#include "dice/matrix.h"
#include "stats/rollevents.h"
#include "table/format.h"

namespace tarnwick {

Figure CountFigure(std::int64_t count) {
    return {Figure::Unit::Count, Dollars(count), FormatPattern(Dollars(count), FigurePattern::Whole)};
}

Figure MoneyFigure(currency amount) {
    const bool whole = IsMultipleOf(amount, Dollars(1));
    return {Figure::Unit::Money, amount, FormatPattern(amount, whole ? FigurePattern::Whole : FigurePattern::Cents)};
}

Figure RatioFigure(double value, std::string_view pattern) {
    return {Figure::Unit::Ratio, ToCurrency(value), FormatPattern(value, pattern)};
}

Figure PercentFigure(double part, double whole, std::string_view pattern) {
    return RatioFigure(whole == 0 ? 0 : part * 100 / whole, pattern);
}

std::string_view ScopeText(int scope) {
    constexpr std::array<std::string_view, Scopes> texts = {"Current hand", "Last hand", "Current session",
                                                            "Last session", "All sessions"};
    return texts[static_cast<std::size_t>(scope)];
}

SeatMask PresentPlayers(const Table& t) {
    unsigned mask = 0;
    for (int p = 1; p < Positions; ++p) mask |= IsSeated(t, p) ? 1u << p : 0u;
    return static_cast<SeatMask>(mask);
}

std::string PlayersCaption(const Table& t, SeatMask players) {
    const unsigned present = PresentPlayers(t);
    const int selected = std::popcount(players & present);
    const int all = std::popcount(present);
    if (all == 0) return "No players present";
    if (selected == 0) return "No players selected";
    if (selected == 1) return "1 player selected";
    if (selected < all) return std::to_string(selected) + " players selected";
    return all == 2 ? "Both players selected" : "All players selected";
}

std::vector<int> FigurePositions(const Table& t, SeatMask players) {
    const unsigned present = PresentPlayers(t);
    if (present == 0) return {0};
    std::vector<int> positions;
    for (int p = 1; p < Positions; ++p) {
        if (((players & present) >> p & 1u) != 0) positions.push_back(p);
    }
    return positions;
}

double SimulatedHours(const Table& t, std::int64_t rolls) {
    return IsZero(t.RollsPerHour) ? 0 : static_cast<double>(rolls) / ToDouble(t.RollsPerHour);
}

Figure SimulatedHoursFigure(const Table& t, std::int64_t rolls, bool onGraph) {
    const double hours = SimulatedHours(t, rolls);
    if (hours == std::floor(hours)) return RatioFigure(hours, FigurePattern::Whole);
    constexpr std::array<std::string_view, 4> graph = {"#,#.0;-#,#;0", "#,#.0#;-#,#;0", "#,#.0##;-#,#;0",
                                                       "#,#.0###;-#,#;0"};
    constexpr std::array<std::string_view, 4> summary = {"#,0.0;-#,#;0", "#,0.0#;-#,#;0", "#,0.0##;-#,#;0",
                                                         "#,0.0###;-#,#;0"};
    const std::size_t size = hours > 999 ? 0 : hours > 99 ? 1 : hours > 9 ? 2 : 3;
    Figure figure = RatioFigure(hours, onGraph ? graph[size] : summary[size]);
    if (figure.Text == "0") figure.Text = "< 0.0001";
    return figure;
}

Figure RollsPerHourFigure(const Table& t, bool onGraph) {
    const bool whole = IsMultipleOf(t.RollsPerHour, Dollars(1));
    const std::string_view pattern = whole     ? FigurePattern::Whole
                                     : onGraph ? std::string_view("#,#.0###;-#,#;0")
                                               : std::string_view("#,0.0###;-#,#;0");
    return {Figure::Unit::Ratio, t.RollsPerHour, FormatPattern(t.RollsPerHour, pattern)};
}

double ProbablePercent(const Table& t, int k, bool skewed) {
    const PairMask pairs = PairsOfEvent[static_cast<std::size_t>(k)];
    std::int64_t ways = std::popcount(pairs);
    std::int64_t all = DicePairs;
    if (skewed) {
        std::int64_t sum = 0;
        std::int64_t chances = 0;
        for (const MatrixCell& cell : MatrixWalk) {
            const std::int64_t chance = t.ProbabilityMatrix[1][cell.Col][cell.Row];
            sum += chance;
            if ((pairs >> PairIndex(cell.Die1, cell.Die2) & 1u) != 0) chances += chance;
        }
        if (sum > 0) {  // the dice are fair without any chance
            ways = chances;
            all = sum;
        }
    }
    return 100.0 * static_cast<double>(ways) / static_cast<double>(all);
}

}  // namespace tarnwick
