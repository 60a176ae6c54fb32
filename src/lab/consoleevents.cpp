#include "lab/consoleevents.h"

#include <cstdlib>
#include <system_error>

#include "lab/texttable.h"
#include "stats/eventslog.h"

namespace tarnwick::lab {

namespace {

constexpr int LinesOfAPage = 20;

void SwitchLog(Console& c, bool print, bool keep) {
    c.Screen.PrintEvents = print || !keep;
    if (print || keep) RecordAllEvents(c.T);
    SetEventsLogOn(c.T, print || keep);
}

bool Prints(const Console& c) { return c.T.EventsLogOn && c.Screen.PrintEvents; }

std::string TurnOn(Console& c, Arguments& a) {
    const bool print = Prints(c);
    std::string path = a.More() ? a.Rest() : std::string();
    if (!path.empty()) path = std::filesystem::absolute(path).string();
    c.Log = std::make_unique<ConsoleLog>(c.T);
    if (!path.empty()) c.T.EventsLogFileName = path;
    c.T.EventsLogTopLine = 1;
    SwitchLog(c, print, true);
    return {};
}

std::string TurnOff(Console& c) {
    const bool print = Prints(c);
    c.Log.reset();
    SwitchLog(c, print, false);
    return {};
}

/// Opens the log as it stands now.
std::string OpenReader(Console& c, EventsLogReader& reader) {
    c.Log->Flush(c.T);
    return reader.Open(c.Log->EventsLog(c.T));
}

void PrintPage(Console& c, const EventsLogReader& reader, std::int32_t top, int count) {
    std::int32_t number = top;
    const std::vector<std::string> page = reader.Page(top, count);
    if (c.Out.WritesJson()) {
        JsonWriter json;
        json.BeginObject().Key("events").BeginObject().Field("lines", reader.Lines()).Field("top", top);
        json.Key("page").BeginList();
        for (const std::string& line : page) json.Value(line);
        c.Out.PrintJson(json.EndList().EndObject().EndObject());
        return;
    }
    for (const std::string& line : page) c.Out.PrintLine(std::to_string(number++) + ": " + line);
}

std::string ShowPage(Console& c, std::int64_t top, int count) {
    EventsLogReader reader;
    std::string fault = OpenReader(c, reader);
    if (!fault.empty()) return fault;
    c.T.EventsLogTopLine = ClampedTopLine(top, reader.Lines());
    PrintPage(c, reader, c.T.EventsLogTopLine, count);
    return {};
}

std::string Search(Console& c, bool forward) {
    EventsLogReader reader;
    std::string fault = OpenReader(c, reader);
    if (!fault.empty()) return fault;
    const std::int32_t found = reader.Find(c.Log->Wanted, c.T.EventsLogTopLine, forward);
    if (found == 0) {
        c.Screen.Show({"Search Results", "Text not found.", MsgButton::Ok, 300, {}, {}});
        return {};
    }
    c.T.EventsLogTopLine = found;
    PrintPage(c, reader, found, 1);
    return {};
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
    std::error_code error;
    std::string made = (std::filesystem::temp_directory_path(error) / "tarnwick-lab-XXXXXX").string();
    if (!error && mkdtemp(made.data()) != nullptr) Folder = made;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code error;
    if (!Folder.empty()) std::filesystem::remove_all(Folder, error);
}

ConsoleLog::ConsoleLog(Table& t) : ConsoleLog(t, std::make_unique<TemporaryFolder>()) {}

ConsoleLog::ConsoleLog(Table& t, std::unique_ptr<TemporaryFolder> folder)
    : TableLogs(folder->Path()), T(t), Folder(std::move(folder)) {
    T.EventsLogFileName = DefaultEventsLogName;
    T.Logs = this;
}

ConsoleLog::~ConsoleLog() {
    Flush(T);
    T.Logs = nullptr;
    T.EventsLogFileName = DefaultEventsLogName;
}

void RecordAllEvents(Table& t) {
    for (bool* flag :
         {&t.RecordRolls, &t.RecordBetChanges, &t.RecordBetsWon, &t.RecordBetsLost, &t.RecordCheckStackChanges,
          &t.RecordPassesMisses, &t.RecordShooterChanges, &t.RecordBankrollChanges}) {
        *flag = true;
    }
}

std::string DoLog(Console& c, Arguments& a) {
    const bool on = a.OnOrOff();
    if (a.Ok()) SwitchLog(c, on, c.Log != nullptr);
    return a.Fault;
}

std::string DoEvents(Console& c, Arguments& a) {
    if (a.IsNext("on")) {
        a.Text();
        return TurnOn(c, a);
    }
    if (c.Log == nullptr) return "no log is kept: \"events on\" begins one";
    if (!a.More()) return ShowPage(c, c.T.EventsLogTopLine, LinesOfAPage);
    if (a.IsNext("off") || a.IsNext("next") || a.IsNext("previous")) {
        const std::string word = LowerCase(a.Text());
        if (a.More()) return "nothing may follow \"" + word + "\"";
        if (word == "off") return TurnOff(c);
        return c.Log->Wanted.empty() ? "nothing was looked for yet" : Search(c, word == "next");
    }
    if (a.IsNext("find")) {
        a.Text();
        if (!a.More()) return "the text is missing";
        c.Log->Wanted = a.Rest();
        return Search(c, true);
    }
    constexpr std::uint64_t most = 2'147'483'647;
    const auto top = static_cast<std::int64_t>(a.Count(1, most));
    const int count = a.More() ? static_cast<int>(a.Count(1, most)) : LinesOfAPage;
    if (a.Ok() && a.More()) return "too many words";
    return a.Ok() ? ShowPage(c, top, count) : a.Fault;
}

}  // namespace tarnwick::lab
