#include <cmath>

#include "common/constants.h"
#include "diagrams/diagram_rows.h"
#include "diagrams/sheet_support.h"
#include "diagrams/sheet_undo.h"

namespace {

using constants::R;
using diagrams::Axis;

// ---- all that a new diagram needs: the function of its curves and a row

/// p v over v along an isotherm.
void isotherm_pv_v(diagrams::CurveFrame& c) {
    diagrams::Steps loop = diagrams::Steps::plain(c.x_min, c.x_max, c.dx);
    for (double x; loop.next(x);) {
        if (x <= 0) continue;
        if (const auto p = c.pressure(c.T, x / c.v_factor))
            c.add(x, *p * c.p_factor * x, c.T * c.T_factor);
    }
}

constexpr diagrams::Diagram kRow =
    diagrams::rows::isotherm({.code = 900}, "isothermal section pv-v", Axis::v, Axis::pv,
                             isotherm_pv_v)
        .in_menu("mnuGraf_sub_cut", 10, "isothermal pv - v");

// ---- what every diagram can do

class NewDiagram : public Sheet {
  protected:
    NewDiagram() {
        prepared = diagrams::prepare_diagram(kRow, basis(), {.limits = limits});
        sheet = diagrams::open_sheet(prepared.request, basis(), prepared.start.at);
        sheet.at.T = 400;
    }

    /// At 400 K propane is above its critical point: p of the equation of state itself.
    void expect_points_of_the_equation(const chart::Series& series) const {
        ASSERT_GT(series.x.size(), 50U);
        for (std::size_t i = 0; i < series.x.size(); ++i) {
            const auto v = static_cast<double>(series.x[i]);
            const double pv = pressure(400, v) * v;
            EXPECT_NEAR(static_cast<double>(series.y[i]), pv, 1e-4 * std::fabs(pv)) << v;
        }
    }

    diagrams::PreparedDiagram prepared;
};

TEST_F(NewDiagram, StandsOutsideTheTable) {
    EXPECT_EQ(diagrams::find_diagram(kRow.code), nullptr);
}

TEST_F(NewDiagram, OpensWithWindowAndTextsOfItsAxes) {
    EXPECT_EQ(prepared.request.texts.title, "isothermal section pv-v");
    EXPECT_EQ(prepared.request.texts.x, "v / (m^3/kmol)");
    EXPECT_EQ(prepared.request.texts.y, "pv / (kPa*m^3/kmol)");
    EXPECT_EQ(prepared.request.window.x_min, limits.v_min);
    EXPECT_EQ(prepared.request.window.y_max, limits.pv_max);
    EXPECT_EQ(diagrams::input_of(kRow), diagrams::DiagramInput::parameter);
    EXPECT_TRUE(diagrams::opening_answer(kRow, fluid()).opens);
    EXPECT_EQ(kRow.axis_pair, "yv");
}

TEST_F(NewDiagram, HasItsCurveComputed) {
    const diagrams::StateParameters at = sheet.at;
    const Drawn drawn = Draw(prepared.request, at);
    EXPECT_EQ(drawn.result.status, 0) << drawn.result.message;
    ASSERT_GT(drawn.count(), 50U);
    EXPECT_EQ(drawn.parameter, diagrams::Parameter::T);
    // The dilute gas is ideal.
    diagrams::DiagramRequest wide = prepared.request;
    wide.window = {1e5F, 2e5F, 0, 1e4F};
    const Drawn dilute = Draw(wide, at);
    ASSERT_GT(dilute.count(), 50U);
    for (const diagrams::CurvePoint& point : dilute.points())
        EXPECT_NEAR(static_cast<double>(point.y), R * 400, 1e-3 * R * 400);
}

TEST_F(NewDiagram, IsDrawnNamedAndTakenBackOnItsSheet) {
    ASSERT_TRUE(diagrams::draw(sheet, pen()));
    ASSERT_EQ(diagrams::curve_count(sheet), 1);
    expect_points_of_the_equation(curve(0));
    EXPECT_EQ(curve(0).legend, "(400.0 K ) ");
    EXPECT_TRUE(diagrams::undo(sheet));
    EXPECT_EQ(diagrams::curve_count(sheet), 0);
}

}  // namespace
