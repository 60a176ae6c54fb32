// Tab "Bets" of the configuration window.
#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include "config/configure.h"
#include "config/payoffs.h"
#include "display/betstab.h"
#include "display/desktopscreen.h"
#include "display/words.h"
#include "window/configtabs.h"
#include "window/windows.h"

namespace tarnwick {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

struct BetsTabTest : TabTest {
    QString Text(const BetsTab& tab, const char* name) { return Child<QLineEdit>(tab, name)->text(); }
};

TEST_F(BetsTabTest, TheDefaultTableMayBeLeftAndNothingChanges) {
    BetsTab tab(T);
    const Settings before = T;
    Open(tab);
    QSignalSpy changes(&tab, &ConfigTab::settingsChanged);
    EXPECT_EQ(Text(tab, "MaxPlacardBet"), "1,000");
    EXPECT_EQ(Text(tab, "OddsAllowed68"), "2.5");
    EXPECT_EQ(Text(tab, "BuyVigRate"), "5");
    EXPECT_TRUE(Child<QRadioButton>(tab, "BarDont_12")->isChecked());
    EXPECT_TRUE(Child<QRadioButton>(tab, "LayVigOnAllBets_true")->isChecked());
    EXPECT_EQ(Child<QComboBox>(tab, "ShooterBetRequirement")->currentText(), "Line bet required to shoot");
    EXPECT_FALSE(Child<QCheckBox>(tab, "ReturnAbandonedBets")->isChecked());
    for (int i = 0; i < 40; ++i) PressKey(tab, Qt::Key_Tab);
    EXPECT_TRUE(tab.MayLeave());
    EXPECT_TRUE(static_cast<const Settings&>(T) == before);
    EXPECT_FALSE(T.GameChanged);
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(Told(), "");
}

TEST_F(BetsTabTest, FieldsAreTakenWhenTheyLoseTheFocus) {
    struct Case {
        const char* Field;
        const char* Typed;
        const char* Setting;  ///< as SettingText tells it
        const char* Shown;
    };
    const Case cases[] = {
        {"MinPlacardBet", "5", "5", "5"},
        {"MinPlacardPropBet", "2", "2", "2"},
        {"MaxPlacardBet", "$2,000", "2000", "2,000"},
        {"MaxPropBetPayoff", "1234.5", "1234.5", "1,234.50"},
        {"MaxOddsBet", "0", "0", "0"},
        {"OddsAllowed410", "3", "3", "3"},
        {"OddsAllowed59", "4.5", "4.5", "4.5"},
        {"OddsAllowed68", " 100 ", "100", "100"},
        {"LayVigRate", "4.75", "0.0475", "4.75"},
        {"BuyVigRate", "6%", "0.06", "6"},
        {"MaxFireBet", "10", "10", "10"},
    };
    BetsTab tab(T);
    Open(tab);
    QSignalSpy changes(&tab, &ConfigTab::settingsChanged);
    for (const Case& c : cases) {
        T.GameChanged = false;
        changes.clear();
        Enter(*Child<QLineEdit>(tab, c.Field), QString::fromLatin1(c.Typed));
        EXPECT_EQ(changes.count(), 0) << c.Field << " while typing";
        PressKey(tab, Qt::Key_Tab);
        EXPECT_EQ(SettingText(T, c.Field), c.Setting) << c.Field;
        EXPECT_EQ(Text(tab, c.Field), c.Shown);
        EXPECT_EQ(changes.count(), 1) << c.Field;
        EXPECT_TRUE(T.GameChanged) << c.Field;
    }
    EXPECT_EQ(Told(), "");
    EXPECT_TRUE(tab.MayLeave());
}

TEST_F(BetsTabTest, AFieldThatIsNoNumberKeepsItsTextAndTheFocus) {
    struct Case {
        const char* Field;
        const char* Typed;
        const char* Told;
    };
    const Case cases[] = {
        {"MinPlacardBet", "abc",
         "Configuration Limits: The minimum bet must be a number such as 5 or 2.5, not \"abc\".\n"},
        {"MinPlacardPropBet", "",
         "Configuration Limits: The minimum prop bet must be a number such as 5 or 2.5, not \"\".\n"},
        {"MaxPlacardBet", "1000000000",
         "Configuration Limits: The maximum bet must be from -999,999,999 to 999,999,999.\n"},
        {"MaxOddsBet", "-1", "Configuration Limits: The max odds bet must be from 0 to 999,999,999.\n"},
        {"OddsAllowed59", "2x",
         "Configuration Limits: The odds allowed on 5 and 9 must be a number such as 5 or 2.5, not \"2x\".\n"},
        {"LayVigRate", "5%%",
         "Configuration: The vig on Lay bets must be a percentage such as 5 or 4.75, not \"5%%\".\n"},
        {"BuyVigRate", "101", "Configuration: The vig on Buy bets must be from 0 to 100 percent.\n"},
        {"MaxFireBet", "0", "Max Fire Bet: The max Fire bet must be greater than zero.\n"},
    };
    for (const Case& c : cases) {
        BetsTab tab(T);
        const Settings before = T;
        Open(tab);
        auto* box = Child<QLineEdit>(tab, c.Field);
        Enter(*box, QString::fromLatin1(c.Typed));
        PressKey(tab, Qt::Key_Tab);
        EXPECT_EQ(Told(), c.Told);
        EXPECT_TRUE(box->hasFocus()) << c.Field;
        EXPECT_EQ(box->text(), c.Typed);
        EXPECT_FALSE(tab.MayLeave());
        EXPECT_EQ(Told(), c.Told) << "leaving tells it again";
        // By mouse: the other field doesn't get the focus either.
        Click(*Child<QLineEdit>(tab, box->objectName() == "MaxOddsBet" ? "MinPlacardBet" : "MaxOddsBet"));
        EXPECT_EQ(Told(), c.Told);
        EXPECT_TRUE(box->hasFocus()) << c.Field;
        EXPECT_TRUE(static_cast<const Settings&>(T) == before) << c.Field;
        tab.ShowSettings();
        EXPECT_TRUE(tab.MayLeave());
    }
}

// With windows that really open, a wrong field is told once.
TEST_F(BetsTabTest, ARealMessageOpensOnce) {
    BetsTab tab(T);
    DesktopScreen desktop(T, &tab);
    T.Front = &desktop;
    Open(tab);
    auto* box = Child<QLineEdit>(tab, "MaxOddsBet");
    for (const char* ending : {"tab", "enter", "field", "leave"}) {
        Enter(*box, "1z");
        int opened = 0;
        const DialogDriver::Step close = [&opened](QDialog& dialog) {
            ++opened;
            QTest::keyClick(dialog.windowHandle(), Qt::Key_Return);
        };
        DialogDriver driver({close, close, close});
        const std::string_view how = ending;
        if (how == "field") {
            Click(*Child<QLineEdit>(tab, "MinPlacardBet"));
        } else if (how == "leave") {
            EXPECT_FALSE(tab.MayLeave());
        } else {
            PressKey(tab, how == "tab" ? Qt::Key_Tab : Qt::Key_Return);
        }
        QTest::qWait(30);
        tab.activateWindow();  // which a window manager does
        ASSERT_TRUE(QTest::qWaitForWindowActive(&tab));
        EXPECT_EQ(opened, 1) << ending;
        EXPECT_TRUE(box->hasFocus()) << ending;
        EXPECT_EQ(box->text(), "1z");
    }
    T.Front = &Front;
}

TEST_F(BetsTabTest, LimitsThatDontFitTogetherHoldTheTab) {
    struct Case {
        const char* Min;
        const char* MinProp;
        const char* Max;
        const char* Told;
        const char* Focus;
    };
    const Case cases[] = {
        {"2,000", "1", "5,000", nullptr, nullptr},  // in this order the first alone wouldn't fit
        {"5", "5", "4", "The maximum bet must be greater than or equal to the minimum bet.", "MaxPlacardBet"},
        {"4", "5", "10", "The minimum bet cannot be less than the smallest check denomination of 5", "MinPlacardBet"},
        {"5", "-5", "10", "The minimum prop bet cannot be less than the smallest check denomination of 5",
         "MinPlacardPropBet"},
        {"7.5", "5", "10",
         "The minimum bet must be some multiple of the smallest check denomination, such as 5,  10,  15,  etc.",
         "MinPlacardBet"},
        {"5", "12", "10",
         "The minimum prop bet must be some multiple of the smallest check denomination, such as 5,  10,  15,  etc.",
         "MinPlacardPropBet"},
    };
    for (const Case& c : cases) {
        const bool fits = c.Told == nullptr;
        T.CheckDenominations[1] = Dollars(fits ? 1 : 5);
        T.CheckDenominations[2] = Dollars(10);
        T.MinPlacardBet = T.MinPlacardPropBet = Dollars(fits ? 1 : 5);
        T.MaxPlacardBet = Dollars(1000);
        BetsTab tab(T);
        Open(tab);
        Enter(*Child<QLineEdit>(tab, "MinPlacardBet"), QString::fromLatin1(c.Min));
        Enter(*Child<QLineEdit>(tab, "MinPlacardPropBet"), QString::fromLatin1(c.MinProp));
        Enter(*Child<QLineEdit>(tab, "MaxPlacardBet"), QString::fromLatin1(c.Max));
        PressKey(tab, Qt::Key_Tab);
        EXPECT_EQ(Told(), "") << "limits are checked together, on leaving";
        EXPECT_EQ(tab.MayLeave(), fits);
        EXPECT_EQ(Told(), fits ? std::string() : std::string("Configuration Limits: ") + c.Told + "\n");
        EXPECT_EQ(LimitFault(T).Text, "") << "the table never holds limits that don't fit";
        if (fits) {
            EXPECT_EQ(T.MinPlacardBet, Dollars(2000));
            EXPECT_EQ(T.MaxPlacardBet, Dollars(5000));
        } else {
            EXPECT_TRUE(Child<QLineEdit>(tab, c.Focus)->hasFocus()) << c.Focus;
        }
    }
}

// A fault that another tab or a file brought is told too.
TEST_F(BetsTabTest, FaultsThatWereThereBeforeAreTold) {
    BetsTab tab(T);
    Open(tab);
    T.MinPlacardBet = Dollars(2000);
    tab.ShowSettings();
    EXPECT_FALSE(tab.MayLeave());
    EXPECT_THAT(Told(), StartsWith("Configuration Limits: The maximum bet must be"));
    T.MinPlacardBet = Dollars(1);
    T.MaxFireBet = {};
    tab.ShowSettings();
    EXPECT_FALSE(tab.MayLeave());
    EXPECT_EQ(Told(), "Max Fire Bet: The max Fire bet must be greater than zero.\n");
    EXPECT_TRUE(Child<QLineEdit>(tab, "MaxFireBet")->hasFocus());
    Click(*Child<QCheckBox>(tab, "UseFireBet"));
    EXPECT_TRUE(tab.MayLeave()) << "without the Fire bet its maximum doesn't matter";
}

TEST_F(BetsTabTest, TabReachesEveryControl) {
    BetsTab tab(T);
    Open(tab);
    Child<QListWidget>(tab, "lstWorking")->selectAll();  // which lets the buttons act
    std::vector<std::string> reached;
    for (int i = 0; i < 40; ++i) {
        PressKey(tab, Qt::Key_Tab);
        reached.push_back(Utf8(tab.focusWidget()->objectName()));
    }
    EXPECT_THAT(reached, testing::IsSupersetOf({"MinPlacardBet",
                                                "MinPlacardPropBet",
                                                "MaxPlacardBet",
                                                "MaxPropBetPayoff",
                                                "MaxOddsBet",
                                                "OddsAllowed410",
                                                "OddsAllowed59",
                                                "OddsAllowed68",
                                                "OddsCalcMethod",
                                                "ShooterBetRequirement",
                                                "BarDont_12",
                                                "AllowPutBets",
                                                "ReturnAbandonedBets",
                                                "UseBig68",
                                                "UseSpecialPropBets",
                                                "UseMidwayBet",
                                                "UseFireBet",
                                                "MaxFireBet",
                                                "LayVigRate",
                                                "LayVigOnAllBets_true",
                                                "LayVigRounding",
                                                "BuyVigRate",
                                                "BuyVigOnAllBets_true",
                                                "BuyVigRounding",
                                                "lstWorking",
                                                "cmdSelectAll",
                                                "cmdYes",
                                                "cmdDefault",
                                                "cmdNo"}));
    auto* chosen = Child<QRadioButton>(tab, "BarDont_12");
    chosen->setFocus();
    PressKey(tab, Qt::Key_Left);
    EXPECT_EQ(T.BarDont, 2) << "arrows go on to the other option";
}

TEST_F(BetsTabTest, ChoicesTakeEffectAtOnce) {
    BetsTab tab(T);
    Open(tab);
    QSignalSpy changes(&tab, &ConfigTab::settingsChanged);
    struct Case {
        const char* Control;
        const char* Setting;
        const char* Value;
    };
    const Case clicks[] = {
        {"BarDont_2", "BarDont", "2"},
        {"BarDont_12", "BarDont", "12"},
        {"AllowPutBets", "AllowPutBets", "false"},
        {"ReturnAbandonedBets", "ReturnAbandonedBets", "true"},
        {"UseBig68", "UseBig68", "false"},
        {"UseBig68", "UseBig68", "true"},
        {"UseSpecialPropBets", "UseSpecialPropBets", "false"},
        {"UseMidwayBet", "UseMidwayBet", "false"},
        {"UseFireBet", "UseFireBet", "false"},
        {"LayVigOnAllBets_false", "LayVigOnAllBets", "false"},
        {"LayVigOnAllBets_true", "LayVigOnAllBets", "true"},
        {"BuyVigOnAllBets_false", "BuyVigOnAllBets", "false"},
    };
    for (const Case& c : clicks) {
        changes.clear();
        Click(*Child<QWidget>(tab, c.Control));
        EXPECT_EQ(SettingText(T, c.Setting), c.Value) << c.Control;
        EXPECT_EQ(changes.count(), 1) << c.Control;
    }
    const Case lists[] = {{"OddsCalcMethod", nullptr, "3"},
                          {"ShooterBetRequirement", nullptr, "2"},
                          {"LayVigRounding", nullptr, "1"},
                          {"BuyVigRounding", nullptr, "2"}};
    for (const Case& c : lists) {
        auto* list = Child<QComboBox>(tab, c.Control);
        list->setFocus();
        while (std::to_string(list->currentIndex()) != c.Value) PressKey(tab, Qt::Key_Down);
        EXPECT_EQ(SettingText(T, c.Control), c.Value) << c.Control;
    }
    EXPECT_EQ(Child<QComboBox>(tab, "OddsCalcMethod")->currentText(), "X Flat w/ Color Push");
    EXPECT_EQ(Told(), "");
}

TEST_F(BetsTabTest, TheMaximumOfTheFireBetShowsWithIt) {
    BetsTab tab(T);
    Open(tab);
    auto* box = Child<QLineEdit>(tab, "MaxFireBet");
    for (const bool on : {false, true}) {
        Click(*Child<QCheckBox>(tab, "UseFireBet"));
        EXPECT_EQ(T.UseFireBet, on);
        EXPECT_EQ(box->isVisible(), on);
    }
    // A wrong number in it is told, and goes with it.
    Enter(*box, "0");
    Click(*Child<QCheckBox>(tab, "UseFireBet"));
    EXPECT_EQ(Told(), "Max Fire Bet: The max Fire bet must be greater than zero.\n");
    EXPECT_FALSE(T.UseFireBet);
    EXPECT_TRUE(tab.MayLeave());
    Click(*Child<QCheckBox>(tab, "UseFireBet"));
    EXPECT_EQ(box->text(), "5");
    EXPECT_EQ(Told(), "");
}

TEST_F(BetsTabTest, SwitchingOffABetThatStandsAsksFirst) {
    const char* const ending =
        "which will be removed if you continue with this operation.  Would you like to continue?\n";
    struct Case {
        const char* Option;
        int BetRow;
        const char* Question;
    };
    const Case cases[] = {
        {"UseBig68", Row::Big8, "Remove Big 6 / Big 8 Bets: There are presently bets on the Big 6 and/or Big 8 "},
        {"UseFireBet", Row::Fire, "Remove Fire Bets: There are presently wagers on the Fire bet "},
        {"UseMidwayBet", Row::Midway, "Remove Midway Bets: There are currently Midway bets present "},
        {"UseSpecialPropBets", Row::AllTall,
         "Remove Multi-roll Prop Bets: There are presently wagers on one or more of the multi-roll prop bets: "
         "All Small, All Tall, Make All, Four Rolls No 7, or Point 7 bets "},
    };
    for (const Case& c : cases) {
        for (const bool yes : {false, true}) {
            Stand(c.BetRow, 5);
            Stand(Row::PassLine, 10);
            BetsTab tab(T);
            Open(tab);
            QSignalSpy changes(&tab, &ConfigTab::settingsChanged);
            Answering(yes ? MsgAnswer::Yes : MsgAnswer::No);
            auto* box = Child<QCheckBox>(tab, c.Option);
            Click(*box);
            EXPECT_EQ(Told(), std::string(c.Question) + ending);
            EXPECT_EQ(box->isChecked(), !yes) << c.Option;
            EXPECT_EQ(SettingText(T, c.Option), yes ? "false" : "true");
            EXPECT_EQ(T.BetAmount(1, c.BetRow), Dollars(yes ? 0 : 5)) << c.Option;
            EXPECT_EQ(T.BetsOnTable[1], Dollars(yes ? 10 : 15)) << "the money is the player's again";
            EXPECT_EQ(T.Bankroll[1], Dollars(1000));
            EXPECT_EQ(changes.count(), yes ? 1 : 0);
        }
        BetsTab tab(T);
        Open(tab);
        Click(*Child<QCheckBox>(tab, c.Option));
        EXPECT_EQ(SettingText(T, c.Option), "true");
        EXPECT_EQ(Told(), "") << "switching on asks nothing";
    }
}

TEST_F(BetsTabTest, StandingBetsOutliveAChangeOfTheRules) {
    T.Point = 6;
    for (const int row : {int{Row::DontPass}, int{Row::DontCome4}, int{Row::Come4}, int{Row::Place4}}) Stand(row, 100);
    const currency onTable = T.BetsOnTable[1];
    BetsTab tab(T);
    Open(tab);
    Click(*Child<QRadioButton>(tab, "BarDont_2"));
    Click(*Child<QCheckBox>(tab, "AllowPutBets"));
    Enter(*Child<QLineEdit>(tab, "MinPlacardBet"), "2");
    Enter(*Child<QLineEdit>(tab, "MaxPlacardBet"), "10");
    EXPECT_TRUE(tab.MayLeave());
    EXPECT_EQ(T.BarDont, 2);
    EXPECT_EQ(T.MaxPlacardBet, Dollars(10));
    for (const int row : {int{Row::DontPass}, int{Row::DontCome4}, int{Row::Come4}, int{Row::Place4}}) {
        EXPECT_EQ(T.BetAmount(1, row), Dollars(100)) << row;
    }
    EXPECT_EQ(T.BetsOnTable[1], onTable);
    EXPECT_EQ(Told(), "");
}

TEST_F(BetsTabTest, AVigThatCantBePaidIsRefused) {
    const std::string alone =
        "Configuration: You're not allowed to change this setting at this time because you don't have enough bankroll "
        "remaining to pay the added up-front vig that would be required.\nYou can remedy this by doing one or more of "
        "the following:\n -- Make a withdrawal from the ATM\n -- Reduce the amount on current bets\n -- Check Allow "
        "negative bankroll amounts\n";
    struct Case {
        const char* Name;
        int BetRow;
        const char* Option;    ///< switches the vig to all bets
        const char* Rate;      ///< its field
        const char* Rounding;  ///< its list
    };
    const Case cases[] = {{"Buy", Row::Buy4, "BuyVigOnAllBets", "BuyVigRate", "BuyVigRounding"},
                          {"Lay", Row::Lay4, "LayVigOnAllBets", "LayVigRate", "LayVigRounding"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        const bool buy = c.BetRow == Row::Buy4;
        ASSERT_EQ(SetSetting(T, c.Option, "false"), "");
        Stand(c.BetRow, buy ? 30 : 60);  // both are charged on 30: 1.50, a tie that goes down to 1
        SetBankroll(T, 1, Dollars(buy ? 30 : 60));
        BetsTab tab(T);
        Open(tab);
        const std::string all = std::string(c.Option) + "_true", wins = std::string(c.Option) + "_false";
        Click(*Child<QRadioButton>(tab, all.c_str()));
        EXPECT_EQ(Told(), alone);
        EXPECT_TRUE(Child<QRadioButton>(tab, wins.c_str())->isChecked());
        EXPECT_EQ(SettingText(T, c.Option), "false");

        SetBankroll(T, 1, Dollars(buy ? 31 : 61));
        Click(*Child<QRadioButton>(tab, all.c_str()));
        EXPECT_EQ(SettingText(T, c.Option), "true");
        EXPECT_EQ(T.BetsOnTable[1], T.Bankroll[1]) << "the vig is reserved";
        EXPECT_EQ(Told(), "");

        auto* rounding = Child<QComboBox>(tab, c.Rounding);
        rounding->setFocus();
        PressKey(tab, Qt::Key_Down);  // down: still 1
        PressKey(tab, Qt::Key_Down);  // up: 2
        EXPECT_EQ(Told(), alone);
        EXPECT_EQ(rounding->currentText(), "Rounded down");
        EXPECT_EQ(SettingText(T, c.Rounding), "1");

        Enter(*Child<QLineEdit>(tab, c.Rate), "10");
        PressKey(tab, Qt::Key_Return);
        EXPECT_EQ(Told(), alone);
        EXPECT_EQ(SettingText(T, c.Rate), "0.05");
        EXPECT_EQ(Text(tab, c.Rate), "5");
        Enter(*Child<QLineEdit>(tab, c.Rate), "0");
        EXPECT_TRUE(tab.MayLeave());
        EXPECT_EQ(T.BetsOnTable[1], Dollars(buy ? 30 : 60)) << "without a vig nothing is reserved";
        Stand(c.BetRow, 0);
    }
    Stand(Row::Buy4, 30);
    T.PlayerName[2] = "Bob";
    T.PlayerCount = 2;
    SetBankroll(T, 1, Dollars(30));
    BetsTab tab(T);
    Open(tab);
    Enter(*Child<QLineEdit>(tab, "BuyVigRate"), "5");
    PressKey(tab, Qt::Key_Tab);
    EXPECT_THAT(Told(), HasSubstr("because one or more players doesn't have enough bankroll remaining to pay"));
    T.AllowNegativeBankroll[1] = true;
    Enter(*Child<QLineEdit>(tab, "BuyVigRate"), "5");
    EXPECT_TRUE(tab.MayLeave());
    EXPECT_EQ(T.BetsOnTable[1], Dollars(31));
}

struct ComeOutTest : BetsTabTest {
    QString Line(const BetsTab& tab, int row) { return Child<QListWidget>(tab, "lstWorking")->item(row - 1)->text(); }
    void ClickLine(const BetsTab& tab, int row, Qt::KeyboardModifiers modifiers = {}) {
        auto* list = Child<QListWidget>(tab, "lstWorking");
        list->scrollToItem(list->item(row - 1));
        Click(*list->viewport(), list->visualItemRect(list->item(row - 1)).center(), modifiers);
    }
    void ExpectAll(int row, bool works) {
        for (int p = 0; p < Positions; ++p) EXPECT_EQ(T.ComeOutWorking(p, row) != 0, works) << p << " row " << row;
    }
};

TEST_F(ComeOutTest, ButtonsSetTheSelectedLinesForEverybody) {
    BetsTab tab(T);
    Open(tab);
    QSignalSpy changes(&tab, &ConfigTab::settingsChanged);
    EXPECT_EQ(Child<QListWidget>(tab, "lstWorking")->count(), 91);
    EXPECT_EQ(Line(tab, Row::Lay4), "Lay 4 - Yes");
    EXPECT_EQ(Line(tab, Row::Place4), "Place 4 - No");
    auto* yes = Child<QPushButton>(tab, "cmdYes");
    EXPECT_FALSE(yes->isEnabled()) << "nothing is selected";
    Click(*yes);
    EXPECT_EQ(changes.count(), 0);

    ClickLine(tab, Row::Place4);
    ClickLine(tab, Row::Place4 + 2, Qt::ShiftModifier);
    ClickLine(tab, Row::Hard4, Qt::ControlModifier);
    Click(*yes);
    for (const int row : {31, 32, 33, 52}) ExpectAll(row, true);
    ExpectAll(34, false);
    EXPECT_EQ(Line(tab, 33), "Place 6 - Yes");
    EXPECT_EQ(Line(tab, 34), "Place 8 - No");
    EXPECT_EQ(changes.count(), 1);

    Click(*Child<QPushButton>(tab, "cmdNo"));
    for (const int row : {31, 32, 33, 52}) ExpectAll(row, false);
    EXPECT_EQ(Line(tab, Row::Hard4), "Hard 4 - No");
    PressMnemonic(tab, *Child<QPushButton>(tab, "cmdDefault"), Qt::Key_F);
    ExpectAll(31, false);
    ExpectAll(Row::Hard4, true);
}

TEST_F(ComeOutTest, KeysReachTheWholeList) {
    BetsTab tab(T);
    Open(tab);
    PressMnemonic(tab, *Child<QPushButton>(tab, "cmdSelectAll"), Qt::Key_E);
    PressMnemonic(tab, *Child<QPushButton>(tab, "cmdNo"), Qt::Key_N);
    for (int row = 1; row <= Row::LastBet; ++row) ExpectAll(row, false);
    PressMnemonic(tab, *Child<QPushButton>(tab, "cmdYes"), Qt::Key_Y);
    for (int row = 1; row <= Row::LastBet; ++row) ExpectAll(row, true);
    PressMnemonic(tab, *Child<QPushButton>(tab, "cmdDefault"), Qt::Key_F);
    for (int row = 1; row <= Row::LastBet; ++row) {
        ExpectAll(row, WorksOnComeOutByDefault(row));
        EXPECT_THAT(Utf8(Line(tab, row)), testing::EndsWith(WorksOnComeOutByDefault(row) ? " - Yes" : " - No"));
    }
    EXPECT_TRUE(T.GameChanged);
    EXPECT_TRUE(tab.MayLeave());
}

// The list is that of the table; a player's own orders don't show in it.
TEST_F(ComeOutTest, TheListIsTheTablesOwn) {
    SetComeOutWorking(T, 1, Row::Lay4, false);
    SetComeOutWorking(T, 0, Row::Place4, true);
    BetsTab tab(T);
    Open(tab);
    EXPECT_EQ(Line(tab, Row::Lay4), "Lay 4 - Yes");
    EXPECT_EQ(Line(tab, Row::Place4), "Place 4 - Yes");
}

}  // namespace
}  // namespace tarnwick
