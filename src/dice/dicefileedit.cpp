#include "dice/dicefileedit.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "dice/dice.h"
#include "dice/dicefile.h"
#include "dice/dicefiletext.h"
#include "dice/rollio.h"

namespace tarnwick {

namespace {

constexpr const char* Unwritten = "what was recorded could not be written";
constexpr const char* NoFile = "no dice roll file is open";

std::string Ready(Table& t) {
    if (t.DiceRollFileName.empty()) return NoFile;
    return FlushDiceFile(t) ? std::string() : Unwritten;
}

/// Where roll `record` stands after `removed` rolls from `first` on gave way to `added` others. A roll that is gone
/// leaves its place to the one behind.
std::int32_t Moved(std::int64_t record, std::int64_t first, std::int64_t removed, std::int64_t added) {
    const std::int64_t kept = std::min(removed, added);  // these were only typed over
    if (record < first + kept) return static_cast<std::int32_t>(record);
    if (record < first + removed) return static_cast<std::int32_t>(first + kept);
    return static_cast<std::int32_t>(record + added - removed);
}

/// The same for the last roll of a stretch: one that is gone leaves its place to the one ahead.
std::int32_t MovedLast(std::int64_t record, std::int64_t first, std::int64_t removed, std::int64_t added) {
    if (record < first || added >= removed) return Moved(record, first, removed, added);
    return Moved(record + 1, first, removed, added) - 1;
}

void FollowEdit(Table& t, std::int64_t first, std::int64_t removed, std::int64_t added) {
    const std::int32_t oldLength = t.DiceFileLength;
    t.DiceFileLength = static_cast<std::int32_t>(oldLength + added - removed);
    t.DiceFileMemory.Read.clear();
    // One who waits behind the last roll for more of them gets what is added there.
    if (!(first == oldLength + 1 && t.DiceFileNextRecord >= first))
        t.DiceFileNextRecord = Moved(t.DiceFileNextRecord, first, removed, added);
    t.DiceFilePosition = t.DiceFileNextRecord;
    t.DiceFileLastRecord = MovedLast(t.DiceFileLastRecord, first, removed, added);
    if (t.DiceFileEnd == 0) return;
    t.DiceFileEnd = MovedLast(t.DiceFileEnd, first, removed, added);
    if (t.DiceFileEnd == 0) t.DiceFileMode = 0;  // all that was to be played is gone
}

/// Puts `source` in place of `removed` rolls from `first` on.
std::string Splice(Table& t, std::int64_t first, std::int64_t removed, const RollSource& source) {
    const std::int64_t added = source.Count();
    if (t.DiceFileLength + added - removed > LastPossibleRecord) return "too many rolls";
    std::string fault = SpliceRolls(t.DiceRollFileName, t.DiceFileLength, first, removed, source);
    if (!fault.empty()) return fault;
    FollowEdit(t, first, removed, added);
    t.GameChanged = true;
    return {};
}

std::string Enter(Table& t, RollSelection& selection, RollEntry entry, const RollSource& source) {
    if (std::string fault = Ready(t); !fault.empty()) return fault;
    const RollSelection at = HeldSelection(t, selection);
    const std::int64_t behind = std::int64_t{t.DiceFileLength} - at.First + 1;
    const std::int64_t removed = entry == RollEntry::Insert ? 0 : std::min(behind, source.Count());
    std::string fault = Splice(t, at.First, removed, source);
    if (fault.empty()) selection = {at.First, static_cast<std::int32_t>(source.Count())};
    return fault;
}

std::string PasteStretch(Table& t, RollSelection& selection, RollEntry entry, const std::string& path) {
    if (std::string fault = Ready(t); !fault.empty()) return fault;
    std::int32_t length = 0;
    if (std::string wrong = CheckRollFile(path, length); !wrong.empty()) return wrong;
    return Enter(t, selection, entry, {{}, {path, 1, length}});
}

std::string WorkFile(const std::string& folder, const char* name) {
    return (std::filesystem::path(folder) / name).string();
}

}  // namespace

RollSelection HeldSelection(const Table& t, RollSelection selection) {
    const std::int32_t first = std::clamp(selection.First, 1, t.DiceFileLength + 1);
    return {first, std::clamp(selection.Count, 0, t.DiceFileLength - first + 1)};
}

RollSelection AllRolls(const Table& t) { return {1, t.DiceFileLength}; }

std::string EnterRoll(Table& t, RollSelection& selection, RollEntry entry, int die1, int die2) {
    if (die1 < 1 || die1 > 6 || die2 < 1 || die2 > 6) return "a die shows 1 to 6";
    RollSelection at = selection;
    std::string fault = Enter(t, at, entry, {std::string(1, static_cast<char>(DiceByte(die1, die2))), {}});
    if (!fault.empty()) return fault;
    const bool onNext = entry == RollEntry::TypeOver && at.First < t.DiceFileLength;
    selection = {at.First + 1, onNext ? 1 : 0};
    return {};
}

std::string EnterRandomRoll(Table& t, RollSelection& selection, RollEntry entry) {
    CorrectMissingGenerator(t);
    const std::int32_t shown1 = t.Die1;
    const std::int32_t shown2 = t.Die2;
    DrawDice(t);
    const std::int32_t die1 = std::exchange(t.Die1, shown1);
    const std::int32_t die2 = std::exchange(t.Die2, shown2);
    return EnterRoll(t, selection, entry, die1, die2);
}

std::string DeleteRolls(Table& t, RollSelection selection) {
    if (std::string fault = Ready(t); !fault.empty()) return fault;
    const RollSelection held = HeldSelection(t, selection);
    return held.Count == 0 ? std::string() : Splice(t, held.First, held.Count, {});
}

std::string CopyFilePath(const std::string& workFolder) { return WorkFile(workFolder, "copyfile.rll"); }

std::string CopyRolls(Table& t, RollSelection selection, const std::string& workFolder) {
    return CopyToRollFile(t, selection, CopyFilePath(workFolder));
}

std::string CutRolls(Table& t, RollSelection selection, const std::string& workFolder) {
    std::string fault = CopyRolls(t, selection, workFolder);
    return fault.empty() ? DeleteRolls(t, selection) : fault;
}

std::string PasteRolls(Table& t, RollSelection& selection, RollEntry entry, const std::string& workFolder) {
    return PasteStretch(t, selection, entry, CopyFilePath(workFolder));
}

std::string PasteFromRollFile(Table& t, RollSelection& selection, RollEntry entry, const std::string& path) {
    return PasteStretch(t, selection, entry, path);
}

std::string PasteFromTextFile(Table& t, RollSelection& selection, RollEntry entry, const std::string& path,
                              const std::string& workFolder) {
    if (std::string fault = Ready(t); !fault.empty()) return fault;
    const std::string work = WorkFile(workFolder, "cnvrtasc.xx~");
    std::string fault = ConvertTextToRolls(path, work);
    if (fault.empty()) fault = PasteStretch(t, selection, entry, work);
    std::error_code ignored;
    std::filesystem::remove(work, ignored);
    return fault;
}

std::string CopyToRollFile(Table& t, RollSelection selection, const std::string& path) {
    if (std::string fault = Ready(t); !fault.empty()) return fault;
    if (IsSameFile(path, t.DiceRollFileName)) return "the file is open and in use";
    const RollSelection held = HeldSelection(t, selection);
    return CopyStretch({t.DiceRollFileName, held.First, held.Count}, path);
}

std::string ReadOpenRolls(Table& t, std::int32_t first, std::int32_t count, std::string& bytes) {
    bytes.clear();
    if (std::string fault = Ready(t); !fault.empty()) return fault;
    const RollSelection held = HeldSelection(t, {first, count});
    return ReadRolls({t.DiceRollFileName, held.First, held.Count},
                     [&bytes](std::string_view block) { return bytes.append(block), true; });
}

std::string FindRoll(Table& t, std::int32_t from, const RollPattern& pattern, std::int32_t& found) {
    found = 0;
    if (std::string fault = Ready(t); !fault.empty()) return fault;
    std::int32_t record = HeldSelection(t, {from, 0}).First;
    const auto fits = [&pattern](std::uint8_t roll) {
        return (pattern.Die1 == 0 || pattern.Die1 == FirstDie(roll)) &&
               (pattern.Die2 == 0 || pattern.Die2 == SecondDie(roll)) &&
               (pattern.Total == 0 || pattern.Total == FirstDie(roll) + SecondDie(roll));
    };
    return ReadRolls({t.DiceRollFileName, record, std::int64_t{t.DiceFileLength} - record + 1},
                     [&](std::string_view block) {
                         for (const char c : block) {
                             if (fits(static_cast<std::uint8_t>(c))) found = record;
                             if (found != 0) return false;
                             ++record;
                         }
                         return true;
                     });
}

void SetDiceFileNextRecord(Table& t, std::int64_t record) {
    const auto last = static_cast<std::int64_t>(t.DiceFileLength) + 1;
    t.DiceFileNextRecord = t.DiceFilePosition = static_cast<std::int32_t>(std::clamp<std::int64_t>(record, 1, last));
}

bool IsSameFile(const std::string& a, const std::string& b) {
    std::error_code error;
    return a == b || std::filesystem::equivalent(a, b, error);
}

}  // namespace tarnwick
