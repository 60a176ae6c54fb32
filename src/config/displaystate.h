// What a saved game keeps beside the game itself: where the windows stand, what they show, and which files belong to
// the game. The engine reads none of it; each struct has one owner among the windows and file tools.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "table/bets.h"
#include "table/currency.h"

namespace tarnwick {

// --- places of the windows ---

/// Where a window stands, in pixels. A width of 0: never placed, so the window takes its own place and size. A window
/// of fixed size keeps no width and height.
struct FormPlacement {
    bool Shown = false;
    std::int32_t Left = 0;
    std::int32_t Top = 0;
    std::int32_t Width = 0;
    std::int32_t Height = 0;

    bool operator==(const FormPlacement&) const = default;
};

/// The windows that have a place. `main` is the main window, `picStatus` the strip of the status boxes.
enum class Form : std::uint8_t {
    main,
    picStatus,
    frmAutoBet,
    frmAutoPlay,
    frmBankroll,
    frmBetResults,
    frmBetTrends,
    frmCheckStacks,
    frmDiceRollFiles,
    frmEventsLog,
    frmFile,
    frmHands,
    frmHotKeys,
    frmMove,
    frmRYON,
    frmRollFreqs,
    frmRollTotals,
    frmSessions,
    frmSummary,
    frmConfigure,
};
constexpr std::size_t FormCount = static_cast<std::size_t>(Form::frmConfigure) + 1;

struct WindowPlaces {
    std::array<FormPlacement, FormCount> FormPlacements{};  ///< by Form, read through Placement
    std::int32_t MainWindowState = 0;                       ///< 0 normal, 1 minimised, 2 maximised
    std::array<std::int32_t, Positions> StatusBoxLeft{};
    std::array<std::int32_t, Positions> StatusBoxTop{};

    FormPlacement& Placement(Form form) { return FormPlacements[static_cast<std::size_t>(form)]; }
    const FormPlacement& Placement(Form form) const { return FormPlacements[static_cast<std::size_t>(form)]; }
};

// --- the drawn table ---

/// Sizes of the text of a window.
namespace FontSize {
enum : std::int32_t { Smaller = 0, Normal = 1, Larger = 2 };
}

struct TableView {
    std::int32_t TableWidth = 1000;  ///< pixels, 500..5000
    std::int32_t TableAngle = 0;     ///< degrees, 0..359; change it through SetTableAngle
    std::int32_t TableOffsetX = 0;   ///< pixels
    std::int32_t TableOffsetY = 0;
    double TableCos = 1;                                      ///< of TableAngle, not saved
    double TableSin = 0;                                      ///< of TableAngle, not saved
    double TableScale = 1000.0 / 1248.0;                      ///< TableWidth over the table's own width, not saved
    bool CentreTable = false;                                 ///< to be centred when it is next drawn; not saved
    std::array<std::array<std::int32_t, 4>, 10> SavedView{};  ///< width (0: empty), angle, TableOffsetX, TableOffsetY
    bool AutoSizeTable = true;                                ///< kept fitted to the window
    std::int32_t StatusAlign = 0;   ///< status boxes: 0 top, 1 bottom, 2 left, 3 right, 4 near the players
    std::int32_t StatusLines = 63;  ///< 1 bankroll, 2 rail, 4 bets, 8 even, won and lost, 16 shooter, 32 bettor
    bool DisplayCenterProps = true;
    bool DisplayBetsAsNumbers = false;
    bool FlashBets = true;
    bool KeyInMode = false;           ///< a click on a bet opens the amount box
    std::int32_t SelectedCheck = 1;   ///< check 1..5 that the next click bets
    std::int32_t TexturePicture = 0;  ///< of the room, 0 plain
    /// Where the checks of position p on row 1..91 were left, in table units, while they aren't arranged; both 0: at
    /// their own place. Not saved.
    std::array<std::array<float, Row::LastBet + 1>, Positions> BetSpotX{}, BetSpotY{};
    bool PrintPicture = false;  ///< reports carry the picture of the table
};

// --- windows of the dice ---

struct DiceFileView {
    std::string DiceRollOutputFormat = "Roll# (Die1.Die2) Total";
    std::string DiceFileNote;
    bool DiceNoteShown = false;
    std::array<std::int32_t, 5> DiceFormat = {0, 1, 1, 31, 2};  ///< 1: 1 basic, 0 multi-column; 2: FontSize; 3: bits 1
                                                                ///< roll numbers, 2 dice, 4 total, 8 and 16 the
                                                                ///< highlight sets; 4: color, 0 multi-color
    bool DiceAutoScroll = true;
    bool DiceTypeOver = false;        ///< the pad types over instead of inserting
    bool DiceRecordPadShown = false;  ///< the pad "Record Rolls"
    std::int32_t DiceSelectedRoll = 1;
    std::array<std::array<std::int32_t, 7>, 7> DiceTotalsMatrix{};  ///< [Die1 1..6][Die2 1..6]: highlight, 0 off
};

struct PadView {
    std::int32_t PadMode = 0;  ///< 0 totals, 1 triangle, 2 box, 3 faces
    bool PadShowRandomButton = true;
    bool PadShowRunButton = true;
    bool PadShowRollCounter = true;
    std::int32_t PadButtonColor = 0;  ///< 0 multi, 1 red and cyan, 2 gray
};

// --- statistics windows; a scope is 0..4, a selection of players has bit p for position p ---

struct StatisticsView {
    std::int32_t RollTotalsScope = 2;
    std::int32_t RollTotalsPlayers = 0;
    std::int32_t RollTotalsDisplay = 0;  ///< 0 numbers, 1 combinations, 2 die 1, 3 die 2
    bool RollTotalsProbable = false;
    std::int32_t RollFreqsEvent = 2;  ///< roll event 2..89
    bool RollFreqsShowTrue = true;    ///< true chances, not those of the matrix
    std::int32_t BetResultsScope = 2;
    std::int32_t BetResultsPlayers = 0;
    std::array<std::int32_t, 4> BetResultsBets{};  ///< 1: bets 1..31 as bits 0..30, 2: 32..62, 3: 63..91
    bool BetResultsUseSeparator = true;
    std::int32_t BetTrendsPlayer = 1;
    std::int32_t HandsScope = 2;
    std::int32_t HandsPlayers = 0;
    bool HandsUnits = false;
    std::int32_t SummaryScope = 2;
    std::int32_t SummaryPlayers = 0;
};

struct CheckStacksView {
    std::int32_t CheckStacksPlayer = 1;
    bool CheckStacksShowZero = true;
    std::int32_t CheckStacksFontSize = FontSize::Normal;
    bool CheckStacksFontBold = false;
    bool CheckStacksFontItalic = false;
};

// --- logs ---

struct EventsLogView {
    std::string EventsLogFileName = "Events Log.txt";  ///< a relative one lies in the user's folder
    std::int32_t EventsLogTopLine = 1;
    std::int32_t EventsLogLineCount = 0;  ///< lines when the log was last shown
    std::int32_t EventsLogFontSize = FontSize::Normal;
    bool EventsLogFontBold = false;
    bool EventsLogFontItalic = false;
};

struct SessionsView {
    std::int32_t SessionsPlayer = 0;   ///< 0: none
    std::int32_t SessionsStat = 0;     ///< 0..31
    std::int32_t SessionsDisplay = 7;  ///< 1 won, 2 broke even, 4 lost, 8 the raw data
    std::int32_t GraphBarWidth = 5;    ///< bins a bar: 1, 5, 25, 105
    std::int32_t TopSession = 1;
    currency BreakLow, BreakHigh;
};

// --- scripts, standing orders, configuration ---

struct EditorView {
    std::int32_t EditorPlayer = 1;
    bool EditorAutoIndent = true;
    bool EditorLineNumbers = true;
    bool EditorSyntaxLists = true;
    bool EditorHighlight = true;
    std::int32_t EditorFontSize = FontSize::Normal;
    bool EditorFontBold = false;
    bool EditorFontItalic = false;
};

struct ConfigurationView {
    std::int32_t ConfigBankrollPlayer = 1;  ///< shown on the Bankroll tab
    std::int32_t ConfigTab = 0;             ///< tab last in use, 0..9
    std::int32_t AdvantageScroll = 0;
    std::int32_t PayoffsScroll = 0;
    std::int32_t AutoPlayPlayers = 0;  ///< players whose standing orders are shown, as bits
};

/// Everything of it, as one part of the table.
struct DisplayState : WindowPlaces,
                      TableView,
                      DiceFileView,
                      PadView,
                      StatisticsView,
                      CheckStacksView,
                      EventsLogView,
                      SessionsView,
                      EditorView,
                      ConfigurationView {
    std::string GameFileName;  ///< path of the open game; empty: the standing one. Not saved

    /// The file that a player's script writes, by position; empty: none.
    std::array<std::string, Positions> ScriptOutputFile;

    /// Points of a path in a game file, five numbers each; kept as they were read.
    std::vector<std::array<std::int16_t, 5>> PathPoints;
};

/// Sets TableAngle to `degrees`, brought into 0..359, and TableCos and TableSin by it.
void SetTableAngle(TableView& view, std::int32_t degrees);
/// Sets TableWidth to `pixels`, brought into 500..5000, and TableScale by it.
void SetTableWidth(TableView& view, std::int32_t pixels);

}  // namespace tarnwick
