// Any bytes as a script file: there are lines, no line break is inside one, they are UTF-8, and what is saved reads
// back.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "autobet/scriptfile.h"
#include "files/codepage.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarnwick;
    const ScriptText script = ScriptFromBytes({reinterpret_cast<const char*>(data), size});
    Require(!script.Lines.empty());
    std::size_t total = 0;
    for (const std::string& line : script.Lines) {
        Require(line.find_first_of("\r\n") == std::string::npos);
        Require(IsUtf8(line));
        total += line.size() + 1;
    }
    // The wordings grow, but not without bound: a row's 128 characters are at most 384 bytes before they act.
    Require(total <= 64 * (size + 1));
    const ScriptText again = ScriptFromBytes(ScriptFileText(script.Lines));
    Require(again.Form == ScriptForm::Text);
    Require(again.Lines == script.Lines);
    return 0;
}
