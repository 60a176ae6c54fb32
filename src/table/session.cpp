#include "table/session.h"

#include <algorithm>
#include <memory>

#include "config/configure.h"
#include "config/payoffs.h"
#include "dice/dice.h"
#include "dice/dicefile.h"
#include "stats/accumulators.h"
#include "stats/bankrollgraph.h"
#include "stats/eventslog.h"
#include "table/format.h"
#include "table/messages.h"
#include "table/placement.h"
#include "table/screen.h"
#include "table/settlement.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

void LoseContractBets(Table& t) {
    if (t.ReturnAbandonedBets) return;
    BeginLogBlock(t);
    const auto lose = [&](int first, int second) {
        for (int i = 1; i < Positions; ++i) {
            SettleAbandoned(t, PayOrder[At(i)], first);
            if (second != 0) SettleAbandoned(t, PayOrder[At(i)], second);
        }
    };
    if (t.Point != 0) lose(Row::PassLine, Row::SevenPoint7);
    for (int row = Row::Come4; row <= Row::Come10; ++row) lose(row, 0);
}

void ReportEndedSessions(Table& t) {
    if (SessionRolls(t) == 0) return;
    for (int p = 1; p < Positions; ++p) {
        if (IsSeated(t, p) && t.Logs != nullptr) t.Logs->SessionEnded(t, p);
        if (IsSeated(t, p) && t.Front != nullptr) t.Front->SessionEnded(p);
    }
}

void EraseSessionsLogs(Table& t) {
    for (int p = 1; p < Positions; ++p) {
        if (IsSeated(t, p) && t.Logs != nullptr) t.Logs->EraseSessionsLog(t, p);
    }
}

void RestartEventsLog(Table& t) {
    t.EventsLogStarted = false;
    t.EventsLogTopLine = 1;
    if (t.Logs != nullptr) t.Logs->ClearEventsLog(t);
}

void RollOverStatistics(Table& t, bool keepData) {
    if (!keepData) {
        EraseStatistics(t);
        t.BetStreak = t.PrevBetStreak = {};
        return;
    }
    if (HandRolls(t) > 0) EndHandRollover(t);
    RolloverSession(t);
}

void ClearMarks(Table& t) {
    t.HandComeouts = t.HandPasses = t.HandMisses = 0;
    t.MarkedNumbers = t.FourRollsCount = t.PointsMadeMask = t.PointsMadeCount = 0;
    t.Point = t.PrevPoint = t.PrevPrevPoint = t.LastPoint = 0;
    t.FireHandReset = false;
    t.PadRollPending = false;
}

void TakeAllBetsDown(Table& t, bool keepStacks) {
    const int lastRow = keepStacks ? Row::LastBet : Row::LastRow;
    for (int p = 1; p < Positions; ++p) {
        for (int row = 1; row <= lastRow; ++row) {
            if (!IsZero(t.BetAmount(p, row))) SetBetAmount(t, p, row, currency{});
        }
        t.BuyVigCharged[At(p)] = t.LayVigCharged[At(p)] = t.ComeFlatNow[At(p)] = {};
        t.BetsOnTable[At(p)] = currency{};
    }
    t.EstablishedBet = {};
    t.WorkingCells = t.ComeOutWorking;
    t.WorkingOverlay = 0;
}

/// Rule 1 asks; whoever gives no amount carries the bankroll forward.
currency AskedBankroll(Table& t, int p, currency carried) {
    const std::string question = "Enter " + t.PlayerName[At(p)] + "'s beginning bankroll:";
    const std::string offered = PlainAmount(std::clamp(carried, -BankrollLimit, BankrollLimit));
    for (;;) {
        const Message message{"Beginning Bankroll", question, MsgButton::InputQuestion, 400, offered, {}};
        const Answer answer = ShowMessage(t, message);
        if (answer.Result != MsgAnswer::Ok) return carried;
        const auto amount = ParseAmount(answer.Input);
        if (amount && Abs(*amount) <= BankrollLimit) return *amount;
    }
}

currency StartingBankroll(Table& t, int p, currency carried, bool ask) {
    if (t.BankrollStartRule[At(p)] == 2) return carried;
    const bool asks = t.BankrollStartRule[At(p)] == 1 && ask && !t.HyperDriveActive;
    return asks ? AskedBankroll(t, p, carried) : t.BankrollStartAmount[At(p)];
}

/// What the next roll's change lines compare with: nothing was done by anybody yet.
void RememberStart(Table& t) {
    for (int p = 1; p < Positions; ++p) {
        for (int row = 1; row <= Row::LastRow; ++row) {
            t.PrevBetAmount(p, row) = t.BetAfterRoll(p, row) = t.BetAmount(p, row);
        }
        t.PrevBankroll[At(p)] = t.BankrollAtRollStart[At(p)] = t.Bankroll[At(p)];
        t.PrevScriptOn[At(p)] = t.ScriptOn[At(p)];
        TouchSeat(t, p);
    }
    t.PrevBetWorking = AllBetWorking(t);
    t.SeatsCalled = 0;  // no bet stands
}

void TreatDiceFile(Table& t, SessionOptions::DiceFile option) {
    if (t.DiceRollFileName.empty()) return;
    if (option == SessionOptions::DiceFile::Drop) {
        CloseDiceRollFile(t);
    } else if (option == SessionOptions::DiceFile::Rewind) {
        SetDiceFileMode(t, 2);
        t.DiceFileNextRecord = t.DiceFilePosition = 1;
    }
}

void SeedAllGenerators(Table& t) {
    for (const int index : {2, 4, 3, 0, 1}) {
        t.RngIndex = index;
        SeedRNG(t, SeedMode::Normal, false);
    }
}

/// The scripts leave the table as if their players did.
void DropScripts(Table& t) {
    for (int p = 1; p < Positions; ++p) {
        if (t.Scripts != nullptr) t.Scripts->SwapPositions(t, p, 0);
        t.ScriptOn[At(p)] = false;
        t.ScriptName[At(p)].clear();
    }
}

}  // namespace

void SubMain(Table& t, Screen* front) {
    t = *std::make_unique<Table>();  // too big for a stack that holds other tables
    t.Front = front;
    t.PlayerName[0] = "House";
    SetDefaultSettings(t);
    RestoreDefaultPayoffs(t);
    ResetProbabilityMatrix(t);
    for (int p = 0; p < Positions; ++p) t.VisibleStack[At(p)] = {0, 101, 102, 103, 104};
    t.WorkingCells = t.ComeOutWorking;
    RestartBankrollGraph(t);
    SeedAllGenerators(t);
    t.GameChanged = false;
}

void NewSession(Table& t, const SessionOptions& options) {
    LoseContractBets(t);
    ReportEndedSessions(t);
    if (!options.KeepLogs) EraseSessionsLogs(t);
    const auto finalBankrolls = t.Bankroll;
    RollOverStatistics(t, options.KeepData);
    if (!options.KeepScripts) DropScripts(t);
    ClearMarks(t);
    TakeAllBetsDown(t, options.KeepCheckStacks);
    for (int p = 1; p < Positions; ++p) {
        if (IsSeated(t, p)) SetBeginningBankroll(t, p, StartingBankroll(t, p, finalBankrolls[At(p)], options.Ask));
    }
    t.HandShooter = t.Shooter;
    RestartBankrollGraph(t);
    RememberStart(t);
    if (t.ClearLogOnNewSession) RestartEventsLog(t);
    LogSessionStart(t, t.Logs != nullptr ? t.Logs->EventsLogExists(t) : t.EventsLogStarted);
    if (t.ReSeedNewSessions) SeedRNG(t, SeedMode::Normal, options.Ask && !t.HyperDriveActive);
    TreatDiceFile(t, options.File);
    t.GameChanged = true;
    RedrawAllBets(t);
    if (t.Front == nullptr || t.HyperDriveActive) return;
    t.Front->RedrawTable();
    t.Front->RefreshOpenWindows();
}

}  // namespace tarnwick
