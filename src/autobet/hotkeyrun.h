// A hot key pressed at the table.
#pragma once

#include "autobet/autobets.h"
#include "autobet/hotkeys.h"

namespace tarnwick {

/// Runs the script file of `letter`, A..Z or a..z, once for the bettor; a file without a folder of its own lies in
/// GameFolder. A missing file, one that can't be read and a script with an error are told. Nothing happens for a letter
/// that has no row, and while scripts run; in Hyper-Drive the user is asked whether it is to stop first, and the key is
/// dropped. True when the script ran.
bool RunHotKey(Table& t, AutoBets& scripts, const HotKeyList& list, char letter);

}  // namespace tarnwick
