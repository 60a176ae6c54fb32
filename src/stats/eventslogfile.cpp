#include "stats/eventslogfile.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "files/codepage.h"
#include "table/format.h"

namespace tarnwick {

namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr std::size_t FirstRoom = 4'096;  ///< bytes for pending lines

/// Small letters of code page 1252.
char LowerByte(char c) {
    const auto byte = static_cast<std::uint8_t>(c);
    const bool letter = ('A' <= c && c <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7);
    if (letter) return static_cast<char>(byte + 0x20);
    if (byte == 0x8A || byte == 0x8C || byte == 0x8E) return static_cast<char>(byte + 0x10);
    return byte == 0x9F ? static_cast<char>(0xFF) : c;
}

void Lower(std::string& bytes) { std::transform(bytes.begin(), bytes.end(), bytes.begin(), LowerByte); }

/// Whether all characters are printable ones of ASCII. Eight at a time: every line of a run comes by here.
bool IsPlain(std::string_view text) {
    if (text.size() < 8) return std::all_of(text.begin(), text.end(), [](char c) { return ' ' <= c && c <= '~'; });
    constexpr std::uint64_t each = 0x0101010101010101u;
    std::uint64_t odd = 0;
    const auto look = [&odd](const char* at) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, at, 8);
        // A byte below 20 borrows, one of 7F or above has or gets the top bit; a borrow can only add an odd one.
        odd |= (eight - each * 0x20) | (eight + each) | eight;
    };
    const char* last = text.data() + text.size() - 8;
    for (const char* at = text.data(); at < last; at += 8) look(at);
    look(last);
    return (odd & each * 0x80) == 0;
}

/// Both locked, the reference first: every program takes them in this order.
class BothLocked {
  public:
    BothLocked(SharedFile& log, SharedFile& reference) : Log(log), Reference(reference) {
        Fault = reference.Lock();
        if (Fault.empty()) Fault = log.Lock();
    }
    ~BothLocked() {
        Log.Unlock();
        Reference.Unlock();
    }
    BothLocked(const BothLocked&) = delete;
    BothLocked& operator=(const BothLocked&) = delete;

    std::string Fault;

  private:
    SharedFile& Log;
    SharedFile& Reference;
};

/// What a fault is about.
std::string About(const std::string& path, const std::string& fault) {
    return fault.empty() ? std::string() : path + ": " + fault;
}

}  // namespace

// --- writing ---

void EventsLogWriter::Collect(std::string_view line) {
    std::string converted;
    if (!IsPlain(line)) {
        converted = ToCodePage(line).Bytes;
        for (char& c : converted) {
            if (c == '\r' || c == '\n' || c == '\0') c = ' ';
        }
        line = converted;
    }
    Starts.push_back(static_cast<std::int64_t>(PendingEnd));
    const std::size_t end = PendingEnd + line.size() + LineEnd.size();
    if (end > Pending.size()) Pending.resize(std::max(2 * end, FirstRoom));
    char* to = Pending.data() + PendingEnd;
    std::memcpy(to, line.data(), line.size());
    std::memcpy(to + line.size(), LineEnd.data(), LineEnd.size());
    PendingEnd = end;
}

void EventsLogWriter::DropPending() {
    PendingEnd = 0;
    Starts.clear();
}

std::int32_t EventsLogWriter::LastPending(bool (*fits)(std::string_view line)) const {
    std::size_t end = PendingEnd;
    for (std::size_t n = Starts.size(); n > 0; --n) {
        const auto start = static_cast<std::size_t>(Starts[n - 1]);
        if (fits(std::string_view(Pending.data() + start, end - start - LineEnd.size()))) {
            return static_cast<std::int32_t>(n);
        }
        end = start;
    }
    return 0;
}

std::string EventsLogWriter::Open(const EventsLogPaths& paths) {
    if (Log.IsOpen() && paths == Paths && Log.IsStillThere() && Reference.IsStillThere()) return {};
    std::string fault = Close();
    if (!fault.empty()) return fault;
    Paths = paths;
    LogEnd = ReferenceEnd = -1;
    ReferenceBehind = false;
    fault = About(paths.Reference, Reference.Open(paths.Reference, SharedFile::Use::Change));
    if (fault.empty()) fault = About(paths.Log, Log.Open(paths.Log, SharedFile::Use::Change));
    if (fault.empty() && Log.IsSameAs(Reference)) fault = About(paths.Log, "a log can't be its own reference file");
    if (!fault.empty()) {
        Log.Close();
        Reference.Close();
    }
    return fault;
}

/// Whether nobody else wrote since this writer did.
bool EventsLogWriter::KnowsReference() const {
    return !ReferenceBehind && LogEnd >= 0 && Log.Length() == LogEnd && Reference.Length() == ReferenceEnd;
}

/// Drops the lines that begin or end behind `room` bytes.
void EventsLogWriter::KeepWhatFits(std::int64_t room, Written& written) {
    while (static_cast<std::int64_t>(PendingEnd) > room && !Starts.empty()) {
        PendingEnd = static_cast<std::size_t>(Starts.back());
        Starts.pop_back();
        written.Full = true;
    }
}

/// The records of the pending lines, the first of which began at byte `start`.
std::string EventsLogWriter::AppendToReference(std::int64_t start, Written& written) {
    const std::string records = ReferenceRecords(Starts, start);
    written.FirstLine = ReferenceLines(Reference) + 1;
    std::string fault = About(Paths.Reference, Reference.WriteAt(Reference.Length(), records));
    Reference.TakeTimeOf(Log);
    return fault;
}

/// Appends what is pending. Needs both files locked.
void EventsLogWriter::WriteLocked(bool stayOpen, Written& written) {
    ReferenceBehind = !KnowsReference() && !ReferenceFits(Log, Reference);
    if (ReferenceBehind && !stayOpen) {
        written.Fault = About(Paths.Reference, RebuildReference(Log, Reference));
        if (!written.Fault.empty()) return;
        ReferenceBehind = false;
    }
    LogEnd = -1;  // unknown until all is written
    const std::int64_t end = Log.Length();
    char last = '\n';
    // A line that a crash cut short is ended first.
    const bool cutShort = end > 0 && Log.ReadAt(end - 1, &last, 1) == 1 && last != '\n';
    const std::int64_t start = end + (cutShort ? static_cast<std::int64_t>(LineEnd.size()) : 0);
    KeepWhatFits(LongestLog - start, written);
    if (!HasPending()) return;
    const std::string_view lines(Pending.data(), PendingEnd);
    written.Fault =
        About(Paths.Log, cutShort ? Log.WriteAt(end, std::string(LineEnd).append(lines)) : Log.WriteAt(end, lines));
    if (!written.Fault.empty()) {
        Log.Cut(end);
        return;
    }
    if (!ReferenceBehind) written.Fault = AppendToReference(start, written);
    if (!written.Fault.empty()) return;
    LogEnd = Log.Length();
    ReferenceEnd = Reference.Length();
}

EventsLogWriter::Written EventsLogWriter::Write(const EventsLogPaths& paths, bool stayOpen) {
    Written written;
    constexpr int attempts = 1000;  // each one means that somebody deleted the log between two steps of ours
    for (int i = 0; i < attempts && HasPending(); ++i) {
        written.Fault = Open(paths);
        if (!written.Fault.empty()) break;
        const BothLocked lock(Log, Reference);
        written.Fault = About(paths.Log, lock.Fault);
        if (!written.Fault.empty()) break;
        if (!Log.IsStillThere() || !Reference.IsStillThere()) continue;
        WriteLocked(stayOpen, written);
        DropPending();
    }
    DropPending();
    if (!stayOpen) {
        const std::string fault = Close();
        if (written.Fault.empty()) written.Fault = fault;
    }
    return written;
}

std::string EventsLogWriter::Close() {
    std::string fault;
    if (ReferenceBehind && Log.IsOpen()) {
        const BothLocked lock(Log, Reference);
        fault = lock.Fault;
        if (fault.empty() && Log.IsStillThere() && Reference.IsStillThere() && !ReferenceFits(Log, Reference)) {
            fault = About(Paths.Reference, RebuildReference(Log, Reference));
        }
    }
    ReferenceBehind = false;
    Log.Close();
    Reference.Close();
    return fault;
}

std::string DeleteEventsLog(const EventsLogPaths& paths) {
    std::string fault;
    for (const std::string& path : {paths.Reference, paths.Log}) {
        SharedFile file;
        if (!FileExists(path)) continue;
        std::string wrong = file.OpenLocked(path, SharedFile::Use::ChangeExisting);
        if (wrong.empty()) wrong = file.Remove();
        if (fault.empty() && FileExists(path)) fault = About(path, wrong);
    }
    return fault;
}

// --- reading ---

std::string EventsLogReader::Open(const EventsLogPaths& paths) {
    LineCount = 0;
    Reference.Close();
    if (!FileExists(paths.Log)) return {};
    std::string fault = About(paths.Log, Log.Open(paths.Log, SharedFile::Use::Read));
    if (!fault.empty()) return fault;
    if (!Reference.Open(paths.Reference, SharedFile::Use::Read).empty() || !ReferenceFits(Log, Reference)) {
        // A log that may only be read is read all the same.
        if (!Log.Open(paths.Log, SharedFile::Use::ChangeExisting).empty()) {
            fault = About(paths.Log, Log.Open(paths.Log, SharedFile::Use::Read));
        }
        if (fault.empty()) fault = About(paths.Reference, Reference.Open(paths.Reference, SharedFile::Use::Change));
        if (fault.empty() && Log.IsSameAs(Reference)) fault = About(paths.Log, "a log can't be its own reference file");
        if (!fault.empty()) return fault;
        const BothLocked lock(Log, Reference);
        if (!ReferenceFits(Log, Reference)) fault = About(paths.Reference, RebuildReference(Log, Reference));
        if (!fault.empty()) return fault;
    }
    LineCount = ReferenceLines(Reference);
    return {};
}

std::vector<std::string> EventsLogReader::Page(std::int32_t top, int count) const {
    std::vector<std::string> page;
    if (LineCount == 0 || top < 1 || top > LineCount) return page;
    const std::int64_t start = LineStart(Log, Reference, top);
    if (start < 0) return page;
    LineStream lines(Log, start);
    std::string line;
    while (static_cast<int>(page.size()) < count && lines.Next(line)) page.push_back(FromCodePage(line));
    return page;
}

/// The first or last match among lines `first` to `last`; 0 without one.
std::int32_t EventsLogReader::FindIn(const std::string& wanted, std::int32_t first, std::int32_t last,
                                     bool lastMatch) const {
    if (first > last) return 0;
    const std::int64_t start = LineStart(Log, Reference, first);
    if (start < 0) return 0;
    LineStream lines(Log, start);
    std::string line;
    std::int32_t found = 0;
    for (std::int32_t n = first; n <= last && lines.Next(line); ++n) {
        if (!LineHolds(line, wanted)) continue;
        found = n;
        if (!lastMatch) break;
    }
    return found;
}

std::int32_t EventsLogReader::FindBackward(const std::string& wanted, std::int32_t first, std::int32_t last) const {
    constexpr std::int32_t linesAtOnce = 1'000;
    for (std::int32_t end = last; end >= first; end -= linesAtOnce) {
        const std::int32_t begin = std::max(first, end - linesAtOnce + 1);
        if (const std::int32_t found = FindIn(wanted, begin, end, true); found != 0) return found;
    }
    return 0;
}

std::int32_t EventsLogReader::Find(std::string_view text, std::int32_t from, bool forward) const {
    const std::string wanted = SearchBytes(text);
    if (wanted.empty() || LineCount == 0) return 0;
    from = ClampedTopLine(from, LineCount);
    std::int32_t found = 0;
    if (forward) {
        found = FindIn(wanted, from + 1, LineCount, false);
        return found != 0 ? found : FindIn(wanted, 1, from, false);
    }
    found = FindBackward(wanted, 1, from - 1);
    return found != 0 ? found : FindBackward(wanted, from, LineCount);
}

std::string SearchBytes(std::string_view text) {
    Encoded encoded = ToCodePage(text);
    if (encoded.Unencodable > 0) return {};
    Lower(encoded.Bytes);
    return encoded.Bytes;
}

bool LineHolds(const std::string& line, const std::string& wanted) {
    const auto same = [](char inLine, char lowered) { return LowerByte(inLine) == lowered; };
    return std::search(line.begin(), line.end(), wanted.begin(), wanted.end(), same) != line.end() || wanted.empty();
}

// --- the view ---

std::int32_t ScrollRange(std::int32_t lines) { return std::clamp(lines, 1, LongestScrollRange); }

std::int32_t ClampedTopLine(std::int64_t topLine, std::int32_t lines) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(topLine, 1, std::max(lines, 1)));
}

std::int32_t ScrollValueOf(std::int32_t topLine, std::int32_t lines) {
    const std::int64_t top = ClampedTopLine(topLine, lines);
    if (lines <= LongestScrollRange) return static_cast<std::int32_t>(top);
    return static_cast<std::int32_t>(1 + (top - 1) * (LongestScrollRange - 1) / (lines - 1));
}

std::int32_t TopLineOf(std::int32_t scrollValue, std::int32_t lines) {
    const std::int64_t value = std::clamp(scrollValue, 1, ScrollRange(lines));
    if (lines <= LongestScrollRange) return static_cast<std::int32_t>(value);
    constexpr std::int64_t steps = LongestScrollRange - 1;
    // Rounded up, so that the value of a top line leads back to one that has this value.
    return static_cast<std::int32_t>(1 + ((value - 1) * (lines - 1) + steps - 1) / steps);
}

std::string EventsLogCaption(std::string_view path) {
    const std::string_view name = path.substr(path.find_last_of("/\\") + 1);
    if (LowerCase(name) == LowerCase(DefaultEventsLogName)) return "Events Log";
    return "Events Log (" + std::string(name) + ")";
}

}  // namespace tarnwick
