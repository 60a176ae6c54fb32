#include "config/payofflines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "config/betlimits.h"
#include "config/payoffs.h"
#include "stats/hot.h"
#include "table/format.h"
#include "table/placement.h"
#include "table/session.h"

namespace tarnwick {
namespace {

class PayoffList : public testing::Test {
  protected:
    void SetUp() override { SetDefaultSettings(t); }
    static const PayoffLine& Line(std::string_view name) {
        const auto& lines = PayoffLines();
        const auto found = std::find_if(lines.begin(), lines.end(), [&](const PayoffLine& line) {
            return line.In != PayoffTable::Heading && line.Name == name;
        });
        EXPECT_NE(found, lines.end()) << name;
        return found == lines.end() ? lines.front() : *found;
    }
    std::string Text(std::string_view name) { return PayoffText(EntryOf(t, Line(name))); }

    Table t;
};

TEST_F(PayoffList, HoldsEachPayoffThatIsReadOnce) {
    std::set<const PayoffEntry*> seen;
    std::set<std::string> names;
    for (const PayoffLine& line : PayoffLines()) {
        if (line.In == PayoffTable::Heading) continue;
        EXPECT_TRUE(seen.insert(&EntryOf(t, line)).second) << line.Name;
        EXPECT_TRUE(names.insert(line.Name).second) << line.Name;
    }
    const auto holds = [&](const PayoffEntry& entry) { return seen.count(&entry) == 1; };
    const std::set<int> paidByOthers = {43, 44, 46, 47, 49, 89, 90, 91};
    for (int row = 1; row <= Row::LastBet; ++row) {
        EXPECT_EQ(holds(t.Payoff[static_cast<std::size_t>(row)]), paidByOthers.count(row) == 0) << row;
    }
    EXPECT_TRUE(std::all_of(t.FieldPayoff.begin() + 1, t.FieldPayoff.end(), holds));
    EXPECT_TRUE(std::all_of(t.SevenPointSevenPayoff.begin() + 1, t.SevenPointSevenPayoff.end(), holds));
    EXPECT_TRUE(std::all_of(t.MidwayPayoff.begin() + 1, t.MidwayPayoff.end(), holds));
    EXPECT_TRUE(std::all_of(t.FirePayoff.begin(), t.FirePayoff.end(), holds));
    for (const char* label : {"Passline/Come (c.o.)", "DP/DC 10", "Pass/Come 6 Odds", "Field -- 8 (4-4)",
                              "7 Point 7 -- Comeout 7", "Midway -- Easy 8", "Fire -- 6 points"}) {
        Line(label);
    }
    EXPECT_EQ(Line("7 Point 7 -- Point 7").Label, "  -- Point 7");
}

TEST_F(PayoffList, WordsChangeWhatIsShownAndNumbersChangeWhatIsPaid) {
    struct Step {
        char Do;  // t, f, blank: the word; 1, 2: a number
        const char* Number;
        const char* Shown;
        int Pays, For;
    };
    const Step steps[] = {
        {'f', "", "16 for 1", 15, 1}, {'f', "", "16 for 1", 15, 1},          {'t', "", "15 to 1", 15, 1},
        {' ', "", "16 for 1", 15, 1}, {'1', "20", "20 for 1", 19, 1},        {'2', "4", "20 for 4", 16, 4},
        {' ', "", "16 to 4", 16, 4},  {'1', "$1,500", "1500 to 4", 1500, 4}, {'2', " 2 ", "1500 to 2", 1500, 2},
    };
    const PayoffLine& line = Line("Hop 13");
    for (const Step& step : steps) {
        if (step.Do == '1' || step.Do == '2') {
            const auto which = step.Do == '1' ? PayoffNumber::First : PayoffNumber::Second;
            EXPECT_EQ(SetPayoffNumber(t, line, which, step.Number).Text, "");
        } else {
            SetPayoffWord(t, line,
                          step.Do == 't'   ? PayoffWord::To
                          : step.Do == 'f' ? PayoffWord::For
                                           : PayoffWord::Other);
        }
        EXPECT_EQ(PayoffText(EntryOf(t, line)), step.Shown);
        EXPECT_EQ(EntryOf(t, line).Pays, Dollars(step.Pays));
        EXPECT_EQ(EntryOf(t, line).For, Dollars(step.For));
    }
    EXPECT_EQ(EntryOf(t, line).Unit, Dollars(1)) << "a unit follows its payoff";
    t.Point = 6;
    SetPayoffWord(t, Line("Pass/Come 6 Odds"), PayoffWord::For);
    EXPECT_EQ(PayoffText(t.Payoff[Row::PassLineOdds]), "11 for 5");
    SetPayoffWord(t, Line("Fire -- 0 points"), PayoffWord::For);
    EXPECT_EQ(Text("Fire -- 0 points"), "-1 to 1");
}

TEST_F(PayoffList, RefusedNumbersLeaveEverything) {
    struct Case {
        const char* Line;
        PayoffNumber Which;
        const char* Number;
        const char* Refusal;
    };
    const auto first = PayoffNumber::First, second = PayoffNumber::Second;
    const Case cases[] = {
        {"Place 6", first, "abc", "\"abc\" is not a number.\nThe payoff on Place 6 is still 7 to 6."},
        {"Place 6", second, "", "\"\" is not a number.\nThe payoff on Place 6 is still 7 to 6."},
        {"Place 6", first, "1e5", "\"1e5\" is not a number.\nThe payoff on Place 6 is still 7 to 6."},
        {"Place 6", second, "0", "The amount bet must be greater than zero."},
        {"Fire -- 4 points", second, "-1", "The amount bet must be greater than zero."},
        {"Place 6", first, "-7", "The payoff on Place 6 must be a positive amount."},
        {"Place 6", first, "10000000", "The numbers of a payoff may not exceed 9,999,999."},
        {"Place 6", second, "9999999.0001", "The numbers of a payoff may not exceed 9,999,999."},
        {"Field -- 2", first, "-922337203685477", "The numbers of a payoff may not exceed 9,999,999."},
    };
    for (const Case& c : cases) {
        const Settings before = t;
        EXPECT_EQ(SetPayoffNumber(t, Line(c.Line), c.Which, c.Number).Text, c.Refusal);
        EXPECT_TRUE(static_cast<const Settings&>(t) == before) << c.Number;
    }
    for (const char* fine : {"0", "9999999", "7.5", "-0.5"}) {
        EXPECT_EQ(SetPayoffNumber(t, Line("Field -- 2"), first, fine).Text, "") << fine;
    }
}

TEST_F(PayoffList, AVigThatCantBePaidRefusesAPayoff) {
    SubMain(t, nullptr);
    t.PlayerName[1] = "Ann";
    t.PlayerCount = 1;
    SetBankroll(t, 1, Dollars(102));
    SetBetAmount(t, 1, Row::Lay4, Dollars(100));  // wins 50
    RecomputeVigs(t);
    ASSERT_EQ(t.BetsOnTable[1], Dollars(102));
    const SettingFault fault = SetPayoffNumber(t, Line("Lay 4"), PayoffNumber::First, "2");
    EXPECT_THAT(fault.Text, testing::StartsWith("You're not allowed to change this setting at this time because you"));
    EXPECT_EQ(Text("Lay 4"), "1 to 2");
    EXPECT_EQ(t.BetsOnTable[1], Dollars(102));
}

TEST_F(PayoffList, FaultsNameTheirLine) {
    struct Case {
        const char* Line;
        const char* Payoff;
        const char* Title;
        const char* Text;
    };
    const Case cases[] = {
        {"Passline/Come (c.o.)", "0 to 1", "Payoff ratio error",
         "The payoff on Passline/Come (c.o.) must be a positive amount."},
        {"Pass/Come 9", "-1 to 1", "Payoff ratio error", "The payoff on Pass/Come 9 must be a positive amount."},
        {"DP/DC 10", "1 for 1", "Payoff ratio error", "The payoff on DP/DC 10 must be a positive amount."},
        {"Don't Pass/Come (c.o.)", "0 to 1", "Payoff ratio error",
         "The payoff on Don't Pass/Come (c.o.) must be a positive amount."},
        {"7 Point 7 -- Point 7", "0 to 1", "Payoff ratio error",
         "The payoffs on SevenPoint7 must be positive amounts."},
        {"Midway -- Easy 8", "-1 to 1", "Payoff ratio error", "The payoffs on Midway must be positive amounts."},
        {"Fire -- 2 points", "-3 to 2", "Payoff error",
         "The loss on any Fire bet payoff cannot exceed the amount wagered."},
        {"Field -- 12", "-1.5 to 1", "Payoff error",
         "The loss on any Field bet payoff cannot exceed the amount wagered."},
    };
    EXPECT_EQ(FirstPayoffFault(t).Line, -1);
    for (const Case& c : cases) {
        PayoffEntry& entry = EntryOf(t, Line(c.Line));
        const PayoffEntry before = entry;
        entry = *ParsePayoff(c.Payoff);
        const PayoffLineFault found = FirstPayoffFault(t);
        EXPECT_EQ(found.Fault.Title, c.Title);
        EXPECT_EQ(found.Fault.Text, c.Text);
        ASSERT_GE(found.Line, 0) << c.Line;
        EXPECT_EQ(PayoffLines()[static_cast<std::size_t>(found.Line)].Name, c.Line);
        entry = before;
    }
    t.FieldPayoff.fill(*ParsePayoff("-1 to 1"));
    EXPECT_EQ(FirstPayoffFault(t).Fault.Text, "At least one of the Field bet payoffs must be postiive.");
    t.FirePayoff.fill(*ParsePayoff("0 to 1"));
    EXPECT_EQ(FirstPayoffFault(t).Fault.Text, "At least one of the Fire bet payoffs must be positive.");
    RestoreDefaultPayoffs(t);
    t.MaxFireBet = {};
    EXPECT_EQ(FirstPayoffFault(t).Line, -1) << "nothing in the list mends this";
}

TEST(BetLimitsTest, StandTogetherOrNotAtAll) {
    struct Case {
        std::int64_t Min, MinProp, Max;  // ten-thousandths
        std::int64_t Check;
        const char* Fault;
    };
    const Case cases[] = {
        {20'000'000, 10'000, 50'000'000, 10'000, ""},  // 2,000 to 5,000: neither alone could follow 1 to 1,000
        {50'000, 50'000, 50'000, 50'000, ""},
        {0, 10'000, 50'000, 10'000, "The minimum bet cannot be less than the smallest check denomination of 1"},
        {10'000, 0, 50'000, 10'000, "The minimum prop bet cannot be less than the smallest check denomination of 1"},
        {70'000, 50'000, 90'000, 50'000,
         "The minimum bet must be some multiple of the smallest check denomination, such as 5,  10,  15,  etc."},
        {50'000, 70'000, 90'000, 50'000,
         "The minimum prop bet must be some multiple of the smallest check denomination, such as 5,  10,  15,  etc."},
        {50'000, 10'000, 40'000, 10'000, "The maximum bet must be greater than or equal to the minimum bet."},
    };
    for (const Case& c : cases) {
        Table t;
        SetDefaultSettings(t);
        t.CheckDenominations[1] = {c.Check};
        t.GameChanged = false;
        const Settings before = t;
        const SettingFault fault = SetBetLimits(t, {{c.Min}, {c.MinProp}, {c.Max}});
        EXPECT_EQ(fault.Text, c.Fault);
        if (fault.Text.empty()) {
            EXPECT_EQ(t.MinPlacardBet, currency{c.Min});
            EXPECT_EQ(t.MinPlacardPropBet, currency{c.MinProp});
            EXPECT_EQ(t.MaxPlacardBet, currency{c.Max});
            EXPECT_TRUE(t.GameChanged);
        } else {
            EXPECT_EQ(fault.Title, "Configuration Limits");
            EXPECT_TRUE(static_cast<const Settings&>(t) == before);
            EXPECT_FALSE(t.GameChanged);
        }
    }
}

}  // namespace
}  // namespace tarnwick
