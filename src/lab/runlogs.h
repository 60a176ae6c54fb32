// The logs of an unattended run.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "stats/sessionslog.h"
#include "stats/tablelogs.h"

namespace tarnwick::lab {

/// Puts the records of all sessions into the players' Sessions Logs, in the order of the sessions, whichever thread is
/// done first. Used by several threads at a time.
class SessionsFiler {
  public:
    struct Filed {
        std::string File;  ///< without its folder
        SessionRecord Record;
    };

    explicit SessionsFiler(std::string folder) : Folder(std::move(folder)) {}

    /// Takes over what session `number` leaves, 1 and on, each of them once.
    void Add(std::uint64_t number, std::vector<Filed> records);
    /// What went wrong first, or nothing.
    std::string Fault() const;

  private:
    const std::string Folder;
    mutable std::mutex Mutex;
    std::map<std::uint64_t, std::vector<Filed>> Waiting;
    std::uint64_t Next = 1;
    std::string FirstFault;
};

/// The logs of session `number` while it lives: lines into the Events Log of `folder`, if `events`, and records into
/// `filer`, if there is one.
class RunLogs : public TableLogs {
  public:
    RunLogs(Table& t, const std::string& folder, bool events, SessionsFiler* filer, std::uint64_t number);
    ~RunLogs() override;
    RunLogs(const RunLogs&) = delete;
    RunLogs& operator=(const RunLogs&) = delete;

    /// The session begins: the log is on from here.
    void Begin();
    /// The session ends with the run: the records of all players, as they stand.
    void End();

    void LogLine(Table& t, std::string_view line) override;
    void SessionEnded(Table& t, int p) override;
    void EraseSessionsLog(Table&, int) override {}

  private:
    Table& T;
    const bool Events;
    SessionsFiler* const Filer;
    const std::uint64_t Number;
    std::vector<SessionsFiler::Filed> Records;
};

}  // namespace tarnwick::lab
