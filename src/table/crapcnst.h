// The whole state of one table, in one plain object. Procedures take it by reference; there are no globals, so a
// process may hold many tables, each used by one thread at a time. A snapshot is an assignment.
//
// Invariants:
//  - BetAmount changes only through SetBetAmount, which keeps the occupancy masks; rows 1..91 are never below 0.
//  - Bankroll changes only through SetBankroll; placing a bet moves no money, settling it does.
//  - BetsOnTable[p] is the sum of p's rows 1..91 plus the vig reserved for families charged up front.
//  - A roll is resolved against PrevPoint, never Point.
#pragma once

#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "config/displaystate.h"
#include "config/settings.h"
#include "dice/dicestate.h"
#include "stats/statistics.h"
#include "table/bets.h"
#include "table/currency.h"
#include "table/perbet.h"

namespace tarnwick {

struct Screen;
struct Table;

/// What the table asks of the scripts of its players. Null on a table that has no scripts.
struct ScriptHost {
    virtual ~ScriptHost() = default;
    /// Compiles every script that is on and not compiled; false when one has an error (which was shown).
    virtual bool CompileAll(Table& t) = 0;
    /// Runs the scripts of all players that have one on, in the order of positions.
    virtual void RunAll(Table& t) = 0;
    /// Empty when `name` can be a player's name; else what is wrong with it.
    virtual std::string NameRefusal(const Table& t, const std::string& name, int exceptPosition) = 0;
    /// Reads the file `path` as the script of p 1..8, not yet active; false when it can't be read.
    virtual bool OpenScript(Table& /*t*/, int /*p*/, const std::string& /*path*/) { return false; }
    /// Positions p and q change places; q 0: the script of p leaves with its player.
    virtual void SwapPositions(Table& t, int p, int q) = 0;
    /// A player has another name than when the scripts were compiled.
    virtual void NameChanged(Table& t) = 0;
};

/// What the table asks of its logs on the disk. Null on a table that keeps none.
struct LogHost {
    virtual ~LogHost() = default;
    /// Where a line of up to `bytes` bytes may be put together: LogLine takes it from there without a copy.
    virtual char* LineRoom(std::size_t bytes) = 0;
    /// One line for the Events Log.
    virtual void LogLine(Table& t, std::string_view line) = 0;
    /// Between two rolls of a run, every few milliseconds.
    virtual void Serve(Table& t) = 0;
    /// A run began or ended (AutoRollActive).
    virtual void RunStateChanged(Table& t) = 0;
    /// Whether the Events Log has a file or will have one.
    virtual bool EventsLogExists(const Table& t) = 0;
    virtual void ClearEventsLog(Table& t) = 0;
    /// The session of seated p, which had rolls, ends: its record goes into the Sessions Log of p.
    virtual void SessionEnded(Table& t, int p) = 0;
    /// The Sessions Log that bears the name of seated p goes.
    virtual void EraseSessionsLog(Table& t, int p) = 0;
};

constexpr currency BankrollLimit = Dollars(9'999'999);
constexpr std::int32_t MaxSessionRolls = 100'000'000;

/// Bits of positions 0..8.
using SeatMask = std::uint16_t;

/// Bits of rows 0..255.
using RowMask = std::array<std::uint64_t, 4>;

/// Amounts on the bets, position 0..8 and row 0..200. Everybody reads; SetBetAmount writes.
class BetCells {
  public:
    const currency& operator()(int p, int row) const { return Amounts(p, row); }

  private:
    friend void SetBetAmount(Table& t, int p, int row, currency amount);
    PerBet<currency, RowCount201> Amounts;
};

struct Table : Settings, DiceState, Statistics, DisplayState {
    // --- bets ---
    BetCells BetAmount;
    PerBet<currency, RowCount201> PrevBetAmount;  ///< as it stood at the start of the last roll
    PerBet<currency, RowCount201> BetAfterRoll;   ///< as it stood when the last roll had ended
    PerBet<currency, 100> EstablishedBet;         ///< established at the last roll; 0 once settled
    PerBet<std::int8_t, 101> WorkingCells;        ///< read through BetWorking(t, p, row)
    PerBet<std::int8_t, 101> PrevBetWorking;      ///< before the last scripts; for SeatsCalled, while the log is on
    SeatMask SeatsCalled = 0;                     ///< positions that may have a 2 or -1 in either of these
    PerBet<std::int32_t, 101> BetStreak;          ///< +n wins, -n losses in a row
    PerBet<std::int32_t, 101> PrevBetStreak;      ///< before the last roll
    std::array<std::array<currency, 6>, Positions> BuyVigCharged{};  ///< rows 37..42
    std::array<std::array<currency, 6>, Positions> LayVigCharged{};  ///< rows 1..6
    std::array<std::array<currency, 6>, Positions> ComeFlatNow{};    ///< rows 19..24
    std::array<currency, Positions> BetsOnTable{};
    std::array<currency, Positions> RailAmount{};  ///< checks on the rail at the start of the roll
    std::array<currency, Positions> PrevBankroll{};
    std::array<currency, Positions> BankrollAtRollStart{};

    // --- CheckStacks ---
    std::array<std::array<std::int32_t, 5>, Positions> VisibleStack{};  ///< 1..4: rows drawn at the rail
    std::array<std::array<std::string, 100>, Positions> CheckStackName;

    // --- players and dice ---
    std::array<std::string, Positions> PlayerName;       ///< empty at an empty position
    std::array<std::string, Positions> SessionsLogName;  ///< a relative one lies in the user's folder
    std::array<bool, Positions> ScriptOn{};
    std::array<bool, Positions> PrevScriptOn{};
    std::array<std::string, Positions> ScriptName;  ///< file of the script, empty when untitled
    std::int32_t Point = 0;                         ///< 0 on the come-out
    std::int32_t PrevPoint = 0;
    std::int32_t PrevPrevPoint = 0;
    std::int32_t LastPoint = 0;
    std::int32_t Die1 = 3;
    std::int32_t Die2 = 4;
    std::int32_t DiceTotal = 7;
    std::int32_t PadDie1 = 1;
    std::int32_t PadDie2 = 1;
    bool PadRollPending = false;
    std::int32_t Shooter = 0;
    std::int32_t HandShooter = 0;
    std::int32_t LastHandShooter = 0;
    std::int32_t PlayerCount = 0;
    std::int32_t ActivePlayer = 0;
    std::int32_t PointsMadeMask = 0;   ///< bit 1 for 4, 2 for 5, 4 for 6, 8 for 8, 16 for 9, 32 for 10
    std::int32_t PointsMadeCount = 0;  ///< bits set in it
    std::int32_t MarkedNumbers = 0;    ///< bit 2^n: n was rolled since the last 7, while it matters
    std::int32_t FourRollsCount = 0;

    // --- running ---
    bool RollInProgress = false;
    bool GameChanged = false;
    bool AutoRollActive = false;
    bool HyperDriveActive = false;
    std::int32_t RunUntilRoll = 0;     ///< session roll at which a run ends without a word; 0: none. Not saved
    bool ScriptRunning = false;        ///< inside a script's statement
    bool ScriptStopRequested = false;  ///< the user interrupts the script run
    std::int32_t ScriptPlayer = 0;     ///< whose script is running
    bool FireHandReset = false;        ///< a paying Fire bet may be left up for the next hand
    bool PointMoving = false;          ///< the roll moved the point, and uncalled bets don't follow it yet
    std::string StopReason;
    std::string GameFolder;  ///< where files of a script that have no folder of their own lie; empty: the current one
    std::string_view EventsLogHeading;  ///< one of a fixed set
    bool EventsLogStarted = false;      ///< a line was given to the log

    // --- kept by SetBetAmount and its like ---
    std::array<SeatMask, RowCount201> SeatsOn{};        ///< by row: positions with an amount above 0
    std::array<std::uint64_t, 2> RowsUp{};              ///< rows 1..91 that have any
    std::array<RowMask, Positions> RowsOf{};            ///< by position: rows 1..199 with an amount not 0
    std::array<RowMask, Positions> ChangedSinceRoll{};  ///< rows touched since the last snapshot
    std::array<RowMask, Positions> ChangedSinceEnd{};   ///< rows touched since the last roll ended
    SeatMask SeatsChangedSinceRoll = 0;                 ///< positions with any bit in these, or other money
    SeatMask SeatsChangedSinceEnd = 0;
    std::int8_t WorkingOverlay = 0;  ///< what the last change of the point made of uncalled bets: 0 settled in the
                                     ///< cells, 1 off by ComeOutWorking, 2 on

    std::set<std::string> HiddenTitles;  ///< messages hidden for as long as the program runs; no part of a game

    Screen* Front = nullptr;
    ScriptHost* Scripts = nullptr;
    LogHost* Logs = nullptr;
};

/// Puts `amount` on (p 0..8, row 0..200) and keeps the masks; moves no other cell. Rows 1..91 need amount >= 0.
void SetBetAmount(Table& t, int p, int row, currency amount);

/// Notes that money of p changed since the last snapshot: bankroll, reserved vig or a bet.
inline void TouchSeat(Table& t, int p) {
    t.SeatsChangedSinceRoll = static_cast<SeatMask>(t.SeatsChangedSinceRoll | (1u << p));
    t.SeatsChangedSinceEnd = static_cast<SeatMask>(t.SeatsChangedSinceEnd | (1u << p));
}

/// Notes that the settled state of (p, row) differs from the last snapshot.
inline void TouchBet(Table& t, int p, int row) {
    const auto word = static_cast<std::size_t>(row >> 6);
    const std::uint64_t bit = std::uint64_t{1} << (row & 63);
    t.ChangedSinceRoll[static_cast<std::size_t>(p)][word] |= bit;
    t.ChangedSinceEnd[static_cast<std::size_t>(p)][word] |= bit;
    TouchSeat(t, p);
}

inline void SetBetAmount(Table& t, int p, int row, currency amount) {
    t.BetAmount.Amounts(p, row) = amount;
    TouchBet(t, p, row);
    const auto word = static_cast<std::size_t>(row >> 6);
    const std::uint64_t bit = std::uint64_t{1} << (row & 63);
    SeatMask& seats = t.SeatsOn[static_cast<std::size_t>(row)];
    RowMask& rows = t.RowsOf[static_cast<std::size_t>(p)];
    if (!IsZero(amount)) {
        seats = static_cast<SeatMask>(seats | (1u << p));
        rows[word] |= bit;
        if (row <= Row::LastBet) t.RowsUp[word] |= bit;
    } else {
        seats = static_cast<SeatMask>(seats & ~(1u << p));
        rows[word] &= ~bit;
        if (row <= Row::LastBet && seats == 0) t.RowsUp[word] &= ~bit;
    }
}

/// Whether any position has an amount on row 1..91.
inline bool AnyBetOn(const Table& t, int row) { return t.SeatsOn[static_cast<std::size_t>(row)] != 0; }

inline bool IsSeated(const Table& t, int p) { return p > 0 && !t.PlayerName[static_cast<std::size_t>(p)].empty(); }

/// The smallest check, the unit of every payment.
inline currency SmallestCheck(const Table& t) { return t.CheckDenominations[1]; }

}  // namespace tarnwick
