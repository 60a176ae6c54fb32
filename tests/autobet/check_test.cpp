// The final check: what is refused, and the trees of what is not.
#include <gtest/gtest.h>

#include "autobet/checkscript.h"
#include "autobet/numbertext.h"
#include "autobet/scripts.h"
#include "autobet/text.h"

namespace tarnwick {
namespace {

/// A statement's tree as text, every node in brackets with its operands.
class Shown {
  public:
    explicit Shown(const Compilation& compilation) : C(compilation), T(compilation.Program) {}

    std::string Node(std::int32_t index) const {
        if (index == NoNode) return "none";
        const tarnwick::Node& n = T.Nodes[static_cast<std::size_t>(index)];
        const std::string type = n.Type == ValueKind::Text ? "$" : "";
        const std::string op = std::to_string(n.Op);
        switch (n.Kind) {
            case NodeKind::Number:
                return GeneralNumber(n.Number);
            case NodeKind::Text:
                return n.A > 0 ? "'" + C.Pool[static_cast<std::size_t>(n.A)].Text + "'" : "S" + std::to_string(n.A);
            case NodeKind::Variable:
                return Reference(T.References[static_cast<std::size_t>(n.A)]) + type;
            case NodeKind::Function:
                return "F" + op + type + "(" + Operands({n.A, n.B, n.C}) + ")";
            case NodeKind::ListFunction:
                return "F" + op + "(" + Items(n) + ")";
            case NodeKind::Negate:
                return "(-" + Node(n.A) + ")";
            case NodeKind::Arithmetic:
                return "(" + Node(n.A) + Sign(n.Op) + Node(n.B) + ")";
            case NodeKind::Join:
                return "(" + Node(n.A) + "&" + Node(n.B) + ")" + type;
            case NodeKind::Compare:
                return "(" + Node(n.A) + Sign(n.Op) + Node(n.B) + ")";
            case NodeKind::ListCompare:
                return std::string(n.Op == 2 ? "any" : "all") + "[" + Items(n) + "]";
            case NodeKind::Not:
                return "(not " + Node(n.A) + ")";
            case NodeKind::Logic:
                return "(" + Node(n.A) + (n.Op == 71 ? " and " : n.Op == 72 ? " or " : " xor ") + Node(n.B) + ")";
        }
        return "?";
    }

    std::string Target(const tarnwick::Target& t) const {
        std::string filter;
        if (t.FilterOp != 0) filter = "{" + Sign(t.FilterOp) + Node(t.FilterNode) + "}";
        return filter + (t.IsValue ? Node(t.Value) : Reference(t.Place));
    }

  private:
    static std::string Sign(int op) {
        constexpr const char* comparisons[] = {"=", "<>", "<", ">", "<=", ">="};
        constexpr const char* math[] = {"^", "*", "/", "\\", " mod ", "+", "-"};
        return op < 60 ? comparisons[op - 50] : math[op - 60];
    }

    std::string Operands(std::initializer_list<std::int32_t> nodes) const {
        std::string out;
        for (const std::int32_t n : nodes) {
            if (n != NoNode) out += (out.empty() ? "" : ",") + Node(n);
        }
        return out;
    }

    std::string Items(const tarnwick::Node& n) const {
        std::string out;
        for (std::int32_t i = n.A; i < n.A + n.B; ++i) {
            const ListItem& item = T.Items[static_cast<std::size_t>(i)];
            out += (i > n.A ? "," : "") + Node(item.Left);
            if (item.Op != 0) out += Sign(item.Op) + Node(item.Right);
        }
        return out;
    }

    std::string Reference(const tarnwick::Reference& r) const {
        std::string out = r.Function != 0 ? "F" + std::to_string(r.Function) + "(" + Node(r.Index) + ")"
                                          : "V" + std::to_string(r.Variable);
        out += r.PlayerNode != NoNode ? "P(" + Node(r.PlayerNode) + ")" : "P" + std::to_string(r.Player);
        if (r.Scope != 0) out += "H" + std::to_string(r.Scope);
        if (r.Result != 0) out += "X" + std::to_string(r.Result);
        if (r.Statistic != 0) out += "Y" + GeneralNumber(r.Statistic);
        return out;
    }

    const Compilation& C;
    const Tree& T;
};

/// The tree of the first statement with an expression or action in it, or its error.
std::string TreeOf(std::string_view script) {
    Compilation c = test::Script(script);
    if (const auto error = CompileAutobets(c)) return error->Text;
    for (const Statement& s : c.Program.Statements) {
        if (s.Kind < StatementKind::Condition) continue;
        const Shown shown(c);
        std::string out = s.Action != 0 ? "A" + std::to_string(s.Action) : "";
        for (const std::int32_t operand : s.Operands) {
            if (operand != NoNode || s.Action == 310) out += " " + shown.Node(operand);
        }
        for (std::int32_t i = s.FirstTarget; i < s.EndTarget; ++i) {
            out += (i == s.FirstTarget ? " -> " : ", ") + shown.Target(c.Program.Targets[static_cast<std::size_t>(i)]);
        }
        return out;
    }
    return "no statement";
}

std::string Condition(const std::string& expression) { return TreeOf("If " + expression + " Then EndIf"); }

TEST(Check, ReducesInTheOrderOfThePasses) {
    const std::pair<const char*, const char*> cases[] = {
        {"1 + 2 * 3 ^ 2", "(1+(2*(3^2)))"},
        {"-2 ^ 2", "(-(2^2))"},
        {"2 ^ (-3)", "(2^(-3))"},
        {"2 ^ 3 ^ 2", "((2^3)^2)"},
        {"5 * -3 + 1", "((5*(-3))+1)"},
        {"8 \\ 4 mod 3 * 2", "((8\\4) mod (3*2))"},
        {"7 mod 4 \\ 2", "(7 mod (4\\2))"},
        {"8 / 2 * 4", "((8/2)*4)"},
        {"10 - 3 + 2 mod 4", "((10-3)+(2 mod 4))"},
        {"\"a\" & 1 + 2 = csn1", "(('a'&(1+2))$=V801P1$)"},
        {"1 or 6 and 3 = 3 xor 5", "((1 or (6 and (3=3))) xor 5)"},
        {"not 5 = 5 and 1", "((not (5=5)) and 1)"},
        {"1 < 2 < 3", "((1<2)<3)"},
        {"(5 + 3) * (2 - 1)", "((5+3)*(2-1))"},
        {"((((5))))", "5"},
        {"5", "5"},
        {"int(rnd * 6) + abs(-1)", "(F101((V3698P0*6))+F102((-1)))"},
        {"Instr(1, \"abc\", \"b\")", "F203(1,'abc','b')"},
        {"Input(\"How many?\") > Input()", "(F125('How many?')>F125(S0))"},
        {"Input$() = left$(csn1, 2) & chr$(13)", "(F825$(S0)=(F801$(V801P1$,2)&F811$(13))$)"},
        {"player name(2) = \"Bob\"", "(F850$(2)='Bob')"},
        {"player(2) = shooter", "(F50(2)=V3200P0)"},
        {"place(cs1 + 2) player(cs2) wins > 5", "(F6((V101P1+2))P(V102P1)H3X2Y8>5)"},
        {"bankroll player(place(6)) > 5", "(V1301P(F6(6)P1H3X1Y13)H3>5)"},
        {"csn(5) = csn(6) player3", "(F800(5)P1$=F800(6)P3$)"},
        {"# rolls 5.2 > # of points 4", "(V2500P0H3Y5.2>V4606P0H3X6Y4)"},
        {"Highest(>6, 4, <cs1, 9) + Sum(big bets)", "(F126(4>6,9<V101P1)+F130(V50P1H3X1Y13,V51P1H3X1Y13))"},
        {"Count(-1, 2 * 3; 4) = 3", "(F131((-1),(2*3),4)=3)"},
        {"Average(Highest(1, 2), Sum(3))", "F128(F126(1,2),F130(3))"},
    };
    for (const auto& [expression, tree] : cases)
        EXPECT_EQ(Condition(expression), " " + std::string(tree)) << expression;
}

TEST(Check, ListComparisonsSayWhatIsComparedWithWhat) {
    const std::pair<const char*, const char*> cases[] = {
        // a value outside with a sign
        {"Any(4, 5) = dice total", "any[4=V3510P0,5=V3510P0]"},
        {"dice total >= All(4, 5)", "all[V3510P0>=4,V3510P0>=5]"},
        {"Any(4, >9) < dice total", "any[4<V3510P0,V3510P0>9]"},
        {"csn1 = Any(\"a\", csn2) and 5", "(any[V801P1$='a',V801P1$=V802P1$] and 5)"},
        {"2 + 2 = Any(4, 5)", "any[(2+2)=4,(2+2)=5]"},
        {"1 = 1 = Any(-1)", "any[(1=1)=(-1)]"},
        {"Any(4, 5) = 4 or All(1) = 1", "(any[4=4,5=4] or all[1=1])"},
        // a value outside without one
        {"dice total Any(=4, >6)", "any[V3510P0=4,V3510P0>6]"},
        {"Any(=4, >6) dice total", "any[V3510P0=4,V3510P0>6]"},
        // among its own items
        {"Any(>0, 5, cs1)", "any[5>0,V101P1>0]"},
        {"All(>0, 5, <cs1, 6, 7)", "all[5>0,6<V101P1,7<V101P1]"},
        {"not Any(>0, big bets)", "(not any[V50P1H3X1Y13>0,V51P1H3X1Y13>0])"},
        {"(Any(>0, 5)) * 2", "(any[5>0]*2)"},
    };
    for (const auto& [expression, tree] : cases)
        EXPECT_EQ(Condition(expression), " " + std::string(tree)) << expression;
}

TEST(Check, ActionsAndAssignmentsKnowTheirTargets) {
    const std::pair<const char*, const char*> cases[] = {
        {"cs1 = 5", " 5 -> V101P1"},
        {"cs1, csn2 player3 = \"5\" & 5", " ('5'&5)$ -> V101P1, V802P3"},
        {"cs1 = 5 and 3", " (5 and 3) -> V101P1"},
        {"cs1 = -5", " (-5) -> V101P1"},
        {"all(cs1, cs2), cs3 = 5", " 5 -> V101P1, V102P1, V103P1"},
        {"cs1 (= 5)", " 5 -> V101P1"},
        {"place(cs1) = cs(2)", " F21(2)P1 -> F6(V101P1)P1H3X1Y13"},
        {"cs1 player(cs2) = 5", " 5 -> V101P(V102P1)"},
        {"lay(4.4) = 5", " 5 -> F1(4.4)P1H3X1Y13"},
        {"lay(cs1) = 5", " 5 -> F1(V101P1)P1H3X1Y13"},
        {"Bet 5 on Place6, Place8", "A481 5 -> V33P1H3X1Y13, V34P1H3X1Y13"},
        {"Add cs1 * 2 to >5, cs2, <3, cs3", "A484 (V101P1*2) -> {>5}V102P1, {<3}V103P1"},
        {"Round down to the nearest 6 on Place6", "A488 6 -> V33P1H3X1Y13"},
        {"Clear >10, cs1, cs2, = \"x\", csn1", "A460 -> {>10}V101P1, {>10}V102P1, {='x'}V801P1"},
        {"Clear 5, cs1", "A460 -> 5, V101P1"},
        {"Call off all(>5, Field, Horn)", "A451 -> {>5}V49P1H3X1Y13, {>5}V63P1H3X1Y13"},
        {"Buy the place bet on Place6", "A450 -> V33P1H3X1Y13"},
        {"Remove on/off button from Field", "A453 -> V49P1H3X1Y13"},
        {"Swap cs1, csn2", "A300 -> V101P1, V802P1"},
        {"Start new session (preserve checkstacks)", "A101"},
        {"Show message \"\" & bankroll", "A210 (S0&V1301P1H3)$"},
        {"Output to file 5", "A223 5"},
        {"Output to file tab", "A223 F811$(9)"},
        {"ATM deposit 5 + 5", "A225 (5+5)"},
        {"Activate probability file", "A213"},
        {"Activate probability file \"x.prb\"", "A213 'x.prb'"},
        {"Playback dice roll file", "A310 none none none"},
        {"Playback dice roll file \"x.rol\"", "A310 'x.rol' none none"},
        {"Playback dice roll file \"x.rol\" from roll # 5", "A310 'x.rol' 5 none"},
        {"Playback dice roll file \"x.rol\", 5, 9", "A310 'x.rol' 5 9"},
        {"Playback dice roll file from roll cs1 to 9", "A310 none V101P1 9"},
        {"Playback dice roll file 5", "A310 none 5 none"},
        {"autohandle winning bets = \"same bet\"", " 'same bet' -> V670P1"},
    };
    for (const auto& [script, tree] : cases) EXPECT_EQ(TreeOf(script), tree) << script;
}

TEST(Check, RefusesConditionsThatAreNone) {
    constexpr const char* qualifier =
        "\nExpected qualifier format:\n>, <, or = followed by number or non-string variable";
    const std::pair<std::string, std::string> cases[] = {
        {"", "Missing expression between IF and THEN."},
        {"()", "Unable to resolve expression."},
        {"5 cs1", "Unable to resolve expression."},
        {"Bet 5 on Place6", "Unable to resolve expression."},
        {"csn1 & \"a\"", "Result not true or false."},
        {"\"a\" + 1 = 2", "Math error. Use of non-mathematical terms."},
        {"\"a\" - 1 = 2", "Math error. Use of non-mathematical terms."},
        {"-\"a\" = 2", "Math error. Use of non-mathematical terms."},
        {"Any(1, 2) + 1 = 2", "Math error. Use of non-mathematical terms."},
        {"2 ^", "Improper use of math operators."},
        {"2 ^ -3", "Improper use of math operators."},
        {"* 2", "Improper use of math operators."},
        {"5 -", "Improper use of math operators."},
        {"(+ 5) = 5", "Improper use of math operators."},
        {"5 & (", "Missing or improperly placed parenthesis."},
        {"csn1 &", "Unable to concatenate elements."},
        {"& csn1", "Unable to concatenate elements."},
        {"cs1 = = 5", "Improper use of comparison operator."},
        {"cs1 >", "Improper use of comparison operator."},
        {"cs1 = not 5", "Improper use of comparison operator."},
        {"csn1 = 5", "Relational error. Terms not comparable."},
        {"not", "Improper argument for NOT operation."},
        {"not not 5", "Improper argument for NOT operation."},
        {"not csn1", "Improper argument for NOT operation."},
        {"and 5", "Missing expression before logical \"AND\""},
        {"5 or", "Missing expression after logical \"OR\""},
        {"csn1 xor 5", "Missing or inappropriate expression before logical \"XOR\""},
        {"cs1 and csn1", "Missing or inappropriate expression after logical \"AND\""},
        {"5 and or 5", "Missing or inappropriate expression after logical \"AND\""},
        // lists
        {"Any(4, 5)", "Missing list comparison."},
        {"Any(4, >5, cs1)", "Missing list comparison."},
        {"5 = Any()", "Improper or missing list comparison."},
        {"Any(>5)", "Improper or missing list comparison."},
        {"Any(1) = Any(2)", "Improper or missing list comparison."},
        {"5 = 5 Any(4, 5)", "Improper or missing comparison element in list."},
        {"= Any(4, 5)", "Improper or missing list comparison."},
        {"Any(4, 5) =", "Improper or missing list comparison."},
        {"cs1 Any(=4, 5)", "Improper or missing comparison element in list."},
        {"cs1 Any(=4, >)", "Improper or missing comparison element in list."},
        {"cs1 = Any(4 > 5)", "Improper placement of comparison operator in list."},
        {"cs1 = Any(4,, 5)", "Inappropriate element in list."},
        {"cs1 = Any(4, show steps)", "Inappropriate element in list."},
        {"cs1 = Any(4 5)", "Missing separation character (, or ;) in list."},
        {"cs1 = Any(4, \"a\")", "Improper comparison with item in list."},
        {"Any(>4, \"a\")", "List item not comparable with qualifier."},
        // functions
        {"Count(>\"a\", 5)", "Missing or improper qualifier in \"Count\" function." + std::string(qualifier)},
        {"Count(>, 5)", "Missing or improper qualifier in \"Count\" function." + std::string(qualifier)},
        {"Sum(4 > 3)", "Improper expression in \"Sum\" function."},
        {"StdDev()", "Missing expression in \"StdDev\" function."},
        {"Lowest(>5)", "Missing expression in \"Lowest\" function."},
        {"Average(4 5)", "Too many expressions in \"Average\" function."},
        {"Highest(csn1)", "Inappropriate expression in \"Highest\" function."},
        {"sqr()", "Missing expression in \"Sqr\" function."},
        {"sqr(1, 2)", "Too many expressions in \"Sqr\" function."},
        {"sqr(csn1)", "Inappropriate expression in \"Sqr\" function."},
        {"len(5)", "Inappropriate expression in \"Len\" function."},
        {"place(csn1)", "Inappropriate expression in \"Place\" function."},
        {"cs1 player(csn1)", "Inappropriate expression in \"Player\" function."},
        {"place(6) player()", "Missing expression in \"Player\" function."},
        {"Input(5)", "Inappropriate expression in Input function."},
        {"Input(\"a\", \"b\")", "Inappropriate expression in Input function."},
        {"Instr(\"a\", \"b\")",
         "Inappropriate expression in \"Instr\" function.\nExpected format:  Instr(number, string, string)"},
        {"Instr(1, \"a\", \"b\", 2)",
         "Too many expressions in \"Instr\" function.\nExpected format:  Instr(number, string, string)"},
        {"Left$(\"abc\")", "Missing expression in \"Left\" function.\nExpected format:  Left$(string, number)"},
        {"Right$(5, 5)", "Inappropriate expression in \"Right\" function.\nExpected format:  Right$(string, number)"},
        {"RemoveLeft$(\"a\", )",
         "Missing expression in \"RemoveLeft\" function.\nExpected format:  RemoveLeft$(string, number)"},
        {"RemoveRight$(\"a\", 1, 2)",
         "Too many expressions in \"RemoveRight\" function.\nExpected format:  RemoveRight$(string, number)"},
        {"Mid$(\"a\", 1)",
         "Missing or inappropriate expression in function.\nExpected format:  Mid$(string, number, number)"},
        {"RemoveMid$(1, 1, 1)",
         "Missing or inappropriate expression in function.\nExpected format:  RemoveMid$(string, number, number)"},
        {"Insert$(\"a\", 1)",
         "Missing expression in Insert$ function.\nExpected format:  Insert$(string, number, string)"},
        {"Insert$(\"a\", 1, \"b\", 2)",
         "Too many expressions in Insert$ function.\nExpected format:  Insert$(string, number, string)"},
        {"lay(7) > 5", "Reference to Lay bet out of limits."},
    };
    for (const auto& [expression, text] : cases) EXPECT_EQ(Condition(expression), text) << expression;
}

TEST(Check, RefusesStatementsThatAreNone) {
    const std::pair<const char*, const char*> cases[] = {
        {"5 + 5", "Improper assignment or expression."},
        {"csn1", "Improper assignment or expression."},
        {"cs1 =", "Improper assignment or expression."},
        {"cs1 = 5 5", "Improper assignment or expression."},
        {"cs1 = cs2 = 5", "Improper assignment or expression."},
        {"cs1 cs2 = 5", "Ambiguous variable references"},
        {"cs1 = (5 > 3)", "Improper assignment or expression."},
        {"cs1 = all(cs2, cs3)", "Improper or missing list comparison."},
        {"all(5) = 5", "Improper or missing list comparison."},
        {"cs1 + 5 = 3", "Cannot do math with a variable that's being assigned."},
        {"cs1 - 5 = 3", "Cannot do math with a variable that's being assigned."},
        {"cs1 = 2 ^", "Improper use of math operators."},
        {"Show steps 5", "Unable to resolve elements."},
        {"Pass the dice cs1", "Unable to resolve elements."},
        {"Show message", "Missing argument."},
        {"Show message bankroll", "Improper argument."},
        {"Show message \"a\" \"b\"", "Missing or improper arguments."},
        {"ATM withdraw csn1", "Improper argument."},
        {"Output to file", "Missing argument."},
        {"Activate probability file 5", "Improper argument."},
        {"Play sound \"a\", \"b\"", "Missing or improper arguments."},
        {"Playback dice roll file \"x\" from roll", "Missing or improper arguments."},
        {"Playback dice roll file \"x\" to 9", "Missing or improper arguments."},
        {"Playback dice roll file 5 to", "Missing or improper arguments."},
        {"Playback dice roll file 5 \"x\"", "Missing or improper arguments."},
        {"Swap cs1", "Improper assignment or expression."},
        {"Swap cs1 and cs2", "Missing or inappropriate expression before logical \"AND\""},
        {"Swap", "Missing argument."},
        {"Clear", "Missing argument."},
        {"Clear 5", "Inappropriate element in list."},
        {"Clear cs1,", "Inappropriate element in list."},
        {"Clear >10 cs1", "Missing separation character (, or ;) in list."},
        {"Clear >10, csn1", "List item not comparable with qualifier."},
        {"Clear cs1, >", "Improper or missing comparison element in list."},
        {"Remove 5 from Place6", "Improper placement of comparison operator in list."},
        {"Bet 5", "Improper assignment or expression."},
        {"Bet on Place6", "Improper assignment or expression."},
        {"Bet 6 on Place6 and Place8", "Missing or inappropriate expression before logical \"AND\""},
        {"Bet 6 7 on Place6", "Improper assignment or expression."},
        {"Round down to the nearest 6 Place6", "Improper assignment or expression."},
        {"lay(3) = 5", "Reference to Lay bet out of limits."},
        {"Goto 10 20 : 10", "Unable to resolve elements.\nGoTo command should be followed by name of a label"},
        {"seed rng = 5", "Improper assignment or expression."},
    };
    for (const auto& [script, text] : cases) EXPECT_EQ(TreeOf(script), text) << script;
}

TEST(Check, EvaluationFollowsTheOrderOfNodes) {
    // The bracket's draw comes first, then the functions, then the variables.
    Compilation c = test::Script("If rnd * (rnd + 1) > 5 Then EndIf");
    ASSERT_EQ(CompileAutobets(c), std::nullopt);
    const Tree& t = c.Program;
    // root (outer rnd * (inner rnd + 1)) > 5
    const Node& root = t.Nodes[static_cast<std::size_t>(t.Statements[2].Operands[0])];
    const Node& product = t.Nodes[static_cast<std::size_t>(root.A)];
    const Node& sum = t.Nodes[static_cast<std::size_t>(product.B)];
    EXPECT_LT(sum.A, product.A) << "the inner rnd is read first";
    c = test::Script("If rnd - Input() > 0 Then EndIf");
    ASSERT_EQ(CompileAutobets(c), std::nullopt);
    const Node& compare = c.Program.Nodes[static_cast<std::size_t>(c.Program.Statements[2].Operands[0])];
    const Node& difference = c.Program.Nodes[static_cast<std::size_t>(compare.A)];
    EXPECT_LT(difference.B, difference.A) << "Input asks before rnd is drawn";
}

TEST(Check, StatementsKnowTheirJumpsAndPlaces) {
    Compilation c =
        test::Script("If cs1 = 1 : cs2 = 2 Then\n   GoSub \"x\"\nElse Do ExitDo Loop EndIf\n\"x\" : Return");
    ASSERT_EQ(CompileAutobets(c), std::nullopt);
    using K = StatementKind;
    struct Expected {
        K Kind;
        int Jump, FirstLine, FirstCol, LastLine, LastCol;
    };
    const Expected expected[] = {
        {K::Player, -1, 0, 0, 0, 0},      {K::If, -1, 1, 0, 1, 2},     {K::Condition, -1, 1, 2, 1, 11},
        {K::Condition, -1, 1, 11, 1, 21}, {K::Then, 6, 1, 21, 1, 0},   {K::Gosub, 11, 2, 0, 2, 0},
        {K::Else, 10, 3, 0, 3, 4},        {K::Do, 9, 3, 4, 3, 7},      {K::ExitDo, 9, 3, 7, 3, 14},
        {K::Loop, 7, 3, 14, 3, 19},       {K::EndIf, -1, 3, 19, 3, 0}, {K::Label, -1, 4, 0, 4, 4},
        {K::Return, -1, 4, 4, 4, 0}};
    ASSERT_EQ(c.Program.Statements.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const Statement& s = c.Program.Statements[i];
        const Expected& e = expected[i];
        EXPECT_EQ(s.Kind, e.Kind) << i;
        EXPECT_EQ(s.Jump, e.Jump) << i;
        EXPECT_EQ(s.FirstLine, e.FirstLine) << i;
        EXPECT_EQ(s.FirstCol, e.FirstCol) << i;
        EXPECT_EQ(s.LastLine, e.LastLine) << i;
        EXPECT_EQ(s.LastCol, e.LastCol) << i;
    }
    EXPECT_EQ(c.Program.Statements[0].Slot, 1);
}

TEST(Check, TheListOfTheWorkedExample) {
    Compilation c = test::Script("' press on sevens\nIf Dice Total = 7 Then\n   Bet 5 on PassLine\nEndIf");
    ASSERT_EQ(CompileAutobets(c), std::nullopt);
    const std::vector<Element> expected = {{0, 0},    {-3, 1},  {102, 0},  {1, 0},   {102, 2}, {-11, 3510},
                                           {50, 0},   {-31, 7}, {102, 18}, {9, 20},  {103, 0}, {-61, 481},
                                           {-31, 5},  {50, 0},  {-12, 43}, {-13, 1}, {-14, 3}, {-15, 1},
                                           {-16, 13}, {104, 0}, {12, 0},   {105, 0}};
    EXPECT_EQ(c.Elements, expected);
}

TEST(Check, AnEmptyScriptIsAStartAndAMarker) {
    Compilation c = test::Script("");
    ASSERT_EQ(CompileAutobets(c), std::nullopt);
    EXPECT_EQ(c.Elements.size(), 3u);
    EXPECT_EQ(c.Program.Statements.size(), 1u);
}

TEST(Check, ErrorsAreSelectedAsTheUserSeesThem) {
    struct Case {
        const char* Script;
        const char* Title;
        int FirstLine, FirstCol, LastLine, LastCol;
    };
    const Case cases[] = {
        {"cs1 = 1\n  x = 5", "Auto-bet script error in line 2", 2, 2, 2, 7},
        {"cs1 = 1 :  cs2 = \"a\" + 1 : cs3 = 5", "Auto-bet script error in line 1", 1, 11, 1, 25},
        {"If Then EndIf", "Auto-bet script error in line 1", 1, 3, 1, 7},
        {"\"a\"\ncs1 = 5\n \"a\"", "Auto-bet script error in lines 1 thru 3", 1, 0, 3, 4},
        {"If cs1 = 5 then \xC3\xA9", "Auto-bet script error in line 1", 1, 0, 1, 17},
        {"If cs1 = 5 \n\n\n", "Auto-bet script error in line 1", 1, 0, 1, 2},
    };
    for (const Case& example : cases) {
        Compilation c = test::Script(example.Script);
        const ScriptVerdict v = CheckScript(c);
        EXPECT_FALSE(v.Proper);
        EXPECT_EQ(v.Title, example.Title);
        EXPECT_EQ(v.FirstLine, example.FirstLine) << example.Script;
        EXPECT_EQ(v.FirstCol, example.FirstCol) << example.Script;
        EXPECT_EQ(v.LastLine, example.LastLine) << example.Script;
        EXPECT_EQ(v.LastCol, example.LastCol) << example.Script;
    }
    Compilation good = test::Script("cs1 = 5");
    EXPECT_EQ(CheckScript(good).Text, "Your script is properly structured.");
    Compilation empty = test::Script("  ");
    EXPECT_EQ(
        CheckScript(empty).Text,
        "This feature checks to see that your Auto-Bet script is properly structured, but presently your script is "
        "empty.");
    EXPECT_FALSE(CheckScript(empty).Proper);
}

}  // namespace
}  // namespace tarnwick
