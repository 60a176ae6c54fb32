// The sum of the sessions of a run. Adding and merging are exact, so that the order in which threads finish does not
// matter.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include "table/crapcnst.h"

namespace tarnwick::lab {

/// Number and amount of bets of one kind.
struct BetSum {
    std::int64_t Number = 0;
    int128 Amount = 0;  ///< ten-thousandths

    void Add(const BetSum& other);
};

struct PlayerSum {
    std::string Name;
    int128 Begin = 0, End = 0;  ///< summed over the sessions, ten-thousandths
    currency BestEnd, WorstEnd;
    currency High, Low;  ///< after any roll of any session
    BetSum Decided, Won, Lost;
};

struct RunSummary {
    std::int64_t Sessions = 0;
    std::int64_t Rolls = 0;
    std::int64_t Hands = 0;
    std::map<std::string, std::int64_t> StopReasons;
    std::array<PlayerSum, Positions> Players;

    /// Takes in the session that `t` has just played.
    void AddSession(const Table& t, const std::string& stopReason);
    void Merge(const RunSummary& other);
};

/// What a summary is printed with.
struct RunReport {
    std::string Command;
    std::uint64_t Seed = 0;
    int Rng = 0;
    double Seconds = 0;
};

std::string SummaryText(const RunSummary& summary, const RunReport& report);
std::string SummaryJson(const RunSummary& summary, const RunReport& report);

}  // namespace tarnwick::lab
