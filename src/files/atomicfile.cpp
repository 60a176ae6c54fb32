#include "files/atomicfile.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#ifdef _WIN32
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace tarnwick {

namespace {

namespace fs = std::filesystem;

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

std::string LastFault() { return SystemFaultText(errno != 0 ? errno : EIO); }

bool IsName(const std::string& path) { return !path.empty() && path.find('\0') == std::string::npos; }

#ifdef _WIN32
int SyncFile(std::FILE* file) { return _commit(_fileno(file)); }
void SyncFolder(const fs::path&) {}
#else
int SyncFile(std::FILE* file) { return fsync(fileno(file)); }

/// Makes a rename lasting. Some file systems can't; the file is whole all the same.
void SyncFolder(const fs::path& folder) {
    const int handle = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (handle < 0) return;
    fsync(handle);
    close(handle);
}
#endif

/// Writes and flushes a new file; returns what is wrong, or nothing.
std::string WriteFile(const fs::path& path, const std::function<std::string(ByteSink&)>& write) {
    errno = 0;
    File file(std::fopen(path.string().c_str(), "wb"));
    if (file == nullptr) return LastFault();
    ByteSink sink(file.get());
    std::string fault = write(sink);
    if (!sink.Good()) return SystemFaultText(sink.FaultNumber());
    if (!fault.empty()) return fault;
    errno = 0;
    if (std::fflush(file.get()) != 0 || SyncFile(file.get()) != 0) return LastFault();
    return std::fclose(file.release()) == 0 ? std::string() : LastFault();
}

/// The file that `path` leads to through links; `path` itself when there is none.
fs::path Target(const fs::path& path) {
    std::error_code error;
    const fs::path target = fs::is_symlink(path, error) ? fs::weakly_canonical(path, error) : path;
    return error || target.empty() ? path : target;
}

}  // namespace

std::string SystemFaultText(int number) { return std::error_code(number, std::generic_category()).message(); }

std::string ReadWholeFile(const std::string& path, std::uintmax_t longest, std::string& bytes) {
    if (!IsName(path)) return "not a file name";
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) return SystemFaultText(ENOENT);
    if (error) return error.message();
    // A pipe or a terminal might never end.
    if (status.type() != fs::file_type::regular) return "not a file";
    errno = 0;
    const File file(std::fopen(path.c_str(), "rb"));
    if (file == nullptr) return LastFault();
    std::string all;
    constexpr std::size_t BlockLength = 65'536;
    const auto block = std::make_unique<char[]>(BlockLength);
    std::size_t got = 0;
    while ((got = std::fread(block.get(), 1, BlockLength, file.get())) > 0) {
        if (got > longest - all.size()) return "longer than " + std::to_string(longest) + " bytes";
        all.append(block.get(), got);
    }
    if (std::ferror(file.get()) != 0) return LastFault();
    bytes = std::move(all);
    return {};
}

bool ByteSink::Put(std::string_view bytes) {
    if (Number != 0) return false;
    errno = 0;
    if (std::fwrite(bytes.data(), 1, bytes.size(), File) != bytes.size()) Number = errno != 0 ? errno : EIO;
    return Number == 0;
}

std::string ReplaceFile(const std::string& path, std::string_view bytes) {
    return ReplaceFileBy(path, [bytes](ByteSink& sink) { return sink.Put(bytes), std::string(); });
}

std::string ReplaceFileBy(const std::string& path, const std::function<std::string(ByteSink&)>& write) {
    if (!IsName(path)) return "not a file name";
    const fs::path target = Target(path);
    std::error_code error;
    const fs::file_status old = fs::status(target, error);
    if (fs::exists(old) && !fs::is_regular_file(old)) return "not a file";
    fs::path beside = target;
    beside += ".tmp~";
    std::string fault = WriteFile(beside, write);
    if (fault.empty()) {
        if (fs::exists(old)) fs::permissions(beside, old.permissions(), error);
        fs::rename(beside, target, error);
        if (error) fault = error.message();
    }
    if (!fault.empty()) {
        std::error_code ignored;
        if (fs::is_regular_file(beside, ignored)) fs::remove(beside, ignored);
        return fault;
    }
    SyncFolder(target.parent_path());
    return {};
}

}  // namespace tarnwick
