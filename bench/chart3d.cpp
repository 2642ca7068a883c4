#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cmath>

#include "gui/chart/chart2d_paint.h"
#include "gui/chart/chart3d_paint.h"

using namespace quor;

namespace {

constexpr int kWidth = 900, kHeight = 700;

/// Fonts need an application, though no window.
void startApplication() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = 1;
    static char name[] = "bench";
    static char* arguments[] = {name, nullptr};
    static const QGuiApplication application(count, arguments);
}

chart::Chart3D surfaceOf(int nodes) {
    chart::Chart3D c;
    c.surface.resize(nodes, nodes);
    c.surface.x0 = c.surface.y0 = -1;
    c.surface.dx = c.surface.dy = 2.0 / (nodes - 1);
    for (int i = 0; i < nodes; ++i) {
        for (int j = 0; j < nodes; ++j) {
            const double x = c.surface.x(i), y = c.surface.y(j);
            const double z = x * x - y * y + 0.4 * std::sin(5 * x) * std::cos(4 * y);
            c.surface.z[c.surface.at(i, j)] = static_cast<float>(z);
        }
    }
    c.x.automatic = c.y.automatic = true;
    c.x.title = "v";
    c.y.title = "T";
    c.z.title = "p";
    c.header.text = "Pressure p(v, T)";
    return c;
}

/// A frame of a body that turns: the scene is built and painted anew each time.
void turning(benchmark::State& state, chart::Chart3D c,
             chart::PaintQuality quality = chart::PaintQuality::Turning) {
    startApplication();
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        turn(c.view, 3, 0);
        QPainter painter(&image);
        paintChart3D(painter, QRectF(0, 0, kWidth, kHeight), c, quality);
    }
    state.counters["frames/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

// Aim: above 30 frames a second for 41 x 41 nodes, above 10 for 101 x 101.
void BM_TurnShadedSurface(benchmark::State& state) {
    turning(state, surfaceOf(static_cast<int>(state.range(0))));
}
BENCHMARK(BM_TurnShadedSurface)->Arg(41)->Arg(101)->Arg(201)->Unit(benchmark::kMillisecond);

void BM_TurnZonedSurface(benchmark::State& state) {
    chart::Chart3D c = surfaceOf(static_cast<int>(state.range(0)));
    c.style.zoned = c.style.contoured = c.style.floor_zones = c.style.ceiling_contours = true;
    turning(state, c);
}
BENCHMARK(BM_TurnZonedSurface)->Arg(41)->Arg(101)->Unit(benchmark::kMillisecond);

/// The picture that stands when the body rests.
void BM_PaintAtRest(benchmark::State& state) {
    turning(state, surfaceOf(static_cast<int>(state.range(0))), chart::PaintQuality::Fine);
}
BENCHMARK(BM_PaintAtRest)->Arg(41)->Arg(101)->Unit(benchmark::kMillisecond);

void BM_PaintSheetOfTwentyFourCurves(benchmark::State& state) {
    startApplication();
    chart::Chart2D c;
    for (int k = 0; k < 24; ++k) {
        chart::Series& s = chart::series_at(c, chart::Group::Curves, k);
        for (int i = 0; i < 300; ++i) {
            s.x.push_back(static_cast<float>(i) / 300);
            s.y.push_back(static_cast<float>(0.03 * k + 0.2 * std::sin(0.02 * i + k)));
        }
        s.legend = "curve";
    }
    c.legend.shown = true;
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        QPainter painter(&image);
        paintChart2D(painter, QRectF(0, 0, kWidth, kHeight), c);
    }
}
BENCHMARK(BM_PaintSheetOfTwentyFourCurves)->Unit(benchmark::kMillisecond);

}  // namespace
