// The standing orders of several players at once, as one window shows and changes them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "table/crapcnst.h"

namespace tarnwick {

enum class OrderFlag : std::uint8_t { TakeFullOdds, LayFullOdds, DownPlaceBets, PassDice };
enum class OrderCode : std::uint8_t { AdjustMode, LayBias, PlaceBias, DoBias, DontBias, WinnerHandling, LoserHandling };
constexpr std::size_t OrderFlagCount = 4, OrderCodeCount = 7;

/// Slots of the arithmetic beside a standing handling.
constexpr int WinnersSameBetSlot = 4, LosersSameBetSlot = 5, WinnersBetSlot = 6, LosersBetSlot = 7;

/// What all of some players have in common; nothing where they differ, or where there is nobody.
struct SharedOrders {
    std::array<std::optional<bool>, OrderFlagCount> Flags;          ///< by OrderFlag
    std::array<std::optional<std::int32_t>, OrderCodeCount> Codes;  ///< by OrderCode
    std::array<std::optional<std::int32_t>, 8> Operators;           ///< by slot, as are the next two
    std::array<std::optional<currency>, 8> Amounts;
    std::array<std::optional<std::int32_t>, 8> Units;
    std::array<std::optional<bool>, Row::LastBet + 1> Working;  ///< on the come-out roll, by row 1..91

    std::optional<bool> Flag(OrderFlag flag) const { return Flags[static_cast<std::size_t>(flag)]; }
    std::optional<std::int32_t> Code(OrderCode code) const { return Codes[static_cast<std::size_t>(code)]; }
    bool operator==(const SharedOrders&) const = default;
};

/// The orders of `players`, bits 1..8.
SharedOrders OrdersOf(const Table& t, SeatMask players);

/// The players at the table whose orders are on show (AutoPlayPlayers without empty positions).
SeatMask OrderPlayers(const Table& t);
/// What stands above their orders: "Settings for Ann".
std::string OrdersHeading(const Table& t);

/// The question before a change of orders while a run is on or a script is running. True when the change is to be made:
/// nothing runs, or the user stops it.
bool MayChangeOrders(Table& t);

// Changes for each of `players`, bits 1..8, in the order of positions. The game counts as changed.

/// With what the switch does at once: odds are raised, Place bets come down.
void SetOrderFlag(Table& t, SeatMask players, OrderFlag flag, bool on);
/// `value` 0..2, of a handling 0..7; anything else changes nothing.
void SetOrderCode(Table& t, SeatMask players, OrderCode code, std::int32_t value);
/// `slot` 0..7; `value` 0..3 of an operator and 0..6 of a unit, as in Settings.
void SetOrderOperator(Table& t, SeatMask players, int slot, std::int32_t value);
void SetOrderUnit(Table& t, SeatMask players, int slot, std::int32_t value);
/// An amount as typed, 0 to 9,999,999. Returns what is wrong with it, or nothing.
std::string SetOrderAmount(Table& t, SeatMask players, int slot, std::string_view typed);

enum class WorkingChoice : std::uint8_t { No, Yes, Default };
/// Whether the bets of `rows` 1..91 work on a come-out roll.
void SetOrderWorking(Table& t, SeatMask players, const std::vector<int>& rows, WorkingChoice choice);

}  // namespace tarnwick
