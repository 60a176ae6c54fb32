// Tab "Payoffs" of the configuration window.
#include <gmock/gmock.h>

#include <QListWidget>
#include <QMenu>
#include <QScrollBar>

#include "config/configure.h"
#include "config/fieldpayoffs.h"
#include "config/payoffs.h"
#include "display/desktopscreen.h"
#include "display/payoffgrid.h"
#include "display/payoffstab.h"
#include "display/words.h"
#include "window/configtabs.h"
#include "window/windows.h"

namespace tarnwick {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

struct PayoffsTabTest : TabTest {
    static int LineOf(const std::string& name) {
        const auto& lines = PayoffLines();
        const auto found = std::find_if(lines.begin(), lines.end(), [&](const PayoffLine& line) {
            return line.In != PayoffTable::Heading && line.Name == name;
        });
        EXPECT_NE(found, lines.end()) << name;
        return static_cast<int>(found - lines.begin());
    }
    static PayoffView& Grid(const PayoffsTab& tab) { return *Child<PayoffView>(tab, "grdPayoffs"); }
    static QPoint Center(PayoffView& grid, int line, int column) {
        const QModelIndex at = grid.model()->index(line, column);
        grid.scrollTo(at);
        return grid.visualRect(at).center();
    }
    static void ClickCell(const PayoffsTab& tab, const std::string& name, int column = PayoffModel::First) {
        PayoffView& grid = Grid(tab);
        const QPoint at = Center(grid, LineOf(name), column);
        Click(*grid.viewport(), at);
    }
    static void DoubleClickCell(const PayoffsTab& tab, const std::string& name, int column) {
        PayoffView& grid = Grid(tab);
        const QPoint at = Center(grid, LineOf(name), column);
        Click(*grid.viewport(), at);
        QTest::mouseDClick(grid.window()->windowHandle(), Qt::LeftButton, {},
                           grid.viewport()->mapTo(grid.window(), at));
    }
    static void Keys(PayoffsTab& tab, const QString& text) {
        for (const QChar c : text) {
            if (c == QLatin1Char('\n')) {
                PressKey(tab, Qt::Key_Return);
            } else if (c == QLatin1Char('\t')) {
                PressKey(tab, Qt::Key_Tab);
            } else {
                QTest::keyClick(tab.windowHandle(), c.toLatin1());
            }
        }
    }
    /// What the grid shows of a line: "9 to 5".
    static std::string Shown(const PayoffsTab& tab, const std::string& name) {
        const QAbstractItemModel& model = *Grid(tab).model();
        QStringList texts;
        for (int column = PayoffModel::First; column < PayoffModel::Columns; ++column) {
            texts << model.index(LineOf(name), column).data().toString();
        }
        return Utf8(texts.join(QLatin1Char(' ')));
    }
    static std::string CurrentLine(const PayoffsTab& tab) {
        return PayoffModel::LineAt(Grid(tab).currentIndex().row()).Name;
    }
};

TEST_F(PayoffsTabTest, TheDefaultTableMayBeLeft) {
    PayoffsTab tab(T);
    const Settings before = T;
    Open(tab);
    QSignalSpy changes(&tab, &ConfigTab::settingsChanged);
    EXPECT_EQ(Shown(tab, "Place 4"), "9 to 5");
    EXPECT_EQ(Shown(tab, "Fire -- 6 points"), "999 to 1");
    for (int i = 0; i < 30; ++i) PressKey(tab, Qt::Key_Tab);
    EXPECT_TRUE(tab.MayLeave());
    EXPECT_TRUE(static_cast<const Settings&>(T) == before);
    EXPECT_FALSE(T.GameChanged);
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(Told(), "");
}

TEST_F(PayoffsTabTest, TypedKeysChangeALine) {
    struct Case {
        const char* Line;
        int Column;
        const char* Keys;
        const char* Shown;
        const char* Payoff;  ///< as it is paid
    };
    const int first = PayoffModel::First, second = PayoffModel::Second, word = PayoffModel::Word,
              name = PayoffModel::Name;
    const Case cases[] = {
        // The line is merely current.
        {"Hop 13", first, "f", "16 for 1", "16 for 1"},
        {"Hop 13", first, "F", "16 for 1", "16 for 1"},
        {"Hop 13", second, "T", "15 to 1", "15 to 1"},
        {"Hop 13", second, " ", "16 for 1", "16 for 1"},
        {"Hop 13", name, " ", "15 to 1", "15 to 1"},
        {"Hop 13", word, "f", "16 for 1", "16 for 1"},
        // A number is taken under the word beside it.
        {"Hop 13", first, "14\n", "14 for 1", "14 for 1"},
        {"Hop 13", second, "2\n", "14 for 2", "14 for 2"},
        {"Hop 13", first, "t", "12 to 2", "12 to 2"},
        {"Place 4", first, "9.5\t5.25\n", "9.50 to 5.25", "9.5 to 5.25"},
        {"Place 5", first, "$1,500\n", "1,500 to 5", "1500 to 5"},
        {"Field -- 2", first, "-1\n", "-1 to 1", "-1 to 1"},
        {"Midway -- Hard 6", first, "3\t2\t", "3 to 2", "3 to 2"},
        {"7 Point 7 -- Point 7", first, "4\n", "4 to 1", "4 to 1"},
        {"Fire -- 4 points", second, "2\n", "24 to 2", "24 to 2"},
        // The word changes while the number is typed: it counts under the new one.
        {"Hop 14", first, "16f\n", "16 for 1", "16 for 1"},
        {"Hop 15", first, "1 4\n", "14 for 1", "14 for 1"},
        {"Hop 16", first, "9tf t\n", "9 to 1", "9 to 1"},
    };
    PayoffsTab tab(T);
    Open(tab);
    QSignalSpy changes(&tab, &ConfigTab::settingsChanged);
    for (const Case& c : cases) {
        ClickCell(tab, c.Line, c.Column);
        Keys(tab, QString::fromLatin1(c.Keys));
        ASSERT_TRUE(tab.MayLeave());
        EXPECT_EQ(Shown(tab, c.Line), c.Shown) << c.Keys;
        EXPECT_EQ(PayoffText(EntryOf(T, PayoffModel::LineAt(LineOf(c.Line)))), c.Payoff) << c.Keys;
    }
    EXPECT_GT(changes.count(), 0);
    EXPECT_TRUE(T.GameChanged);
    EXPECT_EQ(Told(), "");
}

// The word flips while a cell is open and untouched: the numbers paid stay.
TEST_F(PayoffsTabTest, AWordTypedIntoAnOpenCellLeavesItsNumbers) {
    PayoffsTab tab(T);
    Open(tab);
    DoubleClickCell(tab, "Hop 22", PayoffModel::First);
    ASSERT_NE(Grid(tab).Editor, nullptr);
    for (const auto& [key, text] : {std::pair{"f", "31"}, std::pair{"t", "30"}, std::pair{" ", "31"}}) {
        Keys(tab, QString::fromLatin1(key));
        ASSERT_NE(Grid(tab).Editor, nullptr);
        EXPECT_EQ(Grid(tab).Editor->text(), text);
    }
    Keys(tab, "\n");
    EXPECT_EQ(Shown(tab, "Hop 22"), "31 for 1");
    EXPECT_EQ(T.Payoff[Row::Hop22].Pays, Dollars(30));
    EXPECT_EQ(CurrentLine(tab), "Hop 23") << "Enter goes down";
    DoubleClickCell(tab, "Hop 22", PayoffModel::Word);
    EXPECT_EQ(Shown(tab, "Hop 22"), "30 to 1");
}

TEST_F(PayoffsTabTest, KeysGoFromNumberToNumber) {
    PayoffsTab tab(T);
    Open(tab);
    struct Step {
        Qt::Key Key;
        const char* Line;
        int Column;
    };
    const Step steps[] = {
        {Qt::Key_Home, "Passline/Come (c.o.)", 1},
        {Qt::Key_Tab, "Passline/Come (c.o.)", 3},
        {Qt::Key_Tab, "Pass/Come 4", 1},
        {Qt::Key_Backtab, "Passline/Come (c.o.)", 3},
        {Qt::Key_Return, "Pass/Come 4", 3},
        {Qt::Key_Left, "Pass/Come 4", 1},
        {Qt::Key_Down, "Pass/Come 5", 1},
        {Qt::Key_Right, "Pass/Come 5", 3},
        {Qt::Key_Up, "Pass/Come 4", 3},
        {Qt::Key_End, "Fire -- 6 points", 3},
        {Qt::Key_Down, "Fire -- 6 points", 3},
        {Qt::Key_Home, "Passline/Come (c.o.)", 3},
        {Qt::Key_Up, "Passline/Come (c.o.)", 3},
    };
    for (const Step& step : steps) {
        PressKey(tab, step.Key);
        EXPECT_EQ(CurrentLine(tab), step.Line) << step.Key;
        EXPECT_EQ(Grid(tab).currentIndex().column(), step.Column) << step.Line;
    }
    // Over the headings, and past the line that is fixed.
    ClickCell(tab, "Pass/Come 10 Odds");
    PressKey(tab, Qt::Key_Down);
    EXPECT_EQ(CurrentLine(tab), "Don't Pass/Come (c.o.)");
    ClickCell(tab, "Midway -- Hard 8", PayoffModel::Second);
    PressKey(tab, Qt::Key_Tab);
    EXPECT_EQ(CurrentLine(tab), "Fire -- 1 point");
    for (const Qt::Key key : {Qt::Key_PageUp, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_PageDown}) {
        PressKey(tab, key);
        EXPECT_TRUE(PayoffModel::IsEditable(Grid(tab).currentIndex().row()));
    }
    PressKey(tab, Qt::Key_End);
    PressKey(tab, Qt::Key_Right);
    PressKey(tab, Qt::Key_Tab);
    EXPECT_FALSE(Grid(tab).hasFocus()) << "Tab leaves the grid at its end";
}

TEST_F(PayoffsTabTest, TheFixedLossCantBeChanged) {
    PayoffsTab tab(T);
    Open(tab);
    DoubleClickCell(tab, "Fire -- 0 points", PayoffModel::First);
    Keys(tab, "5f\n");
    EXPECT_EQ(Shown(tab, "Fire -- 0 points"), "-1 to 1");
    EXPECT_TRUE(tab.MayLeave());
}

TEST_F(PayoffsTabTest, RefusedCellsKeepTheirValue) {
    struct Case {
        const char* Line;
        int Column;
        const char* Keys;
        const char* Told;
    };
    const int first = PayoffModel::First, second = PayoffModel::Second;
    const Case cases[] = {
        {"Place 6", first, "abc\n", "Payoff error: \"abc\" is not a number.\nThe payoff on Place 6 is still 7 to 6.\n"},
        {"Place 6", second, "6x\t", "Payoff error: \"6x\" is not a number.\nThe payoff on Place 6 is still 7 to 6.\n"},
        {"Place 6", first, "1.2.3\n",
         "Payoff error: \"1.2.3\" is not a number.\nThe payoff on Place 6 is still 7 to 6.\n"},
        {"Place 6", second, "0\n", "Payoff error: The amount bet must be greater than zero.\n"},
        {"Place 6", first, "-7\n", "Payoff error: The payoff on Place 6 must be a positive amount.\n"},
        {"Place 6", first, "99999999\t", "Payoff error: The numbers of a payoff may not exceed 9,999,999.\n"},
    };
    PayoffsTab tab(T);
    Open(tab);
    const Settings before = T;
    for (const Case& c : cases) {
        for (const bool byLeaving : {false, true}) {
            ClickCell(tab, c.Line, c.Column);
            QString keys = QString::fromLatin1(c.Keys);
            if (byLeaving) keys.chop(1);
            Keys(tab, keys);
            if (byLeaving) {
                EXPECT_FALSE(tab.MayLeave());
            }
            EXPECT_EQ(Told(), c.Told);
            EXPECT_EQ(Shown(tab, c.Line), "7 to 6");
            EXPECT_EQ(CurrentLine(tab), c.Line) << "the refused cell stays current";
            EXPECT_EQ(Grid(tab).currentIndex().column(), c.Column);
            EXPECT_TRUE(Grid(tab).hasFocus());
            EXPECT_EQ(Grid(tab).Editor, nullptr) << "Tab doesn't go on from it";
            EXPECT_TRUE(tab.MayLeave());
        }
        // A click elsewhere ends the typing too.
        ClickCell(tab, c.Line, c.Column);
        QString keys = QString::fromLatin1(c.Keys);
        keys.chop(1);
        Keys(tab, keys);
        ClickCell(tab, "Place 9");
        EXPECT_EQ(Told(), c.Told);
    }
    EXPECT_TRUE(static_cast<const Settings&>(T) == before);
    ClickCell(tab, "Place 6");
    Keys(tab, "x");
    PressKey(tab, Qt::Key_Escape);
    EXPECT_TRUE(tab.MayLeave());
    EXPECT_EQ(Told(), "") << "Escape drops what was typed";
}

TEST_F(PayoffsTabTest, AVigThatCantBePaidRefusesALayPayoff) {
    Stand(Row::Lay4, 100);  // wins 50; the vig of 2.50 goes down to 2
    SetBankroll(T, 1, Dollars(102));
    PayoffsTab tab(T);
    Open(tab);
    ClickCell(tab, "Lay 4");
    Keys(tab, "2\n");
    EXPECT_THAT(Told(), StartsWith("Configuration: You're not allowed to change this setting at this time"));
    EXPECT_EQ(Shown(tab, "Lay 4"), "1 to 2");
    EXPECT_EQ(T.BetsOnTable[1], Dollars(102));
    SetBankroll(T, 1, Dollars(105));
    Keys(tab, "2\n");
    EXPECT_EQ(Shown(tab, "Lay 4"), "2 to 2");
    EXPECT_EQ(T.BetsOnTable[1], Dollars(105)) << "the vig follows what the bet wins";
}

TEST_F(PayoffsTabTest, LeavingChecksTheList) {
    struct Case {
        const char* Line;
        const char* Keys;  ///< into its first number
        const char* Told;
    };
    const Case cases[] = {
        {"Passline/Come (c.o.)", "0\n",
         "Payoff ratio error: The payoff on Passline/Come (c.o.) must be a positive amount.\n"},
        {"Pass/Come 4", "0\n", "Payoff ratio error: The payoff on Pass/Come 4 must be a positive amount.\n"},
        {"Pass/Come 5", "-1\n", "Payoff ratio error: The payoff on Pass/Come 5 must be a positive amount.\n"},
        {"Pass/Come 6", "0\n", "Payoff ratio error: The payoff on Pass/Come 6 must be a positive amount.\n"},
        {"Pass/Come 8", "1f\n", "Payoff ratio error: The payoff on Pass/Come 8 must be a positive amount.\n"},
        {"Pass/Come 9", "0\n", "Payoff ratio error: The payoff on Pass/Come 9 must be a positive amount.\n"},
        {"Pass/Come 10", "0\n", "Payoff ratio error: The payoff on Pass/Come 10 must be a positive amount.\n"},
        {"Don't Pass/Come (c.o.)", "0\n",
         "Payoff ratio error: The payoff on Don't Pass/Come (c.o.) must be a positive amount.\n"},
        {"DP/DC 4", "0\n", "Payoff ratio error: The payoff on DP/DC 4 must be a positive amount.\n"},
        {"DP/DC 5", "0\n", "Payoff ratio error: The payoff on DP/DC 5 must be a positive amount.\n"},
        {"DP/DC 6", "0\n", "Payoff ratio error: The payoff on DP/DC 6 must be a positive amount.\n"},
        {"DP/DC 8", "0\n", "Payoff ratio error: The payoff on DP/DC 8 must be a positive amount.\n"},
        {"DP/DC 9", "0\n", "Payoff ratio error: The payoff on DP/DC 9 must be a positive amount.\n"},
        {"DP/DC 10", "-3\n", "Payoff ratio error: The payoff on DP/DC 10 must be a positive amount.\n"},
        {"7 Point 7 -- Comeout 7", "0\n", "Payoff ratio error: The payoffs on SevenPoint7 must be positive amounts.\n"},
        {"Midway -- 7", "0\n", "Payoff ratio error: The payoffs on Midway must be positive amounts.\n"},
        {"Fire -- 3 points", "-2\n",
         "Payoff error: The loss on any Fire bet payoff cannot exceed the amount wagered.\n"},
        {"Field -- 9 (4-5)", "-2\n",
         "Payoff error: The loss on any Field bet payoff cannot exceed the amount wagered.\n"},
    };
    for (const Case& c : cases) {
        PayoffsTab tab(T);
        Open(tab);
        ClickCell(tab, c.Line);
        Keys(tab, QString::fromLatin1(c.Keys));
        PressKey(tab, Qt::Key_Home);
        EXPECT_EQ(Told(), "") << "only leaving checks";
        EXPECT_FALSE(tab.MayLeave());
        EXPECT_EQ(Told(), c.Told);
        EXPECT_EQ(CurrentLine(tab), c.Line) << "the line at fault is current";
        Keys(tab, "1t\n");
        EXPECT_TRUE(tab.MayLeave()) << c.Line;
        RestoreDefaultPayoffs(T);
    }
}

TEST_F(PayoffsTabTest, ATableOfLossesAloneHoldsTheTab) {
    struct Case {
        const char* Name;
        int Entries;
        const char* Told;
    };
    const Case cases[] = {
        {"Field", 21, "Payoff error: At least one of the Field bet payoffs must be postiive.\n"},
        {"Fire", 6, "Payoff error: At least one of the Fire bet payoffs must be positive.\n"},
    };
    for (const Case& c : cases) {
        PayoffsTab tab(T);
        Open(tab);
        Grid(tab).GoTo(LineOf(c.Entries == 21 ? "Field -- 2" : "Fire -- 1 point"));
        for (int i = 0; i < c.Entries; ++i) Keys(tab, "0\n");
        EXPECT_FALSE(tab.MayLeave());
        EXPECT_EQ(Told(), c.Told);
        EXPECT_THAT(CurrentLine(tab), StartsWith(c.Name));
        RestoreDefaultPayoffs(T);
    }
}

QAction* ActionOf(const QMenu& menu, const QString& text) {
    for (QAction* action : menu.actions()) {
        if (action->text() == text) return action;
    }
    ADD_FAILURE() << "no " << text.toStdString();
    return nullptr;
}

TEST_F(PayoffsTabTest, TheMenuFillsTheFieldLikeAnotherBet) {
    PayoffsTab tab(T);
    Open(tab);
    ASSERT_EQ(tab.Menus().size(), 1U);
    QMenu& options = *tab.Menus().front();
    EXPECT_EQ(options.title(), "&Options");
    const QMenu* fillings = ActionOf(options, "&Set Field payoffs to")->menu();
    ASSERT_EQ(fillings->actions().size(), FieldFillings);
    QString mnemonics;
    for (int i = 0; i < FieldFillings; ++i) {
        QAction* action = fillings->actions().at(i);
        const QChar mnemonic = action->text().at(action->text().indexOf(QLatin1Char('&')) + 1).toLower();
        EXPECT_FALSE(mnemonics.contains(mnemonic)) << action->text().toStdString();
        mnemonics += mnemonic;
        QSignalSpy changes(&tab, &ConfigTab::settingsChanged);
        T.FieldPayoff[1].Pays = Dollars(5);
        action->trigger();
        EXPECT_EQ(changes.count(), 1);
        const auto wanted = FieldFilling(i);
        for (std::size_t entry = 1; entry <= 21; ++entry) {
            EXPECT_EQ(PayoffText(T.FieldPayoff[entry]), PayoffText(wanted[entry])) << i << " entry " << entry;
        }
        EXPECT_TRUE(tab.MayLeave()) << i;
    }
    EXPECT_EQ(Shown(tab, "Field -- 12"), "-5 to 7") << "the last of them";
    EXPECT_EQ(CurrentLine(tab), "Field -- 2") << "what was filled is shown";
    // By keys, from the menu that the window would open.
    options.popup(tab.mapToGlobal(QPoint(0, 0)));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&options));
    QTest::keyClick(options.windowHandle(), Qt::Key_S);
    QMenu* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(open, nullptr);
    QTest::keyClick(open->windowHandle(), Qt::Key_6);
    EXPECT_EQ(Shown(tab, "Field -- 6 (3-3)"), "7 to 6");
    EXPECT_EQ(Told(), "");
}

TEST_F(PayoffsTabTest, RestoringAsks) {
    PayoffsTab tab(T);
    Open(tab);
    QAction* restore = ActionOf(*tab.Menus().front(), "&Restore default payoffs");
    for (const bool yes : {false, true}) {
        ClickCell(tab, "Place 6");
        Keys(tab, "9");  // and what is being typed counts first
        Answering(yes ? MsgAnswer::Yes : MsgAnswer::No);
        QSignalSpy changes(&tab, &ConfigTab::settingsChanged);
        restore->trigger();
        EXPECT_EQ(
            Told(),
            "Restore Default Payoffs: Do you want to restore all payoffs to \ntheir original Tarnwick settings?\n");
        EXPECT_EQ(Shown(tab, "Place 6"), yes ? "7 to 6" : "9 to 6");
    }
    ClickCell(tab, "Place 6");
    Keys(tab, "9z");
    restore->trigger();
    EXPECT_EQ(Told(), "Payoff error: \"9z\" is not a number.\nThe payoff on Place 6 is still 7 to 6.\n")
        << "a wrong number is told before anything is asked";
}

TEST_F(PayoffsTabTest, TheListKeepsItsPlaceInTheGame) {
    T.PayoffsScroll = 40;
    PayoffsTab tab(T);
    Open(tab);
    QTest::qWait(1);
    EXPECT_EQ(Grid(tab).verticalScrollBar()->value(), 40);
    auto* groups = Child<QListWidget>(tab, "lstGroups");
    QListWidgetItem* hops = groups->findItems("Hops", Qt::MatchExactly).at(0);
    Click(*groups->viewport(), groups->visualItemRect(hops).center());
    EXPECT_EQ(CurrentLine(tab), "Hop 13");
    EXPECT_EQ(T.PayoffsScroll, LineOf("Hop 13") - 1) << "its heading is on top";
    EXPECT_TRUE(Grid(tab).hasFocus());
    T.PayoffsScroll = 3;  // another game is opened
    tab.ShowSettings();
    EXPECT_EQ(Grid(tab).verticalScrollBar()->value(), 3);
}

// The window asks tabs that aren't on show too, before it closes.
TEST_F(PayoffsTabTest, AFaultOfAHiddenTabIsInSightWhenItShows) {
    PayoffsTab tab(T);
    EXPECT_TRUE(tab.MayLeave());
    T.FirePayoff[5] = *ParsePayoff("-3 to 1");
    EXPECT_FALSE(tab.MayLeave());
    EXPECT_THAT(Told(), HasSubstr("Fire bet payoff"));
    tab.ShowSettings();
    Open(tab);
    QTest::qWait(1);
    PayoffView& grid = Grid(tab);
    EXPECT_EQ(CurrentLine(tab), "Fire -- 5 points");
    EXPECT_TRUE(grid.viewport()->rect().contains(grid.visualRect(grid.currentIndex())));
}

// With windows that really open, each wrong entry is told once, however it was left.
TEST_F(PayoffsTabTest, ARealMessageOpensOnce) {
    PayoffsTab tab(T);
    DesktopScreen desktop(T, &tab);
    T.Front = &desktop;
    Open(tab);
    for (const char* ending : {"\n", "\t", "click", "leave"}) {
        ClickCell(tab, "Place 6");
        Keys(tab, "1z");
        int opened = 0;
        const DialogDriver::Step close = [&opened](QDialog& dialog) {
            ++opened;
            QTest::keyClick(dialog.windowHandle(), Qt::Key_Return);
        };
        DialogDriver driver({close, close, close});
        if (std::string_view(ending) == "click") {
            ClickCell(tab, "Place 9", PayoffModel::Second);
        } else if (std::string_view(ending) == "leave") {
            EXPECT_FALSE(tab.MayLeave());
        } else {
            Keys(tab, QString::fromLatin1(ending));
        }
        QTest::qWait(30);
        tab.activateWindow();  // which a window manager does
        ASSERT_TRUE(QTest::qWaitForWindowActive(&tab));
        EXPECT_EQ(opened, 1) << ending;
        EXPECT_EQ(Grid(tab).Editor, nullptr);
        EXPECT_EQ(Shown(tab, "Place 6"), "7 to 6");
        EXPECT_TRUE(Grid(tab).hasFocus());
    }
    T.Front = &Front;
}

// The window may go while a wrong number is being typed.
TEST_F(PayoffsTabTest, ANumberBeingTypedGoesWithTheWindow) {
    const Settings before = T;
    {
        PayoffsTab tab(T);
        Open(tab);
        ClickCell(tab, "Place 6");
        Keys(tab, "1z");
    }
    EXPECT_TRUE(static_cast<const Settings&>(T) == before);
    EXPECT_EQ(Told(), "");
}

}  // namespace
}  // namespace tarnwick
