// The transform, the commands that move the table, and what lies under a pixel.
#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>
#include <cmath>
#include <memory>

#include "display/felt/dicepainter.h"
#include "display/felt/feltlayout.h"
#include "display/felt/feltpainter.h"
#include "display/felt/felttransform.h"
#include "display/felt/feltview.h"
#include "display/felt/hotspotmap.h"
#include "table/players.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick {
namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

class FeltViewTest : public testing::Test {
  protected:
    FeltViewTest() { SubMain(T, &Front); }

    void Place(int width, int angle, int x, int y) {
        SetTableWidth(T, width);
        SetTableAngle(T, angle);
        T.TableOffsetX = x;
        T.TableOffsetY = y;
        T.AutoSizeTable = false;
        T.CentreTable = false;
    }
    void Seat(int p, const char* name) { ASSERT_EQ(AddPlayer(T, p, name, Dollars(1000)), ""); }

    SilentScreen Front;
    std::unique_ptr<Table> Owned = std::make_unique<Table>();
    Table& T = *Owned;
    HeldCentre Held;
};

TEST_F(FeltViewTest, TurnsTheTableCounterClockwiseAndBack) {
    struct Case {
        int Width, Angle, X, Y;
        QPointF Point;
        QPoint Pixel;
    };
    const Case cases[] = {
        {1248, 0, 0, 23, {0, -23}, {0, 0}},           {1248, 0, 10, 20, {624, 257}, {634, 277}},
        {2496, 0, 0, 0, {100.25, 50.75}, {200, 102}},  // 200.5 and 101.5: to the even neighbour
        {1248, 90, 0, 1248, {0, 0}, {0, 1248}},       {1248, 90, 0, 1248, {1248, 0}, {0, 0}},
        {1248, 180, 1248, 514, {1248, 514}, {0, 0}},  {624, 270, 0, 0, {0, 100}, {-50, 0}},
    };
    for (const Case& c : cases) {
        Place(c.Width, c.Angle, c.X, c.Y);
        EXPECT_EQ(TableToScreen(T, c.Point), c.Pixel) << c.Width << ' ' << c.Angle;
        const QPointF back = ScreenToTable(T, TableTransform(T).map(c.Point));
        EXPECT_NEAR(back.x(), c.Point.x(), 1e-9);
        EXPECT_NEAR(back.y(), c.Point.y(), 1e-9);
    }
}

TEST_F(FeltViewTest, FittingAndCentringPutTheTableInTheMiddle) {
    struct Case {
        QSize Window;
        int Angle, StatusAlign, Width;
        QPointF Centre;
    };
    const Case cases[] = {
        {{1248, 700}, 0, 0, 1248, {624, 350}},    {{1600, 500}, 0, 1, 1114, {800, 250}},
        {{1248, 900}, 30, 4, 1248, {624, 450}},   {{1250, 800}, 0, 2, 1200, {650, 400}},
        {{1250, 800}, 90, 3, 1200, {600, 400}},   {{300, 200}, 0, 0, 500, {150, 100}},
        {{9000, 5000}, 0, 0, 5000, {4500, 2500}},
    };
    for (const Case& c : cases) {
        T.StatusAlign = c.StatusAlign;
        SetTableAngle(T, c.Angle);
        AutoSize(T, Held, c.Window);
        EXPECT_EQ(T.TableWidth, c.Width) << c.Window.width();
        const QPointF centre = TableTransform(T).map(QPointF(FeltSpace::CentreX, FeltSpace::CentreY));
        EXPECT_LE(std::abs(centre.x() - c.Centre.x()), 1.5) << c.Window.width() << ' ' << c.Angle;
        EXPECT_LE(std::abs(centre.y() - c.Centre.y()), 1.5) << c.Window.width() << ' ' << c.Angle;
    }
    const TableView before = T;
    AutoSize(T, Held, QSize(0, 0));
    EXPECT_EQ(T.TableWidth, before.TableWidth);
}

TEST_F(FeltViewTest, NoNumberOfTurnsAndZoomsMovesTheTable) {
    Place(1111, 0, 37, 91);
    for (int turn = 0; turn < 12; ++turn) RotateCW(T, Held, 0);
    EXPECT_EQ(T.TableAngle, 0);
    EXPECT_EQ(T.TableOffsetX, 37);
    EXPECT_EQ(T.TableOffsetY, 91);
    for (int turn = 0; turn < 8; ++turn) RotateCCW(T, Held, 2);
    for (int step = 0; step < 30; ++step) ZoomIn(T, Held, 2);
    for (int step = 0; step < 100 && T.TableWidth > 1111; ++step) ZoomOut(T, Held, 2);
    const QPointF centre = TableTransform(T).map(QPointF(FeltSpace::CentreX, FeltSpace::CentreY));
    Place(1111, 0, 37, 91);
    const QPointF first = TableTransform(T).map(QPointF(FeltSpace::CentreX, FeltSpace::CentreY));
    EXPECT_LE(std::abs(centre.x() - first.x()), 0.51);
    EXPECT_LE(std::abs(centre.y() - first.y()), 0.51);
}

TEST_F(FeltViewTest, TheCentreFollowsOffsetsChangedElsewhere) {
    Place(1000, 0, 0, 0);
    RotateCW(T, Held, 0);
    Place(1000, 0, 300, 200);
    RotateCW(T, Held, 3);
    const QPointF centre = TableTransform(T).map(QPointF(FeltSpace::CentreX, FeltSpace::CentreY));
    EXPECT_NEAR(centre.x(), 300 + 624 * T.TableScale, 0.51);
    EXPECT_NEAR(centre.y(), 200 + 257 * T.TableScale, 0.51);
}

TEST_F(FeltViewTest, RotationStepsFollowTheModifiersAndWrap) {
    struct Case {
        bool Clockwise;
        int Modifier, From, To;
    };
    const Case cases[] = {{true, 0, 0, 330},  {false, 0, 0, 30},   {true, 1, 30, 300}, {false, 1, 300, 30},
                          {true, 2, 45, 0},   {false, 2, 330, 15}, {true, 3, 90, 270}, {false, 3, 180, 0},
                          {false, 0, 330, 0}, {true, 0, 10, 340}};
    for (const Case& c : cases) {
        Place(1000, c.From, 0, 0);
        (c.Clockwise ? RotateCW : RotateCCW)(T, Held, c.Modifier);
        EXPECT_EQ(T.TableAngle, c.To) << c.From << ' ' << c.Modifier;
    }
    // What is drawn at the right of the centre goes down when the picture turns clockwise.
    Place(1248, 0, 0, 23);
    RotateCW(T, Held, 0);
    EXPECT_GT(TableToScreen(T, {1248, 257}).y(), TableToScreen(T, {624, 257}).y());
}

TEST_F(FeltViewTest, ZoomStopsAtItsLimits) {
    struct Case {
        bool In;
        int Modifier, From, To;
    };
    const Case cases[] = {{true, 0, 1000, 1050},  {true, 1, 1000, 1250}, {true, 2, 1000, 1010}, {true, 3, 1000, 5000},
                          {true, 0, 4990, 5000},  {true, 0, 5000, 5000}, {true, 1, 5000, 5000}, {false, 0, 1050, 1000},
                          {false, 1, 1250, 1000}, {false, 3, 1000, 500}, {false, 0, 510, 500},  {false, 0, 500, 500}};
    for (const Case& c : cases) {
        Place(c.From, 30, 5, 6);
        T.GameChanged = false;
        (c.In ? ZoomIn : ZoomOut)(T, Held, c.Modifier);
        EXPECT_EQ(T.TableWidth, c.To) << c.From << ' ' << c.Modifier;
        EXPECT_EQ(T.GameChanged, !(c.From == c.To && c.Modifier == 0)) << c.From << ' ' << c.Modifier;
        EXPECT_DOUBLE_EQ(T.TableScale, c.To / 1248.0);
    }
}

TEST_F(FeltViewTest, MovesByStepsAndToTheEdges) {
    const QSize window(900, 600);
    for (const int angle : {0, 30, 90, 200}) {
        struct Case {
            MoveDirection Direction;
            int X, Y;
        };
        for (const Case& c : {Case{MoveDirection::Up, 0, -50}, Case{MoveDirection::Down, 0, 50},
                              Case{MoveDirection::Left, -50, 0}, Case{MoveDirection::Right, 50, 0}}) {
            Place(1000, angle, 10, 20);
            MoveTable(T, c.Direction, 0, window);
            EXPECT_EQ(T.TableOffsetX, 10 + c.X);
            EXPECT_EQ(T.TableOffsetY, 20 + c.Y);
            MoveTable(T, c.Direction, 2, window);
            QRectF extent;
            for (const QPointF corner : {QPointF(0, -23), QPointF(1248, -23), QPointF(1248, 537), QPointF(0, 537)}) {
                extent |= QRectF(TableTransform(T).map(corner), QSizeF(1e-9, 1e-9));
            }
            const double gap = c.Direction == MoveDirection::Up     ? extent.top()
                               : c.Direction == MoveDirection::Down ? window.height() - extent.bottom()
                               : c.Direction == MoveDirection::Left ? extent.left()
                                                                    : window.width() - extent.right();
            EXPECT_LE(std::abs(gap), 0.51) << angle;
        }
    }
}

TEST_F(FeltViewTest, ViewsComeBackAndEmptyOnesDoNothing) {
    Place(1777, 120, -40, 66);
    SaveView(T, 3);
    Place(600, 0, 1, 2);
    T.GameChanged = false;
    EXPECT_FALSE(RestoreView(T, 4));
    EXPECT_EQ(T.TableWidth, 600);
    EXPECT_FALSE(T.GameChanged);
    EXPECT_TRUE(RestoreView(T, 3));
    EXPECT_EQ(T.TableWidth, 1777);
    EXPECT_EQ(T.TableAngle, 120);
    EXPECT_EQ(T.TableOffsetX, -40);
    EXPECT_EQ(T.TableOffsetY, 66);
    EXPECT_NEAR(T.TableCos, -0.5, 1e-12);
    EXPECT_TRUE(T.GameChanged);
}

// --- hot spots ---

constexpr std::array<std::array<int, 4>, 8> Views = {{{1248, 0, 0, 23},
                                                      {1000, 30, 80, 500},
                                                      {1248, 90, 300, 1250},
                                                      {700, 135, 700, 700},
                                                      {1800, 180, 1820, 900},
                                                      {600, 270, 600, 20},
                                                      {1500, 333, -60, -30},
                                                      {3000, 12, -900, 200}}};

TEST_F(FeltViewTest, EveryBoxAnswersInEveryView) {
    const QSize window(1400, 1300);
    HotSpotMap map;
    int seen = 0;
    for (const bool midway : {true, false}) {
        T.UseMidwayBet = midway;
        for (const auto& [width, angle, x, y] : Views) {
            Place(width, angle, x, y);
            map.Rebuild(T, window);
            for (const FeltRegion& region : TheFelt().Regions) {
                if (!IsShown(T, region.Option)) continue;
                const auto expect = [&](QPointF point) {
                    const QPoint pixel = TableToScreen(T, point);
                    if (!QRect(QPoint(0, 0), window).contains(pixel)) return;
                    ++seen;
                    EXPECT_EQ(map.At(pixel), region.BetRow)
                        << region.Name.toStdString() << " at " << width << ' ' << angle;
                };
                expect(region.Seed);
                // A pixel and a half inward from many points of the edge.
                const double inward = 1.5 / T.TableScale;
                for (int i = 0; i < 40; ++i) {
                    const QPointF edge = region.Path.pointAtPercent(i / 40.0);
                    const double slope = region.Path.angleAtPercent(i / 40.0) * 0.017453292519943278;
                    for (const double side : {-1.0, 1.0}) {
                        const QPointF near = edge + QPointF(std::sin(slope), std::cos(slope)) * side * inward;
                        bool clear = true;  // corners are near two edges
                        for (int k = 0; k < 8 && clear; ++k) {
                            const QPointF around(std::cos(k * 0.7854), std::sin(k * 0.7854));
                            clear = region.Path.contains(near + around * inward * 0.8);
                        }
                        if (clear) expect(near);
                    }
                }
            }
        }
    }
    EXPECT_GT(seen, 40000);
}

TEST_F(FeltViewTest, MapAndShapesAgreePixelByPixelAwayFromEdges) {
    const QSize window(620, 420);
    HotSpotMap map;
    for (const auto& [width, angle, x, y] : {std::array{620, 0, 0, 60}, {640, 30, 20, 300}, {1500, 77, 60, 900}}) {
        Place(width, angle, x, y);
        map.Rebuild(T, window);
        int judged = 0;
        for (int row = 0; row < window.height(); row += 4) {
            for (int column = 0; column < window.width(); column += 3) {
                const QPointF point = ScreenToTable(T, QPointF(column + 0.5, row + 0.5));
                const double slack = 1.2 / T.TableScale;
                const auto valueAt = [&](QPointF at) {
                    for (const FeltRegion& region : TheFelt().Regions) {
                        const bool near = region.Path.controlPointRect().contains(at);
                        if (near && IsShown(T, region.Option) && region.Path.contains(at)) return region.BetRow;
                    }
                    return 0;
                };
                const int expected = valueAt(point);
                bool clear = true;
                for (const QPointF step :
                     {QPointF(slack, 0), QPointF(-slack, 0), QPointF(0, slack), QPointF(0, -slack)}) {
                    clear = clear && valueAt(point + step) == expected;
                }
                if (!clear) continue;
                ++judged;
                const int value = map.At({column, row});
                EXPECT_EQ(IsLayoutRow(value) ? value : 0, expected) << column << ' ' << row << ' ' << angle;
            }
        }
        EXPECT_GT(judged, 10000);
    }
}

/// Whether a pixel within `reach` has the white of the lines.
bool LineNear(const QImage& picture, QPoint pixel, int reach) {
    for (int y = pixel.y() - reach; y <= pixel.y() + reach; ++y) {
        for (int x = pixel.x() - reach; x <= pixel.x() + reach; ++x) {
            if (picture.valid(x, y) && qRed(picture.pixel(x, y)) > 120) return true;
        }
    }
    return false;
}

TEST_F(FeltViewTest, LinesAreDrawnWhereTheMapChanges) {
    const QSize window(620, 420);
    HotSpotMap map;
    for (const auto& [width, angle, x, y] :
         {std::array{620, 0, 0, 60}, {900, 0, -7, 31}, {640, 30, 20, 300}, {1500, 77, 60, 900}}) {
        Place(width, angle, x, y);
        map.Rebuild(T, window);
        const QImage picture = PaintFelt(T, window, 1);
        int edges = 0;
        for (int row = 2; row < window.height() - 2; ++row) {
            for (int column = 2; column < window.width() - 2; ++column) {
                const int here = map.At({column, row});
                const int right = map.At({column + 1, row});
                // The odds behind the line have no outline of their own.
                if (here == right || !IsLayoutRow(here) || !IsLayoutRow(right)) continue;
                ++edges;
                ASSERT_TRUE(LineNear(picture, {column, row}, 2)) << column << ' ' << row << " between " << here
                                                                 << " and " << right << " at " << width << ' ' << angle;
            }
        }
        EXPECT_GT(edges, 1500);
    }
}

TEST_F(FeltViewTest, TheRailAnswersForAllEightSeats) {
    for (const auto& [width, angle, x, y] : Views) {
        Place(width, angle, x, y);
        const QSize window(1400, 1300);
        HotSpotMap map;
        map.Rebuild(T, window);
        for (int p = 1; p <= 8; ++p) {
            const RailSeat& seat = TheFelt().Seats[At(p)];
            const auto expect = [&](QPointF point, int part) {
                const QPoint pixel = TableToScreen(T, point);
                if (!QRect(QPoint(0, 0), window).contains(pixel)) return;
                EXPECT_EQ(map.At(pixel), 1000 * p + part) << width << ' ' << angle;
            };
            expect(seat.NameCentre, 0);
            for (int check = 1; check <= 5; ++check) expect(seat.Checks[At(check)], check);
            for (int slot = 1; slot <= 4; ++slot) expect(seat.Stacks[At(slot)], 10 + slot);
        }
        EXPECT_EQ(map.At({-1, 5}), HotSpot::Nothing);
        EXPECT_EQ(map.At({5, 1300}), HotSpot::Nothing);
    }
}

TEST_F(FeltViewTest, HiddenBoxesLeaveTheMap) {
    struct Case {
        bool Settings::*Rule;
        int BetRow;
    };
    Place(1248, 0, 0, 23);
    HotSpotMap map;
    const auto answers = [&](int row) {
        map.Rebuild(T, {1248, 560});
        for (const FeltRegion& region : TheFelt().Regions) {
            if (region.BetRow == row && map.At(TableToScreen(T, region.Seed)) == row) return true;
        }
        return false;
    };
    for (const Case& c : {Case{&Settings::UseBig68, Row::Big6}, Case{&Settings::UseBig68, Row::Big8},
                          Case{&Settings::UseMidwayBet, Row::Midway}, Case{&Settings::UseFireBet, Row::Fire}}) {
        EXPECT_TRUE(answers(c.BetRow)) << BetName(c.BetRow);
        T.*c.Rule = false;
        EXPECT_FALSE(answers(c.BetRow)) << BetName(c.BetRow);
        T.*c.Rule = true;
    }
    T.UseMidwayBet = false;
    map.Rebuild(T, {1248, 560});
    EXPECT_EQ(map.At(TableToScreen(T, {452, 280})), Row::Come);
    T.DisplayCenterProps = false;
    for (const int row : {int{Row::Seven}, int{Row::Hop44}, int{Row::CandE}, int{Row::AllTall}})
        EXPECT_FALSE(answers(row));
    EXPECT_TRUE(answers(Row::Fire));
    EXPECT_TRUE(answers(Row::Field));
}

TEST_F(FeltViewTest, ValuesMeanWhatTheActivePlayerCanDo) {
    struct Case {
        const char* What;
        int Active, Point, BetOf, BetRow, Raw, Adjusted;
    };
    const Case cases[] = {
        {"nothing", 1, 0, 0, 0, HotSpot::Nothing, 0},
        {"nobody bets", 0, 6, 0, 0, 13, 13},
        {"nobody's rail", 0, 6, 0, 0, 1011, 1011},
        {"Don't Come box, nothing on it", 1, 6, 0, 0, 13, 7},
        {"Don't Come 10 box, nothing on it", 1, 6, 0, 0, 18, 12},
        {"Don't Come box, flat bet", 1, 6, 1, 7, 13, 13},
        {"Don't Come box, odds left alone", 1, 6, 1, 13, 13, 13},
        {"Don't Come box, somebody else's", 1, 6, 2, 7, 13, 7},
        {"Don't Pass without a bet", 1, 6, 0, 0, 46, 46},
        {"Don't Pass on a come-out", 1, 0, 1, 46, 46, 46},
        {"Don't Pass with a point", 1, 6, 1, 46, 46, 47},
        {"Don't Pass, somebody else's", 2, 6, 1, 46, 46, 46},
        {"Place", 1, 6, 0, 0, 36, 36},
        {"Place under a Buy", 1, 6, 1, 42, 36, 42},
        {"Place under somebody else's Buy", 1, 6, 2, 42, 36, 36},
        {"own CheckStack", 3, 0, 0, 0, 3014, 104},
        {"own check", 3, 0, 0, 0, 3005, 3005},
        {"own place", 3, 0, 0, 0, 3000, 3000},
        {"another's CheckStack", 3, 0, 0, 0, 4011, 4011},
        {"a plain bet", 3, 6, 0, 0, 49, 49},
        {"the table's edge", 3, 6, 0, 0, 996, 996},
    };
    for (const Case& c : cases) {
        if (c.BetOf != 0) SetBetAmount(T, c.BetOf, c.BetRow, Dollars(5));
        T.ActivePlayer = c.Active;
        T.Point = c.Point;
        EXPECT_EQ(HotSpotAt(T, c.Raw), c.Adjusted) << c.What;
        if (c.BetOf != 0) SetBetAmount(T, c.BetOf, c.BetRow, currency{});
    }
}

TEST_F(FeltViewTest, TheRightButtonLowersTheFlatBetOnceTheOddsAreGone) {
    T.ActivePlayer = 1;
    EXPECT_EQ(RowToLower(T, Row::DontPassOdds), Row::DontPass);
    EXPECT_EQ(RowToLower(T, 15), 9);
    EXPECT_EQ(RowToLower(T, Row::PassLineOdds), Row::PassLineOdds);
    EXPECT_EQ(RowToLower(T, 27), 27);
    EXPECT_EQ(RowToLower(T, 3012), 3012);
    SetBetAmount(T, 1, Row::DontPassOdds, Dollars(1));
    EXPECT_EQ(RowToLower(T, Row::DontPassOdds), Row::DontPassOdds);
}

// --- the widget ---

class FeltWidgetTest : public FeltViewTest {
  protected:
    FeltWidgetTest() {
        View.resize(1248, 560);
        View.show();
    }
    FeltView View{T};
};

TEST_F(FeltWidgetTest, FitsItselfAndTellsPressesAndMoves) {
    EXPECT_EQ(T.TableWidth, 1248);
    EXPECT_EQ(TableToScreen(T, {0, -23}), QPoint(0, 0));
    QSignalSpy pressed(&View, &FeltView::hotSpotPressed);
    QSignalSpy moved(&View, &FeltView::hotSpotMoved);
    QSignalSpy dice(&View, &FeltView::dicePressed);
    const QPoint field = TableToScreen(T, {368, 345});
    const QPoint floor(4, 4);
    const QPoint die = TableToScreen(T, {601, 97});
    QWindow* window = View.windowHandle();
    QTest::mouseMove(window, field);
    EXPECT_EQ(View.HotSpotUnderMouse(), Row::Field);
    EXPECT_EQ(View.cursor().shape(), Qt::PointingHandCursor);
    QTest::mouseClick(window, Qt::RightButton, Qt::ShiftModifier, field);
    QTest::mouseMove(window, floor);
    EXPECT_EQ(View.cursor().shape(), Qt::ArrowCursor);
    QTest::mouseClick(window, Qt::LeftButton, {}, floor);
    QTest::mouseMove(window, die);
    EXPECT_EQ(View.cursor().shape(), Qt::PointingHandCursor);
    QTest::mouseClick(window, Qt::LeftButton, {}, die);
    ASSERT_EQ(pressed.size(), 2);
    EXPECT_EQ(pressed[0][0].toInt(), Row::Field);
    EXPECT_EQ(pressed[0][1].value<Qt::MouseButton>(), Qt::RightButton);
    EXPECT_TRUE(pressed[0][2].value<Qt::KeyboardModifiers>().testFlag(Qt::ShiftModifier));
    EXPECT_EQ(pressed[1][0].toInt(), 0);
    EXPECT_EQ(dice.size(), 1);
    EXPECT_GE(moved.size(), 3);
}

TEST_F(FeltWidgetTest, FollowsTheWindowOnlyWhileItIsKeptFitted) {
    View.resize(800, 560);
    EXPECT_EQ(T.TableWidth, 800);
    T.AutoSizeTable = false;
    View.resize(1000, 560);
    EXPECT_EQ(T.TableWidth, 800);
}

TEST_F(FeltWidgetTest, TheMapFollowsViewAndSettings) {
    const QPoint corner = TableToScreen(T, {186, 332});
    EXPECT_EQ(View.hotSpot(corner), Row::Big6);
    T.UseBig68 = false;
    EXPECT_EQ(View.hotSpot(corner), 0);
    RotateCW(T, View.Centre(), 3);
    EXPECT_NE(View.hotSpot(corner), 0);
    EXPECT_EQ(View.hotSpot(TableToScreen(T, {368, 345})), Row::Field);
}

TEST_F(FeltWidgetTest, DiceAnswerWithinTheirRadiusAndTheirSquare) {
    T.AutoSizeTable = false;
    for (int shooter = 0; shooter <= 8; ++shooter) {
        T.Shooter = shooter;
        for (const auto& [width, angle, x, y] : Views) {
            Place(width, angle, x, y);
            for (int die = 0; die < 2; ++die) {
                const QPointF centre = TheFelt().ThrownDice[At(shooter)][At(die)];
                const QPointF pixel = TableTransform(T).map(centre);
                EXPECT_EQ(DieUnder(T, pixel), die + 1) << shooter;
                EXPECT_EQ(DieUnder(T, pixel + QPointF(0, 90 * std::max(1.0, T.TableScale))), 0) << shooter;
            }
        }
    }
    Place(500, 0, 0, 23);  // where 16 units are fewer pixels than the square
    const QPointF corner = TableTransform(T).map(TheFelt().ThrownDice[8][1]) + QPointF(-14, -14);
    EXPECT_EQ(DieUnder(T, corner), 2);
}

}  // namespace
}  // namespace tarnwick
