#include "lab/consolescripts.h"

#include <algorithm>
#include <filesystem>

#include "autobet/print.h"
#include "autobet/scriptfile.h"
#include "lab/interrupt.h"
#include "lab/scriptreports.h"
#include "lab/texttable.h"

namespace tarnwick::lab {

namespace {

std::size_t Seat(int p) { return static_cast<std::size_t>(p); }

std::string NameOf(const Table& t, int p) { return t.PlayerName[Seat(p)]; }

/// The lines of standard input up to "end" into `lines`; false when there is none.
bool ReadTypedScript(LineSource& source, std::vector<std::string>& lines) {
    std::string text, line;
    while (source.Next(line, "script> ")) {
        if (LowerCase(Trim(line)) == "end") {
            lines = ScriptFromBytes(text).Lines;
            return true;
        }
        text += line + "\n";
    }
    return false;
}

/// What is wrong with p's script, with its file or player; or nothing.
std::string ErrorOf(const Console& c, int p) {
    Compilation compilation = c.Scripts.CompilationOf(c.T, p);
    const ScriptVerdict verdict = CheckScript(compilation);
    if (verdict.Proper || verdict.FirstLine == 0) return {};
    const std::string& file = c.T.ScriptName[Seat(p)];
    return FaultText(file.empty() ? NameOf(c.T, p) + "'s script" : file, verdict);
}

/// The position of the next argument, or 0 for "all".
int SeatOrAll(Arguments& a) {
    if (!a.IsNext("all")) return a.Seat();
    a.Text();
    return 0;
}

std::string RunPiece(Console& c, const std::vector<std::string>& lines) {
    if (!IsSeated(c.T, c.T.ActivePlayer)) return "there is no bettor to run it for";
    c.Steps.Fragment = &lines;
    const auto error = c.Scripts.RunFragment(c.T, lines);
    c.Steps.Fragment = nullptr;
    if (!error) return ScriptFault(c, true);
    const ScriptVerdict verdict = VerdictOf(*error, lines);
    const std::string line = lines.size() > 1 ? "line " + std::to_string(verdict.FirstLine) + ", " : std::string();
    return line + "column " + std::to_string(verdict.FirstCol + 1) + ": " + verdict.Text;
}

}  // namespace

StepAnswer StepPrinter::ShowStep(const ScriptStep& step) {
    const std::vector<std::string>& lines = Fragment != nullptr ? *Fragment : Scripts.ScriptLines(step.Position);
    if (Out.WritesJson()) {
        JsonWriter json;
        WriteStep(json, step, lines);
        Out.PrintJson(json);
    } else {
        Out.PrintLine(StepText(NameOf(T, step.Position), step, lines));
    }
    return Interrupted() ? StepAnswer::Stop : StepAnswer::Next;
}

bool IsScriptCommand(std::string_view line) {
    const std::string_view text = Trim(line);
    const std::string_view word = text.substr(0, text.find_first_of(" \t"));
    return word == "do" || word == "hotkey";
}

CommandLine SplitScriptCommand(std::string_view line) {
    CommandLine command;
    std::string_view text = Trim(line);
    std::size_t words = text.substr(0, 2) == "do" ? 1 : 2;  // ahead of the script
    while (!text.empty()) {
        const std::size_t end = words-- == 0 ? text.size() : std::min(text.find_first_of(" \t"), text.size());
        command.Words.push_back({std::string(text.substr(0, end)), false, 0});
        if (end == text.size()) break;
        text = Trim(text.substr(end));
    }
    return command;
}

bool AnyScriptOn(const Table& t) {
    return std::any_of(t.ScriptOn.begin(), t.ScriptOn.end(), [](bool on) { return on; });
}

std::string InitializeScripts(Console& c) {
    const bool compiled = c.Scripts.Initialize(c.T);
    return ScriptFault(c, compiled);
}

std::string ScriptFault(Console& c, bool ran) {
    const std::int64_t limit = c.Scripts.StatementLimit;
    if (ran && limit > 0 && c.Scripts.StatementCount() > limit) {
        return "the scripts ran more than " + std::to_string(limit) + " statements";
    }
    return OneLine(std::exchange(c.Scripts.LastError, {}));
}

std::string DoScript(Console& c, Arguments& a) {
    const int p = a.Seat();
    const std::string path = a.Ok() ? a.Rest() : std::string();
    std::vector<std::string> lines;
    const bool typed = path == "-" || (!a.Ok() && a.IsNext("-"));
    // The lines are read even for a wrong position: they are no commands.
    if (typed && !ReadTypedScript(c.Lines, lines)) return "the script does not end: a line `end` is missing";
    if (!a.Ok()) return a.Fault;
    if (!typed) {
        ScriptText script;
        std::string fault = ReadScriptFile(path, script);
        if (!fault.empty()) return fault;
        lines = std::move(script.Lines);
    }
    c.Scripts.SetScript(c.T, p, std::move(lines), typed ? std::string() : path);
    return {};
}

std::string DoActivate(Console& c, Arguments& a) {
    const int p = SeatOrAll(a);
    if (!a.Ok()) return a.Fault;
    for (int q = 1; q < Positions; ++q) {
        const bool concerned = p == 0 ? IsSeated(c.T, q) && !c.Scripts.ScriptLines(q).empty() : p == q;
        if (!concerned) continue;
        if (c.Scripts.ScriptLines(q).empty()) return NameOf(c.T, q) + " has no script";
        const std::string error = ErrorOf(c, q);
        if (!error.empty()) return error;
    }
    const bool done = p == 0 ? c.Scripts.SetAllActive(c.T, true) : c.Scripts.SetActive(c.T, p, true);
    return done ? std::string() : "the scripts could not be activated";
}

std::string DoDeactivate(Console& c, Arguments& a) {
    const int p = SeatOrAll(a);
    if (!a.Ok()) return a.Fault;
    if (p == 0) {
        c.Scripts.SetAllActive(c.T, false);
    } else {
        c.Scripts.SetActive(c.T, p, false);
    }
    return {};
}

std::string DoInit(Console& c, Arguments&) {
    return AnyScriptOn(c.T) ? InitializeScripts(c) : std::string("no script is active");
}

std::string DoFragment(Console& c, Arguments& a) { return RunPiece(c, {a.Rest()}); }

std::string DoHotKey(Console& c, Arguments& a) {
    const std::string letter = LowerCase(a.Text());
    if (letter.size() != 1 || letter[0] < 'a' || letter[0] > 'z') return "\"" + letter + "\" is no letter A to Z";
    if (a.More()) {
        c.TypedKeys[letter[0]] = a.Rest();
        return {};
    }
    if (const auto typed = c.TypedKeys.find(letter[0]); typed != c.TypedKeys.end()) return RunPiece(c, {typed->second});
    const HotKey* key = FindHotKey(c.HotKeys, letter[0]);
    if (key == nullptr) return "there is no hot key " + letter;
    ScriptText script;
    std::string fault = ReadScriptFile(key->File, script);
    return fault.empty() ? RunPiece(c, script.Lines) : fault;
}

std::string DoHotKeys(Console& c, Arguments& a) {
    const std::string path = a.Rest();
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return "there is no file of hot keys " + path;
    return LoadHotKeys(path, c.HotKeys);
}

std::string DoSteps(Console& c, Arguments& a) {
    const bool on = a.OnOrOff();
    if (a.Ok()) c.Scripts.StepsOn = on;
    return a.Fault;
}

std::string DoPermit(Console& c, Arguments& a) {
    const int p = a.Seat();
    const std::string what = LowerCase(a.Text());
    const bool on = a.OnOrOff();
    if (!a.Ok()) return a.Fault;
    if (what == "prob") {
        c.T.AllowActProb[Seat(p)] = on;
    } else if (what == "others") {
        c.T.AllowAct4Others[Seat(p)] = on;
    } else if (what == "sessions") {
        c.T.AllowReset[Seat(p)] = on;
    } else {
        return "\"" + what + "\" is none of prob, others and sessions";
    }
    c.T.GameChanged = true;
    return {};
}

std::string DoElements(Console& c, Arguments& a) {
    const int p = a.Seat();
    if (!a.Ok()) return a.Fault;
    if (c.Scripts.ScriptLines(p).empty()) return NameOf(c.T, p) + " has no script";
    const std::string error = ErrorOf(c, p);
    if (!error.empty()) return error;
    Compilation compilation = c.Scripts.CompilationOf(c.T, p);
    CompileAutobets(compilation);
    if (c.Out.WritesJson()) {
        JsonWriter json;
        json.BeginObject().Key("elements").BeginObject().Field("p", p);
        WriteElements(json, compilation);
        c.Out.PrintJson(json.EndObject().EndObject());
    } else {
        c.Out.Print(ElementsText(compilation));
    }
    return {};
}

}  // namespace tarnwick::lab
