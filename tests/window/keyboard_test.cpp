// An evening without a mouse, and what the mouse does beside betting.
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <map>
#include <set>

#include "display/amountbox.h"
#include "display/felt/betcursor.h"
#include "display/felt/hotspotmap.h"
#include "display/felt/statusboxes.h"
#include "stats/accumulators.h"
#include "table/players.h"
#include "window/evening.h"

namespace tarnwick {
namespace {

struct KeyboardTest : EveningTest {
    void SetUp() override {
        EveningTest::SetUp();
        for (const int p : {2, 5}) ASSERT_EQ(AddPlayer(T, p, p == 2 ? "Ann" : "Bob", Dollars(1000)), "");
        T.ActivePlayer = 2;
        T.NotifyBits = 0;
        Window.Felt().setFocus();
    }
    void WalkTo(int raw) {
        // Anywhere within as many steps as there are boxes, whichever way it lies.
        const std::vector<CursorTarget> targets = CursorTargets(T);
        Press(Qt::Key_Up);
        for (std::size_t step = 0; step < targets.size(); ++step) {
            if (Window.Felt().CursorValue() == HotSpotAt(T, raw)) return;
            Press(step % 7 == 6 ? Qt::Key_Up : Qt::Key_Right);
        }
    }
};

TEST_F(KeyboardTest, EveryBoxIsReachedByTheArrows) {
    for (const int angle : {0, 30, 90, 195}) {
        SetTableAngle(T, angle);
        const std::vector<CursorTarget> targets = CursorTargets(T);
        std::set<int> seen;
        std::vector<int> open = {NextTarget(T, 0, Qt::Key_Down)};
        while (!open.empty()) {
            const int id = open.back();
            open.pop_back();
            if (!seen.insert(id).second) continue;
            for (const Qt::Key arrow : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
                open.push_back(NextTarget(T, id, arrow));
            }
        }
        for (const CursorTarget& target : targets) {
            EXPECT_TRUE(seen.count(target.Id)) << "row " << target.Raw << " at " << angle << " degrees";
        }
        EXPECT_GT(targets.size(), 60u);
    }
}

TEST_F(KeyboardTest, ArrowsGoTheWayTheyPoint) {
    const std::pair<Qt::Key, QPointF> arrows[] = {
        {Qt::Key_Left, {-1, 0}}, {Qt::Key_Right, {1, 0}}, {Qt::Key_Up, {0, -1}}, {Qt::Key_Down, {0, 1}}};
    for (const int angle : {0, 90, 180, 270, 20, 340}) {
        SetTableAngle(T, angle);
        std::map<int, QPointF> places;
        for (const CursorTarget& target : CursorTargets(T)) places[target.Id] = TableTransform(T).map(target.Centre);
        for (const auto& [id, place] : places) {
            for (const auto& [arrow, way] : arrows) {
                const int next = NextTarget(T, id, arrow);
                // On a slanted table a step to the side may outweigh a short one ahead.
                const double least = angle % 90 == 0 ? 0 : -60;
                if (next == id) continue;
                EXPECT_GT(QPointF::dotProduct(places[next] - place, way), least) << id << " to " << next;
            }
        }
    }
}

TEST_F(KeyboardTest, ABetIsMadeRaisedLoweredAndTyped) {
    Press(Qt::Key_3);
    EXPECT_EQ(T.SelectedCheck, 3);
    Press(Qt::Key_Plus);
    EXPECT_TRUE(IsZero(T.BetsOnTable[2])) << "no box is chosen yet";
    Press(Qt::Key_Down);
    EXPECT_EQ(Window.Felt().CursorValue(), int{Row::PassLine});
    EXPECT_TRUE(Status().startsWith("Pass Line")) << Status().toStdString();
    Press(Qt::Key_Plus);
    Press(Qt::Key_Insert);
    EXPECT_EQ(T.BetAmount(2, Row::PassLine), Dollars(50));
    Press(Qt::Key_Minus);
    EXPECT_EQ(T.BetAmount(2, Row::PassLine), Dollars(25));
    Press(Qt::Key_F2);
    auto* box = Window.findChild<AmountBox*>();
    ASSERT_TRUE(box->IsOpen());
    QTest::keyClicks(box, "30");
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(T.BetAmount(2, Row::PassLine), Dollars(30));
    T.WinnerHandling[2] = T.LoserHandling[2] = 1;
    Press(Qt::Key_Return);
    EXPECT_EQ(SessionRolls(T), 1);
}

TEST_F(KeyboardTest, TheBettorIsChosenByKeys) {
    const std::pair<Qt::Key, int> steps[] = {
        {Qt::Key_PageDown, 5}, {Qt::Key_PageDown, 2}, {Qt::Key_PageUp, 5}, {Qt::Key_PageUp, 2}};
    for (const auto& [key, bettor] : steps) {
        Press(key);
        EXPECT_EQ(T.ActivePlayer, bettor);
    }
}

TEST_F(KeyboardTest, AClickTakesTheFrameAway) {
    Press(Qt::Key_Down);
    ASSERT_NE(Window.Felt().CursorValue(), 0);
    ClickAt({624, 510});
    EXPECT_EQ(Window.Felt().CursorValue(), 0);
}

/// Within one menu no letter is given twice, and every menu has one.
void CheckMnemonics(const QList<QAction*>& actions, const QString& menu) {
    QSet<QChar> letters;
    for (QAction* action : actions) {
        if (action->isSeparator()) continue;
        const QString text = action->text();
        const auto mark = text.indexOf('&');
        ASSERT_GE(mark, 0) << menu.toStdString() << ": " << text.toStdString();
        const QChar letter = text[mark + 1].toLower();
        EXPECT_FALSE(letters.contains(letter)) << menu.toStdString() << ": " << text.toStdString();
        letters.insert(letter);
        if (action->menu() != nullptr) CheckMnemonics(action->menu()->actions(), text);
    }
}

TEST_F(KeyboardTest, MenusHaveALetterForEveryEntryAndNoShortcutTwice) {
    CheckMnemonics(Window.menuBar()->actions(), "menu bar");
    QSet<QString> keys;
    for (const QAction* action : Window.findChildren<QAction*>()) {
        for (const QKeySequence& shortcut : action->shortcuts()) {
            EXPECT_FALSE(keys.contains(shortcut.toString())) << shortcut.toString().toStdString();
            keys.insert(shortcut.toString());
        }
    }
}

TEST_F(KeyboardTest, TheGuideTellsEveryKey) {
    QFile guide(QStringLiteral("doc/table.md"));
    ASSERT_TRUE(guide.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(guide.readAll());
    for (const QAction* action : Window.findChildren<QAction*>()) {
        for (const QKeySequence& shortcut : action->shortcuts()) {
            QString key = shortcut.toString(QKeySequence::PortableText);
            // Of a row of digits the guide tells the first and the last.
            if (key.back().isDigit() && key[0] != 'F') key.back() = key.size() == 1 ? '5' : '9';
            EXPECT_TRUE(text.contains('`' + key + '`')) << key.toStdString();
        }
    }
}

TEST_F(KeyboardTest, TheWheelZoomsAboutTheCentre) {
    const int before = T.TableWidth;
    const auto turn = [&](int delta) {
        const QPoint at = Window.Felt().rect().center();
        QWheelEvent event(at, Window.Felt().mapToGlobal(at), {}, {0, delta}, {}, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&Window.Felt(), &event);
    };
    turn(120);
    EXPECT_GT(T.TableWidth, before);
    EXPECT_FALSE(T.AutoSizeTable);
    turn(-120);
    EXPECT_NEAR(T.TableWidth, before, 2);
}

TEST_F(KeyboardTest, BoxesNearThePlayersCanBeDragged) {
    MenuEntry("Place &near individual players")->trigger();
    QCoreApplication::processEvents();
    FeltView& felt = Window.Felt();
    const auto place = [&](int p) {
        return PlacesNearPlayers(T, felt.size(), felt.font())[static_cast<std::size_t>(p)];
    };
    const QRect box = place(5);
    QTest::mouseClick(Window.windowHandle(), Qt::LeftButton, {}, felt.mapTo(&Window, box.center()));
    EXPECT_EQ(T.ActivePlayer, 5) << "a press on a box is a press on its player";

    const QPoint from = felt.mapTo(&Window, box.center()), way(-60, -35);
    QTest::mousePress(Window.windowHandle(), Qt::LeftButton, {}, from);
    QTest::mouseMove(Window.windowHandle(), from + way / 2);
    QTest::mouseMove(Window.windowHandle(), from + way);
    QTest::mouseRelease(Window.windowHandle(), Qt::LeftButton, {}, from + way);
    EXPECT_EQ(place(5).topLeft(), box.topLeft() + way);
    EXPECT_TRUE(T.GameChanged);
    MenuEntry("Let the program &place near boxes")->trigger();
    EXPECT_EQ(place(5), box);
}

}  // namespace
}  // namespace tarnwick
