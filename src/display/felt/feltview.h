// The surface of the table in the main window: shows the felt with everything on it, and tells what the mouse is over.
#pragma once

#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include "display/felt/feltpainter.h"
#include "display/felt/felttransform.h"
#include "display/felt/hotspotmap.h"
#include "display/felt/tablepainter.h"

namespace tarnwick {

class FeltView : public QWidget {
    Q_OBJECT

  public:
    explicit FeltView(Table& t, QWidget* parent = nullptr);

    /// Shows the table anew after any change of its state, settings or view; the felt is only drawn again when it looks
    /// otherwise than before.
    void RefreshTable();
    /// Shows one bet anew: row 1..91 or a CheckStack of player p.
    void RefreshBet(int p, int row);
    /// Shows the dice at `moment` 0..1 of a throw, at once. 1 leaves them at rest.
    void ShowThrow(double moment);
    /// Keeps the present picture on the screen, under `words`, until Thaw: nothing else is drawn meanwhile.
    void Freeze(const QString& words);
    void Thaw();
    bool IsFrozen() const { return !Frozen.isNull(); }
    /// Draws the felt sharply now, where a stretched picture of it is shown.
    void Sharpen();

    /// The centre that zooming and turning keep.
    HeldCentre& Centre() { return Held; }
    /// Fits the table to this window when it is kept fitted, and centres one that was never placed.
    void PlaceTable();

    /// What lies under a pixel: the map's raw value, and what it means for the active player (0: nothing).
    int rawHotSpot(QPoint pixel);
    int hotSpot(QPoint pixel);
    /// The die 1 or 2 under a pixel, 0 for none.
    int dieAt(QPoint pixel) const;
    /// Where the mouse was last pressed.
    QPoint lastPress() const { return Pressed; }
    /// The last adjusted value under the mouse.
    int HotSpotUnderMouse() const { return UnderMouse; }

    /// The adjusted value of the box that the arrow keys chose, 0 for none.
    int CursorValue() const;
    /// Presses that box as the mouse would.
    void PressCursor(Qt::MouseButton button);

    QSize sizeHint() const override { return {1248, 560}; }
    QSize minimumSizeHint() const override { return {320, 160}; }

  signals:
    void hotSpotPressed(int value, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    /// The mouse moved; `value` may be the one of the last move.
    void hotSpotMoved(int value);
    void dicePressed(Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void mouseLeft();
    /// A press, not a drag, on the status box near player p.
    void boxPressed(int p);
    void zoomWanted(bool in, Qt::KeyboardModifiers modifiers);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    void PaintAll(QPainter& painter);
    void PaintCursor(QPainter& painter);
    void PaintWords(QPainter& painter);
    void PaintBackground(QPainter& painter);
    /// Position 1..8 whose status box stands near it under a pixel, or 0.
    int BoxAt(QPoint pixel) const;
    void DragBox(QPoint pixel);
    void MoveCursor(Qt::Key arrow);
    void PaintStretched(QPainter& painter, const FeltKey& key);
    void StepRing();
    void FollowRingTimer();

    Table& T;
    HeldCentre Held;
    TablePainter Painter;
    TableMoment Moment;
    QPixmap Felt;
    FeltKey Drawn;  ///< of Felt
    bool SharpNow = true;
    QTimer SharpenTimer;
    QTimer tmrCheckRing;
    HotSpotMap Map;
    FeltKey Mapped;  ///< of Map
    QPoint Pressed;
    int UnderMouse = 0;
    int CursorId = 0;  ///< of the keyboard's box, 0 none
    QPixmap Frozen;
    QString FrozenWords;
    int HeldBox = 0;  ///< player whose status box the mouse holds
    QPoint HeldAt;    ///< in that box
    bool BoxMoved = false;
};

}  // namespace tarnwick
