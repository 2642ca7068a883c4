#include "diagrams/sheet_file.h"

#include <fstream>
#include <sstream>

#include "chart/chart_file.h"
#include "common/numbers.h"
#include "diagrams/curve.h"
#include "diagrams/sheet_draw.h"
#include "diagrams/sheet_marks.h"
#include "diagrams/sheet_points.h"
#include "diagrams/sheet_support.h"

using namespace quor;

namespace {

using legacy::the_session;
using Module9::LoadOutcome;

class SheetFile : public Sheet {
  protected:
    SheetFile() {
        the_session.DiagramT = 300;
        open(1);
    }
    std::string path(const char* name) const { return (folder() / name).string(); }
    static std::string read(const std::string& file) {
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
    Module9::Draw(sheet);
    Module9::mark_coexistence(sheet);
    Module9::mark_volume(sheet);
    Module9::mark_critical_point(sheet, true);
    Module9::store_point_set(sheet, {1, 2}, {3, 4}, "measured");
    Module9::delete_curve(sheet, 2);
    const chart::Chart2D before = sheet.chart;
    user.fileAnswers = {path("a.oc2"), path("a.oc2")};
    ASSERT_TRUE(Module9::save_oc2(sheet));
    EXPECT_EQ(user.files[0].title, "Save this 2D-diagram design");
    EXPECT_EQ(user.files[0].filter, "picture file (*.oc2)|*.oc2");
    EXPECT_EQ(the_session.FolderDiagram2D, folder().string() + "/");

    open(1);
    ASSERT_EQ(Module9::load_oc2(sheet), LoadOutcome::Loaded);
    EXPECT_EQ(user.files[1].title, "Load a saved pattern (*.oc2)");
    EXPECT_TRUE(sheet.chart == before);
    EXPECT_EQ(sheet.CurveCount, 2);
    EXPECT_TRUE(sheet.CurveFree[1]);
    EXPECT_FALSE(sheet.CurveFree[2]);
    EXPECT_EQ(sheet.PointSetCount, 1);
    EXPECT_TRUE(Module9::has_marker_labels(sheet));
    EXPECT_TRUE(Module9::has_critical_point(sheet, true));
    EXPECT_FALSE(Module9::has_critical_point(sheet, false));
    EXPECT_TRUE(sheet.manualScaling);
    // No parameter is known after a load.
    EXPECT_EQ(sheet.CurveParameters[0][1], 0);
    EXPECT_EQ(sheet.CurveMarks[0], 0);
    // The next curve goes to the lowest free slot, in the loaded window.
    Module9::Draw(sheet);
    EXPECT_FALSE(sheet.CurveFree[1]);
}

TEST_F(SheetFile, ShowsItsNoteOnce) {
    chart::save_chart(sheet.chart, path("a.oc2"));
    user.fileAnswers = {path("a.oc2"), path("a.oc2")};
    Module9::load_oc2(sheet);
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastTitle(), "Single Note");
    EXPECT_EQ(user.lastText().substr(0, 44), "If you intend to continue the designing of t");
    Module9::load_oc2(sheet);
    EXPECT_EQ(user.messages.size(), 1U);
}

TEST_F(SheetFile, TakesTheWindowOfTheFile) {
    sheet.chart.x.min = 1;
    sheet.chart.x.max = 2;
    sheet.chart.y.min = 3;
    sheet.chart.y.max = 4;
    chart::save_chart(sheet.chart, path("a.oc2"));
    open(1);
    ASSERT_EQ(Module9::load_oc2(sheet, path("a.oc2")), LoadOutcome::Loaded);
    EXPECT_EQ(sheet.request.xMin, 1);
    EXPECT_EQ(sheet.request.xMaxDefault, 2);
    EXPECT_EQ(sheet.request.yMinDefault, 3);
    EXPECT_EQ(sheet.request.yMax, 4);
}

TEST_F(SheetFile, TakesTheFirstTwentyFourCurvesOfALargerFile) {
    for (int i = 0; i < 30; ++i) {
        chart::Series& s = chart::series_at(sheet.chart, chart::Group::Curves, i);
        s.x = {1, 2};
        s.y = {1, static_cast<float>(i)};
    }
    for (int i = 0; i < 14; ++i) {
        chart::Series& s = chart::series_at(sheet.chart, chart::Group::Points, i);
        s.x = {1};
        s.y = {2};
    }
    chart::save_chart(sheet.chart, path("many.oc2"));
    ASSERT_EQ(Module9::load_oc2(sheet, path("many.oc2")), LoadOutcome::Loaded);
    EXPECT_EQ(sheet.CurveCount, 24);
    EXPECT_EQ(sheet.chart.curves.size(), 24U);
    EXPECT_EQ(sheet.PointSetCount, 12);
    EXPECT_EQ(Module9::store_curve(sheet, line(3)), -1);
    EXPECT_TRUE(hasMessage("Maximum 24 curves possible\nDelete existing curves"));
}

TEST_F(SheetFile, LoadsADiagramWhoseCurvesAreAllDeleted) {
    Module9::Draw(sheet);
    Module9::delete_curve(sheet, 0);
    sheet.chart.labels.clear();
    chart::save_chart(sheet.chart, path("empty.oc2"));
    ASSERT_EQ(Module9::load_oc2(sheet, path("empty.oc2")), LoadOutcome::Loaded);
    EXPECT_EQ(sheet.CurveCount, 0);
    EXPECT_FALSE(Module9::has_anything(sheet));
}

TEST_F(SheetFile, UndoesTheSwapBeforeALoad) {
    chart::save_chart(sheet.chart, path("a.oc2"));
    Module9::change_xy(sheet);
    user.fileAnswers = {path("a.oc2")};
    ASSERT_EQ(Module9::load_oc2(sheet), LoadOutcome::Loaded);
    EXPECT_FALSE(sheet.SwappedAxes);
    EXPECT_EQ(sheet.chart.x.title, "v / (m^3/kmol)");
}

TEST_F(SheetFile, KeepsTheDiagramWhenTheDialogIsCancelled) {
    Module9::Draw(sheet);
    user.fileAnswers = {std::nullopt};
    EXPECT_EQ(Module9::load_oc2(sheet), LoadOutcome::Cancelled);
    EXPECT_EQ(sheet.CurveCount, 1);
}

TEST_F(SheetFile, RecommendsNotToSaveTheSwappedState) {
    Module9::change_xy(sheet);
    user.answers = {dialogs::Answer::No};
    EXPECT_FALSE(Module9::save_oc2(sheet));
    EXPECT_EQ(user.lastText(),
              "Recommendation: Do not save the diagram in the rotated state (x<=>y).\nContinue?");
    EXPECT_TRUE(user.files.empty());
    user.answers = {dialogs::Answer::Yes};
    user.fileAnswers = {path("s")};
    EXPECT_TRUE(Module9::save_oc2(sheet));
    EXPECT_TRUE(std::filesystem::exists(path("s.oc2")));
}

TEST_F(SheetFile, RefusesDamagedFilesWithAReason) {
    Module9::Draw(sheet);
    chart::save_chart(sheet.chart, path("good.oc2"));
    const std::string good = read(path("good.oc2"));
    const chart::Chart2D before = sheet.chart;
    const std::vector<std::string> damaged = {"", "no chart", good.substr(0, good.size() / 2), "{}",
                                              "[1,2,3]"};
    for (const std::string& text : damaged) {
        write(path("bad.oc2"), text);
        EXPECT_EQ(Module9::load_oc2(sheet, path("bad.oc2")), LoadOutcome::Failed);
        EXPECT_NE(user.lastText().find("bad.oc2"), std::string::npos);
        EXPECT_TRUE(sheet.chart == before);
    }
    EXPECT_EQ(Module9::load_oc2(sheet, path("missing.oc2")), LoadOutcome::Failed);
}

TEST_F(SheetFile, TellsWhyItCannotSave) {
    user.fileAnswers = {path("no/such/folder/a.oc2")};
    EXPECT_FALSE(Module9::save_oc2(sheet));
    EXPECT_EQ(user.lastTitle(), "ERROR");
    EXPECT_FALSE(user.lastText().empty());
}

TEST_F(SheetFile, WritesACurveAsXY) {
    sheet.request.xMax = 100;
    Module9::store_curve(sheet, line(3));
    user.fileAnswers = {path("c.XY")};
    ASSERT_TRUE(Module9::save_curve(sheet, 0));
    EXPECT_EQ(read(path("c.XY")),
              "3 curve points\r\n.1000000E+01;.2000000E+01\r\n.2000000E+01;.4000000E+01\r\n"
              ".3000000E+01;.6000000E+01\r\n");
    EXPECT_FALSE(Module9::save_curve(sheet, 5));
}

TEST_F(SheetFile, CopiesACurveAsATable) {
    sheet.request.xMax = 100;
    Module9::store_curve(sheet, line(2, 300.5F, diagrams::kMarkT));
    EXPECT_EQ(Module9::curve_table(sheet, 0),
              "v / (m^3/kmol)\tp / kPa\tT/K\n1\t2\t300.5\n2\t4\t300.5\n");
    numbers::set_decimal_mark(',');
    EXPECT_EQ(Module9::curve_table(sheet, 0),
              "v / (m^3/kmol)\tp / kPa\tT/K\n1\t2\t300,5\n2\t4\t300,5\n");
    numbers::set_decimal_mark('.');
    EXPECT_EQ(Module9::curve_table(sheet, 1), "");
}

// ---------------------------------------------------------------------------- experimental points

class SheetPoints : public SheetFile {
  protected:
    static void data(std::vector<calculation::BatchDataSet> sets) {
        legacy::the_BatchData.resize(1);
        for (calculation::BatchDataSet& set : sets) legacy::the_BatchData.push_back(set);
        the_session.BatchCount = static_cast<std::int16_t>(sets.size());
    }
    static constexpr calculation::BatchDataSet kState{0, 300, 500, 10, 0, 0, 0};
    static constexpr calculation::BatchDataSet kSaturated{0, 300, 998, 21, 490, 14600, 120};
};

TEST_F(SheetPoints, MapsStatesToTheAxesOfTheSections) {
    data({kState});
    const auto M = static_cast<float>(legacy::the_substance.M);
    struct Expected {
        std::int16_t code;
        float x, y;
    };
    for (const Expected& e :
         {Expected{1, M / 10, 500}, Expected{2, 500, 50 * M}, Expected{26, 500, 10},
          Expected{3, M / 10, 300}, Expected{4, 10, 300}, Expected{5, 300, 500},
          Expected{9, 300, 500}, Expected{10, 1 / 300.0F, std::log(500.0F)},
          Expected{307, 300, 500}}) {
        const Module9::MeasuredPoints p = Module9::map_measured(e.code);
        ASSERT_EQ(p.x.size(), 1U) << e.code;
        EXPECT_FLOAT_EQ(p.x[0], e.x) << e.code;
        EXPECT_FLOAT_EQ(p.y[0], e.y) << e.code;
    }
}

TEST_F(SheetPoints, MapsBothDensitiesOfTheEquilibrium) {
    data({kSaturated});
    const Module9::MeasuredPoints p = Module9::map_measured(8);
    EXPECT_EQ(p.x, (std::vector<float>{300, 300}));
    EXPECT_EQ(p.y, (std::vector<float>{21, 490}));
    EXPECT_EQ(Module9::map_measured(6).x.size(), 2U);
    EXPECT_EQ(Module9::map_measured(300).y, (std::vector<float>{490}));
    EXPECT_EQ(Module9::map_measured(13).y, (std::vector<float>{14600}));
    EXPECT_EQ(Module9::map_measured(305).y, (std::vector<float>{14600}));
    EXPECT_EQ(Module9::map_measured(19).y, (std::vector<float>{120}));
    EXPECT_EQ(Module9::map_measured(154).x, (std::vector<float>{998}));
    EXPECT_TRUE(Module9::map_measured(15).x.empty());
}

TEST_F(SheetPoints, LeavesOutInactiveLinesAndMissingValues) {
    calculation::BatchDataSet inactive = kState, withoutT = kState;
    inactive.skip = -1;
    withoutT.T = 0;
    data({inactive, withoutT, kState});
    EXPECT_EQ(Module9::map_measured(5).x.size(), 1U);
    the_session.BatchCount = 500;  // never behind the data
    EXPECT_EQ(Module9::map_measured(5).x.size(), 1U);
}

TEST_F(SheetPoints, AddsDataInTheWindowOnly) {
    data({kState});
    ASSERT_TRUE(Module9::add_measured_points(sheet) ||
                hasMessage("No experimental points in this range of the diagram "));
    Module9::delete_point_set(sheet, 0);
    Module9::set_coordinates(sheet, {{4, 5}, {0, 1000}});
    ASSERT_TRUE(Module9::add_measured_points(sheet));
    EXPECT_EQ(sheet.PointSetCount, 1);
    Module9::set_coordinates(sheet, {{5, 6}, {0, 1000}});
    EXPECT_FALSE(Module9::add_measured_points(sheet));
    EXPECT_EQ(user.lastText(), "No experimental points in this range of the diagram ");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(sheet.PointSetCount, 1);
}

TEST_F(SheetPoints, TakesPointsAndCurveFromTheEditor) {
    legacy::the_xyPoints = {{1, 2, 0}};
    legacy::the_xyComment = "from paper";
    EXPECT_FALSE(Module9::add_editor_curve(sheet));
    EXPECT_EQ(user.lastText(), "at least two active points!");
    ASSERT_TRUE(Module9::add_editor_points(sheet));
    EXPECT_EQ(sheet.chart.points[0].legend, "from paper");
    legacy::the_xyPoints = {{1, 2, 0}, {2, 9, -1}, {3, 4, 0}};
    sheet.request.xMax = 100;
    ASSERT_TRUE(Module9::add_editor_curve(sheet));
    EXPECT_EQ(curve(0).y, (std::vector<float>{2, 4}));
    legacy::the_xyPoints.clear();
    EXPECT_FALSE(Module9::add_editor_points(sheet));
    EXPECT_EQ(user.lastText(), "at least one active point!");
}

}  // namespace
