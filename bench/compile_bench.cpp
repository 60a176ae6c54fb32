// How long a script takes from text to checked trees. A script of 500 lines is to compile in less than 20 ms.
#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

#include "autobet/compilation.h"

namespace tarnwick {
namespace {

/// A script as people write them: comments, conditions, bets, labels, groups, texts.
constexpr std::string_view Lines[] = {"' three points with odds",
                                      "If the point is established and # of rolls since 7 is greater than 5 then",
                                      "   If PassLine = 0 and Any(>0, place bets) then",
                                      "      Bet 10 on PassLine, Place6, Place8",
                                      "      Add cs1 * 2 + 5 to PassLineOdds : cs1 = cs1 + 1",
                                      "   ElseIf available bankroll is less than 100 or cs2 = Any(1, 2, 3) then",
                                      "      Clear all bets",
                                      "      Show message \"Bankroll is \" & Str$(bankroll) & \" now\"",
                                      "   Else",
                                      "      Round down to the nearest 6 on Place6, Place8",
                                      "   EndIf",
                                      "EndIf",
                                      "Do",
                                      "   cs3 = Highest(cs1, cs2, place6 wins last roll $) + Int(rnd * 6)",
                                      "   If cs3 > 10 then ExitDo EndIf",
                                      "Loop"};

void CompileScript(benchmark::State& state) {
    Compilation script;
    for (std::size_t i = 0; i < static_cast<std::size_t>(state.range(0)); ++i) {
        script.Lines.emplace_back(Lines[i % std::size(Lines)]);
    }
    script.Lines.resize(script.Lines.size() - script.Lines.size() % std::size(Lines));  // whole structures only
    script.PlayerNames[1] = "Ann";
    script.PlayerNames[2] = "Fred Smith";
    for (auto step : state) {
        (void)step;
        if (const auto error = CompileAutobets(script)) return state.SkipWithError(error->Text.c_str());
        benchmark::DoNotOptimize(script.Program.Nodes.data());
    }
    state.counters["elements"] = static_cast<double>(script.Elements.size());
    state.counters["nodes"] = static_cast<double>(script.Program.Nodes.size());
}
BENCHMARK(CompileScript)->Arg(16)->Arg(512)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarnwick
