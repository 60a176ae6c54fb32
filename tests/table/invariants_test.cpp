// Random play by all positions over all rows and rules. A second table gets the same orders, in Hyper-Drive, without a
// log, and with everything that is kept by masks or lazily written out before each roll: the two must stay alike.
#include <bit>
#include <map>
#include <random>

#include "config/configure.h"
#include "config/payoffs.h"
#include "support/table_fixture.h"
#include "table/bankroll.h"
#include "table/format.h"

namespace tarnwick {
namespace {

/// Draws that are the same with every standard library.
class Chance {
  public:
    explicit Chance(std::uint64_t seed) : Source(seed) {}
    int Below(int n) { return static_cast<int>(Source() % static_cast<std::uint64_t>(n)); }
    int From(int first, int last) { return first + Below(last - first + 1); }
    bool OneIn(int n) { return Below(n) == 0; }
    template <class T, std::size_t N>
    T Of(const T (&values)[N]) {
        return values[Below(static_cast<int>(N))];
    }

  private:
    std::mt19937_64 Source;
};

/// Adds up what the log tells of wins and losses.
struct LedgerScreen : SilentScreen {
    std::map<std::string, currency> Results;

    LedgerScreen() { KeepShown = false; }
    void EventLogged(std::string_view line) override {
        for (const auto& [word, sign] : {std::pair{" won $", 1}, std::pair{" lost $", -1}}) {
            const std::size_t at = line.find(word);
            if (at == std::string_view::npos || line.substr(0, 6) != "      ") continue;
            const std::string_view amount = line.substr(at + std::string_view(word).size());
            Results[std::string(line.substr(6, at - 6))] += *ParseAmount(amount.substr(0, amount.find(' '))) * sign;
        }
    }
};

std::size_t At(int i) { return static_cast<std::size_t>(i); }

std::string NameOf(int p) { return std::string("Player ") + static_cast<char>('@' + p); }

/// The first part of the state in which two tables differ; empty when none does.
std::string Difference(const Table& a, const Table& b) {
    for (int row = 1; row <= Row::LastRow; ++row) {
        for (int p = 1; p < Positions; ++p) {
            if (a.BetAmount(p, row) != b.BetAmount(p, row)) return "BetAmount " + BetTitle(row);
            if (row > Row::LastBet || IsZero(a.BetAmount(p, row))) continue;
            if (BetWorking(a, p, row) != BetWorking(b, p, row)) return "BetWorking " + BetTitle(row);
        }
    }
    if (!(a.PrevBetAmount == b.PrevBetAmount)) return "PrevBetAmount";
    if (!(a.BetAfterRoll == b.BetAfterRoll)) return "BetAfterRoll";
    if (!(a.EstablishedBet == b.EstablishedBet)) return "EstablishedBet";
    if (!(a.BetStreak == b.BetStreak)) return "BetStreak";
    if (!(a.PrevBetStreak == b.PrevBetStreak)) return "PrevBetStreak";
    if (a.Bankroll != b.Bankroll) return "Bankroll";
    if (a.BetsOnTable != b.BetsOnTable) return "BetsOnTable";
    if (a.BuyVigCharged != b.BuyVigCharged || a.LayVigCharged != b.LayVigCharged) return "vigs";
    if (a.ComeFlatNow != b.ComeFlatNow) return "ComeFlatNow";
    const auto line = [](const Table& t) {
        return std::array{t.Point,          t.PrevPoint,      t.PrevPrevPoint,   t.LastPoint,
                          t.Shooter,        t.HandShooter,    t.DiceTotal,       t.MarkedNumbers,
                          t.PointsMadeMask, t.FourRollsCount, t.LastHandShooter, t.PlayerCount};
    };
    return line(a) == line(b) ? "" : "line";
}

struct InvariantsTest : testing::TestWithParam<int> {
    using Order = std::function<void(Table&)>;

    InvariantsTest() : Random(static_cast<std::uint64_t>(GetParam())) {
        for (Table* t : {Played.get(), Twin.get()}) {
            SubMain(*t, t == Played.get() ? static_cast<Screen*>(&Ledger) : &Silent);
            t->ShooterBetRequirement = 0;
        }
        Silent.KeepShown = false;
        Played->EventsLogOn = true;
        Twin->HyperDriveActive = true;
    }

    void Do(const Order& order) {
        order(*Played);
        order(*Twin);
    }

    void Seat(int p) {
        Do([p](Table& t) { AddPlayer(t, p, NameOf(p), Dollars(20'000)); });
        for (int i = 0; i < 12; ++i) ChangeOrders(p);
    }

    /// One standing order of p.
    void ChangeOrders(int p) {
        const int which = Random.Below(14), code = Random.Below(8), slot = Random.Below(8), flag = Random.Below(2);
        const currency amount{Random.Below(300) * 2'500};
        const std::size_t at = At(p), s = At(slot);
        Do([=](Table& t) {
            if (which < 3) t.WinnerHandling[at] = code;
            if (which >= 3 && which < 6) t.LoserHandling[at] = code;
            if (which == 6) t.AutoAdjustMode[at] = code % 3;
            if (which == 7) t.PlaceBias[at] = t.DoBias[at] = code % 3;
            if (which == 8) t.AutoTakeFullOdds[at] = flag != 0;
            if (which == 9) t.AutoLayFullOdds[at] = flag != 0;
            if (which == 10) t.AutoDownPlaceBets[at] = flag != 0;
            if (which == 11) t.AutoPassDice[at] = flag != 0;
            if (which == 12) t.AllowNegativeBankroll[at] = flag != 0;
            t.HandleAmount[at][s] = amount;
            t.HandleOperator[at][s] = code % 4;
            t.HandleUnit[at][s] = code % 7;
        });
    }

    void ChangeRules() {
        struct Rule {
            const char* Name;
            std::vector<const char*> Values;
        };
        static const Rule rules[] = {
            {"AllowPutBets", {"true", "false"}},
            {"BarDont", {"2", "12"}},
            {"UseBig68", {"true", "false"}},
            {"UseSpecialPropBets", {"true", "true", "false"}},
            {"UseMidwayBet", {"true", "false"}},
            {"UseFireBet", {"true", "false"}},
            {"BuyVigOnAllBets", {"true", "false"}},
            {"LayVigOnAllBets", {"true", "false"}},
            {"BuyVigRate", {"0.05", "0", "0.1"}},
            {"LayVigRounding", {"0", "1", "2"}},
            {"MinPlacardBet", {"1", "5", "10"}},
            {"MaxPlacardBet", {"1000", "200"}},
            {"OddsCalcMethod", {"0", "1", "2", "3", "4", "5"}},
            {"OddsAllowed410", {"1", "2", "3", "10"}},
            {"ReturnAbandonedBets", {"true", "false"}},
            {"FieldPayoff[3]", {"1 to 1", "0 to 1", "-1 to 2"}},
            {"FirePayoff[1]", {"0 to 1", "-1 to 1", "2 to 1"}},
            {"Payoff[33]", {"7 to 6", "8 for 6", "1 to 1"}},
        };
        const Rule& rule = Random.Of(rules);
        const char* value = rule.Values[At(Random.Below(static_cast<int>(rule.Values.size())))];
        Do([&](Table& t) { SetSetting(t, rule.Name, value); });
        const int p = Random.Below(9), row = Random.From(1, 91);
        const bool works = Random.OneIn(2);
        if (Random.OneIn(4)) Do([=](Table& t) { SetComeOutWorking(t, p, row, works); });
    }

    void Act(int p) {
        static const int rows[] = {31, 33, 34, 37, 39, 43, 43, 44, 45, 45, 46,
                                   47, 48, 49, 50, 53, 84, 86, 87, 88, 89, 91};
        const int row = Random.OneIn(3)    ? Random.Of(rows)
                        : Random.OneIn(12) ? Random.From(100, 199)
                                           : Random.From(1, 91);
        static const std::int64_t amounts[] = {10'000,  20'000,    50'000, 60'000,   120'000,
                                               250'000, 5'000'000, 12'500, 9'000'000};
        const currency amount{Random.Of(amounts) * (Random.OneIn(4) ? -1 : 1)};
        const bool on = Random.OneIn(2), script = Random.OneIn(2);
        switch (Random.Below(12)) {
            case 0:
                return Do([=](Table& t) { RemoveBet(t, p, row); });
            case 1:
                return Do([=](Table& t) { CallBet(t, p, row, on, script); });
            case 2:
                return Do([=](Table& t) { BuyPlaceBet(t, p, row); });
            case 3:
                if (row < 100) Do([=](Table& t) { MaxOutBet(t, p, row); });
                return;
            case 4:
                return Do([=](Table& t) { on ? MaxAllOdds(t, p) : MaxAllDontOdds(t, p); });
            case 5:
                return Do([=](Table& t) {  // an absolute amount is laid on an emptied bet
                    if (row > Row::LastBet) return;
                    t.BetsOnTable[At(p)] -= t.BetAmount(p, row);
                    SetBetAmount(t, p, row, {});
                    CheckBetRules(t, p, row, Abs(amount));
                });
            default:
                return Place(p, row, amount);
        }
    }

    void Place(int p, int row, currency amount) {
        const currency before = Played->BetAmount(p, row);
        Do([=](Table& t) { PlaceBet(t, p, row, amount); });
        if (row > Row::LastBet) return;
        const currency after = Played->BetAmount(p, row), established = Played->EstablishedBet(p, row);
        if (after > before && after > established) {
            EXPECT_TRUE(amount > currency{} || Played->AutoAdjustMode[At(p)] > 0) << BetTitle(row);
            EXPECT_TRUE(Played->AllowNegativeBankroll[At(p)] || Played->BetsOnTable[At(p)] <= Played->Bankroll[At(p)]);
            EXPECT_LE(after, MaximumBet(*Played, p, row)) << BetTitle(row);
        }
    }

    /// What happens between two rolls.
    void Interlude() {
        for (int p = 1; p < Positions; ++p) {
            if (!IsSeated(*Played, p)) {
                if (Random.OneIn(20)) Seat(p);
                continue;
            }
            for (int n = Random.Below(4); n > 0; --n) Act(p);
            if (Random.OneIn(40)) ChangeOrders(p);
            if (Played->Bankroll[At(p)] < Dollars(100)) Do([p](Table& t) { AtmTransaction(t, p, Dollars(10'000)); });
            if (Random.OneIn(200)) Do([p](Table& t) { AtmTransaction(t, p, Dollars(-500)); });
            if (Random.OneIn(500)) Do([p](Table& t) { RemovePlayer(t, p); });
        }
        if (Random.OneIn(15)) ChangeRules();
        if (Random.OneIn(60)) Do([](Table& t) { PassTheDice(t, PassMode::Request); });
        const int from = Random.From(1, 8), to = Random.From(1, 8);
        if (Random.OneIn(300)) Do([=](Table& t) { MovePlayer(t, from, to); });
        SessionOptions options;
        options.KeepData = Random.OneIn(2);
        options.KeepCheckStacks = Random.OneIn(2);
        if (Random.OneIn(700)) Do([&](Table& t) { NewSession(t, options); });
    }

    /// Writes out what the twin keeps lazily, as if every cell were copied on every roll.
    void WriteOutTwin() {
        for (int p = 1; p < Positions; ++p) {
            for (int row = 1; row <= Row::LastRow; ++row) TouchBet(*Twin, p, row);
        }
        SetComeOutWorking(*Twin, 0, 1, Twin->ComeOutWorking(0, 1) != 0);
        ASSERT_EQ(Twin->WorkingOverlay, 0);
    }

    void Roll() {
        const int die1 = Random.From(1, 6), die2 = Random.From(1, 6);
        const auto before = Played->Bankroll;
        Ledger.Results.clear();
        const int rolls = SessionRolls(*Played);
        Do([=](Table& t) { PadRoll(t, die1, die2); });
        ASSERT_EQ(SessionRolls(*Played), rolls + 1);
        EXPECT_EQ(Played->DiceTotal, die1 + die2);
        for (int p = 1; p < Positions; ++p) {
            EXPECT_EQ(Played->Bankroll[At(p)] - before[At(p)], Ledger.Results[Played->PlayerName[At(p)]])
                << "of seat " << p;
        }
    }

    static void CheckMasks(const Table& t) {
        for (int row = 1; row < Row::LastRow; ++row) {
            for (int p = 1; p < Positions; ++p) {
                const bool stands = !IsZero(t.BetAmount(p, row));
                ASSERT_EQ((t.SeatsOn[At(row)] >> p & 1) != 0, stands) << BetTitle(row);
                ASSERT_EQ((t.RowsOf[At(p)][At(row / 64)] >> (row % 64) & 1) != 0, stands) << BetTitle(row);
                if (row <= Row::LastBet) {
                    ASSERT_GE(t.BetAmount(p, row), currency{}) << BetTitle(row);
                }
            }
            if (row <= Row::LastBet) {
                ASSERT_EQ((t.RowsUp[At(row / 64)] >> (row % 64) & 1) != 0, t.SeatsOn[At(row)] != 0) << BetTitle(row);
            }
        }
    }

    static void CheckSums(const Table& t) {
        int seated = 0;
        for (int p = 1; p < Positions; ++p) {
            ASSERT_EQ(t.BetsOnTable[At(p)], BetsOnTableOf(t, p)) << "of seat " << p;
            seated += IsSeated(t, p) ? 1 : 0;
            for (int i = 0; i < 6; ++i) {
                ASSERT_EQ(t.BuyVigCharged[At(p)][At(i)], BuyVig(t, Row::Buy4 + i, t.BetAmount(p, Row::Buy4 + i)));
                ASSERT_EQ(t.LayVigCharged[At(p)][At(i)], LayVig(t, Row::Lay4 + i, t.BetAmount(p, Row::Lay4 + i)));
            }
        }
        ASSERT_EQ(t.PlayerCount, seated);
        ASSERT_TRUE(t.Shooter == 0 ? seated == 0 : IsSeated(t, t.Shooter));
        ASSERT_TRUE(t.HandShooter == 0 || IsSeated(t, t.HandShooter));
        ASSERT_EQ(t.PointsMadeCount, std::popcount(static_cast<unsigned>(t.PointsMadeMask)));
        ASSERT_TRUE(t.Point == 0 || IsPointNumber(t.Point));
        ASSERT_LT(t.FourRollsCount, 4);
        ASSERT_EQ(t.MarkedNumbers & ~8060, 0);
    }

    Chance Random;
    LedgerScreen Ledger;
    SilentScreen Silent;
    std::unique_ptr<Table> Played = std::make_unique<Table>(), Twin = std::make_unique<Table>();
};

TEST_P(InvariantsTest, HoldThroughRandomPlay) {
    for (int p = 1; p < Positions; ++p) Seat(p);
    for (int roll = 1; roll <= 5000; ++roll) {
        SCOPED_TRACE(testing::Message() << "roll " << roll);
        Interlude();
        WriteOutTwin();
        Roll();
        CheckSums(*Played);
        CheckMasks(*Played);
        ASSERT_EQ(Difference(*Played, *Twin), "");
        ASSERT_FALSE(HasFailure());
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, InvariantsTest, testing::Values(1, 2, 3, 4));

}  // namespace
}  // namespace tarnwick
