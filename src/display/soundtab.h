// The tab "Sound" of the configuration window.
#pragma once

#include <array>

#include "display/configtab.h"
#include "display/soundsets.h"

class QCheckBox;
class QLabel;
class QListWidget;
class QScrollBar;

namespace tarnwick {

class SoundPlayer;

class SoundTab : public ConfigTab {
    Q_OBJECT

  public:
    /// A set that the user chooses is heard through `sounds`.
    SoundTab(Table& t, SoundPlayer& sounds, QWidget* parent = nullptr);

    void ShowSettings() override;

  private:
    QCheckBox* MakeSwitch(const QString& name, const QString& caption, bool Settings::*flag);
    QWidget* MakeList(SoundList list);
    QWidget* MakeVolume();
    void Choose(SoundList list, int index);

    SoundPlayer& Sounds;
    QCheckBox* NoSound = nullptr;
    QCheckBox* NoScriptSounds = nullptr;
    std::array<QListWidget*, 4> Lists{};
    QScrollBar* Volume = nullptr;
    QLabel* Level = nullptr;
    QLabel* NoDevice = nullptr;
};

}  // namespace tarnwick
