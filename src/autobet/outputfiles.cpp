#include "autobet/outputfiles.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace tarnwick {

namespace {

/// Pending text beyond this is written at once, however long the roll lasts.
constexpr std::size_t PendingLimit = std::size_t{1} << 20;

}  // namespace

std::string PathInFolder(const std::string& folder, std::string_view name) {
    std::string slashed(name);
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    if (slashed.empty() || slashed.find('\0') != std::string::npos) return {};
    const std::filesystem::path path(slashed);
    if (path.is_absolute()) return slashed;
    if (path.has_root_path()) return {};
    int depth = 0;
    for (const std::filesystem::path& part : path) {
        if (part == "..") {
            if (--depth < 0) return {};
        } else if (part != ".") {
            ++depth;
        }
    }
    if (folder.empty()) return slashed;
    return (std::filesystem::path(folder) / path).string();
}

bool ScriptOutputs::Open(int p, const std::string& path, bool clear) {
    // Two players may write one file: what the other has pending goes first.
    Flush();
    File& file = Files[static_cast<std::size_t>(p)];
    file.Stream.close();
    file.Stream.clear();
    file.Path.clear();
    if (path.empty()) return false;
    if (clear) std::ofstream(path, std::ios::binary | std::ios::trunc).close();
    file.Stream.open(path, std::ios::binary | std::ios::app);
    if (!file.Stream.is_open()) return false;
    file.Path = path;
    return true;
}

void ScriptOutputs::Write(int p, std::string_view text) {
    File& file = Files[static_cast<std::size_t>(p)];
    file.Pending.append(text);
    AnyPending = true;
    if (file.Pending.size() > PendingLimit) FlushFile(file);
}

bool ScriptOutputs::FlushFile(File& file) {
    if (file.Pending.empty()) return true;
    file.Stream.write(file.Pending.data(), static_cast<std::streamsize>(file.Pending.size()));
    file.Stream.flush();
    file.Pending.clear();
    const bool written = file.Stream.good();
    file.Stream.clear();
    return written;
}

bool ScriptOutputs::Flush() {
    if (!AnyPending) return true;
    AnyPending = false;
    bool written = true;
    for (File& file : Files) written = FlushFile(file) && written;
    return written;
}

void ScriptOutputs::Close(int p) {
    File& file = Files[static_cast<std::size_t>(p)];
    FlushFile(file);
    file.Stream.close();
    file.Stream.clear();
    file.Path.clear();
}

void ScriptOutputs::Swap(int p, int q) {
    std::swap(Files[static_cast<std::size_t>(p)], Files[static_cast<std::size_t>(q)]);
}

}  // namespace tarnwick
