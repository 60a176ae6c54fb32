#include "lab/consolescreen.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "lab/interrupt.h"
#include "lab/labtable.h"
#include "table/format.h"
#include "table/rundriver.h"

namespace tarnwick::lab {

namespace {

struct ButtonWord {
    std::string_view Text;
    int Button;
    int Result;
};

constexpr ButtonWord ButtonWords[] = {{"ok", MsgButton::Ok, MsgAnswer::Ok},
                                      {"yes", MsgButton::Yes, MsgAnswer::Yes},
                                      {"no", MsgButton::No, MsgAnswer::No},
                                      {"cancel", MsgButton::Cancel, MsgAnswer::Cancel}};

constexpr int Inputs = MsgButton::Input | MsgButton::SecondInput | MsgButton::UserList;

bool Has(const Message& message, int button) { return (message.Buttons & button) != 0; }

std::string WithoutMnemonics(std::string_view caption) {
    std::string text;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size()) ++i;
        text += caption[i];
    }
    return text;
}

}  // namespace

bool IsNote(const Message& message) {
    return !Has(message, MsgButton::Yes | MsgButton::No | MsgButton::Cancel | Inputs);
}

std::optional<Answer> AnswerFor(const Message& message, const Word& answer) {
    if (!answer.Quoted) {
        const std::string word = LowerCase(answer.Text);
        for (const ButtonWord& button : ButtonWords) {
            if (word == button.Text && Has(message, button.Button)) return Answer{button.Result, message.Input, false};
        }
    }
    if (Has(message, Inputs)) return Answer{MsgAnswer::Ok, answer.Text, false};
    return std::nullopt;
}

Answer DefaultAnswer(const Message& message) {
    int result = MsgAnswer::Ok;
    if (Has(message, MsgButton::No)) result = MsgAnswer::No;
    if (Has(message, MsgButton::Cancel)) result = MsgAnswer::Cancel;
    return {result, message.Input, false};
}

/// A queued answer, else a line of the terminal; nothing from a pipe.
std::optional<Word> ConsoleScreen::NextAnswer(const char* prompt) {
    if (!Answers.empty()) {
        Word answer = Answers.front();
        Answers.pop_front();
        return answer;
    }
    std::string line;
    if (!Lines.Interactive() || !Lines.Next(line, prompt)) return std::nullopt;
    const CommandLine typed = SplitCommand(line);
    if (typed.Words.empty() || !typed.Fault.empty()) return std::nullopt;
    return Word{typed.RestFrom(0), typed.Words.size() == 1 && typed.Words[0].Quoted, 0};
}

Answer ConsoleScreen::Show(const Message& message) {
    if (message.Title == "Hyper-Drive Stopped") LastStopReason = message.Text;
    if (Out.WritesJson()) {
        JsonWriter json;
        json.BeginObject().Key("message").BeginObject().Field("title", message.Title).Field("text", message.Text);
        Out.PrintJson(json.Field("buttons", message.Buttons).EndObject().EndObject());
    } else {
        Out.PrintLine("[" + message.Title + "] " + message.Text);
    }
    if (IsNote(message)) {
        // A queued answer waits for its question; only an "ok" is meant for a note.
        if (!Answers.empty() && !Answers.front().Quoted && LowerCase(Answers.front().Text) == "ok") Answers.pop_front();
        return {};
    }
    const std::optional<Word> word = NextAnswer(Has(message, Inputs) ? "answer: " : "yes, no or cancel: ");
    if (!word) {
        const Answer silent = WhenNotAsked && !Lines.Interactive() ? *WhenNotAsked : DefaultAnswer(message);
        WhenNotAsked.reset();
        return silent;
    }
    const std::optional<Answer> answer = AnswerFor(message, *word);
    if (!answer) Out.Fault("\"" + word->Text + "\" does not answer the message \"" + message.Title + "\"");
    return answer ? *answer : DefaultAnswer(message);
}

void ConsoleScreen::PrintQuestion(const SettleQuestion& question) const {
    if (Out.WritesJson()) {
        JsonWriter json;
        json.BeginObject().Key("settle").BeginObject();
        json.Field("p", question.Position).Field("row", question.BetRow).Field("winner", question.Winner);
        json.Key("lines").BeginList();
        for (const auto& line : question.Lines) json.BeginList().Value(line.Left).Value(line.Right).EndList();
        json.EndList().Key("choices").BeginList();
        for (const auto& choice : question.Choices) {
            json.BeginObject().Field("code", choice.Code).Field("caption", choice.Caption).EndObject();
        }
        Out.PrintJson(json.EndList().EndObject().EndObject());
        return;
    }
    const char* heading = "";
    for (const auto& line : question.Lines) {
        const std::string text = line.Right.empty() ? line.Left : line.Left + " " + line.Right;
        Out.PrintLine(*heading == '\0' ? "[" + text + "]" : heading + text);
        heading = "  ";
    }
    for (const auto& choice : question.Choices) {
        Out.PrintLine("  " + std::to_string(choice.Code) + " " + WithoutMnemonics(choice.Caption));
    }
}

int ConsoleScreen::AskSettleBet(const SettleQuestion& question) {
    PrintQuestion(question);
    const int first = question.Choices.front().Code;
    const std::optional<Word> word = NextAnswer("choice: ");
    if (!word) return first;
    const std::string text = LowerCase(word->Text);
    if (text == "ok" || text == "cancel") return first;
    const std::optional<int> code = ParseInteger(text);
    const bool offered = code && std::any_of(question.Choices.begin(), question.Choices.end(),
                                             [&](const auto& choice) { return choice.Code == *code; });
    if (!offered) Out.Fault("\"" + word->Text + "\" is none of the choices for this bet");
    return offered ? *code : first;
}

void ConsoleScreen::EventLogged(std::string_view line) {
    if (!PrintEvents) return;
    if (!Out.WritesJson()) {
        Out.PrintLine(line);
        return;
    }
    JsonWriter json;
    Out.PrintJson(json.BeginObject().Field("log", line).EndObject());
}

void ConsoleScreen::PumpEvents() {
    if (T.AutoRollActive && Interrupted()) StopAutoRoll(T);
}

void ConsoleScreen::WaitEvents(int milliseconds) {
    fflush(stdout);
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    PumpEvents();
    while (T.AutoRollActive && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(
            std::min<std::chrono::nanoseconds>(std::chrono::milliseconds(20), end - std::chrono::steady_clock::now()));
        PumpEvents();
    }
}

void ConsoleScreen::SessionEnded(int) {
    if (T.ScriptRunning) ++Scripts.EndedSessions;
}

std::uint32_t ConsoleScreen::Milliseconds() { return T.ScriptRunning ? Scripts.Now(T) : MillisecondClock(); }

std::string ConsoleScreen::DateText() { return LocalDateText(); }

std::string ConsoleScreen::TimeText() { return LocalTimeText(); }

}  // namespace tarnwick::lab
