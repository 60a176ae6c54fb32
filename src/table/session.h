// Defaults at start-up, and the change of sessions.
#pragma once

#include "table/crapcnst.h"

namespace tarnwick {

/// What the user or a script asks of a new session.
struct SessionOptions {
    bool Ask = false;      ///< may ask for bankrolls (rule 1); otherwise the stored amount is taken
    bool KeepData = true;  ///< statistics roll over instead of being erased
    bool KeepCheckStacks = false;
    bool KeepLogs = true;  ///< Sessions Logs; otherwise those that bear the players' names go, the new records too
    bool KeepScripts = true;
    enum class DiceFile { Drop, Continue, Rewind };
    DiceFile File = DiceFile::Continue;
};

/// Brings a fresh table into the state of a program that has just started: every default, generators seeded from the
/// clock (the front end's, or 1 without one), come-out.
void SubMain(Table& t, Screen* front);

/// Ends the running session and starts another with the same players.
void NewSession(Table& t, const SessionOptions& options);

}  // namespace tarnwick
