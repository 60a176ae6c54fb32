#include "lab/runscreen.h"

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
    if (StopReason.empty()) StopReason = OneLine(message.Text);
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
