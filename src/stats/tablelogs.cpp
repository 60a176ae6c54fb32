#include "stats/tablelogs.h"

#include <algorithm>
#include <filesystem>

#include "stats/sessionslog.h"
#include "table/format.h"
#include "table/messages.h"

namespace tarnwick {

namespace {

/// Bytes that wait at most, however long the user isn't served.
constexpr std::size_t LongestWait = 4 << 20;

void Tell(Table& t, const char* title, const std::string& text) {
    if (!t.HyperDriveActive) {
        ShowNote(t, title, text, MsgButton::OkStop);
    } else if (t.StopReason.empty()) {
        t.StopReason = text;
    }
}

void StopLogging(Table& t, const std::string& why) {
    t.EventsLogOn = false;
    Tell(t, "Events Log", why + "\n\nEvents are no longer recorded.");
}

std::string FullText(const std::string& path) {
    return "The Events Log is full: " + path + "\nIt can't be longer than 2,147,483,647 bytes.";
}

bool IsRollLine(std::string_view line) {
    const std::size_t first = line.find_first_not_of(' ');
    return first != std::string_view::npos && line[first] == 'R' && line.substr(first, 4) == "Roll";
}

}  // namespace

std::string TableLogs::InUserFolder(const std::string& name) const {
    std::string slashed = name;
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    return (std::filesystem::path(UserFolder) / slashed).string();
}

EventsLogPaths TableLogs::EventsLog(const Table& t) const {
    const std::string& name = t.EventsLogFileName;
    return {InUserFolder(name.empty() ? std::string(DefaultEventsLogName) : name),
            InUserFolder(std::string(EventsLogReferenceName))};
}

std::string TableLogs::DefaultSessionsLog(const Table& t, int p) const {
    return InUserFolder(DefaultSessionsLogName(t.PlayerName[static_cast<std::size_t>(p)]));
}

std::string TableLogs::SessionsLog(const Table& t, int p) const {
    const std::string& name = t.SessionsLogName[static_cast<std::size_t>(p)];
    return name.empty() ? DefaultSessionsLog(t, p) : InUserFolder(name);
}

void TableLogs::LogLine(Table& t, std::string_view line) {
    if (!t.EventsLogOn) return;  // turned off by a fault a moment ago
    Writer.Collect(line);
    if (!t.AutoRollActive || Writer.PendingBytes() >= LongestWait) Flush(t);
}

void TableLogs::Flush(Table& t) {
    if (!Writer.HasPending()) return;
    const EventsLogPaths paths = EventsLog(t);
    const std::int32_t rollLine = t.KeepLatestRollOnTop ? Writer.LastPending(IsRollLine) : 0;
    const EventsLogWriter::Written written = Writer.Write(paths, t.AutoRollActive);
    if (rollLine > 0 && written.FirstLine > 0) t.EventsLogTopLine = written.FirstLine + rollLine - 1;
    if (!written.Fault.empty()) {
        StopLogging(t, "The Events Log can't be written.\n" + written.Fault);
    } else if (written.Full) {
        StopLogging(t, FullText(paths.Log));
    }
}

void TableLogs::RunStateChanged(Table& t) {
    if (t.AutoRollActive) return;
    Flush(t);
    const std::string fault = Writer.Close();
    if (!fault.empty()) StopLogging(t, "The Events Log can't be written.\n" + fault);
}

bool TableLogs::EventsLogExists(const Table& t) { return Writer.HasPending() || FileExists(EventsLog(t).Log); }

void TableLogs::ClearEventsLog(Table& t) {
    Writer.DropPending();
    std::string fault = Writer.Close();
    if (const std::string left = DeleteEventsLog(EventsLog(t)); fault.empty()) fault = left;
    if (!fault.empty()) Tell(t, "Events Log", "The Events Log can't be cleared.\n" + fault);
}

void TableLogs::SessionEnded(Table& t, int p) {
    const std::string path = SessionsLog(t, p);
    const std::string fault = AppendSessionRecord(path, SessionRecordOf(t, p));
    if (!fault.empty()) {
        Tell(t, "Sessions Log", "The session can't be added to " + path + ".\n" + fault);
    }
}

bool TableLogs::RenameSessionsLog(Table& t, int p, const std::string& path) {
    const std::string present = SessionsLog(t, p), wanted = InUserFolder(path);
    if (FileExists(present) && present != wanted) {
        std::error_code error;
        std::filesystem::rename(present, wanted, error);
        if (error) {
            Tell(t, "Rename Sessions Log", "The Sessions Log can't be renamed to " + wanted + ".\n" + error.message());
            return false;
        }
    }
    t.SessionsLogName[static_cast<std::size_t>(p)] = path;
    t.GameChanged = true;
    return true;
}

void TableLogs::EraseSessionsLog(Table& t, int p) {
    const std::string fault = DeleteSessionsLog(DefaultSessionsLog(t, p));
    if (!fault.empty()) Tell(t, "Sessions Log", "The Sessions Log can't be deleted.\n" + fault);
}

}  // namespace tarnwick
