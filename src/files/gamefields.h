// The fields of a game file, in order and by name. One description of the records serves the writer, the reader and
// the lister; see doc/file-formats.md for the same in words.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "stats/restore.h"
#include "table/crapcnst.h"

namespace tarnwick {

/// "Name", "Name[1]" or "Name[1,2,3]".
struct FieldName {
    FieldName(const char* base) : Base(base) {}
    FieldName(const char* base, int i) : Base(base), Count(1), Index{i} {}
    FieldName(const char* base, int i, int j) : Base(base), Count(2), Index{i, j} {}
    FieldName(const char* base, int i, int j, int k) : Base(base), Count(3), Index{i, j, k} {}

    const char* Base;
    std::size_t Count = 0;
    std::array<int, 3> Index{};

    std::string Text() const;
};

/// What is done with each field. Places are bytes from the start of the records begun last. A boolean is -1 or 0, any
/// other number counts as true.
class GameFields {
  public:
    virtual ~GameFields() = default;

    /// Goes on to the next `records` records. False when the file doesn't hold them all: then nothing more is there.
    virtual bool Begin(int records) = 0;

    virtual void Long(std::size_t at, FieldName name, std::int32_t& value) = 0;
    virtual void Int(std::size_t at, FieldName name, std::int16_t& value) = 0;
    /// A whole number as a 32-bit IEEE number.
    virtual void Single(std::size_t at, FieldName name, std::int32_t& value) = 0;
    virtual void Money(std::size_t at, FieldName name, currency& value) = 0;
    virtual void Text(std::size_t at, std::size_t length, FieldName name, std::string& value) = 0;
    virtual void Flag(std::size_t at, FieldName name, bool& value) = 0;
    /// A whole number or a boolean as money of so many units.
    virtual void Whole(std::size_t at, FieldName name, std::int32_t& value) = 0;
    virtual void WholeFlag(std::size_t at, FieldName name, bool& value) = 0;

    /// Whether fields beyond the format are there.
    bool Extended = true;
};

// --- places ---

constexpr std::size_t L(int slot) { return 4 * static_cast<std::size_t>(slot); }
constexpr std::size_t C(int slot) { return 8 * static_cast<std::size_t>(slot); }
/// Element i of a block that keeps `perRecord` elements of `size` bytes in each record.
constexpr std::size_t InBlock(std::size_t i, std::size_t perRecord, std::size_t size) {
    return i / perRecord * 256 + i % perRecord * size;
}
constexpr std::size_t LongAt(std::size_t i) { return InBlock(i, 64, 4); }
constexpr std::size_t HalfLongAt(std::size_t i) { return InBlock(i, 32, 4); }
constexpr std::size_t MoneyAt(std::size_t i) { return InBlock(i, 32, 8); }
constexpr std::size_t IntAt(std::size_t i) { return InBlock(i, 128, 2); }

constexpr int FixedRecords = 417;
constexpr int PlayerRecords = 466;
constexpr int PointsPerRecord = 25;

// --- what the records are made of ---

/// A file that belongs to the game, with its date as it was.
struct FileLink {
    std::string Name, Date;
};

struct PlayerImage {
    FileLink Script;
    std::string Unused;
    std::int32_t Permission = 0;
    std::array<currency, RowCount201> BetAmount{}, PrevBetAmount{}, BetAfterRoll{};
    std::array<std::int16_t, 101> ComeOutWorking{}, BetWorking{};
};

/// A table with all that is stored otherwise than the table keeps it.
struct GameImage {
    std::unique_ptr<Table> T;
    std::unique_ptr<PlainFigures> Figures;
    std::string Header, HeaderExt;
    FileLink DiceFile, Probabilities, EventsLog;
    bool ProbabilityUntitled = false;  ///< the probability file only carries an unsaved matrix
    std::int32_t ProbabilityFormMode = 0;
    std::int32_t EventsLogHeadingCode = 0;
    std::int32_t PrevAutoBetOnMask = 0;
    std::int32_t PathPointCount = 0;
    std::array<std::int16_t, 101> HouseComeOutWorking{};
    std::array<PlayerImage, Positions> Players;
    bool PlayersRead = false;    ///< the players are those of the file, not of the table that was
    DiceRollFile DiceFileState;  ///< what the dice roll file was at, once the table is made
};

// --- the records, in the order of the file; false when the file ends in them ---

bool VisitWindows(GameFields& fields, GameImage& image);     // 2..4
bool VisitTable(GameFields& fields, GameImage& image);       // 5
bool VisitLinks(GameFields& fields, GameImage& image);       // 6..9
bool VisitSettings(GameFields& fields, GameImage& image);    // 10..30
bool VisitStatistics(GameFields& fields, GameImage& image);  // 31..410
bool VisitOptions(GameFields& fields, GameImage& image);     // 411..417
/// The block of position p. `position` is what its first record says.
bool VisitPlayer(GameFields& fields, GameImage& image, int p, std::int32_t& position);
bool VisitPath(GameFields& fields, GameImage& image);

}  // namespace tarnwick
