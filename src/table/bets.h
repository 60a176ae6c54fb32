// The catalogue of bets. A bet is a row number: 1..91 the bets of the layout, 100..199 a player's CheckStacks.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwick {

/// Rows of the layout. Families of six are in the order 4, 5, 6, 8, 9, 10.
namespace Row {
enum : int {
    Lay4 = 1,
    Lay10 = 6,
    DontCome4 = 7,
    DontCome10 = 12,
    DontCome4Odds = 13,
    DontCome10Odds = 18,
    Come4 = 19,
    Come10 = 24,
    Come4Odds = 25,
    Come10Odds = 30,
    Place4 = 31,
    Place10 = 36,
    Buy4 = 37,
    Buy10 = 42,
    PassLine = 43,
    PassLineOdds = 44,
    Come = 45,
    DontPass = 46,
    DontPassOdds = 47,
    DontCome = 48,
    Field = 49,
    Big6 = 50,
    Big8 = 51,
    Hard4 = 52,
    Hard6 = 53,
    Hard8 = 54,
    Hard10 = 55,
    Two = 56,
    Three = 57,
    Seven = 58,
    Eleven = 59,
    Twelve = 60,
    Craps = 61,
    CandE = 62,
    Horn = 63,
    World = 64,
    Over7 = 65,
    Under7 = 66,
    Hop13 = 67,
    Hop14 = 68,
    Hop15 = 69,
    Hop16 = 70,
    Hop22 = 71,
    Hop23 = 72,
    Hop24 = 73,
    Hop25 = 74,
    Hop26 = 75,
    Hop33 = 76,
    Hop34 = 77,
    Hop35 = 78,
    Hop36 = 79,
    Hop44 = 80,
    Hop45 = 81,
    Hop46 = 82,
    Hop55 = 83,
    AllSmall = 84,
    AllTall = 85,
    MakeAll = 86,
    FourRollsNo7 = 87,
    Point7 = 88,
    SevenPoint7 = 89,
    Midway = 90,
    Fire = 91,
    LastBet = 91,
    FirstStack = 100,
    LastStack = 199,
    LastRow = 200
};
}  // namespace Row

constexpr int RowCount201 = 201;
constexpr int Positions = 9;  ///< 0 the House, 1..8 the stick positions.

constexpr bool IsLay(int row) { return Row::Lay4 <= row && row <= Row::Lay10; }
constexpr bool IsDontComeNumber(int row) { return Row::DontCome4 <= row && row <= Row::DontCome10; }
constexpr bool IsDontComeOdds(int row) { return Row::DontCome4Odds <= row && row <= Row::DontCome10Odds; }
constexpr bool IsComeNumber(int row) { return Row::Come4 <= row && row <= Row::Come10; }
constexpr bool IsComeOdds(int row) { return Row::Come4Odds <= row && row <= Row::Come10Odds; }
constexpr bool IsPlace(int row) { return Row::Place4 <= row && row <= Row::Place10; }
constexpr bool IsBuy(int row) { return Row::Buy4 <= row && row <= Row::Buy10; }
constexpr bool IsOddsRow(int row) {
    return row == Row::PassLineOdds || row == Row::DontPassOdds || IsDontComeOdds(row) || IsComeOdds(row);
}
constexpr bool IsHop(int row) { return Row::Hop13 <= row && row <= Row::Hop55; }
constexpr bool IsLayoutRow(int row) { return 1 <= row && row <= Row::LastBet; }
constexpr bool IsStack(int row) { return Row::FirstStack <= row && row <= Row::LastStack; }

/// The flat row that an odds row stands behind; 0 for other rows.
constexpr int FlatRowOf(int row) {
    if (row == Row::PassLineOdds) return Row::PassLine;
    if (row == Row::DontPassOdds) return Row::DontPass;
    return IsDontComeOdds(row) || IsComeOdds(row) ? row - 6 : 0;
}

/// Whether `n` is one of the six numbers that can be a point.
constexpr bool IsPointNumber(int n) { return 4 <= n && n <= 10 && n != 7; }

/// Place of a point number 4, 5, 6, 8, 9, 10 in a family of six: 0..5.
constexpr int PointIndex(int point) { return point - 4 - point / 7; }

/// The point number of place 0..5 in a family of six.
constexpr int PointOfIndex(int index) { return index + 4 + index / 3; }

static_assert(PointIndex(6) == 2 && PointIndex(8) == 3 && PointOfIndex(2) == 6 && PointOfIndex(3) == 8);

/// Display name of row 1..91 or 101..104; empty for every other row.
std::string_view BetName(int row);

/// Name of any bet or CheckStack for a message: `BetName`, or "CheckStack #" and row - 100 for rows 100..199.
std::string BetTitle(int row);

/// Row whose name is `name`, in any case ("Place 6", "checkstack #7"); 0 when there is none.
int RowByName(std::string_view name);

/// The default of `ComeOutWorking`: whether a bet of this row 1..91 works on a come-out roll.
constexpr bool WorksOnComeOutByDefault(int row) {
    return !((Row::Come4Odds <= row && row <= Row::Buy10) || row == Row::PassLineOdds || row == Row::Come ||
             row == Row::DontPassOdds || row == Row::DontCome);
}

}  // namespace tarnwick
