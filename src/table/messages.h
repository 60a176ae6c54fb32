// The one way in which anything is shown to the user.
#pragma once

#include <string>

#include "table/crapcnst.h"
#include "table/screen.h"

namespace tarnwick {

/// Shows `message` through the table's front end and returns the answer. A checked hide box clears its bit of
/// NotifyBits, or adds the title to HiddenTitles, and messages of a hidden kind are not shown. Without a front end, and
/// for a hidden one, the answer is Cancel, else No, else OK, as the message has them. A Yes under the title "Auto-Bet
/// Active" while a script runs sets StopReason. Callers test HyperDriveActive first: nothing is shown in Hyper-Drive.
Answer ShowMessage(Table& t, const Message& message);

/// OK message of `title` and `text`.
void ShowNote(Table& t, std::string title, std::string text, int buttons = MsgButton::Ok);

/// A Yes/No question; true for Yes.
bool AskYesNo(Table& t, std::string title, std::string text);

/// Whether notes of bit `bit` (1, 2 or 4) of NotifyBits may be shown now: the bit is set, no Hyper-Drive, and for 2
/// and 4 no script running.
bool MayNotify(const Table& t, int bit);

/// Reports an unexpected fault: ", Error #", `number`, a line break, " occurred, at: " and `procedure`. In Hyper-Drive
/// the words become the StopReason.
void ReportFault(Table& t, int number, const std::string& procedure);

}  // namespace tarnwick
