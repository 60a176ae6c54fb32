#include "stats/graphfigures.h"

#include <algorithm>
#include <cmath>

#include "table/format.h"
#include "table/messages.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

std::string WholeText(currency amount) { return FormatPattern(amount, FigurePattern::Whole); }

currency BandOf(const Table& t) { return t.GraphScale * 50; }

currency RoundedWhole(currency amount) { return Dollars(HalfEvenDivide(amount.TenThousandths, CurrencyScale)); }

std::string BankrollBetweenText(const Table& t) {
    if (std::max(t.GraphRefLine1, t.GraphRefLine2) > GraphCount(t)) return "Bankroll:";
    return "Bankroll:  " +
           WholeText(Abs(RoundedWhole(GraphReferenceValue(t, 1)) - RoundedWhole(GraphReferenceValue(t, 2))));
}

}  // namespace

GraphPicture FiguresOfGraph(const Table& t) {
    const int p = t.GraphPlayer;
    const int count = GraphCount(t);
    GraphPicture picture;
    for (int i = 1; i <= count; ++i) picture.Bankrolls.push_back(GraphBankroll(t, p, i));
    if (t.GraphMovingAverage) {
        const auto averages = GraphAverages(t, p);
        picture.Averages.assign(averages.begin() + 1, averages.begin() + 1 + count);
    }
    picture.Top = t.GraphTop;
    picture.Bottom = t.GraphTop - BandOf(t) * 6;
    for (int j = 0; j < 7; ++j) picture.AxisLabels[At(j)] = WholeText(t.GraphTop - BandOf(t) * j);
    const currency left = GraphBankroll(t, p, 0);
    picture.LeftRoll = WholeText(left);
    picture.RightRoll = WholeText(left + Dollars(GraphPage));
    picture.AverageLabel =
        t.GraphAverageRolls < 1 ? "All rolls avg" : std::to_string(t.GraphAverageRolls) + " roll avg";
    picture.RollsBetween = "Rolls:  " + std::to_string(std::abs(t.GraphRefLine1 - t.GraphRefLine2));
    picture.BankrollBetween = BankrollBetweenText(t);
    const std::int32_t rolls = SessionRolls(t);
    picture.TotalRolls = {Figure::Unit::Count, Dollars(rolls), FormatPattern(Dollars(rolls), "#,#;0;0")};
    picture.RollsPerHour = RollsPerHourFigure(t, true);
    picture.SimulatedHours = SimulatedHoursFigure(t, rolls, true);
    picture.High = MoneyFigure(t.BankrollHigh[At(StatPos(p, Scope::Session))]);
    picture.Low = MoneyFigure(t.BankrollLow[At(StatPos(p, Scope::Session))]);
    picture.Current = MoneyFigure(t.Bankroll[At(p)]);
    return picture;
}

double GraphY(const Table& t, currency value, double height) {
    const double span = ToDouble(BandOf(t) * 6);
    return span > 0 ? ToDouble(t.GraphTop - value) / span * height : 0;
}

double GraphX(int point, double width) { return (point - 1) * width / GraphPage; }

int GraphPointAt(double x, double width) {
    const double position = std::floor(x / (width / GraphPage) + 0.5);
    return static_cast<int>(std::clamp(position, 0.0, GraphPage - 1.0)) + 1;
}

currency GraphReferenceValue(const Table& t, int line) {
    const int point = line == 1 ? t.GraphRefLine1 : t.GraphRefLine2;
    const bool onAverage = line == 1 ? t.GraphRefOnAverage1 : t.GraphRefOnAverage2;
    if (!onAverage) return GraphBankroll(t, t.GraphPlayer, point);
    return t.GraphMovingAverage ? GraphAverage(t, t.GraphPlayer, point) : t.BankrollInvested[At(t.GraphPlayer)];
}

void MoveGraphReference(Table& t, int line, int point, bool onAverage, bool both) {
    std::int32_t& moved = line == 1 ? t.GraphRefLine1 : t.GraphRefLine2;
    std::int32_t& other = line == 1 ? t.GraphRefLine2 : t.GraphRefLine1;
    const std::int32_t by = std::clamp(point, 1, GraphPage) - moved;
    moved += by;
    if (both) other = std::clamp(other + by, 1, GraphPage);
    (line == 1 ? t.GraphRefOnAverage1 : t.GraphRefOnAverage2) = onAverage;
    t.GameChanged = true;
}

void StepGraphScale(Table& t, bool up) {
    t.GraphScale = t.GraphBaseScale = NextGraphScale(t.GraphScale, up);
    ResetBankrollGraph(t, true);
    t.GameChanged = true;
}

void ShiftGraphBand(Table& t, bool up) {
    t.GraphTop += up ? BandOf(t) : -BandOf(t);
    ResetBankrollGraph(t, false);
    t.GameChanged = true;
}

void AskGraphAverage(Table& t) {
    Message question;
    question.Title = "Set Bankroll Moving Average";
    question.Text =
        "Enter the number of rolls (max 525) that you'd like to include in the bankroll moving average (a value of 0 "
        "will display an average of all rolls since the beginning of the session):";
    question.Buttons = MsgButton::InputQuestion;
    question.Input = std::to_string(t.GraphAverageRolls);
    const Answer answer = ShowMessage(t, question);
    if (answer.Result != MsgAnswer::Ok) return;
    const std::optional<currency> typed = ParseAmount(answer.Input);
    if (!typed) return;
    const currency held = std::clamp(*typed, currency{}, Dollars(GraphPage));
    t.GraphAverageRolls = static_cast<std::int32_t>(RoundedWhole(held).TenThousandths / CurrencyScale);
    RecalcGraphAverage(t, t.GraphPlayer);
    t.GameChanged = true;
}

bool AskPrintLastGraph(Table& t) {
    return SessionRolls(t) != t.LastPrintedRoll &&
           AskYesNo(t, "Bankroll Graph Auto-Print Active", "Would you like to print the last graph now?");
}

bool AskFinishGraphPage(Table& t) {
    return t.GraphsOnPage > 0 &&
           AskYesNo(t, "Bankroll Graph",
                    std::to_string(t.GraphsPerPage) + " graphs will fit on a page.\nSo far you've sent " +
                        std::to_string(t.GraphsOnPage) +
                        " to the current page.\nWould you like to finish printing now?");
}

bool GraphPrinted(Table& t) {
    t.LastPrintedRoll = SessionRolls(t);
    if (++t.GraphsOnPage < t.GraphsPerPage) return false;
    t.GraphsOnPage = 0;
    return true;
}

}  // namespace tarnwick
