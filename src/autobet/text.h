// Small text tools of the language: blanks, letters without case, numbers to and from text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

/// A tab or carriage return counts as a blank everywhere outside quotes.
constexpr bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }
constexpr bool IsDigit(char c) { return '0' <= c && c <= '9'; }

bool IsAllBlank(std::string_view text);
std::string_view TrimBlanks(std::string_view text);

/// Lower case of UTF-8 text: ASCII and the Western European letters of code page 1252. Keeps the length in bytes.
std::string LowerText(std::string_view text);

/// Reduces every run of blanks to one, in place. Knows blanks only, no tabs.
void CollapseBlanks(std::string& text);

/// Replaces `key` wherever it occurs, also where a replacement makes it occur again, always the first one first, until
/// none is left; `value` must not hold `key`. True when anything was replaced. Takes time linear in the text.
bool ReplaceAll(std::string& text, std::string_view key, std::string_view value);

/// The number that `text` is as a whole: sign, digits with a point, exponent with e or d. Nothing else is a number, nor
/// is one that no double can hold.
std::optional<double> ReadNumber(std::string_view text);

}  // namespace tarnwick
