// What the window of the bankroll graph draws and says, and its commands.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "stats/bankrollgraph.h"
#include "stats/figures.h"

namespace tarnwick {

/// The curve, the axes and the texts, for GraphPlayer.
struct GraphPicture {
    std::vector<currency> Bankrolls;        ///< of points 1..GraphCount, at [point - 1]
    std::vector<currency> Averages;         ///< likewise; empty while no average is displayed
    currency Top, Bottom;                   ///< of the axis
    std::array<std::string, 7> AxisLabels;  ///< from the top down, a band apart
    std::string LeftRoll, RightRoll;        ///< roll numbers at the ends of the axis
    std::string AverageLabel;               ///< "120 roll avg", "All rolls avg"
    std::string RollsBetween;               ///< "Rolls:  60"
    std::string BankrollBetween;            ///< "Bankroll:  25", or "Bankroll:" while a line lies beyond the points
    Figure TotalRolls, RollsPerHour, SimulatedHours;
    Figure High, Low, Current;
};
GraphPicture FiguresOfGraph(const Table& t);

/// Where `value` lies on an axis `height` pixels high: 0 at its top, `height` at its bottom, beyond if it is beyond.
double GraphY(const Table& t, currency value, double height);
/// Where point 1..525 lies on a page `width` pixels wide.
double GraphX(int point, double width);
/// The point 1..525 under `x` on a page `width` pixels wide (above 0).
int GraphPointAt(double x, double width);

/// What reference line 1 or 2 reads: the bankroll at its point, or with its flag the moving average or, while none is
/// displayed, the money invested.
currency GraphReferenceValue(const Table& t, int line);
/// Moves reference line 1 or 2 to a point, held in 1..525. `onAverage` (the Ctrl key): it reads the average; `both`
/// (the Shift key): the other line follows it by as much.
void MoveGraphReference(Table& t, int line, int point, bool onAverage, bool both);

/// One step of the scale up or down, which also becomes the one to snap back to.
void StepGraphScale(Table& t, bool up);
/// Shifts the axis by one band.
void ShiftGraphBand(Table& t, bool up);
/// Asks for the length of the moving average.
void AskGraphAverage(Table& t);

/// On ending the auto-print: whether the last graph is to be printed first, asked if the session went on since.
bool AskPrintLastGraph(Table& t);
/// Then: whether to finish a page that holds graphs.
bool AskFinishGraphPage(Table& t);
/// A graph was sent to the printer; true when the page is full and was ended.
bool GraphPrinted(Table& t);

/// In the order of the menus.
constexpr std::array<std::string_view, 4> GraphAdjustTexts = {
    "&Manual", "Auto-&shift ", "Auto-shift with &expanding scale", "Auto-shift with s&nap-back scale"};
constexpr std::array<std::string_view, 3> GraphStyleTexts = {"&Plain", "&Striped", "S&olid"};
constexpr std::array<std::string_view, 10> GraphColorTexts = {"&Black",  "&Cyan", "&White", "&Red", "&Green",
                                                              "&Yellow", "Bl&ue", "Gr&ay",  "&Tan", "Br&own"};

}  // namespace tarnwick
