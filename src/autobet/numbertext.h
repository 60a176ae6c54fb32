// Numbers and characters as the script language writes and reads them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

/// A number in the general format: 15 significant digits, plain from 1E-15 to below 1E+15 ("0.5", "-12"), otherwise as
/// "1.5E+20". Zero of either sign is "0".
std::string GeneralNumber(double value);

/// The number at the start of `text` behind blanks: a sign, digits, a point, an exponent by e or d; 0 when there is
/// none. A number beyond the range of double is an infinity.
double NumberAtStart(std::string_view text);

/// Half-even whole number of 32 bits; nothing for a value that rounds out of its range, or for NaN.
std::optional<std::int32_t> RoundToInt32(double value);

/// Count of characters (not bytes) of UTF-8 text. A byte that begins no character counts as one.
std::int32_t CharacterCount(std::string_view text);

/// The bytes of `count` characters behind the first `skip`; both are clamped to the text. Negative ones count as 0.
std::string_view Characters(std::string_view text, std::int32_t skip, std::int32_t count);

/// The character of code 0..255 in the one-byte code page of scripts (1252), as UTF-8.
std::string CharacterOfCode(int code);

/// Code of the first character in that code page; 0 for an empty text, 63 ("?") for a character outside it.
int CodeOfCharacter(std::string_view text);

}  // namespace tarnwick
