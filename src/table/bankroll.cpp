#include "table/bankroll.h"

#include <algorithm>
#include <limits>
#include <string>

#include "stats/accumulators.h"
#include "table/format.h"
#include "table/messages.h"
#include "table/rundriver.h"
#include "table/screen.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

constexpr std::string_view NewSessionHint = "\n\nSelect \"New\" from the \"Game\" menu to reset the table.";

std::string RequestedAndAllowed(currency requested, currency allowed) {
    return "Requested amount:  $" + FormatCommas(requested) + "\nAllowed amount:  $" + FormatCommas(allowed) + "\n\n";
}

currency Withdrawal(Table& t, int p, currency request, bool fromConfiguration) {
    const currency allowed = std::clamp(request, currency{}, std::max(currency{}, BankrollLimit - t.Bankroll[At(p)]));
    if (allowed < request && !fromConfiguration && MayNotify(t, 1)) {
        ShowNote(t, "ATM Withdrawal",
                 RequestedAndAllowed(request, allowed) +
                     "The full amount of this transaction was not allowed since it would have caused the current "
                     "bankroll to exceed the bank limit of $" +
                     FormatCommas(BankrollLimit),
                 MsgButton::OkStopHideRefusals);
    }
    return allowed;
}

currency Deposit(Table& t, int p, currency request, bool fromConfiguration) {
    const currency bankroll = t.Bankroll[At(p)];
    const bool negativeAllowed = t.AllowNegativeBankroll[At(p)];
    const currency free = negativeAllowed ? bankroll + BankrollLimit : bankroll - t.BetsOnTable[At(p)];
    const currency allowed = std::clamp(request, currency{}, std::max(currency{}, free));
    if (allowed < request && !negativeAllowed && MayNotify(t, 1)) {
        std::string text = RequestedAndAllowed(request, allowed) +
                           "The full amount of this transaction was not allowed since it would have resulted in a "
                           "negative current bankroll.\n\nYou can deposit more by checking the box marked, \"Allow "
                           "negative bankroll amounts\"";
        if (!fromConfiguration) text += " on the Configuration screen";
        text += IsZero(t.BetsOnTable[At(p)]) ? "." : ", and/or by reducing the amount of your current bets.";
        ShowNote(t, "ATM Deposit", text, MsgButton::OkStopHideRefusals);
    }
    return allowed;
}

}  // namespace

currency AtmTransaction(Table& t, int p, currency amount, bool fromConfiguration) {
    constexpr currency most{std::numeric_limits<std::int64_t>::max()};
    const currency moved = amount < currency{} ? -Deposit(t, p, -std::max(amount, -most), fromConfiguration)
                                               : Withdrawal(t, p, amount, fromConfiguration);
    if (IsZero(moved)) return moved;
    t.BankrollInvested[At(p)] += moved;
    SetBankroll(t, p, t.Bankroll[At(p)] + moved);
    t.GameChanged = true;
    return moved;
}

int BankrollBeyondLimit(const Table& t) {
    for (int p = 1; p < Positions; ++p) {
        if (Abs(t.Bankroll[At(p)]) > BankrollLimit) return p;
    }
    return 0;
}

void BankrollLimitStop(Table& t, int p) {
    const bool above = t.Bankroll[At(p)] > currency{};
    const std::string limit = FormatCommas(BankrollLimit);
    if (t.HyperDriveActive) {
        t.StopReason = (above ? "Stopped by breaking the max bankroll limit of $"
                              : "Stopped by exceeding the min bankroll limit of $") +
                       limit + std::string(NewSessionHint);
        StopAutoRoll(t);
        return;
    }
    if (t.AutoRollActive) StopAutoRoll(t);
    if (above && t.Front != nullptr && !t.DisableAllSound && t.WinSoundIndex > 0) {
        t.Front->PlaySound(SoundKind::Limit, 0);
    }
    const std::string& name = t.PlayerName[At(p)];
    ShowNote(t, "Tarnwick",
             (above ? "Congratulations!\n\n" + name + " broke the max bankroll limit of $"
                    : "Sorry ... \n\n" + name + " has exceeded the min bankroll limit of $") +
                 limit + std::string(NewSessionHint));
}

}  // namespace tarnwick
