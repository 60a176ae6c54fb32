#include "files/filesinuse.h"

#include <filesystem>
#include <utility>

#include "files/gamefile.h"
#include "files/paths.h"

namespace tarnwick {

namespace {

/// `path` from the root; as it is when the system can't tell.
std::string WholePath(const std::string& path) {
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(path.empty() ? "." : path, error);
    if (error) return path;
    const std::filesystem::path plain = whole.lexically_normal();
    return (plain.has_filename() ? plain : plain.parent_path()).string();  // no separator at the end
}

std::vector<PathGroup::Entry> OnePath(const std::string& folder, const std::string& name) {
    if (name.empty()) return {};
    return {{{}, WholePath(PathIn(folder, name))}};
}

}  // namespace

std::vector<PathGroup> FilesInUse(const Table& t, const TableLogs& logs, const std::string& programFolder,
                                  const std::string& userFolder) {
    PathGroup location{"Tarnwick location:", {{{}, WholePath(programFolder)}}};
    if (WholePath(userFolder) != WholePath(programFolder)) location.Entries.push_back({{}, WholePath(userFolder)});
    PathGroup scripts{"Auto-Bet Files:", {}}, sessions{"Sessions Log Files:", {}};
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p)) continue;
        const auto i = static_cast<std::size_t>(p);
        const std::string& script = t.ScriptName[i];
        if (!script.empty()) scripts.Entries.push_back({t.PlayerName[i], WholePath(PathIn(t.GameFolder, script))});
        sessions.Entries.push_back({t.PlayerName[i], WholePath(logs.SessionsLog(t, p))});
    }
    const std::string game = t.GameFileName.empty() ? std::string(DefaultGameName) : t.GameFileName;
    return {std::move(location),
            {"Game File:", OnePath(userFolder, game)},
            {"Events Log File:", {{{}, WholePath(logs.EventsLog(t).Log)}}},
            {"Dice Roll File:", OnePath(t.GameFolder, t.DiceRollFileName)},
            {"Probability File:", OnePath(t.GameFolder, t.ProbabilityFileName)},
            std::move(scripts),
            std::move(sessions)};
}

}  // namespace tarnwick
