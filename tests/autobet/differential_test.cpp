// Lowered scripts against the literal evaluator: generated scripts on random tables must give the same values, the same
// actions and the same warnings, in fast code and step by step.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>

#include "autobet/literal_evaluator.h"
#include "autobet/scripttable.h"
#include "table/placement.h"

namespace tarnwick {
namespace {

class ScriptWriter {
  public:
    explicit ScriptWriter(std::uint32_t seed) : Random(seed) {}

    std::string Script() {
        std::string text;
        for (int i = 0; i < 4; ++i) text += Block(2);
        if (Chance(3)) text += "gosub 77\ngoto 78\n77\n" + Action() + "return\n78\n";
        return text;
    }
    int Below(int n) { return static_cast<int>(Random() % static_cast<unsigned>(n)); }

  private:
    std::mt19937 Random;

    bool Chance(int oneIn) { return Below(oneIn) == 0; }
    template <std::size_t N>
    std::string Pick(const char* const (&list)[N]) {
        return list[static_cast<std::size_t>(Below(static_cast<int>(N)))];
    }

    std::string Block(int depth) {
        if (depth == 0 || Below(3) == 0) return Action();
        if (Chance(5)) {
            return "cs50 = 0\ndo\ncs50 = cs50 + 1\nif cs50 > 3 then\nexitdo\nendif\n" + Block(0) + "loop\n";
        }
        std::string text = "if " + Condition(2) + "\n";
        if (Chance(4)) text += Condition(1) + "\n";
        text += "then\n" + Block(depth - 1) + Action();
        if (Chance(2)) text += "elseif " + Condition(2) + " then\n" + Block(depth - 1);
        if (Chance(2)) text += "else\n" + Action();
        return text + "endif\n";
    }

    std::string Constant() {
        return Pick({"0", "1", "2", "3", "5", "6", "8", "10", "25", "0.5", "2.5", "100", "1000000"});
    }
    std::string Index() { return Chance(3) ? "int(" + Number(1) + ") mod 10" : Pick({"1", "2", "3", "cs1", "cs2"}); }
    std::string Point() { return Chance(3) ? Number(1) : Pick({"4", "5", "6", "8", "10", "cs3", "point", "7"}); }
    std::string Variable() {
        if (Chance(12)) return "rnd";
        if (Chance(6)) return "place(" + Point() + ")";
        if (Chance(8)) return "hard(" + Point() + ")";
        if (Chance(6)) return "cs(" + Index() + ")";
        if (Chance(12)) return "player(" + Index() + ") bankroll";
        return Pick({"cs1",
                     "cs2",
                     "cs3",
                     "cs4",
                     "passline",
                     "place6",
                     "place8",
                     "field",
                     "bankroll",
                     "point",
                     "dice total",
                     "die1",
                     "die2",
                     "# rolls",
                     "available bankroll",
                     "player2 cs1",
                     "bettor cs2",
                     "shooter place6",
                     "place6 wins total #",
                     "place8 wagers total $",
                     "minimum bet",
                     "answer",
                     "# rolls 7",
                     "% of rolls 8",
                     "place6 net total $",
                     "dice roll file length",
                     "place6 vig"});
    }
    std::string Number(int depth) {
        if (depth <= 0) return Chance(2) ? Constant() : Variable();
        switch (Below(12)) {
            case 0:
                return "(" + Number(depth - 1) + ")";
            case 1:
                return Pick({"int", "abs", "sqr", "die", "player"}) + "(" + Number(depth - 1) + ")";
            case 2:
                return Pick({"highest", "lowest", "average", "sum", "count", "stddev"}) + "(" + ListItems(depth - 1) +
                       ")";
            case 3:
                return Chance(2) ? "len(" + Text(1) + ")" : "val(" + Text(1) + ")";
            case 4:
                return "-(" + Number(depth - 1) + ")";
            case 5:
                return "instr(" + Constant() + ", " + Text(1) + ", " + Text(0) + ")";
            case 6:
                return Constant();
            case 7:
                return Variable();
            default:
                return "(" + Number(depth - 1) +
                       Pick({" + ", " - ", " * ", " / ", " \\ ", " mod ", " + ", " - ", " ^ "}) + Number(depth - 1) +
                       ")" + (Chance(4) ? " + " + Variable() + " * " + Constant() : "");
        }
    }
    std::string ListItems(int depth) {
        std::string items;
        const int count = 1 + Below(4);
        for (int i = 0; i < count; ++i) {
            if (Chance(4)) items += Comparison() + Constant() + ", ";
            items += Number(depth);
            if (i + 1 < count) items += ", ";
        }
        return Chance(6) ? items + ", place bets" : items;
    }
    std::string Text(int depth) {
        if (depth <= 0) return Pick({"\"abc\"", "\"Hello\"", "\"\"", "\"12\"", "csn1", "csn2"});
        switch (Below(7)) {
            case 0:
                return "left$(" + Text(depth - 1) + ", " + Number(0) + ")";
            case 1:
                return "mid$(" + Text(depth - 1) + ", " + Number(0) + ", 2)";
            case 2:
                return "str$(" + Number(1) + ")";
            case 3:
                return "csn(" + Index() + ")";
            case 4:
                return "player name(" + Index() + ")";
            case 5:
                return Text(depth - 1) + " & " + Text(0);
            default:
                return Text(0);
        }
    }
    std::string Comparison() { return Pick({" = ", " <> ", " < ", " > ", " <= ", " >= "}); }
    std::string Condition(int depth) {
        if (depth > 0) {
            switch (Below(5)) {
                case 0:
                    return "(" + Condition(depth - 1) + ") and (" + Condition(depth - 1) + ")";
                case 1:
                    return Condition(depth - 1) + " or " + Condition(0);
                case 2:
                    return "not (" + Condition(depth - 1) + ")";
                case 3:
                    return Condition(0) + " xor " + Condition(0);
                default:
                    break;
            }
        }
        switch (Below(9)) {
            case 0:
                return Text(1) + Comparison() + Text(1);
            case 1:
                return Pick({"any", "all"}) + "(" + Number(1) + ", " + Number(0) + ")" + Comparison() + Number(0);
            case 2:
                return Number(0) + Comparison() + Pick({"any", "all"}) + "(" + Number(1) + ", " + Comparison() +
                       Number(0) + ")";
            case 3:
                return Pick({"any", "all"}) + "(" + Comparison() + Constant() + ", " +
                       Pick({"place bets", "bets", "cs1, cs2",
                             "place("
                             "6), rnd"}) +
                       ")";
            case 4:
                return Pick({"point is established", "next roll is a comeout roll", "seven out", "place6 working"});
            default:
                return Number(1) + Comparison() + Number(1);
        }
    }
    std::string StackTarget() {
        if (Chance(4)) return "cs(" + Index() + ")";
        return Pick(
            {"cs1", "cs2", "cs3", "cs4", "player2 cs1", "player(2) cs2", "player3 cs2", "player4 cs1", "shooter cs3"});
    }
    std::string BetTarget() {
        if (Chance(4)) return "place(" + Point() + ")";
        return Pick(
            {"passline", "place6", "place8", "field", "hard6", "buy4", "lay10", "passlineodds", "player2 place5"});
    }
    std::string Action() {
        switch (Below(14)) {
            case 0:
                return "bet " + Number(1) + " on " + BetTarget() + "\n";
            case 1:
                return "bet " + Constant() + " on " + BetTarget() + ", " + BetTarget() + "\n";
            case 2:
                return "add " + Number(0) + " to " + (Chance(2) ? StackTarget() : BetTarget()) + "\n";
            case 3:
                return "subtract " + Number(0) + " from " + StackTarget() + "\n";
            case 4:
                return "multiply by " + Number(0) + " on " + StackTarget() + "\n";
            case 5:
                return Pick({"round to the nearest ", "round down to the nearest ", "round up to the nearest "}) +
                       Constant() + " on " + StackTarget() + "\n";
            case 6:
                return "clear " + Comparison() + Constant() + ", " + StackTarget() + ", " + BetTarget() + "\n";
            case 7:
                return Pick({"clear all(place bets)\n", "remove passline\n", "clear bets\n", "clear cs1, place6\n",
                             "call off place6, place8\n", "call on place(cs3)\n"});
            case 8:
                return "csn" + Pick({"1", "2", "3"}) + " = " + Text(2) + "\n";
            case 9:
                return "swap " + StackTarget() + ", " + StackTarget() + "\n";
            case 10:
                return "csn(" + Index() + ") = " + (Chance(3) ? Number(1) : Text(1)) + "\n";
            case 11:
                return Pick({"autohandle winning bets = ", "autotake full odds = "}) + Number(0) + "\n";
            default:
                return StackTarget() + " = " + Number(3) + "\n";
        }
    }
};

/// Everything that a generated script may change, one line each where it isn't 0, and the generator's next number.
std::string StateOf(const Table& told) {
    const auto copy = std::make_unique<Table>(told);  // drawing moves the generator
    Table& t = *copy;
    std::string state;
    const auto add = [&](const std::string& name, const auto& value) {
        if (value != 0) state += name + " " + std::to_string(value) + "\n";
    };
    for (int p = 0; p < Positions; ++p) {
        const auto seat = static_cast<std::size_t>(p);
        const std::string who = std::to_string(p) + ": ";
        for (int row = 1; row < 200; ++row) add(who + BetTitle(row), t.BetAmount(p, row).TenThousandths);
        for (int row = 1; row <= Row::LastBet; ++row) add(who + BetTitle(row) + " works", BetWorking(t, p, row) - 1);
        add(who + "on table", t.BetsOnTable[seat].TenThousandths);
        add(who + "winners", t.WinnerHandling[seat]);
        add(who + "odds", static_cast<int>(t.AutoTakeFullOdds[seat]));
        for (const std::string& name : t.CheckStackName[seat]) state += name.empty() ? "" : who + name + "\n";
    }
    add("next", Uniform(t));
    return state;
}

/// A table in the middle of a session, with bets and CheckStacks at random.
void Disturb(ScriptTable& s, ScriptWriter& random) {
    Table& t = s.T;
    t.WinnerHandling.fill(2);
    t.LoserHandling.fill(2);
    for (int i = random.Below(4); i > 0; --i) {
        for (int p = 1; p <= 3; ++p) {
            PlaceBet(t, p, Row::PassLine, Dollars(random.Below(30)));
            PlaceBet(t, p, Row::Place4 + random.Below(6), Dollars(random.Below(40)));
        }
        s.Roll(1 + random.Below(6), 1 + random.Below(6));
    }
    for (int p = 1; p <= 3; ++p) {
        for (int row = 100; row < 110; ++row) SetBetAmount(t, p, row, {random.Below(200'000) - 50'000});
    }
    t.CheckStackName[1][1] = "Hello";
    t.CheckStackName[1][2] = "7 abc";
    t.AllowAct4Others[1] = random.Below(2) == 0;
}

std::vector<std::vector<std::string>> OutcomesOf(const KeptSteps& steps) {
    std::vector<std::vector<std::string>> outcomes;
    for (const ScriptStep& step : steps.Steps) {
        std::vector<std::string> lines = LinesOf(step.Text);
        if (lines.front() == "Condition is true." || lines.front() == "Condition is false." ||
            lines.back() == "Action taken." || lines.back() == "No action taken.") {
            lines.erase(std::remove(lines.begin(), lines.end(), ""), lines.end());
            std::sort(lines.begin(), lines.end());
            outcomes.push_back(lines);
        }
    }
    return outcomes;
}

TEST(LoweredScripts, AgreeWithTheLiteralEvaluation) {
    int compiled = 0, faulted = 0, statements = 0;
    constexpr int scripts = 500;
    for (std::uint32_t seed = 1; seed <= scripts; ++seed) {
        ScriptWriter writer(seed);
        const std::string source = writer.Script();
        ScriptTable s(3);
        Disturb(s, writer);
        s.Scripts.SetScript(s.T, 1, LinesOf(source), "");
        Compilation script = s.Scripts.CompilationOf(s.T, 1);
        if (CompileAutobets(script)) continue;
        ++compiled;
        SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + source);
        s.T.ScriptOn[1] = true;

        // Tables take a megabyte each; the stack has eight.
        const auto literalOwned = std::make_unique<Table>(s.T);
        Table& literalTable = *literalOwned;
        SilentScreen literalScreen;
        literalTable.Front = &literalScreen;
        literalTable.ScriptRunning = true;
        LiteralEvaluator literal(script, literalTable);
        const bool literalDone = literal.Run();
        faulted += literalDone ? 0 : 1;
        statements += static_cast<int>(literal.Outcomes.size());

        const auto fastOwned = std::make_unique<Table>(s.T);
        Table& fastTable = *fastOwned;
        s.Scripts.StepsOn = true;
        s.Scripts.RunAll(s.T);
        EXPECT_EQ(s.Scripts.LastError.empty(), literalDone);
        const auto outcomes = OutcomesOf(s.Steps);
        for (std::size_t i = 0; i < std::min(outcomes.size(), literal.Outcomes.size()); ++i) {
            ASSERT_EQ(outcomes[i], literal.Outcomes[i]) << "statement " << i;
        }
        ASSERT_EQ(outcomes.size(), literal.Outcomes.size());
        ASSERT_EQ(StateOf(s.T), StateOf(literalTable));
        SilentScreen fastScreen;
        fastTable.Front = &fastScreen;
        AutoBets fast;
        fast.SetScript(fastTable, 1, LinesOf(source), "");
        fastTable.ScriptOn[1] = true;
        fast.RunAll(fastTable);
        EXPECT_EQ(fast.LastError.empty(), literalDone) << fast.LastError;
        ASSERT_EQ(StateOf(fastTable), StateOf(literalTable));
    }
    // A generator that wrote nothing that compiles would agree with everything.
    EXPECT_GT(compiled, scripts / 2);
    EXPECT_GT(statements, 3000);
    EXPECT_GT(faulted, 5);
    EXPECT_LT(faulted, compiled / 4);
}

}  // namespace
}  // namespace tarnwick
