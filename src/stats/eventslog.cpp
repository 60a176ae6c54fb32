#include "stats/eventslog.h"

#include <algorithm>
#include <bit>

#include "stats/accumulators.h"
#include "table/format.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/screen.h"
#include "table/textline.h"

namespace tarnwick {

using std::string_view_literals::operator""sv;

namespace {

constexpr std::string_view ScriptsHeading = "    AutoBets:";
constexpr std::string_view BankrollHeading = "    Bankroll:";
constexpr std::string_view BetsHeading = "    Bets:";
constexpr std::string_view StacksHeading = "    CheckStacks:";
constexpr std::string_view NewHandLine = "----New hand, come-out roll----------";

std::size_t At(int p) { return static_cast<std::size_t>(p); }

char Digit(int n) { return static_cast<char>('0' + n); }

/// A detail line of player p, up to the blank behind the name.
TextLine LineOf(const Table& t, int p) {
    TextLine line;
    line << "      " << t.PlayerName[At(p)] << " ";
    return line;
}

/// A line of its own about player p: "    Ann".
TextLine Narrated(const Table& t, int p) {
    TextLine line;
    line << "    " << t.PlayerName[At(p)];
    return line;
}

/// Calls `each` with the numbers of the bits, from low to high, the lowest bit being `first`.
template <class Each>
void ForBits(std::uint64_t bits, int first, const Each& each) {
    for (; bits != 0; bits &= bits - 1) each(first + std::countr_zero(bits));
}

/// Calls `each` with the positions 1..8 of the mask that are taken, from low to high.
template <class Each>
void ForSeats(const Table& t, unsigned seats, const Each& each) {
    ForBits(seats & ~1u, 0, [&](int p) {
        if (IsSeated(t, p)) each(p);
    });
}

void LogComingOut(Table& t, std::string_view kind, const std::string& name) {
    TextLine line;
    line << "----" << kind << " shooter (" << name << ") coming out----------";
    LogEvent(t, line.Text());
}

void OpenBlock(Table& t, std::string_view heading) {
    if (t.EventsLogHeading == heading) return;
    t.EventsLogHeading = heading;
    LogEvent(t, heading);
}

void LogScriptActivated(Table& t, int p) {
    const std::string& file = t.ScriptName[At(p)];
    TextLine line = LineOf(t, p);
    if (file.empty()) {
        line << "activated untitled auto-bets";
    } else {
        line << "activated (" << file << ")";
    }
    LogUnderHeading(t, ScriptsHeading, line.Text());
}

void LogScriptChanges(Table& t) {
    if (t.ScriptOn == t.PrevScriptOn) return;
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p) || t.ScriptOn[At(p)] == t.PrevScriptOn[At(p)]) continue;
        if (t.ScriptOn[At(p)]) {
            LogScriptActivated(t, p);
        } else {
            LogUnderHeading(t, ScriptsHeading, (LineOf(t, p) << "deactivated auto-bets").Text());
        }
    }
}

/// A line for each bankroll among `seats` that differs from `before`, with the kind of rise and fall.
void LogBankrollsSince(Table& t, unsigned seats, const std::array<currency, Positions>& before, std::string_view rise,
                       std::string_view fall) {
    if (!t.RecordBankrollChanges) return;
    ForSeats(t, seats, [&](int p) {
        const currency now = t.Bankroll[At(p)];
        const currency difference = now - before[At(p)];
        if (IsZero(difference)) return;
        const bool rose = difference > currency{};
        TextLine line = LineOf(t, p);
        line << (rose ? "increased to " : "decreased to ") << now << " (" << Abs(difference) << " "
             << (rose ? rise : fall) << ")";
        LogUnderHeading(t, BankrollHeading, line.Text());
    });
}

/// What the last roll moved from a box to number row 7..12 or 19..24; 0 for every other row.
currency MovedByLastRoll(const Table& t, int p, int row) {
    if (!IsPointNumber(t.DiceTotal)) return {};
    const int index = PointIndex(t.DiceTotal);
    if (row == Row::Come4 + index) return t.PrevBetAmount(p, Row::Come);
    if (row == Row::DontCome4 + index) return t.PrevBetAmount(p, Row::DontCome);
    return {};
}

/// Positions that ForRowsToCompare has rows for.
unsigned SeatsToCompare(const Table& t) {
    unsigned seats = t.SeatsChangedSinceRoll;
    const auto add = [&](int row) { seats |= t.SeatsOn[At(row)]; };
    ForBits(t.RowsUp[0], 0, add);
    ForBits(t.RowsUp[1], 64, add);
    return seats;
}

/// Calls `each` with the rows of p within 1..91, from low to high, whose amounts may differ from what stood before, or
/// whose working state may have been called.
template <class Each>
void ForRowsToCompare(const Table& t, int p, const Each& each) {
    constexpr std::uint64_t below64 = ~std::uint64_t{1};  // there is no row 0
    constexpr std::uint64_t from64 = (std::uint64_t{1} << (Row::LastBet + 1 - 64)) - 1;
    static_assert(Row::Come < 64 && Row::DontCome < 64 && Row::Come10 < 64 && Row::DontCome10 < 64);
    const RowMask& stand = t.RowsOf[At(p)];
    const RowMask& touched = t.ChangedSinceRoll[At(p)];
    std::uint64_t low = stand[0] | touched[0];
    if (IsPointNumber(t.DiceTotal)) {
        // A box that moved stood or was touched; then its number has another amount to be compared with.
        const int index = PointIndex(t.DiceTotal);
        low |= (low >> Row::Come & 1) << (Row::Come4 + index) | (low >> Row::DontCome & 1) << (Row::DontCome4 + index);
    }
    ForBits(low & below64, 0, each);
    ForBits((stand[1] | touched[1]) & from64, 64, each);
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
    if (IsZero(now) && ResolvedInLastRoll(t, p, row) && IsZero(MovedByLastRoll(t, p, row))) return;
    const std::string_view name = BetName(row);
    TextLine line = LineOf(t, p);
    if (IsZero(now)) {
        line << "removed " << before << " bet on " << name;
    } else if (IsZero(before)) {
        line << "bet " << now << " on " << name;
    } else {
        line << (now < before ? "decreased " : "increased ") << name << " to " << now;
    }
    LogUnderHeading(t, BetsHeading, line.Text());
}

constexpr int CalledOn = 2, CalledOff = -1;
bool IsCall(int state) { return state == CalledOn || state == CalledOff; }

void LogWorkingChange(Table& t, int p, int row, bool stoodBefore) {
    if (IsZero(t.BetAmount(p, row))) return;
    const int now = BetWorking(t, p, row);
    // A call that was left behind by an earlier bet on the row is none of this one's.
    const int before = stoodBefore ? t.PrevBetWorking(p, row) : 1;
    if (now == before || (!IsCall(now) && !IsCall(before))) return;
    TextLine line = LineOf(t, p);
    line << "called "
         << (now == CalledOn    ? "ON "sv
             : now == CalledOff ? "OFF "sv
                                : ""sv)
         << BetName(row) << " bet" << (IsCall(now) ? ""sv : " working normally again"sv);
    LogUnderHeading(t, BetsHeading, line.Text());
}

/// Whether neither amount nor working state of a row can differ, which is so of nearly every bet before nearly every
/// roll. Uncalled states follow the point and aren't told.
bool StoodUntouched(const Table& t, int p, int row) {
    const bool touched = (t.ChangedSinceRoll[At(p)][At(row >> 6)] >> (row & 63) & 1) != 0;
    if (touched || IsCall(t.WorkingCells(p, row)) || IsCall(t.PrevBetWorking(p, row))) return false;
    if (!IsPointNumber(t.DiceTotal)) return true;
    const int index = PointIndex(t.DiceTotal);
    return row != Row::Come && row != Row::DontCome && row != Row::Come4 + index && row != Row::DontCome4 + index;
}

void LogBetChanges(Table& t) {
    if (!t.RecordBetChanges) return;
    ForSeats(t, SeatsToCompare(t), [&](int p) {
        ForRowsToCompare(t, p, [&](int row) {
            if (StoodUntouched(t, p, row)) return;
            const currency before = AmountBeforeChanges(t, p, row);
            LogAmountChange(t, p, row, before);
            LogWorkingChange(t, p, row, !IsZero(before));
        });
    });
}

/// Calls `each` with the CheckStacks of p, 100..199, that were touched since the last roll, from low to high.
template <class Each>
void ForStacksTouched(const Table& t, int p, const Each& each) {
    static_assert(Row::FirstStack >= 64 && Row::LastStack < 256);
    constexpr std::uint64_t from100 = ~std::uint64_t{0} << (Row::FirstStack - 64);
    constexpr std::uint64_t to199 = (std::uint64_t{1} << (Row::LastStack + 1 - 192)) - 1;
    const RowMask& touched = t.ChangedSinceRoll[At(p)];
    ForBits(touched[1] & from100, 64, each);
    ForBits(touched[2], 128, each);
    ForBits(touched[3] & to199, 192, each);
}

void LogStackChanges(Table& t) {
    if (!t.RecordCheckStackChanges) return;
    ForSeats(t, t.SeatsChangedSinceRoll, [&](int p) {
        ForStacksTouched(t, p, [&](int row) {
            const currency now = t.BetAmount(p, row), before = t.PrevBetAmount(p, row);
            if (now == before) return;
            TextLine line = LineOf(t, p);
            line << (now > before ? "increased " : "decreased ") << BetTitle(row) << " to " << now;
            LogUnderHeading(t, StacksHeading, line.Text());
        });
    });
}

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
    LogBankrollsSince(t, t.SeatsChangedSinceEnd, t.PrevBankroll, "ATM withdrawal", "ATM deposit");
    LogBetChanges(t);
    LogStackChanges(t);
}

void LogRoll(Table& t, std::string_view source) {
    if (!t.EventsLogOn || !t.RecordRolls) return;
    const int total = t.Die1 + t.Die2;
    TextLine line;
    line << " Roll #" << std::int64_t{SessionRolls(t) + 1} << ":  ";
    if (total >= 10) line << '1';
    line << Digit(total % 10) << " (" << Digit(t.Die1) << "." << Digit(t.Die2) << ")" << source;
    LogEvent(t, line.Text());
}

void LogDecision(Table& t, std::string_view decision) {
    if (t.EventsLogOn && t.RecordPassesMisses) LogEvent(t, (TextLine() << "    " << decision).Text());
}

void LogBetResult(Table& t, int p, int row, currency net) {
    if (!t.EventsLogOn || !(t.RecordBetsWon || t.RecordBetsLost)) return;
    OpenBlock(t, !t.RecordBetsLost ? "    Wins:" : !t.RecordBetsWon ? "    Losses:" : "    Wins/losses:");
    const bool won = net > currency{};
    if (IsZero(net) || !(won ? t.RecordBetsWon : t.RecordBetsLost)) return;
    LogEvent(t, (LineOf(t, p) << (won ? "won "sv : "lost "sv) << Abs(net) << " on " << BetName(row)).Text());
}

void LogContractMove(Table& t, int p, int fromRow, int toRow) {
    if (!t.EventsLogOn) return;
    LogEvent(t, (Narrated(t, p) << "'s " << BetName(fromRow) << " bet moved to " << BetName(toRow)).Text());
}

void LogBankrollResults(Table& t) {
    if (!t.EventsLogOn) return;
    BeginLogBlock(t);
    LogBankrollsSince(t, t.SeatsChangedSinceRoll, t.BankrollAtRollStart, "gain", "loss");
}

void LogNextShooter(Table& t) {
    if (!t.EventsLogOn || !t.RecordShooterChanges) return;
    if (t.Shooter == 0) {
        LogEvent(t, NewHandLine);
    } else {
        LogComingOut(t, t.Shooter == t.LastHandShooter ? "Same" : "New", t.PlayerName[At(t.Shooter)]);
    }
}

void RememberWorkingForLog(Table& t) {
    ForSeats(t, SeatsToCompare(t), [&](int p) {
        ForRowsToCompare(t, p,
                         [&](int row) { t.PrevBetWorking(p, row) = static_cast<std::int8_t>(BetWorking(t, p, row)); });
    });
}

void RememberForLog(Table& t) {
    t.PrevScriptOn = t.ScriptOn;
    for (int p = 1; p < Positions; ++p) t.PrevBankroll[At(p)] = t.Bankroll[At(p)];
}

void SetEventsLogOn(Table& t, bool on) {
    if (on && !t.EventsLogOn) {
        t.PrevBetWorking = AllBetWorking(t);
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
    LogEvent(t, (TextLine() << " New session started " << date << " @ " << time).Text());
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p)) continue;
        const currency begin = t.BankrollBegin[At(p + Positions * Scope::Session)];
        LogUnderHeading(t, "    Players:", (LineOf(t, p) << "at stick " << StickName(p) << " with " << begin).Text());
    }
    if (t.DiceFileMode == 2) {
        LogEvent(t, (TextLine() << "    Dice roll file playback active (" << t.DiceRollFileName << ")").Text());
    }
    for (int p = 1; p < Positions; ++p) {
        if (IsSeated(t, p) && t.ScriptOn[At(p)]) LogScriptActivated(t, p);
    }
    if (t.Shooter == 0) {
        LogEvent(t, NewHandLine);
    } else if (t.RecordShooterChanges) {
        LogComingOut(t, "New", t.PlayerName[At(t.Shooter)]);
    }
}

void LogJoined(Table& t, int p, currency buyIn) {
    if (!t.EventsLogOn) return;
    LogEvent(t, (Narrated(t, p) << " joined the game at stick " << StickName(p) << " with " << buyIn).Text());
}

void LogMovedSeat(Table& t, int p, int to) {
    if (t.EventsLogOn) LogEvent(t, (Narrated(t, p) << " moved to stick " << StickName(to)).Text());
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
    TextLine line = Narrated(t, p);
    line << " cashed out with " << taken;
    if (net > currency{}) {
        line << "(net win: " << net << ")";
    } else if (net < currency{}) {
        line << "(net loss: " << -net;
        // Without anything abandoned the parenthesis stays open, as logs have always had it.
        if (!IsZero(abandoned)) line << " includes " << abandoned << " abandoned)";
    }
    LogEvent(t, line.Text());
}

void LogSeeded(Table& t, std::int64_t seed) {
    if (!t.EventsLogOn) return;
    LogEvent(t, "    RNG #" + std::to_string(t.RngIndex + 1) + " seeded: " + std::to_string(seed));
}

void LogPlayback(Table& t) {
    if (t.EventsLogOn) LogEvent(t, "    Dice roll file playback activated (" + t.DiceRollFileName + ")");
}

}  // namespace tarnwick
