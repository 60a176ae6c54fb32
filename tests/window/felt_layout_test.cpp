// The layout of the table: its boxes, letters and places of checks fit each other.
#include "display/felt/feltlayout.h"

#include <gtest/gtest.h>

#include <QFile>
#include <cmath>
#include <memory>

#include "display/felt/feltcolors.h"
#include "display/felt/feltoutline.h"
#include "display/felt/feltpainter.h"
#include "display/felt/lettering.h"
#include "display/tablepicture.h"
#include "table/crapcnst.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick {
namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

double Away(QPointF a, QPointF b) { return std::hypot(a.x() - b.x(), a.y() - b.y()); }

double AreaOf(const QPainterPath& path) {
    double area = 0;
    for (const QPolygonF& polygon : path.toFillPolygons()) {
        double twice = 0;
        for (int i = 0; i + 1 < polygon.size(); ++i) {
            twice += polygon[i].x() * polygon[i + 1].y() - polygon[i + 1].x() * polygon[i].y();
        }
        area += std::abs(twice) / 2;
    }
    return area;
}

double SharedArea(const QPainterPath& a, const QPainterPath& b) {
    return a.boundingRect().intersects(b.boundingRect()) ? AreaOf(a.intersected(b)) : 0;
}

/// Both kinds of a box that has a variant never show together.
bool ShowTogether(LayoutOption a, LayoutOption b) {
    return !((a == LayoutOption::Midway && b == LayoutOption::NoMidway) ||
             (a == LayoutOption::NoMidway && b == LayoutOption::Midway));
}

/// The row whose box takes the bets of `row`.
int BoxRow(int row) {
    if (IsDontComeNumber(row) || IsBuy(row)) return IsBuy(row) ? row - 6 : row + 6;
    return row == Row::DontPassOdds ? int{Row::DontPass} : row;
}

TEST(FeltLayoutTest, BoxesDontOverlapAndHoldTheirSeeds) {
    const FeltLayout& felt = TheFelt();
    ASSERT_EQ(felt.Regions.size(), 126u);
    for (std::size_t i = 0; i < felt.Regions.size(); ++i) {
        const FeltRegion& a = felt.Regions[i];
        EXPECT_TRUE(a.Path.contains(a.Seed)) << a.Name.toStdString();
        EXPECT_LT(DistanceFrom(Inset(RackBox, WallDepth), a.Seed), 0) << a.Name.toStdString();
        for (std::size_t j = i + 1; j < felt.Regions.size(); ++j) {
            const FeltRegion& b = felt.Regions[j];
            if (!ShowTogether(a.Option, b.Option)) continue;
            EXPECT_LT(SharedArea(a.Path, b.Path), 1.0) << a.Name.toStdString() << " and " << b.Name.toStdString();
        }
    }
}

TEST(FeltLayoutTest, EveryBetHasABoxAtEveryEndItBelongsTo) {
    std::array<int, Row::LastBet + 1> boxes{};
    for (const FeltRegion& region : TheFelt().Regions) {
        if (region.Option != LayoutOption::NoMidway) ++boxes[At(region.BetRow)];
    }
    for (int row = 1; row <= Row::LastBet; ++row) {
        const bool doubled = row <= Row::Field || row == Row::Big6 || row == Row::Big8 || row == Row::Midway;
        const int expected = BoxRow(row) != row ? 0 : row == Row::CandE ? 8 : doubled ? 2 : 1;
        EXPECT_EQ(boxes[At(row)], expected) << BetName(row);
    }
}

TEST(FeltLayoutTest, StacksLieInTheirBoxesAndApart) {
    const FeltLayout& felt = TheFelt();
    for (int row = 1; row <= Row::LastBet; ++row) {
        const double diameter = felt.CheckDiameter[At(row)];
        ASSERT_GT(diameter, 0) << row;
        for (int p = 1; p <= 8; ++p) {
            const QPointF spot = felt.Spots[At(row)][At(p)];
            bool inside = false;
            for (const FeltRegion& region : felt.Regions) {
                const bool his = region.Player == 0 || region.Player == p;
                inside = inside || (region.BetRow == BoxRow(row) && his && region.Path.contains(spot));
            }
            EXPECT_TRUE(inside) << BetName(row) << " of " << p;
            for (int q = p + 1; q <= 8; ++q) {
                EXPECT_GE(Away(spot, felt.Spots[At(row)][At(q)]), diameter - 0.5)
                    << BetName(row) << ' ' << p << ' ' << q;
            }
        }
    }
}

TEST(FeltLayoutTest, FlatBetsStandApartFromTheirOdds) {
    const FeltLayout& felt = TheFelt();
    for (int row = Row::DontCome4; row <= Row::DontPassOdds; ++row) {
        const int flat = FlatRowOf(row);
        if (flat == 0) continue;
        for (int p = 1; p <= 8; ++p) {
            EXPECT_GE(Away(felt.Spots[At(row)][At(p)], felt.Spots[At(flat)][At(p)]), felt.CheckDiameter[At(row)] * 0.9)
                << BetName(row) << " of " << p;
        }
    }
}

TEST(FeltLayoutTest, LettersLieInTheirBoxesAndApart) {
    SilentScreen front;
    const auto t = std::make_unique<Table>();
    SubMain(*t, &front);
    const FeltLayout& felt = TheFelt();
    std::vector<std::pair<QString, QRectF>> upright;
    for (const FeltLabel& label : felt.Labels) {
        const QString text = LabelText(*t, label);
        for (const Typeface face : {Typeface::Serif, Typeface::Sans}) {
            const QPainterPath path = Lettering(text, face, label.CapHeight, label.Centre, label.Angle, label.Width);
            for (const FeltRegion& region : felt.Regions) {
                if (region.Name != label.Region || !ShowTogether(region.Option, label.Option)) continue;
                EXPECT_LT(AreaOf(path.subtracted(region.Path)), 0.5)
                    << text.toStdString() << " in " << region.Name.toStdString();
            }
            if (face == Typeface::Serif && label.Angle == 0) upright.emplace_back(text, path.boundingRect());
        }
    }
    for (std::size_t i = 0; i < upright.size(); ++i) {
        for (std::size_t j = i + 1; j < upright.size(); ++j) {
            EXPECT_FALSE(upright[i].second.intersects(upright[j].second))
                << upright[i].first.toStdString() << " and " << upright[j].first.toStdString();
        }
    }
}

TEST(FeltLayoutTest, BothEndsAreMirrored) {
    const auto& regions = TheFelt().Regions;
    int mirrored = 0;
    for (const FeltRegion& left : regions) {
        if (!left.Name.endsWith(QStringLiteral(".L"))) continue;
        // Numbers run from left to right at both ends, so the box of 4 is the mirror of the box of 10.
        const QRectF box = left.Path.boundingRect();
        const QRectF image(FeltSpace::Width - box.right(), box.top(), box.width(), box.height());
        bool found = false;
        for (const FeltRegion& right : regions) {
            const QRectF other = right.Path.boundingRect();
            found = found || (right.Name.endsWith(QStringLiteral(".R")) && right.Option == left.Option &&
                              Away(other.topLeft(), image.topLeft()) < 0.1 &&
                              Away(other.bottomRight(), image.bottomRight()) < 0.1);
        }
        EXPECT_TRUE(found) << left.Name.toStdString();
        ++mirrored;
    }
    EXPECT_EQ(mirrored, 40);
}

TEST(FeltLayoutTest, RailPlacesLieOnTheRackAndApart) {
    struct Place {
        QPointF Centre;
        int P;
    };
    std::vector<Place> places;
    for (int p = 1; p <= 8; ++p) {
        const RailSeat& seat = TheFelt().Seats[At(p)];
        for (int i = 1; i <= 5; ++i) places.push_back({seat.Checks[At(i)], p});
        for (int i = 1; i <= 4; ++i) places.push_back({seat.Stacks[At(i)], p});
        const RailSeat& opposite = TheFelt().Seats[At(9 - p)];
        EXPECT_EQ(seat.Checks[3], QPointF(FeltSpace::Width - opposite.Checks[3].x(), opposite.Checks[3].y())) << p;
    }
    for (std::size_t i = 0; i < places.size(); ++i) {
        EXPECT_LT(DistanceFrom(RackBox, places[i].Centre), 0) << i;
        EXPECT_GT(DistanceFrom(RackBox, places[i].Centre), -RackDepth) << i;
        EXPECT_TRUE(TheFelt().Seats[At(places[i].P)].Area.contains(places[i].Centre)) << i;
        for (std::size_t j = i + 1; j < places.size(); ++j) {
            EXPECT_GE(Away(places[i].Centre, places[j].Centre), 2 * FeltSpace::RailSpotRadius - 0.1) << i << ' ' << j;
        }
    }
}

TEST(FeltLayoutTest, DiceLieClearOfTheLinesAndOddsBesideThem) {
    constexpr double half = 16;
    for (int shooter = 0; shooter <= 8; ++shooter) {
        for (const QPointF& die : TheFelt().ThrownDice[At(shooter)]) {
            EXPECT_LT(DistanceFrom(RackBox, die), -RackDepth / 2) << shooter;
            for (int p = 1; p <= 8; ++p) {
                const QPointF odds = TheFelt().Spots[Row::PassLineOdds][At(p)];
                EXPECT_GE(Away(die, odds), half) << shooter << " and the odds of " << p;
            }
        }
    }
}

TEST(FeltLayoutTest, RefusesDamagedLayouts) {
    QFile file(QStringLiteral("assets/felt.json"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    QString error;
    ASSERT_TRUE(ReadFeltLayout(whole, error)) << error.toStdString();
    const auto with = [&whole](const char* from, const char* to) {
        QByteArray changed = whole;
        EXPECT_TRUE(changed.contains(from)) << from;
        return changed.replace(changed.indexOf(from), static_cast<int>(qstrlen(from)), to);
    };
    const QByteArray damaged[] = {QByteArray(),
                                  "{}",
                                  "[1]",
                                  whole.left(whole.size() / 2),
                                  with("\"row\": 43", "\"row\": 92"),
                                  with("\"color\": 13", "\"color\": 43"),
                                  with("M486 437", "M486 x"),
                                  with("M486 437", "M486 1e300"),
                                  with("\"seed\": [300.0, 421.0]", "\"seed\": [300.0]"),
                                  with("\"Midway\"", "\"Midday\""),
                                  with("\"stacks\": [", "\"stacks\": [[],"),
                                  with("\"faces\": [3, 3]", "\"faces\": [3, 7]")};
    for (const QByteArray& json : damaged) {
        error.clear();
        EXPECT_FALSE(ReadFeltLayout(json, error)) << json.left(60).toStdString();
        EXPECT_FALSE(error.isEmpty());
    }
}

TEST(FeltColorsTest, EveryPresetCanBeRead) {
    const auto t = std::make_unique<Table>();
    ASSERT_EQ(ColorPresets().size(), 8u);
    for (std::size_t i = 0; i < ColorPresets().size(); ++i) {
        SetColorPreset(*t, static_cast<int>(i));
        const QColor felt = FeltColor(*t, ColorIndex::Felt);
        for (int label = 13; label <= 42; ++label) {
            EXPECT_GE(ContrastOf(FeltColor(*t, label), felt), LeastContrast) << i << ' ' << label;
        }
        EXPECT_GE(ContrastOf(FeltColor(*t, ColorIndex::Lines), felt), LeastContrast) << i;
        for (int die = ColorIndex::Die1; die <= 11; die += 2) {
            EXPECT_GE(ContrastOf(FeltColor(*t, die), FeltColor(*t, die + 1)), LeastContrast) << i << ' ' << die;
        }
    }
    EXPECT_NEAR(ContrastOf(Qt::white, Qt::black), 21.0, 1e-6);
}

}  // namespace
}  // namespace tarnwick
