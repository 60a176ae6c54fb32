#include "config/betlimits.h"

namespace tarnwick {

namespace {

BetLimits LimitsOf(const Table& t) { return {t.MinPlacardBet, t.MinPlacardPropBet, t.MaxPlacardBet}; }

bool Write(Table& t, const BetLimits& limits) {
    bool changed = false;
    const auto write = [&changed](currency& setting, currency value) {
        changed = changed || setting != value;
        setting = value;
    };
    write(t.MinPlacardBet, limits.MinPlacardBet);
    write(t.MinPlacardPropBet, limits.MinPlacardPropBet);
    write(t.MaxPlacardBet, limits.MaxPlacardBet);
    return changed;
}

}  // namespace

SettingFault SetBetLimits(Table& t, const BetLimits& limits) {
    const BetLimits before = LimitsOf(t);
    const bool changed = Write(t, limits);
    SettingFault fault = LimitFault(t);
    if (!fault.Text.empty()) {
        Write(t, before);
    } else if (changed) {
        t.GameChanged = true;
    }
    return fault;
}

}  // namespace tarnwick
