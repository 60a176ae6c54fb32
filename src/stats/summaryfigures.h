// Figures of the window Summary.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "stats/figures.h"

namespace tarnwick {

struct SummaryCourse {
    Figure Hands, Rolls, RollsPerHour, SimulatedHours;
};

/// Bets decided, won and lost, their net, and the net in percent of those decided.
struct SummaryBets {
    Figure Made, Won, Lost, Net, NetPercent;
};

/// What the comps are figured by, summed over the selected players.
struct CompMeasures {
    currency TheoreticalVig;
    currency TotalAction;
    currency AverageActionTime;
    int CompBase = 0;  ///< 0..2: which of the three counts
};

struct CompLine {
    std::string Caption;  ///< with "* " ahead of the one that counts
    Figure Amount;
};

struct SummaryFigures {
    std::string Players;  ///< the caption
    SummaryCourse Table, Player;
    Figure PlayerPercent;  ///< the player's rolls as shooter in percent of the rolls
    SummaryBets Amounts, Numbers;
    Figure BankrollBeginning, BankrollCurrent, BankrollHigh, BankrollLow, BankrollAverage;
    std::string_view CurrentCaption;  ///< "Current", or "Ending" of a scope that is over
    std::array<CompLine, 3> Comps;
    bool HasComps = false;
};

/// Scope 0..4. Bankrolls of several players are summed, their averages of the session too. Comps are left out without
/// `comps`.
SummaryFigures FiguresOfSummary(const Table& t, int scope, SeatMask players,
                                const std::optional<CompMeasures>& comps = std::nullopt);

}  // namespace tarnwick
