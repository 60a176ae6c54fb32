// Scripts for tests: from text to elements and back to a short notation.
#pragma once

#include <string>
#include <string_view>

#include "autobet/compilation.h"

namespace tarnwick::test {

/// A compilation of `text` (lines end in LF) for the player at position 1; Ann sits at 1, Fred Smith at 2.
Compilation Script(std::string_view text);

/// Compiles `text` up to a pass and returns its elements in short notation, or "line:column-line:column text" of the
/// error.
std::string After(std::string_view pass, std::string_view text);

/// Elements in short notation from the third on (what is ahead and the last marker say nothing): letters as in the
/// phrases, "T" ahead of targets, words and signs for L, "|" for markers, "S1" strings, "label 1", "end".
std::string Short(const Compilation& c);

/// The same with "|line:column" for markers.
std::string ShortWithPlaces(const Compilation& c);

std::string Place(const CompileError& error);

}  // namespace tarnwick::test
