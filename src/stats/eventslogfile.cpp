#include "stats/eventslogfile.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <type_traits>
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

/// What code page 1252 may have otherwise than UTF-8, or a line may not hold.
struct OddBytes {
    std::size_t Controls = 0;
    bool BeyondAscii = false;
};

OddBytes FindOddBytes(std::string_view text) {
    OddBytes odd;
    const auto look = [&odd](const char* at, auto length) {
        std::uint8_t all = 0, controls = 0;  // small ones, so that many bytes are looked at together
        for (std::size_t i = 0; i < length; ++i) {
            const auto byte = static_cast<std::uint8_t>(at[i]);
            all = static_cast<std::uint8_t>(all | byte);
            controls = static_cast<std::uint8_t>(controls + (byte < ' ' ? 1 : 0));
        }
        odd.BeyondAscii |= all >= 0x80;
        odd.Controls += controls;
    };
    using Stride = std::integral_constant<std::size_t, 128>;
    std::size_t seen = 0;
    for (; seen + Stride::value <= text.size(); seen += Stride::value) look(text.data() + seen, Stride{});
    look(text.data() + seen, text.size() - seen);
    return odd;
}

/// The line's bytes in the code page, without line breaks.
std::string OneLineOfCodePage(std::string_view line) {
    std::string bytes = ToCodePage(line).Bytes;
    for (char& c : bytes) {
        if (c == '\r' || c == '\n' || c == '\0') c = ' ';
    }
    return bytes;
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

char* EventsLogWriter::Room(std::size_t bytes) {
    const std::size_t end = PendingEnd + bytes + LineEnd.size();
    if (end > Pending.size()) Pending.resize(std::max(2 * end, FirstRoom));
    return Pending.data() + PendingEnd;
}

void EventsLogWriter::Collect(std::string_view line) {
    char* to = Pending.data() + PendingEnd;
    if (line.data() != to) {
        to = Room(line.size());
        std::memmove(to, line.data(), line.size());
    }
    std::memcpy(to + line.size(), LineEnd.data(), LineEnd.size());
    Starts.push_back(static_cast<std::int64_t>(PendingEnd));
    PendingEnd += line.size() + LineEnd.size();
}

/// Brings the pending lines into the code page, where none is longer than in UTF-8. Mostly there is nothing to do.
void EventsLogWriter::EncodePending() {
    const OddBytes odd = FindOddBytes({Pending.data(), PendingEnd});
    if (!odd.BeyondAscii && odd.Controls == Starts.size() * LineEnd.size()) return;
    std::size_t to = 0;
    for (std::size_t n = 0; n < Starts.size(); ++n) {
        const auto from = static_cast<std::size_t>(Starts[n]);
        const std::size_t end = n + 1 < Starts.size() ? static_cast<std::size_t>(Starts[n + 1]) : PendingEnd;
        const std::string line = OneLineOfCodePage({Pending.data() + from, end - from - LineEnd.size()});
        Starts[n] = static_cast<std::int64_t>(to);
        for (const std::string_view part : {std::string_view(line), LineEnd}) {
            std::memcpy(Pending.data() + to, part.data(), part.size());
            to += part.size();
        }
    }
    PendingEnd = to;
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

std::string EventsLogWriter::Open(const EventsLogPaths& paths, bool anew) {
    if (!anew && Log.IsOpen() && paths == Paths) return {};
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

/// Appends the records of the pending lines, the first of which began at byte `start`.
std::string EventsLogWriter::AppendToReference(std::int64_t start, Written& written) {
    const std::string records = ReferenceRecords(Starts, start);
    const std::int64_t end = Reference.Length();
    written.FirstLine = ReferenceLines(end) + 1;
    std::string fault = About(Paths.Reference, Reference.WriteAt(end, records));
    Reference.TakeTimeOf(Log);
    ReferenceEnd = end + static_cast<std::int64_t>(records.size());
    return fault;
}

/// Appends what is pending. Needs both files locked.
void EventsLogWriter::WriteLocked(bool stayOpen, Written& written) {
    const bool ownEnd = KnowsReference();
    ReferenceBehind = !ownEnd && !ReferenceFits(Log, Reference);
    if (ReferenceBehind && !stayOpen) {
        written.Fault = About(Paths.Reference, RebuildReference(Log, Reference));
        if (!written.Fault.empty()) return;
        ReferenceBehind = false;
    }
    const std::int64_t end = ownEnd ? LogEnd : Log.Length();
    LogEnd = -1;  // unknown until all is written
    char last = '\n';
    // A line that a crash cut short is ended first.
    const bool cutShort = !ownEnd && end > 0 && Log.ReadAt(end - 1, &last, 1) == 1 && last != '\n';
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
    if (written.Fault.empty()) LogEnd = start + static_cast<std::int64_t>(lines.size());
}

EventsLogWriter::Written EventsLogWriter::Write(const EventsLogPaths& paths, bool stayOpen) {
    Written written;
    EncodePending();
    constexpr int attempts = 1000;  // each one means that somebody deleted the log between two steps of ours
    for (int i = 0; i < attempts && HasPending(); ++i) {
        const bool replaced = i > 0;
        written.Fault = Open(paths, replaced);
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
    LineCount = ReferenceLines(Reference.Length());
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
