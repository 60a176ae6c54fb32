#include "files/sharedfile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <utility>

#include "files/atomicfile.h"

namespace tarnwick {

namespace {

std::string LastFault() { return SystemFaultText(errno != 0 ? errno : EIO); }

/// Repeats a system call that a signal interrupted.
template <class Call>
auto Repeated(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

/// Some network file systems know no locks. Going without one there is better than keeping no log.
bool HasNoLocks(int fault) { return fault == ENOLCK || fault == ENOTSUP || fault == EINVAL || fault == ENOSYS; }

bool IsOneFile(const struct stat& a, const struct stat& b) { return a.st_dev == b.st_dev && a.st_ino == b.st_ino; }

}  // namespace

std::string SharedFile::Open(const std::string& path, Use use) {
    Close();
    if (path.empty() || path.find('\0') != std::string::npos) return "not a file name";
    int flags = O_CLOEXEC | O_NONBLOCK;  // a pipe without a writer must not hold anybody up
    flags |= use == Use::Read ? O_RDONLY : use == Use::Change ? O_RDWR | O_CREAT : O_RDWR;
    const int handle = Repeated([&] { return open(path.c_str(), flags, 0666); });
    if (handle < 0) return LastFault();
    struct stat status {};
    if (fstat(handle, &status) != 0 || !S_ISREG(status.st_mode)) {
        close(handle);
        return "not a file";
    }
    Handle = handle;
    Path = path;
    return {};
}

std::string SharedFile::OpenLocked(const std::string& path, Use use) {
    constexpr int attempts = 1000;  // each one means that somebody replaced the file between two steps of ours
    for (int i = 0; i < attempts; ++i) {
        std::string fault = Open(path, use);
        if (fault.empty()) fault = Lock();
        if (!fault.empty()) {
            Close();
            return fault;
        }
        if (IsStillThere()) return {};
    }
    Close();
    return "another program keeps replacing it";
}

std::string SharedFile::Lock() {
    const int result = Repeated([&] { return flock(Handle, LOCK_EX); });
    return result == 0 || HasNoLocks(errno) ? std::string() : LastFault();
}

void SharedFile::Unlock() { flock(Handle, LOCK_UN); }

void SharedFile::Close() {
    if (Handle >= 0) close(std::exchange(Handle, -1));
}

bool SharedFile::IsStillThere() const {
    struct stat mine {
    }, there{};
    return fstat(Handle, &mine) == 0 && stat(Path.c_str(), &there) == 0 && IsOneFile(mine, there);
}

bool SharedFile::IsSameAs(const SharedFile& other) const {
    struct stat mine {
    }, others{};
    return fstat(Handle, &mine) == 0 && fstat(other.Handle, &others) == 0 && IsOneFile(mine, others);
}

std::int64_t SharedFile::Length() const {
    struct stat status {};
    return fstat(Handle, &status) == 0 ? status.st_size : 0;
}

std::size_t SharedFile::ReadAt(std::int64_t at, char* bytes, std::size_t length) const {
    std::size_t got = 0;
    while (got < length) {
        const auto place = static_cast<off_t>(at + static_cast<std::int64_t>(got));
        const ssize_t now = Repeated([&] { return pread(Handle, bytes + got, length - got, place); });
        if (now <= 0) break;
        got += static_cast<std::size_t>(now);
    }
    return got;
}

std::string SharedFile::WriteAt(std::int64_t at, std::string_view bytes) {
    while (!bytes.empty()) {
        errno = 0;
        const ssize_t now =
            Repeated([&] { return pwrite(Handle, bytes.data(), bytes.size(), static_cast<off_t>(at)); });
        if (now <= 0) return LastFault();
        bytes.remove_prefix(static_cast<std::size_t>(now));
        at += now;
    }
    return {};
}

std::string SharedFile::Cut(std::int64_t length) {
    return Repeated([&] { return ftruncate(Handle, static_cast<off_t>(length)); }) == 0 ? std::string() : LastFault();
}

std::string SharedFile::Remove() { return unlink(Path.c_str()) == 0 ? std::string() : LastFault(); }

std::int64_t SharedFile::ChangedAt() const {
    struct stat status {};
    return fstat(Handle, &status) == 0 ? status.st_mtim.tv_sec : 0;
}

void SharedFile::TakeTimeOf(const SharedFile& other) {
    struct stat status {};
    if (fstat(other.Handle, &status) != 0) return;
    const timespec times[] = {{0, UTIME_OMIT}, status.st_mtim};
    // The time only saves work: what doesn't fit is built anew.
    if (futimens(Handle, times) != 0) return;
}

bool FileExists(const std::string& path) {
    std::error_code error;
    return !path.empty() && std::filesystem::exists(path, error);
}

}  // namespace tarnwick
