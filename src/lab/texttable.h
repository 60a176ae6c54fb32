// Columns of text, aligned for a person.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick::lab {

/// Lays out rows of cells in columns two blanks apart. The first `leftColumns` columns are aligned left, the others
/// right. Short rows end early; no line ends in blanks. Every line ends with a line break.
std::string TextTable(const std::vector<std::vector<std::string>>& rows, std::size_t leftColumns = 1);

/// The text of a message as one line: line breaks become single blanks.
std::string OneLine(std::string_view text);

/// A whole number with thousands separators.
std::string Grouped(std::int64_t number);

}  // namespace tarnwick::lab
