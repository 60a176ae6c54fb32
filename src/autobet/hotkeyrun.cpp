#include "autobet/hotkeyrun.h"

#include <utility>

#include "autobet/scriptfile.h"
#include "files/paths.h"
#include "table/messages.h"
#include "table/rundriver.h"

namespace tarnwick {

bool RunHotKey(Table& t, AutoBets& scripts, const HotKeyList& list, char letter) {
    const HotKey* key = FindHotKey(list, letter);
    if (key == nullptr || scripts.Running()) return false;
    // Nothing can be shown in Hyper-Drive; between the rolls of Auto-Roll a key may act.
    if (t.HyperDriveActive && GuardCommand(t)) return false;
    const std::string path = PathIn(t.GameFolder, key->File);
    if (!IsFile(path)) {
        ShowNote(t, "Hot-Key",
                 "The Auto-Bet file defined for that Hot-Key was not found in the specified location.\n\n"
                 "Please check the path and file name on the Hot-Key screen.");
        return false;
    }
    ScriptText script;
    if (const std::string fault = ReadScriptFile(path, script); !fault.empty()) {
        ShowNote(t, "Hot-Key", fault);
        return false;
    }
    if (scripts.RunFragment(t, std::move(script.Lines))) {
        ShowNote(t, "Auto-Bet Script Error",
                 "The Auto-Bet script for this hot-key contains a syntax error which must be corrected before you can "
                 "use it.");
        return false;
    }
    return true;
}

}  // namespace tarnwick
