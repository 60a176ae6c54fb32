#include "stats/eventslog.h"

#include "stats/accumulators.h"
#include "table/format.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/screen.h"

namespace tarnwick {

namespace {

constexpr std::string_view ScriptsHeading = "    AutoBets:";
constexpr std::string_view BankrollHeading = "    Bankroll:";
constexpr std::string_view BetsHeading = "    Bets:";
constexpr std::string_view StacksHeading = "    CheckStacks:";
constexpr std::string_view NewHandLine = "----New hand, come-out roll----------";

std::size_t At(int p) { return static_cast<std::size_t>(p); }

std::string Money(currency amount) { return "$" + PlainAmount(amount); }

/// A detail line of player p, up to the blank behind the name.
std::string LineOf(const Table& t, int p) { return "      " + t.PlayerName[At(p)] + " "; }

std::string ComingOut(std::string_view kind, const std::string& name) {
    return "----" + std::string(kind) + " shooter (" + name + ") coming out----------";
}

void OpenBlock(Table& t, std::string_view heading) {
    if (t.EventsLogHeading == heading) return;
    t.EventsLogHeading = heading;
    LogEvent(t, heading);
}

std::string ScriptActivated(const Table& t, int p) {
    const std::string& file = t.ScriptName[At(p)];
    return LineOf(t, p) + (file.empty() ? "activated untitled auto-bets" : "activated (" + file + ")");
}

void LogScriptChanges(Table& t) {
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p) || t.ScriptOn[At(p)] == t.PrevScriptOn[At(p)]) continue;
        LogUnderHeading(t, ScriptsHeading,
                        t.ScriptOn[At(p)] ? ScriptActivated(t, p) : LineOf(t, p) + "deactivated auto-bets");
    }
}

/// A line for each bankroll that differs from `before`, with the kind of rise and fall.
void LogBankrollsSince(Table& t, const std::array<currency, Positions>& before, std::string_view rise,
                       std::string_view fall) {
    if (!t.RecordBankrollChanges) return;
    for (int p = 1; p < Positions; ++p) {
        const currency now = t.Bankroll[At(p)];
        const currency difference = now - before[At(p)];
        if (!IsSeated(t, p) || IsZero(difference)) continue;
        const bool rose = difference > currency{};
        LogUnderHeading(t, BankrollHeading,
                        LineOf(t, p) + (rose ? "increased to " : "decreased to ") + Money(now) + " (" +
                            Money(Abs(difference)) + " " + std::string(rose ? rise : fall) + ")");
    }
}

/// What the last roll moved from a box to number row 7..12 or 19..24; 0 for every other row.
currency MovedByLastRoll(const Table& t, int p, int row) {
    if (!IsPointNumber(t.DiceTotal)) return {};
    const int index = PointIndex(t.DiceTotal);
    if (row == Row::Come4 + index) return t.PrevBetAmount(p, Row::Come);
    if (row == Row::DontCome4 + index) return t.PrevBetAmount(p, Row::DontCome);
    return {};
}

/// What stood when the last roll began, as far as it stayed where it was. A box that moved is empty and its number,
/// whose own bet that roll decided, holds what came, without the player having done either.
currency AmountBeforeChanges(const Table& t, int p, int row) {
    if ((row == Row::Come || row == Row::DontCome) && IsPointNumber(t.DiceTotal)) return {};
    const currency moved = MovedByLastRoll(t, p, row);
    return IsZero(moved) ? t.PrevBetAmount(p, row) : moved;
}

bool ResolvedInLastRoll(const Table& t, int p, int row) {
    const std::int32_t rolls = SessionRolls(t);
    return rolls > 0 && BetStatWagers(t, p + Positions * Scope::Session, row, 5) == Dollars(rolls);
}

void LogAmountChange(Table& t, int p, int row, currency before) {
    const currency now = t.BetAmount(p, row);
    if (now == before) return;
    const std::string name(BetName(row));
    std::string line = LineOf(t, p);
    if (IsZero(now)) {
        if (ResolvedInLastRoll(t, p, row) && IsZero(MovedByLastRoll(t, p, row))) return;
        line += "removed " + Money(before) + " bet on " + name;
    } else if (IsZero(before)) {
        line += "bet " + Money(now) + " on " + name;
    } else {
        line += (now < before ? "decreased " : "increased ") + name + " to " + Money(now);
    }
    LogUnderHeading(t, BetsHeading, line);
}

void LogWorkingChange(Table& t, int p, int row, bool stoodBefore) {
    if (IsZero(t.BetAmount(p, row))) return;
    constexpr int on = 2, off = -1;
    const auto called = [](int state) { return state == on || state == off; };
    const int now = BetWorking(t, p, row);
    // A call that was left behind by an earlier bet on the row is none of this one's.
    const int before = stoodBefore ? t.PrevBetWorking(p, row) : 1;
    if (now == before || (!called(now) && !called(before))) return;
    const std::string bet = std::string(BetName(row)) + " bet";
    const std::string line = LineOf(t, p) + "called ";
    LogUnderHeading(t, BetsHeading,
                    now == on    ? line + "ON " + bet
                    : now == off ? line + "OFF " + bet
                                 : line + bet + " working normally again");
}

void LogBetChanges(Table& t) {
    if (!t.RecordBetChanges) return;
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p)) continue;
        for (int row = 1; row <= Row::LastBet; ++row) {
            const currency before = AmountBeforeChanges(t, p, row);
            LogAmountChange(t, p, row, before);
            LogWorkingChange(t, p, row, !IsZero(before));
        }
    }
}

void LogStackChanges(Table& t) {
    if (!t.RecordCheckStackChanges) return;
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p)) continue;
        for (int row = Row::FirstStack; row <= Row::LastStack; ++row) {
            const currency now = t.BetAmount(p, row), before = t.PrevBetAmount(p, row);
            if (now == before) continue;
            LogUnderHeading(
                t, StacksHeading,
                LineOf(t, p) + (now > before ? "increased " : "decreased ") + BetTitle(row) + " to " + Money(now));
        }
    }
}

/// "    Ann" with what follows the name.
std::string Narrated(const Table& t, int p, const std::string& rest) { return "    " + t.PlayerName[At(p)] + rest; }

}  // namespace

void LogEvent(Table& t, std::string_view line) {
    t.EventsLogStarted = true;
    if (t.Logs != nullptr) t.Logs->LogLine(t, line);
    if (t.Front != nullptr) t.Front->EventLogged(line);
}

void LogUnderHeading(Table& t, std::string_view heading, std::string_view line) {
    OpenBlock(t, heading);
    LogEvent(t, line);
}

void LogChangesSinceRoll(Table& t) {
    if (!t.EventsLogOn) return;
    BeginLogBlock(t);
    LogScriptChanges(t);
    LogBankrollsSince(t, t.PrevBankroll, "ATM withdrawal", "ATM deposit");
    LogBetChanges(t);
    LogStackChanges(t);
}

void LogRoll(Table& t, std::string_view source) {
    if (!t.EventsLogOn || !t.RecordRolls) return;
    LogEvent(t, " Roll #" + std::to_string(SessionRolls(t) + 1) + ":  " + std::to_string(t.Die1 + t.Die2) + " (" +
                    std::to_string(t.Die1) + "." + std::to_string(t.Die2) + ")" + std::string(source));
}

void LogDecision(Table& t, std::string_view decision) {
    if (t.EventsLogOn && t.RecordPassesMisses) LogEvent(t, "    " + std::string(decision));
}

void LogBetResult(Table& t, int p, int row, currency net) {
    if (!t.EventsLogOn || !(t.RecordBetsWon || t.RecordBetsLost)) return;
    OpenBlock(t, !t.RecordBetsLost ? "    Wins:" : !t.RecordBetsWon ? "    Losses:" : "    Wins/losses:");
    const bool won = net > currency{};
    if (IsZero(net) || !(won ? t.RecordBetsWon : t.RecordBetsLost)) return;
    LogEvent(t, LineOf(t, p) + (won ? "won " : "lost ") + Money(Abs(net)) + " on " + std::string(BetName(row)));
}

void LogContractMove(Table& t, int p, int fromRow, int toRow) {
    if (!t.EventsLogOn) return;
    LogEvent(t, Narrated(t, p, "'s " + std::string(BetName(fromRow)) + " bet moved to " + std::string(BetName(toRow))));
}

void LogBankrollResults(Table& t) {
    if (!t.EventsLogOn) return;
    BeginLogBlock(t);
    LogBankrollsSince(t, t.BankrollAtRollStart, "gain", "loss");
}

void LogNextShooter(Table& t) {
    if (!t.EventsLogOn || !t.RecordShooterChanges) return;
    if (t.Shooter == 0) {
        LogEvent(t, NewHandLine);
    } else {
        LogEvent(t, ComingOut(t.Shooter == t.LastHandShooter ? "Same" : "New", t.PlayerName[At(t.Shooter)]));
    }
}

void RememberWorkingForLog(Table& t) { t.PrevBetWorking = AllBetWorking(t); }

void RememberForLog(Table& t) {
    t.PrevScriptOn = t.ScriptOn;
    for (int p = 1; p < Positions; ++p) t.PrevBankroll[At(p)] = t.Bankroll[At(p)];
}

void SetEventsLogOn(Table& t, bool on) {
    if (on && !t.EventsLogOn) {
        RememberWorkingForLog(t);
        RememberForLog(t);
    }
    t.EventsLogOn = on;
}

void LogSessionStart(Table& t, bool fileExists) {
    if (!t.EventsLogOn) return;
    BeginLogBlock(t);
    if (fileExists) LogEvent(t, "============================================");
    const std::string date = t.Front != nullptr ? t.Front->DateText() : std::string{};
    const std::string time = t.Front != nullptr ? t.Front->TimeText() : std::string{};
    LogEvent(t, " New session started " + date + " @ " + time);
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p)) continue;
        const currency begin = t.BankrollBegin[At(p + Positions * Scope::Session)];
        LogUnderHeading(t, "    Players:", LineOf(t, p) + "at stick " + StickName(p) + " with " + Money(begin));
    }
    if (t.DiceFileMode == 2) LogEvent(t, "    Dice roll file playback active (" + t.DiceRollFileName + ")");
    for (int p = 1; p < Positions; ++p) {
        if (IsSeated(t, p) && t.ScriptOn[At(p)]) LogUnderHeading(t, ScriptsHeading, ScriptActivated(t, p));
    }
    if (t.Shooter == 0) {
        LogEvent(t, NewHandLine);
    } else if (t.RecordShooterChanges) {
        LogEvent(t, ComingOut("New", t.PlayerName[At(t.Shooter)]));
    }
}

void LogJoined(Table& t, int p, currency buyIn) {
    if (!t.EventsLogOn) return;
    LogEvent(t, Narrated(t, p, " joined the game at stick " + StickName(p) + " with " + Money(buyIn)));
}

void LogMovedSeat(Table& t, int p, int to) {
    if (t.EventsLogOn) LogEvent(t, Narrated(t, p, " moved to stick " + StickName(to)));
}

void LogRenamed(Table& t, std::string_view oldName, std::string_view newName) {
    if (!t.EventsLogOn) return;
    LogEvent(t, "    " + std::string(oldName) + "'s name changed to " + std::string(newName));
}

void LogDicePassed(Table& t, int p) {
    if (!t.EventsLogOn || !t.RecordShooterChanges) return;
    LogEvent(t, "    The dice were passed to " + t.PlayerName[At(p)]);
}

void LogCashOut(Table& t, int p, currency abandoned) {
    if (!t.EventsLogOn) return;
    const currency taken = t.Bankroll[At(p)] - abandoned;
    const currency net = taken - t.BankrollInvested[At(p)];
    std::string line = " cashed out with " + Money(taken);
    if (net > currency{}) {
        line += "(net win: " + Money(net) + ")";
    } else if (net < currency{}) {
        line += "(net loss: " + Money(-net);
        // Without anything abandoned the parenthesis stays open, as logs have always had it.
        if (!IsZero(abandoned)) line += " includes " + Money(abandoned) + " abandoned)";
    }
    LogEvent(t, Narrated(t, p, line));
}

void LogSeeded(Table& t, std::int64_t seed) {
    if (!t.EventsLogOn) return;
    LogEvent(t, "    RNG #" + std::to_string(t.RngIndex + 1) + " seeded: " + std::to_string(seed));
}

void LogPlayback(Table& t) {
    if (t.EventsLogOn) LogEvent(t, "    Dice roll file playback activated (" + t.DiceRollFileName + ")");
}

}  // namespace tarnwick
