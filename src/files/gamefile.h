// Game files: the whole state of a game saved and opened, with the files that belong to it. `userFolder` is the folder
// of the standing files; empty: the current one.
#pragma once

#include <string>
#include <string_view>

#include "table/crapcnst.h"

namespace tarnwick {

constexpr std::string_view DefaultGameName = "default.crp";
constexpr std::string_view DefaultMatrixName = "default.prb";
constexpr std::string_view UnableToOpenGame = "Unable to Open Tarnwick Game File";

/// Writes the game to `path`, which is replaced as a whole or not at all, and gives the game that name (none for the
/// standing file). Rolls that are still to be recorded are written first. False after a fault, which was told. Names of
/// files that the format can't hold are told too.
bool SaveGame(Table& t, const std::string& path, const std::string& userFolder);

/// Makes the game of `path` the table's: open dice roll file closed, state taken over, files linked again with a
/// message for each that is missing or altered, scripts loaded through t.Scripts. Messages hidden, the front end, the
/// generators' states and GameFolder stay. Sessions Logs without a folder lie in
/// userFolder. The place of the main window
/// stays with the standing file. False, after a message: the file is none, and the game is as it was; or it is cut
/// short, and what was whole of it is taken over. Needs a table at rest: false during a roll or a script's statement.
bool OpenGame(Table& t, const std::string& path, const std::string& userFolder);

/// What the main window is called: "Tarnwick (name)", or "Tarnwick" for the standing game.
std::string GameTitle(const Table& t);

// --- the standing game ---

/// The state of the program that ended last, or of the game that the command line named (`given`, empty: none). True
/// when a game was opened; else the table has what SubMain made of it.
bool OpenGameAtStart(Table& t, const std::string& given, const std::string& userFolder);
/// Keeps the state for the next start, in userFolder, which is made when missing. False after a fault, which was told.
bool SaveGameAtExit(Table& t, const std::string& userFolder);

enum class UnsavedGame { Unchanged, Save, Discard, Cancel };
/// Asks whether a game that has changed is to be saved before it ends.
UnsavedGame AskAboutUnsavedGame(Table& t);

}  // namespace tarnwick
