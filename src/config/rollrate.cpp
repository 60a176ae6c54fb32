// The simulated roll rate in the units in which people give it.
#include <array>

#include "config/configure.h"
#include "table/format.h"

namespace tarnwick {

namespace {

struct RollRateUnitRow {
    std::string_view Text;
    int PerHour;      ///< such times in an hour
    bool Reciprocal;  ///< time for a roll, not rolls in a time
};
constexpr std::array<RollRateUnitRow, 6> Units = {{{"Rolls / hr", 1, false},
                                                   {"Rolls / min", 60, false},
                                                   {"Rolls / sec", 3600, false},
                                                   {"Hrs / roll", 1, true},
                                                   {"Mins / roll", 60, true},
                                                   {"Secs / roll", 3600, true}}};

const RollRateUnitRow& UnitRow(int unit) { return Units[unit < 0 || unit > 5 ? 0 : static_cast<std::size_t>(unit)]; }

}  // namespace

std::string_view RollRateUnitText(int unit) { return unit < 0 || unit > 5 ? std::string_view{} : UnitRow(unit).Text; }

std::optional<currency> RollsPerHourFrom(currency typed, int unit) {
    const RollRateUnitRow& row = UnitRow(unit);
    if (!row.Reciprocal) return MultiplyDivide(typed, Dollars(row.PerHour), Dollars(1));
    if (IsZero(typed)) return std::nullopt;
    return MultiplyDivide(Dollars(1), Dollars(row.PerHour), typed);
}

SettingFault SetRollRate(Table& t, currency typed) {
    const currency before = t.RollsPerHour;
    t.RollsPerHour = RollsPerHourFrom(typed, t.RollRateUnit).value_or(currency{});
    SettingFault fault = RollRateFault(t);
    if (!fault.Text.empty()) {
        t.RollsPerHour = before;
    } else if (t.RollsPerHour != before) {
        t.GameChanged = true;
    }
    return fault;
}

std::string RollRateText(const Table& t) {
    const RollRateUnitRow& row = UnitRow(t.RollRateUnit);
    if (IsZero(t.RollsPerHour)) return "0";
    const currency shown = row.Reciprocal ? MultiplyDivide(Dollars(1), Dollars(row.PerHour), t.RollsPerHour)
                                          : MultiplyDivide(t.RollsPerHour, Dollars(1), Dollars(row.PerHour));
    return IsZero(shown) ? "<.0001" : FormatCommas(shown);
}

}  // namespace tarnwick
