// The tab "Colors": the color of each element of the table, whole sets of them, and the spotlight.
#pragma once

#include <array>

#include "display/configtab.h"

class QButtonGroup;
class QGridLayout;
class QGroupBox;
class QLabel;
class QScrollBar;

namespace tarnwick {

class ColorPalette;
class FeltPreview;

class ColorsTab final : public ConfigTab {
    Q_OBJECT

  public:
    explicit ColorsTab(Table& t, QWidget* parent = nullptr);

    void ShowSettings() override;
    std::vector<QMenu*> Menus() override { return {Options}; }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    struct Primary {
        QScrollBar* Bar = nullptr;
        QLabel* Figure = nullptr;
    };

    void MakeMenu();
    QGroupBox* MakeElements(const QString& title, int first, int last, int rows);
    QGroupBox* MakeMixer();
    QGroupBox* MakeSpotlight();
    /// The element 0..42 whose color is changed.
    int Selected() const;
    void ShowSelected();
    void ShowSwatch(int element);
    void ShowSwatches();
    void SetColor(const QColor& color);
    void Changed();

    QMenu* Options;
    QButtonGroup* Elements;
    ColorPalette* Palette;
    std::array<Primary, 3> Primaries;  ///< red, green, blue
    QButtonGroup* Spotlight;
    FeltPreview* Preview;
};

}  // namespace tarnwick
