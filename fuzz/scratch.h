// Files that a target makes anew for each input. In memory where the system has a place for that: a file that must
// reach a disk takes longer than all that is tested with it.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>

namespace tarnwick {

/// Path of a file of this process alone.
inline std::string ScratchFile(const std::string& name) {
    std::error_code none;
    const std::string folder = std::filesystem::is_directory("/dev/shm", none) ? "/dev/shm" : "/tmp";
    return folder + "/tarnwick-fuzz-" + std::to_string(getpid()) + "-" + name;
}

}  // namespace tarnwick
