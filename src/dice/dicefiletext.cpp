#include "dice/dicefiletext.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include "dice/dicefile.h"
#include "dice/rollio.h"
#include "files/atomicfile.h"
#include "table/format.h"

namespace tarnwick {

namespace {

constexpr std::size_t BlockLength = 65'536;

/// Calls `take` with the file's bytes, block by block; returns what went wrong, or nothing.
std::string ReadTextFile(const std::string& path, const std::function<void(std::string_view)>& take) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status)) return SystemFaultText(ENOENT);
    if (!std::filesystem::is_regular_file(status)) return "not a file";
    errno = 0;
    std::FILE* const opened = std::fopen(path.c_str(), "rb");
    if (opened == nullptr) return SystemFaultText(errno != 0 ? errno : EIO);
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(opened, std::fclose);
    const auto block = std::make_unique<char[]>(BlockLength);
    std::size_t got = 0;
    errno = 0;
    while ((got = std::fread(block.get(), 1, BlockLength, file.get())) > 0) take({block.get(), got});
    return std::ferror(file.get()) != 0 ? SystemFaultText(errno != 0 ? errno : EIO) : std::string();
}

}  // namespace

RollFormat::RollFormat(std::string_view text) {
    constexpr std::pair<std::string_view, Part> words[] = {
        {"roll#", Part::RollNumber}, {"die1", Part::Die1}, {"die2", Part::Die2}, {"total", Part::Total}};
    const std::string lower = LowerCase(Trim(text)) + " ";
    std::string_view rest = lower;
    while (!rest.empty()) {
        const auto word = std::find_if(std::begin(words), std::end(words),
                                       [rest](const auto& w) { return rest.substr(0, w.first.size()) == w.first; });
        if (word != std::end(words)) {
            Pieces.push_back({word->second, {}});
            rest.remove_prefix(word->first.size());
            continue;
        }
        if (Pieces.empty() || Pieces.back().Kind != Part::Text) Pieces.push_back({Part::Text, {}});
        Pieces.back().Text += rest.front();
        rest.remove_prefix(1);
    }
}

bool RollFormat::Has(Part kind) const {
    return std::any_of(Pieces.begin(), Pieces.end(), [kind](const Piece& piece) { return piece.Kind == kind; });
}

bool RollFormat::HasRollNumber() const { return Has(Part::RollNumber); }

std::string RollFormat::Refusal() const {
    if (Has(Part::Die1) || Has(Part::Die2) || Has(Part::Total)) return {};
    return "You must include one or more pieces of dice roll information in your output format, such as Die1, Die2, or "
           "Total.";
}

void RollFormat::AppendLine(std::string& out, std::int64_t number, std::uint8_t roll) const {
    for (const Piece& piece : Pieces) {
        switch (piece.Kind) {
            case Part::Text:
                out += piece.Text;
                break;
            case Part::RollNumber:
                out += std::to_string(number);
                break;
            case Part::Die1:
                out += std::to_string(FirstDie(roll));
                break;
            case Part::Die2:
                out += std::to_string(SecondDie(roll));
                break;
            case Part::Total:
                out += std::to_string(FirstDie(roll) + SecondDie(roll));
                break;
        }
    }
}

std::string RollFormat::Line(std::int64_t number, std::uint8_t roll) const {
    std::string line;
    AppendLine(line, number, roll);
    return line;
}

void RollTextReader::Read(std::string_view text, std::string& rolls) {
    for (const char c : text) {
        if (c < '1' || c > '6') continue;
        const int digit = c - '0';
        if (First == 0) {
            First = digit;
        } else {
            rolls += static_cast<char>(DiceByte(First, digit));
            First = 0;
        }
    }
}

std::string ConvertTextToRolls(const std::string& path, const std::string& to) {
    return ReplaceFileBy(to, [&path](ByteSink& sink) {
        RollTextReader reader;
        std::string rolls;
        return ReadTextFile(path, [&](std::string_view text) {
            rolls.clear();
            reader.Read(text, rolls);
            sink.Put(rolls);
        });
    });
}

std::string CopyToTextFile(Table& t, RollSelection selection, const std::string& path, const RollFormat& format,
                           bool renumber) {
    if (t.DiceRollFileName.empty()) return "no dice roll file is open";
    if (!FlushDiceFile(t)) return "what was recorded could not be written";
    if (IsSameFile(path, t.DiceRollFileName)) return "the file is open and in use";
    const RollSelection held = HeldSelection(t, selection);
    return ReplaceFileBy(path, [&](ByteSink& sink) {
        std::int64_t number = renumber ? 1 : held.First;
        std::string lines;
        return ReadRolls({t.DiceRollFileName, held.First, held.Count}, [&](std::string_view block) {
            lines.clear();
            for (const char c : block) {
                format.AppendLine(lines, number++, static_cast<std::uint8_t>(c));
                lines += "\r\n";
                if (lines.size() < BlockLength) continue;
                sink.Put(lines);
                lines.clear();
            }
            return sink.Put(lines);
        });
    });
}

}  // namespace tarnwick
