// Editing dice roll files: against a plain string as the model, through faults and crashes, and by the commands.

#include "dice/dicefileedit.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <functional>
#include <memory>
#include <random>

#include "dice/dice.h"
#include "dice/dicefile.h"
#include "dice/dicefilecommands.h"
#include "dice/rollio.h"
#include "support/temporaryfolder.h"
#include "table/screen.h"

namespace tarnwick {
namespace {

using testing::HasSubstr;
using testsupport::TemporaryFolder;

/// Rolls that tell where they come from: all 36 in turn from `start` on.
std::string Rolls(int count, int start = 0) {
    std::string bytes;
    for (int i = start; i < start + count; ++i) bytes += static_cast<char>(DiceByte(i % 6 + 1, i / 6 % 6 + 1));
    return bytes;
}

struct DiceFileEdit : testing::Test {
    DiceFileEdit() { t.Front = &Front; }
    void Open(const std::string& bytes) { ASSERT_EQ(OpenDiceRollFile(t, Folder.Write("a.rol", bytes)), ""); }
    std::string Work() const { return Folder.Path("work"); }
    std::vector<std::string> Messages() {
        std::vector<std::string> texts;
        for (const Message& message : Front.Shown) texts.push_back("[" + message.Title + "] " + message.Text);
        Front.Shown.clear();
        return texts;
    }
    void AnswerWith(int result, const std::string& input = {}) { Front.Answers.push_back({result, input, false}); }

    TemporaryFolder Folder;
    SilentScreen Front;
    std::unique_ptr<Table> Storage = std::make_unique<Table>();
    Table& t = *Storage;
};

TEST_F(DiceFileEdit, AgreesWithAStringInAnyOrderOfEdits) {
    std::filesystem::create_directory(Work());
    std::mt19937 random(7);
    const auto pick = [&random](std::size_t n) { return static_cast<std::int32_t>(random() % n); };
    std::string model = Rolls(20);
    std::string clipboard;
    Open(model);
    for (int step = 0; step < 600; ++step) {
        const auto length = static_cast<std::int32_t>(model.size());
        RollSelection at{1 + pick(model.size() + 1), pick(8)};
        at.Count = std::min(at.Count, length - at.First + 1);
        const auto offset = static_cast<std::size_t>(at.First - 1);
        const auto count = static_cast<std::size_t>(at.Count);
        const RollEntry entry = pick(2) == 0 ? RollEntry::Insert : RollEntry::TypeOver;
        const auto put = [&](const std::string& bytes) {
            const std::size_t over = entry == RollEntry::Insert ? 0 : std::min(bytes.size(), model.size() - offset);
            model.replace(offset, over, bytes);
        };
        std::string fault;
        switch (pick(5)) {
            case 0: {
                const int die1 = 1 + pick(6), die2 = 1 + pick(6);
                fault = EnterRoll(t, at, entry, die1, die2);
                put(std::string(1, static_cast<char>(DiceByte(die1, die2))));
                break;
            }
            case 1:
                fault = DeleteRolls(t, at);
                model.erase(offset, count);
                break;
            case 2:
                fault = CopyRolls(t, at, Work());
                clipboard = model.substr(offset, count);
                break;
            case 3:
                fault = CutRolls(t, at, Work());
                clipboard = model.substr(offset, count);
                model.erase(offset, count);
                break;
            default:
                if (!std::filesystem::exists(CopyFilePath(Work()))) break;
                fault = PasteRolls(t, at, entry, Work());
                put(clipboard);
                EXPECT_EQ(at, (RollSelection{static_cast<std::int32_t>(offset) + 1,
                                             static_cast<std::int32_t>(clipboard.size())}));
        }
        ASSERT_EQ(fault, "") << step;
        ASSERT_EQ(Folder.Read("a.rol"), model) << step;
        ASSERT_EQ(t.DiceFileLength, static_cast<std::int32_t>(model.size()));
        if (model.size() > 300) {
            ASSERT_EQ(DeleteRolls(t, AllRolls(t)), "");
            model.clear();
        }
    }
}

TEST_F(DiceFileEdit, AppliesToFilesOfManyBlocks) {
    const std::string rolls = Rolls(700'000);
    Open(rolls);
    RollSelection at{300'000, 0};
    ASSERT_EQ(PasteFromRollFile(t, at, RollEntry::Insert, Folder.Path("a.rol")), "") << "the open file itself";
    std::string wanted = rolls;
    wanted.insert(299'999, rolls);
    ASSERT_TRUE(Folder.Read("a.rol") == wanted);
    ASSERT_EQ(DeleteRolls(t, {2, 1'399'998}), "");
    EXPECT_EQ(Folder.Read("a.rol"), wanted.substr(0, 1) + wanted.substr(1'399'999));
}

TEST_F(DiceFileEdit, PlaybackStaysAtItsRoll) {
    struct {
        const char* Name;
        int Next, Last, End;
        std::function<std::string(Table&)> Edit;
        int NextAfter, LastAfter, EndAfter;
    } const cases[] = {
        // The file has ten rolls.
        {"ahead of it", 5, 4, 8,
         [](Table& u) {
             RollSelection s{2};
             return EnterRoll(u, s, RollEntry::Insert, 1, 1);
         },
         6, 5, 9},
        {"just at it", 5, 4, 8,
         [](Table& u) {
             RollSelection s{5};
             return EnterRoll(u, s, RollEntry::Insert, 1, 1);
         },
         6, 4, 9},
        {"behind it", 5, 4, 8,
         [](Table& u) {
             RollSelection s{9};
             return EnterRoll(u, s, RollEntry::Insert, 1, 1);
         },
         5, 4, 8},
        {"typed over", 5, 4, 8,
         [](Table& u) {
             RollSelection s{5};
             return EnterRoll(u, s, RollEntry::TypeOver, 1, 1);
         },
         5, 4, 8},
        {"behind the last", 11, 10, 0,
         [](Table& u) {
             RollSelection s{11};
             return EnterRoll(u, s, RollEntry::Insert, 1, 1);
         },
         11, 10, 0},
        {"at the end, ahead of it", 11, 10, 0,
         [](Table& u) {
             RollSelection s{4};
             return EnterRoll(u, s, RollEntry::Insert, 1, 1);
         },
         12, 11, 0},
        {"deleted ahead", 5, 4, 8,
         [](Table& u) {
             return DeleteRolls(u, {1, 2});
         },
         3, 2, 6},
        {"deleted with it", 5, 4, 8,
         [](Table& u) {
             return DeleteRolls(u, {4, 3});
         },
         4, 3, 5},
        {"deleted behind", 5, 4, 8,
         [](Table& u) {
             return DeleteRolls(u, {6, 5});
         },
         5, 4, 5},
        {"all deleted", 5, 4, 0, [](Table& u) { return DeleteRolls(u, AllRolls(u)); }, 1, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        Open(Rolls(10));
        t.DiceFileMode = 2;
        SetDiceFileNextRecord(t, c.Next);
        t.DiceFileLastRecord = c.Last;
        t.DiceFileEnd = c.End;
        ASSERT_EQ(c.Edit(t), "");
        EXPECT_EQ(t.DiceFileNextRecord, c.NextAfter);
        EXPECT_EQ(t.DiceFilePosition, c.NextAfter);
        EXPECT_EQ(t.DiceFileLastRecord, c.LastAfter);
        EXPECT_EQ(t.DiceFileEnd, c.EndAfter);
        EXPECT_EQ(t.DiceFileMode, 2);
    }
    Open(Rolls(10));
    t.DiceFileMode = 2;
    t.DiceFileEnd = 3;
    ASSERT_EQ(DeleteRolls(t, {1, 5}), "");
    EXPECT_EQ(t.DiceFileMode, 0) << "the whole stretch is gone, and the rest was not to be played";
}

TEST_F(DiceFileEdit, ThePlayedRollsAreTheEditedOnes) {
    Open(Rolls(5));
    ASSERT_TRUE(SetDiceFileMode(t, 2));
    ASSERT_EQ(PeekFileRoll(t), FileRoll::Ready);  // the block is in memory now
    RollSelection at{1};
    ASSERT_EQ(EnterRoll(t, at, RollEntry::TypeOver, 6, 5), "");
    EXPECT_EQ(at, (RollSelection{2, 1})) << "typing over goes on at the next roll";
    ASSERT_EQ(PeekFileRoll(t), FileRoll::Ready);
    NextFileRoll(t);
    EXPECT_EQ(t.Die1 * 10 + t.Die2, 65);
    ASSERT_TRUE(SetDiceFileMode(t, 1));
    SetDiceFileNextRecord(t, 6);
    ASSERT_TRUE(RecordRoll(t));  // not yet in the file
    ASSERT_EQ(DeleteRolls(t, {1, 5}), "");
    EXPECT_EQ(Folder.Read("a.rol"), std::string(1, static_cast<char>(DiceByte(6, 5))));
}

TEST_F(DiceFileEdit, RandomRollsComeFromTheGeneratorAndLeaveTheTableAlone) {
    Open("");
    t.Die1 = 2;
    t.Die2 = 6;
    SeedEverything(t, 5);
    RollSelection at;
    for (int i = 0; i < 50; ++i) ASSERT_EQ(EnterRandomRoll(t, at, RollEntry::Insert), "");
    EXPECT_EQ(t.Die1 * 10 + t.Die2, 26);
    std::string drawn;
    SeedEverything(t, 5);
    for (int i = 0; i < 50; ++i) {
        DrawDice(t);
        drawn += static_cast<char>(DiceByte(t.Die1, t.Die2));
    }
    EXPECT_EQ(Folder.Read("a.rol"), drawn);
}

TEST_F(DiceFileEdit, RefusalsChangeNothing) {
    const std::string rolls = Rolls(9);
    RollSelection at{3, 2};
    EXPECT_NE(EnterRoll(t, at, RollEntry::Insert, 1, 1), "") << "no file is open";
    Folder.Write("bad.rol", rolls + "\x01");
    Folder.Write("work", "");  // no folder
    struct {
        const char* Name;
        std::function<std::string(Table&)> Edit;
    } const cases[] = {
        {"die 0", [&](Table& u) { return EnterRoll(u, at, RollEntry::Insert, 0, 1); }},
        {"die 7", [&](Table& u) { return EnterRoll(u, at, RollEntry::TypeOver, 1, 7); }},
        {"low bits", [&](Table& u) { return PasteFromRollFile(u, at, RollEntry::Insert, Folder.Path("bad.rol")); }},
        {"nothing there", [&](Table& u) { return PasteFromRollFile(u, at, RollEntry::Insert, Folder.Path("none")); }},
        {"a device", [&](Table& u) { return PasteFromRollFile(u, at, RollEntry::Insert, "/dev/zero"); }},
        {"no text there",
         [&](Table& u) { return PasteFromTextFile(u, at, RollEntry::Insert, Folder.Path("none"), Folder.Path(".")); }},
        {"text from a device",
         [&](Table& u) { return PasteFromTextFile(u, at, RollEntry::Insert, "/dev/zero", Folder.Path(".")); }},
        {"no work folder", [&](Table& u) { return CutRolls(u, at, Work()); }},
        {"onto itself", [&](Table& u) { return CopyToRollFile(u, at, Folder.Path("./a.rol")); }},
        {"text onto itself",
         [&](Table& u) { return CopyToTextFile(u, at, Folder.Path("a.rol"), RollFormat("total"), true); }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        Open(rolls);
        SetDiceFileNextRecord(t, 4);
        EXPECT_NE(c.Edit(t), "");
        EXPECT_EQ(Folder.Read("a.rol"), rolls);
        EXPECT_EQ(t.DiceFileNextRecord, 4);
        EXPECT_EQ(at, (RollSelection{3, 2}));
        EXPECT_EQ(Folder.Count(), 3) << "nothing is left behind";
    }
    Open(rolls);
    Folder.Write("a.rol", rolls + rolls);
    EXPECT_EQ(DeleteRolls(t, at), "another program has changed the file");
    EXPECT_EQ(Folder.Read("a.rol"), rolls + rolls);
}

/// Sets how long a file may become, as a full disk would; a write beyond fails, or ends the process by a signal.
void LimitFiles(rlim_t bytes) {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
}

struct Edit {
    const char* Name;
    std::string (*Do)(Table&, const TemporaryFolder&);
};

const Edit Edits[] = {
    {"delete",
     [](Table& u, const TemporaryFolder&) {
         return DeleteRolls(u, {2, 3});
     }},
    {"insert",
     [](Table& u, const TemporaryFolder&) {
         RollSelection s{3};
         return EnterRoll(u, s, RollEntry::Insert, 1, 1);
     }},
    {"paste",
     [](Table& u, const TemporaryFolder& f) {
         RollSelection s{3};
         return PasteFromRollFile(u, s, RollEntry::Insert, f.Path("b.rol"));
     }},
    {"paste at the end",
     [](Table& u, const TemporaryFolder& f) {
         RollSelection s{41};
         return PasteFromRollFile(u, s, RollEntry::Insert, f.Path("b.rol"));
     }},
    {"import",
     [](Table& u, const TemporaryFolder& f) {
         RollSelection s{3};
         return PasteFromTextFile(u, s, RollEntry::TypeOver, f.Path("b.txt"), f.Path("."));
     }},
    {"append",
     [](Table& u, const TemporaryFolder&) {
         RollSelection s{41};
         return EnterRoll(u, s, RollEntry::Insert, 1, 1);
     }},
};

TEST_F(DiceFileEdit, AFullDiskOrACrashLeavesTheOldFileOrTheNew) {
    const std::string old = Rolls(40);
    Folder.Write("b.rol", Rolls(30, 100));
    Folder.Write("b.txt", std::string(80, '3'));
    signal(SIGXFSZ, SIG_IGN);
    for (const Edit& edit : Edits) {
        SCOPED_TRACE(edit.Name);
        Open(old);
        ASSERT_EQ(edit.Do(t, Folder), "");
        const std::string edited = Folder.Read("a.rol");
        ASSERT_NE(edited, old);
        for (std::size_t bytes = 0; bytes <= edited.size(); ++bytes) {
            Open(old);
            LimitFiles(bytes);
            const std::string fault = edit.Do(t, Folder);
            LimitFiles(RLIM_INFINITY);
            ASSERT_EQ(Folder.Read("a.rol"), fault.empty() ? edited : old) << bytes;
            ASSERT_EQ(t.DiceFileLength, static_cast<std::int32_t>(Folder.Read("a.rol").size()));
            ASSERT_EQ(fault.empty(), bytes == edited.size()) << bytes << fault;
            ASSERT_EQ(Folder.Count(), 3) << bytes;
            // The same as a crash: the signal ends the process at the write.
            Open(old);
            const pid_t child = fork();
            if (child == 0) {
                signal(SIGXFSZ, SIG_DFL);
                LimitFiles(bytes);
                edit.Do(t, Folder);
                _exit(0);
            }
            int status = 0;
            waitpid(child, &status, 0);
            const std::string left = Folder.Read("a.rol");
            ASSERT_TRUE(left == old || left == edited) << bytes;
            std::int32_t length = 0;
            ASSERT_EQ(CheckRollFile(Folder.Path("a.rol"), length), "");
            std::filesystem::remove(Folder.Path("a.rol.tmp~"));
            std::filesystem::remove(Folder.Path("cnvrtasc.xx~"));
            std::filesystem::remove(Folder.Path("cnvrtasc.xx~.tmp~"));
        }
    }
    signal(SIGXFSZ, SIG_DFL);
}

TEST_F(DiceFileEdit, FindsRolls) {
    Open(Rolls(36));  // roll n: dice (n-1)%6+1 and (n-1)/6+1
    struct {
        int From;
        RollPattern Pattern;
        int Found;
    } const cases[] = {{1, {1, 1, 0}, 1},  {2, {1, 1, 0}, 0},  {1, {0, 0, 7}, 6},    {7, {0, 0, 7}, 11},
                       {1, {0, 6, 0}, 31}, {-5, {6, 0, 0}, 6}, {36, {0, 0, 12}, 36}, {37, {}, 0},
                       {1, {0, 0, 13}, 0}, {4, {}, 4},         {1, {3, 0, 9}, 33}};
    for (const auto& c : cases) {
        std::int32_t found = -1;
        EXPECT_EQ(FindRoll(t, c.From, c.Pattern, found), "");
        EXPECT_EQ(found, c.Found) << c.From << ": " << c.Pattern.Die1 << c.Pattern.Die2 << " " << c.Pattern.Total;
    }
    for (const auto& [asked, held] : {std::pair{0, 1}, {1, 1}, {37, 37}, {38, 37}, {2'000'000'000, 37}}) {
        SetDiceFileNextRecord(t, asked);
        EXPECT_EQ(t.DiceFilePosition, held);
    }
    std::string bytes;
    EXPECT_EQ(ReadOpenRolls(t, 35, 10, bytes), "");
    EXPECT_EQ(bytes, Rolls(2, 34));
}

// --- commands ---

TEST_F(DiceFileEdit, CommandsAskAndTell) {
    const std::string a = Folder.Path("a.rol"), b = Folder.Path("b.rol"), text = Folder.Path("b.txt");
    Folder.Write("b.rol", "");
    Open(Rolls(3));
    const RollSelection all{1, 3}, tail{2, 2};
    struct {
        std::function<bool()> Do;
        int Answer;  ///< 0: no question
        bool Done;
        std::string Shown;
    } const cases[] = {
        {[&] { return CopyToRollFileCommand(t, all, a); }, 0, false,
         "[Copy To Dice Roll File] Can't use the Copy to Dice Roll File command to copy rolls to a file that's open "
         "and in "
         "use.\n\nPlease select another file name or use the Copy and Paste commands to modify the open file."},
        {[&] { return CopyToRollFileCommand(t, all, b); }, MsgAnswer::No, false,
         "[Copy To Dice Roll File] " + b + "\nis already on file.\nDo you want to copy over it?"},
        {[&] { return CopyToRollFileCommand(t, all, b); }, MsgAnswer::Yes, true,
         "[Copy To Dice Roll File] " + b + "\nis already on file.\nDo you want to copy over it?"},
        {[&] { return CopyToTextFileCommand(t, all, text, "(Die1.Die2"); }, 0, true, ""},
        {[&] { return CopyToTextFileCommand(t, all, text, "roll#"); }, 0, false,
         "[Copy Dice Rolls To Text File] You must include one or more pieces of dice roll information in your output "
         "format, such as Die1, Die2, or Total."},
        {[&] { return CopyToTextFileCommand(t, tail, text, "Roll# total"); }, MsgAnswer::Yes, true,
         "[Copy Dice Rolls To Text File] The rolls you've selected do not begin with roll #1.  Would you like to "
         "renumber "
         "them in the output starting with #1?"},
        {[&] { return CopyToTextFileCommand(t, tail, text, "total"); }, 0, true, ""},
        {[&] {
             return MayPrintRolls(t, {2, 0});
         },
         0, false, "[Print Dice Rolls] You haven't selected any dice rolls to print."},
        {[&] { return MayPrintRolls(t, tail); }, 0, true, ""},
        {[&] { return DiceRecorderCommand(t, 1); }, 0, true, ""},
        {[&] { return DiceRecorderCommand(t, 0); }, MsgAnswer::Yes, false,
         "[Dice Roll File] Recording stopped.\nRewind for playback?"},
        {[&] { return CloseDiceFileCommand(t); }, MsgAnswer::Yes, false,
         "[Dice Roll File] Playback stopped.\nRewind for playback?"},
        {[&] { return CloseDiceFileCommand(t); }, MsgAnswer::No, true,
         "[Dice Roll File] Playback stopped.\nRewind for playback?"},
        {[&] { return DiceRecorderCommand(t, 2); }, 0, false,
         "[Playback Dice Rolls During Game Play] You need to open a file first."},
        {[&] { return MayPrintRolls(t, tail); }, 0, false, "[Print Dice Rolls] There are no dice rolls to print."},
        {[&] { return OpenDiceFileCommand(t, Folder.Write("c.rol", "text")); }, 0, false,
         "[Unable to Open Dice Roll File] c.rol\nis either from an earlier version, has been corrupted, or is not a "
         "true "
         "Tarnwick dice roll file."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Shown);
        if (c.Answer != 0) AnswerWith(c.Answer);
        EXPECT_EQ(c.Do(), c.Done);
        EXPECT_EQ(Messages(), c.Shown.empty() ? std::vector<std::string>{} : std::vector<std::string>{c.Shown});
    }
    EXPECT_EQ(Folder.Read("b.rol"), Rolls(3));
    EXPECT_EQ(Folder.Read("b.txt"), "3 \r\n4 \r\n");
}

TEST_F(DiceFileEdit, CommandsWaitForRunsAndScripts) {
    Open(Rolls(3));
    RollSelection at;
    const std::string path = Folder.Path("a.rol");
    const std::function<bool()> commands[] = {
        [&] { return OpenDiceFileCommand(t, path); },
        [&] { return CloseDiceFileCommand(t); },
        [&] { return DiceRecorderCommand(t, 1); },
        [&] { return CopyToRollFileCommand(t, AllRolls(t), Folder.Path("n.rol")); },
        [&] { return CopyToTextFileCommand(t, AllRolls(t), Folder.Path("n.txt"), "total"); },
        [&] { return PasteFromRollFileCommand(t, at, RollEntry::Insert, path); },
        [&] { return PasteFromTextFileCommand(t, at, RollEntry::Insert, path, Folder.Path(".")); },
    };
    t.PlayerName[2] = "Bob";
    t.ScriptPlayer = 2;
    for (const auto& command : commands) {
        t.AutoRollActive = t.HyperDriveActive = true;
        AnswerWith(MsgAnswer::No);
        EXPECT_FALSE(command());
        t.HyperDriveActive = false;
        AnswerWith(MsgAnswer::No);
        EXPECT_FALSE(command());
        t.AutoRollActive = false;
        t.ScriptRunning = true;
        AnswerWith(MsgAnswer::No);
        EXPECT_FALSE(command());
        t.ScriptRunning = false;
        EXPECT_THAT(Messages(), testing::ElementsAre(HasSubstr("Do you want to stop the Hyper-Drive?"),
                                                     HasSubstr("Do you want to stop Auto-Rolling?"),
                                                     HasSubstr("Do you want to interrupt auto-betting?")));
    }
    EXPECT_EQ(Folder.Read("a.rol"), Rolls(3));
    EXPECT_EQ(Folder.Count(), 1);
    EXPECT_EQ(t.DiceFileMode, 0);
}

TEST_F(DiceFileEdit, AsksForAFormatUntilItIsOne) {
    std::string format = "Total";
    AnswerWith(MsgAnswer::Ok, "none");
    AnswerWith(MsgAnswer::Ok);  // the note that says why
    AnswerWith(MsgAnswer::Ok, "Die1-Die2");
    EXPECT_TRUE(AskRollFormat(t, format));
    EXPECT_EQ(format, "Die1-Die2");
    ASSERT_EQ(Front.Shown.size(), 3u);
    EXPECT_EQ(Front.Shown[0].Input, "Total");
    EXPECT_EQ(Front.Shown[0].Text,
              "Enter the format that you'd like to use to print rolls \nand/or to output rolls to a text file. ");
    EXPECT_EQ(Front.Shown[2].Input, "none") << "to be mended";
    AnswerWith(MsgAnswer::Cancel, "total");
    EXPECT_FALSE(AskRollFormat(t, format));
    EXPECT_EQ(format, "Die1-Die2");
    AnswerWith(MsgAnswer::Ok, "");
    EXPECT_FALSE(AskRollFormat(t, format)) << "a front end that never answers anything else ends the question";
}

}  // namespace
}  // namespace tarnwick
