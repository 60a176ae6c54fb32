#include "table/rundriver.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "dice/dicefile.h"
#include "support/table_fixture.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr int AutoRollThrottle = 12;

struct RunDriverTest : TableTest {
    RunDriverTest() { Seat(1, "Ann", 1000); }

    std::string RollFile(const std::vector<std::uint8_t>& bytes) {
        const std::string path =
            (std::filesystem::temp_directory_path() / ("run-test-" + std::to_string(::getpid()) + ".rol")).string();
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return path;
    }
};

TEST_F(RunDriverTest, RunsStopAtTheAutoStop) {
    struct Case {
        const char* Name;
        int Throttle;
        currency AutoStop;
        std::vector<int> Stops;
    };
    const Case cases[] = {
        {"Hyper-Drive", 0, Dollars(50), {50, 100, 150}},
        {"Hyper-Drive in fractions", 0, {25'000}, {5, 10, 15}},
        {"Auto-Roll", AutoRollThrottle, Dollars(3), {3, 6, 9}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        SubMain(t, &Front);
        t.ShooterBetRequirement = 0;
        t.HyperThrottle = c.Throttle;
        t.AutoStopRolls = c.AutoStop;
        Front.Throws = 0;
        for (const int stop : c.Stops) {
            Front.RunStates.clear();
            Messages();
            ToggleAutoRoll(t);
            EXPECT_EQ(SessionRolls(t), stop);
            EXPECT_FALSE(t.AutoRollActive);
            EXPECT_FALSE(t.HyperDriveActive);
            EXPECT_FALSE(t.RollInProgress);
            EXPECT_EQ(t.StopReason, "");
            const bool hyperDrive = c.Throttle != AutoRollThrottle;
            EXPECT_THAT(Front.RunStates, ElementsAre(Pair(true, hyperDrive), Pair(false, false)));
            EXPECT_THAT(Messages(), ElementsAre(hyperDrive ? "[Hyper-Drive Stopped] Stopped by Auto-Stop."
                                                           : "[Auto-Roll Stopped] Stopped by Auto-Stop"));
        }
        EXPECT_EQ(Front.Throws, c.Throttle == AutoRollThrottle ? 9 : 0);
    }
    EXPECT_FALSE(AutoStopDue(t) && SessionRolls(t) == 0);
    t.AutoStopRolls = currency{};
    EXPECT_FALSE(AutoStopDue(t));
}

TEST_F(RunDriverTest, DelaysPassOnTheClockOfTheScreen) {
    struct Case {
        const char* Name;
        int Throttle;
        currency Delay;
        std::uint32_t Milliseconds;  ///< of four waits
    };
    const Case cases[] = {
        {"Auto-Roll", AutoRollThrottle, Dollars(2), 8000},
        {"Auto-Roll, half a second", AutoRollThrottle, {5'000}, 2000},
        {"Auto-Roll, none", AutoRollThrottle, {}, 0},
        {"Hyper-Drive", 0, Dollars(2), 0},
        {"throttled", 1, Dollars(2), 40},
        {"throttled more", 11, Dollars(2), 4840},
    };
    for (const Case& c : cases) {
        for (const std::uint32_t start : {0u, 0xFFFFFF00u}) {  // the counter may turn over in between
            SCOPED_TRACE(c.Name);
            SubMain(t, &Front);
            t.ShooterBetRequirement = 0;
            t.HyperThrottle = c.Throttle;
            t.AutoRollDelay = c.Delay;
            t.AutoStopRolls = Dollars(5);
            Front.Clock = start;
            Front.Pumps = 0;
            ToggleAutoRoll(t);
            EXPECT_EQ(SessionRolls(t), 5);
            EXPECT_EQ(Front.Clock - start, c.Milliseconds);
            if (c.Throttle > 0) {
                EXPECT_GE(Front.Pumps, 4) << "the user is served at each wait";
            }
        }
    }
}

TEST_F(RunDriverTest, TheUserStopsARunFromThePump) {
    for (const int throttle : {0, 3, AutoRollThrottle}) {
        SCOPED_TRACE(throttle);
        SubMain(t, &Front);
        t.ShooterBetRequirement = 0;
        t.HyperThrottle = throttle;
        Front.Pumps = 0;
        int rollsAtStop = -1;
        Front.OnPump = [&] {
            if (Front.Pumps < 3) return;
            rollsAtStop = SessionRolls(t);
            ToggleAutoRoll(t);
        };
        ToggleAutoRoll(t);
        Front.OnPump = nullptr;
        EXPECT_GT(rollsAtStop, 0);
        EXPECT_EQ(SessionRolls(t), rollsAtStop) << "no roll follows a stop";
        EXPECT_FALSE(t.AutoRollActive);
        EXPECT_FALSE(t.RollInProgress);
        EXPECT_THAT(Messages(), IsEmpty());
    }
}

TEST_F(RunDriverTest, NothingRollsBesideARun) {
    t.HyperThrottle = AutoRollThrottle;
    t.AutoStopRolls = Dollars(4);
    Front.OnPump = [&] {
        const int rolls = SessionRolls(t);
        EXPECT_TRUE(t.RollInProgress);
        RollDice(t);
        Roll(1, 2);
        EXPECT_EQ(SessionRolls(t), rolls);
        EXPECT_FALSE(t.PadRollPending);
    };
    ToggleAutoRoll(t);
    EXPECT_EQ(SessionRolls(t), 4);
}

TEST_F(RunDriverTest, TheUserBetsBetweenTheRolls) {
    t.HyperThrottle = AutoRollThrottle;
    t.AutoStopRolls = Dollars(6);
    t.AutoRollDelay = currency{};
    Front.OnPump = [&] { PlaceBet(t, 1, Row::Field, Dollars(10)); };
    ToggleAutoRoll(t);
    EXPECT_EQ(BetStatWagers(t, 1 + 18, Row::Field, 1), Dollars(5));
    EXPECT_EQ(BetStatWagers(t, 1 + 18, Row::Field, 2), Dollars(50));
}

TEST_F(RunDriverTest, TheSpeedBarChangesARunThatIsOn) {
    t.HyperThrottle = AutoRollThrottle;
    t.AutoStopRolls = Dollars(20);
    Front.OnPump = [&] {
        if (SessionRolls(t) == 3 && !t.HyperDriveActive) SetHyperThrottle(t, 0);
    };
    ToggleAutoRoll(t);
    EXPECT_EQ(SessionRolls(t), 20);
    EXPECT_EQ(Front.Throws, 3);
    EXPECT_THAT(Front.RunStates, ElementsAre(Pair(true, false), Pair(true, true), Pair(false, false)));
    EXPECT_THAT(Messages(), ElementsAre("[Hyper-Drive Stopped] Stopped by Auto-Stop."));

    // The other way, at the very roll of the Auto-Stop.
    SubMain(t, &Front);
    t.ShooterBetRequirement = 0;
    t.AutoStopRolls = Dollars(1);
    Front.OnPump = [&] { SetHyperThrottle(t, AutoRollThrottle); };
    ToggleAutoRoll(t);
    EXPECT_EQ(SessionRolls(t), 1);
    EXPECT_THAT(Messages(), ElementsAre("[Auto-Roll Stopped] Stopped by Auto-Stop"));
    SetHyperThrottle(t, 99);
    EXPECT_EQ(t.HyperThrottle, 12);
    SetHyperThrottle(t, -1);
    EXPECT_EQ(t.HyperThrottle, 0);
}

TEST_F(RunDriverTest, LimitsEndARunWithTheirReason) {
    const std::string hint = "\n\nSelect \"New\" from the \"Game\" menu to reset the table.";
    struct Case {
        std::int64_t Bankroll;
        const char* Reason;
    };
    for (const Case& c : {Case{10'000'000, "Stopped by breaking the max bankroll limit of $9,999,999"},
                          Case{-10'000'000, "Stopped by exceeding the min bankroll limit of $9,999,999"}}) {
        SetBankroll(t, 1, Dollars(c.Bankroll));
        t.HyperThrottle = 0;
        ToggleAutoRoll(t);
        EXPECT_EQ(SessionRolls(t), 0);
        EXPECT_FALSE(t.AutoRollActive);
        EXPECT_THAT(Messages(), ElementsAre("[Hyper-Drive Stopped] " + (c.Reason + hint)));
        t.HyperThrottle = AutoRollThrottle;
        ToggleAutoRoll(t);
        EXPECT_FALSE(t.AutoRollActive);
        EXPECT_EQ(Messages().size(), 1u);
    }
    // Reached within the run, after all money has moved.
    SetBankroll(t, 1, Dollars(9'999'990));
    t.HyperThrottle = 0;
    t.WinnerHandling[1] = t.LoserHandling[1] = 2;
    Bet(1, Row::Field, 20);
    ToggleAutoRoll(t);
    EXPECT_GT(BankrollOf(1), Dollars(9'999'999));
    EXPECT_GT(SessionRolls(t), 0);
    EXPECT_THAT(Messages(),
                ElementsAre("[Hyper-Drive Stopped] Stopped by breaking the max bankroll limit of $9,999,999" + hint));
}

TEST_F(RunDriverTest, ADiceFileEndsTheRunThatPlaysIt) {
    struct Case {
        const char* Name;
        std::vector<std::uint8_t> Bytes;
        int Throttle, Rolls;
        std::vector<std::string> Messages;
    };
    const std::string rewind = "[Dice Roll File] Playback stopped.\nRewind for playback?";
    const std::string bad =
        "[Dice Roll File Error] A dice roll value has been found to be out of limits. \n\nPlayback of this Dice Roll "
        "File has ceased so that you can check the file or continue without it.";
    const std::uint8_t four = DiceByte(2, 2), nine = DiceByte(4, 5);
    const Case cases[] = {
        {"Hyper-Drive",
         {four, nine, four},
         0,
         3,
         {"[Hyper-Drive Stopped] Stopped due to end of Dice Roll File reached.", rewind}},
        {"Auto-Roll", {four, nine, four}, AutoRollThrottle, 3, {rewind}},
        {"a bad roll",
         {four, 0, nine},
         0,
         1,
         {"[Hyper-Drive Stopped] Stopped due to Dice Roll File value out of limits."}},
        {"a bad roll in Auto-Roll", {four, 0, nine}, AutoRollThrottle, 1, {bad}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        SubMain(t, &Front);
        t.ShooterBetRequirement = 0;
        Seat(1, "Ann", 1000);
        t.HyperThrottle = c.Throttle;
        const std::string path = RollFile(c.Bytes);
        ASSERT_EQ(OpenDiceRollFile(t, path), "");
        ASSERT_TRUE(SetDiceFileMode(t, 2));
        Bet(1, Row::PassLine, 10);
        Messages();
        ToggleAutoRoll(t);
        EXPECT_EQ(SessionRolls(t), c.Rolls);
        EXPECT_EQ(Messages(), c.Messages);
        EXPECT_EQ(t.DiceFileMode, 0);
        EXPECT_FALSE(t.AutoRollActive);
        EXPECT_FALSE(t.RollInProgress);
        // The roll that was not made leaves no trace: the last good one still stands.
        EXPECT_EQ(t.PrevPoint, c.Rolls == 3 ? 4 : 0);
        EXPECT_EQ(t.DiceTotal, 4);
        std::filesystem::remove(path);
    }
}

TEST_F(RunDriverTest, ARewoundFilePlaysAgain) {
    const std::string path = RollFile({DiceByte(2, 2), DiceByte(4, 5)});
    ASSERT_EQ(OpenDiceRollFile(t, path), "");
    ASSERT_TRUE(SetDiceFileMode(t, 2));
    Roll(6, 6);
    EXPECT_EQ(t.DiceFileNextRecord, 1) << "a pad roll passes the file over";
    RollDice(t);
    RollDice(t);
    AnswerWith(MsgAnswer::Yes);
    RollDice(t);
    EXPECT_EQ(SessionRolls(t), 3);
    RollDice(t);
    EXPECT_EQ(t.DiceTotal, 4);
    std::filesystem::remove(path);
}

TEST_F(RunDriverTest, CommandsAskBeforeTheyDisturb) {
    struct Case {
        const char* Name;
        bool Running, HyperDrive, Script, Yes;
        bool Dropped;
        std::vector<std::string> Shown;
    };
    const std::string script = "[Auto-Bet Active] Ann's script processing.\n\nDo you want to interrupt auto-betting?";
    const Case cases[] = {
        {"nothing runs", false, false, false, true, false, {}},
        {"Auto-Roll, go on", true, false, false, false, true, {"[Auto-Roll Active] Do you want to stop Auto-Rolling?"}},
        {"Auto-Roll, stop", true, false, false, true, true, {"[Auto-Roll Active] Do you want to stop Auto-Rolling?"}},
        {"Hyper-Drive, stop",
         true,
         true,
         false,
         true,
         true,
         {"[Hyper-Drive Active] Do you want to stop the Hyper-Drive?"}},
        {"script, go on", false, false, true, false, true, {script}},
        {"script, stop", false, false, true, true, true, {script}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        t.AutoRollActive = c.Running;
        t.HyperDriveActive = c.HyperDrive;
        t.ScriptRunning = c.Script;
        t.ScriptPlayer = 1;
        t.ScriptStopRequested = false;
        t.StopReason.clear();
        AnswerWith(c.Yes ? MsgAnswer::Yes : MsgAnswer::No);
        EXPECT_EQ(GuardCommand(t), c.Dropped);
        EXPECT_EQ(Messages(), c.Shown);
        EXPECT_EQ(t.AutoRollActive, c.Running && !c.Yes);
        EXPECT_EQ(t.ScriptStopRequested, c.Script && c.Yes);
        EXPECT_EQ(t.StopReason, c.Script && c.Yes ? "Auto-betting interrupted." : "");
        Front.Answers.clear();
    }
    t.ScriptRunning = true;
    AnswerWith(MsgAnswer::Yes);
    ToggleAutoRoll(t);
    EXPECT_THAT(Messages(), ElementsAre(script));
    EXPECT_FALSE(t.AutoRollActive);
    EXPECT_EQ(SessionRolls(t), 0);
}

TEST_F(RunDriverTest, DialogsOfDelayAndAutoStop) {
    struct Case {
        const char* Input;
        int Button;
        currency Delay, AutoStop;
    };
    const Case cases[] = {{"2.5", MsgAnswer::Ok, {25'000}, {25'000}},
                          {"1000", MsgAnswer::Ok, Dollars(300), Dollars(1000)},
                          {"-4", MsgAnswer::Ok, {}, {}},
                          {"soon", MsgAnswer::Ok, Dollars(7), Dollars(7)},
                          {"", MsgAnswer::Ok, Dollars(7), Dollars(7)},
                          {"5", MsgAnswer::Cancel, Dollars(7), Dollars(7)}};
    for (const Case& c : cases) {
        t.AutoRollDelay = t.AutoStopRolls = Dollars(7);
        AnswerWith(c.Button, c.Input);
        AnswerWith(c.Button, c.Input);
        AskAutoRollDelay(t);
        AskAutoStop(t);
        EXPECT_EQ(t.AutoRollDelay, c.Delay) << c.Input;
        EXPECT_EQ(t.AutoStopRolls, c.AutoStop) << c.Input;
    }
    EXPECT_EQ(Front.Shown[0].Title, "Set Auto-Roll Time Delay");
    EXPECT_EQ(Front.Shown[0].Text,
              "Enter seconds of delay desired between rolls \n(min 0, max 300, fractional amounts "
              "allowed.)");
    EXPECT_THAT(Front.Shown[1].Text, testing::StartsWith("How often (number of rolls) would you like Auto-Roll / "
                                                         "Hyper-Drive to automatically stop?  \n"));
}

TEST_F(RunDriverTest, AMissingGeneratorIsReplaced) {
    t.MissingRngLibraries = 3;
    t.RngIndex = 0;
    RollDice(t);
    EXPECT_EQ(t.RngIndex, 3);
}

TEST_F(RunDriverTest, WithoutAFrontEndARunStillEnds) {
    t.Front = nullptr;
    t.HyperThrottle = 5;
    t.AutoStopRolls = Dollars(100);
    ToggleAutoRoll(t);
    EXPECT_EQ(SessionRolls(t), 100);
    t.HyperThrottle = AutoRollThrottle;
    ToggleAutoRoll(t);
    EXPECT_EQ(SessionRolls(t), 200);
}

}  // namespace
}  // namespace tarnwick
