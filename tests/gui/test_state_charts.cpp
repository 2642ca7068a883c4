#include "chart/line_labels.h"
#include "gui/calc_view_test.h"
#include "gui/chart/chart_qt.h"
#include "gui/diagrams/state_chart_window.h"
#include "models/unit_text.h"
#include "session/options.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;

class StateCharts : public CalcViewTest {
  protected:
    StateChartWindow* open(int kind) {
        choose(QString("mnuStateChart_%1").arg(kind));
        return drive::get<StateChartWindow>("frmStateChart");
    }
};

TEST_F(StateCharts, OneClickDrawsAWholeLabelledChartOfEachKind) {
    startProject("Water");
    const auto kinds = diagrams::state_chart_kinds();
    StateChartWindow* view = open(0);
    auto* box = drive::get<QComboBox>("cmbChart");
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        box->setCurrentIndex(static_cast<int>(i));
        emit box->activated(static_cast<int>(i));
        drive::settle();
        const chart::Chart2D& c = view->chart();
        EXPECT_EQ(c.header.text, "Water: " + std::string(kinds[i].title));
        EXPECT_EQ(c.y.logarithmic, kinds[i].y.logarithmic);
        const chart::Sheet2D sheet = chart::lay_out(c, 900, 640, chart::qtTextMeasure());
        EXPECT_GE(sheet.line_labels.size(), 3 * kinds[i].families.size()) << kinds[i].title;
        for (std::size_t a = 0; a < sheet.line_labels.size(); ++a) {
            for (const chart::SheetPoint& corner : sheet.line_labels[a].box)
                EXPECT_TRUE(sheet.plot.contains(corner.x, corner.y)) << kinds[i].title;
            for (std::size_t b = 0; b < a; ++b)
                EXPECT_FALSE(chart::overlap(sheet.line_labels[a].box, sheet.line_labels[b].box));
        }
        EXPECT_GE(chart::legend_entries(c).size(), kinds[i].families.size() + 1);
    }
    EXPECT_TRUE(user.messages.empty()) << "no question is asked";
}

TEST_F(StateCharts, ThePointerReadsTheStateUnderIt) {
    startProject("Propane");
    StateChartWindow* view = open(0);  // log p, h
    const models::Flash flash(session.fluid(), session::present_reference(session));
    const auto wanted = flash({models::Property::T, 300}, {models::Property::x, 0.25});
    ASSERT_TRUE(wanted);
    auto* canvas = view->findChild<chart::Chart2DWidget*>("chart");
    const QPointF place = canvas->pixelOf(wanted->values->h, wanted->p);
    EXPECT_FALSE(place.isNull());
    const auto state =
        diagrams::state_at(flash, diagrams::ChartKind::logph, wanted->values->h, wanted->p, {});
    ASSERT_TRUE(state);
    EXPECT_NEAR(state->T, 300, 1e-6);
    const std::string text = diagrams::state_text(*state, {});
    EXPECT_NE(text.find("T = 300 K"), std::string::npos) << text;
    EXPECT_NE(text.find("two phases, x = 0.25"), std::string::npos) << text;
}

TEST_F(StateCharts, FollowModelUnitsAndFamilies) {
    startProject("Propane");
    StateChartWindow* view = open(1);  // T, s
    const chart::Chart2D molar = view->chart();
    EXPECT_EQ(molar.y.title, "T / K");
    ASSERT_TRUE(session::apply_units(session, *models::read_choice("metric")));
    drive::settle();
    EXPECT_EQ(view->chart().y.title, "T / degC");
    EXPECT_EQ(view->chart().x.title, "s / (kJ/(kg K))");
    ASSERT_TRUE(session::apply_units(session, {}));
    drive::settle();
    EXPECT_EQ(view->chart(), molar) << "back without a trace";
    const std::size_t curves = molar.curves.size();
    click("chkFamily_h");
    EXPECT_LT(view->chart().curves.size(), curves);
    EXPECT_FALSE(drive::isEnabled("chkFamily_T")) << "an axis is no family";
    click("chkFamily_h");
    EXPECT_EQ(view->chart(), molar);
}

TEST_F(StateCharts, WithoutHeatCapacityAChartOfEntropySaysSo) {
    startProject("Propylene glycol");
    StateChartWindow* view = open(1);
    EXPECT_TRUE(view->chart().curves.empty());
    EXPECT_NE(view->chart().header.text.find("heat capacity"), std::string::npos)
        << view->chart().header.text;
}

}  // namespace
