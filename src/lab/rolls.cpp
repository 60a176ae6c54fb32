#include "lab/rolls.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <system_error>

#include "dice/dice.h"
#include "dice/dicefile.h"
#include "dice/dicefileedit.h"
#include "dice/dicefilerows.h"
#include "dice/dicefiletext.h"
#include "dice/rollio.h"
#include "files/atomicfile.h"
#include "lab/json.h"
#include "lab/labtable.h"
#include "lab/texttable.h"

namespace tarnwick::lab {

namespace {

constexpr int Wrong = 1;
constexpr int CannotUse = 2;

int Refuse(const char* command, const std::string& fault) {
    std::fprintf(stderr, "tarnwick-lab rolls %s: %s\n", command, OneLine(fault).c_str());
    return CannotUse;
}

/// Names the file, unless the text begins with its name.
std::string Naming(const std::string& path, const std::string& fault) {
    return fault.rfind(ShortFileName(path) + "\n", 0) == 0 ? fault : path + ": " + fault;
}

void Put(const std::string& text) { std::fwrite(text.data(), 1, text.size(), stdout); }

/// The stretch that the options mean in a file of `length` rolls; false with a message when it has no such rolls.
bool StretchOf(const char* command, const RollsOptions& options, std::int32_t length, RollStretch& stretch) {
    const std::int64_t to = options.To == 0 ? length : options.To;
    if (options.From > to + 1 || to > length) {
        Refuse(command, options.File + " has " + Grouped(length) + (length == 1 ? " roll" : " rolls"));
        return false;
    }
    stretch = {options.File, options.From, to - options.From + 1};
    return true;
}

/// Calls `line` with each roll's number and byte, which appends to the text that is printed.
std::string PrintRolls(const RollStretch& stretch,
                       const std::function<void(std::string&, std::int64_t, std::uint8_t)>& line) {
    std::int64_t number = stretch.First;
    std::string text;
    return ReadRolls(stretch, [&](std::string_view block) {
        for (const char c : block) {
            line(text, number++, static_cast<std::uint8_t>(c));
            if (text.size() < 65'536) continue;
            Put(text);
            text.clear();
        }
        Put(text);
        text.clear();
        return std::ferror(stdout) == 0;
    });
}

void AppendJson(std::string& text, std::int64_t number, std::uint8_t roll) {
    JsonWriter json;
    json.BeginObject().Field("roll", number).Field("die1", FirstDie(roll)).Field("die2", SecondDie(roll));
    text += json.Field("total", FirstDie(roll) + SecondDie(roll)).EndObject().Text() + "\n";
}

/// The first roll with dice out of limits; 0 when there is none.
std::string FindBadRoll(const std::string& path, std::int32_t length, std::int64_t& bad, std::uint8_t& byte) {
    std::int64_t number = 0;
    bad = 0;
    return ReadRolls({path, 1, length}, [&](std::string_view block) {
        for (const char c : block) {
            ++number;
            byte = static_cast<std::uint8_t>(c);
            if (CheckDiceRollValue(byte)) continue;
            bad = number;
            return false;
        }
        return true;
    });
}

void TellCheck(const std::string& path, bool json, std::int32_t rolls, const std::string& fault) {
    if (json) {
        JsonWriter out;
        out.BeginObject().Field("file", path).Field("rolls", rolls).Field("fault", OneLine(fault));
        Put(out.EndObject().Text() + "\n");
    } else {
        const std::string count = Grouped(rolls) + (rolls == 1 ? " roll" : " rolls");
        Put(OneLine(Naming(path, fault.empty() ? count : fault)) + "\n");
    }
}

int CheckOne(const std::string& path, bool json) {
    std::int32_t rolls = 0;
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return Refuse("check", path + ": there is no such dice roll file");
    std::string fault = CheckRollFile(path, rolls);
    std::int64_t bad = 0;
    std::uint8_t byte = 0;
    if (fault.empty()) fault = FindBadRoll(path, rolls, bad, byte);
    if (bad != 0)
        fault = "roll " + Grouped(bad) + " is out of limits (" + std::to_string(FirstDie(byte)) + "." +
                std::to_string(SecondDie(byte)) + ")";
    TellCheck(path, json, rolls, fault);
    return fault.empty() ? 0 : Wrong;
}

}  // namespace

int ShowRolls(const RollsOptions& options) {
    std::int32_t length = 0;
    RollStretch stretch;
    if (const std::string fault = CheckRollFile(options.File, length); !fault.empty()) return Refuse("show", fault);
    if (!StretchOf("show", options, length, stretch)) return CannotUse;
    const RollListOptions list;
    const std::string fault = options.Json
                                  ? PrintRolls(stretch, AppendJson)
                                  : PrintRolls(stretch, [&](std::string& text, std::int64_t number, std::uint8_t roll) {
                                        text += RollListText(list, length, number, roll) + "\n";
                                    });
    return fault.empty() ? 0 : Refuse("show", Naming(options.File, fault));
}

int CheckRolls(const std::vector<std::string>& files, bool json) {
    int status = 0;
    for (const std::string& file : files) status = std::max(status, CheckOne(file, json));
    return status;
}

int ExportRolls(const ExportOptions& options) {
    const RollFormat format(options.Format);
    if (const std::string refusal = format.Refusal(); !refusal.empty()) return Refuse("export", refusal);
    std::int32_t length = 0;
    RollStretch stretch;
    if (const std::string fault = CheckRollFile(options.File, length); !fault.empty()) return Refuse("export", fault);
    if (!StretchOf("export", options, length, stretch)) return CannotUse;
    if (!options.Text.empty()) {
        const auto t = std::make_unique<Table>();
        std::string fault = OpenDiceRollFile(*t, options.File);
        if (!fault.empty()) return Refuse("export", fault);
        const RollSelection rolls{static_cast<std::int32_t>(stretch.First), static_cast<std::int32_t>(stretch.Count)};
        fault = CopyToTextFile(*t, rolls, options.Text, format, options.Renumber);
        return fault.empty() ? 0 : Refuse("export", options.Text + ": " + fault);
    }
    const std::int64_t renumbered = options.Renumber ? stretch.First - 1 : 0;
    const std::string fault = PrintRolls(stretch, [&](std::string& text, std::int64_t number, std::uint8_t roll) {
        format.AppendLine(text, number - renumbered, roll);
        text += "\r\n";
    });
    return fault.empty() ? 0 : Refuse("export", Naming(options.File, fault));
}

int ImportRolls(const ImportOptions& options) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(options.Text, error))
        return Refuse("import", "there is no text file " + options.Text);
    const auto t = std::make_unique<Table>();
    std::string fault = OpenDiceRollFile(*t, options.File);
    if (!fault.empty()) return Refuse("import", fault);
    const std::int64_t last = std::int64_t{t->DiceFileLength} + 1;
    if (options.At > last) return Refuse("import", options.File + " has " + Grouped(last - 1) + " rolls");
    RollSelection at{static_cast<std::int32_t>(options.At == 0 ? last : options.At), 0};
    const std::string folder = std::filesystem::path(options.File).parent_path().string();
    fault = PasteFromTextFile(*t, at, options.TypeOver ? RollEntry::TypeOver : RollEntry::Insert, options.Text,
                              folder.empty() ? "." : folder);
    if (!fault.empty()) return Refuse("import", Naming(options.File, fault));
    std::printf("%s: %s rolls at roll %s, %s in all\n", options.File.c_str(), Grouped(at.Count).c_str(),
                Grouped(at.First).c_str(), Grouped(t->DiceFileLength).c_str());
    return 0;
}

int RecordRolls(const RecordOptions& options) {
    const auto t = std::make_unique<Table>();
    std::string fault = OpenDiceRollFile(*t, options.File);
    if (!fault.empty()) return Refuse("record", fault);
    if (t->DiceFileLength > 0 && !options.Append)
        return Refuse("record", options.File + " has rolls already; --append adds to them");
    SelectRng(*t, options.Rng);
    SeedEverything(*t, options.Seed);
    SetDiceFileMode(*t, 1);
    SetDiceFileNextRecord(*t, std::int64_t{t->DiceFileLength} + 1);
    for (std::uint64_t i = 0; i < options.Rolls; ++i) {
        DrawDice(*t);
        if (!RecordRoll(*t)) return Refuse("record", options.File + ": the rolls could not be written");
    }
    if (!FlushDiceFile(*t)) return Refuse("record", options.File + ": the rolls could not be written");
    std::printf("%s: %s rolls by RNG #%d, seed %llu\n", options.File.c_str(), Grouped(t->DiceFileLength).c_str(),
                t->RngIndex + 1, static_cast<unsigned long long>(options.Seed));
    return 0;
}

}  // namespace tarnwick::lab
