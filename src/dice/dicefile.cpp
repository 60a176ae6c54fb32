#include "dice/dicefile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include "dice/rollio.h"
#include "files/atomicfile.h"
#include "stats/eventslog.h"
#include "table/messages.h"
#include "table/rundriver.h"
#include "table/screen.h"

namespace tarnwick {

namespace {

constexpr std::size_t BlockLength = 65'536;

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

/// Opens `path`; `fault` gets the number of what went wrong when the result is null.
File OpenFile(const std::string& path, const char* how, int& fault) {
    errno = 0;
    File file(std::fopen(path.c_str(), how));
    if (file == nullptr) fault = errno != 0 ? errno : EIO;
    return file;
}

int FaultNumber() { return errno != 0 ? errno : EIO; }

/// Makes an empty file of a name that doesn't exist; returns what is wrong, or nothing.
std::string PrepareFile(const std::string& path) {
    if (path.empty() || path.find('\0') != std::string::npos) return CannotUseRollFile(path, "not a file name");
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    int fault = 0;
    switch (status.type()) {
        case std::filesystem::file_type::regular:
            return {};
        case std::filesystem::file_type::not_found:
            if (OpenFile(path, "ab", fault) == nullptr) return CannotUseRollFile(path, SystemFaultText(fault));
            return {};
        case std::filesystem::file_type::none:
            return CannotUseRollFile(path, error.message());
        default:
            return CannotUseRollFile(path, "not a file");
    }
}

void ForgetFile(Table& t) { static_cast<DiceRollFile&>(t) = DiceRollFile{}; }

/// Ends the use of the file by a fault of it.
void GiveUp(Table& t, int fault, const char* procedure) {
    t.DiceFileMode = 0;
    if (t.StopReason.empty()) t.StopReason = "Stopped due to a fault of the Dice Roll File.";
    ReportFault(t, fault, procedure);
}

void EnterMode(Table& t, int mode) {
    const bool starts = mode == 2 && t.DiceFileMode != 2;
    t.DiceFileMode = mode;
    t.DiceFileEnd = 0;
    if (starts) LogPlayback(t);
}

/// Writes the unwritten rolls; returns 0 or the number of the fault.
int WriteBlock(const std::string& path, const DiceFileBlocks& blocks) {
    int fault = 0;
    File file = OpenFile(path, "r+b", fault);
    if (file == nullptr) return fault;
    const long offset = blocks.UnwrittenFrom - 1;
    // A file that has become shorter would get a gap of zeros.
    if (std::fseek(file.get(), 0, SEEK_END) != 0) return FaultNumber();
    if (std::ftell(file.get()) < offset) return EIO;
    if (std::fseek(file.get(), offset, SEEK_SET) != 0) return FaultNumber();
    const std::size_t size = blocks.Unwritten.size();
    if (std::fwrite(blocks.Unwritten.data(), 1, size, file.get()) != size) return FaultNumber();
    if (std::fclose(file.release()) != 0) return FaultNumber();
    return 0;
}

/// Reads the block that begins at the next record; returns 0 or the number of the fault. A file that has become shorter
/// shortens DiceFileLength.
int ReadBlock(Table& t) {
    int fault = 0;
    const File file = OpenFile(t.DiceRollFileName, "rb", fault);
    if (file == nullptr) return fault;
    const std::int32_t before = t.DiceFileNextRecord - 1;
    if (std::fseek(file.get(), before, SEEK_SET) != 0) return FaultNumber();
    std::vector<std::uint8_t>& block = t.DiceFileMemory.Read;
    block.resize(std::min(BlockLength, static_cast<std::size_t>(t.DiceFileLength - before)));
    const std::size_t got = std::fread(block.data(), 1, block.size(), file.get());
    const int readFault = std::ferror(file.get()) != 0 ? FaultNumber() : 0;
    if (got < block.size() && readFault == 0) t.DiceFileLength = before + static_cast<std::int32_t>(got);
    block.resize(got);
    t.DiceFileMemory.ReadFrom = t.DiceFileNextRecord;
    return got > 0 ? 0 : readFault;
}

/// The next roll where it lies in memory, or null.
const std::uint8_t* NextInMemory(const Table& t) {
    const DiceFileBlocks& blocks = t.DiceFileMemory;
    const std::int64_t place = std::int64_t{t.DiceFileNextRecord} - blocks.ReadFrom;
    if (place < 0 || place >= static_cast<std::int64_t>(blocks.Read.size())) return nullptr;
    return &blocks.Read[static_cast<std::size_t>(place)];
}

bool IsBeyondEnd(const Table& t) {
    const std::int32_t last = t.DiceFileEnd > 0 ? std::min(t.DiceFileEnd, t.DiceFileLength) : t.DiceFileLength;
    return t.DiceFileNextRecord > last;
}

}  // namespace

std::string OpenDiceRollFile(Table& t, const std::string& path) {
    FlushDiceFile(t);
    std::string wrong = PrepareFile(path);
    std::int32_t length = 0;
    if (wrong.empty()) wrong = CheckRollFile(path, length);
    if (!wrong.empty()) return wrong;
    const std::string name = path;  // `path` may be the very name that is forgotten
    ForgetFile(t);
    t.DiceRollFileName = name;
    t.DiceFileLength = length;
    return {};
}

void CloseDiceRollFile(Table& t) {
    FlushDiceFile(t);
    ForgetFile(t);
}

bool SetDiceFileMode(Table& t, int mode) {
    if (mode < 0 || mode > 2) return false;
    if (mode != 0 && t.DiceRollFileName.empty()) {
        t.DiceFileMode = 0;
        if (!t.HyperDriveActive)
            ShowNote(t, mode == 1 ? "Record Dice Rolls During Game Play" : "Playback Dice Rolls During Game Play",
                     "You need to open a file first.");
        return false;
    }
    if (!FlushDiceFile(t) && mode != 0) return false;
    EnterMode(t, mode);
    return true;
}

bool FlushDiceFile(Table& t) {
    DiceFileBlocks& blocks = t.DiceFileMemory;
    if (blocks.Unwritten.empty()) return true;
    if (const int fault = WriteBlock(t.DiceRollFileName, blocks); fault != 0) {
        GiveUp(t, fault, "RecordRoll");
        return false;
    }
    blocks.Unwritten.clear();
    blocks.Read.clear();
    return true;
}

FileRoll PeekFileRoll(Table& t) {
    if (t.DiceFileNextRecord < 1) t.DiceFileNextRecord = t.DiceFilePosition = 1;
    if (IsBeyondEnd(t)) return FileRoll::AtEnd;
    const std::uint8_t* roll = NextInMemory(t);
    if (roll == nullptr) {
        if (!FlushDiceFile(t)) return FileRoll::Failed;
        if (const int fault = ReadBlock(t); fault != 0) {
            GiveUp(t, fault, "NextFileRoll");
            return FileRoll::Failed;
        }
        roll = NextInMemory(t);
        if (roll == nullptr) return FileRoll::AtEnd;
    }
    return CheckDiceRollValue(*roll) ? FileRoll::Ready : FileRoll::OutOfLimits;
}

void NextFileRoll(Table& t) {
    const std::uint8_t* roll = NextInMemory(t);
    if (roll == nullptr) return;
    t.Die1 = FirstDie(*roll);
    t.Die2 = SecondDie(*roll);
    t.DiceFileLastRecord = t.DiceFileNextRecord;
    t.DiceFilePosition = ++t.DiceFileNextRecord;
}

bool RecordRoll(Table& t) {
    const std::int32_t record = std::clamp(t.DiceFileNextRecord, 1, t.DiceFileLength + 1);
    if (record > LastPossibleRecord) {
        GiveUp(t, EFBIG, "RecordRoll");
        return false;
    }
    DiceFileBlocks& blocks = t.DiceFileMemory;
    const bool follows = record == blocks.UnwrittenFrom + static_cast<std::int32_t>(blocks.Unwritten.size());
    if ((!follows || blocks.Unwritten.size() >= BlockLength) && !FlushDiceFile(t)) return false;
    if (blocks.Unwritten.empty()) {
        blocks.UnwrittenFrom = record;
        blocks.Unwritten.reserve(BlockLength);
        blocks.Read.clear();
    }
    blocks.Unwritten.push_back(DiceByte(t.Die1, t.Die2));
    t.DiceFileLastRecord = record;
    t.DiceFileNextRecord = t.DiceFilePosition = record + 1;
    t.DiceFileLength = std::max(t.DiceFileLength, record);
    return true;
}

void RefuseFileRoll(Table& t) {
    t.DiceFileMode = 0;
    t.StopReason = "Stopped due to Dice Roll File value out of limits.";
    if (!t.HyperDriveActive)
        ShowNote(t, "Dice Roll File Error",
                 "A dice roll value has been found to be out of limits. \n\n"
                 "Playback of this Dice Roll File has ceased so that you can check the file or continue without it.");
    if (t.Front != nullptr) t.Front->RefreshOpenWindows();
}

void RewindQuestion(Table& t) {
    if (t.AutoRollActive) StopAutoRoll(t);
    const std::string what = t.DiceFileMode == 1 ? "Recording stopped." : "Playback stopped.";
    const bool written = FlushDiceFile(t);
    if (AskYesNo(t, "Dice Roll File", what + "\nRewind for playback?") && written) {
        t.DiceFileNextRecord = t.DiceFilePosition = 1;
        EnterMode(t, 2);
    } else {
        EnterMode(t, 0);
    }
    if (t.Front != nullptr) t.Front->RedrawTable();
}

}  // namespace tarnwick
