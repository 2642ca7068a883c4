#include "gui/calc_view_test.h"
#include "gui/calculation/tank_drawing.h"
#include "models/saturation.h"
#include "report/tank_picture.h"
#include "session/calculations.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;
using drive::isVisible;
using drive::read;
using drive::select;
using drive::type;

class TankViewTest : public CalcViewTest {
  protected:
    /// Types V, m and T of the tank and calculates.
    static void fill(const QString& V, const QString& m, const QString& T) {
        type("par_0", V);
        type("par_1", m);
        type("par_2", T);
        click("cmdParameter_OK");
    }

    /// Share of the front section that has a colour, in per cent.
    static double shareOf(const QColor& colour) {
        auto* drawing = drive::get<TankDrawing>("TankDrawing");
        drawing->resize(900, 700);
        const QImage picture = drawing->grab().toImage();
        const double scale = picture.devicePixelRatio();
        const QRectF section = drawing->section();
        const double r = section.width() / 2 - 2;
        int inside = 0, found = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                const QPointF off = QPointF(x + 0.5, y + 0.5) / scale - section.center();
                if (std::hypot(off.x(), off.y()) > r) continue;
                ++inside;
                found += picture.pixelColor(x, y) == colour ? 1 : 0;
            }
        return 100.0 * found / inside;
    }

    /// Filling level by the balance of volume and mass over phases of known density, per cent.
    static double balance(double V, double m, double rhoL, double rhoV) {
        return 100.0 * (m / V - rhoV) / (rhoL - rhoV);
    }
};

TEST_F(TankViewTest, DrawsTheShareOfTheLiquidInTheGlobalMethod) {
    startProject("Carbon dioxide");
    choose("mnuCalc_15");
    const auto saturation = models::saturation_pressure(session.fluid(), 280);
    const auto M = static_cast<double>(session->substance.M);
    const double rhoL = M / saturation->v[0], rhoV = M / saturation->v[2];
    for (const double m : {150.0, 200.0, 400.0, 550.0, 700.0, 830.0}) {
        fill("1", QString::number(m), "280");
        const double level = balance(1, m, rhoL, rhoV);
        ASSERT_GT(level, 0);
        ASSERT_LT(level, 100);
        EXPECT_NEAR(report::tank_state_of(session->results.current).level, level, 0.01) << m;
        EXPECT_NEAR(read("lblTankLevel").section("vol", 0, 0).section(" ", -1).toDouble(), level,
                    0.01)
            << m;
        EXPECT_NEAR(shareOf(TankDrawing::liquidColour()), level, 0.5) << m;
        EXPECT_NEAR(shareOf(TankDrawing::vapourColour()), 100 - level, 0.5) << m;
    }
    EXPECT_EQ(read("frmKessel"), "Tank Calculation (global method) ");
    EXPECT_EQ(read("fraTank"), "Cylinder shaped tank");
    EXPECT_EQ(read("lblTankLower"), "  L-phase");
    EXPECT_EQ(read("lblTankUpper"), "  V-phase");
    EXPECT_EQ(read("lblTankP").section(' ', 0, 0), "p");
    EXPECT_NEAR(numberBehind("lblTankP", "p ="), saturation->p, 0.01);
}

TEST_F(TankViewTest, DrawsTheShareOfTheLiquidInThePartialMethod) {
    startProject("Carbon dioxide");
    drive::when("frmCalcIn", [] {
        click("optPartialBenson_1");
        click("OK");
    });
    choose("mnuCalc_16");
    for (const char* m : {"150", "300", "600", "800"}) {
        fill("1", m, "270");
        const double rhoL = static_cast<double>(session->results.current.record.rhoL);
        const double rhoV = static_cast<double>(session->results.current.record.rhoV);
        const double level = balance(1, QString(m).toDouble(), rhoL, rhoV);
        EXPECT_NEAR(report::tank_state_of(session->results.current).level, level, 0.01) << m;
        EXPECT_NEAR(shareOf(TankDrawing::liquidColour()), level, 0.5) << m;
    }
    EXPECT_EQ(read("frmKessel"), "Tank Calculation (partial method)");
}

TEST_F(TankViewTest, IsFullOfLiquidAboveItsDensityAndWithoutLiquidBelowThatOfTheVapour) {
    startProject("Carbon dioxide");
    choose("mnuCalc_15");
    fill("1", "1000", "270");
    EXPECT_EQ(read("lblTankLevel"), "Filling level 100.0vol.-%");
    EXPECT_GT(shareOf(TankDrawing::liquidColour()), 99.9);
    fill("1", "20", "270");
    EXPECT_EQ(read("lblTankLevel"), "Filling level 0.0vol.-%");
    EXPECT_GT(shareOf(TankDrawing::vapourColour()), 99.9);
}

TEST_F(TankViewTest, HasOneColourAboveTheCriticalTemperature) {
    startProject("Carbon dioxide");
    choose("mnuCalc_15");
    fill("1", "500", "320");
    EXPECT_EQ(read("lblTankLower"), " supercritical");
    EXPECT_EQ(read("lblTankUpper"), "");
    EXPECT_GT(shareOf(TankDrawing::supercriticalColour()), 99.9);
}

TEST_F(TankViewTest, IsFullWhenTheContentIsDenserThanTheEquationAllows) {
    startProject("Carbon dioxide");
    choose("mnuCalc_15");
    // Peng and Robinson's b of carbon dioxide is 0.0267 m^3/kmol, which is 1650 kg/m^3.
    fill("1", "2000", "280");
    EXPECT_EQ(session->results.current.answer.reason, calculation::Reason::belowCovolume);
    EXPECT_EQ(read("lblTankLevel"), "Error");
    EXPECT_EQ(read("lblTankP"), " Error: v <= b");
    EXPECT_GT(shareOf(TankDrawing::liquidColour()), 99.9);
}

TEST_F(TankViewTest, AFailedPartialTankIsNotDrawnAsAnEmptyOne) {
    startProject("Boron trifluoride");
    drive::when("frmCalcIn", [] { click("OK"); });
    choose("mnuCalc_16");
    fill("1", "500", "200");
    EXPECT_EQ(session->results.current.answer.reason, calculation::Reason::noTankLiquidDensity);
    EXPECT_EQ(read("lblTankLevel"), "Error");
    EXPECT_EQ(read("lblTankP"), " Error: no rho_L");
    EXPECT_LT(shareOf(TankDrawing::liquidColour()), 0.1);
    EXPECT_LT(shareOf(TankDrawing::vapourColour()), 0.1);
}

TEST_F(TankViewTest, TellsOfAVolumeBelowTheVirialCoefficient) {
    startProject("Carbon dioxide", [] { select("EOSKombi", "VIRIAL Equ. Pitzer / Curl"); });
    // The menu does not offer the global method of such an equation; a project may still hold it.
    EXPECT_FALSE(drive::offers("mnuCalc_15"));
    session.change()->calculation.task = calculation::Task::globalTank;
    session.change()->calculation.method.global = true;
    session::start_calculation(session, desk.calculationViews);
    // Far above the Boyle temperature B is positive, and the volume is 0.0088 m^3/kmol.
    fill("1", "5000", "2000");
    EXPECT_EQ(session->results.current.answer.reason, calculation::Reason::belowVirial);
    EXPECT_EQ(read("lblTankLevel"), "Error");
    EXPECT_EQ(read("lblTankP"), " Error: v < B");
    EXPECT_TRUE(isVisible("lblTankHint"));
    EXPECT_EQ(read("lblTankHint"), "cf. help \"Tank\"");
    EXPECT_EQ(read("lblTankLower"), "");
    EXPECT_LT(shareOf(TankDrawing::liquidColour()), 0.1);
}

TEST_F(TankViewTest, FollowsTheNextCalculationAndClosesByEscape) {
    startProject("Carbon dioxide");
    choose("mnuCalc_15");
    fill("1", "500", "280");
    const QString before = read("lblTankLevel");
    fill("1", "600", "280");
    EXPECT_NE(read("lblTankLevel"), before);
    EXPECT_TRUE(read("lblTankGiven").contains("m = 600 kg"));
    drive::press("frmKessel", Qt::Key_Escape);
    EXPECT_FALSE(isVisible("frmKessel"));
    EXPECT_TRUE(isVisible("frmCalcOut"));
    // The Calculation menu closes what is left of the last calculation.
    fill("1", "500", "280");
    choose("mnuCalc_11");
    EXPECT_FALSE(isVisible("frmKessel"));
}

}  // namespace
