// tarnwick-lab convert: a script of any form as text.
#pragma once

#include <string>

namespace tarnwick::lab {

/// Reads the script `from` and writes it as text to `to`, which is replaced if it exists but must not be `from`. Prints
/// what was done, or what is wrong on standard error. Returns the exit status: 0 done, 2 a file can't be used.
int Convert(const std::string& from, const std::string& to);

}  // namespace tarnwick::lab
