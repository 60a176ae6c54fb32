// The complimentaries that a casino would give for what a player has wagered.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "config/advantage.h"

namespace tarnwick {

struct Comps {
    currency CompValue;         ///< what the player has earned
    currency Action;            ///< money wagered on the bets that count
    std::int64_t Count = 0;     ///< wagers on them
    std::int32_t Rolls = 0;     ///< rolls that the player stood at the table
    double TheoreticalSum = 0;  ///< what the bets are expected to win, in units of money: below 0 as a rule
    currency AvgActionTime;     ///< the average wager times the hours at RollsPerHour
};

/// The comps of statistics position `pos` 0..44 under CompBase, CompRate, CompBetMasks and CompsUseTrueProbs. Nothing
/// is stored.
Comps FigureComps(const Table& t, int pos, AdvantageCache& advantages);
Comps FigureComps(const Table& t, int pos);

/// Whether row 1..91 counts for comps: rows 1..31 are bits 0..30 of CompBetMasks[1], 32..62 bits 0..30 of [2], 63..91
/// bits 0..28 of [3].
bool CountsForComps(const Settings& s, int row);
void SetCountsForComps(Settings& s, int row, bool counts);
/// What it is in a new game: all bets but the odds.
bool CountsForCompsByDefault(int row);

/// The three measures as the summary shows them, label and amount; the label of the one that CompBase takes has "* "
/// ahead.
struct CompLine {
    std::string Label, Amount;
};
std::array<CompLine, 3> CompLines(const Table& t, const Comps& comps);
/// CompRate as shown: without decimals when it is whole.
std::string CompRateText(const Settings& s);

}  // namespace tarnwick
