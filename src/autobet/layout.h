// How the editor shapes the text of a script: statement words with capitals, and indentation by structure.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

/// The statement words and connectives of a line in their usual capitals ("ElseIf", "GoTo", "And"); quotes and comment
/// stay as they are.
std::string CapitaliseLine(std::string_view line);

/// Nesting level of each line: the IFs and DOs that are open ahead of it, one more if it opens one, one less if its
/// first word is THEN, IF, ENDIF, ELSE, ELSEIF, DO or LOOP. Never below 0.
std::vector<int> LineLevels(const std::vector<std::string>& lines);

/// Indents lines by three blanks a level. `levels` are those that the lines were given last, -1 where none is known; it
/// is brought up to date. A line that has its level keeps its text, as does a blank one.
void IndentLines(std::vector<std::string>& lines, std::vector<int>& levels);

}  // namespace tarnwick
