// Opening a game: what isn't one, the files that belong to it, the standing game, and saves that are cut off.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>

#include "autobet/autobets.h"
#include "dice/dicefile.h"
#include "dice/probabilityfile.h"
#include "files/gamefile.h"
#include "files/paths.h"
#include "support/fulltable.h"
#include "support/temporaryfolder.h"
#include "table/rolldice.h"
#include "table/session.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testsupport::TemporaryFolder;

class GameLinks : public testing::Test {
  protected:
    GameLinks() { SubMain(t, &Front); }

    std::vector<std::string> Messages() {
        std::vector<std::string> texts;
        for (const Message& message : Front.Shown) texts.push_back("[" + message.Title + "] " + message.Text);
        Front.Shown.clear();
        return texts;
    }
    std::string Path(const std::string& name) const { return Folder.Path(name); }
    bool Save() { return SaveGame(t, Path("game.crp"), UserPath); }
    /// Opens into a program that has just started.
    bool Open(const std::string& name = "game.crp") {
        SubMain(t, &Front);
        t.Scripts = &Scripts;
        return OpenGame(t, Path(name), UserPath);
    }
    void Age(const std::string& name) const {
        std::filesystem::last_write_time(Path(name),
                                         std::filesystem::last_write_time(Path(name)) - std::chrono::hours(30));
    }
    static std::size_t At(int i) { return static_cast<std::size_t>(i); }

    TemporaryFolder Folder;
    std::string UserPath = Folder.Path("");
    SilentScreen Front;
    AutoBets Scripts;
    std::unique_ptr<Table> Game = std::make_unique<Table>();
    Table& t = *Game;
};

TEST_F(GameLinks, WhatIsNoGameIsRefusedAndTheGameStands) {
    AddPlayer(t, 4, "Ada", Dollars(77));
    ASSERT_TRUE(Save());
    const std::string good = Folder.Read("game.crp");
    std::string other = good;
    other.replace(other.find("1.0f"), 4, "1.0e");
    const std::string none = "This is not a Tarnwick game file.\n\nx.crp";
    const std::string version =
        "This file appears to be from an incompatible version or is not a true Tarnwick game file.\n\nx.crp";
    const struct {
        std::string Bytes, Text;
    } cases[] = {{"", none},
                 {std::string(5000, 'x'), none},
                 {good.substr(0, 255), none},
                 {other, version},
                 {"Tarnwick Sessions Log, Data Format 5.0" + std::string(300, ' '), version}};
    for (const auto& c : cases) {
        Folder.Write("x.crp", c.Bytes);
        EXPECT_FALSE(OpenGame(t, Path("x.crp"), UserPath));
        EXPECT_THAT(Messages(), ElementsAre("[Unable to Open Tarnwick Game File] " + c.Text));
        EXPECT_EQ(t.PlayerName[4], "Ada");
        EXPECT_EQ(t.GameFileName, Path("game.crp"));
    }
    EXPECT_FALSE(OpenGame(t, Path("missing.crp"), UserPath));
    EXPECT_THAT(Messages(), ElementsAre("[Unable to Open Tarnwick Game File] " + Path("missing.crp") +
                                        "\ncan't be read: No such file or directory."));
    Folder.Write("x.crp", good.substr(0, 256 * 400));
    EXPECT_FALSE(OpenGame(t, Path("x.crp"), UserPath));
    EXPECT_THAT(Messages(), ElementsAre("[Error] , Error #62\n occurred, at: Open Game"));
}

TEST_F(GameLinks, DiceRollFilesComeBackWhereTheyWere) {
    AddPlayer(t, 1, "Ada", Dollars(77));
    t.ShooterBetRequirement = 0;
    const std::string rolls = Folder.Write("r.rol", std::string(10, '\x8c'));
    ASSERT_EQ(OpenDiceRollFile(t, rolls), "");
    SetDiceFileMode(t, 2);
    for (int i = 0; i < 4; ++i) RollDice(t);
    ASSERT_TRUE(Save());

    EXPECT_TRUE(Open());
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(t.DiceRollFileName, rolls);
    EXPECT_EQ(t.DiceFileMode, 2);
    EXPECT_EQ(t.DiceFileNextRecord, 5);
    EXPECT_EQ(t.DiceFileLastRecord, 4);
    RollDice(t);
    EXPECT_EQ(t.DiceTotal, 7);
    EXPECT_EQ(t.DiceFileNextRecord, 6);

    Age("r.rol");
    EXPECT_TRUE(Open());
    EXPECT_THAT(Messages(), ElementsAre("[Altered Dice Roll File] The following Dice Roll file (that was in use when "
                                        "this game was saved) has been changed:\n\n" +
                                        rolls));
    EXPECT_EQ(t.DiceRollFileName, rolls);
    EXPECT_EQ(t.DiceFileMode, 0);
    EXPECT_EQ(t.DiceFileNextRecord, 1);
    EXPECT_EQ(t.DiceFileLastRecord, 0);

    std::filesystem::remove(rolls);
    EXPECT_TRUE(Open());
    EXPECT_THAT(Messages(), ElementsAre("[Missing Dice Roll File] The following Dice Roll file (that was in use when "
                                        "this game was saved) was not found:\n\n" +
                                        rolls));
    EXPECT_EQ(t.DiceRollFileName, "");
    EXPECT_EQ(t.DiceFileMode, 0);
    RollDice(t);
}

TEST_F(GameLinks, RecordedRollsAreWrittenBeforeTheGameIs) {
    t.ShooterBetRequirement = 0;
    ASSERT_EQ(OpenDiceRollFile(t, Path("new.rol")), "");
    SetDiceFileMode(t, 1);
    t.Die1 = 3, t.Die2 = 4;
    ASSERT_TRUE(RecordRoll(t));  // in memory alone
    ASSERT_TRUE(Save());
    EXPECT_EQ(Folder.Read("new.rol"), "\x8c");
    EXPECT_TRUE(Open());
    EXPECT_THAT(Messages(), IsEmpty());  // the date is that of the write
    EXPECT_EQ(t.DiceFileMode, 1);
    PadRoll(t, 1, 1);
    EXPECT_EQ(Folder.Read("new.rol"), "\x8c\x24");

    // The game that is left writes its last rolls too.
    t.Die1 = t.Die2 = 6;
    ASSERT_TRUE(RecordRoll(t));
    Folder.Write("game.crp", Folder.Read("game.crp"));
    EXPECT_TRUE(OpenGame(t, Path("game.crp"), UserPath));
    EXPECT_EQ(Folder.Read("new.rol"), "\x8c\x24\xd8");
}

TEST_F(GameLinks, ScriptsAreLoadedFromTheirFiles) {
    for (int p = 1; p <= 3; ++p) AddPlayer(t, p, "P" + std::to_string(p), Dollars(100));
    t.Scripts = &Scripts;
    const std::string one = Folder.Write("one.bet", "bet 5 on passline\n");
    const std::string two = Folder.Write("two.bet", "bet 10 on field\n");
    for (const auto& [p, path] : {std::pair{1, one}, {2, two}}) {
        ASSERT_TRUE(Scripts.OpenScript(t, p, path));
        ASSERT_TRUE(Scripts.SetActive(t, p, true));
    }
    Scripts.SetActive(t, 2, false);
    ASSERT_TRUE(Save());
    ASSERT_TRUE(Open());
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_THAT(Scripts.ScriptLines(1), ElementsAre("bet 5 on passline"));
    EXPECT_THAT(Scripts.ScriptLines(2), ElementsAre("bet 10 on field"));
    EXPECT_THAT(Scripts.ScriptLines(3), IsEmpty());
    EXPECT_TRUE(t.ScriptOn[1]);
    EXPECT_FALSE(t.ScriptOn[2]);
    t.ShooterBetRequirement = 0;
    PadRoll(t, 1, 2);
    EXPECT_EQ(t.BetAmount(1, Row::PassLine), Dollars(5));

    Folder.Write("one.bet", "bet 6 on passline\n");
    Age("one.bet");
    std::filesystem::remove(two);
    ASSERT_TRUE(Open());
    EXPECT_THAT(Messages(), ElementsAre("[Auto-Bet File Changed] P1's auto-Bet file has been changed:\n\n" + one,
                                        "[Auto-Bet File Not Found] P2's auto-bet file was not found:\n\n" + two));
    EXPECT_THAT(Scripts.ScriptLines(1), ElementsAre("bet 6 on passline"));
    EXPECT_EQ(t.ScriptName[2], "");
    EXPECT_THAT(Scripts.ScriptLines(2), IsEmpty());
}

TEST_F(GameLinks, LogsAndProbabilitiesThatAreGoneAreTold) {
    AddPlayer(t, 2, "Ada", Dollars(100));
    t.SessionsLogName[2] = Folder.Write("far.slg", "log");
    t.EventsLogFileName = Folder.Write("events.txt", "log");
    ASSERT_TRUE(Save());
    ASSERT_TRUE(Open());
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(t.EventsLogFileName, Path("events.txt"));
    EXPECT_EQ(t.SessionsLogName[2], Path("far.slg"));

    std::filesystem::remove(Path("far.slg"));
    std::filesystem::remove(Path("events.txt"));
    ASSERT_TRUE(Open());
    const std::string sessions =
        "[Sessions Log Not Found] The following Sessions Log for Ada was not found: " + Path("far.slg") +
        "\n\nThe following ";
    EXPECT_THAT(Messages(),
                ElementsAre("[Missing Events Log] The following Events Log (that was open when this game was saved) "
                            "was not found.\n\n" +
                                Path("events.txt"),
                            sessions + "new Sessions Log will be created and opened instead:\n\n" + Path("ada.slg")));
    EXPECT_EQ(t.EventsLogFileName, "Events Log.txt");
    EXPECT_EQ(t.SessionsLogName[2], "ada.slg");

    Folder.Write("ada.slg", "log");
    Folder.Write("events.txt", "log");
    ASSERT_TRUE(Open());
    EXPECT_THAT(Messages(),
                ElementsAre(sessions + "existing Sessions Log will be opened instead:\n\n" + Path("ada.slg")));
}

TEST_F(GameLinks, NamesThatTheFormatCannotHoldAreTold) {
    AddPlayer(t, 2, "Ada", Dollars(100));
    const std::string farAway = Path(std::string(200, 'x') + ".bet");
    t.ScriptName[2] = farAway;
    t.EventsLogFileName = Folder.Write("\xE6\x97\xA5.txt", "a character of another page");
    ASSERT_TRUE(Save());
    EXPECT_THAT(Messages(), ElementsAre("[Save Session File] A session file can't hold these file names, so they are "
                                        "not kept:\n\n" +
                                        t.EventsLogFileName + "\n\n" + farAway));
}

// --- the matrix ---

TEST_F(GameLinks, OnlyTheStandingGameKeepsAnUnsavedMatrix) {
    const auto saved = t.ProbabilityMatrix;
    ASSERT_EQ(SaveProbabilities(t, Path("dice.prb")), "");
    ASSERT_TRUE(OpenProbabilities(t, Path("dice.prb")));
    ASSERT_TRUE(Save());
    ASSERT_TRUE(Open());
    EXPECT_EQ(t.ProbabilityFileName, Path("dice.prb"));
    EXPECT_EQ(t.ProbabilityMatrix, saved);

    std::swap(t.ProbabilityMatrix[1][2][1], t.ProbabilityMatrix[1][1][7]);
    const auto changed = t.ProbabilityMatrix;
    t.ProbabilitiesChanged = true;
    ASSERT_TRUE(Save());
    ASSERT_TRUE(SaveGameAtExit(t, UserPath));
    ASSERT_TRUE(Open());  // both fields are empty
    EXPECT_EQ(t.ProbabilityFileName, "");
    EXPECT_FALSE(t.ProbabilitiesChanged);
    EXPECT_EQ(t.ProbabilityMatrix, saved) << "the true matrix";
    ASSERT_TRUE(Open("default.crp"));
    EXPECT_TRUE(t.ProbabilitiesChanged);
    EXPECT_EQ(t.ProbabilityFileName, "");
    EXPECT_EQ(t.ProbabilityMatrix, changed);
    EXPECT_THAT(Messages(), IsEmpty());

    std::filesystem::remove(Path("default.prb"));
    ASSERT_TRUE(Open("default.crp"));
    EXPECT_THAT(Messages(), ElementsAre("[Missing Probability File] The following Probability file (that was in use "
                                        "when this game was saved) was not found:\n\n" +
                                        Path("default.prb")));
}

TEST_F(GameLinks, AGameWithoutAMatrixHasTheTrueOne) {
    ASSERT_TRUE(Save());
    t.ProbabilityMatrix[1][2][1] = 77;
    t.ProbabilityFileName = "other.prb";
    ASSERT_TRUE(OpenGame(t, Path("game.crp"), UserPath));
    const auto fresh = std::make_unique<Table>();
    SubMain(*fresh, nullptr);
    EXPECT_EQ(t.ProbabilityMatrix, fresh->ProbabilityMatrix);
    EXPECT_EQ(t.ProbabilityFileName, "");
}

// --- the standing game ---

TEST_F(GameLinks, TheStandingGameComesBackAtTheNextStart) {
    EXPECT_FALSE(OpenGameAtStart(t, "", UserPath));  // the first start of all
    EXPECT_THAT(Messages(), IsEmpty());
    AddPlayer(t, 6, "Ada", Dollars(77));
    t.Placement(Form::main) = {false, 1, 2, 3, 4};
    t.Placement(Form::frmMove).Left = 99;
    EXPECT_EQ(AskAboutUnsavedGame(t), UnsavedGame::Discard);
    EXPECT_THAT(Messages(), ElementsAre("[Save Session] Your current session has not been saved.\n\nDo you want to "
                                        "save it now?"));
    ASSERT_TRUE(Save());
    EXPECT_EQ(AskAboutUnsavedGame(t), UnsavedGame::Unchanged);
    EXPECT_EQ(GameTitle(t), "Tarnwick (game.crp)");
    ASSERT_TRUE(SaveGameAtExit(t, UserPath));
    EXPECT_EQ(GameTitle(t), "Tarnwick");

    const struct {
        std::string Given, Title;
        std::int32_t MainLeft;
        std::vector<std::string> Told;
    } starts[] = {{"", "Tarnwick", 0, {}},
                  {Path("game.crp"), "Tarnwick (game.crp)", 1, {}},
                  {"game.txt",
                   "Tarnwick",
                   0,
                   {"[Unable to Open Tarnwick Game File] This is not recognized as a Tarnwick game filename.\nThe last "
                    "default game file will be opened instead."}}};
    for (const auto& start : starts) {
        SubMain(t, &Front);
        EXPECT_TRUE(OpenGameAtStart(t, start.Given, UserPath)) << start.Given;
        EXPECT_EQ(t.PlayerName[6], "Ada");
        EXPECT_EQ(GameTitle(t), start.Title);
        EXPECT_EQ(t.Placement(Form::main).Left, start.MainLeft);
        EXPECT_EQ(t.Placement(Form::frmMove).Left, 99);
        EXPECT_EQ(Messages(), start.Told);
    }
    std::filesystem::remove(Path("default.crp"));
    SubMain(t, &Front);
    EXPECT_FALSE(OpenGameAtStart(t, "game.txt", UserPath));
    EXPECT_THAT(Messages(), ElementsAre("[Unable to Open Tarnwick Game File] This is not recognized as a Tarnwick game "
                                        "filename."));
    EXPECT_EQ(t.PlayerCount, 0);
}

// --- saves that are cut off ---

/// Saves in a process of its own that may write `bytes` to a file; more kills it, or fails when `fails`.
void SaveWithin(Table& t, const std::string& path, const std::string& userFolder, std::size_t bytes, bool fails) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const rlimit limit{bytes, bytes};
        setrlimit(RLIMIT_FSIZE, &limit);
        const rlimit noCore{0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        std::signal(SIGXFSZ, fails ? SIG_IGN : SIG_DFL);
        _exit(SaveGame(t, path, userFolder) ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
}

TEST_F(GameLinks, ASaveThatIsCutLeavesTheOldFileOrTheNewOne) {
    AddPlayer(t, 1, "Ada", Dollars(100));
    ASSERT_TRUE(Save());
    const std::string before = Folder.Read("game.crp");
    AddPlayer(t, 2, "Eve", Dollars(200));
    ASSERT_TRUE(SaveGame(t, Path("other.crp"), UserPath));
    const std::string after = Folder.Read("other.crp");
    int kept = 0, replaced = 0;
    for (std::size_t bytes = 0; bytes <= after.size() + 32'768; bytes += 32'768) {
        for (const bool fails : {false, true}) {
            Folder.Write("game.crp", before);
            SaveWithin(t, Path("game.crp"), UserPath, bytes, fails);
            const std::string now = Folder.Read("game.crp");
            ASSERT_TRUE(now == before || now == after) << bytes;
            ++(now == before ? kept : replaced);
            if (fails) {
                EXPECT_FALSE(std::filesystem::exists(Path("game.crp.tmp~"))) << bytes;
            }
        }
    }
    EXPECT_GT(kept, 20);
    EXPECT_GT(replaced, 0);
    t.GameChanged = true;
    EXPECT_FALSE(SaveGame(t, Path("no/such/folder.crp"), UserPath));
    EXPECT_TRUE(t.GameChanged);
    EXPECT_THAT(Messages(), ElementsAre("[Unable to Save Tarnwick Game File] " + Path("no/such/folder.crp") +
                                        "\ncan't be written: No such file or directory."));
}

// --- names ---

TEST(Paths, TheUserFolderFollowsTheEnvironment) {
    EXPECT_EQ(UserFolder("/a", "/b", "/c"), "/a");
    EXPECT_EQ(UserFolder("", "/b", "/c"), "/b/tarnwick");
    EXPECT_EQ(UserFolder("", "", "/c"), "/c/.local/share/tarnwick");
    EXPECT_EQ(UserFolder("", "", ""), "");
}

TEST(Paths, NamesWithAFolderKeepIt) {
    const char* const cases[][3] = {{"/u", "a.slg", "/u/a.slg"},
                                    {"/u", "/v/a.slg", "/v/a.slg"},
                                    {"/u", "C:\\a.slg", "C:\\a.slg"},
                                    {"", "a.slg", "a.slg"},
                                    {"/u", "sub/a.slg", "sub/a.slg"}};
    for (const auto& c : cases) EXPECT_EQ(PathIn(c[0], c[1]), c[2]);
    EXPECT_EQ(ShortName("/a/b.crp"), "b.crp");
    EXPECT_EQ(ShortName("C:\\x\\b.crp"), "b.crp");
}

}  // namespace
}  // namespace tarnwick
