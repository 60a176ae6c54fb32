#include "table/messages.h"

#include <gmock/gmock.h>

#include <memory>

namespace tarnwick {
namespace {

struct MessagesTest : testing::Test {
    MessagesTest() { Game->Front = &Front; }

    void AnswerWith(int result, bool hide = false) {
        Answer answer;
        answer.Result = result;
        answer.Hide = hide;
        Front.Answers.push_back(answer);
    }

    std::unique_ptr<Table> Game = std::make_unique<Table>();
    Table& t = *Game;
    SilentScreen Front;
};

TEST_F(MessagesTest, HideBoxClearsItsBitAndSilencesItsKindOnly) {
    struct Case {
        int HideButton, Bit;
    };
    const Case cases[] = {{MsgButton::HideRefusals, 1}, {MsgButton::HideLimits, 2}, {MsgButton::HideCharges, 4}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Bit);
        t.NotifyBits = 15;
        Front.Shown.clear();
        AnswerWith(MsgAnswer::Ok, true);
        ShowNote(t, "First", "text", MsgButton::Ok | c.HideButton);
        EXPECT_EQ(t.NotifyBits, 15 - c.Bit);
        ShowNote(t, "Second", "text", MsgButton::Ok | c.HideButton);
        EXPECT_EQ(Front.Shown.size(), 1u);
        for (const Case& other : cases) {
            if (other.Bit != c.Bit) ShowNote(t, "Other", "text", MsgButton::Ok | other.HideButton);
        }
        ShowNote(t, "Plain", "text");
        EXPECT_EQ(Front.Shown.size(), 4u);
    }
}

TEST_F(MessagesTest, UncheckedHideBoxAndACheckWithoutABoxHideNothing) {
    AnswerWith(MsgAnswer::Ok, false);
    ShowNote(t, "Note", "text", MsgButton::OkStopHideRefusals);
    AnswerWith(MsgAnswer::Ok, true);
    ShowNote(t, "Note", "text", MsgButton::Ok);
    EXPECT_EQ(t.NotifyBits, 15);
    EXPECT_TRUE(t.HiddenTitles.empty());
}

TEST_F(MessagesTest, NotesWithoutABitAreHiddenByTheirTitle) {
    const int buttons = MsgButton::Ok | MsgButton::HideOther;
    AnswerWith(MsgAnswer::Ok, true);
    ShowNote(t, "Tip", "one", buttons);
    ShowNote(t, "Tip", "two", buttons);
    ShowNote(t, "Hint", "three", buttons);
    ASSERT_EQ(Front.Shown.size(), 2u);
    EXPECT_EQ(Front.Shown[1].Title, "Hint");
    EXPECT_EQ(t.NotifyBits, 15);
}

TEST_F(MessagesTest, YesToAnActiveScriptStopsIt) {
    struct Case {
        const char* Title;
        bool ScriptRunning;
        int Result;
        const char* StopReason;
    };
    const Case cases[] = {{"Auto-Bet Active", true, MsgAnswer::Yes, "Auto-betting interrupted."},
                          {"Auto-Bet Active", true, MsgAnswer::No, ""},
                          {"Auto-Bet Active", false, MsgAnswer::Yes, ""},
                          {"Auto-Roll Active", true, MsgAnswer::Yes, ""}};
    for (const Case& c : cases) {
        t.StopReason.clear();
        t.ScriptRunning = c.ScriptRunning;
        AnswerWith(c.Result);
        EXPECT_EQ(AskYesNo(t, c.Title, "?"), c.Result == MsgAnswer::Yes);
        EXPECT_EQ(t.StopReason, c.StopReason) << c.Title << c.ScriptRunning << c.Result;
    }
}

TEST_F(MessagesTest, WithNobodyToAskTheAnswerCommitsToNothing) {
    struct Case {
        int Buttons, Unasked, Silent;
    };
    const Case cases[] = {
        {MsgButton::Ok, MsgAnswer::Ok, MsgAnswer::Ok},
        {MsgButton::YesNoQuestion, MsgAnswer::No, MsgAnswer::No},
        {MsgButton::Yes | MsgButton::No | MsgButton::Cancel, MsgAnswer::Cancel, MsgAnswer::No},
        {MsgButton::InputQuestion, MsgAnswer::Cancel, MsgAnswer::Ok},
        {MsgButton::Yes, MsgAnswer::Ok, MsgAnswer::Yes},
    };
    for (const Case& c : cases) {
        Message message;
        message.Buttons = c.Buttons;
        message.Input = "12.50";
        t.Front = nullptr;
        EXPECT_EQ(ShowMessage(t, message).Result, c.Unasked) << c.Buttons;
        t.Front = &Front;
        const Answer silent = ShowMessage(t, message);
        EXPECT_EQ(silent.Result, c.Silent) << c.Buttons;
        EXPECT_EQ(silent.Input, "12.50");
    }
}

TEST_F(MessagesTest, MayNotifyFollowsBitsHyperDriveAndScripts) {
    struct Case {
        int NotifyBits;
        bool HyperDrive, ScriptRunning;
        bool May1, May2, May4;
    };
    const Case cases[] = {{15, false, false, true, true, true},   {15, false, true, true, false, false},
                          {15, true, false, false, false, false}, {0, false, false, false, false, false},
                          {2, false, false, false, true, false},  {5, false, false, true, false, true},
                          {5, false, true, true, false, false}};
    for (const Case& c : cases) {
        t.NotifyBits = c.NotifyBits;
        t.HyperDriveActive = c.HyperDrive;
        t.ScriptRunning = c.ScriptRunning;
        EXPECT_EQ(MayNotify(t, 1), c.May1) << c.NotifyBits << c.HyperDrive << c.ScriptRunning;
        EXPECT_EQ(MayNotify(t, 2), c.May2) << c.NotifyBits << c.HyperDrive << c.ScriptRunning;
        EXPECT_EQ(MayNotify(t, 4), c.May4) << c.NotifyBits << c.HyperDrive << c.ScriptRunning;
    }
}

TEST_F(MessagesTest, FaultsNameTheirProcedureAndGoToTheStopReasonInHyperDrive) {
    ReportFault(t, 6, "DrawTable");
    ASSERT_EQ(Front.Shown.size(), 1u);
    EXPECT_EQ(Front.Shown[0].Text, ", Error #6\n occurred, at: DrawTable");
    t.HyperDriveActive = true;
    ReportFault(t, 11, "Roll Dice");
    EXPECT_EQ(Front.Shown.size(), 1u);
    EXPECT_EQ(t.StopReason, ", Error #11\n occurred, at: Roll Dice");
}

TEST_F(MessagesTest, SilentScreenPressesOnlyChoicesThatAreOffered) {
    SettleQuestion question;
    question.Choices = {{1, "take"}, {3, "press"}};
    Front.SettleCodes = {3, 5};
    EXPECT_EQ(Front.AskSettleBet(question), 3);
    EXPECT_EQ(Front.AskSettleBet(question), 1);
    EXPECT_EQ(Front.AskSettleBet(question), 1);
    Front.KeepShown = false;
    Front.AskSettleBet(question);
    Front.EventLogged("line");
    EXPECT_EQ(Front.Asked.size(), 3u);
    EXPECT_TRUE(Front.Logged.empty());
}

}  // namespace
}  // namespace tarnwick
