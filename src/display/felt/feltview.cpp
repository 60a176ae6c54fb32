#include "display/felt/feltview.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <cmath>

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
    PaintBackground(painter);
    Painter.Paint(painter, T, devicePixelRatioF(), Moment);
    if (T.StatusAlign == StatusPlace::NearPlayers) PaintBoxesNearPlayers(painter, T, size(), font());
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

void FeltView::resizeEvent(QResizeEvent*) { PlaceTable(); }

void FeltView::mousePressEvent(QMouseEvent* event) {
    Pressed = event->pos();
    if (dieAt(event->pos()) != 0) {
        emit dicePressed(event->button(), event->modifiers());
        return;
    }
    emit hotSpotPressed(hotSpot(event->pos()), event->button(), event->modifiers());
}

// Two quick clicks are two bets.
void FeltView::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void FeltView::mouseMoveEvent(QMouseEvent* event) {
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
    if (T.HyperDriveActive || T.ActivePlayer == 0) return;
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
