#include "display/tableactions.h"

#include "display/felt/hotspotmap.h"
#include "table/messages.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/rundriver.h"
#include "table/screen.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

constexpr int FirstSlotRow = 101;
constexpr int LastSlotRow = 104;

void Refresh(Table& t) {
    if (t.Front == nullptr || t.HyperDriveActive) return;
    t.Front->RedrawTable();
    t.Front->RefreshOpenWindows();
}

}  // namespace

int RowOfHotSpot(const Table& t, int value) {
    if (1 <= value && value <= Row::LastBet) return value;
    if (value < FirstSlotRow || value > LastSlotRow || !IsSeated(t, t.ActivePlayer)) return 0;
    return t.VisibleStack[At(t.ActivePlayer)][At(value - 100)];
}

const char* TableActions::PendingText() const {
    switch (Pending) {
        case PendingAction::CallOn:
            return "Click the bet to call ON";
        case PendingAction::CallOff:
            return "Click the bet to call OFF";
        case PendingAction::Buy:
            return "Click the bet to buy";
        case PendingAction::Remove:
            return "Click the bet to remove";
        case PendingAction::MovePlayer:
            return "Click the rail where ";
        case PendingAction::Bet:
            break;
    }
    return "";
}

bool TableActions::HasBettor() const {
    if (T.PlayerCount == 0) {
        ShowNote(T, "No Players Present",
                 "If you'd like to make a bet, please click an\nopen position on the rail to add a player.");
        return false;
    }
    if (!IsSeated(T, T.ActivePlayer)) {
        ShowNote(T, "Bettor Not Selected", "If you'd like to make a bet, please select a player.");
        return false;
    }
    return true;
}

void TableActions::SelectRail(int p) {
    if (!IsSeated(T, p)) {
        if (AskAddPlayer(T, p)) T.ActivePlayer = p;
    } else {
        T.ActivePlayer = p;
    }
    Refresh(T);
}

void TableActions::FinishMove(int p) {
    const int from = MovingPlayer;
    MovingPlayer = 0;
    Pending = PendingAction::Bet;
    if (p != from && IsSeated(T, from)) MovePlayer(T, from, p);
    Refresh(T);
}

bool TableActions::ApplyPending(int row) {
    const PendingAction action = Pending;
    if (action == PendingAction::Bet || action == PendingAction::MovePlayer) return false;
    Pending = PendingAction::Bet;
    if (!HasBettor()) return true;
    const int p = T.ActivePlayer;
    if (action == PendingAction::Buy) {
        BuyPlaceBet(T, p, row);
    } else if (action == PendingAction::Remove) {
        RemoveBet(T, p, row);
    } else {
        CallBet(T, p, row, action == PendingAction::CallOn);
    }
    Refresh(T);
    return true;
}

int TableActions::PressLeft(int value, bool keyIn) {
    if (GuardCommand(T)) return 0;
    if (Pending == PendingAction::MovePlayer) {
        if (IsRail(value)) FinishMove(RailPosition(value));
        return 0;
    }
    if (IsRail(value)) {
        const int p = RailPosition(value), item = RailItem(value);
        SelectRail(p);
        if (1 <= item && item <= 5) T.SelectedCheck = item;
        return 0;
    }
    const int row = RowOfHotSpot(T, value);
    if (row == 0) {
        if (value != HotSpot::None) HasBettor();
        return 0;
    }
    if (ApplyPending(row) || !HasBettor()) return 0;
    if (keyIn) return row;
    AddCheck(row, false);
    return 0;
}

bool TableActions::PressRight(int value) {
    if (IsRail(value)) return false;
    const int row = RowOfHotSpot(T, value);
    if (row == 0) return false;
    if (!GuardCommand(T) && HasBettor()) AddCheck(row, true);
    return true;
}

void TableActions::AddCheck(int row, bool off) {
    if (!HasBettor()) return;
    const int p = T.ActivePlayer;
    if (off) row = RowToLower(T, row);
    const currency check = T.CheckDenominations[At(T.SelectedCheck)];
    PlaceBet(T, p, row, off ? -check : check);
    if (!off && PressedAt && !T.AutoArrangeChips && IsLayoutRow(row)) {
        T.BetSpotX[At(p)][At(row)] = static_cast<float>(PressedAt->first);
        T.BetSpotY[At(p)][At(row)] = static_cast<float>(PressedAt->second);
    }
    T.GameChanged = true;
    if (T.Front != nullptr) T.Front->RefreshOpenWindows();
}

void TableActions::ForgetPlace(int p, int row) {
    if (!IsLayoutRow(row) || !IsZero(T.BetAmount(p, row))) return;
    T.BetSpotX[At(p)][At(row)] = T.BetSpotY[At(p)][At(row)] = 0;
}

void TableActions::SetAmount(int row, currency amount) {
    if (!IsSeated(T, T.ActivePlayer) || row == 0) return;
    const int p = T.ActivePlayer;
    if (amount == T.BetAmount(p, row)) return;
    if (row <= Row::LastBet) {
        SetBet(T, p, row, amount);
    } else {
        SetStack(T, p, row, amount);
    }
    T.GameChanged = true;
    if (T.Front != nullptr) T.Front->RefreshOpenWindows();
}

}  // namespace tarnwick
