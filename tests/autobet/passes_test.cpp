// The passes between translation and the final check, each stopped at.
#include <gtest/gtest.h>

#include "autobet/print.h"
#include "autobet/scripts.h"

namespace tarnwick {
namespace {

using test::After;

struct Case {
    const char* Script;
    const char* Expected;
};

template <std::size_t N>
void Expect(const char* pass, const Case (&cases)[N]) {
    for (const Case& c : cases) EXPECT_EQ(After(pass, c.Script), c.Expected) << c.Script;
}

TEST(Structure, BracketsFunctionsAndListsAreWhole) {
    constexpr const char* lists =
        " must be enclosed in brackets.\nFor example:\n   Any(4,5,6,8,9,10)\n   Any(Big6, Field, Checkstacks)\n"
        "   All[Field, PassLine, Hard4]\n   All(inside place bets)";
    const std::string any = std::string("1:2-1:9 Lists defined by \"Any\"") + lists;
    const std::string all = std::string("1:0-1:0 Lists defined by \"All\"") + lists;
    const Case cases[] = {
        {"cs1 = (5 + [3])", "V101 = ( 5 + ( 3 ) )"},
        {"cs1 = 5 : cs2 = (5", "1:8-1:0 Missing or improperly placed parenthesis."},
        {"cs1 = 5) + (3", "1:0-1:0 Missing or improperly placed parenthesis."},
        {"If (5 Then )", "1:2-1:6 Missing or improperly placed parenthesis."},
        {"cs1 = 5\ncs2 = lay 5", "2:0-2:0 Missing or inappropriate reference to \"Lay\" bet."},
        {"hop = 5", "1:0-1:0 Missing or inappropriate reference to \"Hop\" bet."},
        {"cs1 = sqr 5", "1:0-1:0 Missing or inappropriate reference to \"Sqr\"."},
        {"checkstack 5 = 5", "1:0-1:0 Missing or inappropriate reference to \"Checkstack\"."},
        {"cs1 = lay(5 : cs2 = sqr 5", "1:0-1:12 Missing or improperly placed parenthesis."},  // brackets go first
        {"cs1 = Highest(1, Sum(2, 3))", "V101 = F126 ( 1 , F130 ( 2 , 3 ) end ) end"},
        {"If Any(4, sqr(5)) = 5", "IF | I2 ( 4 , F100 ( 5 ) ) end = 5"},
        {"If any 5 Then", any.c_str()},
        {"All 5", all.c_str()},
        {"Clear all bets", "A460 V4100"},
        {"Clear all lay bets, all cs1", all.c_str()},
        {"Clear all checkstacks, all csns, all(cs1)", "A460 V980 , V990 , I3 ( V101 ) end"},
    };
    Expect("structure", cases);
    EXPECT_EQ(After("structure", "If all bets = 5 Then").substr(0, 30), "1:2-1:16 Lists defined by \"All");
}

TEST(Structure, TextsAndNumbersAloneAreLabels) {
    const Case cases[] = {
        {"\"Start\" : 10\n10.50", "label 1 | label 2 | label 3"},
        {"If 5 Then 5", "IF | 5 | THEN | label 1"},
        {"If \"a\" Then", "IF | S1 | THEN"},
        {"If : 5 : Then", "IF | 5 | THEN"},
        {"If 5 : cs1 = 1 Then", "IF | label 1 | V101 = 1 | THEN"},
        {"Else If cs1 = 1 : 5 Then", "ELSE | IF | V101 = 1 | label 1 | THEN"},
        {"\"\"", "label 0"},
        {"cs1 = 5 : Goto 5", "V101 = 5 | GOTO 5"},
        {"\"a\"\n5\n\" A \"\n5", "1:0-3:0 A duplicate label exists in line 1"},
        {"\"b\"\n\"a\"\n10\n\"a\"\n\"b\"", "1:0-5:0 A duplicate label exists in line 1"},
        {"cs1 = 1 : 10 : cs1 = 2\n10.0", "1:8-2:0 A duplicate line number exists in line 1"},
        {"\n10\n\"10\"", "2:0-3:0 A duplicate line number exists in line 2"},
    };
    Expect("structure", cases);
}

TEST(Organise, WritesReferencesInOneOrderWithDefaults) {
    const Case cases[] = {
        {"If player2 bankroll = bankroll player2", "IF | V1301 P2 H3 = V1301 P2 H3"},
        {"If wins current hand player2 Place6 = Place6 player2 current hand wins",
         "IF | V33 P2 H1 X2 Y28 = V33 P2 H1 X2 Y28"},
        {"If Place6", "IF | V33 P1 H3 X1 Y33"},
        {"If Place6 wins", "IF | V33 P1 H3 X2 Y28"},
        {"If Place6 net % total $ all sessions", "IF | V33 P1 H5 X5 Y22"},
        {"If Place6 expected value net", "IF | V33 P1 H3 X4 Y31"},
        {"If Place6 last hand total $ wagers", "IF | V33 P1 H2 X1 Y22"},
        {"If cs5 shooter = player(cs2) csn5", "IF | V105 P10 = V805 F50 ( V102 P1 )"},
        {"If comps last session = simulated hours", "IF | V1100 P1 H4 = V1200 P1 H3"},
        {"If # rolls = player2 # rolls", "IF | V2500 P0 H3 Y0 = V2500 P2 H3 Y0"},
        {"If # rolls 7 = # rolls 5.2 last hand = # of rolls 6.6",
         "IF | V2500 P0 H3 Y7 = V2500 P0 H2 Y5.2 = V2500 P0 H3 Y6.6"},
        {"If # rolls die2 face6 = # rolls points", "IF | V2500 P0 H3 Y89 = V2500 P0 H3 Y15"},
        {"If # passes natural = # misses 12 last hand", "IF | V2602 P0 H3 Y14 = V2604 P0 H2 Y12"},
        {"If # of points 4 passed = % of points", "IF | V4606 P0 H3 X7 Y4 = V4607 P0 H3 X6 Y0"},
        {"If cs1 = 5e55 # of points 5e55", "IF | V101 P1 = 5E+55 V4606 P0 H3 X6 Y5E+55"},
        {"If # of points 25", "IF | V4606 P0 H3 X6 Y25"},
        {"If point = 6 dice total", "IF | V3500 = 6 V3510"},
        {"If shooter = player3 = all players = bettor = player(2)", "IF | V3200 = 3 = 0 = V3203 = F50 ( 2 )"},
        {"If place(6) player2 wins = place(8)", "IF | F6 ( 6 ) P2 H3 X2 Y28 = F6 ( 8 ) P1 H3 X1 Y33"},
        {"If cs(cs1 player2) player3", "IF | F21 ( V101 P2 ) P3"},
        {"If wins Place6 (player2 cs1) wins Place8", "IF | V33 P1 H3 X2 Y28 ( V101 P2 ) V34 P1 H3 X2 Y28"},
        {"bets", "V4100 P1 H3 X1 Y33"},
        {"checkstacks player2", "V980 P2"},
        {"If player(player(1) cs1) cs2", "IF | V102 F50 ( V101 F50 ( 1 ) )"},
        {"Place6 passline", "1:0-1:0 Ambiguous variable references"},
        {"player1 player2 cs1", "1:0-1:0 Ambiguous player references"},
        {"cs1 = 5 : Place6 last hand current session", "1:8-1:0 Ambiguous hand references"},
        {"Place6 wins losses", "1:0-1:0 Ambiguous variable references"},
        {"Place6 total $ total #", "1:0-1:0 Ambiguous variable references"},
        {"\nIf wins > 0 then", "2:2-2:12 Ambiguous variable references"},
        {"player2 last hand", "1:0-1:0 Ambiguous variable references"},
    };
    Expect("organise", cases);
}

TEST(Organise, RefusesQualifiersThatDoNotFit) {
    const std::pair<const char*, const char*> cases[] = {
        {"point player2", ""},
        {"point wins", ""},
        {"point 5", ""},
        {"cs1 last hand", ""},
        {"cs1 wins", ""},
        {"cs1 5", ""},
        {"bankroll wins", ""},
        {"bankroll total $", ""},
        {"bankroll 5", ""},
        {"Place6 5", ""},
        {"Place6 established", ""},
        {"Place6 natural", ""},
        {"Place6 die1 face1", ""},
        {"Place6 net current $", ""},
        {"Place6 wins working", ""},
        {"Place6 losses vig", ""},
        {"Place6 expected value", "\nPlease designate either net or net %"},
        {"Place6 net total", "\nPlease designate either total # or total $."},
        {"Place6 wins total", "\nPlease designate either total # or total $."},
        {"Place6 total", "\nPlease designate either total # or total $."},
        {"Place6 wins current $", "\nCurrent # and current $ only apply to wagers."},
        {"Place6 last hand", "\nCurrent # and current $ only apply to current hand or session."},
        {"Place6 last hand wagers", "\nCurrent # and current $ only apply to current hand or session."},
        {"Place6 all sessions current #", "\nCurrent # and current $ only apply to current hand or session."},
        {"Place6 last hand working", "\n'Working' only applies to current hand or session."},
        {"Place6 last session called on", "\n'Called on' only applies to current hand or session."},
        {"Place6 last hand called off", "\n'Called off' only applies to current hand or session."},
        {"lay4 last hand vig", "\n'Vig' only applies to current hand or session."},
        {"Place6 last hand wins", "."},
        {"bets last session net", "."},
        {"# of points wins", ""},
        {"# of points natural", ""},
        {"# rolls wins", ""},
        {"# rolls 5 total", ""},
        {"# rolls 13", "\nReference to rolls out of limits."},
        {"# rolls 1", "\nReference to rolls out of limits."},
        {"# rolls 5.7", "\nReference to rolls out of limits."},
        {"% of rolls 7.1", "\nReference to rolls out of limits."},
        {"# of rolls since 2.25", "\nReference to rolls out of limits."},
        {"# passes 14", "\nReference to rolls out of limits."},
        {"# misses 5.2", "\nReference to rolls out of limits."},
        {"# of rolls since 7 last hand", "\n\"# of rolls since\" applies to current session only"},
        {"# rolls total $", ""},
        {"# passes die1 face1", ""},
    };
    for (const auto& [script, more] : cases) {
        EXPECT_EQ(After("organise", script), "1:0-1:0 Ambiguous variable references" + std::string(more)) << script;
    }
    // What stands in brackets is read ahead of everything outside.
    EXPECT_EQ(After("organise", "point wins\ncs1 = (5 * cs2 wins)").substr(0, 8), "2:0-2:0 ");
}

TEST(Organise, AFragmentMeansTheBettor) {
    Compilation c = test::Script("Place6");
    c.Slot = 0;
    c.Bettor = 4;
    ASSERT_EQ(CompileAutobets(c, "organise"), std::nullopt);
    EXPECT_EQ(c.Elements[1], (Element{Code::ScriptStart, 0}));
    EXPECT_EQ(test::Short(c), "V33 P4 H3 X1 Y33");
}

TEST(Expand, GroupsBecomeTheirMembers) {
    const Case cases[] = {
        {"inside lay bets", "V2 P1 H3 X1 Y13 , V3 P1 H3 X1 Y13 , V4 P1 H3 X1 Y13 , V5 P1 H3 X1 Y13"},
        {"outside buy bets last hand total $", "V37 P1 H2 X1 Y2 , V42 P1 H2 X1 Y2"},
        {"big bets player2 wins", "V50 P2 H3 X2 Y8 , V51 P2 H3 X2 Y8"},
        {"big bets player(cs1)", "V50 F50 ( V101 P1 ) H3 X1 Y13 , V51 F50 ( V101 P1 ) H3 X1 Y13"},
        {"big bets player(sum(big bets wins)) net # of points 25", "1:0-1:0 Ambiguous variable references"},
        {"# of points 25 : # of points 25 player(place6)",
         "V4606 P0 H3 X6 Y25 | V4606 F50 ( V33 P1 H3 X1 Y13 ) H3 X6 Y25"},
        {"# rolls die2 face6", "V2500 P0 H3 Y89"},
        {"place(6) vig : hardway bets working",
         "F6 ( 6 ) P1 H3 X1 Y17 | V52 P1 H3 X1 Y14 , V53 P1 H3 X1 Y14 , V54 P1 H3 X1 Y14 , V55 P1 H3 X1 Y14"},
    };
    Expect("expand", cases);
    // Families by their first and last member and the number of members.
    const std::tuple<const char*, int, int, int> groups[] = {{"lay bets", 1, 6, 6},
                                                             {"dontcome bets", 7, 12, 6},
                                                             {"inside dontcome bets", 8, 11, 4},
                                                             {"outside dontcome bets", 7, 12, 2},
                                                             {"dontcomeodds bets", 13, 18, 6},
                                                             {"come bets", 19, 24, 6},
                                                             {"outside come bets", 19, 24, 2},
                                                             {"comeodds bets", 25, 30, 6},
                                                             {"place bets", 31, 36, 6},
                                                             {"inside place bets", 32, 35, 4},
                                                             {"buy bets", 37, 42, 6},
                                                             {"hop bets", 67, 83, 17},
                                                             {"bets", 1, 91, 91},
                                                             {"checkstacks", 100, 199, 100},
                                                             {"checkstack names", 800, 899, 100}};
    for (const auto& [group, first, last, count] : groups) {
        Compilation c = test::Script(group);
        ASSERT_EQ(CompileAutobets(c, "expand"), std::nullopt) << group;
        std::vector<int> members;
        for (const Element& e : c.Elements) {
            if (e.Code == Code::Variable) members.push_back(NumberOf(e));
        }
        ASSERT_EQ(members.size(), static_cast<std::size_t>(count)) << group;
        EXPECT_EQ(members.front(), first) << group;
        EXPECT_EQ(members.back(), last) << group;
    }
}

TEST(Expand, NestedGroupsCannotFillTheMemory) {
    std::string script = "bets";
    for (int i = 0; i < 5; ++i) script = "player(sum(" + script + ")) bets";
    EXPECT_EQ(After("expand", "cs1 = 5\ncs1 = sum(" + script + ")"),
              "2:0-2:0 A compile error occurred (organize variables).");
    for (int i = 0; i < 1000; ++i) script = "player(sum(" + script + ")) big bets";
    EXPECT_EQ(After("expand", script), "1:0-1:0 A compile error occurred (organize variables).");
}

TEST(Mark, TargetsStandAheadOfTheSignAndBehindCommas) {
    const Case cases[] = {
        {"cs1 = cs2", "TV101 P1 = V102 P1"},
        {"cs1, csn2 = 5", "TV101 P1 , TV802 P1 = 5"},
        {"Bet cs1 on cs2, cs3", "A481 V101 P1 = TV102 P1 , TV103 P1"},
        {"Bet 5, cs1 on cs2", "A481 5 , V101 P1 = TV102 P1"},
        {"Add 5 to place(cs1), cs(cs2) player3", "A484 5 = TF6 ( V101 P1 ) P1 H3 X1 Y13 , TF21 ( V102 P1 ) P3"},
        {"cs1 = Highest(cs2, cs3)", "TV101 P1 = F126 ( V102 P1 , V103 P1 ) end"},
        {"cs1 player(cs2) = 5", "TV101 F50 ( V102 P1 ) = 5"},
        {"place6 player(cs2) current hand = 5", "TV33 F50 ( V102 P1 ) H1 X1 Y13 = 5"},
        {"Clear >cs9, cs1, cs2", "A460 > V109 P1 , TV101 P1 , TV102 P1"},
        {"Clear all(cs1, >5, cs2), cs3", "A460 I3 ( TV101 P1 , > 5 , TV102 P1 ) end , TV103 P1"},
        {"Clear all(cs(cs1), cs2)", "A460 I3 ( TF21 ( V101 P1 ) P1 , TV102 P1 ) end"},
        {"Clear (cs1), cs2", "A460 ( V101 P1 ) , TV102 P1"},
        {"cs1 = all(cs2, cs3)", "TV101 P1 = I3 ( V102 P1 , V103 P1 ) end"},
        {"Swap cs1, csn2", "A300 TV101 P1 , TV802 P1"},
        {"Call off Place6, Field", "A451 TV33 P1 H3 X1 Y13 , TV49 P1 H3 X1 Y13"},
        {"Show message cs1", "A210 V101 P1"},
        {"ATM deposit cs1", "A225 V101 P1"},
        {"If cs1 = 5 : place6 last hand total $ Then cs1 = 5",
         "IF | V101 P1 = 5 | V33 P1 H2 X1 Y2 | THEN | TV101 P1 = 5"},
        {"player(2) = 5", "F50 ( 2 ) = 5"},
        {"autohandle winning bets = 5 : rng = 3 : seed = 5 : comp rate = 1 : bankroll = beginning bankroll",
         "TV670 P1 = 5 | TV3672 = 3 | TV3655 = 5 | TV3691 = 1 | TV1301 P1 H3 = V1300 P1 H3"},
        {"cs1 = 5\nIf any(5) = 5 : \"a\" Then",
         "2:14-2:20 Improper placement of label.\nLabels cannot appear with condition lines."},
        {"cs1 = any(cs1)",
         "1:0-1:0 Improper use of list.\n\nLists defined by the keyword \"Any\"\ncannot be used with action "
         "commands."},
        {"sqr(5) = 5", "1:0-1:0 \"Sqr\" is a read-only function and cannot be assigned a value."},
        {"player name(5) = 5", "1:0-1:0 \"Playername\" is a read-only function and cannot be assigned a value."},
        {"cs1 = 5 : point = 5", "1:8-1:0 \"Point\" is a read-only variable and cannot be assigned a value."},
        {"Bet 5 on dice total", "1:0-1:0 \"Dice total\" is a read-only variable and cannot be assigned a value."},
        {"rolls per hour = 5", "1:0-1:0 \"Rolls per hour\" is a read-only variable and cannot be assigned a value."},
        {"timer = 5", "1:0-1:0 \"Variable\" is a read-only variable and cannot be assigned a value."},
        {"# of points = 5", "1:0-1:0 \"# of points\" is a read-only variable and cannot be assigned a value."},
        {"Place6 last hand total $ = 5",
         "1:0-1:0 Unable to set the value of a bet that is not in the current hand or session."},
        {"Place6 wins = 5", "1:0-1:0 Only able to set the 'wager' value of a bet."},
        {"Place6 player(cs1) total $ = 5", "1:0-1:0 Only able to set the current $ value of a bet."},
        {"Swap cs1, cs2, cs3", "1:0-1:0 The swap command only works with two variables at a time."},
    };
    Expect("mark", cases);
}

/// Jump targets of the script's statement words in order; 0 where there is none.
std::string Jumps(const std::string& script) {
    Compilation c = test::Script(script);
    if (const auto error = CompileAutobets(c, "logic")) return test::Place(*error) + " " + error->Text;
    std::string jumps;
    for (std::size_t i = 1; i < c.Elements.size(); ++i) {
        const Element& e = c.Elements[i];
        if (!IsKeyword(e)) continue;
        const bool refers = e.Code == Code::Goto || e.Code == Code::Gosub;
        jumps += (jumps.empty() ? "" : " ") + std::to_string(i) + ":" +
                 std::to_string(NumberOf(refers ? c.Elements[i + 1] : e));
    }
    return jumps;
}

TEST(Logic, StatementWordsKnowWhereToGo) {
    // Elements: 1 the start, 2 a marker, 3 the first statement word; a word and its marker are two elements.
    const std::pair<const char*, const char*> cases[] = {
        {"If 5 Then EndIf", "3:0 7:9 9:0"},
        {"If 5 Then Else EndIf", "3:0 7:9 9:11 11:0"},
        {"If 5 Then ElseIf 6 Then Else EndIf", "3:0 7:9 9:17 13:15 15:17 17:0"},
        {"If 5 Then If 6 Then Else EndIf Else EndIf", "3:0 7:19 9:0 13:15 15:17 17:0 19:21 21:0"},
        {"Do ExitDo Loop", "3:7 5:7 7:3"},
        {"Do Do ExitDo Loop ExitDo Loop", "3:13 5:9 7:9 9:5 11:13 13:3"},
        {"Do If 5 Then ExitDo EndIf Loop", "3:15 5:0 9:13 11:15 13:0 15:3"},
        {"If 5 Then Goto 10 EndIf : 10", "3:0 7:12 9:14 12:0"},
        {"\"a\" : GoSub \" A\" : cs1 = Highest(1, 2) : Goto 7 : 7 : Return", "5:3 19:22 24:0"},
        {"Goto 10 : If 5 Then 10 EndIf", "3:12 6:0 10:14 14:0"},  // into a structure
    };
    for (const auto& [script, jumps] : cases) EXPECT_EQ(Jumps(script), jumps) << script;
}

TEST(Logic, RefusesBrokenStructures) {
    const std::pair<const char*, const char*> cases[] = {
        {"If If", "1:2-1:0 IF statement out of position."},
        {"cs1 = 5 Then", "1:8-1:0 THEN statement out of position."},
        {"Else", "1:0-1:0 Expected THEN before ELSE."},
        {"If point Else cs1 = 5", "1:9-1:13 Expected THEN before ELSE."},
        {"If 5 Then Else Else", "1:14-1:0 Expected THEN before ELSE."},
        {"If 5 Then If 6 Then Else Else", "1:24-1:0 Expected THEN before ELSE."},
        {"ElseIf", "1:0-1:0 ELSEIF out of position."},
        {"If point ElseIf", "1:9-1:0 ELSEIF out of position."},
        {"If 1 Then If 5 Then Else ElseIf point",
         "1:24-1:31 ELSEIF out of position.\nCannot be placed after ELSE within the same IF/THEN statement."},
        {"If point\nEndIf : cs1 = 5", "2:0-2:6 Missing THEN between IF and ENDIF."},
        {"If 5 Then Do EndIf", "1:12-1:0 Missing or out of position LOOP statement."},
        {"Do EndIf", "1:2-1:0 Missing or out of position LOOP statement."},
        {"EndIf", "1:0-1:0 Unassociated ENDIF."},
        {"If 5 Then EndIf\n\n   end  if", "3:0-3:0 Unassociated ENDIF."},
        {"If Goto 5", "1:2-1:0 GOTO or GOSUB out of position."},
        {"Goto", "1:0-1:0 GOTO or GOSUB missing reference."},
        {"GoSub cs1", "1:0-1:0 Improper reference after GOTO or GOSUB."},
        {"x: cs1 = 1 Goto 10", "1:0-1:0 Unknown or misplaced element:\n\nx"},
        {"10 : cs1 = 1 Goto 10", "1:3-1:0 GOTO or GOSUB here should be preceded with a colon :"},
        {"cs1 = 5\nGoto \" Nowhere\"", "2:0-2:0 Label \" Nowhere\" not found."},
        {"Goto 10.50", "1:0-1:0 Label \"10.5\" not found."},
        {"If point Do", "1:9-1:0 DO statement out of position."},
        {"ExitDo", "1:0-1:0 EXIT DO statement outside of DO/LOOP."},
        {"Do If point ExitDo", "1:12-1:0 EXIT DO statement out of position."},
        {"Loop", "1:0-1:0 Missing DO statement or LOOP statement out of position."},
        {"Do If point Loop", "1:12-1:0 Missing DO statement or LOOP statement out of position."},
        {"Do If 5 Then Loop EndIf", "1:12-1:17 ENDIF missing or out of position, or LOOP statement out of position."},
        {"cs1 = 1\nIf point\ncs1 = 2", "2:0-2:2 Missing THEN statement."},
        {"If 5 Then\nIf 6 Then", "2:0-2:2 Missing ENDIF statement."},
        {"  Do\ncs1 = 1", "1:0-1:0 Missing LOOP statement."},
    };
    for (const auto& [script, expected] : cases) EXPECT_EQ(After("logic", script), expected) << script;
}

TEST(Logic, LabelsKnowTheirElements) {
    Compilation c = test::Script("Clear bets\n\"There\"\n10");
    ASSERT_EQ(CompileAutobets(c, "logic"), std::nullopt);
    for (std::size_t i = 1; i < c.Pool.size(); ++i) {
        const auto element = static_cast<std::size_t>(c.Pool[i].Value);
        EXPECT_EQ(c.Elements[element], (Element{Code::Label, static_cast<double>(i)})) << c.Pool[i].Text;
    }
}

TEST(Print, ShowsPairsAndPool) {
    Compilation c = test::Script("If Dice Total = 7 Then\n\"There\" : Show message \"7!\"\nEndIf");
    ASSERT_EQ(CompileAutobets(c, "logic"), std::nullopt);
    EXPECT_EQ(
        ElementsText(c),
        "1 [-3, 1]\n2 [101, 0]\n3 [1, 0]\n4 [101, 2]\n5 [-11, 3510]\n6 [50, 0]\n7 [-31, 7]\n8 [101, 18]\n9 [9, 16]\n"
        "10 [102, 0]\n11 [-71, 1]\n12 [102, 8]\n13 [-61, 210]\n14 [-51, 2]\n15 [103, 0]\n16 [12, 0]\n17 [104, 0]\n"
        "S1 \"There\" 11\nS2 \"7!\"\n");
}

}  // namespace
}  // namespace tarnwick
