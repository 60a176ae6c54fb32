#include "stats/rollfigures.h"

#include <algorithm>

#include "stats/accumulators.h"
#include "stats/rollevents.h"
#include "table/format.h"

namespace tarnwick {

namespace {

constexpr std::array<RollEventName, RollEventNames> List = {{
    {"Number 2 (1.1)", 2},
    {"Number 3 (1.2)", 22},
    {"Number 3 (2.1)", 23},
    {"Number 3 (1.2) or (2.1)", 3},
    {"Number 4 (1.3)", 24},
    {"Number 4 (3.1)", 25},
    {"Hard 4 (2.2)", 13},
    {"Number 4 (1.3) or (3.1)", 26},
    {"Any 4", 4},
    {"Number 5 (1.4)", 27},
    {"Number 5 (4.1)", 28},
    {"Number 5 (2.3)", 29},
    {"Number 5 (3.2)", 30},
    {"Number 5 (1.4) or (4.1)", 31},
    {"Number 5 (2.3) or (3.2)", 32},
    {"Any 5", 5},
    {"Number 6 (1.5)", 33},
    {"Number 6 (5.1)", 34},
    {"Number 6 (2.4)", 35},
    {"Number 6 (4.2)", 36},
    {"Hard 6 (3.3)", 14},
    {"Number 6 (1.5) or (5.1)", 37},
    {"Number 6 (2.4) or (4.2)", 38},
    {"Any 6", 6},
    {"Number 7 (1.6)", 39},
    {"Number 7 (6.1)", 40},
    {"Number 7 (2.5)", 41},
    {"Number 7 (5.2)", 42},
    {"Number 7 (3.4)", 43},
    {"Number 7 (4.3)", 44},
    {"Number 7 (1.6) or (6.1)", 45},
    {"Number 7 (2.5) or (5.2)", 46},
    {"Number 7 (3.4) or (4.3)", 47},
    {"Any 7", 7},
    {"Number 8 (2.6)", 48},
    {"Number 8 (6.2)", 49},
    {"Number 8 (3.5)", 50},
    {"Number 8 (5.3)", 51},
    {"Hard 8 (4.4)", 15},
    {"Number 8 (2.6) or (6.2)", 52},
    {"Number 8 (3.5) or (5.3)", 53},
    {"Any 8", 8},
    {"Number 9 (3.6)", 54},
    {"Number 9 (6.3)", 55},
    {"Number 9 (4.5)", 56},
    {"Number 9 (5.4)", 57},
    {"Number 9 (3.6) or (6.3)", 58},
    {"Number 9 (4.5) or (5.4)", 59},
    {"Any 9", 9},
    {"Number 10 (4.6)", 60},
    {"Number 10 (6.4)", 61},
    {"Hard 10 (5.5)", 16},
    {"Number 10 (4.6) or (6.4)", 62},
    {"Any 10", 10},
    {"Number 11 (5.6)", 63},
    {"Number 11 (6.5)", 64},
    {"Number 11 (5.6) or (6.5)", 11},
    {"Number 12 (6.6)", 12},
    {"Numbers 2,3,4,9,10,11,12", 21},
    {"Numbers 4,5,6,8,9,10", 17},
    {"Numbers 2,3,7,11,12", 65},
    {"Numbers 2,3,11,12", 66},
    {"Numbers 5,6,8,9", 18},
    {"Numbers 4,5,9,10", 19},
    {"Numbers 2,3,12", 20},
    {"Numbers 4,5,6", 67},
    {"Numbers 8,9,10", 68},
    {"Numbers 2,12", 69},
    {"Numbers 3,11", 70},
    {"Numbers 4,10", 71},
    {"Numbers 5,9", 72},
    {"Numbers 6,8", 73},
    {"Numbers 2,3", 74},
    {"Numbers 3,12", 75},
    {"Numbers 7,11", 76},
    {"Numbers 11,12", 77},
    {"Die 1, face 1", 78},
    {"Die 1, face 2", 79},
    {"Die 1, face 3", 80},
    {"Die 1, face 4", 81},
    {"Die 1, face 5", 82},
    {"Die 1, face 6", 83},
    {"Die 2, face 1", 84},
    {"Die 2, face 2", 85},
    {"Die 2, face 3", 86},
    {"Die 2, face 4", 87},
    {"Die 2, face 5", 88},
    {"Die 2, face 6", 89},
}};

/// The roll event of one ordered pair.
int EventOfPair(int die1, int die2) {
    const auto wanted = PairMask{1} << PairIndex(die1, die2);
    const auto found = std::find(PairsOfEvent.begin(), PairsOfEvent.end(), wanted);
    return static_cast<int>(found - PairsOfEvent.begin());
}

struct Item {
    std::string Heading;
    int Event;
};

std::vector<Item> ItemsOf(RollTotalsMode mode) {
    std::vector<Item> items;
    if (mode == RollTotalsMode::Number) {
        for (int total = 2; total <= 12; ++total) items.push_back({std::to_string(total), total});
        return items;
    }
    for (int die1 = 1; die1 <= 6; ++die1) {
        if (mode != RollTotalsMode::Combinations) {
            items.push_back({std::to_string(die1), (mode == RollTotalsMode::Die1 ? 77 : 83) + die1});
            continue;
        }
        for (int die2 = 1; die2 <= 6; ++die2)
            items.push_back({std::to_string(die1) + "." + std::to_string(die2), EventOfPair(die1, die2)});
    }
    return items;
}

/// Mean gap between two appearances; 0 without any.
double MeanGap(const std::array<std::int32_t, 201>& gaps) {
    std::int64_t rolls = gaps[0];
    std::int64_t count = 0;
    for (std::size_t g = 1; g <= 200; ++g) {
        if (g < 200) rolls += static_cast<std::int64_t>(g) * gaps[g];
        count += gaps[g];
    }
    return count == 0 ? 0 : static_cast<double>(rolls) / static_cast<double>(count);
}

}  // namespace

std::string_view RollTotalsModeText(RollTotalsMode mode) {
    constexpr std::array<std::string_view, 4> texts = {"NUMBER", "COMBINATIONS", "DIE1", "DIE2"};
    return texts[static_cast<std::size_t>(mode)];
}

RollTotalsFigures FiguresOfRollTotals(const Table& t, int scope, SeatMask players, RollTotalsMode mode) {
    const std::vector<int> positions = FigurePositions(t, players);
    const auto count = [&](int k) {
        std::int64_t sum = 0;
        for (const int p : positions) sum += RollCount(t, StatPos(p, scope), k);
        return sum;
    };
    RollTotalsFigures figures;
    figures.Players = PlayersCaption(t, players);
    const std::int64_t rolls = count(0);
    figures.TotalRolls = CountFigure(rolls);
    for (Item& item : ItemsOf(mode)) {
        const std::int64_t appeared = count(item.Event);
        figures.Entries.push_back(
            {std::move(item.Heading), item.Event, CountFigure(appeared), CountFigure(RollsSince(t, item.Event)),
             PercentFigure(static_cast<double>(appeared), static_cast<double>(rolls)),
             RatioFigure(ProbablePercent(t, item.Event, t.UseSkewedProbability), FigurePattern::Percent)});
    }
    return figures;
}

const std::array<RollEventName, RollEventNames>& RollFrequencyList() { return List; }

std::string_view RollEventText(int k) {
    const auto found =
        std::find_if(List.begin(), List.end(), [k](const RollEventName& name) { return name.Event == k; });
    return found == List.end() ? std::string_view{} : found->Text;
}

RollFrequencyFigures FiguresOfRollFrequency(const Table& t, int k, bool showSkewed) {
    RollFrequencyFigures figures;
    figures.Event = RollEventText(k);
    const std::int32_t rolls = RollCount(t, StatPos(0, Scope::Session), 0);
    const std::int32_t times = RollCount(t, StatPos(0, Scope::Session), k);
    figures.TotalRolls = CountFigure(rolls);
    figures.TimesRolled = CountFigure(times);
    figures.Actual = PercentFigure(times, rolls);
    const bool skewed = showSkewed && t.UseSkewedProbability;
    figures.ProbableCaption = skewed ? "Skewed probable %:" : "True probable %:";
    figures.Probable = RatioFigure(ProbablePercent(t, k, skewed), FigurePattern::Percent);
    figures.Since = CountFigure(RollsSince(t, k));
    for (int g = 0; g <= 200; ++g) figures.Gaps[static_cast<std::size_t>(g)] = RollGapTally(t, k, g);
    figures.Average = RatioFigure(MeanGap(figures.Gaps), "#,0.00;-#,0.00;0");
    const std::int32_t most = *std::max_element(figures.Gaps.begin() + 1, figures.Gaps.end());
    figures.CountPattern = most > 9999 ? "00000" : most > 999 ? "0000" : "000";
    return figures;
}

std::string GapText(int gap) { return gap < 200 ? std::to_string(gap) : "200+"; }

}  // namespace tarnwick
