// What a hand does at the table: presses of the mouse on a hot spot and the commands of the Action menu. Everything
// goes through the table's own rules; no window is known here.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "table/crapcnst.h"

namespace tarnwick {

/// What the next press on a bet means.
enum class PendingAction { Bet, CallOn, CallOff, Buy, Remove, MovePlayer };

/// Values of the hot-spot map.
namespace HotSpot {
constexpr int None = 0;
constexpr int RailFactor = 1000;  ///< 1000 p + m
constexpr int FirstRail = 1000;
constexpr int LastRail = 8999;
}  // namespace HotSpot

inline bool IsRail(int value) { return HotSpot::FirstRail <= value && value <= HotSpot::LastRail; }
inline int RailPosition(int value) { return value / HotSpot::RailFactor; }
inline int RailItem(int value) { return value % HotSpot::RailFactor; }

/// The row 1..91 or 101..199 that a press on hot-spot value `value` addresses; 0 when it is no bet. Slots 101..104
/// stand for the CheckStacks that the bettor shows there.
int RowOfHotSpot(const Table& t, int value);

class TableActions {
  public:
    explicit TableActions(Table& t) : T(t) {}

    PendingAction Pending = PendingAction::Bet;
    int MovingPlayer = 0;  ///< who takes the next rail position, with MovePlayer
    /// Where the mouse presses, in table units: checks that aren't arranged stay there.
    std::optional<std::pair<double, double>> PressedAt;

    /// Words of the status line while something is pending; empty for plain betting.
    const char* PendingText() const;

    /// A left press on `value` (what HotSpotAt gives). Returns the row for which the amount box must open, or 0; with
    /// `keyIn` a bet's row comes back instead of a check being added.
    int PressLeft(int value, bool keyIn);
    int PressLeft(int value) { return PressLeft(value, T.KeyInMode); }
    /// A right press: takes a check off a bet. False when it wasn't on a bet: then the dice are to be rolled.
    bool PressRight(int value);

    /// Adds the selected check to the bettor's bet (or takes it off). Needs a bettor; says so when there is none.
    void AddCheck(int row, bool off);
    /// The bet of p on row 1..91 has changed: one that is gone leaves no place behind.
    void ForgetPlace(int p, int row);
    /// What the amount box held when it closed: the bet of the bettor on `row` becomes `amount`.
    void SetAmount(int row, currency amount);

    /// Makes p 1..8 the bettor, or offers to seat somebody there.
    void SelectRail(int p);

  private:
    bool HasBettor() const;
    bool ApplyPending(int row);
    void FinishMove(int p);

    Table& T;
};

}  // namespace tarnwick
