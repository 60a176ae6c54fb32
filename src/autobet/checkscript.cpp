#include "autobet/checkscript.h"

#include <algorithm>

#include "autobet/text.h"

namespace tarnwick {

namespace {

bool ContinuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0u) == 0x80u; }

int LengthInCharacters(const std::string& line) {
    return static_cast<int>(std::count_if(line.begin(), line.end(), [](char c) { return !ContinuesCharacter(c); }));
}

/// The column at or behind `column` where the next word begins.
int NextWord(const std::string& line, int column) {
    int at = -1;
    for (const char c : line) {
        if (!ContinuesCharacter(c)) ++at;
        if (at >= column && !IsBlank(c) && c != ':') return at;
    }
    return LengthInCharacters(line);
}

}  // namespace

ScriptVerdict VerdictOf(const CompileError& error, const std::vector<std::string>& lines) {
    ScriptVerdict verdict;
    verdict.Text = error.Text;
    const int count = std::max(1, static_cast<int>(lines.size()));
    verdict.FirstLine = std::clamp(error.FirstLine, 1, count);
    verdict.LastLine = std::clamp(error.LastLine, verdict.FirstLine, count);
    verdict.Title = "Auto-bet script error in line " + std::to_string(verdict.FirstLine);
    if (verdict.LastLine != verdict.FirstLine) {
        verdict.Title = "Auto-bet script error in lines " + std::to_string(verdict.FirstLine) + " thru " +
                        std::to_string(verdict.LastLine);
    }
    if (lines.empty()) return verdict;
    const auto line = [&lines](int number) -> const std::string& {
        return lines[static_cast<std::size_t>(number) - 1];
    };
    const int end = LengthInCharacters(line(verdict.LastLine));
    verdict.FirstCol = NextWord(line(verdict.FirstLine), error.FirstCol);
    verdict.LastCol = error.LastCol == 0 ? end : std::min(error.LastCol, end);
    if (verdict.LastLine == verdict.FirstLine) verdict.LastCol = std::max(verdict.LastCol, verdict.FirstCol);
    return verdict;
}

ScriptVerdict CheckScript(Compilation& c) {
    ScriptVerdict verdict;
    verdict.Title = "Auto-Bet";
    if (c.Lines.size() <= 1 && (c.Lines.empty() || IsAllBlank(c.Lines.front()))) {
        verdict.Text =
            "This feature checks to see that your Auto-Bet script is properly structured, but presently your script is "
            "empty.";
        return verdict;
    }
    if (const auto error = CompileAutobets(c)) return VerdictOf(*error, c.Lines);
    verdict.Proper = true;
    verdict.Text = "Your script is properly structured.";
    return verdict;
}

std::string ScriptErrorMessage(const std::string& name) {
    return name + "'s auto-bet script contains an error which must be corrected before you can run it.\n\nSelect " +
           name + " on the auto-bet screen and click the \"Check Script\" button to see the error.";
}

}  // namespace tarnwick
