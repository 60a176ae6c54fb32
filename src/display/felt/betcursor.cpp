#include "display/felt/betcursor.h"

#include <cmath>

#include "display/felt/feltlayout.h"
#include "display/felt/hotspotmap.h"
#include "table/crapcnst.h"

namespace tarnwick {

namespace {

constexpr int FirstSlotId = 1000;

/// A step to the side costs more than one ahead, so that rows of boxes are walked straight.
constexpr double SideCost = 2.5;

/// Where an arrow leads in table units. A turned table is walked along its own axes, by the one nearest to the arrow.
QPointF WayOf(Qt::Key arrow, int degrees) {
    constexpr QPointF clockwise[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
    const int quarters = (degrees + 45) / 90;
    const int pointing = arrow == Qt::Key_Right ? 0 : arrow == Qt::Key_Down ? 1 : arrow == Qt::Key_Left ? 2 : 3;
    return clockwise[(pointing + quarters) % 4];
}

int FirstTarget(const std::vector<CursorTarget>& targets) {
    for (const CursorTarget& target : targets) {
        if (target.Raw == Row::PassLine) return target.Id;
    }
    return targets.empty() ? 0 : targets.front().Id;
}

}  // namespace

std::vector<CursorTarget> CursorTargets(const Table& t) {
    std::vector<CursorTarget> targets;
    const FeltLayout& felt = TheFelt();
    for (std::size_t i = 0; i < felt.Regions.size(); ++i) {
        const FeltRegion& region = felt.Regions[i];
        if (!IsShown(t, region.Option) || (region.Player != 0 && region.Player != t.ActivePlayer)) continue;
        targets.push_back({static_cast<int>(i) + 1, region.BetRow, region.Path.boundingRect().center(), region.Path});
    }
    if (!IsSeated(t, t.ActivePlayer)) return targets;
    for (int slot = 1; slot <= 4; ++slot) {
        const QPointF centre =
            felt.Seats[static_cast<std::size_t>(t.ActivePlayer)].Stacks[static_cast<std::size_t>(slot)];
        QPainterPath circle;
        circle.addEllipse(centre, FeltSpace::RailSpotRadius, FeltSpace::RailSpotRadius);
        targets.push_back({FirstSlotId + slot, HotSpot::Rail * t.ActivePlayer + 10 + slot, centre, circle});
    }
    return targets;
}

int NextTarget(const Table& t, int id, Qt::Key arrow) {
    const std::vector<CursorTarget> targets = CursorTargets(t);
    const CursorTarget* from = nullptr;
    for (const CursorTarget& target : targets) {
        if (target.Id == id) from = &target;
    }
    if (from == nullptr) return FirstTarget(targets);
    const QPointF ahead = WayOf(arrow, t.TableAngle);
    int best = id;
    double least = 0;
    for (const CursorTarget& target : targets) {
        const QPointF way = target.Centre - from->Centre;
        const double along = QPointF::dotProduct(way, ahead);
        const double aside = std::abs(way.x() * ahead.y() - way.y() * ahead.x());
        if (target.Id == id || along < 1 || aside > 3 * along) continue;
        const double cost = along + SideCost * aside;
        if (best != id && cost >= least) continue;
        best = target.Id;
        least = cost;
    }
    return best;
}

}  // namespace tarnwick
