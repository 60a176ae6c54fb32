// The Events Log's reference file: for each line the place where it begins, so that any line of a log of any length is
// at hand.
//
// Record n, from 1, is a 32-bit little-endian number: 1 + the byte at which line n begins in the log. A line ends with
// LF; a CR ahead of it belongs to the end.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "files/sharedfile.h"

namespace tarnwick {

/// What a log may hold: no place behind it fits a record. Bytes behind it belong to no line.
constexpr std::int64_t MaxEventsLogLength = 2'147'483'647;
/// Bytes of a line that are kept; the rest of a longer one is passed over.
constexpr std::size_t MaxEventsLogLine = 1 << 20;

/// Whether the reference is that of the log: both were changed in the same second, and the last record is where the
/// log's last line begins.
bool ReferenceFits(const SharedFile& log, const SharedFile& reference);

/// Builds the reference anew from the log. Needs both locked. The log's first bytes are written back, so that
/// others see by its time that it was read; a log that can't be changed stays as it is. Returns what is wrong, or
/// nothing.
std::string RebuildReference(SharedFile& log, SharedFile& reference);

/// Lines that a reference of `length` bytes lists.
std::int32_t ReferenceLines(std::int64_t length);
/// Byte at which line n >= 1 begins, from 0; -1 when the reference has no such line or a place outside `log`.
std::int64_t LineStart(const SharedFile& log, const SharedFile& reference, std::int32_t line);

/// Adds the record of a line that begins at byte `start`, from 0.
void AppendReferenceRecord(std::string& records, std::int64_t start);
/// The records of lines that begin at bytes `start` + `lines`, from 0.
std::string ReferenceRecords(const std::vector<std::int64_t>& lines, std::int64_t start);

/// Reads a log line by line.
class LineStream {
  public:
    /// From byte `start` on, up to byte `end` at most, and never beyond MaxEventsLogLength. `log` must outlive it.
    explicit LineStream(const SharedFile& log, std::int64_t start = 0, std::int64_t end = MaxEventsLogLength)
        : Log(log), At(start), End(end < MaxEventsLogLength ? end : MaxEventsLogLength) {}

    /// The next line's bytes without its end; false behind the last one.
    bool Next(std::string& line);
    /// Byte at which the line that Next gave last begins.
    std::int64_t LineBegan() const { return Began; }

  private:
    bool Fill();

    const SharedFile& Log;
    std::int64_t At, End, Began = 0;
    std::string Block;
    std::size_t Used = 0;
};

}  // namespace tarnwick
