// Ready fillings of the Field's payoffs.
#pragma once

#include <array>
#include <string_view>

#include "table/crapcnst.h"

namespace tarnwick {

constexpr int FieldFillings = 13;

/// What filling 0..12 makes the Field pay like, as a menu says it.
std::string_view FieldFillingCaption(int filling);

/// Entries 1..21 by dice of filling 0..12, in the "to" form, units not filled. Each outcome of the dice nets what the
/// other bet is worth once they have fallen so: its win or loss where they decide it, 0 where it stays as it was, and
/// for a line bet that goes on to a point its expected value behind that point. So a roll of the Field is worth as much
/// as a decision of a line bet, or as a roll of any other. The other bet is the usual one that the caption names,
/// whatever this table pays for it; vig up front is part of the unit wagered.
std::array<PayoffEntry, 22> FieldFilling(int filling);

/// Fills the Field so; units follow. False after a message when the change was refused.
bool FillFieldPayoffs(Table& t, int filling);

}  // namespace tarnwick
