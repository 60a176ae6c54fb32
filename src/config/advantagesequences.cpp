#include "config/advantagesequences.h"

#include <bit>
#include <cmath>
#include <vector>

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

/// The six points: the chance of each, and of it or a 7.
struct Points {
    std::array<double, 6> Chance{}, Decision{};
    double Seven = 0, Any = 0;
};

Points PointsOf(const DiceChances& dice) {
    Points points;
    points.Seven = dice.OfTotal(7);
    for (int n = 0; n < 6; ++n) {
        points.Chance[At(n)] = dice.OfTotal(PointOfIndex(n));
        points.Decision[At(n)] = points.Chance[At(n)] + points.Seven;
        points.Any += points.Chance[At(n)];
    }
    return points;
}

/// Plays each point out behind a come-out that sets point n with `scale` times its chance.
void AddPoints(Sequence& sequence, const Points& points, double scale, const std::array<double, 6>& made,
               const std::array<double, 6>& missed) {
    for (std::size_t n = 0; n < 6; ++n) {
        if (points.Decision[n] <= 0) continue;
        const double set = scale * points.Chance[n];
        sequence.Add(set * points.Chance[n] / points.Decision[n], made[n]);
        sequence.Add(set * points.Seven / points.Decision[n], missed[n]);
        sequence.Rolls += set / points.Decision[n];
    }
}

constexpr std::array<double, 6> Lost = {-1, -1, -1, -1, -1, -1};

std::array<double, 6> FamilyRatios(const Settings& s, int firstRow) {
    std::array<double, 6> ratios{};
    for (int n = 0; n < 6; ++n) ratios[At(n)] = Ratio(s.Payoff[At(firstRow + n)]);
    return ratios;
}

// Both line bets are paid as the Come boxes on the come-out and as the Come numbers behind it.

Sequence PassLine(const Settings& s, const DiceChances& dice) {
    Sequence line;
    const Points points = PointsOf(dice);
    line.Add(dice.OfTotal(7) + dice.OfTotal(11), Ratio(s.Payoff[Row::Come]));
    line.Add(dice.OfTotal(2) + dice.OfTotal(3) + dice.OfTotal(12), -1);
    line.Rolls = line.Decided + points.Any;
    AddPoints(line, points, 1, FamilyRatios(s, Row::Come4), Lost);
    return line;
}

Sequence DontPass(const Settings& s, const DiceChances& dice) {
    Sequence line;
    const Points points = PointsOf(dice);
    const double barred = dice.OfTotal(s.BarDont == 2 ? 2 : 12), other = dice.OfTotal(s.BarDont == 2 ? 12 : 2);
    line.Add(other + dice.OfTotal(3), Ratio(s.Payoff[Row::DontCome]));
    line.Add(dice.OfTotal(7) + dice.OfTotal(11), -1);
    line.Rolls = line.Decided + barred + points.Any;
    AddPoints(line, points, 1, Lost, FamilyRatios(s, Row::DontCome4));
    return line;
}

/// Odds are made once a point is set.
Sequence LineOdds(const Settings& s, const DiceChances& dice, bool dont) {
    Sequence odds;
    const Points points = PointsOf(dice);
    if (points.Any <= 0) return odds;
    const std::array<double, 6> won = FamilyRatios(s, dont ? Row::DontCome4Odds : Row::Come4Odds);
    AddPoints(odds, points, 1 / points.Any, dont ? Lost : won, dont ? won : Lost);
    return odds;
}

/// All numbers first..last but 7 before a 7: the states are the sets of numbers rolled so far.
Sequence AllOf(const DiceChances& dice, int first, int last, double ratio) {
    std::vector<double> chances;
    for (int total = first; total <= last; ++total) {
        if (total != 7) chances.push_back(dice.OfTotal(total));
    }
    struct State {
        double Win = 0, Rolls = 0;
    };
    const std::size_t all = (std::size_t{1} << chances.size()) - 1;
    std::vector<State> states(all + 1);
    states[all] = {1, 0};
    for (std::size_t set = all; set-- > 0;) {
        double leave = dice.OfTotal(7), win = 0, rolls = 1;
        for (std::size_t i = 0; i < chances.size(); ++i) {
            if ((set >> i & 1u) != 0 || chances[i] <= 0) continue;
            const State& next = states[set | std::size_t{1} << i];
            leave += chances[i];
            win += chances[i] * next.Win;
            rolls += chances[i] * next.Rolls;
        }
        // Without a 7 and without a number that is missing the bet stays for ever.
        states[set] = leave > 0 ? State{win / leave, rolls / leave} : State{};
    }
    Sequence numbers;
    const bool ends = dice.OfTotal(7) > 0 || states[0].Win > 0;
    if (!ends) return numbers;
    numbers.Add(states[0].Win, ratio);
    numbers.Add(1 - states[0].Win, -1);
    numbers.Rolls = states[0].Rolls;
    return numbers;
}

Sequence FourRolls(const DiceChances& dice, double ratio) {
    Sequence rolls;
    double alive = 1;
    for (int roll = 1; roll <= 4; ++roll) {
        rolls.Rolls += alive;
        alive *= 1 - dice.OfTotal(7);
    }
    rolls.Add(alive, ratio);
    rolls.Add(1 - alive, -1);
    return rolls;
}

/// A point, and the 7 right behind it; `comeOut` is paid for a 7 on the come-out.
Sequence PointSeven(const DiceChances& dice, double comeOut, double behindPoint) {
    Sequence rolls;
    const Points points = PointsOf(dice);
    const double won = points.Any * points.Seven;
    rolls.Add(points.Seven, comeOut);
    rolls.Add(won, behindPoint);
    rolls.Add(1 - points.Seven - won, -1);
    rolls.Rolls = 1 + points.Any;
    return rolls;
}

/// Chances of 0..6 different points made before the seven-out, over the sets of points made so far.
std::array<double, 7> ChancesOfPointsMade(const Points& points, double& sevenOut, double& rollsOfPoint) {
    std::array<double, 6> made{};
    sevenOut = 0;
    rollsOfPoint = 1 / points.Any;
    for (std::size_t n = 0; n < 6; ++n) {
        if (points.Chance[n] <= 0) continue;
        const double set = points.Chance[n] / points.Any;
        made[n] = set * points.Chance[n] / points.Decision[n];
        sevenOut += set * points.Seven / points.Decision[n];
        rollsOfPoint += set / points.Decision[n];
    }
    std::array<double, 7> chances{};
    if (sevenOut <= 0) return chances;
    std::array<double, 64> reached{};
    reached[0] = 1;
    for (unsigned set = 0; set < 64; ++set) {
        double leave = sevenOut;
        for (std::size_t n = 0; n < 6; ++n) leave += (set >> n & 1u) != 0 ? 0 : made[n];
        const double share = reached[set] / leave;
        for (std::size_t n = 0; n < 6; ++n) {
            if ((set >> n & 1u) == 0) reached[set | 1u << n] += share * made[n];
        }
        chances[static_cast<std::size_t>(std::popcount(set))] += share * sevenOut;
    }
    return chances;
}

Sequence FireBet(const Settings& s, const DiceChances& dice) {
    Sequence hand;
    const Points points = PointsOf(dice);
    if (points.Any <= 0) return hand;
    double sevenOut = 0, rollsOfPoint = 0;
    const std::array<double, 7> chances = ChancesOfPointsMade(points, sevenOut, rollsOfPoint);
    if (sevenOut <= 0) return hand;
    for (std::size_t made = 0; made < chances.size(); ++made) {
        const double net = Ratio(s.FirePayoff[made]);
        if (net != 0) hand.Add(chances[made], net);
    }
    hand.Rolls = rollsOfPoint / sevenOut;
    return hand;
}

}  // namespace

bool IsSequenceRow(int row) {
    return row == Row::PassLine || row == Row::PassLineOdds || row == Row::DontPass || row == Row::DontPassOdds ||
           (Row::AllSmall <= row && row <= Row::SevenPoint7) || row == Row::Fire;
}

Sequence SequenceOf(const Settings& s, const DiceChances& dice, int row) {
    switch (row) {
        case Row::PassLine:
            return PassLine(s, dice);
        case Row::DontPass:
            return DontPass(s, dice);
        case Row::PassLineOdds:
        case Row::DontPassOdds:
            return LineOdds(s, dice, row == Row::DontPassOdds);
        case Row::AllSmall:
            return AllOf(dice, 2, 6, Ratio(s.Payoff[Row::AllSmall]));
        case Row::AllTall:
            return AllOf(dice, 8, 12, Ratio(s.Payoff[Row::AllTall]));
        case Row::MakeAll:
            return AllOf(dice, 2, 12, Ratio(s.Payoff[Row::MakeAll]));
        case Row::FourRollsNo7:
            return FourRolls(dice, Ratio(s.Payoff[Row::FourRollsNo7]));
        case Row::Point7:
            return PointSeven(dice, -1, Ratio(s.Payoff[Row::Point7]));
        case Row::SevenPoint7:
            return PointSeven(dice, Ratio(s.SevenPointSevenPayoff[1]), Ratio(s.SevenPointSevenPayoff[2]));
        default:
            return FireBet(s, dice);
    }
}

Advantage FiguresOf(const Sequence& sequence, bool countZeroOutcomes) {
    if (sequence.Decided <= 0 || sequence.Rolls <= 0) return {};
    double sum = 0;
    for (int i = 0; i < sequence.Count; ++i) sum += sequence.Ends[At(i)].Chance * sequence.Ends[At(i)].Net;
    const double decided = countZeroOutcomes ? 1 : sequence.Decided;
    Advantage a;
    a.EvRoll = sum / sequence.Rolls;
    a.EvDec = sum / decided;
    a.RollsDec = sequence.Rolls / decided;
    double perRoll = 0, perDecision = 0;
    for (int i = 0; i < sequence.Count; ++i) {
        const auto [chance, net] = sequence.Ends[At(i)];
        perRoll += chance / sequence.Rolls * (net - a.EvRoll) * (net - a.EvRoll);
        perDecision += chance * (net - a.EvDec) * (net - a.EvDec);
    }
    a.SdRoll = std::sqrt(perRoll);
    a.SdDec = std::sqrt(perDecision);
    return a;
}

}  // namespace tarnwick
