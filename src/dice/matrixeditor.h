// Editing the probability matrix as a person does: a cell is typed in the form in which it is shown, keeps its value
// from then on, and the others of its group give or take what is needed for exactly 100%.
//
// In Percentage Dice the faces of each die are a group, and the results follow: the chance of a result is that of its
// two faces. In Free Form Dice the 36 results are one group and can be typed one by one or by totals; the faces show
// what the results make of them. A locked total keeps its sum: its results then give and take among themselves. A
// matrix of a file that isn't 100% is scaled to it by the first edit.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "table/crapcnst.h"

namespace tarnwick {

/// A cell by column 1..7 and row 1..13.
struct CellPlace {
    int Col = 0, Row = 0;
};
enum class CellKind { None, Result, Total, Face };
CellKind KindOfCell(CellPlace at);
/// Place of the face 1..6 of die 1 or 2, of the total 2..12, and of the result of two dice.
CellPlace FacePlace(int die, int face);
CellPlace TotalPlace(int total);
CellPlace ResultPlace(int die1, int die2);

bool IsFreeForm(const Table& t);
/// Percentage Dice: the results become those of the faces. Free Form Dice: the results stay, the faces follow them.
void SetFreeForm(Table& t, bool freeForm);

/// Whether the mode lets the cell be typed and locked: faces in Percentage Dice, results and totals in Free Form Dice.
bool IsEditable(const Table& t, CellPlace at);
/// Whether the cell is shown as locked: it is, and the mode heeds it.
bool IsLocked(const Table& t, CellPlace at);
/// Does nothing on a cell that isn't editable.
void ToggleLock(Table& t, CellPlace at);
void UnlockAllCells(Table& t);

/// The true chance of a cell in percent.
double TruePercent(CellPlace at);
/// A cell's value as ProbabilityDisplayMode shows it: percent, percent more or less than true, rolls out of RollsOutOf,
/// or rolls more or less than true, with three decimals. Empty for a place without a cell.
std::string CellText(const Table& t, CellPlace at);
/// The typed text as thousandths of a percent, by the same mode; nothing for a text that is no number.
std::optional<double> ChanceFromText(const Table& t, CellPlace at, std::string_view text);

/// Takes a typed number for the cell and locks it. What it gains or loses is spread in equal parts over the unlocked
/// cells of its group, none of which goes below 0; a total scales its results evenly, and the results of the other
/// totals take up the difference. Returns what is wrong, and then nothing has changed: no number, a cell that follows
/// others, a value that the locked cells leave no room for.
std::string EnterCell(Table& t, CellPlace at, std::string_view text);

/// How well a shooter holds a die to one axis: 1 the 1-6 axis, 2 the 2-5, 3 the 3-4, and his effectiveness in percent.
struct AxisThrow {
    int Axis = 1;
    double Effectiveness = 0;
};
/// Percentage Dice of two dice thrown so. All locks go; the first face of each axis (1, 2 or 3) gets a sixth less the
/// effectiveness, which counts from 0 to 100, and is locked; the other faces share the rest. Axes must be 1..3.
void ComputeAxisDice(Table& t, AxisThrow first, AxisThrow second);

}  // namespace tarnwick
