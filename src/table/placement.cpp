#include "table/placement.h"

#include <algorithm>
#include <string>

#include "autoplay/autoplay.h"
#include "config/payoffs.h"
#include "stats/accumulators.h"
#include "stats/eventslog.h"
#include "table/betrules.h"
#include "table/format.h"
#include "table/messages.h"
#include "table/screen.h"

namespace tarnwick {

namespace {

constexpr currency StackLimit = {999'999'999'999'999'999};

std::size_t At(int i) { return static_cast<std::size_t>(i); }

std::string BetMessageTitle(int row) { return std::string(BetName(row)) + " Bet"; }

std::string LimitText(std::string_view what, currency amount) {
    return std::string(what) + " is $" + FormatCommas(amount);
}

/// One request on its way through the rules of the layout's bets.
class Request {
  public:
    Request(Table& table, int position, int betRow, currency amount, Speak speak)
        : T(table), P(position), BetRow(betRow), Aloud(speak == Speak::Aloud) {
        Bet = T.BetAmount(P, BetRow);
        Unit = SmallestCheck(T);
        Delta = AwayFromZeroTo(std::clamp(amount, -StackLimit, StackLimit), Unit);
        Delta = std::max(Delta, -Bet);
    }

    BetChange Run() {
        if (Delta > currency{} && !Increase()) return {};
        if (!HoldContract()) return {};
        HoldMinimum();
        HoldMaximum();
        Adjust();
        TellLimits();
        HoldBankroll();
        Apply();
        return {Delta, Min, Max};
    }

  private:
    Table& T;
    const int P, BetRow;
    const bool Aloud;
    currency Bet, Unit, Delta, Min, Max;
    std::string Text;

    bool Tells(int bit) const { return Aloud && MayNotify(T, bit); }
    currency Total() const { return Bet + Delta; }
    currency Established() const { return T.EstablishedBet(P, BetRow); }
    /// What must stay of the bet.
    currency Floor() const { return IsContract(T, BetRow) ? Established() : currency{}; }

    void Tell(const std::string& text, int hide) const {
        ShowNote(T, BetMessageTitle(BetRow), T.PlayerName[At(P)] + ",\n\n" + text, MsgButton::Ok | hide);
    }

    /// False when the rules leave nothing of the increase.
    bool Increase() {
        const bool restorable = IsRestorable(BetRow);
        if (restorable && Total() <= Established()) return true;
        if (!IsRefused(T, P, BetRow)) return true;
        const currency restore = restorable ? std::max(currency{}, Established() - Bet) : currency{};
        if (Tells(1)) {
            Tell(RefusalText(BetRow) + (restorable ? RestoreSentence(Established(), Bet) : ""),
                 MsgButton::Stop | MsgButton::HideRefusals);
        }
        Delta = restore;
        return !IsZero(Delta);
    }

    /// Contract bets never fall below what the dice have established. False when nothing is left of the request: then
    /// the bet isn't adjusted either.
    bool HoldContract() {
        if (Total() >= Floor()) return true;
        if (Tells(1))
            Tell(ContractRefusal(BetRow, Delta, Bet, Established()), MsgButton::Stop | MsgButton::HideRefusals);
        Delta = Floor() - Bet;
        return !IsZero(Delta);
    }

    bool AtContract() const { return !IsZero(Floor()) && Total() <= Floor(); }

    void HoldMinimum() {
        Min = MinimumBet(T, BetRow);
        if (Total() <= currency{} || Total() >= Min || AtContract()) return;
        if (Delta > currency{}) {
            Delta = Min - Bet;
            if (Tells(2)) Text = LimitText("The minimum " + std::string(BetName(BetRow)) + " bet", Min);
        } else if (Delta < currency{}) {
            Delta = Floor() - Bet;
        }
    }

    void HoldMaximum() {
        if (Total() <= currency{}) return;
        Max = MaximumBet(T, P, BetRow);
        if (Total() <= Max) return;
        const bool flatContract = BetRow == Row::PassLine || IsContract(T, BetRow);
        const bool outgrown = flatContract && Established() > Max;
        if (Tells(2)) {
            const std::string name(BetName(BetRow));
            Text = LimitText("The maximum " + name + " bet", Max);
            if (outgrown) Text += "\n\n" + OutgrownText(name, Established());
        }
        Delta = (outgrown ? Established() : Max) - Bet;
    }

    void Adjust() {
        if (T.AutoAdjustMode[At(P)] <= 0) return;
        if (IsZero(Max)) Max = MaximumBet(T, P, BetRow);
        AdjustRequest request{Delta, Min, Max, Tells(2) ? &Text : nullptr};
        AutoAdjustBet(T, P, BetRow, request);
        Delta = std::max(request.Delta, -Bet);
    }

    void TellLimits() const {
        if (!Text.empty()) Tell(Text, MsgButton::HideLimits);
    }

    currency NewBuyVig() const { return BuyVig(T, BetRow, Total()); }
    currency NewLayVig() const { return LayVig(T, BetRow, Total()); }

    /// What BetsOnTable would hold with the request as it stands.
    currency Committed() const {
        currency sum = T.BetsOnTable[At(P)] + Delta;
        if (IsBuy(BetRow) && T.BuyVigOnAllBets) sum += NewBuyVig() - T.BuyVigCharged[At(P)][At(BetRow - Row::Buy4)];
        if (IsLay(BetRow) && T.LayVigOnAllBets) sum += NewLayVig() - T.LayVigCharged[At(P)][At(BetRow - Row::Lay4)];
        return sum;
    }

    void HoldBankroll() {
        const currency bankroll = T.Bankroll[At(P)];
        if (Delta <= currency{} || T.AllowNegativeBankroll[At(P)] || AtContract() || Committed() <= bankroll) return;
        Delta = bankroll - T.BetsOnTable[At(P)];
        if (Committed() > bankroll) Delta -= Committed() - bankroll;
        Delta = std::max(currency{}, FloorTo(Delta, Unit));
        const bool belowMinimum = Total() > currency{} && Total() < Min;
        if (belowMinimum) Delta = Floor() - Bet;
        if (Tells(2)) TellShortBankroll(belowMinimum);
    }

    void TellShortBankroll(bool belowMinimum) const {
        currency own = Bet;
        if (IsBuy(BetRow) && T.BuyVigOnAllBets) own += T.BuyVigCharged[At(P)][At(BetRow - Row::Buy4)];
        if (IsLay(BetRow) && T.LayVigOnAllBets) own += T.LayVigCharged[At(P)][At(BetRow - Row::Lay4)];
        const bool otherBets = T.BetsOnTable[At(P)] > own;
        std::string text = "Your bankroll is not sufficient for this bet.";
        if (belowMinimum) text += "\n" + LimitText("The minimum " + std::string(BetName(BetRow)) + " bet", Min);
        text += "\n\nYour options are: ";
        if (otherBets) text += "\n      - Bet less on other bets.";
        text += "\n      - Make a withdrawal from the ATM.\n      - Allow negative bankroll amounts.";
        if (Total() > currency{}) {
            text += "\n\n" + LimitText("The maximum that you can bet now", Total()) +
                    (IsZero(Delta) ? " which is already bet." : " which is being bet.");
        }
        Tell(text, MsgButton::HideLimits);
    }

    void Apply() {
        if (!IsZero(Delta)) {
            SetBetAmount(T, P, BetRow, Bet + Delta);
            T.BetsOnTable[At(P)] += Delta;
            T.GameChanged = true;
            if (IsZero(Bet)) ResetBetWorking(T, P, BetRow);
        }
        if (IsBuy(BetRow)) {
            ChargeVig(T.BuyVigCharged[At(P)][At(BetRow - Row::Buy4)], BuyVig(T, BetRow, Bet + Delta),
                      T.BuyVigOnAllBets);
        } else if (IsLay(BetRow)) {
            ChargeVig(T.LayVigCharged[At(P)][At(BetRow - Row::Lay4)], LayVig(T, BetRow, Bet + Delta),
                      T.LayVigOnAllBets);
        }
    }

    void ChargeVig(currency& cell, currency vig, bool upFront) {
        const currency before = cell;
        if (vig == before) return;
        cell = vig;
        TouchSeat(T, P);
        if (upFront) T.BetsOnTable[At(P)] += vig - before;
        if (Tells(4)) TellVig(before, vig, upFront);
    }

    void TellVig(currency before, currency vig, bool upFront) const {
        if (IsZero(vig)) {
            if (upFront) Tell("Vig charge returned $" + FormatCommas(before), MsgButton::HideCharges);
            return;
        }
        std::string text;
        if (!IsZero(before)) {
            const bool more = vig > before;
            text = (more ? "Vig increased by $" : "Vig decreased by $") +
                   FormatCommas(more ? vig - before : before - vig) + "\n\n";
        }
        text += (upFront ? "Total vig charge $" : "If you win, the vig charge will be $") + FormatCommas(vig);
        Tell(text, MsgButton::HideCharges);
    }
};

/// A CheckStack holds any value of its field; no rule of the table and no money is touched.
BetChange StackChange(Table& t, int p, int row, currency request, Speak speak) {
    const currency before = t.BetAmount(p, row);
    const currency wanted = SaturatedSum(before, request);
    const currency value = std::clamp(wanted, -StackLimit, StackLimit);
    if (wanted != value && speak == Speak::Aloud && MayNotify(t, 2)) {
        const bool over = value > currency{};
        ShowNote(t, BetTitle(row),
                 (over ? "The maximum CheckStack value is: $" : "The minimum CheckStack value is: $") +
                     FormatCommas(value) + "\n\nwhich is being stacked.",
                 MsgButton::Ok | MsgButton::HideLimits);
    }
    if (value != before) {
        SetBetAmount(t, p, row, value);
        t.GameChanged = true;
    }
    return {value - before, -StackLimit, StackLimit};
}

void TellNotOffered(Table& t, int p, int row) {
    if (!MayNotify(t, 1)) return;
    ShowNote(t, BetMessageTitle(row), t.PlayerName[At(p)] + ",\n\n" + NotOfferedText(row),
             MsgButton::OkStopHideRefusals);
}

bool Redraws(const Table& t) { return !t.HyperDriveActive && t.Front != nullptr; }

bool CanBeCalled(int row) {
    return IsLayoutRow(row) && row != Row::PassLine && row != Row::Come && row != Row::DontPass &&
           row != Row::DontCome && !IsDontComeNumber(row) && !IsComeNumber(row) &&
           !(Row::AllSmall <= row && row <= Row::SevenPoint7) && row != Row::Fire;
}

}  // namespace

BetChange CheckBetRules(Table& t, int p, int row, currency request, Speak speak) {
    if (row > Row::LastBet) return StackChange(t, p, row, request, speak);
    return Request(t, p, row, request, speak).Run();
}

BetChange PlaceBet(Table& t, int p, int row, currency request) {
    if (request > currency{} && !IsOffered(t, row)) {
        TellNotOffered(t, p, row);
        return {};
    }
    const BetChange change = CheckBetRules(t, p, row, request);
    if (Redraws(t)) {
        if (!IsZero(change.Delta) && !t.DisableAllSound && t.CheckSoundIndex > 0) {
            t.Front->PlaySound(SoundKind::Check, t.CheckSoundIndex);
        }
        t.Front->RedrawBet(p, row);
    }
    return change;
}

void RemoveBet(Table& t, int p, int row) {
    const currency bet = t.BetAmount(p, row);
    if (!IsZero(bet)) PlaceBet(t, p, row, -bet);
}

bool KeepSettledBet(Table& t, int p, int row) {
    const currency bet = t.BetAmount(p, row);
    if (IsBuy(row) || IsLay(row) || t.AutoAdjustMode[At(p)] > 0 || !IsMultipleOf(bet, SmallestCheck(t))) return false;
    if (!t.AllowNegativeBankroll[At(p)] && t.BetsOnTable[At(p)] > t.Bankroll[At(p)]) return false;
    if (bet < MinimumBet(t, row) || bet > MaximumBet(t, p, row) || IsRefused(t, p, row)) return false;
    ResetBetWorking(t, p, row);
    TouchBet(t, p, row);
    t.GameChanged = true;
    return true;
}

void SetBet(Table& t, int p, int row, currency amount) {
    t.BetsOnTable[At(p)] -= t.BetAmount(p, row);
    SetBetAmount(t, p, row, {});
    PlaceBet(t, p, row, std::max(amount, currency{}));
}

void SetStack(Table& t, int p, int row, currency amount) {
    if (t.HyperDriveActive && -StackLimit <= amount && amount <= StackLimit) {
        SetBetAmount(t, p, row, amount);
        return;
    }
    SetBetAmount(t, p, row, {});
    PlaceBet(t, p, row, amount);
}

void MaxOutBet(Table& t, int p, int row) {
    if (!IsOffered(t, row)) return;
    CheckBetRules(t, p, row, -t.BetAmount(p, row), Speak::Silent);
    CheckBetRules(t, p, row, BankrollLimit, Speak::Silent);
    if (Redraws(t)) t.Front->RedrawBet(p, row);
}

void MaxAllOdds(Table& t, int p) {
    if (t.Point != 0 && t.BetAmount(p, Row::PassLine) > currency{}) MaxOutBet(t, p, Row::PassLineOdds);
    for (int row = Row::Come4Odds; row <= Row::Come10Odds; ++row) {
        if (t.BetAmount(p, FlatRowOf(row)) > currency{}) MaxOutBet(t, p, row);
    }
}

void MaxAllDontOdds(Table& t, int p) {
    if (t.Point != 0 && t.BetAmount(p, Row::DontPass) > currency{}) MaxOutBet(t, p, Row::DontPassOdds);
    for (int row = Row::DontCome4Odds; row <= Row::DontCome10Odds; ++row) {
        if (t.BetAmount(p, FlatRowOf(row)) > currency{}) MaxOutBet(t, p, row);
    }
}

void BuyPlaceBet(Table& t, int p, int row) {
    if (!IsPlace(row)) {
        if (MayNotify(t, 1))
            ShowNote(t, "Action not allowed", "You may only buy Place bets.", MsgButton::OkStopHideRefusals);
        return;
    }
    const currency amount = t.BetAmount(p, row);
    if (IsZero(amount)) return;
    const int buyRow = row + 6;
    const int state = BetWorking(t, p, row);
    RemoveBet(t, p, row);
    PlaceBet(t, p, buyRow, amount);
    if ((state == 2 || state == -1) && t.BetAmount(p, buyRow) > currency{}) SetBetWorking(t, p, buyRow, state);
}

bool CallBet(Table& t, int p, int row, bool on, bool fromScript) {
    if (!IsLayoutRow(row) || t.BetAmount(p, row) <= currency{}) return false;
    if (!CanBeCalled(row)) {
        if (MayNotify(t, 1)) {
            ShowNote(t, "Action not allowed", "You may not call the " + std::string(BetName(row)) + " bet ON or OFF.",
                     MsgButton::OkStopHideRefusals);
        }
        return false;
    }
    const int state = BetWorking(t, p, row);
    const int called = on ? 2 : -1;
    const int opposite = on ? -1 : 2;
    if (!fromScript && state == opposite) {
        ResetBetWorking(t, p, row);
    } else {
        SetBetWorking(t, p, row, called);
    }
    t.GameChanged = true;
    if (Redraws(t)) t.Front->RedrawBet(p, row);
    return true;
}

void MoveContractBet(Table& t, int p, int fromRow, int toRow) {
    const currency amount = t.BetAmount(p, fromRow);
    if (amount <= currency{}) return;
    // A move is no request: the money is on the felt already, and no limit of the table may destroy any of it.
    SetBetAmount(t, p, fromRow, currency{});
    t.EstablishedBet(p, fromRow) = currency{};
    const currency before = t.BetAmount(p, toRow);
    SetBetAmount(t, p, toRow, before + amount);
    if (IsZero(before)) ResetBetWorking(t, p, toRow);
    t.EstablishedBet(p, toRow) = before + amount;
    if (Redraws(t)) {
        t.Front->RedrawBet(p, fromRow);
        t.Front->RedrawBet(p, toRow);
    }
    if (IsComeNumber(toRow)) {
        t.ComeFlatNow[At(p)][At(toRow - Row::Come4)] = amount;
        if (t.AutoDownPlaceBets[At(p)]) {
            RemoveBet(t, p, toRow + 12);
            RemoveBet(t, p, toRow + 18);
        }
    }
    if (t.EventsLogOn) LogContractMove(t, p, fromRow, toRow);
}

void RedrawAllBets(Table& t) {
    if (!Redraws(t)) return;
    for (int row = 1; row <= Row::LastStack; ++row) {
        if (Row::LastBet < row && row < Row::FirstStack) continue;
        for (int p = 1; p < Positions; ++p) t.Front->RedrawBet(p, row);
    }
}

void ResetBetWorking(Table& t, int p, int row) {
    if (row > Row::LastBet) return;
    SetBetWorking(t, p, row, t.Point == 0 ? t.ComeOutWorking(p, row) : 1);
}

currency MinimumBet(const Table& t, int row) { return row < Row::Hard4 ? t.MinPlacardBet : t.MinPlacardPropBet; }

namespace {

int OverlaidState(const Table& t, int p, int row) {
    const int cell = t.WorkingCells(p, row);
    if (cell == 2 || cell == -1 || t.WorkingOverlay == 0) return cell;
    return t.WorkingOverlay == 1 ? t.ComeOutWorking(p, row) : 1;
}

/// Writes into the cells what the last change of the point made of uncalled bets.
void SettleWorkingCells(Table& t) {
    if (t.WorkingOverlay == 0) return;
    for (int row = 1; row <= Row::LastBet; ++row) {
        for (int p = 1; p < Positions; ++p) t.WorkingCells(p, row) = static_cast<std::int8_t>(OverlaidState(t, p, row));
    }
    t.WorkingOverlay = 0;
}

}  // namespace

int BetWorking(const Table& t, int p, int row) {
    return IsLayoutRow(row) && p > 0 ? OverlaidState(t, p, row) : t.WorkingCells(p, row);
}

void SetBetWorking(Table& t, int p, int row, int state) {
    const bool called = state == 2 || state == -1;
    if (called) t.SeatsCalled = static_cast<SeatMask>(t.SeatsCalled | (1u << p));
    if (!called && t.WorkingOverlay != 0) {
        // Under the overlay an uncalled bet has the state of the point; any other one needs the cells themselves.
        // So has one made while the point is moving, before long: once the bets of the roll are settled.
        t.WorkingCells(p, row) = static_cast<std::int8_t>(state);
        if (t.PointMoving || OverlaidState(t, p, row) == state) return;
        SettleWorkingCells(t);
    }
    t.WorkingCells(p, row) = static_cast<std::int8_t>(state);
}

PerBet<std::int8_t, 101> AllBetWorking(const Table& t) {
    PerBet<std::int8_t, 101> states = t.WorkingCells;
    for (int row = 1; row <= Row::LastBet; ++row) {
        for (int p = 1; p < Positions; ++p) states(p, row) = static_cast<std::int8_t>(OverlaidState(t, p, row));
    }
    return states;
}

void SetComeOutWorking(Table& t, int p, int row, bool works) {
    SettleWorkingCells(t);
    t.ComeOutWorking(p, row) = works ? 1 : 0;
    t.GameChanged = true;
}

void ApplyPointWorking(Table& t) { t.WorkingOverlay = t.Point == 0 ? 1 : 2; }

currency BetsOnTableOf(const Table& t, int p) {
    currency sum;
    for (int row = 1; row <= Row::LastBet; ++row) sum += t.BetAmount(p, row);
    for (std::size_t i = 0; i < 6; ++i) {
        if (t.BuyVigOnAllBets) sum += t.BuyVigCharged[At(p)][i];
        if (t.LayVigOnAllBets) sum += t.LayVigCharged[At(p)][i];
    }
    return sum;
}

void RecomputeVigs(Table& t) {
    for (int p = 1; p < Positions; ++p) {
        for (int i = 0; i < 6; ++i) {
            t.BuyVigCharged[At(p)][At(i)] = BuyVig(t, Row::Buy4 + i, t.BetAmount(p, Row::Buy4 + i));
            t.LayVigCharged[At(p)][At(i)] = LayVig(t, Row::Lay4 + i, t.BetAmount(p, Row::Lay4 + i));
        }
        t.BetsOnTable[At(p)] = BetsOnTableOf(t, p);
        TouchSeat(t, p);
    }
}

}  // namespace tarnwick
