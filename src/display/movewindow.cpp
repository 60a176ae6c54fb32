#include "display/movewindow.h"

#include <QApplication>
#include <QGridLayout>
#include <QPushButton>

#include "display/felt/felttransform.h"

namespace tarnwick {

namespace {

struct MoveButton {
    const char* Name;
    const char* Caption;
    const char* Tip;
    ViewStep Step;
    int Row, Column;
};

constexpr MoveButton Buttons[] = {
    {"cmdRotateCCW", "\u21BA", "Turn counter-clockwise", ViewStep::RotateCCW, 0, 0},
    {"cmdMoveUp", "\u25B2", "Move up", ViewStep::MoveUp, 0, 1},
    {"cmdRotateCW", "\u21BB", "Turn clockwise", ViewStep::RotateCW, 0, 2},
    {"cmdMoveLeft", "\u25C0", "Move left", ViewStep::MoveLeft, 1, 0},
    {"cmdCenter", "\u25CF", "Center", ViewStep::Center, 1, 1},
    {"cmdMoveRight", "\u25B6", "Move right", ViewStep::MoveRight, 1, 2},
    {"cmdZoomOut", "\u2212", "Zoom out", ViewStep::ZoomOut, 2, 0},
    {"cmdMoveDown", "\u25BC", "Move down", ViewStep::MoveDown, 2, 1},
    {"cmdZoomIn", "+", "Zoom in", ViewStep::ZoomIn, 2, 2},
};

}  // namespace

MoveWindow::MoveWindow(QWidget* parent) : QWidget(parent, Qt::Tool) {
    setObjectName(QStringLiteral("frmMove"));
    setWindowTitle(tr("Zoom/rotate/move"));
    auto* grid = new QGridLayout(this);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    for (const MoveButton& entry : Buttons) {
        auto* button = new QPushButton(QString::fromUtf8(entry.Caption));
        button->setObjectName(QString::fromUtf8(entry.Name));
        button->setToolTip(tr("%1\nShift and Ctrl change the step.").arg(tr(entry.Tip)));
        button->setAccessibleName(tr(entry.Tip));
        button->setFixedSize(44, 36);
        button->setAutoRepeat(true);
        connect(button, &QPushButton::clicked, this,
                [this, step = entry.Step] { emit stepWanted(step, ModifierValue(QApplication::keyboardModifiers())); });
        grid->addWidget(button, entry.Row, entry.Column);
    }
}

}  // namespace tarnwick
