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

RunScreen::RunScreen(Table& t, std::int64_t rolls, std::vector<BetOrder> orders,
                     std::atomic<std::uint64_t>* rollsPlayed)
    : T(t),
      RollsWanted(rolls),
      RollsToCheck(std::min(rolls, Stride)),
      Orders(std::move(orders)),
      RollsPlayed(rollsPlayed) {
    T.Front = this;
}

RunScreen::~RunScreen() {
    if (RollsPlayed != nullptr) *RollsPlayed += static_cast<std::uint64_t>(SessionRolls(T) - RollsSeen);
    T.Front = nullptr;
}

Answer RunScreen::Show(const Message& message) {
    if (Reason.empty()) Reason = OneLine(message.Text);
    Answer answer;
    for (const auto& [button, result] :
         {std::pair{MsgButton::No, MsgAnswer::No}, std::pair{MsgButton::Cancel, MsgAnswer::Cancel}}) {
        if ((message.Buttons & button) != 0) answer.Result = result;
    }
    return answer;
}

int RunScreen::AskSettleBet(const SettleQuestion& question) { return question.Choices.front().Code; }

void RunScreen::PumpEvents() {
    if (--RollsToCheck <= 0) LookAround();
    if (!Orders.empty()) PlaceOrders();
}

void RunScreen::LookAround() {
    const std::int64_t rolls = SessionRolls(T);
    if (RollsPlayed != nullptr) *RollsPlayed += static_cast<std::uint64_t>(rolls - RollsSeen);
    RollsSeen = rolls;
    RollsToCheck = std::min(RollsWanted - rolls, Stride);
    const bool interrupted = Interrupted();
    if (rolls < RollsWanted && !interrupted) return;
    if (Reason.empty()) Reason = interrupted ? "Interrupted." : "All rolls played.";
    Orders.clear();
    if (T.AutoRollActive) StopAutoRoll(T);
}

void RunScreen::PlaceOrders() {
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
