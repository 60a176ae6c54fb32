// Where the files of a game lie.
#pragma once

#include <string>
#include <vector>

#include "stats/tablelogs.h"
#include "table/crapcnst.h"

namespace tarnwick {

/// Whole paths under a heading. `Owner` is the player whose file it is, empty where it is nobody's.
struct PathGroup {
    struct Entry {
        std::string Owner;
        std::string Path;

        bool operator==(const Entry&) const = default;
    };
    std::string Heading;
    std::vector<Entry> Entries;  ///< none: no such file is in use
};

/// The program's folder and the user's, the game, its Events Log, dice roll, probability, script and Sessions Log
/// files, in this order. A log is named where it is or will be written; a standing game is the file that will keep it.
std::vector<PathGroup> FilesInUse(const Table& t, const TableLogs& logs, const std::string& programFolder,
                                  const std::string& userFolder);

}  // namespace tarnwick
