// Files that several programs, or several handles of one, may change in turn: logs. The one place that knows how the
// system locks a file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwick {

/// A file open by its path. Everything but Open and Close needs an open one. Faults are clauses without a full stop
/// ("No space left on device"); an empty text means that all went well.
class SharedFile {
  public:
    enum class Use {
        Read,            ///< the file must exist
        ChangeExisting,  ///< the same, for reading and writing
        Change,          ///< made when missing
    };

    SharedFile() = default;
    ~SharedFile() { Close(); }
    SharedFile(const SharedFile&) = delete;
    SharedFile& operator=(const SharedFile&) = delete;

    /// Closes what was open. Folders, pipes and the like are refused.
    std::string Open(const std::string& path, Use use);
    /// Opens for a change and locks, until Close: waits as long as another handle holds the lock. The path leads to the
    /// file that was locked, even if others delete and replace it meanwhile.
    std::string OpenLocked(const std::string& path, Use use = Use::Change);
    /// Locks an open file and lets it go again. After Lock, IsStillThere tells whether the lock is worth anything.
    std::string Lock();
    void Unlock();
    void Close();
    bool IsOpen() const { return Handle >= 0; }
    /// Whether the path still leads to this file.
    bool IsStillThere() const;
    /// Whether both are open on one file. Locking both would wait for ever.
    bool IsSameAs(const SharedFile& other) const;

    /// Bytes; 0 when the system doesn't tell.
    std::int64_t Length() const;
    /// Reads up to `length` bytes from byte `at` on; returns how many, less at the end of the file or after a fault.
    std::size_t ReadAt(std::int64_t at, char* bytes, std::size_t length) const;
    std::string WriteAt(std::int64_t at, std::string_view bytes);
    /// Cuts the file behind `length` bytes.
    std::string Cut(std::int64_t length);
    /// Deletes the file by its path; it stays open.
    std::string Remove();

    /// When the file was changed last, in whole seconds.
    std::int64_t ChangedAt() const;
    /// Takes over that time from `other`. A system that refuses leaves it as it is.
    void TakeTimeOf(const SharedFile& other);

  private:
    std::string Path;
    int Handle = -1;
};

/// Whether `path` leads to a file, of whatever kind.
bool FileExists(const std::string& path);

}  // namespace tarnwick
