// The roll cycle: requirements, snapshot, line decision, marks, moves, the end of a hand.
#include <algorithm>
#include <stdexcept>

#include "support/table_fixture.h"
#include "table/bankroll.h"
#include "table/rundriver.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct RollCycleTest : TableTest {
    void Restart() {
        SubMain(t, &Front);
        t.ShooterBetRequirement = 0;
        Messages();
    }
    void RollAll(std::initializer_list<int> totals) {
        for (const int total : totals) RollTotal(total);
    }
};

TEST_F(RollCycleTest, RequirementsOfTheShooter) {
    const std::string note = "\n\nNote: This requirement can be changed on the 'Bets tab' of the configuration screen.";
    struct Case {
        const char* Name;
        int Requirement, Players, Bet, Point;
        std::string Message, Reason;
    };
    const Case cases[] = {
        {"nobody, nothing required", 0, 0, 0, 0, "", ""},
        {"nobody", 1, 0, 0, 0,
         "[Bet Required] No players are available to bet.\n\nPlease enter a player or change the requirement to make a "
         "bet on the 'Bets tab' of the configuration screen.",
         "No players are available to bet."},
        {"nobody, any bet", 2, 0, 0, 0, "[Bet Required]", "No players are available to bet."},
        {"alone without line bet", 1, 1, Row::Field, 0,
         "[Line Bet Required] A line bet is required to shoot.\n\nAnn must make a Pass Line bet or a Don't Pass bet." +
             note,
         "Shooter has no line bet."},
        {"others present", 1, 2, 0, 0,
         "[Line Bet Required] A line bet is required to shoot.\n\nAnn must make a Pass Line bet, a Don't Pass bet, or "
         "pass the dice." +
             note,
         "Shooter has no line bet."},
        {"with a point on", 1, 2, Row::Field, 8,
         "[Line Bet Required] A line bet is required to shoot.\n\nAnn must make a Pass Line bet or pass the dice." +
             note,
         "Shooter has no line bet."},
        {"Pass Line", 1, 2, Row::PassLine, 0, "", ""},
        {"Don't Pass", 1, 2, Row::DontPass, 0, "", ""},
        {"no bet at all", 2, 2, 0, 0,
         "[Any Bet Required] A bet is required to shoot.\n\nAnn must make any bet or pass the dice." + note,
         "Shooter has no bet."},
        {"a bet of the first rows", 2, 2, Row::Lay4, 0, "", ""},
        {"a bet of the last row", 2, 2, Row::Fire, 0, "", ""},
        {"a CheckStack is no bet", 2, 2, 100, 0, "[Any Bet Required]", "Shooter has no bet."},
    };
    for (const Case& c : cases) {
        for (const bool hyperDrive : {false, true}) {
            SCOPED_TRACE(testing::Message() << c.Name << (hyperDrive ? ", Hyper-Drive" : ""));
            Restart();
            if (c.Players > 0) Seat(1, "Ann");
            if (c.Players > 1) Seat(2, "Bo");
            if (c.Point != 0) RollTotal(c.Point);
            if (c.Bet != 0) Bet(1, c.Bet, 5);
            t.ShooterBetRequirement = c.Requirement;
            Messages();
            const int rolls = SessionRolls(t);
            if (hyperDrive) {
                t.AutoStopRolls = Dollars(1);
                ToggleAutoRoll(t);
                EXPECT_FALSE(t.AutoRollActive);
                const std::string reason = c.Reason.empty() ? "Stopped by Auto-Stop." : c.Reason;
                EXPECT_THAT(Messages(), ElementsAre("[Hyper-Drive Stopped] " + reason));
            } else {
                Roll(1, 2);
                if (c.Message.empty()) {
                    EXPECT_THAT(Messages(), IsEmpty());
                } else {
                    EXPECT_THAT(Messages(), ElementsAre(testing::StartsWith(c.Message)));
                }
            }
            EXPECT_EQ(SessionRolls(t) - rolls, c.Message.empty() ? 1 : 0);
            EXPECT_FALSE(t.RollInProgress);
            EXPECT_FALSE(t.PadRollPending) << "a refused pad roll is forgotten";
        }
    }
}

TEST_F(RollCycleTest, TheSessionEndsAtItsLastRoll) {
    t.SessionStart = t.RollTotal - MaxSessionRolls + 1;
    Roll(1, 2);
    EXPECT_EQ(SessionRolls(t), MaxSessionRolls);
    EXPECT_THAT(Messages(), IsEmpty());
    Roll(1, 2);
    EXPECT_EQ(SessionRolls(t), MaxSessionRolls);
    EXPECT_THAT(Messages(),
                ElementsAre("[Reached Maximum Roll Limit] Sorry ... the maximum limit of 100,000,000 rolls "
                            "has been reached.\n\nSelect \"New\" from the \"Game\" menu to reset the table."));
}

TEST_F(RollCycleTest, WithoutAShooterThePlayersFindOne) {
    Seat(3, "Cy");
    Bet(3, Row::PassLine, 5);
    t.Shooter = t.HandShooter = 0;
    t.ShooterBetRequirement = 1;
    Roll(1, 2);
    EXPECT_EQ(t.Shooter, 3);
    EXPECT_EQ(t.HandShooter, 3);
    EXPECT_EQ(SessionRolls(t), 1);
}

TEST_F(RollCycleTest, TheLineMovesThePoint) {
    struct Step {
        int Total, Point, PrevPoint, PrevPrevPoint, LastPoint;
    };
    const Step steps[] = {{7, 0, 0, 0, 0}, {11, 0, 0, 0, 0}, {2, 0, 0, 0, 0}, {12, 0, 0, 0, 0}, {6, 6, 0, 0, 0},
                          {8, 6, 6, 0, 0}, {11, 6, 6, 6, 0}, {6, 0, 6, 6, 6}, {3, 0, 0, 6, 6},  {9, 9, 0, 0, 6},
                          {7, 0, 9, 0, 9}, {4, 4, 0, 9, 9},  {5, 4, 4, 0, 9}, {10, 4, 4, 4, 9}, {4, 0, 4, 4, 4}};
    for (const Step& step : steps) {
        RollTotal(step.Total);
        EXPECT_EQ(t.DiceTotal, step.Total);
        EXPECT_THAT((std::vector<int>{t.Point, t.PrevPoint, t.PrevPrevPoint, t.LastPoint}),
                    ElementsAre(step.Point, step.PrevPoint, step.PrevPrevPoint, step.LastPoint))
            << "after a " << step.Total << ", roll " << SessionRolls(t);
    }
}

TEST_F(RollCycleTest, DecisionsAreCountedAndCalled) {
    t.StickPersonIndex = 1;
    struct Step {
        int Total, Passes, Misses, Comeouts;
        std::vector<int> Calls;
    };
    // 13 a pass, 14 a miss, 15 a bar; 16 hard; 17 the come-out and 18 a new hand behind the roll.
    const Step steps[] = {{11, 1, 0, 1, {11, 13, 17}},   {3, 1, 1, 2, {3, 14, 17}}, {12, 1, 2, 3, {12, 15, 17}},
                          {2, 1, 3, 4, {2, 14, 17}},     {8, 1, 3, 5, {8, 16}},     {5, 1, 3, 5, {5}},
                          {8, 2, 3, 5, {8, 16, 13, 17}}, {6, 2, 3, 6, {6, 16}},     {7, 0, 0, 0, {7, 14, 18, 17}}};
    for (const Step& step : steps) {
        Front.Sounds.clear();
        RollTotal(step.Total);
        EXPECT_THAT((std::vector<int>{t.HandPasses, t.HandMisses, t.HandComeouts}),
                    ElementsAre(step.Passes, step.Misses, step.Comeouts));
        std::vector<int> calls;
        for (const auto& [kind, number] : Front.Sounds) calls.push_back(number);
        EXPECT_EQ(calls, step.Calls) << "on " << step.Total;
    }
    t.BarDont = 2;
    Front.Sounds.clear();
    RollTotal(2);
    EXPECT_EQ(Front.Sounds[1].second, 15);
    t.DisableAllSound = true;
    Front.Sounds.clear();
    RollTotal(12);
    EXPECT_THAT(Front.Sounds, IsEmpty());
}

TEST_F(RollCycleTest, ARollIsResolvedAgainstTheTableAsItStood) {
    Seat(1, "Ann", 1000);
    t.WinnerHandling[1] = 2;
    Bet(1, Row::PassLine, 10);
    Bet(1, Row::Place4 + 2, 12);
    PlaceBet(t, 1, 101, Dollars(7));
    RollTotal(8);
    EXPECT_EQ(t.RailAmount[1], Dollars(978));
    EXPECT_EQ(t.PrevBetAmount(1, 101), Dollars(7));
    EXPECT_EQ(t.EstablishedBet(1, Row::PassLine), Dollars(10));
    Bet(1, Row::PassLineOdds, 25);
    Bet(1, Row::Field, 5);
    RollTotal(6);
    EXPECT_EQ(t.BankrollAtRollStart[1], Dollars(1000));
    EXPECT_EQ(t.PrevBetAmount(1, Row::PassLineOdds), Dollars(25));
    EXPECT_EQ(t.PrevBetAmount(1, Row::Field), Dollars(5));
    EXPECT_EQ(t.BetAfterRoll(1, Row::Field), currency{});
    EXPECT_EQ(t.EstablishedBet(1, Row::Place4 + 2), currency{}) << "settled, though it stands again";
    EXPECT_EQ(t.EstablishedBet(1, Row::PassLineOdds), Dollars(25));
    EXPECT_EQ(BankrollOf(1), Dollars(1009));
    EXPECT_EQ(t.PrevBankroll[1], Dollars(1009));
}

TEST_F(RollCycleTest, BetsWorkByTheLine) {
    Seat(1, "Ann");
    Bet(1, Row::Place4, 10);
    Bet(1, Row::Place4 + 1, 10);
    Bet(1, Row::Place4 + 5, 10);
    ASSERT_TRUE(CallBet(t, 1, Row::Place4 + 1, false));
    const auto states = [&] {
        return std::vector<int>{BetWorking(t, 1, Row::Place4), BetWorking(t, 1, Row::Place4 + 1),
                                BetWorking(t, 1, Row::Place4 + 5)};
    };
    EXPECT_THAT(states(), ElementsAre(0, -1, 0));
    RollTotal(8);
    EXPECT_THAT(states(), ElementsAre(1, -1, 1));
    ASSERT_TRUE(CallBet(t, 1, Row::Place4 + 5, true));
    RollTotal(8);
    EXPECT_THAT(states(), ElementsAre(0, -1, 2));
    SetComeOutWorking(t, 1, Row::Place4, true);
    EXPECT_EQ(BetWorking(t, 1, Row::Place4), 0) << "until the point next moves";
    RollAll({6, 6});
    EXPECT_THAT(states(), ElementsAre(1, -1, 2));
    const currency before = BankrollOf(1);
    RollTotal(7);
    EXPECT_EQ(BankrollOf(1) - before, Dollars(-20));
    EXPECT_THAT(states(), ElementsAre(1, -1, 2));
}

TEST_F(RollCycleTest, BoxesMoveAfterTheNumbersArePaid) {
    Seat(1, "Ann", 1000);
    Bet(1, Row::PassLine, 10);
    RollTotal(8);
    Bet(1, Row::Come, 10);
    RollTotal(6);
    EXPECT_EQ(BankrollOf(1), Dollars(1000)) << "a moving bet does not win on its own roll";
    Bet(1, Row::Come, 15);
    RollTotal(6);
    EXPECT_EQ(BankrollOf(1), Dollars(1010));
    EXPECT_EQ(Amount(1, Row::Come4 + 2), Dollars(15));
    EXPECT_EQ(t.EstablishedBet(1, Row::Come4 + 2), Dollars(15));
    // Left up as a Put bet, the number receives the box on top.
    t.WinnerHandling[1] = 2;
    Bet(1, Row::Come, 20);
    RollTotal(6);
    EXPECT_EQ(Amount(1, Row::Come4 + 2), Dollars(35));
    EXPECT_EQ(t.EstablishedBet(1, Row::Come4 + 2), Dollars(35));
    RemoveBet(t, 1, Row::Come4 + 2);
    EXPECT_EQ(Amount(1, Row::Come4 + 2), Dollars(35)) << "all of it is contract";
    Bet(1, Row::DontCome, 20);
    RollTotal(5);
    EXPECT_EQ(Amount(1, Row::DontCome4 + 1), Dollars(20));
    EXPECT_EQ(t.BetsOnTable[1], BetsOnTableOf(t, 1));
    // The point made takes the box along, too.
    Bet(1, Row::Come, 5);
    RollTotal(8);
    EXPECT_EQ(t.Point, 0);
    EXPECT_EQ(Amount(1, Row::Come4 + 3), Dollars(5));
    EXPECT_EQ(BetWorking(t, 1, Row::Come4 + 3), 1);
}

TEST_F(RollCycleTest, MarksOfTheSpecials) {
    struct Case {
        const char* Name;
        std::vector<int> Bets, Totals;
        int Marks, FourRolls;
    };
    const Case cases[] = {
        {"nobody plays them", {}, {2, 3, 12}, 0, 0},
        {"small", {Row::AllSmall}, {2, 3, 12, 6}, 4 + 8 + 64, 0},
        {"tall", {Row::AllTall}, {2, 8, 12, 8}, 256 + 4096, 0},
        {"both for Make All", {Row::MakeAll}, {2, 3, 12}, 4 + 8 + 4096, 0},
        {"a seven wipes them", {Row::MakeAll}, {2, 3, 7}, 0, 0},
        {"four rolls", {Row::FourRollsNo7}, {2, 3, 12}, 0, 3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        Restart();
        Seat(1, "Ann");
        for (const int row : c.Bets) Bet(1, row, 1);
        for (const int total : c.Totals) RollTotal(total);
        EXPECT_EQ(t.MarkedNumbers, c.Marks);
        EXPECT_EQ(t.FourRollsCount, c.FourRolls);
    }
}

TEST_F(RollCycleTest, RunsOfNumbersDecideTheSpecials) {
    struct Case {
        const char* Name;
        std::vector<int> Bets, Totals;
        std::int64_t Net;
        std::vector<int> Stay;
        int Marks;
    };
    const Case cases[] = {
        {"All Small", {Row::AllSmall}, {2, 3, 4, 5, 12, 6}, 34, {Row::AllSmall}, 0},
        {"All Tall", {Row::AllTall}, {8, 9, 10, 11, 2, 12}, 34, {Row::AllTall}, 0},
        {"All Small lost", {Row::AllSmall}, {2, 3, 4, 5, 7}, -1, {Row::AllSmall}, 0},
        {"beside Make All, All Small must come down",
         {Row::AllSmall, Row::MakeAll},
         {2, 3, 4, 5, 6},
         34,
         {Row::MakeAll},
         124},
        {"everything",
         {Row::AllSmall, Row::AllTall, Row::MakeAll},
         {2, 3, 4, 5, 6, 8, 9, 10, 11, 12},
         34 + 34 + 175,
         {Row::MakeAll, Row::AllTall},
         0},
        {"4 Rolls", {Row::FourRollsNo7}, {2, 3, 4, 5}, 1, {Row::FourRollsNo7}, 0},
        {"4 Rolls twice", {Row::FourRollsNo7}, {2, 3, 4, 5, 6, 8, 9, 10}, 2, {Row::FourRollsNo7}, 0},
        {"4 Rolls lost", {Row::FourRollsNo7}, {2, 3, 4, 7}, -1, {Row::FourRollsNo7}, 0},
        {"Point 7", {Row::Point7}, {8, 7}, 7, {Row::Point7}, 0},
        {"Point 7 on the second roll", {Row::Point7}, {8, 6}, -1, {}, 0},
        {"Point 7 straight after a made point", {Row::Point7}, {11, 8, 7}, 6, {Row::Point7}, 0},
        {"7 Point 7, the point then the 7", {Row::SevenPoint7}, {8, 7}, 3, {Row::SevenPoint7}, 0},
        {"7 Point 7, the 7 and again", {Row::SevenPoint7}, {7, 8, 7}, 5, {Row::SevenPoint7}, 0},
        {"7 Point 7 on the second roll", {Row::SevenPoint7}, {8, 6}, -1, {}, 0},
        {"7 Point 7 on craps", {Row::SevenPoint7}, {2}, -1, {Row::SevenPoint7}, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        Restart();
        Seat(1, "Ann", 1000);
        t.WinnerHandling[1] = t.LoserHandling[1] = 2;
        for (const int row : c.Bets) Bet(1, row, 1);
        for (const int total : c.Totals) RollTotal(total);
        EXPECT_EQ(BankrollOf(1), Dollars(1000 + c.Net));
        EXPECT_EQ(t.MarkedNumbers, c.Marks);
        for (const int row : c.Bets) {
            const bool stays = std::find(c.Stay.begin(), c.Stay.end(), row) != c.Stay.end();
            EXPECT_EQ(!IsZero(Amount(1, row)), stays) << BetName(row);
        }
    }
}

TEST_F(RollCycleTest, SpecialsSwitchedOffAreLeftAlone) {
    Seat(1, "Ann", 1000);
    Bet(1, Row::AllSmall, 1);
    Bet(1, Row::Point7, 1);
    RollTotal(2);
    Bet(1, Row::Point7, 1);
    const int marks = t.MarkedNumbers;
    t.UseSpecialPropBets = false;
    const currency before = BankrollOf(1);
    RollAll({3, 7});
    EXPECT_EQ(BankrollOf(1), before);
    EXPECT_EQ(t.MarkedNumbers, marks);
}

TEST_F(RollCycleTest, AFireWinnerMayStayForTheNextHandAndALoserNot) {
    for (const int points : {4, 1}) {
        SCOPED_TRACE(points);
        Restart();
        t.UseSpecialPropBets = false;  // Fire has an option of its own
        Seat(1, "Ann", 1000);
        t.WinnerHandling[1] = t.LoserHandling[1] = 2;
        Bet(1, Row::Fire, 5);
        for (int i = 0; i < points; ++i) RollAll({PointOfIndex(i), PointOfIndex(i)});
        const int handRolls = HandRolls(t);
        RollAll({9, 7});
        EXPECT_EQ(Amount(1, Row::Fire), points == 4 ? Dollars(5) : currency{});
        EXPECT_EQ(RollCount(t, 9, 0), handRolls + 2) << "the last hand keeps its rolls";
        EXPECT_EQ(HandRolls(t), 0);
    }
}

TEST_F(RollCycleTest, TheHandEndsAtTheSevenOut) {
    Seat(2, "Bo");
    Seat(5, "Eve");
    Seat(7, "Gus");
    ASSERT_EQ(t.Shooter, 2);
    RollAll({7, 8, 8, 6, 7});
    EXPECT_EQ(t.LastHandShooter, 2);
    EXPECT_EQ(t.Shooter, 7) << "downward, from 1 to 8";
    EXPECT_EQ(t.HandShooter, 7);
    RollAll({8, 5});
    PassTheDice(t, PassMode::Request);
    EXPECT_EQ(t.Shooter, 5);
    EXPECT_EQ(t.HandShooter, 7) << "the hand stays with him who began it";
    Messages();
    RollTotal(7);
    EXPECT_EQ(t.LastHandShooter, 7);
    EXPECT_EQ(t.Shooter, 5) << "the dice were passed already";
    EXPECT_EQ(t.HandShooter, 5);
    RollAll({4, 7});
    EXPECT_EQ(t.Shooter, 2);
    EXPECT_EQ(HandCount(t, 18), 3);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(RollCycleTest, LogOfAHand) {
    Seat(1, "Ann", 1000);
    Seat(4, "Dot", 1000);
    t.EventsLogOn = true;
    Bet(1, Row::PassLine, 10);
    Front.Logged.clear();
    RollTotal(8);
    EXPECT_THAT(Front.Logged, ElementsAre("    Bets:", "      Ann bet $10 on Pass Line",
                                          " Roll #1:  8 (4.4) from manual roll pad", "    Point established"));
    Bet(1, Row::Come, 5);
    Front.Logged.clear();
    RollTotal(6);
    EXPECT_THAT(Front.Logged,
                ElementsAre("    Bets:", "      Ann bet $5 on Come", " Roll #2:  6 (3.3) from manual roll pad",
                            "    Ann's Come bet moved to Come 6"));
    AtmTransaction(t, 1, Dollars(100));
    Front.Logged.clear();
    RollTotal(7);
    EXPECT_THAT(Front.Logged,
                ElementsAre("    Bankroll:", "      Ann increased to $1100 ($100 ATM withdrawal)",
                            " Roll #3:  7 (3.4) from manual roll pad", "    Miss (seven-out)",
                            "    Wins/losses:", "      Ann lost $10 on Pass Line", "      Ann lost $5 on Come 6",
                            "    Bankroll:", "      Ann decreased to $1085 ($15 loss)",
                            "----New shooter (Dot) coming out----------"));
    Front.Logged.clear();
    RollTotal(11);
    EXPECT_THAT(Front.Logged, ElementsAre(" Roll #4:  11 (5.6) from manual roll pad", "    Pass (natural)"))
        << "settled bets are not told as removed";
}

TEST_F(RollCycleTest, GeneratorRollsNameTheirSource) {
    t.EventsLogOn = true;
    t.RngIndex = 4;
    const std::pair<bool, const char*> cases[] = {{false, ""}, {true, " using untitled probability matrix"}};
    for (const auto& [skewed, matrix] : cases) {
        t.UseSkewedProbability = skewed;
        Front.Logged.clear();
        RollDice(t);
        ASSERT_FALSE(Front.Logged.empty());
        EXPECT_THAT(Front.Logged[0], testing::EndsWith(std::string(") from RNG #5") + matrix));
    }
    t.ProbabilityFileName = "loaded.prb";
    Front.Logged.clear();
    RollDice(t);
    EXPECT_THAT(Front.Logged[0], HasSubstr(" using probability matrix: loaded.prb"));
}

TEST_F(RollCycleTest, NewPointOrdersRunOncePointIsOn) {
    Seat(1, "Ann", 1000);
    t.AutoTakeFullOdds[1] = t.AutoLayFullOdds[1] = t.AutoDownPlaceBets[1] = true;
    Bet(1, Row::PassLine, 10);
    Bet(1, Row::DontPass, 10);
    Bet(1, Row::Place4, 10);
    Bet(1, Row::Buy4, 20);
    Bet(1, Row::Place4 + 1, 10);
    RollTotal(4);
    EXPECT_EQ(Amount(1, Row::PassLineOdds), Dollars(20));
    EXPECT_EQ(Amount(1, Row::DontPassOdds), Dollars(40));
    EXPECT_EQ(Amount(1, Row::Place4), currency{});
    EXPECT_EQ(Amount(1, Row::Buy4), currency{});
    EXPECT_EQ(Amount(1, Row::Place4 + 1), Dollars(10));
    EXPECT_EQ(t.BetsOnTable[1], BetsOnTableOf(t, 1));
    EXPECT_EQ(t.Payoff[Row::PassLineOdds].Pays, Dollars(2));
    EXPECT_EQ(t.Payoff[Row::DontPassOdds].For, Dollars(2));
}

/// Counts what the table asks of the scripts.
struct CountingScripts : ScriptHost {
    bool Compiles = true;
    std::function<void(Table&)> OnRun;
    int Runs = 0;
    bool CompileAll(Table&) override { return Compiles; }
    void RunAll(Table& t) override {
        ++Runs;
        if (OnRun) OnRun(t);
    }
    std::string NameRefusal(const Table&, const std::string&, int) override { return {}; }
    void SwapPositions(Table&, int, int) override {}
    void NameChanged(Table&) override {}
};

TEST_F(RollCycleTest, ScriptsBetForTheNextRoll) {
    Seat(1, "Ann", 1000);
    CountingScripts scripts;
    t.Scripts = &scripts;
    scripts.OnRun = [](Table& table) {
        PlaceBet(table, 1, Row::Field, Dollars(5));
        AtmTransaction(table, 1, Dollars(100));
    };
    Roll(1, 2);
    EXPECT_EQ(BankrollOf(1), Dollars(1100));
    EXPECT_EQ(t.PrevBankroll[1], Dollars(1100)) << "what a script draws is no change between rolls";
    EXPECT_EQ(t.BetAfterRoll(1, Row::Field), Dollars(5));
    Roll(1, 2);
    EXPECT_EQ(BankrollOf(1), Dollars(1205));
    EXPECT_EQ(scripts.Runs, 2);
    scripts.Compiles = false;
    Roll(1, 2);
    EXPECT_EQ(SessionRolls(t), 2);
    EXPECT_FALSE(t.RollInProgress);
}

TEST_F(RollCycleTest, AFaultLeavesTheTableFree) {
    CountingScripts scripts;
    t.Scripts = &scripts;
    scripts.OnRun = [](Table&) { throw std::runtime_error("fault"); };
    Roll(1, 2);
    EXPECT_FALSE(t.RollInProgress);
    EXPECT_THAT(Messages(), ElementsAre(HasSubstr(" occurred, at: RollDice")));
    t.HyperThrottle = 0;
    ToggleAutoRoll(t);
    EXPECT_FALSE(t.AutoRollActive);
    EXPECT_FALSE(t.HyperDriveActive);
    EXPECT_THAT(Messages(), ElementsAre(HasSubstr("[Hyper-Drive Stopped] , Error #")));
    scripts.OnRun = nullptr;
    Roll(1, 2);
    EXPECT_EQ(SessionRolls(t), 3);
}

TEST_F(RollCycleTest, PadRollsTakeDiceOnly) {
    for (const auto& [die1, die2] : {std::pair{0, 3}, std::pair{3, 7}, std::pair{-1, 1}}) {
        Roll(die1, die2);
        EXPECT_EQ(SessionRolls(t), 0);
        EXPECT_FALSE(t.PadRollPending);
    }
    Roll(6, 1);
    EXPECT_EQ(t.Die1, 6);
    EXPECT_EQ(t.Die2, 1);
    EXPECT_EQ(Front.Throws, 1);
}

}  // namespace
}  // namespace tarnwick
