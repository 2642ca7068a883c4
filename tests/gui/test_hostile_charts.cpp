#include <QImage>
#include <QPainter>
#include <ctime>
#include <limits>
#include <random>

#include "chart/chart_file.h"
#include "chart/chart_samples.h"
#include "chart/picture2d.h"
#include "chart/scene3d.h"
#include "gui/chart/chart2d_paint.h"
#include "gui/chart/chart3d_paint.h"
#include "gui/chart/chart_qt.h"

using namespace quor;

namespace {

using chart::Chart2D;
using chart::Chart3D;
using chart::Group;

/// What a painting may take: a tenth of a second in a program that is built for use. A build for
/// finding faults checks every step of it.
double allowance() {
#ifdef NDEBUG
    return 100;
#else
    return 2500;
#endif
}

/// The shortest of three paintings in ms of the processor, as others work on the machine as well.
template <class Paint>
double timeOf(Paint paint) {
    double shortest = 1e9;
    for (int run = 0; run < 3 && shortest > allowance(); ++run) {
        QImage image(900, 650, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        const std::clock_t start = std::clock();
        paint(painter, QRectF(0, 0, 900, 650));
        const auto used = static_cast<double>(std::clock() - start);
        shortest = std::min(shortest, 1000 * used / CLOCKS_PER_SEC);
    }
    return shortest;
}

/// The chart as a file of it gives it; a file of it must be one that is read.
template <class Chart>
Chart asRead(const Chart& chart) {
    Chart read;
    const Result<void> outcome = chart::from_text(chart::to_text(chart), read);
    EXPECT_TRUE(outcome) << outcome.reason();
    return read;
}

void expectQuick(const Chart2D& chart) {
    const Chart2D read = asRead(chart);
    const double time = timeOf(
        [&](QPainter& painter, const QRectF& rect) { chart::paintChart2D(painter, rect, read); });
    EXPECT_LT(time, allowance());
}

void expectQuick(const Chart3D& chart) {
    const Chart3D read = asRead(chart);
    const double time = timeOf([&](QPainter& painter, const QRectF& rect) {
        chart::paintChart3D(painter, rect, read, chart::PaintQuality::Fine);
    });
    EXPECT_LT(time, allowance());
}

chart::Series scattered(int points, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> unit(0, 1);
    chart::Series series = chart::default_curve(0);
    for (int i = 0; i < points; ++i) {
        series.x.push_back(unit(random));
        series.y.push_back(unit(random));
    }
    return series;
}

Chart2D unitSquare() {
    Chart2D chart;
    chart.x.min = chart.y.min = 0;
    chart.x.max = chart.y.max = 1;
    return chart;
}

bool hasRemark(const Chart2D& chart) {
    for (const auto& item : chart::picture_of(chart, 900, 650, chart::qtTextMeasure()).items)
        if (const auto* text = std::get_if<chart::PictureText>(&item))
            if (text->text.starts_with("not every point")) return true;
    return false;
}

TEST(HostileChart, AMillionPointsInAllDirectionsArePaintedInTime) {
    for (const float width : {0.5F, 1.5F, 50.0F}) {
        Chart2D chart = unitSquare();
        chart.curves.push_back(scattered(700000, 1));
        chart.curves[0].line.width = width;
        EXPECT_TRUE(hasRemark(chart));
        expectQuick(chart);
    }
}

TEST(HostileChart, TensOfThousandsOfWideDottedLinesArePaintedInTime) {
    for (const auto pattern : {chart::LinePattern::Dotted, chart::LinePattern::Dashed}) {
        Chart2D chart = unitSquare();
        chart.curves.push_back(scattered(30000, 2));
        chart.curves[0].line = {pattern, chart::kInk, 1.5F};
        expectQuick(chart);
    }
}

TEST(HostileChart, ThousandsOfSeriesOfPiecesArePaintedInTime) {
    Chart2D chart = unitSquare();
    for (unsigned i = 0; i < 4000; ++i) {
        chart.curves.push_back(scattered(40, i));
        chart.curves.back().legend = "series";
        // Most pieces begin and end outside the window.
        for (float& x : chart.curves.back().x) x = 3 * x - 1;
    }
    chart.legend.shown = true;
    expectQuick(chart);
    chart.x.automatic = chart.y.automatic = true;
    expectQuick(chart);
}

TEST(HostileChart, CloudsOfLargeSymbolsArePaintedInTime) {
    for (const float size : {9.0F, 200.0F}) {
        Chart2D chart = unitSquare();
        for (unsigned i = 0; i < 10; ++i) {
            chart.points.push_back(scattered(60000, i));
            chart.points.back().line.pattern = chart::LinePattern::None;
            chart.points.back().symbol = chart::SymbolShape::Dot;
            chart.points.back().symbol_size = size;
        }
        expectQuick(chart);
    }
}

TEST(HostileChart, HundredsOfHugeTextsArePaintedInTime) {
    for (const float size : {10.0F, 200.0F}) {
        Chart2D chart = unitSquare();
        for (int i = 0; i < 4000; ++i) {
            chart::Label label;
            label.x = label.y = 0.5;
            label.text = "a label " + std::to_string(i);
            label.font.size = size;
            label.rotation = i % 90;
            label.frame.shown = true;
            chart.labels.push_back(label);
        }
        EXPECT_TRUE(hasRemark(chart));
        expectQuick(chart);
    }
}

TEST(HostileChart, DenseWideGridLinesArePaintedInTime) {
    Chart2D chart = unitSquare();
    for (chart::Axis* axis : {&chart.x, &chart.y}) {
        axis->grid_spacing = 1.0 / 1900;
        axis->tick_spacing = 1.0 / 199;
        axis->grid = {chart::LinePattern::Dotted, chart::kInk, 50};
    }
    expectQuick(chart);
}

/// Windows of every kind, among them those that have no ticks at all.
std::vector<chart::Range> hostileWindows() {
    constexpr double kMost = 3.4e38, kLeast = std::numeric_limits<double>::denorm_min();
    return {{0, 0},
            {1, 1},
            {5, -5},
            {9007199254740992, 9007199254740994},
            {1e16, 1.0000000000000002e16},
            {-kMost, kMost},
            {-1e300, 1e308},
            {kLeast, kMost},
            {0, kLeast},
            {kLeast, 1},
            {1e-300, 1e300},
            {1e38, 1.0000001e38}};
}

TEST(HostileChart, NoWindowOfASheetIsPaintedForEver) {
    const double spacings[]{0, 1e-300, 1e-12, 1, 3e38};
    for (const chart::Range& window : hostileWindows())
        for (const double spacing : spacings)
            for (const bool logarithmic : {false, true}) {
                Chart2D chart;
                chart.curves.push_back(scattered(50, 4));
                for (chart::Axis* axis : {&chart.x, &chart.y, &chart.y2}) {
                    axis->min = window.min;
                    axis->max = window.max;
                    axis->logarithmic = logarithmic;
                    axis->tick_spacing = axis->grid_spacing = spacing;
                    axis->origin = window.max;
                    axis->automatic_origin = false;
                    axis->shown = true;
                }
                const double time = timeOf([&](QPainter& painter, const QRectF& rect) {
                    chart::paintChart2D(painter, rect, chart);
                });
                EXPECT_LT(time, allowance()) << window.min << " to " << window.max;
            }
}

TEST(HostileChart, NoBoxOfASurfaceIsPaintedForEver) {
    for (const chart::Range& window : hostileWindows()) {
        Chart3D chart = samples::surfaceOf(samples::bumps, samples::twoHoles, 9, 7);
        for (chart::Axis3D* axis : {&chart.x, &chart.y, &chart.z}) {
            axis->min = window.min;
            axis->max = window.max;
            axis->automatic = false;
        }
        chart.style.zoned = chart.style.contoured = chart.style.floor_contours = true;
        const double time = timeOf([&](QPainter& painter, const QRectF& rect) {
            chart::paintChart3D(painter, rect, chart, chart::PaintQuality::Fine);
        });
        EXPECT_LT(time, allowance()) << window.min << " to " << window.max;
    }
}

TEST(HostileChart, AJaggedSurfaceWithAllItsSectionsIsPaintedInTime) {
    constexpr int kNodes = chart::SurfaceGrid::kMaxNodes;
    const auto jagged = [n = 0](double, double) mutable { return n++ % 2 == 0 ? 0.0 : 1.0; };
    Chart3D chart = samples::surfaceOf(jagged, samples::noHole, kNodes, kNodes);
    chart.style.zoned = chart.style.contoured = true;
    chart.style.ceiling_contours = chart.style.ceiling_zones = true;
    chart.style.floor_contours = chart.style.floor_zones = true;
    chart.sections.number = 200;
    chart.sections.line = {chart::LinePattern::Dotted, chart::kInk, 50};
    chart.mesh.width = 50;
    chart.view.zoom = 8;
    for (int i = 0; i < 20; ++i)
        chart.markers.push_back({0.1 * i - 1, 0, 0.5, "marker", chart::kInk, 200, true});
    expectQuick(chart);
    chart.style.projection_2d = true;
    expectQuick(chart);
}

TEST(HostileChart, ALargeSmoothSurfaceIsPaintedInTime) {
    constexpr int kNodes = chart::SurfaceGrid::kMaxNodes;
    Chart3D chart = samples::surfaceOf(samples::bumps, samples::twoHoles, kNodes, kNodes);
    expectQuick(chart);
    chart.style.zoned = chart.style.contoured = chart.style.floor_contours = true;
    expectQuick(chart);
}

}  // namespace
