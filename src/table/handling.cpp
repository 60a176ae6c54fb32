#include "table/handling.h"

#include <algorithm>
#include <string>

#include "config/payoffs.h"
#include "table/format.h"
#include "table/messages.h"
#include "table/placement.h"
#include "table/screen.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

/// Where a code came from: the dialog has slots of its own beside those of the standing orders.
struct Order {
    int Code = 1;
    bool Asked = false;
};

// Slots of the arithmetic beside a handling: of the dialog, then of the standing orders.
constexpr int WinnersSameSlot(const Order& order) { return order.Asked ? 0 : 4; }
constexpr int WinnersBetSlot(const Order& order) { return order.Asked ? 1 : 6; }
constexpr int LosersSameSlot(const Order& order) { return order.Asked ? 2 : 5; }
constexpr int LosersBetSlot(const Order& order) { return order.Asked ? 3 : 7; }

constexpr std::array<std::string_view, 4> OperatorWords = {"plus", "minus", "times", "divided by"};

std::string_view UnitWord(int unit) { return unit == 0 ? "$" : unit == 1 ? "%" : "Units"; }

/// What stood on the bet when the dice were thrown.
currency OldBet(const Table& t, const DecidedBet& bet) { return t.PrevBetAmount(bet.Position, bet.BetRow); }

void TellChange(Table& t, const DecidedBet& bet, std::string_view title, bool tellSame) {
    if (!MayNotify(t, 4)) return;
    const currency change = t.BetAmount(bet.Position, bet.BetRow) - OldBet(t, bet);
    if (IsZero(change) && !tellSame) return;
    const std::string what = change > currency{}   ? "increased by: $" + FormatCommas(change)
                             : change < currency{} ? "decreased by: $" + FormatCommas(-change)
                                                   : "remains the same.";
    ShowNote(t, std::string(title),
             t.PlayerName[At(bet.Position)] + "\n\n" + std::string(BetName(bet.BetRow)) + " bet " + what,
             MsgButton::Ok | MsgButton::HideCharges);
}

/// Puts `amount` where the settled bet stood, through the rules, and tells what came of it.
void Rebet(Table& t, const DecidedBet& bet, currency amount, std::string_view title, bool tellSame = true) {
    const int p = bet.Position, row = bet.BetRow;
    const int state = BetWorking(t, p, row);
    if (amount != t.BetAmount(p, row) || !KeepSettledBet(t, p, row)) {
        TakeBetDown(t, bet);
        CheckBetRules(t, p, row, amount);
    }
    const bool called = state == 2 || state == -1;
    if (called && !IsZero(t.BetAmount(p, row))) SetBetWorking(t, p, row, state);
    if (t.HyperDriveActive) return;
    TellChange(t, bet, title, tellSame);
    if (t.Front != nullptr) t.Front->RedrawBet(p, row);
}

/// Amount of a slot in money: of itself, of a percentage of the old bet, or in units that pay whole.
currency SlotAmount(const Table& t, const DecidedBet& bet, int slot) {
    const std::size_t p = At(bet.Position), s = At(slot);
    const currency amount = t.HandleAmount[p][s];
    const int unit = t.HandleUnit[p][s];
    if (unit == 0) return amount;
    if (unit == 1) return MultiplyDivide(amount, OldBet(t, bet), Dollars(100));
    return MultiplyBy(MultiplyBy(amount, t.CheckDenominations[At(unit - 1)]), PayoffOf(t, bet.BetRow).For);
}

/// The factor of a slot for multiplying and dividing, Times over Scale: a percentage counts in hundredths.
struct Factor {
    currency Times, Scale;
};

Factor SlotFactor(const Table& t, const DecidedBet& bet, int slot) {
    const std::size_t p = At(bet.Position), s = At(slot);
    if (t.HandleUnit[p][s] == 1) return {t.HandleAmount[p][s], Dollars(100)};
    return {SlotAmount(t, bet, slot), Dollars(1)};
}

currency ModifiedBet(const Table& t, const DecidedBet& bet, int slot) {
    const currency old = OldBet(t, bet);
    const Factor factor = SlotFactor(t, bet, slot);
    switch (t.HandleOperator[At(bet.Position)][At(slot)]) {
        case 0:
            return old + SlotAmount(t, bet, slot);
        case 1:
            return old - SlotAmount(t, bet, slot);
        case 2:
            return MultiplyDivide(old, factor.Times, factor.Scale);
        default:
            return factor.Times <= currency{} ? old : MultiplyDivide(old, factor.Scale, factor.Times);
    }
}

void SameBet(Table& t, const DecidedBet& bet) { Rebet(t, bet, OldBet(t, bet), "Same Bet", false); }

void PressOneUnit(Table& t, const DecidedBet& bet) {
    Rebet(t, bet, OldBet(t, bet) + PressUnit(t, bet.BetRow), "Press 1 Unit");
}

void PressDouble(Table& t, const DecidedBet& bet) { Rebet(t, bet, OldBet(t, bet) * 2, "Press Double"); }

void Parlay(Table& t, const DecidedBet& bet) { Rebet(t, bet, OldBet(t, bet) + bet.Result.NetResult, "Parlay"); }

void BetRemainder(Table& t, const DecidedBet& bet) {
    Rebet(t, bet, std::max(currency{}, OldBet(t, bet) + bet.Result.NetResult), "Bet remainder");
}

std::string ModifiedTitle(const Table& t, const DecidedBet& bet, int slot) {
    if (t.HyperDriveActive) return {};
    const std::size_t p = At(bet.Position), s = At(slot);
    return "Same bet " + std::string(OperatorWords[At(t.HandleOperator[p][s] & 3)]) + " " +
           std::string(UnitWord(t.HandleUnit[p][s]));
}

void SameBetModified(Table& t, const DecidedBet& bet, int slot) {
    Rebet(t, bet, std::max(currency{}, ModifiedBet(t, bet, slot)), ModifiedTitle(t, bet, slot));
}

void BetExactly(Table& t, const DecidedBet& bet, int slot) {
    const std::string title = "Bet " + std::string(UnitWord(t.HandleUnit[At(bet.Position)][At(slot)]));
    Rebet(t, bet, std::max(currency{}, SlotAmount(t, bet, slot)), title);
}

void NoBet(Table& t, const DecidedBet& bet) {
    TakeBetDown(t, bet);
    if (t.Front != nullptr && !t.HyperDriveActive) t.Front->RedrawBet(bet.Position, bet.BetRow);
}

int AskCode(Table& t, const DecidedBet& bet) {
    const SettleQuestion question = DescribeSettlement(t, bet);
    return t.Front == nullptr ? 1 : t.Front->AskSettleBet(question);
}

/// The player's code; 0 is asked of the user, and stands for 1 where nobody can be asked.
Order OrderFor(Table& t, const DecidedBet& bet, int standing) {
    if (standing != 0) return {standing, false};
    return t.HyperDriveActive ? Order{} : Order{AskCode(t, bet), true};
}

void ActOnWinnersCode(Table& t, const DecidedBet& bet, const Order& order) {
    switch (bet.MustTakeDown ? 1 : order.Code) {
        case 2:
            return SameBet(t, bet);
        case 3:
            return PressOneUnit(t, bet);
        case 4:
            return PressDouble(t, bet);
        case 5:
            return Parlay(t, bet);
        case 6:
            return SameBetModified(t, bet, WinnersSameSlot(order));
        case 7:
            return BetExactly(t, bet, WinnersBetSlot(order));
        default:
            return NoBet(t, bet);
    }
}

void ActOnLosersCode(Table& t, const DecidedBet& bet, const Order& order) {
    switch (bet.MustTakeDown ? 1 : order.Code) {
        case 2:
            return SameBet(t, bet);
        case 3:
            return BetRemainder(t, bet);
        case 4:
            return PressOneUnit(t, bet);
        case 5:
            return PressDouble(t, bet);
        case 6:
            return SameBetModified(t, bet, LosersSameSlot(order));
        case 7:
            return BetExactly(t, bet, LosersBetSlot(order));
        default:
            return NoBet(t, bet);
    }
}

}  // namespace

void TakeBetDown(Table& t, const DecidedBet& bet) {
    // Nothing of the rules for a removal can hold it: a settled bet has nothing established any more.
    const int p = bet.Position, row = bet.BetRow;
    t.BetsOnTable[At(p)] -= t.BetAmount(p, row);
    SetBetAmount(t, p, row, currency{});
}

currency ReleaseVig(Table& t, const DecidedBet& bet) {
    const std::size_t p = At(bet.Position);
    const int row = bet.BetRow;
    if (!IsLay(row) && !IsBuy(row)) return {};
    currency& cell = IsLay(row) ? t.LayVigCharged[p][At(row - Row::Lay4)] : t.BuyVigCharged[p][At(row - Row::Buy4)];
    const currency vig = cell;
    if (IsLay(row) ? t.LayVigOnAllBets : t.BuyVigOnAllBets) t.BetsOnTable[p] -= vig;
    cell = currency{};
    return vig;
}

void HandleWinner(Table& t, DecidedBet& bet) {
    const int standing = t.WinnerHandling[At(bet.Position)];
    if (!t.HyperDriveActive && t.Front != nullptr && !t.DisableAllSound && t.WinSoundIndex > 0) {
        t.Front->PlaySound(standing == 0 ? SoundKind::AwaitedWin : SoundKind::Win, t.WinSoundIndex);
    }
    // The dialog shows the vig that the bet paid, so it is asked before the cell is cleared.
    const Order order = OrderFor(t, bet, standing);
    bet.Result.NetResult += ReleaseVig(t, bet);
    ActOnWinnersCode(t, bet, order);
}

void HandleLoser(Table& t, DecidedBet& bet) {
    const int standing = t.LoserHandling[At(bet.Position)];
    const bool nothingStood = IsZero(OldBet(t, bet));
    const Order order = standing == 0 && nothingStood ? Order{} : OrderFor(t, bet, standing);
    ReleaseVig(t, bet);
    ActOnLosersCode(t, bet, order);
}

void HandleReturnedBet(Table& t, DecidedBet& bet) {
    const int p = bet.Position, row = bet.BetRow;
    bet.Kind = SettleKind::Returned;
    bet.Result = {};
    // Line odds need a point, which the decision has just ended; the others need their flat bet.
    bet.MustTakeDown = row == Row::PassLineOdds || row == Row::DontPassOdds || !t.AllowPutBets ||
                       IsZero(t.BetAmount(p, FlatRowOf(row)));
    const bool asWinner = t.BetStreak(p, row) > 1;
    const int standing = asWinner ? t.WinnerHandling[At(p)] : t.LoserHandling[At(p)];
    const Order order = OrderFor(t, bet, standing);
    if (order.Asked && order.Code == ReturnedMaxOdds && !bet.MustTakeDown) return MaxOutBet(t, p, row);
    if (order.Asked || asWinner) {  // the dialog of a returned bet offers the winners' choices
        ActOnWinnersCode(t, bet, order);
    } else {
        ActOnLosersCode(t, bet, order);
    }
}

}  // namespace tarnwick
