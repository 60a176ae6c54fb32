// Any bytes as a script that plays: what compiles runs for a few rolls, first statement by statement under a limit;
// when it kept within that, the fast code must leave the same table. A line "end" parts a second player's script.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "autobet/autobets.h"
#include "dice/dice.h"
#include "stats/accumulators.h"
#include "table/players.h"
#include "table/rolldice.h"
#include "table/screen.h"
#include "table/session.h"

namespace {

using namespace tarnwick;

constexpr std::int64_t MostStatements = 3000;
constexpr int RandomRolls = 4;
constexpr std::pair<int, int> FirstRolls[] = {{2, 2}, {3, 3}, {1, 3}, {3, 4}};
constexpr int SecondScript = 2;

void Require(bool holds) {
    if (!holds) std::abort();
}

const Table& FreshTable() {
    static const std::unique_ptr<Table> fresh = [] {
        auto table = std::make_unique<Table>();
        SilentScreen screen;
        SubMain(*table, &screen);
        SeedEverything(*table, 7);
        for (const auto& [p, name] : {std::pair{1, "Ann"}, {2, "Bob"}, {5, "Fred Smith"}}) {
            AddPlayer(*table, p, name, Dollars(1000));
        }
        table->ActivePlayer = 1;
        table->AllowAct4Others.fill(true);
        table->AllowReset.fill(true);
        table->AllowActProb.fill(false);  // no dice or probability files
        return table;
    }();
    return *fresh;
}

/// Scripts may write wherever their user may; not these.
bool OpensFiles(const Compilation& c) {
    return std::any_of(c.Elements.begin(), c.Elements.end(),
                       [](const Element& e) { return e.Code == Code::Action && (e.Value == 220 || e.Value == 221); });
}

struct Game {
    std::unique_ptr<Table> T = std::make_unique<Table>(FreshTable());
    SilentScreen Screen;
    AutoBets Scripts;
    bool CutShort = false;

    Game(const std::vector<std::string>& first, const std::vector<std::string>& second, std::int64_t limit) {
        Screen.KeepShown = false;
        T->Front = &Screen;
        T->Scripts = &Scripts;
        Scripts.StatementLimit = limit;
        Scripts.SetScript(*T, 1, first, {});
        Scripts.SetActive(*T, 1, true);
        if (!second.empty()) {
            Scripts.SetScript(*T, SecondScript, second, {});
            Scripts.SetActive(*T, SecondScript, true);
        }
    }
    void Play() {
        Scripts.Initialize(*T);
        Watch();
        for (const auto& [die1, die2] : FirstRolls) {
            if (CutShort) return;
            PadRoll(*T, die1, die2);
            Watch();
        }
        for (int i = 0; i < RandomRolls && !CutShort; ++i) {
            RollDice(*T);
            Watch();
        }
    }

  private:
    void Watch() {
        const Table& t = *T;
        CutShort = CutShort || (Scripts.StatementLimit > 0 && Scripts.StatementCount() > Scripts.StatementLimit);
        Require(!Scripts.Running() && !t.ScriptRunning);
        for (int p = 1; p < Positions; ++p) {
            Require(IsSeated(t, p) || IsZero(t.BetsOnTable[static_cast<std::size_t>(p)]));
            for (int row = 1; row <= Row::LastBet; ++row) Require(!(t.BetAmount(p, row) < currency{}));
        }
    }
};

void RequireSame(const Table& a, const Table& b) {
    Require(a.RollTotal == b.RollTotal && a.Point == b.Point && a.Shooter == b.Shooter);
    Require(a.Bankroll == b.Bankroll && a.PlayerName == b.PlayerName && a.CheckStackName == b.CheckStackName);
    for (int p = 0; p < Positions; ++p) {
        for (int row = 0; row < RowCount201; ++row) Require(a.BetAmount(p, row) == b.BetAmount(p, row));
        for (int row = 1; row <= Row::LastBet; ++row) Require(a.WorkingCells(p, row) == b.WorkingCells(p, row));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    std::vector<std::string> scripts[2];
    std::size_t script = 0;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t end = std::min(text.find('\n', from), text.size());
        std::string line = text.substr(from, end - from);
        if (line == "end" && script == 0) {
            ++script;
        } else {
            scripts[script].push_back(std::move(line));
        }
        from = end + 1;
    }
    if (scripts[0].empty()) return 0;
    for (int p = 1; p <= 2; ++p) {
        AutoBets compiler;
        Compilation c = compiler.CompilationOf(FreshTable(), 0);
        c.Slot = p;
        c.Lines = scripts[p - 1];
        if (c.Lines.empty()) continue;
        if (CompileAutobets(c) || OpensFiles(c)) return 0;
    }
    Game watched(scripts[0], scripts[1], MostStatements);
    watched.Play();
    if (watched.CutShort) return 0;
    Game fast(scripts[0], scripts[1], 0);
    fast.Play();
    RequireSame(*watched.T, *fast.T);
    return 0;
}
