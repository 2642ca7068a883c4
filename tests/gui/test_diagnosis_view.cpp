#include "gui/calc_view_test.h"
#include "gui/calculation/isotherm_plot.h"
#include "report/diagnosis.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;
using drive::isEnabled;
using drive::isVisible;
using drive::read;
using drive::select;

class DiagnosisViewTest : public CalcViewTest {
  protected:
    static QColor pixelAt(const QImage& picture, QPointF at) {
        const double scale = picture.devicePixelRatio();
        return picture.pixelColor((at * scale).toPoint());
    }

    /// Area between a part of the isotherm and p(LV), kPa m^3/kmol.
    static double area(const std::vector<calculation::IsothermPoint>& line, double p) {
        double sum = 0;
        for (std::size_t i = 1; i < line.size(); ++i)
            sum += 0.5 * (line[i].p + line[i - 1].p - 2 * p) * (line[i].v - line[i - 1].v);
        return sum;
    }
};

TEST_F(DiagnosisViewTest, ShowsOneRootAboveTheCriticalTemperature) {
    startProject("Carbon dioxide");
    chooseTp();
    EXPECT_FALSE(isEnabled("cmdCEOSDiagnose"));
    calculate("400", "9000");
    ASSERT_TRUE(isEnabled("cmdCEOSDiagnose"));
    EXPECT_EQ(drive::get("cmdCEOSDiagnose")->palette().color(QPalette::Button).rgb() & 0xFFFFFFU,
              0xC0FFC0U);
    click("cmdCEOSDiagnose");
    EXPECT_EQ(read("frmCEOSDiagnose"), "Cubic Equation of State");
    EXPECT_EQ(read("lblRoot_1"), "v(1) =");
    EXPECT_FALSE(isVisible("lblRoot_2"));
    EXPECT_FALSE(isVisible("lblRoot_3"));
    EXPECT_FALSE(drive::get<IsothermPlot>("pctEOS")->isLogarithmic());
    click("cmdClose");
    EXPECT_FALSE(isVisible("frmCEOSDiagnose"));
}

TEST_F(DiagnosisViewTest, NamesThreeRootsByTheirStability) {
    startProject("Carbon dioxide");
    struct Case {
        const char *T, *p, *first, *third;
    };
    // Below and above the saturation pressure at 270 K, about 3200 kPa.
    for (const Case& c : {Case{"270", "2900", "(metastable)", "(stable, V-phase)"},
                          Case{"270", "3600", "(stable, L-phase)", "(metastable)"}}) {
        chooseTp();
        calculate(c.T, c.p);
        click("cmdCEOSDiagnose");
        EXPECT_EQ(read("lblNote_1"), c.first);
        EXPECT_EQ(read("lblNote_2"), "(unstable)");
        EXPECT_EQ(read("lblNote_3"), c.third);
        for (int i = 1; i <= 3; ++i)
            EXPECT_EQ(read(QString("lblRoot_%1").arg(i)), QString("v(%1) =").arg(i));
        const double v1 = read("lblVolume_1").section(' ', 0, 0).toDouble();
        const double v2 = read("lblVolume_2").section(' ', 0, 0).toDouble();
        const double v3 = read("lblVolume_3").section(' ', 0, 0).toDouble();
        EXPECT_LT(0, v1);
        EXPECT_LT(v1, v2);
        EXPECT_LT(v2, v3);
        EXPECT_TRUE(read("lblState").contains("T = 270 K"));
    }
    drive::when("frmCalcIn", [] { click("OK"); });
    choose("mnuCalc_5");
    drive::type("par_0", "270");
    click("cmdParameter_OK");
    click("cmdCEOSDiagnose");
    EXPECT_EQ(read("lblNote_1"), "(stable, L-phase)");
    EXPECT_EQ(read("lblNote_3"), "(stable, V-phase)");
}

TEST_F(DiagnosisViewTest, DrawsTheIsothermWithItsRootsAndTheEqualAreas) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("290", "5000");
    click("cmdCEOSDiagnose");
    auto* plot = drive::get<IsothermPlot>("pctEOS");
    plot->resize(900, 600);
    const report::Diagnosis d =
        report::diagnose(session.fluid(), session->results.current.answer.last);
    ASSERT_EQ(d.roots.size(), 3U);
    EXPECT_NEAR(area(d.area_below, d.saturation_pressure),
                -area(d.area_above, d.saturation_pressure),
                0.01 * area(d.area_above, d.saturation_pressure));
    const QImage picture = plot->grab().toImage();
    const QColor base = plot->palette().color(QPalette::Base);
    const QColor text = plot->palette().color(QPalette::Text);
    for (const report::RootRow& root : d.roots) {
        const QPointF at = plot->place(root.v, d.p);
        EXPECT_TRUE(plot->area().contains(at)) << root.caption;
        EXPECT_EQ(pixelAt(picture, at), root.stable ? text : base) << root.caption;
    }
    // The curve has its own colour away from marks and lines.
    const calculation::IsothermPoint& peak =
        *std::max_element(d.area_above.begin(), d.area_above.end(),
                          [](const auto& a, const auto& b) { return a.p < b.p; });
    const QPointF top = plot->place(peak.v, peak.p);
    const QColor curve = pixelAt(picture, top);
    EXPECT_NE(curve, base);
    EXPECT_GT(curve.blue(), curve.red());
    // Both areas are coloured between the isotherm and p(LV), and nothing else is there.
    const QPointF above = plot->place(peak.v, 0.5 * (peak.p + d.saturation_pressure));
    const calculation::IsothermPoint& low =
        *std::min_element(d.area_below.begin(), d.area_below.end(),
                          [](const auto& a, const auto& b) { return a.p < b.p; });
    const QPointF below =
        plot->place(low.v, 0.5 * (std::max(low.p, d.p_min) + d.saturation_pressure));
    EXPECT_NE(pixelAt(picture, above), base);
    EXPECT_NE(pixelAt(picture, below), base);
    EXPECT_NE(pixelAt(picture, above), pixelAt(picture, below));
    EXPECT_EQ(pixelAt(picture, plot->place(peak.v, 0.5 * (peak.p + d.p_max))), base);
}

TEST_F(DiagnosisViewTest, IsNotOfferedForAVapourEquation) {
    startProject("Carbon dioxide", [] { select("EOSKombi", "VIRIAL Equ. Pitzer / Curl"); });
    chooseTp();
    calculate("300", "1000");
    EXPECT_TRUE(lists("Virial coeffizient:"));
    EXPECT_FALSE(isEnabled("cmdCEOSDiagnose"));
}

TEST_F(DiagnosisViewTest, FollowsTheNextCalculationAndClosesWithTheResult) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("270", "2900");
    click("cmdCEOSDiagnose");
    EXPECT_TRUE(isVisible("lblRoot_3"));
    calculate("400", "9000");
    EXPECT_FALSE(isVisible("lblRoot_3"));
    EXPECT_TRUE(read("lblState").contains("T = 400 K"));
    click("cmdCalc_OK");
    EXPECT_FALSE(isVisible("frmCEOSDiagnose"));
}

}  // namespace
