// Rolls a second with players who bet by scripts, against the same loop without any.
#include <benchmark/benchmark.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "autobet/autobets.h"
#include "dice/dice.h"
#include "stats/accumulators.h"
#include "table/players.h"
#include "table/rundriver.h"
#include "table/screen.h"
#include "table/session.h"

namespace {

using namespace tarnwick;

constexpr std::int64_t RollsPerRun = 200'000;

const char* const FlatPassLine = R"(If Next roll is a comeout roll Then
  Bet 5 on PassLine
EndIf
)";

/// 20 statements: Pass Line with a progression on CheckStacks, odds, two Place bets, a stop-loss.
const char* const TwentyStatements = R"(If Beginning new session Then
  CS1 = 5
  CS2 = 0
EndIf
If PassLine wins > 0 Then
  CS1 = 5
ElseIf PassLine losses > 0 and CS1 < 40 Then
  CS1 = CS1 * 2
  Add 1 to CS2
EndIf
If Next roll is a comeout roll Then
  Bet CS1 on PassLine
  Clear Place6, Place8
Else
  Bet 10 on PassLineOdds
  If Point <> 6 and Place6 = 0 Then
    Bet 6 on Place6
  EndIf
  If Point <> 8 and Place8 = 0 Then
    Bet 6 on Place8
  EndIf
EndIf
)";

/// Three times as much: hardways, Come bets, counters, lists, a subroutine.
std::string SixtyStatements() {
    return std::string(TwentyStatements) + R"(If Dice total = 7 Then
  Add 1 to CS3
  CS4 = 0
Else
  Add 1 to CS4
EndIf
If CS4 > 5 and All(Hard6, Hard8) = 0 Then
  Bet 1 on Hard6, Hard8
EndIf
If CS4 = 0 Then
  Clear Hard6, Hard8
EndIf
If Point is established Then
  If Count(>0, Come bets) < 2 Then
    Bet 5 on Come
  EndIf
EndIf
CS5 = Bankroll - Beginning bankroll
If CS5 > CS6 Then
  CS6 = CS5
EndIf
If CS5 < CS7 Then
  CS7 = CS5
EndIf
CS8 = (CS6 + CS7) / 2
If Dice total = Any(4, 10) Then
  Add 1 to CS9
EndIf
If Die1 = Die2 Then
  Add 1 to CS10
  CS11 = CS10 * 100 / # rolls
EndIf
If Sum(Place bets) > 30 Then
  Clear Place bets
EndIf
GoSub 100
If Shooter passes Then
  Add 1 to CS13
ElseIf Shooter misses Then
  Subtract 1 from CS13
EndIf
GoTo 200
100
CS12 = CS12 + 1
If CS12 mod 10 = 0 Then
  CS14 = Int(CS13 / 2)
EndIf
Return
200
)";
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

struct Laboratory {
    std::unique_ptr<Table> Owned = std::make_unique<Table>();
    SilentScreen Screen;
    AutoBets Scripts;

    Laboratory(int players, const std::string& script) {
        Table& t = *Owned;
        SubMain(t, &Screen);
        Screen.KeepShown = false;
        SeedEverything(t, 7);
        t.Scripts = &Scripts;
        t.ShooterBetRequirement = 0;
        t.AutoStopRolls = Dollars(RollsPerRun);
        for (int p = 1; p <= players; ++p) {
            AddPlayer(t, p, std::string("Player") + static_cast<char>('A' + p), Dollars(1000));
            t.AllowNegativeBankroll[static_cast<std::size_t>(p)] = true;
            t.WinnerHandling[static_cast<std::size_t>(p)] = 1;
            t.LoserHandling[static_cast<std::size_t>(p)] = 1;
            if (script.empty()) continue;
            Scripts.SetScript(t, p, LinesOf(script), "");
            t.ScriptOn[static_cast<std::size_t>(p)] = true;
        }
    }
};

void RunRolls(benchmark::State& state, int players, const std::string& script) {
    Laboratory lab(players, script);
    Table& t = *lab.Owned;
    if (!lab.Scripts.CompileAll(t)) {
        state.SkipWithError("the script does not compile");
        return;
    }
    for (auto _ : state) {
        // A bankroll at its limit would end the run.
        for (int p = 1; p <= players; ++p) SetBankroll(t, p, Dollars(1000));
        ToggleAutoRoll(t);
    }
    const std::int64_t rolls = static_cast<std::int64_t>(state.iterations()) * RollsPerRun;
    if (SessionRolls(t) != rolls) state.SkipWithError("a run ended early");
    state.SetItemsProcessed(rolls);
    std::int64_t signature = 0;
    for (int p = 1; p <= players; ++p)
        signature = signature * 31 + t.Bankroll[static_cast<std::size_t>(p)].TenThousandths;
    state.counters["signature"] = static_cast<double>(signature % 1'000'003);
}

BENCHMARK_CAPTURE(RunRolls, without_scripts, 1, std::string())->Iterations(5);
BENCHMARK_CAPTURE(RunRolls, flat_pass_line, 1, std::string(FlatPassLine))->Iterations(5);
BENCHMARK_CAPTURE(RunRolls, twenty_statements, 1, std::string(TwentyStatements))->Iterations(5);
BENCHMARK_CAPTURE(RunRolls, sixty_statements, 1, SixtyStatements())->Iterations(5);
BENCHMARK_CAPTURE(RunRolls, eight_flat_pass_lines, 8, std::string(FlatPassLine))->Iterations(5);
BENCHMARK_CAPTURE(RunRolls, eight_of_twenty, 8, std::string(TwentyStatements))->Iterations(5);

}  // namespace
