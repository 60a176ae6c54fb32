// The dice roll file as the roll cycle uses it: one byte a roll, no header, no end mark.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "table/crapcnst.h"

namespace tarnwick {

/// Ready: NextFileRoll may follow. AtEnd and OutOfLimits change nothing, the caller ends the playback. Failed: a fault
/// of the file, which was reported; the mode is off then and StopReason is set.
enum class FileRoll { Ready, AtEnd, OutOfLimits, Failed };

/// Title of the message that shows what OpenDiceRollFile returned.
constexpr std::string_view UnableToOpenDiceFile = "Unable to Open Dice Roll File";

/// Opens `path` (created empty when it does not exist); returns what is wrong, or nothing. Mode off, at record 1. Every
/// byte is checked, a block at a time. A file that can't be opened leaves the open one as it was.
std::string OpenDiceRollFile(Table& t, const std::string& path);
/// Writes what was recorded and forgets the file.
void CloseDiceRollFile(Table& t);
/// Mode 0 off, 1 record, 2 playback, to the file's end. False, with the message, when no file is open (off is always
/// allowed), or for another number. Rolls recorded so far are written.
bool SetDiceFileMode(Table& t, int mode);

/// Writes recorded rolls that are still in memory: call it when a run stops and after each roll outside runs. False on
/// a fault of the file, which was reported; the rolls are kept for the next try.
bool FlushDiceFile(Table& t);

/// Looks at the next roll of a playback without using it: whether there is one and its dice are 1..6.
FileRoll PeekFileRoll(Table& t);
/// Uses the roll that PeekFileRoll found ready: sets Die1 and Die2 and moves on.
void NextFileRoll(Table& t);
/// Writes Die1 and Die2 (1..6) at the next record and moves on; a next record beyond the end extends the file by one.
/// False on a fault of the file, which was reported; the mode is off then and StopReason is set.
bool RecordRoll(Table& t);
/// The end of a playback by a value out of limits: mode 0, StopReason and, outside Hyper-Drive, its message.
void RefuseFileRoll(Table& t);
/// Asks whether to rewind for playback; stops a run first. No: mode off.
void RewindQuestion(Table& t);

constexpr std::uint8_t DiceByte(int die1, int die2) { return static_cast<std::uint8_t>(die2 * 32 + die1 * 4); }
constexpr int FirstDie(std::uint8_t roll) { return (roll & 28) / 4; }
constexpr int SecondDie(std::uint8_t roll) { return (roll & 224) / 32; }
static_assert(DiceByte(3, 4) == 140 && FirstDie(140) == 3 && SecondDie(140) == 4);

/// Whether both dice of a roll are 1..6.
constexpr bool CheckDiceRollValue(std::uint8_t roll) {
    const int die1 = FirstDie(roll);
    const int die2 = SecondDie(roll);
    return 1 <= die1 && die1 <= 6 && 1 <= die2 && die2 <= 6;
}

}  // namespace tarnwick
