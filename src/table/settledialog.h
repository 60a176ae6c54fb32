// The dialog of one decided bet, as lines and choices; a front end lays them out.
#pragma once

#include <string>

#include "table/screen.h"
#include "table/settlement.h"

namespace tarnwick {

enum class SettleKind { Winner, Loser, Returned };

/// What SettleBet knows when the dialog is due.
struct DecidedBet {
    int Position = 0;
    int BetRow = 0;
    SettleKind Kind = SettleKind::Winner;
    Settlement Result;
    bool MustTakeDown = false;  ///< only the first choice is offered
};

/// Heading, figures and buttons for `bet`. Buttons 6 and 7 show the slot's operator, amount and unit.
SettleQuestion DescribeSettlement(const Table& t, const DecidedBet& bet);

/// Smallest check times the row's `For`: what "Press 1 Unit" adds.
currency PressUnit(const Table& t, int row);

/// Steps of the dialog's small buttons: "+", "-", "x", "/", and "$", "%", then one unit for each check.
std::string OperatorText(int handleOperator);
std::string UnitText(const Table& t, int handleUnit);
constexpr int NextOperator(int handleOperator) { return (handleOperator + 1) % 4; }
constexpr int NextUnit(int handleUnit) { return (handleUnit + 1) % 7; }

}  // namespace tarnwick
