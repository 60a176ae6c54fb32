#include "config/advantagelines.h"

#include <cmath>

#include "table/betrules.h"
#include "table/format.h"

namespace tarnwick {

namespace {

std::string Shown(double value) { return FormatPattern(value, "0.00;-0.00;0.00"); }

double Over(double value, double divisor) { return divisor > 0 ? value / divisor : 0; }

std::string WithNumber(std::string_view family, int index, std::string_view end = {}) {
    return std::string(family) + std::to_string(PointOfIndex(index)) + std::string(end);
}

}  // namespace

const std::array<std::string_view, 5>& AdvantageTitles(bool misc) {
    static constexpr std::array<std::string_view, 5> values = {"EV/Roll", "StDev/Roll", "EV/Dec", "StDev/Dec",
                                                               "EV/Hour"};
    static constexpr std::array<std::string_view, 5> times = {"Rolls/Dec", "Decs/Roll", "Decs/Hour", "Decs/Min",
                                                              "Time/Dec"};
    return misc ? times : values;
}

std::string AdvantageLabel(int row) {
    if (IsComeNumber(row)) return WithNumber("Pass/Come ", row - Row::Come4);
    if (IsComeOdds(row)) return WithNumber("Pass/Come ", row - Row::Come4Odds, " Odds");
    if (IsDontComeNumber(row)) return WithNumber("DP/DC ", row - Row::DontCome4);
    if (IsDontComeOdds(row)) return WithNumber("DP/DC ", row - Row::DontCome4Odds, " Odds");
    switch (row) {
        case Row::PassLine:
            return "Passline/Come";
        case Row::PassLineOdds:
            return "Passline/Come Odds";
        case Row::Come:
            return "Passline/Come (c.o.)";
        case Row::DontPass:
            return "Don't Pass/Come";
        case Row::DontPassOdds:
            return "Don't Pass/Come Odds";
        case Row::DontCome:
            return "Don't Pass/Come (c.o.)";
        default:
            return std::string(BetName(row));
    }
}

std::string RollTimeText(double rolls, double rollsPerHour) {
    constexpr double longest = 1e15;  // tenths of a second that a count holds
    const double tenths = std::round(Over(rolls, rollsPerHour) * 36'000);
    const auto all = static_cast<std::int64_t>(std::fmin(std::fmax(tenths, 0), longest));
    const auto two = [](std::int64_t n) { return (n < 10 ? "0" : "") + std::to_string(n); };
    return two(all / 36'000) + ":" + two(all / 600 % 60) + ":" + two(all / 10 % 60) + "." + std::to_string(all % 10);
}

std::array<std::string, 5> AdvantageTexts(const Advantage& a, double rollsPerHour, bool misc) {
    if (!misc) {
        return {Shown(100 * a.EvRoll), Shown(100 * a.SdRoll), Shown(100 * a.EvDec), Shown(100 * a.SdDec),
                Shown(100 * a.EvRoll * rollsPerHour)};
    }
    const double perHour = Over(rollsPerHour, a.RollsDec);
    return {Shown(a.RollsDec), Shown(Over(1, a.RollsDec)), Shown(perHour), Shown(perHour / 60),
            RollTimeText(a.RollsDec, rollsPerHour)};
}

std::vector<AdvantageLine> AdvantageLines(const Table& t) {
    std::vector<AdvantageLine> lines;
    const DiceChances dice = ChancesInForce(t);
    for (int row = 1; row <= Row::LastBet; ++row) {
        if (!IsOffered(t, row)) continue;
        const Advantage a = FigureAdvantage(t, dice, row);
        lines.push_back({row, AdvantageLabel(row), a, AdvantageTexts(a, ToDouble(t.RollsPerHour), t.ShowMiscData)});
    }
    return lines;
}

}  // namespace tarnwick
