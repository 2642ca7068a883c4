#include <gtest/gtest.h>

#include "chart/chart_file.h"
#include "chart/ticks.h"
#include "diagrams/sheet_file.h"
#include "diagrams/sheet_labels.h"
#include "diagrams/sheet_marks.h"
#include "diagrams/sheet_names.h"
#include "diagrams/sheet_points.h"
#include "diagrams/sheet_readout.h"
#include "diagrams/sheet_support.h"
#include "diagrams/sheet_undo.h"
#include "diagrams/sheet_units.h"
#include "diagrams/sheet_window.h"
#include "models/unit_text.h"

namespace {

constexpr int kPv = 1, kPT = 5, kLnpInverseT = 10, kHp = 150;

models::UnitChoice set_of(const char* text) {
    return models::read_choice(text).value();
}

class SheetUnits : public Sheet {
  protected:
    /// An isotherm of propane at 300 K with marks, a free text and points, and two steps before.
    void draw_a_sheet(int code = kPv) {
        sheet.at = {300, 800, 2};
        open(code);
        ASSERT_TRUE(diagrams::draw(sheet, pen()));
        diagrams::mark_critical_point(sheet, pen(), true);
        diagrams::mark_temperatures(sheet, pen());
        diagrams::mark_volume(sheet, pen());
        diagrams::add_text(sheet, "here");
        diagrams::add_editor_points(sheet, {1, 2}, {500, 600}, "points");
    }
    void change(const char* text) {
        const Result<void> changed = diagrams::change_units(sheet, set_of(text));
        EXPECT_TRUE(changed) << (changed ? "" : changed.reason());
    }
    double M() const { return static_cast<double>(substance.M); }
    const chart::Label* label(const std::string& text) const {
        for (const chart::Label& l : sheet.chart.labels)
            if (l.text == text) return &l;
        return nullptr;
    }
};

TEST_F(SheetUnits, PointsWindowTextsAndMarksFollow) {
    draw_a_sheet();
    const chart::Chart2D before = sheet.chart;
    ASSERT_NE(label("here"), nullptr);
    const double place_of_text = label("here")->y;
    change("metric");
    const chart::Series &a = before.curves[0], &b = curve(0);
    ASSERT_EQ(a.x.size(), b.x.size());
    for (std::size_t i = 0; i < a.x.size(); ++i) {
        if (!chart::is_shown(a.y[i])) continue;
        EXPECT_FLOAT_EQ(b.x[i], static_cast<float>(static_cast<double>(a.x[i]) / M()));
        EXPECT_FLOAT_EQ(b.y[i], static_cast<float>(static_cast<double>(a.y[i]) / 100));
    }
    EXPECT_EQ(sheet.chart.x.title, "v / (m^3/kg)");
    EXPECT_EQ(sheet.chart.y.title, "p / bar");
    EXPECT_DOUBLE_EQ(sheet.chart.y.max, before.y.max / 100);
    EXPECT_FLOAT_EQ(sheet.request.window.y_max, static_cast<float>(before.y.max / 100));
    EXPECT_EQ(curve(0).legend, "(26.85 degC ) ");
    EXPECT_EQ(curve(0).label.text, "26.85 degC ");
    const auto place = static_cast<std::size_t>(diagrams::critical_point_place(sheet, true));
    EXPECT_FLOAT_EQ(sheet.chart.points[place].y[0], static_cast<float>(substance.pcrit / 100));
    EXPECT_FLOAT_EQ(sheet.chart.points[0].y[1], 6);
    ASSERT_NE(label("here"), nullptr);
    EXPECT_DOUBLE_EQ(label("here")->y, place_of_text / 100);
    EXPECT_EQ(diagrams::readout(sheet, {chart::Group::Curves, 0, 3, 0}).substr(0, 4), " X= ");
}

TEST_F(SheetUnits, ASwitchThroughAllSetsAndBackFindsTheSameNumbersAndTexts) {
    for (const int code : {kPv, kPT, kLnpInverseT, kHp}) {
        draw_a_sheet(code);
        if (HasFatalFailure()) return;
        const diagrams::DiagramSheet before = sheet;
        for (const char* next : {"metric", "us", "T=degC,p=bar(g)", "reduced", "chemistry",
                                 "specific", "us", "metric", "molar"})
            change(next);
        EXPECT_TRUE(sheet.chart == before.chart) << code;
        EXPECT_EQ(sheet.request.window, before.request.window) << code;
        EXPECT_EQ(sheet.request.proposed, before.request.proposed) << code;
        EXPECT_EQ(sheet.request.texts, before.request.texts) << code;
        EXPECT_EQ(sheet.curves[0].given, before.curves[0].given) << code;
        EXPECT_EQ(sheet.given_footer, before.given_footer) << code;
        ASSERT_EQ(sheet.undo.size(), before.undo.size());
        for (std::size_t i = 0; i < sheet.undo.size(); ++i)
            EXPECT_TRUE(sheet.undo[i].before.chart == before.undo[i].before.chart)
                << code << " step " << i;
    }
}

TEST_F(SheetUnits, EachCurveIsConvertedForItsOwnFluid) {
    draw_a_sheet();
    activate("Water");
    const double M_water = M();
    ASSERT_GE(diagrams::draw_curve(sheet, pen()).place, 0);
    const chart::Chart2D before = sheet.chart;
    change("specific");
    const auto ratio = [&](std::size_t place) {
        const float x = before.curves[place].x[5];
        return static_cast<double>(x) / static_cast<double>(sheet.chart.curves[place].x[5]);
    };
    EXPECT_NEAR(ratio(1), M_water, 1e-5);
    EXPECT_NEAR(ratio(0), 44.096, 0.01);
}

TEST_F(SheetUnits, AStepTakenBackAfterASwitchIsInTheNewUnits) {
    draw_a_sheet();
    const std::size_t steps = sheet.undo.size();
    change("us");
    chart::Chart2D converted = sheet.chart;
    ASSERT_TRUE(diagrams::undo(sheet));
    EXPECT_EQ(sheet.undo.size(), steps - 1);
    EXPECT_TRUE(sheet.chart.points[0].x.empty());
    EXPECT_EQ(sheet.chart.y.title, "p / psi");
    EXPECT_EQ(curve(0).x, converted.curves[0].x);
    ASSERT_TRUE(diagrams::redo(sheet));
    EXPECT_TRUE(sheet.chart == converted);
    change("molar");
    EXPECT_FLOAT_EQ(sheet.chart.points[0].y[1], 600);
    while (diagrams::undo(sheet)) {
    }
    EXPECT_EQ(sheet.chart.y.title, "p / kPa");
    EXPECT_EQ(diagrams::curve_count(sheet), 0);
}

TEST_F(SheetUnits, TheNextCurveIsDrawnInTheUnitsOfTheSheet) {
    draw_a_sheet();
    change("us");
    sheet.at.T = 350;
    ASSERT_GE(diagrams::draw_curve(sheet, pen()).place, 0);
    EXPECT_EQ(curve(1).legend, "(170.33 degF ) ");
    // The same curve in the default units, converted.
    diagrams::DiagramSheet molar = sheet;
    ASSERT_TRUE(diagrams::change_units(molar, {}));
    const chart::Series& c = molar.chart.curves[1];
    const auto i = c.x.size() / 2;
    EXPECT_NEAR(static_cast<double>(c.y[i]), pressure(350, static_cast<double>(c.x[i])),
                1e-5 * static_cast<double>(c.y[i]));
}

TEST_F(SheetUnits, WhatTheUserHasWrittenStays) {
    draw_a_sheet();
    sheet.chart.header.text = "my title in kPa";
    sheet.chart.x.title = "volume";
    sheet.chart.footer.text = "my footer";
    sheet.chart.curves[0].legend = "300.0 K, mine";
    sheet.chart.curves[0].line.width = 3;
    change("metric");
    EXPECT_EQ(sheet.chart.header.text, "my title in kPa");
    EXPECT_EQ(sheet.chart.x.title, "volume");
    EXPECT_EQ(sheet.chart.y.title, "p / bar");
    EXPECT_EQ(sheet.chart.footer.text, "my footer");
    EXPECT_EQ(curve(0).legend, "300.0 K, mine");
    EXPECT_EQ(curve(0).line.width, 3);
}

TEST_F(SheetUnits, ATurnedSheetIsConvertedAsItStands) {
    draw_a_sheet();
    diagrams::change_xy(sheet);
    const chart::Chart2D before = sheet.chart;
    change("metric");
    EXPECT_TRUE(sheet.chart.swapped);
    EXPECT_EQ(sheet.chart.x.title, "p / bar");
    EXPECT_DOUBLE_EQ(sheet.chart.x.max, before.x.max / 100);
    EXPECT_FLOAT_EQ(curve(0).x[7], before.curves[0].x[7] / 100);
    change("molar");
    EXPECT_TRUE(sheet.chart == before);
}

TEST_F(SheetUnits, TicksOfOnesOwnBecomeRoundInTheNewUnitAndComeBack) {
    draw_a_sheet();
    diagrams::set_scaling(sheet, 1, {.y_tick = 500, .y_digits = 2});
    change("p=kPa(g)");
    EXPECT_EQ(sheet.chart.y.tick_spacing, 500) << "only the zero differs";
    EXPECT_EQ(sheet.chart.y.decimals, 2);
    change("us");
    EXPECT_EQ(sheet.chart.y.tick_spacing, 100);  // 72.5 psi
    EXPECT_EQ(sheet.chart.y.decimals, -1);
    change("molar");
    EXPECT_EQ(sheet.chart.y.tick_spacing, 500);
    EXPECT_EQ(sheet.chart.y.decimals, 2);
}

TEST_F(SheetUnits, ALineAcrossTheWindowStillBeginsFarOutside) {
    draw_a_sheet(kPT);
    change("T=degC,p=bar(g)");
    int lines = 0;
    for (const chart::Series& line : sheet.chart.curves) {
        if (!line.is_reference) continue;
        ++lines;
        EXPECT_TRUE(diagrams::is_far(line.y[0])) << line.y[0];
        EXPECT_GE(static_cast<double>(line.y[1]), sheet.chart.y.max - 1e-3);
        if (line.legend == "T(cr)") {
            EXPECT_FLOAT_EQ(line.x[0], static_cast<float>(substance.Tcrit - 273.15));
        }
    }
    EXPECT_GE(lines, 2);
}

TEST_F(SheetUnits, WithoutAFluidWhatNeedsNoneIsConvertedAndTheRestIsRefusedInWords) {
    draw_a_sheet();
    chart::Chart2D saved = sheet.chart;
    diagrams::DiagramSheet loaded;
    loaded.request.diagram = sheet.request.diagram;
    diagrams::take_loaded_chart(loaded, saved);
    const Result<void> refused = diagrams::change_units(loaded, set_of("metric"));
    ASSERT_FALSE(refused);
    EXPECT_NE(refused.reason().find("molar mass"), std::string::npos) << refused.reason();
    EXPECT_TRUE(loaded.chart == saved);
    ASSERT_TRUE(diagrams::change_units(loaded, set_of("chemistry")));
    EXPECT_EQ(loaded.chart.x.title, "v / (cm^3/mol)");
    EXPECT_FLOAT_EQ(loaded.chart.curves[0].x[4], saved.curves[0].x[4] * 1000);
    EXPECT_EQ(loaded.chart.y.title, "p / MPa");
}

TEST_F(SheetUnits, ValuesOnRTKeepTheirUnitsAndSayWhy) {
    units.caloric = models::CaloricUnit::RT;
    sheet.at = {300, 800, 2};
    open(kHp);
    ASSERT_TRUE(diagrams::draw(sheet, pen()));
    const chart::Chart2D before = sheet.chart;
    const Result<void> refused = diagrams::change_units(sheet, set_of("metric"));
    ASSERT_FALSE(refused);
    EXPECT_NE(refused.reason().find("T of each state"), std::string::npos) << refused.reason();
    EXPECT_TRUE(sheet.chart == before);
}

TEST_F(SheetUnits, ASavedSheetIsFoundAgainInItsUnits) {
    draw_a_sheet();
    change("us");
    const Result<std::string> written = chart::file_text(sheet.chart);
    ASSERT_TRUE(written);
    chart::Chart2D read;
    ASSERT_TRUE(chart::from_text(*written, read));
    diagrams::DiagramSheet other;
    other.request.diagram = sheet.request.diagram;
    diagrams::take_loaded_chart(other, read);
    EXPECT_EQ(other.chart.y.title, "p / psi");
    EXPECT_EQ(other.units, set_of("us"));
    ASSERT_TRUE(diagrams::change_units(other, set_of("T=degC,p=bar,v=ft^3/lb")));
    EXPECT_NEAR(static_cast<double>(other.chart.points[0].y[1]), 6, 1e-6);
}

TEST_F(SheetUnits, ParametersOfPointsAreReadInTheirUnit) {
    draw_a_sheet();
    change("metric");
    EXPECT_EQ(diagrams::parameter_caption(sheet, 0), " T/degC ");
    EXPECT_FLOAT_EQ(diagrams::shown_parameter_at(sheet, 0, 2), 26.85F);
    EXPECT_NE(diagrams::curve_table(sheet, 0).find("\tT/degC\n"), std::string::npos);
    change("molar");
    EXPECT_EQ(diagrams::parameter_caption(sheet, 0), "  T/K ");
}

TEST_F(SheetUnits, ReferencesInTheFooterAreToldInTheUnits) {
    draw_a_sheet(kHp);
    const std::string before = sheet.chart.footer.text;
    EXPECT_NE(before.find("298.15 K, 101.325 kPa"), std::string::npos) << before;
    change("metric");
    EXPECT_NE(sheet.chart.footer.text.find("25 degC, 1.01325 bar"), std::string::npos)
        << sheet.chart.footer.text;
    EXPECT_TRUE(sheet.chart.header.text.starts_with("specific")) << sheet.chart.header.text;
}

TEST_F(SheetUnits, TheMaximumOfASlopeInTheHeaderFollows) {
    open(11);  // dlnp / d(1/T)
    ASSERT_TRUE(diagrams::draw(sheet, pen()));
    const std::string before = sheet.chart.header.text;
    ASSERT_TRUE(sheet.T_of_maximum) << before;
    EXPECT_NE(before.find("maximum at"), std::string::npos);
    change("metric");
    models::Units celsius;
    celsius.choice = set_of("T=degC");
    celsius.scales[0] = {1, -273.15, "degC"};
    const std::string told = diagrams::maximum_text(sheet.T_of_maximum, celsius);
    EXPECT_TRUE(sheet.request.texts.title.ends_with(told)) << sheet.request.texts.title;
    EXPECT_NE(sheet.chart.header.text, before);
    change("molar");
    EXPECT_EQ(sheet.chart.header.text, before);
}

TEST_F(SheetUnits, ARangeOfValidityIsToldInTheUnit) {
    int told = 0;
    for (const diagrams::Diagram& row : diagrams::all_diagrams()) {
        if (row.section != diagrams::Section::database ||
            !diagrams::opening_answer(row, fluid()).opens)
            continue;
        open(row.code);
        ASSERT_TRUE(diagrams::draw(sheet, pen())) << row.code;
        const std::string before = sheet.chart.footer.text;
        change("us");
        EXPECT_TRUE(sheet.chart.footer.text.ends_with("degF")) << sheet.chart.footer.text;
        change("molar");
        EXPECT_EQ(sheet.chart.footer.text, before);
        ++told;
    }
    EXPECT_GT(told, 3);
}

}  // namespace
