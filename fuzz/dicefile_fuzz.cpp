// Any bytes as a dice roll file, and as a text to import: what is accepted plays up to its first roll out of limits,
// edits agree with a string, and what is exported comes in again.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "dice/dicefile.h"
#include "dice/dicefileedit.h"
#include "dice/dicefilerows.h"
#include "dice/dicefiletext.h"

namespace {

using namespace tarnwick;
namespace fs = std::filesystem;

void Require(bool holds) {
    if (!holds) std::abort();
}

/// Files of one process, in memory where the system offers that.
struct Scratch {
    Scratch() {
        const fs::path root = fs::is_directory("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
        std::string made = (root / "tarnwick-fuzz-XXXXXX").string();
        Require(mkdtemp(made.data()) != nullptr);
        Folder = made;
    }
    ~Scratch() {
        std::error_code error;
        fs::remove_all(Folder, error);
    }
    std::string Path(const char* name) const { return (Folder / name).string(); }
    std::string Write(const char* name, const std::string& bytes) const {
        std::ofstream(Path(name), std::ios::binary | std::ios::trunc) << bytes;
        return Path(name);
    }
    std::string Read(const char* name) const {
        std::ifstream file(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    fs::path Folder;
};

bool IsRoll(char c) { return CheckDiceRollValue(static_cast<std::uint8_t>(c)); }

void Play(Table& t, const std::string& bytes) {
    const auto bad = static_cast<std::size_t>(std::find_if_not(bytes.begin(), bytes.end(), IsRoll) - bytes.begin());
    Require(SetDiceFileMode(t, 2));
    std::size_t played = 0;
    FileRoll next = FileRoll::Ready;
    while ((next = PeekFileRoll(t)) == FileRoll::Ready) {
        NextFileRoll(t);
        Require(DiceByte(t.Die1, t.Die2) == static_cast<std::uint8_t>(bytes[played]));
        ++played;
    }
    Require(played == bad && next == (bad < bytes.size() ? FileRoll::OutOfLimits : FileRoll::AtEnd));
    Require(SetDiceFileMode(t, 0));
}

void Edit(Table& t, const Scratch& scratch, std::string bytes) {
    const std::size_t half = bytes.size() / 2;
    RollSelection at{static_cast<std::int32_t>(half) + 1, 0};
    Require(PasteFromRollFile(t, at, RollEntry::Insert, scratch.Path("a.rol")).empty());
    bytes.insert(half, std::string(bytes));
    Require(scratch.Read("a.rol") == bytes);
    Require(DeleteRolls(t, {1, static_cast<std::int32_t>(half)}).empty());
    bytes.erase(0, half);
    Require(scratch.Read("a.rol") == bytes);
    Require(t.DiceFileLength == static_cast<std::int32_t>(bytes.size()));
    RollHighlights highlights{};
    HighlightTotal(highlights, 7, HighlightColor::Multi);
    for (const char c : bytes) {
        const auto roll = static_cast<std::uint8_t>(c);
        Require(RollListText({}, 9, 1, roll).size() <= RollListRuler({}).size());
        HighlightOf(highlights, {}, roll);
    }
}

/// The rolls of a text, read the plain way.
std::string RollsOfText(const std::string& text) {
    std::string digits, rolls;
    for (const char c : text)
        if ('1' <= c && c <= '6') digits += c;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        rolls += static_cast<char>(DiceByte(digits[i] - '0', digits[i + 1] - '0'));
    return rolls;
}

void Exchange(Table& t, const Scratch& scratch, const std::string& text) {
    Require(OpenDiceRollFile(t, scratch.Write("b.rol", {})).empty());
    RollSelection at;
    scratch.Write("in.txt", text);
    Require(PasteFromTextFile(t, at, RollEntry::Insert, scratch.Path("in.txt"), scratch.Path(".")).empty());
    const std::string rolls = RollsOfText(text);
    Require(scratch.Read("b.rol") == rolls && !fs::exists(scratch.Path("cnvrtasc.xx~")));
    Require(CopyToTextFile(t, AllRolls(t), scratch.Path("out.txt"), RollFormat("(Die1.Die2)"), false).empty());
    Require(ConvertTextToRolls(scratch.Path("out.txt"), scratch.Path("c.rol")).empty());
    Require(scratch.Read("c.rol") == rolls);
    RollFormat(text).Line(1, 140);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Scratch scratch;
    static const auto table = std::make_unique<Table>();
    Table& t = *table;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const bool good = std::none_of(bytes.begin(), bytes.end(), [](char c) { return (c & 3) != 0; });
    CloseDiceRollFile(t);
    Require(OpenDiceRollFile(t, scratch.Write("a.rol", bytes)).empty() == good);
    if (good) {
        Play(t, bytes);
        Edit(t, scratch, bytes);
    }
    Exchange(t, scratch, bytes);
    return 0;
}
