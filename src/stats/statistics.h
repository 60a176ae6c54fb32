// Storage of the accumulators. Read and write it only through stats/accumulators.h and stats/bankrollgraph.h: most of
// it is kept folded, so that a roll costs little.
#pragma once

#include <array>
#include <cstdint>

#include "table/currency.h"
#include "table/perbet.h"

namespace tarnwick {

constexpr int Scopes = 5;                          ///< current hand, last hand, session, last session, all sessions
constexpr int StatPositions = Positions * Scopes;  ///< pos = p + 9 * scope, 0..44

namespace Scope {
enum : int { Hand = 0, LastHand = 1, Session = 2, LastSession = 3, All = 4 };
}

struct Statistics {
    // Bankroll[pos]: scopes 0, 2 and 4 hold the bankroll now. Change it through SetBankroll.
    std::array<currency, StatPositions> Bankroll{};
    std::array<currency, StatPositions> BankrollBegin{};
    std::array<currency, StatPositions> BankrollHigh{};
    std::array<currency, StatPositions> BankrollLow{};
    std::array<currency, Positions> BankrollInvested{};
    std::int32_t HandComeouts = 0;
    std::int32_t HandPasses = 0;
    std::int32_t HandMisses = 0;
};

}  // namespace tarnwick
