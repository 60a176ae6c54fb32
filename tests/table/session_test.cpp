#include "table/session.h"

#include <unistd.h>

#include <filesystem>

#include "dice/dicefile.h"
#include "stats/bankrollgraph.h"
#include "support/table_fixture.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct SessionTest : TableTest {
    SessionTest() { Seat(1, "Ann", 1000); }

    SessionOptions Options(bool keepData = true) const {
        SessionOptions options;
        options.KeepData = keepData;
        return options;
    }

    /// A Pass Line bet of 10 with odds, a Come bet of 5 with odds, a Place and a Buy bet: 75 and a vig of 1.
    void PlayIntoAHand() {
        Bet(1, Row::PassLine, 10);
        RollTotal(8);
        Bet(1, Row::Come, 5);
        RollTotal(5);
        Bet(1, Row::PassLineOdds, 20);
        Bet(1, Row::Come4Odds + 1, 10);
        Bet(1, Row::Place4, 10);
        Bet(1, Row::Buy4, 20);
        PlaceBet(t, 1, 101, Dollars(44));
        ASSERT_EQ(t.BetsOnTable[1], Dollars(76));
    }
};

TEST_F(SessionTest, AStartedProgramHasItsDefaults) {
    SubMain(t, &Front);
    EXPECT_EQ(t.PlayerName[0], "House");
    EXPECT_THAT((std::vector<int>{t.Die1, t.Die2, t.DiceTotal, t.Point, t.Shooter, t.PlayerCount}),
                ElementsAre(3, 4, 7, 0, 0, 0));
    EXPECT_EQ(t.NotifyBits, 15);
    EXPECT_EQ(t.ShooterBetRequirement, 1);
    EXPECT_EQ(t.BarDont, 12);
    EXPECT_EQ(t.RollsPerHour, Dollars(120));
    EXPECT_EQ(t.AutoRollDelay, Dollars(1));
    EXPECT_EQ(t.RngIndex, 1);
    EXPECT_EQ(t.MissingRngLibraries, 0);
    for (int p = 1; p <= 8; ++p) {
        EXPECT_EQ(t.AtmAmount[At(p)], Dollars(500));
        for (int n = 1; n <= 4; ++n) EXPECT_EQ(t.VisibleStack[At(p)][At(n)], 100 + n);
        for (int row = 1; row <= Row::LastBet; ++row) {
            const bool off = (25 <= row && row <= 42) || row == 44 || row == 45 || row == 47 || row == 48;
            EXPECT_EQ(t.ComeOutWorking(p, row), off ? 0 : 1) << row;
            EXPECT_EQ(BetWorking(t, p, row), off ? 0 : 1) << row;
        }
    }
    EXPECT_FALSE(t.RollInProgress);
    EXPECT_FALSE(t.GameChanged);
    EXPECT_EQ(t.Payoff[Row::Place4].Pays, Dollars(9));
}

TEST_F(SessionTest, ContractBetsAreAbandonedOrReturned) {
    for (const bool returned : {false, true}) {
        SCOPED_TRACE(returned);
        SubMain(t, &Front);
        t.ShooterBetRequirement = 0;
        Seat(1, "Ann", 1000);
        t.BankrollStartRule[1] = 2;
        t.ReturnAbandonedBets = returned;
        t.LoserHandling[1] = 2;  // no standing order puts an abandoned bet back
        PlayIntoAHand();
        t.EventsLogOn = true;
        Front.Logged.clear();
        NewSession(t, Options());
        EXPECT_EQ(BankrollOf(1), Dollars(returned ? 1000 : 985)) << "odds and Place bets come back";
        EXPECT_EQ(t.BetsOnTable[1], currency{});
        EXPECT_EQ(t.RowsUp[0] | t.RowsUp[1], 0u);
        EXPECT_THAT(Front.Asked, IsEmpty());
        if (!returned) {
            ASSERT_GE(Front.Logged.size(), 3u);
            EXPECT_THAT(
                (std::vector<std::string>{Front.Logged.begin(), Front.Logged.begin() + 3}),
                ElementsAre("    Wins/losses:", "      Ann lost $10 on Pass Line", "      Ann lost $5 on Come 5"));
        }
    }
    // 7 Point 7 is lost with the point it waits on, and returned on a come-out.
    for (const bool pointOn : {true, false}) {
        SubMain(t, &Front);
        t.ShooterBetRequirement = 0;
        Seat(1, "Ann", 1000);
        t.BankrollStartRule[1] = 2;
        Bet(1, Row::SevenPoint7, 5);
        Bet(1, Row::PassLine, 10);
        if (pointOn) RollTotal(8);
        NewSession(t, Options());
        EXPECT_EQ(BankrollOf(1), Dollars(pointOn ? 985 : 1000));
    }
}

TEST_F(SessionTest, TheTableIsFreshAndNothingIsTakenForAChange) {
    PlayIntoAHand();
    t.PadRollPending = true;
    SessionOptions options = Options();
    options.KeepCheckStacks = true;
    t.BankrollStartRule[1] = 0;
    Front.BetRedraws = 0;
    NewSession(t, options);
    EXPECT_GT(Front.BetRedraws, 0) << "the felt is cleared";
    EXPECT_THAT((std::vector<int>{t.Point, t.PrevPoint, t.PrevPrevPoint, t.LastPoint, t.MarkedNumbers, t.FourRollsCount,
                                  t.PointsMadeMask, t.PointsMadeCount, t.HandComeouts, t.HandPasses, t.HandMisses}),
                testing::Each(0));
    EXPECT_FALSE(t.PadRollPending);
    EXPECT_EQ(BankrollOf(1), Dollars(1000)) << "the amount stored at the buy-in";
    EXPECT_EQ(Amount(1, 101), Dollars(44));
    EXPECT_EQ(t.HandShooter, t.Shooter);
    EXPECT_EQ(GraphCount(t), 0);
    for (int row = 1; row <= Row::LastBet; ++row) {
        EXPECT_EQ(t.EstablishedBet(1, row), currency{});
        EXPECT_EQ(BetWorking(t, 1, row), t.ComeOutWorking(1, row));
    }
    EXPECT_EQ(t.BuyVigCharged[1][0], currency{});
    EXPECT_EQ(t.ComeFlatNow[1][1], currency{});
    t.EventsLogOn = true;
    Front.Logged.clear();
    RollTotal(11);
    EXPECT_THAT(Front.Logged, ElementsAre(" Roll #1:  11 (5.6) from manual roll pad", "    Pass (natural)"));

    NewSession(t, Options());
    EXPECT_EQ(Amount(1, 101), currency{});
    Front.Logged.clear();
    RollTotal(11);
    EXPECT_EQ(Front.Logged.size(), 2u);
}

TEST_F(SessionTest, StatisticsRollOverOrAreErased) {
    for (const bool keep : {true, false}) {
        SCOPED_TRACE(keep);
        SubMain(t, &Front);
        t.ShooterBetRequirement = 0;
        Seat(1, "Ann", 1000);
        Bet(1, Row::Field, 10);
        RollTotal(3);
        RollTotal(8);
        Front.Ended.clear();
        NewSession(t, Options(keep));
        EXPECT_THAT(Front.Ended, ElementsAre(1));
        EXPECT_EQ(SessionRolls(t), 0);
        EXPECT_EQ(HandRolls(t), 0);
        EXPECT_EQ(RollCount(t, 27, 0), keep ? 2 : 0);
        EXPECT_EQ(RollCount(t, 36, 0), keep ? 2 : 0);
        EXPECT_EQ(BetStatWins(t, 1 + 27, Row::Field, 2), keep ? Dollars(10) : currency{});
        EXPECT_EQ(t.BetStreak(1, Row::Field), keep ? 1 : 0);
        Front.Ended.clear();
        NewSession(t, Options(keep));
        EXPECT_THAT(Front.Ended, IsEmpty()) << "a session without a roll leaves no record";
        EXPECT_EQ(RollCount(t, 27, 0), keep ? 2 : 0);
    }
}

TEST_F(SessionTest, BeginningBankrolls) {
    struct Case {
        const char* Name;
        int Rule;
        bool Ask, HyperDrive;
        std::vector<std::pair<int, const char*>> Answers;
        std::int64_t Bankroll;
        std::size_t Questions;
    };
    // The stored amount is 300; the session before ends with 1010.
    const Case cases[] = {
        {"stored", 0, true, false, {}, 300, 0},
        {"carried", 2, true, false, {}, 1010, 0},
        {"asked", 1, true, false, {{MsgAnswer::Ok, "750"}}, 750, 1},
        {"asked again",
         1,
         true,
         false,
         {{MsgAnswer::Ok, "x"}, {MsgAnswer::Ok, "10000000"}, {MsgAnswer::Ok, "-9"}},
         -9,
         3},
        {"asked and cancelled", 1, true, false, {{MsgAnswer::Cancel, ""}}, 1010, 1},
        {"nobody to ask", 1, false, false, {}, 300, 0},
        {"nobody asks in Hyper-Drive", 1, true, true, {}, 300, 0},
    };
    for (const Case& c : cases) {
        for (const bool keep : {true, false}) {
            SCOPED_TRACE(testing::Message() << c.Name << (keep ? "" : ", data erased"));
            SubMain(t, &Front);
            t.ShooterBetRequirement = 0;
            Seat(1, "Ann", 1000);
            Bet(1, Row::Field, 10);
            RollTotal(3);
            t.BankrollStartRule[1] = c.Rule;
            t.BankrollStartAmount[1] = Dollars(300);
            t.HyperDriveActive = c.HyperDrive;
            for (const auto& [button, text] : c.Answers) AnswerWith(button, text);
            Messages();
            SessionOptions options = Options(keep);
            options.Ask = c.Ask;
            NewSession(t, options);
            EXPECT_EQ(BankrollOf(1), Dollars(c.Bankroll));
            EXPECT_EQ(t.BankrollBegin[1 + 18], Dollars(c.Bankroll));
            EXPECT_EQ(t.PrevBankroll[1], Dollars(c.Bankroll));
            EXPECT_THAT(Messages(),
                        testing::AllOf(testing::SizeIs(c.Questions),
                                       testing::Each("[Beginning Bankroll] Enter Ann's beginning bankroll:")));
        }
    }
    // A bankroll that broke the limit is offered cut to it.
    SetBankroll(t, 1, Dollars(12'000'000));
    t.HyperDriveActive = false;
    t.BankrollStartRule[1] = 1;
    SessionOptions options = Options();
    options.Ask = true;
    NewSession(t, options);
    EXPECT_EQ(BankrollOf(1), Dollars(9'999'999));
}

TEST_F(SessionTest, TheLogOpensASession) {
    struct DatedScreen : WatchingScreen {
        std::string DateText() override { return "3/9/2024"; }
        std::string TimeText() override { return "4:05 PM"; }
    } front;
    t.Front = &front;
    Seat(8, "Hal", 250);
    t.EventsLogOn = true;
    t.UserSeedOn = false;
    NewSession(t, Options());
    ASSERT_GE(front.Logged.size(), 5u);
    EXPECT_THAT(
        (std::vector<std::string>{front.Logged.begin(), front.Logged.begin() + 5}),
        ElementsAre(" New session started 3/9/2024 @ 4:05 PM", "    Players:", "      Ann at stick 4-left with $1000",
                    "      Hal at stick 4-right with $250", "----New shooter (Ann) coming out----------"));
    front.Logged.clear();
    NewSession(t, Options());
    EXPECT_EQ(front.Logged[0], "============================================");
}

TEST_F(SessionTest, SeedsAndTheDiceFile) {
    t.ReSeedNewSessions = false;
    t.LastSeed = 77;
    NewSession(t, Options());
    EXPECT_EQ(t.LastSeed, 77);
    t.ReSeedNewSessions = true;
    Front.Clock = 123'456;
    NewSession(t, Options());
    EXPECT_NE(t.LastSeed, 77);

    const std::string path =
        (std::filesystem::temp_directory_path() / ("session-test-" + std::to_string(::getpid()) + ".rol")).string();
    ASSERT_EQ(OpenDiceRollFile(t, path), "");
    ASSERT_TRUE(SetDiceFileMode(t, 1));
    for (const int total : {4, 5, 6}) RollTotal(total);
    SessionOptions options = Options();
    options.File = SessionOptions::DiceFile::Continue;
    NewSession(t, options);
    EXPECT_EQ(t.DiceFileMode, 1);
    EXPECT_EQ(t.DiceFileNextRecord, 4);
    options.File = SessionOptions::DiceFile::Rewind;
    NewSession(t, options);
    EXPECT_EQ(t.DiceFileMode, 2);
    RollDice(t);
    EXPECT_EQ(t.DiceTotal, 4);
    options.File = SessionOptions::DiceFile::Drop;
    NewSession(t, options);
    EXPECT_EQ(t.DiceRollFileName, "");
    EXPECT_EQ(t.DiceFileMode, 0);
    std::filesystem::remove(path);
}

}  // namespace
}  // namespace tarnwick
