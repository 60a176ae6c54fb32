#include "lab/commandline.h"

#include <gmock/gmock.h>

namespace tarnwick::lab {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> Texts(const CommandLine& command) {
    std::vector<std::string> texts;
    for (const Word& word : command.Words) texts.push_back((word.Quoted ? "q:" : "") + word.Text);
    return texts;
}

TEST(CommandLineTest, SplitsAtBlanksQuotesAndComments) {
    struct Case {
        std::string Line;
        std::vector<std::string> Words;
    };
    const Case cases[] = {
        {"", {}},
        {"  \t # only a comment", {}},
        {"bet 43 10", {"bet", "43", "10"}},
        {"  bet\t43   10  \r", {"bet", "43", "10"}},
        {R"(bet "Pass Line" 10 # on the line)", {"bet", "q:Pass Line", "10"}},
        {R"(bet "CheckStack #7" 5)", {"bet", "q:CheckStack #7", "5"}},
        {"player 1 Ann#2 5#6", {"player", "1", "Ann#2", "5#6"}},
        {R"(answer "")", {"answer", "q:"}},
        {R"(rename 1 "the ""Duke""")", {"rename", "1", R"(q:the "Duke")"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Line);
        const CommandLine command = SplitCommand(c.Line);
        EXPECT_EQ(Texts(command), c.Words);
        EXPECT_THAT(command.Fault, IsEmpty());
    }
    EXPECT_THAT(SplitCommand(R"(bet "Pass Line 10)").Fault, HasSubstr("not closed"));
    EXPECT_THAT(SplitCommand(R"(bet "Pass Line"10)").Fault, HasSubstr("blank"));
}

TEST(CommandLineTest, RestOfTheLineKeepsItsBlanksButNotItsComment) {
    EXPECT_EQ(SplitCommand("set Payoff[31]  9 to 5   # as in Nevada").RestFrom(2), "9 to 5");
    EXPECT_EQ(SplitCommand(R"(rename 1 "Ann Lee")").RestFrom(2), "Ann Lee");
    EXPECT_EQ(SplitCommand("rename 1").RestFrom(2), "");
}

TEST(CommandLineTest, RowsByNumberAndByName) {
    EXPECT_EQ(ParseRow("43").Value, 43);
    EXPECT_EQ(ParseRow("pass line").Value, 43);
    EXPECT_EQ(ParseRow("Don't Come 10 Odds").Value, 18);
    EXPECT_EQ(ParseRow("199").Value, 199);
    for (const char* wrong : {"0", "92", "99", "200", "-1", "", "Pass", "99999999999"}) {
        EXPECT_FALSE(ParseRow(wrong)) << wrong;
    }
}

TEST(CommandLineTest, PositionsScopesAndCountsWithinTheirRanges) {
    EXPECT_EQ(ParsePosition("8").Value, 8);
    EXPECT_EQ(ParsePosition("0", true).Value, 0);
    for (const char* wrong : {"0", "9", "-1", "one", ""}) EXPECT_FALSE(ParsePosition(wrong)) << wrong;

    struct Case {
        const char* Text;
        int Value;
    };
    for (const Case& c :
         {Case{"hand", 0}, {"last-hand", 1}, {"SESSION", 2}, {"last-session", 3}, {"all", 4}, {"4", 4}}) {
        EXPECT_EQ(ParseScope(c.Text).Value, c.Value) << c.Text;
        EXPECT_TRUE(ParseScope(c.Text)) << c.Text;
    }
    EXPECT_FALSE(ParseScope("5"));
    EXPECT_FALSE(ParseScope("game"));

    EXPECT_EQ(ParseCount("18446744073709551615", 0, ~std::uint64_t{0}).Value, ~std::uint64_t{0});
    for (const char* wrong : {"", "0", "101", "-5", "+5", "5x", " 5", "1e3", "99999999999999999999999"}) {
        EXPECT_FALSE(ParseCount(wrong, 1, 100)) << wrong;
    }
}

TEST(CommandLineTest, OptionsOfTheRun) {
    const auto player = ParsePlayerOption("3:Ann: the first:1,000.50");
    EXPECT_EQ(player.Value.Position, 3);
    EXPECT_EQ(player.Value.Name, "Ann: the first");
    EXPECT_EQ(player.Value.BuyIn, currency{10'005'000});
    const auto bet = ParseBetOption("2:Place 6:12");
    EXPECT_EQ(bet.Value.BetRow, 33);
    EXPECT_EQ(bet.Value.Amount, Dollars(12));
    const auto setting = ParseSettingOption("Payoff[31] = 9 to 5");
    EXPECT_EQ(setting.Value.Name, "Payoff[31]");
    EXPECT_EQ(setting.Value.Value, "9 to 5");

    EXPECT_EQ(player.Value.Script, "");
    const auto scripted = ParsePlayerOption("3:Ann: x:100:c:/a:5.bet");
    EXPECT_EQ(scripted.Value.Name, "Ann: x");
    EXPECT_EQ(scripted.Value.BuyIn, Dollars(100));
    EXPECT_EQ(scripted.Value.Script, "c:/a:5.bet");
    const auto named = ParseNameOption("8:Agent: 7");
    EXPECT_EQ(named.Value.Position, 8);
    EXPECT_EQ(named.Value.Name, "Agent: 7");
    for (const char* wrong : {"", "Ann", "0:Ann", "9:Ann"}) EXPECT_FALSE(ParseNameOption(wrong)) << wrong;

    for (const char* wrong :
         {"", "1", "1:Ann", "9:Ann:100", "1:Ann:much", "x:Ann:5", "1:Ann:100:", "1:Ann:much:x.bet"}) {
        EXPECT_FALSE(ParsePlayerOption(wrong)) << wrong;
    }
    for (const char* wrong : {"1:43", "1:0:5", "1:Nowhere:5", "1:43:-5", "1:43:0", "0:43:5"}) {
        EXPECT_FALSE(ParseBetOption(wrong)) << wrong;
    }
    for (const char* wrong : {"", "MaxFireBet", "=5"}) EXPECT_FALSE(ParseSettingOption(wrong)) << wrong;
}

TEST(CommandLineTest, ShellWordsComeBackAsTheyWere) {
    struct Case {
        const char* Text;
        const char* Word;
    };
    const Case cases[] = {{"1:43:10", "1:43:10"},
                          {"1:Ann Lee:100", "'1:Ann Lee:100'"},
                          {"", "''"},
                          {"Payoff[31]=9 to 5", "'Payoff[31]=9 to 5'"},
                          {"O'Hara", R"('O'\''Hara')"},
                          {"$HOME;`ls`", "'$HOME;`ls`'"}};
    for (const Case& c : cases) EXPECT_EQ(ShellQuoted(c.Text), c.Word);
}

}  // namespace
}  // namespace tarnwick::lab
