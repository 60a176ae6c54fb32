#include "autobet/layout.h"

#include <algorithm>
#include <array>

#include "autobet/element.h"
#include "autobet/text.h"
#include "autobet/tidy.h"

namespace tarnwick {

namespace {

constexpr std::array<std::string_view, 14> Capitals = {"If",     "Then", "ElseIf", "Else", "GoTo", "GoSub", "EndIf",
                                                       "Return", "And",  "Xor",    "Or",   "Do",   "Loop",  "ExitDo"};

bool IsLetter(char c) {
    return ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z') || IsDigit(c) || c == '$' || c == '#' || c == '.' ||
           c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

std::string Capitalised(const std::string& word) {
    const std::string lower = LowerText(word);
    for (const std::string_view known : Capitals) {
        if (lower == LowerText(known)) return std::string(known);
    }
    return word;
}

}  // namespace

std::string CapitaliseLine(std::string_view line) {
    std::string out;
    std::string word;
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (!quoted && IsLetter(c)) {
            word += c;
            continue;
        }
        out += Capitalised(word);
        word.clear();
        if (c == '"') quoted = !quoted;
        if (c == '\'' && !quoted) return out + std::string(line.substr(i));
        out += c;
    }
    return out + Capitalised(word);
}

std::vector<int> LineLevels(const std::vector<std::string>& lines) {
    std::vector<int> levels;
    levels.reserve(lines.size());
    int depth = 0;
    for (const std::string& line : lines) {
        const std::vector<Keyword> words = FindKeywords(line);
        const auto text = static_cast<std::size_t>(
            std::find_if(line.begin(), line.end(), [](char c) { return !IsBlank(c); }) - line.begin());
        const int first = !words.empty() && words.front().Byte == text ? words.front().Code : 0;
        // IF and DO stand at the level that they open: one up and one down.
        const bool outward = first == Code::Then || first == Code::EndIf || first == Code::Else ||
                             first == Code::ElseIf || first == Code::Loop;
        levels.push_back(std::max(0, depth - (outward ? 1 : 0)));
        for (const Keyword& word : words) {
            if (word.Code == Code::If || word.Code == Code::Do) ++depth;
            if (word.Code == Code::EndIf || word.Code == Code::Loop) depth = std::max(0, depth - 1);
        }
    }
    return levels;
}

void IndentLines(std::vector<std::string>& lines, std::vector<int>& levels) {
    const std::vector<int> wanted = LineLevels(lines);
    levels.resize(lines.size(), -1);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (levels[i] == wanted[i]) continue;
        levels[i] = wanted[i];
        const std::string_view text = lines[i];
        const std::size_t start = text.find_first_not_of(" \t");
        if (start == std::string_view::npos) continue;
        lines[i] = std::string(static_cast<std::size_t>(wanted[i]) * 3, ' ') + std::string(text.substr(start));
    }
}

}  // namespace tarnwick
