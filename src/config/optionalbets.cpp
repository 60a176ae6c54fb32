#include "config/optionalbets.h"

#include "table/format.h"
#include "table/messages.h"

namespace tarnwick {

namespace {

struct OptionalBet {
    std::string_view Name;
    bool Settings::*Offered;
    int FirstRow, LastRow;
    std::string_view Title;
    std::string_view Standing;
};

constexpr OptionalBet Options[] = {
    {"UseBig68", &Settings::UseBig68, Row::Big6, Row::Big8, "Remove Big 6 / Big 8 Bets",
     "There are presently bets on the Big 6 and/or Big 8 which will be removed if you continue "},
    {"UseFireBet", &Settings::UseFireBet, Row::Fire, Row::Fire, "Remove Fire Bets",
     "There are presently wagers on the Fire bet which will be removed if you continue "},
    {"UseMidwayBet", &Settings::UseMidwayBet, Row::Midway, Row::Midway, "Remove Midway Bets",
     "There are currently Midway bets present which will be removed if you continue "},
    {"UseSpecialPropBets", &Settings::UseSpecialPropBets, Row::AllSmall, Row::SevenPoint7,
     "Remove Multi-roll Prop Bets",
     "There are presently wagers on one or more of the multi-roll prop bets: All Small, All Tall, Make All, "
     "Four Rolls No 7, or Point 7 bets which will be removed if you continue "},
};

bool AnyStands(const Table& t, const OptionalBet& option) {
    for (int row = option.FirstRow; row <= option.LastRow; ++row) {
        if (AnyBetOn(t, row)) return true;
    }
    return false;
}

}  // namespace

void TakeDownRow(Table& t, int row) {
    if (!AnyBetOn(t, row)) return;
    for (int p = 1; p < Positions; ++p) {
        const currency bet = t.BetAmount(p, row);
        if (IsZero(bet)) continue;
        SetBetAmount(t, p, row, {});
        t.BetsOnTable[static_cast<std::size_t>(p)] -= bet;
        t.EstablishedBet(p, row) = {};
    }
}

void TakeDownUnoffered(Table& t) {
    for (const OptionalBet& option : Options) {
        if (t.*option.Offered) continue;
        for (int row = option.FirstRow; row <= option.LastRow; ++row) TakeDownRow(t, row);
    }
}

bool AskSwitchOption(Table& t, std::string_view option, bool on) {
    for (const OptionalBet& known : Options) {
        if (LowerCase(known.Name) != LowerCase(option)) continue;
        const std::string question = std::string(known.Standing) + "with this operation.  Would you like to continue?";
        if (!on && AnyStands(t, known) && !AskYesNo(t, std::string(known.Title), question)) return false;
        return SetSetting(t, known.Name, on ? "true" : "false").empty();
    }
    return false;
}

}  // namespace tarnwick
