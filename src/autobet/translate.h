// Phrase translation: source lines to elements.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "autobet/compilation.h"

namespace tarnwick {

/// Moves the quoted texts of a tidied line to the end of `pool`, cuts the comment and lowers the rest. Each text leaves
/// " S001 " with its index, an empty one " S0 ". False when a quote is not closed.
bool ExtractStrings(std::string_view tidied, std::vector<PoolString>& pool, std::string& out);

/// Applies the phrase table and the names of players 1..8 to a line from ExtractStrings, and takes out the noise words.
/// What is left are elements in text form and words that mean nothing.
std::string ReplacePhrases(std::string_view line, const std::array<std::string, 9>& playerNames);

/// What a caller puts in the place of a refused name.
constexpr std::string_view ReservedWord = ">>>reserved word<<<";

/// Empty when scripts can tell `name` from their own words; else the message that refuses it. `playerNames` by position
/// 1..8; the name at `exceptPosition` (0: none) does not count, it is the one being changed.
std::string NameRefusal(std::string_view name, const std::array<std::string, 9>& playerNames, int exceptPosition = 0);

}  // namespace tarnwick
