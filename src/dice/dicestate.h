// State of the dice sources: generators, probability matrix, dice roll file.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "dice/generators.h"

namespace tarnwick {

/// Chances of the 36 ordered results, in thousandths of a percent, as cells [kind 0..1][col 0..7][row 0..13]: kind 1
/// holds values, kind 0 the cell's state. See dice/matrix.h.
using MatrixCells = std::array<std::array<std::array<std::int32_t, 14>, 8>, 2>;

/// Parts of an open dice roll file in memory, so that the file itself is opened once in many rolls.
struct DiceFileBlocks {
    std::vector<std::uint8_t> Read;       ///< rolls from ReadFrom on
    std::vector<std::uint8_t> Unwritten;  ///< recorded rolls from UnwrittenFrom on, not yet in the file
    std::int32_t ReadFrom = 1;
    std::int32_t UnwrittenFrom = 1;
};

/// An open dice roll file: one byte a roll, Die2 * 32 + Die1 * 4. It is held by name and is open only while a block is
/// read or written. A copy of a table with unwritten rolls may write them again: the same bytes at the same place.
struct DiceRollFile {
    std::string DiceRollFileName;         ///< empty when none is open
    std::int32_t DiceFileMode = 0;        ///< 0 off, 1 record, 2 playback
    std::int32_t DiceFileNextRecord = 1;  ///< roll to read or write next, from 1
    std::int32_t DiceFileLastRecord = 0;  ///< roll used last
    std::int32_t DiceFilePosition = 1;    ///< next record as shown
    std::int32_t DiceFileEnd = 0;         ///< last record of a playback that stops early; 0: the file's end
    std::int32_t DiceFileLength = 0;      ///< rolls in the file, the unwritten ones too
    DiceFileBlocks DiceFileMemory;
};

struct DiceState : DiceRollFile {
    Generators Rng;
    std::int32_t Rng3State = 1;
    currency SeedEntry;
    std::int32_t MissingRngLibraries = 0;  ///< bit 1: mt19937ar, bit 2: cokus
    std::string LastInternalError;
    MatrixCells ProbabilityMatrix{};
    std::string ProbabilityFileName;  ///< empty: untitled
    bool ProbabilitiesChanged = false;
};

}  // namespace tarnwick
