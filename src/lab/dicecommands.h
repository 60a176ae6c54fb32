// The command line of `advantage` and `probabilities`. Included by main.cpp alone.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "lab/advantage.h"
#include "lab/probabilities.h"

namespace tarnwick::lab {

class DiceCommands {
  public:
    void AddTo(CLI::App& app) {
        AdvantageCommand = app.add_subcommand("advantage", "Prints the exact advantage of every bet");
        AddAdvantage(*AdvantageCommand);
        Probabilities = app.add_subcommand("probabilities", "Shows, makes and checks probability files");
        Probabilities->require_subcommand(1);
        ShowCommand = AddFileCommand("show", "Prints the chances of the dice");
        AddShow(*ShowCommand);
        AxisCommand = AddFileCommand("axis", "Writes the dice of a shooter who keeps each die to an axis");
        AddAxis(*AxisCommand);
        CheckCommand = AddFileCommand("check", "Tells whether the chances are exactly 100%");
    }

    /// The exit status of the command that was given, or nothing when it was another one's.
    std::optional<int> Run() {
        if (AdvantageCommand->parsed()) return RunAdvantage();
        if (!Probabilities->parsed()) return std::nullopt;
        Options.Json = Format == "json";
        if (ShowCommand->parsed()) return RunShow();
        return AxisCommand->parsed() ? RunAxis() : CheckProbabilities(Options);
    }

  private:
    static constexpr int BadUsage = 2;

    CLI::App* AddFileCommand(const char* name, const char* meaning) {
        CLI::App* command = Probabilities->add_subcommand(name, meaning);
        command->add_option("file", Options.File, "Probability file")->type_name("FILE.prb")->required();
        AddFormat(*command);
        return command;
    }
    void AddFormat(CLI::App& command) {
        command.add_option("--format", Format, "text or json")->check(CLI::IsMember({"text", "json"}));
    }
    void AddAdvantage(CLI::App& command) {
        command.add_option("game", Advantages.Game, "Game whose rules hold")->type_name("GAME.crp");
        command.add_option("--probabilities", Advantages.Probabilities, "Probability file of skewed dice")
            ->type_name("FILE.prb");
        command.add_option("--set", Settings, "A setting, such as BarDont=2 or Payoff[31]=\"2 to 1\"")
            ->type_name("NAME=VALUE")
            ->allow_extra_args(false);
        command.add_flag("--misc", Advantages.Misc, "Rolls, decisions and time instead of values");
        command.add_flag("--count-zero", Advantages.CountZero, "Counts rolls that decide nothing as decisions");
        AddFormat(command);
    }
    void AddShow(CLI::App& command) {
        command
            .add_option("--display", Display,
                        "percent; true: more or less than true percent; rolls; true-rolls: more or less than true")
            ->check(CLI::IsMember({"percent", "true", "rolls", "true-rolls"}));
        command.add_option("--rolls-out-of", RollsOutOf, "Rolls out of which they are shown, 36 if left out")
            ->type_name("N");
    }
    void AddAxis(CLI::App& command) {
        command.add_option("--first", First, "Axis and effectiveness of the first die")
            ->type_name("1-6|2-5|3-4:PERCENT")
            ->required();
        command.add_option("--second", Second, "The same of the second die")
            ->type_name("1-6|2-5|3-4:PERCENT")
            ->required();
    }

    template <class T>
    static bool Take(const Parsed<T>& parsed, const char* option, T& value) {
        if (!parsed) std::fprintf(stderr, "tarnwick-lab: %s: %s\n", option, parsed.Fault.c_str());
        if (parsed) value = parsed.Value;
        return static_cast<bool>(parsed);
    }

    int RunAdvantage() {
        for (const std::string& text : Settings) {
            SettingOption setting;
            if (!Take(ParseSettingOption(text), "--set", setting)) return BadUsage;
            Advantages.Settings.push_back(setting);
        }
        Advantages.Json = Format == "json";
        return ShowAdvantage(Advantages);
    }
    int RunShow() {
        Options.Display = Display == "true" ? 1 : Display == "rolls" ? 2 : Display == "true-rolls" ? 3 : 0;
        std::uint64_t rolls = 36;
        if (!RollsOutOf.empty() && !Take(ParseCount(RollsOutOf, 1, 999'999'999), "--rolls-out-of", rolls)) {
            return BadUsage;
        }
        Options.RollsOutOf = static_cast<double>(rolls);
        return ShowProbabilities(Options);
    }
    int RunAxis() {
        const bool good = Take(ParseAxisOption(First), "--first", Options.First) &&
                          Take(ParseAxisOption(Second), "--second", Options.Second);
        return good ? MakeAxisProbabilities(Options) : BadUsage;
    }

    CLI::App *AdvantageCommand = nullptr, *Probabilities = nullptr;
    CLI::App *ShowCommand = nullptr, *AxisCommand = nullptr, *CheckCommand = nullptr;
    AdvantageOptions Advantages;
    ProbabilityOptions Options;
    std::vector<std::string> Settings;
    std::string Format = "text", Display = "percent", RollsOutOf, First, Second;
};

}  // namespace tarnwick::lab
