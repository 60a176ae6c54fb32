#include "lab/check.h"

#include <array>
#include <cstdio>

#include "autobet/print.h"
#include "autobet/scriptfile.h"
#include "autobet/translate.h"
#include "lab/scriptreports.h"
#include "lab/texttable.h"

namespace tarnwick::lab {

namespace {

using Names = std::array<std::string, 9>;

/// The names of --player by position; returns what is wrong, or nothing.
std::string SeatNames(const std::vector<NameOption>& players, Names& names) {
    for (const NameOption& player : players) {
        std::string& name = names[static_cast<std::size_t>(player.Position)];
        if (!name.empty()) return "position " + std::to_string(player.Position) + " is taken twice";
        if (player.Name.empty()) return "the player at position " + std::to_string(player.Position) + " has no name";
        const std::string refusal = NameRefusal(player.Name, names);
        if (!refusal.empty()) return refusal;
        name = player.Name;
    }
    return {};
}

struct Checked {
    ScriptVerdict Verdict;
    bool Wrong = false;
    Compilation Listed;        ///< for its elements
    bool HasElements = false;  ///< false when the script is wrong before the pass asked for
};

Checked CheckLines(const CheckOptions& options, const Names& names, const std::vector<std::string>& lines) {
    Checked result;
    Compilation c;
    c.Lines = lines;
    c.PlayerNames = names;
    result.Listed = c;
    result.Verdict = CheckScript(c);
    result.Wrong = !result.Verdict.Proper && result.Verdict.FirstLine > 0;  // an empty script is not wrong
    if (options.Elements) result.HasElements = !CompileAutobets(result.Listed, options.After);
    return result;
}

void PrintText(const CheckOptions& options, const std::string& file, const Checked& checked) {
    std::string line = OneLine(checked.Verdict.Text);
    if (checked.Wrong) {
        line = FaultText(file, checked.Verdict);
    } else if (options.Files.size() > 1) {
        line = file + ": " + line;
    }
    if (checked.HasElements) line += "\n" + ElementsText(checked.Listed);
    if (line.back() != '\n') line += '\n';
    std::fwrite(line.data(), 1, line.size(), stdout);
}

void PrintJson(const std::string& file, const Checked& checked) {
    JsonWriter json;
    json.BeginObject().Field("file", file).Field("proper", !checked.Wrong);
    if (checked.Wrong) {
        json.Key("error").BeginObject().Field("message", checked.Verdict.Text);
        WriteSource(json, checked.Verdict);
        json.EndObject();
    } else {
        json.Field("text", checked.Verdict.Text);
    }
    if (checked.HasElements) WriteElements(json, checked.Listed);
    json.EndObject();
    std::fprintf(stdout, "%s\n", json.Text().c_str());
}

}  // namespace

int Check(const CheckOptions& options) {
    Names names;
    const std::string refusal = SeatNames(options.Players, names);
    if (!refusal.empty()) {
        std::fprintf(stderr, "tarnwick-lab check: %s\n", OneLine(refusal).c_str());
        return 2;
    }
    bool unreadable = false, wrong = false;
    for (const std::string& file : options.Files) {
        ScriptText script;
        const std::string fault = ReadScriptFile(file, script);
        if (!fault.empty()) {
            std::fflush(stdout);
            std::fprintf(stderr, "tarnwick-lab check: %s\n", fault.c_str());
            unreadable = true;
            continue;
        }
        const Checked checked = CheckLines(options, names, script.Lines);
        wrong = wrong || checked.Wrong;
        if (options.Json) {
            PrintJson(file, checked);
        } else {
            PrintText(options, file, checked);
        }
    }
    std::fflush(stdout);
    return unreadable ? 2 : wrong ? 1 : 0;
}

}  // namespace tarnwick::lab
