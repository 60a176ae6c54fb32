// Any bytes as an Events Log and as its reference: reading ends and stays inside the log, a search finds only lines
// that hold its text, and a line that is added is the last one. The first two bytes say how long the log is; the
// reference follows it.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "files/atomicfile.h"
#include "files/codepage.h"
#include "scratch.h"
#include "stats/eventslogfile.h"

namespace {

using namespace tarnwick;

void Require(bool holds) {
    if (!holds) std::abort();
}

const EventsLogPaths& Paths() {
    static const EventsLogPaths paths{ScratchFile("events.txt"), ScratchFile("events.ref")};
    return paths;
}

void Write(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

void Look(EventsLogReader& reader, std::size_t longest) {
    Require(reader.Open(Paths()).empty());
    const std::int32_t lines = reader.Lines();
    for (const std::int32_t top : {1, lines / 2, lines, lines + 1}) {
        const auto page = reader.Page(top, 100);
        Require(page.size() <= 100);
        for (const std::string& line : page) Require(line.size() <= 3 * longest && IsUtf8(line));
    }
    for (const bool forward : {true, false}) {
        const std::int32_t found = reader.Find("a", lines / 2, forward);
        Require(0 <= found && found <= lines);
        if (found == 0) continue;
        const auto page = reader.Page(found, 1);
        Require(page.size() == 1 && page[0].find_first_of("aA") != std::string::npos);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const std::size_t length = std::min<std::size_t>(data[0] + 256u * data[1], size - 2);
    const std::string all(reinterpret_cast<const char*>(data) + 2, size - 2);
    const std::string log = all.substr(0, length);
    Write(Paths().Log, log);
    Write(Paths().Reference, all.substr(length));
    std::filesystem::last_write_time(Paths().Reference, std::filesystem::last_write_time(Paths().Log));
    EventsLogReader reader;
    Look(reader, length);

    EventsLogWriter writer;
    writer.Collect("added");
    const auto written = writer.Write(Paths(), size % 2 == 0);
    Require(written.Fault.empty() && !written.Full && writer.Close().empty());
    std::string bytes;
    Require(ReadWholeFile(Paths().Log, 1 << 20, bytes).empty());
    Require(bytes.substr(0, length) == log && bytes.substr(bytes.size() - 7) == "added\r\n");
    Require(reader.Open(Paths()).empty() && reader.Lines() > 0);
    Require(reader.Page(reader.Lines(), 2) == std::vector<std::string>{"added"});

    // A reference that was built from the log knows every line.
    std::remove(Paths().Reference.c_str());
    Require(reader.Open(Paths()).empty());
    Require(reader.Lines() == std::count(bytes.begin(), bytes.end(), '\n'));
    Require(static_cast<std::int32_t>(reader.Page(1, 1 << 20).size()) == reader.Lines());
    std::remove(Paths().Log.c_str());
    std::remove(Paths().Reference.c_str());
    return 0;
}
