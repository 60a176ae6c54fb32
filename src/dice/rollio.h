// Dice roll files as bytes on the disk: checked, read and rewritten a block at a time, whatever their length.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <string_view>

namespace tarnwick {

/// The highest roll number of a file.
constexpr std::int32_t LastPossibleRecord = std::numeric_limits<std::int32_t>::max() - 1;

/// The name of a file without its folders; "/", "\" and ":" end a folder.
std::string ShortFileName(const std::string& path);

/// What a message says of a dice roll file that can't be used because of `why`.
std::string CannotUseRollFile(const std::string& path, const std::string& why);

/// Checks every byte of a dice roll file and counts its rolls into `length`; returns what is wrong, or nothing. A file
/// of more than LastPossibleRecord rolls is refused.
std::string CheckRollFile(const std::string& path, std::int32_t& length);

/// Part of a dice roll file, `First` counted from 1.
struct RollStretch {
    std::string Path;
    std::int64_t First = 1;
    std::int64_t Count = 0;
};

/// Hands the stretch to `take` block by block until it returns false; returns what went wrong, or nothing. Where the
/// file ends before the stretch does is a fault.
std::string ReadRolls(const RollStretch& stretch, const std::function<bool(std::string_view)>& take);

/// Rolls that go into a file: those in memory, then the stretch.
struct RollSource {
    std::string Bytes;
    RollStretch Stretch;

    std::int64_t Count() const { return static_cast<std::int64_t>(Bytes.size()) + Stretch.Count; }
};

/// Puts `source` into the file `path` of `length` rolls in place of `removed` rolls from `first` on, first + removed -
/// 1
/// <= length. A new file takes the old one's place, so that a fault or a crash leaves the one or the other whole; only
/// a few rolls at the end, or one roll changed, are written where they are. Returns what went wrong, or nothing.
std::string SpliceRolls(const std::string& path, std::int64_t length, std::int64_t first, std::int64_t removed,
                        const RollSource& source);

/// Writes the stretch as a dice roll file of its own, which replaces `path`. Returns what went wrong, or nothing.
std::string CopyStretch(const RollStretch& stretch, const std::string& path);

}  // namespace tarnwick
