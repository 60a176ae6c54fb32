#include "config/advantage.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>

#include "config/advantagesequences.h"
#include "table/dicepayoffs.h"
#include "table/format.h"
#include "table/resolution.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

double RatioOfRow(const Settings& s, int row) { return Ratio(s.Payoff[At(row)]); }

/// What a unit wins with its vig: taken from wins, or so that bet and vig together are the unit.
double WinLessVig(double ratio, double vig, bool onAllBets) {
    if (ratio <= 0) return ratio;
    if (!onAllBets) return ratio - vig;
    const double bet = 1 / (vig + 1);
    return bet * ratio - (1 - bet);
}

/// Net result of a unit that the dice decide by an outcome above 0.
double WinOf(const Settings& s, int row, int die1, int die2) {
    const int total = die1 + die2;
    if (row == Row::Field) return Ratio(s.FieldPayoff[At(FieldIndex(die1, die2))]);
    if (row == Row::Midway) return Ratio(s.MidwayPayoff[At(MidwayIndex(total, die1, die2))]);
    if (const int parts = PartsOf(row); parts > 0) {
        return (RatioOfRow(s, PartRow(row, total)) - (parts - 1)) / parts;
    }
    const double ratio = RatioOfRow(s, row);
    // A Buy bet's vig is on the bet, a Lay bet's on what it wins.
    if (IsBuy(row)) return WinLessVig(ratio, ToDouble(s.BuyVigRate), s.BuyVigOnAllBets);
    if (IsLay(row)) return WinLessVig(ratio, ToDouble(s.LayVigRate) * ratio, s.LayVigOnAllBets);
    return ratio;
}

bool Holds(const Settings& s, When when) {
    return when == When::Bar12 ? s.BarDont == 12 : when == When::Bar2 ? s.BarDont == 2 : true;
}

/// Net result of a unit on a standing bet when the dice fall so with a point on; 0: nothing is decided.
double ResultOf(const Settings& s, int row, int die1, int die2) {
    const RollList& list = RollListFor(LineState::PointOn, die1, die2);
    const int step = list.StepOf[At(row)] - 1;
    if (step < 0) return 0;
    const Step& due = list.Steps[At(step)];
    if (due.Do != Act::Settle || !Holds(s, due.If)) return 0;
    // Odds stand behind the flat bet of their step.
    return due.Outcome > 0 ? WinOf(s, row, die1, die2) : -1;
}

/// A bet whose result hangs on the next roll alone, as long as it stands.
Advantage OfSingleRolls(const Settings& s, const DiceChances& dice, int row) {
    std::array<double, 36> results{};
    Advantage a;
    double decided = 0;
    for (int i = 0; i < 36; ++i) {
        const double result = results[At(i)] = ResultOf(s, row, i / 6 + 1, i % 6 + 1);
        a.EvRoll += dice.Results[At(i)] * result;
        if (result != 0) decided += dice.Results[At(i)];
    }
    if (decided <= 0) return {};
    if (s.CountZeroOutcomes) decided = 1;
    a.EvDec = a.EvRoll / decided;
    a.RollsDec = 1 / decided;
    double perRoll = 0, perDecision = 0;
    for (std::size_t i = 0; i < 36; ++i) {
        const double chance = dice.Results[i], result = results[i];
        perRoll += chance * (result - a.EvRoll) * (result - a.EvRoll);
        if (result == 0 && !s.CountZeroOutcomes) continue;
        perDecision += chance / decided * (result - a.EvDec) * (result - a.EvDec);
    }
    a.SdRoll = std::sqrt(perRoll);
    a.SdDec = std::sqrt(perDecision);
    return a;
}

double Rounded(double value, std::string_view pattern) {
    const std::string text = FormatPattern(value, pattern);
    double rounded = 0;
    std::from_chars(text.data(), text.data() + text.size(), rounded);
    return rounded;
}

Advantage Rounded(const Advantage& a) {
    constexpr std::string_view six = "#.######;-#.######;0.000";
    return {Rounded(a.EvRoll, six), Rounded(a.EvDec, six), Rounded(a.RollsDec, "#.##"), Rounded(a.SdRoll, six),
            Rounded(a.SdDec, six)};
}

}  // namespace

double Ratio(const PayoffEntry& payoff) {
    if (payoff.For <= currency{}) return 0;
    return static_cast<double>(payoff.Pays.TenThousandths) / static_cast<double>(payoff.For.TenThousandths);
}

Advantage ExactAdvantage(const Settings& s, const DiceChances& dice, int row) {
    if (!IsLayoutRow(row)) return {};
    if (IsSequenceRow(row)) return FiguresOf(SequenceOf(s, dice, row), s.CountZeroOutcomes);
    return OfSingleRolls(s, dice, row);
}

DiceChances ChancesInForce(const Table& t) {
    return t.UseSkewedProbability ? MatrixChances(t.ProbabilityMatrix) : TrueChances();
}

Advantage FigureAdvantage(const Settings& s, const DiceChances& dice, int row) {
    return Rounded(ExactAdvantage(s, dice, row));
}

Advantage FigureAdvantage(const Table& t, int row) { return FigureAdvantage(t, ChancesInForce(t), row); }

// --- the cache ---

/// Figures under the rules and dice that they depend on.
struct AdvantageCache::Kept {
    decltype(Settings::Payoff) Payoff;
    decltype(Settings::FieldPayoff) FieldPayoff;
    decltype(Settings::SevenPointSevenPayoff) SevenPointSevenPayoff;
    decltype(Settings::MidwayPayoff) MidwayPayoff;
    decltype(Settings::FirePayoff) FirePayoff;
    std::int32_t BarDont;
    currency LayVigRate, BuyVigRate;
    bool LayVigOnAllBets, BuyVigOnAllBets, CountZeroOutcomes;
    bool Skewed;
    MatrixCells Matrix;
    DiceChances Dice;
    std::array<Advantage, Row::LastBet + 1> Figures{};
    std::array<bool, Row::LastBet + 1> Figured{};

    Kept(const Table& t, bool skewed)
        : Payoff(t.Payoff),
          FieldPayoff(t.FieldPayoff),
          SevenPointSevenPayoff(t.SevenPointSevenPayoff),
          MidwayPayoff(t.MidwayPayoff),
          FirePayoff(t.FirePayoff),
          BarDont(t.BarDont),
          LayVigRate(t.LayVigRate),
          BuyVigRate(t.BuyVigRate),
          LayVigOnAllBets(t.LayVigOnAllBets),
          BuyVigOnAllBets(t.BuyVigOnAllBets),
          CountZeroOutcomes(t.CountZeroOutcomes),
          Skewed(skewed),
          Matrix(t.ProbabilityMatrix),
          Dice(skewed ? MatrixChances(t.ProbabilityMatrix) : TrueChances()) {}

    bool Holds(const Table& t, bool skewed) const {
        return Skewed == skewed && BarDont == t.BarDont && LayVigRate == t.LayVigRate && BuyVigRate == t.BuyVigRate &&
               LayVigOnAllBets == t.LayVigOnAllBets && BuyVigOnAllBets == t.BuyVigOnAllBets &&
               CountZeroOutcomes == t.CountZeroOutcomes && Payoff == t.Payoff && FieldPayoff == t.FieldPayoff &&
               SevenPointSevenPayoff == t.SevenPointSevenPayoff && MidwayPayoff == t.MidwayPayoff &&
               FirePayoff == t.FirePayoff && (!skewed || Matrix == t.ProbabilityMatrix);
    }
};

AdvantageCache::AdvantageCache() = default;
AdvantageCache::~AdvantageCache() = default;

const Advantage& AdvantageCache::Of(const Table& t, int row, bool trueDice) {
    const bool skewed = t.UseSkewedProbability && !trueDice;
    if (Figures == nullptr || !Figures->Holds(t, skewed)) Figures = std::make_unique<Kept>(t, skewed);
    const std::size_t at = IsLayoutRow(row) ? At(row) : 0;
    if (!Figures->Figured[at]) {
        Figures->Figures[at] = FigureAdvantage(t, Figures->Dice, row);
        Figures->Figured[at] = true;
    }
    return Figures->Figures[at];
}

}  // namespace tarnwick
