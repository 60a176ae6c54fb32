// What stands around an unattended session: nobody is asked, orders are placed between rolls, and the run stops at its
// number of rolls or by Ctrl-C.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "lab/rollhost.h"
#include "table/screen.h"

namespace tarnwick::lab {

/// A bet to put up as soon as the rules allow it, and with `Again` whenever it is down.
struct BetOrder {
    int Position = 0;
    int BetRow = 0;
    currency Amount;
    bool Again = false;
    bool Placed = false;  ///< at least once
};

/// The front end of a session. Keeps why the run stopped.
class RunScreen : public Screen {
  public:
    std::string StopReason;  ///< the text of the first message

    Answer Show(const Message& message) override;
    int AskSettleBet(const SettleQuestion& question) override;
    void WaitEvents(int milliseconds) override { Clock += static_cast<std::uint32_t>(milliseconds); }
    std::uint32_t Milliseconds() override { return Clock; }

  private:
    std::uint32_t Clock = 0;
};

/// Follows the rolls of a session: places orders, counts and stops.
class RunHost : public RollHost {
  public:
    /// `rollsPlayed` counts the rolls of all sessions, in strides.
    RunHost(Table& t, RunScreen& screen, std::int64_t rolls, std::vector<BetOrder> orders,
            std::atomic<std::uint64_t>& rollsPlayed);
    ~RunHost() override;

  private:
    void AfterRoll() override {
        if (--RollsToCheck <= 0) LookAround();
        if (!Orders.empty()) PlaceOrders();
    }
    void LookAround();
    void PlaceOrders();

    RunScreen& Front;
    std::int64_t RollsWanted;
    std::int64_t RollsToCheck;
    std::int64_t RollsSeen = 0;
    std::vector<BetOrder> Orders;
    std::atomic<std::uint64_t>& RollsPlayed;
};

}  // namespace tarnwick::lab
