// The tab "Bankroll": each player's money and how a session starts with it.
#pragma once

#include "display/configtab.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;

namespace tarnwick {

class SettingField;

class BankrollTab final : public ConfigTab {
    Q_OBJECT

  public:
    explicit BankrollTab(Table& t, QWidget* parent = nullptr);

    void ShowSettings() override;
    bool MayOpen() override;
    bool MayLeave() override;

    /// Shows the bankroll as it stands, and who is at the table.
    void ShowFigures();

  private:
    QGroupBox* MakeFigures();
    QGroupBox* MakeAtm();
    QGroupBox* MakeSessionStart();
    void ListPlayers();
    void ShowPlayer();
    void Choose(int index);
    void MoveMoney(int sign);
    void AllowNegative(bool on);
    void Changed();
    int Shown = 0;  ///< position; 0 when nobody is at the table
    QComboBox* Players;
    QWidget* Panel;
    QLabel* Current;
    QLabel* Invested;
    QLabel* NetLabel;
    QLabel* Net;
    SettingField* AtmField;
    QButtonGroup* Rules;
    SettingField* StartField;
    QCheckBox* Negative;
};

}  // namespace tarnwick
