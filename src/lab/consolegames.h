// The console's commands on game files.
#pragma once

#include <string>

#include "lab/consolearguments.h"
#include "lab/consolecommands.h"

namespace tarnwick::lab {

/// `save FILE`: the game as it stands. An existing file is replaced.
std::string DoSave(Console& console, Arguments& arguments);
/// `open FILE`: another game takes the table's place. What is missing is told.
std::string DoOpen(Console& console, Arguments& arguments);

}  // namespace tarnwick::lab
