// The logs of a table at play: what the rolls, sessions and runs leave on the disk.
#include "stats/tablelogs.h"

#include <filesystem>

#include "dice/dice.h"
#include "stats/eventslog.h"
#include "stats/sessionslog.h"
#include "support/table_fixture.h"
#include "support/temporaryfolder.h"
#include "table/rundriver.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testsupport::TemporaryFolder;

struct TableLogsTest : TableTest {
    TableLogsTest() {
        t.Logs = &Logs;
        Seat(1, "Ann", 1000);
        Seat(5, "Bo: B", 500);
    }

    std::vector<std::string> LogLines() const {
        EventsLogReader reader;
        EXPECT_EQ(reader.Open(Logs.EventsLog(t)), "");
        return reader.Page(1, 1'000'000);
    }
    std::vector<SessionRecord> Sessions(const std::string& file) const {
        SessionsLog log;
        EXPECT_EQ(log.Open(Folder.Path(file)), "");
        std::vector<SessionRecord> records;
        log.Read(1, log.Count(), records);
        return records;
    }
    SessionOptions WithoutLogs() const {
        SessionOptions options;
        options.KeepLogs = false;
        return options;
    }

    TemporaryFolder Folder;
    TableLogs Logs{Folder.Path("")};
};

TEST_F(TableLogsTest, LinesReachTheFileAtOnceOutsideARun) {
    SetEventsLogOn(t, true);
    Bet(1, Row::PassLine, 10);
    Roll(3, 4);
    EXPECT_EQ(LogLines(), Front.Logged);
    EXPECT_EQ(Folder.Read("Events Log.txt").substr(0, 9), "    Bets:");
    EXPECT_FALSE(LogLines().empty());
}

TEST_F(TableLogsTest, ARunWritesWheneverTheUserIsServed) {
    SetEventsLogOn(t, true);
    t.WinnerHandling[1] = t.LoserHandling[1] = 2;
    Bet(1, Row::PassLine, 10);
    t.RunUntilRoll = 300;
    int behind = 0, pumps = 0;
    Front.OnPump = [&] {
        ++pumps;
        behind += LogLines() == Front.Logged ? 0 : 1;
    };
    ToggleAutoRoll(t);
    EXPECT_GT(pumps, 1);
    EXPECT_EQ(behind, 0);
    EXPECT_EQ(SessionRolls(t), 300);
    EXPECT_EQ(LogLines(), Front.Logged);
}

TEST_F(TableLogsTest, TopLineFollowsTheLatestRoll) {
    SetEventsLogOn(t, true);
    Roll(1, 1);
    Roll(3, 3);  // two lines: the roll and its decision
    EXPECT_EQ(t.EventsLogTopLine, 3);
    t.RunUntilRoll = 500;
    ToggleAutoRoll(t);
    const std::vector<std::string> lines = LogLines();
    ASSERT_LE(t.EventsLogTopLine, static_cast<int>(lines.size()));
    EXPECT_THAT(lines[At(t.EventsLogTopLine - 1)], testing::StartsWith(" Roll #500:"));
    t.KeepLatestRollOnTop = false;
    const int top = t.EventsLogTopLine;
    Roll(1, 2);
    EXPECT_EQ(t.EventsLogTopLine, top);
}

TEST_F(TableLogsTest, NewSessionsAndTheLog) {
    const std::string rule = "============================================";
    SetEventsLogOn(t, true);
    NewSession(t, {});
    EXPECT_THAT(LogLines().front(), testing::StartsWith(" New session started")) << "there was no file yet";
    NewSession(t, {});
    EXPECT_THAT(LogLines(), testing::Contains(rule));
    t.ClearLogOnNewSession = true;
    t.EventsLogTopLine = 9;
    NewSession(t, {});
    EXPECT_THAT(LogLines().front(), testing::StartsWith(" New session started"));
    EXPECT_THAT(LogLines(), testing::Not(testing::Contains(rule)));
    EXPECT_EQ(t.EventsLogTopLine, 1);
    // The log of an earlier day counts as one that exists.
    t.ClearLogOnNewSession = false;
    Table later;
    later.Logs = &Logs;
    later.EventsLogOn = true;
    NewSession(later, {});
    EXPECT_THAT(LogLines(), testing::Contains(rule));
}

TEST_F(TableLogsTest, ALogElsewhere) {
    SetEventsLogOn(t, true);
    std::filesystem::create_directory(Folder.Path("sub"));
    t.EventsLogFileName = "sub\\friday.txt";
    Roll(1, 1);
    EXPECT_THAT(Folder.Read("sub/friday.txt"), HasSubstr("Roll #1"));
    EXPECT_FALSE(Folder.Read("Events Log.ref").empty());
    t.EventsLogFileName = Folder.Path("saturday.txt");
    Roll(1, 1);
    EXPECT_THAT(Folder.Read("saturday.txt"), HasSubstr("Roll #2"));
    EXPECT_THAT(LogLines(), ElementsAre(HasSubstr("Roll #2"), HasSubstr("Miss")));
}

TEST_F(TableLogsTest, ASessionsLogIsRenamedWithItsSessions) {
    ASSERT_EQ(AddPlayer(t, 2, "Bob", Dollars(100)), "");
    EXPECT_TRUE(Logs.RenameSessionsLog(t, 2, Folder.Path("one.slg"))) << "there is no log yet";
    EXPECT_EQ(Logs.SessionsLog(t, 2), Folder.Path("one.slg"));
    EXPECT_FALSE(std::filesystem::exists(Folder.Path("one.slg")));
    ASSERT_EQ(AppendSessionRecord(Folder.Path("one.slg"), SessionRecord{}), "");
    const std::string sessions = Folder.Read("one.slg");
    for (const char* same : {"one.slg", "two.slg"}) {
        EXPECT_TRUE(Logs.RenameSessionsLog(t, 2, Folder.Path(same)));
        EXPECT_EQ(Folder.Read(same), sessions);
    }
    EXPECT_FALSE(std::filesystem::exists(Folder.Path("one.slg")));
    EXPECT_FALSE(Logs.RenameSessionsLog(t, 2, Folder.Path("nowhere/three.slg")));
    EXPECT_THAT(Messages(), ElementsAre(HasSubstr("[Rename Sessions Log] The Sessions Log can't be renamed to ")));
    EXPECT_EQ(Logs.SessionsLog(t, 2), Folder.Path("two.slg"));
    EXPECT_EQ(Folder.Read("two.slg"), sessions);
}

TEST_F(TableLogsTest, AFullLogOrAFaultTurnsTheLogOff) {
    SetEventsLogOn(t, true);
    Logs.Writer.LongestLog = 40;
    Roll(1, 1);
    Roll(1, 1);
    EXPECT_FALSE(t.EventsLogOn);
    EXPECT_THAT(Messages(), ElementsAre(HasSubstr("[Events Log] The Events Log is full: ")));
    EXPECT_LE(Folder.Read("Events Log.txt").size(), 40u);

    Logs.Writer.LongestLog = MaxEventsLogLength;
    t.EventsLogFileName = "no folder/log.txt";
    SetEventsLogOn(t, true);
    Roll(1, 1);
    EXPECT_FALSE(t.EventsLogOn);
    EXPECT_THAT(Messages(), ElementsAre(HasSubstr("[Events Log] The Events Log can't be written.\n")));
    EXPECT_EQ(SessionRolls(t), 3) << "the game goes on";
}

TEST_F(TableLogsTest, InHyperDriveTheReasonIsShownAtTheEnd) {
    SetEventsLogOn(t, true);
    Logs.Writer.LongestLog = 1'000;
    t.RunUntilRoll = 5'000;
    ToggleAutoRoll(t);
    EXPECT_EQ(SessionRolls(t), 5'000);
    EXPECT_FALSE(t.EventsLogOn);
    EXPECT_THAT(Messages(), ElementsAre(HasSubstr("The Events Log is full: ")));
}

TEST_F(TableLogsTest, EndedSessionsAreFiledForEachPlayer) {
    Bet(1, Row::PassLine, 10);
    Roll(3, 4);
    Bet(1, Row::PassLine, 30);
    Roll(1, 1);
    PlaceBet(t, 1, Row::FirstStack, Dollars(-7));
    PlaceBet(t, 1, Row::FirstStack + 19, Dollars(19));
    PlaceBet(t, 1, Row::FirstStack + 20, Dollars(20));
    NewSession(t, {});
    NewSession(t, {});  // without a roll: no record
    const auto ann = Sessions("ann.slg");
    ASSERT_EQ(ann.size(), 1u);
    SessionRecord expected{};
    const std::int64_t fields[] = {2, 2, 1, 1, 0, 40, 10, 30, -20, -50, 1000, 980, -7};
    for (std::size_t i = 0; i < std::size(fields); ++i) expected[i] = Dollars(fields[i]);
    expected[31] = Dollars(19);
    EXPECT_EQ(ann[0], expected);
    const auto bo = Sessions("bo_ b.slg");
    ASSERT_EQ(bo.size(), 1u);
    EXPECT_EQ(bo[0][SessionStat::EndingBankroll], Dollars(500));
    EXPECT_EQ(bo[0][SessionStat::BetsDecided], currency{});
}

TEST_F(TableLogsTest, WhoLeavesIsFiledToo) {
    Bet(1, Row::PassLine, 10);
    Roll(2, 2);
    t.SessionsLogName[1] = "other.slg";
    RemovePlayer(t, 1);
    const auto records = Sessions("other.slg");
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0][SessionStat::EndingBankroll], Dollars(990)) << "the abandoned line bet is in it";
    EXPECT_EQ(records[0][SessionStat::BetsLost], Dollars(1));
    RemovePlayer(t, 5);
    EXPECT_EQ(Sessions("bo_ b.slg").size(), 1u);
}

TEST_F(TableLogsTest, WithoutLogsTheDefaultOnesGo) {
    Roll(3, 4);
    NewSession(t, {});
    t.SessionsLogName[1] = "kept.slg";
    Roll(3, 4);
    NewSession(t, WithoutLogs());
    EXPECT_EQ(Sessions("kept.slg").size(), 1u) << "a log of another name stays";
    EXPECT_FALSE(FileExists(Folder.Path("ann.slg")));
    EXPECT_FALSE(FileExists(Folder.Path("bo_ b.slg"))) << "the new record too";
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TableLogsTest, ASessionThatCantBeFiledIsTold) {
    std::filesystem::create_directory(Folder.Path("ann.slg"));
    Folder.Write("bo_ b.slg", "a letter to Bo, which nobody wants to lose");
    Roll(3, 4);
    NewSession(t, {});
    EXPECT_THAT(Messages(), ElementsAre(HasSubstr("ann.slg"), HasSubstr("bo_ b.slg")));
    EXPECT_EQ(Folder.Read("bo_ b.slg"), "a letter to Bo, which nobody wants to lose");
}

}  // namespace
}  // namespace tarnwick
