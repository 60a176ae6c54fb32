#include "display/mainwindow.h"

#include <QAction>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QStatusBar>
#include <algorithm>

#include "config/advantage.h"
#include "display/amountbox.h"
#include "display/autoplaywindow.h"
#include "display/bettext.h"
#include "display/configurewindow.h"
#include "display/desktopscreen.h"
#include "display/felt/dicepainter.h"
#include "display/felt/felttransform.h"
#include "display/felt/feltview.h"
#include "display/felt/statusboxes.h"
#include "display/felttooltips.h"
#include "display/filewindow.h"
#include "display/game.h"
#include "display/hotkeycatcher.h"
#include "display/movewindow.h"
#include "display/newsessiondialog.h"
#include "display/pathwindow.h"
#include "display/quietwait.h"
#include "display/rollpad.h"
#include "display/soundplayer.h"
#include "display/windowplaces.h"
#include "display/words.h"
#include "files/gamefile.h"
#include "stats/accumulators.h"
#include "table/bankroll.h"
#include "table/format.h"
#include "table/messages.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/rolldice.h"
#include "table/rundriver.h"

namespace tarnwick {

namespace {

constexpr qint64 ThrowMilliseconds = 450;
constexpr int ThrowFrame = 14;
constexpr qint64 ProgressInterval = 100;  ///< milliseconds between two looks at a Hyper-Drive

std::size_t At(int i) { return static_cast<std::size_t>(i); }

}  // namespace

MainWindow::MainWindow(const std::string& userFolder, const std::string& given)
    : Played(std::make_unique<Game>(userFolder)), Advantages(std::make_unique<AdvantageCache>()) {
    setObjectName(QStringLiteral("main"));
    setWindowTitle(QStringLiteral("Tarnwick"));
    resize(1280, 720);
    Front = new DesktopScreen(Played->T(), this);
    Played->Start(*Front, given);
    Hand = std::make_unique<TableActions>(Played->T());
    Sounds = new SoundPlayer(Played->T(), Played->Sounds(), MakeSpeakers(), this);
    Sounds->Listen(*Front);  // before the throw is drawn
    StatusText = new QLabel;
    StatusText->setObjectName(QStringLiteral("lblStatus"));
    statusBar()->addWidget(StatusText, 1);
    MakeTable();
    MakeGameMenu();
    MakePlayersMenu();
    MakeActionMenu();
    MakeOptionsMenu();
    MakeViewMenu();
    MakeWindowsMenu();
    MakeHelpMenu();
    ConnectScreen();
    ConnectTable();
    TakePlaces();
    Refresh();
}

MainWindow::~MainWindow() { Played->T().Front = nullptr; }

void MainWindow::MakeTable() {
    Table& t = Played->T();
    auto* middle = new QWidget;
    Arrangement = new QGridLayout(middle);
    Arrangement->setContentsMargins(0, 0, 0, 0);
    Arrangement->setSpacing(0);
    View = new FeltView(t);
    View->setObjectName(QStringLiteral("picLayout"));
    View->setFocusPolicy(Qt::StrongFocus);
    Strip = new StatusStrip(t);
    Strip->setObjectName(QStringLiteral("picStatus"));
    Arrangement->addWidget(View, 1, 1);
    Arrangement->setRowStretch(1, 1);
    Arrangement->setColumnStretch(1, 1);
    Amount = new AmountBox(View);
    setCentralWidget(middle);
    PlaceStatusStrip();
}

void MainWindow::PlaceStatusStrip() {
    constexpr std::pair<int, int> cells[] = {{0, 1}, {2, 1}, {1, 0}, {1, 2}, {0, 1}};
    const auto [row, column] = cells[Played->T().StatusAlign];
    Arrangement->removeWidget(Strip);
    Arrangement->addWidget(Strip, row, column);
    Strip->Refresh();
    View->RefreshTable();
}

void MainWindow::ConnectTable() {
    connect(View, &FeltView::hotSpotPressed, this,
            [this](int value, Qt::MouseButton button) { PressTable(value, button); });
    connect(View, &FeltView::dicePressed, this, [this] {
        if (!GuardCommand(Played->T())) Roll();
        Refresh();
    });
    connect(View, &FeltView::hotSpotMoved, this, &MainWindow::MoveOver);
    connect(View, &FeltView::mouseLeft, this, [this] { MoveOver(0); });
    connect(View, &FeltView::zoomWanted, this, [this](bool in, Qt::KeyboardModifiers modifiers) {
        StepView(in ? ViewStep::ZoomIn : ViewStep::ZoomOut, ModifierValue(modifiers));
    });
    connect(View, &FeltView::boxPressed, this, [this](int p) {
        if (!GuardCommand(Played->T())) Hand->SelectRail(p);
        Refresh();
    });
    connect(Strip, &StatusStrip::boxPressed, this, [this](int p) {
        if (!GuardCommand(Played->T())) Hand->SelectRail(p);
        Refresh();
    });
    connect(new HotKeyCatcher(*Played, this), &HotKeyCatcher::pressed, this, &MainWindow::Refresh);
    new FeltToolTips(Played->T(), *Advantages, View);
    connect(Amount, &AmountBox::committed, this, [this](int row, qint64 amount) {
        Hand->SetAmount(row, currency{amount});
        Refresh();
    });
}

void MainWindow::ConnectScreen() {
    connect(Front, &DesktopScreen::amountBoxDue, Amount, &AmountBox::Commit);
    connect(Front, &DesktopScreen::betChanged, this, [this](int p, int row) {
        View->RefreshBet(p, row);
        Hand->ForgetPlace(p, row);
    });
    connect(Front, &DesktopScreen::tableChanged, this, [this] {
        if (!Played->T().HyperDriveActive) View->Thaw();
        Refresh();
    });
    connect(Front, &DesktopScreen::diceThrown, this, &MainWindow::ShowThrow);
    connect(Front, &DesktopScreen::figuresChanged, this, [this] {
        if (!Played->T().HyperDriveActive) return Refresh();
        if (SinceProgress.elapsed() >= ProgressInterval) ShowProgress();
    });
    connect(Front, &DesktopScreen::runStateChanged, this, &MainWindow::FollowRun);
    connect(Front, &DesktopScreen::statusDue, StatusText, &QLabel::setText);
}

// --- commands ---

void MainWindow::Roll() { RollDice(Played->T()); }

void MainWindow::PressTable(int value, Qt::MouseButton button) {
    Table& t = Played->T();
    Amount->Commit();
    Hand->PressedAt.reset();
    if (const int byKeyboard = View->CursorValue(); byKeyboard == 0) {
        const QPointF place = ScreenToTable(t, View->lastPress());
        Hand->PressedAt = {place.x(), place.y()};
    }
    if (button == Qt::LeftButton) {
        if (const int row = Hand->PressLeft(value, t.KeyInMode || KeyInNext))
            Amount->Open(row, View->lastPress(), t.BetAmount(t.ActivePlayer, row));
    } else if (button == Qt::RightButton && !Hand->PressRight(value) && !GuardCommand(t)) {
        Roll();
    }
    Refresh();
}

void MainWindow::MoveOver(int value) {
    if (Played->T().HyperDriveActive || value == MouseOver) return;
    MouseOver = value;
    if (Amount->IsOpen() && RowOfHotSpot(Played->T(), value) != Amount->row()) Amount->GiveUp();
    ShowStatus();
}

/// Makes the next or the previous seated player the bettor.
void MainWindow::StepBettor(int step) {
    Table& t = Played->T();
    for (int i = 1; i <= 8; ++i) {
        const int p = (t.ActivePlayer - 1 + step * i + 16) % 8 + 1;
        if (IsSeated(t, p)) return Hand->SelectRail(p);
    }
}

void MainWindow::StepView(ViewStep step, int modifier) {
    Table& t = Played->T();
    if (GuardCommand(t)) return;
    t.AutoSizeTable = false;
    const QSize window = View->size();
    HeldCentre& centre = View->Centre();
    switch (step) {
        case ViewStep::ZoomIn:
            ZoomIn(t, centre, modifier);
            break;
        case ViewStep::ZoomOut:
            ZoomOut(t, centre, modifier);
            break;
        case ViewStep::RotateCW:
            RotateCW(t, centre, modifier);
            break;
        case ViewStep::RotateCCW:
            RotateCCW(t, centre, modifier);
            break;
        case ViewStep::MoveUp:
            MoveTable(t, MoveDirection::Up, modifier, window);
            break;
        case ViewStep::MoveDown:
            MoveTable(t, MoveDirection::Down, modifier, window);
            break;
        case ViewStep::MoveLeft:
            MoveTable(t, MoveDirection::Left, modifier, window);
            break;
        case ViewStep::MoveRight:
            MoveTable(t, MoveDirection::Right, modifier, window);
            break;
        case ViewStep::Center:
            CenterTable(t, centre, window);
            break;
    }
    Refresh();
}

void MainWindow::ShowThrow() {
    if (!isVisible() || !DiceFly(Played->T())) return View->RefreshTable();
    QElapsedTimer clock;
    clock.start();
    for (qint64 passed = 0; passed < ThrowMilliseconds; passed = clock.elapsed()) {
        View->ShowThrow(static_cast<double>(passed) / static_cast<double>(ThrowMilliseconds));
        WaitQuietly(ThrowFrame);  // or the sound of the dice would halt
    }
    View->ShowThrow(1);
}

void MainWindow::ToggleRun() {
    ToggleAutoRoll(Played->T());
    Refresh();
}

/// A Hyper-Drive leaves the table as it was on the screen; nothing of the rolls is drawn.
void MainWindow::FollowRun(bool running, bool hyperDrive) {
    if (hyperDrive) {
        View->Freeze(QStringLiteral("Hyper-Drive Active"));
        RunFrom = SessionRolls(Played->T());
        RunClock.start();
        SinceProgress.start();
    } else if (View->IsFrozen()) {
        running ? View->Thaw() : View->Freeze(QStringLiteral("Tarnwick Hyper-Drive Stopped"));
    }
    Refresh();
}

void MainWindow::ShowProgress() {
    SinceProgress.restart();
    const std::int64_t rolls = SessionRolls(Played->T());
    const double seconds = std::max(0.001, static_cast<double>(RunClock.elapsed()) / 1000);
    const auto rate =
        static_cast<std::int64_t>(static_cast<double>(std::max<std::int64_t>(0, rolls - RunFrom)) / seconds);
    StatusText->setText(tr("Hyper-Drive:  %1 rolls,  %2 rolls a second")
                            .arg(Words(FormatCommas(Dollars(rolls))), Words(FormatCommas(Dollars(rate)))));
    if (Pad != nullptr) Pad->ShowLastRoll();
    if (AutoPlay != nullptr && AutoPlay->isVisible()) AutoPlay->ShowAutoPlayData();
}

void MainWindow::StartNewSession() {
    Table& t = Played->T();
    NewSessionDialog dialog(!t.DiceRollFileName.empty(), this);
    if (dialog.exec() != QDialog::Accepted) return;
    NewSession(t, dialog.Options());
    Played->Scripts().Initialize(t);
    PlayComeOutCall(t);
}

// --- games and the places of windows ---

void MainWindow::KeepPlaces() {
    Table& t = Played->T();
    KeepPlace(*this, t.Placement(Form::main), true);
    t.MainWindowState = isMaximized() ? 2 : 0;
    if (Pad != nullptr) KeepPlace(*Pad, t.Placement(Form::frmRYON), false);
    if (Mover != nullptr) KeepPlace(*Mover, t.Placement(Form::frmMove), false);
    if (AutoPlay != nullptr) KeepPlace(*AutoPlay, t.Placement(Form::frmAutoPlay), false);
    if (Configure != nullptr) KeepPlace(*Configure, t.Placement(Form::frmConfigure), true);
}

/// The standing game leaves the main window where it is; a game of another name brings its place.
void MainWindow::TakePlaces() {
    const Table& t = Played->T();
    TakePlace(*this, t.Placement(Form::main), true);
    if (t.Placement(Form::frmRYON).Shown) ShowPad();
    if (t.Placement(Form::frmMove).Shown) ShowMover();
    if (t.Placement(Form::frmAutoPlay).Shown) ShowAutoPlay();
    if (t.Placement(Form::frmConfigure).Shown) ShowConfigure(ConfigureWindow::LastInUse);
}

void MainWindow::ShowMover() {
    if (Mover == nullptr) {
        Mover = new MoveWindow(this);
        connect(Mover, &MoveWindow::stepWanted, this, &MainWindow::StepView);
        TakePlace(*Mover, Played->T().Placement(Form::frmMove), false);
    }
    Mover->show();
    Mover->raise();
}

void MainWindow::ShowAutoPlay() {
    if (AutoPlay == nullptr) {
        AutoPlay = new AutoPlayWindow(Played->T(), this);
        connect(AutoPlay, &AutoPlayWindow::ordersChanged, this, &MainWindow::Refresh);
        TakePlace(*AutoPlay, Played->T().Placement(Form::frmAutoPlay), false);
    }
    AutoPlay->show();
    AutoPlay->raise();
    AutoPlay->activateWindow();
}

void MainWindow::ShowPath() {
    if (Paths == nullptr) Paths = new PathWindow([this] { return Played->Paths(); }, this);
    Paths->show();
    Paths->raise();
    Paths->activateWindow();
}

void MainWindow::ShowConfigure(int number) {
    if (Configure == nullptr) {
        Configure = new ConfigureWindow({Played->T(), *Sounds}, this);
        connect(Configure, &ConfigureWindow::settingsChanged, this, &MainWindow::Refresh);
        TakePlace(*Configure, Played->T().Placement(Form::frmConfigure), true);
    }
    Configure->Open(number);
}

bool MainWindow::SaveTo(const std::string& path) {
    KeepPlaces();
    return Played->Save(path);
}

void MainWindow::TakeGame() {
    if (Configure != nullptr) Configure->ShowGame();
    TakePlaces();
    View->RefreshTable();
    PlaceStatusStrip();
    Refresh();
}

void MainWindow::OpenAnotherGame() {
    if (!MayLeaveGame()) return;
    const std::string path = ChooseFile(*this, Played->T(), FilePurpose::OpenSession);
    if (path.empty()) return;
    Played->Open(path);
    TakeGame();
}

bool MainWindow::SaveThisGame() {
    const std::string path = Played->T().GameFileName;
    return path.empty() ? SaveGameUnderName() : SaveTo(path);
}

bool MainWindow::SaveGameUnderName() {
    const std::string path = ChooseFile(*this, Played->T(), FilePurpose::SaveSessionAs);
    return !path.empty() && SaveTo(path);
}

bool MainWindow::MayLeaveGame() {
    switch (AskAboutUnsavedGame(Played->T())) {
        case UnsavedGame::Cancel:
            return false;
        case UnsavedGame::Save:
            return SaveThisGame();
        default:
            return true;
    }
}

void MainWindow::AskAtm(bool withdrawal) {
    Table& t = Played->T();
    const int p = Bettor();
    if (p == 0) return;
    const std::string title = withdrawal ? "ATM Withdrawal" : "ATM Deposit";
    const std::string text = "How much would " + t.PlayerName[At(p)] + " like to " +
                             (withdrawal ? "withdraw from" : "deposit into") + " the ATM?";
    const Answer answer =
        ShowMessage(t, {title, text, MsgButton::InputQuestion, 400, PlainAmount(t.AtmAmount[At(p)]), {}});
    const auto amount = answer.Result == MsgAnswer::Ok ? ParseAmount(answer.Input) : std::nullopt;
    if (!amount || *amount <= currency{}) return;
    t.AtmAmount[At(p)] = *amount;
    AtmTransaction(t, p, withdrawal ? *amount : -*amount);
}

/// A renamed player's log bears the old name until the user wants it otherwise.
void MainWindow::AskRenameSessionsLog(int p) {
    Table& t = Played->T();
    const std::string question = "Would you also like to change " + t.PlayerName[At(p)] +
                                 "'s sessions log filename?\nCurrently:\n" + Played->LogsOf().SessionsLog(t, p);
    if (!AskYesNo(t, "Rename Sessions Log", question)) return;
    const std::string path = ChooseFile(*this, t, FilePurpose::RenameSessionsLog);
    if (!path.empty()) Played->LogsOf().RenameSessionsLog(t, p, path);
}

int MainWindow::Bettor() {
    Table& t = Played->T();
    if (IsSeated(t, t.ActivePlayer)) return t.ActivePlayer;
    ShowNote(t, "Bettor Not Selected", "If you'd like to make a bet, please select a player.");
    return 0;
}

void MainWindow::SetPending(PendingAction action) { Hand->Pending = action; }

void MainWindow::ShowPad() {
    if (Pad == nullptr) {
        Pad = new RollPad(Played->T(), this);
        connect(Pad, &RollPad::picked, this, [this](int die1, int die2) {
            if (!GuardCommand(Played->T())) PadRoll(Played->T(), die1, die2);
            Refresh();
        });
        connect(Pad, &RollPad::randomWanted, this, [this] {
            if (!GuardCommand(Played->T())) Roll();
            Refresh();
        });
        connect(Pad, &RollPad::runWanted, this, &MainWindow::ToggleRun);
        TakePlace(*Pad, Played->T().Placement(Form::frmRYON), false);
    }
    Pad->show();
    Pad->raise();
    Pad->ShowRunState();
}

void MainWindow::Refresh() {
    const Table& t = Played->T();
    RunAction->setText(Words(RunButtonText(t)));
    setWindowTitle(Words(GameTitle(t)));
    for (const auto& [action, flag] : Switches) {
        const QSignalBlocker quiet(action);
        action->setChecked(t.*flag);
    }
    StatusAlignActions[At(t.StatusAlign)]->setChecked(true);
    for (const auto& [action, bit] : StatusLineActions) action->setChecked((t.StatusLines & bit) != 0);
    for (int check = 1; check <= 5; ++check) {
        CheckActions[At(check - 1)]->setText(
            QStringLiteral("&%1   $%2").arg(check).arg(Words(FormatCommas(t.CheckDenominations[At(check)]))));
    }
    ShowStatus();
    if (!t.HyperDriveActive) Strip->Refresh();
    View->RefreshTable();
    if (AutoPlay != nullptr && AutoPlay->isVisible()) AutoPlay->ConfigAutoPlayForm();
    if (Configure != nullptr) Configure->ShowFigures();
    if (Pad != nullptr) {
        Pad->ShowLastRoll();
        Pad->ShowRunState();
    }
}

/// The bet under the mouse or the keyboard's frame, or what is waited for.
void MainWindow::ShowStatus() {
    const Table& t = Played->T();
    if (t.HyperDriveActive) return;
    const int row = RowOfHotSpot(t, MouseOver);
    const QString pending = QString::fromLatin1(Hand->PendingText());
    StatusText->setText(!pending.isEmpty() || row == 0 ? pending : BetText(t, row, *Advantages));
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && Played->T().AutoRollActive) {
        GuardCommand(Played->T());
        return Refresh();
    }
    if (event->key() == Qt::Key_Escape && Hand->Pending != PendingAction::Bet) {
        Hand->Pending = PendingAction::Bet;
        Refresh();
        return;
    }
    QMainWindow::keyPressEvent(event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (GuardCommand(Played->T()) || !MayLeaveGame()) return event->ignore();
    KeepPlaces();
    Played->SaveAtExit();
    event->accept();
}

}  // namespace tarnwick
