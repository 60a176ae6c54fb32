#include "stats/eventslogfile.h"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <set>

#include "support/temporaryfolder.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testsupport::TemporaryFolder;

struct EventsLogFileTest : testing::Test {
    EventsLogPaths Paths() const { return {Folder.Path("Events Log.txt"), Folder.Path("Events Log.ref")}; }
    std::string LogBytes() const { return Folder.Read("Events Log.txt"); }
    std::string ReferenceBytes() const { return Folder.Read("Events Log.ref"); }

    EventsLogWriter::Written Write(EventsLogWriter& writer, const std::vector<std::string>& lines, bool stayOpen) {
        for (const std::string& line : lines) writer.Collect(line);
        return writer.Write(Paths(), stayOpen);
    }
    /// Writes and expects that all went well.
    void Append(const std::vector<std::string>& lines) {
        EventsLogWriter writer;
        const auto written = Write(writer, lines, false);
        EXPECT_EQ(written.Fault, "");
        EXPECT_FALSE(written.Full);
    }
    std::vector<std::string> AllLines() const {
        EventsLogReader reader;
        EXPECT_EQ(reader.Open(Paths()), "");
        return reader.Page(1, 1'000'000);
    }
    /// The reference as a reader of the format finds it.
    std::vector<int> Offsets() const {
        const std::string bytes = ReferenceBytes();
        std::vector<int> offsets;
        for (std::size_t i = 0; i + 4 <= bytes.size(); i += 4) {
            int n = 0;
            for (std::size_t k = 4; k-- > 0;) n = n * 256 + static_cast<std::uint8_t>(bytes[i + k]);
            offsets.push_back(n);
        }
        return offsets;
    }
    /// Makes the last change of both files look as if it had been in different seconds, or the same.
    void SetTimes(int logSeconds, int referenceSeconds) const {
        using std::filesystem::file_time_type;
        const auto base = file_time_type::clock::now() - std::chrono::hours(1);
        std::filesystem::last_write_time(Paths().Log, base + std::chrono::seconds(logSeconds));
        std::filesystem::last_write_time(Paths().Reference, base + std::chrono::seconds(referenceSeconds));
    }

    TemporaryFolder Folder;
};

TEST_F(EventsLogFileTest, BytesOfBothFiles) {
    Append({" Roll #1:  7 (3.4)"});
    EXPECT_EQ(LogBytes(), " Roll #1:  7 (3.4)\r\n");
    EXPECT_EQ(ReferenceBytes(), std::string("\1\0\0\0", 4));
    Append({"", "caf\u00e9 \u20ac \u4e2d", "broken\r\nname"});
    EXPECT_EQ(LogBytes(), " Roll #1:  7 (3.4)\r\n\r\ncaf\xE9 \x80 ?\r\nbroken  name\r\n");
    EXPECT_THAT(Offsets(), ElementsAre(1, 21, 23, 33));
    EXPECT_THAT(AllLines(), ElementsAre(" Roll #1:  7 (3.4)", "", "caf\u00e9 \u20ac ?", "broken  name"));
}

TEST_F(EventsLogFileTest, SameBytesWhetherTheFilesStayOpenOrNot) {
    EventsLogWriter writer;
    EXPECT_EQ(Write(writer, {"one", "two"}, true).FirstLine, 1);
    EXPECT_EQ(Write(writer, {"three"}, true).FirstLine, 3);
    EXPECT_EQ(LogBytes(), "one\r\ntwo\r\nthree\r\n") << "a reader sees it while the files are open";
    EXPECT_EQ(Write(writer, {"four"}, false).FirstLine, 4);
    EXPECT_THAT(Offsets(), ElementsAre(1, 6, 11, 18));
}

TEST_F(EventsLogFileTest, WhatWasCutShortIsEndedFirst) {
    Folder.Write("Events Log.txt", "whole\r\ncut sh");
    Append({"next"});
    EXPECT_EQ(LogBytes(), "whole\r\ncut sh\r\nnext\r\n");
    EXPECT_THAT(Offsets(), ElementsAre(1, 8, 16));
}

TEST_F(EventsLogFileTest, ReferenceThatIsNotTheLogsIsBuiltAnew) {
    const std::string log = "first\r\nsecond\nthird\r\n";
    const std::string right("\1\0\0\0\10\0\0\0\17\0\0\0", 12);
    struct Case {
        const char* What;
        std::string Reference;
        int LogSeconds, ReferenceSeconds;
    };
    const Case cases[] = {
        {"whole", right, 0, 0},
        {"empty", "", 0, 0},
        {"of another second", right, 0, 2},
        {"a line short", right.substr(0, 8), 0, 0},
        {"cut inside a record", right.substr(0, 10), 0, 0},
        {"beyond the log", std::string("\1\0\0\0\377\0\0\0", 8), 0, 0},
        {"negative", std::string("\377\377\377\377", 4), 0, 0},
        {"inside a line", std::string("\1\0\0\0\10\0\0\0\20\0\0\0", 12), 0, 0},
        {"zero", std::string(12, '\0'), 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.What);
        Folder.Write("Events Log.txt", log);
        Folder.Write("Events Log.ref", c.Reference);
        SetTimes(c.LogSeconds, c.ReferenceSeconds);
        EXPECT_THAT(AllLines(), ElementsAre("first", "second", "third"));
        EXPECT_THAT(Offsets(), ElementsAre(1, 8, 15));
        EXPECT_EQ(LogBytes(), log);
        Append({"4th"});
        EXPECT_THAT(Offsets(), ElementsAre(1, 8, 15, 22));
    }
    std::filesystem::remove(Paths().Reference);
    EXPECT_EQ(AllLines().size(), 4u);
    EXPECT_EQ(Offsets().size(), 4u);
}

TEST_F(EventsLogFileTest, MatchingReferenceIsLeftAlone) {
    Folder.Write("Events Log.txt", "one line\r\nand another\r\n");
    // Wrong for line 1, but time and last line say that it fits.
    Folder.Write("Events Log.ref", std::string("\3\0\0\0\13\0\0\0", 8));
    SetTimes(0, 0);
    EXPECT_THAT(AllLines(), ElementsAre("e line", "and another"));
    EXPECT_THAT(Offsets(), ElementsAre(3, 11));
}

TEST_F(EventsLogFileTest, ReadingNeverHurts) {
    EventsLogReader reader;
    EXPECT_EQ(reader.Open(Paths()), "") << "no log is an empty log";
    EXPECT_EQ(reader.Lines(), 0);
    EXPECT_THAT(reader.Page(1, 10), IsEmpty());
    EXPECT_EQ(reader.Find("x", 1, true), 0);
    EXPECT_EQ(Folder.Count(), 0) << "looking makes no files";

    Folder.Write("Events Log.txt", "");
    EXPECT_EQ(reader.Open(Paths()), "");
    EXPECT_EQ(reader.Lines(), 0);

    Folder.Write("Events Log.txt", "one\r\n");
    const EventsLogPaths folderAsLog = {Folder.Path(""), Paths().Reference};
    EXPECT_NE(reader.Open(folderAsLog), "");
    const EventsLogPaths twice = {Paths().Log, Paths().Log};
    EXPECT_NE(reader.Open(twice), "") << "must not wait for its own lock";
    EventsLogWriter writer;
    writer.Collect("line");
    EXPECT_NE(writer.Write(twice, false).Fault, "");
    EXPECT_EQ(LogBytes(), "one\r\n");
}

TEST_F(EventsLogFileTest, Pages) {
    std::vector<std::string> lines;
    for (int i = 1; i <= 50; ++i) lines.push_back("line " + std::to_string(i));
    Append(lines);
    EventsLogReader reader;
    ASSERT_EQ(reader.Open(Paths()), "");
    EXPECT_EQ(reader.Lines(), 50);
    EXPECT_THAT(reader.Page(1, 2), ElementsAre("line 1", "line 2"));
    EXPECT_THAT(reader.Page(49, 5), ElementsAre("line 49", "line 50"));
    for (const int top : {0, -1, 51, 2'147'483'647}) EXPECT_THAT(reader.Page(top, 5), IsEmpty()) << top;
    EXPECT_THAT(reader.Page(3, 0), IsEmpty());
}

TEST_F(EventsLogFileTest, Searches) {
    std::vector<std::string> lines;
    for (int i = 1; i <= 2'500; ++i) lines.push_back("filler");
    lines[0] = "Ann bet $5";
    lines[9] = "ANN won \u00c9t\u00c9";
    lines[2'400] = "bob and ann";
    Append(lines);
    EventsLogReader reader;
    ASSERT_EQ(reader.Open(Paths()), "");
    struct Case {
        const char* Text;
        int From;
        bool Forward;
        int Found;
    };
    const Case cases[] = {
        {"ann", 1, true, 10},
        {"ann", 10, true, 2'401},
        {"ann", 2'401, true, 1},
        {"ann", 2'500, true, 1},
        {"ann", 10, false, 1},
        {"ann", 1, false, 2'401},
        {"ann", 2'401, false, 10},
        {"bOb", 2'401, true, 2'401},
        {"bOb", 2'401, false, 2'401},
        {"\u00e9T\u00e9", 5, true, 10},
        {"nobody", 5, true, 0},
        {"nobody", 5, false, 0},
        {"", 5, true, 0},
        {"\u4e2d", 5, true, 0},
        {"$5", -7, true, 1},
        {"ann bet $5 ", 1, true, 0},
        {"ann", 99'999, true, 1},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(reader.Find(c.Text, c.From, c.Forward), c.Found) << c.Text << " from " << c.From << c.Forward;
    }
}

TEST_F(EventsLogFileTest, LongLinesAndLineEndsOverBlocks) {
    const std::string long1(65'535, 'a'), long2(3 << 20, 'b');
    Folder.Write("Events Log.txt", long1 + "\r\n" + long2 + "\nend");
    const std::vector<std::string> lines = AllLines();
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0], long1);
    EXPECT_EQ(lines[1], long2.substr(0, MaxEventsLogLine)) << "the rest of a line like that is passed over";
    EXPECT_EQ(lines[2], "end");
}

TEST_F(EventsLogFileTest, FullLogTakesWholeLinesOnly) {
    EventsLogWriter writer;
    writer.LongestLog = 12;
    const auto first = Write(writer, {"abc", "def", "ghi"}, true);
    EXPECT_TRUE(first.Full);
    EXPECT_EQ(LogBytes(), "abc\r\ndef\r\n");
    EXPECT_THAT(Offsets(), ElementsAre(1, 6));
    EXPECT_TRUE(Write(writer, {"x"}, true).Full);
    EXPECT_FALSE(Write(writer, {""}, false).Full) << "two bytes are left";
    EXPECT_EQ(LogBytes().size(), 12u);
}

TEST_F(EventsLogFileTest, FaultsAreToldAndLeaveTheLog) {
    EventsLogWriter writer;
    const EventsLogPaths nowhere = {Folder.Path("no/such/folder/log.txt"), Paths().Reference};
    writer.Collect("lost");
    const auto written = writer.Write(nowhere, true);
    EXPECT_THAT(written.Fault, testing::StartsWith(nowhere.Log + ": "));
    EXPECT_FALSE(writer.HasPending());
    EXPECT_EQ(Write(writer, {"kept"}, false).Fault, "");
    EXPECT_EQ(LogBytes(), "kept\r\n");
}

TEST_F(EventsLogFileTest, DeletingAndChangingTheLogUnderAnOpenWriter) {
    EventsLogWriter writer;
    Write(writer, {"before"}, true);
    EXPECT_EQ(DeleteEventsLog(Paths()), "");
    EXPECT_EQ(Folder.Count(), 0);
    EXPECT_EQ(DeleteEventsLog(Paths()), "") << "nothing to delete";
    EXPECT_EQ(Write(writer, {"after"}, true).FirstLine, 1);
    EXPECT_EQ(LogBytes(), "after\r\n");

    writer.Collect("elsewhere");
    const EventsLogPaths other = {Folder.Path("other.txt"), Paths().Reference};
    EXPECT_EQ(writer.Write(other, true).Fault, "");
    EXPECT_EQ(LogBytes(), "after\r\n");
    EXPECT_EQ(Folder.Read("other.txt"), "elsewhere\r\n");
    EXPECT_EQ(writer.Close(), "");
    EXPECT_THAT(Offsets(), ElementsAre(1)) << "the reference is that of the log written last";
    EXPECT_THAT(AllLines(), ElementsAre("after"));
}

TEST_F(EventsLogFileTest, TwoWritersTakeTurns) {
    EventsLogWriter one, two;
    Write(one, {"one 1"}, true);
    EXPECT_EQ(Write(two, {"two 1", "two 2"}, true).FirstLine, 2);
    EXPECT_EQ(Write(one, {"one 2"}, true).FirstLine, 4);
    EXPECT_EQ(one.Close() + two.Close(), "");
    EXPECT_EQ(LogBytes(), "one 1\r\ntwo 1\r\ntwo 2\r\none 2\r\n");
    EXPECT_THAT(Offsets(), ElementsAre(1, 8, 15, 22));
}

/// Writes `count` lines that name `who`, as a program of its own would.
void WriteAsProcess(const EventsLogPaths& paths, const std::string& who, int count, bool stayOpen) {
    EventsLogWriter writer;
    bool good = true;
    for (int i = 0; i < count; ++i) {
        writer.Collect(who + " " + std::to_string(i) + std::string(static_cast<std::size_t>(i % 40), '.'));
        if (i % 3 == 0) good = writer.Write(paths, stayOpen).Fault.empty() && good;
    }
    good = writer.Write(paths, false).Fault.empty() && good;
    _exit(good ? 0 : 1);
}

TEST_F(EventsLogFileTest, TwoProgramsAtOnceLoseNothing) {
    constexpr int count = 400;
    const std::string who[] = {"inside a run", "outside"};
    for (int k = 0; k < 2; ++k) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) WriteAsProcess(Paths(), who[k], count, k == 0);
    }
    for (int k = 0; k < 2; ++k) {
        int status = -1;
        wait(&status);
        EXPECT_EQ(status, 0);
    }
    const std::vector<std::string> lines = AllLines();
    EXPECT_EQ(lines.size(), 2u * count);
    EXPECT_EQ(Offsets().size(), lines.size());
    std::multiset<std::string> found, expected;
    for (const std::string& line : lines) found.insert(line.substr(0, line.find('.')));
    for (const std::string& name : who) {
        for (int i = 0; i < count; ++i) expected.insert(name + " " + std::to_string(i));
    }
    EXPECT_EQ(found, expected);
}

TEST(EventsLogView, ScrollBar) {
    EXPECT_EQ(ScrollRange(0), 1);
    EXPECT_EQ(ScrollRange(17), 17);
    EXPECT_EQ(ScrollRange(2'000'000'000), 30'000);
    for (const int lines : {1, 29'999, 30'000, 30'001, 1'000'000, 2'147'483'647}) {
        SCOPED_TRACE(lines);
        const int range = ScrollRange(lines);
        EXPECT_EQ(TopLineOf(1, lines), 1);
        EXPECT_EQ(TopLineOf(range, lines), lines);
        EXPECT_EQ(ScrollValueOf(1, lines), 1);
        EXPECT_EQ(ScrollValueOf(lines, lines), range);
        int last = 0;
        for (int value = 1; value <= range; value += 97) {
            const int top = TopLineOf(value, lines);
            EXPECT_GT(top, last);
            EXPECT_EQ(ScrollValueOf(top, lines), value);
            last = top;
        }
    }
    EXPECT_EQ(ScrollValueOf(12'345, 30'000), 12'345);
    EXPECT_EQ(TopLineOf(99'999, 100), 100);
    EXPECT_EQ(ClampedTopLine(-5, 100), 1);
    EXPECT_EQ(ClampedTopLine(1, 0), 1);
}

TEST(EventsLogView, Caption) {
    EXPECT_EQ(EventsLogCaption("/home/ann/Events Log.txt"), "Events Log");
    EXPECT_EQ(EventsLogCaption("events log.TXT"), "Events Log");
    EXPECT_EQ(EventsLogCaption("C:\\logs\\friday.txt"), "Events Log (friday.txt)");
}

}  // namespace
}  // namespace tarnwick
