// tarnwick-lab events: the lines of an Events Log.
#pragma once

#include <cstdint>
#include <string>

namespace tarnwick::lab {

struct EventsOptions {
    std::string File;
    std::string Find;               ///< empty: every line
    std::int64_t Top = 1;           ///< the first line that counts
    std::int64_t Most = INT64_MAX;  ///< lines printed at most
    bool Json = false;
};

/// Prints lines with their numbers. Returns the exit status: 0, 1 when nothing was found, 2 when the file can't be
/// read.
int Events(const EventsOptions& options);

}  // namespace tarnwick::lab
