// A table with players and their scripts, for the tests of the language's run.
#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "autobet/autobets.h"
#include "dice/dice.h"
#include "stats/accumulators.h"
#include "table/players.h"
#include "table/rolldice.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick {

/// Keeps the text of every step.
struct KeptSteps : StepsView {
    std::vector<ScriptStep> Steps;
    StepAnswer ShowStep(const ScriptStep& step) override {
        Steps.push_back(step);
        return StepAnswer::Next;
    }
    std::string AllText() const {
        std::string all;
        for (const ScriptStep& step : Steps) all += step.Text + "\n";
        return all;
    }
};

inline std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

struct ScriptTable {
    std::unique_ptr<Table> Owned = std::make_unique<Table>();
    Table& T = *Owned;
    SilentScreen Screen;
    AutoBets Scripts;
    KeptSteps Steps;

    /// Players "Ann" at 1 and so on, with 1000 each; scripts may do everything.
    explicit ScriptTable(int players = 1) {
        static const char* const names[] = {"Ann", "Bob", "Cid", "Dan", "Eve", "Fay", "Gus", "Hal"};
        SubMain(T, &Screen);
        SeedEverything(T, 7);
        T.Scripts = &Scripts;
        for (int p = 1; p <= players; ++p) AddPlayer(T, p, names[p - 1], Dollars(1000));
        T.ActivePlayer = 1;
        T.ShooterBetRequirement = 0;
        for (auto* flags : {&T.AllowActProb, &T.AllowAct4Others, &T.AllowReset}) flags->fill(true);
        Scripts.View = &Steps;
    }

    /// Runs `text` as a fragment for the bettor; what the compiler says of it, or nothing.
    std::string Do(const std::string& text) {
        const auto error = Scripts.RunFragment(T, LinesOf(text));
        return error ? error->Text : std::string();
    }

    /// The same with Steps: the text of the last step.
    std::string LastStep(const std::string& text) {
        Scripts.StepsOn = true;
        Steps.Steps.clear();
        const std::string error = Do(text);
        Scripts.StepsOn = false;
        if (!error.empty()) return "error: " + error;
        return Steps.Steps.empty() ? std::string() : Steps.Steps.back().Text;
    }

    /// What an expression is worth: it goes through CheckStack 99 of the bettor.
    double Worth(const std::string& expression) {
        const std::string error = Do("cs99 = -12345 : cs99 = " + expression);
        if (!error.empty()) return -99999;
        return ToDouble(T.BetAmount(T.ActivePlayer, 199));
    }
    /// The same for a text, through the name of CheckStack 99.
    std::string TextWorth(const std::string& expression) {
        const std::string error = Do("csn99 = " + expression);
        if (!error.empty()) return "error: " + error;
        return T.CheckStackName[static_cast<std::size_t>(T.ActivePlayer)][99];
    }

    currency Bet(int p, int row) const { return T.BetAmount(p, row); }

    /// Rolls the given dice.
    void Roll(int die1, int die2) { PadRoll(T, die1, die2); }
};

}  // namespace tarnwick
