// Dice roll files: recording, playback, and files that are not what they should be.

#include "dice/dicefile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "table/screen.h"

namespace tarnwick {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using Pair = std::pair<int, int>;

class DiceFile : public testing::Test {
  protected:
    void SetUp() override {
        std::string made = (std::filesystem::temp_directory_path() / "tarnwick-rolls-XXXXXX").string();
        ASSERT_NE(mkdtemp(made.data()), nullptr);
        Folder = made;
        t.Front = &Front;
    }
    void TearDown() override {
        std::error_code error;
        std::filesystem::remove_all(Folder, error);
    }

    std::string Path(const std::string& name) const { return (Folder / name).string(); }
    std::string Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(Path(name), std::ios::binary) << bytes;
        return Path(name);
    }
    std::string Read(const std::string& name) const {
        std::ifstream file(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static std::string Bytes(const std::vector<Pair>& rolls) {
        std::string bytes;
        for (const Pair& roll : rolls) bytes += static_cast<char>(DiceByte(roll.first, roll.second));
        return bytes;
    }
    void Record(const std::vector<Pair>& rolls) {
        for (const Pair& roll : rolls) {
            t.Die1 = roll.first;
            t.Die2 = roll.second;
            ASSERT_TRUE(RecordRoll(t));
        }
    }
    /// What is left to play, up to the first roll that isn't ready; `end` says why it stops.
    std::vector<Pair> PlayOut(FileRoll& end) {
        std::vector<Pair> rolls;
        while ((end = PeekFileRoll(t)) == FileRoll::Ready) {
            NextFileRoll(t);
            rolls.emplace_back(t.Die1, t.Die2);
            if (rolls.size() > 1'000'000) break;
        }
        return rolls;
    }

    std::filesystem::path Folder;
    SilentScreen Front;
    Table t;
    FileRoll End = FileRoll::Ready;
};

TEST_F(DiceFile, RecordsAndPlaysBack) {
    const std::vector<Pair> rolls = {{3, 4}, {1, 1}, {6, 6}, {2, 5}};
    ASSERT_THAT(OpenDiceRollFile(t, Path("new.rol")), IsEmpty());
    EXPECT_TRUE(std::filesystem::exists(Path("new.rol"))) << "a new name is made at once";
    ASSERT_TRUE(SetDiceFileMode(t, 1));
    Record(rolls);
    EXPECT_EQ(t.DiceFileNextRecord, 5);
    EXPECT_EQ(t.DiceFilePosition, 5);
    EXPECT_EQ(t.DiceFileLastRecord, 4);
    EXPECT_EQ(t.DiceFileLength, 4);
    ASSERT_TRUE(FlushDiceFile(t));
    EXPECT_EQ(Read("new.rol"), Bytes(rolls));
    EXPECT_EQ(static_cast<unsigned char>(Read("new.rol")[0]), 140);

    t.EventsLogOn = true;
    ASSERT_TRUE(SetDiceFileMode(t, 2));
    EXPECT_THAT(Front.Logged, testing::ElementsAre("    Dice roll file playback activated (" + Path("new.rol") + ")"));
    EXPECT_EQ(PeekFileRoll(t), FileRoll::AtEnd) << "at the record after the last";
    t.DiceFileNextRecord = 1;
    EXPECT_EQ(PlayOut(End), rolls);
    EXPECT_EQ(End, FileRoll::AtEnd);
    EXPECT_EQ(Pair(t.Die1, t.Die2), Pair(2, 5)) << "the last good roll stands";
    EXPECT_EQ(t.DiceFileLastRecord, 4);
    EXPECT_EQ(t.DiceFilePosition, 5);
    EXPECT_EQ(t.DiceFileMode, 2) << "the end changes nothing by itself";
}

TEST_F(DiceFile, PeekingUsesNothing) {
    ASSERT_THAT(OpenDiceRollFile(t, Write("a.rol", Bytes({{1, 2}, {3, 5}}))), IsEmpty());
    ASSERT_TRUE(SetDiceFileMode(t, 2));
    for (int i = 0; i < 3; ++i) EXPECT_EQ(PeekFileRoll(t), FileRoll::Ready);
    EXPECT_EQ(t.DiceFileNextRecord, 1);
    EXPECT_EQ(t.DiceFileLastRecord, 0);
    EXPECT_EQ(Pair(t.Die1, t.Die2), Pair(3, 4)) << "as the table began";
    EXPECT_EQ(PlayOut(End), (std::vector<Pair>{{1, 2}, {3, 5}}));
}

TEST_F(DiceFile, RecordingOverwritesExtendsAndLeavesNoGap) {
    struct Case {
        const char* name;
        std::int32_t next;
        std::vector<Pair> recorded, result;
    };
    const std::vector<Pair> old = {{1, 1}, {2, 2}, {3, 3}};
    const Case cases[] = {
        {"from the start of a full file", 1, {{6, 5}}, {{6, 5}, {2, 2}, {3, 3}}},
        {"over its end", 3, {{6, 5}, {5, 4}}, {{1, 1}, {2, 2}, {6, 5}, {5, 4}}},
        {"behind it", 4, {{6, 5}}, {{1, 1}, {2, 2}, {3, 3}, {6, 5}}},
        {"far behind it", 2'147'483'647, {{6, 5}, {5, 4}}, {{1, 1}, {2, 2}, {3, 3}, {6, 5}, {5, 4}}},
        {"before its start", -7, {{6, 5}}, {{6, 5}, {2, 2}, {3, 3}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ASSERT_THAT(OpenDiceRollFile(t, Write("a.rol", Bytes(old))), IsEmpty());
        ASSERT_TRUE(SetDiceFileMode(t, 1));
        t.DiceFileNextRecord = c.next;
        Record(c.recorded);
        CloseDiceRollFile(t);
        EXPECT_EQ(Read("a.rol"), Bytes(c.result));
        EXPECT_EQ(t.DiceRollFileName, "");
        EXPECT_EQ(t.DiceFileMode, 0);
        EXPECT_EQ(t.DiceFileNextRecord, 1);
    }
}

TEST_F(DiceFile, ReachesTheFileOnlyAtAFlush) {
    ASSERT_THAT(OpenDiceRollFile(t, Path("a.rol")), IsEmpty());
    struct Case {
        const char* name;
        bool (*flush)(Table&);
    };
    const Case cases[] = {
        {"flush", FlushDiceFile},
        {"mode", [](Table& table) { return SetDiceFileMode(table, 0); }},
        {"open anew", [](Table& table) { return OpenDiceRollFile(table, table.DiceRollFileName).empty(); }},
        {"a jump of the next record",
         [](Table& table) { return table.DiceFileNextRecord = 1, RecordRoll(table) && FlushDiceFile(table); }},
        {"peek", [](Table& table) { return table.DiceFileNextRecord = 1, PeekFileRoll(table) == FileRoll::Ready; }},
        {"close", [](Table& table) { return CloseDiceRollFile(table), true; }},
    };
    std::size_t length = 0;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ASSERT_TRUE(SetDiceFileMode(t, 1));
        t.DiceFileNextRecord = t.DiceFileLength + 1;
        Record({{2, 3}, {4, 5}});
        EXPECT_EQ(Read("a.rol").size(), length);
        EXPECT_TRUE(c.flush(t));
        length += 2;
        EXPECT_EQ(Read("a.rol").size(), length);
    }
}

TEST_F(DiceFile, RunsOfManyBlocksKeepEveryRoll) {
    constexpr int count = 200'000;  // three blocks and a part
    ASSERT_THAT(OpenDiceRollFile(t, Path("long.rol")), IsEmpty());
    ASSERT_TRUE(SetDiceFileMode(t, 1));
    std::vector<Pair> rolls;
    for (int i = 0; i < count; ++i) rolls.emplace_back(i * 7 / 5 % 6 + 1, i / 11 % 6 + 1);
    Record(rolls);
    EXPECT_LT(t.DiceFileMemory.Unwritten.capacity(), 100'000u) << "the file is never whole in memory";
    const Table copy = t;  // a snapshot with unwritten rolls
    ASSERT_TRUE(SetDiceFileMode(t, 2));
    t.DiceFileNextRecord = 1;
    EXPECT_EQ(PlayOut(End), rolls);
    EXPECT_LT(t.DiceFileMemory.Read.capacity(), 100'000u);
    t.DiceFileNextRecord = 70'000;  // back, and into the middle of a block
    EXPECT_EQ(PlayOut(End), std::vector<Pair>(rolls.begin() + 69'999, rolls.end()));
    t = copy;
    CloseDiceRollFile(t);
    EXPECT_EQ(Read("long.rol"), Bytes(rolls)) << "written again by the copy, to the same place";
}

TEST_F(DiceFile, PlaysAStretch) {
    ASSERT_THAT(OpenDiceRollFile(t, Write("a.rol", Bytes({{1, 1}, {2, 2}, {3, 3}, {4, 4}}))), IsEmpty());
    ASSERT_TRUE(SetDiceFileMode(t, 2));
    t.DiceFileNextRecord = 2;
    t.DiceFileEnd = 3;
    EXPECT_EQ(PlayOut(End), (std::vector<Pair>{{2, 2}, {3, 3}}));
    t.DiceFileEnd = 99;
    EXPECT_EQ(PlayOut(End), (std::vector<Pair>{{4, 4}})) << "never past the file";
    t.DiceFileEnd = 2;
    ASSERT_TRUE(SetDiceFileMode(t, 2));
    EXPECT_EQ(t.DiceFileEnd, 0) << "a playback starts without an end of its own";
}

TEST_F(DiceFile, RefusesWhatIsNoDiceRollFile) {
    const std::string noRolls =
        "\nis either from an earlier version, has been corrupted, or is not a true Tarnwick dice roll file.";
    std::string late = Bytes(std::vector<Pair>(150'000, {3, 4}));
    late.back() = '\x02';
    struct Case {
        const char* name;
        std::string path;
        std::string text;
    };
    const Case cases[] = {
        {"bit 0", Write("bit0.rol", Bytes({{1, 1}}) + "\x01"), "bit0.rol" + noRolls},
        {"bit 1 in the third block", Write("late.rol", late), "late.rol" + noRolls},
        {"a text", Write("text.rol", "1-2 3-4\n"), "text.rol" + noRolls},
        {"a folder", Folder.string(), "not a file"},
        {"a device", "/dev/zero", "not a file"},
        {"a folder that is not there", Path("none/a.rol"), "can't be opened"},
        {"a file as a folder", Path("bit0.rol/a.rol"), "can't be opened"},
        {"no name", "", "can't be opened"},
        {"a cut name", Path("cut") + std::string(1, '\0') + "x", "can't be opened"},
    };
    const std::string good = Write("good.rol", Bytes({{5, 6}, {1, 2}}));
    ASSERT_THAT(OpenDiceRollFile(t, good), IsEmpty());
    ASSERT_TRUE(SetDiceFileMode(t, 2));
    ASSERT_EQ(PeekFileRoll(t), FileRoll::Ready);
    NextFileRoll(t);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_THAT(OpenDiceRollFile(t, c.path), HasSubstr(c.text));
        EXPECT_EQ(t.DiceRollFileName, good) << "the open file stays";
        EXPECT_EQ(t.DiceFileMode, 2);
        EXPECT_EQ(t.DiceFileNextRecord, 2);
    }
    EXPECT_EQ(Read("bit0.rol").size(), 2u) << "nothing is ever replaced";
    EXPECT_FALSE(std::filesystem::exists(Path("cut")));
}

TEST_F(DiceFile, StopsAtAValueOutOfLimits) {
    for (int byte = 0; byte < 256; byte += 4) {
        const int die1 = byte / 4 % 8, die2 = byte / 32;
        const bool good = 1 <= die1 && die1 <= 6 && 1 <= die2 && die2 <= 6;
        ASSERT_THAT(OpenDiceRollFile(t, Write("a.rol", Bytes({{1, 2}}) + static_cast<char>(byte))), IsEmpty()) << byte;
        ASSERT_TRUE(SetDiceFileMode(t, 2));
        EXPECT_EQ(PlayOut(End).size(), good ? 2u : 1u) << byte;
        EXPECT_EQ(End, good ? FileRoll::AtEnd : FileRoll::OutOfLimits) << byte;
        EXPECT_EQ(Pair(t.Die1, t.Die2), good ? Pair(die1, die2) : Pair(1, 2)) << byte;
    }
    for (const bool hyperDrive : {false, true}) {
        SCOPED_TRACE(hyperDrive);
        t.DiceFileMode = 2;
        t.StopReason.clear();
        t.HyperDriveActive = hyperDrive;
        Front.Shown.clear();
        RefuseFileRoll(t);
        EXPECT_EQ(t.DiceFileMode, 0);
        EXPECT_EQ(t.StopReason, "Stopped due to Dice Roll File value out of limits.");
        ASSERT_EQ(Front.Shown.size(), hyperDrive ? 0u : 1u);
        if (hyperDrive) continue;
        EXPECT_EQ(Front.Shown[0].Title, "Dice Roll File Error");
        EXPECT_EQ(
            Front.Shown[0].Text,
            "A dice roll value has been found to be out of limits. \n\nPlayback of this Dice Roll File has ceased "
            "so that you can check the file or continue without it.");
    }
}

TEST_F(DiceFile, SurvivesAFileThatChangesUnderIt) {
    const std::string rolls = Bytes(std::vector<Pair>(100'000, {3, 4}));
    ASSERT_THAT(OpenDiceRollFile(t, Write("a.rol", rolls)), IsEmpty());
    ASSERT_TRUE(SetDiceFileMode(t, 2));
    std::filesystem::resize_file(Path("a.rol"), 70'000);
    EXPECT_EQ(PlayOut(End).size(), 70'000u);
    EXPECT_EQ(End, FileRoll::AtEnd);
    EXPECT_EQ(t.DiceFileLength, 70'000);

    for (const bool hyperDrive : {false, true}) {
        SCOPED_TRACE(hyperDrive);
        t.HyperDriveActive = false;
        ASSERT_THAT(OpenDiceRollFile(t, Write("b.rol", Bytes({{1, 2}}))), IsEmpty());
        ASSERT_TRUE(SetDiceFileMode(t, 2));
        std::filesystem::remove(Path("b.rol"));
        t.HyperDriveActive = hyperDrive;
        t.StopReason.clear();
        Front.Shown.clear();
        EXPECT_EQ(PeekFileRoll(t), FileRoll::Failed);
        EXPECT_EQ(t.DiceFileMode, 0);
        EXPECT_NE(t.StopReason, "");
        EXPECT_EQ(Front.Shown.size(), hyperDrive ? 0u : 1u);
        if (!hyperDrive) {
            EXPECT_THAT(Front.Shown[0].Text, HasSubstr("occurred, at: NextFileRoll"));
        }
    }
}

TEST_F(DiceFile, KeepsRecordedRollsThroughAFault) {
    ASSERT_THAT(OpenDiceRollFile(t, Write("a.rol", Bytes({{1, 1}, {2, 2}}))), IsEmpty());
    ASSERT_TRUE(SetDiceFileMode(t, 1));
    t.DiceFileNextRecord = 3;
    Record({{3, 3}, {4, 4}});
    std::filesystem::rename(Path("a.rol"), Path("away.rol"));
    EXPECT_FALSE(FlushDiceFile(t));
    EXPECT_EQ(t.DiceFileMode, 0);
    ASSERT_EQ(Front.Shown.size(), 1u);
    EXPECT_THAT(Front.Shown[0].Text, HasSubstr("occurred, at: RecordRoll"));
    EXPECT_FALSE(SetDiceFileMode(t, 1)) << "still in the way";

    Write("a.rol", "");
    EXPECT_FALSE(FlushDiceFile(t)) << "a shorter file would get a gap";
    EXPECT_EQ(Read("a.rol"), "");

    std::filesystem::rename(Path("away.rol"), Path("a.rol"));
    EXPECT_TRUE(FlushDiceFile(t));
    EXPECT_EQ(Read("a.rol"), Bytes({{1, 1}, {2, 2}, {3, 3}, {4, 4}}));
}

TEST_F(DiceFile, StopsRecordingAtAFault) {
    ASSERT_THAT(OpenDiceRollFile(t, Path("a.rol")), IsEmpty());
    ASSERT_TRUE(SetDiceFileMode(t, 1));
    std::filesystem::remove(Path("a.rol"));
    int recorded = 0;
    while (recorded < 200'000 && RecordRoll(t)) ++recorded;
    EXPECT_LT(recorded, 200'000);
    EXPECT_EQ(t.DiceFileMode, 0);
    EXPECT_EQ(Front.Shown.size(), 1u);
}

TEST_F(DiceFile, NeedsAnOpenFileForItsModes) {
    struct Case {
        int mode;
        bool hyperDrive, done;
        const char* title;
    };
    const Case cases[] = {
        {0, false, true, nullptr},
        {1, false, false, "Record Dice Rolls During Game Play"},
        {2, false, false, "Playback Dice Rolls During Game Play"},
        {2, true, false, nullptr},
        {3, false, false, nullptr},
        {-1, false, false, nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.mode);
        Front.Shown.clear();
        t.HyperDriveActive = c.hyperDrive;
        EXPECT_EQ(SetDiceFileMode(t, c.mode), c.done);
        EXPECT_EQ(t.DiceFileMode, 0);
        ASSERT_EQ(Front.Shown.size(), c.title == nullptr ? 0u : 1u);
        if (c.title == nullptr) continue;
        EXPECT_EQ(Front.Shown[0].Title, c.title);
        EXPECT_EQ(Front.Shown[0].Text, "You need to open a file first.");
    }
}

TEST_F(DiceFile, AsksWhetherToRewind) {
    struct Case {
        int mode, answer;
        const char* text;
        int modeAfter;
        std::int32_t nextAfter;
        std::size_t logged;
    };
    const Case cases[] = {
        {2, MsgAnswer::Yes, "Playback stopped.\nRewind for playback?", 2, 1, 0},
        {2, MsgAnswer::No, "Playback stopped.\nRewind for playback?", 0, 3, 0},
        {1, MsgAnswer::Yes, "Recording stopped.\nRewind for playback?", 2, 1, 1},
        {1, MsgAnswer::No, "Recording stopped.\nRewind for playback?", 0, 3, 0},
    };
    t.EventsLogOn = true;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        ASSERT_THAT(OpenDiceRollFile(t, Write("a.rol", "")), IsEmpty());
        ASSERT_TRUE(SetDiceFileMode(t, 1));
        Record({{6, 1}, {5, 1}});
        t.DiceFileMode = c.mode;
        t.DiceFileEnd = 2;
        t.AutoRollActive = true;
        Front.Shown.clear();
        Front.Logged.clear();
        Front.Answers.push_back({c.answer, {}, false});
        RewindQuestion(t);
        EXPECT_FALSE(t.AutoRollActive);
        ASSERT_EQ(Front.Shown.size(), 1u);
        EXPECT_EQ(Front.Shown[0].Title, "Dice Roll File");
        EXPECT_EQ(Front.Shown[0].Text, c.text);
        EXPECT_EQ(t.DiceFileMode, c.modeAfter);
        EXPECT_EQ(t.DiceFileNextRecord, c.nextAfter);
        EXPECT_EQ(t.DiceFilePosition, c.nextAfter);
        EXPECT_EQ(Front.Logged.size(), c.logged);
        if (c.modeAfter == 2) {
            EXPECT_EQ(PlayOut(End), (std::vector<Pair>{{6, 1}, {5, 1}}));
        }
    }
}

}  // namespace
}  // namespace tarnwick
