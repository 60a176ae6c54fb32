#include "display/felt/hotspotmap.h"

#include <QPainter>
#include <QPen>

#include "display/felt/feltlayout.h"
#include "display/felt/feltoutline.h"
#include "display/felt/felttransform.h"
#include "table/crapcnst.h"

namespace tarnwick {

namespace {

QColor ValueColor(int value) { return QColor::fromRgb(static_cast<QRgb>(value) | 0xFF000000); }

bool Stands(const Table& t, int row) { return !IsZero(t.BetAmount(t.ActivePlayer, row)); }

}  // namespace

void HotSpotMap::Rebuild(const Table& t, QSize size) {
    if (Map.size() != size) Map = QImage(size, QImage::Format_RGB32);
    if (Map.isNull()) return;
    Map.fill(ValueColor(HotSpot::Nothing));
    QPainter painter(&Map);  // without antialiasing: a blended pixel would be another bet
    painter.setTransform(TableTransform(t));
    const FeltLayout& felt = TheFelt();
    painter.strokePath(TableOutline(), QPen(ValueColor(HotSpot::Outline), 2));
    for (int p = 1; p <= 8; ++p) {
        const RailSeat& seat = felt.Seats[static_cast<std::size_t>(p)];
        painter.fillPath(seat.Area, ValueColor(HotSpot::Rail * p));
        const auto spot = [&](QPointF centre, int part) {
            QPainterPath circle;
            circle.addEllipse(centre, FeltSpace::RailSpotRadius, FeltSpace::RailSpotRadius);
            painter.fillPath(circle, ValueColor(HotSpot::Rail * p + part));
        };
        for (int check = 1; check <= 5; ++check) spot(seat.Checks[static_cast<std::size_t>(check)], check);
        for (int slot = 1; slot <= 4; ++slot) spot(seat.Stacks[static_cast<std::size_t>(slot)], 10 + slot);
    }
    for (const FeltRegion& region : felt.Regions) {
        if (IsShown(t, region.Option)) painter.fillPath(region.Path, ValueColor(region.BetRow));
    }
}

int HotSpotMap::At(QPoint pixel) const {
    if (!Map.valid(pixel)) return HotSpot::Nothing;
    return static_cast<int>(Map.pixel(pixel) & 0xFFFFFF);
}

int HotSpotAt(const Table& t, int raw) {
    if (raw == HotSpot::Nothing) return 0;
    if (t.ActivePlayer == 0) return raw;
    if (IsDontComeOdds(raw)) return Stands(t, raw) || Stands(t, raw - 6) ? raw : raw - 6;
    if (raw == Row::DontPass) return Stands(t, raw) && t.Point != 0 ? int{Row::DontPassOdds} : raw;
    if (IsPlace(raw)) return Stands(t, raw + 6) ? raw + 6 : raw;
    if (RailPlayer(raw) != 0 && RailPlayer(raw) == t.ActivePlayer && RailPart(raw) >= 11 && RailPart(raw) <= 14) {
        return RailPart(raw) + 90;
    }
    return raw;
}

int RowToLower(const Table& t, int value) {
    const int flat = IsLayoutRow(value) && (IsDontComeOdds(value) || value == Row::DontPassOdds) ? FlatRowOf(value) : 0;
    return flat != 0 && !Stands(t, value) ? flat : value;
}

}  // namespace tarnwick
