#include "stats/eventslog.h"

#include <algorithm>
#include <bit>
#include <charconv>

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

/// A line under construction. Lines are written once a roll and oftener, so a line of common length costs no memory.
class Line {
  public:
    Line& operator<<(std::string_view text) {
        if (More.empty() && Used + text.size() <= Short.size()) {
            std::copy(text.begin(), text.end(), Short.begin() + static_cast<std::ptrdiff_t>(Used));
            Used += text.size();
            return *this;
        }
        if (More.empty()) More.assign(Short.data(), Used);
        More += text;
        return *this;
    }
    Line& operator<<(std::int64_t number) {
        std::array<char, 24> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
        return *this << std::string_view(digits.data(), static_cast<std::size_t>(end.ptr - digits.data()));
    }
    Line& operator<<(currency amount) {
        *this << "$";
        if (IsMultipleOf(amount, Dollars(1))) return *this << amount.TenThousandths / CurrencyScale;
        return *this << PlainAmount(amount);
    }
    std::string_view Text() const {
        return More.empty() ? std::string_view(Short.data(), Used) : std::string_view(More);
    }

  private:
    std::array<char, 160> Short;
    std::size_t Used = 0;
    std::string More;
};

/// A detail line of player p, up to the blank behind the name.
Line LineOf(const Table& t, int p) {
    Line line;
    line << "      " << t.PlayerName[At(p)] << " ";
    return line;
}

/// A line of its own about player p: "    Ann".
Line Narrated(const Table& t, int p) {
    Line line;
    line << "    " << t.PlayerName[At(p)];
    return line;
}

void LogComingOut(Table& t, std::string_view kind, const std::string& name) {
    Line line;
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
    Line line = LineOf(t, p);
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

/// A line for each bankroll that differs from `before`, with the kind of rise and fall.
void LogBankrollsSince(Table& t, const std::array<currency, Positions>& before, std::string_view rise,
                       std::string_view fall) {
    if (!t.RecordBankrollChanges) return;
    for (int p = 1; p < Positions; ++p) {
        const currency now = t.Bankroll[At(p)];
        const currency difference = now - before[At(p)];
        if (IsZero(difference) || !IsSeated(t, p)) continue;
        const bool rose = difference > currency{};
        Line line = LineOf(t, p);
        line << (rose ? "increased to " : "decreased to ") << now << " (" << Abs(difference) << " "
             << (rose ? rise : fall) << ")";
        LogUnderHeading(t, BankrollHeading, line.Text());
    }
}

/// Rows of p whose amounts may differ from PrevBetAmount, or whose working state may have been called.
RowMask RowsToCompare(const Table& t, int p) {
    RowMask rows = t.RowsOf[At(p)];
    for (std::size_t word = 0; word < rows.size(); ++word) rows[word] |= t.ChangedSinceRoll[At(p)][word];
    if (!IsPointNumber(t.DiceTotal)) return rows;
    const int index = PointIndex(t.DiceTotal);
    for (const int row : {Row::Come + 0, Row::DontCome + 0, Row::Come4 + index, Row::DontCome4 + index}) {
        rows[At(row >> 6)] |= std::uint64_t{1} << (row & 63);
    }
    return rows;
}

/// Calls `each` with the rows of `rows` within first..last, from low to high.
template <class Each>
void ForRows(const RowMask& rows, int first, int last, Each each) {
    for (int word = first >> 6; word <= last >> 6; ++word) {
        for (std::uint64_t bits = rows[At(word)]; bits != 0; bits &= bits - 1) {
            const int row = 64 * word + std::countr_zero(bits);
            if (first <= row && row <= last) each(row);
        }
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
    const std::string_view name = BetName(row);
    Line line = LineOf(t, p);
    if (IsZero(now)) {
        if (ResolvedInLastRoll(t, p, row) && IsZero(MovedByLastRoll(t, p, row))) return;
        line << "removed " << before << " bet on " << name;
    } else if (IsZero(before)) {
        line << "bet " << now << " on " << name;
    } else {
        line << (now < before ? "decreased " : "increased ") << name << " to " << now;
    }
    LogUnderHeading(t, BetsHeading, line.Text());
}

void LogWorkingChange(Table& t, int p, int row, bool stoodBefore) {
    if (IsZero(t.BetAmount(p, row))) return;
    constexpr int on = 2, off = -1;
    const auto called = [](int state) { return state == on || state == off; };
    const int now = BetWorking(t, p, row);
    // A call that was left behind by an earlier bet on the row is none of this one's.
    const int before = stoodBefore ? t.PrevBetWorking(p, row) : 1;
    if (now == before || (!called(now) && !called(before))) return;
    Line line = LineOf(t, p);
    line << "called "
         << (now == on    ? "ON "
             : now == off ? "OFF "
                          : "")
         << BetName(row) << " bet" << (called(now) ? "" : " working normally again");
    LogUnderHeading(t, BetsHeading, line.Text());
}

void LogBetChanges(Table& t) {
    if (!t.RecordBetChanges) return;
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p)) continue;
        ForRows(RowsToCompare(t, p), 1, Row::LastBet, [&](int row) {
            const currency before = AmountBeforeChanges(t, p, row);
            LogAmountChange(t, p, row, before);
            LogWorkingChange(t, p, row, !IsZero(before));
        });
    }
}

void LogStackChanges(Table& t) {
    if (!t.RecordCheckStackChanges) return;
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p)) continue;
        ForRows(t.ChangedSinceRoll[At(p)], Row::FirstStack, Row::LastStack, [&](int row) {
            const currency now = t.BetAmount(p, row), before = t.PrevBetAmount(p, row);
            if (now == before) return;
            Line line = LineOf(t, p);
            line << (now > before ? "increased " : "decreased ") << BetTitle(row) << " to " << now;
            LogUnderHeading(t, StacksHeading, line.Text());
        });
    }
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
    LogBankrollsSince(t, t.PrevBankroll, "ATM withdrawal", "ATM deposit");
    LogBetChanges(t);
    LogStackChanges(t);
}

void LogRoll(Table& t, std::string_view source) {
    if (!t.EventsLogOn || !t.RecordRolls) return;
    Line line;
    line << " Roll #" << std::int64_t{SessionRolls(t) + 1} << ":  " << std::int64_t{t.Die1 + t.Die2} << " ("
         << std::int64_t{t.Die1} << "." << std::int64_t{t.Die2} << ")" << source;
    LogEvent(t, line.Text());
}

void LogDecision(Table& t, std::string_view decision) {
    if (t.EventsLogOn && t.RecordPassesMisses) LogEvent(t, (Line() << "    " << decision).Text());
}

void LogBetResult(Table& t, int p, int row, currency net) {
    if (!t.EventsLogOn || !(t.RecordBetsWon || t.RecordBetsLost)) return;
    OpenBlock(t, !t.RecordBetsLost ? "    Wins:" : !t.RecordBetsWon ? "    Losses:" : "    Wins/losses:");
    const bool won = net > currency{};
    if (IsZero(net) || !(won ? t.RecordBetsWon : t.RecordBetsLost)) return;
    LogEvent(t, (LineOf(t, p) << (won ? "won " : "lost ") << Abs(net) << " on " << BetName(row)).Text());
}

void LogContractMove(Table& t, int p, int fromRow, int toRow) {
    if (!t.EventsLogOn) return;
    LogEvent(t, (Narrated(t, p) << "'s " << BetName(fromRow) << " bet moved to " << BetName(toRow)).Text());
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
        LogComingOut(t, t.Shooter == t.LastHandShooter ? "Same" : "New", t.PlayerName[At(t.Shooter)]);
    }
}

void RememberWorkingForLog(Table& t) {
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p)) continue;
        ForRows(RowsToCompare(t, p), 1, Row::LastBet,
                [&](int row) { t.PrevBetWorking(p, row) = static_cast<std::int8_t>(BetWorking(t, p, row)); });
    }
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
    LogEvent(t, (Line() << " New session started " << date << " @ " << time).Text());
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p)) continue;
        const currency begin = t.BankrollBegin[At(p + Positions * Scope::Session)];
        LogUnderHeading(t, "    Players:", (LineOf(t, p) << "at stick " << StickName(p) << " with " << begin).Text());
    }
    if (t.DiceFileMode == 2) {
        LogEvent(t, (Line() << "    Dice roll file playback active (" << t.DiceRollFileName << ")").Text());
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
    Line line = Narrated(t, p);
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
