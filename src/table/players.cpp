#include "table/players.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "autoplay/autoplay.h"
#include "stats/accumulators.h"
#include "stats/eventslog.h"
#include "stats/sessionslog.h"
#include "table/format.h"
#include "table/messages.h"
#include "table/placement.h"
#include "table/rolldice.h"
#include "table/screen.h"
#include "table/settlement.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

/// Bets, marks and named stacks of p to those of an empty position.
void ClearBets(Table& t, int p) {
    for (int row = 1; row <= Row::LastRow; ++row) {
        if (!IsZero(t.BetAmount(p, row))) SetBetAmount(t, p, row, currency{});
        t.PrevBetAmount(p, row) = t.BetAfterRoll(p, row) = currency{};
    }
    for (int row = 0; row < 100; ++row) t.EstablishedBet(p, row) = currency{};
    for (int row = 0; row <= 100; ++row) t.BetStreak(p, row) = t.PrevBetStreak(p, row) = 0;
    for (int row = 1; row <= Row::LastBet; ++row) ResetBetWorking(t, p, row);
    t.BuyVigCharged[At(p)] = t.LayVigCharged[At(p)] = t.ComeFlatNow[At(p)] = {};
    t.BetsOnTable[At(p)] = currency{};
    t.CheckStackName[At(p)] = {};
    t.VisibleStack[At(p)] = {0, 101, 102, 103, 104};
}

void ClearSettings(Table& t, int p) {
    ResetStandingOrders(t, p);
    t.BankrollStartRule[At(p)] = 0;
    t.BankrollStartAmount[At(p)] = currency{};
    t.AllowNegativeBankroll[At(p)] = false;
    t.AtmAmount[At(p)] = Dollars(500);
    t.AllowActProb[At(p)] = t.AllowAct4Others[At(p)] = t.AllowReset[At(p)] = false;
}

/// Calls `act` with each selection of players that a window shows.
template <class Act>
void ForEachSelection(Table& t, Act act) {
    for (auto* players : {&t.RollTotalsPlayers, &t.BetResultsPlayers, &t.HandsPlayers, &t.SummaryPlayers})
        act(*players);
}

}  // namespace

void ClearPosition(Table& t, int p) {
    ClearBets(t, p);
    ClearSettings(t, p);
    ClearPositionStatistics(t, p);
    t.RailAmount[At(p)] = t.PrevBankroll[At(p)] = t.BankrollAtRollStart[At(p)] = currency{};
    TouchSeat(t, p);
    t.ScriptOn[At(p)] = t.PrevScriptOn[At(p)] = false;
    t.ScriptName[At(p)].clear();
    t.SessionsLogName[At(p)].clear();
    t.PlayerName[At(p)].clear();
    t.ScriptOutputFile[At(p)].clear();
    ForEachSelection(t, [p](std::int32_t& players) { players &= ~(1 << p); });
    t.AutoPlayPlayers &= ~(1 << p);
    if (t.Scripts != nullptr) t.Scripts->SwapPositions(t, p, 0);
}

namespace {

bool LeavesPassLine(const Table& t, int p) { return t.Point != 0 && !IsZero(t.BetAmount(p, Row::PassLine)); }

void SettleAbandonedBets(Table& t, int p) {
    if (LeavesPassLine(t, p)) SettleAbandoned(t, p, Row::PassLine);
    for (int row = Row::Come4; row <= Row::Come10; ++row) SettleAbandoned(t, p, row);
}

/// A hand in progress is no longer credited to a player who left.
void LeaveShooting(Table& t, int p) {
    if (t.HandShooter == p) {
        SettleHandShooter(t);
        t.HandShooter = 0;
    }
    if (t.LastHandShooter == p) t.LastHandShooter = 0;
    if (t.Shooter == p) PassTheDice(t, PassMode::PlayerLeft);
}

int FirstPlayer(const Table& t) {
    for (int p = 1; p < Positions; ++p) {
        if (IsSeated(t, p)) return p;
    }
    return 0;
}

template <class Array>
void SwapIn(Array& values, int p, int q) {
    std::swap(values[At(p)], values[At(q)]);
}

template <class T, int Rows>
void SwapRows(PerBet<T, Rows>& cells, int p, int q) {
    for (int row = 0; row < Rows; ++row) std::swap(cells(p, row), cells(q, row));
}

void SwapBets(Table& t, int p, int q) {
    for (int row = 1; row <= Row::LastRow; ++row) {
        const currency mine = t.BetAmount(p, row), theirs = t.BetAmount(q, row);
        if (mine == theirs) continue;
        SetBetAmount(t, p, row, theirs);
        SetBetAmount(t, q, row, mine);
    }
    std::swap(t.ChangedSinceRoll[At(p)], t.ChangedSinceRoll[At(q)]);
    std::swap(t.ChangedSinceEnd[At(p)], t.ChangedSinceEnd[At(q)]);
    for (const int seat : {p, q}) {  // both are looked at anyway
        for (int row = 1; row <= Row::LastRow; ++row) TouchBet(t, seat, row);
    }
    SwapRows(t.PrevBetAmount, p, q);
    SwapRows(t.BetAfterRoll, p, q);
    SwapRows(t.EstablishedBet, p, q);
    SwapRows(t.WorkingCells, p, q);
    SwapRows(t.PrevBetWorking, p, q);
    if (((t.SeatsCalled >> p ^ t.SeatsCalled >> q) & 1) != 0) t.SeatsCalled ^= static_cast<SeatMask>(1u << p | 1u << q);
    SwapRows(t.ComeOutWorking, p, q);
    SwapRows(t.BetStreak, p, q);
    SwapRows(t.PrevBetStreak, p, q);
    SwapIn(t.BuyVigCharged, p, q);
    SwapIn(t.LayVigCharged, p, q);
    SwapIn(t.ComeFlatNow, p, q);
    SwapIn(t.BetsOnTable, p, q);
    SwapIn(t.CheckStackName, p, q);
    SwapIn(t.VisibleStack, p, q);
}

void SwapSettings(Table& t, int p, int q) {
    for (auto* flags :
         {&t.AutoTakeFullOdds, &t.AutoLayFullOdds, &t.AutoDownPlaceBets, &t.AutoPassDice, &t.AllowNegativeBankroll,
          &t.AllowActProb, &t.AllowAct4Others, &t.AllowReset, &t.ScriptOn, &t.PrevScriptOn}) {
        SwapIn(*flags, p, q);
    }
    for (auto* numbers : {&t.AutoAdjustMode, &t.LayBias, &t.PlaceBias, &t.DoBias, &t.DontBias, &t.WinnerHandling,
                          &t.LoserHandling, &t.BankrollStartRule}) {
        SwapIn(*numbers, p, q);
    }
    for (auto* amounts :
         {&t.BankrollStartAmount, &t.AtmAmount, &t.RailAmount, &t.PrevBankroll, &t.BankrollAtRollStart}) {
        SwapIn(*amounts, p, q);
    }
    SwapIn(t.HandleOperator, p, q);
    SwapIn(t.HandleAmount, p, q);
    SwapIn(t.HandleUnit, p, q);
    for (auto* texts : {&t.PlayerName, &t.SessionsLogName, &t.ScriptName, &t.ScriptOutputFile}) SwapIn(*texts, p, q);
    const auto swapBits = [p, q](std::int32_t& players) {
        const std::int32_t differ = ((players >> p) ^ (players >> q)) & 1;
        players ^= differ << p | differ << q;
    };
    ForEachSelection(t, swapBits);
    swapBits(t.AutoPlayPlayers);
}

void Follow(std::int32_t& position, int p, int q) { position = position == p ? q : position == q ? p : position; }

void Redraw(Table& t) {
    if (t.Front == nullptr || t.HyperDriveActive) return;
    t.Front->RedrawTable();
    t.Front->RefreshOpenWindows();
}

std::string StillHas(const Table& t, int p) {
    const currency total = AbandonedBets(t, p);
    if (IsZero(total)) return {};
    int comeBets = 0;
    for (int row = Row::Come4; row <= Row::Come10; ++row) comeBets += IsZero(t.BetAmount(p, row)) ? 0 : 1;
    std::string text = "\n\n" + t.PlayerName[At(p)] + " still has ";
    if (LeavesPassLine(t, p)) text += comeBets > 0 ? "an active Pass Line bet and " : "an active Pass Line bet ";
    if (comeBets == 1) text += "an active Come bet ";
    if (comeBets > 1) text += std::to_string(comeBets) + " active Come bets ";
    return text + "that can't be removed and will be abandoned.\nTotal to be abandoned: $" + FormatCommas(total);
}

/// Asks for a name until it can be taken; empty when the user gave up.
std::string AskName(Table& t, const std::string& title, const std::string& question, int exceptPosition) {
    for (;;) {
        const Answer answer = ShowMessage(t, {title, question, MsgButton::InputQuestion, 400, {}, {}});
        const std::string name(Trim(answer.Input));
        if (answer.Result != MsgAnswer::Ok || name.empty()) return {};
        const std::string refusal = NameRefusal(t, name, exceptPosition);
        if (refusal.empty()) return name;
        ShowNote(t, title, refusal, MsgButton::OkStop);
    }
}

std::string BuyInRefusal(currency buyIn) {
    if (buyIn < -BankrollLimit) return "The minimum player bankroll is -$" + FormatCommas(BankrollLimit);
    if (buyIn > BankrollLimit) return "The maximum player bankroll is $" + FormatCommas(BankrollLimit);
    return {};
}

bool AllDigits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789.+-") == std::string_view::npos &&
           text.find_first_of("0123456789") != std::string_view::npos;
}

}  // namespace

std::string StickName(int p) { return p < 5 ? std::to_string(5 - p) + "-left" : std::to_string(p - 4) + "-right"; }

std::string NameRefusal(const Table& t, const std::string& name, int exceptPosition) {
    for (int p = 1; p < Positions; ++p) {
        if (p != exceptPosition && IsSeated(t, p) && LowerCase(t.PlayerName[At(p)]) == LowerCase(name)) {
            return "A player named " + name + " is already at the table.\n\nPlease enter a different name.";
        }
    }
    if (t.Scripts != nullptr) return t.Scripts->NameRefusal(t, name, exceptPosition);
    if (!AllDigits(Trim(name))) return {};
    return "Unfortunately, a player's name can't be all numeric because it would cause confusion in auto-betting.\n\n"
           "Please enter a different name.";
}

std::string AddPlayer(Table& t, int p, const std::string& givenName, currency buyIn) {
    const std::string name(Trim(givenName));
    if (p < 1 || p >= Positions) return "There is no such position.";
    if (IsSeated(t, p)) return "That position is taken.";
    if (name.empty()) return "A player needs a name.";
    if (std::string refusal = NameRefusal(t, name, 0); !refusal.empty()) return refusal;
    if (std::string refusal = BuyInRefusal(buyIn); !refusal.empty()) return refusal;
    ClearPosition(t, p);
    t.PlayerName[At(p)] = name;
    t.SessionsLogName[At(p)] = DefaultSessionsLogName(name);
    SetBeginningBankroll(t, p, buyIn);
    t.BankrollStartAmount[At(p)] = buyIn;
    t.PrevBankroll[At(p)] = t.BankrollAtRollStart[At(p)] = buyIn;
    TouchSeat(t, p);
    ++t.PlayerCount;
    ForEachSelection(t, [p](std::int32_t& players) { players |= 1 << p; });  // a window shows everybody at first
    if (t.Shooter == 0) {
        t.Shooter = p;
        if (HandRolls(t) == 0) t.HandShooter = p;
    }
    if (t.ActivePlayer == 0) t.ActivePlayer = p;
    t.GameChanged = true;
    LogJoined(t, p, buyIn);
    Redraw(t);
    return {};
}

bool AskAddPlayer(Table& t, int p) {
    if (p < 1 || p >= Positions || IsSeated(t, p)) return false;
    if (!AskYesNo(t, "Add New Player?", "Would you like to add a player here?")) return false;
    const std::string name = AskName(t, "Add New Player", "What's the new player's name?", 0);
    if (name.empty()) return false;
    for (;;) {
        const std::string question = "How much would " + name + " like to buy-in for?";
        const Answer answer = ShowMessage(t, {"Bankroll", question, MsgButton::InputQuestion, 400, {}, {}});
        if (answer.Result != MsgAnswer::Ok || Trim(answer.Input).empty()) return false;
        const auto amount = ParseAmount(answer.Input);
        if (!amount) continue;
        const std::string refusal = BuyInRefusal(*amount);
        if (refusal.empty()) return AddPlayer(t, p, name, *amount).empty();
        ShowNote(t, "Bankroll", refusal, MsgButton::OkStop);
    }
}

std::string RenamePlayer(Table& t, int p, const std::string& givenName) {
    const std::string name(Trim(givenName));
    if (p < 1 || p >= Positions || !IsSeated(t, p)) return "There is no player at that position.";
    if (name.empty()) return "A player needs a name.";
    if (std::string refusal = NameRefusal(t, name, p); !refusal.empty()) return refusal;
    const std::string old = t.PlayerName[At(p)];
    t.PlayerName[At(p)] = name;
    if (t.Scripts != nullptr) t.Scripts->NameChanged(t);
    t.GameChanged = true;
    LogRenamed(t, old, t.PlayerName[At(p)]);
    Redraw(t);
    return {};
}

bool AskRenamePlayer(Table& t, int p) {
    const std::string old = t.PlayerName[At(p)];
    const std::string name = AskName(t, "Rename Player", "Enter a new name for " + old, p);
    return !name.empty() && RenamePlayer(t, p, name).empty();
}

currency AbandonedBets(const Table& t, int p) {
    if (t.ReturnAbandonedBets) return {};
    currency sum = t.Point != 0 ? t.BetAmount(p, Row::PassLine) : currency{};
    for (int row = Row::Come4; row <= Row::Come10; ++row) sum += t.BetAmount(p, row);
    return sum;
}

void RemovePlayer(Table& t, int p) {
    if (!IsSeated(t, p)) return;
    const currency abandoned = AbandonedBets(t, p);
    LogCashOut(t, p, abandoned);
    const bool logOn = std::exchange(t.EventsLogOn, false);  // the line above tells of the abandoned bets
    if (!IsZero(abandoned)) SettleAbandonedBets(t, p);
    t.EventsLogOn = logOn;
    if (t.Logs != nullptr && SessionRolls(t) > 0) t.Logs->SessionEnded(t, p);
    if (t.Front != nullptr && SessionRolls(t) > 0) t.Front->SessionEnded(p);
    if (t.HandShooter == p) SettleHandShooter(t);
    ClearPosition(t, p);
    --t.PlayerCount;
    LeaveShooting(t, p);
    if (t.ActivePlayer == p) t.ActivePlayer = FirstPlayer(t);
    t.GameChanged = true;
    RedrawAllBets(t);
    Redraw(t);
    PlayComeOutCall(t);
}

bool AskRemovePlayer(Table& t, int p) {
    if (!IsSeated(t, p)) {
        ShowNote(t, "Cash out?", "Please select a player to remove\nby clicking on the player's rail position.");
        return false;
    }
    const std::string question = "Would you like to remove " + t.PlayerName[At(p)] + "?" + StillHas(t, p);
    if (!AskYesNo(t, "Cash out?", question)) return false;
    RemovePlayer(t, p);
    return true;
}

void MovePlayer(Table& t, int from, int to) {
    if (from == to || from < 1 || to < 1 || from >= Positions || to >= Positions || !IsSeated(t, from)) return;
    SettleHandShooter(t);
    SwapBets(t, from, to);
    SwapSettings(t, from, to);
    SwapPositionStatistics(t, from, to);
    if (t.Scripts != nullptr) t.Scripts->SwapPositions(t, from, to);
    for (std::int32_t* position : {&t.Shooter, &t.HandShooter, &t.LastHandShooter, &t.ActivePlayer}) {
        Follow(*position, from, to);
    }
    t.GameChanged = true;
    LogMovedSeat(t, to, to);
    if (IsSeated(t, from)) LogMovedSeat(t, from, from);
    RedrawAllBets(t);
    Redraw(t);
}

bool HasLineBet(const Table& t, int p) {
    return !IsZero(t.BetAmount(p, Row::PassLine)) || !IsZero(t.BetAmount(p, Row::DontPass));
}

}  // namespace tarnwick
