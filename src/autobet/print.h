// Element lists in print.
#pragma once

#include <string>

#include "autobet/compilation.h"

namespace tarnwick {

/// The elements of a compilation as they stand, one line each: index, [Code, Value]; then the string pool, one line
/// each: index, the text in quotes as it was written, and behind it the element index of a label.
std::string ElementsText(const Compilation& c);

}  // namespace tarnwick
