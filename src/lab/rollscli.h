// The command line of tarnwick-lab rolls.
#pragma once

#include <CLI/CLI.hpp>
#include <limits>
#include <string>
#include <vector>

#include "dice/rollio.h"
#include "lab/labtable.h"
#include "lab/rolls.h"

namespace tarnwick::lab {

class RollsCommandLine {
  public:
    void Add(CLI::App& app) {
        Rolls = app.add_subcommand("rolls", "Dice roll files: shows, checks, records, imports and exports them");
        Rolls->require_subcommand(1);
        AddReaders();
        AddWriters();
    }
    bool Parsed() const { return Rolls->parsed(); }
    int Run() {
        Shown.Json = CheckAsJson = Format == "json";
        if (Show->parsed()) return ShowRolls(Shown);
        if (Check->parsed()) return CheckRolls(Files, CheckAsJson);
        if (Export->parsed()) return ExportRolls(Exported);
        if (Import->parsed()) return ImportRolls(Imported);
        if (!SeedOption->count()) Recorded.Seed = ClockSeed();
        return RecordRolls(Recorded);
    }

  private:
    void AddStretch(CLI::App& command, RollsOptions& options) {
        command.add_option("file", options.File, "The dice roll file")->type_name("FILE.rol")->required();
        command.add_option("--from", options.From, "First roll; 1 if left out")->type_name("N")->check(RollNumber());
        command.add_option("--to", options.To, "Last roll; the file's last if left out")
            ->type_name("N")
            ->check(RollNumber());
    }
    static CLI::Range RollNumber() { return CLI::Range(std::int64_t{1}, std::int64_t{LastPossibleRecord}); }

    void AddFormat(CLI::App& command) {
        command.add_option("--format", Format, "text or json")->check(CLI::IsMember({"text", "json"}));
    }
    void AddReaders() {
        Show = Rolls->add_subcommand("show", "Prints the rolls, one a line");
        AddStretch(*Show, Shown);
        AddFormat(*Show);
        Check = Rolls->add_subcommand("check", "Tells how many rolls files have, or what is wrong with them");
        Check->add_option("files", Files, "Dice roll files")->type_name("FILE.rol")->required();
        AddFormat(*Check);
        Export = Rolls->add_subcommand("export", "Writes the rolls as text");
        AddStretch(*Export, Exported);
        Export->add_option("text", Exported.Text, "The text file to write; standard output if left out")
            ->type_name("FILE.txt");
        Export->add_option("--line", Exported.Format, "A line, with Roll#, Die1, Die2 and Total for the values")
            ->type_name("FORMAT");
        Export->add_flag("--renumber", Exported.Renumber, "Counts the rolls written from 1");
    }
    void AddWriters() {
        Import = Rolls->add_subcommand("import", "Puts the rolls of a text into the file");
        Import->add_option("file", Imported.File, "The dice roll file, made if need be")
            ->type_name("FILE.rol")
            ->required();
        Import->add_option("text", Imported.Text, "The text: digits 1 to 6, two a roll")
            ->type_name("FILE.txt")
            ->required();
        Import->add_option("--at", Imported.At, "Ahead of this roll; behind the last if left out")
            ->type_name("N")
            ->check(RollNumber());
        Import->add_flag("--type-over", Imported.TypeOver, "Over the rolls from there on instead");
        Record = Rolls->add_subcommand("record", "Records rolls of a generator");
        Record->add_option("file", Recorded.File, "The dice roll file, made if need be")
            ->type_name("FILE.rol")
            ->required();
        Record->add_option("--rolls", Recorded.Rolls, "How many; 1000 if left out")
            ->type_name("N")
            ->check(RollNumber());
        SeedOption = Record->add_option("--seed", Recorded.Seed, "Seed; without it the clock gives one");
        SeedOption->type_name("S");
        Record->add_option("--rng", Recorded.Rng, "Random number generator 1 to 8; 2 if left out")
            ->type_name("K")
            ->check(CLI::Range(1, 8));
        Record->add_flag("--append", Recorded.Append, "Adds to a file that has rolls");
    }

    CLI::App* Rolls = nullptr;
    CLI::App *Show = nullptr, *Check = nullptr, *Export = nullptr, *Import = nullptr, *Record = nullptr;
    CLI::Option* SeedOption = nullptr;
    std::string Format = "text";
    bool CheckAsJson = false;
    RollsOptions Shown;
    std::vector<std::string> Files;
    ExportOptions Exported;
    ImportOptions Imported;
    RecordOptions Recorded;
};

}  // namespace tarnwick::lab
