#include "stats/eventslog.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>

#include "stats/accumulators.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/screen.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

struct LogScreen : SilentScreen {
    std::string DateText() override { return "3/9/2024"; }
    std::string TimeText() override { return "4:05 PM"; }
};

struct EventsLogTest : testing::Test {
    EventsLogTest() {
        t.Front = &Front;
        SeatPlayer(1, "Ann", Dollars(1000));
        SeatPlayer(8, "Bo", currency{5'005'000});
        SetEventsLogOn(t, true);
    }

    void SeatPlayer(int p, const char* name, currency bankroll) {
        t.PlayerName[static_cast<std::size_t>(p)] = name;
        SetBeginningBankroll(t, p, bankroll);
        t.PrevBankroll[static_cast<std::size_t>(p)] = bankroll;
        t.BankrollAtRollStart[static_cast<std::size_t>(p)] = bankroll;
    }

    /// A roll of `die1` and `die2` as far as the log sees it, begun with the bets that stand.
    void Roll(int die1, int die2) {
        for (int p = 1; p < Positions; ++p) {
            for (int row = 1; row <= Row::LastRow; ++row) t.PrevBetAmount(p, row) = t.BetAmount(p, row);
        }
        t.Die1 = die1;
        t.Die2 = die2;
        t.DiceTotal = die1 + die2;
        TallyRoll(t);
    }

    /// The log's new lines of `action`.
    std::vector<std::string> LinesOf(const std::function<void()>& action) {
        Front.Logged.clear();
        action();
        return Front.Logged;
    }
    std::vector<std::string> Changes() {
        return LinesOf([this] { LogChangesSinceRoll(t); });
    }

    std::unique_ptr<Table> Game = std::make_unique<Table>();
    Table& t = *Game;
    LogScreen Front;
};

TEST_F(EventsLogTest, AmountsOfBetsThatChanged) {
    struct Case {
        const char* What;
        int Row;
        currency Before, Now;
        const char* Line;  ///< null: none
    };
    const Case cases[] = {
        {"new", Row::PassLine, {}, Dollars(1234), "      Ann bet $1234 on Pass Line"},
        {"cents", Row::Place4 + 2, {}, currency{125'000}, "      Ann bet $12.5 on Place 6"},
        {"down", Row::Hard8, Dollars(10), {}, "      Ann removed $10 bet on Hard 8"},
        {"less", Row::Field, Dollars(10), Dollars(5), "      Ann decreased Field to $5"},
        {"more", Row::Fire, Dollars(1), Dollars(5), "      Ann increased Fire to $5"},
        {"first row", Row::Lay4, {}, Dollars(20), "      Ann bet $20 on Lay 4"},
        {"same", Row::Field, Dollars(10), Dollars(10), nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.What);
        SetBetAmount(t, 1, c.Row, c.Before);
        Roll(6, 5);
        SetBetAmount(t, 1, c.Row, c.Now);
        if (c.Line != nullptr) {
            EXPECT_THAT(Changes(), ElementsAre("    Bets:", c.Line));
        } else {
            EXPECT_THAT(Changes(), IsEmpty());
        }
        SetBetAmount(t, 1, c.Row, {});
    }
}

TEST_F(EventsLogTest, BetsThatTheRollTookAreNotRemovedByThePlayer) {
    SetBetAmount(t, 1, Row::Field, Dollars(5));
    SetBetAmount(t, 1, Row::Come4Odds, Dollars(20));
    Roll(3, 4);
    RecordBetResult(t, 1, Row::Field, Dollars(5), Dollars(-5));
    SetBetAmount(t, 1, Row::Field, {});
    SetBetAmount(t, 1, Row::Come4Odds, {});  // returned, not decided
    EXPECT_THAT(Changes(), ElementsAre("    Bets:", "      Ann removed $20 bet on Come 4 Odds"));

    // What was decided in an earlier roll protects nothing.
    SetBetAmount(t, 1, Row::Field, Dollars(5));
    Roll(3, 4);
    SetBetAmount(t, 1, Row::Field, {});
    EXPECT_THAT(Changes(), ElementsAre("    Bets:", "      Ann removed $5 bet on Field"));
}

TEST_F(EventsLogTest, BeforeTheFirstRollNothingCountsAsDecided) {
    t.PrevBetAmount(1, Row::Field) = Dollars(5);
    TouchBet(t, 1, Row::Field);
    EXPECT_THAT(Changes(), ElementsAre("    Bets:", "      Ann removed $5 bet on Field"));
}

TEST_F(EventsLogTest, BoxesAndWhatMovedFromThem) {
    struct Case {
        const char* What;
        int Box, Number, Die1, Die2;
        currency BoxNow, NumberNow;
        std::vector<std::string> Lines;
    };
    const int come6 = Row::Come4 + 2, dont9 = Row::DontCome4 + 4, dont6 = Row::DontCome4 + 2;
    const Case cases[] = {
        {"moved", Row::Come, come6, 4, 2, {}, Dollars(10), {}},
        {"moved to the Don't side", Row::DontCome, dont9, 4, 5, {}, Dollars(10), {}},
        {"moved, the box bet anew",
         Row::Come,
         come6,
         4,
         2,
         Dollars(10),
         Dollars(10),
         {"    Bets:", "      Ann bet $10 on Come"}},
        {"moved, then raised",
         Row::Come,
         come6,
         4,
         2,
         {},
         Dollars(15),
         {"    Bets:", "      Ann increased Come 6 to $15"}},
        {"moved, then taken down",
         Row::DontCome,
         dont6,
         4,
         2,
         {},
         {},
         {"    Bets:", "      Ann removed $10 bet on Don't Come 6"}},
        {"barred, then taken down",
         Row::DontCome,
         dont6,
         6,
         6,
         {},
         {},
         {"    Bets:", "      Ann removed $10 bet on Don't Come"}},
        {"another number than the total's was bet, the total's taken down",
         Row::DontCome,
         dont6,
         4,
         4,
         {},
         Dollars(10),
         {"    Bets:", "      Ann bet $10 on Don't Come 6", "      Ann removed $10 bet on Don't Come 8"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.What);
        SetBetAmount(t, 1, c.Box, Dollars(10));
        Roll(c.Die1, c.Die2);
        SetBetAmount(t, 1, c.Box, c.BoxNow);
        SetBetAmount(t, 1, c.Number, c.NumberNow);
        EXPECT_THAT(Changes(), ElementsAreArray(c.Lines));
        SetBetAmount(t, 1, c.Box, {});
        SetBetAmount(t, 1, c.Number, {});
    }
}

TEST_F(EventsLogTest, ANumberThatWasPaidAndTookTheBoxWasNotTouchedByThePlayer) {
    const int come8 = Row::Come4 + 3;
    SetBetAmount(t, 1, Row::Come, Dollars(15));
    SetBetAmount(t, 1, come8, Dollars(10));
    Roll(5, 3);
    RecordBetResult(t, 1, come8, Dollars(10), Dollars(10));
    SetBetAmount(t, 1, Row::Come, {});
    SetBetAmount(t, 1, come8, Dollars(15));
    EXPECT_THAT(Changes(), IsEmpty());
}

TEST_F(EventsLogTest, CallsOfBetsThatStand) {
    struct Case {
        const char* What;
        int Before, Now;
        currency AmountBefore, AmountNow;
        std::vector<std::string> Lines;
    };
    const currency ten = Dollars(10);
    const Case cases[] = {
        {"on", 0, 2, ten, ten, {"    Bets:", "      Ann called ON Place 10 bet"}},
        {"off", 1, -1, ten, ten, {"    Bets:", "      Ann called OFF Place 10 bet"}},
        {"off after on", 2, -1, ten, ten, {"    Bets:", "      Ann called OFF Place 10 bet"}},
        {"normal", -1, 1, ten, ten, {"    Bets:", "      Ann called Place 10 bet working normally again"}},
        {"normal on a come-out", 2, 0, ten, ten, {"    Bets:", "      Ann called Place 10 bet working normally again"}},
        {"unchanged", 2, 2, ten, ten, {}},
        {"one default for another", 0, 1, ten, ten, {}},
        {"no bet", 1, 2, {}, {}, {}},
        {"taken down", 1, -1, ten, {}, {"    Bets:", "      Ann removed $10 bet on Place 10"}},
        {"a new bet after an old call", -1, 1, {}, ten, {"    Bets:", "      Ann bet $10 on Place 10"}},
        {"a new bet called as the old one was",
         2,
         2,
         {},
         ten,
         {"    Bets:", "      Ann bet $10 on Place 10", "      Ann called ON Place 10 bet"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.What);
        SetBetAmount(t, 1, Row::Place10, c.AmountBefore);
        SetBetWorking(t, 1, Row::Place10, c.Before);
        Roll(6, 5);
        RememberWorkingForLog(t);
        SetBetAmount(t, 1, Row::Place10, c.AmountNow);
        SetBetWorking(t, 1, Row::Place10, c.Now);
        EXPECT_THAT(Changes(), ElementsAreArray(c.Lines));
    }
}

TEST_F(EventsLogTest, CallsGoWithAPlayerToAnotherPlace) {
    SetBetAmount(t, 1, Row::Hard4, Dollars(5));
    SetBetWorking(t, 1, Row::Hard4, -1);
    Roll(6, 5);
    RememberWorkingForLog(t);
    MovePlayer(t, 1, 5);
    Roll(6, 5);
    SetBetWorking(t, 5, Row::Hard4, 1);
    EXPECT_THAT(Changes(), ElementsAre("    Bets:", "      Ann called Hard 4 bet working normally again"));
}

TEST_F(EventsLogTest, GroupsInTheirOrderEachWithOneHeading) {
    t.PrevScriptOn[8] = true;
    t.ScriptOn[1] = true;
    t.ScriptName[1] = "dark side.bet";
    SetBankroll(t, 1, Dollars(1100));
    SetBankroll(t, 8, Dollars(400));
    SetBetAmount(t, 1, Row::PassLine, Dollars(5));
    SetBetAmount(t, 8, Row::DontPass, Dollars(5));
    SetBetWorking(t, 8, Row::DontPass, 1);
    t.PrevBetAmount(1, 100) = Dollars(5);
    SetBetAmount(t, 1, 100, Dollars(-7));
    SetBetAmount(t, 8, 199, currency{1});
    const std::vector<std::string> lines = {
        "    AutoBets:",
        "      Ann activated (dark side.bet)",
        "      Bo deactivated auto-bets",
        "    Bankroll:",
        "      Ann increased to $1100 ($100 ATM withdrawal)",
        "      Bo decreased to $400 ($100.5 ATM deposit)",
        "    Bets:",
        "      Ann bet $5 on Pass Line",
        "      Bo bet $5 on Don't Pass",
        "    CheckStacks:",
        "      Ann decreased CheckStack #0 to $-7",
        "      Bo increased CheckStack #99 to $0.0001",
    };
    EXPECT_THAT(Changes(), ElementsAreArray(lines));
    EXPECT_THAT(Changes(), ElementsAreArray(lines)) << "a second block writes its headings again";

    t.ScriptName[1].clear();
    t.RecordBankrollChanges = t.RecordBetChanges = t.RecordCheckStackChanges = false;
    EXPECT_THAT(Changes(), ElementsAre("    AutoBets:", "      Ann activated untitled auto-bets",
                                       "      Bo deactivated auto-bets"));
    t.EventsLogOn = false;
    EXPECT_THAT(Changes(), IsEmpty());
}

TEST_F(EventsLogTest, ChangesAreToldOnceAndTurningTheLogOnForgetsOldOnes) {
    t.ScriptOn[1] = true;
    SetBankroll(t, 1, Dollars(900));
    RememberForLog(t);
    EXPECT_THAT(Changes(), IsEmpty());

    SetEventsLogOn(t, false);
    t.ScriptOn[1] = false;
    SetBankroll(t, 1, Dollars(800));
    SetBetAmount(t, 1, Row::Hard4, Dollars(5));
    Roll(6, 5);
    SetBetWorking(t, 1, Row::Hard4, -1);
    SetEventsLogOn(t, true);
    EXPECT_THAT(Changes(), IsEmpty());
    SetBankroll(t, 1, Dollars(801));
    SetEventsLogOn(t, true);
    EXPECT_THAT(Changes(), ElementsAre("    Bankroll:", "      Ann increased to $801 ($1 ATM withdrawal)"));
}

TEST_F(EventsLogTest, RollsAndDecisions) {
    t.Die1 = 4;
    t.Die2 = 2;
    t.DiceTotal = 11;  // of the roll before
    t.RngIndex = 1;
    t.UseSkewedProbability = true;
    t.ProbabilityFileName = "loaded.prb";
    EXPECT_THAT(LinesOf([this] { LogRoll(t, DiceSource::Generator); }),
                ElementsAre(" Roll #1:  6 (4.2) from RNG #2 using probability matrix: loaded.prb"));
    Roll(6, 6);
    EXPECT_THAT(LinesOf([this] { LogRoll(t, DiceSource::Pad); }),
                ElementsAre(" Roll #2:  12 (6.6) from manual roll pad"));
    EXPECT_THAT(LinesOf([this] { LogDecision(t, "Miss (seven-out)"); }), ElementsAre("    Miss (seven-out)"));
}

TEST_F(EventsLogTest, ResultsOfBetsUnderTheHeadingOfWhatIsRecorded) {
    const auto settle = [this] {
        BeginLogBlock(t);
        LogBetResult(t, 1, Row::Come4, Dollars(-10));
        LogBetResult(t, 8, Row::Place4 + 2, currency{75'000});
        LogBetResult(t, 1, Row::Field, {});
        LogContractMove(t, 1, Row::DontCome, Row::DontCome4 + 5);
        LogBetResult(t, 1, Row::CandE, Dollars(3));
    };
    const char *lost = "      Ann lost $10 on Come 4", *won = "      Bo won $7.5 on Place 6";
    const char *move = "    Ann's Don't Come bet moved to Don't Come 10", *late = "      Ann won $3 on C and E";
    struct Case {
        bool Won, Lost;
        std::vector<std::string> Lines;
    };
    const Case cases[] = {{true, true, {"    Wins/losses:", lost, won, move, late}},
                          {true, false, {"    Wins:", won, move, late}},
                          {false, true, {"    Losses:", lost, move}},
                          {false, false, {move}}};
    for (const Case& c : cases) {
        t.RecordBetsWon = c.Won;
        t.RecordBetsLost = c.Lost;
        EXPECT_THAT(LinesOf(settle), ElementsAreArray(c.Lines));
    }
    t.RecordBetsWon = true;
    t.RecordBetsLost = false;
    EXPECT_THAT(LinesOf([this] {
                    BeginLogBlock(t);
                    LogBetResult(t, 1, Row::Field, Dollars(-1));
                }),
                ElementsAre("    Wins:"));
}

TEST_F(EventsLogTest, BankrollsAfterTheRoll) {
    SetBankroll(t, 1, Dollars(1010));
    SetBankroll(t, 8, currency{-10'000});
    EXPECT_THAT(LinesOf([this] { LogBankrollResults(t); }),
                ElementsAre("    Bankroll:", "      Ann increased to $1010 ($10 gain)",
                            "      Bo decreased to $-1 ($501.5 loss)"));
    t.RecordBankrollChanges = false;
    EXPECT_THAT(LinesOf([this] { LogBankrollResults(t); }), IsEmpty());
}

TEST_F(EventsLogTest, NextShooter) {
    struct Case {
        int Shooter, Last;
        const char* Line;
    };
    const Case cases[] = {{8, 1, "----New shooter (Bo) coming out----------"},
                          {1, 1, "----Same shooter (Ann) coming out----------"},
                          {8, 0, "----New shooter (Bo) coming out----------"},
                          {0, 1, "----New hand, come-out roll----------"},
                          {0, 0, "----New hand, come-out roll----------"}};
    for (const Case& c : cases) {
        t.Shooter = c.Shooter;
        t.LastHandShooter = c.Last;
        EXPECT_THAT(LinesOf([this] { LogNextShooter(t); }), ElementsAre(c.Line));
    }
    t.RecordShooterChanges = false;
    EXPECT_THAT(LinesOf([this] { LogNextShooter(t); }), IsEmpty());
}

TEST_F(EventsLogTest, SessionStartWithEveryStick) {
    const char* names[] = {"", "Ann", "Ben", "Cy", "Di", "Ed", "Flo", "Gus", "Hal"};
    for (int p = 1; p < Positions; ++p) SeatPlayer(p, names[p], Dollars(100 * p));
    SetBankroll(t, 1, Dollars(5));  // the beginning counts
    t.DiceFileMode = 2;
    t.DiceRollFileName = "friday.rol";
    t.ScriptOn[3] = t.ScriptOn[7] = true;
    t.ScriptName[3] = "press.bet";
    t.Shooter = 5;
    EXPECT_THAT(LinesOf([this] { LogSessionStart(t, true); }),
                ElementsAre("============================================", " New session started 3/9/2024 @ 4:05 PM",
                            "    Players:", "      Ann at stick 4-left with $100",
                            "      Ben at stick 3-left with $200", "      Cy at stick 2-left with $300",
                            "      Di at stick 1-left with $400", "      Ed at stick 1-right with $500",
                            "      Flo at stick 2-right with $600", "      Gus at stick 3-right with $700",
                            "      Hal at stick 4-right with $800", "    Dice roll file playback active (friday.rol)",
                            "    AutoBets:", "      Cy activated (press.bet)", "      Gus activated untitled auto-bets",
                            "----New shooter (Ed) coming out----------"));
}

TEST_F(EventsLogTest, SessionStartOfAnEmptyTable) {
    t.PlayerName = {};
    t.DiceFileMode = 1;  // recording isn't told
    t.DiceRollFileName = "friday.rol";
    t.RecordShooterChanges = false;
    EXPECT_THAT(LinesOf([this] { LogSessionStart(t, false); }),
                ElementsAre(" New session started 3/9/2024 @ 4:05 PM", "----New hand, come-out roll----------"));
    t.PlayerName[2] = "Cy";
    t.Shooter = 2;
    EXPECT_THAT(
        LinesOf([this] { LogSessionStart(t, false); }),
        ElementsAre(" New session started 3/9/2024 @ 4:05 PM", "    Players:", "      Cy at stick 3-left with $0"));
}

TEST_F(EventsLogTest, CashingOut) {
    struct Case {
        int Bankroll, Invested, Abandoned;
        const char* Line;
    };
    const Case cases[] = {
        {1200, 1000, 0, "    Ann cashed out with $1200(net win: $200)"},
        {1200, 1000, 50, "    Ann cashed out with $1150(net win: $150)"},
        {900, 1000, 0, "    Ann cashed out with $900(net loss: $100"},
        {900, 1000, 25, "    Ann cashed out with $875(net loss: $125 includes $25 abandoned)"},
        {1000, 1000, 0, "    Ann cashed out with $1000"},
        {1010, 1000, 10, "    Ann cashed out with $1000"},
    };
    for (const Case& c : cases) {
        SetBankroll(t, 1, Dollars(c.Bankroll));
        t.BankrollInvested[1] = Dollars(c.Invested);
        EXPECT_THAT(LinesOf([&] { LogCashOut(t, 1, Dollars(c.Abandoned)); }), ElementsAre(c.Line));
    }
}

TEST_F(EventsLogTest, NarrationOfPlayersAndSourcesOnlyWhileTheLogIsOn) {
    t.RngIndex = 4;
    t.DiceRollFileName = "friday.rol";
    const auto all = [this] {
        LogJoined(t, 1, Dollars(250));
        LogMovedSeat(t, 8, 4);
        LogRenamed(t, "Bo", "Bob");
        LogDicePassed(t, 8);
        LogSeeded(t, 2147483647);
        LogPlayback(t);
        LogContractMove(t, 8, Row::Come, Row::Come10);
    };
    EXPECT_THAT(
        LinesOf(all),
        ElementsAre("    Ann joined the game at stick 4-left with $250", "    Bo moved to stick 1-left",
                    "    Bo's name changed to Bob", "    The dice were passed to Bo", "    RNG #5 seeded: 2147483647",
                    "    Dice roll file playback activated (friday.rol)", "    Bo's Come bet moved to Come 10"));
    SetEventsLogOn(t, false);
    EXPECT_THAT(LinesOf([&] {
                    all();
                    LogRoll(t, DiceSource::File);
                    LogDecision(t, "Pass (natural)");
                    LogBetResult(t, 1, Row::Field, Dollars(1));
                    LogCashOut(t, 1, {});
                    LogNextShooter(t);
                    LogSessionStart(t, true);
                    SetBankroll(t, 1, {});
                    LogBankrollResults(t);
                }),
                IsEmpty());
}

}  // namespace
}  // namespace tarnwick
