// The dice roll file as the roll cycle uses it.
#pragma once

#include <string>

#include "table/crapcnst.h"

namespace tarnwick {

enum class FileRoll { Ready, AtEnd, OutOfLimits, Failed };

/// Opens `path` (created empty when it does not exist); returns what is wrong, or nothing. Mode off, at record 1.
std::string OpenDiceRollFile(Table& t, const std::string& path);
void CloseDiceRollFile(Table& t);
/// Mode 0 off, 1 record, 2 playback. False, with the message, when no file is open.
bool SetDiceFileMode(Table& t, int mode);

/// Looks at the next roll of a playback without using it: whether there is one and its dice are 1..6.
FileRoll PeekFileRoll(Table& t);
/// Uses the roll that PeekFileRoll found ready: sets Die1 and Die2 and moves on.
void NextFileRoll(Table& t);
/// Writes Die1 and Die2 at the next record and moves on. False on a fault of the file, which was reported.
bool RecordRoll(Table& t);
/// The end of a playback by a value out of limits: mode 0 and, outside Hyper-Drive, its message.
void RefuseFileRoll(Table& t);
/// Asks whether to rewind for playback; stops a run first. No: mode off.
void RewindQuestion(Table& t);

constexpr std::uint8_t DiceByte(int die1, int die2) { return static_cast<std::uint8_t>(die2 * 32 + die1 * 4); }
static_assert(DiceByte(3, 4) == 140);

}  // namespace tarnwick
