#include "table/messages.h"

#include <utility>

namespace tarnwick {

namespace {

/// The bit of NotifyBits that the message's hide box clears; 0 when it has none.
int NotifyBitOf(int buttons) {
    if (buttons & MsgButton::HideRefusals) return 1;
    if (buttons & MsgButton::HideLimits) return 2;
    if (buttons & MsgButton::HideCharges) return 4;
    return 0;
}

bool IsHidden(const Table& t, const Message& message) {
    const int bit = NotifyBitOf(message.Buttons);
    if (bit != 0) return (t.NotifyBits & bit) == 0;
    return (message.Buttons & MsgButton::HideOther) != 0 && t.HiddenTitles.count(message.Title) != 0;
}

/// What counts when nobody can be asked: the button that commits to nothing.
Answer UnaskedAnswer(const Message& message) {
    Answer answer;
    answer.Input = message.Input;
    if (message.Buttons & MsgButton::Cancel) {
        answer.Result = MsgAnswer::Cancel;
    } else if (message.Buttons & MsgButton::No) {
        answer.Result = MsgAnswer::No;
    }
    return answer;
}

void Hide(Table& t, const Message& message) {
    if (const int bit = NotifyBitOf(message.Buttons)) {
        t.NotifyBits &= ~bit;
        t.GameChanged = true;
    } else if (message.Buttons & MsgButton::HideOther) {
        t.HiddenTitles.insert(message.Title);
    }
}

}  // namespace

Answer ShowMessage(Table& t, const Message& message) {
    if (t.Front == nullptr || IsHidden(t, message)) return UnaskedAnswer(message);
    // The script may have ended by the time that the answer comes.
    const bool scriptWasRunning = t.ScriptRunning;
    Answer answer = t.Front->Show(message);
    if (answer.Hide) Hide(t, message);
    if (scriptWasRunning && answer.Result == MsgAnswer::Yes && message.Title == "Auto-Bet Active") {
        t.StopReason = "Auto-betting interrupted.";
    }
    return answer;
}

void ShowNote(Table& t, std::string title, std::string text, int buttons) {
    Message message;
    message.Title = std::move(title);
    message.Text = std::move(text);
    message.Buttons = buttons;
    ShowMessage(t, message);
}

bool AskYesNo(Table& t, std::string title, std::string text) {
    Message message;
    message.Title = std::move(title);
    message.Text = std::move(text);
    message.Buttons = MsgButton::YesNoQuestion;
    return ShowMessage(t, message).Result == MsgAnswer::Yes;
}

bool MayNotify(const Table& t, int bit) {
    if ((t.NotifyBits & bit) == 0 || t.HyperDriveActive) return false;
    return bit == 1 || !t.ScriptRunning;
}

void ReportFault(Table& t, int number, const std::string& procedure) {
    std::string text = ", Error #" + std::to_string(number) + "\n occurred, at: " + procedure;
    if (t.HyperDriveActive) {
        t.StopReason = std::move(text);
    } else {
        ShowNote(t, "Error", std::move(text), MsgButton::OkStop);
    }
}

}  // namespace tarnwick
