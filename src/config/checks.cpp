// What the configuration window checks before it lets its fields go. Amounts in these texts are those of messages.
#include <algorithm>
#include <string>

#include "config/configure.h"
#include "config/settingtable.h"
#include "table/format.h"

namespace tarnwick {

namespace {

using Faults = std::vector<SettingFault>;

void AddCheckFaults(const Table& t, Faults& faults) {
    const std::string title = "Check Values";
    const auto first = t.CheckDenominations.begin() + 1, end = t.CheckDenominations.end();
    if (std::any_of(first, end, [](currency check) { return check <= currency{}; })) {
        faults.push_back({title, "Check values must be greater than zero."});
    }
    if (std::adjacent_find(first, end, std::greater_equal<>()) != end) {
        faults.push_back({title,
                          "Checks must be listed in ascending order with the "
                          "smallest valued check in the leftmost position."});
    }
    const currency smallest = *first;
    if (smallest > currency{} && !std::all_of(first, end, [&](currency c) { return IsMultipleOf(c, smallest); })) {
        faults.push_back({title, "All checks must be wholly divisible by the smallest check."});
    }
}

void AddMinimumFaults(const Table& t, currency minimum, const std::string& what, Faults& faults) {
    const currency check = SmallestCheck(t);
    const std::string title = "Configuration Limits";
    if (minimum < check) {
        faults.push_back(
            {title, "The " + what + " cannot be less than the smallest check denomination of " + FormatCommas(check)});
    } else if (check > currency{} && !IsMultipleOf(minimum, check)) {
        faults.push_back({title, "The " + what + " must be some multiple of the smallest check denomination, such as " +
                                     FormatCommas(check) + ",  " + FormatCommas(check * 2) + ",  " +
                                     FormatCommas(check * 3) + ",  etc."});
    }
}

void AddLimitFaults(const Table& t, Faults& faults) {
    AddMinimumFaults(t, t.MinPlacardBet, "minimum bet", faults);
    AddMinimumFaults(t, t.MinPlacardPropBet, "minimum prop bet", faults);
    if (t.MaxPlacardBet < t.MinPlacardBet) {
        faults.push_back({"Configuration Limits", "The maximum bet must be greater than or equal to the minimum bet."});
    }
}

void AddRollRateFaults(const Table& t, Faults& faults) {
    const std::string title = "Sim Roll Rate Out Of Limits";
    if (t.RollsPerHour <= currency{}) {
        faults.push_back({title, "The simulated roll rate must be greater than zero."});
    } else if (t.RollsPerHour > Dollars(36'000'000)) {
        constexpr std::array<std::string_view, 3> most = {"36,000,000", "600,000", "10,000"};
        const int unit = std::clamp(t.RollRateUnit, 0, 5);
        faults.push_back({title, "The maximum simulated " + std::string(RollRateUnitText(unit)) + " rate is " +
                                     std::string(most[static_cast<std::size_t>(unit % 3)]) + "."});
    }
}

struct PayoffLine {
    int BetRow;
    std::string_view Name;
};
constexpr PayoffLine LinesWon[] = {
    {Row::Come, "Passline/Come (c.o.)"}, {Row::Come4, "Pass/Come 4"},
    {Row::Come4 + 1, "Pass/Come 5"},     {Row::Come4 + 2, "Pass/Come 6"},
    {Row::Come4 + 3, "Pass/Come 8"},     {Row::Come4 + 4, "Pass/Come 9"},
    {Row::Come10, "Pass/Come 10"},       {Row::DontCome, "Don't Pass/Come (c.o.)"},
    {Row::DontCome4, "DP/DC 4"},         {Row::DontCome4 + 1, "DP/DC 5"},
    {Row::DontCome4 + 2, "DP/DC 6"},     {Row::DontCome4 + 3, "DP/DC 8"},
    {Row::DontCome4 + 4, "DP/DC 9"},     {Row::DontCome10, "DP/DC 10"},
};

bool Wins(const PayoffEntry& payoff) { return payoff.Pays > currency{} && payoff.For > currency{}; }

/// Faults of a table whose entries may lose: none may lose more than the bet, and one must win.
template <class Iterator>
void AddLossFaults(Iterator first, Iterator last, const std::string& bet, const std::string& positive, Faults& faults) {
    const std::string title = "Payoff error";
    if (std::any_of(first, last, [](const PayoffEntry& payoff) { return -payoff.Pays > payoff.For; })) {
        faults.push_back({title, "The loss on any " + bet + " bet payoff cannot exceed the amount wagered."});
    }
    if (std::none_of(first, last, Wins)) {
        faults.push_back({title, "At least one of the " + bet + " bet payoffs must be " + positive + "."});
    }
}

void AddPayoffFaults(const Table& t, Faults& faults) {
    const std::string title = "Payoff ratio error";
    for (const PayoffLine& line : LinesWon) {
        if (Wins(t.Payoff[static_cast<std::size_t>(line.BetRow)])) continue;
        faults.push_back({title, "The payoff on " + std::string(line.Name) + " must be a positive amount."});
    }
    if (!std::all_of(t.SevenPointSevenPayoff.begin() + 1, t.SevenPointSevenPayoff.end(), Wins)) {
        faults.push_back({title, "The payoffs on SevenPoint7 must be positive amounts."});
    }
    if (!std::all_of(t.MidwayPayoff.begin() + 1, t.MidwayPayoff.end(), Wins)) {
        faults.push_back({title, "The payoffs on Midway must be positive amounts."});
    }
    if (t.MaxFireBet <= currency{}) faults.push_back({"Max Fire Bet", "The max Fire bet must be greater than zero."});
    AddLossFaults(t.FirePayoff.begin() + 1, t.FirePayoff.end(), "Fire", "positive", faults);
    AddLossFaults(t.FieldPayoff.begin() + 1, t.FieldPayoff.end(), "Field", "postiive", faults);  // so it stands
}

SettingFault FirstOf(const Faults& faults) { return faults.empty() ? SettingFault{} : faults.front(); }

}  // namespace

std::vector<SettingFault> FaultsOf(const Table& t, CheckGroup group) {
    Faults faults;
    switch (group) {
        case CheckGroup::Checks:
            AddCheckFaults(t, faults);
            AddLimitFaults(t, faults);
            break;
        case CheckGroup::Limits:
            AddLimitFaults(t, faults);
            break;
        case CheckGroup::RollRate:
            AddRollRateFaults(t, faults);
            break;
        case CheckGroup::Payoffs:
            AddPayoffFaults(t, faults);
            break;
        case CheckGroup::None:
            break;
    }
    return faults;
}

SettingFault CheckDenominationFault(const Table& t) {
    Faults faults;
    AddCheckFaults(t, faults);
    return FirstOf(faults);
}

SettingFault LimitFault(const Table& t) { return FirstOf(FaultsOf(t, CheckGroup::Limits)); }

SettingFault RollRateFault(const Table& t) { return FirstOf(FaultsOf(t, CheckGroup::RollRate)); }

SettingFault PayoffFault(const Table& t) { return FirstOf(FaultsOf(t, CheckGroup::Payoffs)); }

SettingFault NegativeBankrollFault(const Table& t, int p) {
    const auto seat = static_cast<std::size_t>(p);
    const std::string& name = t.PlayerName[seat];
    if (t.Bankroll[seat] < currency{}) {
        return {"Bankroll", "Before you can un-check this box, " + name +
                                " must have a non-negative bankroll. Some options:\n"
                                " -- Win some more money first, or\n"
                                " -- Make a withdrawal from the ATM."};
    }
    const currency missing = t.BetsOnTable[seat] - t.Bankroll[seat];
    if (missing <= currency{}) return {};
    return {"Bankroll", "The amount of " + name + "'s current bets exceeds his/her current bankroll.\n" +
                            "Therefore, before you can un-check this box, " + name + " must either:\n" +
                            " -- Reduce the amount of his/her current bets, or \n" + " -- Make at least a $" +
                            FormatCommas(missing) + " withdrawal from the ATM."};
}

SettingFault BankrollTabFault(const Table& t) {
    if (t.PlayerCount > 0) return {};
    return {"No Players",
            "You need to add one or more players before you can set bankroll parameters.\n"
            "To add a player return to the main table and click on the Players menu."};
}

}  // namespace tarnwick
