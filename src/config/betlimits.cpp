#include "config/betlimits.h"

namespace tarnwick {

namespace {

BetLimits LimitsOf(const Table& t) { return {t.MinPlacardBet, t.MinPlacardPropBet, t.MaxPlacardBet}; }

void Write(Table& t, const BetLimits& limits) {
    t.MinPlacardBet = limits.MinPlacardBet;
    t.MinPlacardPropBet = limits.MinPlacardPropBet;
    t.MaxPlacardBet = limits.MaxPlacardBet;
}

}  // namespace

SettingFault SetBetLimits(Table& t, const BetLimits& limits) {
    const BetLimits before = LimitsOf(t);
    Write(t, limits);
    SettingFault fault = LimitFault(t);
    if (!fault.Text.empty()) {
        Write(t, before);
    } else if (!(limits == before)) {
        t.GameChanged = true;
    }
    return fault;
}

}  // namespace tarnwick
