#include "lab/consolescreen.h"

#include <gmock/gmock.h>

namespace tarnwick::lab {
namespace {

Message WithButtons(int buttons) {
    Message message;
    message.Buttons = buttons;
    message.Input = "500";
    return message;
}

TEST(ConsoleAnswers, WordsPressButtonsAndTextGoesIntoTheInputLine) {
    constexpr int none = -1;
    struct Case {
        const char* Name;
        int Buttons;
        Word Typed;
        int Result;
        const char* Input;
    };
    const Case cases[] = {
        {"yes", MsgButton::YesNoQuestion, {"YES"}, MsgAnswer::Yes, "500"},
        {"no", MsgButton::YesNoQuestion, {"no"}, MsgAnswer::No, "500"},
        {"no such button", MsgButton::YesNoQuestion, {"cancel"}, none, ""},
        {"no input line", MsgButton::YesNoQuestion, {"12"}, none, ""},
        {"the offered amount", MsgButton::InputQuestion, {"ok"}, MsgAnswer::Ok, "500"},
        {"cancel", MsgButton::InputQuestion, {"cancel"}, MsgAnswer::Cancel, "500"},
        {"an amount", MsgButton::InputQuestion, {"750"}, MsgAnswer::Ok, "750"},
        {"a word that is no button here", MsgButton::InputQuestion, {"yes"}, MsgAnswer::Ok, "yes"},
        {"a name like a button", MsgButton::InputQuestion, {"Cancel", true}, MsgAnswer::Ok, "Cancel"},
        {"nothing", MsgButton::InputQuestion, {"", true}, MsgAnswer::Ok, ""},
        {"a choice of the list", MsgButton::Ok | MsgButton::UserList, {"2"}, MsgAnswer::Ok, "2"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        const auto answer = AnswerFor(WithButtons(c.Buttons), c.Typed);
        EXPECT_EQ(answer ? answer->Result : none, c.Result);
        if (answer) {
            EXPECT_EQ(answer->Input, c.Input);
        }
    }
}

TEST(ConsoleAnswers, NobodyToAskMeansTheCautiousButton) {
    struct Case {
        int Buttons, Result;
        bool Note;
    };
    const Case cases[] = {{MsgButton::Ok, MsgAnswer::Ok, true},
                          {MsgButton::OkStopHideRefusals, MsgAnswer::Ok, true},
                          {MsgButton::YesNoQuestion, MsgAnswer::No, false},
                          {MsgButton::InputQuestion, MsgAnswer::Cancel, false},
                          {MsgButton::Yes | MsgButton::No | MsgButton::Cancel, MsgAnswer::Cancel, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Buttons);
        EXPECT_EQ(DefaultAnswer(WithButtons(c.Buttons)).Result, c.Result);
        EXPECT_EQ(IsNote(WithButtons(c.Buttons)), c.Note);
    }
}

}  // namespace
}  // namespace tarnwick::lab
