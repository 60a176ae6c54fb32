#include "autobet/compilation.h"

namespace tarnwick {

std::optional<CompileError> CompileAutobets(Compilation& c, std::string_view lastPass) {
    for (const NamedPass& pass : CompilePasses) {
        if (auto error = pass.Run(c)) return error;
        if (pass.Name == lastPass) break;
    }
    return std::nullopt;
}

}  // namespace tarnwick
