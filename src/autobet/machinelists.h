// Lists of the machine: sums of list functions, and questions about many bets at once.
#pragma once

#include "autobet/program.h"

namespace tarnwick {

/// The four sums of a list function, in registers: count, sum, extreme, sum of squared differences from the mean.
void StartList(double* sums);
/// Takes an item in; functions 126 and 127 keep the highest or lowest.
void TakeListItem(double* sums, int function, double value);
/// Second walk, when count and sum are whole.
void TakeListSquare(double* sums, double value);
/// 126 highest, 127 lowest, 128 average, 129 standard deviation, 130 sum, 131 count; 0 for an empty list, with a
/// warning where that divides by zero.
double ListResult(RunState& run, const double* sums, int function);

/// Whether any, or all, of the set's amounts pass its comparison.
bool TestRows(const Table& t, const RowSet& set);
/// Sum and count of the set's amounts that pass its comparison, in the order of rows.
double SumRows(const Table& t, const RowSet& set);
double CountRows(const Table& t, const RowSet& set);

}  // namespace tarnwick
