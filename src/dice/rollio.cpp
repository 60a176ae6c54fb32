#include "dice/rollio.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <vector>

#include "files/atomicfile.h"

namespace tarnwick {

namespace {

constexpr std::size_t BlockLength = 262'144;
/// Rolls that are appended in place; a crash in between can leave some of them, each whole.
constexpr std::size_t LongestAppend = 4096;

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

std::string LastFault() { return SystemFaultText(errno != 0 ? errno : EIO); }

/// Opens `path`; `fault` gets what went wrong when the result is null.
File OpenFile(const std::string& path, const char* how, std::string& fault) {
    errno = 0;
    File file(std::fopen(path.c_str(), how));
    if (file == nullptr) fault = LastFault();
    return file;
}

/// Offsets may pass the range of a long where that has 32 bits.
bool Seek(std::FILE* file, std::int64_t offset) {
#ifdef _WIN32
    return _fseeki64(file, offset, SEEK_SET) == 0;
#else
    return fseeko(file, offset, SEEK_SET) == 0;
#endif
}

std::string PutStretch(ByteSink& sink, const RollStretch& stretch) {
    return ReadRolls(stretch, [&sink](std::string_view block) { return sink.Put(block); });
}

/// Writes `bytes` over the rolls from `offset` on or behind the last one. What a fault left behind the old end is taken
/// off again.
std::string WriteInPlace(const std::string& path, std::int64_t length, std::int64_t offset, std::string_view bytes) {
    std::string fault;
    File file = OpenFile(path, "r+b", fault);
    if (file == nullptr) return fault;
    errno = 0;
    const bool written =
        Seek(file.get(), offset) && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
    if (!written) fault = LastFault();
    errno = 0;
    if (std::fclose(file.release()) != 0 && fault.empty()) fault = LastFault();
    std::error_code ignored;
    if (!fault.empty() && offset == length)
        std::filesystem::resize_file(path, static_cast<std::uintmax_t>(length), ignored);
    return fault;
}

}  // namespace

std::string ShortFileName(const std::string& path) {
    const std::size_t mark = path.find_last_of("/\\:");
    return mark == std::string::npos ? path : path.substr(mark + 1);
}

std::string CannotUseRollFile(const std::string& path, const std::string& why) {
    return ShortFileName(path) + "\ncan't be opened: " + why + ".";
}

std::string CheckRollFile(const std::string& path, std::int32_t& length) {
    if (path.empty() || path.find('\0') != std::string::npos) return CannotUseRollFile(path, "not a file name");
    std::error_code error;
    // A pipe or a terminal might never end.
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
        return CannotUseRollFile(path, "not a file");
    std::string fault;
    const File file = OpenFile(path, "rb", fault);
    if (file == nullptr) return CannotUseRollFile(path, fault);
    const auto block = std::make_unique<char[]>(BlockLength);
    std::int64_t count = 0;
    std::size_t got = 0;
    errno = 0;
    while ((got = std::fread(block.get(), 1, BlockLength, file.get())) > 0) {
        unsigned allBits = 0;
        for (std::size_t i = 0; i < got; ++i) allBits |= static_cast<unsigned char>(block[i]);
        if ((allBits & 3u) != 0)
            return ShortFileName(path) +
                   "\nis either from an earlier version, has been corrupted, or is not a true Tarnwick dice roll file.";
        count += static_cast<std::int64_t>(got);
        if (count > LastPossibleRecord) return CannotUseRollFile(path, "too many rolls");
    }
    if (std::ferror(file.get()) != 0) return CannotUseRollFile(path, LastFault());
    length = static_cast<std::int32_t>(count);
    return {};
}

std::string ReadRolls(const RollStretch& stretch, const std::function<bool(std::string_view)>& take) {
    if (stretch.Count <= 0) return {};
    std::string fault;
    const File file = OpenFile(stretch.Path, "rb", fault);
    if (file == nullptr) return fault;
    errno = 0;
    if (!Seek(file.get(), stretch.First - 1)) return LastFault();
    const auto size = static_cast<std::size_t>(std::min<std::int64_t>(stretch.Count, BlockLength));
    const auto block = std::make_unique<char[]>(size);
    for (std::int64_t left = stretch.Count; left > 0;) {
        const auto wanted = static_cast<std::size_t>(std::min(left, static_cast<std::int64_t>(size)));
        errno = 0;
        const std::size_t got = std::fread(block.get(), 1, wanted, file.get());
        if (got > 0 && !take({block.get(), got})) return {};
        if (got < wanted) return std::ferror(file.get()) != 0 ? LastFault() : "the file has become shorter";
        left -= static_cast<std::int64_t>(got);
    }
    return {};
}

std::string SpliceRolls(const std::string& path, std::int64_t length, std::int64_t first, std::int64_t removed,
                        const RollSource& source) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error) return error.message();
    if (size != static_cast<std::uintmax_t>(length)) return "another program has changed the file";
    const bool appends = first == length + 1 && source.Bytes.size() <= LongestAppend;
    const bool changesOne = removed == 1 && source.Bytes.size() == 1;
    if (source.Stretch.Count == 0 && (appends || changesOne))
        return WriteInPlace(path, length, first - 1, source.Bytes);
    return ReplaceFileBy(path, [&](ByteSink& sink) {
        std::string fault = PutStretch(sink, {path, 1, first - 1});
        sink.Put(source.Bytes);
        if (fault.empty()) fault = PutStretch(sink, source.Stretch);
        const std::int64_t rest = first + removed;
        if (fault.empty()) fault = PutStretch(sink, {path, rest, length - rest + 1});
        return fault;
    });
}

std::string CopyStretch(const RollStretch& stretch, const std::string& path) {
    return ReplaceFileBy(path, [&](ByteSink& sink) { return PutStretch(sink, stretch); });
}

}  // namespace tarnwick
