#include "lab/rollgoal.h"

#include "stats/accumulators.h"
#include "table/rundriver.h"

namespace tarnwick::lab {

RollGoal::RollGoal(Table& t, std::int32_t rolls) : RollHost(t), Goal(rolls) { T.RunUntilRoll = SessionRolls(T) + Goal; }

void RollGoal::AfterRoll() {
    ++Rolls;
    if (SessionRolls(T) > 0) return;
    Restarted = true;
    T.RunUntilRoll = Goal - Rolls;
    if (Reached()) StopAutoRoll(T);  // a goal of 0 would be none
}

}  // namespace tarnwick::lab
