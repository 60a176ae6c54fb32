// The command lines of the reports on saved games.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "lab/figurereports.h"
#include "lab/figures.h"

namespace tarnwick::lab {

class FiguresCommandLine {
  public:
    void Add(CLI::App& app) {
        for (const FigureReport& report : FigureReports()) {
            CLI::App* const command = app.add_subcommand(report.Name, std::string("Of a saved game: ") + report.Help);
            command->add_option("game", Options.Game, "The game file")->type_name("GAME.crp")->required();
            command->add_option("what", Options.Words, "What the report is of; all of it can be left out")
                ->type_name(report.Arguments);
            command->add_option("--format", Format, "text or json")->check(CLI::IsMember({"text", "json"}));
            Commands.push_back(command);
        }
    }
    bool Parsed() const { return Find() != nullptr; }
    int Run() {
        Options.Report = Find()->get_name();
        Options.Json = Format == "json";
        return PrintFigures(Options);
    }

  private:
    const CLI::App* Find() const {
        for (const CLI::App* command : Commands)
            if (command->parsed()) return command;
        return nullptr;
    }

    std::vector<const CLI::App*> Commands;  // one a report
    FigureOptions Options;
    std::string Format = "text";
};

}  // namespace tarnwick::lab
