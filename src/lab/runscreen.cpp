#include "lab/runscreen.h"

#include <algorithm>

#include "lab/interrupt.h"
#include "stats/accumulators.h"
#include "table/placement.h"
#include "table/rundriver.h"

namespace tarnwick::lab {

namespace {

/// Rolls between two looks at the clock of the world: Ctrl-C and the count for the progress line.
constexpr std::int64_t Stride = 4096;

/// Line breaks of a message as one line.
std::string OneLine(std::string_view text) {
    std::string line;
    for (const char c : text) {
        if (c != '\n') {
            line += c;
        } else if (!line.empty() && line.back() != ' ') {
            line += ' ';
        }
    }
    return line;
}

}  // namespace

Answer RunScreen::Show(const Message& message) {
    if (StopReason.empty()) StopReason = OneLine(message.Text);
    Answer answer;
    if ((message.Buttons & MsgButton::No) != 0) answer.Result = MsgAnswer::No;
    if ((message.Buttons & MsgButton::Cancel) != 0) answer.Result = MsgAnswer::Cancel;
    return answer;
}

int RunScreen::AskSettleBet(const SettleQuestion& question) { return question.Choices.front().Code; }

RunHost::RunHost(Table& t, RunScreen& screen, std::int64_t rolls, std::vector<BetOrder> orders,
                 std::atomic<std::uint64_t>& rollsPlayed)
    : RollHost(t),
      Front(screen),
      RollsWanted(rolls),
      RollsToCheck(std::min(rolls, Stride)),
      Orders(std::move(orders)),
      RollsPlayed(rollsPlayed) {}

RunHost::~RunHost() { RollsPlayed += static_cast<std::uint64_t>(SessionRolls(T) - RollsSeen); }

void RunHost::LookAround() {
    const std::int64_t rolls = SessionRolls(T);
    RollsPlayed += static_cast<std::uint64_t>(rolls - RollsSeen);
    RollsSeen = rolls;
    RollsToCheck = std::min(RollsWanted - rolls, Stride);
    const bool interrupted = Interrupted();
    if (rolls < RollsWanted && !interrupted) return;
    if (!interrupted && AutoStopDue(T)) return;  // it ends the run itself, with its reason
    if (Front.StopReason.empty()) Front.StopReason = interrupted ? "Interrupted." : "All rolls played.";
    Orders.clear();
    StopAutoRoll(T);
}

void RunHost::PlaceOrders() {
    for (std::size_t i = 0; i < Orders.size();) {
        BetOrder& order = Orders[i];
        const auto seat = static_cast<SeatMask>(1u << order.Position);
        if ((T.SeatsOn[static_cast<std::size_t>(order.BetRow)] & seat) == 0) {
            PlaceBet(T, order.Position, order.BetRow, order.Amount);
            if ((T.SeatsOn[static_cast<std::size_t>(order.BetRow)] & seat) != 0 && !order.Again) {
                Orders.erase(Orders.begin() + static_cast<std::ptrdiff_t>(i));
                continue;
            }
        }
        ++i;
    }
}

}  // namespace tarnwick::lab
