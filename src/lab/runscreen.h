// What stands around an unattended session: nobody is asked, Ctrl-C stops it, and orders are placed between rolls.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "lab/labtable.h"
#include "lab/rollhost.h"
#include "lab/runsummary.h"
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

/// The front end of a session while it lives. Keeps why the run stopped, counts its rolls into those of all sessions,
/// and prints on standard error what scripts say.
class RunScreen : public Screen {
  public:
    RunScreen(Table& t, std::atomic<std::uint64_t>& rollsPlayed);
    ~RunScreen() override;
    RunScreen(const RunScreen&) = delete;
    RunScreen& operator=(const RunScreen&) = delete;

    std::string StopReason;                ///< the text of the first message that is no script's
    std::string Heading;                   ///< ahead of what scripts say
    ScriptClock Scripts;                   ///< what scripts take for the clock
    RunSummary* EndedByScripts = nullptr;  ///< takes in the sessions that scripts end

    Answer Show(const Message& message) override;
    int AskSettleBet(const SettleQuestion& question) override;
    void SessionEnded(int p) override;
    void PumpEvents() override;
    void WaitEvents(int milliseconds) override { Clock += static_cast<std::uint32_t>(milliseconds); }
    std::uint32_t Milliseconds() override { return T.ScriptRunning ? Scripts.Now(T) : Clock; }
    std::string DateText() override { return LocalDateText(); }
    std::string TimeText() override { return LocalTimeText(); }

  private:
    void CountRolls();

    Table& T;
    std::atomic<std::uint64_t>& RollsPlayed;
    std::int64_t RollsSeen = 0;
    std::uint32_t Clock = 0;
};

/// Places orders after each roll, while it lives.
class OrderHost : public RollHost {
  public:
    OrderHost(Table& t, std::vector<BetOrder> orders) : RollHost(t), Orders(std::move(orders)) {}

  private:
    void AfterRoll() override;

    std::vector<BetOrder> Orders;
};

}  // namespace tarnwick::lab
