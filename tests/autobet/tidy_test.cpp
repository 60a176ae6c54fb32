#include "autobet/tidy.h"

#include <gtest/gtest.h>

#include "autobet/layout.h"

namespace tarnwick {
namespace {

struct Case {
    const char* Raw;
    const char* Tidy;
};

constexpr Case Cases[] = {
    {"", ""},
    {"   ", "   "},
    {"if(dice total=7)then", "if (dice total = 7) then"},
    {"   cs1=5.50  +  010", "   cs1 = 5.5 + 10"},
    {"cs1\t=\t5", "cs1 = 5"},
    {"\tcs1=5\r", "\tcs1 = 5"},
    // signs
    {"cs1 = - -3", "cs1 = 3"},
    {"cs1 = 5 - -3", "cs1 = 5 + 3"},
    {"cs1 = 5 + -3", "cs1 = 5 - 3"},
    {"cs1 = 5 - +3", "cs1 = 5 - 3"},
    {"cs1 = 5 + + 3", "cs1 = 5 + 3"},
    {"cs1 = 5 * - 3", "cs1 = 5 * -3"},
    {"cs1=+5", "cs1 = 5"},
    {"cs1 <= +5", "cs1 <= 5"},
    {"(- 5)", "(-5)"},
    {"- .5", "-0.5"},
    {"(+5)", "(+ 5)"},
    // compound comparisons
    {"a < = b > = c = > d = < e < > f > < g", "a <= b >= c => d =< e <> f <> g"},
    {"a>>><>>b", "a > > > <> > b"},
    // colons
    {"a::b : : c:", "a : b : c :"},
    // numbers
    {"1,000", "1, 0"},
    {"5.50, 1e5 ; 1e20", "5.5, 100000; 1e20"},
    {"12345678901234567890", "12345678901234567890"},
    {"1e-5", "1e - 5"},
    // money and joined words
    {"$ 5", "$5"},
    {"high $ 5, x", "high $5, x"},
    {"total $ 4rollsno7", "total $ 4rollsno7"},
    {"go  to 10", "goto 10"},
    {"GO TO 10 : End If", "goto 10 : endif"},
    {"ago to", "ago to"},
    // brackets
    {"place ( 6 )", "place(6)"},
    {"( ( 5 ) )", "((5))"},
    {"not (5) and(3) or(2)", "not(5) and (3) or (2)"},
    {"do(5) else(5) 5 *(3)", "do (5) else (5) 5 * (3)"},
    {"5 ,3 ; 4", "5, 3; 4"},
    {"left$ ( \"a\" , 5 )", "left$(\"a\", 5)"},
    // quotes and comments
    {"show message\"hi   there\"&\"x", "show message \"hi   there\" & \"x\""},
    {"\"", "\"\""},
    {"\"a", "\"a\""},
    {"x   'don't   touch  ", "x 'don't   touch  "},
    {"x\"it's\"  ' a", "x \"it's\" ' a"},
    {"'only  this", "'only  this"},
    {"  'only  this", "  'only  this"},
};

TEST(Tidy, NormalisesALine) {
    for (const Case& c : Cases) {
        EXPECT_EQ(TidyLine(c.Raw), c.Tidy) << c.Raw;
        EXPECT_EQ(TidyLine(c.Tidy), c.Tidy) << "a tidy line stays as it is";
    }
}

TEST(Tidy, FindsTheStatementWordsOfARawLine) {
    struct Found {
        int Code, Start, End;
        bool operator==(const Found&) const = default;
    };
    const std::pair<const char*, std::vector<Found>> cases[] = {
        {"If cs1=1 Then Else", {{1, 0, 2}, {9, 9, 13}, {10, 14, 18}}},
        {"(if)then;DO", {{1, 1, 3}, {9, 4, 8}, {16, 9, 11}}},
        {"iff xif if5 #if if# $if then", {{1, 21, 23}, {9, 24, 28}}},
        {"end  if End\tIf endif end : if", {{12, 0, 7}, {12, 8, 14}, {12, 15, 20}, {100, 25, 26}, {1, 27, 29}}},
        {"go to 5:goto 6", {{14, 0, 5}, {100, 7, 8}, {14, 8, 12}}},
        {"a::b : : c", {{100, 1, 2}, {100, 5, 6}}},
        {"\"if\" then 'else", {{9, 5, 9}}},
        {"\"open if", {}},
        {"\"é\" if", {{1, 4, 6}}},  // columns count characters
        {"return gosub loop exitdo elseif", {{13, 0, 6}, {15, 7, 12}, {17, 13, 17}, {18, 18, 24}, {11, 25, 31}}},
    };
    for (const auto& [line, expected] : cases) {
        std::vector<Found> found;
        for (const Keyword& k : FindKeywords(line)) found.push_back({k.Code, k.Start, k.End});
        EXPECT_TRUE(found == expected) << line;
    }
}

TEST(Layout, CapitalisesStatementWordsOutsideOfQuotesAndComments) {
    EXPECT_EQ(CapitaliseLine("if cs1 = 5 AND x xor y or z then goto \"if then\" elseif else gosub endif"),
              "If cs1 = 5 And x Xor y Or z Then GoTo \"if then\" ElseIf Else GoSub EndIf");
    EXPECT_EQ(CapitaliseLine("do return loop exitdo ' if do"), "Do Return Loop ExitDo ' if do");
    EXPECT_EQ(CapitaliseLine("if(5)then iffy do$"), "If(5)Then iffy do$");
}

TEST(Layout, IndentsByStructure) {
    std::vector<std::string> lines = {"if cs1 = 1",
                                      "cs2 = 5",
                                      "then",
                                      "do",
                                      "exitdo 'if",
                                      "loop",
                                      "elseif 5",
                                      "then x",
                                      "else",
                                      "\"if\"",
                                      "end if",
                                      "",
                                      "if 1 then cs1 = 5 endif",
                                      "cs3 = 1",
                                      "loop",
                                      "endif"};
    const std::vector<int> expected = {0, 1, 0, 1, 2, 1, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(LineLevels(lines), expected);

    std::vector<int> levels;
    IndentLines(lines, levels);
    EXPECT_EQ(levels, expected);
    EXPECT_EQ(lines[4], "      exitdo 'if");
    EXPECT_EQ(lines[11], "");

    lines[1] = "  cs2 = 5";  // the level is known and has not changed: the text is the user's
    lines[3] = "cs4 = 5";    // no longer a DO: what it held moves
    IndentLines(lines, levels);
    EXPECT_EQ(lines[1], "  cs2 = 5");
    EXPECT_EQ(lines[4], "   exitdo 'if");
}

}  // namespace
}  // namespace tarnwick
