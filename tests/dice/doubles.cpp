// Stand-ins until the rooms that own them are there.
#include "stats/accumulators.h"
#include "stats/eventslog.h"
#include "table/rundriver.h"
#include "table/screen.h"
namespace tarnwick {
void LogEvent(Table& t, std::string_view line) {
    if (t.Front) t.Front->EventLogged(line);
}
std::int32_t SessionRolls(const Table& t) { return t.HandComeouts; }
void TallyRoll(Table& t) { ++t.HandComeouts; }
void StopAutoRoll(Table& t) { t.AutoRollActive = t.HyperDriveActive = false; }
}  // namespace tarnwick
