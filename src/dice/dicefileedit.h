// Editing of the open dice roll file, and rolls that are copied from file to file.
//
// Rolls recorded but not yet written are written first. After an edit a playback or a recording goes on at the same
// roll: DiceFileNextRecord, DiceFilePosition, DiceFileLastRecord and DiceFileEnd move with it. Every procedure returns
// what went wrong, or nothing; after a fault the file is as it was.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "table/crapcnst.h"

namespace tarnwick {

/// Rolls first..first + count - 1 of the open file; without a count the place ahead of roll `First`, which may be one
/// beyond the last.
struct RollSelection {
    std::int32_t First = 1;
    std::int32_t Count = 0;

    bool operator==(const RollSelection&) const = default;
};

/// Where rolls go that are put in: ahead of the selection, or over what stands from its first roll on.
enum class RollEntry { Insert, TypeOver };

/// The selection within the file: the nearest one that exists.
RollSelection HeldSelection(const Table& t, RollSelection selection);
/// All rolls.
RollSelection AllRolls(const Table& t);

/// Puts one roll, dice 1..6, at the selection, which then stands behind it (TypeOver: on the next roll, if there is
/// one).
std::string EnterRoll(Table& t, RollSelection& selection, RollEntry entry, int die1, int die2);
/// The same with a roll of the current generator. The dice on the table stay.
std::string EnterRandomRoll(Table& t, RollSelection& selection, RollEntry entry);

std::string DeleteRolls(Table& t, RollSelection selection);

/// Name of the work file, in `workFolder`, that Copy writes and Paste reads.
std::string CopyFilePath(const std::string& workFolder);
std::string CopyRolls(Table& t, RollSelection selection, const std::string& workFolder);
std::string CutRolls(Table& t, RollSelection selection, const std::string& workFolder);
/// Puts the rolls copied last at the selection; `selection` becomes what was put in.
std::string PasteRolls(Table& t, RollSelection& selection, RollEntry entry, const std::string& workFolder);
/// The same from a dice roll file, which may be the open one.
std::string PasteFromRollFile(Table& t, RollSelection& selection, RollEntry entry, const std::string& path);
/// The same from a text, by way of a work file in `workFolder` that is deleted again.
std::string PasteFromTextFile(Table& t, RollSelection& selection, RollEntry entry, const std::string& path,
                              const std::string& workFolder);
/// Writes the selection as the dice roll file `path`, which is replaced; the open file is refused.
std::string CopyToRollFile(Table& t, RollSelection selection, const std::string& path);

/// The bytes of rolls first..first + count - 1, as far as the file has them.
std::string ReadOpenRolls(Table& t, std::int32_t first, std::int32_t count, std::string& bytes);

/// What a roll must show; 0 stands for any.
struct RollPattern {
    int Die1 = 0;
    int Die2 = 0;
    int Total = 0;
};
/// The first such roll from `from` on; `found` is 0 when there is none.
std::string FindRoll(Table& t, std::int32_t from, const RollPattern& pattern, std::int32_t& found);

/// The roll that is played or recorded next: `record` held within 1 and one beyond the last.
void SetDiceFileNextRecord(Table& t, std::int64_t record);

/// Whether both names lead to one file.
bool IsSameFile(const std::string& a, const std::string& b);

}  // namespace tarnwick
