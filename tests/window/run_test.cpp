// Unattended runs in the main window: what is seen of them, what stops them, and what they guard.
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>

#include "display/felt/statusboxes.h"
#include "stats/accumulators.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/rolldice.h"
#include "table/rundriver.h"
#include "window/evening.h"

namespace tarnwick {
namespace {

struct RunTest : EveningTest {
    void SetUp() override {
        EveningTest::SetUp();
        ASSERT_EQ(AddPlayer(T, 8, "Ann", Dollars(1000)), "");
        T.ActivePlayer = 8;
        T.WinnerHandling[8] = T.LoserHandling[8] = 1;
        T.NotifyBits = 0;
    }
    /// Starts a run and calls `meanwhile` once when it is under way.
    void Run(int throttle, const std::function<void()>& meanwhile) {
        T.HyperThrottle = throttle;
        QTimer::singleShot(30, &Window, meanwhile);
        QTimer watchdog;
        QObject::connect(&watchdog, &QTimer::timeout, &Window,
                         [this] { T.AutoRollActive = T.HyperDriveActive = false; });
        watchdog.start(10'000);
        Window.ToggleRun();
    }
    QImage Picture() { return Window.Felt().grab().toImage(); }
};

TEST_F(RunTest, HyperDriveStandsStillOnTheScreenUntilItStops) {
    PlaceBet(T, 8, Row::PassLine, Dollars(5));
    T.FlashBets = false;
    Window.Felt().RefreshTable();
    const QImage before = Picture();
    QImage during, later;
    Run(0, [&] {
        during = Picture();
        QTimer::singleShot(150, &Window, [&] {
            later = Picture();
            EXPECT_TRUE(Status().startsWith("Hyper-Drive:  ")) << Status().toStdString();
            EXPECT_EQ(MenuEntry("Stop &Hyper-Drive") != nullptr, true);
            Window.ToggleRun();
        });
    });
    EXPECT_GT(SessionRolls(T), 100);
    EXPECT_NE(during, before) << "it says what is on";
    EXPECT_EQ(during, later) << "nothing of the rolls is drawn";
    EXPECT_FALSE(Window.Felt().IsFrozen());
    EXPECT_NE(MenuEntry("Start &Hyper-Drive"), nullptr);
    EXPECT_FALSE(Status().startsWith("Hyper-Drive"));
}

TEST_F(RunTest, AStopReasonIsToldOverTheTable) {
    T.AutoStopRolls = Dollars(50);
    T.HyperThrottle = 0;
    bool frozen = false;
    DialogDriver driver({[&](QDialog& d) {
        EXPECT_EQ(d.windowTitle(), "Hyper-Drive Stopped");
        frozen = Window.Felt().IsFrozen();
        QTest::keyClick(d.windowHandle(), Qt::Key_Return);
    }});
    Window.ToggleRun();
    EXPECT_EQ(driver.Left(), 0u);
    EXPECT_TRUE(frozen) << "the table is drawn when the reason was read";
    EXPECT_FALSE(Window.Felt().IsFrozen());
    EXPECT_EQ(SessionRolls(T), 50);
}

TEST_F(RunTest, TheSpeedBarTurnsOneKindOfRunIntoTheOther) {
    T.AutoRollDelay = currency{500};
    Run(0, [&] {
        EXPECT_TRUE(Window.Felt().IsFrozen());
        SetHyperThrottle(T, AutoRollThrottle);
        EXPECT_FALSE(Window.Felt().IsFrozen());
        const auto rolls = SessionRolls(T);
        QTimer::singleShot(200, &Window, [&, rolls] {
            EXPECT_GT(SessionRolls(T), rolls);
            SetHyperThrottle(T, 0);
            EXPECT_TRUE(Window.Felt().IsFrozen());
            Window.ToggleRun();
        });
    });
    EXPECT_FALSE(Window.Felt().IsFrozen());
}

TEST_F(RunTest, TheWindowMayChangeItsSizeMeanwhile) {
    Run(0, [&] {
        Window.resize(900, 600);
        QCoreApplication::processEvents();
        EXPECT_EQ(Picture().size(), Window.Felt().size() * Window.Felt().devicePixelRatioF());
        Window.ToggleRun();
    });
    EXPECT_FALSE(Window.Felt().IsFrozen());
}

void CollectLeaves(const QList<QAction*>& actions, QList<QAction*>& leaves) {
    for (QAction* action : actions) {
        if (action->isSeparator()) continue;
        if (action->menu() != nullptr) {
            CollectLeaves(action->menu()->actions(), leaves);
        } else {
            leaves.append(action);
        }
    }
}

/// Commands that leave the game alone, or that are there to stop a run.
const QStringList Unguarded = {"Stop &Hyper-Drive",
                               "Roll &your own numbers",
                               "E&xit",           // asks at closing
                               "&Auto-Play ...",  // asks at each change
                               "Show &Path ...",
                               "&Key in amounts",
                               "D&isplay bets as numbers",
                               "&Flash bets",
                               "&Auto-size/center",
                               "Display &center prop bets",
                               "A&dd a check",
                               "&Take a check off",
                               "Key in an a&mount ...",
                               "C&lose all",
                               "&About Tarnwick"};

TEST_F(RunTest, EveryCommandAsksBeforeItDisturbsARun) {
    QList<QAction*> leaves;
    CollectLeaves(Window.menuBar()->actions(), leaves);
    ASSERT_GT(leaves.size(), 40);
    int questions = 0, expected = 0;
    QTimer answers;
    QObject::connect(&answers, &QTimer::timeout, &Window, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isVisible()) return;
        // A key may come before the dialog is ready for it; each dialog counts once.
        questions += dialog->property("counted").toBool() ? 0 : 1;
        dialog->setProperty("counted", true);
        EXPECT_EQ(dialog->windowTitle(), "Hyper-Drive Active");
        QTest::keyClick(dialog->windowHandle(), Qt::Key_N, Qt::AltModifier);
    });
    answers.start(1);
    Run(0, [&] {
        for (QAction* leaf : leaves) {
            if (Unguarded.contains(leaf->text())) continue;
            leaf->trigger();
            ++expected;
            EXPECT_EQ(questions, expected) << leaf->text().toStdString();
            questions = expected;
            EXPECT_TRUE(T.HyperDriveActive) << leaf->text().toStdString();
            if (!T.HyperDriveActive) return;
        }
        Window.ToggleRun();
    });
    EXPECT_TRUE(IsSeated(T, 8));
}

TEST_F(RunTest, TheMouseAndTheKeyboardAskToo) {
    struct Case {
        const char* What;
        std::function<void()> Do;
        int Throttle;
        const char* Title;
    };
    const Case cases[] = {
        {"a bet", [&] { ClickBet(Row::Field); }, 0, "Hyper-Drive Active"},
        {"the dice by the right button",
         [&] {
             ClickAt({624, 510}, Qt::RightButton);
         },
         0, "Hyper-Drive Active"},
        {"a seat", [&] { ClickAt(TheFelt().Seats[3].NameCentre); }, 0, "Hyper-Drive Active"},
        {"Return", [&] { Press(Qt::Key_Return); }, 0, "Hyper-Drive Active"},
        {"Escape", [&] { Press(Qt::Key_Escape); }, 0, "Hyper-Drive Active"},
        {"closing", [&] { Window.close(); }, 0, "Hyper-Drive Active"},
        {"a bet", [&] { ClickBet(Row::Field); }, AutoRollThrottle, "Auto-Roll Active"},
        {"Return", [&] { Press(Qt::Key_Return); }, AutoRollThrottle, "Auto-Roll Active"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.What);
        Window.activateWindow();
        DialogDriver driver({[&](QDialog& d) {
            EXPECT_EQ(d.windowTitle(), c.Title);
            QTest::keyClick(d.windowHandle(), Qt::Key_Return);
        }});
        const int seated = T.PlayerCount;
        Run(c.Throttle, c.Do);
        EXPECT_EQ(driver.Left(), 0u);
        EXPECT_FALSE(T.AutoRollActive);
        EXPECT_TRUE(Window.isVisible());
        EXPECT_TRUE(IsZero(T.BetAmount(8, Row::Field)));
        EXPECT_EQ(T.PlayerCount, seated);
    }
}

}  // namespace
}  // namespace tarnwick
