// Rolls as text: the output format, export and import.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "dice/dicefileedit.h"
#include "table/crapcnst.h"

namespace tarnwick {

constexpr std::string_view DefaultRollFormat = "Roll# (Die1.Die2) Total";

/// A format of one line a roll. "roll#", "die1", "die2" and "total", in any case, stand for the roll's number and
/// values; all other characters stand for themselves, in small letters. Blanks at both ends are dropped, and one blank
/// follows.
class RollFormat {
  public:
    explicit RollFormat(std::string_view text);

    /// Empty when the format names a die or the total; else the message that says so.
    std::string Refusal() const;
    bool HasRollNumber() const;
    /// The line of a roll, without its line end. `roll` is a byte of a file.
    std::string Line(std::int64_t number, std::uint8_t roll) const;
    void AppendLine(std::string& out, std::int64_t number, std::uint8_t roll) const;

  private:
    enum class Part { Text, RollNumber, Die1, Die2, Total };
    struct Piece {
        Part Kind;
        std::string Text;
    };
    bool Has(Part kind) const;

    std::vector<Piece> Pieces;
};

/// Reads a text's digits 1 to 6 in pairs as rolls, the first die first; every other byte is skipped, and a last digit
/// alone is dropped. Fed in any pieces.
class RollTextReader {
  public:
    /// Appends the rolls that `text` completes.
    void Read(std::string_view text, std::string& rolls);

  private:
    int First = 0;
};

/// Writes the rolls of the text file `path` as the dice roll file `to`, which is replaced. Returns what went wrong, or
/// nothing. Neither is held in memory.
std::string ConvertTextToRolls(const std::string& path, const std::string& to);

/// Writes the selection of the open file as text, lines ended by CR LF; `path` is replaced. With `renumber` the first
/// roll written is number 1. Returns what went wrong, or nothing.
std::string CopyToTextFile(Table& t, RollSelection selection, const std::string& path, const RollFormat& format,
                           bool renumber);

}  // namespace tarnwick
