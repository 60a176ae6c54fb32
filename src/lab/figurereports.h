// The figures of the statistics windows as the laboratory prints them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lab/commandline.h"
#include "lab/json.h"
#include "stats/betfigures.h"
#include "stats/rollfigures.h"

namespace tarnwick::lab {

/// What a report is to show.
struct FigureQuery {
    int StatScope = Scope::Session;
    SeatMask Players = 0x1fe;
    RollTotalsMode Totals = RollTotalsMode::Number;
    int Event = 7;
    bool Skewed = false;  ///< frequencies: the chance by the matrix, if that is in use
    BetSelection Bets = AllBets();
    int Player = 1;  ///< of the trends
};

struct FigureReport {
    const char* Name;
    std::string (*Text)(const Table& t, const FigureQuery& query);
    /// Writes an object under the report's name.
    void (*Write)(JsonWriter& json, const Table& t, const FigureQuery& query);
};

/// summary, hands, totals, frequencies, results, trends.
const std::vector<FigureReport>& FigureReports();
/// The report of that name, or null.
const FigureReport* FindFigureReport(std::string_view name);

/// Reads the words behind a report's name, all optional: for summary and hands SCOPE PLAYERS, for totals SCOPE PLAYERS
/// MODE, for results SCOPE PLAYERS BET..., for frequencies EVENT true|skewed, for trends P. `bettor` is the P that is
/// left out.
Parsed<FigureQuery> ParseFigureQuery(std::string_view report, const std::vector<std::string>& words, int bettor);

/// "all", "none", or positions such as 13 or 1,3.
Parsed<SeatMask> ParsePlayers(std::string_view text);
/// A roll event by its number 2..89 or its text in the list of frequencies, in any case.
Parsed<int> ParseRollEvent(std::string_view text);

}  // namespace tarnwick::lab
