// The logs of a table on the disk: the Events Log and the players' Sessions Logs. A front end owns one and makes it the
// table's `Logs`.
#pragma once

#include <string>
#include <string_view>

#include "stats/eventslogfile.h"
#include "table/crapcnst.h"

namespace tarnwick {

/// Writes the Events Log: at once outside a run; in a run the lines are collected and reach the file whenever the user
/// is served, and when the run ends. A log that can't be written, or is full, turns EventsLogOn off with a message; in
/// Hyper-Drive the message is the StopReason.
class TableLogs : public LogHost {
  public:
    /// `userFolder` holds the logs without a folder of their own, and the reference file; empty: the current one.
    explicit TableLogs(std::string userFolder) : UserFolder(std::move(userFolder)) {}

    EventsLogPaths EventsLog(const Table& t) const;
    /// The Sessions Log of position p 1..8; the default one of the player's name when none is set.
    std::string SessionsLog(const Table& t, int p) const;
    /// The Sessions Log that bears the name of p.
    std::string DefaultSessionsLog(const Table& t, int p) const;

    /// From now on the sessions of p 1..8 go to the log `path`; the log so far, if there is one, takes that name, and
    /// replaces a file there. False after a message, with all as it was.
    bool RenameSessionsLog(Table& t, int p, const std::string& path);

    /// Writes what was collected, so that a reader sees it.
    void Flush(Table& t);

    char* LineRoom(std::size_t bytes) override { return Writer.Room(bytes); }
    void LogLine(Table& t, std::string_view line) override;
    void Serve(Table& t) override { Flush(t); }
    void RunStateChanged(Table& t) override;
    bool EventsLogExists(const Table& t) override;
    void ClearEventsLog(Table& t) override;
    void SessionEnded(Table& t, int p) override;
    void EraseSessionsLog(Table& t, int p) override;

    EventsLogWriter Writer;

  private:
    std::string InUserFolder(const std::string& name) const;

    std::string UserFolder;
};

}  // namespace tarnwick
