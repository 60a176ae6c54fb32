// The limits of the placard, which hang together.
#pragma once

#include "config/configure.h"

namespace tarnwick {

struct BetLimits {
    currency MinPlacardBet, MinPlacardPropBet, MaxPlacardBet;

    bool operator==(const BetLimits&) const = default;
};

/// Sets all three at once. When they can't stand together, or not with the smallest check, nothing changes and the
/// fault is returned. Standing bets stay as they are.
SettingFault SetBetLimits(Table& t, const BetLimits& limits);

}  // namespace tarnwick
