// Figures of the windows Roll Totals and Roll Frequencies.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "stats/figures.h"

namespace tarnwick {

/// What Roll Totals lists: totals 2..12, the 36 ordered pairs, faces 1..6 of a die.
enum class RollTotalsMode { Number, Combinations, Die1, Die2 };
/// "NUMBER", "COMBINATIONS", "DIE1", "DIE2".
std::string_view RollTotalsModeText(RollTotalsMode mode);

struct RollTotalsEntry {
    std::string Heading;  ///< "7", "3.4"
    int Event = 0;
    Figure Appeared;
    Figure SinceLast;  ///< of the table, whoever is selected
    Figure Actual;     ///< percent of the total rolls
    Figure Probable;   ///< percent, by the matrix while it is in use
};

struct RollTotalsFigures {
    std::string Players;  ///< the caption
    Figure TotalRolls;
    std::vector<RollTotalsEntry> Entries;
};

/// Scope 0..4.
RollTotalsFigures FiguresOfRollTotals(const Table& t, int scope, SeatMask players, RollTotalsMode mode);

/// A line of the list of Roll Frequencies.
struct RollEventName {
    std::string_view Text;
    int Event;
};
constexpr int RollEventNames = 88;
/// In the order of the list.
const std::array<RollEventName, RollEventNames>& RollFrequencyList();
/// The list's text of a roll event; empty for one that it doesn't have.
std::string_view RollEventText(int k);

constexpr int GapRowsShown = 25;
constexpr int GapColumnsShown = 8;

struct RollFrequencyFigures {
    std::string Event;
    Figure TotalRolls;
    Figure TimesRolled;
    Figure Actual;                         ///< percent
    std::string_view ProbableCaption;      ///< "True probable %:" or "Skewed probable %:"
    Figure Probable;                       ///< percent
    Figure Since;                          ///< rolls since it last came
    Figure Average;                        ///< rolls to achieve it, from the gaps
    std::array<std::int32_t, 201> Gaps{};  ///< 1..199 by length, 200 the longer ones
    std::string_view CountPattern;         ///< zeros as wide as the largest count, to measure columns by
};

/// Roll event k of the list, all of the session. `showSkewed`: the chance by the matrix, if that is in use.
RollFrequencyFigures FiguresOfRollFrequency(const Table& t, int k, bool showSkewed);
/// "1" to "199" and "200+".
std::string GapText(int gap);

}  // namespace tarnwick
