#include "autoplay/sharedorders.h"

#include "autoplay/autoplay.h"
#include "table/format.h"
#include "table/placement.h"
#include "table/rundriver.h"

namespace tarnwick {

namespace {

using FlagOf = std::array<bool, Positions> Settings::*;
using CodeOf = std::array<std::int32_t, Positions> Settings::*;

constexpr std::array<FlagOf, OrderFlagCount> FlagMembers = {&Settings::AutoTakeFullOdds, &Settings::AutoLayFullOdds,
                                                            &Settings::AutoDownPlaceBets, &Settings::AutoPassDice};
constexpr std::array<CodeOf, OrderCodeCount> CodeMembers = {
    &Settings::AutoAdjustMode, &Settings::LayBias,        &Settings::PlaceBias,    &Settings::DoBias,
    &Settings::DontBias,       &Settings::WinnerHandling, &Settings::LoserHandling};

std::size_t At(int i) { return static_cast<std::size_t>(i); }

template <class Act>
void ForEach(SeatMask players, Act act) {
    for (int p = 1; p < Positions; ++p) {
        if ((players >> p & 1) != 0) act(p);
    }
}

/// Keeps what the first player has for as long as all others have it too.
class Common {
  public:
    template <class Value>
    void Take(std::optional<Value>& shared, Value value) const {
        if (First) {
            shared = value;
        } else if (shared && *shared != value) {
            shared.reset();
        }
    }
    bool First = true;
};

bool IsSlot(int slot) { return 0 <= slot && slot < 8; }

}  // namespace

SharedOrders OrdersOf(const Table& t, SeatMask players) {
    SharedOrders shared;
    Common common;
    ForEach(players, [&](int p) {
        for (std::size_t i = 0; i < OrderFlagCount; ++i) common.Take(shared.Flags[i], (t.*FlagMembers[i])[At(p)]);
        for (std::size_t i = 0; i < OrderCodeCount; ++i) common.Take(shared.Codes[i], (t.*CodeMembers[i])[At(p)]);
        for (std::size_t slot = 0; slot < 8; ++slot) {
            common.Take(shared.Operators[slot], t.HandleOperator[At(p)][slot]);
            common.Take(shared.Amounts[slot], t.HandleAmount[At(p)][slot]);
            common.Take(shared.Units[slot], t.HandleUnit[At(p)][slot]);
        }
        for (int row = 1; row <= Row::LastBet; ++row) {
            common.Take(shared.Working[At(row)], t.ComeOutWorking(p, row) != 0);
        }
        common.First = false;
    });
    return shared;
}

SeatMask OrderPlayers(const Table& t) {
    SeatMask players = 0;
    for (int p = 1; p < Positions; ++p) {
        if (IsSeated(t, p) && (t.AutoPlayPlayers >> p & 1) != 0) players = static_cast<SeatMask>(players | (1u << p));
    }
    return players;
}

std::string OrdersHeading(const Table& t) {
    bool anybody = false;
    int count = 0, last = 0;
    for (int p = 1; p < Positions; ++p) anybody = anybody || IsSeated(t, p);
    if (!anybody) return "No players present";
    ForEach(OrderPlayers(t), [&](int p) {
        ++count;
        last = p;
    });
    if (count == 0) return "No players selected";
    if (count == 1) return "Settings for " + t.PlayerName[At(last)];
    return "Settings for these " + std::to_string(count) + " selected players:";
}

bool MayChangeOrders(Table& t) { return AskAboutRun(t) != RunAnswer::GoesOn; }

void SetOrderFlag(Table& t, SeatMask players, OrderFlag flag, bool on) {
    ForEach(players, [&](int p) {
        switch (flag) {
            case OrderFlag::TakeFullOdds:
                return SetAutoTakeFullOdds(t, p, on);
            case OrderFlag::LayFullOdds:
                return SetAutoLayFullOdds(t, p, on);
            case OrderFlag::DownPlaceBets:
                return SetAutoDownPlaceBets(t, p, on);
            case OrderFlag::PassDice:
                t.AutoPassDice[At(p)] = on;
                t.GameChanged = true;
        }
    });
}

void SetOrderCode(Table& t, SeatMask players, OrderCode code, std::int32_t value) {
    const bool isHandling = code == OrderCode::WinnerHandling || code == OrderCode::LoserHandling;
    if (value < 0 || value > (isHandling ? 7 : 2)) return;
    ForEach(players, [&](int p) {
        (t.*CodeMembers[static_cast<std::size_t>(code)])[At(p)] = value;
        t.GameChanged = true;
    });
}

void SetOrderOperator(Table& t, SeatMask players, int slot, std::int32_t value) {
    if (!IsSlot(slot) || value < 0 || value > 3) return;
    ForEach(players, [&](int p) {
        t.HandleOperator[At(p)][At(slot)] = value;
        t.GameChanged = true;
    });
}

void SetOrderUnit(Table& t, SeatMask players, int slot, std::int32_t value) {
    if (!IsSlot(slot) || value < 0 || value > 6) return;
    ForEach(players, [&](int p) {
        t.HandleUnit[At(p)][At(slot)] = value;
        t.GameChanged = true;
    });
}

std::string SetOrderAmount(Table& t, SeatMask players, int slot, std::string_view typed) {
    const auto amount = ParseAmount(typed);
    if (!amount) return "\"" + std::string(Trim(typed)) + "\" is not an amount.";
    if (*amount < currency{} || *amount > BankrollLimit) {
        return "The amount must be from 0 to " + FormatCommas(BankrollLimit) + ".";
    }
    if (!IsSlot(slot)) return {};
    ForEach(players, [&](int p) {
        t.HandleAmount[At(p)][At(slot)] = *amount;
        t.GameChanged = true;
    });
    return {};
}

void SetOrderWorking(Table& t, SeatMask players, const std::vector<int>& rows, WorkingChoice choice) {
    ForEach(players, [&](int p) {
        for (const int row : rows) {
            if (!IsLayoutRow(row)) continue;
            const bool works =
                choice == WorkingChoice::Default ? WorksOnComeOutByDefault(row) : choice == WorkingChoice::Yes;
            SetComeOutWorking(t, p, row, works);
        }
    });
}

}  // namespace tarnwick
