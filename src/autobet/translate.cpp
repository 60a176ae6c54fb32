#include "autobet/translate.h"

#include <algorithm>
#include <charconv>

#include "autobet/phrases.h"
#include "autobet/text.h"
#include "autobet/tidy.h"

namespace tarnwick {

bool ExtractStrings(std::string_view tidied, std::vector<PoolString>& pool, std::string& out) {
    out = " ";
    std::size_t from = 0;
    const auto addCode = [&](std::size_t to) { out += LowerText(tidied.substr(from, to - from)); };
    for (std::size_t i = 0; i < tidied.size(); ++i) {
        if (tidied[i] == '\'') {
            tidied = tidied.substr(0, i);
            break;
        }
        if (tidied[i] != '"') continue;
        const std::size_t close = tidied.find('"', i + 1);
        if (close == std::string_view::npos) return false;
        addCode(i);
        if (close == i + 1) {
            out += " S0 ";
        } else {
            const std::string index = std::to_string(pool.size());
            pool.push_back({std::string(tidied.substr(i + 1, close - i - 1)), 0});
            out += " S" + std::string(index.size() < 3 ? 3 - index.size() : 0, '0') + index + " ";
        }
        i = close;
        from = close + 1;
    }
    if (from < tidied.size()) addCode(tidied.size());
    out += " ";
    std::replace_if(out.begin(), out.end(), IsBlank, ' ');
    CollapseBlanks(out);
    return true;
}

namespace {

/// What a player's name looks like in a line when the table is through with it.
std::string NameKey(std::string_view name) {
    std::string key = " " + LowerText(TidyLine(name)) + " ";
    std::replace_if(key.begin(), key.end(), IsBlank, ' ');
    CollapseBlanks(key);
    return key;
}

std::string PlayerCode(int position) { return " P" + std::to_string(position) + " "; }

}  // namespace

std::string ReplacePhrases(std::string_view line, const std::array<std::string, 9>& playerNames) {
    std::string text(line);
    LetterPairs pairs(text);
    for (const PhraseRow& row : AllPhrases()) {
        // Keys of one character have no pairs and are always searched.
        if (!pairs.Holds(row.Pairs) || !ReplaceAll(text, row.Row.Key, row.Row.Value)) continue;
        CollapseBlanks(text);
        pairs = LetterPairs(text);
    }
    for (int p = 1; p <= 8; ++p) {
        const std::string& name = playerNames[static_cast<std::size_t>(p)];
        if (IsAllBlank(name)) continue;
        if (ReplaceAll(text, NameKey(name), PlayerCode(p))) CollapseBlanks(text);
    }
    ReplaceAll(text, " the ", " ");
    ReplaceAll(text, " a ", " ");
    text.erase(std::remove_if(text.begin(), text.end(), [](char c) { return c == '$' || c == '#'; }), text.end());
    CollapseBlanks(text);
    return text;
}

namespace {

CompileError AtLine(std::string text, int line) { return {std::move(text), line, line, 0, 0}; }

std::string UnknownToken(std::string_view token) {
    if (token == "playername") {
        return "Unknown player\n\nPlease enter actual name of player or refer to player's position such as player1, "
               "player2, etc.";
    }
    if (token == "session") return "Please specify:\n\ncurrent session, last session, or all sessions.";
    if (token == "hand") return "Please specify:\n\ncurrent hand, last hand, or all hands.";
    return "Unknown or misplaced element:\n\n" + std::string(token);
}

/// Code that a letter stands for; 1 for L, whose number is the code; 2 for no letter of ours.
std::int32_t CodeOfLetter(char letter) {
    switch (letter) {
        case 'F':
            return Code::Function;
        case 'V':
            return Code::Variable;
        case 'P':
            return Code::Player;
        case 'H':
            return Code::Scope;
        case 'X':
            return Code::Result;
        case 'Y':
            return Code::Statistic;
        case 'I':
            return Code::Quantifier;
        case 'A':
            return Code::Action;
        case 'S':
            return Code::String;
        case 'L':
            return 1;
        default:
            return 2;
    }
}

/// Cuts the translated lines to elements and sets the line markers.
class ElementCutter {
  public:
    explicit ElementCutter(Compilation& compilation) : C(compilation) {
        C.Elements.assign(1, {});
        C.Elements.push_back({Code::ScriptStart, static_cast<double>(C.Slot)});
        C.Elements.push_back({Code::Marker, 0});
    }

    std::optional<CompileError> Line(int number, std::string_view raw, std::string_view text) {
        LineNumber = number;
        if (!IsAllBlank(text)) {
            if (IsMarker(Last())) Last() = {Code::Marker + number, 0};
            Keywords = FindKeywords(raw);
            NextKeyword = 0;
            for (std::size_t at = 0; at < text.size();) {
                const std::size_t end = std::min(text.find(' ', at), text.size());
                if (end > at && !Token(text.substr(at, end - at))) {
                    return AtLine(UnknownToken(text.substr(at, end - at)), number);
                }
                at = end + 1;
            }
        }
        if (!IsMarker(Last())) C.Elements.push_back({});
        Last() = {Code::Marker + number + 1, 0};
        return std::nullopt;
    }

  private:
    Element& Last() { return C.Elements.back(); }
    void Mark(int column) { C.Elements.push_back({Code::Marker + LineNumber, static_cast<double>(column)}); }

    bool Token(std::string_view token) {
        if (const auto number = ReadNumber(token)) {
            C.Elements.push_back({Code::Number, *number});
            return true;
        }
        const std::int32_t code = CodeOfLetter(token.front());
        std::string_view digits = token.substr(1);
        if (code == Code::Function || code == Code::Variable) digits = digits.substr(0, digits.find('.'));
        std::int32_t number = 0;
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        if (code == 2 || read.ec != std::errc{} || read.ptr != digits.data() + digits.size()) return false;
        if (code != 1) {
            C.Elements.push_back({code, static_cast<double>(number)});
        } else if (number <= Code::LastKeyword) {
            Statement(number);
        } else if (number == Code::Marker) {
            Colon();
        } else {
            C.Elements.push_back({number, 0});
        }
        return true;
    }

    /// Statement words stand alone between markers, but for GOTO and GOSUB, which keep what they refer to.
    void Statement(std::int32_t number) {
        const Keyword word = Take(number);
        const bool alone = number != Code::Goto && number != Code::Gosub;
        if (alone && !IsMarker(Last())) Mark(word.Start);
        C.Elements.push_back({number, 0});
        if (alone) Mark(word.End);
    }

    void Colon() {
        const Keyword colon = Take(Code::Marker);
        if (!IsMarker(Last())) C.Elements.push_back({});
        Last() = {Code::Marker + LineNumber, static_cast<double>(colon.Start)};
    }

    /// The words of a line come in the same order in the raw line.
    Keyword Take(std::int32_t code) {
        for (std::size_t i = NextKeyword; i < Keywords.size(); ++i) {
            if (Keywords[i].Code != code) continue;
            NextKeyword = i + 1;
            return Keywords[i];
        }
        return {};
    }

    Compilation& C;
    int LineNumber = 0;
    std::vector<Keyword> Keywords;
    std::size_t NextKeyword = 0;
};

}  // namespace

std::optional<CompileError> TranslatePhrases(Compilation& c) {
    c.Pool.assign(1, {});
    c.Program = {};
    ElementCutter cutter(c);
    std::string text;
    for (std::size_t i = 0; i < c.Lines.size(); ++i) {
        const int number = static_cast<int>(i) + 1;
        if (!ExtractStrings(TidyLine(c.Lines[i]), c.Pool, text)) return AtLine("Missing quotation mark.", number);
        if (!IsAllBlank(text)) text = ReplacePhrases(text, c.PlayerNames);
        if (auto error = cutter.Line(number, c.Lines[i], text)) return error;
    }
    return std::nullopt;
}

std::string NameRefusal(std::string_view name, const std::array<std::string, 9>& playerNames, int exceptPosition) {
    constexpr std::string_view another = "\n\nPlease enter a different name.";
    if (ReadNumber(TrimBlanks(name))) {
        return "Unfortunately, a player's name can't be all numeric because it would cause confusion in auto-betting." +
               std::string(another);
    }
    std::string padded = " " + LowerText(name) + " ";
    std::replace_if(padded.begin(), padded.end(), IsBlank, ' ');
    const auto holds = [&padded](std::string_view key) { return padded.find(key) != std::string::npos; };
    const auto& rows = AllPhrases();
    bool reserved = std::any_of(rows.begin(), rows.end(), [&](const PhraseRow& row) { return holds(row.Row.Key); });
    for (int p = 1; p <= 8 && !reserved; ++p) {
        const std::string& other = playerNames[static_cast<std::size_t>(p)];
        reserved = p != exceptPosition && !IsAllBlank(other) && holds(NameKey(other));
    }
    if (!reserved) return {};
    return "Unfortunately, \"" + std::string(name) +
           "\" contains a word, phrase, or symbol used in auto-betting and therefore can't be used." +
           std::string(another);
}

}  // namespace tarnwick
