// Bets that are decided over a sequence of rolls: the line bets and their odds, and the specials. What they come to is
// enumerated exactly. For config/advantage.h alone.
#pragma once

#include <array>

#include "config/advantage.h"

namespace tarnwick {

/// Amount of a payoff over the amount bet; 0 when that isn't above 0.
double Ratio(const PayoffEntry& payoff);

/// The end states of a bet with their chances, and how long it takes.
struct Sequence {
    struct End {
        double Chance = 0, Net = 0;
    };
    std::array<End, 20> Ends{};
    int Count = 0;
    double Rolls = 0;    ///< expected, until an end or until nothing is decided
    double Decided = 0;  ///< chance of any of the ends

    void Add(double chance, double net) {
        Ends[static_cast<std::size_t>(Count++)] = {chance, net};
        Decided += chance;
    }
};

/// Rows 43, 44, 46, 47, 84..89 and 91.
bool IsSequenceRow(int row);
Sequence SequenceOf(const Settings& s, const DiceChances& dice, int row);

/// The figures of a sequence; all 0 when it is never decided. An outcome that decides nothing (a barred number, a Fire
/// payoff of 0) leaves the bet to its next try, or counts as a decision itself.
Advantage FiguresOf(const Sequence& sequence, bool countZeroOutcomes);

}  // namespace tarnwick
