#include "display/felt/dicepainter.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "display/felt/feltcolors.h"
#include "display/felt/feltlayout.h"
#include "display/felt/felttransform.h"
#include "table/crapcnst.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

constexpr double DieRadius = 16;  ///< table units around a die's centre that count as the die
constexpr int Stationary = 1;
constexpr int StationaryCentre = 2;

/// Pips of a face on a 3 x 3 grid, one bit a place from the upper left.
constexpr std::array<int, 7> PipPlaces = {0,           0b000010000, 0b001000100, 0b001010100,
                                          0b101000101, 0b101010101, 0b101101101};

void PaintPips(QPainter& painter, double size, int face, const DieLook& look) {
    const double radius = size * (look.Casts ? 0.088 : 0.1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.Pips);
    for (int place = 0; place < 9; ++place) {
        if ((PipPlaces[At(face)] >> place & 1) == 0) continue;
        const QPointF centre((place % 3 - 1) * size * 0.265, (place / 3 - 1) * size * 0.265);
        painter.drawEllipse(centre, radius, radius);
        if (!look.Casts) continue;
        // Pips are drilled: the upper left of the hollow lies in shade.
        QRadialGradient hollow(centre - QPointF(radius, radius) * 0.35, radius * 1.5);
        hollow.setColorAt(0, QColor(0, 0, 0, 70));
        hollow.setColorAt(1, QColor(0, 0, 0, 0));
        painter.setBrush(hollow);
        painter.drawEllipse(centre, radius, radius);
        painter.setBrush(look.Pips);
    }
}

/// Where the dice lie, table units.
const std::array<QPointF, 2>& RestingPlaces(const Table& t) {
    const int place = t.DiceAction == StationaryCentre ? 0 : std::clamp(t.Shooter, 0, 8);
    return TheFelt().ThrownDice[At(place)];
}

}  // namespace

const std::vector<QString>& DicePictureNames() {
    static const std::vector<QString> names = {QStringLiteral("Sharp"), QStringLiteral("Slightly rounded"),
                                               QStringLiteral("Round")};
    return names;
}

int ShownDicePicture(int picture) { return picture == 0 || picture == 1 ? picture : 2; }

void PaintDie(QPainter& painter, QPointF centre, double size, double degrees, int face, const DieLook& look) {
    painter.save();
    painter.translate(centre);
    if (look.Casts) {
        QRadialGradient shadow(QPointF(size * 0.09, size * 0.13), size * 0.78);
        shadow.setColorAt(0, QColor(0, 0, 0, 150));
        shadow.setColorAt(0.62, QColor(0, 0, 0, 110));
        shadow.setColorAt(1, QColor(0, 0, 0, 0));
        painter.setPen(Qt::NoPen);
        painter.setBrush(shadow);
        painter.drawEllipse(QPointF(size * 0.09, size * 0.13), size * 0.78, size * 0.78);
    }
    painter.rotate(degrees);
    const double half = size / 2;
    const QRectF square(-half, -half, size, size);
    const double roundness = look.Picture == 0 ? 0.04 : look.Picture == 1 ? 0.11 : 0.2;
    const double corner = size * (look.Casts ? roundness : 0.16);
    QLinearGradient body(QPointF(-half, -half), QPointF(half, half));
    body.setColorAt(0, look.Body.lighter(look.Casts ? 128 : 112));
    body.setColorAt(0.5, look.Body);
    body.setColorAt(1, look.Body.darker(look.Casts ? 145 : 118));
    painter.setPen(QPen(look.Body.darker(190), size * 0.03));
    painter.setBrush(body);
    painter.drawRoundedRect(square, corner, corner);
    if (look.Casts) {
        // The flat face lies within rounded edges.
        QLinearGradient facet(QPointF(-half, -half), QPointF(half, half));
        facet.setColorAt(0, look.Body.lighter(108));
        facet.setColorAt(1, look.Body.lighter(122));
        painter.setPen(Qt::NoPen);
        painter.setBrush(facet);
        const double rim = size * 0.075;
        painter.drawRoundedRect(square.adjusted(rim, rim, -rim, -rim), corner, corner);
    }
    PaintPips(painter, size, std::clamp(face, 1, 6), look);
    painter.restore();
}

double DieSize(double tableScale) { return std::max(24.0, 32 * tableScale); }

bool DiceFly(const Table& t) { return t.DiceAction != Stationary && t.DiceAction != StationaryCentre; }

std::array<DiePose, 2> DicePoses(const Table& t, double moment) {
    const QTransform toPixels = TableTransform(t);
    const auto& places = RestingPlaces(t);
    const std::array<int, 2> faces = {t.Die1, t.Die2};
    std::array<DiePose, 2> poses;
    const double m = std::clamp(moment, 0.0, 1.0);
    for (int die = 0; die < 2; ++die) {
        DiePose& pose = poses[At(die)];
        const QPointF rest = places[At(die)];
        pose = {toPixels.map(rest), DieSize(t.TableScale), static_cast<double>(-t.TableAngle), faces[At(die)]};
        if (m >= 1) continue;
        // Out to the far end and back, fast at first, with a spin that dies down and a face that changes.
        const double farX = rest.x() < FeltSpace::CentreX ? 1090.0 - die * 40 : 158.0 + die * 40;
        const QPointF wall(farX, FeltSpace::CentreY - 60 + die * 105);
        constexpr double bounce = 0.42;
        const double out = m < bounce ? std::sin(m / bounce * std::numbers::pi / 2)
                                      : 1 - std::sin((m - bounce) / (1 - bounce) * std::numbers::pi / 2);
        const double left = (1 - m) * (1 - m);
        const double height = std::abs(std::sin(m * std::numbers::pi * 3)) * left;
        pose.Centre = toPixels.map(rest + (wall - rest) * out);
        pose.Size *= 1 + 0.5 * height;
        pose.Degrees += left * (die == 0 ? 900 : -1150);
        if (m < 0.9) pose.Face = (static_cast<int>(m * 14) * (die + 2) + faces[At(die)] + die) % 6 + 1;
    }
    return poses;
}

void PaintDice(QPainter& painter, const Table& t, double moment) {
    const auto poses = DicePoses(t, moment);
    for (int die = 0; die < 2; ++die) {
        const DiePose& pose = poses[At(die)];
        const DieLook look{FeltColor(t, ColorIndex::Die1 + 2 * die), FeltColor(t, ColorIndex::Pips1 + 2 * die), true,
                           t.DieFacePicture};
        PaintDie(painter, pose.Centre, pose.Size, pose.Degrees, pose.Face, look);
    }
}

int DieUnder(const Table& t, QPointF pixel) {
    constexpr int half = 16;
    const QPointF onTable = ScreenToTable(t, pixel);
    const auto& places = RestingPlaces(t);
    for (int die = 0; die < 2; ++die) {
        const QPointF away = onTable - places[At(die)];
        if (std::hypot(away.x(), away.y()) <= DieRadius) return die + 1;
        const QPoint corner = TableToScreen(t, places[At(die)]) - QPoint(half, half);
        if (QRect(corner, QSize(2 * half, 2 * half)).contains(pixel.toPoint())) return die + 1;
    }
    return 0;
}

}  // namespace tarnwick
