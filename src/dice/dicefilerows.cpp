#include "dice/dicefilerows.h"

#include <algorithm>

#include "dice/dicefile.h"
#include "dice/rollio.h"
#include "table/format.h"

namespace tarnwick {

namespace {

constexpr std::array<std::string_view, 8> ColorTexts = {"&Multi-color", "&Cyan",  "&Blue", "&Yellow",
                                                        "&Purple",      "&Green", "G&ray", "Clear &All"};

constexpr int DieShift = 4;
constexpr std::int32_t ColorMask = 15;

/// The colour of a total or face under Multi: the six in turn.
HighlightColor ColorInTurn(int n) { return static_cast<HighlightColor>(1 + n % 6); }

std::int32_t CellOf(HighlightColor color, int n) {
    if (color == HighlightColor::None) return 0;
    return static_cast<std::int32_t>(color == HighlightColor::Multi ? ColorInTurn(n) : color) + 1;
}

void SetCell(std::int32_t& cell, int shift, std::int32_t color) {
    cell = (cell & ~(ColorMask << shift)) | color << shift;
}

std::int32_t& Cell(RollHighlights& highlights, int die1, int die2) {
    return highlights[static_cast<std::size_t>(die1)][static_cast<std::size_t>(die2)];
}

std::string Padded(std::string text, std::size_t width) {
    return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
}

std::string ListText(const RollListOptions& options, std::size_t numberWidth, std::int64_t number, int die1, int die2) {
    std::string text;
    const auto add = [&text](const std::string& part) { text += text.empty() ? part : "  " + part; };
    if ((options.Parts & RollListPart::Numbers) != 0) add(Padded(std::to_string(number), numberWidth));
    if ((options.Parts & RollListPart::Dice) != 0) add("(" + std::to_string(die1) + "." + std::to_string(die2) + ")");
    if ((options.Parts & RollListPart::Total) != 0) add(Padded(std::to_string(die1 + die2), 2));
    return text;
}

}  // namespace

RollListOptions RollListOptionsOf(const DiceFileView& view) {
    RollListOptions options;
    const auto held = [&view](std::size_t i, std::int32_t highest, std::int32_t other) {
        const std::int32_t value = view.DiceFormat[i];
        return value < 0 || value > highest ? other : value;
    };
    options.Basic = view.DiceFormat[1] != 0;
    options.Font = held(2, 2, options.Font);
    options.Parts = view.DiceFormat[3];
    options.Color = held(4, 6, options.Color);
    return options;
}

std::string_view HighlightColorText(HighlightColor color) { return ColorTexts[static_cast<std::size_t>(color)]; }

void HighlightTotal(RollHighlights& highlights, int total, HighlightColor color) {
    for (int die1 = std::max(1, total - 6); die1 <= std::min(6, total - 1); ++die1)
        SetCell(Cell(highlights, die1, total - die1), 0, CellOf(color, total - 2));
}

void HighlightDie(RollHighlights& highlights, int die, int face, HighlightColor color) {
    for (int other = 1; other <= 6; ++other) {
        if (die != 2) SetCell(Cell(highlights, face, other), DieShift, CellOf(color, face - 1));
        if (die != 1) SetCell(Cell(highlights, other, face), DieShift, CellOf(color, face - 1));
    }
}

void HighlightPair(RollHighlights& highlights, int die1, int die2, HighlightColor color) {
    SetCell(Cell(highlights, die1, die2), 0, CellOf(color, die1 + die2 - 2));
}

void ClearHighlights(RollHighlights& highlights) { highlights = {}; }

HighlightColor HighlightOf(const RollHighlights& highlights, const RollListOptions& options, std::uint8_t roll) {
    if (!CheckDiceRollValue(roll)) return HighlightColor::None;
    const std::int32_t cell =
        highlights[static_cast<std::size_t>(FirstDie(roll))][static_cast<std::size_t>(SecondDie(roll))];
    const std::int32_t byTotal = (options.Parts & RollListPart::TotalHighlights) != 0 ? cell & ColorMask : 0;
    const std::int32_t byDie = (options.Parts & RollListPart::DieHighlights) != 0 ? cell >> DieShift & ColorMask : 0;
    const std::int32_t color = byTotal != 0 ? byTotal : byDie;
    // A game file may hold any number.
    return color < 2 || color > 7 ? HighlightColor::None : static_cast<HighlightColor>(color - 1);
}

std::string DiceFilesTitle(const Table& t) {
    std::string title = "Dice Roll Files";
    if (!t.DiceRollFileName.empty()) title += " (" + ShortFileName(t.DiceRollFileName) + ")";
    return title;
}

std::string_view RecorderText(const Table& t) {
    return t.DiceFileMode == 1 ? "RECORD" : t.DiceFileMode == 2 ? "PLAY" : "OFF";
}

DiceFileFigures FiguresOfDiceFile(const Table& t, RollSelection selection) {
    const auto text = [](std::int32_t n) { return FormatCommas(Dollars(n)); };
    return {text(t.DiceFilePosition), text(t.DiceFileLastRecord), text(t.DiceFileLength),
            text(HeldSelection(t, selection).Count)};
}

std::string RollListText(const RollListOptions& options, std::int64_t length, std::int64_t number, std::uint8_t roll) {
    return ListText(options, std::to_string(length).size(), number, FirstDie(roll), SecondDie(roll));
}

std::string RollListRuler(const RollListOptions& options) { return ListText(options, 10, 9'999'999'999, 6, 6); }

}  // namespace tarnwick
