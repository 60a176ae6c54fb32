#include "table/players.h"

#include "support/table_fixture.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct PlayersTest : TableTest {};

TEST_F(PlayersTest, StickNames) {
    std::string names;
    for (int p = 1; p <= 8; ++p) names += StickName(p) + " ";
    EXPECT_EQ(names, "4-left 3-left 2-left 1-left 1-right 2-right 3-right 4-right ");
}

TEST_F(PlayersTest, ANewPlayerBringsMoneyAndGetsTheTablesDefaults) {
    SetComeOutWorking(t, 0, Row::Place4, true);
    t.AutoTakeFullOdds[3] = true;  // left by somebody else
    t.WinnerHandling[3] = 5;
    t.EventsLogOn = true;
    ASSERT_EQ(AddPlayer(t, 3, "  Ann Lee ", currency{12'345'000}), "");
    const currency buyIn{12'345'000};
    EXPECT_EQ(t.PlayerName[3], "Ann Lee");
    EXPECT_EQ(t.SessionsLogName[3], "ann lee.slg");
    EXPECT_EQ(t.PlayerCount, 1);
    EXPECT_EQ(t.Shooter, 3);
    EXPECT_EQ(t.HandShooter, 3);
    for (const int scope : {0, 2, 4}) EXPECT_EQ(t.Bankroll[At(3 + 9 * scope)], buyIn);
    EXPECT_EQ(t.BankrollBegin[At(3 + 18)], buyIn);
    EXPECT_EQ(t.BankrollInvested[3], buyIn);
    EXPECT_EQ(t.BankrollStartAmount[3], buyIn);
    EXPECT_EQ(t.PrevBankroll[3], buyIn);
    EXPECT_EQ(t.AtmAmount[3], Dollars(500));
    EXPECT_FALSE(t.AutoTakeFullOdds[3]);
    EXPECT_EQ(t.WinnerHandling[3], 0);
    EXPECT_EQ(t.ComeOutWorking(3, Row::Place4), 1);
    EXPECT_THAT(Front.Logged, ElementsAre("    Ann Lee joined the game at stick 2-left with $1234.5"));
    ASSERT_EQ(AddPlayer(t, 7, "Gus", Dollars(-50)), "");
    EXPECT_TRUE(t.AllowNegativeBankroll[7]);
    EXPECT_EQ(t.Shooter, 3);
    EXPECT_EQ(t.PlayerCount, 2);
}

TEST_F(PlayersTest, WhoMayNotSitDown) {
    Seat(2, "Ann");
    struct Case {
        int Position;
        const char* Name;
        currency BuyIn;
        const char* Refusal;
    };
    const Case cases[] = {
        {3, "Ann", Dollars(1), "A player named Ann is already at the table.\n\nPlease enter a different name."},
        {3, " aNN  ", Dollars(1), "A player named aNN is already at the table.\n\nPlease enter a different name."},
        {3, "", Dollars(1), "name"},
        {3, "   ", Dollars(1), "name"},
        {3, "12", Dollars(1),
         "Unfortunately, a player's name can't be all numeric because it would cause confusion in auto-be"},
        {3, "12.5", Dollars(1), "all numeric"},
        {3, "Bo", Dollars(10'000'000), "The maximum player bankroll is $9,999,999"},
        {3, "Bo", Dollars(-10'000'000), "The minimum player bankroll is -$9,999,999"},
        {2, "Bo", Dollars(1), "taken"},
        {0, "Bo", Dollars(1), "position"},
        {9, "Bo", Dollars(1), "position"},
    };
    for (const Case& c : cases) {
        EXPECT_THAT(AddPlayer(t, c.Position, c.Name, c.BuyIn), HasSubstr(c.Refusal));
        EXPECT_EQ(t.PlayerCount, 1);
    }
    EXPECT_EQ(RenamePlayer(t, 2, "ANN"), "") << "one's own name in other letters";
    EXPECT_EQ(AddPlayer(t, 3, "Bo", Dollars(9'999'999)), "");
    EXPECT_THAT(RenamePlayer(t, 3, "ann"), HasSubstr("already at the table"));
    EXPECT_THAT(RenamePlayer(t, 4, "Cy"), HasSubstr("no player"));
}

TEST_F(PlayersTest, TheQuestionsOfANewPlayer) {
    Seat(2, "Ann");
    AnswerWith(MsgAnswer::Yes);
    AnswerWith(MsgAnswer::Ok, "Ann");
    AnswerWith(MsgAnswer::Ok);
    AnswerWith(MsgAnswer::Ok, "Bo");
    AnswerWith(MsgAnswer::Ok, "plenty");
    AnswerWith(MsgAnswer::Ok, "12,000,000");
    AnswerWith(MsgAnswer::Ok);
    AnswerWith(MsgAnswer::Ok, "$1,500.25");
    EXPECT_TRUE(AskAddPlayer(t, 4));
    const std::string buyIn = "[Bankroll] How much would Bo like to buy-in for?";
    EXPECT_THAT(Messages(),
                ElementsAre("[Add New Player?] Would you like to add a player here?",
                            "[Add New Player] What's the new player's name?",
                            "[Add New Player] A player named Ann is already at the table.\n\nPlease enter a different "
                            "name.",
                            "[Add New Player] What's the new player's name?", buyIn, buyIn,
                            "[Bankroll] The maximum player bankroll is $9,999,999", buyIn));
    EXPECT_EQ(BankrollOf(4), currency{15'002'500});

    // Giving up at each question leaves nobody.
    for (int given = 0; given < 3; ++given) {
        if (given > 0) AnswerWith(MsgAnswer::Yes);
        if (given > 1) AnswerWith(MsgAnswer::Ok, "Cy");
        AnswerWith(MsgAnswer::Cancel);
        EXPECT_FALSE(AskAddPlayer(t, 5));
        EXPECT_TRUE(Front.Answers.empty());
        EXPECT_FALSE(IsSeated(t, 5));
    }
    Messages();
    EXPECT_FALSE(AskAddPlayer(t, 4)) << "a taken seat is not offered";
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(PlayersTest, Renaming) {
    Seat(2, "Ann");
    t.EventsLogOn = true;
    AnswerWith(MsgAnswer::Ok, "Anna");
    EXPECT_TRUE(AskRenamePlayer(t, 2));
    EXPECT_THAT(Messages(), ElementsAre("[Rename Player] Enter a new name for Ann"));
    EXPECT_EQ(t.PlayerName[2], "Anna");
    EXPECT_EQ(t.SessionsLogName[2], "ann.slg");
    EXPECT_THAT(Front.Logged, ElementsAre("    Ann's name changed to Anna"));
}

TEST_F(PlayersTest, LeavingTellsWhatIsAbandoned) {
    struct Case {
        const char* Name;
        int ComeBets;
        bool Line, Returned;
        const char* Question;
        const char* Logged;
    };
    // Of 1000 bought in, the roll before leaves 1000; each Come bet is 5, the line 10.
    const Case cases[] = {
        {"nothing", 0, false, false, "", "    Ann cashed out with $1000"},
        {"the line", 0, true, false,
         "\n\nAnn still has an active Pass Line bet that can't be removed and will be abandoned.\nTotal to be "
         "abandoned: $10",
         "    Ann cashed out with $990(net loss: $10 includes $10 abandoned)"},
        {"a Come bet", 1, false, false,
         "\n\nAnn still has an active Come bet that can't be removed and will be abandoned.\nTotal to be abandoned: $5",
         "    Ann cashed out with $995(net loss: $5 includes $5 abandoned)"},
        {"the line and two Come bets", 2, true, false,
         "\n\nAnn still has an active Pass Line bet and 2 active Come bets that can't be removed and will be "
         "abandoned.\nTotal to be abandoned: $20",
         "    Ann cashed out with $980(net loss: $20 includes $20 abandoned)"},
        {"returned", 2, true, true, "", "    Ann cashed out with $1000"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        SubMain(t, &Front);
        t.ShooterBetRequirement = 0;
        t.ReturnAbandonedBets = c.Returned;
        Seat(1, "Ann", 1000);
        if (c.Line) Bet(1, Row::PassLine, 10);
        RollTotal(8);
        for (int i = 0; i < c.ComeBets; ++i) {
            Bet(1, Row::Come, 5);
            RollTotal(i == 0 ? 5 : 9);
        }
        Bet(1, Row::Place4, 5);
        t.EventsLogOn = true;
        Front.Logged.clear();
        Front.Ended.clear();
        Messages();
        AnswerWith(MsgAnswer::No);
        EXPECT_FALSE(AskRemovePlayer(t, 1));
        EXPECT_THAT(Messages(), ElementsAre(std::string("[Cash out?] Would you like to remove Ann?") + c.Question));
        AnswerWith(MsgAnswer::Yes);
        EXPECT_TRUE(AskRemovePlayer(t, 1));
        EXPECT_THAT(Front.Logged, ElementsAre(c.Logged)) << "the abandoned bets are told in that line";
        EXPECT_THAT(Front.Ended, ElementsAre(1));
        EXPECT_FALSE(IsSeated(t, 1));
        EXPECT_EQ(t.PlayerCount, 0);
        EXPECT_EQ(t.Shooter, 0);
        EXPECT_EQ(t.HandShooter, 0);
        EXPECT_EQ(t.RowsUp[0] | t.RowsUp[1], 0u);
        EXPECT_EQ(t.BetsOnTable[1], currency{});
    }
    Messages();
    EXPECT_FALSE(AskRemovePlayer(t, 1));
    EXPECT_THAT(Messages(),
                ElementsAre("[Cash out?] Please select a player to remove\nby clicking on the player's rail "
                            "position."));
}

TEST_F(PlayersTest, TheDiceOfWhoLeaves) {
    struct Case {
        const char* Name;
        int Leaves;
        bool MidHand;
        int Shooter, HandShooter;
    };
    const Case cases[] = {{"the shooter before the hand", 5, false, 3, 3},
                          {"the shooter in the hand", 5, true, 3, 0},
                          {"another", 3, false, 5, 5},
                          {"another in the hand", 7, true, 5, 5}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        SubMain(t, &Front);
        t.ShooterBetRequirement = 0;
        for (const int p : {5, 3, 7}) Seat(p, std::string("P") + std::to_string(p));
        if (c.MidHand) RollTotal(8);
        RemovePlayer(t, c.Leaves);
        EXPECT_EQ(t.Shooter, c.Shooter);
        EXPECT_EQ(t.HandShooter, c.HandShooter);
        RollTotal(5);
        RollTotal(7);
        EXPECT_EQ(t.LastHandShooter, c.MidHand ? c.HandShooter : t.LastHandShooter);
        EXPECT_TRUE(IsSeated(t, t.Shooter));
        EXPECT_EQ(RollCount(t, c.Leaves + 36, 0), 0) << "no roll is credited to an empty seat";
    }
    // The table rolls on empty, and the next player takes the dice at once.
    RemovePlayer(t, 5);
    for (int p = 1; p <= 8; ++p) RemovePlayer(t, p);
    RollTotal(4);
    Seat(6, "Fay");
    EXPECT_EQ(t.Shooter, 6);
    EXPECT_EQ(t.HandShooter, 0) << "the hand was nobody's";
}

TEST_F(PlayersTest, MovingTakesEverythingAlong) {
    Seat(2, "Ann", 1000);
    Seat(5, "Bo", 500);
    t.ActivePlayer = 2;
    Bet(2, Row::PassLine, 10);
    RollTotal(8);
    Bet(2, Row::Come, 5);
    RollTotal(6);
    Bet(2, Row::Buy4, 50);
    Bet(5, Row::Field, 7);
    PlaceBet(t, 2, 105, Dollars(33));
    t.CheckStackName[2][5] = "rent";
    t.AutoPassDice[2] = true;
    t.HandleAmount[2][4] = Dollars(9);
    t.EventsLogOn = true;
    const Table before = t;
    Front.Logged.clear();
    Front.BetRedraws = 0;
    MovePlayer(t, 2, 7);
    EXPECT_GT(Front.BetRedraws, 0);
    EXPECT_EQ(t.PlayerName[7], "Ann");
    EXPECT_FALSE(IsSeated(t, 2));
    for (int row = 1; row <= Row::LastRow; ++row) {
        EXPECT_EQ(Amount(7, row), before.BetAmount(2, row));
        EXPECT_EQ(Amount(2, row), currency{});
        EXPECT_EQ(t.PrevBetAmount(7, row), before.PrevBetAmount(2, row));
    }
    EXPECT_EQ(t.EstablishedBet(7, Row::Come4 + 2), Dollars(5));
    EXPECT_EQ(t.ComeFlatNow[7][2], Dollars(5));
    EXPECT_EQ(t.BuyVigCharged[7][0], Dollars(2));
    EXPECT_EQ(t.BetsOnTable[7], BetsOnTableOf(t, 7));
    EXPECT_EQ(t.CheckStackName[7][5], "rent");
    EXPECT_TRUE(t.AutoPassDice[7]);
    EXPECT_EQ(t.HandleAmount[7][4], Dollars(9));
    EXPECT_EQ(BankrollOf(7), Dollars(1000));
    EXPECT_EQ(RollCount(t, 7 + 18, 0), RollCount(before, 2 + 18, 0));
    EXPECT_EQ(t.Shooter, 7);
    EXPECT_EQ(t.HandShooter, 7);
    EXPECT_EQ(t.ActivePlayer, 7);
    EXPECT_EQ(t.PlayerCount, 2);
    EXPECT_THAT(Front.Logged, ElementsAre("    Ann moved to stick 3-right"));
    // Two players change places, and the dice know it.
    MovePlayer(t, 5, 7);
    EXPECT_EQ(t.PlayerName[5], "Ann");
    EXPECT_EQ(t.PlayerName[7], "Bo");
    EXPECT_EQ(Amount(7, Row::Field), Dollars(7));
    EXPECT_EQ(t.Shooter, 5);
    RollTotal(6);
    EXPECT_EQ(BankrollOf(5), Dollars(1005));
    EXPECT_EQ(BankrollOf(7), Dollars(493));
    MovePlayer(t, 1, 5);
    EXPECT_EQ(t.PlayerName[5], "Ann") << "nobody can't move";
}

}  // namespace
}  // namespace tarnwick
