// What the windows of the statistics share: a figure with its text, the words of scopes and selections.
//
// The figures of a window come from one plain function, which the window lays out and the laboratory prints. Players
// are given as a mask, bit p for position p; bits of empty seats don't count.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "table/crapcnst.h"

namespace tarnwick {

/// A value as it was computed and as a window shows it. Counts are whole; ratios (percents, averages, hours) are held
/// to four places, their texts are made from the exact value.
struct Figure {
    enum class Unit { Count, Money, Ratio };
    Unit Kind = Unit::Count;
    currency Value;
    std::string Text = "0";
};

/// Patterns that several windows use.
namespace FigurePattern {
constexpr std::string_view Whole = "#,#;-#,#;0";
constexpr std::string_view Cents = "#,#.00;-#,#.00;0.00";
constexpr std::string_view Percent = "0.00";
}  // namespace FigurePattern

Figure CountFigure(std::int64_t count);
/// Whole amounts without decimals, others with cents.
Figure MoneyFigure(currency amount);
Figure RatioFigure(double value, std::string_view pattern);
/// part * 100 / whole, 0 when `whole` is 0, by `pattern`.
Figure PercentFigure(double part, double whole, std::string_view pattern = FigurePattern::Percent);

/// "Current hand", "Last hand", "Current session", "Last session", "All sessions" for scope 0..4.
std::string_view ScopeText(int scope);

/// The seated players.
SeatMask PresentPlayers(const Table& t);
/// "No players present", "No players selected", "1 player selected", "Both players selected" of exactly two, "All
/// players selected" of more, or how many.
std::string PlayersCaption(const Table& t, SeatMask players);
/// Positions of the selected players who are present; the table's 0 when nobody is present at all.
std::vector<int> FigurePositions(const Table& t, SeatMask players);

constexpr int StatPos(int p, int scope) { return p + Positions * scope; }

/// rolls / RollsPerHour; 0 without a rate.
double SimulatedHours(const Table& t, std::int64_t rolls);
/// Hours that aren't whole by four places up to 9, three up to 99, two up to 999 and one above; what rounds to nothing
/// is "< 0.0001". The graph shows no zero ahead of the point.
Figure SimulatedHoursFigure(const Table& t, std::int64_t rolls, bool onGraph);
/// RollsPerHour, the Summary's with a zero ahead of the point.
Figure RollsPerHourFigure(const Table& t, bool onGraph);

/// Chance of roll event k 0..90 in percent: by 36 equal pairs, or with `skewed` by the probability matrix.
double ProbablePercent(const Table& t, int k, bool skewed);

}  // namespace tarnwick
