// Reads the arguments of the console's commands.
#pragma once

#include <string>
#include <utility>

#include "lab/commandline.h"
#include "table/crapcnst.h"
#include "table/format.h"

namespace tarnwick::lab {

/// The arguments of one command, read from left to right. The first fault stays and makes every later read a no-op.
class Arguments {
  public:
    Arguments(const Table& t, const CommandLine& command) : T(t), Line(command) {}

    std::string Fault;

    /// The command's own name.
    const std::string& Name() const { return Line.Words[0].Text; }
    bool More() const { return Next < Line.Words.size(); }
    bool IsNext(std::string_view word) const { return More() && LowerCase(Line.Words[Next].Text) == word; }
    bool Ok() const { return Fault.empty(); }
    const std::string& Text() { return Line.Words[Next++].Text; }
    const Word& Whole() { return Line.Words[Next++]; }
    std::string Rest() { return Line.RestFrom(std::exchange(Next, Line.Words.size())); }

    int Position(bool allowHouse = false) { return Take(ParsePosition(Text(), allowHouse)); }
    int BetRow() { return Take(ParseRow(Text())); }
    currency Money() { return Take(ParseMoney(Text())); }
    int Scope() { return Take(ParseScope(Text())); }
    std::uint64_t Count(std::uint64_t lowest, std::uint64_t highest) {
        return Take(ParseCount(Text(), lowest, highest));
    }
    /// A position where somebody stands.
    int Seat() { return Occupied(Position()); }
    /// The position given last, else the bettor's.
    int Bettor() {
        if (More()) return Seat();
        if (Ok() && !IsSeated(T, T.ActivePlayer)) Fault = "there is no bettor: seat a player or name the position";
        return T.ActivePlayer;
    }
    bool OnOrOff() {
        const std::string word = LowerCase(Text());
        if (Ok() && word != "on" && word != "off") Fault = "\"" + word + "\" is neither on nor off";
        return word == "on";
    }

  private:
    template <class Value>
    Value Take(Parsed<Value> parsed) {
        if (Ok()) Fault = std::move(parsed.Fault);
        return std::move(parsed.Value);
    }
    int Occupied(int p) {
        if (Ok() && !IsSeated(T, p)) Fault = "nobody stands at position " + std::to_string(p);
        return p;
    }

    const Table& T;
    const CommandLine& Line;
    std::size_t Next = 1;
};

}  // namespace tarnwick::lab
