// frmConfigure: the rules and preferences of the game, on tabs.
#pragma once

#include <QWidget>
#include <vector>

class QMenuBar;
class QStackedWidget;
class QTabBar;

namespace tarnwick {

class ConfigTab;
class SoundPlayer;
struct Table;

/// What the tabs are made for, and what they need beside it.
struct ConfigSources {
    Table& T;
    SoundPlayer& Sounds;
};

/// A tab of the window as it is listed.
struct ConfigPage {
    int Number;           ///< 0..9, as Table::ConfigTab keeps it
    const char* Caption;  ///< on the tab
    const char* Command;  ///< of the menu command that opens it
    ConfigTab* (*Make)(const ConfigSources& sources);
};

/// All tabs in their order.
const std::vector<ConfigPage>& ConfigPages();

class ConfigureWindow final : public QWidget {
    Q_OBJECT

  public:
    static constexpr int LastInUse = -1;

    ConfigureWindow(const ConfigSources& sources, QWidget* parent);

    /// Shows the window on the tab of that number.
    void Open(int number = LastInUse);
    /// Another game was opened: shows its settings.
    void ShowGame();
    /// Follows the bankrolls of a game in play.
    void ShowFigures();

  signals:
    void settingsChanged();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    ConfigTab* TabAt(int index) const;
    /// Shows the tab at `index`, unless the present one can't be left or that one not opened.
    void GoTo(int index);
    void StepTab(int step);
    void ShowTab(int index);
    bool AllAreRight();

    Table& T;
    QMenuBar* Bar;
    QTabBar* Tabs;
    QStackedWidget* Pages;
};

}  // namespace tarnwick
