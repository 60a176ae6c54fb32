// Any bytes as a Sessions Log: what is read lies inside the file, the figures hold together, and what is added to a log
// or deleted from it leaves the other sessions as they are. A file that is no log keeps its bytes.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "files/atomicfile.h"
#include "scratch.h"
#include "stats/sessionsview.h"

namespace {

using namespace tarnwick;

void Require(bool holds) {
    if (!holds) std::abort();
}

const std::string& Path() {
    static const std::string path = ScratchFile("sessions.slg");
    return path;
}

std::string Bytes() {
    std::string bytes;
    Require(ReadWholeFile(Path(), 1 << 30, bytes).empty());
    return bytes;
}

std::vector<SessionRecord> All() {
    SessionsLog log;
    Require(log.Open(Path()).empty());
    std::vector<SessionRecord> records;
    log.Read(1, log.Count(), records);
    Require(static_cast<std::int32_t>(records.size()) == log.Count());
    return records;
}

void CheckFigures(const SessionsLog& log, const SessionsQuery& view) {
    const SessionStatistics s = SumUpSessions(log, view, {SessionsMark{Dollars(1), {}}, SessionsMark{{}, 1.5}});
    Require(s.Won + s.Even + s.Lost == s.Sessions);
    Require(0 <= s.Included && s.Included <= s.Sessions && s.Between <= s.Included);
    std::int64_t inBins = 0;
    for (const HistogramBin& bin : s.Bins) inBins += bin.Count;
    Require(inBins == s.Included);
    if (s.Included > 0) {
        Require(s.Low <= s.Median && s.Median <= s.High && s.Low <= s.Mode && s.Mode <= s.High);
        Require(s.Low <= s.Mid && s.Mid <= s.High);
        Require(s.Variance >= currency{} && s.Deviation >= currency{});
    }
    for (const int width : {1, 105}) HistogramBars(s, width);
    DistributionLabels(s, view.Stat);
    ClassLabels(s, view);
    const auto lines = RawDataPage(log, view, 1, 50);
    for (const RawDataLine& line : lines) Require(1 <= line.Session && line.Session <= log.Count());
    if (!lines.empty()) Require(FindSession(log, view, lines.back().Value, lines.back().Session, true) != 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    std::ofstream(Path(), std::ios::binary | std::ios::trunc) << input;
    SessionsLog log;
    if (!log.Open(Path()).empty()) {
        Require(log.Count() == 0 && !AppendSessionRecord(Path(), {}).empty() && Bytes() == input);
        return 0;
    }
    Require(static_cast<std::size_t>(log.Count()) <= size / 256);
    const int stat = size == 0 ? 0 : data[size - 1] % SessionStatCount;
    CheckFigures(log, {stat, true, true, true, {}, {}});
    CheckFigures(log, {SessionStat::MoneyNet, true, false, true, Dollars(-10), Dollars(10)});

    std::vector<SessionRecord> expected = All();
    SessionRecord added{};
    added[0] = Dollars(42);
    Require(AppendSessionRecord(Path(), added).empty());
    expected.push_back(added);
    Require(All() == expected);
    if (expected.size() > 1) {
        Require(DeleteSessions(Path(), 1, 1).empty());
        expected.erase(expected.begin());
        Require(All() == expected);
    }
    std::remove(Path().c_str());
    return 0;
}
