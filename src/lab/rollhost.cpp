#include "lab/rollhost.h"

#include "stats/accumulators.h"
#include "table/rundriver.h"

namespace tarnwick::lab {

void StopAtRolls::AfterRoll() {
    // Where the Auto-Stop is due too it ends the run itself, with its reason.
    if (SessionRolls(T) >= Rolls && !AutoStopDue(T)) StopAutoRoll(T);
}

}  // namespace tarnwick::lab
