// The main window: the table, its menu bar and the status line.
#pragma once

#include <QElapsedTimer>
#include <QMainWindow>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "display/tableactions.h"

class QAction;
class QActionGroup;
class QGridLayout;
class QLabel;
class QMenu;

namespace tarnwick {

class AdvantageCache;
class AmountBox;
class AutoPlayWindow;
class ConfigureWindow;
class DesktopScreen;
class FeltView;
class Game;
class MoveWindow;
class PathWindow;
class RollPad;
class SoundPlayer;
class StatusStrip;
enum class ViewStep;

class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    /// Opens the game `given`, a path, or else the standing one of `userFolder`.
    explicit MainWindow(const std::string& userFolder, const std::string& given = {});
    ~MainWindow() override;

    Game& CurrentGame() { return *Played; }
    TableActions& Actions() { return *Hand; }

    /// Rolls once, or says why not; an amount being typed is placed first.
    void Roll();
    void ToggleRun();
    FeltView& Felt() { return *View; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    using Command = std::function<void()>;
    /// A menu entry whose command is dropped when the user doesn't want to disturb a run.
    QAction* Add(QMenu& menu, const QString& caption, const QKeySequence& keys, Command command);
    QAction* AddSwitch(QMenu& menu, const QString& caption, const QKeySequence& keys, bool Table::*flag);

    void MakeGameMenu();
    void MakePlayersMenu();
    void MakeActionMenu();
    void MakeOptionsMenu();
    void MakeViewMenu();
    void MakeWindowsMenu();
    void MakeHelpMenu();
    void MakeCursorEntries(QMenu& menu);
    void MakeStatusLines(QMenu& menu);
    void ConnectScreen();
    void MakeTable();
    void ConnectTable();
    void PlaceStatusStrip();
    void MakeStatusMenu(QMenu& menu);
    void MakeViewMenus(QMenu& menu);

    void PressTable(int value, Qt::MouseButton button);
    void MoveOver(int value);
    void StepView(ViewStep step, int modifier);
    void ShowThrow();
    void StepBettor(int step);
    void FollowRun(bool running, bool hyperDrive);
    void ShowProgress();
    void ShowStatus();

    void StartNewSession();
    void OpenAnotherGame();
    bool SaveThisGame();
    bool SaveGameUnderName();
    /// False when the user wants to stay with the game as it is.
    bool MayLeaveGame();
    void TakeGame();
    void KeepPlaces();
    void TakePlaces();
    bool SaveTo(const std::string& path);
    void ShowMover();
    void ShowAutoPlay();
    void ShowPath();
    void AskAtm(bool withdrawal);
    void AskRenameSessionsLog(int p);
    /// The bettor, or 0 with the words that ask for one.
    int Bettor();
    void SetPending(PendingAction action);
    void ShowPad();
    /// On the tab of that number.
    void ShowConfigure(int number);
    void Refresh();

    std::unique_ptr<Game> Played;
    std::unique_ptr<TableActions> Hand;
    std::unique_ptr<AdvantageCache> Advantages;
    DesktopScreen* Front = nullptr;
    SoundPlayer* Sounds = nullptr;
    FeltView* View = nullptr;
    StatusStrip* Strip = nullptr;
    AmountBox* Amount = nullptr;
    RollPad* Pad = nullptr;
    MoveWindow* Mover = nullptr;
    AutoPlayWindow* AutoPlay = nullptr;
    PathWindow* Paths = nullptr;
    ConfigureWindow* Configure = nullptr;
    QGridLayout* Arrangement = nullptr;
    int MouseOver = 0;
    bool KeyInNext = false;    ///< the press under way opens the amount box
    std::int64_t RunFrom = 0;  ///< rolls of the session when the Hyper-Drive began
    QElapsedTimer RunClock, SinceProgress;
    std::array<QAction*, 5> CheckActions{};
    std::array<QAction*, 5> StatusAlignActions{};
    QList<QAction*> WindowActions;  ///< that open windows
    std::vector<std::pair<QAction*, std::int32_t>> StatusLineActions;
    QAction* RunAction = nullptr;
    std::vector<std::pair<QAction*, bool Table::*>> Switches;
    QLabel* StatusText = nullptr;
};

}  // namespace tarnwick
