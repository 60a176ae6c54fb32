#include "config/comps.h"

#include "stats/accumulators.h"
#include "table/format.h"

namespace tarnwick {

namespace {

constexpr int RowsOfMask = 31;

struct MaskBit {
    std::size_t Mask = 1;
    std::uint32_t Bit = 1;
};
MaskBit BitOf(int row) {
    const int place = row - 1;
    return {static_cast<std::size_t>(1 + place / RowsOfMask), 1u << (place % RowsOfMask)};
}

constexpr int CountStat = 1, SumStat = 2;
constexpr std::string_view MoneyPattern = "#,0.00;-#,0.00;0";

currency ValueOf(const Table& t, const Comps& comps) {
    const double rate = ToDouble(t.CompRate) * 0.01;
    switch (t.CompBase) {
        case 1:
            return MultiplyDivide(comps.Action, t.CompRate, Dollars(100));
        case 2:
            return MultiplyDivide(comps.AvgActionTime, t.CompRate, Dollars(100));
        default:
            return ToCurrency(rate * -comps.TheoreticalSum);
    }
}

}  // namespace

bool CountsForComps(const Settings& s, int row) {
    if (!IsLayoutRow(row)) return false;
    const MaskBit at = BitOf(row);
    return (s.CompBetMasks[at.Mask] & at.Bit) != 0;
}

void SetCountsForComps(Settings& s, int row, bool counts) {
    if (!IsLayoutRow(row)) return;
    const MaskBit at = BitOf(row);
    std::uint32_t& mask = s.CompBetMasks[at.Mask];
    mask = counts ? mask | at.Bit : mask & ~at.Bit;
}

bool CountsForCompsByDefault(int row) { return CountsForComps(Settings{}, row); }

Comps FigureComps(const Table& t, int pos, AdvantageCache& advantages) {
    Comps comps;
    for (int row = 1; row <= Row::LastBet; ++row) {
        if (!CountsForComps(t, row)) continue;
        const currency wagered = BetStatWagers(t, pos, row, SumStat);
        if (wagered <= currency{}) continue;
        comps.Action = SaturatedSum(comps.Action, wagered);
        comps.Count += BetStatWagers(t, pos, row, CountStat).TenThousandths / CurrencyScale;
        comps.TheoreticalSum += ToDouble(wagered) * advantages.Of(t, row, t.CompsUseTrueProbs).EvDec;
    }
    comps.Rolls = PlayerRolls(t, pos);
    const double rollsPerHour = ToDouble(t.RollsPerHour);
    if (comps.Count > 0 && rollsPerHour > 0) {
        comps.AvgActionTime =
            ToCurrency(ToDouble(comps.Action) * (comps.Rolls / rollsPerHour) / static_cast<double>(comps.Count));
    }
    comps.CompValue = ValueOf(t, comps);
    return comps;
}

Comps FigureComps(const Table& t, int pos) {
    AdvantageCache advantages;
    return FigureComps(t, pos, advantages);
}

std::array<CompLine, 3> CompLines(const Table& t, const Comps& comps) {
    std::array<CompLine, 3> lines = {{{"Theoretical vig $", FormatPattern(-comps.TheoreticalSum, MoneyPattern)},
                                      {"Total comp action $", FormatPattern(comps.Action, MoneyPattern)},
                                      {"Avg action x time $", FormatPattern(comps.AvgActionTime, MoneyPattern)}}};
    if (0 <= t.CompBase && t.CompBase < 3) {
        std::string& label = lines[static_cast<std::size_t>(t.CompBase)].Label;
        label.insert(0, "* ");
    }
    return lines;
}

std::string CompRateText(const Settings& s) {
    return FormatPattern(s.CompRate, IsMultipleOf(s.CompRate, Dollars(1)) ? "#,#;-#,#;0" : "#,0.00##;-#,0.00##;0");
}

}  // namespace tarnwick
