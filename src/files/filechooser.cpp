#include "files/filechooser.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "files/paths.h"
#include "table/format.h"
#include "table/messages.h"

namespace tarnwick {

namespace {

constexpr std::string_view AllFiles = "All files (*.*)";
constexpr std::string_view Sessions = "Session files (*.crp)";
constexpr std::string_view Rolls = "Roll files (*.rol)";
constexpr std::string_view Texts = "Text files (*.txt)";
constexpr std::string_view Scripts = "Auto-bet files (*.bet)";
constexpr std::string_view ScriptsAndTexts = "Auto-bet & text files (*.bet;*.txt)";
constexpr std::string_view SessionsLogs = "Sessions logs (*.slg)";
constexpr std::string_view Probabilities = "Probability files (*.prb)";

const std::array<FilePurposeInfo, 19>& AllPurposes() {
    using P = FilePurpose;
    using N = FileNeed;
    static const std::array<FilePurposeInfo, 19> purposes = {{
        {P::OpenSession, "Open Session File", N::Exists, {}, {Sessions, AllFiles}},
        {P::SaveSessionAs, "Save Session File As", N::Overwrite, "Save Session File As", {Sessions, AllFiles}},
        {P::OpenDiceRolls, "Open Dice Roll File  or  Enter Name For A New File", N::ExistsOrNew, {}, {Rolls, AllFiles}},
        {P::CopyToDiceRolls, "Copy To Dice Roll File", N::CopyOver, "Copy To Dice Roll File", {Rolls, AllFiles}},
        {P::CopyToText, "Copy Dice Rolls To Text File", N::CopyOver, "Copy To Text File", {Texts, AllFiles}},
        {P::PasteFromDiceRolls, "Paste From Dice Roll File", N::Exists, {}, {Rolls, AllFiles}},
        {P::PasteFromText, "Paste From Ascii/Text File", N::Exists, {}, {Texts, AllFiles}},
        {P::OpenScript, "Open Auto-Bet File", N::Exists, {}, {Scripts, ScriptsAndTexts, Texts, AllFiles}},
        {P::PasteFromScript, "Paste From Auto-Bet File", N::Exists, {}, {Scripts, ScriptsAndTexts, Texts, AllFiles}},
        {P::SaveScriptAs,
         "Save Auto-Bet File As",
         N::Overwrite,
         "Save Auto-Bet File As",
         {Scripts, ScriptsAndTexts, Texts, AllFiles}},
        {P::CopyScriptTo,
         "Copy Auto-Bets To File",
         N::Overwrite,
         "Copy Auto-Bets To File",
         {Scripts, ScriptsAndTexts, Texts, AllFiles}},
        {P::SelectHotKeyScript,
         "Select Auto-Bet File for Hot-Key",
         N::Exists,
         {},
         {Scripts, ScriptsAndTexts, Texts, AllFiles}},
        {P::OpenSessionsLog, "Open Sessions Log", N::Exists, {}, {SessionsLogs, AllFiles}},
        {P::SaveSessionsLogAs, "Save Sessions Log As", N::Overwrite, "Save Sessions Log As", {SessionsLogs, AllFiles}},
        {P::RenameSessionsLog, "Rename Sessions Log", N::Overwrite, "Rename Sessions Log", {SessionsLogs, AllFiles}},
        {P::OpenEventsLog, "Open Events Log", N::Exists, {}, {Texts, AllFiles}},
        {P::SaveEventsLogAs, "Save Events Log As", N::Overwrite, "Save Events Log As", {Texts, AllFiles}},
        {P::OpenProbabilities, "Open Probability File", N::Exists, {}, {Probabilities, AllFiles}},
        {P::SaveProbabilitiesAs,
         "Save Probability File As",
         N::Overwrite,
         "Save Probability File As",
         {Probabilities, AllFiles}},
    }};
    return purposes;
}

bool HasFolder(std::string_view name) { return name.find_first_of(":/\\") != std::string_view::npos; }

std::string_view LastPart(std::string_view name) {
    const std::size_t mark = name.find_last_of(":/\\");
    return mark == std::string_view::npos ? name : name.substr(mark + 1);
}

/// A path that names nothing is a fault of the path; one that leads nowhere is a missing file.
bool CanBePath(const std::string& path) {
    std::error_code error;
    if (path.find('\0') != std::string::npos) return false;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    const auto type = status.type();
    return type == std::filesystem::file_type::regular || type == std::filesystem::file_type::not_found;
}

bool FolderIsThere(const std::string& path) {
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    return folder.empty() || std::filesystem::is_directory(folder, error);
}

bool AskOverwrite(Table& t, const FilePurposeInfo& info, const std::string& path) {
    const std::string_view question =
        info.Need == FileNeed::CopyOver ? "Do you want to copy over it?" : "Do you want to overwrite it?";
    return AskYesNo(t, std::string(info.QuestionTitle),
                    ShortName(path) + "\nis already on file.\n" + std::string(question));
}

}  // namespace

const FilePurposeInfo& InfoOf(FilePurpose purpose) { return AllPurposes()[static_cast<std::size_t>(purpose)]; }

std::vector<std::string> PatternsOf(std::string_view typeLine) {
    std::vector<std::string> patterns;
    const std::size_t open = typeLine.rfind('(');
    const std::size_t close = typeLine.rfind(')');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open) return patterns;
    std::string_view list = typeLine.substr(open + 1, close - open - 1);
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(';'), list.size());
        if (const std::string_view pattern = Trim(list.substr(0, end)); !pattern.empty())
            patterns.emplace_back(pattern);
        list.remove_prefix(std::min(list.size(), end + 1));
    }
    return patterns;
}

bool FitsPattern(std::string_view name, std::string_view pattern) {
    if (pattern == "*.*") return true;
    const std::string text = LowerCase(name);
    const std::string mask = LowerCase(pattern);
    // Where the last star stands, and what of the name it has taken so far.
    std::size_t i = 0, j = 0, star = std::string::npos, taken = 0;
    while (i < text.size()) {
        if (j < mask.size() && (mask[j] == '?' || (mask[j] != '*' && mask[j] == text[i]))) {
            ++i, ++j;
        } else if (j < mask.size() && mask[j] == '*') {
            star = j++;
            taken = i;
        } else if (star != std::string::npos) {
            j = star + 1;
            i = ++taken;
        } else {
            return false;
        }
    }
    while (j < mask.size() && mask[j] == '*') ++j;
    return j == mask.size();
}

std::string CompletePath(std::string_view name, const std::string& folder, std::string_view typeLine) {
    std::string path(name);
    const std::vector<std::string> patterns = PatternsOf(typeLine);
    if (LastPart(name).find('.') == std::string_view::npos && !patterns.empty()) {
        const std::string& pattern = patterns.front();
        const std::size_t dot = pattern.rfind('.');
        const bool plain = dot != std::string::npos && pattern.find_first_of("*?", dot) == std::string::npos;
        if (plain) path += pattern.substr(dot);
    }
    return HasFolder(name) || folder.empty() ? path : (std::filesystem::path(folder) / path).string();
}

NameChoice AcceptFileName(Table& t, FilePurpose purpose, const std::string& name, const std::string& folder,
                          std::string_view typeLine, std::string& path) {
    const FilePurposeInfo& info = InfoOf(purpose);
    const std::string_view typed = Trim(name);
    if (typed.empty()) {
        ShowNote(t, "Missing Filename", "Please enter a file name.");
        return NameChoice::Stay;
    }
    if (typed.find_first_of("*?") != std::string_view::npos) return NameChoice::Pattern;
    const std::string full = CompletePath(typed, folder, typeLine);
    const bool exists = IsFile(full);
    const bool opens = info.Need == FileNeed::Exists;
    if (!CanBePath(full) || (!opens && !FolderIsThere(full))) {
        TellUnreadablePath(t);
        return NameChoice::Stay;
    }
    if (opens && !exists) {
        ShowNote(t, "Error", "File not found\nCheck path and file name", MsgButton::OkStop);
        return NameChoice::Stay;
    }
    const bool replaces = info.Need == FileNeed::Overwrite || info.Need == FileNeed::CopyOver;
    if (replaces && exists && !AskOverwrite(t, info, full)) return NameChoice::Stay;
    path = full;
    return NameChoice::Use;
}

bool AskDeleteFile(Table& t, const std::string& path) {
    std::string text = "Are you sure you want to delete:\n" + path;
    if (path == t.DiceRollFileName) text += "\n\nThis Dice Roll File is open.";
    for (std::size_t p = 1; p < Positions; ++p) {
        if (path == t.ScriptName[p]) text += "\n\nThis is " + t.PlayerName[p] + "'s Auto-Bet file.";
    }
    return AskYesNo(t, "Delete File", text);
}

void TellUnreadablePath(Table& t) { ShowNote(t, "Error", "Path, file, or device error.", MsgButton::OkStop); }

// --- sound sets ---

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The name without the extension, when it has it.
std::string_view Without(std::string_view name, std::string_view extension) {
    if (name.size() <= extension.size()) return {};
    const std::size_t length = name.size() - extension.size();
    return LowerCase(name.substr(length)) == LowerCase(extension) ? name.substr(0, length) : std::string_view();
}

void SortOut(std::vector<std::string>& names) {
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
}

}  // namespace

std::vector<std::string> StickPersonSets(const std::vector<std::string>& files) {
    std::vector<std::string> sets;
    for (const std::string& file : files) {
        const std::string_view name = Without(file, ".stk");
        if (name.size() > 2 && IsDigit(name[name.size() - 1]) && IsDigit(name[name.size() - 2])) {
            sets.emplace_back(name.substr(0, name.size() - 2));
        }
    }
    SortOut(sets);
    return sets;
}

std::vector<std::string> SoundSets(const std::vector<std::string>& files, std::string_view extension) {
    std::vector<std::string> sets;
    for (const std::string& file : files) {
        const std::string_view name = Without(file, extension);
        if (!name.empty() && LowerCase(file) != "chips.win") sets.emplace_back(name);
    }
    SortOut(sets);
    return sets;
}

int FirstSoundSet(const std::vector<std::string>& sets, std::string_view preferred) {
    for (std::size_t i = 0; i < sets.size(); ++i) {
        if (LowerCase(sets[i]) == LowerCase(preferred)) return static_cast<int>(i) + 1;
    }
    return sets.empty() ? 0 : 1;
}

}  // namespace tarnwick
