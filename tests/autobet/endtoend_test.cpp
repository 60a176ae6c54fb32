// Whole scripts: structure at run time, restarts, loops that must be stopped, Steps, and runs of many rolls.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>

#include "autobet/scripttable.h"
#include "table/rundriver.h"

namespace tarnwick {
namespace {

double Stack(const ScriptTable& s, int n, int p = 1) { return ToDouble(s.Bet(p, 100 + n)); }

TEST(ScriptRuns, StructureDecidesWhatIsDone) {
    struct Case {
        const char* script;
        double expected;  ///< CheckStack 1
    };
    const Case cases[] = {
        {"if 1 then\ncs1 = 1\nelse\ncs1 = 2\nendif", 1},
        {"if 0 then\ncs1 = 1\nelse\ncs1 = 2\nendif", 2},
        {"if 0 then\ncs1 = 1\nelseif 5 then\ncs1 = 3\nelse\ncs1 = 2\nendif", 3},
        {"if 0 then\ncs1 = 1\nelseif 0 then\ncs1 = 3\nendif", 0},
        {"if cs2 = 0\ncs2 = 1\nthen\ncs1 = 1\nelse\ncs1 = 2\nendif", 2},
        {"if cs2 = 1\ncs2 = 0\nthen\ncs1 = 1\nendif", 1},
        {"do\nadd 1 to cs1\nif cs1 = 4 then\nexitdo\nendif\nloop\nadd 10 to cs1", 14},
        {"goto \"skip\"\ncs1 = 1\n\"skip\"\nadd 2 to cs1", 2},
        {"gosub 10\ngosub 10\ngoto 20\n10\nadd 1 to cs1\nreturn\n20", 2},
        {"return\ncs1 = 7", 7},
        {"goto \"inside\"\nif 0 then\n\"inside\"\ncs1 = 5\nendif", 5},
        {"cs1 = 5 : if not cs1 then\ncs1 = 6\nendif", 6},
        {"if 1 or 6 and 0 then\ncs1 = 1\nendif", 1},
        {"if all(cs2, cs3) = 0 and any(4, 5) = 5 then\ncs1 = 8\nendif", 8},
        {"if any(>0, bets) then\ncs1 = 1\nelse\ncs1 = 2\nendif", 2},
        {"bet 5 on field\nif any(>0, bets) then\ncs1 = count(>4, bets)\nendif", 1},
        {"bet 5 on field : bet 6 on place6\ncs1 = sum(bets)", 11},
        {"if \"abc\" = \"ABC\" and \"b\" > \"A\" then\ncs1 = 1\nendif", 1},
    };
    for (const Case& c : cases) {
        for (const bool steps : {false, true}) {
            ScriptTable s;
            s.Scripts.StepsOn = steps;
            EXPECT_EQ(s.Do(c.script), "") << c.script;
            EXPECT_EQ(Stack(s, 1), c.expected) << c.script << (steps ? "\nstep by step" : "");
            EXPECT_EQ(s.Scripts.LastError, "");
        }
    }
}

TEST(ScriptRuns, FaultsEndTheRunAndNothingElse) {
    for (const char* fault : {"cs1 = 3000000000 \\ 1", "cs1 = 10 ^ 400", "cs1 = (-8) ^ 0.5", "cs1 = 1e10 and 1",
                              "csn1 = chr$(256)", "cs1 = 1e308 * 10", "10\ngosub 10"}) {
        ScriptTable s;
        EXPECT_EQ(s.Do(std::string("cs2 = 1\n") + fault + "\ncs3 = 1"), "") << fault;
        EXPECT_EQ(Stack(s, 2), 1) << fault;
        EXPECT_EQ(Stack(s, 3), 0) << fault;
        EXPECT_NE(s.Scripts.LastError.find("\n occurred, at: Auto-bet run"), std::string::npos) << fault;
        EXPECT_FALSE(s.Scripts.Running());
        EXPECT_EQ(s.Do("cs3 = 1"), "");
        EXPECT_EQ(Stack(s, 3), 1) << "the next run is a new one";
    }
}

TEST(ScriptRuns, EndlessLoopsCanBeStopped) {
    struct Pump : SilentScreen {
        Table* Game = nullptr;
        int Pumps = 0;
        void PumpEvents() override {
            if (++Pumps == 3) Game->ScriptStopRequested = true;
        }
    };
    for (const bool hyper : {false, true}) {
        ScriptTable s;
        Pump pump;
        pump.Game = &s.T;
        s.T.Front = &pump;
        s.T.HyperDriveActive = hyper;
        s.Do("do\nadd 1 to cs1\nloop");
        EXPECT_EQ(pump.Pumps, 3);
        EXPECT_GT(Stack(s, 1), 0);
        s.T.Front = &s.Screen;
    }
    ScriptTable s;
    std::atomic<bool> stop{true};
    s.Scripts.SetStopFlag(&stop);
    s.Do("do\nadd 1 to cs1\nloop");
    EXPECT_FALSE(s.Scripts.Running());
    s.Scripts.SetStopFlag(nullptr);
    s.Scripts.StatementLimit = 1000;
    s.Do("do\nadd 1 to cs1\nloop");
    EXPECT_EQ(s.T.StopReason, "Stopped: the scripts ran more than 1000 statements.");
    EXPECT_EQ(s.Scripts.StatementCount(), 1001);
}

TEST(ScriptRuns, ScriptsRunInTheOrderOfPositionsOnceARoll) {
    ScriptTable s(3);
    for (int p = 1; p <= 3; ++p) {
        s.Scripts.SetScript(s.T, p, LinesOf("add 1 to cs1\ncs2 = cs3 player1 : add 1 to cs3 player1"), "");
        ASSERT_TRUE(s.Scripts.SetActive(s.T, p, true));
    }
    for (int i = 0; i < 5; ++i) s.Roll(2, 3);
    for (int p = 1; p <= 3; ++p) EXPECT_EQ(Stack(s, 1, p), 5);
    EXPECT_EQ(Stack(s, 2, 3) - Stack(s, 2, 1), 2) << "the third sees what the first two did";
    s.Scripts.SetActive(s.T, 2, false);
    s.Roll(2, 3);
    EXPECT_EQ(Stack(s, 1, 2), 5);
    EXPECT_EQ(Stack(s, 1, 3), 6);
}

TEST(ScriptRuns, ReturnDepthOutlivesScripts) {
    // Ann's subroutine never returns; Bob's RETURN goes back into her script and leaves Bob the running player.
    ScriptTable s(2);
    s.Scripts.SetScript(s.T, 1, LinesOf("gosub 10\nadd 1 to cs1\ngoto 20\n10\n20"), "");
    s.Scripts.SetScript(s.T, 2, LinesOf("add 1 to cs2 player2\nreturn\nadd 1 to cs3"), "");
    ASSERT_TRUE(s.Scripts.SetAllActive(s.T, true));
    s.Scripts.RunAll(s.T);
    EXPECT_EQ(Stack(s, 1, 1), 1);
    EXPECT_EQ(Stack(s, 2, 2), 2);
    EXPECT_EQ(Stack(s, 3, 2), 1);
}

TEST(ScriptRuns, ANewSessionStartsTheRunAgain) {
    ScriptTable s;
    s.Scripts.SetScript(s.T, 1,
                        LinesOf("add 1 to cs1\nif # rolls >= 3 then\nstart new session(preserve checkstacks)\ncs5 = 1\n"
                                "endif\nadd 1 to cs2"),
                        "");
    ASSERT_TRUE(s.Scripts.SetActive(s.T, 1, true));
    for (int i = 0; i < 3; ++i) s.Roll(2, 3);
    EXPECT_EQ(SessionRolls(s.T), 0);
    EXPECT_EQ(Stack(s, 1), 4) << "three rolls and the restart";
    EXPECT_EQ(Stack(s, 2), 3);
    EXPECT_EQ(Stack(s, 5), 0) << "nothing behind the action runs";
    s.Roll(2, 3);
    s.Do("if # rolls > 0 then\nstart new session\nendif");
    EXPECT_EQ(Stack(s, 1), 0) << "CheckStacks go with the session";
}

TEST(ScriptRuns, InitializingAndFragments) {
    ScriptTable s(2);
    s.Scripts.SetScript(s.T, 1, LinesOf("if initializing script then\nadd 1 to cs1\nendif\nadd 1 to cs2"), "");
    ASSERT_TRUE(s.Scripts.SetActive(s.T, 1, true));
    EXPECT_TRUE(s.Scripts.Initialize(s.T));
    s.Scripts.RunAll(s.T);
    EXPECT_EQ(Stack(s, 1), 1);
    EXPECT_EQ(Stack(s, 2), 2);
    s.T.ActivePlayer = 2;
    s.Do("if initializing script then\ncs4 = autobettor\nendif\nbet 5 on passline");
    EXPECT_EQ(Stack(s, 4, 2), 2);
    EXPECT_EQ(s.Bet(2, Row::PassLine), Dollars(5));
    EXPECT_NE(s.Do("nonsense here"), "");
}

TEST(ScriptRuns, AScriptWithAnErrorIsRefused) {
    ScriptTable s;
    s.Scripts.SetScript(s.T, 1, LinesOf("bet 5 onto everything"), "");
    EXPECT_FALSE(s.Scripts.SetActive(s.T, 1, true));
    EXPECT_FALSE(s.T.ScriptOn[1]);
    ASSERT_FALSE(s.Screen.Shown.empty());
    EXPECT_EQ(s.Screen.Shown.back().Title, "Auto-bet script error");
    EXPECT_EQ(s.Screen.Shown.back().Text.find("Ann's auto-bet script contains an error"), 0u);
}

TEST(ScriptRuns, StepsTellWhatHappensAndWhere) {
    ScriptTable s;
    s.Scripts.StepsOn = true;
    s.Do("if cs1 = 0 then\n  cs2 = 5 / 0\nelse\n  cs2 = 1\nendif");
    const char* const expected[] = {
        "Beginning of condition block.",
        "Condition is true.",
        "End of condition block and beginning of action block.\nConditions were true, so next action block will be "
        "performed.",
        "Division by zero.\nAction taken.",
        "End of action block.\nEnd of If/Then structure.",
    };
    ASSERT_EQ(s.Steps.Steps.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) EXPECT_EQ(s.Steps.Steps[i].Text, expected[i]);
    EXPECT_EQ(s.Steps.Steps[3].FirstLine, 2);
    EXPECT_EQ(s.Steps.Steps[3].Position, 1);
    s.Steps.Steps.clear();
    s.Scripts.StepsOn = false;
    s.Do("cs1 = 1\nshow steps\ncs2 = 2\ngosub 5\ngoto 6\n5\nreturn\n6");
    ASSERT_FALSE(s.Steps.Steps.empty());
    EXPECT_EQ(s.Steps.Steps[0].FirstLine, 3) << "shown from the statement behind the action";
    EXPECT_TRUE(s.Scripts.StepsOn);
    s.T.HyperDriveActive = true;
    s.Steps.Steps.clear();
    s.Do("cs1 = 5 / 0");
    EXPECT_TRUE(s.Steps.Steps.empty()) << "nothing is shown in Hyper-Drive";
}

TEST(ScriptRuns, ClosingAndStoppingSteps) {
    struct Closer : StepsView {
        StepAnswer Answer = StepAnswer::Next;
        int Count = 0;
        StepAnswer ShowStep(const ScriptStep&) override { return ++Count == 2 ? Answer : StepAnswer::Next; }
    };
    for (const StepAnswer answer : {StepAnswer::Close, StepAnswer::Stop}) {
        ScriptTable s;
        Closer view;
        view.Answer = answer;
        s.Scripts.View = &view;
        s.Scripts.StepsOn = true;
        // The second step is a false condition: the fast code that takes over must not perform its block.
        s.Do("if cs1 = 9 then\ncs2 = 1\nelse\ncs3 = 1\nendif\ncs4 = 1");
        EXPECT_EQ(view.Count, answer == StepAnswer::Close ? 2 : 2);
        EXPECT_EQ(Stack(s, 2), 0);
        EXPECT_EQ(Stack(s, 3), answer == StepAnswer::Close ? 1 : 0);
        EXPECT_EQ(Stack(s, 4), answer == StepAnswer::Close ? 1 : 0);
        EXPECT_EQ(s.Scripts.StepsOn, answer == StepAnswer::Stop);
    }
}

TEST(ScriptRuns, ScriptsMoveAndLeaveWithTheirPlayers) {
    ScriptTable s(1);
    s.Scripts.SetScript(s.T, 1, LinesOf("add 1 to cs1"), "one.bet");
    ASSERT_TRUE(s.Scripts.SetActive(s.T, 1, true));
    MovePlayer(s.T, 1, 4);
    s.Scripts.RunAll(s.T);
    EXPECT_EQ(Stack(s, 1, 4), 1);
    EXPECT_EQ(s.T.ScriptName[4], "one.bet");
    RemovePlayer(s.T, 4);
    EXPECT_TRUE(s.Scripts.ScriptLines(4).empty());
    s.Scripts.RunAll(s.T);
}

TEST(ScriptRuns, ARenamedPlayerIsKnownByTheNewNameOnly) {
    ScriptTable s(2);
    const auto play = [&s](const char* name) {
        s.Scripts.SetScript(s.T, 1, {std::string("cs1 = ") + name + " bankroll"}, "");
        return s.Scripts.SetActive(s.T, 1, true);
    };
    ASSERT_TRUE(play("bob"));
    s.Roll(1, 2);
    EXPECT_EQ(Stack(s, 1), 1000);
    EXPECT_EQ(RenamePlayer(s.T, 2, "Zoe"), "");
    s.Screen.Shown.clear();
    s.Roll(1, 2);
    ASSERT_FALSE(s.Screen.Shown.empty());
    EXPECT_EQ(s.Screen.Shown.back().Title, "Auto-bet script error");
    EXPECT_TRUE(play("zoe"));
}

TEST(ScriptRuns, UnattendedPlayKeepsMoneyTrueAndStopsByScript) {
    ScriptTable s;
    s.T.WinnerHandling[1] = 1;
    s.T.LoserHandling[1] = 1;
    s.Scripts.SetScript(s.T, 1,
                        LinesOf("if point = 0 then\nbet 5 on passline\nendif\n"
                                "if # rolls = 5000 then\nstop autoroll/hyperdrive\nendif"),
                        "");
    ASSERT_TRUE(s.Scripts.SetActive(s.T, 1, true));
    s.Do("bet 5 on passline");
    ToggleAutoRoll(s.T);
    EXPECT_EQ(SessionRolls(s.T), 5000);
    EXPECT_EQ(s.Screen.Shown.back().Text, "Stopped by Auto-Bet command.");
    const currency decided = BetStatWagers(s.T, 1 + 18, Row::PassLine, 2);
    EXPECT_EQ(decided, BetStatWagers(s.T, 1 + 18, Row::PassLine, 1) * 5) << "every decision was on 5";
    const currency net = BetStatWins(s.T, 19, Row::PassLine, 2) - BetStatLosses(s.T, 19, Row::PassLine, 2);
    EXPECT_EQ(s.T.Bankroll[1], Dollars(1000) + net);
    EXPECT_GT(BetStatWagers(s.T, 19, Row::PassLine, 1), Dollars(1000));
}

}  // namespace
}  // namespace tarnwick
