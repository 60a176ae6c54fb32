// What scripts do to the game: every action, its permissions and its refusals.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "autobet/scripttable.h"
#include "dice/dicefile.h"
#include "dice/matrix.h"
#include "dice/probabilityfile.h"
#include "table/placement.h"

namespace tarnwick {
namespace {

const char* const SeePermissions = "\nSee Options - Permissions.\nNo action taken.";

TEST(ScriptActions, AmountsOnTargets) {
    struct Case {
        const char* script;
        int row;
        double expected;
    };
    const Case cases[] = {
        {"bet 5 on passline", Row::PassLine, 5},
        {"bet 5 on passline : bet 10 on passline", Row::PassLine, 10},
        {"bet 5 on passline : add 5 to passline", Row::PassLine, 10},
        {"bet 15 on passline : subtract 5 from passline", Row::PassLine, 10},
        {"bet 5 on passline : multiply by 3 on passline", Row::PassLine, 15},
        {"bet 20 on place6 : divide by 2 on place6", Row::Place4 + 2, 10},
        {"bet -5 on passline", Row::PassLine, 0},
        {"bet 5 on passline : bet 0 on passline", Row::PassLine, 0},
        {"bet 5 on passline : clear passline", Row::PassLine, 0},
        {"bet 5 on passline : passline = 25", Row::PassLine, 25},
        {"bet 5000 on passline", Row::PassLine, 1000},
        {"bet 5 on place6, place8", Row::Place4 + 3, 5},
        {"bet 20 on place6 : round down to the nearest 6 on place6", Row::Place4 + 2, 18},
        {"bet 18 on place6 : round down to the nearest 6 on place6", Row::Place4 + 2, 18},
        {"bet 20 on place6 : round up to the nearest 6 on place6", Row::Place4 + 2, 24},
        {"bet 20 on place6 : round to the nearest 6 on place6", Row::Place4 + 2, 18},
        {"bet 21 on place6 : round to the nearest 6 on place6", Row::Place4 + 2, 24},
        {"bet 5 on passline : bet 5 on dontpass : clear >4, passline : bet 7 on dontpass", Row::PassLine, 0},
        {"bet 5 on passline : clear >5, passline", Row::PassLine, 5},
        {"bet 10 on place6 : buy the place bet on place6", Row::Buy4 + 2, 10},
        {"cs1 = -2.5", 101, -2.5},
        {"cs1 = 7 : add 0.5 to cs1", 101, 7.5},
        {"cs1 = 7 : divide by 0 on cs1", 101, 0},
        {"cs1 = 7 : round to the nearest 0 on cs1", 101, 7},
        {"cs1 = 1 : cs2 = 2 : swap cs1, cs2", 101, 2},
        {"cs1 = \"12 items\"", 101, 12},
        {"cs1, cs2, cs3 = 4", 103, 4},
        {"cs2 = 5 : cs(cs2) = 6", 105, 6},
        {"cs1 = 3 : cs2 = 9 : clear >cs1, cs1, cs2", 102, 0},
        {"cs1 = 3 : cs2 = 9 : clear >cs1, cs1, cs2", 101, 3},
        {"cs1 = 1e14 : multiply by 1e9 on cs1", 101, 99999999999999.9999},
    };
    for (const Case& c : cases) {
        ScriptTable s;
        EXPECT_EQ(s.Do(c.script), "") << c.script;
        EXPECT_DOUBLE_EQ(ToDouble(s.Bet(1, c.row)), c.expected) << c.script;
        EXPECT_EQ(s.T.BetsOnTable[1], BetsOnTableOf(s.T, 1)) << c.script;
    }
}

TEST(ScriptActions, ContractBetsStayAndLaysKeepTheirVigRight) {
    ScriptTable s;
    s.Do("bet 5 on passline");
    s.Roll(2, 4);
    ASSERT_EQ(s.T.Point, 6);
    s.Do("clear passline");
    EXPECT_EQ(s.Bet(1, Row::PassLine), Dollars(5));
    s.Do("bet 2 on passline");
    EXPECT_EQ(s.Bet(1, Row::PassLine), Dollars(5));
    s.Do("bet 40 on lay4 : bet 60 on lay4");
    EXPECT_EQ(s.T.BetsOnTable[1], BetsOnTableOf(s.T, 1));
    s.Do("bet 0 on lay4");
    EXPECT_EQ(s.T.LayVigCharged[1][0], currency{});
    EXPECT_EQ(s.T.BetsOnTable[1], Dollars(5));
}

TEST(ScriptActions, CallingBets) {
    ScriptTable s;
    s.Do("bet 6 on place6 : call on place6");
    EXPECT_EQ(BetWorking(s.T, 1, Row::Place4 + 2), 2);
    s.Do("call off all(place bets)");
    EXPECT_EQ(BetWorking(s.T, 1, Row::Place4 + 2), -1);
    s.Do("remove on/off button from place6");
    EXPECT_EQ(BetWorking(s.T, 1, Row::Place4 + 2), 0) << "off by default on a come-out";
    EXPECT_EQ(s.LastStep("call on place8"), "No action taken.") << "no bet stands";
}

TEST(ScriptActions, SettingsOfThePlayer) {
    ScriptTable s;
    s.Do("autotake full odds = 1 : autolay full odds = true : autopass the dice = -1 : autodown place bets = 0");
    EXPECT_TRUE(s.T.AutoTakeFullOdds[1] && s.T.AutoLayFullOdds[1] && s.T.AutoPassDice[1]);
    EXPECT_FALSE(s.T.AutoDownPlaceBets[1]);
    s.Do("bankroll = 500");
    EXPECT_EQ(s.T.Bankroll[1], Dollars(500));
    EXPECT_EQ(s.T.BankrollStartAmount[1], Dollars(500));
    s.Do("comp rate = 12.5 : rng = 3 : csn7 = \"best\" & 1");
    EXPECT_EQ(s.T.CompRate, currency{125'000});
    EXPECT_EQ(s.T.RngIndex, 2);
    EXPECT_EQ(s.T.CheckStackName[1][7], "best1");
    s.Do("name checkstack8 as \"eight\" : swap csn7, csn8");
    EXPECT_EQ(s.T.CheckStackName[1][7], "eight");
    EXPECT_EQ(s.T.CheckStackName[1][8], "best1");
    s.Do("cs1 = 42 : csn7 = \"9 lives\" : swap cs1, csn7");
    EXPECT_EQ(s.Bet(1, 101), Dollars(9));
    EXPECT_EQ(s.T.CheckStackName[1][7], "42");
    s.Do("seed = 123");
    EXPECT_EQ(s.T.LastSeed, 123);
    s.Roll(2, 3);
    EXPECT_EQ(
        s.LastStep("bankroll = 900"),
        "Bankroll can only be set at the beginning of a session.  To make adjustments later, use ATM deposits and/or "
        "withdrawals.\nNo action taken.");
}

TEST(ScriptActions, AutoDownTakesPlaceBetsOfComeNumbersAndThePoint) {
    ScriptTable s;
    s.Do("bet 5 on passline");
    s.Roll(2, 4);
    SetBetAmount(s.T, 1, Row::Come4 + 4, Dollars(5));
    s.Do("bet 6 on place6 : bet 5 on place9 : bet 5 on place5 : autodown place bets = true");
    EXPECT_EQ(s.Bet(1, Row::Place4 + 2), currency{}) << "the point";
    EXPECT_EQ(s.Bet(1, Row::Place4 + 4), currency{}) << "a Come number";
    EXPECT_EQ(s.Bet(1, Row::Place4 + 1), Dollars(5));
}

TEST(ScriptActions, HandlingModesByNumberAndText) {
    struct Case {
        const char* value;
        int winner, loser;  ///< stored handling, -1 refused
        int op;
        double amount;
        int unit;
    };
    const Case cases[] = {
        {"3", 2, 2, 0, 0, 0},
        {"9", -1, -1, 0, 0, 0},
        {"0", -1, -1, 0, 0, 0},
        {"\"Manual\"", 0, 0, 0, 0, 0},
        {"\"parlay\"", 5, -1, 0, 0, 0},
        {"\"take bet and winnings\"", 1, -1, 0, 0, 0},
        {"\"same bet\"", 2, 2, 0, 0, 0},
        {"\"press double\"", 4, -1, 0, 0, 0},
        {"\"double bet\"", -1, 5, 0, 0, 0},
        {"\"bet remainder\"", -1, 3, 0, 0, 0},
        {"\"same bet plus 1 unit\"", -1, 4, 0, 0, 0},
        {"\"same bet + 5$\"", 6, 6, 0, 5, 0},
        {"\"same bet - $2.50\"", 6, 6, 1, 2.5, 0},
        {"\"same bet x 50%\"", 6, 6, 2, 50, 1},
        {"\"same bet * 2\"", 6, 6, 2, 2, 0},
        {"\"same bet / 2\"", 6, 6, 3, 2, 0},
        {"\"same bet + five\"", -1, -1, 0, 0, 0},
        {"\"bet $25\"", 7, 7, 0, 25, 0},
        {"\"bet 5\"", 7, 7, 0, 5, 0},
        {"\"7\"", 6, 6, 0, 0, 0},
    };
    for (const Case& c : cases) {
        for (const bool winner : {true, false}) {
            ScriptTable s;
            const std::string target = winner ? "autohandle winning bets = " : "autohandle losing bets = ";
            const std::string step = s.LastStep(target + c.value);
            const int expected = winner ? c.winner : c.loser;
            const std::size_t slot = (expected == 6 ? 4u : 6u) + (winner ? 0u : 1u);
            SCOPED_TRACE(target + c.value);
            if (expected < 0) {
                EXPECT_EQ(step, std::string("Value out of limits for AutoHandle ") + (winner ? "Winning" : "Losing") +
                                    " Bets.\nNo action taken.");
                continue;
            }
            EXPECT_EQ((winner ? s.T.WinnerHandling : s.T.LoserHandling)[1], expected);
            if (expected < 6) continue;
            EXPECT_EQ(ToDouble(s.T.HandleAmount[1][slot]), c.amount);
            EXPECT_EQ(s.T.HandleUnit[1][slot], c.unit);
            EXPECT_EQ(s.T.HandleOperator[1][slot], c.op);
        }
    }
}

TEST(ScriptActions, Permissions) {
    struct Case {
        const char* script;
        const char* refusal;
    };
    const Case cases[] = {
        {"cs1 player2 = 5", "Ann is not allowed to perform actions for other players."},
        {"bet 5 on passline player2", "Ann is not allowed to perform actions for other players."},
        {"call on place6 player2", "Ann is not allowed to perform actions for other players."},
        {"start new session", "Ann is not allowed to start new sessions."},
        {"pass the dice", "Ann is not the shooter."},
        {"activate probability file", "Ann is not allowed to activate probability files."},
        {"deactivate probability file", "Ann is not allowed to deactivate probability files."},
        {"deactivate dice roll file", "Ann is not allowed to deactivate roll files."},
        {"playback dice roll file \"x.rol\"", "Ann is not allowed to activate roll files."},
    };
    for (const Case& c : cases) {
        ScriptTable s(2);
        s.T.Shooter = 2;
        SetBetAmount(s.T, 2, Row::Place4 + 2, Dollars(6));
        for (auto* flags : {&s.T.AllowActProb, &s.T.AllowAct4Others, &s.T.AllowReset}) flags->fill(false);
        EXPECT_EQ(s.LastStep(c.script), std::string(c.refusal) + SeePermissions) << c.script;
        EXPECT_EQ(s.Bet(2, Row::PassLine), currency{});
        EXPECT_EQ(s.Bet(2, 101), currency{});
    }
    ScriptTable s(2);
    s.Do("cs1 player2 = 5 : bet 5 on passline player2");
    EXPECT_EQ(s.Bet(2, 101), Dollars(5));
    EXPECT_EQ(s.Bet(2, Row::PassLine), Dollars(5));
    EXPECT_EQ(s.LastStep("cs1 player7 = 5"), "There's not a player at position 7.\nNo action taken.");
}

TEST(ScriptActions, MessagesAndQuestions) {
    ScriptTable s;
    s.Do("show message \"Hello\"");
    ASSERT_EQ(s.Screen.Shown.size(), 1u);
    EXPECT_EQ(s.Screen.Shown[0].Title, "Auto-Bet (Ann)");
    EXPECT_EQ(s.Screen.Shown[0].Text, "Hello");
    s.T.NotifyBits &= ~8;
    s.Do("show message \"Hidden\"");
    EXPECT_EQ(s.Screen.Shown.size(), 1u);
    s.Screen.Answers.push_back({MsgAnswer::Yes, {}, false});
    s.Do("ask yes/no question \"Sure?\" : cs1 = answer");
    EXPECT_EQ(s.Bet(1, 101), Dollars(MsgAnswer::Yes));
    s.Do("cs1 = answer");
    EXPECT_EQ(s.Bet(1, 101), Dollars(1)) << "each run begins with 1";
}

TEST(ScriptActions, MoneyFromTheMachine) {
    ScriptTable s;
    s.Do("atm withdraw 200");
    EXPECT_EQ(s.T.Bankroll[1], Dollars(1200));
    s.Do("atm deposit 300");
    EXPECT_EQ(s.T.Bankroll[1], Dollars(900));
}

class ScriptFiles : public testing::Test {
  protected:
    std::filesystem::path Folder;
    ScriptTable S;
    void SetUp() override {
        Folder = std::filesystem::path(testing::TempDir()) / ("script-files-" + std::to_string(getpid())) / "game";
        std::filesystem::create_directories(Folder);
        S.T.GameFolder = Folder.string();
    }
    void TearDown() override { std::filesystem::remove_all(Folder.parent_path()); }
    std::string Content(const std::string& name) const {
        std::ifstream file(Folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_F(ScriptFiles, OutputGoesToTheGameFolder) {
    EXPECT_EQ(S.LastStep("output to file 1"), "Output file not open.\nNo action taken.");
    S.Do(
        "open/append file for output \"log.txt\" : output to file \"a\" : output to file chr$(9) : output to file 1.5");
    EXPECT_EQ(Content("log.txt"), "a\n\t1.5\n");
    S.Do("output to file \"later\"");
    EXPECT_EQ(Content("log.txt"), "a\n\t1.5\nlater\n") << "the file stays the player's";
    S.Do("open/append file for output \"log.txt\" : output to file \"more\"");
    EXPECT_EQ(Content("log.txt"), "a\n\t1.5\nlater\nmore\n");
    S.Do("open/clear file for output \"log.txt\" : output to file \"new\"");
    EXPECT_EQ(Content("log.txt"), "new\n");
    S.Do("open/clear file for output \"sub\\..\\other.txt\"");
    for (const char* outside : {"../out.txt", "..\\out.txt", "a/../../out.txt"}) {
        EXPECT_EQ(S.LastStep(std::string("open/clear file for output \"") + outside + "\""),
                  "The output file must lie in the game folder.\nNo action taken.");
    }
    EXPECT_FALSE(std::filesystem::exists(Folder.parent_path() / "out.txt"));
    EXPECT_EQ(S.LastStep("open/clear file for output \"no/such/folder.txt\""),
              "Unable to open the output file.\nNo action taken.");
    const std::string absolute = (Folder / "absolute.txt").string();
    S.Do("open/clear file for output \"" + absolute + "\" : output to file \"x\"");
    EXPECT_EQ(Content("absolute.txt"), "x\n");
}

TEST_F(ScriptFiles, PlaybackOfADiceRollFile) {
    std::string bytes;
    for (const int die : {1, 2, 3, 4, 5}) bytes += static_cast<char>(DiceByte(die, 6));
    std::ofstream(Folder / "five.rol", std::ios::binary) << bytes;
    std::ofstream(Folder / "bad.rol", std::ios::binary) << "\x01\x02\x03";
    EXPECT_EQ(S.LastStep("playback dice roll file"), "Dice roll file not open.\nNo action taken.");
    EXPECT_EQ(S.LastStep("deactivate dice roll file"), "Dice roll file is not open.\nNo action taken.");
    EXPECT_EQ(S.LastStep("playback dice roll file \"none.rol\""), "File not found.\nNo action taken.");
    EXPECT_FALSE(std::filesystem::exists(Folder / "none.rol"));
    EXPECT_EQ(S.LastStep("playback dice roll file \"bad.rol\""),
              "File is not a valid dice roll file.\nNo action taken.");
    EXPECT_EQ(S.LastStep("playback dice roll file \"five.rol\""), "Action taken.");
    EXPECT_EQ(S.T.DiceFileMode, 2);
    EXPECT_EQ(S.Worth("dice roll file length"), 5);
    RollDice(S.T);
    EXPECT_EQ(S.T.Die1, 1);
    EXPECT_EQ(S.Worth("dice roll file next roll"), 2);
    S.Do("playback dice roll file \"five.rol\" from roll 4");
    RollDice(S.T);
    EXPECT_EQ(S.T.Die1, 4);
    S.Do("deactivate dice roll file");
    EXPECT_EQ(S.T.DiceFileMode, 0);
    S.Do("playback dice roll file");
    EXPECT_EQ(S.T.DiceFileMode, 2) << "the open file goes on";
}

TEST_F(ScriptFiles, ProbabilityFiles) {
    EXPECT_EQ(S.LastStep("activate probability file \"x.prb\""),
              "File not found or file is not a valid probability file.\nNo action taken.");
    EXPECT_FALSE(S.T.UseSkewedProbability);
    Table sixes;
    ResetProbabilityMatrix(sixes);
    for (const MatrixCell& cell : MatrixWalk) sixes.ProbabilityMatrix[1][cell.Col][cell.Row] = 0;
    sixes.ProbabilityMatrix[1][2][11] = WholeChance;
    ASSERT_EQ(SaveProbabilities(sixes, (Folder / "x.prb").string()), "");
    std::ofstream(Folder / "no.prb") << "Tarnwick Probability File";
    EXPECT_EQ(S.LastStep("activate probability file \"no.prb\""),
              "File not found or file is not a valid probability file.\nNo action taken.");
    EXPECT_FALSE(S.T.UseSkewedProbability);
    S.Do("activate probability file \"x.prb\"");
    EXPECT_TRUE(S.T.UseSkewedProbability);
    EXPECT_EQ(S.T.ProbabilityFileName, (Folder / "x.prb").string());
    for (int roll = 0; roll < 5; ++roll) {
        RollDice(S.T);
        EXPECT_EQ(S.T.DiceTotal, 12);
    }
    S.Do("deactivate probability file");
    EXPECT_FALSE(S.T.UseSkewedProbability);
    S.Do("activate probability file");
    EXPECT_TRUE(S.T.UseSkewedProbability);
}

}  // namespace
}  // namespace tarnwick
