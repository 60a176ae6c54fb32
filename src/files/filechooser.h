// The rules of choosing a file: what each purpose is called, how a typed name becomes a path, and what is checked and
// asked before the file is used. The window itself is the front end's.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "table/crapcnst.h"

namespace tarnwick {

enum class FilePurpose {
    OpenSession,
    SaveSessionAs,
    OpenDiceRolls,
    CopyToDiceRolls,
    CopyToText,
    PasteFromDiceRolls,
    PasteFromText,
    OpenScript,
    PasteFromScript,
    SaveScriptAs,
    CopyScriptTo,
    SelectHotKeyScript,
    OpenSessionsLog,
    SaveSessionsLogAs,
    RenameSessionsLog,
    OpenEventsLog,
    SaveEventsLogAs,
    OpenProbabilities,
    SaveProbabilitiesAs,
};

enum class FileNeed {
    Exists,       ///< opened: it must be there
    ExistsOrNew,  ///< opened, or made new
    Overwrite,    ///< written: an existing one is asked about
    CopyOver,     ///< the same in the words of a copy
};

struct FilePurposeInfo {
    FilePurpose Purpose;
    std::string_view Title;  ///< of the chooser (FileDialogPurpose)
    FileNeed Need;
    std::string_view QuestionTitle;  ///< of the question about an existing file
    std::vector<std::string_view> Types;
};

const FilePurposeInfo& InfoOf(FilePurpose purpose);

/// The patterns of a type line: "*.bet" and "*.txt" of "Auto-bet & text files (*.bet;*.txt)". None without parentheses.
std::vector<std::string> PatternsOf(std::string_view typeLine);
/// Whether a file name fits the pattern: "*" any characters, "?" one; capitals count as small letters.
bool FitsPattern(std::string_view name, std::string_view pattern);

/// The path of a typed name: joined to `folder` unless it holds ":", "\" or "/", with the extension of the type line's
/// first pattern unless its last part holds ".".
std::string CompletePath(std::string_view name, const std::string& folder, std::string_view typeLine);

enum class NameChoice {
    Use,      ///< the path is to be used
    Stay,     ///< the chooser stays open
    Pattern,  ///< the name is a pattern for the list
};
/// The chooser's OK: checks `name` and asks what must be asked. `path` becomes the full path for Use.
NameChoice AcceptFileName(Table& t, FilePurpose purpose, const std::string& name, const std::string& folder,
                          std::string_view typeLine, std::string& path);
/// Asks whether `path` is to be deleted, telling when it is the open dice roll file or a player's script.
bool AskDeleteFile(Table& t, const std::string& path);
/// Says that a path can't be read.
void TellUnreadablePath(Table& t);

/// The stick persons of a folder's file names: what stands before the two digits of "NAME01.stk", each once, sorted.
std::vector<std::string> StickPersonSets(const std::vector<std::string>& files);
/// The sound sets with an extension such as ".dce": the names without it, sorted. "Chips.win" is the bank's own sound
/// and no set.
std::vector<std::string> SoundSets(const std::vector<std::string>& files, std::string_view extension);
/// The set to begin with, as an index from 1: "soft" of dice sounds, else the first; 0 when there is none.
int FirstSoundSet(const std::vector<std::string>& sets, std::string_view preferred);

}  // namespace tarnwick
