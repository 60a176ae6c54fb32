// frmMove: the buttons that zoom, turn and shift the table.
#pragma once

#include <QWidget>

namespace tarnwick {

/// What a button of the window does; Shift and Ctrl change the step.
enum class ViewStep { ZoomIn, ZoomOut, RotateCW, RotateCCW, MoveUp, MoveDown, MoveLeft, MoveRight, Center };

class MoveWindow final : public QWidget {
    Q_OBJECT

  public:
    explicit MoveWindow(QWidget* parent);

  signals:
    void stepWanted(tarnwick::ViewStep step, int modifier);
};

}  // namespace tarnwick
