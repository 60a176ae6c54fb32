#include "lab/runlogs.h"

#include <filesystem>

#include "lab/consoleevents.h"
#include "stats/accumulators.h"
#include "stats/eventslog.h"

namespace tarnwick::lab {

void SessionsFiler::Add(std::uint64_t number, std::vector<Filed> records) {
    const std::lock_guard lock(Mutex);
    Waiting.emplace(number, std::move(records));
    for (auto first = Waiting.begin(); first != Waiting.end() && first->first == Next; first = Waiting.begin()) {
        for (const Filed& filed : first->second) {
            const std::string path = (std::filesystem::path(Folder) / filed.File).string();
            const std::string fault = FirstFault.empty() ? AppendSessionRecord(path, filed.Record) : std::string();
            if (!fault.empty()) FirstFault = path + ": " + fault;
        }
        Waiting.erase(first);
        ++Next;
    }
}

std::string SessionsFiler::Fault() const {
    const std::lock_guard lock(Mutex);
    return FirstFault;
}

RunLogs::RunLogs(Table& t, const std::string& folder, bool events, SessionsFiler* filer, std::uint64_t number)
    : TableLogs(folder), T(t), Events(events), Filer(filer), Number(number) {
    T.Logs = this;
}

RunLogs::~RunLogs() {
    Flush(T);
    if (Filer != nullptr) Filer->Add(Number, std::move(Records));
    T.Logs = nullptr;
}

void RunLogs::Begin() {
    if (!Events) return;
    RecordAllEvents(T);
    SetEventsLogOn(T, true);
    LogSessionStart(T, EventsLogExists(T));
}

void RunLogs::End() {
    if (SessionRolls(T) == 0) return;
    for (int p = 1; p < Positions; ++p) {
        if (IsSeated(T, p)) SessionEnded(T, p);
    }
}

void RunLogs::LogLine(Table& t, std::string_view line) {
    if (Events) TableLogs::LogLine(t, line);
}

void RunLogs::SessionEnded(Table& t, int p) {
    if (Filer == nullptr) return;
    const std::string& name = t.PlayerName[static_cast<std::size_t>(p)];
    Records.push_back({DefaultSessionsLogName(name), SessionRecordOf(t, p)});
}

}  // namespace tarnwick::lab
