#include <QPushButton>
#include <cmath>

#include "gui/diagrams/diagram_window.h"
#include "gui/measured_data_editor_test.h"
#include "gui/widgets/undo_keys.h"

namespace {

using drive::cell;
using drive::choose;
using drive::click;
using drive::isEnabled;
using drive::isVisible;
using drive::lines;
using drive::mark;
using drive::read;
using drive::type;

// --------------------------------------------------------------------------------------- files

TEST_F(MeasuredDataEditorTest, SavesAndLoadsAFile) {
    openWithData();
    type("txtComment", "measured by hand");
    user.fileAnswers = {path("co2.BAQ")};
    click("cmdBatchSave");
    ASSERT_FALSE(user.files.empty());
    EXPECT_EQ(user.files.back().title, "Save exper. data as text file *.BAQ");
    EXPECT_EQ(user.files.back().filter, "QUOR-specific file (*.BAQ)|*.BAQ");
    EXPECT_EQ(read("lblBatchFile"), "File: co2.BAQ");
    click("cmdClose");
    EXPECT_TRUE(user.messages.empty()) << user.lastText();

    user.answers = {dialogs::Answer::Yes};
    choose("mnuData_BatchInput");
    EXPECT_EQ(lines(kGrid), 0);
    EXPECT_EQ(read("txtComment"), "");
    user.fileAnswers = {path("co2.BAQ")};
    click("cmdBatchLoad");
    EXPECT_EQ(user.files.back().title, "Open a batch-file of experimental data (*.BAQ)");
    EXPECT_EQ(temperatures(), (std::vector<double>{280, 270, 290}));
    EXPECT_EQ(read("txtComment"), "measured by hand");
    EXPECT_EQ(read("lblStatus"), "line 1");
    // What was just loaded is not unsaved.
    user.messages.clear();
    click("cmdClose");
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(MeasuredDataEditorTest, AppendsAFile) {
    openWithData();
    user.fileAnswers = {path("co2.BAQ")};
    click("cmdBatchSave");
    user.fileAnswers = {path("co2.BAQ")};
    click("cmdBatchAdd");
    EXPECT_EQ(temperatures(), (std::vector<double>{280, 270, 290, 280, 270, 290}));
    EXPECT_EQ(read("lblStatus"), "line 4");
    user.messages.clear();
    user.answers = {dialogs::Answer::No};
    click("cmdClose");
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "Data not yet saved.\nSave now?");
    EXPECT_FALSE(isVisible("frmTpvEdit"));
}

TEST_F(MeasuredDataEditorTest, AsksToSaveBeforeItClosesAndStaysWhenSavingIsCancelled) {
    openWithData();
    click("TSort");
    user.answers = {dialogs::Answer::Yes};
    user.fileAnswers = {std::nullopt};
    click("cmdClose");
    EXPECT_EQ(user.lastText(), "Data not yet saved.\nSave now?");
    EXPECT_TRUE(isVisible("frmTpvEdit"));
    user.answers = {dialogs::Answer::Yes};
    user.fileAnswers = {path("sorted.BAQ")};
    drive::press("txtInput_0", Qt::Key_Escape);
    EXPECT_FALSE(isVisible("frmTpvEdit"));
    EXPECT_FALSE(content(folder() / "sorted.BAQ").empty());
}

TEST_F(MeasuredDataEditorTest, AsksToSaveBeforeAnotherFileReplacesChangedData) {
    openWithData();
    user.fileAnswers = {path("co2.BAQ")};
    click("cmdBatchSave");
    click("pSort");
    user.messages.clear();
    user.answers = {dialogs::Answer::No};
    user.fileAnswers = {path("co2.BAQ")};
    click("cmdBatchLoad");
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "Data not yet saved.\nSave now?");
    EXPECT_EQ(temperatures(), (std::vector<double>{280, 270, 290}));
}

TEST_F(MeasuredDataEditorTest, StaysUnsavedWhenItIsOpenedOnceMore) {
    openWithData();
    click("TSort");
    choose("mnuData_BatchEdit");
    user.answers = {dialogs::Answer::No};
    click("cmdClose");
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "Data not yet saved.\nSave now?");
    // New data are not what was changed.
    openWithData();
    click("TSort");
    user.answers = {dialogs::Answer::No};
    choose("mnuData_BatchInput");
    EXPECT_EQ(count(), 0U);
    user.messages.clear();
    click("cmdClose");
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(MeasuredDataEditorTest, KeepsTheDataWhenAFileCannotBeRead) {
    openWithData();
    std::ofstream(folder() / "empty.BAQ").close();
    user.fileAnswers = {path("empty.BAQ")};
    click("cmdBatchLoad");
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(lines(kGrid), 3);
    user.fileAnswers = {std::nullopt};
    click("cmdBatchAdd");
    EXPECT_EQ(lines(kGrid), 3);
    user.messages.clear();
    click("cmdClose");
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(MeasuredDataEditorTest, SavesAColumnAsXYFile) {
    openWithData();
    click("optFitFunction_2");
    user.fileAnswers = {path("density.XY")};
    click("cmdSaveXY");
    const std::string text = content(folder() / "density.XY");
    EXPECT_EQ(text, read("txtComment").toStdString() +
                        "\r\n.2800000E+03;.9000000E+03\r\n.2700000E+03;.9500000E+03\r\n"
                        ".2900000E+03;.8500000E+03\r\n");
}

TEST_F(MeasuredDataEditorTest, PrintsTheTable) {
    openWithData();
    mark(kGrid, 2, 2);
    click("cmdAus");
    click("cmdPrintTpVListe");
    ASSERT_EQ(user.prints.size(), 1U);
    EXPECT_EQ(user.prints[0].font, "COURIER");
    EXPECT_NE(user.prints[0].text.find("(2)"), std::string::npos);
    EXPECT_NE(user.prints[0].text.find("rho_L/(kg/m^3)"), std::string::npos);
}

// ------------------------------------------------------------------------------ other commands

TEST_F(MeasuredDataEditorTest, EveryButtonWorksOrSaysWhyNot) {
    openWithData();
    const auto buttons = drive::get("frmTpvEdit")->findChildren<QPushButton*>();
    EXPECT_GE(buttons.size(), 14);
    for (const QPushButton* button : buttons)
        EXPECT_TRUE(button->isEnabled() || !button->toolTip().isEmpty())
            << button->objectName().toStdString();
    // What needs the views of others has them in the program.
    for (const char* button : {"cmdGraphFunction", "cmdlogGraf", "cmdFitting", "cmdSaveXY"})
        EXPECT_TRUE(isEnabled(button)) << button;
    for (const QPushButton* button : buttons) {
        // The last ones lead away.
        if (button->objectName() == "cmdClose" || button->objectName() == "cmdFitting") continue;
        mark(kGrid, 1, 1);
        user.messages.clear();
        user.fileAnswers = {std::nullopt};
        click(button->objectName());
        for (const dialogs::Message& m : user.messages)
            EXPECT_NE(m.icon, dialogs::Icon::Stop)
                << button->objectName().toStdString() << ": " << m.text;
    }
    click("cmdFitting");
    EXPECT_TRUE(isVisible("frmQFitting"));
}

TEST_F(MeasuredDataEditorTest, ThePointsOfAColumnAreDrawnOverT) {
    openWithData();
    mark(kGrid, 2, 2);
    click("cmdAus");
    click("optFitFunction_2");
    click("cmdGraphFunction");
    auto* view = desk.lastUsed<DiagramWindow>();
    ASSERT_NE(view, nullptr);
    EXPECT_TRUE(view->isVisible());
    const chart::Chart2D& chart = view->sheet().chart;
    EXPECT_EQ(chart.header.text, "Experimental points rho(L)(T)");
    EXPECT_EQ(chart.x.title, "T / K");
    EXPECT_EQ(chart.y.title, "rho(L) / (kg/m^3)");
    ASSERT_EQ(diagrams::point_set_count(view->sheet()), 1);
    EXPECT_EQ(chart.points.at(0).x, (std::vector<float>{280, 290}));
    EXPECT_EQ(chart.points.at(0).y, (std::vector<float>{900, 850}));
}

TEST_F(MeasuredDataEditorTest, VapourPressuresAreDrawnAsLnPOverInverseT) {
    openWithData();
    click("cmdlogGraf");
    auto* view = desk.lastUsed<DiagramWindow>();
    ASSERT_NE(view, nullptr);
    const chart::Chart2D& chart = view->sheet().chart;
    EXPECT_EQ(chart.x.title, "1/ (T/K)");
    EXPECT_EQ(chart.y.title, "ln (p/kPa)");
    ASSERT_EQ(chart.points.at(0).x.size(), 3U);
    EXPECT_FLOAT_EQ(chart.points.at(0).x[0], static_cast<float>(1.0 / 280));
    EXPECT_FLOAT_EQ(chart.points.at(0).y[0], static_cast<float>(std::log(300.0)));
    // Without a value there is nothing to draw, which is said.
    useData({{0, 280, 0, 0, 900, 0, 0}});
    drive::settle();
    user.messages.clear();
    click("cmdlogGraf");
    EXPECT_EQ(user.lastText(), "There is no active line with T and p above 0.");
}

TEST_F(MeasuredDataEditorTest, SendsItsDataToFittingAndGraphsOnceTheseAreThere) {
    const std::array doors{&desk.doors.fit, &desk.doors.drawMeasured, &desk.doors.drawMeasuredLn};
    for (std::function<void()>* door : doors) *door = {};
    openWithData();
    for (const char* button : {"cmdFitting", "cmdGraphFunction", "cmdlogGraf"}) {
        EXPECT_FALSE(isEnabled(button)) << button;
        EXPECT_FALSE(drive::get(button)->toolTip().isEmpty()) << button;
    }
    click("cmdClose");

    const std::function<void()>* called = nullptr;
    for (std::function<void()>* door : doors) *door = [&called, door] { called = door; };
    openWithData();
    click("optFitFunction_4");
    for (const auto& [button, door] : {std::pair{"cmdFitting", doors[0]},
                                       {"cmdGraphFunction", doors[1]},
                                       {"cmdlogGraf", doors[2]}}) {
        change([](auto& s) { s.fit_column = 0; });
        click(button);
        EXPECT_EQ(called, door) << button;
        EXPECT_EQ(session->fit_column, 4);
        EXPECT_EQ(session->fit_source, session::FitSource::measuredData);
    }
}

TEST_F(MeasuredDataEditorTest, HoldsFiveThousandLines) {
    change([](auto& s) { s.measured.points.assign(5000, {0, 300, 100, 1.7F, 0, 0, 0}); });
    choose("mnuData_BatchEdit");
    EXPECT_EQ(lines(kGrid), 5000);
    click("TSort");
    click("opt_T_unit_1");
    EXPECT_EQ(cell(kGrid, 5000, 1), "26.85");
}

// ---------------------------------------------------------------------------- undo, substance

TEST_F(MeasuredDataEditorTest, StepsAreTakenBackAndMadeAgainByTheirKeys) {
    openWithData();
    click("TSort");
    ASSERT_EQ(temperatures(), (std::vector<double>{270, 280, 290}));
    mark(kGrid, 1, 1);
    user.answers = {dialogs::Answer::Yes};
    click("cmdErase");
    ASSERT_EQ(temperatures(), (std::vector<double>{280, 290}));
    const auto* steps = dynamic_cast<Undoable*>(drive::find("frmTpvEdit"));
    ASSERT_NE(steps, nullptr);
    EXPECT_EQ(steps->undoName(), "Remove lines");

    drive::press(kGrid, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(temperatures(), (std::vector<double>{270, 280, 290}));
    EXPECT_EQ(lines(kGrid), 3);
    EXPECT_EQ(steps->undoName(), "Sort by T");
    EXPECT_EQ(steps->redoName(), "Remove lines");
    drive::press(kGrid, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(temperatures(), (std::vector<double>{280, 270, 290}));
    EXPECT_EQ(steps->undoName(), "");
    drive::press(kGrid, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(temperatures(), (std::vector<double>{280, 270, 290})) << "there is no step before";

    drive::press(kGrid, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    drive::press(kGrid, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(temperatures(), (std::vector<double>{280, 290}));
    EXPECT_EQ(steps->redoName(), "");
}

TEST_F(MeasuredDataEditorTest, DeleteInTheTableCanBeTakenBackByItsKeysAndByTheMenu) {
    openWithData();
    const std::vector<datafiles::MeasuredPoint> before = session->measured.points;
    mark(kGrid, 1, 3);
    drive::press(kGrid, Qt::Key_Delete);
    for (int line = 1; line <= 3; ++line) EXPECT_EQ(set(line), datafiles::MeasuredPoint{}) << line;
    drive::press(kGrid, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(session->measured.points, before);
    EXPECT_EQ(cell(kGrid, 1, 1), "280");

    mark(kGrid, 2, 2);
    drive::press(kGrid, Qt::Key_Delete);
    EXPECT_EQ(set(2).T, 0.0);
    EXPECT_EQ(drive::open("mnuEdit_Undo")->text(), "&Undo Clear cells\tCtrl+Z");
    choose("mnuEdit_Undo");
    EXPECT_EQ(session->measured.points, before);
    choose("mnuEdit_Redo");
    EXPECT_EQ(set(2), datafiles::MeasuredPoint{});
    choose("mnuEdit_Undo");

    user.answers = {dialogs::Answer::Yes};
    drive::popupRow("mnuSubDelLine1")->trigger();
    EXPECT_EQ(count(), 2U);
    choose("mnuEdit_Undo");
    EXPECT_EQ(session->measured.points, before);
}

TEST_F(MeasuredDataEditorTest, AFieldTakesItsOwnTypingBackBeforeTheListDoes) {
    openWithData();
    click("TSort");
    type("txtInput_0", "300");
    drive::press("txtInput_0", Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(temperatures(), (std::vector<double>{270, 280, 290})) << "only the typing went";
    EXPECT_NE(read("txtInput_0"), "300");
}

TEST_F(MeasuredDataEditorTest, AChangedCellIsOneStep) {
    openWithData();
    auto* table = drive::get<QTableView>(kGrid);
    table->model()->setData(table->model()->index(0, 1), "312.5");
    EXPECT_EQ(set(1).p, 312.5);
    drive::press(kGrid, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(set(1).p, 300.0);
    EXPECT_EQ(cell(kGrid, 1, 2), "300");
}

TEST_F(MeasuredDataEditorTest, StepsOutliveTheirSavingAndAnAppendedFileIsOne) {
    openWithData();
    const auto* steps = dynamic_cast<Undoable*>(drive::find("frmTpvEdit"));
    click("TSort");
    type("txtComment", "sorted");
    user.fileAnswers = {path("co2.BAQ")};
    click("cmdBatchSave");
    user.fileAnswers = {path("co2.BAQ")};
    click("cmdBatchAdd");
    ASSERT_EQ(count(), 6U);
    EXPECT_EQ(steps->undoName(), "Add file");
    drive::press(kGrid, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(temperatures(), (std::vector<double>{270, 280, 290}));
    EXPECT_EQ(session->measured.file, "co2.BAQ");
    while (steps->undoName() != "Sort by T" && !steps->undoName().isEmpty())
        drive::press(kGrid, Qt::Key_Z, Qt::ControlModifier);
    ASSERT_EQ(steps->undoName(), "Sort by T");
    drive::press(kGrid, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(temperatures(), (std::vector<double>{280, 270, 290}));
}

TEST_F(MeasuredDataEditorTest, AnEmptyEditorFollowsTheSubstance) {
    choose("mnuData_BatchInput");
    drive::when("frmStoffWahl", [] {
        type("Text1", "Propane");
        click("StoffOK");
    });
    drive::when("frmQModell", [] { click("OKModell"); });
    choose("mnuStoff");
    ASSERT_EQ(session->substance.name, "Propane");
    EXPECT_EQ(session->measured.casrn, session->substance.casrn);
    EXPECT_TRUE(drive::get("opt_Rho_Unit_1")->toolTip().contains("(molar mass M/(kg/kmol)= 44.09"))
        << drive::get("opt_Rho_Unit_1")->toolTip().toStdString();
}

/// A molar volume typed for propane is converted with propane's molar mass, whatever substance is
/// loaded beside the editor.
TEST_F(MeasuredDataEditorTest, MolarVolumesBelongToTheSubstanceOfTheData) {
    startProject("Propane");
    const double M = static_cast<double>(session->substance.M);
    choose("mnuData_BatchInput");
    typeInput({"300", "1000", "500"});
    click("OKinput");
    user.answers = {dialogs::Answer::No};  // the data stay
    drive::when("frmStoffWahl", [] {
        type("Text1", "Water");
        click("StoffOK");
    });
    drive::when("frmQModell", [] { click("OKModell"); });
    choose("mnuStoff");
    ASSERT_EQ(session->substance.name, "Water");
    commands.run("mnuData_BatchEdit");
    drive::settle();
    click("opt_Rho_Unit_1");
    typeInput({"310", "1000", "0.04406"});
    click("OKinput");
    ASSERT_EQ(count(), 2U);
    EXPECT_NEAR(set(2).rhoL, M / 0.04406, 0.1) << "1000.8 kg/m^3";
}

TEST_F(MeasuredDataEditorTest, AnOpenEditorFollowsWhenItsDataAreDeletedElsewhere) {
    openWithData();
    ASSERT_EQ(lines(kGrid), 3);
    user.answers = {dialogs::Answer::Yes};  // delete the data
    drive::when("frmStoffWahl", [] {
        type("Text1", "Propane");
        click("StoffOK");
    });
    drive::when("frmQModell", [] { click("OKModell"); });
    choose("mnuStoff");
    ASSERT_EQ(count(), 0U);
    EXPECT_EQ(lines(kGrid), 0);
    EXPECT_EQ(read("lblStatus"), "empty list");
}

}  // namespace
