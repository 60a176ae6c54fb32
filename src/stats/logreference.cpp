#include "stats/logreference.h"

#include <algorithm>
#include <array>

namespace tarnwick {

namespace {

constexpr std::int64_t RecordBytes = 4;
constexpr std::size_t BlockLength = 65'536;

std::int64_t ReadRecord(const SharedFile& reference, std::int64_t record) {
    std::array<char, RecordBytes> bytes{};
    if (reference.ReadAt((record - 1) * RecordBytes, bytes.data(), bytes.size()) != bytes.size()) return -1;
    std::uint32_t number = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) number = number << 8 | static_cast<std::uint8_t>(bytes[i]);
    return static_cast<std::int32_t>(number);
}

/// The record of a line that begins at byte `start`.
std::array<char, RecordBytes> RecordOf(std::int64_t start) {
    const auto number = static_cast<std::uint32_t>(start + 1);
    return {static_cast<char>(number & 0xFF), static_cast<char>(number >> 8 & 0xFF),
            static_cast<char>(number >> 16 & 0xFF), static_cast<char>(number >> 24)};
}

/// Whether a line begins at byte `start` and no other one behind it.
bool IsLastLine(const SharedFile& log, std::int64_t start) {
    char before = '\n';
    if (start > 0 && (log.ReadAt(start - 1, &before, 1) != 1 || before != '\n')) return false;
    std::string line;
    LineStream lines(log, start);
    return lines.Next(line) && !lines.Next(line);
}

/// "Touches" the log without a change. A file of less than four bytes has nothing to write back.
void WriteFirstBytesBack(SharedFile& log) {
    std::array<char, RecordBytes> first{};
    if (log.ReadAt(0, first.data(), first.size()) != first.size()) return;
    log.WriteAt(0, {first.data(), first.size()});  // a log that can't be written is read all the same
}

}  // namespace

void AppendReferenceRecord(std::string& records, std::int64_t start) {
    const std::array<char, RecordBytes> bytes = RecordOf(start);
    records.append(bytes.data(), bytes.size());
}

std::string ReferenceRecords(const std::vector<std::int64_t>& lines, std::int64_t start) {
    std::string records(RecordBytes * lines.size(), '\0');
    char* to = records.data();
    for (const std::int64_t line : lines) {
        const std::array<char, RecordBytes> bytes = RecordOf(start + line);
        to = std::copy(bytes.begin(), bytes.end(), to);
    }
    return records;
}

std::int32_t ReferenceLines(std::int64_t length) {
    return static_cast<std::int32_t>(std::min(length / RecordBytes, MaxEventsLogLength));
}

std::int64_t LineStart(const SharedFile& log, const SharedFile& reference, std::int32_t line) {
    if (line < 1) return -1;
    const std::int64_t start = ReadRecord(reference, line) - 1;
    return start >= 0 && start < log.Length() ? start : -1;
}

bool ReferenceFits(const SharedFile& log, const SharedFile& reference) {
    const std::int64_t length = reference.Length();
    if (log.Length() == 0 || length == 0) return log.Length() == length;
    if (length % RecordBytes != 0 || log.ChangedAt() != reference.ChangedAt()) return false;
    const std::int64_t start = LineStart(log, reference, ReferenceLines(length));
    return start >= 0 && IsLastLine(log, start);
}

std::string RebuildReference(SharedFile& log, SharedFile& reference) {
    std::string fault = reference.Cut(0);
    std::string records, line;
    std::int64_t written = 0;
    const auto write = [&] {
        if (fault.empty()) fault = reference.WriteAt(written, records);
        written += static_cast<std::int64_t>(records.size());
        records.clear();
    };
    LineStream lines(log);
    while (fault.empty() && lines.Next(line)) {
        AppendReferenceRecord(records, lines.LineBegan());
        if (records.size() >= BlockLength) write();
    }
    write();
    if (!fault.empty()) return fault;
    WriteFirstBytesBack(log);
    reference.TakeTimeOf(log);
    return {};
}

bool LineStream::Fill() {
    const auto left = static_cast<std::size_t>(std::clamp<std::int64_t>(End - At, 0, BlockLength));
    Block.resize(left);
    Block.resize(Log.ReadAt(At, Block.data(), left));
    At += static_cast<std::int64_t>(Block.size());
    Used = 0;
    return !Block.empty();
}

bool LineStream::Next(std::string& line) {
    line.clear();
    if (Used == Block.size() && !Fill()) return false;
    Began = At - static_cast<std::int64_t>(Block.size() - Used);
    do {
        const std::size_t end = std::min(Block.find('\n', Used), Block.size());
        line.append(Block, Used, std::min(end - Used, MaxEventsLogLine - std::min(line.size(), MaxEventsLogLine)));
        Used = end;
        if (Used < Block.size()) {
            ++Used;
            break;
        }
    } while (Fill());
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return true;
}

}  // namespace tarnwick
