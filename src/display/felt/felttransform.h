// From table units to pixels and back, and the commands that zoom, turn and shift the table in its window.
#pragma once

#include <QPointF>
#include <QSize>
#include <QTransform>

#include "config/displaystate.h"

namespace tarnwick {

struct Table;

/// X = x A + y D + TableOffsetX and Y = y C - x B + TableOffsetY, where A = C = TableScale cos and B = D = TableScale
/// sin: a positive angle turns the picture counter-clockwise.
QTransform TableTransform(const TableView& view);

/// The same rounded to whole pixels, half to even.
QPoint TableToScreen(const TableView& view, QPointF tablePoint);
/// The exact point of the table under a pixel.
QPointF ScreenToTable(const TableView& view, QPointF pixel);

/// Where the table's centre stands in the window, between whole pixels. One belongs to each table on the screen; the
/// offsets are rounded from it, so that no number of turns and zooms moves the table. It follows by itself when the
/// offsets were changed by something else.
struct HeldCentre {
    QPointF Point;
    bool IsHeld = false;
};

/// The centre of the table in pixels, as held or else as the offsets say.
QPointF CentreOf(const TableView& view, HeldCentre& held);

/// Shift and Ctrl as the buttons count them: 1, 2 or 3 for both.
int ModifierValue(Qt::KeyboardModifiers modifiers);

/// The size grows or shrinks about the held centre: by 5 % plain, 25 % with Shift, 1 % with Ctrl, to the limit with
/// both. At the limit a plain press does nothing.
void ZoomIn(Table& t, HeldCentre& held, int modifier);
void ZoomOut(Table& t, HeldCentre& held, int modifier);

/// The picture turns about the held centre by 30 degrees plain, 90 with Shift, 45 with Ctrl, 180 with both.
void RotateCW(Table& t, HeldCentre& held, int modifier);
void RotateCCW(Table& t, HeldCentre& held, int modifier);

enum class MoveDirection { Up, Down, Left, Right };
/// Shifts the table by 50 pixels, or with any modifier until its outermost corner meets that edge of the window.
void MoveTable(Table& t, MoveDirection direction, int modifier, QSize window);

/// Puts the table's centre at the centre of the window, less what the status boxes at its side take.
void CenterTable(Table& t, HeldCentre& held, QSize window);
/// The same, and fits the unturned table to the window. Neither does anything in an empty window.
void AutoSize(Table& t, HeldCentre& held, QSize window);

/// Stores size, angle and offsets as view 0..9, and brings them back; false for an empty view.
void SaveView(Table& t, int view);
bool RestoreView(Table& t, int view);

}  // namespace tarnwick
