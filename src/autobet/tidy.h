// One source line in its usual spelling, and where the statement words of a raw line stand.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

/// Normalises a source line: one blank around operators and between words, numbers in general format, compound
/// operators joined ("< =" to "<="), doubled signs resolved ("- -" to "+"), "go to" to "goto", "end if" to "endif".
/// Indentation, quoted text and the comment stay as they are; an open quote is closed. Never changes what a line means,
/// and a tidy line stays as it is.
std::string TidyLine(std::string_view line);

/// A statement word or colon of a raw line.
struct Keyword {
    int Code = 0;          ///< 1..18, or 100 for a run of colons
    int Start = 0;         ///< column of its first character, from 0, in characters
    int End = 0;           ///< column behind its last
    std::size_t Byte = 0;  ///< where Start is in the line
    std::size_t Size = 0;  ///< in bytes
};

/// All of them from left to right, outside of quotes and comment. "end if" and "go to" count as one word.
std::vector<Keyword> FindKeywords(std::string_view line);

}  // namespace tarnwick
