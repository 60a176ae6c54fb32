// Hot keys pressed at a table.
#include "autobet/hotkeyrun.h"

#include <gmock/gmock.h>

#include "autobet/scripttable.h"
#include "support/temporaryfolder.h"
#include "table/placement.h"
#include "table/rundriver.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* NotFound =
    "[Hot-Key] The Auto-Bet file defined for that Hot-Key was not found in the specified location.\n\nPlease check the "
    "path and file name on the Hot-Key screen.";
constexpr const char* SyntaxError =
    "[Auto-Bet Script Error] The Auto-Bet script for this hot-key contains a syntax error which must be corrected "
    "before you can use it.";

struct HotKeyRunTest : testing::Test, ScriptTable {
    HotKeyRunTest() : ScriptTable(3) {
        T.GameFolder = Folder.Path("");
        Folder.Write("field.bet", "bet 5 on Field\n");
        Folder.Write("wrong.bet", "bet 5 on Field\nbet on\n");
        Folder.Write("empty.bet", "");
        Keys = {{"F", "", Folder.Path("field.bet")},
                {"R", "", "field.bet"},
                {"F", "the second", Folder.Path("wrong.bet")},
                {"W", "", Folder.Path("wrong.bet")},
                {"E", "", Folder.Path("empty.bet")},
                {"N", "", Folder.Path("none.bet")},
                {"D", "", Folder.Path("")}};
    }
    bool Press(char letter) { return RunHotKey(T, Scripts, Keys, letter); }
    std::vector<std::string> Messages() {
        std::vector<std::string> texts;
        for (const Message& message : Screen.Shown) texts.push_back("[" + message.Title + "] " + message.Text);
        Screen.Shown.clear();
        return texts;
    }

    testsupport::TemporaryFolder Folder;
    HotKeyList Keys;
};

TEST_F(HotKeyRunTest, EachKeyRunsItsFileOrSaysWhyNot) {
    struct Case {
        char Letter;
        bool Runs;
        const char* Told;
    };
    const Case cases[] = {
        {'F', true, ""},  // the first of two rows
        {'f', true, ""},           {'R', true, ""},        {'E', true, ""},
        {'W', false, SyntaxError}, {'N', false, NotFound}, {'D', false, NotFound},  // a folder is no file
        {'A', false, ""},                                                           // no row
        {'1', false, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Letter);
        T.ActivePlayer = 2;
        RemoveBet(T, 2, Row::Field);
        EXPECT_EQ(Press(c.Letter), c.Runs);
        const bool bets = c.Runs && c.Letter != 'E';
        EXPECT_EQ(Bet(2, Row::Field), bets ? Dollars(5) : currency{});
        const auto told = Messages();
        EXPECT_EQ(told.empty() ? "" : told.front(), c.Told);
        EXPECT_FALSE(T.ScriptRunning);
    }
    EXPECT_EQ(Bet(1, Row::Field), currency{}) << "only the bettor bets";
}

TEST_F(HotKeyRunTest, TheBettorOfTheMomentBets) {
    for (const int p : {3, 1}) {
        T.ActivePlayer = p;
        EXPECT_TRUE(Press('F'));
        EXPECT_EQ(Bet(p, Row::Field), Dollars(5)) << p;
    }
}

TEST_F(HotKeyRunTest, AKeyActsInAutoRollAndAsksInHyperDrive) {
    T.AutoRollActive = true;
    EXPECT_TRUE(Press('F'));
    EXPECT_THAT(Messages(), IsEmpty());

    T.HyperDriveActive = true;
    for (const int answer : {MsgAnswer::No, MsgAnswer::Yes}) {
        Screen.Answers = {{answer, {}, false}};
        EXPECT_FALSE(Press('F'));
        EXPECT_THAT(Messages(), ElementsAre("[Hyper-Drive Active] Do you want to stop the Hyper-Drive?"));
        EXPECT_EQ(T.AutoRollActive, answer == MsgAnswer::No);
    }
    EXPECT_EQ(Bet(1, Row::Field), Dollars(5));
}

TEST_F(HotKeyRunTest, NothingHappensWhileAnotherRuns) {
    struct PressingSteps : StepsView {
        HotKeyRunTest* Test = nullptr;
        int Presses = 0;
        StepAnswer ShowStep(const ScriptStep&) override {
            ++Presses;
            EXPECT_FALSE(Test->Press('F'));
            return StepAnswer::Next;
        }
    } pressing;
    pressing.Test = this;
    Scripts.View = &pressing;
    Scripts.StepsOn = true;
    EXPECT_TRUE(Press('F'));
    EXPECT_GT(pressing.Presses, 0);
    EXPECT_EQ(Bet(1, Row::Field), Dollars(5)) << "once only";
    EXPECT_THAT(Messages(), IsEmpty());
}

}  // namespace
}  // namespace tarnwick
