#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include "chart/chart_file.h"
#include "chart/chart_samples.h"
#include "gui/chart/chart3d_paint.h"
#include "gui/chart/chart3d_widget.h"

using namespace quor;

namespace {

using chart::Chart3D;
using chart::Chart3DWidget;

QImage pictureOf(const Chart3D& c, QSize size = {900, 700}) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::magenta);
    QPainter painter(&picture);
    paintChart3D(painter, QRectF(QPointF(0, 0), size), c);
    return picture;
}

class Chart3DView : public testing::Test {
  protected:
    Chart3DView()
        : chart_(samples::surfaceOf(samples::bumps, samples::twoHoles, 41, 41)), widget_(chart_) {
        widget_.resize(900, 700);
        widget_.show();
        QApplication::processEvents();
    }

    void drag(QPoint from, QPoint to) {
        QTest::mousePress(&widget_, Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, widget_.mapToGlobal(QPointF(to)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&widget_, &move);
        QTest::mouseRelease(&widget_, Qt::LeftButton, {}, to);
    }

    Chart3D chart_;
    Chart3DWidget widget_;
};

TEST_F(Chart3DView, DraggingTurnsTheBody) {
    QSignalSpy changes(&widget_, &Chart3DWidget::viewChanged);
    const chart::View3D before = chart_.view;
    drag({400, 300}, {500, 350});
    EXPECT_NE(chart_.view.rotation, before.rotation);
    EXPECT_GT(chart_.view.elevation, before.elevation);
    EXPECT_GE(changes.count(), 1);
    drag({400, 0}, {400, 5000});
    EXPECT_DOUBLE_EQ(chart_.view.elevation, 90);
}

TEST_F(Chart3DView, WheelKeysAndDoubleClickChangeTheView) {
    QWheelEvent wheel(QPointF(450, 350), QPointF(450, 350), {}, QPoint(0, 240), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget_, &wheel);
    EXPECT_GT(chart_.view.zoom, 1.2);
    QTest::keyClick(&widget_, Qt::Key_Z);
    EXPECT_DOUBLE_EQ(chart_.view.elevation, 90);
    EXPECT_DOUBLE_EQ(chart_.view.zoom, 1);
    QTest::keyClick(&widget_, Qt::Key_Down);
    EXPECT_LT(chart_.view.elevation, 90);
    QTest::mouseDClick(&widget_, Qt::LeftButton, {}, QPoint(450, 350));
    EXPECT_DOUBLE_EQ(chart_.view.elevation, chart::View3D().elevation);
    for (int k = 0; k < 200; ++k) widget_.zoom(2);
    EXPECT_DOUBLE_EQ(chart_.view.zoom, 8);
}

TEST_F(Chart3DView, AFlatMapDoesNotTurn) {
    chart_.style.projection_2d = true;
    const chart::View3D before = chart_.view;
    drag({400, 300}, {500, 350});
    EXPECT_EQ(chart_.view.rotation, before.rotation);
}

TEST_F(Chart3DView, ThePlaceUnderThePointerIsTold) {
    std::vector<double> xs, zs;
    int left = 0;
    QObject::connect(&widget_, &Chart3DWidget::surfaceMoved, [&](double x, double y, double z) {
        xs.push_back(x);
        zs.push_back(z - samples::bumps(x, y));
    });
    QObject::connect(&widget_, &Chart3DWidget::surfaceLeft, [&] { ++left; });
    const auto move = [&](QPointF at) {
        QMouseEvent event(QEvent::MouseMove, at, widget_.mapToGlobal(at), Qt::NoButton,
                          Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&widget_, &event);
    };
    const auto hit = [&] {
        for (double x = 300; x < 600; x += 7)
            if (widget_.placeAt({x, 350})) return QPointF(x, 350);
        return QPointF();
    }();
    ASSERT_FALSE(hit.isNull());
    move(hit);
    ASSERT_EQ(xs.size(), 1U);
    EXPECT_NEAR(zs[0], 0, 0.03) << "the function itself, but for the size of a cell";
    move({3, 3});
    move({4, 4});
    EXPECT_EQ(left, 1);
}

TEST_F(Chart3DView, TheWidgetShowsThePictureThatIsExported) {
    EXPECT_EQ(widget_.grab().toImage().convertToFormat(QImage::Format_RGB32), pictureOf(chart_));
}

TEST_F(Chart3DView, APictureIsFineAgainWhenTheBodyRests) {
    chart_.mesh.x = chart_.mesh.y = false;
    const auto shown = [&] {
        return widget_.grab().toImage().convertToFormat(QImage::Format_RGB32);
    };
    drag({400, 300}, {420, 300});
    EXPECT_NE(shown(), pictureOf(chart_));
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown() == pictureOf(chart_); }, 2000));
}

TEST_F(Chart3DView, ARightClickIsToldAndARightDragIsNot) {
    QSignalSpy clicks(&widget_, &Chart3DWidget::rightClicked);
    QTest::mouseClick(&widget_, Qt::RightButton, {}, QPoint(300, 300));
    QTest::mousePress(&widget_, Qt::RightButton, {}, QPoint(300, 300));
    QTest::mouseRelease(&widget_, Qt::RightButton, {}, QPoint(400, 300));
    EXPECT_EQ(clicks.count(), 1);
}

TEST(Chart3DPicture, SaveAndLoadGiveTheSamePicture) {
    Chart3D c = samples::surfaceOf(samples::bumps, samples::twoHoles, 31, 31);
    c.style.zoned = c.style.contoured = c.style.ceiling_contours = true;
    c.markers.push_back({0.1, 0.1, 0.2, "CrP"});
    Chart3D loaded;
    ASSERT_TRUE(chart::from_text(chart::to_text(c), loaded));
    EXPECT_EQ(pictureOf(c), pictureOf(loaded));
    loaded.view.rotation += 5;
    EXPECT_NE(pictureOf(c), pictureOf(loaded));
}

TEST(Chart3DPicture, NoSeamsRunBetweenTheCells) {
    Chart3D c = samples::surfaceOf([](double, double) { return 0.5; }, samples::noHole, 41, 41);
    c.mesh.x = c.mesh.y = false;
    c.style.shaded = false;
    c.z.automatic = false;
    set_preset(c.view, chart::PresetView::AlongZ);
    for (const double rotation : {-90.0, -73.0, -31.0}) {
        c.view.rotation = rotation;
        const QImage picture = pictureOf(c);
        const QRgb middle = picture.pixel(450, 380);
        int worst = 0;
        for (int y = 330; y < 430; ++y)
            for (int x = 400; x < 500; ++x)
                worst = std::max(worst, std::abs(qGray(picture.pixel(x, y)) - qGray(middle)));
        EXPECT_LE(worst, 4) << "steps of grey at " << rotation;
    }
}

TEST(Chart3DPicture, AHoleShowsWhatIsBehindIt) {
    Chart3D c =
        samples::surfaceOf([](double, double) { return 0.5; },
                           [](double x, double y) { return std::hypot(x, y) < 0.3; }, 41, 41);
    c.z.automatic = false;
    set_preset(c.view, chart::PresetView::AlongZ);
    const QImage picture = pictureOf(c);
    const QColor planes(c.planes.r, c.planes.g, c.planes.b);
    const chart::Layout3D layout =
        make_layout(c, 900, 700, [](const std::string&, const chart::Font&) {
            return chart::TextSize{20, 14};
        });
    const chart::Point2 centre = layout.camera.project({0.05, 0.05, 0});
    int paper = 0;
    for (int dy = -8; dy <= 8; ++dy)
        for (int dx = -8; dx <= 8; ++dx)
            if (picture.pixelColor(static_cast<int>(centre.x) + dx,
                                   static_cast<int>(centre.y) + dy) == planes)
                ++paper;
    EXPECT_GT(paper, 17 * 17 / 2);
}

TEST(Chart3DPicture, TinyAndEmptyRectanglesAreHarmless) {
    const Chart3D c = samples::surfaceOf(samples::bumps, samples::noHole, 9, 9);
    for (const QSize size : {QSize(1, 1), QSize(3, 200), QSize(40, 30)})
        EXPECT_FALSE(pictureOf(c, size).isNull());
    EXPECT_FALSE(pictureOf(Chart3D()).isNull());
}

}  // namespace
