// The roll cycle. One call rolls once, or with a run on until the run stops. The order of the steps is the rule of the
// table: requirements, log, snapshot, dice, counters, line, bets (losers, bets of every roll, winners, moves), hand,
// scripts; then the wait for the next roll.
#include "table/rolldice.h"

#include <algorithm>
#include <bit>
#include <exception>
#include <string>

#include "autoplay/autoplay.h"
#include "dice/dice.h"
#include "dice/dicefile.h"
#include "stats/accumulators.h"
#include "stats/bankrollgraph.h"
#include "stats/eventslog.h"
#include "table/bankroll.h"
#include "table/format.h"
#include "table/marks.h"
#include "table/messages.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/resolution.h"
#include "table/rundriver.h"
#include "table/screen.h"
#include "table/settlement.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

// Sounds of the stick person beside the numbers 2..12.
constexpr int PassSound = 13, MissSound = 14, BarSound = 15, HardSound = 16, ComeOutSound = 17, NewHandSound = 18;

void PlayStickCall(Table& t, int n) {
    if (t.HyperDriveActive || t.Front == nullptr || t.StickPersonIndex <= 0 || t.DisableAllSound) return;
    t.Front->PlaySound(SoundKind::StickCall, n);
}

// --- the checks of each roll ---

struct Refusal {
    std::string Title, Text, Reason;
};

constexpr std::string_view RequirementNote =
    "\n\nNote: This requirement can be changed on the 'Bets tab' of the configuration screen.";

/// Shows a refused roll, or gives its words to the stop reason, and ends a run.
void Refuse(Table& t, const Refusal& refusal) {
    if (t.HyperDriveActive) {
        t.StopReason = refusal.Reason;
    } else {
        ShowNote(t, refusal.Title, refusal.Text, MsgButton::OkStop);
    }
    if (t.AutoRollActive) StopAutoRoll(t);
}

void RefuseWithoutPlayers(Table& t) {
    Refuse(t, {"Bet Required",
               "No players are available to bet.\n\nPlease enter a player or change the requirement to make a bet on "
               "the 'Bets tab' of the configuration screen.",
               "No players are available to bet."});
}

void RefuseWithoutLineBet(Table& t) {
    std::string text = "A line bet is required to shoot.\n\n" + t.PlayerName[At(t.Shooter)];
    if (t.PlayerCount == 1) {
        text += " must make a Pass Line bet or a Don't Pass bet.";
    } else if (t.Point == 0) {
        text += " must make a Pass Line bet, a Don't Pass bet, or pass the dice.";
    } else {
        text += " must make a Pass Line bet or pass the dice.";
    }
    Refuse(t, {"Line Bet Required", text + std::string(RequirementNote), "Shooter has no line bet."});
}

void RefuseWithoutBet(Table& t) {
    const std::string text = "A bet is required to shoot.\n\n" + t.PlayerName[At(t.Shooter)] +
                             " must make any bet or pass the dice." + std::string(RequirementNote);
    Refuse(t, {"Any Bet Required", text, "Shooter has no bet."});
}

void RefuseBeyondMaxRolls(Table& t) {
    const std::string rolls = FormatCommas(Dollars(MaxSessionRolls));
    const std::string hint = "\n\nSelect \"New\" from the \"Game\" menu to reset the table.";
    Refuse(t,
           {"Reached Maximum Roll Limit", "Sorry ... the maximum limit of " + rolls + " rolls has been reached." + hint,
            "Stopped due to reaching the maximum limit of " + rolls + " rolls." + hint});
}

bool HasAnyBet(const Table& t, int p) {
    constexpr std::uint64_t layoutBits = (std::uint64_t{1} << (Row::LastBet - 63)) - 1;
    const RowMask& rows = t.RowsOf[At(p)];
    return (rows[0] | (rows[1] & layoutBits)) != 0;
}

bool MeetsRequirement(Table& t) {
    if (t.ShooterBetRequirement <= 0) return true;
    if (t.PlayerCount == 0) {
        RefuseWithoutPlayers(t);
        return false;
    }
    if (t.Shooter == 0) PassTheDice(t, PassMode::PlayerLeft);
    if (t.ShooterBetRequirement == 1 && !HasLineBet(t, t.Shooter)) {
        RefuseWithoutLineBet(t);
        return false;
    }
    if (t.ShooterBetRequirement == 2 && !HasAnyBet(t, t.Shooter)) {
        RefuseWithoutBet(t);
        return false;
    }
    return true;
}

/// Whether the next roll can be had, before anything of the roll is counted. A file that ended or holds no dice ends
/// the run.
bool SourceReady(Table& t, DiceSource& source, bool& fileEnded) {
    source = t.PadRollPending ? DiceSource::Pad : t.DiceFileMode == 2 ? DiceSource::File : DiceSource::Generator;
    if (source != DiceSource::File) return true;
    switch (PeekFileRoll(t)) {
        case FileRoll::Ready:
            return true;
        case FileRoll::AtEnd:
            t.StopReason = "Stopped due to end of Dice Roll File reached.";
            fileEnded = true;
            break;
        case FileRoll::OutOfLimits:
            RefuseFileRoll(t);
            break;
        case FileRoll::Failed:
            break;
    }
    if (t.AutoRollActive) StopAutoRoll(t);
    return false;
}

// --- snapshot ---

void UpdateRails(Table& t) {
    for (unsigned seats = t.SeatsChangedSinceRoll; seats != 0; seats &= seats - 1) {
        const std::size_t p = At(std::countr_zero(seats));
        t.RailAmount[p] = t.Bankroll[p] - t.BetsOnTable[p];
    }
}

void SnapshotRows(Table& t, int p) {
    RowMask& changed = t.ChangedSinceRoll[At(p)];
    for (int word = 0; word < 4; ++word) {
        for (std::uint64_t bits = changed[At(word)]; bits != 0; bits &= bits - 1) {
            const int row = 64 * word + std::countr_zero(bits);
            const currency amount = t.BetAmount(p, row);
            t.PrevBetAmount(p, row) = amount;
            if (row > Row::LastBet) continue;
            t.EstablishedBet(p, row) = amount;
            t.PrevBetStreak(p, row) = t.BetStreak(p, row);
        }
    }
    changed = {};
}

/// What stands now is established. Only what was touched since the last roll can differ.
void Snapshot(Table& t) {
    for (unsigned seats = t.SeatsChangedSinceRoll; seats != 0; seats &= seats - 1) {
        const int p = std::countr_zero(seats);
        SnapshotRows(t, p);
        t.BankrollAtRollStart[At(p)] = t.Bankroll[At(p)];
    }
    t.SeatsChangedSinceRoll = 0;
    t.PrevPrevPoint = t.PrevPoint;
    t.PrevPoint = t.Point;
}

/// What stands when the roll has ended. Returns a position whose bankroll is beyond the limit, or 0.
int RememberAfterRoll(Table& t) {
    int beyond = 0;
    for (unsigned seats = t.SeatsChangedSinceEnd; seats != 0; seats &= seats - 1) {
        const int p = std::countr_zero(seats);
        t.PrevBankroll[At(p)] = t.Bankroll[At(p)];
        if (beyond == 0 && Abs(t.Bankroll[At(p)]) > BankrollLimit) beyond = p;
        RowMask& changed = t.ChangedSinceEnd[At(p)];
        for (int word = 0; word < 4; ++word) {
            for (std::uint64_t bits = changed[At(word)]; bits != 0; bits &= bits - 1) {
                const int row = 64 * word + std::countr_zero(bits);
                t.BetAfterRoll(p, row) = t.BetAmount(p, row);
            }
        }
        changed = {};
    }
    t.SeatsChangedSinceEnd = 0;
    return beyond;
}

// --- the dice ---

void ThrowDice(Table& t, DiceSource source) {
    if (source == DiceSource::Generator) {
        DrawDice(t);
    } else if (source == DiceSource::File) {
        NextFileRoll(t);
    } else {
        t.PadRollPending = false;
        t.Die1 = t.PadDie1;
        t.Die2 = t.PadDie2;
    }
    t.DiceTotal = t.Die1 + t.Die2;
    if (t.EventsLogOn && t.RecordRolls) LogRoll(t, source);
    if (t.DiceFileMode == 1) RecordRoll(t);
    if (t.HyperDriveActive || t.Front == nullptr) return;
    t.Front->DrawDiceThrow();
    PlayStickCall(t, t.DiceTotal);
    if (t.Die1 == t.Die2 && t.DiceTotal != 2 && t.DiceTotal != 12) PlayStickCall(t, HardSound);
}

void MarkSpecials(Table& t) {
    if (!t.UseSpecialPropBets) return;
    const int mark = 1 << t.DiceTotal;
    const bool makeAll = AnyBetOn(t, Row::MakeAll);
    if (!makeAll && !AnyBetOn(t, Row::AllSmall)) {
        t.MarkedNumbers &= ~SmallMarks;
    } else if (t.DiceTotal < 7) {
        t.MarkedNumbers |= mark;
    }
    if (!makeAll && !AnyBetOn(t, Row::AllTall)) {
        t.MarkedNumbers &= ~TallMarks;
    } else if (t.DiceTotal > 7) {
        t.MarkedNumbers |= mark;
    }
    t.FourRollsCount = t.DiceTotal == 7 || !AnyBetOn(t, Row::FourRollsNo7) ? 0 : t.FourRollsCount + 1;
}

// --- the line ---

void Decide(Table& t, bool pass, int sound, std::string_view words) {
    if (pass) {
        TallyPass(t);
    } else {
        TallyMiss(t);
    }
    PlayStickCall(t, sound);
    LogDecision(t, words);
}

void DecideComeOut(Table& t) {
    const int total = t.DiceTotal;
    if (IsPointNumber(total)) {
        TallyComeout(t);
        t.Point = total;
        LogDecision(t, "Point established");
        return;
    }
    if (total == 7 || total == 11) {
        Decide(t, true, PassSound, "Pass (natural)");
    } else {
        Decide(t, false, total == t.BarDont ? BarSound : MissSound, "Miss (craps natural)");
    }
    TallyComeout(t);
}

void DecideLine(Table& t) {
    if (t.Point == 0) return DecideComeOut(t);
    if (t.DiceTotal == t.Point) {
        Decide(t, true, PassSound, "Pass (point rolled)");
    } else if (t.DiceTotal == 7) {
        Decide(t, false, MissSound, "Miss (seven-out)");
    } else {
        return;
    }
    t.LastPoint = t.Point;
    t.Point = 0;
}

// --- resolving the bets ---

bool Holds(const Table& t, When when) {
    switch (when) {
        case When::Always:
            return true;
        case When::Bar12:
            return t.BarDont == 12;
        case When::Bar2:
            return t.BarDont == 2;
        case When::Specials:
            return t.UseSpecialPropBets;
        case When::SpecialsEarly:
            return t.UseSpecialPropBets && t.PrevPrevPoint == 0;
        case When::FireLoses:
            return t.FirePayoff[At(t.PointsMadeCount)].Pays < currency{};
        case When::FireWins:
            return t.FirePayoff[At(t.PointsMadeCount)].Pays > currency{};
    }
    return false;
}

void SettleWithOdds(Table& t, const Step& step) {
    const unsigned seats = t.SeatsOn[step.Bet] | t.SeatsOn[step.With];
    for (int i = 1; i < Positions; ++i) {
        const int p = PayOrder[At(i)];
        if ((seats >> p & 1u) == 0) continue;
        SettleSeat(t, p, step.Outcome, step.Bet);
        SettleSeat(t, p, 2 * step.Outcome, step.With);
    }
}

void MoveBoxes(Table& t, const Step& step) {
    for (int p = 1; p < Positions; ++p) MoveContractBet(t, p, step.Bet, step.With);
}

void MarkPointMade(Table& t) {
    t.PointsMadeMask |= 1 << PointIndex(t.PrevPoint);
    t.PointsMadeCount = std::popcount(static_cast<unsigned>(t.PointsMadeMask));
}

void RunStep(Table& t, const Step& step) {
    if (!Holds(t, step.If)) return;
    switch (step.Do) {
        case Act::Settle:
            // The rules of a paying Fire bet see a table where no hand has begun, so that it may stay for the next.
            t.FireHandReset = step.If == When::FireWins;
            if (step.With != 0) {
                SettleWithOdds(t, step);
            } else {
                SettleRow(t, step.Outcome, step.Bet);
            }
            t.FireHandReset = false;
            return;
        case Act::Move:
            return MoveBoxes(t, step);
        case Act::ClearMarks:
            t.MarkedNumbers = 0;
            return;
        case Act::MarkPointMade:
            return MarkPointMade(t);
        case Act::ClearPointsMade:
            t.PointsMadeMask = t.PointsMadeCount = 0;
            return;
    }
}

void SetStep(std::array<std::uint64_t, 2>& due, int step) { due[At(step / 64)] |= std::uint64_t{1} << (step % 64); }

/// Runs the steps of this roll whose rows have a bet, in their order.
void ResolveBets(Table& t) {
    const LineState state = LineStateOf(t.PrevPoint, t.DiceTotal);
    const RollHead& head = RollHeadFor(state, t.Die1, t.Die2);
    if (!head.HasActs && ((t.RowsUp[0] & head.Rows[0]) | (t.RowsUp[1] & head.Rows[1])) == 0) return;
    const RollList& list = RollListFor(state, t.Die1, t.Die2);
    std::array<std::uint64_t, 2> due = list.Acts;
    for (int word = 0; word < 2; ++word) {
        for (std::uint64_t rows = t.RowsUp[At(word)] & list.Rows[At(word)]; rows != 0; rows &= rows - 1) {
            SetStep(due, list.StepOf[At(64 * word + std::countr_zero(rows))] - 1);
        }
    }
    if (list.FireWinStep >= 0 && AnyBetOn(t, Row::Fire)) SetStep(due, list.FireWinStep);
    for (int word = 0; word < 2; ++word) {
        for (std::uint64_t steps = due[At(word)]; steps != 0; steps &= steps - 1) {
            RunStep(t, list.Steps[At(64 * word + std::countr_zero(steps))]);
        }
    }
}

/// The specials that a run of numbers decides. Whether marks are wiped is seen before the bets that need them settle.
void ResolveMarks(Table& t) {
    if (!t.UseSpecialPropBets || (t.MarkedNumbers | t.FourRollsCount) == 0) return;
    if ((t.MarkedNumbers & AllMarks) == AllMarks) {
        t.MarkedNumbers = 0;
        for (const int row : {Row::AllSmall, Row::AllTall, Row::MakeAll}) SettleRow(t, 1, row);
    } else {
        if ((t.MarkedNumbers & SmallMarks) == SmallMarks) {
            if (!AnyBetOn(t, Row::MakeAll)) t.MarkedNumbers &= ~SmallMarks;
            SettleRow(t, 1, Row::AllSmall);
        }
        if ((t.MarkedNumbers & TallMarks) == TallMarks) {
            if (!AnyBetOn(t, Row::MakeAll)) t.MarkedNumbers &= ~TallMarks;
            SettleRow(t, 1, Row::AllTall);
        }
    }
    if (t.FourRollsCount == 4) {
        t.FourRollsCount = 0;
        SettleRow(t, 1, Row::FourRollsNo7);
    }
}

// --- after the bets ---

void EndHand(Table& t) {
    EndHandRollover(t);
    t.LastHandShooter = t.HandShooter;
    if (t.Shooter == t.HandShooter) {
        PassTheDice(t, PassMode::SevenOut);
    } else {
        t.HandShooter = t.Shooter;
    }
}

void FollowPoint(Table& t) {
    t.PointMoving = false;
    if (t.Point == t.PrevPoint) return;
    ApplyPointWorking(t);
    if (t.Point == 0) return;
    SetOddsRowsForPoint(t);
    ApplyNewPointOrders(t);
}

void RunScripts(Table& t) {
    if (t.EventsLogOn) RememberWorkingForLog(t);
    if (t.Scripts == nullptr) return;
    t.Scripts->RunAll(t);
    t.PrevScriptOn = t.ScriptOn;
}

/// One roll. False when it was refused or a bankroll broke its limit, so that no other may follow.
bool RollOnce(Table& t, bool& fileEnded) {
    if (!MeetsRequirement(t)) return false;
    if (SessionRolls(t) >= MaxSessionRolls) {
        RefuseBeyondMaxRolls(t);
        return false;
    }
    DiceSource source{};
    if (!SourceReady(t, source, fileEnded)) return false;
    UpdateRails(t);
    if (t.EventsLogOn) LogChangesSinceRoll(t);
    Snapshot(t);
    ThrowDice(t, source);
    TallyRoll(t);
    MarkSpecials(t);
    DecideLine(t);
    t.PointMoving = t.Point != t.PrevPoint;
    if (t.EventsLogOn) BeginLogBlock(t);
    ResolveBets(t);
    ResolveMarks(t);
    TallyBankrolls(t);
    const bool sevenOut = t.DiceTotal == 7 && t.PrevPoint > 0;
    if (sevenOut) EndHand(t);
    FollowPoint(t);
    if (t.EventsLogOn) {
        LogBankrollResults(t);
        if (sevenOut) LogNextShooter(t);
    }
    AddGraphPoint(t);
    RunScripts(t);
    const int beyond = RememberAfterRoll(t);
    if (t.Front != nullptr && !t.HyperDriveActive) t.Front->RefreshOpenWindows();
    if (beyond != 0) BankrollLimitStop(t, beyond);
    return beyond == 0;
}

// --- between two rolls ---

/// Serves the user every few milliseconds of an unattended run, whatever a roll costs.
class Pump {
  public:
    /// False when it was too early.
    bool Serve(Table& t) {
        if (--Left > 0 || t.Front == nullptr) return false;
        if (t.Logs != nullptr) t.Logs->Serve(t);
        t.Front->RefreshOpenWindows();
        t.Front->PumpEvents();
        const std::uint32_t now = t.Front->Milliseconds();
        const std::uint32_t passed = now - Last;
        if (passed < 4 && Interval < MaxInterval) Interval *= 2;
        if (passed > 12 && Interval > 1) Interval /= 2;
        Last = now;
        Left = Interval;
        return true;
    }

  private:
    static constexpr int MaxInterval = 4096;  // a front end whose clock stands still is served all the same
    int Interval = 64;
    int Left = 1;
    std::uint32_t Last = 0;
};

/// Waits until `milliseconds` have passed or `goOn` fails; the user is served at least once.
template <class GoOn>
void WaitWhile(Table& t, std::int64_t milliseconds, GoOn goOn) {
    if (t.Front == nullptr) return;
    if (t.Logs != nullptr) t.Logs->Serve(t);
    const std::uint32_t start = t.Front->Milliseconds();
    t.Front->PumpEvents();
    while (goOn()) {
        const std::int64_t passed = t.Front->Milliseconds() - start;
        if (passed >= milliseconds) return;
        t.Front->WaitEvents(static_cast<int>(std::min<std::int64_t>(milliseconds - passed, 20)));
    }
}

/// Puts the rolls recorded so far into the file, so that a crash of the program loses few; a fault of it ends the run.
bool KeepRecordedRolls(Table& t) {
    if (t.DiceFileMode != 1 || FlushDiceFile(t)) return true;
    if (t.AutoRollActive) StopAutoRoll(t);
    return false;
}

bool GoalReached(const Table& t) { return t.RunUntilRoll > 0 && SessionRolls(t) >= t.RunUntilRoll; }

/// False when the run ends here.
bool GoesOnInAutoRoll(Table& t) {
    if (!KeepRecordedRolls(t)) return false;
    if (t.Front != nullptr) t.Front->RedrawTable();
    if (!t.AutoRollActive) return false;
    if (AutoStopDue(t)) {
        StopAutoRoll(t);
        ShowNote(t, "Auto-Roll Stopped", "Stopped by Auto-Stop");
        return false;
    }
    if (GoalReached(t)) {
        StopAutoRoll(t);
        return false;
    }
    const std::int64_t delay = t.AutoRollDelay.TenThousandths / 10;  // seconds to milliseconds
    WaitWhile(t, delay, [&] { return t.AutoRollActive && !t.HyperDriveActive; });
    if (!t.AutoRollActive) return false;
    PlayComeOutCall(t);
    return true;
}

bool GoesOnInHyperDrive(Table& t, Pump& pump) {
    if (pump.Serve(t) && !KeepRecordedRolls(t)) return false;
    if (!t.AutoRollActive) return false;
    if (!t.HyperDriveActive) return GoesOnInAutoRoll(t);
    const bool autoStop = AutoStopDue(t);
    if (autoStop && t.StopReason.empty()) t.StopReason = "Stopped by Auto-Stop.";
    if (autoStop || GoalReached(t)) {
        StopAutoRoll(t);
        return false;
    }
    if (t.HyperThrottle > 0) {
        const int throttle = t.HyperThrottle;
        WaitWhile(t, std::int64_t{10} * throttle * throttle,
                  [&] { return t.HyperDriveActive && t.HyperThrottle == throttle; });
    }
    return t.AutoRollActive;
}

/// Either mode may have become the other while the user was served.
bool RunGoesOn(Table& t, Pump& pump) {
    if (t.AutoRollActive && t.HyperDriveActive) return GoesOnInHyperDrive(t, pump);
    return GoesOnInAutoRoll(t);
}

/// Leaves the table free, whatever ended the call: a fault must not block every later roll.
class RollGuard {
  public:
    explicit RollGuard(Table& table) : T(table) { T.RollInProgress = true; }
    ~RollGuard() {
        T.RollInProgress = false;
        T.PadRollPending = false;
        T.FireHandReset = T.PointMoving = false;
    }
    RollGuard(const RollGuard&) = delete;
    RollGuard& operator=(const RollGuard&) = delete;

  private:
    Table& T;
};

bool ReadyToRoll(Table& t) {
    CorrectMissingGenerator(t);
    if (t.Front != nullptr) t.Front->CommitAmountBox();
    if (const int p = BankrollBeyondLimit(t); p != 0) {
        BankrollLimitStop(t, p);
        return false;
    }
    if (t.Scripts != nullptr && !t.Scripts->CompileAll(t)) {
        if (t.AutoRollActive) StopAutoRoll(t);
        return false;
    }
    t.GameChanged = true;
    t.StopReason.clear();
    return true;
}

void FinishCall(Table& t, bool fileEnded) {
    if (t.DiceFileMode == 1) FlushDiceFile(t);
    if (fileEnded) RewindQuestion(t);
    t.StopReason.clear();
    PlayComeOutCall(t);
}

void RollUntilStopped(Table& t) {
    if (!ReadyToRoll(t)) return;
    Pump pump;
    bool fileEnded = false;
    while (RollOnce(t, fileEnded) && RunGoesOn(t, pump)) {
    }
    FinishCall(t, fileEnded);
}

}  // namespace

void SetOddsRowsForPoint(Table& t) {
    if (t.Point == 0) return;
    const int n = PointIndex(t.Point);
    t.Payoff[Row::DontPassOdds] = t.Payoff[At(Row::DontCome4Odds + n)];
    t.Payoff[Row::PassLineOdds] = t.Payoff[At(Row::Come4Odds + n)];
}

void PlayComeOutCall(Table& t) {
    if (t.Point != 0 || (t.PlayerCount == 0 && t.ShooterBetRequirement > 0)) return;
    if (HandRolls(t) == 0) PlayStickCall(t, NewHandSound);
    PlayStickCall(t, ComeOutSound);
}

void RollDice(Table& t) {
    if (t.RollInProgress) return;
    RollGuard guard(t);
    try {
        RollUntilStopped(t);
    } catch (const std::exception&) {
        constexpr int internalError = 51;
        ReportFault(t, internalError, "RollDice");
        StopAutoRoll(t);
    }
}

void PadRoll(Table& t, int die1, int die2) {
    if (t.RollInProgress || die1 < 1 || die1 > 6 || die2 < 1 || die2 > 6) return;
    t.PadDie1 = die1;
    t.PadDie2 = die2;
    t.PadRollPending = true;
    RollDice(t);
}

}  // namespace tarnwick
