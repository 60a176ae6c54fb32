// Any bytes as a script: every pass ends, an error lies inside the script, and a script without one has a whole tree.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "autobet/checkscript.h"
#include "autobet/layout.h"
#include "autobet/print.h"
#include "autobet/tidy.h"
#include "autobet/translate.h"

namespace {

using namespace tarnwick;

void Require(bool holds) {
    if (!holds) std::abort();
}

void CheckError(const CompileError& error, const Compilation& c) {
    const int lines = static_cast<int>(c.Lines.size());
    Require(!error.Text.empty());
    Require(1 <= error.FirstLine && error.FirstLine <= error.LastLine && error.LastLine <= lines);
    const auto length = [&c](int line) { return static_cast<int>(c.Lines[static_cast<std::size_t>(line) - 1].size()); };
    Require(0 <= error.FirstCol && error.FirstCol <= length(error.FirstLine));
    Require(0 <= error.LastCol && error.LastCol <= length(error.LastLine));
    const ScriptVerdict verdict = VerdictOf(error, c.Lines);
    Require(verdict.FirstCol <= length(verdict.FirstLine) && verdict.LastCol <= length(verdict.LastLine));
}

/// Operands stand before their node and inside the statement; targets and jumps exist.
void CheckTree(const Tree& t) {
    const auto count = [](const auto& list) { return static_cast<std::int32_t>(list.size()); };
    const auto within = [](std::int32_t index, std::int32_t end) {
        return index == NoNode || (0 <= index && index < end);
    };
    for (std::int32_t i = 0; i < count(t.Nodes); ++i) {
        const Node& n = t.Nodes[static_cast<std::size_t>(i)];
        if (n.Kind == NodeKind::Number || n.Kind == NodeKind::Text) continue;
        if (n.Kind == NodeKind::Variable) {
            Require(0 <= n.A && n.A < count(t.References));
            const Reference& r = t.References[static_cast<std::size_t>(n.A)];
            Require(within(r.Index, i) && within(r.PlayerNode, i) && (r.Variable > 0) != (r.Function > 0));
        } else if (n.Kind == NodeKind::ListFunction || n.Kind == NodeKind::ListCompare) {
            Require(n.B > 0 && 0 <= n.A && n.A + n.B <= count(t.Items));
            for (std::int32_t k = n.A; k < n.A + n.B; ++k) {
                const ListItem& item = t.Items[static_cast<std::size_t>(k)];
                Require(item.Left >= 0 && item.Left < i && within(item.Right, i) &&
                        (item.Op != 0) == (item.Right >= 0));
            }
        } else {
            Require(n.A >= 0 && n.A < i && within(n.B, i) && within(n.C, i));
        }
    }
    for (const Statement& s : t.Statements) {
        Require(within(s.Jump, count(t.Statements)) && s.FirstNode <= s.EndNode && s.EndNode <= count(t.Nodes));
        for (const std::int32_t operand : s.Operands) {
            Require(operand == NoNode || (s.FirstNode <= operand && operand < s.EndNode));
        }
        Require(s.FirstTarget <= s.EndTarget && s.EndTarget <= count(t.Targets));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    Compilation c;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t end = std::min(text.find('\n', from), text.size());
        c.Lines.push_back(text.substr(from, end - from));
        from = end + 1;
    }
    c.PlayerNames[1] = "Ann";
    c.PlayerNames[2] = "Fred Smith";
    c.PlayerNames[3] = c.Lines.front().substr(0, 12);  // any name that a game file may hold

    for (const std::string& line : c.Lines) {
        const std::string tidy = TidyLine(line);
        Require(TidyLine(tidy) == tidy);
        CapitaliseLine(line);
        NameRefusal(line, c.PlayerNames, 3);
    }
    LineLevels(c.Lines);
    if (const auto error = CompileAutobets(c)) {
        CheckError(*error, c);
    } else {
        CheckTree(c.Program);
    }
    ElementsText(c);
    return 0;
}
