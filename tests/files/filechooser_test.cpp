#include "files/filechooser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "support/temporaryfolder.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testsupport::TemporaryFolder;

TEST(FileChooser, TypeLinesGivePatterns) {
    EXPECT_THAT(PatternsOf("Session files (*.crp)"), ElementsAre("*.crp"));
    EXPECT_THAT(PatternsOf("Auto-bet & text files (*.bet;*.txt)"), ElementsAre("*.bet", "*.txt"));
    EXPECT_THAT(PatternsOf("no pattern"), IsEmpty());
    EXPECT_THAT(PatternsOf("odd )("), IsEmpty());
    const struct {
        const char *Name, *Pattern;
        bool Fits;
    } cases[] = {{"a.crp", "*.crp", true},
                 {"A.CRP", "*.crp", true},
                 {"a.crp.txt", "*.crp", false},
                 {"noextension", "*.*", true},
                 {"abcb.txt", "a*b.t?t", true},
                 {"abc.txt", "a*b.t?t", false},
                 {"", "*", true},
                 {"a", "", false}};
    for (const auto& c : cases) EXPECT_EQ(FitsPattern(c.Name, c.Pattern), c.Fits) << c.Name << " " << c.Pattern;
}

TEST(FileChooser, NamesBecomePaths) {
    const struct {
        const char *Name, *Folder, *Type, *Path;
    } cases[] = {{"game", "/u", "Session files (*.crp)", "/u/game.crp"},
                 {"game.old", "/u", "Session files (*.crp)", "/u/game.old"},
                 {"game", "/u", "All files (*.*)", "/u/game"},
                 {"game", "/u", "Auto-bet & text files (*.bet;*.txt)", "/u/game.bet"},
                 {"/v/game", "/u", "Session files (*.crp)", "/v/game.crp"},
                 {"C:game", "/u", "Session files (*.crp)", "C:game.crp"},
                 {"v.d/game", "/u", "Session files (*.crp)", "v.d/game.crp"}};
    for (const auto& c : cases) EXPECT_EQ(CompletePath(c.Name, c.Folder, c.Type), c.Path) << c.Name;
}

class FileChooserQuestions : public testing::Test {
  protected:
    FileChooserQuestions() { SubMain(t, &Front); }
    NameChoice Accept(FilePurpose purpose, const std::string& name) {
        Path.clear();
        Front.Shown.clear();
        return AcceptFileName(t, purpose, name, Folder.Path(""), InfoOf(purpose).Types.front(), Path);
    }
    std::string Told() const {
        return Front.Shown.empty() ? "" : "[" + Front.Shown.back().Title + "] " + Front.Shown.back().Text;
    }
    void AnswerYes() {
        Answer yes;
        yes.Result = MsgAnswer::Yes;
        Front.Answers.push_back(yes);
    }

    TemporaryFolder Folder;
    SilentScreen Front;
    std::unique_ptr<Table> Game = std::make_unique<Table>();
    Table& t = *Game;
    std::string Path;
};

TEST_F(FileChooserQuestions, EachCheckHasItsWords) {
    Folder.Write("old.crp", "");
    Folder.Write("old.rol", "");
    Folder.Write("old.txt", "");
    std::filesystem::create_directory(Folder.Path("folder.crp"));
    using P = FilePurpose;
    using C = NameChoice;
    const struct {
        P Purpose;
        const char* Name;
        C Choice;
        const char* Told;
    } cases[] = {
        {P::OpenSession, "", C::Stay, "[Missing Filename] Please enter a file name."},
        {P::OpenSession, "  ", C::Stay, "[Missing Filename] Please enter a file name."},
        {P::OpenSession, "*.txt", C::Pattern, ""},
        {P::OpenSession, "none", C::Stay, "[Error] File not found\nCheck path and file name"},
        {P::OpenSession, "old", C::Use, ""},
        {P::OpenSession, "folder", C::Stay, "[Error] Path, file, or device error."},
        {P::SaveSessionAs, "new", C::Use, ""},
        {P::SaveSessionAs, "/no/such/folder/new", C::Stay, "[Error] Path, file, or device error."},
        {P::SaveSessionAs, "old", C::Stay,
         "[Save Session File As] old.crp\nis already on file.\nDo you want to overwrite it?"},
        {P::CopyToDiceRolls, "old", C::Stay,
         "[Copy To Dice Roll File] old.rol\nis already on file.\nDo you want to copy over it?"},
        {P::CopyToText, "old", C::Stay,
         "[Copy To Text File] old.txt\nis already on file.\nDo you want to copy over it?"},
        {P::OpenDiceRolls, "new", C::Use, ""},
        {P::OpenDiceRolls, "old", C::Use, ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Accept(c.Purpose, c.Name), c.Choice) << c.Name;
        EXPECT_EQ(Told(), c.Told) << c.Name;
        EXPECT_EQ(Path.empty(), c.Choice != C::Use) << c.Name;
    }
    AnswerYes();
    EXPECT_EQ(Accept(P::SaveSessionAs, "old"), C::Use);
    EXPECT_EQ(Path, Folder.Path("old.crp"));
}

TEST_F(FileChooserQuestions, DeletingWarnsOfOpenFiles) {
    t.DiceRollFileName = "/a/open.rol";
    t.PlayerName[3] = "Eve";
    t.ScriptName[3] = "/a/eve.bet";
    const std::string question = "[Delete File] Are you sure you want to delete:\n";
    EXPECT_FALSE(AskDeleteFile(t, "/a/b.txt"));
    EXPECT_EQ(Told(), question + "/a/b.txt");
    AskDeleteFile(t, "/a/open.rol");
    EXPECT_EQ(Told(), question + "/a/open.rol\n\nThis Dice Roll File is open.");
    AskDeleteFile(t, "/a/eve.bet");
    EXPECT_EQ(Told(), question + "/a/eve.bet\n\nThis is Eve's Auto-Bet file.");
    AnswerYes();
    EXPECT_TRUE(AskDeleteFile(t, "/a/b.txt"));
}

TEST(FileChooser, EveryPurposeStandsAtItsPlace) {
    for (int i = 0; i <= static_cast<int>(FilePurpose::SaveProbabilitiesAs); ++i) {
        const auto purpose = static_cast<FilePurpose>(i);
        EXPECT_EQ(InfoOf(purpose).Purpose, purpose);
        EXPECT_FALSE(PatternsOf(InfoOf(purpose).Types.front()).empty());
    }
}

TEST(SoundSetsOfAFolder, AreFoundByTheirNames) {
    const std::vector<std::string> files = {"Joe01.stk", "Joe02.STK", "Ann12.stk", "Bad1.stk", "01.stk", "soft.dce",
                                            "hard.dce",  "Chips.win", "coin.win",  "clay.chp", "readme"};
    EXPECT_THAT(StickPersonSets(files), ElementsAre("Ann", "Joe"));
    EXPECT_THAT(SoundSets(files, ".dce"), ElementsAre("hard", "soft"));
    EXPECT_THAT(SoundSets(files, ".win"), ElementsAre("coin"));
    EXPECT_EQ(FirstSoundSet(SoundSets(files, ".dce"), "soft"), 2);
    EXPECT_EQ(FirstSoundSet(SoundSets(files, ".chp"), "soft"), 1);
    EXPECT_EQ(FirstSoundSet({}, "soft"), 0);
}

}  // namespace
}  // namespace tarnwick
