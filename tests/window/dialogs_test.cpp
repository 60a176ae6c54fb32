// The dialogs in which the table speaks and asks.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "display/messagedialog.h"
#include "display/newsessiondialog.h"
#include "display/settlebetdialog.h"
#include "table/session.h"
#include "window/windows.h"

namespace tarnwick {
namespace {

void Press(QDialog& dialog, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(dialog.windowHandle(), key, modifiers);
}

TEST(MessageDialogTest, KeysAnswerAsPeopleExpect) {
    struct Case {
        int buttons;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int result;
    };
    const Case cases[] = {
        {MsgButton::Ok, Qt::Key_Return, {}, MsgAnswer::Ok},
        {MsgButton::OkStop, Qt::Key_Escape, {}, MsgAnswer::Ok},
        {MsgButton::YesNoQuestion, Qt::Key_Return, {}, MsgAnswer::Yes},
        {MsgButton::YesNoQuestion, Qt::Key_Escape, {}, MsgAnswer::No},
        {MsgButton::YesNoQuestion, Qt::Key_N, Qt::AltModifier, MsgAnswer::No},
        {MsgButton::Yes | MsgButton::No | MsgButton::Cancel, Qt::Key_Escape, {}, MsgAnswer::Cancel},
        {MsgButton::InputQuestion, Qt::Key_Return, {}, MsgAnswer::Ok},
        {MsgButton::InputQuestion, Qt::Key_Escape, {}, MsgAnswer::Cancel},
    };
    for (const Case& c : cases) {
        Message message;
        message.Title = "Title";
        message.Text = "One line\n\nand another";
        message.Buttons = c.buttons;
        MessageDialog dialog(message, nullptr);
        DialogDriver driver({[&c](QDialog& shown) { Press(shown, c.key, c.modifiers); }});
        EXPECT_EQ(dialog.Ask().Result, c.result) << c.buttons << " key " << c.key;
    }
}

TEST(MessageDialogTest, TypedTextAndTheHideBoxComeBack) {
    Message message;
    message.Title = "Bankroll";
    message.Text = "How much would Ann like to buy-in for?";
    message.Buttons = MsgButton::InputQuestion;
    message.Input = "500";
    MessageDialog input(message, nullptr);
    DialogDriver typing({[](QDialog& shown) {
        Type(shown, "1250");  // the offered text is selected, so typing replaces it
        Press(shown, Qt::Key_Return);
    }});
    EXPECT_EQ(input.Ask().Input, "1250");

    message.Buttons = MsgButton::OkStopHideRefusals;
    MessageDialog note(message, nullptr);
    ASSERT_NE(note.findChild<QCheckBox*>("chkHide"), nullptr);
    DialogDriver hiding({[](QDialog& shown) {
        shown.findChild<QCheckBox*>("chkHide")->setChecked(true);
        Press(shown, Qt::Key_Return);
    }});
    EXPECT_TRUE(note.Ask().Hide);
}

TEST(MessageDialogTest, TextIsNeverTakenForMarkup) {
    Message message;
    message.Text = "<b>Ann & Bob</b>";
    MessageDialog dialog(message, nullptr);
    const auto* text = dialog.findChild<QLabel*>("lblText");
    EXPECT_EQ(text->text(), "<b>Ann & Bob</b>");
    EXPECT_EQ(text->textFormat(), Qt::PlainText);
}

struct SettleDialogTest : testing::Test {
    Table T;
    SettleQuestion Question;
    void SetUp() override {
        SubMain(T, nullptr);
        Question.Position = 2;
        Question.BetRow = 35;
        Question.Lines = {{"Bob wins!", ""}, {"Place 9 bet:", "$5"}};
        Question.Choices = {{1, "&Take Bet and Winnings"}, {2, "&Same Bet - Take Winnings"}, {6, ""}, {7, ""}};
    }
};

TEST_F(SettleDialogTest, EachWayOutGivesItsCode) {
    const std::pair<std::function<void(QDialog&)>, int> cases[] = {
        {[](QDialog& d) { Press(d, Qt::Key_Return); }, 1},
        {[](QDialog& d) { Press(d, Qt::Key_Escape); }, 1},
        {[](QDialog& d) { Press(d, Qt::Key_S, Qt::AltModifier); }, 2},
        {[](QDialog& d) { Press(d, Qt::Key_M, Qt::AltModifier); }, 6},
        {[](QDialog& d) { Press(d, Qt::Key_B, Qt::AltModifier); }, 7},
    };
    for (const auto& [step, code] : cases) {
        SettleBetDialog dialog(T, Question, nullptr);
        DialogDriver driver({step});
        EXPECT_EQ(dialog.Ask(), code);
    }
}

TEST_F(SettleDialogTest, TheArithmeticRowsKeepTheirValuesInThePlayersSlots) {
    for (const bool winner : {true, false}) {
        Question.Winner = winner;
        const std::size_t same = winner ? 0 : 2, exact = same + 1;
        SettleBetDialog dialog(T, Question, nullptr);
        auto* sign = dialog.findChild<QPushButton*>("cmdMathOperator");
        auto* unit = dialog.findChild<QPushButton*>("cmdUnits6");
        for (const char* text : {"-", "x", "/", "+", "-"}) {
            sign->click();
            EXPECT_EQ(sign->text(), text);
        }
        for (const char* text : {"%", "$1 Units", "$5 Units"}) {
            unit->click();
            EXPECT_EQ(unit->text(), text);
        }
        auto* amount = dialog.findChild<QLineEdit*>("txtModifyAmount7");
        amount->clear();
        QTest::keyClicks(amount, "1a2.5");
        EXPECT_EQ(T.HandleOperator[2][same], 1);
        EXPECT_EQ(T.HandleUnit[2][same], 3);
        EXPECT_EQ(T.HandleAmount[2][exact], currency{125'000});
        amount->setText("99999999");
        EXPECT_EQ(T.HandleAmount[2][exact], currency{125'000}) << "beyond 9,999,999.9999 nothing is taken";
    }
}

TEST(NewSessionDialogTest, OptionsFollowTheBoxes) {
    NewSessionDialog dialog(true, nullptr);
    EXPECT_TRUE(dialog.Options().KeepData);
    EXPECT_EQ(dialog.Options().File, SessionOptions::DiceFile::Continue);
    dialog.findChild<QCheckBox*>("chkKeepData")->setChecked(false);
    dialog.findChild<QCheckBox*>("chkKeepStacks")->setChecked(true);
    dialog.findChild<QAbstractButton*>("optRewind")->click();
    EXPECT_FALSE(dialog.Options().KeepData);
    EXPECT_TRUE(dialog.Options().KeepCheckStacks);
    EXPECT_EQ(dialog.Options().File, SessionOptions::DiceFile::Rewind);
    dialog.findChild<QCheckBox*>("chkKeepDiceFile")->setChecked(false);
    EXPECT_EQ(dialog.Options().File, SessionOptions::DiceFile::Drop);

    const NewSessionDialog without(false, nullptr);
    EXPECT_EQ(without.Options().File, SessionOptions::DiceFile::Drop);
}

}  // namespace
}  // namespace tarnwick
