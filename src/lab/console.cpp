#include "lab/console.h"

#include <cstdio>
#include <memory>

#include "dice/dice.h"
#include "lab/consolecommands.h"
#include "lab/consoleevents.h"
#include "lab/consolescripts.h"
#include "lab/interrupt.h"
#include "lab/labtable.h"
#include "lab/texttable.h"
#include "table/session.h"

namespace tarnwick::lab {

namespace {

/// Runs one line; false when the console ends.
bool Execute(Console& console, const std::string& line) {
    const CommandLine command = IsScriptCommand(line) ? SplitScriptCommand(line) : SplitCommand(line);
    if (!command.Fault.empty()) {
        console.Out.Fault(command.Fault);
        return true;
    }
    if (command.Words.empty()) return true;
    if (command.Words.size() == 1 && command.Words[0].Text == "quit") return false;
    const std::string fault = RunCommandLine(console, command);
    if (!fault.empty()) console.Out.Fault(fault);
    return true;
}

}  // namespace

int RunConsole(const ConsoleOptions& options) {
    LineSource lines;
    Printer printer(options.Json, lines);
    const auto table = std::make_unique<Table>();
    ConsoleScreen screen(*table, lines, printer);
    AutoBets scripts;
    StepPrinter steps(*table, scripts, printer);
    Console console{*table, screen, printer, lines, scripts, steps, options.Seed ? *options.Seed : ClockSeed(),
                    1,      {},     {},      {}};

    SubMain(*table, &screen);
    table->Scripts = &scripts;
    scripts.View = &steps;
    scripts.StatementLimit = options.StatementLimit;
    scripts.SetStopFlag(&InterruptFlag());
    screen.Scripts.Seed = console.Seed;
    table->AutoRollDelay = {};  // nobody watches a pipe; `set AutoRollDelay` slows it down
    if (options.Rng > 0) SelectRng(*table, options.Rng);
    const std::string fault = ApplySettings(*table, options.Settings);
    if (!fault.empty()) {
        fprintf(stderr, "tarnwick-lab console: %s\n", OneLine(fault).c_str());
        return 2;
    }
    SeedEverything(*table, console.Seed);
    if (!options.Json && (lines.Interactive() || !options.Seed)) {
        printer.PrintLine("# seed " + std::to_string(console.Seed) +
                          (lines.Interactive() ? "; help lists the commands" : ""));
    }
    CatchInterrupts();
    std::string line;
    while (lines.Next(line, "> ") && Execute(console, line)) {
        if (Interrupted() && lines.Interactive()) ForgetInterrupt();  // it stopped a run
        if (Interrupted()) break;
    }
    if (Interrupted()) return 130;
    if (!screen.Answers.empty()) {
        fprintf(stderr, "tarnwick-lab console: queued answers that nothing asked for: %zu\n", screen.Answers.size());
    }
    return printer.AnyFault() ? 1 : 0;
}

}  // namespace tarnwick::lab
