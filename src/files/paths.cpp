#include "files/paths.h"

#include <sys/stat.h>

#include <ctime>
#include <filesystem>

namespace tarnwick {

namespace {

bool IsName(const std::string& path) { return !path.empty() && path.find('\0') == std::string::npos; }

}  // namespace

std::string UserFolder(std::string_view tarnwickHome, std::string_view xdgDataHome, std::string_view home) {
    namespace fs = std::filesystem;
    if (!tarnwickHome.empty()) return std::string(tarnwickHome);
    if (!xdgDataHome.empty()) return (fs::path(xdgDataHome) / "tarnwick").string();
    if (!home.empty()) return (fs::path(home) / ".local" / "share" / "tarnwick").string();
    return {};
}

std::string PathIn(const std::string& folder, const std::string& name) {
    if (folder.empty() || name.find_first_of(":/\\") != std::string::npos) return name;
    return (std::filesystem::path(folder) / name).string();
}

std::string ShortName(const std::string& path) {
    const std::size_t mark = path.find_last_of(":/\\");
    return mark == std::string::npos ? path : path.substr(mark + 1);
}

bool IsFile(const std::string& path) {
    std::error_code error;
    return IsName(path) && std::filesystem::is_regular_file(path, error);
}

std::string FileDateText(const std::string& path) {
    struct stat status {};
    if (!IsName(path) || stat(path.c_str(), &status) != 0) return {};
    const std::time_t changed = status.st_mtime;
    std::tm local{};
#ifdef _WIN32
    if (localtime_s(&local, &changed) != 0) return {};
#else
    if (localtime_r(&changed, &local) == nullptr) return {};
#endif
    char buffer[32];
    return {buffer, std::strftime(buffer, sizeof buffer, "%Y-%m-%d %H:%M:%S", &local)};
}

}  // namespace tarnwick
