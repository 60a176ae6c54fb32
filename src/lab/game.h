// tarnwick-lab game: every field of a game file.
#pragma once

#include <string>

#include "table/crapcnst.h"

namespace tarnwick::lab {

struct GameOptions {
    std::string File;
    bool All = false;  ///< text: elements of arrays that are 0 too
    bool Json = false;
};

/// Prints the fields as they stand in the file, unchecked, by record, byte and name. Returns the exit status: 0, or 2
/// when the file can't be read or is no game; a file cut short is printed as far as it goes, with status 1.
int ShowGame(const GameOptions& options);

/// The user's folder by the environment.
std::string LabUserFolder();

/// Makes the game of `path` the table's for subcommand `command`. What opening has to say goes to standard error; every
/// question is declined. Returns what is wrong, or nothing; `t` is left without a front end.
std::string OpenGameFor(const std::string& command, Table& t, const std::string& path);

}  // namespace tarnwick::lab
