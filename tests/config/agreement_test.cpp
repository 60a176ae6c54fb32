// The figures of the advantage against the table itself: every bet is rolled with all 36 dice and settled, under the
// default rules, changed payoffs, other options and skewed dice.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "config/advantage.h"
#include "config/advantagesequences.h"
#include "config/configure.h"
#include "config/payoffs.h"
#include "dice/matrixeditor.h"
#include "table/betchain.h"

namespace tarnwick {
namespace {

/// Rules and dice that a table may have.
struct Variant {
    const char* Name;
    std::vector<std::pair<const char*, const char*>> Settings;
    bool Skewed = false;
};

const std::vector<Variant>& Variants() {
    static const std::vector<Variant> all = {
        {"defaults", {}},
        {"bar 2, vigs on wins", {{"BarDont", "2"}, {"BuyVigOnAllBets", "no"}, {"LayVigOnAllBets", "no"}}},
        {"other vigs", {{"BuyVigRate", "0.04"}, {"LayVigRate", "0.1"}}},
        {"changed payoffs",
         {{"Payoff[45]", "3 to 2"},      {"Payoff[48]", "2 to 1"},      {"Payoff[21]", "6 to 5"},
          {"Payoff[8]", "4 to 3"},       {"Payoff[28]", "7 to 5"},      {"Payoff[13]", "1 to 1"},
          {"Payoff[33]", "9 to 7"},      {"Payoff[38]", "8 to 5"},      {"Payoff[5]", "3 to 4"},
          {"Payoff[55]", "8 for 1"},     {"Payoff[56]", "28 to 1"},     {"Payoff[59]", "15 for 1"},
          {"Payoff[58]", "5 to 1"},      {"Payoff[67]", "16 to 1"},     {"Payoff[84]", "30 to 1"},
          {"Payoff[87]", "11 to 10"},    {"Payoff[88]", "8 to 1"},      {"SevenPointSevenPayoff[1]", "3 to 2"},
          {"FieldPayoff[5]", "1 to 2"},  {"FieldPayoff[10]", "0 to 1"}, {"FieldPayoff[21]", "3 to 1"},
          {"MidwayPayoff[3]", "3 to 2"}, {"FirePayoff[1]", "0 to 1"},   {"FirePayoff[3]", "6 to 1"}}},
        {"skewed dice", {}, true},
        {"skewed dice, bar 2, changed payoffs",
         {{"BarDont", "2"}, {"Payoff[24]", "6 to 5"}, {"Payoff[58]", "3 to 1"}, {"FirePayoff[2]", "2 to 1"}},
         true},
    };
    return all;
}

/// Dice of two shooters in one hand: an axis each.
void SkewDice(Table& t) { ComputeAxisDice(t, {1, 40}, {3, 70}); }

void Apply(const Variant& variant, Table& t) {
    ASSERT_EQ(SetSetting(t, "CheckDenominations", "0.0001,5,25,100,500"), "");  // nothing is rounded
    ASSERT_EQ(SetSetting(t, "MaxFireBet", "100000"), "");
    for (const auto& [name, value] : variant.Settings) ASSERT_EQ(SetSetting(t, name, value), "") << name;
    if (variant.Skewed) SkewDice(t);
}

DiceChances ChancesOf(const Variant& variant, const Table& t) {
    return variant.Skewed ? MatrixChances(t.ProbabilityMatrix) : TrueChances();
}

/// A table on which one bet stands at a time.
class StandingBet {
  public:
    explicit StandingBet(const Variant& variant) {
        SubMain(T, &Front);
        Front.KeepShown = false;
        T.ShooterBetRequirement = T.NotifyBits = 0;
        AddPlayer(T, 1, "Ann", Dollars(1'000'000));
        T.WinnerHandling[1] = T.LoserHandling[1] = 1;
        Apply(variant, T);
    }

    /// Money that the row wins or loses for each unit at stake, of a bet that works, with `point` on. Odds stand behind
    /// a flat bet, whose own money is left out.
    double Result(int row, int point, int die1, int die2) {
        const int flat = FlatRowOf(row);
        const double alone = flat == 0 ? 0 : Money(0, flat, point, die1, die2);
        const double money = Money(row, flat, point, die1, die2) - alone;
        return money / ToDouble(Stake);
    }

    Table& Game() { return T; }

  private:
    static constexpr currency Amount = Dollars(840);

    double Money(int row, int flat, int point, int die1, int die2) {
        for (int standing = 1; standing <= Row::LastBet; ++standing) SetBetAmount(T, 1, standing, {});
        T.BuyVigCharged[1] = T.LayVigCharged[1] = {};
        T.Point = T.PrevPoint = point;
        Stake = {};
        for (const int each : {row, flat}) {
            if (each == 0) continue;
            SetBetAmount(T, 1, each, Amount);
            SetBetWorking(T, 1, each, 2);
            if (each == row) Stake = Amount;
        }
        RecomputeVigs(T);
        if (IsBuy(row) && T.BuyVigOnAllBets) Stake += T.BuyVigCharged[1][static_cast<std::size_t>(row - Row::Buy4)];
        if (IsLay(row) && T.LayVigOnAllBets) Stake += T.LayVigCharged[1][static_cast<std::size_t>(row - Row::Lay4)];
        const currency before = T.Bankroll[1];
        PadRoll(T, die1, die2);
        return ToDouble(T.Bankroll[1] - before);
    }

    SilentScreen Front;
    std::unique_ptr<Table> Owner = std::make_unique<Table>();
    Table& T = *Owner;
    currency Stake;
};

/// What the next roll brings to a bet on average, with a point on.
struct RollFigures {
    double Value = 0, Square = 0, Decided = 0;
};
RollFigures FiguresOfRoll(StandingBet& bet, const DiceChances& dice, int row, int point) {
    RollFigures figures;
    for (int die1 = 1; die1 <= 6; ++die1) {
        for (int die2 = 1; die2 <= 6; ++die2) {
            const double result = bet.Result(row, point, die1, die2), chance = dice.Of(die1, die2);
            figures.Value += chance * result;
            figures.Square += chance * result * result;
            if (result != 0) figures.Decided += chance;
        }
    }
    return figures;
}

constexpr double Exactly = 1e-9;

TEST(AdvantageAgreement, BetsOfSingleRolls) {
    for (const Variant& variant : Variants()) {
        StandingBet bet(variant);
        const DiceChances dice = ChancesOf(variant, bet.Game());
        for (int row = 1; row <= Row::LastBet; ++row) {
            if (IsSequenceRow(row)) continue;
            SCOPED_TRACE(std::string(variant.Name) + ": " + std::string(BetName(row)));
            const RollFigures rolled = FiguresOfRoll(bet, dice, row, 9);
            const Advantage a = ExactAdvantage(bet.Game(), dice, row);
            EXPECT_NEAR(a.EvRoll, rolled.Value, Exactly);
            EXPECT_NEAR(a.SdRoll * a.SdRoll, rolled.Square - rolled.Value * rolled.Value, Exactly * 10);
            EXPECT_NEAR(a.EvDec, rolled.Value / rolled.Decided, Exactly);
            EXPECT_NEAR(a.RollsDec, 1 / rolled.Decided, Exactly * 10);
        }
    }
}

TEST(AdvantageAgreement, LineOddsBehindEachPoint) {
    for (const Variant& variant : Variants()) {
        StandingBet bet(variant);
        const DiceChances dice = ChancesOf(variant, bet.Game());
        for (const int row : {Row::PassLineOdds, Row::DontPassOdds}) {
            SCOPED_TRACE(std::string(variant.Name) + ": " + std::string(BetName(row)));
            double value = 0, rolls = 0, points = 0;
            for (int n = 0; n < 6; ++n) {
                const double set = dice.OfTotal(PointOfIndex(n));
                const RollFigures rolled = FiguresOfRoll(bet, dice, row, PointOfIndex(n));
                points += set;
                value += set * rolled.Value / rolled.Decided;
                rolls += set / rolled.Decided;
            }
            const Advantage a = ExactAdvantage(bet.Game(), dice, row);
            EXPECT_NEAR(a.EvDec, value / points, Exactly);
            EXPECT_NEAR(a.RollsDec, rolls / points, Exactly * 10);
            EXPECT_NEAR(a.EvRoll, value / rolls, Exactly);
        }
    }
}

struct ChainCase {
    int Bet;
    int Figured;    ///< row whose figures it has
    int Point = 0;  ///< on when the bet is made
};

TEST(AdvantageAgreement, BetsOfManyRolls) {
    const ChainCase cases[] = {{Row::PassLine, Row::PassLine}, {Row::Come, Row::PassLine, 5},
                               {Row::DontPass, Row::DontPass}, {Row::DontCome, Row::DontPass, 8},
                               {Row::AllSmall, Row::AllSmall}, {Row::AllTall, Row::AllTall},
                               {Row::MakeAll, Row::MakeAll},   {Row::FourRollsNo7, Row::FourRollsNo7},
                               {Row::Point7, Row::Point7},     {Row::SevenPoint7, Row::SevenPoint7},
                               {Row::Fire, Row::Fire}};
    for (const Variant& variant : Variants()) {
        const auto rules = std::make_unique<Table>();
        SilentScreen front;
        SubMain(*rules, &front);
        Apply(variant, *rules);
        const DiceChances dice = ChancesOf(variant, *rules);
        for (const ChainCase& c : cases) {
            const bool hundredsOfStates = c.Bet == Row::MakeAll || c.Bet == Row::Fire;
            const bool differs = variant.Skewed || variant.Settings.size() > 10;
            if (hundredsOfStates && !differs) continue;
            if (c.Bet == Row::MakeAll && &variant != &Variants().back()) continue;
            SCOPED_TRACE(std::string(variant.Name) + ": " + std::string(BetName(c.Bet)));
            constexpr int amount = 12;
            const BetChain chain(c.Bet, Dollars(amount), c.Point, [&variant](Table& t) { Apply(variant, t); });
            const BetChain::Expectation played = chain.Solve(dice);
            const Advantage a = ExactAdvantage(*rules, dice, c.Figured);
            EXPECT_NEAR(a.EvDec, played.Money / amount / played.Decided, Exactly) << chain.states() << " states";
            EXPECT_NEAR(a.RollsDec, played.Rolls / played.Decided, Exactly * 100);
            EXPECT_NEAR(a.EvRoll, played.Money / amount / played.Rolls, Exactly);
        }
    }
}

}  // namespace
}  // namespace tarnwick
