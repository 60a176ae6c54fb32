// The rules of single bets as tests and words, without effects; placement.cpp applies them.
#pragma once

#include <string>

#include "table/crapcnst.h"

namespace tarnwick {

/// Whether the table offers the bet of `row` under the options in force.
bool IsOffered(const Table& t, int row);
/// Why not, with the option that would offer it.
std::string NotOfferedText(int row);

/// Rows on which a removal since the last roll can be undone up to what was established.
bool IsRestorable(int row);

/// Whether p can't make or raise a bet on row 1..91 now, beyond what is established. Needs no memory: an unattended
/// run may ask on every roll.
bool IsRefused(const Table& t, int p, int row);
/// Why not, for a row that can be refused.
std::string RefusalText(int row);

/// The sentence that goes behind a refusal where something may be restored; else empty.
std::string RestoreSentence(currency established, currency bet);

/// Whether what is established on `row` must stay: Come bets on numbers, and with a point on the Pass Line and 7
/// Point 7.
bool IsContract(const Table& t, int row);
std::string ContractRefusal(int row, currency delta, currency bet, currency established);

/// A contract bet that a lowered maximum has outgrown.
std::string OutgrownText(const std::string& name, currency established);

}  // namespace tarnwick
