// What the table asks of a front end. The desktop, the text console and the unattended laboratory each have one; a
// front end changes the state only through the table's procedures.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "table/currency.h"

namespace tarnwick {

/// Flags of a message's buttons and pictures.
namespace MsgButton {
enum : int {
    Ok = 1,
    Yes = 2,
    No = 4,
    Cancel = 8,
    Help = 16,
    Input = 64,
    SecondInput = 128,
    Alert = 256,
    Stop = 512,
    Question = 1024,
    Done = 2048,
    HideRefusals = 65536,  ///< the hide box; checked, it clears bit value 1 of NotifyBits
    HideLimits = 131072,   ///< bit value 2
    HideCharges = 262144,  ///< bit value 4
    HideOther = 524288,    ///< notes that no bit covers
    UserList = 2097152,
    YesNoQuestion = Yes | No | Question | 8192,      // 9222
    InputQuestion = Ok | Cancel | Input | Question,  // 1097
    OkStop = Ok | Stop,                              // 513
    OkStopHideRefusals = Ok | Stop | HideRefusals,   // 66049
};
}  // namespace MsgButton

/// The button pressed.
namespace MsgAnswer {
enum : int { Ok = 1, Cancel = 2, Yes = 6, No = 7 };
}

struct Message {
    std::string Title;
    std::string Text;  ///< line breaks are "\n"
    int Buttons = MsgButton::Ok;
    int Width = 300;                   ///< pixels
    std::string Input;                 ///< what the input line opens with
    std::vector<std::string> Choices;  ///< of the list
};

struct Answer {
    int Result = MsgAnswer::Ok;
    std::string Input;
    bool Hide = false;
};

/// One decided bet for the dialog that asks what to do with it.
struct SettleQuestion {
    struct Line {
        std::string Left, Right;
    };
    struct Choice {
        int Code = 0;  ///< 1..7 of the winners' or losers' handling
        std::string Caption;
    };
    int Position = 0;
    int BetRow = 0;
    bool Winner = true;           ///< which list of codes and which slots hold
    std::vector<Line> Lines;      ///< the first is the heading
    std::vector<Choice> Choices;  ///< the first is what closing the dialog means
};

/// `AwaitedWin` is a win whose sound ends before the game goes on.
enum class SoundKind { StickCall, Check, Win, AwaitedWin, Limit };

struct Screen {
    virtual ~Screen() = default;

    /// Shows `message` and waits for its answer.
    virtual Answer Show(const Message& message) = 0;
    /// Asks what to do with a decided bet; returns the code of one of its choices.
    virtual int AskSettleBet(const SettleQuestion& question) = 0;

    /// An amount being typed for a bet is placed now.
    virtual void CommitAmountBox() {}
    virtual void DrawDiceThrow() {}
    virtual void RedrawTable() {}
    virtual void RedrawBet(int /*p*/, int /*row*/) {}
    virtual void RefreshOpenWindows() {}
    /// A run began or ended (`hyperDrive` tells which kind).
    virtual void RunStateChanged(bool /*running*/, bool /*hyperDrive*/) {}
    /// `number`: of the call 2..18; of checks and wins the set, as the setting counts; 0 of the limit.
    virtual void PlaySound(SoundKind /*kind*/, int /*number*/) {}
    /// Scripts begin to run outside Hyper-Drive: "Auto-Betting" or "Hot-Key".
    virtual void ShowStatus(std::string_view /*text*/) {}
    /// Plays a sound file that a script names, without waiting for its end.
    virtual void PlaySoundFile(const std::string& /*path*/) {}
    /// A line was given to the Events Log.
    virtual void EventLogged(std::string_view /*line*/) {}
    /// Position `p` (occupied) ends a session that had rolls, by a new session or by leaving; all figures still stand.
    virtual void SessionEnded(int /*p*/) {}

    /// Lets the user act; called between rolls.
    virtual void PumpEvents() {}
    /// Waits up to `milliseconds` while the user may act; may return early.
    virtual void WaitEvents(int milliseconds) = 0;
    /// A millisecond counter that wraps at 32 bits.
    virtual std::uint32_t Milliseconds() = 0;
    virtual std::string DateText() { return {}; }
    virtual std::string TimeText() { return {}; }
};

/// Answers from queues and keeps what it was told: for tests and unattended runs. With an empty queue a message gets
/// its first button of OK, No, Cancel, Yes, and a settled bet its first choice, as does a queued code that isn't
/// offered. The clock moves only by `Clock` and by waiting.
struct SilentScreen : Screen {
    std::deque<Answer> Answers;
    std::deque<int> SettleCodes;
    std::vector<Message> Shown;
    std::vector<SettleQuestion> Asked;
    std::vector<std::string> Logged;
    std::uint32_t Clock = 0;
    bool KeepShown = true;  ///< false: nothing is kept, for long runs

    Answer Show(const Message& message) override;
    int AskSettleBet(const SettleQuestion& question) override;
    void EventLogged(std::string_view line) override;
    void WaitEvents(int milliseconds) override { Clock += static_cast<std::uint32_t>(milliseconds); }
    std::uint32_t Milliseconds() override { return Clock; }
};

}  // namespace tarnwick
