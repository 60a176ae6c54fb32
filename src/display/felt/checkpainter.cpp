#include "display/felt/checkpainter.h"

#include <QFont>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>

#include "display/felt/lettering.h"
#include "table/crapcnst.h"
#include "table/format.h"
#include "table/placement.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

constexpr int MostChecks = 24;       ///< of one drawn stack
constexpr double Rise = 0.13;        ///< of a check on another, in diameters
constexpr double HighestRise = 0.5;  ///< of a whole stack

struct CheckLook {
    QColor Body, Spots, Inlay, Letters;
};

const std::array<CheckLook, 6>& CheckLooks() {
    static const std::array<CheckLook, 6> looks = {{
        {},
        {QColor(0xE9E6DC), QColor(0x2F55A8), QColor(0xF8F6EE), QColor(0x1E2B55)},
        {QColor(0xC3202B), QColor(0xFBF3E4), QColor(0xF9EEDC), QColor(0x8E1019)},
        {QColor(0x157A3E), QColor(0xF4F0DA), QColor(0xF1F3DF), QColor(0x0B5529)},
        {QColor(0x24262B), QColor(0xE9C46A), QColor(0xF4E7C2), QColor(0x15161A)},
        {QColor(0x6C2F96), QColor(0xF6E7FF), QColor(0xF3E6FA), QColor(0x4B1A70)},
    }};
    return looks;
}

/// The edge spots of a check of radius 1, as pieces of its ring.
QPainterPath EdgeSpots(int style) {
    const int count = style == 0 ? 4 : style == 2 ? 8 : 6;
    const double span = style == 2 ? 18 : 26;
    QPainterPath ring;
    for (int i = 0; i < count; ++i) {
        QPainterPath piece;
        const double from = 360.0 / count * i - span / 2;
        piece.arcMoveTo(QRectF(-1, -1, 2, 2), from);
        piece.arcTo(QRectF(-1, -1, 2, 2), from, span);
        piece.arcTo(QRectF(-0.74, -0.74, 1.48, 1.48), from + span, -span);
        piece.closeSubpath();
        ring.addPath(piece);
    }
    return ring;
}

/// A check of radius 1 at the origin, seen from above with light from the upper left.
void PaintCheckVector(QPainter& painter, const CheckLook& look, const QString& text, int style, bool large) {
    QRadialGradient body(QPointF(-0.4, -0.5), 1.7);
    body.setColorAt(0, look.Body.lighter(125));
    body.setColorAt(0.55, look.Body);
    body.setColorAt(1, look.Body.darker(140));
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.Body.darker(240));
    painter.drawEllipse(QPointF(0, 0), 1.0, 1.0);
    painter.setBrush(body);
    painter.drawEllipse(QPointF(0, 0), 0.95, 0.95);
    painter.save();
    painter.scale(0.95, 0.95);
    painter.fillPath(EdgeSpots(style), look.Spots);
    painter.restore();
    // On a small one the color counts, not the inlay.
    painter.setBrush(large ? look.Inlay : look.Body.lighter(118));
    painter.setPen(QPen(look.Body.darker(125), large ? 0.05 : 0.1));
    painter.drawEllipse(QPointF(0, 0), large ? 0.64 : 0.55, large ? 0.64 : 0.55);
    if (large) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(look.Spots, 0.035, Qt::DashLine));
        painter.drawEllipse(QPointF(0, 0), 0.70, 0.70);
        painter.fillPath(Lettering(text, Typeface::Sans, 0.52, QPointF(0, 0), 0, 0, 0.98), look.Letters);
    }
    QLinearGradient gloss(QPointF(-0.7, -0.7), QPointF(0.7, 0.7));
    gloss.setColorAt(0, QColor(255, 255, 255, 60));
    gloss.setColorAt(0.5, QColor(255, 255, 255, 0));
    gloss.setColorAt(1, QColor(0, 0, 0, 40));
    painter.setPen(Qt::NoPen);
    painter.setBrush(gloss);
    painter.drawEllipse(QPointF(0, 0), 0.95, 0.95);
}

void PaintDiscShadow(QPainter& painter, QPointF centre, double radius) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 70));
    painter.drawEllipse(centre + QPointF(radius * 0.10, radius * 0.16), radius * 1.05, radius * 1.05);
}

/// A round marker of radius 1 with a word.
void PaintDisc(QPainter& painter, QPointF centre, double diameter, double degrees, const QColor& body,
               const QColor& letters, const QString& word) {
    const double radius = diameter / 2;
    PaintDiscShadow(painter, centre, radius);
    painter.save();
    painter.translate(centre);
    painter.rotate(degrees);
    painter.scale(radius, radius);
    QRadialGradient shade(QPointF(-0.4, -0.5), 1.6);
    shade.setColorAt(0, body.lighter(115));
    shade.setColorAt(1, body.darker(118));
    painter.setPen(QPen(letters, 0.09));
    painter.setBrush(shade);
    painter.drawEllipse(QPointF(0, 0), 0.95, 0.95);
    painter.fillPath(Lettering(word, Typeface::Sans, 0.62, QPointF(0, 0), 0, 0, 1.44), letters);
    painter.restore();
}

}  // namespace

std::vector<int> ChecksOf(const std::array<currency, 6>& denominations, currency amount, int most) {
    std::vector<int> checks;
    if (amount <= currency{}) return checks;
    std::array<std::int64_t, 6> counts{};
    for (int i = 5; i >= 1; --i) {
        const currency value = denominations[At(i)];
        if (value <= currency{}) continue;
        counts[At(i)] = amount.TenThousandths / value.TenThousandths;
        amount -= value * counts[At(i)];
    }
    std::int64_t total = 0;
    for (const std::int64_t count : counts) total += count;
    if (total == 0) counts[1] = total = 1;
    std::int64_t tooMany = std::max<std::int64_t>(0, total - most);
    for (int i = 5; i >= 1; --i) {
        const std::int64_t skipped = std::min(tooMany, counts[At(i)]);
        tooMany -= skipped;
        checks.insert(checks.end(), static_cast<std::size_t>(counts[At(i)] - skipped), i);
    }
    return checks;
}

QString DenominationText(currency denomination, bool centsSymbol) {
    if (denomination < Dollars(1) && denomination > currency{}) {
        const currency cents = denomination * 100;
        return centsSymbol ? QString::fromStdString(PlainAmount(cents)) + QChar(0xA2)
                           : QString::fromStdString(FormatCommas(denomination));
    }
    if (denomination >= Dollars(1000)) {
        return QString::fromStdString(PlainAmount(MultiplyDivide(denomination, Dollars(1), Dollars(1000)))) +
               QLatin1Char('K');
    }
    return QString::fromStdString(PlainAmount(denomination));
}

QString BetFigure(currency amount) {
    return QLatin1Char('$') + QString::fromStdString(FormatPattern(amount, "#,#.00"));
}

Lammer LammerOf(const Table& t, int p, int row) {
    const int state = BetWorking(t, p, row);
    if (state == -1) return Lammer::Off;
    if (state == 2) return Lammer::On;
    if (IsBuy(row)) return Lammer::Buy;
    return IsLay(row) ? Lammer::Lay : Lammer::None;
}

CheckFaces CheckFacesOf(const Table& t) { return {t.CheckDenominations, t.UseCentsSymbol, t.CheckPicture}; }

const std::vector<QString>& CheckPictureNames() {
    static const std::vector<QString> names = {QStringLiteral("Four spots"), QStringLiteral("Six spots"),
                                               QStringLiteral("Eight spots")};
    return names;
}

int ShownCheckPicture(int picture) { return picture == 0 || picture == 2 ? picture : 1; }

void CheckPainter::Prepare(const CheckFaces& faces, double degrees, double pixelRatio) {
    const bool same = Faces == faces && Degrees == degrees && PixelRatio == pixelRatio;
    if (same && Pictures.size() < 400) return;
    Faces = faces;
    Degrees = degrees;
    PixelRatio = pixelRatio;
    Pictures.clear();
}

const QPixmap& CheckPainter::Picture(int kind, double diameter) {
    const int pixels = std::clamp(static_cast<int>(std::lround(diameter * PixelRatio)), 4, 1000);
    const int key = pixels * 8 + kind;
    const auto found = Pictures.find(key);
    if (found != Pictures.end()) return *found;
    QPixmap picture(pixels + 2, pixels + 2);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(picture.width() / 2.0, picture.height() / 2.0);
    painter.scale(pixels / 2.0, pixels / 2.0);
    if (kind == Shadow || kind == Slot) {
        painter.setPen(kind == Slot ? QPen(QColor(0, 0, 0, 90), 0.09) : QPen(Qt::NoPen));
        painter.setBrush(QColor(0, 0, 0, kind == Slot ? 26 : 75));
        const double radius = kind == Slot ? 0.95 : 1.0;
        painter.drawEllipse(QPointF(0, 0), radius, radius);
    } else {
        painter.rotate(Degrees);
        const QString text = DenominationText(Faces.Denominations[At(kind)], Faces.CentsSymbol);
        PaintCheckVector(painter, CheckLooks()[At(kind)], text, ShownCheckPicture(Faces.Picture), pixels >= 15);
    }
    painter.end();
    picture.setDevicePixelRatio(PixelRatio);
    return *Pictures.insert(key, picture);
}

void CheckPainter::PaintPicture(QPainter& painter, QPointF centre, const QPixmap& picture) const {
    const QSizeF size = picture.deviceIndependentSize();
    // On whole device pixels, or the picture is blurred.
    const double x = std::round((centre.x() - size.width() / 2) * PixelRatio) / PixelRatio;
    const double y = std::round((centre.y() - size.height() / 2) * PixelRatio) / PixelRatio;
    painter.drawPixmap(QPointF(x, y), picture);
}

void CheckPainter::PaintShadow(QPainter& painter, QPointF centre, double diameter) {
    const QPointF beside = centre + QPointF(diameter * 0.05, diameter * 0.08);
    PaintPicture(painter, beside, Picture(Shadow, diameter * 1.05));
}

void CheckPainter::PaintSlot(QPainter& painter, QPointF centre, double diameter) {
    PaintPicture(painter, centre, Picture(Slot, diameter));
}

void CheckPainter::PaintCheck(QPainter& painter, QPointF centre, double diameter, int denomination) {
    PaintPicture(painter, centre, Picture(denomination, diameter));
}

QPointF CheckPainter::PaintStack(QPainter& painter, QPointF centre, double diameter, currency amount) {
    const std::vector<int> checks = ChecksOf(Faces.Denominations, amount, MostChecks);
    if (checks.empty()) return centre;
    PaintShadow(painter, centre, diameter);
    const double steps = static_cast<double>(checks.size()) - 1;
    const double step = std::min(Rise * diameter, steps > 0 ? HighestRise * diameter / steps : 0.0);
    QPointF at = centre;
    for (std::size_t i = 0; i < checks.size(); ++i) {
        at = centre - QPointF(0, step * static_cast<double>(i));
        PaintCheck(painter, at, diameter, checks[i]);
    }
    return at;
}

void PaintLammer(QPainter& painter, QPointF centre, double diameter, double degrees, Lammer lammer) {
    switch (lammer) {
        case Lammer::None:
            return;
        case Lammer::On:
            return PaintDisc(painter, centre, diameter, degrees, QColor(0xF7F7F2), Qt::black, QStringLiteral("ON"));
        case Lammer::Off:
            return PaintDisc(painter, centre, diameter, degrees, QColor(0x202225), Qt::white, QStringLiteral("OFF"));
        case Lammer::Buy:
            return PaintDisc(painter, centre, diameter, degrees, QColor(0xF5C518), QColor(0x33270A),
                             QStringLiteral("BUY"));
        case Lammer::Lay:
            return PaintDisc(painter, centre, diameter, degrees, QColor(0x6EC6F1), QColor(0x0A2740),
                             QStringLiteral("LAY"));
    }
}

void PaintPuck(QPainter& painter, QPointF centre, double diameter, double degrees, bool on) {
    PaintDisc(painter, centre, diameter, degrees, on ? QColor(0xFAFAF5) : QColor(0x1B1C1E), on ? Qt::black : Qt::white,
              on ? QStringLiteral("ON") : QStringLiteral("OFF"));
}

void PaintFigure(QPainter& painter, QPointF centre, double height, currency amount) {
    const QString text = BetFigure(amount);
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(std::max(8, static_cast<int>(std::lround(height))));
    font.setBold(true);
    painter.save();
    painter.setFont(font);
    const QFontMetricsF metrics(font);
    const double margin = font.pixelSize() * 0.22;
    const QSizeF size(metrics.horizontalAdvance(text) + 2 * margin, metrics.capHeight() + 2.4 * margin);
    const QRectF plate(centre - QPointF(size.width() / 2, size.height() / 2), size);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 250, 225));
    painter.drawRoundedRect(plate, margin, margin);
    painter.setPen(Qt::black);
    painter.drawText(QPointF(plate.left() + margin, centre.y() + metrics.capHeight() / 2), text);
    painter.restore();
}

}  // namespace tarnwick
