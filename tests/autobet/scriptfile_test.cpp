// Script files as text and in the records of earlier versions, and files that are neither.

#include "autobet/scriptfile.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

#include "autobet/oldscript.h"
#include "autobet/text.h"
#include "files/codepage.h"
#include "support/oldscripts.h"
#include "support/temporaryfolder.h"

namespace tarnwick {
namespace {

using namespace testsupport;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using Lines = std::vector<std::string>;
using Rows = std::vector<std::pair<int, std::string>>;

constexpr const char* Head39 = "Tarnwick AutoBets, Data Format 3.9";
constexpr const char* Head50 = "Tarnwick AutoBets, Data Format 5.0";
constexpr const char* HeadMarrowgate = "Marrowgate AutoBets, Data Format 5.0";

/// What holds for the script of any bytes.
void ExpectSound(const std::string& bytes) {
    const ScriptText script = ScriptFromBytes(bytes);
    ASSERT_FALSE(script.Lines.empty());
    for (const std::string& line : script.Lines) {
        ASSERT_EQ(line.find_first_of("\r\n"), std::string::npos) << testing::PrintToString(line);
        ASSERT_TRUE(IsUtf8(line)) << testing::PrintToString(line);
    }
    const ScriptText again = ScriptFromBytes(ScriptFileText(script.Lines));
    ASSERT_EQ(again.Lines, script.Lines);
    ASSERT_EQ(again.Form, ScriptForm::Text);
}

TEST(ScriptText, TakesAnyLineEndAndEncoding) {
    using namespace std::string_literals;
    const struct {
        std::string Bytes;
        Lines Expected;
    } cases[] = {{"", {""}},
                 {"\n", {""}},
                 {"Bet 5 on PassLine", {"Bet 5 on PassLine"}},
                 {"a\n", {"a"}},
                 {"a\n\n b \n", {"a", "", " b "}},
                 {"a\r\nb\rc\nd", {"a", "b", "c", "d"}},
                 {"\r\r\n\n", {"", "", ""}},
                 {"\n\r", {"", ""}},
                 {"\xEF\xBB\xBFone\r\ntwo", {"one", "two"}},
                 {"\xEF\xBB\xBF", {""}},
                 {"'Zo\u00EB \u2013 \u20AC5", {"'Zo\u00EB \u2013 \u20AC5"}},
                 {"'Zo\xEB \x96 \x80"s + "5\r\n", {"'Zo\u00EB \u2013 \u20AC5"}},
                 {"\xC3\xAB\n\xEB", {"\u00C3\u00AB", "\u00EB"}},  // one encoding for the whole file
                 {"\xEF\xBB\xBF\xFF", {"\u00EF\u00BB\u00BF\u00FF"}},
                 {"tab\tnul\0end"s, {"tab\tnul\0end"s}}};
    for (const auto& c : cases) {
        const ScriptText script = ScriptFromBytes(c.Bytes);
        EXPECT_THAT(script.Lines, ElementsAreArray(c.Expected)) << testing::PrintToString(c.Bytes);
        EXPECT_EQ(script.Form, ScriptForm::Text);
    }
}

TEST(ScriptText, IsSavedAsItStands) {
    EXPECT_EQ(ScriptFileText({}), "");
    EXPECT_EQ(ScriptFileText({""}), "\n");
    EXPECT_EQ(ScriptFileText({"If Zo\u00EB", "", "\tEndIf "}), "If Zo\u00EB\n\n\tEndIf \n");
    // First lines that would be read as something else.
    for (const std::string& first :
         {std::string("\xEF\xBB\xBF'mark"), Head39 + std::string(" and more"), std::string(HeadMarrowgate)}) {
        const Lines lines{first, "Bet 5 on Field"};
        const ScriptText again = ScriptFromBytes(ScriptFileText(lines));
        EXPECT_EQ(again.Lines, lines);
        EXPECT_EQ(again.Form, ScriptForm::Text);
    }
}

TEST(ScriptText, FilesThatFailLeaveEverythingAsItWas) {
    const TemporaryFolder folder;
    ScriptText script;
    script.Lines = {"as before"};
    EXPECT_THAT(ReadScriptFile(folder.Path("missing.bet"), script),
                HasSubstr("missing.bet can't be read: No such file"));
    EXPECT_THAT(ReadScriptFile(folder.Path(""), script), HasSubstr("not a file"));
    EXPECT_THAT(ReadScriptFile(folder.Write("long.bet", std::string(MaxScriptFile + 1, 'x')), script),
                HasSubstr("longer than"));
    EXPECT_THAT(script.Lines, ElementsAre("as before"));
    EXPECT_THAT(WriteScriptFile(folder.Path("missing/a.bet"), {"x"}),
                HasSubstr("a.bet can't be written: No such file"));

    const std::string path = folder.Write("good.txt", "old");
    EXPECT_THAT(WriteScriptFile(path, {"Bet 5 on Field", "'end"}), IsEmpty());
    EXPECT_EQ(folder.Read("good.txt"), "Bet 5 on Field\n'end\n");
    EXPECT_THAT(ReadScriptFile(path, script), IsEmpty());
    EXPECT_THAT(script.Lines, ElementsAre("Bet 5 on Field", "'end"));
}

TEST(OldScript, IsKnownByTheStartOfItsHead) {
    const struct {
        std::string Head;
        ScriptForm Form;
    } cases[] = {{HeadMarrowgate, ScriptForm::Marrowgate50},
                 {Head39, ScriptForm::Tarnwick39},
                 {Head50, ScriptForm::Tarnwick50},
                 {Head50 + std::string("1"), ScriptForm::Tarnwick50},
                 {"Tarnwick AutoBets, Data Format 4.0", ScriptForm::Text},
                 {"tarnwick autobets, data format 5.0", ScriptForm::Text},
                 {" Tarnwick AutoBets, Data Format 5.0", ScriptForm::Text},
                 {"Marrowgate AutoBets, Data Format 3.9", ScriptForm::Text}};
    for (const auto& c : cases) {
        const ScriptText script = ScriptFromBytes(OldScript(c.Head, {{3, "Set Pass Line to $ 5"}}));
        EXPECT_EQ(script.Form, c.Form) << c.Head;
        if (c.Form != ScriptForm::Text) {
            EXPECT_THAT(script.Lines, ElementsAre(" PassLine to $5")) << c.Head;
        }
    }
    for (const std::string& bytes : {std::string(Head39), OldHeadRecord(Head39), OldHeadRecord(Head39) + "\3"}) {
        EXPECT_THAT(ScriptFromBytes(bytes).Lines, ElementsAre("")) << bytes.size();
    }
}

TEST(OldScript, TurnsRowsIntoLines) {
    const struct {
        const char* What;
        Rows Given;
        Lines Expected;
    } cases[] = {
        {"a block of one condition", {{1, "While a"}, {3, "x"}}, {" If a Then", " x", " EndIf"}},
        {"the other kind of condition, blocks in turn",
         {{2, "While a"}, {3, "x"}, {1, "While b"}, {4, "y"}},
         {" If a Then", " x", " EndIf", " If b Then", " y", " EndIf"}},
        {"conditions and actions behind one another",
         {{1, "While a"}, {20, "b"}, {20, "c"}, {3, "x"}, {30, "y"}, {3, "z"}},
         {" If a and", " b and", " c Then", " x :", " y", " z", " EndIf"}},
        {"a continued condition",
         {{1, "While a"}, {13, "more"}, {20, "b"}, {13, "c"}, {3, "x"}},
         {" If a more and", " b c Then", " x", " EndIf"}},
        {"a block without actions", {{1, "While a"}, {1, "While b"}}, {" If a Then", " EndIf", " If b Then", " EndIf"}},
        {"a colon row straight behind a condition", {{1, "While a"}, {30, "x"}}, {" If a Then :", " x", " EndIf"}},
        {"actions alone", {{3, "x"}, {-1, "y"}, {300, "z"}, {0, "w"}}, {" x", " y", " z", " w"}},
        {"a label", {{90, "  Start here "}, {3, "x"}}, {":\"Start here\" :", " x"}},
        {"a label ends the conditions",
         {{1, "While a"}, {90, "L"}, {3, "x"}},
         {" If a Then", ":\"L\" :", " x", " EndIf"}},
        {"a comment keeps its words", {{99, "When the 4 odds: $ 5 "}}, {"'When the 4 odds: $ 5"}},
        {"comments swallow no joint",
         {{1, "While a"}, {99, "c1"}, {20, "b"}, {99, "c2"}, {3, "x"}, {99, "c3"}, {30, "y"}},
         {" If a and", "'c1", " b Then", "'c2", " x :", "'c3", " y", " EndIf"}},
        {"joints without a line before", {{20, "a"}, {30, "b"}}, {" a :", " b"}},
        {"a continuation of nothing", {{13, "a"}, {13, "b"}}, {" a b"}},
        {"empty records", {{3, std::string(1, '\0')}, {3, "x"}, {99, std::string("\0z", 2)}}, {" x"}},
        {"a row of blanks", {{3, ""}}, {" "}},
        {"line breaks and code page inside a row",
         {{
              99,
              "a\r\nb\0c\xE9",
          },
          {99, "\x80"}},
         {"'a  b", "'\u20AC"}},
        {"a text as long as its field", {{99, std::string(128, 'x')}}, {"'" + std::string(128, 'x')}},
    };
    for (const auto& c : cases) {
        EXPECT_THAT(ScriptFromBytes(OldScript(Head50, c.Given)).Lines, ElementsAreArray(c.Expected)) << c.What;
    }
}

TEST(OldScript, RewritesWholeRows) {
    const struct {
        const char* Old;
        const char* Today;
    } cases[] = {
        {"Bet $ 10 on Pass Line odds", " Bet $10 on PassLineOdds"},
        {"While the point is 6 and while Don't Pass odds is 5 %", " If the point is 6 and DontPassOdds is 5%"},
        {"When Bankroll over 500", " If 'When Bankroll more than 500"},
        {"While a and when b", " If a and 'and when b"},
        {"While chip-stack #05 more than 3", " If CheckStack5 more than 3"},
        {"Set value of chip-stack ref #12 to 7", "  CheckStack(CheckStack12) to 7"},
        {"Set chip stack #1 to chip stack ref #2", " CheckStack1 to CheckStack(CheckStack2)"},
        {"While chip-stack ref #3 is over 4", " If CheckStack(CheckStack3) is more than 4"},
        {"Add value of chip-stack ref 04 to Place 6", " Add  CheckStack(CheckStack4) to Place6"},
        {"Bet on Place 8 $ 12", " Bet $12 on Place8"},
        {"Add to Buy 10 chip-stack #2", " Add CheckStack2 to Buy10"},
        {"Subtract from Field 5", " Subtract 5 from Field"},
        {"Bet on Place 6, Place 8", " Bet on Place6, Place8"},
        {"Bet on 5", " Bet on 5"},
        {"While the number 7 or 11 has rolled more than 3 times", " If the any(7, 11) *3  3 times"},
        {"While a hard 8 has rolled in the last 5 rolls", " If 4.4 *1  5 rolls"},
        {"While game rolls is 20", " If # of rolls is 20"},
        {"While shooter passes has won 3 times", " If # of passes shooter wins = 3 times"},
        {"On each roll reset rolls", " the dice roll 'Reset rolls"},
        {"Auto-handle winnings: Press", " AutoHandle winning bets Press"},
        {"Display message \"yes\" \"for' or 'against\"", " Show Message \"YES\" \"FOR or AGAINST\""},
        {"Deposit $ 5 from the ATM ", " ATM Deposit $5 from the ATM"},
        {"Total place bets number more than 2", " Count(Place bets) is more than 2"},
        {"Show message \"No Luck\", Zo\u00CB", " Show message \"No Luck\", Zo\u00CB"},
        {"  indented", "   indented"},
    };
    for (const auto& c : cases) EXPECT_EQ(RewriteOldRow(c.Old), c.Today) << c.Old;
}

TEST(OldPhrases, StandInOrderAndFireOnTheirOwnText) {
    std::set<std::string_view> searches;
    int number = 0;
    for (const OldPhrase& phrase : OldPhrases) {
        EXPECT_EQ(phrase.Number, ++number);
        EXPECT_TRUE(searches.insert(phrase.Search).second) << phrase.Search;
        const std::string search(phrase.Search);
        EXPECT_EQ(LowerText(search), search);
        std::string capitals = search;
        std::transform(capitals.begin(), capitals.end(), capitals.begin(),
                       [](char c) { return 'a' <= c && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
        std::string line = "<" + search + "|" + capitals + ">";
        std::string lower = LowerText(line);
        ReplaceOldPhrase(line, lower, phrase);
        EXPECT_EQ(line, "<" + std::string(phrase.Replacement) + "|" + std::string(phrase.Replacement) + ">");
    }
    EXPECT_EQ(number, 394);
}

TEST(OldPhrases, SearchGoesOnBehindWhatWasReplaced) {
    const struct {
        OldPhrase Phrase;
        std::string Line, Expected;
    } cases[] = {{{1, "aa", "a"}, "aaaaa", "aaa"},
                 {{1, "ab", "aab"}, "abab", "aabaab"},
                 {{1, " b ", " c "}, "a b b b d", "a c b c d"},
                 {{1, "x", ""}, "xXx", ""},
                 {{1, "ab", "q"}, "\u00C9aB\u00C9", "\u00C9q\u00C9"},
                 {{1, "ab", "q"}, "a", "a"}};
    for (const auto& c : cases) {
        std::string line = c.Line;
        std::string lower = LowerText(line);
        ReplaceOldPhrase(line, lower, c.Phrase);
        EXPECT_EQ(line, c.Expected);
        EXPECT_EQ(lower, LowerText(line));
    }
}

/// Short, since each of its bytes is tried: a condition, an action and a comment.
std::string AnOldScript() {
    return OldScript(Head50, {{1, "when Place 8 has won over \x80 5"}, {3, "Bet on Place 6 $ 12"}, {99, "Zo\xEB"}});
}

TEST(HostileScript, CutAtEveryLengthStaysSound) {
    const std::string whole = AnOldScript();
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        SCOPED_TRACE(length);
        ASSERT_NO_FATAL_FAILURE(ExpectSound(whole.substr(0, length)));
    }
    const std::string text = "\xEF\xBB\xBFZo\u00EB\r\n\u20AC\r'\U0001F3B2\n";
    for (std::size_t length = 0; length <= text.size(); ++length) {
        SCOPED_TRACE(length);
        ASSERT_NO_FATAL_FAILURE(ExpectSound(text.substr(0, length)));
    }
}

TEST(HostileScript, FlippedBytesStaySound) {
    const std::string whole = AnOldScript();
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const int flip : {0x81, whole[at] ^ '\n', whole[at] & 0xFF}) {
            std::string bytes = whole;
            bytes[at] = static_cast<char>(bytes[at] ^ flip);
            SCOPED_TRACE(at);
            ASSERT_NO_FATAL_FAILURE(ExpectSound(bytes));
        }
    }
}

}  // namespace
}  // namespace tarnwick
