// The configuration window and its tabs.
#include "display/configurewindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QButtonGroup>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTabBar>
#include <QTest>
#include <map>
#include <set>

#include "config/configure.h"
#include "config/payoffs.h"
#include "display/colorpalette.h"
#include "display/configtab.h"
#include "display/felt/feltcolors.h"
#include "display/felt/feltview.h"
#include "display/game.h"
#include "display/mainwindow.h"
#include "display/soundplayer.h"
#include "display/words.h"
#include "stats/accumulators.h"
#include "support/temporaryfolder.h"
#include "table/format.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/screen.h"
#include "table/session.h"
#include "window/recordingdevice.h"
#include "window/windows.h"

namespace tarnwick {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

namespace Page {
enum : int { ChecksDice = 0, Colors = 1, Misc = 4, Bankroll = 5 };
}

std::size_t At(int i) { return static_cast<std::size_t>(i); }

struct ConfigureTest : testing::Test {
    SilentScreen Screen;
    std::unique_ptr<Table> Owned = std::make_unique<Table>();
    Table& T = *Owned;
    const SoundLibrary Sounds{{":/sounds"}};
    HeardSounds Heard;
    SoundPlayer Player{T, Sounds, std::make_unique<RecordingDevice>(Heard)};
    std::unique_ptr<ConfigureWindow> Window;
    int Changes = 0;

    void SetUp() override {
        SubMain(T, &Screen);
        AddPlayer(T, 2, "Ann", Dollars(1000));
        AddPlayer(T, 5, "Bob", Dollars(300));
        Window = std::make_unique<ConfigureWindow>(ConfigSources{T, Player}, nullptr);
        QObject::connect(Window.get(), &ConfigureWindow::settingsChanged, [this] { ++Changes; });
    }
    void Open(int page) {
        Window->Open(page);
        ASSERT_TRUE(QTest::qWaitForWindowActive(Window.get()));
        Screen.Shown.clear();
        T.GameChanged = false;
        Changes = 0;
    }
    template <class Widget>
    Widget& Find(const QString& name) {
        auto* found = Window->findChild<Widget*>(name);
        if (found == nullptr) throw std::runtime_error("no control called " + name.toStdString());
        return *found;
    }
    QString TextOf(const char* label) { return Find<QLabel>(label).text(); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(Window->windowHandle(), key, modifiers);
    }
    void Click(QWidget& control, QPoint at) {
        QTest::mouseClick(Window->windowHandle(), Qt::LeftButton, {}, control.mapTo(Window.get(), at));
    }
    void Click(const QString& name) {
        auto& control = Find<QWidget>(name);
        Click(control, QPoint(8, control.height() / 2));
    }
    /// Types into a field and goes on to the next control.
    void Enter(const QString& name, const QString& text, Qt::Key end = Qt::Key_Tab) {
        auto& field = Find<QLineEdit>(name);
        Click(field, field.rect().center());
        Key(Qt::Key_A, Qt::ControlModifier);
        if (text.isEmpty()) Key(Qt::Key_Delete);
        for (const QChar c : text) QTest::keyClick(Window->windowHandle(), c.toLatin1());
        Key(end);
        QCoreApplication::processEvents();
    }
    void ClickTab(int page) {
        auto& tabs = Find<QTabBar>("tabs");
        int index = 0;
        while (ConfigPages()[At(index)].Number != page) ++index;
        Click(tabs, tabs.tabRect(index).center());
    }
    int ShownPage() { return ConfigPages()[At(Find<QTabBar>("tabs").currentIndex())].Number; }
    std::string TakeMessage() {
        QCoreApplication::processEvents();
        if (Screen.Shown.empty()) return {};
        std::string text = Screen.Shown.back().Title + ": " + Screen.Shown.back().Text;
        Screen.Shown.pop_back();
        return text;
    }
    bool HasFocus(const QString& name) { return Window->focusWidget() == &Find<QWidget>(name); }
    ConfigTab& Shown() { return *static_cast<ConfigTab*>(Window->findChild<QStackedWidget*>()->currentWidget()); }
    QAction& MenuEntry(const QString& caption) {
        for (QMenu* menu : Shown().Menus()) {
            for (QAction* action : menu->actions()) {
                if (action->text() == caption) return *action;
            }
        }
        throw std::runtime_error("no entry called " + caption.toStdString());
    }
};

// --- the window ---

TEST_F(ConfigureTest, OpensOnTheTabLastInUseAndKeepsIt) {
    T.ConfigTab = Page::Misc;
    Open(ConfigureWindow::LastInUse);
    EXPECT_EQ(ShownPage(), Page::Misc);
    ClickTab(Page::Colors);
    EXPECT_EQ(ShownPage(), Page::Colors);
    EXPECT_EQ(T.ConfigTab, Page::Colors);
    Key(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(ShownPage(), Page::ChecksDice);
    Key(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(ShownPage(), Page::Colors);
    EXPECT_TRUE(Find<QWidget>("picPalette").isVisible()) << "the tab and what it shows go together";
    Window->close();
    EXPECT_FALSE(Window->isVisible());
    EXPECT_EQ(T.ConfigTab, Page::Colors);
    T.ConfigTab = 9;  // of a tab that isn't there
    Open(ConfigureWindow::LastInUse);
    EXPECT_EQ(ShownPage(), Page::ChecksDice);
}

TEST_F(ConfigureTest, TheMenuBarFollowsTheTab) {
    const std::map<int, QStringList> menus = {
        {Page::ChecksDice, {"&Restore default denominations"}},
        {Page::Colors,
         {"Set traditional &green table", "Set b&urgundy table", "Set hot &chocolate table", "Set &oak table",
          "Set &sunrise table", "Set blue &velvet table", "Set blue &jeans table", "Set &black-light table"}},
        {Page::Misc, {}},
        {Page::Bankroll, {}}};
    for (const auto& [page, entries] : menus) {
        Open(page);
        QStringList shown;
        for (const QAction* title : Window->findChild<QMenuBar*>()->actions()) {
            EXPECT_EQ(title->text(), "&Options");
            for (const QAction* entry : title->menu()->actions()) shown << entry->text();
        }
        EXPECT_EQ(shown, entries) << page;
    }
}

TEST_F(ConfigureTest, TheBankrollTabNeedsAPlayer) {
    Open(Page::Colors);
    RemovePlayer(T, 2);
    RemovePlayer(T, 5);
    ClickTab(Page::Bankroll);
    EXPECT_EQ(TakeMessage(),
              "No Players: You need to add one or more players before you can set bankroll parameters.\n"
              "To add a player return to the main table and click on the Players menu.");
    EXPECT_EQ(ShownPage(), Page::Colors);
    AddPlayer(T, 3, "Cid", Dollars(10));
    ClickTab(Page::Bankroll);
    EXPECT_EQ(TakeMessage(), "");
    EXPECT_EQ(ShownPage(), Page::Bankroll);
    RemovePlayer(T, 3);
    Window->ShowFigures();
    EXPECT_EQ(Find<QComboBox>("cmbPlayer").count(), 0);
    EXPECT_FALSE(Find<QWidget>("txtAtmAmount").isEnabled());
    Window->close();
    EXPECT_FALSE(Window->isVisible()) << "an empty table must not hold the window open";
}

TEST_F(ConfigureTest, ClosingChecksTheWholeTable) {
    Open(Page::Misc);
    T.RollsPerHour = Dollars(36'000'001);
    Window->close();
    EXPECT_EQ(TakeMessage(), "Sim Roll Rate Out Of Limits: The maximum simulated Rolls / hr rate is 36,000,000.");
    EXPECT_TRUE(Window->isVisible());
    EXPECT_EQ(ShownPage(), Page::ChecksDice);
    EXPECT_TRUE(HasFocus("txtRate"));
    Enter("txtRate", "100");
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Window->isVisible());
}

TEST_F(ConfigureTest, AnotherGameShowsItsSettings) {
    Open(Page::ChecksDice);
    Enter("txtCheck1", "700", Qt::Key_Home);  // still being typed
    T.CheckDenominations[3] = Dollars(50);
    Window->ShowGame();
    EXPECT_EQ(Find<QLineEdit>("txtCheck1").text(), "1");
    EXPECT_EQ(Find<QLineEdit>("txtCheck3").text(), "50");
    EXPECT_EQ(T.CheckDenominations[1], Dollars(1));
}

/// Letters that Alt reaches in a tab, its menus counted with it.
std::map<QString, QStringList> Mnemonics(ConfigTab& tab) {
    std::map<QString, QStringList> found;
    const auto add = [&found](const QString& text) {
        const QKeySequence keys = QKeySequence::mnemonic(text);
        if (!keys.isEmpty()) found[keys.toString()] << text;
    };
    for (const QAbstractButton* button : tab.findChildren<QAbstractButton*>()) add(button->text());
    for (const QLabel* label : tab.findChildren<QLabel*>()) {
        if (label->buddy() != nullptr) add(label->text());
    }
    for (const QMenu* menu : tab.Menus()) add(menu->title());
    return found;
}

TEST_F(ConfigureTest, NoTwoControlsOfATabShareAMnemonic) {
    for (const ConfigPage& page : ConfigPages()) {
        Open(page.Number);
        for (const auto& [keys, texts] : Mnemonics(Shown())) {
            EXPECT_EQ(texts.size(), 1) << page.Caption << ' ' << texts.join(" and ").toStdString();
        }
        std::set<QString> entries;
        for (const QMenu* menu : Shown().Menus()) {
            for (const QAction* action : menu->actions()) {
                if (action->isSeparator()) continue;
                const QString keys = QKeySequence::mnemonic(action->text()).toString();
                EXPECT_TRUE(!keys.isEmpty() && entries.insert(keys).second) << action->text().toStdString();
            }
        }
    }
}

TEST_F(ConfigureTest, TabReachesEveryControl) {
    T.DiceAction = T.BankrollStartRule[2] = T.CheckPicture = 2;
    T.DieFacePicture = 1;
    T.SpotlightLevel = 3;
    T.UserSeedOn = true;
    for (const ConfigPage& page : ConfigPages()) {
        Open(page.Number);
        std::set<const QWidget*> reached;
        Find<QTabBar>("tabs").setFocus();  // from there on, as a grid keeps Tab for its cells
        for (int i = 0; i < 600; ++i) {    // more than the payoffs have numbers
            const QWidget* control = Window->focusWidget();
            if (control != nullptr && !reached.insert(control).second && i > 400) break;
            Key(Qt::Key_Tab);
        }
        for (const QWidget* control : Shown().findChildren<QWidget*>()) {
            const bool takesKeys = (control->focusPolicy() & Qt::TabFocus) != 0 && control->isEnabled();
            if (!takesKeys || !control->isVisible()) continue;
            const auto* button = qobject_cast<const QAbstractButton*>(control);
            const QButtonGroup* group = button != nullptr ? button->group() : nullptr;
            // The arrow keys go through a group of options.
            const QWidget* wanted = group != nullptr ? group->checkedButton() : control;
            EXPECT_EQ(reached.count(wanted), 1u) << page.Caption << ' ' << control->objectName().toStdString();
        }
    }
}

TEST_F(ConfigureTest, EveryControlHasANameForThoseWhoCantSeeIt) {
    for (const ConfigPage& page : ConfigPages()) {
        Open(page.Number);
        std::set<const QWidget*> labelled;
        for (const QLabel* label : Shown().findChildren<QLabel*>()) labelled.insert(label->buddy());
        for (const QWidget* control : Shown().findChildren<QWidget*>()) {
            if ((control->focusPolicy() & Qt::TabFocus) == 0) continue;
            const auto* button = qobject_cast<const QAbstractButton*>(control);
            const bool named = labelled.count(control) > 0 || !control->accessibleName().isEmpty() ||
                               (button != nullptr && !button->text().isEmpty());
            EXPECT_TRUE(named) << page.Caption << ' ' << control->objectName().toStdString();
        }
    }
}

// --- Checks/Dice ---

TEST_F(ConfigureTest, ChecksThatDontFitKeepTheTabOpen) {
    struct Case {
        const char* Field;
        const char* Typed;
        const char* Message;
        const char* Focus;
    };
    const Case cases[] = {
        {"txtCheck1", "0", "Check Values: Check values must be greater than zero.", "txtCheck1"},
        {"txtCheck3", "-25", "Check Values: Check values must be greater than zero.", "txtCheck3"},
        {"txtCheck2", "25",
         "Check Values: Checks must be listed in ascending order with the smallest valued check in the leftmost "
         "position.",
         "txtCheck3"},
        {"txtCheck2", "5.50", "Check Values: All checks must be wholly divisible by the smallest check.", "txtCheck2"},
        {"txtCheck1", "5",
         "Check Values: Checks must be listed in ascending order with the smallest valued check in the leftmost "
         "position.",
         "txtCheck2"},
    };
    for (const Case& c : cases) {
        Open(Page::ChecksDice);
        Enter(c.Field, c.Typed);
        EXPECT_EQ(TakeMessage(), "") << "the next value may set it right";
        EXPECT_THAT(TextOf("lblPending").toStdString(), StartsWith("Not in force yet: "));
        ClickTab(Page::Colors);
        EXPECT_EQ(TakeMessage(), c.Message);
        EXPECT_TRUE(Screen.Shown.empty()) << "told once";
        EXPECT_EQ(ShownPage(), Page::ChecksDice);
        EXPECT_TRUE(HasFocus(c.Focus)) << c.Message;
        Window->close();
        EXPECT_EQ(TakeMessage(), c.Message);
        EXPECT_TRUE(Window->isVisible());
        EXPECT_EQ(T.CheckDenominations, Settings{}.CheckDenominations);
        EXPECT_FALSE(T.GameChanged);
        Window->ShowGame();
    }
}

TEST_F(ConfigureTest, ChecksAreTakenAsSoonAsTheyFitTogether) {
    Open(Page::ChecksDice);
    const auto face = [this] { return Find<QLabel>("picFace1").pixmap().toImage(); };
    const QImage dollar = face();
    Enter("txtCheck1", ".25");
    EXPECT_EQ(T.CheckDenominations[1], currency{2'500});
    EXPECT_EQ(Find<QLineEdit>("txtCheck1").text(), ".25");
    const QImage cents = face();
    EXPECT_NE(cents, dollar);
    Click("chkCentsSymbol");
    EXPECT_NE(face(), cents) << "without the symbol";
    Enter("txtCheck2", "30");
    EXPECT_EQ(T.CheckDenominations[2], Dollars(5));
    Enter("txtCheck3", "1,000");
    Enter("txtCheck4", "$2000");
    Enter("txtCheck5", "5000", Qt::Key_Return);
    EXPECT_EQ(T.CheckDenominations,
              (std::array<currency, 6>{{{}, {2'500}, Dollars(30), Dollars(1000), Dollars(2000), Dollars(5000)}}));
    EXPECT_EQ(TextOf("lblPending"), "");
    EXPECT_TRUE(T.GameChanged);
    EXPECT_GT(Changes, 0);
    ClickTab(Page::Colors);
    EXPECT_EQ(TakeMessage(), "");
    EXPECT_EQ(ShownPage(), Page::Colors);
}

TEST_F(ConfigureTest, ASmallestCheckBeyondTheTableMinimumIsRefused) {
    Open(Page::ChecksDice);
    Enter("txtCheck2", "10");
    Enter("txtCheck1", "5");
    Enter("txtCheck4", "100");
    ClickTab(Page::Misc);
    EXPECT_EQ(TakeMessage(),
              "Configuration Limits: The minimum bet cannot be less than the smallest check denomination of 5");
    EXPECT_TRUE(HasFocus("txtCheck1"));
    Enter("txtCheck1", "1");
    ClickTab(Page::Misc);
    EXPECT_EQ(ShownPage(), Page::Misc);
    EXPECT_EQ(T.CheckDenominations[2], Dollars(10));
}

TEST_F(ConfigureTest, ChecksThatABankrollCantPayTheVigForAreRefused) {
    T.BuyVigOnAllBets = true;
    AddPlayer(T, 7, "Eve", Dollars(26));
    SetBetAmount(T, 7, Row::Buy4, Dollars(25));
    T.EstablishedBet(7, Row::Buy4) = Dollars(25);
    RecomputeVigs(T);
    T.BuyVigRounding = 2;
    RecomputeVigs(T);
    T.Bankroll[7] = T.BetsOnTable[7];
    T.MinPlacardBet = T.MinPlacardPropBet = Dollars(5);
    Open(Page::ChecksDice);
    Enter("txtCheck2", "10");
    Enter("txtCheck3", "25");
    Enter("txtCheck1", "5");
    ClickTab(Page::Colors);
    EXPECT_THAT(TakeMessage(), StartsWith("Configuration: You're not allowed to change this setting at this time "
                                          "because one or more players doesn't have enough bankroll"));
    EXPECT_EQ(T.CheckDenominations[1], Dollars(1));
    EXPECT_EQ(ShownPage(), Page::ChecksDice);
}

TEST_F(ConfigureTest, TextThatIsNoNumberIsToldAndKept) {
    struct Case {
        int Page;
        const char* Field;
        const char* Typed;
        const char* Title;
    };
    const Case cases[] = {
        {Page::ChecksDice, "txtCheck4", "ten", "Check Values"},
        {Page::ChecksDice, "txtCheck1", "", "Check Values"},
        {Page::ChecksDice, "txtCheck5", "99999999999999999999", "Check Values"},
        {Page::ChecksDice, "txtRate", "12 0", "Sim Roll Rate Out Of Limits"},
        {Page::Bankroll, "txtAtmAmount", "5..0", "ATM"},
        {Page::Bankroll, "txtStartAmount", "all", "Bankroll"},
    };
    for (const Case& c : cases) {
        Open(c.Page);
        const Settings before = T;
        Enter(c.Field, c.Typed);
        const std::string message = TakeMessage();
        EXPECT_EQ(message, std::string(c.Title) + ": \"" + c.Typed +
                               "\" is not a number. Please enter an amount such as 25 or 2.50.");
        EXPECT_TRUE(Screen.Shown.empty()) << "told once";
        EXPECT_TRUE(HasFocus(c.Field)) << c.Field;
        EXPECT_EQ(Find<QLineEdit>(c.Field).text(), c.Typed);
        ClickTab(Page::Colors);
        EXPECT_EQ(TakeMessage(), message);
        EXPECT_EQ(ShownPage(), c.Page);
        EXPECT_TRUE(static_cast<const Settings&>(T) == before);
        Key(Qt::Key_Escape);
        EXPECT_TRUE(Window->isVisible()) << "Escape first brings the value back";
        ClickTab(Page::Colors);
        EXPECT_EQ(TakeMessage(), "");
        EXPECT_EQ(ShownPage(), Page::Colors);
    }
}

TEST_F(ConfigureTest, TheRateIsShownAndTakenInItsUnit) {
    struct Case {
        int Unit;
        const char* Shown;  ///< of 120 an hour
        const char* Typed;
        currency PerHour;
        const char* Message;
    };
    const char* const most = "Sim Roll Rate Out Of Limits: The maximum simulated ";
    const char* const positive = "Sim Roll Rate Out Of Limits: The simulated roll rate must be greater than zero.";
    const Case cases[] = {
        {0, "120", "36,000,000", Dollars(36'000'000), ""},
        {0, "120", "36000001", Dollars(120), "Rolls / hr rate is 36,000,000."},
        {1, "2", "1.5", Dollars(90), ""},
        {1, "2", "600000.1", Dollars(120), "Rolls / min rate is 600,000."},
        {2, ".0333", "10000", Dollars(36'000'000), ""},
        {2, ".0333", "10001", Dollars(120), "Rolls / sec rate is 10,000."},
        {3, ".0083", "2", currency{5'000}, ""},
        {4, ".50", "0", Dollars(120), positive},
        {4, ".50", "3", Dollars(20), ""},
        {5, "30", "-1", Dollars(120), positive},
        {5, "30", ".00009", Dollars(36'000'000), ""},
    };
    for (const Case& c : cases) {
        T.RollsPerHour = Dollars(120);
        T.RollRateUnit = 0;
        Open(Page::ChecksDice);
        Window->ShowGame();
        auto& unit = Find<QComboBox>("cmbRateUnit");
        unit.setFocus();
        for (int i = 0; i < c.Unit; ++i) Key(Qt::Key_Down);
        EXPECT_EQ(T.RollRateUnit, c.Unit);
        EXPECT_EQ(T.RollsPerHour, Dollars(120)) << "the unit changes only what is shown";
        EXPECT_EQ(Find<QLineEdit>("txtRate").text(), c.Shown) << c.Unit;
        Enter("txtRate", c.Typed);
        const std::string message = *c.Message == '\0'      ? ""
                                    : c.Message == positive ? positive
                                                            : std::string(most) + c.Message;
        EXPECT_EQ(TakeMessage(), message) << c.Typed;
        EXPECT_EQ(T.RollsPerHour, c.PerHour) << c.Typed;
        EXPECT_EQ(HasFocus("txtRate"), !message.empty());
        Window->ShowGame();
    }
}

TEST_F(ConfigureTest, ARateTooSmallToShowIsSaidToBe) {
    T.RollsPerHour = currency{1'000};  // 0.1 an hour
    T.RollRateUnit = 2;
    Open(Page::ChecksDice);
    Window->ShowGame();
    EXPECT_EQ(Find<QLineEdit>("txtRate").text(), "<.0001");
    ClickTab(Page::Colors);
    EXPECT_EQ(TakeMessage(), "") << "what is shown was not typed";
    EXPECT_EQ(T.RollsPerHour, currency{1'000});
}

TEST_F(ConfigureTest, DefaultDenominationsComeBackOnYesOnly) {
    const std::array<currency, 6> other = {{{}, Dollars(1), Dollars(2), Dollars(4), Dollars(8), Dollars(16)}};
    for (const int answer : {MsgAnswer::No, MsgAnswer::Yes}) {
        T.CheckDenominations = other;
        Open(Page::ChecksDice);
        Window->ShowGame();
        Screen.Answers = {{answer, "", false}};
        MenuEntry("&Restore default denominations").trigger();
        EXPECT_EQ(
            TakeMessage(),
            "Restore Default Denominations: Do you want to restore all checks to their original Tarnwick values?");
        const bool restored = answer == MsgAnswer::Yes;
        EXPECT_EQ(T.CheckDenominations, restored ? Settings{}.CheckDenominations : other);
        EXPECT_EQ(Find<QLineEdit>("txtCheck5").text(), restored ? "500" : "16");
        EXPECT_EQ(T.GameChanged, restored);
    }
}

/// One control that keeps one value: pressing it must set that value and show it again.
struct Press {
    int Page;
    const char* Control;
    const char* Setting;
    const char* Value;
};

TEST_F(ConfigureTest, EveryPressReachesItsSettingAndComesBack) {
    const Press presses[] = {
        {Page::ChecksDice, "chkCentsSymbol", "UseCentsSymbol", "false"},
        {Page::ChecksDice, "chkAutoArrange", "AutoArrangeChips", "false"},
        {Page::ChecksDice, "picChecks0", "CheckPicture", "0"},
        {Page::ChecksDice, "picChecks2", "CheckPicture", "2"},
        {Page::ChecksDice, "picDice0", "DieFacePicture", "0"},
        {Page::ChecksDice, "picDice1", "DieFacePicture", "1"},
        {Page::ChecksDice, "optDiceAction1", "DiceAction", "1"},
        {Page::ChecksDice, "optDiceAction2", "DiceAction", "2"},
        {Page::Colors, "optSpotlight1", "SpotlightLevel", "1"},
        {Page::Colors, "optSpotlight3", "SpotlightLevel", "3"},
        {Page::Misc, "optUserSeed", "UserSeedOn", "true"},
        {Page::Misc, "optSeedNormally", "UserSeedOn", "false"},
        {Page::Misc, "chkReSeed", "ReSeedNewSessions", "false"},
        {Page::Misc, "chkNotice1", "NotifyBits", "14"},
        {Page::Misc, "chkNotice2", "NotifyBits", "12"},
        {Page::Misc, "chkNotice4", "NotifyBits", "8"},
        {Page::Misc, "chkNotice8", "NotifyBits", "0"},
        {Page::Misc, "chkNotice16", "NotifyBits", "16"},
        {Page::Misc, "chkSnapMouse", "SnapMouse", "false"},
        {Page::Misc, "chkColorPrinter", "PrintColors[1]", "0"},
        {Page::Misc, "chkColorPrinter", "PrintColors[1]", "12"},
        {Page::Bankroll, "optStartRule1", "BankrollStartRule[2]", "1"},
        {Page::Bankroll, "optStartRule2", "BankrollStartRule[2]", "2"},
        {Page::Bankroll, "optStartRule0", "BankrollStartRule[2]", "0"},
        {Page::Bankroll, "chkNegative", "AllowNegativeBankroll[2]", "true"},
    };
    for (const Press& press : presses) {
        Open(press.Page);
        Click(press.Control);
        EXPECT_EQ(SettingText(T, press.Setting), press.Value) << press.Control;
        EXPECT_TRUE(T.GameChanged) << press.Control;
        EXPECT_GT(Changes, 0) << press.Control;
        auto& control = Find<QAbstractButton>(press.Control);
        const bool on = control.isChecked();
        Shown().ShowSettings();
        EXPECT_EQ(control.isChecked(), on) << press.Control << " as read from the table";
    }
}

// --- Colors ---

TEST_F(ConfigureTest, ScrollBarsMixTheColorOfTheElement) {
    struct Case {
        int Element;
        const char* Bar;
        int Value;
        std::uint32_t Before, After;
    };
    const Case cases[] = {{0, "hsbRed", 0x12, 0x803800, 0x803812},
                          {1, "hsbGreen", 0, 0xFFFFFF, 0xFF00FF},
                          {42, "hsbBlue", 0x7F, 0xFFFFFF, 0x7FFFFF},
                          {13, "hsbRed", 0, 0x77BBFF, 0x77BB00}};
    for (const Case& c : cases) {
        Open(Page::Colors);
        Click(QStringLiteral("optColor%1").arg(c.Element));
        ASSERT_EQ(T.TableColors[At(c.Element)], c.Before);
        Find<QScrollBar>(c.Bar).setValue(c.Value);
        EXPECT_EQ(T.TableColors[At(c.Element)], c.After);
        EXPECT_TRUE(T.GameChanged);
        EXPECT_EQ(Changes, 1);
    }
    auto expected = std::make_unique<Table>();
    SubMain(*expected, nullptr);
    for (const Case& c : cases) expected->TableColors[At(c.Element)] = c.After;
    EXPECT_EQ(T.TableColors, expected->TableColors) << "no other element changes";
}

TEST_F(ConfigureTest, TheBarsAndFiguresShowTheElementAndKeysMoveThem) {
    Open(Page::Colors);
    Click("optColor4");  // 0xE19C48: blue 225, green 156, red 72
    EXPECT_EQ(TextOf("lblColor0") + TextOf("lblColor1") + TextOf("lblColor2"), "72156225");
    EXPECT_FALSE(T.GameChanged) << "looking changes nothing";
    Key(Qt::Key_G, Qt::AltModifier);
    EXPECT_TRUE(HasFocus("hsbGreen"));
    Key(Qt::Key_Right);
    EXPECT_EQ(T.TableColors[4], 0xE19D48u);
    EXPECT_EQ(TextOf("lblColor1"), "157");
}

TEST_F(ConfigureTest, ThePaletteSetsAColorByMouseAndByKeys) {
    Open(Page::Colors);
    Click("optColor11");
    auto& palette = Find<ColorPalette>("picPalette");
    const int field = ColorPalette::FieldCount() / 2;
    Click(palette, palette.FieldRect(field).center());
    EXPECT_EQ(FeltColor(T, 11).rgb(), ColorPalette::FieldColor(field).rgb());
    palette.setFocus();
    Key(Qt::Key_Right);
    EXPECT_EQ(FeltColor(T, 11).rgb(), ColorPalette::FieldColor(field).rgb()) << "moving picks nothing";
    Key(Qt::Key_Space);
    EXPECT_EQ(FeltColor(T, 11).rgb(), ColorPalette::FieldColor(field + 1).rgb());
    EXPECT_EQ(Find<QScrollBar>("hsbRed").value(), FeltColor(T, 11).red());
}

TEST_F(ConfigureTest, APresetSetsTheWholePalette) {
    Open(Page::Colors);
    Click("optColor23");
    std::set<std::array<std::uint32_t, 43>> different;
    QImage preview;
    for (const ColorPreset& preset : ColorPresets()) {
        Changes = 0;
        MenuEntry(preset.Caption).trigger();
        EXPECT_EQ(T.TableColors, preset.Colors);
        EXPECT_EQ(Changes, 1);
        EXPECT_EQ(Find<QScrollBar>("hsbRed").value(), FeltColor(T, 23).red());
        different.insert(T.TableColors);
        const QImage now = Find<QWidget>("picPreview").grab().toImage();
        EXPECT_NE(now, preview);
        preview = now;
    }
    EXPECT_EQ(different.size(), 8u);
    EXPECT_TRUE(T.GameChanged);
}

// --- Misc. ---

TEST_F(ConfigureTest, AGeneratorWithoutItsLibraryGivesWayToNumber4) {
    struct Case {
        int Missing, Chosen, Taken;
    };
    const Case cases[] = {{0, 0, 0}, {0, 6, 6}, {1, 0, 3}, {1, 5, 3}, {1, 7, 3},
                          {1, 1, 1}, {2, 1, 3}, {2, 6, 3}, {2, 7, 7}, {3, 4, 4}};
    for (const Case& c : cases) {
        T.MissingRngLibraries = c.Missing;
        T.RngIndex = 2;
        Open(Page::Misc);
        Shown().ShowSettings();
        auto& list = Find<QComboBox>("cmbRNG");
        EXPECT_EQ(list.currentText(), "RNG #3");
        emit list.activated(c.Chosen);
        EXPECT_EQ(T.RngIndex, c.Taken) << c.Missing << ' ' << c.Chosen;
        EXPECT_EQ(list.currentIndex(), c.Taken);
        EXPECT_EQ(TakeMessage(), "");
    }
}

TEST_F(ConfigureTest, SeedingNowAsksForAUserSeed) {
    Open(Page::Misc);
    Screen.Clock = 4711;
    Click("cmdSeedNow");
    EXPECT_EQ(TextOf("lblLastSeed"), "4711");
    Click("optUserSeed");
    Screen.Answers = {{MsgAnswer::Ok, "0", false}, {MsgAnswer::Ok, "12345", false}};
    Click("cmdSeedNow");
    EXPECT_THAT(TakeMessage(), StartsWith("RNG Seed: Your seed value is out of limits."));
    EXPECT_EQ(TextOf("lblLastSeed"), "12345");
    EXPECT_EQ(T.LastSeed, 12345);
}

// --- Bankroll ---

TEST_F(ConfigureTest, TheBankrollTabShowsThePlayerChosen) {
    T.ActivePlayer = 5;
    T.ConfigBankrollPlayer = 8;  // nobody there
    T.Bankroll[5] = Dollars(240);
    Open(Page::Bankroll);
    EXPECT_EQ(Find<QComboBox>("cmbPlayer").currentText(), "Bob") << "the bettor, when the last one shown has left";
    EXPECT_EQ(TextOf("lblBankroll"), "$240.00");
    EXPECT_EQ(TextOf("lblInvested"), "$300.00");
    EXPECT_EQ(TextOf("lblNetCaption") + TextOf("lblNet"), "Lost:$60.00");
    Find<QComboBox>("cmbPlayer").setFocus();
    Key(Qt::Key_Up);
    EXPECT_EQ(T.ConfigBankrollPlayer, 2);
    EXPECT_EQ(TextOf("lblNetCaption") + TextOf("lblNet"), "Won/Lost:$0.00");
    T.Bankroll[2] = Dollars(1'234'567);
    Window->ShowFigures();
    EXPECT_EQ(TextOf("lblNetCaption") + TextOf("lblNet"), "Won:$1,233,567.00");
    EXPECT_FALSE(T.GameChanged);
}

TEST_F(ConfigureTest, AmountsAreThePlayersOwnAndWithinTheirLimits) {
    Open(Page::Bankroll);
    Enter("txtAtmAmount", "9,999,999");
    Enter("txtStartAmount", "-250.5");
    EXPECT_EQ(T.AtmAmount[2], Dollars(9'999'999));
    EXPECT_EQ(T.BankrollStartAmount[2], currency{-2'505'000});
    Enter("txtAtmAmount", "-1");
    EXPECT_EQ(TakeMessage(), "ATM: The ATM amount must be from 0 to 9,999,999.");
    // Another player can't be chosen with that in the field.
    emit Find<QComboBox>("cmbPlayer").activated(1);
    EXPECT_EQ(TakeMessage(), "ATM: The ATM amount must be from 0 to 9,999,999.");
    EXPECT_EQ(Find<QComboBox>("cmbPlayer").currentText(), "Ann");
    Key(Qt::Key_Escape);
    emit Find<QComboBox>("cmbPlayer").activated(1);
    EXPECT_EQ(Find<QLineEdit>("txtAtmAmount").text(), "500");
    Enter("txtStartAmount", "10000000");
    EXPECT_EQ(TakeMessage(), "Bankroll: The starting bankroll must be from -9,999,999 to 9,999,999.");
    EXPECT_EQ(T.BankrollStartAmount[2], currency{-2'505'000});
}

TEST_F(ConfigureTest, TheAtmMovesWhatIsAllowed) {
    struct Case {
        const char* Button;
        const char* Amount;
        int Bankroll, Bets;
        bool Negative;
        int After;
        const char* Message;  ///< how it ends
    };
    const Case cases[] = {
        {"cmdWithdraw", "200", 100, 0, false, 300, ""},
        {"cmdWithdraw", "9000000", 5'000'000, 0, false, 9'999'999, ""},
        {"cmdDeposit", "60", 100, 0, false, 40, ""},
        {"cmdDeposit", "150", 100, 0, false, 0, "checking the box marked, \"Allow negative bankroll amounts\"."},
        {"cmdDeposit", "90", 100, 30, false, 30, ", and/or by reducing the amount of your current bets."},
        {"cmdDeposit", "150", 100, 30, true, -50, ""},
    };
    for (const Case& c : cases) {
        T.Bankroll[2] = Dollars(c.Bankroll);
        T.BankrollInvested[2] = Dollars(1000);
        T.AllowNegativeBankroll[2] = c.Negative;
        T.BetsOnTable[2] = Dollars(c.Bets);
        Open(Page::Bankroll);
        Shown().ShowSettings();
        Enter("txtAtmAmount", c.Amount);
        Click(c.Button);
        const std::string message = TakeMessage();
        EXPECT_EQ(message.empty(), *c.Message == '\0') << message;
        EXPECT_THAT(message, testing::EndsWith(c.Message));
        EXPECT_EQ(T.Bankroll[2], Dollars(c.After)) << c.Button << c.Amount;
        EXPECT_EQ(T.BankrollInvested[2], Dollars(1000 + c.After - c.Bankroll));
        EXPECT_EQ(TextOf("lblBankroll").toStdString(), FormatPattern(T.Bankroll[2], "$#,0.00;-$#,0.00;$0.00"));
        EXPECT_TRUE(T.GameChanged);
    }
}

TEST_F(ConfigureTest, NegativeBankrollsStayAllowedWhileTheyAreNeeded) {
    struct Case {
        int Bankroll, Bets;
        const char* Message;
    };
    const Case cases[] = {
        {-10, 0,
         "Bankroll: Before you can un-check this box, Ann must have a non-negative bankroll. Some options:\n"
         " -- Win some more money first, or\n -- Make a withdrawal from the ATM."},
        {50, 80,
         "Bankroll: The amount of Ann's current bets exceeds his/her current bankroll.\nTherefore, before you can "
         "un-check this box, Ann must either:\n -- Reduce the amount of his/her current bets, or \n -- Make at least a "
         "$30 withdrawal from the ATM."},
        {80, 80, ""},
    };
    for (const Case& c : cases) {
        T.AllowNegativeBankroll[2] = true;
        T.Bankroll[2] = Dollars(c.Bankroll);
        T.BetsOnTable[2] = Dollars(c.Bets);
        Open(Page::Bankroll);
        Shown().ShowSettings();
        Click("chkNegative");
        EXPECT_EQ(TakeMessage(), c.Message);
        const bool refused = *c.Message != '\0';
        EXPECT_EQ(T.AllowNegativeBankroll[2], refused);
        EXPECT_EQ(Find<QAbstractButton>("chkNegative").isChecked(), refused);
    }
}

// --- from the table ---

struct ConfigureFromTableTest : testing::Test {
    testsupport::TemporaryFolder Folder;
    std::unique_ptr<MainWindow> Window;

    void SetUp() override { Start(); }
    void Start() {
        Window = std::make_unique<MainWindow>(Folder.Path(""));
        Window->resize(700, 500);
        Window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(Window.get()));
    }
    Table& T() { return Window->CurrentGame().T(); }
    ConfigureWindow* Opened() { return Window->findChild<ConfigureWindow*>("frmConfigure"); }
    /// The toolkit calls a window active while the one that it belongs to is.
    static void Activate(QWidget& window) {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }));
    }
    void Choose(const QString& caption) {
        for (QAction* action : Window->findChildren<QAction*>()) {
            if (action->text() == caption) return action->trigger();
        }
        FAIL() << "no menu entry " << caption.toStdString();
    }
};

TEST_F(ConfigureFromTableTest, EachEntryOpensItsTabAndAChangeShowsOnTheFelt) {
    AddPlayer(T(), 1, "Ann", Dollars(100));
    for (const ConfigPage& page : ConfigPages()) {
        Choose(QString::fromLatin1(page.Command));
        ASSERT_NE(Opened(), nullptr);
        EXPECT_TRUE(Opened()->isVisible());
        EXPECT_EQ(T().ConfigTab, page.Number);
    }
    Choose("Co&lors ...");
    const QImage before = Window->Felt().grab().toImage();
    Opened()->findChild<QScrollBar*>("hsbRed")->setValue(200);
    EXPECT_NE(Window->Felt().grab().toImage(), before);
    EXPECT_TRUE(T().GameChanged);
}

TEST_F(ConfigureFromTableTest, KeysTypedIntoAFieldDontReachTheTable) {
    Choose("Chec&ks/dice ...");
    Activate(*Opened());
    auto* field = Opened()->findChild<QLineEdit*>("txtCheck5");
    field->setFocus();
    field->selectAll();
    T().SelectedCheck = 1;
    const std::int64_t rolls = SessionRolls(T());
    for (const char key : std::string("25300")) QTest::keyClick(Opened()->windowHandle(), key);
    QTest::keyClick(Opened()->windowHandle(), Qt::Key_Return);
    EXPECT_EQ(T().CheckDenominations[5], Dollars(25'300));
    EXPECT_EQ(T().SelectedCheck, 1);
    EXPECT_EQ(SessionRolls(T()), rolls);
}

TEST_F(ConfigureFromTableTest, TheMessageDialogGivesTheFocusBackOnce) {
    Choose("Chec&ks/dice ...");
    Activate(*Opened());
    auto* field = Opened()->findChild<QLineEdit*>("txtCheck2");
    auto* next = Opened()->findChild<QLineEdit*>("txtCheck3");
    auto* check = Opened()->findChild<QAbstractButton*>("chkAutoArrange");
    const auto center = [this](const QWidget& w) { return w.mapTo(Opened(), w.rect().center()); };
    const std::function<void()> ways[] = {
        [&] { QTest::keyClick(Opened()->windowHandle(), Qt::Key_Tab); },
        [&] { QTest::mouseClick(Opened()->windowHandle(), Qt::LeftButton, {}, center(*next)); },
        [&] { QTest::mouseClick(Opened()->windowHandle(), Qt::LeftButton, {}, center(*check)); },
        [&] { QTest::keyClick(Opened()->windowHandle(), Qt::Key_Return); },
        [&] { Opened()->close(); },
    };
    for (const auto& leave : ways) {
        Activate(*Opened());
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, "many");
        int told = 0;
        const auto answer = [this, &told](QDialog& d) {
            EXPECT_EQ(d.windowTitle(), "Check Values");
            EXPECT_EQ(d.parentWidget(), Opened()) << "or the table would be active afterwards";
            ++told;
            QTest::keyClick(d.windowHandle(), Qt::Key_Return);
        };
        DialogDriver driver({answer, answer});
        leave();
        QTest::qWait(30);
        EXPECT_EQ(told, 1) << "way " << &leave - ways;
        EXPECT_EQ(Opened()->focusWidget(), field);
        EXPECT_EQ(field->text(), "many");
        EXPECT_FALSE(check->isDown());
        EXPECT_TRUE(Opened()->isVisible());
    }
}

TEST_F(ConfigureFromTableTest, AnUnfinishedFieldWaitsWhileTheTableIsLookedAt) {
    Choose("Chec&ks/dice ...");
    Activate(*Opened());
    auto* field = Opened()->findChild<QLineEdit*>("txtRate");
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, "1x");
    DialogDriver driver({[](QDialog& d) { d.reject(); }});
    Activate(*Window);
    QTest::qWait(30);
    EXPECT_EQ(driver.Left(), 1u) << "nothing is told";
    EXPECT_EQ(field->text(), "1x");
    field->setText("60");
    field->setModified(true);
    Activate(*Opened());
    Activate(*Window);
    EXPECT_EQ(T().RollsPerHour, Dollars(60)) << "a good value is taken";
}

TEST_F(ConfigureFromTableTest, ARunIsNotDisturbed) {
    T().AutoRollActive = T().HyperDriveActive = true;
    DialogDriver driver({[](QDialog& d) {
        EXPECT_EQ(d.windowTitle(), "Hyper-Drive Active");
        QTest::keyClick(d.windowHandle(), Qt::Key_Escape);
    }});
    Choose("&Configure ...");
    EXPECT_EQ(driver.Left(), 0u);
    EXPECT_EQ(Opened(), nullptr);
    T().AutoRollActive = T().HyperDriveActive = false;
}

TEST_F(ConfigureFromTableTest, ItComesBackWhereItStoodOnItsTab) {
    Choose("&Misc. ...");
    Opened()->move(0, 37);  // the screen of the tests is not wider
    Opened()->resize(Opened()->width(), Opened()->height() + 10);
    const QSize size = Opened()->size();
    T().GameChanged = false;
    Window->close();
    Start();
    ASSERT_NE(Opened(), nullptr);
    EXPECT_TRUE(Opened()->isVisible());
    EXPECT_EQ(Opened()->pos(), QPoint(0, 37));
    EXPECT_EQ(Opened()->size(), size);
    EXPECT_EQ(T().ConfigTab, Page::Misc);
    EXPECT_FALSE(T().GameChanged);
}

}  // namespace
}  // namespace tarnwick
