#include "lab/convert.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "autobet/scriptfile.h"

namespace tarnwick::lab {

namespace {

constexpr int CannotUse = 2;

const char* FormName(ScriptForm form) {
    switch (form) {
        case ScriptForm::Marrowgate50:
            return "Marrowgate AutoBets, Data Format 5.0";
        case ScriptForm::Tarnwick39:
            return "Tarnwick AutoBets, Data Format 3.9";
        case ScriptForm::Tarnwick50:
            return "Tarnwick AutoBets, Data Format 5.0";
        case ScriptForm::Text:
            break;
    }
    return "text";
}

int Refuse(const std::string& fault) {
    std::fprintf(stderr, "tarnwick-lab convert: %s\n", fault.c_str());
    return CannotUse;
}

}  // namespace

int Convert(const std::string& from, const std::string& to) {
    std::error_code error;
    if (std::filesystem::equivalent(from, to, error)) return Refuse(to + " is the file to convert; name another one.");
    ScriptText script;
    std::string fault = ReadScriptFile(from, script);
    if (fault.empty()) fault = WriteScriptFile(to, script.Lines);
    if (!fault.empty()) return Refuse(fault);
    const std::size_t count = script.Lines.size();
    std::printf("%s (%s): %zu line%s written to %s\n", from.c_str(), FormName(script.Form), count,
                count == 1 ? "" : "s", to.c_str());
    return 0;
}

}  // namespace tarnwick::lab
