// Numbers as text, and back, independent of any locale.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "table/currency.h"

namespace tarnwick {

/// An amount with thousands separators for messages: whole amounts by "#,#;-#,#;0" (1,000), others by
/// "#,#.00##;-#,#.00##;0.00" (no leading zero: .50).
std::string FormatCommas(currency amount);

/// An amount as a plain decimal for logs and files: up to four places, no separators, no trailing zeros ("0.5").
std::string PlainAmount(currency amount);
/// The same at `to`, which has room for LongestAmount characters; returns the end. As fast as can be, for logs.
constexpr std::size_t LongestAmount = 24;
char* WritePlainAmount(char* to, currency amount);

/// A number by a pattern of up to three sections (positive; negative; zero) such as "#,#.0###;-#,#;0": "#" shows a
/// digit if there is one, "0" always does, "," in the whole part groups by thousands, other characters stand as they
/// are. Halves round away from zero on the exact decimal; a value that rounds to zero takes the third section.
/// Without a second section a negative number takes the first with "-" ahead; without a third, zero takes the first.
std::string FormatPattern(currency amount, std::string_view pattern);
std::string FormatPattern(double value, std::string_view pattern);

/// Reads an amount as a person types it: an optional "$" and sign, digits with or without thousands separators, up to
/// four places counted (the rest rounds half to even). Nothing for any other text or one out of range.
std::optional<currency> ParseAmount(std::string_view text);

/// Reads a whole number of 32 bits, with nothing around it but blanks.
std::optional<int> ParseInteger(std::string_view text);

/// `text` without blanks at both ends.
std::string_view Trim(std::string_view text);
/// ASCII letters in lower case.
std::string LowerCase(std::string_view text);

}  // namespace tarnwick
