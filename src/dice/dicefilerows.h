// What the window of the dice roll file shows, as texts: its title, counts, rows of rolls and their highlights.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "dice/dicefileedit.h"
#include "table/crapcnst.h"

namespace tarnwick {

/// How rolls are listed.
struct RollListOptions {
    bool Basic = true;        ///< one roll a row; else as many as fit
    std::int32_t Font = 1;    ///< 0 smaller, 1 normal, 2 larger
    std::int32_t Parts = 31;  ///< bits of RollListPart
    std::int32_t Color = 2;   ///< a HighlightColor, for the highlights set next
};

/// From what a game keeps of the window; numbers that it doesn't know become the default.
RollListOptions RollListOptionsOf(const DiceFileView& view);

namespace RollListPart {
enum : int { Numbers = 1, Dice = 2, Total = 4, TotalHighlights = 8, DieHighlights = 16 };
}

/// In the order of the menu. Multi gives each total or face a colour of its own.
enum class HighlightColor { Multi, Cyan, Blue, Yellow, Purple, Green, Gray, None };
/// The menu's text: "&Multi-color", "&Cyan" and so on, "Clear &All" for None.
std::string_view HighlightColorText(HighlightColor color);

/// By dice [1..6][1..6], as DiceTotalsMatrix is: 0, or the colour of the roll's total + 1 in the low four bits and that
/// of a die value
/// + 1 in the next four.
using RollHighlights = std::array<std::array<std::int32_t, 7>, 7>;

/// Highlights every roll of a total 2..12 in `color`; None takes the highlight away.
void HighlightTotal(RollHighlights& highlights, int total, HighlightColor color);
/// Highlights every roll that shows `face` 1..6 on `die` 1 or 2, or on either for 0.
void HighlightDie(RollHighlights& highlights, int die, int face, HighlightColor color);
void HighlightPair(RollHighlights& highlights, int die1, int die2, HighlightColor color);
void ClearHighlights(RollHighlights& highlights);
/// The colour of a roll in the list, never Multi; one by its total comes first. Sets that `Parts` switches off are left
/// out, and so is a roll with dice out of limits.
HighlightColor HighlightOf(const RollHighlights& highlights, const RollListOptions& options, std::uint8_t roll);

/// "Dice Roll Files", with a file open "Dice Roll Files (NAME)".
std::string DiceFilesTitle(const Table& t);
/// "OFF", "RECORD", "PLAY".
std::string_view RecorderText(const Table& t);
/// Figures beside "Next roll is roll #", "Last roll was roll #", "Total #" and "Selected".
struct DiceFileFigures {
    std::string NextRoll, LastRoll, Total, Selected;
};
DiceFileFigures FiguresOfDiceFile(const Table& t, RollSelection selection);

/// One roll of the list: number, dice, total, as the options say; numbers and totals stand right-aligned under each
/// other in a list of `length` rolls.
std::string RollListText(const RollListOptions& options, std::int64_t length, std::int64_t number, std::uint8_t roll);
/// The widest text that RollListText gives for any list, to measure a column by.
std::string RollListRuler(const RollListOptions& options);

}  // namespace tarnwick
