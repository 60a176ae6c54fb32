// The box of each player's money, in a strip along one side of the window or near the players.
#pragma once

#include <QRect>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <array>

#include "table/bets.h"
#include "table/currency.h"

class QFont;
class QPainter;

namespace tarnwick {

struct Table;

/// StatusAlign, in the order of its menu.
namespace StatusPlace {
enum : int { Top = 0, Bottom = 1, Left = 2, Right = 3, NearPlayers = 4 };
}

/// Bits of StatusLines.
namespace StatusLine {
enum : int { Bankroll = 1, Rail = 2, Bets = 4, Result = 8, ShooterMark = 16, BettorMark = 32 };
}

/// What the box of one player says.
struct StatusBox {
    QString Name;
    QStringList Lines;
    bool ShooterMark = false;
    bool BettorMark = false;
};

/// "$" and the amount, with two places unless it is whole; the minus stands first.
QString StatusAmount(currency amount);

/// The box of seated player p, with the lines that StatusLines asks for.
StatusBox StatusBoxOf(const Table& t, int p);

/// Size of any player's box in a strip, and of a box that is no wider than its words, in pixels.
QSize StatusBoxSize(const Table& t, const QFont& font);
QSize TightSize(const StatusBox& box, const QFont& font);

void PaintStatusBox(QPainter& painter, const QRect& place, const StatusBox& box, const QFont& font);

/// Places of the boxes of seated players near them in a window of `window`: where the user left them, else where they
/// hide least of the table and of each other. Empty for empty positions.
std::array<QRect, Positions> PlacesNearPlayers(const Table& t, QSize window, const QFont& font);

/// All boxes near their players.
void PaintBoxesNearPlayers(QPainter& painter, const Table& t, QSize window, const QFont& font);

/// The strip along a side of the window. It hides itself when the boxes stand near the players or nobody plays.
class StatusStrip : public QWidget {
    Q_OBJECT

  public:
    explicit StatusStrip(const Table& t, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// After anything changed that a box shows, or StatusAlign.
    void Refresh();

  signals:
    /// A press on the box of player p.
    void boxPressed(int p, Qt::MouseButton button);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    bool IsUpright() const;
    QRect PlaceOf(int p) const;

    const Table& T;
};

}  // namespace tarnwick
