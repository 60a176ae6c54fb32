// Times of the drawn table, on the offscreen platform.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <memory>

#include "display/felt/feltpainter.h"
#include "display/felt/feltsurface.h"
#include "display/felt/felttransform.h"
#include "display/felt/feltview.h"
#include "display/felt/hotspotmap.h"
#include "display/felt/tablepainter.h"
#include "display/tablepicture.h"
#include "table/screen.h"
#include "table/session.h"

namespace {

using namespace tarnwick;

/// A table of eight players in play, fitted to a window of 1248 x 560 and turned.
struct BenchFelt {
    explicit BenchFelt(int degrees) {
        SubMain(T, &Front);
        PlayTypicalGame(T);
        SetTableAngle(T, degrees);
        AutoSize(T, Held, Window);
        T.AutoSizeTable = false;
    }
    SilentScreen Front;
    std::unique_ptr<Table> Owned = std::make_unique<Table>();
    Table& T = *Owned;
    HeldCentre Held;
    QSize Window{1248, 560};
};

void WholeFelt(benchmark::State& state) {
    BenchFelt bench(static_cast<int>(state.range(0)));
    const double ratio = static_cast<double>(state.range(1)) / 100;
    for (auto _ : state) benchmark::DoNotOptimize(PaintFelt(bench.T, bench.Window, ratio));
}
BENCHMARK(WholeFelt)
    ->Args({0, 100})
    ->Args({30, 100})
    ->Args({0, 200})
    ->Args({30, 200})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void SurfaceAlone(benchmark::State& state) {
    BenchFelt bench(static_cast<int>(state.range(0)));
    QImage image(bench.Window, QImage::Format_RGB32);
    const SurfaceColors colors{Qt::darkBlue, Qt::darkYellow, Qt::black, Qt::blue};
    for (auto _ : state) ShadeSurface(image, TableTransform(bench.T), colors, 1, 1);
}
BENCHMARK(SurfaceAlone)->Arg(0)->Arg(30)->Unit(benchmark::kMillisecond)->UseRealTime();

void FeltAt5000(benchmark::State& state) {
    BenchFelt bench(static_cast<int>(state.range(0)));
    SetTableWidth(bench.T, 5000);
    CenterTable(bench.T, bench.Held, bench.Window);
    for (auto _ : state) benchmark::DoNotOptimize(PaintFelt(bench.T, bench.Window, 1));
}
BENCHMARK(FeltAt5000)->Arg(0)->Arg(30)->Unit(benchmark::kMillisecond)->UseRealTime();

void ChecksAndDiceOverTheFelt(benchmark::State& state) {
    BenchFelt bench(static_cast<int>(state.range(0)));
    const QImage felt = PaintFelt(bench.T, bench.Window, 1);
    QImage screen = felt;
    TablePainter painter;
    for (auto _ : state) {
        QPainter onScreen(&screen);
        onScreen.drawImage(0, 0, felt);
        painter.Paint(onScreen, bench.T, 1, {});
    }
}
BENCHMARK(ChecksAndDiceOverTheFelt)->Arg(0)->Arg(30)->Unit(benchmark::kMillisecond);

void MapRebuild(benchmark::State& state) {
    BenchFelt bench(static_cast<int>(state.range(0)));
    HotSpotMap map;
    for (auto _ : state) map.Rebuild(bench.T, bench.Window);
}
BENCHMARK(MapRebuild)->Arg(0)->Arg(30)->Unit(benchmark::kMillisecond);

void MouseMove(benchmark::State& state) {
    BenchFelt bench(0);
    FeltView view(bench.T);
    view.resize(bench.Window);
    view.hotSpot({1, 1});
    int x = 0;
    for (auto _ : state) {
        x = (x + 37) % 1248;
        QMouseEvent move(QEvent::MouseMove, QPointF(x, 280), QPointF(x, 280), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QApplication::sendEvent(&view, &move);
    }
}
BENCHMARK(MouseMove)->Unit(benchmark::kMicrosecond);

void ZoomedPictureShownAtOnce(benchmark::State& state) {
    BenchFelt bench(static_cast<int>(state.range(0)));
    FeltView view(bench.T);
    view.resize(bench.Window);
    QImage screen(bench.Window, QImage::Format_RGB32);
    view.render(&screen);
    int step = 0;
    for (auto _ : state) {
        SetTableWidth(bench.T, 1248 + ++step % 20);
        view.render(&screen);
    }
}
BENCHMARK(ZoomedPictureShownAtOnce)->Arg(0)->Arg(30)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
