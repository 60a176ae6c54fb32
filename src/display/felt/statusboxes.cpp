#include "display/felt/statusboxes.h"

#include <QFontMetrics>
#include <QLineF>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "display/felt/dicepainter.h"
#include "display/felt/feltcolors.h"
#include "display/felt/feltlayout.h"
#include "display/felt/feltoutline.h"
#include "display/felt/felttransform.h"
#include "table/crapcnst.h"
#include "table/format.h"

namespace tarnwick {

namespace {

constexpr int Margin = 5;

std::size_t At(int i) { return static_cast<std::size_t>(i); }

int BetsUp(const Table& t, int p) {
    int count = 0;
    for (int row = 1; row <= Row::LastBet; ++row) count += t.BetAmount(p, row) > currency{} ? 1 : 0;
    return count;
}

QFont BoxFont(const QFont& font) {
    QFont small = font;
    small.setPixelSize(12);
    return small;
}

QPoint Within(QSize window, QSize box, QPoint corner) {
    return {std::clamp(corner.x(), 2, std::max(2, window.width() - box.width() - 2)),
            std::clamp(corner.y(), 2, std::max(2, window.height() - box.height() - 2))};
}

/// How much a box here hides: what is played on counts most, then the padded rail, then being far from the player.
double CostOf(const QTransform& toTable, const QRect& box, QPointF player) {
    constexpr int samples = 5;
    double cost = QLineF(QRectF(box).center(), player).length() * 0.02;
    for (int i = 0; i < samples * samples; ++i) {
        const QPointF pixel(box.left() + box.width() * (i % samples) / (samples - 1.0),
                            box.top() + box.height() * static_cast<double>(i / samples) / (samples - 1.0));
        const QPointF point = toTable.map(pixel);
        cost += DistanceFrom(RackBox, point) < 2 ? 3.0 : DistanceFrom(OuterBox, point) < 0 ? 0.7 : 0.0;
    }
    return cost;
}

/// Where around the name of player p a box stands best, given those that stand already.
QPoint BestCorner(const Table& t, int p, QSize window, QSize box, const std::array<QRect, Positions>& taken) {
    const QTransform toPixels = TableTransform(t);
    const QTransform toTable = toPixels.inverted();
    const QPointF name = toPixels.map(TheFelt().Seats[At(p)].NameCentre);
    QPoint best = Within(window, box, name.toPoint());
    double least = 1e9;
    for (const double away : {10.0, 30.0, 60.0, 100.0}) {
        for (int direction = 0; direction < 16; ++direction) {
            const double angle = direction * std::numbers::pi / 8;
            const QPointF centre = name + QPointF(std::cos(angle) * (box.width() / 2.0 + away),
                                                  std::sin(angle) * (box.height() / 2.0 + away));
            const QRect place(Within(window, box, (centre - QPointF(box.width() / 2.0, box.height() / 2.0)).toPoint()),
                              box);
            double cost = CostOf(toTable, place, name);
            for (const QRect& other : taken) cost += other.intersects(place.adjusted(-2, -2, 2, 2)) ? 200 : 0;
            if (cost >= least) continue;
            least = cost;
            best = place.topLeft();
        }
    }
    return best;
}

}  // namespace

QString StatusAmount(currency amount) {
    const bool whole = IsMultipleOf(amount, Dollars(1));
    const std::string text = FormatPattern(Abs(amount), whole ? "#,#;-#,#;0" : "#,0.00;-#,0.00;0.00");
    return QLatin1String(amount < currency{} ? "-$" : "$") + QString::fromStdString(text);
}

StatusBox StatusBoxOf(const Table& t, int p) {
    StatusBox box;
    box.Name = QString::fromStdString(t.PlayerName[At(p)]);
    if (t.StatusLines & StatusLine::Bankroll)
        box.Lines += QStringLiteral("Bankroll:  ") + StatusAmount(t.Bankroll[At(p)]);
    if (t.StatusLines & StatusLine::Rail) {
        box.Lines += QStringLiteral("Rail:  ") + StatusAmount(t.Bankroll[At(p)] - t.BetsOnTable[At(p)]);
    }
    if (t.StatusLines & StatusLine::Bets) {
        const int bets = BetsUp(t, p);
        const QString head =
            bets == 1 ? QStringLiteral("1 Bet:  ") : QString::number(bets) + QStringLiteral(" Bets:  ");
        box.Lines += head + StatusAmount(t.BetsOnTable[At(p)]);
    }
    if (t.StatusLines & StatusLine::Result) {
        const currency net = t.Bankroll[At(p)] - t.BankrollInvested[At(p)];
        const char* head = IsZero(net) ? "Even:  " : net > currency{} ? "Won:  " : "Lost:  ";
        box.Lines += QLatin1String(head) + StatusAmount(Abs(net));
    }
    box.ShooterMark = (t.StatusLines & StatusLine::ShooterMark) != 0 && p == t.Shooter;
    box.BettorMark = (t.StatusLines & StatusLine::BettorMark) != 0 && p == t.ActivePlayer;
    return box;
}

QSize StatusBoxSize(const Table& t, const QFont& font) {
    const QFontMetrics metrics(BoxFont(font));
    int lines = 1;
    for (const int line : {StatusLine::Bankroll, StatusLine::Rail, StatusLine::Bets, StatusLine::Result}) {
        lines += (t.StatusLines & line) != 0 ? 1 : 0;
    }
    return {metrics.horizontalAdvance(QStringLiteral("Bankroll:  $999,999.00")) + 2 * Margin,
            lines * metrics.height() + 2 * Margin};
}

void PaintStatusBox(QPainter& painter, const QRect& place, const StatusBox& box, const QFont& font) {
    const QFontMetrics metrics(BoxFont(font));
    const int lineHeight = metrics.height();
    const QRect inside = place.adjusted(Margin, Margin, -Margin, -Margin);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(box.BettorMark ? QColor(0xE0A800) : QColor(0x5A6472), box.BettorMark ? 2 : 1));
    painter.setBrush(QColor(252, 252, 248, 238));
    painter.drawRoundedRect(QRectF(place).adjusted(1, 1, -1, -1), 5, 5);
    const int mark = box.ShooterMark ? lineHeight : 0;
    QFont bold = BoxFont(font);
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(box.BettorMark ? QColor(0x8A5A00) : QColor(0x14181F));
    const QString name = QFontMetrics(bold).elidedText(box.Name, Qt::ElideRight, inside.width() - mark);
    painter.drawText(QRect(inside.left(), inside.top(), inside.width() - mark, lineHeight), Qt::AlignVCenter, name);
    if (box.ShooterMark) {
        const QPointF centre(inside.right() - lineHeight * 0.4, inside.top() + lineHeight * 0.5);
        PaintDie(painter, centre, lineHeight * 0.75, 0, 5, {QColor(0xC8102E), Qt::white});
    }
    painter.setFont(BoxFont(font));
    painter.setPen(QColor(0x14181F));
    for (int i = 0; i < box.Lines.size(); ++i) {
        const QRect line(inside.left(), inside.top() + (i + 1) * lineHeight, inside.width(), lineHeight);
        painter.drawText(line, Qt::AlignVCenter, metrics.elidedText(box.Lines[i], Qt::ElideRight, inside.width()));
    }
    painter.restore();
}

QSize TightSize(const StatusBox& box, const QFont& font) {
    const QFontMetrics metrics(BoxFont(font));
    QFont bold = BoxFont(font);
    bold.setBold(true);
    int width = QFontMetrics(bold).horizontalAdvance(box.Name) + metrics.height() + 4;
    for (const QString& line : box.Lines) width = std::max(width, metrics.horizontalAdvance(line));
    const int lines = static_cast<int>(box.Lines.size()) + 1;
    // In steps, so that boxes don't move about with every digit.
    constexpr int step = 24;
    width = (std::min(width, 192) + step - 1) / step * step;
    return {width + 2 * Margin + 4, lines * metrics.height() + 2 * Margin};
}

std::array<QRect, Positions> PlacesNearPlayers(const Table& t, QSize window, const QFont& font) {
    std::array<QRect, Positions> places;
    for (int p = 1; p <= 8; ++p) {
        if (!IsSeated(t, p)) continue;
        const QSize size = TightSize(StatusBoxOf(t, p), font);
        const QPoint left(t.StatusBoxLeft[At(p)], t.StatusBoxTop[At(p)]);
        const QPoint corner = left.isNull() ? BestCorner(t, p, window, size, places) : Within(window, size, left);
        places[At(p)] = QRect(corner, size);
    }
    return places;
}

void PaintBoxesNearPlayers(QPainter& painter, const Table& t, QSize window, const QFont& font) {
    const auto places = PlacesNearPlayers(t, window, font);
    for (int p = 1; p <= 8; ++p) {
        if (IsSeated(t, p)) PaintStatusBox(painter, places[At(p)], StatusBoxOf(t, p), font);
    }
}

StatusStrip::StatusStrip(const Table& t, QWidget* parent) : QWidget(parent), T(t) {
    setObjectName(QStringLiteral("picStatus"));
    Refresh();
}

bool StatusStrip::IsUpright() const {
    return T.StatusAlign == StatusPlace::Left || T.StatusAlign == StatusPlace::Right;
}

QSize StatusStrip::sizeHint() const {
    const QSize box = StatusBoxSize(T, font());
    return IsUpright() ? QSize(box.width() + 4, 8 * (box.height() + 2) + 4)
                       : QSize(8 * (box.width() + 2), box.height() + 4);
}

QSize StatusStrip::minimumSizeHint() const {
    const QSize whole = sizeHint();
    return IsUpright() ? QSize(whole.width(), 100) : QSize(300, whole.height());
}

void StatusStrip::Refresh() {
    setSizePolicy(IsUpright() ? QSizePolicy::Fixed : QSizePolicy::Ignored,
                  IsUpright() ? QSizePolicy::Ignored : QSizePolicy::Fixed);
    setVisible(T.StatusAlign != StatusPlace::NearPlayers && T.PlayerCount > 0);
    updateGeometry();
    update();
}

QRect StatusStrip::PlaceOf(int p) const {
    const QSize box = StatusBoxSize(T, font());
    if (IsUpright()) {
        const int pitch = std::min(box.height() + 2, height() / 8);
        return {2, 2 + (p - 1) * pitch, width() - 4, std::min(box.height(), pitch)};
    }
    const int pitch = std::min(width() / 8, box.width() + 20);
    const int first = (width() - 8 * pitch) / 2;
    return {first + (p - 1) * pitch + 1, 2, pitch - 2, height() - 4};
}

void StatusStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), FeltColor(T, ColorIndex::Floor).darker(130));
    for (int p = 1; p <= 8; ++p) {
        if (IsSeated(T, p)) PaintStatusBox(painter, PlaceOf(p), StatusBoxOf(T, p), font());
    }
}

void StatusStrip::mousePressEvent(QMouseEvent* event) {
    for (int p = 1; p <= 8; ++p) {
        if (IsSeated(T, p) && PlaceOf(p).contains(event->pos())) emit boxPressed(p, event->button());
    }
}

}  // namespace tarnwick
