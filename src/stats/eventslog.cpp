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

std::string_view Name(const Table& t, int p) { return t.PlayerName[At(p)]; }

/// Puts a line together out of pieces and logs it.
template <class... Piece>
void Narrate(Table& t, const Piece&... pieces) {
    const auto narrateAt = [&](char* line) {
        const char* const end = WritePieces(line, pieces...);
        LogEvent(t, {line, static_cast<std::size_t>(end - line)});
    };
    const std::size_t room = RoomForAll(pieces...);
    if (t.Logs != nullptr) return narrateAt(t.Logs->LineRoom(room));
    std::string line(room, ' ');
    narrateAt(line.data());
}

void OpenBlock(Table& t, std::string_view heading) {
    if (t.EventsLogHeading == heading) return;
    t.EventsLogHeading = heading;
    LogEvent(t, heading);
}

/// A detail line about player p under `heading`, which is logged first when it isn't that of the present block.
template <class... Piece>
void NarrateDetail(Table& t, std::string_view heading, int p, const Piece&... pieces) {
    OpenBlock(t, heading);
    Narrate(t, "      ", Name(t, p), " ", pieces...);
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

void LogComingOut(Table& t, std::string_view kind, int p) {
    Narrate(t, "----", kind, " shooter (", Name(t, p), ") coming out----------");
}

void LogScriptActivated(Table& t, int p) {
    const std::string& file = t.ScriptName[At(p)];
    if (file.empty()) {
        NarrateDetail(t, ScriptsHeading, p, "activated untitled auto-bets");
    } else {
        NarrateDetail(t, ScriptsHeading, p, "activated (", file, ")");
    }
}

void LogScriptChanges(Table& t) {
    if (t.ScriptOn == t.PrevScriptOn) return;
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p) || t.ScriptOn[At(p)] == t.PrevScriptOn[At(p)]) continue;
        if (t.ScriptOn[At(p)]) {
            LogScriptActivated(t, p);
        } else {
            NarrateDetail(t, ScriptsHeading, p, "deactivated auto-bets");
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
        NarrateDetail(t, BankrollHeading, p, rose ? "increased to "sv : "decreased to "sv, now, " (", Abs(difference),
                      " ", rose ? rise : fall, ")");
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

/// Positions that ForRowsToCompare may have rows for.
unsigned SeatsToCompare(const Table& t) {
    const unsigned seats = t.SeatsChangedSinceRoll | t.SeatsCalled;
    return IsPointNumber(t.DiceTotal) ? seats | t.SeatsOn[Row::Come] | t.SeatsOn[Row::DontCome] : seats;
}

bool MayHaveCalls(const Table& t, int p) { return (t.SeatsCalled >> p & 1u) != 0; }

/// Calls `each` with the rows of p within 1..91, from low to high, whose amounts may differ from what stood before, or
/// whose working state may have been called: few before nearly every roll.
template <class Each>
void ForRowsToCompare(const Table& t, int p, const Each& each) {
    constexpr std::uint64_t below64 = ~std::uint64_t{1};  // there is no row 0
    constexpr std::uint64_t from64 = (std::uint64_t{1} << (Row::LastBet + 1 - 64)) - 1;
    static_assert(Row::Come < 64 && Row::DontCome < 64 && Row::Come10 < 64 && Row::DontCome10 < 64);
    const RowMask& stand = t.RowsOf[At(p)];
    std::uint64_t low = t.ChangedSinceRoll[At(p)][0], high = t.ChangedSinceRoll[At(p)][1];
    if (IsPointNumber(t.DiceTotal)) {
        // A box that moved stands or was touched; then its number has another amount to be compared with.
        const std::uint64_t come = (stand[0] | low) >> Row::Come & 1, dont = (stand[0] | low) >> Row::DontCome & 1;
        const int index = PointIndex(t.DiceTotal);
        low |= come << Row::Come | dont << Row::DontCome;
        low |= come << (Row::Come4 + index) | dont << (Row::DontCome4 + index);
    }
    if (MayHaveCalls(t, p)) {
        low |= stand[0];
        high |= stand[1];
    }
    ForBits(low & below64, 0, each);
    ForBits(high & from64, 64, each);
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
    if (IsZero(now)) {
        NarrateDetail(t, BetsHeading, p, "removed ", before, " bet on ", name);
    } else if (IsZero(before)) {
        NarrateDetail(t, BetsHeading, p, "bet ", now, " on ", name);
    } else {
        NarrateDetail(t, BetsHeading, p, now < before ? "decreased "sv : "increased "sv, name, " to ", now);
    }
}

constexpr int CalledOn = 2, CalledOff = -1;
bool IsCall(int state) { return state == CalledOn || state == CalledOff; }

void LogWorkingChange(Table& t, int p, int row, bool stoodBefore) {
    if (!MayHaveCalls(t, p) || IsZero(t.BetAmount(p, row))) return;
    const int now = BetWorking(t, p, row);
    // A call that was left behind by an earlier bet on the row is none of this one's.
    const int before = stoodBefore ? t.PrevBetWorking(p, row) : 1;
    if (now == before || (!IsCall(now) && !IsCall(before))) return;
    const std::string_view call = now == CalledOn ? "ON "sv : now == CalledOff ? "OFF "sv : ""sv;
    NarrateDetail(t, BetsHeading, p, "called ", call, BetName(row), " bet",
                  IsCall(now) ? ""sv : " working normally again"sv);
}

void LogBetChanges(Table& t) {
    if (!t.RecordBetChanges) return;
    ForSeats(t, SeatsToCompare(t), [&](int p) {
        ForRowsToCompare(t, p, [&](int row) {
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
            NarrateDetail(t, StacksHeading, p, now > before ? "increased "sv : "decreased "sv, BetTitle(row), " to ",
                          now);
        });
    });
}

}  // namespace

void LogEvent(Table& t, std::string_view line) {
    t.EventsLogStarted = true;
    if (t.Front != nullptr) t.Front->EventLogged(line);  // first: writing the log may change the line in its place
    if (t.Logs != nullptr) t.Logs->LogLine(t, line);
}

void LogChangesSinceRoll(Table& t) {
    if (!t.EventsLogOn) return;
    BeginLogBlock(t);
    LogScriptChanges(t);
    LogBankrollsSince(t, t.SeatsChangedSinceEnd, t.PrevBankroll, "ATM withdrawal", "ATM deposit");
    LogBetChanges(t);
    LogStackChanges(t);
}

void LogRoll(Table& t, DiceSource source) {
    if (!t.EventsLogOn || !t.RecordRolls) return;
    const auto from = [&t](const auto&... words) {
        Narrate(t, " Roll #", SessionRolls(t) + 1, ":  ", t.Die1 + t.Die2, " (", Digit(t.Die1), ".", Digit(t.Die2), ")",
                words...);
    };
    switch (source) {
        case DiceSource::Pad:
            return from(" from manual roll pad");
        case DiceSource::File:
            return from(" from roll file");
        case DiceSource::Generator:
            break;
    }
    const int generator = t.RngIndex + 1;
    if (!t.UseSkewedProbability) return from(" from RNG #", generator);
    if (t.ProbabilityFileName.empty()) return from(" from RNG #", generator, " using untitled probability matrix");
    from(" from RNG #", generator, " using probability matrix: ", t.ProbabilityFileName);
}

void LogDecision(Table& t, std::string_view decision) {
    if (t.EventsLogOn && t.RecordPassesMisses) Narrate(t, "    ", decision);
}

void LogBetResult(Table& t, int p, int row, currency net) {
    if (!t.EventsLogOn || !(t.RecordBetsWon || t.RecordBetsLost)) return;
    const std::string_view heading = !t.RecordBetsLost ? "    Wins:"sv
                                     : t.RecordBetsWon ? "    Wins/losses:"sv
                                                       : "    Losses:"sv;
    OpenBlock(t, heading);
    const bool won = net > currency{};
    if (IsZero(net) || !(won ? t.RecordBetsWon : t.RecordBetsLost)) return;
    NarrateDetail(t, heading, p, won ? "won "sv : "lost "sv, Abs(net), " on ", BetName(row));
}

void LogContractMove(Table& t, int p, int fromRow, int toRow) {
    if (!t.EventsLogOn) return;
    Narrate(t, "    ", Name(t, p), "'s ", BetName(fromRow), " bet moved to ", BetName(toRow));
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
        LogComingOut(t, t.Shooter == t.LastHandShooter ? "Same" : "New", t.Shooter);
    }
}

void RememberWorkingForLog(Table& t) {
    ForSeats(t, t.SeatsCalled, [&](int p) {
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
    Narrate(t, " New session started ", date, " @ ", time);
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p)) continue;
        const currency begin = t.BankrollBegin[At(p + Positions * Scope::Session)];
        NarrateDetail(t, "    Players:", p, "at stick ", StickName(p), " with ", begin);
    }
    if (t.DiceFileMode == 2) Narrate(t, "    Dice roll file playback active (", t.DiceRollFileName, ")");
    for (int p = 1; p < Positions; ++p) {
        if (IsSeated(t, p) && t.ScriptOn[At(p)]) LogScriptActivated(t, p);
    }
    if (t.Shooter == 0) {
        LogEvent(t, NewHandLine);
    } else if (t.RecordShooterChanges) {
        LogComingOut(t, "New", t.Shooter);
    }
}

void LogJoined(Table& t, int p, currency buyIn) {
    if (!t.EventsLogOn) return;
    Narrate(t, "    ", Name(t, p), " joined the game at stick ", StickName(p), " with ", buyIn);
}

void LogMovedSeat(Table& t, int p, int to) {
    if (t.EventsLogOn) Narrate(t, "    ", Name(t, p), " moved to stick ", StickName(to));
}

void LogRenamed(Table& t, std::string_view oldName, std::string_view newName) {
    if (t.EventsLogOn) Narrate(t, "    ", oldName, "'s name changed to ", newName);
}

void LogDicePassed(Table& t, int p) {
    if (t.EventsLogOn && t.RecordShooterChanges) Narrate(t, "    The dice were passed to ", Name(t, p));
}

void LogCashOut(Table& t, int p, currency abandoned) {
    if (!t.EventsLogOn) return;
    const currency taken = t.Bankroll[At(p)] - abandoned;
    const currency net = taken - t.BankrollInvested[At(p)];
    const auto leaves = [&](const auto&... result) {
        Narrate(t, "    ", Name(t, p), " cashed out with ", taken, result...);
    };
    if (IsZero(net)) return leaves();
    if (net > currency{}) return leaves("(net win: ", net, ")");
    // Without anything abandoned the parenthesis stays open, as logs have always had it.
    if (IsZero(abandoned)) return leaves("(net loss: ", -net);
    leaves("(net loss: ", -net, " includes ", abandoned, " abandoned)");
}

void LogSeeded(Table& t, std::int64_t seed) {
    if (t.EventsLogOn) Narrate(t, "    RNG #", t.RngIndex + 1, " seeded: ", seed);
}

void LogPlayback(Table& t) {
    if (t.EventsLogOn) Narrate(t, "    Dice roll file playback activated (", t.DiceRollFileName, ")");
}

}  // namespace tarnwick
