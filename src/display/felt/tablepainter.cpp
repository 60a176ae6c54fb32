#include "display/felt/tablepainter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "display/felt/dicepainter.h"
#include "display/felt/feltcolors.h"
#include "display/felt/feltlayout.h"
#include "display/felt/felttransform.h"
#include "display/felt/lettering.h"
#include "table/crapcnst.h"
#include "table/format.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

const QColor RingColor(0xFFE14D);

double DiameterOf(int row) {
    return IsStack(row) ? FeltSpace::RailCheckDiameter * 0.86 : TheFelt().CheckDiameter[At(row)];
}

/// How far the table is turned clockwise on the screen.
double ClockwiseTurn(const Table& t) { return -t.TableAngle; }

void PaintRing(QPainter& painter, QPointF centre, double diameter) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0, 0, 0, 150), std::max(2.6, diameter * 0.2)));
    painter.drawEllipse(centre, diameter / 2, diameter / 2);
    painter.setPen(QPen(RingColor, std::max(1.4, diameter * 0.11)));
    painter.drawEllipse(centre, diameter / 2, diameter / 2);
}

/// Fills the circles of numbers rolled for All Small and All Tall and of points made for the Fire bet.
void PaintMarks(QPainter& painter, const Table& t) {
    const QTransform toPixels = TableTransform(t);
    const auto made = [&t](int mark, int fire) {
        return mark > 0 ? (t.MarkedNumbers >> mark & 1) != 0 : fire >= 0 && (t.PointsMadeMask >> fire & 1) != 0;
    };
    painter.save();
    painter.setTransform(toPixels, true);
    for (const FeltLine& line : TheFelt().Lines) {
        if (!made(line.Mark, line.Fire) || !IsShown(t, line.Option)) continue;
        painter.fillPath(line.Path, line.Fire >= 0 ? QColor(0xFF6A13) : QColor(0xFFD23F));
    }
    for (const FeltLabel& label : TheFelt().Labels) {
        if (!made(label.Mark, label.Fire) || !IsShown(t, label.Option)) continue;
        painter.fillPath(
            Lettering(label.Text, Typeface::Serif, label.CapHeight, label.Centre, label.Angle, label.Width),
            QColor(0x1A1206));
    }
    painter.restore();
}

void PaintPucks(QPainter& painter, const Table& t) {
    const FeltLayout& felt = TheFelt();
    const bool on = IsPointNumber(t.Point);
    const auto& places = on ? felt.PuckOn[At(PointIndex(t.Point))] : felt.PuckOff;
    for (const QPointF& place : places) {
        PaintPuck(painter, TableTransform(t).map(place), 2 * felt.PuckRadius * t.TableScale, ClockwiseTurn(t), on);
    }
}

/// The player's name along the rail; gold for the bettor, with a small die before the shooter's.
void PaintName(QPainter& painter, const Table& t, int p) {
    const RailSeat& seat = TheFelt().Seats[At(p)];
    const QString name = QString::fromStdString(t.PlayerName[At(p)]);
    const bool bettor = p == t.ActivePlayer;
    const QPainterPath letters =
        Lettering(name, Typeface::Sans, seat.NameCapHeight, seat.NameCentre, seat.NameAngle, 0, seat.NameWidth);
    QColor color = bettor ? RingColor : QColor(0xF1EEE6);
    if (ContrastOf(color, FeltColor(t, ColorIndex::RailOutside)) < LeastContrast) {
        painter.strokePath(letters, QPen(QColor(0, 0, 0, 220), 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    painter.fillPath(letters, color);
    if (p != t.Shooter) return;
    QTransform straight;
    straight.rotate(-seat.NameAngle);
    const double half = straight.map(letters).boundingRect().width() / 2;
    QTransform along;
    along.rotate(seat.NameAngle);
    const QPointF beside = seat.NameCentre - along.map(QPointF(half + 9, 0));
    PaintDie(painter, beside, 9.5, seat.NameAngle, 5,
             {FeltColor(t, ColorIndex::Die1), FeltColor(t, ColorIndex::Pips1)});
}

}  // namespace

QRectF BetExtent(const Table& t, int p, int row) {
    const auto spot = BetSpot(t, p, row);
    if (!spot) return {};
    const double diameter = DiameterOf(row) * t.TableScale;
    const QPointF centre = TableTransform(t).map(*spot);
    const double around = std::max(diameter * 1.4, 16.0);
    // Figures are wider than checks.
    const double beside = t.DisplayBetsAsNumbers ? std::max(around, diameter * 4 + 24) : around;
    return {centre.x() - beside, centre.y() - around, 2 * beside, 2 * around};
}

void TablePainter::Paint(QPainter& painter, const Table& t, double pixelRatio, const TableMoment& moment) {
    Checks.Prepare(CheckFacesOf(t), ClockwiseTurn(t), pixelRatio);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintMarks(painter, t);
    PaintRail(painter, t, moment);
    PaintPucks(painter, t);
    PaintBets(painter, t, moment);
    PaintDice(painter, t, moment.Throw);
}

void TablePainter::PaintRail(QPainter& painter, const Table& t, const TableMoment& moment) {
    const QTransform toPixels = TableTransform(t);
    const double diameter = FeltSpace::RailCheckDiameter * t.TableScale;
    for (int p = 1; p <= 8; ++p) {
        if (!IsSeated(t, p)) continue;
        const RailSeat& seat = TheFelt().Seats[At(p)];
        painter.save();
        painter.setTransform(toPixels, true);
        PaintName(painter, t, p);
        painter.restore();
        for (int slot = 1; slot <= 4; ++slot) {
            Checks.PaintSlot(painter, toPixels.map(seat.Stacks[At(slot)]), diameter * 0.87);
        }
        for (int check = 1; check <= 5; ++check) {
            const QPointF centre = toPixels.map(seat.Checks[At(check)]);
            Checks.PaintShadow(painter, centre, diameter);
            Checks.PaintCheck(painter, centre, diameter, check);
        }
        for (int slot = 1; slot <= 4; ++slot) {
            const int row = t.VisibleStack[At(p)][At(slot)];
            if (IsStack(row) && !IsZero(t.BetAmount(p, row))) PaintBet(painter, t, p, row, moment);
        }
        const bool ringed = p == t.ActivePlayer && moment.RingLit && t.SelectedCheck >= 1 && t.SelectedCheck <= 5;
        if (ringed) PaintRing(painter, toPixels.map(seat.Checks[At(t.SelectedCheck)]), diameter * 1.06);
    }
}

void TablePainter::PaintBets(QPainter& painter, const Table& t, const TableMoment& moment) {
    // From the top of the screen downward, so that a stack stands before what lies behind it.
    struct Standing {
        double Y;
        int P, BetRow;
    };
    std::vector<Standing> standing;
    const QTransform toPixels = TableTransform(t);
    for (int row = 1; row <= Row::LastBet; ++row) {
        if (!AnyBetOn(t, row)) continue;
        for (int p = 1; p <= 8; ++p) {
            if (t.BetAmount(p, row) > currency{}) standing.push_back({toPixels.map(*BetSpot(t, p, row)).y(), p, row});
        }
    }
    std::stable_sort(standing.begin(), standing.end(), [](const auto& a, const auto& b) { return a.Y < b.Y; });
    for (const Standing& bet : standing) PaintBet(painter, t, bet.P, bet.BetRow, moment);
}

void TablePainter::PaintBet(QPainter& painter, const Table& t, int p, int row, const TableMoment& moment) {
    const QPointF centre = TableTransform(t).map(*BetSpot(t, p, row));
    const double diameter = std::max(4.0, DiameterOf(row) * t.TableScale);
    const currency amount = t.BetAmount(p, row);
    QPointF top = centre;
    if (t.DisplayBetsAsNumbers) {
        PaintFigure(painter, centre, std::min(diameter * 0.8, 12 * t.TableScale), amount);
    } else if (amount < currency{}) {
        painter.setPen(QPen(QColor(0xB3261E), std::max(1.0, diameter * 0.1)));
        painter.setBrush(QColor(255, 235, 230, 210));
        painter.drawEllipse(centre, diameter * 0.45, diameter * 0.45);
        painter.drawLine(centre - QPointF(diameter * 0.22, 0), centre + QPointF(diameter * 0.22, 0));
    } else {
        if (p == t.ActivePlayer && moment.RingLit && t.FlashBets && IsLayoutRow(row)) {
            painter.setPen(QPen(QColor(RingColor.red(), RingColor.green(), RingColor.blue(), 210),
                                std::max(1.2, diameter * 0.10)));
            painter.setBrush(Qt::NoBrush);
            painter.drawEllipse(centre, diameter * 0.55, diameter * 0.55);
        }
        top = Checks.PaintStack(painter, centre, diameter, amount);
    }
    if (!IsLayoutRow(row)) return;
    const Lammer lammer = LammerOf(t, p, row);
    if (lammer == Lammer::None) return;
    const double size = std::max(9.0, diameter * 0.78);
    // Beside the top of the stack, or above a figure, which must stay readable.
    const QPointF beside = t.DisplayBetsAsNumbers ? QPointF(0, -size * 0.95) : QPointF(diameter * 0.3, -diameter * 0.3);
    PaintLammer(painter, top + beside, size, ClockwiseTurn(t), lammer);
}

}  // namespace tarnwick
