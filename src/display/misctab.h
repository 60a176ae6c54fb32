// The tab "Misc.": random numbers, notices, the mouse and the printer.
#pragma once

#include "display/configtab.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QRadioButton;

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
    QRadioButton* SeedNormally;
    QRadioButton* UserSeed;
    QLabel* LastSeed;
    QCheckBox* ReSeed;
    std::vector<QCheckBox*> Notices;  ///< by bit of NotifyBits
    QCheckBox* SnapMouse;
    QCheckBox* ColorPrinter;
};

}  // namespace tarnwick
