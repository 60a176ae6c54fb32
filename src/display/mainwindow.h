// The main window: the table, its menu bar and the status line.
#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>
#include <vector>

#include "display/tableactions.h"

class QAction;
class QLabel;
class QMenu;

namespace tarnwick {

class DesktopScreen;
class Game;
class RollPad;

class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    MainWindow();
    ~MainWindow() override;

    Game& CurrentGame() { return *Played; }
    TableActions& Actions() { return *Hand; }

    /// Rolls once, or says why not; an amount being typed is placed first.
    void Roll();
    void ToggleRun();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    using Command = std::function<void()>;
    /// A menu entry whose command is dropped when the user doesn't want to disturb a run.
    QAction* Add(QMenu& menu, const QString& caption, const QKeySequence& keys, Command command);
    QAction* AddSwitch(QMenu& menu, const QString& caption, const QKeySequence& keys, bool Table::*flag);

    void MakeGameMenu();
    void MakePlayersMenu();
    void MakeActionMenu();
    void MakeViewMenu();
    void MakeHelpMenu();
    void ConnectScreen();

    void StartNewSession();
    void AskAtm(bool withdrawal);
    /// The bettor, or 0 with the words that ask for one.
    int Bettor();
    void SetPending(PendingAction action);
    void ShowPad();
    void Refresh();

    std::unique_ptr<Game> Played;
    std::unique_ptr<TableActions> Hand;
    DesktopScreen* Front = nullptr;
    RollPad* Pad = nullptr;
    QAction* RunAction = nullptr;
    std::vector<std::pair<QAction*, bool Table::*>> Switches;
    QLabel* StatusText = nullptr;
};

}  // namespace tarnwick
