// The Events Log on the disk: a text file, one line an event, in code page 1252 with CR LF ends, and its reference
// file (logreference.h).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "files/sharedfile.h"
#include "stats/logreference.h"

namespace tarnwick {

struct EventsLogPaths {
    std::string Log, Reference;
    bool operator==(const EventsLogPaths&) const = default;
};

/// Collects lines and appends them to the log and its reference. Several programs may append to one log: each puts its
/// lines behind those of the others, whole.
class EventsLogWriter {
  public:
    std::int64_t LongestLog = MaxEventsLogLength;  ///< bytes; less only for tests

    /// Adds a line, in UTF-8. Line breaks in it become blanks.
    void Collect(std::string_view line);
    /// Where a line of up to `bytes` bytes may be put together: Collect, if next, takes it without a copy.
    char* Room(std::size_t bytes);
    bool HasPending() const { return !Starts.empty(); }
    std::size_t PendingBytes() const { return PendingEnd; }
    void DropPending();
    /// The last pending line that `fits`, counted from 1; 0 when there is none.
    std::int32_t LastPending(bool (*fits)(std::string_view line)) const;

    struct Written {
        std::string Fault;           ///< a clause, or nothing; the lines are lost and the log is as it was
        bool Full = false;           ///< the log has no room for all lines; those that didn't fit are lost
        std::int32_t FirstLine = 0;  ///< number of the first line written; 0 when the reference doesn't tell
    };
    /// Writes what was collected. With `stayOpen` the files stay open for the next time, and a reference that isn't
    /// this log's is left to Close; else both are closed behind it. Nothing but the order of lines depends on that.
    Written Write(const EventsLogPaths& paths, bool stayOpen);
    /// Closes both files; a reference that fell behind is built anew. Returns what is wrong, or nothing.
    std::string Close();

  private:
    void EncodePending();
    std::string Open(const EventsLogPaths& paths, bool anew);
    void WriteLocked(bool stayOpen, Written& written);
    void KeepWhatFits(std::int64_t room, Written& written);
    std::string AppendToReference(std::int64_t start, Written& written);
    bool KnowsReference() const;

    std::string Pending;  ///< in UTF-8 up to PendingEnd; what lies behind is room
    std::size_t PendingEnd = 0;
    std::vector<std::int64_t> Starts;  ///< of the pending lines, within Pending
    EventsLogPaths Paths;
    SharedFile Log, Reference;
    std::int64_t LogEnd = -1, ReferenceEnd = -1;  ///< as this writer left them; -1 unknown
    bool ReferenceBehind = false;
};

/// Deletes both files, as far as they are there. Returns what is wrong, or nothing.
std::string DeleteEventsLog(const EventsLogPaths& paths);

/// Reads any line of a log, whatever its length.
class EventsLogReader {
  public:
    /// Opens both files; a reference that isn't the log's is built anew first. A log that isn't there has no lines and
    /// is no fault.
    std::string Open(const EventsLogPaths& paths);
    std::int32_t Lines() const { return LineCount; }
    /// Lines `top` to `top` + `count` - 1, as far as there are such, in UTF-8.
    std::vector<std::string> Page(std::int32_t top, int count) const;
    /// The first line that holds `text`, in capitals or small letters, from the line behind `from` on, or backward from
    /// the one before it; around the ends of the log, line `from` last. 0 when there is none or `text` is empty.
    std::int32_t Find(std::string_view text, std::int32_t from, bool forward) const;

  private:
    std::int32_t FindIn(const std::string& wanted, std::int32_t first, std::int32_t last, bool lastMatch) const;
    std::int32_t FindBackward(const std::string& wanted, std::int32_t first, std::int32_t last) const;

    SharedFile Log, Reference;
    std::int32_t LineCount = 0;
};

/// Text to be looked for in a log: small letters of the code page. Nothing can be found by a text that the page
/// lacks characters for, which gives an empty one.
std::string SearchBytes(std::string_view text);
/// Whether a line of a log, as its bytes, holds what SearchBytes gave.
bool LineHolds(const std::string& line, const std::string& wanted);

/// The scroll bar of a log of `lines` lines: 1..lines, above 30,000 lines 1..30,000 in proportion.
constexpr std::int32_t LongestScrollRange = 30'000;
std::int32_t ScrollRange(std::int32_t lines);
std::int32_t ScrollValueOf(std::int32_t topLine, std::int32_t lines);
std::int32_t TopLineOf(std::int32_t scrollValue, std::int32_t lines);
/// `topLine` within 1..lines; 1 for an empty log.
std::int32_t ClampedTopLine(std::int64_t topLine, std::int32_t lines);

/// "Events Log", or "Events Log (name)" for a log that isn't called by the default name.
std::string EventsLogCaption(std::string_view path);
constexpr std::string_view DefaultEventsLogName = "Events Log.txt";
constexpr std::string_view EventsLogReferenceName = "Events Log.ref";

}  // namespace tarnwick
