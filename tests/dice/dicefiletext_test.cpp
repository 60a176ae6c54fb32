// Rolls as text, and as the window lists them.

#include "dice/dicefiletext.h"

#include <gmock/gmock.h>

#include <memory>

#include "dice/dicefile.h"
#include "dice/dicefilerows.h"
#include "support/temporaryfolder.h"

namespace tarnwick {
namespace {

using testsupport::TemporaryFolder;

TEST(RollFormats, LayOutALine) {
    struct {
        const char* Format;
        const char* Line;  ///< of roll 12, dice 3.4; null: the format is refused
    } const cases[] = {
        {"Roll# (Die1.Die2) Total", "12 (3.4) 7 "},
        {"  DIE1DIE2  ", "34 "},
        {"total", "7 "},
        {"Total of Roll#", "7 of 12 "},
        {"<Die 1> die1", "<die 1> 3 "},
        {"dietotal#roll#totaltotals", "die7#1277s "},
        {"roll", nullptr},
        {"Roll# die total's", "12 die 7's "},
        {"", nullptr},
        {"Roll#", nullptr},
        {"d i e 1", nullptr},
    };
    for (const auto& c : cases) {
        const RollFormat format(c.Format);
        EXPECT_EQ(format.Refusal().empty(), c.Line != nullptr) << c.Format;
        EXPECT_EQ(c.Line == nullptr ? "" : format.Line(12, DiceByte(3, 4)), c.Line == nullptr ? "" : c.Line);
    }
    EXPECT_TRUE(RollFormat(DefaultRollFormat).HasRollNumber());
    EXPECT_FALSE(RollFormat("die1 #").HasRollNumber());
}

TEST(RollTexts, PairsOfDigitsAreRolls) {
    struct {
        std::string Text;
        std::vector<std::pair<int, int>> Rolls;
    } const cases[] = {
        {"1 x6, two 2\n\n3; 5", {{1, 6}, {2, 3}}},
        {"", {}},
        {"4", {}},
        {"0789", {}},
        {"3 7 4", {{3, 4}}},
        {"61-16", {{6, 1}, {1, 6}}},
        {std::string("1\0002\xff", 4) + "\x80", {{1, 2}}},
    };
    for (const auto& c : cases) {
        std::string wanted;
        for (const auto& [die1, die2] : c.Rolls) wanted += static_cast<char>(DiceByte(die1, die2));
        for (std::size_t cut = 0; cut <= c.Text.size(); ++cut) {
            RollTextReader reader;
            std::string rolls;
            reader.Read(std::string_view(c.Text).substr(0, cut), rolls);
            reader.Read(std::string_view(c.Text).substr(cut), rolls);
            EXPECT_EQ(rolls, wanted) << c.Text << " cut at " << cut;
        }
    }
}

TEST(RollTexts, WhatWasExportedIsImportedAgain) {
    const TemporaryFolder folder;
    std::string rolls;
    for (int i = 0; i < 200'000; ++i) rolls += static_cast<char>(DiceByte(i * 7 / 5 % 6 + 1, i / 11 % 6 + 1));
    const auto table = std::make_unique<Table>();
    Table& t = *table;
    ASSERT_EQ(OpenDiceRollFile(t, folder.Write("a.rol", rolls)), "");
    ASSERT_EQ(CopyToTextFile(t, AllRolls(t), folder.Path("a.txt"), RollFormat("die1.die2"), false), "");
    RollSelection at{200'001, 0};
    ASSERT_EQ(PasteFromTextFile(t, at, RollEntry::Insert, folder.Path("a.txt"), folder.Path(".")), "");
    EXPECT_TRUE(folder.Read("a.rol") == rolls + rolls);
    EXPECT_EQ(at, (RollSelection{200'001, 200'000}));
    EXPECT_EQ(folder.Count(), 2) << "the work file is gone";

    ASSERT_EQ(CopyToTextFile(t, {199'999, 2}, folder.Path("b.txt"), RollFormat("Roll#: total"), false), "");
    EXPECT_EQ(folder.Read("b.txt"), "199999: 4 \r\n200000: 5 \r\n");
    ASSERT_EQ(CopyToTextFile(t, {199'999, 2}, folder.Path("b.txt"), RollFormat("Roll#: total"), true), "");
    EXPECT_EQ(folder.Read("b.txt"), "1: 4 \r\n2: 5 \r\n");
}

TEST(RollLists, ShowWhatTheOptionsSay) {
    struct {
        int Parts;
        std::int64_t Length, Number;
        int Die1, Die2;
        const char* Text;
    } const cases[] = {
        {31, 100, 7, 3, 4, "  7  (3.4)   7"}, {31, 9, 7, 6, 5, "7  (6.5)  11"},
        {2, 100, 7, 3, 4, "(3.4)"},           {4, 100, 7, 3, 4, " 7"},
        {1, 100, 100, 3, 4, "100"},           {0, 100, 7, 3, 4, ""},
        {5, 10, 10, 6, 6, "10  12"},          {7, 1, 1, 0, 7, "1  (0.7)   7"},
    };
    for (const auto& c : cases) {
        RollListOptions options;
        options.Parts = c.Parts;
        EXPECT_EQ(RollListText(options, c.Length, c.Number, DiceByte(c.Die1, c.Die2)), c.Text);
        EXPECT_LE(RollListText(options, 2'147'483'646, 2'147'483'646, DiceByte(6, 6)).size(),
                  RollListRuler(options).size());
    }
}

TEST(RollLists, OptionsOfAGame) {
    DiceFileView view;
    const auto of = [&view] {
        const RollListOptions o = RollListOptionsOf(view);
        return std::array<int, 4>{o.Basic ? 1 : 0, o.Font, o.Parts, o.Color};
    };
    EXPECT_EQ(of(), (std::array<int, 4>{1, 1, 31, 2}));
    view.DiceFormat = {0, 0, 2, 5, 6};
    EXPECT_EQ(of(), (std::array<int, 4>{0, 2, 5, 6}));
    view.DiceFormat = {0, -1, 3, -1, 7};
    EXPECT_EQ(of(), (std::array<int, 4>{1, 1, -1, 2}));
}

TEST(RollLists, HighlightByTotalDieAndPair) {
    using enum HighlightColor;
    RollHighlights highlights{};
    RollListOptions options;
    const auto shown = [&](int die1, int die2) { return HighlightOf(highlights, options, DiceByte(die1, die2)); };
    HighlightTotal(highlights, 7, Blue);
    HighlightDie(highlights, 1, 6, Green);
    int blue = 0, green = 0;
    for (int die1 = 1; die1 <= 6; ++die1) {
        for (int die2 = 1; die2 <= 6; ++die2) {
            blue += shown(die1, die2) == Blue;
            green += shown(die1, die2) == Green;
            EXPECT_EQ(shown(die1, die2), die1 + die2 == 7 ? Blue : die1 == 6 ? Green : None) << die1 << die2;
        }
    }
    EXPECT_EQ(blue, 6);
    EXPECT_EQ(green, 5) << "6.1 is a seven first";
    options.Parts = RollListPart::DieHighlights;
    EXPECT_EQ(shown(6, 1), Green);
    EXPECT_EQ(shown(4, 3), None);
    options.Parts = RollListPart::TotalHighlights | RollListPart::DieHighlights;
    HighlightTotal(highlights, 7, None);
    EXPECT_EQ(shown(6, 1), Green);
    HighlightPair(highlights, 6, 1, Gray);
    EXPECT_EQ(shown(6, 1), Gray);
    EXPECT_EQ(shown(1, 6), None);
    HighlightDie(highlights, 0, 2, Cyan);
    EXPECT_EQ(shown(2, 5), Cyan);
    EXPECT_EQ(shown(5, 2), Cyan);
    for (const int byte : {0, 28, 224, 252})
        EXPECT_EQ(HighlightOf(highlights, options, static_cast<std::uint8_t>(byte)), None);
    ClearHighlights(highlights);
    EXPECT_EQ(shown(2, 5), None);
    for (int total = 2; total <= 12; ++total) HighlightTotal(highlights, total, Multi);
    for (int total = 2; total < 12; ++total) {
        const int die = total / 2;
        EXPECT_NE(shown(die, total - die), None);
        EXPECT_NE(shown(die, total - die), Multi);
        EXPECT_NE(shown(die, total - die),
                  shown(die + (total + 1) / 2 - total / 2, total + 1 - die - ((total + 1) / 2 - total / 2)));
    }
    highlights[3][4] = -1;  // as a damaged game file may have it
    EXPECT_EQ(shown(3, 4), None);
}

TEST(RollLists, TitleAndFigures) {
    const TemporaryFolder folder;
    const auto table = std::make_unique<Table>();
    Table& t = *table;
    EXPECT_EQ(DiceFilesTitle(t), "Dice Roll Files");
    ASSERT_EQ(OpenDiceRollFile(t, folder.Write("my rolls.rol", std::string(1234, static_cast<char>(140)))), "");
    SetDiceFileNextRecord(t, 1000);
    EXPECT_EQ(DiceFilesTitle(t), "Dice Roll Files (my rolls.rol)");
    const DiceFileFigures figures = FiguresOfDiceFile(t, {5, 2000});
    EXPECT_EQ(figures.NextRoll, "1,000");
    EXPECT_EQ(figures.LastRoll, "0");
    EXPECT_EQ(figures.Total, "1,234");
    EXPECT_EQ(figures.Selected, "1,230");
    for (const auto& [mode, text] : {std::pair{0, "OFF"}, {1, "RECORD"}, {2, "PLAY"}}) {
        t.DiceFileMode = mode;
        EXPECT_EQ(RecorderText(t), text);
    }
}

}  // namespace
}  // namespace tarnwick
