#include "autobet/scriptfile.h"

#include <algorithm>

#include "autobet/oldscript.h"
#include "files/atomicfile.h"
#include "files/codepage.h"

namespace tarnwick {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

#ifdef _WIN32
constexpr std::string_view LineEnd = "\r\n";
#else
constexpr std::string_view LineEnd = "\n";
#endif

std::vector<std::string> SplitLines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        lines.emplace_back(text.substr(0, end));
        const bool isPair = text.substr(end, 2) == "\r\n";
        text.remove_prefix(std::min(text.size(), end + (isPair ? 2 : 1)));
    }
    if (lines.empty()) lines.emplace_back();
    return lines;
}

}  // namespace

ScriptText ScriptFromBytes(std::string_view bytes) {
    ScriptText script;
    script.Form = OldScriptForm(bytes);
    if (script.Form != ScriptForm::Text) {
        script.Lines = ConvertOldScript(bytes);
        return script;
    }
    const bool isMarked = bytes.substr(0, ByteOrderMark.size()) == ByteOrderMark;
    if (IsUtf8(bytes)) {
        script.Lines = SplitLines(bytes.substr(isMarked ? ByteOrderMark.size() : 0));
    } else {
        script.Lines = SplitLines(FromCodePage(bytes));
    }
    return script;
}

std::string ReadScriptFile(const std::string& path, ScriptText& script) {
    std::string bytes;
    const std::string fault = ReadWholeFile(path, MaxScriptFile, bytes);
    if (!fault.empty()) return path + " can't be read: " + fault + ".";
    script = ScriptFromBytes(bytes);
    return {};
}

std::string ScriptFileText(const std::vector<std::string>& lines) {
    std::string text;
    // A first line that would be taken for the mark or for the head of an old file is saved by a mark ahead of it.
    if (!lines.empty() &&
        (lines[0].substr(0, ByteOrderMark.size()) == ByteOrderMark || OldScriptForm(lines[0]) != ScriptForm::Text)) {
        text = ByteOrderMark;
    }
    for (const std::string& line : lines) {
        text += line;
        text += LineEnd;
    }
    return text;
}

std::string WriteScriptFile(const std::string& path, const std::vector<std::string>& lines) {
    const std::string fault = ReplaceFile(path, ScriptFileText(lines));
    return fault.empty() ? fault : path + " can't be written: " + fault + ".";
}

}  // namespace tarnwick
