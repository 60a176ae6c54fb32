// Sessions Logs: a file a player, with one record for each session that ended.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "files/sharedfile.h"
#include "table/crapcnst.h"

namespace tarnwick {

constexpr int SessionStatCount = 32;

/// Fields of a session, in the order of the record and of the list of statistics.
namespace SessionStat {
enum : int {
    Rolls,
    BetsDecided,
    BetsWon,
    BetsLost,
    BetsNet,
    Handle,
    MoneyWon,
    MoneyLost,
    MoneyNet,
    Percent,  ///< net in percent of the handle
    Invested,
    EndingBankroll,
    FirstStack,  ///< CheckStacks #0 to #19
};
}  // namespace SessionStat

/// All are amounts; counts are whole ones.
using SessionRecord = std::array<currency, SessionStatCount>;

/// "# Rolls" .. "CheckStack #19"; `stat` 0..31.
std::string SessionStatName(int stat);

/// The session of position p 1..8 as it stands now.
SessionRecord SessionRecordOf(const Table& t, int p);

/// The player's name in lower case with ".slg"; what can't be in a file name is "_".
std::string DefaultSessionsLogName(std::string_view playerName);

/// Adds a session to the log, which is made when missing: first the record, then the count. Other programs may add to
/// it at the same time. A file that is no Sessions Log is left alone. Returns what is wrong as a clause, or nothing.
std::string AppendSessionRecord(const std::string& path, const SessionRecord& record);

/// Replaces the file, or makes it, by a log without sessions.
std::string CreateSessionsLog(const std::string& path);
/// Deletes the file; one that isn't there is no fault.
std::string DeleteSessionsLog(const std::string& path);

constexpr std::string_view SessionsOutOfRange = "No sessions deleted.  Entry out of range.";
/// Deletes sessions `first` to `last`, in either order, from 1. The file keeps its length.
std::string DeleteSessions(const std::string& path, std::int64_t first, std::int64_t last);

/// Empty when `path` is a Sessions Log that can be opened; else why not.
std::string SessionsLogRefusal(const std::string& path);

/// A log open for reading.
class SessionsLog {
  public:
    /// A file that isn't there has no sessions. Returns what is wrong as a clause, or nothing.
    std::string Open(const std::string& path);
    /// Sessions that the header tells of and the file holds.
    std::int32_t Count() const { return Sessions; }
    /// Reads sessions from `first` (from 1) on, `count` at most, into `records`; fewer at the end.
    void Read(std::int32_t first, std::int32_t count, std::vector<SessionRecord>& records) const;

    /// Calls `each` with the number and the record of every session in order, until it returns false.
    template <class Each>
    void ForEach(Each each) const {
        constexpr std::int32_t atOnce = 1'024;
        std::vector<SessionRecord> records;
        for (std::int32_t first = 1; first <= Sessions; first += atOnce) {
            Read(first, atOnce, records);
            std::int32_t number = first;
            for (const SessionRecord& record : records) {
                if (!each(number++, record)) return;
            }
            if (records.empty()) return;
        }
    }

  private:
    SharedFile File;
    std::int32_t Sessions = 0;
};

}  // namespace tarnwick
