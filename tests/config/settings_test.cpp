#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "config/configure.h"
#include "config/payoffs.h"
#include "table/format.h"
#include "table/placement.h"
#include "table/screen.h"

namespace tarnwick {
namespace {

using testing::StartsWith;

class SettingsByName : public testing::Test {
  protected:
    void SetUp() override {
        SetDefaultSettings(t);
        t.Front = &screen;
        t.GameChanged = false;
    }
    void Seat(int p, const char* name, int bankroll) {
        t.PlayerName[static_cast<std::size_t>(p)] = name;
        t.Bankroll[static_cast<std::size_t>(p)] = Dollars(bankroll);
        ++t.PlayerCount;
    }
    void Bet(int p, int row, int amount) {
        SetBetAmount(t, p, row, Dollars(amount));
        t.EstablishedBet(p, row) = Dollars(amount);
        RecomputeVigs(t);
    }
    /// Every name with its indexes, as a person would write them all.
    static std::vector<std::string> AllNames() {
        std::vector<std::string> names;
        for (const SettingInfo& info : AllSettings()) {
            const std::string name(info.Name);
            if (info.LastIndex < info.FirstIndex) names.push_back(name);
            for (int i = info.FirstIndex; i <= info.LastIndex; ++i) {
                const std::string indexed = name + "[" + std::to_string(i) + "]";
                if (info.LastIndex2 < info.FirstIndex2) names.push_back(indexed);
                for (int j = info.FirstIndex2; j <= info.LastIndex2; ++j) {
                    names.push_back(indexed + "[" + std::to_string(j) + "]");
                }
            }
        }
        return names;
    }

    Table t;
    SilentScreen screen;
};

TEST_F(SettingsByName, DefaultsOfAFreshProgram) {
    const char* const defaults[][2] = {
        {"MinPlacardBet", "1"},
        {"MinPlacardPropBet", "1"},
        {"MaxPlacardBet", "1000"},
        {"MaxPropBetPayoff", "3000"},
        {"MaxOddsBet", "3000"},
        {"OddsAllowed410", "2"},
        {"OddsAllowed59", "2"},
        {"OddsAllowed68", "2.5"},
        {"OddsCalcMethod", "0"},
        {"ShooterBetRequirement", "1"},
        {"BarDont", "12"},
        {"AllowPutBets", "true"},
        {"ReturnAbandonedBets", "false"},
        {"UseBig68", "true"},
        {"UseSpecialPropBets", "true"},
        {"UseMidwayBet", "true"},
        {"UseFireBet", "true"},
        {"MaxFireBet", "5"},
        {"LayVigRate", "0.05"},
        {"LayVigOnAllBets", "true"},
        {"LayVigRounding", "0"},
        {"BuyVigRate", "0.05"},
        {"BuyVigOnAllBets", "true"},
        {"BuyVigRounding", "0"},
        {"CheckDenominations", "1,5,25,100,500"},
        {"UseCentsSymbol", "true"},
        {"AutoArrangeChips", "true"},
        {"RollsPerHour", "120"},
        {"DieFacePicture", "2"},
        {"CheckPicture", "1"},
        {"TableColors[0]", "803800"},
        {"TableColors[2]", "77BBFF"},
        {"TableColors[4]", "E19C48"},
        {"TableColors[5]", "0000FF"},
        {"TableColors[11]", "00FFFF"},
        {"TableColors[14]", "77BBFF"},
        {"TableColors[16]", "000000"},
        {"TableColors[17]", "FFFFFF"},
        {"TableColors[42]", "FFFFFF"},
        {"TableColorOptions[2]", "6"},
        {"TableColorOptions[4]", "0"},
        {"CompRate", "30"},
        {"CompBase", "0"},
        {"CompsUseTrueProbs", "true"},
        {"CompBetMasks[1]", "C0FC0FFF"},
        {"CompBetMasks[2]", "FFFF6FFF"},
        {"CompBetMasks[3]", "FFFFFFFF"},
        {"CountZeroOutcomes", "false"},
        {"ShowMiscData", "false"},
        {"RngIndex", "1"},
        {"ReSeedNewSessions", "true"},
        {"NotifyBits", "15"},
        {"PrintColors[0]", "9"},
        {"PrintColors[2]", "13"},
        {"AtmAmount[1]", "500"},
        {"AtmAmount[8]", "500"},
        {"BankrollStartAmount[3]", "0"},
        {"AllowNegativeBankroll[8]", "false"},
        {"RollsOutOf", "36"},
        {"AutoRollDelay", "1"},
        {"EventsLogOn", "false"},
        {"RecordBankrollChanges", "true"},
        {"ClearLogOnNewSession", "false"},
        {"KeepLatestRollOnTop", "true"},
        {"WinnerHandling[4]", "0"},
        {"Payoff[33]", "7 to 6"},
        {"FirePayoff[6]", "999 to 1"},
    };
    for (const auto& [name, text] : defaults) EXPECT_EQ(SettingText(t, name), text) << name;
    for (int p = 0; p < Positions; ++p) {
        for (int row = 1; row <= Row::LastBet; ++row) {
            const bool off = (25 <= row && row <= 42) || row == 44 || row == 45 || row == 47 || row == 48;
            EXPECT_EQ(t.ComeOutWorking(p, row), off ? 0 : 1) << p << " " << row;
        }
    }
    EXPECT_EQ(CheckDenominationFault(t).Text + LimitFault(t).Text + RollRateFault(t).Text + PayoffFault(t).Text, "");
}

TEST_F(SettingsByName, DefaultsComeBackWhole) {
    const Settings fresh = t;
    ASSERT_EQ(SetSetting(t, "BuyVigRate", "10%"), "");
    ASSERT_EQ(SetSetting(t, "ComeOutWorking[31]", "yes"), "");
    ASSERT_EQ(SetSetting(t, "TableColors[42]", "123456"), "");
    ASSERT_EQ(SetSetting(t, "MidwayPayoff[3]", "3 to 2"), "");
    Seat(2, "Ann", 1000);
    Bet(2, Row::Buy4, 100);
    EXPECT_EQ(t.BetsOnTable[2], Dollars(110));
    SetDefaultSettings(t);
    EXPECT_EQ(static_cast<const Settings&>(t), fresh);
    EXPECT_EQ(t.BetsOnTable[2], Dollars(105));  // 5 % again
}

// Whatever SettingText shows is taken by SetSetting, on a table that stands elsewhere.
TEST_F(SettingsByName, EveryTextReadsBack) {
    Table other;
    SetDefaultSettings(other);
    const std::vector<std::string> names = AllNames();
    EXPECT_GT(names.size(), 1000u);
    ASSERT_EQ(SetSetting(t, "CheckDenominations", "0.5,2.5,25,100,500"), "");
    ASSERT_EQ(SetSetting(t, "MaxFireBet", "7.5"), "");
    ASSERT_EQ(SetSetting(t, "MinPlacardBet", "10"), "");
    int changed = 0;
    for (const std::string& name : names) {
        // another value than the one that stands, where one is easily had
        const std::string text = SettingText(t, name);
        ASSERT_NE(text, "") << name;
        for (const char* value : {"true", "false", "2", "5", "0.0475", "00FF12", "12 for 5"}) {
            if (name.compare(0, 8, "CheckDen") == 0) break;
            if (value != text && SetSetting(t, name, value).empty() && SettingText(t, name) != text) {
                ++changed;
                break;
            }
        }
    }
    EXPECT_GT(changed, 900);
    ASSERT_EQ(SetSetting(other, "CheckDenominations", SettingText(t, "CheckDenominations")), "");
    for (const std::string& name : names) {
        const std::string text = SettingText(t, name);
        EXPECT_EQ(SetSetting(other, name, text), "") << name << " " << text;
        EXPECT_EQ(SettingText(other, name), text) << name;
    }
    EXPECT_EQ(static_cast<const Settings&>(other), static_cast<const Settings&>(t));
}

TEST_F(SettingsByName, ValuesAsPeopleWriteThem) {
    const char* const cases[][3] = {
        {"maxplacardbet", " $2,500 ", "2500"},
        {"AllowPutBets", "NO", "false"},
        {"AllowPutBets", "-1", "true"},
        {"AllowPutBets", "off", "false"},
        {"AllowPutBets", "1", "true"},
        {"AllowPutBets", "0", "false"},
        {"BarDont", "2", "2"},
        {"LayVigRate", "4.75%", "0.0475"},
        {"LayVigRate", "0.1", "0.1"},
        {"TableColors[3]", "#0a0b0c", "0A0B0C"},
        {"TableColors[3]", "&HFF", "0000FF"},
        {"HandleAmount[3][7]", "12.5", "12.5"},
        {"HandleUnit[3,7]", "6", "6"},
        {"HandleUnit [ 3 , 6 ]", "5", "5"},
        {"Payoff[56]", "31 for 1", "31 for 1"},
        {"Payoff[71]", "29.5 to 1", "29.5 to 1"},
        {"FieldPayoff[5]", "0 to 1", "0 to 1"},
        {"FieldPayoff[6]", "-1 to 2", "-1 to 2"},
        {"FirePayoff[3]", "6 to 1", "6 to 1"},
        {"CheckDenominations", " 1, 10 ,50,100 , 1000", "1,10,50,100,1000"},
        {"CheckDenominations[2]", "5", "5"},
        {"RollsPerHour", "36,000,000", "36000000"},
        {"AutoRollDelay", "0.25", "0.25"},
        {"RollsOutOf", "1296", "1296"},
        {"AutoStopRolls", "100000", "100000"},
    };
    for (const auto& [name, value, text] : cases) {
        EXPECT_EQ(SetSetting(t, name, value), "") << name << " " << value;
        EXPECT_EQ(SettingText(t, name), text) << name;
    }
    EXPECT_TRUE(t.GameChanged);
    EXPECT_EQ(t.Payoff[56].Pays, Dollars(30));
    EXPECT_EQ(t.Payoff[71].Unit, Dollars(2));  // 59 to 2
}

TEST_F(SettingsByName, RefusalsLeaveEverything) {
    const std::string multiple = "must be some multiple of the smallest check denomination, such as 5,  10,  15,  etc.";
    const struct {
        const char* Name;
        const char* Value;
        std::string Refusal;
    } cases[] = {
        {"Nonsense", "1", "There is no setting called \"Nonsense\"."},
        {"", "1", "There is no setting called \"\"."},
        {"MaxPlacardBet[1]", "5", "MaxPlacardBet takes no index."},
        {"AtmAmount", "5", "AtmAmount takes an index from 1 to 8, as AtmAmount[1]."},
        {"AtmAmount[0]", "5", "AtmAmount takes an index from 1 to 8, as AtmAmount[1]."},
        {"AtmAmount[9]", "5", "AtmAmount takes an index from 1 to 8, as AtmAmount[1]."},
        {"AtmAmount[1][1]", "5", "AtmAmount takes an index from 1 to 8, as AtmAmount[1]."},
        {"AtmAmount[1", "5", "AtmAmount takes an index from 1 to 8, as AtmAmount[1]."},
        {"AtmAmount[x]", "5", "AtmAmount takes an index from 1 to 8, as AtmAmount[1]."},
        {"AtmAmount[1]x", "5", "AtmAmount takes an index from 1 to 8, as AtmAmount[1]."},
        {"FirePayoff[0]", "1 to 1", "FirePayoff takes an index from 1 to 6, as FirePayoff[1]."},
        {"HandleUnit[1][8]", "5", "HandleUnit takes two indexes, from 1 to 8 and from 0 to 7, as HandleUnit[1][0]."},
        {"HandleUnit[1]", "5", "HandleUnit takes two indexes, from 1 to 8 and from 0 to 7, as HandleUnit[1][0]."},
        {"HandleUnit[1,2,3]", "5", "HandleUnit takes two indexes, from 1 to 8 and from 0 to 7, as HandleUnit[1][0]."},
        {"ComeOutWorking[92]", "1",
         "ComeOutWorking takes two indexes, from 0 to 8 and from 1 to 91, as ComeOutWorking[0][1]."},
        {"ComeOutWorking[9][1]", "1",
         "ComeOutWorking takes two indexes, from 0 to 8 and from 1 to 91, as ComeOutWorking[0][1]."},
        {"ComeOutWorking[31]", "2", "ComeOutWorking takes true or false, not \"2\"."},
        {"AllowPutBets", "maybe", "AllowPutBets takes true or false, not \"maybe\"."},
        {"MaxPlacardBet", "lots", "MaxPlacardBet takes an amount, not \"lots\"."},
        {"MaxOddsBet", "-1", "MaxOddsBet must be from 0 to 999999999."},
        {"MaxOddsBet", "922337203685478", "MaxOddsBet takes an amount, not \"922337203685478\"."},
        {"OddsCalcMethod", "6", "OddsCalcMethod must be from 0 to 5."},
        {"OddsCalcMethod", "2.5", "OddsCalcMethod takes a whole number, not \"2.5\"."},
        {"BarDont", "3", "BarDont must be 2 or 12."},
        {"LayVigRate", "150%", "LayVigRate must be from 0 to 1."},
        {"LayVigRate", "%", "LayVigRate takes a fraction or a percentage, not \"%\"."},
        {"AutoStopRolls", "2.5", "AutoStopRolls must be a whole number from 0 to 999999999."},
        {"AutoRollDelay", "301", "AutoRollDelay must be from 0 to 300."},
        {"TableColors[1]", "red", "TableColors takes a color from 000000 to FFFFFF in hexadecimal, not \"red\"."},
        {"TableColors[1]", "1000000",
         "TableColors takes a color from 000000 to FFFFFF in hexadecimal, not \"1000000\"."},
        {"Payoff[31]", "9:5", "Payoff takes a payoff such as \"30 to 1\" or \"31 for 1\", not \"9:5\"."},
        {"Payoff[31]", "0 to 5", "The payoff on Place 4 must be a positive amount."},
        {"Payoff[58]", "1 for 1", "The payoff on Seven must be a positive amount."},
        {"Payoff[44]", "3 to 1", "Pass Line Odds is paid by Payoff[25] to Payoff[30], by the point."},
        {"Payoff[49]", "3 to 1", "Field is paid by FieldPayoff."},
        {"CheckDenominations", "1,5,25,100", "CheckDenominations takes five amounts, as 1,5,25,100,500."},
        {"CheckDenominations", "1,5,25,100,500,1000", "CheckDenominations takes five amounts, as 1,5,25,100,500."},
        // the checks of the configuration
        {"CheckDenominations", "0,5,25,100,500", "Check values must be greater than zero."},
        {"CheckDenominations[3]", "-25", "Check values must be greater than zero."},
        {"CheckDenominations[2]", "25",
         "Checks must be listed in ascending order with the smallest valued check in the leftmost position."},
        {"CheckDenominations", "2,5,25,100,500", "All checks must be wholly divisible by the smallest check."},
        {"CheckDenominations", "5,25,100,500,1000",
         "The minimum bet cannot be less than the smallest check denomination of 5"},
        {"MinPlacardBet", "0.5", "The minimum bet cannot be less than the smallest check denomination of 1"},
        {"MinPlacardBet", "-5", "The minimum bet cannot be less than the smallest check denomination of 1"},
        {"MinPlacardPropBet", "0", "The minimum prop bet cannot be less than the smallest check denomination of 1"},
        {"MinPlacardPropBet", "1.5",
         "The minimum prop bet must be some multiple of the smallest check denomination, such as 1,  2,  3,  etc."},
        {"MinPlacardBet", "1001", "The maximum bet must be greater than or equal to the minimum bet."},
        {"MaxPlacardBet", "0", "The maximum bet must be greater than or equal to the minimum bet."},
        {"RollsPerHour", "0", "The simulated roll rate must be greater than zero."},
        {"RollsPerHour", "36000000.0001", "The maximum simulated Rolls / hr rate is 36,000,000."},
        {"MaxFireBet", "0", "The max Fire bet must be greater than zero."},
        {"Payoff[45]", "0 to 1", "The payoff on Come must be a positive amount."},
        {"SevenPointSevenPayoff[1]", "0 to 1", "The payoffs on SevenPoint7 must be positive amounts."},
        {"MidwayPayoff[3]", "-1 to 1", "The payoffs on Midway must be positive amounts."},
        {"FirePayoff[1]", "-3 to 2", "The loss on any Fire bet payoff cannot exceed the amount wagered."},
        {"FieldPayoff[9]", "-2 to 1", "The loss on any Field bet payoff cannot exceed the amount wagered."},
    };
    const Settings before = t;
    for (const auto& c : cases) {
        EXPECT_EQ(SetSetting(t, c.Name, c.Value), c.Refusal) << c.Name << " = " << c.Value;
        ASSERT_EQ(static_cast<const Settings&>(t), before) << c.Name << " = " << c.Value;
    }
    EXPECT_FALSE(t.GameChanged);
    for (const char* name : {"Nonsense", "AtmAmount", "AtmAmount[9]", "FirePayoff[0]", "MaxPlacardBet[1]"}) {
        EXPECT_EQ(SettingText(t, name), "") << name;
    }
    // With a larger check the multiples in the text follow it.
    for (const char* set : {"MinPlacardBet", "MinPlacardPropBet"}) ASSERT_EQ(SetSetting(t, set, "5"), "");
    ASSERT_EQ(SetSetting(t, "CheckDenominations", "5,25,100,500,1000"), "");
    EXPECT_EQ(SetSetting(t, "MinPlacardBet", "7"), "The minimum bet " + multiple);
    EXPECT_EQ(SetSetting(t, "MinPlacardPropBet", "12"), "The minimum prop bet " + multiple);
}

TEST_F(SettingsByName, ChecksHaveTheirTitles) {
    t.CheckDenominations[2] = {};
    EXPECT_EQ(CheckDenominationFault(t).Title, "Check Values");
    t.MinPlacardBet = {};
    EXPECT_EQ(LimitFault(t).Title, "Configuration Limits");
    t.RollsPerHour = Dollars(36'000'001);
    const char* const rates[] = {"Rolls / hr rate is 36,000,000.", "Rolls / min rate is 600,000.",
                                 "Rolls / sec rate is 10,000.",    "Hrs / roll rate is 36,000,000.",
                                 "Mins / roll rate is 600,000.",   "Secs / roll rate is 10,000."};
    for (t.RollRateUnit = 0; t.RollRateUnit <= 5; ++t.RollRateUnit) {
        const std::string rate = rates[t.RollRateUnit];
        EXPECT_EQ(RollRateFault(t).Text, "The maximum simulated " + rate);
        EXPECT_EQ(RollRateFault(t).Title, "Sim Roll Rate Out Of Limits");
    }
    const struct {
        PayoffEntry* Entry;
        const char* Title;
        const char* Text;
    } payoffs[] = {
        {&t.FieldPayoff[1], "Payoff error", "The loss on any Field bet payoff cannot exceed the amount wagered."},
        {&t.FirePayoff[6], "Payoff error", "The loss on any Fire bet payoff cannot exceed the amount wagered."},
        {&t.MidwayPayoff[5], "Payoff ratio error", "The payoffs on Midway must be positive amounts."},
        {&t.SevenPointSevenPayoff[2], "Payoff ratio error", "The payoffs on SevenPoint7 must be positive amounts."},
        {&t.Payoff[12], "Payoff ratio error", "The payoff on DP/DC 10 must be a positive amount."},
        {&t.Payoff[7], "Payoff ratio error", "The payoff on DP/DC 4 must be a positive amount."},
        {&t.Payoff[48], "Payoff ratio error", "The payoff on Don't Pass/Come (c.o.) must be a positive amount."},
        {&t.Payoff[22], "Payoff ratio error", "The payoff on Pass/Come 8 must be a positive amount."},
        {&t.Payoff[45], "Payoff ratio error", "The payoff on Passline/Come (c.o.) must be a positive amount."},
    };
    for (const auto& c : payoffs) {  // each comes ahead of the one before it
        c.Entry->Pays = Dollars(-2);
        EXPECT_EQ(PayoffFault(t).Title, c.Title);
        EXPECT_EQ(PayoffFault(t).Text, c.Text);
    }
    SetDefaultSettings(t);
    for (std::size_t i = 1; i <= 21; ++i) t.FieldPayoff[i] = *ParsePayoff("0 to 1");
    EXPECT_EQ(PayoffFault(t).Text, "At least one of the Field bet payoffs must be postiive.");
    for (std::size_t i = 1; i <= 6; ++i) t.FirePayoff[i] = *ParsePayoff("-1 to 1");
    EXPECT_EQ(PayoffFault(t).Text, "At least one of the Fire bet payoffs must be positive.");
    t.MaxFireBet = {};
    EXPECT_EQ(PayoffFault(t).Title, "Max Fire Bet");
}

// A file may bring several faults; they can be mended one at a time, but none may be added.
TEST_F(SettingsByName, FaultsOfAFileAreMendedOneByOne) {
    t.MinPlacardBet = currency{5'000};
    t.MinPlacardPropBet = currency{5'000};
    EXPECT_EQ(SetSetting(t, "MaxPlacardBet", "0.25"),
              "The minimum bet cannot be less than the smallest check denomination of 1");
    EXPECT_EQ(SetSetting(t, "MinPlacardPropBet", "2"), "");
    EXPECT_EQ(SetSetting(t, "MinPlacardBet", "-2"),
              "The minimum bet cannot be less than the smallest check denomination of 1");
    EXPECT_EQ(SetSetting(t, "MinPlacardBet", "2"), "");
    EXPECT_EQ(LimitFault(t).Text, "");
}

TEST_F(SettingsByName, ComeOutListOfAllPositionsOrOne) {
    ASSERT_EQ(SetSetting(t, "ComeOutWorking[31]", "yes"), "");
    for (int p = 0; p < Positions; ++p) EXPECT_EQ(t.ComeOutWorking(p, 31), 1);
    ASSERT_EQ(SetSetting(t, "ComeOutWorking[4][31]", "no"), "");
    for (int p = 0; p < Positions; ++p) EXPECT_EQ(t.ComeOutWorking(p, 31), p == 4 ? 0 : 1);
    EXPECT_EQ(SettingText(t, "ComeOutWorking[4,31]"), "0");
    EXPECT_EQ(SettingText(t, "ComeOutWorking[31]"), "1");  // the table's own
    ASSERT_EQ(SetSetting(t, "ComeOutWorking[0][31]", "0"), "");
    EXPECT_EQ(t.ComeOutWorking(0, 31), 0);
    EXPECT_EQ(t.ComeOutWorking(1, 31), 1);
}

TEST_F(SettingsByName, MissingGeneratorsGiveWay) {
    const int cases[][3] = {{1, 0, 3}, {1, 5, 3}, {1, 7, 3}, {1, 1, 1}, {1, 6, 6},
                            {2, 1, 3}, {2, 6, 3}, {2, 0, 0}, {0, 7, 7}, {3, 4, 4}};
    for (const auto& [missing, wanted, taken] : cases) {
        t.MissingRngLibraries = missing;
        t.RngIndex = 2;
        EXPECT_EQ(SetSetting(t, "RngIndex", std::to_string(wanted)), "");
        EXPECT_EQ(t.RngIndex, taken) << missing << " " << wanted;
    }
}

TEST_F(SettingsByName, OptionsAskBeforeTheyTakeBetsDown) {
    const std::string ending = "with this operation.  Would you like to continue?";
    const struct {
        const char* Name;
        std::vector<int> Rows;
        const char* Title;
        std::string Text;
    } options[] = {
        {"UseBig68",
         {50, 51},
         "Remove Big 6 / Big 8 Bets",
         "There are presently bets on the Big 6 and/or Big 8 which will be removed if you continue "},
        {"UseFireBet",
         {91},
         "Remove Fire Bets",
         "There are presently wagers on the Fire bet which will be removed if you continue "},
        {"UseMidwayBet",
         {90},
         "Remove Midway Bets",
         "There are currently Midway bets present which will be removed if you continue "},
        {"UseSpecialPropBets",
         {84, 85, 86, 87, 88, 89},
         "Remove Multi-roll Prop Bets",
         "There are presently wagers on one or more of the multi-roll prop bets: All Small, All Tall, Make All, "
         "Four Rolls No 7, or Point 7 bets which will be removed if you continue "},
    };
    Seat(3, "Ann", 1000);
    Seat(8, "Bob", 1000);
    t.Point = 6;  // 7 Point 7 is a contract now
    Bet(3, Row::PassLine, 10);
    for (const auto& option : options) {
        EXPECT_TRUE(AskSwitchOption(t, option.Name, false));  // no bet: no question
        EXPECT_TRUE(AskSwitchOption(t, option.Name, true));
        EXPECT_TRUE(screen.Shown.empty());
        for (const int row : option.Rows) {
            Bet(3, row, 5);
            Bet(8, row, 7);
        }
        const currency standing = t.BetsOnTable[3];
        screen.Answers.push_back({MsgAnswer::No, {}, false});
        EXPECT_FALSE(AskSwitchOption(t, option.Name, false));
        EXPECT_EQ(SettingText(t, option.Name), "true");
        EXPECT_EQ(t.BetsOnTable[3], standing);
        ASSERT_EQ(screen.Shown.size(), 1u);
        EXPECT_EQ(screen.Shown[0].Title, option.Title);
        EXPECT_EQ(screen.Shown[0].Text, option.Text + ending);
        screen.Answers.push_back({MsgAnswer::Yes, {}, false});
        EXPECT_TRUE(AskSwitchOption(t, option.Name, false));
        EXPECT_EQ(SettingText(t, option.Name), "false");
        for (const int row : option.Rows) {
            EXPECT_FALSE(AnyBetOn(t, row)) << row;
            EXPECT_EQ(t.EstablishedBet(3, row), currency{});
        }
        EXPECT_EQ(t.BetsOnTable[3], Dollars(10));
        EXPECT_EQ(t.BetsOnTable[8], currency{});
        EXPECT_EQ(t.Bankroll[8], Dollars(1000));
        ASSERT_EQ(SetSetting(t, option.Name, "on"), "");
        screen.Shown.clear();
    }
    EXPECT_FALSE(AskSwitchOption(t, "AllowPutBets", false));
    Bet(3, Row::Fire, 5);
    ASSERT_EQ(SetSetting(t, "UseFireBet", "false"), "");  // by name nobody is asked
    EXPECT_EQ(t.BetsOnTable[3], Dollars(10));
}

TEST_F(SettingsByName, VigFollowsItsSettings) {
    Seat(1, "Ann", 1000);
    Bet(1, Row::Buy4, 100);  // vig 5
    Bet(1, Row::Lay4, 80);   // wins 40: vig 2
    ASSERT_EQ(t.BetsOnTable[1], Dollars(187));
    const struct {
        const char* Name;
        const char* Value;
        int OnTable;
    } steps[] = {
        {"BuyVigRate", "0.07", 189},        // 7 + 2
        {"LayVigOnAllBets", "false", 187},  // only the 7
        {"BuyVigOnAllBets", "false", 180}, {"LayVigOnAllBets", "true", 182},
        {"LayVigRate", "5.6%", 182},   // 2.24: 2
        {"LayVigRounding", "2", 183},  // up
        {"Payoff[1]", "1 to 1", 185},  // wins 80: 4.48, up to 5
        {"BuyVigOnAllBets", "true", 192},  {"MinPlacardBet", "5", 192},
        {"MinPlacardPropBet", "5", 192},   {"CheckDenominations", "5,25,100,500,1000", 190},  // 5 (7 in fives) + 5
    };
    for (const auto& step : steps) {
        ASSERT_EQ(SetSetting(t, step.Name, step.Value), "") << step.Name;
        EXPECT_EQ(t.BetsOnTable[1], Dollars(step.OnTable)) << step.Name;
        EXPECT_EQ(t.BetsOnTable[1], BetsOnTableOf(t, 1)) << step.Name;
    }
}

TEST_F(SettingsByName, VigBeyondABankrollIsRefused) {
    const std::string alone =
        "You're not allowed to change this setting at this time because you don't have enough bankroll remaining to "
        "pay the added up-front vig that would be required.\n"
        "You can remedy this by doing one or more of the following:\n"
        " -- Make a withdrawal from the ATM\n -- Reduce the amount on current bets\n"
        " -- Check Allow negative bankroll amounts";
    const std::string several =
        "You're not allowed to change this setting at this time because one or more players doesn't have enough "
        "bankroll remaining to pay the added up-front vig that would be required.\n"
        "This can be remedied by doing one or more of the following:\n"
        " -- Make a withdrawal from the ATM\n -- Reduce the amount on current bets\n"
        " -- Check Allow negative bankroll amounts";
    ASSERT_EQ(SetSetting(t, "BuyVigOnAllBets", "false"), "");
    Seat(1, "Ann", 104);
    Bet(1, Row::Buy4, 100);
    t.GameChanged = false;
    const Settings before = t;
    EXPECT_EQ(SetSetting(t, "BuyVigOnAllBets", "true"), alone);
    Seat(2, "Bob", 1000);
    Bet(2, Row::Buy4, 100);
    EXPECT_EQ(SetSetting(t, "BuyVigOnAllBets", "true"), several);
    EXPECT_EQ(static_cast<const Settings&>(t), before);
    EXPECT_EQ(t.BetsOnTable[1], Dollars(100));
    EXPECT_EQ(t.BetsOnTable[2], Dollars(100));
    EXPECT_FALSE(t.GameChanged);
    ASSERT_EQ(SetSetting(t, "BuyVigRate", "0.04"), "");
    EXPECT_EQ(SetSetting(t, "BuyVigOnAllBets", "true"), "");  // 4 is just there
    EXPECT_EQ(t.BetsOnTable[1], Dollars(104));
    EXPECT_EQ(SetSetting(t, "BuyVigRate", "0.05"), several);
    EXPECT_EQ(t.BetsOnTable[1], Dollars(104));
    ASSERT_EQ(SetSetting(t, "AllowNegativeBankroll[1]", "true"), "");
    EXPECT_EQ(SetSetting(t, "BuyVigRate", "0.05"), "");
    EXPECT_EQ(t.BetsOnTable[1], Dollars(105));
}

TEST_F(SettingsByName, NegativeBankrollsMustBeMendedFirst) {
    Seat(2, "Ann", -50);
    t.AllowNegativeBankroll[2] = true;
    EXPECT_EQ(SetSetting(t, "AllowNegativeBankroll[2]", "false"),
              "Before you can un-check this box, Ann must have a non-negative bankroll. Some options:\n"
              " -- Win some more money first, or\n -- Make a withdrawal from the ATM.");
    t.Bankroll[2] = Dollars(1000);
    Bet(2, Row::PassLine, 2500);
    EXPECT_EQ(SetSetting(t, "AllowNegativeBankroll[2]", "false"),
              "The amount of Ann's current bets exceeds his/her current bankroll.\n"
              "Therefore, before you can un-check this box, Ann must either:\n"
              " -- Reduce the amount of his/her current bets, or \n"
              " -- Make at least a $1,500 withdrawal from the ATM.");
    EXPECT_EQ(NegativeBankrollFault(t, 2).Title, "Bankroll");
    EXPECT_TRUE(t.AllowNegativeBankroll[2]);
    t.Bankroll[2] = Dollars(2500);
    EXPECT_EQ(SetSetting(t, "AllowNegativeBankroll[2]", "false"), "");
    EXPECT_EQ(BankrollTabFault(t).Text, "");
    t.PlayerCount = 0;
    EXPECT_EQ(BankrollTabFault(t).Title, "No Players");
}

TEST_F(SettingsByName, RestoringAsksAndPutsVigsRight) {
    Seat(1, "Ann", 1000);
    ASSERT_EQ(SetSetting(t, "Payoff[1]", "1 to 1"), "");
    Bet(1, Row::Lay4, 80);
    ASSERT_EQ(t.BetsOnTable[1], Dollars(84));
    screen.Answers.push_back({MsgAnswer::No, {}, false});
    EXPECT_FALSE(AskRestoreDefaultPayoffs(t));
    EXPECT_EQ(SettingText(t, "Payoff[1]"), "1 to 1");
    screen.Answers.push_back({MsgAnswer::Yes, {}, false});
    EXPECT_TRUE(AskRestoreDefaultPayoffs(t));
    EXPECT_EQ(SettingText(t, "Payoff[1]"), "1 to 2");
    EXPECT_EQ(t.BetsOnTable[1], Dollars(82));
    EXPECT_EQ(screen.Shown[0].Title, "Restore Default Payoffs");
    EXPECT_EQ(screen.Shown[0].Text, "Do you want to restore all payoffs to \ntheir original Tarnwick settings?");

    ASSERT_EQ(SetSetting(t, "CheckDenominations", "0.25,1,5,25,100"), "");
    t.Bankroll[1] = t.BetsOnTable[1];
    ASSERT_EQ(SetSetting(t, "LayVigRate", "0.0307"), "");  // 1.228: five quarters
    ASSERT_EQ(t.BetsOnTable[1], currency{812'500});
    t.Bankroll[1] = t.BetsOnTable[1];
    ASSERT_EQ(SetSetting(t, "LayVigRounding", "1"), "");  // four
    t.Bankroll[1] = currency{805'000};                    // can't be, but asks for no vig at all
    screen.Answers.push_back({MsgAnswer::Yes, {}, false});
    EXPECT_TRUE(AskRestoreDefaultDenominations(t));  // one check of 1: no more than four quarters
    EXPECT_EQ(screen.Shown.back().Title, "Restore Default Denominations");
    EXPECT_EQ(screen.Shown.back().Text, "Do you want to restore all checks to their original Tarnwick values?");
    EXPECT_EQ(SettingText(t, "CheckDenominations"), "1,5,25,100,500");
    ASSERT_EQ(SetSetting(t, "CheckDenominations", "0.25,1,5,25,100"), "");
    ASSERT_EQ(SetSetting(t, "LayVigRate", "0.01"), "");  // 0.40: one quarter
    t.Bankroll[1] = t.BetsOnTable[1];
    screen.Answers.push_back({MsgAnswer::Yes, {}, false});
    screen.Answers.push_back({MsgAnswer::Ok, {}, false});
    EXPECT_FALSE(AskRestoreDefaultDenominations(t));  // a whole check would be due
    EXPECT_THAT(screen.Shown.back().Text, StartsWith("You're not allowed to change this setting"));
    EXPECT_EQ(SettingText(t, "CheckDenominations"), "0.25,1,5,25,100");
    EXPECT_EQ(t.BetsOnTable[1], currency{802'500});
}

TEST_F(SettingsByName, FiveChecksAreTakenTogetherOrNotAtAll) {
    struct Case {
        std::array<int, 5> Checks;
        const char* Title;
        const char* Text;
    };
    const char* const limits = "Configuration Limits";
    const Case cases[] = {
        {{0, 5, 25, 100, 500}, "Check Values", "Check values must be greater than zero."},
        {{5, 1, 25, 100, -1}, "Check Values", "Check values must be greater than zero."},
        {{5, 1, 25, 100, 500}, "Check Values", "Checks must be listed in ascending order with the "},
        {{2, 5, 26, 100, 500}, "Check Values", "All checks must be wholly divisible by the smallest check."},
        {{5, 10, 25, 100, 500}, limits, "The minimum bet cannot be less than the smallest check denomination of 5"},
        {{1, 2, 20, 50, 1000}, "", ""},
    };
    const auto original = t.CheckDenominations;
    for (const Case& c : cases) {
        t.GameChanged = false;
        std::array<currency, 6> checks{};
        for (std::size_t i = 0; i < 5; ++i) checks[i + 1] = Dollars(c.Checks[i]);
        const SettingFault fault = SetCheckDenominations(t, checks);
        EXPECT_EQ(fault.Title, c.Title);
        EXPECT_THAT(fault.Text, StartsWith(c.Text));
        const bool taken = *c.Text == '\0';
        EXPECT_EQ(t.CheckDenominations, taken ? checks : original) << c.Text;
        EXPECT_EQ(t.GameChanged, taken) << c.Text;
    }
}

TEST_F(SettingsByName, ChecksCanBeSetRightBesideLimitsThatWereWrongBefore) {
    t.MaxPlacardBet = {};
    EXPECT_EQ(SetCheckDenominations(t, {{{}, Dollars(1), Dollars(2), Dollars(4), Dollars(8), Dollars(16)}}).Text, "");
    EXPECT_EQ(t.CheckDenominations[5], Dollars(16));
}

TEST_F(SettingsByName, ARollRateIsTakenInItsUnitWithinItsLimits) {
    struct Case {
        int Unit;
        currency Typed;
        const char* Fault;  ///< how it begins
        currency PerHour;
    };
    const Case cases[] = {
        {0, Dollars(36'000'000), "", Dollars(36'000'000)},
        {0, Dollars(36'000'001), "The maximum simulated Rolls / hr rate is 36,000,000.", {}},
        {1, Dollars(600'000), "", Dollars(36'000'000)},
        {2, Dollars(10'001), "The maximum simulated Rolls / sec rate is 10,000.", {}},
        {5, Dollars(30), "", Dollars(120)},
        {4, currency{5'000}, "", Dollars(120)},
        {3, {}, "The simulated roll rate must be greater than zero.", {}},
        {0, Dollars(-1), "The simulated roll rate must be greater than zero.", {}},
        {3, currency{INT64_MAX}, "The simulated roll rate must be greater than zero.", {}},
        {2, currency{INT64_MAX}, "The maximum simulated Rolls / sec", {}},
    };
    for (const Case& c : cases) {
        t.RollsPerHour = Dollars(77);
        t.RollRateUnit = c.Unit;
        t.GameChanged = false;
        EXPECT_THAT(SetRollRate(t, c.Typed).Text, StartsWith(c.Fault));
        const bool taken = *c.Fault == '\0';
        EXPECT_EQ(t.RollsPerHour, taken ? c.PerHour : Dollars(77)) << RollRateUnitText(c.Unit);
        EXPECT_EQ(t.GameChanged, taken) << RollRateUnitText(c.Unit);
    }
}

TEST(RollRates, InTheUnitsOfTheList) {
    struct Case {
        const char* Typed;
        int Unit;
        const char* PerHour;
        const char* Shown;
    };
    const Case cases[] = {
        {"120", 0, "120", "120"},  {"2", 1, "120", "2"},    {"0.5", 2, "1800", ".50"},       {"0.25", 3, "4", ".25"},
        {"0.5", 4, "120", ".50"},  {"30", 5, "120", "30"},  {"0.0001", 3, "10000", ".0001"}, {"1", 3, "1", "1"},
        {"3600", 5, "1", "3,600"}, {"-2", 1, "-120", "-2"},
    };
    Table t;
    for (const Case& c : cases) {
        const auto rate = RollsPerHourFrom(*ParseAmount(c.Typed), c.Unit);
        ASSERT_TRUE(rate);
        EXPECT_EQ(PlainAmount(*rate), c.PerHour) << c.Typed << " " << RollRateUnitText(c.Unit);
        t.RollsPerHour = *rate;
        t.RollRateUnit = c.Unit;
        EXPECT_EQ(RollRateText(t), c.Shown) << c.Typed << " " << RollRateUnitText(c.Unit);
    }
    for (const int unit : {3, 4, 5}) EXPECT_FALSE(RollsPerHourFrom({}, unit));
    t.RollsPerHour = Dollars(36'000'000);
    t.RollRateUnit = 3;
    EXPECT_EQ(RollRateText(t), "<.0001");
    t.RollsPerHour = currency{1};
    t.RollRateUnit = 2;
    EXPECT_EQ(RollRateText(t), "<.0001");
    EXPECT_EQ(RollRateUnitText(6), "");
}

}  // namespace
}  // namespace tarnwick
