// What scripts read: every variable, with its statistics, and every function.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "autobet/functions.h"
#include "autobet/numbertext.h"
#include "autobet/scripttable.h"
#include "autobet/variables.h"
#include "dice/matrix.h"
#include "table/placement.h"

namespace tarnwick {
namespace {

constexpr int Place8 = Row::Place4 + 3;

/// Two rolls: a come-out 6 (2.4), then 8 (3.5). Place 8 of Ann won 14 on 12 at the first and lost 20 at the second.
struct ReadTable : ScriptTable {
    RunState Run;

    ReadTable() : ScriptTable(2) {
        RollTo(2, 4, 0);
        RecordBetResult(T, 1, Place8, Dollars(12), Dollars(14));
        T.Point = 6;
        RollTo(3, 5, 0);
        T.PrevPoint = 6;
        RecordBetResult(T, 1, Place8, Dollars(20), Dollars(-20));
        Run.Game = &T;
        Run.RunningPlayer = 1;
        Run.CollectWarnings = true;
    }
    void RollTo(int die1, int die2, int point) {
        T.Die1 = die1;
        T.Die2 = die2;
        T.DiceTotal = die1 + die2;
        T.PrevPoint = point;
        TallyRoll(T);
        if (T.Point == 0) TallyComeout(T);
    }
    double Read(int number, int p = 1, int scope = 3, int result = 1, double statistic = 13) {
        Reference q;
        q.Scope = scope;
        q.Result = result;
        q.Statistic = statistic;
        Run.WarningText.clear();
        return BindVariable(number, q)(Run, p);
    }
};

TEST(ScriptVariables, BetsGiveEveryStatisticUnderEveryResult) {
    ReadTable s;
    SetBetAmount(s.T, 1, Place8, Dollars(12));
    struct Case {
        int result, statistic;
        double expected;
    };
    constexpr double hourly = 120.0 / 2;
    const Case cases[] = {
        {1, 1, 2},   {1, 2, 32},           {1, 3, 20},         {1, 4, 12},           {1, 5, 16},   {1, 6, 20},
        {1, 7, 1},   {1, 8, 20},           {1, 9, 2 * hourly}, {1, 10, 32 * hourly}, {1, 12, 1},   {1, 13, 12},
        {2, 1, 1},   {2, 2, 14},           {2, 5, 14},         {2, 6, 14},           {2, 7, 0},    {2, 8, 0},
        {2, 12, 0},  {2, 13, 0},           {3, 1, 1},          {3, 2, 20},           {3, 7, 1},    {3, 8, 20},
        {4, 1, 0},   {4, 2, -6},           {4, 3, -6},         {4, 5, -6},           {4, 6, -6},   {4, 7, -1},
        {4, 8, -20}, {4, 10, -6 * hourly}, {5, 2, -18.75},     {5, 5, -37.5},        {5, 7, -100}, {5, 8, -100},
        {5, 6, -30}, {5, 10, -18.75},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE("X" + std::to_string(c.result) + " Y" + std::to_string(c.statistic));
        EXPECT_DOUBLE_EQ(s.Read(Place8, 1, 3, c.result, c.statistic), c.expected);
    }
    EXPECT_EQ(s.Read(Place8, 2, 3, 1, 2), 0) << "another player's";
    EXPECT_EQ(s.Read(Place8, 1, 4, 1, 2), 0) << "the session before";
    EXPECT_EQ(s.Read(Place8, 1, 5, 1, 2), 32) << "all sessions";
}

TEST(ScriptVariables, ExpectedValueFollowsTheRulesInForce) {
    ReadTable s;
    const auto expect = [&s](double rate) {
        EXPECT_DOUBLE_EQ(s.Read(Place8, 1, 3, 5, 11), rate);
        EXPECT_DOUBLE_EQ(s.Read(Place8, 1, 3, 4, 11), 32 * rate) << "of the money wagered";
    };
    expect(-0.015152);
    s.T.Payoff[Place8].Pays = Dollars(9);  // 9 to 6
    expect(0.136364);
    s.T.UseSkewedProbability = true;
    for (const MatrixCell& cell : MatrixWalk) s.T.ProbabilityMatrix[1][cell.Col][cell.Row] = 0;
    s.T.ProbabilityMatrix[1][2][6] = 25'000;  // 1.6
    s.T.ProbabilityMatrix[1][4][7] = 75'000;  // 4.4
    expect(0.875);
    s.T.UseSkewedProbability = false;
    expect(0.136364);
}

TEST(ScriptVariables, CompsOfThePlayer) {
    ReadTable s;
    EXPECT_DOUBLE_EQ(s.Worth("comps"), 0.1455) << "30% of 32 x 0.015152, to the ten-thousandth";
    s.T.CompBase = 1;
    EXPECT_DOUBLE_EQ(s.Worth("comps"), 9.6) << "30% of 32";
    s.T.ActivePlayer = 2;
    EXPECT_DOUBLE_EQ(s.Worth("comps"), 0);
}

TEST(ScriptVariables, BetStatesAndVigs) {
    ReadTable s;
    SetBetAmount(s.T, 1, Place8, Dollars(12));
    struct Case {
        int state;
        double working, calledOn, calledOff;
    };
    for (const Case& c : {Case{0, 0, 0, 0}, Case{1, -1, 0, 0}, Case{2, -1, -1, 0}, Case{-1, 0, 0, -1}}) {
        SetBetWorking(s.T, 1, Place8, c.state);
        EXPECT_EQ(s.Read(Place8, 1, 3, 1, 14), c.working) << c.state;
        EXPECT_EQ(s.Read(Place8, 1, 3, 1, 15), c.calledOn) << c.state;
        EXPECT_EQ(s.Read(Place8, 1, 3, 1, 16), c.calledOff) << c.state;
    }
    s.T.LayVigCharged[1][2] = Dollars(3);
    s.T.BuyVigCharged[1][5] = Dollars(4);
    EXPECT_EQ(s.Read(Row::Lay4 + 2, 1, 3, 1, 17), 3);
    EXPECT_EQ(s.Read(Row::Buy10, 1, 3, 1, 17), 4);
    EXPECT_EQ(s.Run.WarningText, "");
    EXPECT_EQ(s.Read(Place8, 1, 3, 1, 17), 0);
    EXPECT_EQ(s.Run.WarningText, "\nReference not to Lay or Buy bet.");
}

TEST(ScriptVariables, PlayersAndTable) {
    ReadTable s;
    Table& t = s.T;
    t.BetsOnTable[1] = Dollars(100);
    t.RailAmount[1] = Dollars(7);
    t.WinnerHandling[1] = 3;
    t.LoserHandling[1] = 5;
    t.AutoLayFullOdds[1] = true;
    t.LastPoint = 9;
    t.LastSeed = 77;
    t.Shooter = 2;
    t.LastHandShooter = 3;
    t.HandShooter = 4;
    t.ActivePlayer = 2;
    s.Screen.Clock = 4711;
    s.Run.Answer = 6;
    SetBetAmount(t, 1, 105, Dollars(-3));
    struct Case {
        int number;
        double expected;
    };
    const Case cases[] = {
        {651, 900}, {655, 7},      {670, 4},          {671, 6},     {700, 0},     {701, -1},    {702, 0},
        {703, 0},   {1100, .1455}, {1200, 2 / 120.0}, {1300, 1000}, {1301, 1000}, {1302, 1000}, {1303, 1000},
        {3000, 0},  {3001, 0},     {3002, 0},         {3005, 0},    {3006, 0},    {3007, 0},    {3200, 2},
        {3201, 3},  {3202, 4},     {3203, 2},         {3204, 1},    {3300, 0},    {3301, 0},    {3500, 6},
        {3501, 9},  {3502, 6},     {3510, 8},         {3511, 3.5},  {3512, 3},    {3513, 5},    {3603, 120},
        {3610, 1},  {3611, 1000},  {3655, 77},        {3691, 0.3},  {3693, 4711}, {3696, 4711}, {3697, 6},
        {3704, 0},  {3705, -1},    {3706, 0},         {3707, -1},   {3708, 0},    {3709, 0},    {3710, -1},
        {3711, 0},  {105, -3},     {100, 0},
    };
    for (const Case& c : cases) EXPECT_DOUBLE_EQ(s.Read(c.number), c.expected) << c.number;
    EXPECT_EQ(s.Read(3672), t.RngIndex + 1);
    const double random = s.Read(3698);
    EXPECT_TRUE(0 <= random && random < 1);
    EXPECT_NE(random, s.Read(3698));
    s.Read(3007);
    EXPECT_EQ(s.Run.WarningText, "\nDice roll file not open.");
    s.Run.HotKeyRunning = true;
    EXPECT_EQ(s.Read(3000), -1);
}

TEST(ScriptVariables, FlagsOfTheLastRoll) {
    ReadTable s;
    struct Case {
        int total, before, now;
        double passes, misses, sevenOut, decided, wasComeOut;
    };
    const Case cases[] = {
        {7, 0, 0, -1, 0, 0, 0, -1},  {11, 0, 0, -1, 0, 0, 0, -1}, {2, 0, 0, 0, -1, 0, 0, -1},
        {12, 0, 0, 0, -1, 0, 0, -1}, {6, 0, 6, 0, 0, 0, 0, -1},   {7, 6, 0, 0, -1, -1, -1, 0},
        {6, 6, 0, -1, 0, 0, -1, 0},  {2, 6, 6, 0, 0, 0, 0, 0},    {11, 6, 6, 0, 0, 0, 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.total) + " with " + std::to_string(c.before));
        s.T.DiceTotal = c.total;
        s.T.PrevPoint = c.before;
        s.T.Point = c.now;
        EXPECT_EQ(s.Read(3300), c.passes);
        EXPECT_EQ(s.Read(3301), c.misses);
        EXPECT_EQ(s.Read(3708), c.sevenOut);
        EXPECT_EQ(s.Read(3709), c.decided);
        EXPECT_EQ(s.Read(3706), c.wasComeOut);
        EXPECT_EQ(s.Read(3704), c.now == 0 ? -1 : 0);
    }
    ScriptTable fresh;
    RunState run;
    run.Game = &fresh.T;
    fresh.T.DiceTotal = 7;
    for (const int number : {3300, 3301, 3706}) EXPECT_EQ(BindVariable(number, {})(run, 1), 0) << number;
    for (const int number : {3001, 3002}) EXPECT_EQ(BindVariable(number, {})(run, 1), -1) << number;
}

TEST(ScriptVariables, RollsAndPoints) {
    ReadTable s;
    struct Case {
        int number, p, result;
        double statistic, expected;
    };
    const Case cases[] = {
        {2500, 0, 0, 0, 2},   {2500, 0, 0, 8, 1},   {2500, 0, 0, 7, 0},  {2500, 0, 0, 3.5, 1}, {2500, 0, 0, 5.3, 0},
        {2500, 0, 0, 80, 1},  {2500, 0, 0, 88, 1},  {2501, 0, 0, 6, 1},  {2501, 0, 0, 8, 0},   {2501, 0, 0, 2.4, 1},
        {2502, 0, 0, 8, 50},  {2600, 0, 0, 0, 1},   {2600, 0, 0, 15, 1}, {2600, 0, 0, 14, 0},  {2600, 0, 0, 6, 1},
        {2601, 0, 0, 6, 100}, {2602, 0, 0, 0, 0},   {2605, 0, 0, 15, 0}, {4606, 0, 6, 0, 1},   {4606, 0, 6, 6, 1},
        {4606, 0, 6, 5, 0},   {4607, 0, 6, 6, 100}, {4606, 0, 7, 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.number) + " " + std::to_string(c.statistic));
        EXPECT_DOUBLE_EQ(s.Read(c.number, c.p, 3, c.result, c.statistic), c.expected);
        EXPECT_EQ(s.Run.WarningText, "");
    }
    EXPECT_EQ(s.Read(2500, 0, 3, 0, 14), 0);
    EXPECT_EQ(s.Run.WarningText, "\nReference to rolls out of limits.");
    EXPECT_EQ(s.Read(4606, 0, 3, 6, 7), 0);
    EXPECT_EQ(s.Run.WarningText, "\nReference to # of points out of limits.");
}

TEST(ScriptVariables, EveryOrderedPairHasItsRollEvent) {
    ScriptTable s;
    RunState run;
    run.Game = &s.T;
    for (int a = 1; a <= 6; ++a) {
        for (int b = 1; b <= 6; ++b) {
            s.T.Die1 = a;
            s.T.Die2 = b;
            s.T.DiceTotal = a + b;
            Reference pair;
            pair.Scope = 3;
            pair.Statistic = a + b / 10.0;
            const Reading reading = BindVariable(2500, pair);
            const double before = reading(run, 0);
            TallyRoll(s.T);
            EXPECT_EQ(reading(run, 0), before + 1) << a << "." << b;
            // The present dice, as a script would compare them with the pair as it writes it.
            EXPECT_EQ(BindVariable(3511, {})(run, 0), NumberAtStart(std::to_string(a) + "." + std::to_string(b)));
        }
    }
    for (const double wrong : {1.0, 13.0, 0.5, 7.1, 1.7, 77.0, 90.0, -1.0, 3.25})
        EXPECT_EQ(RollEventOf(wrong), -1) << wrong;
}

TEST(ScriptFunctions, BetsByNumber) {
    struct Case {
        int function;
        double argument;
        int variable;
    };
    const Case cases[] = {
        {1, 4, 1},    {1, 10, 6},    {1, 7, 0},    {2, 8, 10},  {3, 5, 14},    {4, 9, 23},     {5, 6, 27},
        {6, 6, 33},   {6, 8, 34},    {6, 5.5, 33}, {6, 3, 0},   {7, 10, 42},   {8, 6, 50},     {8, 8, 51},
        {8, 7, 0},    {9, 4, 52},    {9, 10, 55},  {9, 5, 0},   {10, 13, 67},  {10, 55, 83},   {10, 66, 0},
        {21, 0, 100}, {21, 99, 199}, {21, 100, 0}, {21, -1, 0}, {800, 5, 805}, {800, 1e20, 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(VariableOfFunction(c.function, c.argument), c.variable) << c.function << " " << c.argument;
}

TEST(ScriptFunctions, NumbersAndTexts) {
    ScriptTable s(2);
    s.T.Die1 = 4;
    struct Case {
        const char* expression;
        double expected;
    };
    const Case cases[] = {
        {"sqr(9)", 3},
        {"sqr(-9)", 0},
        {"int(-1.5)", -2},
        {"abs(-2.5)", 2.5},
        {"asc(\"A\")", 65},
        {"asc(\"\")", 0},
        {"val(\"12abc\")", 12},
        {"val(\"abc\")", 0},
        {"val(\"-1.5e2x\")", -150},
        {"len(\"abc\")", 3},
        {"die(1)", 4},
        {"die(3)", 0},
        {"instr(1, \"hello\", \"l\")", 3},
        {"instr(4, \"hello\", \"l\")", 4},
        {"instr(0, \"hello\", \"l\")", 0},
        {"instr(9, \"hello\", \"l\")", 0},
        {"instr(1, \"hello\", \"L\")", 0},
        {"highest(>6, 4, 9, 7)", 9},
        {"lowest(>4, 4, 9, 7)", 7},
        {"count(>6, 4, 9, 7)", 2},
        {"sum(1, 2, 3.5)", 6.5},
        {"average(2, 4)", 3},
        {"average(>100, 1, 2)", 0},
        {"stddev(2, 4, 4, 4, 5, 5, 7, 9)", 2},
        {"-3 \\ 2", -1},
        {"5 mod 0", 0},
        {"5 / 0", 0},
        {"2 * 3 \\ 2", 3},
        {"2 ^ 3 ^ 2", 64},
        {"-2 ^ 2", -4},
        {"7 - 2 - 1", 4},
        {"17 \\ 5 mod 2", 1},
        {"5 and 3", 1},
        {"1 or 6 and 3", 3},
        {"not 1", -2},
        {"player(2)", 2},
        {"average bankroll(0)", 1000},
    };
    for (const Case& c : cases) EXPECT_DOUBLE_EQ(s.Worth(c.expression), c.expected) << c.expression;
    struct TextCase {
        const char* expression;
        const char* expected;
    };
    const TextCase texts[] = {
        {"left$(\"abcdef\", 2)", "ab"},
        {"left$(\"abc\", 9)", "abc"},
        {"left$(\"abc\", -1)", ""},
        {"right$(\"abcdef\", 2)", "ef"},
        {"removeleft$(\"abcdef\", 2)", "cdef"},
        {"removeright$(\"abcdef\", 2)", "abcd"},
        {"mid$(\"abcdef\", 2, 3)", "bcd"},
        {"mid$(\"abcdef\", 0, 3)", "abcdef"},
        {"removemid$(\"abcdef\", 2, 3)", "aef"},
        {"insert$(\"abc\", 2, \"xy\")", "axybc"},
        {"insert$(\"abc\", 9, \"xy\")", "abcxy"},
        {"left$(\"\u00e4\u20acb\", 2)", "\u00e4\u20ac"},
        {"str$(0.1 + 0.2)", "0.3"},
        {"str$(1 / 3)", "0.333333333333333"},
        {"chr$(65)", "A"},
        {"chr$(128)", "\u20ac"},
        {"\"x\" & space$(2) & \"y\"", "x  y"},
        {"player name(2)", "Bob"},
        {"player name(9)", ""},
        {"\"a\" & 1.5", "a1.5"},
    };
    for (const TextCase& c : texts) EXPECT_EQ(s.TextWorth(c.expression), c.expected) << c.expression;
}

TEST(ScriptFunctions, InputAsksAndReturnsWhatWasTyped) {
    ScriptTable s;
    s.Screen.Answers.push_back({MsgAnswer::Ok, "12.5 dollars", false});
    EXPECT_EQ(s.Worth("input(\"How much\")"), 12.5);
    EXPECT_EQ(s.Screen.Shown.back().Title, "Auto-Bet (Ann)");
    EXPECT_EQ(s.Screen.Shown.back().Text, "How much");
    s.Screen.Answers.push_back({MsgAnswer::Ok, "text", false});
    EXPECT_EQ(s.TextWorth("input$()"), "text");
    EXPECT_EQ(s.Screen.Shown.back().Text, "Please enter a string");
    s.Screen.Answers.push_back({MsgAnswer::Cancel, "9", false});
    EXPECT_EQ(s.Worth("input()"), 0);
}

TEST(NumberText, GeneralNumberHasFifteenDigitsAndNoExponentInTheMiddle) {
    struct Case {
        double value;
        const char* text;
    };
    const Case cases[] = {{0, "0"},
                          {-0.0, "0"},
                          {5, "5"},
                          {-12.5, "-12.5"},
                          {0.5, "0.5"},
                          {1e14, "100000000000000"},
                          {1e15, "1E+15"},
                          {123456789012345678.0, "1.23456789012346E+17"},
                          {1e-15, "0.000000000000001"},
                          {1e-16, "1E-16"},
                          {2.5e-20, "2.5E-20"},
                          {1e300, "1E+300"},
                          {0.1, "0.1"},
                          {100, "100"},
                          {1.0 / 3, "0.333333333333333"},
                          {2.0 / 3, "0.666666666666667"},
                          {0.1 + 0.2, "0.3"},
                          {9.5e-16, "9.5E-16"},
                          {999999999999999.96, "1E+15"},
                          {999999999999999.0, "999999999999999"},
                          {-std::numeric_limits<double>::infinity(), "-Infinity"}};
    for (const Case& c : cases) EXPECT_EQ(GeneralNumber(c.value), c.text);
    for (const double value : {1.25, -0.001, 123456.75, 4e20}) EXPECT_EQ(NumberAtStart(GeneralNumber(value)), value);
    EXPECT_TRUE(std::isinf(NumberAtStart("1e999")));
    EXPECT_EQ(NumberAtStart("1e-999"), 0);
    EXPECT_EQ(NumberAtStart("  +3d2"), 300);
    EXPECT_EQ(NumberAtStart("nan"), 0);
    EXPECT_EQ(NumberAtStart("1e"), 1);
    EXPECT_FALSE(RoundToInt32(2147483648.0).has_value());
    EXPECT_EQ(RoundToInt32(2.5), 2);
    EXPECT_EQ(RoundToInt32(-3.5), -4);
}

TEST(NumberText, EveryCodeOfTheCodePageSurvives) {
    for (int code = 0; code < 256; ++code) EXPECT_EQ(CodeOfCharacter(CharacterOfCode(code)), code);
    EXPECT_EQ(CharacterCount("a\xff\xc3\xa9"), 3);
}

}  // namespace
}  // namespace tarnwick
