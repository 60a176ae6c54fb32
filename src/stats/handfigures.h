// Figures of the window Hands.
#pragma once

#include <array>
#include <string>

#include "stats/figures.h"

namespace tarnwick {

/// Come-outs, passes and misses of one total, or of all together.
struct HandsRow {
    std::string Heading;  ///< "2" to "12", "Total"
    std::array<Figure, 3> Counts;
    std::array<Figure, 3> Percents;  ///< of all come-outs
};

struct HandsFigures {
    std::string Players;  ///< the caption
    Figure Hands, Rolls;
    Figure MostRolls, AverageRolls;  ///< averages by hand; 0 without hands
    Figure MostComeouts, AverageComeouts;
    Figure MostPasses, AveragePasses;
    Figure MostMisses, AverageMisses;
    std::array<HandsRow, 12> Rows;  ///< totals 2..12, then their sums
};

/// Scope 0..4. Of several players the most is the greatest, all else is their sum.
HandsFigures FiguresOfHands(const Table& t, int scope, SeatMask players);

}  // namespace tarnwick
