// The window of the standing orders, driven by mouse and keys.
#include "display/autoplaywindow.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <map>
#include <set>

#include "autoplay/autoplay.h"
#include "display/game.h"
#include "display/mainwindow.h"
#include "stats/accumulators.h"
#include "support/table_fixture.h"
#include "support/temporaryfolder.h"
#include "table/rundriver.h"
#include "window/windows.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct AutoPlayTest : TableTest {
    std::unique_ptr<AutoPlayWindow> Window;
    int Changes = 0;

    void SetUp() override {
        Seat(1, "Ann");
        Seat(4, "Bo");
        Seat(8, "Cy");
        Open();
        t.GameChanged = false;
    }
    void TearDown() override { t.AutoRollActive = t.HyperDriveActive = t.ScriptRunning = false; }
    void Open() {
        Window = std::make_unique<AutoPlayWindow>(t, nullptr);
        QObject::connect(Window.get(), &AutoPlayWindow::ordersChanged, [this] { ++Changes; });
        Window->show();
        Window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Window.get()));
    }
    template <class Control>
    Control* Find(const QString& name) {
        auto* control = Window->findChild<Control*>(name);
        EXPECT_NE(control, nullptr) << name.toStdString();
        return control;
    }
    /// A press at the place of the control on the screen; at the left, where a check box answers.
    void Click(const QWidget* control) {
        QTest::mouseClick(Window->windowHandle(), Qt::LeftButton, {},
                          control->mapTo(Window.get(), QPoint(10, control->height() / 2)));
    }
    void Click(const QString& name) { Click(Find<QWidget>(name)); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(Window->windowHandle(), key, modifiers);
    }
    /// Selects these players in the list, as the user does with Ctrl.
    void Select(std::initializer_list<int> players) {
        auto* list = Find<QListWidget>("lstPlayer");
        bool first = true;
        for (int i = 0; i < list->count(); ++i) {
            const int p = list->item(i)->data(Qt::UserRole).toInt();
            if (std::find(players.begin(), players.end(), p) == players.end()) continue;
            const QPoint place = list->viewport()->mapTo(Window.get(), list->visualItemRect(list->item(i)).center());
            QTest::mouseClick(Window->windowHandle(), Qt::LeftButton, first ? Qt::NoModifier : Qt::ControlModifier,
                              place);
            first = false;
        }
    }
    void TypeAmount(const QString& name, const QString& text) {
        auto* box = Find<QLineEdit>(name);
        box->setFocus();
        box->selectAll();
        if (text.isEmpty()) Press(Qt::Key_Delete);
        for (const QChar c : text) QTest::keyClick(Window->windowHandle(), c.toLatin1());
    }
    QString Heading() { return Find<QLabel>("lblHeading")->text(); }
    QString Text(const char* name) { return Find<QPushButton>(name)->text(); }
    QString Amount4() { return Find<QLineEdit>("txtModifyAmount4")->text(); }
    /// The code of the radio button that is on, -1 when none is.
    int Chosen(const char* prefix) {
        for (int code = 0; code < 8; ++code) {
            const auto* choice = Window->findChild<QRadioButton*>(prefix + QString::number(code));
            if (choice != nullptr && choice->isChecked()) return code;
        }
        return -1;
    }
};

using CodesOf = std::array<std::int32_t, Positions> Settings::*;

/// What one act on a control makes of a player's order.
struct ControlCase {
    QString Control;
    std::function<void()> Act;
    std::function<std::int64_t(std::size_t p)> Order;
    std::int64_t Before, After;
};

struct AutoPlayControlTest : AutoPlayTest {
    std::vector<ControlCase> Cases;

    void AddFlags() {
        const std::pair<const char*, std::array<bool, Positions> Settings::*> flags[] = {
            {"chkAutoTakeFullOdds", &Settings::AutoTakeFullOdds},
            {"chkAutoLayFullOdds", &Settings::AutoLayFullOdds},
            {"chkAutoDownPlaceBets", &Settings::AutoDownPlaceBets},
            {"chkAutoPassDice", &Settings::AutoPassDice}};
        for (const auto& [name, flag] : flags) {
            const auto order = [this, flag = flag](std::size_t p) { return (t.*flag)[p] ? 1 : 0; };
            const auto press = [this, name = name] { Click(name); };
            Cases.push_back({name, press, order, 0, 1});
            Cases.push_back({name, press, order, 1, 0});
        }
    }
    /// Radio buttons `prefix` and a code, pressed in this order.
    void AddChoices(const QString& prefix, std::initializer_list<int> codes, CodesOf orders, int before) {
        for (const int code : codes) {
            const QString name = prefix + QString::number(code);
            const auto order = [this, orders](std::size_t p) { return (t.*orders)[p]; };
            Cases.push_back({name, [this, name] { Click(name); }, order, before, code});
            before = code;
        }
    }
    void AddBiases() {
        const std::pair<const char*, CodesOf> biases[] = {{"cmbLayBias", &Settings::LayBias},
                                                          {"cmbPlaceBias", &Settings::PlaceBias},
                                                          {"cmbDoBias", &Settings::DoBias},
                                                          {"cmbDontBias", &Settings::DontBias}};
        for (const auto& [name, orders] : biases) {
            const auto order = [this, orders = orders](std::size_t p) { return (t.*orders)[p]; };
            const auto down = [this, name = name] {
                Find<QComboBox>(name)->setFocus();
                Press(Qt::Key_Down);
            };
            Cases.push_back({name, down, order, 0, 1});
            Cases.push_back({name, down, order, 1, 2});
        }
    }
    /// A button that goes through `count` steps.
    void AddSteps(const QString& name, int count, const std::function<std::int64_t(std::size_t)>& order) {
        for (int step = 0; step < count; ++step) {
            Cases.push_back({name, [this, name] { Click(name); }, order, step, (step + 1) % count});
        }
    }
    void AddArithmetic(int slot) {
        const auto s = At(slot);
        if (slot < WinnersBetSlot) {
            AddSteps(QStringLiteral("cmdMathOperator%1").arg(slot), 4,
                     [this, s](std::size_t p) { return t.HandleOperator[p][s]; });
        }
        AddSteps(QStringLiteral("cmdUnits%1").arg(slot), 7, [this, s](std::size_t p) { return t.HandleUnit[p][s]; });
        const QString name = QStringLiteral("txtModifyAmount%1").arg(slot);
        const auto type = [this, name, slot] {
            TypeAmount(name, QString::number(slot) + ".5");
            Press(Qt::Key_Tab);
        };
        Cases.push_back({name, type, [this, s](std::size_t p) { return t.HandleAmount[p][s].TenThousandths; }, 0,
                         slot * 10'000 + 5'000});
    }
    /// Goes through all cases with `selected` of 1, 4 and 8.
    void ExpectAll(const std::set<std::size_t>& selected) {
        for (const ControlCase& c : Cases) {
            SCOPED_TRACE(c.Control.toStdString() + " for " + std::to_string(selected.size()));
            t.GameChanged = false;
            Changes = 0;
            std::map<std::size_t, std::int64_t> expected;
            for (const std::size_t p : {1u, 4u, 8u}) {
                ASSERT_TRUE(selected.count(p) == 0 || c.Order(p) == c.Before) << p;
                expected[p] = selected.count(p) != 0 ? c.After : c.Order(p);
            }
            c.Act();
            for (const auto& [p, order] : expected) EXPECT_EQ(c.Order(p), order) << p;
            EXPECT_TRUE(t.GameChanged);
            EXPECT_GE(Changes, 1);
        }
    }
};

TEST_F(AutoPlayControlTest, EveryControlSetsItsOrderForThePlayersSelected) {
    AddFlags();
    AddChoices("optAutoAdjust", {1, 2, 0}, &Settings::AutoAdjustMode, 0);
    AddChoices("optWinner", {2, 3, 4, 5, 6, 7, 0, 1}, &Settings::WinnerHandling, 1);
    AddChoices("optLoser", {2, 3, 4, 5, 6, 7, 0, 1}, &Settings::LoserHandling, 1);
    AddBiases();
    for (const int slot : {WinnersSameBetSlot, LosersSameBetSlot, WinnersBetSlot, LosersBetSlot}) AddArithmetic(slot);
    Select({4});
    ExpectAll({4});
    for (const int p : {1, 4, 8}) {
        ResetStandingOrders(t, p);
        t.WinnerHandling[At(p)] = t.LoserHandling[At(p)] = 1;
    }
    Select({1, 8});
    ExpectAll({1, 8});
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(AutoPlayTest, WhatDiffersIsShownUnsetAndTheNextPressSetsIt) {
    t.AutoPassDice[4] = true;
    t.PlaceBias[4] = 2;
    t.AutoAdjustMode[4] = 1;
    t.WinnerHandling[4] = 6;
    t.HandleAmount[4][4] = Dollars(7);
    t.HandleOperator[4][4] = 2;
    t.HandleUnit[4][4] = 1;
    SetComeOutWorking(t, 4, Row::Place4, true);
    auto* lstWorking = Find<QListWidget>("lstWorking");
    const auto line = [lstWorking](int row) { return lstWorking->item(row - 1)->text(); };
    auto* pass = Find<QCheckBox>("chkAutoPassDice");
    auto* bias = Find<QComboBox>("cmbPlaceBias");

    Select({4});
    EXPECT_EQ(pass->checkState(), Qt::Checked);
    EXPECT_EQ(bias->currentText(), "decrease");
    EXPECT_EQ(Chosen("optWinner"), 6);
    EXPECT_EQ(Chosen("optAutoAdjust"), 1);
    EXPECT_EQ(Amount4(), "7");
    EXPECT_EQ(Text("cmdMathOperator4"), "x");
    EXPECT_EQ(Text("cmdUnits4"), "%");
    EXPECT_EQ(line(Row::Place4), "Place 4 - Yes");
    EXPECT_EQ(line(Row::Buy4), "Buy 4 - No");

    Select({1, 4});
    EXPECT_EQ(pass->checkState(), Qt::PartiallyChecked);
    EXPECT_EQ(Find<QCheckBox>("chkAutoTakeFullOdds")->checkState(), Qt::Unchecked);
    EXPECT_EQ(bias->currentIndex(), -1);
    EXPECT_EQ(Find<QComboBox>("cmbLayBias")->currentText(), "nearest");
    EXPECT_EQ(Chosen("optWinner"), -1);
    EXPECT_EQ(Chosen("optAutoAdjust"), -1);
    EXPECT_EQ(Chosen("optLoser"), 1);
    for (const char* name : {"cmdMathOperator4", "cmdUnits4"}) EXPECT_EQ(Text(name), "") << name;
    EXPECT_EQ(Amount4(), "");
    EXPECT_EQ(line(Row::Place4), "Place 4");

    Click("chkAutoPassDice");
    Click("optWinner3");
    Click("cmdMathOperator4");
    Click("cmdUnits4");
    bias->setFocus();
    Press(Qt::Key_Down);
    EXPECT_EQ(pass->checkState(), Qt::Checked);
    for (const std::size_t p : {1u, 4u}) {
        EXPECT_TRUE(t.AutoPassDice[p]);
        EXPECT_EQ(t.WinnerHandling[p], 3);
        EXPECT_EQ(t.HandleOperator[p][4], 0);
        EXPECT_EQ(t.HandleUnit[p][4], 0);
        EXPECT_EQ(t.PlaceBias[p], 0);
    }
    t.HandleUnit[1][5] = t.HandleUnit[4][5] = 3;
    Window->ShowAutoPlayData();
    EXPECT_EQ(Text("cmdUnits5"), "$5 Units");
    t.CheckDenominations[2] = Dollars(10);
    Window->ShowAutoPlayData();
    EXPECT_EQ(Text("cmdUnits5"), "$10 Units");
    // A look into the empty amount and out again leaves both amounts as they were.
    Find<QLineEdit>("txtModifyAmount4")->setFocus();
    Press(Qt::Key_Tab);
    EXPECT_EQ(t.HandleAmount[1][4], currency{});
    EXPECT_EQ(t.HandleAmount[4][4], Dollars(7));
    TypeAmount("txtModifyAmount4", "12");
    Press(Qt::Key_Return);
    EXPECT_EQ(t.HandleAmount[1][4], Dollars(12));
    EXPECT_EQ(t.HandleAmount[4][4], Dollars(12));
}

TEST_F(AutoPlayTest, TheHeadingAndTheListFollowThePlayers) {
    auto* list = Find<QListWidget>("lstPlayer");
    EXPECT_EQ(Heading(), "Settings for Ann") << "the bettor, when nobody was selected";
    Select({1, 4, 8});
    EXPECT_EQ(Heading(), "Settings for these 3 selected players:");
    list->clearSelection();
    EXPECT_EQ(Heading(), "No players selected");
    EXPECT_FALSE(Find<QCheckBox>("chkAutoPassDice")->isEnabled());

    Select({4});
    RenamePlayer(t, 4, "Robert");
    Seat(2, "<b>Di</b>");
    RemovePlayer(t, 8);
    Window->ConfigAutoPlayForm();
    EXPECT_EQ(Heading(), "Settings for Robert");
    QStringList names;
    for (int i = 0; i < list->count(); ++i) names << list->item(i)->text();
    EXPECT_EQ(names, QStringList({"Ann", "<b>Di</b>", "Robert"}));
    ASSERT_EQ(list->selectedItems().size(), 1);

    MovePlayer(t, 4, 7);
    Window->ConfigAutoPlayForm();
    EXPECT_EQ(Heading(), "Settings for Robert") << "the selection goes with the player";
    for (const int p : {1, 2, 7}) RemovePlayer(t, p);
    Window->ConfigAutoPlayForm();
    EXPECT_EQ(Heading(), "No players present");
    EXPECT_EQ(list->count(), 0);
}

TEST_F(AutoPlayTest, WorkingOnTheComeOutIsSetForTheSelectedLines) {
    Select({1, 8});
    auto* list = Find<QListWidget>("lstWorking");
    EXPECT_EQ(list->count(), 91);
    for (const int row : {Row::Place4, Row::Hard6}) list->item(row - 1)->setSelected(true);
    const auto works = [this](int row) {
        return std::vector<int>{t.ComeOutWorking(1, row), t.ComeOutWorking(4, row), t.ComeOutWorking(8, row)};
    };
    struct Case {
        const char* Button;
        std::vector<int> Place4, Hard6;
        const char* Line;
    };
    for (const Case& c :
         {Case{"cmdYes", {1, 0, 1}, {1, 1, 1}, "Place 4 - Yes"}, Case{"cmdNo", {0, 0, 0}, {0, 1, 0}, "Place 4 - No"},
          Case{"cmdDefault", {0, 0, 0}, {1, 1, 1}, "Place 4 - No"}}) {
        Click(c.Button);
        EXPECT_EQ(works(Row::Place4), c.Place4) << c.Button;
        EXPECT_EQ(works(Row::Hard6), c.Hard6) << c.Button;
        EXPECT_EQ(list->item(Row::Place4 - 1)->text(), c.Line);
    }
    EXPECT_EQ(list->selectedItems().size(), 2) << "the selection stays";
    list->setCurrentRow(Row::Place4 - 1);
    list->setFocus();
    for (const int works1 : {1, 0}) {
        Press(Qt::Key_Return);
        EXPECT_EQ(works(Row::Place4), (std::vector<int>{works1, 0, works1})) << "Enter turns a line over";
    }
    Click("cmdSelectAll");
    Click("cmdYes");
    for (int row = 1; row <= Row::LastBet; ++row) EXPECT_TRUE(t.ComeOutWorking(8, row) != 0) << row;
    EXPECT_EQ(t.ComeOutWorking(4, Row::Buy4), 0);
}

TEST_F(AutoPlayTest, OddsAreRaisedAtOnce) {
    for (const int p : {1, 4, 8}) Bet(p, Row::PassLine, 10);
    Bet(8, Row::DontPass, 10);
    RollTotal(6);
    Select({1, 8});
    Click("chkAutoTakeFullOdds");
    for (const int p : {1, 4, 8}) EXPECT_EQ(Amount(p, Row::PassLineOdds), Dollars(p == 4 ? 0 : 25)) << p;
    Click("chkAutoLayFullOdds");
    EXPECT_GT(Amount(8, Row::DontPassOdds), currency{});
}

TEST_F(AutoPlayTest, PlaceBetsComeDownForThoseWhoLayFullOdds) {
    for (const int p : {1, 8}) {
        Bet(p, Row::PassLine, 10);
        Bet(p, Row::Place4 + 2, 12);
    }
    RollTotal(6);
    t.AutoLayFullOdds[8] = true;
    Select({1, 8});
    Click("chkAutoDownPlaceBets");
    EXPECT_EQ(Amount(1, Row::Place4 + 2), Dollars(12));
    EXPECT_EQ(Amount(8, Row::Place4 + 2), currency{});
}

TEST_F(AutoPlayTest, ARunIsAskedAboutBeforeAnyChange) {
    struct Case {
        const char* What;
        std::function<void()> Act;
    };
    const Case controls[] = {
        {"check box", [this] { Click("chkAutoPassDice"); }},
        {"radio button", [this] { Click("optWinner5"); }},
        {"unit", [this] { Click("cmdUnits4"); }},
        {"amount",
         [this] {
             TypeAmount("txtModifyAmount4", "9");
             Press(Qt::Key_Return);
             QTest::qWait(1);
         }},
        {"list",
         [this] {
             Find<QComboBox>("cmbDoBias")->setFocus();
             Press(Qt::Key_Down);
         }},
    };
    const auto shown = [this] {
        return std::tuple(Find<QCheckBox>("chkAutoPassDice")->checkState() == Qt::Checked, Chosen("optWinner"),
                          Text("cmdUnits4"), Amount4(), Find<QComboBox>("cmbDoBias")->currentIndex());
    };
    Select({4});
    for (const Case& c : controls) {
        SCOPED_TRACE(c.What);
        t.AutoRollActive = t.HyperDriveActive = true;
        const Settings before = t;
        const auto display = shown();
        Front.Answers = {{MsgAnswer::No, {}, false}};
        c.Act();
        EXPECT_THAT(Messages(), ElementsAre("[Hyper-Drive Active] Do you want to stop the Hyper-Drive?"));
        EXPECT_TRUE(before == static_cast<const Settings&>(t));
        EXPECT_EQ(shown(), display) << "the control shows the old state again";
        EXPECT_TRUE(t.HyperDriveActive);

        Front.Answers = {{MsgAnswer::Yes, {}, false}};
        c.Act();
        EXPECT_FALSE(t.AutoRollActive);
        EXPECT_FALSE(before == static_cast<const Settings&>(t));
        EXPECT_NE(shown(), display);
        Front.Shown.clear();
    }
    t.ScriptRunning = true;
    t.ScriptPlayer = 8;
    Front.Answers = {{MsgAnswer::No, {}, false}};
    Click("chkAutoTakeFullOdds");
    EXPECT_THAT(Messages(), ElementsAre("[Auto-Bet Active] Cy's script processing.\n\nDo you want to interrupt "
                                        "auto-betting?"));
    EXPECT_FALSE(t.AutoTakeFullOdds[4]);
}

TEST_F(AutoPlayTest, AnAmountThatIsNoneIsToldAndStays) {
    Select({4});
    t.HandleAmount[4][4] = Dollars(5);
    Window->ShowAutoPlayData();
    auto* box = Find<QLineEdit>("txtModifyAmount4");
    struct Case {
        const char* Typed;
        const char* Told;
    };
    const Case cases[] = {
        {"abc", "[Auto-Play] \"abc\" is not an amount."},
        {"1.2.3", "[Auto-Play] \"1.2.3\" is not an amount."},
        {"-1", "[Auto-Play] The amount must be from 0 to 9,999,999."},
        {"10000000", "[Auto-Play] The amount must be from 0 to 9,999,999."},
    };
    for (const Case& c : cases) {
        TypeAmount("txtModifyAmount4", c.Typed);
        Click("optWinner2");
        QTest::qWait(1);
        EXPECT_THAT(Messages(), ElementsAre(c.Told));
        EXPECT_EQ(box->text(), c.Typed) << "it can be mended";
        EXPECT_TRUE(box->hasFocus());
        EXPECT_EQ(t.HandleAmount[4][4], Dollars(5));
    }
    // While one is being typed, a refresh leaves it alone; Escape gives it up, and only then closes the window.
    Window->ConfigAutoPlayForm();
    EXPECT_EQ(box->text(), "10000000");
    Press(Qt::Key_Escape);
    EXPECT_EQ(box->text(), "5");
    EXPECT_TRUE(Window->isVisible());
    TypeAmount("txtModifyAmount4", "");
    Press(Qt::Key_Tab);
    EXPECT_EQ(t.HandleAmount[4][4], currency{}) << "an emptied box is no amount at all";
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Window->isVisible());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(AutoPlayTest, AnAmountBelongsToThoseForWhomItWasTyped) {
    Select({4});
    TypeAmount("txtModifyAmount4", "33");
    Select({8});
    EXPECT_EQ(t.HandleAmount[4][4], Dollars(33));
    EXPECT_EQ(t.HandleAmount[8][4], currency{});
    EXPECT_EQ(Amount4(), "0");
    TypeAmount("txtModifyAmount4", "44");
    Window->close();
    EXPECT_EQ(t.HandleAmount[8][4], Dollars(44)) << "what was typed counts when the window closes";
}

TEST_F(AutoPlayTest, TheKeyboardReachesEverything) {
    std::set<QChar> letters;
    const auto mnemonicOf = [](const QString& caption) {
        const int at = static_cast<int>(caption.indexOf(QLatin1Char('&')));
        return at < 0 ? QChar() : caption.at(at + 1).toUpper();
    };
    QStringList captions;
    for (const auto* button : Window->findChildren<QAbstractButton*>()) captions << button->text();
    for (const auto* group : Window->findChildren<QGroupBox*>()) captions << group->title();
    for (const auto* label : Window->findChildren<QLabel*>()) captions << label->text();
    for (const QString& caption : captions) {
        const QChar letter = mnemonicOf(caption);
        EXPECT_TRUE(letter.isNull() || letters.insert(letter).second) << caption.toStdString();
    }
    EXPECT_EQ(letters.size(), 13u);

    // Mnemonics lead into their group, Tab goes through every control of it.
    Select({4});
    Press(Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return t.AutoPassDice[4]; }, 1000));
    Press(Qt::Key_B, Qt::AltModifier);
    Press(Qt::Key_Down);
    EXPECT_EQ(t.WinnerHandling[4], 2) << "the arrow goes on from the order in force";
    EXPECT_FALSE(Find<QPushButton>("cmdYes")->isEnabled()) << "without a line there is nothing to set";
    Find<QListWidget>("lstWorking")->item(3)->setSelected(true);
    Press(Qt::Key_S, Qt::AltModifier);
    std::set<QString> reached;
    for (int i = 0; i < 60; ++i) {
        if (const QWidget* focus = Window->focusWidget()) reached.insert(focus->objectName());
        Press(Qt::Key_Tab);
    }
    for (const auto* control : Window->findChildren<QWidget*>(QRegularExpression("^(chk|cmb|cmd|txt|lst)"))) {
        if (control->focusPolicy() != Qt::NoFocus && control->objectName() != QString()) {
            EXPECT_TRUE(reached.count(control->objectName())) << control->objectName().toStdString();
        }
    }
}

TEST(AutoPlayPlaceTest, AChangeInARunThatTheUserStopsIsMade) {
    const testsupport::TemporaryFolder folder;
    MainWindow window(folder.Path(""));
    window.show();
    Table& t = window.CurrentGame().T();
    ASSERT_EQ(AddPlayer(t, 3, "Ann", Dollars(100)), "");
    t.ShooterBetRequirement = 0;
    t.HyperThrottle = 0;
    AutoPlayWindow orders(t, &window);
    orders.show();
    t.AutoPlayPlayers = 1 << 3;
    orders.ConfigAutoPlayForm();
    auto* pass = orders.findChild<QCheckBox*>("chkAutoPassDice");
    for (const bool stop : {false, true}) {
        QTimer::singleShot(30, &window, [&] { pass->click(); });
        DialogDriver driver({[&](QDialog& d) {
            EXPECT_EQ(d.windowTitle(), "Hyper-Drive Active");
            // The run that goes on is ended in the end; even if that came first, No means no.
            if (!stop) QTimer::singleShot(0, &window, [&] { StopAutoRoll(t); });
            QTest::keyClick(d.windowHandle(), stop ? Qt::Key_Return : Qt::Key_Escape);
        }});
        window.ToggleRun();
        EXPECT_EQ(driver.Left(), 0u);
        EXPECT_EQ(t.AutoPassDice[3], stop);
        EXPECT_EQ(pass->isChecked(), stop);
        EXPECT_GT(SessionRolls(t), 0);
    }
}

TEST(AutoPlayPlaceTest, TheWindowIsThereAgainTheNextEvening) {
    const testsupport::TemporaryFolder folder;
    {
        MainWindow window(folder.Path(""));
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        Table& t = window.CurrentGame().T();
        ASSERT_EQ(AddPlayer(t, 3, "Ann", Dollars(100)), "");
        QTest::keyClick(window.windowHandle(), Qt::Key_F7);
        auto* orders = window.findChild<AutoPlayWindow*>("frmAutoPlay");
        ASSERT_NE(orders, nullptr);
        EXPECT_TRUE(orders->isVisible());
        orders->move(70, 40);
        // A player who comes and a setting that a script changes are seen at once.
        ASSERT_EQ(AddPlayer(t, 5, "Bo", Dollars(100)), "");
        EXPECT_EQ(orders->findChild<QListWidget*>("lstPlayer")->count(), 2);
        t.AutoPlayPlayers = 1 << 5;
        t.AutoPassDice[5] = true;
        t.Front->RefreshOpenWindows();
        EXPECT_TRUE(orders->findChild<QCheckBox*>("chkAutoPassDice")->isChecked());
        DialogDriver leaving({[](QDialog& d) { QTest::keyClick(d.windowHandle(), Qt::Key_N, Qt::AltModifier); }});
        EXPECT_TRUE(window.close());
    }
    MainWindow next(folder.Path(""));
    auto* orders = next.findChild<AutoPlayWindow*>("frmAutoPlay");
    ASSERT_NE(orders, nullptr);
    EXPECT_TRUE(orders->isVisible());
    EXPECT_EQ(orders->pos().y(), 40);  // the screen of the tests is narrower than the window
    EXPECT_EQ(orders->findChild<QLabel*>("lblHeading")->text(), "Settings for Bo");
}

}  // namespace
}  // namespace tarnwick
