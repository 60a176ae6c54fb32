#include "display/felt/feltview.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>
#include <utility>

#include "display/felt/betcursor.h"
#include "display/felt/dicepainter.h"
#include "display/felt/feltcolors.h"
#include "display/felt/feltlayout.h"
#include "display/felt/feltoutline.h"
#include "display/felt/statusboxes.h"
#include "table/crapcnst.h"

namespace tarnwick {

namespace {

constexpr int SharpenAfter = 90;   ///< milliseconds without a further change of the view
constexpr int RingInterval = 500;  ///< milliseconds

/// Whether two pictures differ only in where the table stands.
bool SameLook(FeltKey a, const FeltKey& b) {
    a.Size = b.Size;
    a.View = b.View;
    return a == b;
}

QTransform TransformOf(const FeltKey& key) {
    TableView view;
    SetTableWidth(view, key.View[0]);
    SetTableAngle(view, key.View[1]);
    view.TableOffsetX = key.View[2];
    view.TableOffsetY = key.View[3];
    return TableTransform(view);
}

}  // namespace

FeltView::FeltView(Table& t, QWidget* parent) : QWidget(parent), T(t) {
    setObjectName(QStringLiteral("picLayout"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    SharpenTimer.setSingleShot(true);
    connect(&SharpenTimer, &QTimer::timeout, this, &FeltView::Sharpen);
    connect(&tmrCheckRing, &QTimer::timeout, this, &FeltView::StepRing);
    FollowRingTimer();
}

void FeltView::RefreshTable() {
    PlaceTable();
    FollowRingTimer();
    update();
}

void FeltView::RefreshBet(int p, int row) { update(BetExtent(T, p, row).toAlignedRect()); }

void FeltView::ShowThrow(double moment) {
    Moment.Throw = moment;
    repaint();
}

void FeltView::Sharpen() {
    SharpNow = true;
    update();
}

void FeltView::PlaceTable() {
    if (size().isEmpty()) return;
    const bool changed = T.GameChanged;  // fitting itself is nothing worth saving
    if (T.AutoSizeTable) {
        AutoSize(T, Held, size());
    } else if (T.CentreTable) {
        CenterTable(T, Held, size());
    }
    T.GameChanged = changed;
}

int FeltView::rawHotSpot(QPoint pixel) {
    FeltKey key = FeltKeyOf(T, size(), 1);
    key.Colors = {};
    key.Payoffs = {};
    key.FieldPayoffs = {};
    if (!(key == Mapped)) {
        Map.Rebuild(T, size());
        Mapped = key;
    }
    return Map.At(pixel);
}

int FeltView::hotSpot(QPoint pixel) { return HotSpotAt(T, rawHotSpot(pixel)); }

int FeltView::dieAt(QPoint pixel) const { return DieUnder(T, pixel); }

void FeltView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setClipRegion(event->region());
    if (!IsFrozen()) return PaintAll(painter);
    painter.drawPixmap(0, 0, Frozen);
    PaintWords(painter);
}

void FeltView::PaintAll(QPainter& painter) {
    PaintBackground(painter);
    Painter.Paint(painter, T, devicePixelRatioF(), Moment);
    PaintCursor(painter);
    if (T.StatusAlign == StatusPlace::NearPlayers) PaintBoxesNearPlayers(painter, T, size(), font());
}

/// The box that the keyboard chose, framed light on dark to be seen on any felt.
void FeltView::PaintCursor(QPainter& painter) {
    if (CursorId == 0) return;  // nearly always, and every picture comes by here
    for (const CursorTarget& target : CursorTargets(T)) {
        if (target.Id != CursorId) continue;
        const QPainterPath frame = TableTransform(T).map(target.Path);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(0, 0, 0, 190), 5));
        painter.drawPath(frame);
        painter.setPen(QPen(QColor(0xFFE14D), 2.4));
        painter.drawPath(frame);
    }
}

/// What is said of a frozen picture, on a plate in its middle.
void FeltView::PaintWords(QPainter& painter) {
    QFont large = font();
    large.setPixelSize(std::clamp(width() / 32, 16, 48));
    large.setBold(true);
    const QRect words = QFontMetrics(large).boundingRect(FrozenWords);
    QRectF plate(0, 0, words.width() + 56, words.height() + 28);
    plate.moveCenter(QRectF(rect()).center());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0xFFE14D), 2));
    painter.setBrush(QColor(16, 20, 26, 225));
    painter.drawRoundedRect(plate, 12, 12);
    painter.setFont(large);
    painter.setPen(Qt::white);
    painter.drawText(plate, Qt::AlignCenter, FrozenWords);
}

void FeltView::Freeze(const QString& words) {
    if (!IsFrozen()) {
        QPixmap picture(size() * devicePixelRatioF());
        picture.setDevicePixelRatio(devicePixelRatioF());
        if (picture.isNull()) return;
        QPainter painter(&picture);
        PaintAll(painter);
        Frozen = picture;
    }
    FrozenWords = words;
    update();
}

void FeltView::Thaw() {
    Frozen = {};
    update();
}

void FeltView::PaintBackground(QPainter& painter) {
    const FeltKey key = FeltKeyOf(T, size(), devicePixelRatioF());
    if (!(key == Drawn)) {
        if (!SharpNow && !Felt.isNull() && SameLook(key, Drawn)) {
            PaintStretched(painter, key);
            SharpenTimer.start(SharpenAfter);
            return;
        }
        Felt = QPixmap::fromImage(PaintFelt(T, size(), devicePixelRatioF()));
        Drawn = key;
    }
    SharpNow = false;
    painter.drawPixmap(0, 0, Felt);
}

void FeltView::PaintStretched(QPainter& painter, const FeltKey& key) {
    const QTransform now = TransformOf(key);
    painter.fillRect(rect(), FeltColor(T, ColorIndex::Floor));
    painter.save();
    painter.setClipPath(now.map(TableOutline()), Qt::IntersectClip);
    painter.fillRect(rect(), FeltColor(T, ColorIndex::Felt));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setTransform(TransformOf(Drawn).inverted() * now, true);
    painter.drawPixmap(0, 0, Felt);
    painter.restore();
}

void FeltView::resizeEvent(QResizeEvent*) {
    PlaceTable();
    if (!IsFrozen()) return;
    Frozen = {};
    Freeze(FrozenWords);
}

void FeltView::mousePressEvent(QMouseEvent* event) {
    Pressed = event->pos();
    CursorId = 0;
    HeldBox = event->button() == Qt::LeftButton ? BoxAt(event->pos()) : 0;
    if (HeldBox != 0) {
        HeldAt = event->pos() - PlacesNearPlayers(T, size(), font())[static_cast<std::size_t>(HeldBox)].topLeft();
        BoxMoved = false;
        return;
    }
    if (dieAt(event->pos()) != 0) {
        emit dicePressed(event->button(), event->modifiers());
        return;
    }
    emit hotSpotPressed(hotSpot(event->pos()), event->button(), event->modifiers());
}

// Two quick clicks are two bets.
void FeltView::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

int FeltView::BoxAt(QPoint pixel) const {
    if (T.StatusAlign != StatusPlace::NearPlayers || IsFrozen()) return 0;
    const auto places = PlacesNearPlayers(T, size(), font());
    for (int p = 8; p >= 1; --p) {  // the last is drawn on top
        if (places[static_cast<std::size_t>(p)].contains(pixel)) return p;
    }
    return 0;
}

void FeltView::DragBox(QPoint pixel) {
    BoxMoved = BoxMoved || (pixel - Pressed).manhattanLength() >= QApplication::startDragDistance();
    if (!BoxMoved) return;
    const auto p = static_cast<std::size_t>(HeldBox);
    // Never the corner itself, which means a place that the program chooses.
    T.StatusBoxLeft[p] = std::max(2, pixel.x() - HeldAt.x());
    T.StatusBoxTop[p] = std::max(2, pixel.y() - HeldAt.y());
    T.GameChanged = true;
    update();
}

void FeltView::mouseReleaseEvent(QMouseEvent*) {
    const int p = std::exchange(HeldBox, 0);
    if (p != 0 && !BoxMoved) emit boxPressed(p);
}

void FeltView::wheelEvent(QWheelEvent* event) {
    const int turned = event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    if (turned != 0) emit zoomWanted(turned > 0, event->modifiers());
    event->accept();
}

void FeltView::keyPressEvent(QKeyEvent* event) {
    const auto key = static_cast<Qt::Key>(event->key());
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    for (const Qt::Key arrow : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
        if (plain && key == arrow) return MoveCursor(arrow);
    }
    QWidget::keyPressEvent(event);
}

void FeltView::MoveCursor(Qt::Key arrow) {
    if (IsFrozen()) return;
    CursorId = NextTarget(T, CursorId, arrow);
    update();
    emit hotSpotMoved(CursorValue());
}

int FeltView::CursorValue() const {
    for (const CursorTarget& target : CursorTargets(T)) {
        if (target.Id == CursorId) return HotSpotAt(T, target.Raw);
    }
    return 0;
}

void FeltView::PressCursor(Qt::MouseButton button) {
    for (const CursorTarget& target : CursorTargets(T)) {
        if (target.Id != CursorId) continue;
        Pressed = TableToScreen(T, target.Centre);
        emit hotSpotPressed(HotSpotAt(T, target.Raw), button, {});
        return;
    }
}

void FeltView::mouseMoveEvent(QMouseEvent* event) {
    if (HeldBox != 0) return DragBox(event->pos());
    const int value = hotSpot(event->pos());
    const bool hand = IsBetSpot(value) || RailPlayer(value) != 0 || dieAt(event->pos()) != 0;
    if (hand != (cursor().shape() == Qt::PointingHandCursor))
        setCursor(hand ? Qt::PointingHandCursor : Qt::ArrowCursor);
    UnderMouse = value;
    emit hotSpotMoved(value);
}

void FeltView::leaveEvent(QEvent*) {
    UnderMouse = 0;
    emit mouseLeft();
}

void FeltView::StepRing() {
    if (IsFrozen() || T.ActivePlayer == 0) return;
    Moment.RingLit = !Moment.RingLit;
    update();
}

void FeltView::FollowRingTimer() {
    if (T.FlashBets && !tmrCheckRing.isActive()) tmrCheckRing.start(RingInterval);
    if (!T.FlashBets) {
        tmrCheckRing.stop();
        Moment.RingLit = true;
    }
}

}  // namespace tarnwick
