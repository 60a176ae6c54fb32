#include "display/colorpalette.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace tarnwick {

namespace {

constexpr int Columns = 12;
constexpr int Rows = 6;
constexpr int FieldWidth = 26;
constexpr int FieldHeight = 22;

}  // namespace

ColorPalette::ColorPalette(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("picPalette"));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(tr("Palette"));
    setToolTip(tr("Click a color, or move with the arrow keys and press Space."));
}

int ColorPalette::FieldCount() { return Columns * Rows; }

QColor ColorPalette::FieldColor(int field) {
    constexpr int hues[Columns] = {0, 0, 22, 38, 52, 80, 130, 170, 200, 222, 265, 310};
    constexpr int lightness[Rows] = {228, 186, 140, 100, 66, 34};
    constexpr int gray[Rows] = {255, 214, 160, 104, 52, 0};
    const int column = field % Columns;
    const int row = field / Columns;
    if (column == 0) return {gray[row], gray[row], gray[row]};
    return QColor::fromHsl(hues[column], row == 2 ? 235 : 180, lightness[row]);
}

QRect ColorPalette::FieldRect(int field) const {
    return {field % Columns * FieldWidth + 1, field / Columns * FieldHeight + 1, FieldWidth, FieldHeight};
}

QSize ColorPalette::sizeHint() const { return {Columns * FieldWidth + 2, Rows * FieldHeight + 2}; }

void ColorPalette::ShowColor(const QColor& color) {
    Marked = color;
    for (int field = 0; field < FieldCount(); ++field) {
        if (FieldColor(field).rgb() == color.rgb()) Cursor = field;
    }
    update();
}

void ColorPalette::Pick(int field) {
    Cursor = field;
    emit picked(FieldColor(field));
    update();
}

void ColorPalette::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int field = 0; field < FieldCount(); ++field) {
        const QColor color = FieldColor(field);
        const QRectF cell = QRectF(FieldRect(field)).adjusted(2, 2, -2, -2);
        painter.setBrush(isEnabled() ? color : color.lighter(130));
        painter.setPen(QPen(QColor(0, 0, 0, 90), 1));
        painter.drawRoundedRect(cell, 3, 3);
        if (color.rgb() == Marked.rgb()) {
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(color.lightness() > 128 ? Qt::black : Qt::white, 2));
            painter.drawRoundedRect(cell.adjusted(2, 2, -2, -2), 2, 2);
        }
        if (hasFocus() && field == Cursor) {
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(palette().highlight().color(), 2));
            painter.drawRoundedRect(cell.adjusted(-1, -1, 1, 1), 4, 4);
        }
    }
}

void ColorPalette::mousePressEvent(QMouseEvent* event) {
    for (int field = 0; field < FieldCount(); ++field) {
        if (event->button() == Qt::LeftButton && FieldRect(field).contains(event->position().toPoint())) {
            return Pick(field);
        }
    }
}

void ColorPalette::keyPressEvent(QKeyEvent* event) {
    int column = Cursor % Columns;
    int row = Cursor / Columns;
    switch (event->key()) {
        case Qt::Key_Left:
            column = qMax(0, column - 1);
            break;
        case Qt::Key_Right:
            column = qMin(Columns - 1, column + 1);
            break;
        case Qt::Key_Up:
            row = qMax(0, row - 1);
            break;
        case Qt::Key_Down:
            row = qMin(Rows - 1, row + 1);
            break;
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return Pick(Cursor);
        default:
            return QWidget::keyPressEvent(event);
    }
    Cursor = row * Columns + column;
    update();
}

void ColorPalette::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void ColorPalette::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

}  // namespace tarnwick
