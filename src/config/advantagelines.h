// The list of the advantage of every bet, as it is shown and printed.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "config/advantage.h"

namespace tarnwick {

constexpr std::string_view AdvantageNote = "All figures shown in percentage";

/// Titles of the five columns: values, or with `misc` rolls, decisions and time.
const std::array<std::string_view, 5>& AdvantageTitles(bool misc);

/// What a bet is called in the list: line bets and Come bets share their line.
std::string AdvantageLabel(int row);

struct AdvantageLine {
    int BetRow = 0;
    std::string Label;
    Advantage Figures;
    std::array<std::string, 5> Texts;
};
/// The lines of all bets that the table offers, in the order of their rows, under its rules, dice, CountZeroOutcomes
/// and ShowMiscData.
std::vector<AdvantageLine> AdvantageLines(const Table& t);

/// The five columns of one bet at `rollsPerHour`: values in percent, or with `misc` rolls, decisions and time.
std::array<std::string, 5> AdvantageTexts(const Advantage& a, double rollsPerHour, bool misc);

/// `rolls` rolls as "hours:minutes:seconds" (00:01:41.4); longer than a hundred hours, the hours take more places.
std::string RollTimeText(double rolls, double rollsPerHour);

}  // namespace tarnwick
