// The menu bar of the main window.
#include <QAction>
#include <QActionGroup>
#include <QMenuBar>
#include <QMessageBox>

#include "display/configurewindow.h"
#include "display/felt/felttransform.h"
#include "display/felt/feltview.h"
#include "display/felt/statusboxes.h"
#include "display/game.h"
#include "display/mainwindow.h"
#include "display/movewindow.h"
#include "table/messages.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/rundriver.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

}  // namespace

QAction* MainWindow::Add(QMenu& menu, const QString& caption, const QKeySequence& keys, Command command) {
    QAction* action = menu.addAction(caption);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, [this, command = std::move(command)] {
        if (GuardCommand(Played->T())) return;
        command();
        Refresh();
    });
    return action;
}

QAction* MainWindow::AddSwitch(QMenu& menu, const QString& caption, const QKeySequence& keys, bool Table::*flag) {
    QAction* action = menu.addAction(caption);
    action->setShortcut(keys);
    action->setCheckable(true);
    action->setChecked(Played->T().*flag);
    connect(action, &QAction::toggled, this, [this, flag](bool on) {
        Table& t = Played->T();
        t.*flag = on;
        t.GameChanged = true;
        RedrawAllBets(t);
        Refresh();
    });
    Switches.emplace_back(action, flag);
    return action;
}

void MainWindow::MakeGameMenu() {
    Table& t = Played->T();
    QMenu* menu = menuBar()->addMenu(tr("&Game"));
    Add(*menu, tr("&New ..."), QKeySequence::New, [this] { StartNewSession(); });
    Add(*menu, QStringLiteral("&Open ..."), QKeySequence::Open, [this] { OpenAnotherGame(); });
    Add(*menu, QStringLiteral("&Save"), QKeySequence::Save, [this] { SaveThisGame(); });
    Add(*menu, QStringLiteral("Save &As ..."), QKeySequence::SaveAs, [this] { SaveGameUnderName(); });
    menu->addSeparator();
    Add(*menu, QStringLiteral("&Roll the dice  (Right mouse button)"), Qt::Key_Return, [this] { Roll(); });
    // Not guarded: it is what stops a run.
    RunAction = menu->addAction(QString());
    RunAction->setShortcut(Qt::Key_F5);
    connect(RunAction, &QAction::triggered, this, &MainWindow::ToggleRun);
    QMenu* runs = menu->addMenu(tr("R&un settings"));
    Add(*runs, QStringLiteral("Set auto-roll &time delay ..."), {}, [&t] { AskAutoRollDelay(t); });
    Add(*runs, QStringLiteral("Set auto-&stop ..."), {}, [&t] { AskAutoStop(t); });
    WindowActions << menu->addAction(tr("Roll &your own numbers"), Qt::Key_F6, this, &MainWindow::ShowPad);
    menu->addSeparator();
    menu->addAction(tr("E&xit"), QKeySequence::Quit, this, &QWidget::close);
}

void MainWindow::MakePlayersMenu() {
    Table& t = Played->T();
    QMenu* menu = menuBar()->addMenu(tr("&Players"));
    Add(*menu, tr("&Add player ..."), Qt::CTRL | Qt::Key_Insert, [this, &t] {
        for (int p = 1; p < Positions; ++p) {
            if (!IsSeated(t, p)) return Hand->SelectRail(p);
        }
        ShowNote(t, "Add New Player", "All eight positions are taken.");
    });
    Add(*menu, tr("Re&name player ..."), {}, [this, &t] {
        if (const int p = Bettor(); p != 0 && AskRenamePlayer(t, p)) AskRenameSessionsLog(p);
    });
    Add(*menu, tr("&Move player"), {}, [this] {
        if (const int p = Bettor()) {
            Hand->MovingPlayer = p;
            SetPending(PendingAction::MovePlayer);
        }
    });
    Add(*menu, tr("&Cash out player ..."), {}, [&t] { AskRemovePlayer(t, t.ActivePlayer); });
    Add(*menu, QStringLiteral("&Pass the dice"), {}, [&t] { PassTheDice(t, PassMode::Request); });
    Add(*menu, tr("Ne&xt bettor"), Qt::Key_PageDown, [this] { StepBettor(1); });
    Add(*menu, tr("Pre&vious bettor"), Qt::Key_PageUp, [this] { StepBettor(-1); });
    menu->addSeparator();
    Add(*menu, tr("ATM &withdrawal ..."), Qt::CTRL | Qt::SHIFT | Qt::Key_W, [this] { AskAtm(true); });
    Add(*menu, tr("ATM &deposit ..."), Qt::CTRL | Qt::SHIFT | Qt::Key_D, [this] { AskAtm(false); });
}

void MainWindow::MakeActionMenu() {
    Table& t = Played->T();
    QMenu* menu = menuBar()->addMenu(tr("&Bets/Action"));
    const auto addPending = [this, menu](const QString& caption, PendingAction action) {
        Add(*menu, caption, {}, [this, action] {
            if (Bettor() != 0) SetPending(action);
        });
    };
    MakeCursorEntries(*menu);
    menu->addSeparator();
    // Its window asks before each change.
    WindowActions << menu->addAction(QStringLiteral("&Auto-Play ..."), Qt::Key_F7, this, &MainWindow::ShowAutoPlay);
    menu->addSeparator();
    addPending(tr("Call a bet O&N"), PendingAction::CallOn);
    addPending(tr("&Call a bet OFF"), PendingAction::CallOff);
    addPending(tr("&Buy a Place bet"), PendingAction::Buy);
    addPending(tr("&Remove a bet"), PendingAction::Remove);
    menu->addSeparator();
    Add(*menu, tr("Take maximum &odds"), {}, [this, &t] {
        if (const int p = Bettor()) MaxAllOdds(t, p);
    });
    Add(*menu, tr("&Lay maximum odds"), {}, [this, &t] {
        if (const int p = Bettor()) MaxAllDontOdds(t, p);
    });
    menu->addSeparator();
    AddSwitch(*menu, tr("&Key in amounts"), {}, &Table::KeyInMode);
    AddSwitch(*menu, QStringLiteral("D&isplay bets as numbers"), {}, &Table::DisplayBetsAsNumbers);
    AddSwitch(*menu, QStringLiteral("&Flash bets"), Qt::Key_Space, &Table::FlashBets);
}

/// What the mouse does on a bet, for the box that the arrow keys choose.
void MainWindow::MakeCursorEntries(QMenu& menu) {
    Table& t = Played->T();
    // The felt's own press asks before it disturbs a run, so these ask nothing.
    const auto add = [this, &menu](const QString& caption, const QList<QKeySequence>& keys, Command command) {
        QAction* action = menu.addAction(caption);
        action->setShortcuts(keys);
        connect(action, &QAction::triggered, this, std::move(command));
    };
    add(tr("A&dd a check"), {Qt::Key_Plus, Qt::Key_Insert}, [this] { View->PressCursor(Qt::LeftButton); });
    add(tr("&Take a check off"), {Qt::Key_Minus, Qt::Key_Delete}, [this] { View->PressCursor(Qt::RightButton); });
    add(tr("Key in an a&mount ..."), {Qt::Key_F2}, [this] {
        KeyInNext = true;
        View->PressCursor(Qt::LeftButton);
        KeyInNext = false;
    });
    QMenu* checks = menu.addMenu(tr("&Select check"));
    for (int check = 1; check <= 5; ++check) {
        const auto key = static_cast<Qt::Key>(Qt::Key_0 + check);
        CheckActions[At(check - 1)] = Add(*checks, QString(), key, [&t, check] { t.SelectedCheck = check; });
    }
}

void MainWindow::MakeOptionsMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&Options"));
    WindowActions << Add(*menu, tr("&Configure ..."), Qt::CTRL | Qt::SHIFT | Qt::Key_C,
                         [this] { ShowConfigure(ConfigureWindow::LastInUse); });
    menu->addSeparator();
    for (const ConfigPage& page : ConfigPages()) {
        Add(*menu, tr(page.Command), {}, [this, number = page.Number] { ShowConfigure(number); });
    }
}

void MainWindow::MakeViewMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&View"));
    AddSwitch(*menu, QStringLiteral("&Auto-size/center"), Qt::Key_F11, &Table::AutoSizeTable);
    WindowActions << Add(*menu, QStringLiteral("&Zoom/rotate/move table"), Qt::Key_Z, [this] { ShowMover(); });
    const std::pair<QString, std::pair<QKeySequence, ViewStep>> steps[] = {
        {tr("Zoom &in"), {QKeySequence::ZoomIn, ViewStep::ZoomIn}},
        {tr("Zoom &out"), {QKeySequence::ZoomOut, ViewStep::ZoomOut}},
        {tr("Turn c&lockwise"), {QKeySequence(Qt::CTRL | Qt::Key_Right), ViewStep::RotateCW}},
        {tr("Turn co&unter-clockwise"), {QKeySequence(Qt::CTRL | Qt::Key_Left), ViewStep::RotateCCW}},
    };
    for (const auto& [caption, step] : steps) {
        Add(*menu, caption, step.first, [this, wanted = step.second] { StepView(wanted, 0); });
    }
    menu->addSeparator();
    MakeViewMenus(*menu);
    menu->addSeparator();
    MakeStatusMenu(*menu);
    AddSwitch(*menu, QStringLiteral("Display &center prop bets"), {}, &Table::DisplayCenterProps);
    menu->addSeparator();
    WindowActions << menu->addAction(QStringLiteral("Show &Path ..."), this, &MainWindow::ShowPath);
}

void MainWindow::MakeViewMenus(QMenu& menu) {
    Table& t = Played->T();
    QMenu* save = menu.addMenu(QStringLiteral("&Save"));
    QMenu* restore = menu.addMenu(QStringLiteral("&Restore"));
    for (int view = 0; view < 10; ++view) {
        const QString caption = QStringLiteral("View &%1").arg(view);
        const auto digit = static_cast<Qt::Key>(Qt::Key_0 + view);
        Add(*save, caption, QKeySequence(Qt::CTRL | digit), [&t, view] { SaveView(t, view); });
        Add(*restore, caption, QKeySequence(Qt::SHIFT | digit), [this, &t, view] {
            if (RestoreView(t, view)) View->RefreshTable();
        });
    }
}

void MainWindow::MakeStatusMenu(QMenu& menu) {
    QMenu* status = menu.addMenu(tr("S&tatus boxes"));
    auto* group = new QActionGroup(this);
    const char* const captions[] = {"Align at &top of window", "Align at &bottom of window",
                                    "Align at &left-side of window", "Align at &right-side of window",
                                    "Place &near individual players"};
    for (int align = 0; align < 5; ++align) {
        QAction* action = Add(*status, QLatin1String(captions[align]), {}, [this, align] {
            Played->T().StatusAlign = align;
            Played->T().GameChanged = true;
            PlaceStatusStrip();
        });
        action->setCheckable(true);
        StatusAlignActions[At(align)] = group->addAction(action);
    }
    status->addSeparator();
    MakeStatusLines(*status);
    Add(*status, tr("Let the program &place near boxes"), {}, [this] {
        Table& t = Played->T();
        t.StatusBoxLeft = t.StatusBoxTop = {};
        t.GameChanged = true;
    });
}

/// Which lines and marks the boxes show.
void MainWindow::MakeStatusLines(QMenu& menu) {
    const std::pair<QString, std::int32_t> lines[] = {
        {tr("Show ban&kroll"), StatusLine::Bankroll},
        {tr("Show ra&il"), StatusLine::Rail},
        {tr("Show bet&s"), StatusLine::Bets},
        {tr("Show &won and lost"), StatusLine::Result},
        {tr("Mark the s&hooter"), StatusLine::ShooterMark},
        {tr("&Mark the bettor"), StatusLine::BettorMark},
    };
    for (const auto& [caption, bit] : lines) {
        QAction* action = Add(menu, caption, {}, [this, wanted = bit] {
            Played->T().StatusLines ^= wanted;
            Played->T().GameChanged = true;
            PlaceStatusStrip();
        });
        action->setCheckable(true);
        StatusLineActions.emplace_back(action, bit);
    }
    menu.addSeparator();
}

/// Every window beside the table, wherever else its entry stands.
void MainWindow::MakeWindowsMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&Windows"));
    menu->addActions(WindowActions);
    menu->addSeparator();
    menu->addAction(tr("C&lose all"), this, [this] {
        for (QWidget* window : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (window->isWindow() && window->isVisible()) window->close();
        }
    });
}

void MainWindow::MakeHelpMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&Help"));
    QAction* about = menu->addAction(tr("&About Tarnwick"));
    connect(about, &QAction::triggered, this, [this] {
        QMessageBox::about(this, tr("About Tarnwick"),
                           tr("<b>Tarnwick %1</b><p>A craps table and a laboratory for betting systems.</p>"
                              "<p>Free software under the GNU General Public License, version 3 or later.</p>")
                               .arg(QStringLiteral(TARNWICK_VERSION)));
    });
}

}  // namespace tarnwick
