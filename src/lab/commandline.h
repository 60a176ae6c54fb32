// What the laboratory's commands are made of: words, positions, rows, amounts. Each reader says what is wrong.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "table/crapcnst.h"

namespace tarnwick::lab {

struct Word {
    std::string Text;
    bool Quoted = false;
    std::size_t Begin = 0;  ///< where it starts in the line

    bool operator==(const Word&) const = default;
};

struct CommandLine {
    std::vector<Word> Words;
    std::string Code;   ///< the line up to its comment
    std::string Fault;  ///< what is wrong with the line, or nothing

    /// The rest of the line from word `n` on: the word itself when it is the last one, else as written.
    std::string RestFrom(std::size_t n) const;
};

/// Splits a line into words at blanks. Double quotes hold blanks and "#" together, and "" in them stands for one quote.
/// "#" at the start of a word begins a comment.
CommandLine SplitCommand(std::string_view line);

/// A reader's value, or what is wrong.
template <class T>
struct Parsed {
    T Value{};
    std::string Fault;
    explicit operator bool() const { return Fault.empty(); }
};

/// A position 1..8, or 0..8 when the House is allowed.
Parsed<int> ParsePosition(std::string_view text, bool allowHouse = false);
/// A bet's row 1..91 or a CheckStack's 100..199, as a number or by name.
Parsed<int> ParseRow(std::string_view text);
Parsed<currency> ParseMoney(std::string_view text);
Parsed<std::uint64_t> ParseCount(std::string_view text, std::uint64_t lowest, std::uint64_t highest);
/// 0..4, or hand, last-hand, session, last-session, all.
Parsed<int> ParseScope(std::string_view text);
std::string_view ScopeName(int scope);

/// --player P:NAME:BUYIN[:SCRIPT]. Name and script may hold colons: the first amount between two colons is the buy-in.
struct PlayerOption {
    int Position = 0;
    std::string Name;
    currency BuyIn;
    std::string Script;  ///< its file; empty without one
};
Parsed<PlayerOption> ParsePlayerOption(std::string_view text);

/// --player P:NAME, where only the name matters; it may hold colons.
struct NameOption {
    int Position = 0;
    std::string Name;
};
Parsed<NameOption> ParseNameOption(std::string_view text);

/// --bet P:ROW:AMOUNT.
struct BetOption {
    int Position = 0;
    int BetRow = 0;
    currency Amount;
};
Parsed<BetOption> ParseBetOption(std::string_view text);

/// --set NAME=VALUE.
struct SettingOption {
    std::string Name, Value;
};
Parsed<SettingOption> ParseSettingOption(std::string_view text);

/// `text` as one word of a shell command.
std::string ShellQuoted(std::string_view text);

}  // namespace tarnwick::lab
