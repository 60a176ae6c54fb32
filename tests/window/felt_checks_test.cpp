// Checks, markers, dice and status boxes.
#include <gtest/gtest.h>

#include <QFont>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <memory>

#include "display/felt/checkpainter.h"
#include "display/felt/dicepainter.h"
#include "display/felt/feltlayout.h"
#include "display/felt/felttransform.h"
#include "display/felt/feltview.h"
#include "display/felt/statusboxes.h"
#include "display/felt/tablepainter.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick {
namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

using Denominations = std::array<currency, 6>;
const Denominations Usual = {currency{}, Dollars(1), Dollars(5), Dollars(25), Dollars(100), Dollars(500)};

TEST(ChecksTest, AmountsAreStackedLargestFirst) {
    struct Case {
        currency Amount;
        std::vector<int> Checks;
    };
    const Case cases[] = {{currency{}, {}},
                          {Dollars(-5), {}},
                          {currency{1}, {1}},  // below the smallest check: one of it
                          {currency{9'999}, {1}},
                          {Dollars(1), {1}},
                          {currency{17'500}, {1}},  // what is left over isn't drawn
                          {Dollars(41), {3, 2, 2, 2, 1}},
                          {Dollars(631), {5, 4, 3, 2, 1}},
                          {Dollars(1500), {5, 5, 5}}};
    for (const Case& c : cases) EXPECT_EQ(ChecksOf(Usual, c.Amount, 24), c.Checks) << c.Amount.TenThousandths;
}

TEST(ChecksTest, HugeAmountsStayDrawable) {
    for (const currency amount : {Dollars(9'999'999), Dollars(12'345), currency{INT64_MAX}}) {
        const std::vector<int> checks = ChecksOf(Usual, amount, 24);
        EXPECT_EQ(checks.size(), 24u);
        EXPECT_TRUE(std::is_sorted(checks.rbegin(), checks.rend()));
    }
    EXPECT_EQ(ChecksOf(Usual, Dollars(50'001), 5), (std::vector{5, 5, 5, 5, 1}));
}

TEST(ChecksTest, ChecksSayWhatTheyAreWorth) {
    struct Case {
        currency Value;
        bool Cents;
        const char* Text;
    };
    const Case cases[] = {{Dollars(1), true, "1"},        {Dollars(25), false, "25"},
                          {Dollars(1000), true, "1K"},    {Dollars(2500), true, "2.5K"},
                          {currency{2'500}, true, "25¢"}, {currency{2'500}, false, ".25"},
                          {currency{25'000}, true, "2.5"}};
    for (const Case& c : cases) EXPECT_EQ(DenominationText(c.Value, c.Cents).toStdString(), c.Text);
    EXPECT_EQ(BetFigure(Dollars(1250)).toStdString(), "$1,250.00");
    EXPECT_EQ(BetFigure(currency{5'000}).toStdString(), "$.50");
}

class TableInPlayTest : public testing::Test {
  protected:
    TableInPlayTest() {
        SubMain(T, &Front);
        for (int p = 1; p <= 8; ++p)
            EXPECT_EQ(AddPlayer(T, p, std::string("Player") + "ABCDEFGH"[p - 1], Dollars(1000)), "");
        AutoSize(T, Held, QSize(1248, 560));
    }
    SilentScreen Front;
    std::unique_ptr<Table> Owned = std::make_unique<Table>();
    Table& T = *Owned;
    HeldCentre Held;
};

TEST_F(TableInPlayTest, MarkersTellWhatABetWasCalled) {
    struct Case {
        int BetRow, State;
        Lammer Marker;
    };
    const Case cases[] = {
        {Row::Place4, 1, Lammer::None}, {Row::Place4, 0, Lammer::None}, {Row::Place4, -1, Lammer::Off},
        {Row::Place4, 2, Lammer::On},   {Row::Buy4, 1, Lammer::Buy},    {Row::Buy4, -1, Lammer::Off},
        {Row::Lay10, 1, Lammer::Lay},   {Row::Lay10, 2, Lammer::On},    {Row::Hard6, -1, Lammer::Off}};
    for (const Case& c : cases) {
        SetBetAmount(T, 1, c.BetRow, Dollars(20));
        SetBetWorking(T, 1, c.BetRow, c.State);
        EXPECT_EQ(LammerOf(T, 1, c.BetRow), c.Marker) << c.BetRow << ' ' << c.State;
    }
}

TEST_F(TableInPlayTest, EveryBetAndPlayerLeavesAMarkOnThePicture) {
    T.FlashBets = false;
    const QSize window(1248, 560);
    const auto picture = [&] {
        QImage image(window, QImage::Format_RGB32);
        image.fill(Qt::darkGreen);
        QPainter painter(&image);
        TablePainter().Paint(painter, T, 1, {});
        return image;
    };
    const QImage bare = picture();
    for (const bool numbers : {false, true}) {
        T.DisplayBetsAsNumbers = numbers;
        for (int row = 1; row <= Row::LastBet; row += 4) {
            for (int p = 1 + row / 4 % 3; p <= 8; p += 3) {
                SetBetAmount(T, p, row, Dollars(37));
                const QImage with = picture();
                const QRect extent = BetExtent(T, p, row).toAlignedRect();
                int inside = 0;
                int outside = 0;
                for (int y = 0; y < window.height(); ++y) {
                    const auto* before = reinterpret_cast<const QRgb*>(bare.constScanLine(y));
                    const auto* after = reinterpret_cast<const QRgb*>(with.constScanLine(y));
                    if (std::equal(before, before + window.width(), after)) continue;
                    for (int x = 0; x < window.width(); ++x) {
                        if (before[x] != after[x]) ++(extent.contains(x, y) ? inside : outside);
                    }
                }
                EXPECT_GT(inside, 20) << BetName(row) << " of " << p;
                EXPECT_EQ(outside, 0) << BetName(row) << " of " << p;
                SetBetAmount(T, p, row, currency{});
            }
        }
    }
}

TEST_F(TableInPlayTest, DiceRestByTheirShooterTurnedWithTheTable) {
    T.Die1 = 6;
    T.Die2 = 1;
    struct Case {
        int Shooter, Action, Place;
    };
    for (const Case& c : {Case{3, 0, 3}, Case{0, 0, 0}, Case{8, 1, 8}, Case{5, 2, 0}}) {
        T.Shooter = c.Shooter;
        T.DiceAction = c.Action;
        for (const int degrees : {0, 90, 210}) {
            SetTableAngle(T, degrees);
            const auto poses = DicePoses(T, 1);
            for (int die = 0; die < 2; ++die) {
                const QPointF expected = TableTransform(T).map(TheFelt().ThrownDice[At(c.Place)][At(die)]);
                EXPECT_EQ(poses[At(die)].Centre, expected) << c.Shooter;
                EXPECT_DOUBLE_EQ(std::remainder(poses[At(die)].Degrees + degrees, 360), 0);
            }
            EXPECT_EQ(poses[0].Face, 6);
            EXPECT_EQ(poses[1].Face, 1);
        }
        EXPECT_EQ(DiceFly(T), c.Action == 0);
    }
}

TEST_F(TableInPlayTest, ThrownDiceFlyOverTheFeltAndComeToRest) {
    for (int shooter = 1; shooter <= 8; ++shooter) {
        T.Shooter = shooter;
        const auto rest = DicePoses(T, 1);
        double farthest = 0;
        for (int i = 0; i <= 100; ++i) {
            const auto poses = DicePoses(T, i / 100.0);
            for (int die = 0; die < 2; ++die) {
                const DiePose& pose = poses[At(die)];
                const QPointF away = pose.Centre - rest[At(die)].Centre;
                farthest = std::max(farthest, std::hypot(away.x(), away.y()));
                EXPECT_TRUE(QRectF(40, 60, 1168, 450).contains(pose.Centre)) << shooter << ' ' << i;
                EXPECT_TRUE(pose.Face >= 1 && pose.Face <= 6);
                const bool settled = i < 90 || pose.Face == rest[At(die)].Face;
                EXPECT_TRUE(settled) << i;
            }
        }
        EXPECT_GT(farthest, 400) << shooter;
        const QPointF last = DicePoses(T, 0.995)[0].Centre - rest[0].Centre;
        EXPECT_LT(std::hypot(last.x(), last.y()), 3) << shooter;
    }
}

TEST(DieSizeTest, GrowsAboveTheTablesOwnUnitsAndStaysVisibleBelow) {
    for (const auto& [scale, pixels] : {std::pair{0.4, 24.0}, {0.9, 28.8}, {1.0, 32.0}, {4.0, 128.0}}) {
        EXPECT_DOUBLE_EQ(DieSize(scale), pixels);
    }
}

TEST_F(TableInPlayTest, StatusBoxesSayWhatTheirLinesAskFor) {
    SetBetAmount(T, 2, Row::PassLine, Dollars(10));
    T.BetsOnTable[2] = Dollars(10);
    T.Bankroll[2] = currency{12'345'000};  // 1234.50
    T.Bankroll[3] = Dollars(900);
    T.Bankroll[4] = Dollars(-50);
    T.BankrollInvested[4] = Dollars(-50);
    SetBetAmount(T, 4, Row::Field, Dollars(1));
    SetBetAmount(T, 4, Row::Hop13, Dollars(1));
    T.BetsOnTable[4] = Dollars(2);
    T.Shooter = 2;
    T.ActivePlayer = 3;
    struct Case {
        int P, Lines;
        const char* Text;
        bool ShooterMark, BettorMark;
    };
    const Case cases[] = {
        {2, 63, "Bankroll:  $1,234.50|Rail:  $1,224.50|1 Bet:  $10|Won:  $234.50", true, false},
        {3, 63, "Bankroll:  $900|Rail:  $900|0 Bets:  $0|Lost:  $100", false, true},
        {4, 63, "Bankroll:  -$50|Rail:  -$52|2 Bets:  $2|Even:  $0", false, false},
        {2, 4, "1 Bet:  $10", false, false},
        {2, 16 | 2, "Rail:  $1,224.50", true, false},
        {3, 32 | 8, "Lost:  $100", false, true},
        {3, 0, "", false, false},
    };
    for (const Case& c : cases) {
        T.StatusLines = c.Lines;
        const StatusBox box = StatusBoxOf(T, c.P);
        EXPECT_EQ(box.Name.toStdString(), T.PlayerName[At(c.P)]);
        EXPECT_EQ(box.Lines.join(QLatin1Char('|')).toStdString(), c.Text);
        EXPECT_EQ(box.ShooterMark, c.ShooterMark) << c.P;
        EXPECT_EQ(box.BettorMark, c.BettorMark) << c.P;
    }
}

TEST_F(TableInPlayTest, BoxesNearPlayersStayInTheWindowAndApart) {
    const QFont font;
    for (const QSize window : {QSize(1248, 700), QSize(1248, 560), QSize(800, 900)}) {
        for (const int degrees : {0, 30, 90, 180}) {
            SetTableAngle(T, degrees);
            AutoSize(T, Held, window);
            const auto places = PlacesNearPlayers(T, window, font);
            for (int p = 1; p <= 8; ++p) {
                EXPECT_TRUE(QRect(QPoint(0, 0), window).contains(places[At(p)])) << p << ' ' << degrees;
                for (int q = p + 1; q <= 8; ++q) EXPECT_FALSE(places[At(p)].intersects(places[At(q)])) << p << ' ' << q;
            }
        }
    }
    T.StatusBoxLeft[4] = 100;
    T.StatusBoxTop[4] = 50;
    EXPECT_EQ(PlacesNearPlayers(T, QSize(1248, 700), font)[4].topLeft(), QPoint(100, 50));
}

TEST_F(TableInPlayTest, TheStripTakesItsShapeFromItsSide) {
    StatusStrip strip(T);
    for (const auto& [align, upright, shown] :
         {std::tuple{0, false, true}, {1, false, true}, {2, true, true}, {3, true, true}, {4, false, false}}) {
        T.StatusAlign = align;
        strip.Refresh();
        EXPECT_EQ(strip.isHidden(), !shown) << align;
        const QSize size = strip.sizeHint();
        EXPECT_EQ(size.height() > size.width(), upright) << align;
    }
}

TEST_F(TableInPlayTest, TheWidgetShowsBetsAsTheyChange) {
    T.FlashBets = false;
    FeltView view(T);
    view.resize(1248, 560);
    view.RefreshTable();
    const QImage before = view.grab().toImage();
    SetBetAmount(T, 5, Row::Come, Dollars(25));
    const QImage after = view.grab().toImage();
    EXPECT_NE(before, after);
    SetBetAmount(T, 5, Row::Come, currency{});
    EXPECT_EQ(view.grab().toImage(), before);
    T.TableColors[0] = 0x105010;
    view.RefreshTable();
    EXPECT_NE(view.grab().toImage(), before);
    EXPECT_EQ(qGreen(view.grab().toImage().pixel(624, 470)) > 60, true);
}

TEST_F(TableInPlayTest, TheStretchedPictureLiesWhereTheSharpOneWill) {
    T.FlashBets = false;
    FeltView view(T);
    view.resize(1248, 560);
    view.grab();
    RotateCCW(T, view.Centre(), 0);
    for (int step = 0; step < 3; ++step) ZoomIn(T, view.Centre(), 0);
    const QImage stretched = view.grab().toImage();
    view.Sharpen();
    const QImage sharp = view.grab().toImage();
    EXPECT_NE(stretched, sharp);
    // Over the felt, blurred or not, the two are alike; a picture that lay elsewhere would differ in half its letters.
    int alike = 0;
    int judged = 0;
    for (int y = 180; y < 400; ++y) {
        for (int x = 500; x < 750; ++x, ++judged) {
            const QRgb a = stretched.pixel(x, y);
            const QRgb b = sharp.pixel(x, y);
            if (std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) < 160) ++alike;
        }
    }
    EXPECT_GT(alike, judged * 96 / 100);
}

}  // namespace
}  // namespace tarnwick
