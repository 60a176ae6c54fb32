// The console's front end: prints messages, log lines and questions, and answers from a queue or from the terminal.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>

#include "lab/commandline.h"
#include "lab/consoleio.h"
#include "lab/labtable.h"
#include "table/crapcnst.h"
#include "table/screen.h"

namespace tarnwick::lab {

/// What a person means by `answer` at `message`; nothing when it doesn't fit. ok, yes, no and cancel press a button
/// that is there; any other text, or a quoted one, goes into the input line.
std::optional<Answer> AnswerFor(const Message& message, const Word& answer);
/// The answer without anybody to ask: Cancel or No where there is one, else OK.
Answer DefaultAnswer(const Message& message);
/// Whether `message` only wants to be read.
bool IsNote(const Message& message);

class ConsoleScreen : public Screen {
  public:
    ConsoleScreen(Table& t, LineSource& lines, Printer& printer) : T(t), Lines(lines), Out(printer) {}

    std::deque<Word> Answers;            ///< of `answer`, the next first
    std::optional<Answer> WhenNotAsked;  ///< taken at the next question in a pipe instead of its default answer
    std::string LastStopReason;          ///< of the last run, as it was shown
    ScriptClock Scripts;                 ///< what scripts take for the clock
    bool PrintEvents = true;             ///< the lines of the Events Log, too

    Answer Show(const Message& message) override;
    int AskSettleBet(const SettleQuestion& question) override;
    void EventLogged(std::string_view line) override;
    void SessionEnded(int p) override;
    void PumpEvents() override;
    void WaitEvents(int milliseconds) override;
    std::uint32_t Milliseconds() override;
    std::string DateText() override;
    std::string TimeText() override;

  private:
    std::optional<Word> NextAnswer(const char* prompt);
    void PrintQuestion(const SettleQuestion& question) const;

    Table& T;
    LineSource& Lines;
    Printer& Out;
};

}  // namespace tarnwick::lab
