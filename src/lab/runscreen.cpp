#include "lab/runscreen.h"

#include <cstdio>

#include "lab/consolescreen.h"
#include "lab/interrupt.h"
#include "lab/texttable.h"
#include "stats/accumulators.h"
#include "table/placement.h"
#include "table/rundriver.h"

namespace tarnwick::lab {

RunScreen::RunScreen(Table& t, std::atomic<std::uint64_t>& rollsPlayed) : T(t), RollsPlayed(rollsPlayed) {
    T.Front = this;
}

RunScreen::~RunScreen() {
    CountRolls();
    T.Front = nullptr;
}

Answer RunScreen::Show(const Message& message) {
    const bool ofScript = T.ScriptRunning && message.Title != "Hyper-Drive Stopped";
    if (!ofScript && StopReason.empty()) StopReason = OneLine(message.Text);
    // A question of every roll would drown the rest.
    if (ofScript && (IsNote(message) || !T.HyperDriveActive)) {
        std::fprintf(stderr, "%s[%s] %s\n", Heading.c_str(), message.Title.c_str(), message.Text.c_str());
    }
    Answer answer;
    if ((message.Buttons & MsgButton::No) != 0) answer.Result = MsgAnswer::No;
    if ((message.Buttons & MsgButton::Cancel) != 0) answer.Result = MsgAnswer::Cancel;
    return answer;
}

int RunScreen::AskSettleBet(const SettleQuestion& question) { return question.Choices.front().Code; }

void RunScreen::PumpEvents() {
    CountRolls();
    if (!Interrupted() || !T.AutoRollActive) return;
    if (StopReason.empty()) StopReason = "Interrupted.";
    StopAutoRoll(T);
}

void RunScreen::SessionEnded(int p) {
    for (int q = 1; q < p; ++q) {
        if (IsSeated(T, q)) return;  // told already
    }
    CountRolls();
    RollsSeen = 0;
    ++Scripts.EndedSessions;
    if (EndedByScripts != nullptr) EndedByScripts->AddSession(T, "A script began a new session.");
}

void RunScreen::CountRolls() {
    const std::int64_t rolls = SessionRolls(T);
    RollsPlayed += static_cast<std::uint64_t>(rolls - RollsSeen);
    RollsSeen = rolls;
}

void OrderHost::AfterRoll() {
    for (std::size_t i = 0; i < Orders.size();) {
        const BetOrder& order = Orders[i];
        const SeatMask& seats = T.SeatsOn[static_cast<std::size_t>(order.BetRow)];
        const auto stands = [&] { return (seats >> order.Position & 1u) != 0; };
        if (!stands()) {
            PlaceBet(T, order.Position, order.BetRow, order.Amount);
            if (stands() && !order.Again) {
                Orders.erase(Orders.begin() + static_cast<std::ptrdiff_t>(i));
                continue;
            }
        }
        ++i;
    }
}

}  // namespace tarnwick::lab
