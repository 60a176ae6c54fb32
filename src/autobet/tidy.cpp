#include "autobet/tidy.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "autobet/element.h"
#include "autobet/numbertext.h"
#include "autobet/text.h"

namespace tarnwick {

namespace {

constexpr std::string_view BlankAhead = "(:)=^*/\\+-<>&";
constexpr std::string_view BlankBehind = "(:)=^*/\\+-<>&$;,";
constexpr std::string_view NoBracketJoin = "=:^*/\\+-<>&";

bool In(char c, std::string_view set) { return set.find(c) != std::string_view::npos; }

/// A comparison of two characters.
bool IsCompound(std::string_view word) {
    return word == "<>" || word == "<=" || word == ">=" || word == "=<" || word == "=>";
}

/// Where the quoted text that opens at `open` ends: behind its closing quote, or the end of the line.
std::size_t QuoteEnd(std::string_view line, std::size_t open) {
    const std::size_t close = line.find('"', open + 1);
    return close == std::string_view::npos ? line.size() : close + 1;
}

/// A line in words: code words without blanks, quoted texts, the comment. Between two words stands one blank.
using Words = std::vector<std::string>;

bool IsQuoted(const std::string& word) { return word.front() == '"'; }

/// First scan: operators stand alone, "$", ";" and "," end a word.
Words SplitWords(std::string_view code, std::string& comment) {
    Words words;
    std::string word;
    const auto finish = [&] {
        if (!word.empty()) words.push_back(word);
        word.clear();
    };
    for (std::size_t i = 0; i < code.size();) {
        const char c = code[i];
        if (c == '\'') {
            comment = code.substr(i);
            break;
        }
        if (c == '"') {
            finish();
            const std::size_t end = QuoteEnd(code, i);
            words.emplace_back(code.substr(i, end - i));
            if (end == code.size() && (end - i < 2 || code.back() != '"')) words.back() += '"';
            i = end;
            continue;
        }
        if (IsCompound(code.substr(i, 2))) {
            finish();
            words.emplace_back(code.substr(i, 2));
            i += 2;
            continue;
        }
        if (IsBlank(c) || In(c, BlankAhead)) finish();
        if (!IsBlank(c)) word += c;
        if (In(c, BlankBehind)) finish();
        ++i;
    }
    finish();
    return words;
}

/// Second scan: a numeric word in general format, its comma kept. What has no plain form stays as typed.
void TidyNumber(std::string& word) {
    const bool comma = word.size() > 1 && word.back() == ',';
    const auto number = ReadNumber(std::string_view(word).substr(0, word.size() - (comma ? 1 : 0)));
    if (!number) return;
    const std::string plain = GeneralNumber(*number);
    if (plain.find('E') == std::string::npos) word = plain + (comma ? "," : "");
}

bool IsNumericWord(std::string_view word) {
    if (!word.empty() && (word.back() == ',' || word.back() == ';')) word.remove_suffix(1);
    return ReadNumber(word).has_value();
}

/// Third scan, the operators: appends `word` to `words`, or resolves it with the operator that stands there.
void AppendOperator(Words& words, std::string word) {
    for (;;) {
        if (words.empty() || words.back().size() != 1 || word.size() != 1) break;
        const char last = words.back()[0];
        const char next = word[0];
        if (next == '+' && In(last, "<=>^*/\\+-")) return;
        if (next == '-' && In(last, "+-")) {
            words.pop_back();
            word = last == '-' ? "+" : "-";
            continue;  // the sign that is left may meet another operator
        }
        if (In(next, "<=>") && In(last, "<=>") && next != last) {
            word = last == '>' && next == '<' ? std::string("<>") : std::string{last, next};
            words.pop_back();
        }
        break;
    }
    if (word == "+" && !words.empty() && IsCompound(words.back())) return;
    words.push_back(std::move(word));
}

/// Third scan, the words: doubled operators and colons become one, "go to" and "end if" one word.
Words JoinWords(const Words& split) {
    Words words;
    for (const std::string& next : split) {
        if (IsQuoted(next)) {
            words.push_back(next);
            continue;
        }
        if (next == ":" && !words.empty() && words.back() == ":") continue;
        const std::string lower = LowerText(next);
        const std::string last = words.empty() ? std::string{} : LowerText(words.back());
        if ((lower == "to" && last == "go") || (lower == "if" && last == "end")) {
            words.back() = last + lower;
            continue;
        }
        AppendOperator(words, next);
    }
    return words;
}

bool KeepsBracketApart(const std::string& word) {
    constexpr std::array<std::string_view, 11> keywords = {"do",   "or",   "if",   "xor",   "and",   "wend",
                                                           "else", "then", "when", "while", "elseif"};
    if (In(word.back(), NoBracketJoin)) return true;
    return std::find(keywords.begin(), keywords.end(), LowerText(word)) != keywords.end();
}

/// Whether the blank between words[i - 1] and words[i] falls away.
bool Joined(const Words& words, std::size_t i) {
    const std::string& last = words[i - 1];
    const std::string& next = words[i];
    if (next == ")" || next[0] == ';' || next[0] == ',') return true;
    if (next == "(") return !KeepsBracketApart(last);
    if (last == "(") return true;
    if (IsQuoted(last) || IsQuoted(next)) return false;
    if (last.back() == '$') return IsNumericWord(next);
    if (last != "-" || !(IsDigit(next[0]) || next[0] == '.')) return false;
    return i == 1 || (!IsQuoted(words[i - 2]) && In(words[i - 2].back(), "=(^*/\\"));
}

}  // namespace

std::string TidyLine(std::string_view line) {
    while (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    std::size_t start = 0;
    while (start < line.size() && IsBlank(line[start])) ++start;
    std::string tidy(line.substr(0, start));
    std::string comment;
    Words words = SplitWords(line.substr(start), comment);
    for (std::string& word : words) {
        if (!IsQuoted(word)) TidyNumber(word);
    }
    words = JoinWords(words);
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (i > 0 && !Joined(words, i)) tidy += ' ';
        tidy += words[i];
    }
    if (!comment.empty() && !words.empty()) tidy += ' ';
    return tidy + comment;
}

namespace {

constexpr std::string_view WordBreaks = "()[]{}<>=^*/\\+-%&,;:\"'";

/// Code of a statement word; 0 for any other word, -1 for "end" and -2 for "go", which may begin one.
int KeywordCode(std::string_view word) {
    struct Entry {
        std::string_view Word;
        int Code;
    };
    constexpr std::array<Entry, 13> entries = {{{"if", Code::If},
                                                {"then", Code::Then},
                                                {"else", Code::Else},
                                                {"elseif", Code::ElseIf},
                                                {"endif", Code::EndIf},
                                                {"return", Code::Return},
                                                {"goto", Code::Goto},
                                                {"gosub", Code::Gosub},
                                                {"do", Code::Do},
                                                {"loop", Code::Loop},
                                                {"exitdo", Code::ExitDo},
                                                {"end", -1},
                                                {"go", -2}}};
    const std::string lower = LowerText(word);
    for (const Entry& e : entries) {
        if (e.Word == lower) return e.Code;
    }
    return 0;
}

bool ContinuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0u) == 0x80u; }

/// Walks a raw line; columns count characters, however many bytes one has.
class KeywordScan {
  public:
    explicit KeywordScan(std::string_view line) : Line(line) {}

    std::vector<Keyword> Run() {
        while (At < Line.size() && Line[At] != '\'') {
            const char c = Line[At];
            if (IsBlank(c)) {
                Step();
            } else if (c == '"') {
                const std::size_t end = QuoteEnd(Line, At);
                while (At < end) Step();
                Forget();
            } else if (c == ':') {
                Colon();
            } else if (In(c, WordBreaks)) {
                Step();
                Forget();
            } else {
                Word();
            }
        }
        return std::move(Found);
    }

  private:
    void Step() {
        ++At;
        if (At >= Line.size() || !ContinuesCharacter(Line[At])) ++Column;
    }

    void Forget() {
        Half = 0;
        LastWasColon = false;
    }

    void Colon() {
        const bool more = !Found.empty() && Found.back().Code == Code::Marker && LastWasColon;
        if (!more) Found.push_back({Code::Marker, Column, Column + 1, At, 1});
        Step();
        Half = 0;
        LastWasColon = true;
    }

    void Word() {
        const std::size_t from = At;
        const int column = Column;
        while (At < Line.size() && !IsBlank(Line[At]) && !In(Line[At], WordBreaks)) {
            const bool ends = Line[At] == '$';
            Step();
            if (ends) break;
        }
        Found.push_back({KeywordCode(Line.substr(from, At - from)), column, Column, from, At - from});
        Keyword& found = Found.back();
        const int half = std::exchange(Half, found.Code);
        LastWasColon = false;
        const bool endIf = half == -1 && found.Code == Code::If;
        const bool goTo = half == -2 && LowerText(Line.substr(from, At - from)) == "to";
        if (endIf || goTo) {
            found = {endIf ? Code::EndIf : Code::Goto, HalfWord.Start, Column, HalfWord.Byte, At - HalfWord.Byte};
            Half = 0;
        } else if (found.Code < 0) {
            HalfWord = found;
        }
        if (found.Code <= 0) Found.pop_back();
    }

    std::string_view Line;
    std::size_t At = 0;
    int Column = 0;
    int Half = 0;  // of the word just read: "end" or "go", which the next word may complete
    bool LastWasColon = false;
    Keyword HalfWord;
    std::vector<Keyword> Found;
};

}  // namespace

std::vector<Keyword> FindKeywords(std::string_view line) { return KeywordScan(line).Run(); }

}  // namespace tarnwick
