#include "display/felt/feltpainter.h"

#include <QPainter>
#include <QPen>
#include <algorithm>
#include <cmath>
#include <map>
#include <thread>
#include <utility>
#include <vector>

#include "config/payoffs.h"
#include "display/felt/dicepainter.h"
#include "display/felt/feltcolors.h"
#include "display/felt/feltlayout.h"
#include "display/felt/feltsurface.h"
#include "display/felt/felttransform.h"
#include "display/felt/lettering.h"
#include "table/crapcnst.h"
#include "table/format.h"

namespace tarnwick {

namespace {

constexpr double BoxLine = 1.6;
constexpr double StripLine = 0.9;  ///< between two strips of one number's box
constexpr double CaptionStrength = 0.5;

bool IsStrip(int row) {
    return IsLay(row) || IsDontComeOdds(row) || IsComeNumber(row) || IsComeOdds(row) || IsPlace(row);
}

/// Lines that are drawn with one pen. Edges that two boxes share are drawn once, so that none is blended twice, and
/// piece by piece, which is several times faster than one large outline. At a right angle their ends lie on pixels, so
/// that no line is blurred.
class LineDrawing {
  public:
    LineDrawing(const QTransform& toPixels, bool snaps, double unitWidth)
        : ToPixels(toPixels), Snaps(snaps), Width(unitWidth * std::sqrt(std::abs(toPixels.determinant()))) {
        Width = snaps ? std::max(1.0, std::round(Width)) : std::max(1.0, Width);
        Shift = snaps && std::lround(Width) % 2 == 1 ? 0.5 : 0;
    }

    /// In table units.
    void Add(const QPainterPath& path) {
        QPointF at;
        for (int i = 0; i < path.elementCount(); ++i) {
            const QPointF next = path.elementAt(i);
            if (path.elementAt(i).isLineTo()) {
                Add(at, next);
            } else if (path.elementAt(i).isCurveTo()) {
                const QPointF end = path.elementAt(i + 2);
                AddCurve(at, next, path.elementAt(i + 1), end);
                at = end;
                i += 2;
                continue;
            }
            at = next;
        }
    }

    void Add(QPointF from, QPointF to) {
        const bool upright = from.x() == to.x();
        if (!upright && from.y() != to.y()) return AddCurve(from, from, to, to);
        if (from == to) return;
        Row& row = Rows[{upright, std::lround((upright ? from.x() : from.y()) * 100)}];
        row.emplace_back(upright ? from.y() : from.x(), upright ? to.y() : to.x());
        if (row.back().first > row.back().second) std::swap(row.back().first, row.back().second);
    }

    void Draw(QPainter& painter, const QColor& color) {
        painter.setPen(QPen(color, Width, Qt::SolidLine, Qt::SquareCap));
        for (auto& [place, row] : Rows) {
            const double across = static_cast<double>(place.second) / 100;
            std::sort(row.begin(), row.end());
            for (std::size_t i = 0; i < row.size();) {
                auto [from, to] = row[i++];
                for (; i < row.size() && row[i].first <= to + 0.02; ++i) to = std::max(to, row[i].second);
                painter.drawLine(place.first ? QLineF(Pixel({across, from}), Pixel({across, to}))
                                             : QLineF(Pixel({from, across}), Pixel({to, across})));
            }
        }
        for (const auto& c : Curves) {
            QPainterPath piece(Pixel(c[0]));
            piece.cubicTo(Pixel(c[1]), Pixel(c[2]), Pixel(c[3]));
            painter.strokePath(piece, painter.pen());
        }
    }

  private:
    using Row = std::vector<std::pair<double, double>>;

    void AddCurve(QPointF from, QPointF control1, QPointF control2, QPointF to) {
        if (std::pair(to.x(), to.y()) < std::pair(from.x(), from.y())) {
            std::swap(from, to);
            std::swap(control1, control2);
        }
        for (const auto& c : Curves) {
            if (c[0] == from && c[3] == to) return;
        }
        Curves.push_back({from, control1, control2, to});
    }

    QPointF Pixel(QPointF point) const {
        const QPointF exact = ToPixels.map(point);
        if (!Snaps) return exact;
        return {std::round(exact.x() - Shift) + Shift, std::round(exact.y() - Shift) + Shift};
    }

    QTransform ToPixels;
    bool Snaps;
    double Width;
    double Shift = 0;
    std::map<std::pair<bool, long>, Row> Rows;  ///< by direction and coordinate in hundredths: from, to
    std::vector<std::array<QPointF, 4>> Curves;
};

/// The strips of a number's box have thin lines between them; its sides and top are those of a box.
void AddStrip(const QPainterPath& path, bool topmost, LineDrawing& box, LineDrawing& strip) {
    const QRectF r = path.boundingRect();
    box.Add(r.topLeft(), r.bottomLeft());
    box.Add(r.topRight(), r.bottomRight());
    (topmost ? box : strip).Add(r.topLeft(), r.topRight());
    strip.Add(r.bottomLeft(), r.bottomRight());
}

void PaintLines(QPainter& painter, const Table& t, const QTransform& toPixels) {
    const bool snaps = t.TableAngle % 90 == 0;
    const QColor color = FeltColor(t, ColorIndex::Lines);
    LineDrawing box(toPixels, snaps, BoxLine);
    LineDrawing strip(toPixels, snaps, StripLine);
    for (const FeltRegion& region : TheFelt().Regions) {
        if (!IsShown(t, region.Option)) continue;
        if (region.BetRow == Row::PassLineOdds) continue;  // behind the line, on bare felt
        if (IsStrip(region.BetRow)) {
            AddStrip(region.Path, IsLay(region.BetRow), box, strip);
        } else {
            box.Add(region.Path);
        }
    }
    QColor faint = color;
    faint.setAlphaF(0.7f);
    strip.Draw(painter, faint);
    box.Draw(painter, color);
    const double scale = std::sqrt(std::abs(toPixels.determinant()));
    for (const FeltLine& line : TheFelt().Lines) {
        if (!IsShown(t, line.Option)) continue;
        if (line.Radius > 0) {
            painter.strokePath(toPixels.map(line.Path), QPen(color, std::max(0.8, line.Width * scale)));
        } else {
            LineDrawing alone(toPixels, snaps, line.Width);
            alone.Add(line.Path);
            alone.Draw(painter, color);
        }
    }
}

QColor LabelColor(const Table& t, const FeltLabel& label) {
    QColor color = FeltColor(t, label.Color);
    if (label.Kind == LabelKind::Caption) {
        const QColor felt = FeltColor(t, ColorIndex::Felt);
        const auto mix = [](int a, int b) { return static_cast<int>(a + (b - a) * CaptionStrength); };
        color = QColor(mix(felt.red(), color.red()), mix(felt.green(), color.green()), mix(felt.blue(), color.blue()));
    }
    return color;
}

void PaintLabels(QPainter& painter, const Table& t, const QTransform& toPixels) {
    const QRectF visible = painter.viewport();
    const QColor felt = FeltColor(t, ColorIndex::Felt);
    const QColor lines = FeltColor(t, ColorIndex::Lines);
    const double scale = std::sqrt(std::abs(toPixels.determinant()));
    for (const FeltLabel& label : TheFelt().Labels) {
        if (!IsShown(t, label.Option)) continue;
        const QString text = LabelText(t, label);
        if (text.isEmpty()) continue;
        const double reach = (std::max(label.Width, 3 * label.CapHeight) + 60) * scale;
        if (!visible.adjusted(-reach, -reach, reach, reach).contains(toPixels.map(label.Centre))) continue;
        const QPainterPath path =
            toPixels.map(Lettering(text, Typeface::Serif, label.CapHeight, label.Centre, label.Angle, label.Width));
        QColor color = LabelColor(t, label);
        if (label.Kind == LabelKind::RailLetters) {
            if (ContrastOf(color, FeltColor(t, ColorIndex::RailOutside)) < LeastContrast) color = lines;
            painter.fillPath(path.translated(scale * 0.6, scale * 0.7), QColor(0, 0, 0, 160));
        } else if (label.Kind != LabelKind::Caption && ContrastOf(color, felt) < LeastContrast) {
            const double width = std::clamp(label.CapHeight * 0.16, 0.9, 1.8) * scale;
            painter.strokePath(path, QPen(lines, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        }
        painter.fillPath(path, color);
    }
}

void PaintPrintedDice(QPainter& painter, const Table& t, const QTransform& toPixels) {
    painter.setTransform(toPixels);
    const int barred = t.BarDont == 2 ? 1 : 6;
    for (const FeltDice& dice : TheFelt().Dice) {
        if (!IsShown(t, dice.Option)) continue;
        const DieLook look{FeltColor(t, dice.Color), FeltColor(t, dice.PipColor), false};
        QTransform turn;
        turn.rotate(dice.Angle);
        for (int die = 0; die < 2; ++die) {
            const QPointF away = turn.map(QPointF((die == 0 ? -0.5 : 0.5) * dice.Gap, 0));
            const int face = dice.Faces[static_cast<std::size_t>(die)];
            PaintDie(painter, dice.Centre + away, dice.Size, dice.Angle, face == 0 ? barred : face, look);
        }
    }
    painter.resetTransform();
}

QString FieldPaysText(const PayoffEntry& payoff) {
    if (payoff.For <= currency{} || payoff.Pays <= payoff.For) return {};
    if (payoff.Pays == payoff.For * 2) return QStringLiteral("Double");
    if (payoff.Pays == payoff.For * 3) return QStringLiteral("Triple");
    const currency times = MultiplyDivide(Dollars(1), payoff.Pays, payoff.For);
    if (times * payoff.For.TenThousandths != payoff.Pays * Dollars(1).TenThousandths) {
        return QString::fromStdString(PayoffText(payoff));
    }
    return QString::fromStdString(PlainAmount(times)) + QStringLiteral(" Times");
}

/// Draws what is printed on the felt into rows `first` and on of the picture, `rows` of them.
void PaintBand(QImage& image, int first, int rows, const Table& t, const QTransform& toPixels) {
    const auto stride = static_cast<std::size_t>(image.bytesPerLine());
    QImage band(image.bits() + static_cast<std::size_t>(first) * stride, image.width(), rows, image.bytesPerLine(),
                image.format());
    const QTransform toBand = toPixels * QTransform::fromTranslate(0, -first);
    QPainter painter(&band);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintLines(painter, t, toBand);
    PaintLabels(painter, t, toBand);
    PaintPrintedDice(painter, t, toBand);
}

/// Half of it by another thread, where the picture is large enough to be worth one.
void PaintPrint(QImage& image, const Table& t, const QTransform& toPixels) {
    const int height = image.height();
    const bool large = static_cast<long>(image.width()) * height > 200'000 && std::thread::hardware_concurrency() > 1;
    if (!large) return PaintBand(image, 0, height, t, toPixels);
    image.bits();  // detached before the threads share it
    const int upper = height / 2;
    std::thread other([&] { PaintBand(image, upper, height - upper, t, toPixels); });
    PaintBand(image, 0, upper, t, toPixels);
    other.join();
}

}  // namespace

FeltKey FeltKeyOf(const Table& t, QSize size, double pixelRatio) {
    FeltKey key;
    key.Size = size;
    key.PixelRatio = pixelRatio;
    key.View = {t.TableWidth, t.TableAngle, t.TableOffsetX, t.TableOffsetY};
    key.Colors = t.TableColors;
    key.Options = {t.UseBig68,       t.UseMidwayBet,   t.UseFireBet, t.DisplayCenterProps,
                   t.SpotlightLevel, t.TexturePicture, t.BarDont};
    key.Payoffs = t.Payoff;
    key.FieldPayoffs = t.FieldPayoff;
    // Not on the felt, and they change with the point.
    key.Payoffs[Row::PassLineOdds] = key.Payoffs[Row::DontPassOdds] = {};
    return key;
}

QImage PaintFelt(const Table& t, QSize size, double pixelRatio) {
    const QSize pixels(std::max(1, static_cast<int>(std::lround(size.width() * pixelRatio))),
                       std::max(1, static_cast<int>(std::lround(size.height() * pixelRatio))));
    QImage image(pixels, QImage::Format_RGB32);
    const QTransform toPixels = TableTransform(t) * QTransform::fromScale(pixelRatio, pixelRatio);
    const SurfaceColors colors{FeltColor(t, ColorIndex::Felt), FeltColor(t, ColorIndex::RailInside),
                               FeltColor(t, ColorIndex::RailOutside), FeltColor(t, ColorIndex::Floor)};
    ShadeSurface(image, toPixels, colors, t.SpotlightLevel, t.TexturePicture);
    PaintPrint(image, t, toPixels);
    image.setDevicePixelRatio(pixelRatio);
    return image;
}

QString LabelText(const Table& t, const FeltLabel& label) {
    if (label.Kind == LabelKind::Payoff) {
        return QString::fromStdString(PayoffText(t.Payoff[static_cast<std::size_t>(label.Index)]));
    }
    if (label.Kind == LabelKind::FieldPays) return FieldPaysText(t.FieldPayoff[static_cast<std::size_t>(label.Index)]);
    return label.Text;
}

}  // namespace tarnwick
