// The commands of the dice roll file with their questions and messages. Names come from a file chooser.
//
// All but the selections ask first whether a run or a script may be stopped, and do nothing then.
#pragma once

#include <string>

#include "dice/dicefileedit.h"
#include "dice/dicefiletext.h"
#include "table/crapcnst.h"

namespace tarnwick {

/// Titles of the file chooser, which are the titles of the commands' messages too.
namespace DiceFileTitle {
constexpr const char* Open = "Open Dice Roll File  or  Enter Name For A New File";
constexpr const char* CopyToRollFile = "Copy To Dice Roll File";
constexpr const char* CopyToTextFile = "Copy Dice Rolls To Text File";
constexpr const char* PasteFromRollFile = "Paste From Dice Roll File";
constexpr const char* PasteFromTextFile = "Paste From Ascii/Text File";
constexpr const char* Format = "Format Dice Rolls Output";
constexpr const char* Print = "Print Dice Rolls";
}  // namespace DiceFileTitle
constexpr const char* RollFilesFilter = "Roll files (*.rol)";
constexpr const char* TextFilesFilter = "Text files (*.txt)";

/// Opens `path`, made if it isn't there. Every command returns false when nothing was done.
bool OpenDiceFileCommand(Table& t, const std::string& path);
/// With a mode on the question about rewinding comes first, and rewinding keeps the file open.
bool CloseDiceFileCommand(Table& t);
/// The recorder's buttons: 0 off, which asks about rewinding when a mode was on, 1 record, 2 play.
bool DiceRecorderCommand(Table& t, int mode);

bool CopyToRollFileCommand(Table& t, RollSelection selection, const std::string& path);
/// Asks whether to renumber when the format has roll numbers and the selection doesn't begin at roll 1.
bool CopyToTextFileCommand(Table& t, RollSelection selection, const std::string& path, const std::string& format);
bool PasteFromRollFileCommand(Table& t, RollSelection& selection, RollEntry entry, const std::string& path);
bool PasteFromTextFileCommand(Table& t, RollSelection& selection, RollEntry entry, const std::string& path,
                              const std::string& workFolder);

/// Asks for the output format until it is one; false, with `format` as it was, when the user gives up.
bool AskRollFormat(Table& t, std::string& format);
/// Whether there is something to print; says so if not.
bool MayPrintRolls(Table& t, RollSelection selection);

}  // namespace tarnwick
