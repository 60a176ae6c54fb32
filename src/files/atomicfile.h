// Files read and replaced as a whole.
#pragma once

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>

namespace tarnwick {

/// What the error number of the system means, as a clause without a full stop.
std::string SystemFaultText(int number);

/// Reads the whole file `path` into `bytes`; returns what is wrong as a clause ("No such file or directory", "not a
/// file"), or nothing. After a fault, or when the file is longer than `longest` bytes, `bytes` is as it was.
std::string ReadWholeFile(const std::string& path, std::uintmax_t longest, std::string& bytes);

/// Replaces the file `path` by `bytes`, or makes it: they are written to PATH.tmp~, which is flushed to the disk and
/// then renamed. Returns what is wrong as a clause, or nothing. After a fault the old file is whole and nothing else is
/// left; after a crash there may be a PATH.tmp~. A link is followed: what it points to is replaced. The file keeps its
/// permissions.
std::string ReplaceFile(const std::string& path, std::string_view bytes);

/// Takes the bytes of a file that is being written, in order.
class ByteSink {
  public:
    explicit ByteSink(std::FILE* file) : File(file) {}
    /// False after a fault; later bytes are then dropped too.
    bool Put(std::string_view bytes);
    bool Good() const { return Number == 0; }
    /// The system's number of the first fault, or 0.
    int FaultNumber() const { return Number; }

  private:
    std::FILE* File;
    int Number = 0;
};

/// ReplaceFile for a file too long for memory: `write` puts its bytes and returns what is wrong, or nothing. After a
/// fault of `write` or of the disk the old file is whole, and stays. `write` may read the old file.
std::string ReplaceFileBy(const std::string& path, const std::function<std::string(ByteSink&)>& write);

}  // namespace tarnwick
