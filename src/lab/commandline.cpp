#include "lab/commandline.h"

#include <charconv>

#include "table/format.h"

namespace tarnwick::lab {

namespace {

constexpr std::array<std::string_view, Scopes> ScopeNames = {"hand", "last-hand", "session", "last-session", "all"};

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

template <class T>
Parsed<T> Wrong(std::string fault) {
    return {T{}, std::move(fault)};
}

/// Reads the quoted word that starts at `i` (a quote); false when it does not end.
bool ReadQuoted(std::string_view line, std::size_t& i, std::string& text) {
    for (++i; i < line.size(); ++i) {
        if (line[i] != '"') {
            text += line[i];
        } else if (i + 1 < line.size() && line[i + 1] == '"') {
            text += line[++i];
        } else {
            ++i;
            return true;
        }
    }
    return false;
}

}  // namespace

CommandLine SplitCommand(std::string_view line) {
    CommandLine result;
    std::size_t i = 0;
    while (true) {
        while (i < line.size() && IsBlank(line[i])) ++i;
        if (i == line.size() || line[i] == '#') break;
        Word word;
        word.Begin = i;
        if (line[i] == '"') {
            word.Quoted = true;
            if (!ReadQuoted(line, i, word.Text)) {
                result.Fault = "a quote is not closed";
                return result;
            }
            if (i < line.size() && !IsBlank(line[i])) {
                result.Fault = "a blank is missing after " + Quoted(word.Text);
                return result;
            }
        } else {
            while (i < line.size() && !IsBlank(line[i])) word.Text += line[i++];
        }
        result.Words.push_back(std::move(word));
    }
    result.Code = line.substr(0, i);
    return result;
}

std::string CommandLine::RestFrom(std::size_t n) const {
    if (n >= Words.size()) return {};
    if (n + 1 == Words.size()) return Words[n].Text;
    return std::string(Trim(std::string_view(Code).substr(Words[n].Begin)));
}

Parsed<int> ParsePosition(std::string_view text, bool allowHouse) {
    const std::optional<int> p = ParseInteger(text);
    if (p && (allowHouse ? 0 : 1) <= *p && *p < Positions) return {*p, {}};
    return Wrong<int>(Quoted(text) + (allowHouse ? " is no position 0 to 8" : " is no position 1 to 8"));
}

Parsed<int> ParseRow(std::string_view text) {
    const std::optional<int> number = ParseInteger(text);
    const int row = number ? *number : RowByName(text);
    if (IsLayoutRow(row) || IsStack(row)) return {row, {}};
    if (number) return Wrong<int>(Quoted(text) + " is no row: bets are 1 to 91, CheckStacks 100 to 199");
    return Wrong<int>("there is no bet called " + Quoted(text));
}

Parsed<currency> ParseMoney(std::string_view text) {
    if (const std::optional<currency> amount = ParseAmount(text)) return {*amount, {}};
    return Wrong<currency>(Quoted(text) + " is no amount");
}

Parsed<std::uint64_t> ParseCount(std::string_view text, std::uint64_t lowest, std::uint64_t highest) {
    std::uint64_t value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error == std::errc{} && stop == end && lowest <= value && value <= highest) return {value, {}};
    return Wrong<std::uint64_t>(Quoted(text) + " is no whole number from " + std::to_string(lowest) + " to " +
                                std::to_string(highest));
}

Parsed<int> ParseScope(std::string_view text) {
    const std::string word = LowerCase(text);
    for (int scope = 0; scope < Scopes; ++scope) {
        if (word == ScopeName(scope) || word == std::to_string(scope)) return {scope, {}};
    }
    return Wrong<int>(Quoted(text) + " is no scope: hand, last-hand, session, last-session, all, or 0 to 4");
}

std::string_view ScopeName(int scope) { return ScopeNames[static_cast<std::size_t>(scope)]; }

Parsed<PlayerOption> ParsePlayerOption(std::string_view text) {
    constexpr const char* form = " is not of the form P:NAME:BUYIN or P:NAME:BUYIN:SCRIPT";
    const std::size_t first = text.find(':');
    std::size_t begin = first == std::string_view::npos ? first : text.find(':', first + 1);
    if (begin == std::string_view::npos) return Wrong<PlayerOption>(Quoted(text) + form);
    const auto p = ParsePosition(text.substr(0, first));
    if (!p) return Wrong<PlayerOption>(p.Fault);
    std::string fault;
    while (begin != std::string_view::npos) {
        const std::size_t end = text.find(':', begin + 1);
        const auto buyIn = ParseMoney(text.substr(begin + 1, end == std::string_view::npos ? end : end - begin - 1));
        const bool hasScript = end != std::string_view::npos;
        if (buyIn && hasScript && end + 1 == text.size()) return Wrong<PlayerOption>(Quoted(text) + form);
        if (buyIn) {
            return {{p.Value, std::string(text.substr(first + 1, begin - first - 1)), buyIn.Value,
                     hasScript ? std::string(text.substr(end + 1)) : std::string()},
                    {}};
        }
        if (fault.empty()) fault = buyIn.Fault;
        begin = end;
    }
    return Wrong<PlayerOption>(fault);
}

Parsed<NameOption> ParseNameOption(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos) return Wrong<NameOption>(Quoted(text) + " is not of the form P:NAME");
    const auto p = ParsePosition(text.substr(0, colon));
    if (!p) return Wrong<NameOption>(p.Fault);
    return {{p.Value, std::string(text.substr(colon + 1))}, {}};
}

Parsed<BetOption> ParseBetOption(std::string_view text) {
    const std::size_t first = text.find(':');
    const std::size_t last = text.rfind(':');
    if (first == std::string_view::npos || first == last) {
        return Wrong<BetOption>(Quoted(text) + " is not of the form P:ROW:AMOUNT");
    }
    const auto p = ParsePosition(text.substr(0, first));
    if (!p) return Wrong<BetOption>(p.Fault);
    const auto row = ParseRow(text.substr(first + 1, last - first - 1));
    if (!row) return Wrong<BetOption>(row.Fault);
    const auto amount = ParseMoney(text.substr(last + 1));
    if (!amount) return Wrong<BetOption>(amount.Fault);
    if (amount.Value <= currency{}) return Wrong<BetOption>("a bet of " + Quoted(text.substr(last + 1)) + " is none");
    return {{p.Value, row.Value, amount.Value}, {}};
}

Parsed<SettingOption> ParseSettingOption(std::string_view text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos || equals == 0) {
        return Wrong<SettingOption>(Quoted(text) + " is not of the form NAME=VALUE");
    }
    return {{std::string(Trim(text.substr(0, equals))), std::string(Trim(text.substr(equals + 1)))}, {}};
}

std::string ShellQuoted(std::string_view text) {
    constexpr std::string_view plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-+=:,./@%";
    if (!text.empty() && text.find_first_not_of(plain) == std::string_view::npos) return std::string(text);
    std::string out = "'";
    for (const char c : text) {
        if (c == '\'') {
            out += "'\\''";
        } else {
            out += c;
        }
    }
    return out + "'";
}

}  // namespace tarnwick::lab
