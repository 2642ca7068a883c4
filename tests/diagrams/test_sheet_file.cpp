#include "diagrams/sheet_file.h"
#include "diagrams/sheet_labels.h"

#include <fstream>
#include <sstream>

#include "chart/chart_file.h"
#include "common/numbers.h"
#include "common/whole_file.h"
#include "diagrams/curve.h"
#include "diagrams/sheet_delete.h"
#include "diagrams/sheet_draw.h"
#include "diagrams/sheet_marks.h"
#include "diagrams/sheet_points.h"
#include "diagrams/sheet_support.h"
#include "diagrams/sheet_window.h"

using namespace quor;

namespace {

using diagrams::LoadOutcome;

class SheetFile : public Sheet {
  protected:
    SheetFile() {
        sheet.at.T = 300;
        open(1);
        folder2D = folder().string() + "/";
    }
    bool save() {
        const auto saved =
            diagrams::save_oc2(sheet, folder2D, diagrams::proposed_file(sheet, "Propane"));
        if (saved) folder2D = paths::folder_of(*saved);
        return saved.has_value();
    }
    LoadOutcome load() {
        const diagrams::LoadAnswer answer = diagrams::load_oc2(sheet, folder2D, notePending);
        notePending = false;
        folder2D = answer.folder;
        return answer.outcome;
    }
    std::string folder2D;
    bool notePending = true;
    std::string path(const char* name) const { return (folder() / name).string(); }
    std::string read(const std::string& file) {
        std::ifstream in(file, std::ios::binary);
        std::ostringstream all;
        all << in.rdbuf();
        return all.str();
    }
    void write(const std::string& file, const std::string& text) {
        std::ofstream(file, std::ios::binary) << text;
    }
};

TEST_F(SheetFile, LoadsWhatItSaved) {
    diagrams::draw(sheet, pen());
    diagrams::mark_coexistence(sheet, pen());
    diagrams::mark_volume(sheet, pen());
    diagrams::mark_critical_point(sheet, pen(), true);
    diagrams::store_point_set(sheet, {1, 2}, {3, 4}, "measured");
    diagrams::delete_curve(sheet, 2);
    const chart::Chart2D before = sheet.chart;
    user.fileAnswers = {path("a.oc2"), path("a.oc2")};
    ASSERT_TRUE(save());
    EXPECT_EQ(user.files[0].title, "Save this 2D-diagram design");
    EXPECT_EQ(user.files[0].filter, "picture file (*.oc2)|*.oc2");
    EXPECT_EQ(user.files[0].name, "Propane p-v.oc2");
    EXPECT_EQ(folder2D, folder().string() + "/");

    open(1);
    ASSERT_EQ(load(), LoadOutcome::Loaded);
    EXPECT_EQ(user.files[1].title, "Load a saved pattern (*.oc2)");
    EXPECT_TRUE(sheet.chart == before);
    EXPECT_EQ(diagrams::curve_count(sheet), 2);
    EXPECT_TRUE(is_free(1));
    EXPECT_FALSE(is_free(2));
    EXPECT_EQ(diagrams::point_set_count(sheet), 1);
    EXPECT_TRUE(diagrams::has_marker_labels(sheet));
    EXPECT_TRUE(diagrams::has_critical_point(sheet, true));
    EXPECT_FALSE(diagrams::has_critical_point(sheet, false));
    EXPECT_TRUE(sheet.manual_scaling);
    // No parameter is known after a load.
    EXPECT_EQ(parameter(0, 1), 0);
    EXPECT_EQ(sheet_curve(0).parameter, diagrams::Parameter::none);
    // The next curve goes to the lowest free slot, in the loaded window.
    diagrams::draw(sheet, pen());
    EXPECT_FALSE(is_free(1));
}

TEST_F(SheetFile, ShowsItsNoteOnce) {
    ASSERT_TRUE(files::write_whole(path("a.oc2"), chart::to_text(sheet.chart)));
    user.fileAnswers = {path("a.oc2"), path("a.oc2")};
    load();
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastTitle(), "Single Note");
    EXPECT_EQ(user.lastText().substr(0, 44), "If you intend to continue the designing of t");
    load();
    EXPECT_EQ(user.messages.size(), 1U);
}

TEST_F(SheetFile, TakesTheWindowOfTheFile) {
    sheet.chart.x.min = 1;
    sheet.chart.x.max = 2;
    sheet.chart.y.min = 3;
    sheet.chart.y.max = 4;
    ASSERT_TRUE(files::write_whole(path("a.oc2"), chart::to_text(sheet.chart)));
    open(1);
    ASSERT_EQ(diagrams::load_oc2(sheet, path("a.oc2")).outcome, LoadOutcome::Loaded);
    EXPECT_EQ(sheet.request.window.x_min, 1);
    EXPECT_EQ(sheet.request.proposed.x_max, 2);
    EXPECT_EQ(sheet.request.proposed.y_min, 3);
    EXPECT_EQ(sheet.request.window.y_max, 4);
}

TEST_F(SheetFile, TakesAllCurvesAndPointsOfALargeFile) {
    for (int i = 0; i < 30; ++i) {
        diagrams::NewCurve drawn = points_on_line(3);
        drawn.name = {"legend " + std::to_string(i), "label " + std::to_string(i)};
        diagrams::store_curve(sheet, std::move(drawn), 1e9F);
    }
    for (int i = 0; i < 14; ++i) diagrams::store_point_set(sheet, {1}, {2}, "set");
    diagrams::mark_volume(sheet, pen());
    diagrams::mark_critical_point(sheet, pen(), true);
    diagrams::mark_critical_point(sheet, pen(), false);
    const chart::Chart2D before = sheet.chart;
    ASSERT_TRUE(files::write_whole(path("many.oc2"), chart::to_text(sheet.chart)));
    open(1);
    ASSERT_EQ(diagrams::load_oc2(sheet, path("many.oc2")).outcome, LoadOutcome::Loaded);
    EXPECT_TRUE(sheet.chart == before);
    EXPECT_EQ(diagrams::curve_count(sheet), 30);
    EXPECT_EQ(diagrams::point_set_count(sheet), 14);
    EXPECT_TRUE(diagrams::has_reference_lines(sheet));
    EXPECT_TRUE(diagrams::has_critical_point(sheet, true));
    EXPECT_TRUE(diagrams::has_critical_point(sheet, false));
    EXPECT_EQ(store(points_on_line(3)), 30);
}

TEST_F(SheetFile, LoadsADiagramWhoseCurvesAreAllDeleted) {
    diagrams::draw(sheet, pen());
    diagrams::delete_curve(sheet, 0);
    sheet.chart.labels.clear();
    ASSERT_TRUE(files::write_whole(path("empty.oc2"), chart::to_text(sheet.chart)));
    ASSERT_EQ(diagrams::load_oc2(sheet, path("empty.oc2")).outcome, LoadOutcome::Loaded);
    EXPECT_EQ(diagrams::curve_count(sheet), 0);
    EXPECT_FALSE(diagrams::has_anything(sheet));
}

TEST_F(SheetFile, UndoesTheSwapBeforeALoad) {
    ASSERT_TRUE(files::write_whole(path("a.oc2"), chart::to_text(sheet.chart)));
    diagrams::change_xy(sheet);
    user.fileAnswers = {path("a.oc2")};
    ASSERT_EQ(load(), LoadOutcome::Loaded);
    EXPECT_FALSE(sheet.chart.swapped);
    EXPECT_EQ(sheet.chart.x.title, "v / (m^3/kmol)");
}

TEST_F(SheetFile, KeepsTheDiagramWhenTheDialogIsCancelled) {
    diagrams::draw(sheet, pen());
    user.fileAnswers = {std::nullopt};
    EXPECT_EQ(load(), LoadOutcome::Cancelled);
    EXPECT_EQ(diagrams::curve_count(sheet), 1);
}

TEST_F(SheetFile, ATurnedDiagramIsSavedAndShownAsItStands) {
    diagrams::draw(sheet, pen());
    diagrams::change_xy(sheet);
    const chart::Chart2D turned = sheet.chart;
    ASSERT_TRUE(files::write_whole(path("s.oc2"), chart::to_text(sheet.chart)));
    open(1);
    ASSERT_EQ(diagrams::load_oc2(sheet, path("s.oc2")).outcome, LoadOutcome::Loaded);
    EXPECT_TRUE(sheet.chart == turned);
    diagrams::change_xy(sheet);
    EXPECT_EQ(sheet.chart.x.title, "v / (m^3/kmol)");
    EXPECT_EQ(sheet.request.texts.x, "v / (m^3/kmol)");
}

TEST_F(SheetFile, AShiftedAndAHiddenLabelComeBack) {
    store(points_on_line(9));
    store(points_on_line(9));
    label_of(0) = {.text = "shifted", .shown = true, .shift = 0.25};
    label_of(1) = {.text = "hidden", .shown = false, .shift = 0.75};
    const chart::MeasureText measure = [](const std::string&, const chart::Font&) {
        return chart::TextSize{40, 10};
    };
    diagrams::place_labels(sheet, 600, 400, measure);
    ASSERT_TRUE(files::write_whole(path("l.oc2"), chart::to_text(sheet.chart)));
    open(1);
    ASSERT_EQ(diagrams::load_oc2(sheet, path("l.oc2")).outcome, LoadOutcome::Loaded);
    EXPECT_EQ(label_of(0), (chart::CurveLabel{"shifted", true, 0.25}));
    EXPECT_EQ(label_of(1), (chart::CurveLabel{"hidden", false, 0.75}));
}

TEST_F(SheetFile, RefusesDamagedFilesWithAReason) {
    diagrams::draw(sheet, pen());
    ASSERT_TRUE(files::write_whole(path("good.oc2"), chart::to_text(sheet.chart)));
    const std::string good = read(path("good.oc2"));
    const chart::Chart2D before = sheet.chart;
    const std::vector<std::string> damaged = {"", "no chart", good.substr(0, good.size() / 2), "{}",
                                              "[1,2,3]"};
    for (const std::string& text : damaged) {
        write(path("bad.oc2"), text);
        EXPECT_EQ(diagrams::load_oc2(sheet, path("bad.oc2")).outcome, LoadOutcome::Failed);
        EXPECT_NE(user.lastText().find("bad.oc2"), std::string::npos);
        EXPECT_TRUE(sheet.chart == before);
    }
    EXPECT_EQ(diagrams::load_oc2(sheet, path("missing.oc2")).outcome, LoadOutcome::Failed);
}

TEST_F(SheetFile, TellsWhyItCannotSave) {
    user.fileAnswers = {path("no/such/folder/a.oc2")};
    EXPECT_FALSE(save());
    EXPECT_EQ(user.lastTitle(), "ERROR");
    EXPECT_FALSE(user.lastText().empty());
}

TEST_F(SheetFile, GivesTheShownPointsOfACurve) {
    sheet.request.window.x_max = 100;
    store(points_on_line(3));
    sheet.chart.curves[0].y[1] = chart::kHole;
    const diagrams::CurvePoints points = diagrams::shown_points(sheet, 0);
    ASSERT_EQ(points.size(), 2U);
    EXPECT_EQ(points[0].y, 2);
    EXPECT_EQ(points[1].x, 3);
    EXPECT_TRUE(diagrams::shown_points(sheet, 5).empty());
}

TEST_F(SheetFile, CopiesACurveAsATable) {
    sheet.request.window.x_max = 100;
    diagrams::NewCurve named = points_on_line(2, 300.5F, diagrams::Parameter::T);
    named.name = {"curve", "beside it"};
    store(named);
    EXPECT_EQ(diagrams::curve_table(sheet, 0),
              "curve\nv / (m^3/kmol)\tp / kPa\tT/K\n1\t2\t300.5\n2\t4\t300.5\n");
    numbers::set_decimal_mark(',');
    EXPECT_EQ(diagrams::curve_table(sheet, 0),
              "curve\nv / (m^3/kmol)\tp / kPa\tT/K\n1\t2\t300,5\n2\t4\t300,5\n");
    numbers::set_decimal_mark('.');
    EXPECT_EQ(diagrams::curve_table(sheet, 1), "");
}

// ---------------------------------------------------------------------------- experimental points

class SheetPoints : public SheetFile {
  protected:
    static constexpr diagrams::MeasuredState kState{300, 500, 10, 0, 0, 0};
    static constexpr diagrams::MeasuredState kSaturated{300, 998, 21, 490, 14600, 120};

    diagrams::MeasuredPoints map_measured(int code) const {
        return diagrams::map_measured(diagrams::diagram_of(code), basis(), data, 300);
    }
    bool add() { return diagrams::add_measured_points(sheet, pen(), data, "file.BAQ"); }

    std::vector<diagrams::MeasuredState> data{kState};
};

TEST_F(SheetPoints, MapsStatesToTheAxesOfTheSections) {
    const auto M = static_cast<float>(substance.M);
    struct Expected {
        int code;
        float x, y;
    };
    for (const Expected& e :
         {Expected{1, M / 10, 500}, Expected{2, 500, 50 * M}, Expected{26, 500, 10},
          Expected{3, M / 10, 300}, Expected{4, 10, 300}, Expected{5, 300, 500},
          Expected{9, 300, 500}, Expected{10, 1 / 300.0F, std::log(500.0F)},
          Expected{307, 300, 500}}) {
        const diagrams::MeasuredPoints p = map_measured(e.code);
        ASSERT_EQ(p.x.size(), 1U) << e.code;
        EXPECT_FLOAT_EQ(p.x[0], e.x) << e.code;
        EXPECT_FLOAT_EQ(p.y[0], e.y) << e.code;
    }
}

TEST_F(SheetPoints, MapsBothDensitiesOfTheEquilibrium) {
    data = {kSaturated};
    const diagrams::MeasuredPoints p = map_measured(8);
    EXPECT_EQ(p.x, (std::vector<float>{300, 300}));
    EXPECT_EQ(p.y, (std::vector<float>{21, 490}));
    EXPECT_EQ(map_measured(6).x.size(), 2U);
    // Sections showed the vapour alone where a set has both.
    EXPECT_EQ(map_measured(4).x, (std::vector<float>{21, 490}));
    EXPECT_EQ(map_measured(1).x.size(), 2U);
    EXPECT_EQ(map_measured(300).y, (std::vector<float>{490}));
    EXPECT_EQ(map_measured(13).y, (std::vector<float>{14600}));
    EXPECT_EQ(map_measured(305).y, (std::vector<float>{14600}));
    EXPECT_EQ(map_measured(19).y, (std::vector<float>{120}));
    EXPECT_EQ(map_measured(154).x, (std::vector<float>{998}));
    EXPECT_TRUE(map_measured(15).x.empty());
}

TEST_F(SheetPoints, LeavesOutMissingValues) {
    diagrams::MeasuredState withoutT = kState;
    withoutT.T = 0;
    data = {withoutT, kState};
    EXPECT_EQ(map_measured(5).x.size(), 1U);
}

TEST_F(SheetPoints, AddsDataInTheWindowOnly) {
    ASSERT_TRUE(add() || hasMessage("No experimental points in this range of the diagram "));
    diagrams::delete_point_set(sheet, 0);
    diagrams::set_coordinates(sheet, {{4, 5}, {0, 1000}});
    ASSERT_TRUE(add());
    EXPECT_EQ(diagrams::point_set_count(sheet), 1);
    EXPECT_EQ(sheet.chart.points[0].legend, "file.BAQ");
    diagrams::set_coordinates(sheet, {{5, 6}, {0, 1000}});
    EXPECT_FALSE(add());
    EXPECT_EQ(user.lastText(), "No experimental points in this range of the diagram ");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(diagrams::point_set_count(sheet), 1);
}

TEST_F(SheetPoints, TakesPointsAndCurveFromTheEditor) {
    EXPECT_FALSE(diagrams::add_editor_points(sheet, {}, {}, ""));
    ASSERT_TRUE(diagrams::add_editor_points(sheet, {1}, {2}, "from paper"));
    EXPECT_EQ(sheet.chart.points[0].legend, "from paper");
    sheet.request.window.x_max = 100;
    ASSERT_TRUE(diagrams::add_editor_curve(sheet, {1, 3}, {2, 4}, "  "));
    EXPECT_EQ(curve(0).y, (std::vector<float>{2, 4}));
    EXPECT_EQ(curve(0).legend, "manual data input");
    EXPECT_EQ(label_of(0).text, "");
}

}  // namespace
