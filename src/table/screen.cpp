#include "table/screen.h"

#include <algorithm>
#include <utility>

namespace tarnwick {

namespace {

Answer FirstButton(const Message& message) {
    constexpr std::pair<int, int> order[] = {{MsgButton::Ok, MsgAnswer::Ok},
                                             {MsgButton::No, MsgAnswer::No},
                                             {MsgButton::Cancel, MsgAnswer::Cancel},
                                             {MsgButton::Yes, MsgAnswer::Yes}};
    Answer answer;
    answer.Input = message.Input;
    for (const auto& [button, result] : order) {
        if ((message.Buttons & button) == 0) continue;
        answer.Result = result;
        break;
    }
    return answer;
}

}  // namespace

Answer SilentScreen::Show(const Message& message) {
    if (KeepShown) Shown.push_back(message);
    if (Answers.empty()) return FirstButton(message);
    Answer answer = std::move(Answers.front());
    Answers.pop_front();
    return answer;
}

int SilentScreen::AskSettleBet(const SettleQuestion& question) {
    if (KeepShown) Asked.push_back(question);
    const int closing = question.Choices.empty() ? 1 : question.Choices.front().Code;
    if (SettleCodes.empty()) return closing;
    const int code = SettleCodes.front();
    SettleCodes.pop_front();
    // A code that isn't offered can't be pressed.
    const bool offered = std::any_of(question.Choices.begin(), question.Choices.end(),
                                     [code](const SettleQuestion::Choice& choice) { return choice.Code == code; });
    return offered ? code : closing;
}

void SilentScreen::EventLogged(std::string_view line) {
    if (KeepShown) Logged.emplace_back(line);
}

}  // namespace tarnwick
