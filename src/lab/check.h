// tarnwick-lab check: what is wrong with script files, and where.
#pragma once

#include <string>
#include <vector>

#include "lab/commandline.h"

namespace tarnwick::lab {

struct CheckOptions {
    std::vector<std::string> Files;
    std::vector<NameOption> Players;  ///< names that the scripts may use
    bool Elements = false;            ///< print the element lists
    std::string After = "check";      ///< a compiler pass: the lists as they stand after it
    bool Json = false;
};

/// Checks and prints. Returns the exit status: 0, 1 when a script is wrong, 2 when a file or an option can't be used.
int Check(const CheckOptions& options);

}  // namespace tarnwick::lab
