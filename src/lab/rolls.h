// tarnwick-lab rolls: dice roll files shown, checked, recorded, and exchanged with text.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarnwick::lab {

/// What all of them share. Rolls are counted from 1; To 0: the last.
struct RollsOptions {
    std::string File;
    std::int64_t From = 1;
    std::int64_t To = 0;
    bool Json = false;
};

/// Prints the rolls, one a line. Like the others it returns the exit status: 0 done, 1 a checked file is wrong, 2 a
/// file or an option can't be used.
int ShowRolls(const RollsOptions& options);

/// Says of each file how many rolls it has, or what is wrong with it.
int CheckRolls(const std::vector<std::string>& files, bool json);

struct ExportOptions : RollsOptions {
    std::string Text;  ///< the text file, which is replaced; empty: standard output
    std::string Format = "Roll# (Die1.Die2) Total";
    bool Renumber = false;
};
int ExportRolls(const ExportOptions& options);

struct ImportOptions {
    std::string File;  ///< made if it isn't there
    std::string Text;
    std::int64_t At = 0;  ///< roll ahead of which the others go; 0: behind the last
    bool TypeOver = false;
};
int ImportRolls(const ImportOptions& options);

struct RecordOptions {
    std::string File;
    std::uint64_t Rolls = 1000;
    std::uint64_t Seed = 0;
    int Rng = 2;
    bool Append = false;  ///< a file that has rolls is refused otherwise
};
int RecordRolls(const RecordOptions& options);

}  // namespace tarnwick::lab
