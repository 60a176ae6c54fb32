#include "display/felt/felttransform.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "display/felt/feltlayout.h"
#include "table/crapcnst.h"

namespace tarnwick {

namespace {

constexpr int SideRoom = 50;  ///< pixels that status boxes beside the table take from its width
constexpr std::int32_t LeastWidth = 500;
constexpr std::int32_t LargestWidth = 5000;
constexpr double HeightOfWidth = 0.4487;

/// Halves to the even neighbour.
int Rounded(double value) { return static_cast<int>(std::nearbyint(value)); }

/// The table's centre before the offsets are added.
QPointF BareCentre(const TableView& view) {
    const double s = view.TableScale;
    return {s * (view.TableCos * FeltSpace::CentreX + view.TableSin * FeltSpace::CentreY),
            s * (view.TableCos * FeltSpace::CentreY - view.TableSin * FeltSpace::CentreX)};
}

void PlaceCentre(TableView& view, QPointF centre) {
    const QPointF bare = BareCentre(view);
    view.TableOffsetX = Rounded(centre.x() - bare.x());
    view.TableOffsetY = Rounded(centre.y() - bare.y());
    view.CentreTable = false;
}

void Zoom(Table& t, HeldCentre& held, int modifier, bool in) {
    constexpr std::array<double, 4> steps = {1.05, 1.25, 1.01, 10.0};
    const double factor = steps[static_cast<std::size_t>(modifier & 3)];
    const std::int32_t limit = in ? LargestWidth : LeastWidth;
    if (modifier == 0 && t.TableWidth == limit) return;
    const QPointF centre = CentreOf(t, held);
    const double wanted = in ? t.TableWidth * factor : t.TableWidth / factor;
    SetTableWidth(t, std::clamp(Rounded(wanted), LeastWidth, LargestWidth));
    PlaceCentre(t, centre);
    t.AutoSizeTable = false;
    t.GameChanged = true;
}

void Rotate(Table& t, HeldCentre& held, int modifier, int sign) {
    constexpr std::array<int, 4> steps = {30, 90, 45, 180};
    const QPointF centre = CentreOf(t, held);
    SetTableAngle(t, t.TableAngle + sign * steps[static_cast<std::size_t>(modifier & 3)]);
    PlaceCentre(t, centre);
    t.GameChanged = true;
}

/// The window without what status boxes beside the table take.
QSize RoomOf(const Table& t, QSize window) {
    const bool beside = t.StatusAlign == 2 || t.StatusAlign == 3;
    return {window.width() - (beside ? SideRoom : 0), window.height()};
}

}  // namespace

QTransform TableTransform(const TableView& view) {
    const double along = view.TableScale * view.TableCos;
    const double across = view.TableScale * view.TableSin;
    return {
        along, -across, across, along, static_cast<double>(view.TableOffsetX), static_cast<double>(view.TableOffsetY)};
}

QPoint TableToScreen(const TableView& view, QPointF tablePoint) {
    const QPointF exact = TableTransform(view).map(tablePoint);
    return {Rounded(exact.x()), Rounded(exact.y())};
}

QPointF ScreenToTable(const TableView& view, QPointF pixel) { return TableTransform(view).inverted().map(pixel); }

QPointF CentreOf(const TableView& view, HeldCentre& held) {
    const QPointF bare = BareCentre(view);
    const bool fits = held.IsHeld && Rounded(held.Point.x() - bare.x()) == view.TableOffsetX &&
                      Rounded(held.Point.y() - bare.y()) == view.TableOffsetY;
    if (!fits) held = {bare + QPointF(view.TableOffsetX, view.TableOffsetY), true};
    return held.Point;
}

int ModifierValue(Qt::KeyboardModifiers modifiers) {
    return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) + (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0);
}

void ZoomIn(Table& t, HeldCentre& held, int modifier) { Zoom(t, held, modifier, true); }
void ZoomOut(Table& t, HeldCentre& held, int modifier) { Zoom(t, held, modifier, false); }

// A positive TableAngle is counter-clockwise on the screen, and the button with the clockwise arrow must do what it
// shows.
void RotateCW(Table& t, HeldCentre& held, int modifier) { Rotate(t, held, modifier, -1); }
void RotateCCW(Table& t, HeldCentre& held, int modifier) { Rotate(t, held, modifier, 1); }

void MoveTable(Table& t, MoveDirection direction, int modifier, QSize window) {
    constexpr int step = 50;
    const QRectF corners =
        TableTransform(t).mapRect(QRectF(QPointF(0, FeltSpace::Top), QPointF(FeltSpace::Width, FeltSpace::Bottom)));
    const bool toEdge = modifier != 0;
    switch (direction) {
        case MoveDirection::Up:
            t.TableOffsetY += toEdge ? Rounded(-corners.top()) : -step;
            break;
        case MoveDirection::Down:
            t.TableOffsetY += toEdge ? Rounded(window.height() - corners.bottom()) : step;
            break;
        case MoveDirection::Left:
            t.TableOffsetX += toEdge ? Rounded(-corners.left()) : -step;
            break;
        case MoveDirection::Right:
            t.TableOffsetX += toEdge ? Rounded(window.width() - corners.right()) : step;
            break;
    }
    t.AutoSizeTable = false;
    t.GameChanged = true;
}

void CenterTable(Table& t, HeldCentre& held, QSize window) {
    const QSize room = RoomOf(t, window);
    if (room.width() <= 0 || room.height() <= 0) return;
    const double s = t.TableScale;
    t.TableOffsetX = Rounded((room.width() - FeltSpace::Width * s) / 2);
    t.TableOffsetY = Rounded((room.height() - FeltSpace::Height * s) / 2);
    const QPointF bare = BareCentre(t);
    t.TableOffsetX = Rounded(t.TableOffsetX + FeltSpace::CentreX * s - bare.x());
    t.TableOffsetY = Rounded(t.TableOffsetY + FeltSpace::CentreY * s - bare.y());
    t.TableOffsetY = Rounded(t.TableOffsetY - FeltSpace::Top * s);
    if (t.StatusAlign == 2) t.TableOffsetX += SideRoom;
    t.CentreTable = false;
    t.GameChanged = true;
    held.IsHeld = false;
    CentreOf(t, held);
}

void AutoSize(Table& t, HeldCentre& held, QSize window) {
    const QSize room = RoomOf(t, window);
    if (room.width() <= 0 || room.height() <= 0) return;
    SetTableWidth(t, std::min(room.width(), Rounded(std::floor(room.height() / HeightOfWidth))));
    CenterTable(t, held, window);
}

void SaveView(Table& t, int view) {
    t.SavedView[static_cast<std::size_t>(view)] = {t.TableWidth, t.TableAngle, t.TableOffsetX, t.TableOffsetY};
    t.GameChanged = true;
}

bool RestoreView(Table& t, int view) {
    const auto& [width, angle, x, y] = t.SavedView[static_cast<std::size_t>(view)];
    if (width < LeastWidth) return false;
    SetTableWidth(t, width);
    SetTableAngle(t, angle);
    t.TableOffsetX = x;
    t.TableOffsetY = y;
    t.CentreTable = false;
    t.AutoSizeTable = false;
    t.GameChanged = true;
    return true;
}

}  // namespace tarnwick
