#include "autobet/oldscript.h"

#include <algorithm>
#include <utility>

#include "autobet/text.h"
#include "files/codepage.h"
#include "files/record.h"

namespace tarnwick {

namespace {

struct OldHead {
    std::string_view Text;
    ScriptForm Form;
};
constexpr OldHead OldHeads[] = {
    {"Marrowgate AutoBets, Data Format 5.0", ScriptForm::Marrowgate50},
    {"Tarnwick AutoBets, Data Format 3.9", ScriptForm::Tarnwick39},
    {"Tarnwick AutoBets, Data Format 5.0", ScriptForm::Tarnwick50},
};

constexpr std::size_t RowTextAt = 2, RowTextLength = 128;

enum RowType {
    Condition1 = 1,
    Condition2 = 2,
    Continuation = 13,
    AndRow = 20,
    ColonRow = 30,
    Label = 90,
    Comment = 99,
};

bool IsWordByte(char c) {
    const char lower = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return IsDigit(c) || (lower >= 'a' && lower <= 'z');
}

bool StartsWith(std::string_view text, std::string_view start) { return text.substr(0, start.size()) == start; }

/// Closes the bracket that the rows for "ref" open ahead of a CheckStack.
void CloseReferences(std::string& line) {
    constexpr std::string_view opened = "(CheckStack";
    std::size_t at = 0;
    while ((at = line.find(opened, at)) != std::string::npos) {
        at += opened.size();
        // "(CheckStacks)" and "(CheckStackNames)" are lists, which are closed.
        while (at < line.size() && IsWordByte(line[at])) ++at;
        if (at == line.size() || line[at] != ')') line.insert(at, 1, ')');
    }
}

bool IsAmount(std::string_view word) {
    return !word.empty() && (IsDigit(word[0]) || word[0] == '$' || StartsWith(LowerText(word), "checkstack"));
}

/// "bet on X 5", "add to X 5" and "subtract from X 5" become "bet 5 on X" and so on.
void TurnAround(std::string& line) {
    constexpr std::pair<std::string_view, std::string_view> orders[] = {
        {" bet", " on "}, {" add", " to "}, {" subtract", " from "}};
    if (line.find_first_of("'\"") != std::string::npos) return;
    const std::string lower = LowerText(line);
    for (const auto& [verb, link] : orders) {
        if (!StartsWith(lower, verb) || lower.compare(verb.size(), link.size(), link) != 0) continue;
        const std::size_t bet = verb.size() + link.size();
        const std::size_t blank = line.find_last_of(' ');
        if (blank <= bet) return;
        const std::string amount = line.substr(blank + 1);
        const std::string_view name = TrimBlanks(std::string_view(line).substr(bet, blank - bet));
        if (name.empty() || !IsAmount(amount)) return;
        line = line.substr(0, verb.size()) + " " + amount + line.substr(verb.size(), link.size()) + std::string(name);
        return;
    }
}

/// Collects the lines of a script from its rows.
class Converter {
  public:
    void AddRow(int type, std::string_view text);
    std::vector<std::string> Finish();

  private:
    void AddCode(std::string line) {
        LastCode = Lines.size();
        Lines.push_back(std::move(line));
    }
    /// Adds to the line before; a comment in between is passed over, since it would swallow what is added.
    void AppendCode(std::string_view more) {
        if (LastCode < Lines.size()) Lines[LastCode] += more;
    }
    void EndConditions() {
        if (std::exchange(ThenIsDue, false)) AppendCode(" Then");
    }
    void CloseBlock() {
        EndConditions();
        if (std::exchange(BlockIsOpen, false)) AddCode(" EndIf");
    }

    std::vector<std::string> Lines;
    std::size_t LastCode = static_cast<std::size_t>(-1);
    bool BlockIsOpen = false;
    bool ThenIsDue = false;
};

void Converter::AddRow(int type, std::string_view text) {
    switch (type) {
        case Condition1:
        case Condition2:
            CloseBlock();
            AddCode(RewriteOldRow(text));
            BlockIsOpen = ThenIsDue = true;
            break;
        case Continuation:
            if (LastCode < Lines.size()) {
                AppendCode(RewriteOldRow(text));
            } else {
                AddCode(RewriteOldRow(text));
            }
            break;
        case AndRow:
            AppendCode(" and");
            AddCode(RewriteOldRow(text));
            break;
        case ColonRow:
            EndConditions();
            AppendCode(" :");
            AddCode(RewriteOldRow(text));
            break;
        case Label:
            EndConditions();
            AddCode(":\"" + std::string(TrimBlanks(text)) + "\" :");
            break;
        case Comment:
            Lines.push_back("'" + std::string(text));
            break;
        default:
            EndConditions();
            AddCode(RewriteOldRow(text));
    }
}

std::vector<std::string> Converter::Finish() {
    CloseBlock();
    if (Lines.empty()) Lines.emplace_back();
    return std::move(Lines);
}

}  // namespace

ScriptForm OldScriptForm(std::string_view bytes) {
    for (const OldHead& head : OldHeads) {
        if (StartsWith(bytes, head.Text)) return head.Form;
    }
    return ScriptForm::Text;
}

void ReplaceOldPhrase(std::string& line, std::string& lower, const OldPhrase& phrase) {
    std::size_t at = lower.find(phrase.Search);
    if (at == std::string::npos) return;
    std::string replaced;
    std::size_t from = 0;
    for (; at != std::string::npos; at = lower.find(phrase.Search, from)) {
        replaced.append(line, from, at - from);
        replaced += phrase.Replacement;
        from = at + phrase.Search.size();
    }
    line = replaced.append(line, from);
    lower = LowerText(line);
}

std::string RewriteOldRow(std::string_view text) {
    const std::size_t end = text.find_last_not_of(' ');
    std::string line = " " + std::string(text.substr(0, end + 1));
    std::string lower = LowerText(line);
    for (const OldPhrase& phrase : OldPhrases) ReplaceOldPhrase(line, lower, phrase);
    CloseReferences(line);
    TurnAround(line);
    return line;
}

std::vector<std::string> ConvertOldScript(std::string_view bytes) {
    Converter converter;
    for (std::size_t at = RecordLength; at < bytes.size(); at += RecordLength) {
        const Record record(bytes.substr(at));
        const std::string_view text = record.Text(RowTextAt, RowTextLength);
        if (text[0] != '\0') converter.AddRow(record.Int16(0), FieldText(text));
    }
    return converter.Finish();
}

}  // namespace tarnwick
