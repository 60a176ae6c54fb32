// Records 411 to 417: hand counters, options of windows and runs, permissions, limits of the graph.
#include <algorithm>

#include "files/gamefields.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

bool VisitCounters(GameFields& f, GameImage& image) {
    Table& t = *image.T;
    if (!f.Begin(1)) return false;
    f.Long(L(1), "SessionsPlayer", t.SessionsPlayer);
    f.Long(L(2), "SessionsStat", t.SessionsStat);
    f.Long(L(3), "SessionsDisplay", t.SessionsDisplay);
    f.Long(L(4), "GraphBarWidth", t.GraphBarWidth);
    f.Long(L(5), "TopSession", t.TopSession);
    f.Long(L(6), "ProbabilityFormMode", image.ProbabilityFormMode);
    f.Long(L(7), "EventsLogHeadingCode", image.EventsLogHeadingCode);
    f.Flag(L(8), "DiceTypeOver", t.DiceTypeOver);
    f.Flag(L(9), "DiceRecordPadShown", t.DiceRecordPadShown);
    f.Long(L(10), "HandComeouts", t.HandComeouts);
    f.Long(L(11), "HandPasses", t.HandPasses);
    f.Long(L(12), "HandMisses", t.HandMisses);
    f.Long(L(13), "EventsLogTopLine", t.EventsLogTopLine);
    f.Long(L(14), "EventsLogLineCount", t.EventsLogLineCount);
    f.Long(L(15), "DiceSelectedRoll", t.DiceSelectedRoll);
    return true;
}

bool VisitLine(GameFields& f, const char* name, std::string& text) {
    if (!f.Begin(1)) return false;
    f.Text(0, 256, name, text);
    return true;
}

void VisitGraph(GameFields& f, Table& t) {
    f.Long(L(10), "GraphPlotType", t.GraphPlotType);
    f.Long(L(11), "GraphAdjustType", t.GraphAdjustType);
    f.Long(L(24), "GraphStyle", t.GraphStyle);
    f.Long(L(25), "GraphColor", t.GraphColor);
    f.Flag(L(26), "GraphGridLines", t.GraphGridLines);
    f.Flag(L(27), "GraphRefLines", t.GraphRefLines);
    f.Flag(L(28), "GraphMovingAverage", t.GraphMovingAverage);
    f.Long(L(29), "GraphAverageRolls", t.GraphAverageRolls);
    f.Long(L(30), "GraphRefLine1", t.GraphRefLine1);
    f.Long(L(31), "GraphRefLine2", t.GraphRefLine2);
    f.Flag(L(32), "GraphRefOnAverage1", t.GraphRefOnAverage1);
    f.Flag(L(33), "GraphRefOnAverage2", t.GraphRefOnAverage2);
    f.Flag(L(34), "AutoPrintGraphs", t.AutoPrintGraphs);
    if (!f.Extended) return;
    f.Long(L(39), "GraphsPerPage", t.GraphsPerPage);
    f.Long(L(40), "GraphsOnPage", t.GraphsOnPage);
}

bool VisitDisplays(GameFields& f, GameImage& image) {
    Table& t = *image.T;
    if (!f.Begin(1)) return false;
    f.Flag(L(0), "DisplayCenterProps", t.DisplayCenterProps);
    f.Flag(L(1), "DisplayBetsAsNumbers", t.DisplayBetsAsNumbers);
    f.Flag(L(2), "FlashBets", t.FlashBets);
    f.Long(L(4), "DiceFilePosition", t.DiceFilePosition);
    f.Flag(L(5), "KeyInMode", t.KeyInMode);
    f.Flag(L(6), "PrintPicture", t.PrintPicture);
    f.Long(L(7), "PadMode", t.PadMode);
    f.Flag(L(8), "PadShowRandomButton", t.PadShowRandomButton);
    f.Long(L(9), "PadButtonColor", t.PadButtonColor);
    f.Flag(L(12), "ProbabilityChanged", image.ProbabilityUntitled);
    f.Long(L(15), "DiceFileMode", t.DiceFileMode);
    f.Flag(L(16), "DiceAutoScroll", t.DiceAutoScroll);
    for (int i = 1; i <= 4; ++i) f.Long(L(16 + i), {"DiceFormat", i}, t.DiceFormat[At(i)]);
    f.Flag(L(21), "DiceNoteShown", t.DiceNoteShown);
    f.Long(L(22), "DiceFileNextRecord", t.DiceFileNextRecord);
    f.Long(L(23), "DiceFileLastRecord", t.DiceFileLastRecord);
    f.Long(L(35), "RollTotalsDisplay", t.RollTotalsDisplay);
    f.Flag(L(36), "RollTotalsProbable", t.RollTotalsProbable);
    f.Flag(L(37), "CheckStacksShowZero", t.CheckStacksShowZero);
    if (f.Extended) f.Long(L(38), "DiceFileEnd", t.DiceFileEnd);
    VisitGraph(f, t);
    return true;
}

bool VisitRuns(GameFields& f, Table& t) {
    if (!f.Begin(1)) return false;
    f.Long(L(0), "HyperThrottle", t.HyperThrottle);
    f.Flag(L(1), "PadShowRunButton", t.PadShowRunButton);
    f.Flag(L(2), "PadShowRollCounter", t.PadShowRollCounter);
    f.Flag(L(8), {"AutoBetOn", 0}, t.ScriptOn[0]);
    for (int p = 1; p < Positions; ++p) f.Flag(L(8 + p), {"AllowActProb", p}, t.AllowActProb[At(p)]);
    for (int p = 1; p < Positions; ++p) f.Flag(L(16 + p), {"AllowAct4Others", p}, t.AllowAct4Others[At(p)]);
    for (int p = 1; p < Positions; ++p) f.Flag(L(24 + p), {"AllowReset", p}, t.AllowReset[At(p)]);
    if (!f.Extended) return true;
    f.Flag(L(33), "EditorAutoIndent", t.EditorAutoIndent);
    f.Flag(L(34), "EditorLineNumbers", t.EditorLineNumbers);
    f.Flag(L(35), "EditorSyntaxLists", t.EditorSyntaxLists);
    f.Flag(L(36), "EditorHighlight", t.EditorHighlight);
    f.Long(L(37), "EditorFontSize", t.EditorFontSize);
    f.Flag(L(38), "EditorFontBold", t.EditorFontBold);
    f.Flag(L(39), "EditorFontItalic", t.EditorFontItalic);
    f.Long(L(40), "RateUnit", t.RollRateUnit);
    f.Long(L(41), "ConfigTab", t.ConfigTab);
    return true;
}

bool VisitLimits(GameFields& f, Table& t) {
    if (!f.Begin(1)) return false;
    f.Money(C(0), "AutoRollDelay", t.AutoRollDelay);
    f.Money(C(1), "AutoStopRolls", t.AutoStopRolls);
    f.Money(C(3), "GraphScale", t.GraphScale);
    f.Money(C(4), "GraphBaseScale", t.GraphBaseScale);
    f.Money(C(5), "GraphTop", t.GraphTop);
    f.Whole(C(6), "LastPrintedRoll", t.LastPrintedRoll);
    if (!f.Extended) return true;
    f.Money(C(7), "BreakLow", t.BreakLow);
    f.Money(C(8), "BreakHigh", t.BreakHigh);
    return true;
}

}  // namespace

bool VisitOptions(GameFields& f, GameImage& image) {
    Table& t = *image.T;
    if (!VisitCounters(f, image)) return false;
    if (!VisitLine(f, "DiceFileNote", t.DiceFileNote)) return false;
    if (!VisitDisplays(f, image)) return false;
    if (!VisitLine(f, "DiceRollOutputFormat", t.DiceRollOutputFormat)) return false;
    if (!VisitRuns(f, t) || !VisitLimits(f, t) || !f.Begin(1)) return false;
    for (int die1 = 1; die1 <= 6; ++die1) {
        for (int die2 = 1; die2 <= 6; ++die2) {
            f.Long(L(6 * (die1 - 1) + die2), {"DiceTotalsMatrix", die1, die2}, t.DiceTotalsMatrix[At(die1)][At(die2)]);
        }
    }
    return true;
}

bool VisitPath(GameFields& f, GameImage& image) {
    std::vector<std::array<std::int16_t, 5>>& points = image.T->PathPoints;
    const auto count = static_cast<std::size_t>(std::max(image.PathPointCount, 0));
    for (std::size_t first = 0; first < count; first += PointsPerRecord) {
        if (!f.Begin(1)) return false;
        for (std::size_t i = 0; i < PointsPerRecord && first + i < count; ++i) {
            if (points.size() <= first + i) points.emplace_back();
            for (std::size_t part = 0; part < 5; ++part) {
                f.Int(10 * i + 2 * part, {"Path", static_cast<int>(first + i) + 1, static_cast<int>(part) + 1},
                      points[first + i][part]);
            }
        }
    }
    return true;
}

}  // namespace tarnwick
