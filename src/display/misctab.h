// The tab "Misc.": random numbers, notices, the mouse and the printer.
#pragma once

#include "display/configtab.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;

namespace tarnwick {

class MiscTab final : public ConfigTab {
    Q_OBJECT

  public:
    explicit MiscTab(Table& t, QWidget* parent = nullptr);

    void ShowSettings() override;

  private:
    QGroupBox* MakeGenerators();
    QGroupBox* MakeNotices();
    QWidget* MakeOthers();
    void ChooseGenerator(int index);
    void SeedNow();
    void Changed();

    QComboBox* Generators;
    QButtonGroup* Seeding;  ///< 0 normally, 1 by the user
    QLabel* LastSeed;
    QCheckBox* ReSeed;
    std::vector<QCheckBox*> Notices;  ///< by bit of NotifyBits
    QCheckBox* SnapMouse;
    QCheckBox* ColorPrinter;
};

}  // namespace tarnwick
