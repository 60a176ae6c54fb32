// Settings by name, their defaults and their checks.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "table/crapcnst.h"

namespace tarnwick {

/// Every setting to the value of a program that has just started: payoffs, colors and the come-out lists of all
/// positions too. Units and reserved vigs follow; bets stay.
void SetDefaultSettings(Table& t);
/// Checks of 1, 5, 25, 100 and 500; units and reserved vigs follow.
void RestoreDefaultDenominations(Table& t);
/// The same behind its question; false when the user said no, or a player couldn't pay the vigs (who was told).
bool AskRestoreDefaultDenominations(Table& t);

/// Sets one setting by its name: `MinPlacardBet`, per-position ones as `AutoTakeFullOdds[3]`, arithmetic as
/// `HandleAmount[p][slot]` or `HandleAmount[p,slot]`, payoffs as `Payoff[31]` with "9 to 5" or "10 for 5",
/// `FieldPayoff[1]`; the come-out list of one position as `ComeOutWorking[p][row]` and of all of them, the table's own
/// too, as `ComeOutWorking[row]`; checks one by one or all as `CheckDenominations` "1,5,25,100,500". Names in any case.
/// Truth values are true, yes, on, -1, 1 or false, no, off, 0; colors and masks are hexadecimal, red in the low byte; a
/// vig rate is a fraction or a percentage with its sign. Returns what is wrong (unknown name, index, text, range, a
/// check of the configuration), or nothing. A refused value leaves everything as it was. Bets that a switched-off
/// option no longer offers are taken down; units and vigs follow. Where a group of the configuration's checks is at
/// fault already, as a file can bring it, a change there must mend something.
std::string SetSetting(Table& t, std::string_view name, std::string_view value);

/// The present value in the form that SetSetting reads; empty for an unknown name or a missing index.
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
/// Takes all five checks 1..5 at once, with what follows from them. Returns the first fault of the checks, of the
/// limits (unless those were at fault before) or of a bankroll that can't pay the vigs; then nothing has changed.
SettingFault SetCheckDenominations(Table& t, const std::array<currency, 6>& checks);
/// Takes a roll rate typed in RollRateUnit; returns its fault, and then nothing has changed.
SettingFault SetRollRate(Table& t, currency typed);
/// Why AllowNegativeBankroll of p 1..8 can't be switched off now: a bankroll below 0, or bets beyond it.
SettingFault NegativeBankrollFault(const Table& t, int p);
/// Why the bankroll settings can't be shown: nobody is at the table.
SettingFault BankrollTabFault(const Table& t);

/// Makes a change of payoffs, vig settings or checks with all that follows from it. When that reserves more vig for a
/// player than his bankroll holds, and he may not go below 0, all is put back and the reason returned.
std::string TryVigChange(Table& t, const std::function<void(Table&)>& change);
/// The same, telling the user the reason; false when refused.
bool ChangeSettings(Table& t, const std::function<void(Table&)>& change);

/// Switches an optional bet (`UseBig68`, `UseFireBet`, `UseMidwayBet`, `UseSpecialPropBets`) on or off. While bets
/// stand on it, switching off asks first; Yes takes them down past the rules for contract bets. True when the option is
/// now as wanted; false for No and for another name.
bool AskSwitchOption(Table& t, std::string_view option, bool on);

/// Units of the simulated roll rate as listed: "Rolls / hr", "Rolls / min", "Rolls / sec", "Hrs / roll", "Mins / roll",
/// "Secs / roll". Empty beyond 0..5.
std::string_view RollRateUnitText(int unit);
/// A rate typed in a unit, as rolls per hour; nothing for a reciprocal of 0.
std::optional<currency> RollsPerHourFrom(currency typed, int unit);
/// The rate in RollRateUnit, as shown: "<.0001" when it rounds to 0.
std::string RollRateText(const Table& t);

}  // namespace tarnwick
