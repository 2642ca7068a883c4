#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include "chart/chart_samples.h"
#include "gui/chart/chart2d_paint.h"
#include "gui/chart/chart2d_plot.h"
#include "gui/chart/chart2d_widget.h"
#include "gui/chart/chart_qt.h"

using namespace quor;

namespace {

using chart::Chart2D;
using chart::Chart2DWidget;
using chart::ChartHit;
using chart::ChartPart;
using chart::Group;

/// A widget on the screen with a rising line, a point set, a legend, a label and all texts.
class Chart2DView : public testing::Test {
  protected:
    Chart2DView() : widget_(chart_) {
        auto& curve = chart::series_at(chart_, Group::Curves, 0);
        curve = samples::curveOf([](double x) { return 2 * x; }, 0, 5, 51);
        curve.legend = "line";
        auto& set = chart::series_at(chart_, Group::Points, 0);
        set.x = {1, 2};
        set.y = {8, 9};
        chart_.x.max = 5;
        chart_.y.max = 10;
        chart_.x.title = "v";
        chart_.y.title = "p";
        chart_.header.text = "Header";
        chart_.footer.text = "Footer";
        chart_.legend.shown = true;
        chart_.legend.anchor = chart::LegendAnchor::SouthEast;
        chart::Label label;
        label.text = "T(cr)";
        label.x = 4;
        label.y = 4;
        label.dx = 20;
        chart_.labels.push_back(label);
        widget_.resize(800, 600);
        widget_.show();
        QApplication::processEvents();
        widget_.refresh();
        plot_ = widget_.findChild<chart::Chart2DPlot*>();
    }

    void drag(QPointF from, QPointF to, Qt::MouseButton button) {
        send(QEvent::MouseButtonPress, from, button, button);
        for (int step = 1; step <= 5; ++step)
            send(QEvent::MouseMove, from + (to - from) * (step / 5.0), Qt::NoButton, button);
        send(QEvent::MouseButtonRelease, to, button, Qt::NoButton);
    }

    void send(QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons buttons) {
        QMouseEvent event(type, at, plot_->mapToGlobal(at), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(plot_, &event);
    }

    void wheel(QPointF at, int steps) {
        QWheelEvent event(at, plot_->mapToGlobal(at), {}, QPoint(0, 120 * steps), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(plot_, &event);
    }

    static QPointF centre(const chart::SheetRect& r) {
        return {r.left + r.width / 2, r.top + r.height / 2};
    }

    /// Pixels from a place to the nearest vertex of the curve in the picture.
    double distanceToLines(QPointF at) const {
        double nearest = 1e9;
        for (const chart::PictureItem& item : plot_->picture().items) {
            const auto* line = std::get_if<chart::PictureLine>(&item);
            if (!line || line->points.size() < 3) continue;
            for (const chart::SheetPoint& p : line->points)
                nearest = std::min(nearest, std::hypot(p.x - at.x(), p.y - at.y()));
        }
        return nearest;
    }

    Chart2D chart_;
    Chart2DWidget widget_;
    chart::Chart2DPlot* plot_ = nullptr;
};

TEST_F(Chart2DView, TheCurveIsPaintedWhereItsDataLie) {
    const QImage picture = widget_.grab().toImage();
    const QColor colour = chart::toQt(chart_.curves[0].line.colour);
    for (const double x : {0.7, 1.3, 2.9, 4.4}) {
        const QPointF at = widget_.pixelOf(x, 2 * x);
        const QColor seen = picture.pixelColor(at.toPoint());
        EXPECT_LT(std::abs(seen.red() - colour.red()), 90) << x;
        EXPECT_LT(seen.red(), 200) << "paper instead of the line at " << x;
    }
}

TEST_F(Chart2DView, TheLinesRunThroughThePixelsOfTheirData) {
    for (const bool logarithmic : {false, true}) {
        chart_.x.min = 0.5;
        chart_.x.logarithmic = logarithmic;
        widget_.refresh();
        for (const double x : {0.9, 2.0, 4.6}) {
            const QPointF at = widget_.pixelOf(x, 2 * x);
            EXPECT_LT(distanceToLines(at), 1e-3) << x;
            EXPECT_GT(distanceToLines(at + QPointF(0, 30)), 10) << x;
        }
    }
}

TEST_F(Chart2DView, TheSheetIsWhitePaperInADarkTheme) {
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(30, 30, 30));
    widget_.setPalette(dark);
    widget_.refresh();
    const QImage picture = widget_.grab().toImage();
    EXPECT_EQ(picture.pixelColor(3, 3), QColor(Qt::white));
    EXPECT_EQ(picture.pixelColor(widget_.pixelOf(0.6, 9.6).toPoint()), QColor(Qt::white));
}

TEST_F(Chart2DView, TheRimOfTheSheetIsPaperToo) {
    const QImage picture = widget_.grab().toImage();
    const int right = picture.width() - 1, bottom = picture.height() - 1;
    for (const QPoint at : {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom),
                            QPoint(right, bottom), QPoint(right / 2, bottom), QPoint(0, 99)})
        EXPECT_EQ(picture.pixelColor(at), QColor(Qt::white)) << at.x() << ' ' << at.y();
}

TEST_F(Chart2DView, AnExposureIsPaintedWithoutANewLayout) {
    const QSignalSpy layouts(plot_, &chart::Chart2DPlot::laidOut);
    const QImage before = widget_.grab().toImage();
    plot_->repaint();
    EXPECT_EQ(widget_.grab().toImage(), before);
    EXPECT_EQ(layouts.count(), 0);
    widget_.resize(700, 500);
    QApplication::processEvents();
    EXPECT_EQ(layouts.count(), 1);
}

TEST_F(Chart2DView, ABatchRepaintsOnce) {
    const QSignalSpy repaints(plot_, &chart::Chart2DPlot::laidOut);
    {
        const chart::ChartBatch outer(widget_);
        for (int k = 0; k < 20; ++k) {
            const chart::ChartBatch inner(widget_);
            chart_.curves[0].line.width = static_cast<float>(k);
            widget_.refresh();
        }
        EXPECT_EQ(repaints.count(), 0);
    }
    EXPECT_EQ(repaints.count(), 1);
    { const chart::ChartBatch nothing(widget_); }
    EXPECT_EQ(repaints.count(), 1);
}

TEST_F(Chart2DView, ThePointerFindsEveryPart) {
    const chart::Sheet2D& s = widget_.sheet();
    const auto part = [&](QPointF at) { return widget_.hitAt(at).part; };
    EXPECT_EQ(part(widget_.pixelOf(2.03, 4.06)), ChartPart::Curve);
    EXPECT_EQ(part(widget_.pixelOf(2, 9) + QPointF(2, 2)), ChartPart::PointSet);
    EXPECT_EQ(part(widget_.pixelOf(0.5, 6)), ChartPart::PlotArea);
    EXPECT_EQ(part(centre(s.header.rect)), ChartPart::Header);
    EXPECT_EQ(part(centre(s.footer.rect)), ChartPart::Footer);
    EXPECT_EQ(part(centre(s.x.title.rect)), ChartPart::AxisX);
    EXPECT_EQ(part(centre(s.y.title.rect)), ChartPart::AxisY);
    EXPECT_EQ(part({s.y.numbers.left + 2, s.plot.top + 50}), ChartPart::AxisY);
    EXPECT_EQ(part(centre(s.legend)), ChartPart::Legend);
    EXPECT_EQ(part(centre(s.labels[0].text.rect)), ChartPart::Label);
    EXPECT_EQ(part({2, 2}), ChartPart::Sheet);
}

TEST_F(Chart2DView, AHitTellsSeriesPointAndPlace) {
    const ChartHit point = widget_.hitAt(widget_.pixelOf(2, 9));
    EXPECT_EQ(point.group, Group::Points);
    EXPECT_EQ(point.series, 0);
    EXPECT_EQ(point.point, 1);
    EXPECT_NEAR(point.x, 2, 1e-6);
    EXPECT_NEAR(point.y, 9, 1e-6);
    EXPECT_TRUE(point.inPlot);
    const ChartHit curve = widget_.hitAt(widget_.pixelOf(3.04, 6.08));
    EXPECT_EQ(curve.point, 30);
    const ChartHit legend = widget_.hitAt(centre(widget_.sheet().legend));
    EXPECT_EQ(legend.series, 0);
}

TEST_F(Chart2DView, ARectangleZoomsIntoItsWindow) {
    QSignalSpy changes(&widget_, &Chart2DWidget::windowChanged);
    drag(widget_.pixelOf(0.5, 9.5), widget_.pixelOf(2.5, 7), Qt::LeftButton);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_NEAR(chart_.x.min, 0.5, 0.03);
    EXPECT_NEAR(chart_.x.max, 2.5, 0.03);
    EXPECT_NEAR(chart_.y.min, 7, 0.06);
    EXPECT_NEAR(chart_.y.max, 9.5, 0.06);
    EXPECT_TRUE(widget_.isZoomed());
    widget_.resetZoom();
    EXPECT_DOUBLE_EQ(chart_.x.max, 5);
    EXPECT_DOUBLE_EQ(chart_.y.min, 0);
    EXPECT_FALSE(widget_.isZoomed());
}

TEST_F(Chart2DView, ASlipOfTheHandDoesNotZoom) {
    drag(widget_.pixelOf(0.5, 9.5), widget_.pixelOf(0.5, 9.5) + QPointF(2, 1), Qt::LeftButton);
    drag(widget_.pixelOf(0.5, 9.5), widget_.pixelOf(0.5, 9.5) + QPointF(60, 1), Qt::LeftButton);
    EXPECT_DOUBLE_EQ(chart_.x.max, 5);
    EXPECT_FALSE(widget_.isZoomed());
}

TEST_F(Chart2DView, EscapeGivesUpTheRectangle) {
    const QPointF from = widget_.pixelOf(0.5, 9.5), to = widget_.pixelOf(2, 7);
    send(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
    QTest::keyClick(&widget_, Qt::Key_Escape);
    send(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
    EXPECT_DOUBLE_EQ(chart_.x.max, 5);
}

TEST_F(Chart2DView, TheWheelZoomsAboutThePointer) {
    const QPointF at = widget_.pixelOf(1, 8);
    wheel(at, 3);
    EXPECT_LT(chart_.x.max - chart_.x.min, 3.5);
    // New numbers may shift the plot area by some pixels.
    EXPECT_NEAR(widget_.hitAt(at).x, 1, 0.05);
    EXPECT_NEAR(widget_.hitAt(at).y, 8, 0.05);
    wheel(at, -3);
    EXPECT_NEAR(chart_.x.min, 0, 0.05);
    EXPECT_NEAR(chart_.y.max, 10, 0.05);
}

TEST_F(Chart2DView, TheWheelWorksOnLogarithmicAxes) {
    chart_.y.min = 0.1;
    chart_.y.max = 1000;
    chart_.y.logarithmic = true;
    widget_.refresh();
    const QPointF at = widget_.pixelOf(0.5, 10);
    wheel(at, 2);
    EXPECT_NEAR(widget_.hitAt(at).y, 10, 0.02);
    EXPECT_GT(chart_.y.min, 0.1);
    EXPECT_LT(chart_.y.max, 1000);
}

TEST_F(Chart2DView, ZoomingStopsBeforeNumbersRunTogether) {
    for (int k = 0; k < 300; ++k) widget_.zoom(1.5);
    EXPECT_GT(chart_.x.max - chart_.x.min, 1e-7);
    for (int k = 0; k < 600; ++k) widget_.zoom(0.5);
    EXPECT_LT(chart_.x.max, 1e31);
    EXPECT_TRUE(std::isfinite(chart_.y.min));
}

TEST_F(Chart2DView, TheMiddleButtonPans) {
    const QPointF from = widget_.pixelOf(1, 8), to = widget_.pixelOf(2, 6);
    drag(from, to, Qt::MiddleButton);
    EXPECT_NEAR(chart_.x.min, -1, 0.01);
    EXPECT_NEAR(chart_.x.max, 4, 0.01);
    EXPECT_NEAR(chart_.y.min, 2, 0.02);
    EXPECT_NEAR(chart_.y.max, 12, 0.02);
}

TEST_F(Chart2DView, ADoubleClickFitsTheData) {
    chart_.x.min = 2;
    chart_.x.max = 2.5;
    widget_.refresh();
    send(QEvent::MouseButtonDblClick, widget_.pixelOf(2.1, 9), Qt::LeftButton, Qt::LeftButton);
    EXPECT_LE(chart_.x.min, 0);
    EXPECT_GE(chart_.x.max, 5);
    EXPECT_GE(chart_.y.max, 10);
}

TEST_F(Chart2DView, ZoomCanBeForbidden) {
    widget_.setZoomEnabled(false);
    wheel(widget_.pixelOf(1, 8), 3);
    drag(widget_.pixelOf(0.5, 9.5), widget_.pixelOf(2.5, 7), Qt::LeftButton);
    drag(widget_.pixelOf(1, 8), widget_.pixelOf(2, 6), Qt::MiddleButton);
    send(QEvent::MouseButtonDblClick, widget_.pixelOf(2.1, 9), Qt::LeftButton, Qt::LeftButton);
    QTest::keyClick(&widget_, Qt::Key_Plus);
    EXPECT_DOUBLE_EQ(chart_.x.min, 0);
    EXPECT_DOUBLE_EQ(chart_.x.max, 5);
}

TEST_F(Chart2DView, LegendLabelAndHeaderAreDragged) {
    QSignalSpy moves(&widget_, &Chart2DWidget::partMoved);
    const chart::SheetRect legend = widget_.sheet().legend;
    drag(centre(legend), centre(legend) - QPointF(200, 100), Qt::LeftButton);
    EXPECT_EQ(chart_.legend.anchor, chart::LegendAnchor::Free);
    EXPECT_NEAR(widget_.sheet().legend.left, legend.left - 200, 1);
    EXPECT_NEAR(widget_.sheet().legend.top, legend.top - 100, 1);

    const QPointF label = centre(widget_.sheet().labels[0].text.rect);
    drag(label, label + QPointF(15, -40), Qt::LeftButton);
    EXPECT_NEAR(chart_.labels[0].dx, 35, 1e-6);
    EXPECT_NEAR(chart_.labels[0].dy, -40, 1e-6);

    const QPointF header = centre(widget_.sheet().header.rect);
    drag(header, header + QPointF(-100, 30), Qt::LeftButton);
    EXPECT_FALSE(chart_.header.automatic);
    EXPECT_NEAR(widget_.sheet().header.x, header.x() - 100, 1);
    EXPECT_EQ(moves.count(), 3);
    EXPECT_DOUBLE_EQ(chart_.x.max, 5) << "dragging a part does not zoom";
}

TEST_F(Chart2DView, TheLegendCannotBeLost) {
    const QPointF at = centre(widget_.sheet().legend);
    drag(at, {5000, -5000}, Qt::LeftButton);
    const chart::SheetRect& legend = widget_.sheet().legend;
    EXPECT_GE(legend.top, 0);
    EXPECT_LE(legend.right(), widget_.width() + 1);
}

TEST_F(Chart2DView, ARightClickReportsWhatLiesUnderIt) {
    std::vector<ChartHit> hits;
    QObject::connect(&widget_, &Chart2DWidget::rightClicked,
                     [&](const ChartHit& hit, const QPoint&) { hits.push_back(hit); });
    const auto click = [&](QPointF at) {
        send(QEvent::MouseButtonPress, at, Qt::RightButton, Qt::RightButton);
        send(QEvent::MouseButtonRelease, at, Qt::RightButton, Qt::NoButton);
    };
    click(widget_.pixelOf(2, 4));
    click(centre(widget_.sheet().legend));
    drag(widget_.pixelOf(1, 8), widget_.pixelOf(2, 8), Qt::RightButton);  // no click
    ASSERT_EQ(hits.size(), 2U);
    EXPECT_EQ(hits[0].part, ChartPart::Curve);
    EXPECT_EQ(hits[1].part, ChartPart::Legend);
}

TEST_F(Chart2DView, MovesPressesAndReleasesAreTold) {
    std::vector<ChartHit> moved;
    std::vector<std::pair<ChartPart, bool>> released;
    QObject::connect(&widget_, &Chart2DWidget::mouseMoved,
                     [&](const ChartHit& hit) { moved.push_back(hit); });
    QObject::connect(&widget_, &Chart2DWidget::mouseReleased,
                     [&](const ChartHit& hit, Qt::MouseButton, bool clicked) {
                         released.emplace_back(hit.part, clicked);
                     });
    QSignalSpy pressed(&widget_, &Chart2DWidget::mousePressed);
    send(QEvent::MouseMove, widget_.pixelOf(1.5, 5), Qt::NoButton, Qt::NoButton);
    ASSERT_EQ(moved.size(), 1U);
    EXPECT_NEAR(moved[0].x, 1.5, 1e-6);
    EXPECT_NEAR(moved[0].y, 5, 1e-6);
    send(QEvent::MouseButtonPress, widget_.pixelOf(2, 9), Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, widget_.pixelOf(2, 9), Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(pressed.count(), 1);
    ASSERT_EQ(released.size(), 1U);
    EXPECT_EQ(released[0], (std::pair{ChartPart::PointSet, true}));
}

TEST_F(Chart2DView, ThePictureWithoutAWindowIsThatOfTheWidget) {
    const QImage shown = widget_.grab().toImage().convertToFormat(QImage::Format_RGB32);
    QImage painted(shown.size(), QImage::Format_RGB32);
    QPainter painter(&painted);
    paintChart2D(painter, QRectF(QPointF(0, 0), shown.size()), chart_);
    painter.end();
    int different = 0;
    for (int y = 0; y < shown.height(); ++y)
        for (int x = 0; x < shown.width(); ++x) {
            const int difference = qGray(shown.pixel(x, y)) - qGray(painted.pixel(x, y));
            if (std::abs(difference) > 60) ++different;
        }
    EXPECT_LT(different, shown.width() * shown.height() / 500);
}

TEST_F(Chart2DView, AFullSheetFindsTheCurveUnderThePointer) {
    for (int k = 0; k < 24; ++k)
        chart::series_at(chart_, Group::Curves, k) =
            samples::curveOf([&](double x) { return 0.1 * k * x; }, 0, 5, 1200);
    widget_.refresh();
    const ChartHit hit = widget_.hitAt(widget_.pixelOf(2.5, 2.3 * 2.5));
    EXPECT_EQ(hit.part, ChartPart::Curve);
    EXPECT_EQ(hit.series, 23);
}

TEST_F(Chart2DView, ResizingKeepsTheLayoutUpToDate) {
    widget_.resize(500, 360);
    QApplication::processEvents();
    EXPECT_NEAR(widget_.sheet().sheet.width, 500, 1);
    widget_.resize(20, 20);
    QApplication::processEvents();
    EXPECT_FALSE(widget_.grab().isNull());
}

}  // namespace
