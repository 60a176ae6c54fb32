// The front end of an unattended session: nobody is asked, orders are placed between rolls, and the run stops at its
// number of rolls or by Ctrl-C.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "table/crapcnst.h"
#include "table/screen.h"

namespace tarnwick::lab {

/// A bet to put up as soon as the rules allow it, and again whenever it is down.
struct BetOrder {
    int Position = 0;
    int BetRow = 0;
    currency Amount;
    bool Again = false;
    bool Placed = false;  ///< at least once
};

class RunScreen : public Screen {
  public:
    /// Becomes the front end of `t`, which must outlive it; detaches at its end. `rollsPlayed` (may be null) counts on.
    RunScreen(Table& t, std::int64_t rolls, std::vector<BetOrder> orders, std::atomic<std::uint64_t>* rollsPlayed);
    ~RunScreen() override;
    RunScreen(const RunScreen&) = delete;
    RunScreen& operator=(const RunScreen&) = delete;

    /// Why the run ended: the table's reason, or one of "All rolls played." and "Interrupted.".
    const std::string& StopReason() const { return Reason; }

    Answer Show(const Message& message) override;
    int AskSettleBet(const SettleQuestion& question) override;
    void PumpEvents() override;
    void WaitEvents(int milliseconds) override { Clock += static_cast<std::uint32_t>(milliseconds); }
    std::uint32_t Milliseconds() override { return Clock; }

  private:
    void LookAround();
    void PlaceOrders();

    Table& T;
    std::int64_t RollsWanted;
    std::int64_t RollsToCheck;  // pumps until the next look around
    std::int64_t RollsSeen = 0;
    std::vector<BetOrder> Orders;
    std::atomic<std::uint64_t>* RollsPlayed;
    std::string Reason;
    std::uint32_t Clock = 0;
};

}  // namespace tarnwick::lab
