// Records 31 to 410: figures of the rolls and of the hands.
#include "files/gamefields.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

bool VisitRolls(GameFields& f, PlainFigures& figures) {
    if (!f.Begin(64)) return false;
    std::size_t i = 0;
    for (int pos = 0; pos < StatPositions; ++pos) {
        for (int k = 0; k < RollEvents; ++k, ++i) {
            f.Long(LongAt(i), {"RollCount", pos, k}, figures.RollCount[At(pos)][At(k)]);
        }
    }
    if (!f.Begin(3)) return false;
    for (int k = 0; k < RollEvents; ++k) f.Long(HalfLongAt(At(k)), {"RollsSince", k}, figures.RollsSince[At(k)]);
    if (!f.Begin(283)) return false;
    i = 0;
    for (int k = 1; k < RollEvents; ++k) {
        for (int gap = 0; gap <= 200; ++gap, ++i) {
            f.Long(LongAt(i), {"RollGapTally", k, gap}, figures.RollGapTally[At(k)][At(gap)]);
        }
    }
    if (!f.Begin(24)) return false;
    i = 0;
    for (int pos = 0; pos < StatPositions; ++pos) {
        for (int total = 2; total <= 12; ++total) {
            for (int c = 1; c <= 3; ++c, ++i) {
                f.Long(LongAt(i), {"PointTally", pos, total, c}, figures.PointTally[At(pos)][At(total)][At(c)]);
            }
        }
    }
    return true;
}

}  // namespace

bool VisitStatistics(GameFields& f, GameImage& image) {
    PlainFigures& figures = *image.Figures;
    if (!VisitRolls(f, figures)) return false;
    struct ByPosition {
        const char* Name;
        ByPos<std::int32_t>* Values;
    };
    for (const ByPosition& array : {ByPosition{"HandCount", &figures.HandCount},
                                    {"PlayerRolls", &figures.PlayerRolls},
                                    {"MostRolls", &figures.MostRolls},
                                    {"MostComeouts", &figures.MostComeouts},
                                    {"MostPasses", &figures.MostPasses},
                                    {"MostMisses", &figures.MostMisses}}) {
        if (!f.Begin(1)) return false;
        for (int pos = 0; pos < StatPositions; ++pos) f.Long(L(pos), {array.Name, pos}, (*array.Values)[At(pos)]);
    }
    return true;
}

}  // namespace tarnwick
