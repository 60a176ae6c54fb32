// Rolls by itself for a number of rolls in all.
#pragma once

#include <cstdint>

#include "lab/rollhost.h"

namespace tarnwick::lab {

/// Makes a run end after `rolls` more rolls, also when scripts begin new sessions, where the table counts from 0 again.
class RollGoal : public RollHost {
  public:
    RollGoal(Table& t, std::int32_t rolls);
    ~RollGoal() override { T.RunUntilRoll = 0; }

    std::int32_t Played() const { return Rolls; }
    bool Reached() const { return Rolls >= Goal; }
    bool NewSessions() const { return Restarted; }  ///< whether a script began one

  protected:
    void AfterRoll() override;

  private:
    std::int32_t Goal;
    std::int32_t Rolls = 0;
    bool Restarted = false;
};

}  // namespace tarnwick::lab
