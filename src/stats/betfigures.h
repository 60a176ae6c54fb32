// Figures of the windows Bet Results and Bet Trends.
#pragma once

#include <array>
#include <bitset>
#include <string>
#include <string_view>
#include <vector>

#include "stats/figures.h"

namespace tarnwick {

/// Bit row, 1..91; bit 0 doesn't count.
using BetSelection = std::bitset<Row::LastBet + 1>;
BetSelection AllBets();
/// "No bets selected", "1 bet selected", "All bets selected", or how many.
std::string BetsCaption(const BetSelection& bets);

/// One row of the table: of what was wagered, won or lost, the net, or the net in percent of the wagers.
struct BetResultsRow {
    std::string_view Caption;
    Figure Number, Amount, High, Low, Average;
    Figure LastNumber, LastAmount;  ///< decided by the session's last roll
};

struct BetResultsFigures {
    std::string Players, Bets;            ///< captions
    std::array<BetResultsRow, 5> Rows;    ///< "Wagers", "Wins", "Losses", "Net", "Net %"
    Figure CurrentNumber, CurrentAmount;  ///< bets that stand now
};

/// Scope 0..4. `separators`: thousands are set apart. Averages without a decision are 0.
BetResultsFigures FiguresOfBetResults(const Table& t, int scope, SeatMask players, const BetSelection& bets,
                                      bool separators);

/// Why there is nothing to print, or nothing.
constexpr const char* NoBetsTitle = "No bets selected";
constexpr const char* NoBetsText = "You need to select one or more bets";

struct BetTrend {
    int BetRow = 0;
    std::string_view Name;
    int Streak = 0;  ///< wins in a row, losses below 0
    std::string Text;
};
/// The streaks of player p 1..8, rows 1..91.
std::vector<BetTrend> FiguresOfBetTrends(const Table& t, int p);

}  // namespace tarnwick
