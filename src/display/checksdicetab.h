// The tab "Checks/Dice": denominations and looks of checks, looks and movement of dice, the simulated roll rate.
#pragma once

#include <array>

#include "display/configtab.h"
#include "table/currency.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;

namespace tarnwick {

class SettingField;
struct SettingFault;

class ChecksDiceTab final : public ConfigTab {
    Q_OBJECT

  public:
    explicit ChecksDiceTab(Table& t, QWidget* parent = nullptr);

    void ShowSettings() override;
    bool MayLeave() override;
    std::vector<QMenu*> Menus() override { return {Options}; }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QGroupBox* MakeDenominations();
    QGroupBox* MakeCheckPictures();
    QGroupBox* MakeDice();
    QGroupBox* MakeRate();
    QCheckBox* AddSwitch(const QString& caption, const char* name, bool& setting);
    SettingFault TakeCheck(int i, const std::string& typed);
    /// The first of the five fields that the fault is about.
    SettingField* FaultyField() const;
    void ShowPictures();
    void Restore();
    void Changed();

    QMenu* Options;
    std::array<currency, 6> Typed{};  ///< 1..5 as the fields show them; not in force while they don't fit together
    std::array<SettingField*, 6> Fields{};
    std::array<QLabel*, 6> Faces{};
    QLabel* Pending;
    QCheckBox* CentsSymbol;
    QCheckBox* AutoArrange;
    QButtonGroup* CheckLooks;
    QButtonGroup* DiceLooks;
    QButtonGroup* Actions;
    SettingField* Rate;
    QComboBox* RateUnit;
};

}  // namespace tarnwick
