// Settings by name, their defaults and their checks.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "table/crapcnst.h"

namespace tarnwick {

/// Every setting to the value of a program that has just started.
void SetDefaultSettings(Table& t);
void RestoreDefaultDenominations(Table& t);

/// Sets one setting by its name: `MinPlacardBet`, per-position ones as `AutoTakeFullOdds[3]`, arithmetic as
/// `HandleAmount[p][slot]`, come-out states as `ComeOutWorking[p][row]`, payoffs as `Payoff[31]` with "9 to 5" or
/// "10 for 5", `FieldPayoff[1]`. Names in any case. Returns what is wrong (unknown name, index, text, range, a check of
/// the configuration), or nothing. A refused value leaves everything as it was. Bets that a switched-off option no
/// longer offers are taken down; vigs follow.
std::string SetSetting(Table& t, std::string_view name, std::string_view value);

/// The present value in the form that SetSetting reads; empty for an unknown name.
std::string SettingText(const Table& t, std::string_view name);

/// Names of all settings in the order of the configuration window, arrays once each.
struct SettingInfo {
    std::string_view Name;
    std::string_view Meaning;
    int FirstIndex = 0, LastIndex = -1;    ///< of an array by position or row
    int FirstIndex2 = 0, LastIndex2 = -1;  ///< of a second index
};
const std::vector<SettingInfo>& AllSettings();

struct SettingFault {
    std::string Title;
    std::string Text;
};
/// The first fault of each group of checks, in the order of the configuration window's checks; empty texts when none.
SettingFault CheckDenominationFault(const Table& t);
SettingFault LimitFault(const Table& t);
SettingFault RollRateFault(const Table& t);
SettingFault PayoffFault(const Table& t);

}  // namespace tarnwick
