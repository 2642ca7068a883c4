#include <fstream>
#include <iterator>

#include "app/open_file.h"
#include "gui/editor_drive.h"
#include "gui/graph_test.h"
#include "models/vapour_pressure.h"
#include "support/codes.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

namespace fs = std::filesystem;
using drive::choose;
using drive::click;
using drive::read;
using drive::type;
using drive::when;

/// A working day of one user.
class Day : public GraphTest {
  protected:
    std::string path(const char* name) const { return (folder() / name).string(); }
    static std::string content(const fs::path& file) {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    void options(std::initializer_list<const char*> clicks) {
        const std::vector<const char*> all(clicks);
        when("frmOptions", [all] {
            for (const char* name : all) click(name);
            click("cmdOK");
        });
        choose("mnuOptions");
    }
    void state(const char* T, const char* p) {
        type("par_0", T);
        type("par_1", p);
        click("cmdParameter_OK");
    }
};

TEST_F(Day, FromANewProjectToTheSameSessionOnTheNextMorning) {
    // Two states and their protocol.
    user.answers = {dialogs::Answer::No};
    choose("mnuCalc_2");
    state("300", "500");
    click("cmdProtokoll");
    state("310", "600");
    click("cmdProtokoll");
    click("cmdOpenNew");
    const std::string protocol = content(folder() / "26151101.CSV");
    EXPECT_NE(protocol.find("300;500;"), std::string::npos) << protocol;
    EXPECT_NE(protocol.find("310;600;"), std::string::npos) << protocol;

    // A diagram with marks and a process line, saved.
    openIsotherm("300");
    choose("mnuMarkKoex");
    choose("mnuMarkCritPointEx");
    when("frmInputProzessLinien", [] {
        type("par_0", "290");
        type("par_1", "500");
        type("par_2", "360");
        click("cmdDraw");
    });
    choose("mnuAddProcessLine_2");
    EXPECT_GE(diagrams::curve_count(sheet()), 3);
    user.fileAnswers = {path("day.oc2")};
    choose("mnuSaveOC2");
    EXPECT_TRUE(fs::exists(path("day.oc2")));
    choose("mnuHaupt");

    // Measured data against the model, as a list.
    open_file::open(desk, commands,
                    std::string(QUOR_SOURCE_DATA) + "/samples/propane_saturation.BAQ");
    ASSERT_GT(session->measured.points.size(), 10U);
    options({"OptCalcMode_1"});
    when("frmCalcIn", [] { click("OK"); });
    choose("mnuCalc_5");
    click("optResultPrint_2");
    user.fileAnswers = {path("day.LST")};
    click("cmdCalc_OK");
    EXPECT_NE(content(path("day.LST")).find("arithmet. mean of ABS(%-deviations):"),
              std::string::npos);

    // The same data are fitted and taken into the substance.
    choose("mnuData_BatchEdit");
    click("optFitFunction_1");
    click("cmdFitting");
    drive::tab("SSTab1", "Vapour pressure");
    click("optFit_4");  // Antoine, below the normal boiling point
    click("cmdPropose");
    click("cmdStart");
    ASSERT_TRUE(drive::isVisible("fraFQS"));
    user.messages.clear();
    click("cmdApply");
    ASSERT_EQ(user.messages.size(), 2U);
    EXPECT_EQ(user.lastTitle(), "Parameters succuessfully applied");
    const calculation::BatchDataSet& measured = session->measured.points[19];
    const double fitted =
        models::vapour_pressure(session->substance, measured.T, codes::vp("ALP"))->p;
    EXPECT_NEAR(fitted, measured.p, 0.03 * measured.p);
    const double T = measured.T;
    click("ESC");

    // The substance with its new parameters goes to a database of one's own.
    when("frmBankEdit", [this] {
        user.fileAnswers = {path("MINE.Q05")};
        click("WriteDataBaseQ05");
        click("ESC");
    });
    choose("mnuData_EditStoffdaten");
    EXPECT_TRUE(fs::exists(path("MINE.Q05")));
    user.fileAnswers = {path("MINE.Q05")};
    when("frmStoffWahl", [] { click("StoffOK"); });
    when("frmQModell", [] { click("OKModell"); });
    click("Toolbar1_2");
    EXPECT_EQ(session->database_file, "MINE.Q05");

    // Specific units, and the project of the day.
    options({"OptCalcMode_0", "optMolarSpez_1"});
    user.fileAnswers = {path("day.QCF")};
    user.inputAnswers = {"a working day"};
    choose("mnuData_SaveProject");
    const models::ModelSelection models = session->models;
    choose("mnuData_Exit");
    EXPECT_FALSE(frame->isVisible());
    frame.reset();
    session::reset_everything(session);

    // The next morning.
    start();
    EXPECT_TRUE(session->substance.name.empty());
    click("Toolbar1_4");
    EXPECT_EQ(session->database_file, "MINE.Q05");
    EXPECT_EQ(session->substance.name, "Propane");
    EXPECT_EQ(session->units.caloric, models::CaloricUnit::specific);
    EXPECT_FALSE(session->batch_mode);
    EXPECT_EQ(session->models.eos, models.eos);
    EXPECT_EQ(session->models.vapour_pressure, models.vapour_pressure);
    EXPECT_EQ(session->models.vaporisation, models.vaporisation);
    EXPECT_EQ(session->models.cp_form, models.cp_form);
    EXPECT_NEAR(models::vapour_pressure(session->substance, T, codes::vp("ALP"))->p, fitted,
                1e-5 * fitted);
    openIsotherm("300");
    user.fileAnswers = {path("day.oc2")};
    choose("mnuLoadOC2");
    EXPECT_GE(diagrams::curve_count(sheet()), 3);
}

}  // namespace
