#include "support/table_fixture.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* NoneNow = "[Pass the Dice] Unable to pass the dice at this time.\n\n";

struct PassDiceTest : TableTest {
    void SeatAll(const std::vector<int>& seats) {
        for (const int p : seats) Seat(p, std::string("P") + std::to_string(p));
    }
};

TEST_F(PassDiceTest, TheDiceGoDownTheSeats) {
    struct Case {
        const char* Name;
        std::vector<int> Seats;
        int Shooter, Next;
    };
    const Case cases[] = {
        {"two, from 1 to 8", {1, 8}, 1, 8},  {"two, from 8 to 1", {1, 8}, 8, 1},
        {"the next below", {2, 5, 7}, 7, 5}, {"round the end", {2, 5, 7}, 2, 7},
        {"nobody shot", {2, 5, 7}, 0, 7},    {"nobody shot, seat 1 alone beside the House", {1, 2}, 0, 2}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        for (const PassMode mode : {PassMode::SevenOut, PassMode::Request, PassMode::PlayerLeft}) {
            SubMain(t, &Front);
            SeatAll(c.Seats);
            t.Shooter = t.HandShooter = c.Shooter;
            PassTheDice(t, mode);
            EXPECT_EQ(t.Shooter, c.Next);
            EXPECT_EQ(t.HandShooter, c.Next);
        }
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(PassDiceTest, WhoDoesNotShootIsPassedOver) {
    struct Case {
        const char* Name;
        std::vector<int> Seats, Unwilling, WithLineBet;
        bool PointOn, Put;
        int Next;  ///< of shooter 4; 4 when nobody takes them
        std::string Message;
    };
    const std::string barred =
        "but can't because a line bet is required and Put bets are not allowed.\n\nPlease wait for a come-out roll or "
        "check the 'Allow Put bets' option on the 'Bets tab' of the configuration screen.";
    const Case cases[] = {
        {"one unwilling", {4, 3, 2}, {3}, {}, false, true, 2, ""},
        {"the other of two", {4, 6}, {6}, {}, false, true, 4, NoneNow + std::string("P6 doesn't want to shoot.")},
        {"all others",
         {4, 3, 2},
         {3, 2},
         {},
         false,
         true,
         4,
         NoneNow + std::string("None of the other players want to shoot.")},
        {"a line bet needed", {4, 3, 2}, {}, {2}, true, false, 2, ""},
        {"a line bet needed, none there",
         {4, 3},
         {},
         {},
         true,
         false,
         4,
         NoneNow + std::string("There's one other player who wants to shoot ") + barred},
        {"two without",
         {4, 3, 2},
         {},
         {},
         true,
         false,
         4,
         NoneNow + std::string("There are 2 other players who want to shoot ") + barred},
        {"one without, one unwilling",
         {4, 3, 2},
         {3},
         {},
         true,
         false,
         4,
         NoneNow + std::string("There's one other player who wants to shoot ") + barred},
        {"Put bets help",
         {4, 3},
         {},
         {},
         true,
         true,
         3,
         "[Pass the Dice] P4 is passing the dice to P3 who may finish the current hand and then roll his/her own "
         "hand."},
        {"so does the come-out", {4, 3}, {}, {}, false, false, 3, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        SubMain(t, &Front);
        t.ShooterBetRequirement = 0;
        SeatAll(c.Seats);
        ASSERT_EQ(t.Shooter, 4);
        for (const int p : c.Unwilling) t.AutoPassDice[At(p)] = true;
        for (const int p : c.WithLineBet) Bet(p, Row::DontPass, 5);
        if (c.PointOn) RollTotal(8);
        t.AllowPutBets = c.Put;
        t.ShooterBetRequirement = 1;
        Messages();
        PassTheDice(t, PassMode::SevenOut);
        EXPECT_EQ(t.Shooter, c.Next);
        EXPECT_THAT(Messages(), IsEmpty()) << "only a request is answered";
        t.Shooter = 4;
        PassTheDice(t, PassMode::Request);
        EXPECT_EQ(t.Shooter, c.Next);
        if (c.WithLineBet.empty()) {
            EXPECT_EQ(Messages(), c.Message.empty() ? std::vector<std::string>{} : std::vector<std::string>{c.Message});
        }
        // Somebody must have them when the shooter leaves.
        t.Shooter = 4;
        PassTheDice(t, PassMode::PlayerLeft);
        EXPECT_EQ(t.Shooter, c.Next != 4 ? c.Next : c.Seats[1]);
    }
}

TEST_F(PassDiceTest, AloneOrEmpty) {
    PassTheDice(t, PassMode::Request);
    EXPECT_THAT(Messages(),
                ElementsAre("[Pass the Dice] Unable to pass the dice.\n\nThere are no players at the table."));
    EXPECT_EQ(t.Shooter, 0);
    Seat(6, "Fay");
    for (const PassMode mode : {PassMode::SevenOut, PassMode::PlayerLeft, PassMode::Request}) {
        PassTheDice(t, mode);
        EXPECT_EQ(t.Shooter, 6);
        EXPECT_EQ(t.HandShooter, 6);
    }
    EXPECT_THAT(Messages(),
                ElementsAre("[Pass the Dice] Unable to pass the dice.\n\nThere are no other players at the table."));
    // Dice that nobody has are found a shooter at the last seat of the search, too.
    RemovePlayer(t, 6);
    Seat(1, "Ann");
    t.Shooter = t.HandShooter = 0;
    PassTheDice(t, PassMode::PlayerLeft);
    EXPECT_EQ(t.Shooter, 1);
    t.HyperDriveActive = true;
    PassTheDice(t, PassMode::Request);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(PassDiceTest, AHandStaysWithWhoBeganIt) {
    SeatAll({2, 5});
    t.EventsLogOn = true;
    RollTotal(8);
    Front.Logged.clear();
    PassTheDice(t, PassMode::Request);
    EXPECT_EQ(t.Shooter, 5);
    EXPECT_EQ(t.HandShooter, 2);
    EXPECT_THAT(Front.Logged, ElementsAre("    The dice were passed to P5"));
    EXPECT_THAT(Messages(), ElementsAre("[Pass the Dice] P2 is passing the dice to P5 who may finish the current hand "
                                        "and then roll his/her own hand."));
    PassTheDice(t, PassMode::Request);
    EXPECT_EQ(t.Shooter, 2);
    EXPECT_THAT(Messages(),
                ElementsAre("[Pass the Dice] P5 is passing the dice back to P2 who originally started this hand."));
    t.RecordShooterChanges = false;
    Front.Logged.clear();
    PassTheDice(t, PassMode::Request);
    EXPECT_THAT(Front.Logged, IsEmpty());
    RollTotal(5);
    EXPECT_EQ(RollCount(t, 2, 0), 2);
    EXPECT_EQ(RollCount(t, 5, 0), 0);
}

}  // namespace
}  // namespace tarnwick
