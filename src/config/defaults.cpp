// What a program that has just started finds.
#include <algorithm>

#include "config/configure.h"
#include "config/payoffs.h"
#include "table/messages.h"
#include "table/placement.h"

namespace tarnwick {

namespace {

constexpr std::array<std::uint32_t, 17> FirstColors = {0x803800, 0xFFFFFF, 0x77BBFF, 0x000000, 0xE19C48, 0x0000FF,
                                                       0xFFFFFF, 0x0000FF, 0xFFFFFF, 0x0000FF, 0x000000, 0x00FFFF,
                                                       0x000000, 0x77BBFF, 0x77BBFF, 0x000000, 0x000000};

}  // namespace

void SetDefaultSettings(Table& t) {
    const auto comeOutLists = t.ComeOutWorking;
    static_cast<Settings&>(t) = Settings{};
    t.ComeOutWorking = comeOutLists;  // they change by SetComeOutWorking alone
    for (int p = 0; p < Positions; ++p) {
        for (int row = 1; row <= Row::LastBet; ++row) SetComeOutWorking(t, p, row, WorksOnComeOutByDefault(row));
    }
    t.TableColors.fill(0xFFFFFF);
    std::copy(FirstColors.begin(), FirstColors.end(), t.TableColors.begin());
    std::fill(t.AtmAmount.begin() + 1, t.AtmAmount.end(), Dollars(500));
    RestoreDefaultPayoffs(t);
}

void RestoreDefaultDenominations(Table& t) {
    t.CheckDenominations = Settings{}.CheckDenominations;
    UpdatePayoffUnits(t);
    RecomputeVigs(t);
}

bool AskRestoreDefaultDenominations(Table& t) {
    if (!AskYesNo(t, "Restore Default Denominations",
                  "Do you want to restore all checks to their original Tarnwick values?")) {
        return false;
    }
    return ChangeSettings(t, RestoreDefaultDenominations);
}

}  // namespace tarnwick
