#include <QPushButton>
#include <cmath>

#include "common/numbers.h"
#include "gui/calc_view_test.h"
#include "gui/diagrams/diagram_window.h"
#include "gui/editor_drive.h"
#include "gui/widgets/number_edit.h"
#include "gui/widgets/undo_keys.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::cell;
using drive::choose;
using drive::click;
using drive::isEnabled;
using drive::isVisible;
using drive::lineHead;
using drive::lines;
using drive::mark;
using drive::read;
using drive::type;

constexpr double kM = 44.009;  // carbon dioxide, kg/kmol

class MeasuredDataEditorTest : public CalcViewTest {
  protected:
    MeasuredDataEditorTest() { startProject("Carbon dioxide"); }

    /// The editor with three lines: T and p falling, and one value of each other column.
    void openWithData() {
        useData({{0, 280, 300, 5.5F, 900, 0, 0},
                 {0, 270, 200, 4.5F, 950, 10000, 0},
                 {0, 290, 100, 3.5F, 850, 0, 80}});
        choose("mnuData_BatchEdit");
        user.messages.clear();
    }

    /// A line of the session's data, counted from 1.
    datafiles::MeasuredPoint set(int line) const {
        return session->measured.points.at(static_cast<std::size_t>(line - 1));
    }
    std::size_t count() const { return session->measured.points.size(); }

    /// Types the six input fields in the order of the columns.
    static void typeInput(std::initializer_list<const char*> texts) {
        int i = 0;
        for (const char* text : texts) type(QString("txtInput_%1").arg(i++), text);
    }

    std::vector<double> temperatures() const {
        std::vector<double> all;
        for (const datafiles::MeasuredPoint& one : session->measured.points) all.push_back(one.T);
        return all;
    }

    std::string path(const char* name) const { return (folder() / name).string(); }
};

constexpr auto kGrid = "grdTpV";

// -------------------------------------------------------------------------------- opening, input

TEST_F(MeasuredDataEditorTest, OpensEmptyForNewData) {
    choose("mnuData_BatchInput");
    EXPECT_EQ(read("frmTpvEdit"), " Experimental data, input /edit");
    EXPECT_EQ(lines(kGrid), 0);
    EXPECT_EQ(read("lblStatus"), "empty list");
    EXPECT_TRUE(drive::isChecked("optInputMode_0"));
    EXPECT_EQ(read("optInputMode_0"), "Input mode = Add");
    EXPECT_EQ(read("optInputMode_1"), "Input mode = Edit");
    EXPECT_EQ(read("cmdBatchLoad"), "Load *.BAQ NEW");
    EXPECT_EQ(read("cmdBatchAdd"), "&Add. File *.BAQ");
    EXPECT_EQ(read("cmdErase"), "Remove marked lines");
    EXPECT_EQ(read("cmdClipEinfuegen"), "Add clipboard");
    EXPECT_EQ(read("cmdSaveXY"), "Save as *.XY");
    EXPECT_EQ(read("cmdPrintTpVListe"), "Print table");
    EXPECT_EQ(read("cmdFitting"), "Send data to T-y fitting");
    EXPECT_EQ(read("cmdlogGraf"), "Meas. point graph  ln{p} = f(1/T)");
    EXPECT_EQ(drive::get("cmdAus")->toolTip(), "...excluding that line from graph and fitting ");
    EXPECT_EQ(drive::get("cmdClipEinfuegen")->toolTip(), "...at the marked position ");
    const QAbstractItemModel* model = drive::get<QAbstractItemView>(kGrid)->model();
    QStringList heads;
    for (int i = 0; i < model->columnCount(); ++i)
        heads << model->headerData(i, Qt::Horizontal).toString();
    EXPECT_EQ(heads, QStringList({"T\nK", "p\nkPa", "rho_L\nkg/m^3", "rho_V\nkg/m^3",
                                  "delta(LV)h\nkJ/kmol", "cp\nkJ/(kmol K)"}));
}

TEST_F(MeasuredDataEditorTest, AsksBeforeNewDataReplaceThePresentOnes) {
    useData({{0, 280, 300, 0, 0, 0, 0}});
    user.answers = {dialogs::Answer::No};
    choose("mnuData_BatchInput");
    EXPECT_FALSE(isVisible("frmTpvEdit"));
    EXPECT_EQ(count(), 1U);
    user.answers = {dialogs::Answer::Yes};
    choose("mnuData_BatchInput");
    EXPECT_TRUE(isVisible("frmTpvEdit"));
    EXPECT_EQ(count(), 0U);
}

TEST_F(MeasuredDataEditorTest, AddsALineByEnter) {
    choose("mnuData_BatchInput");
    typeInput({"300", "5000", "", "128,5", "", "40"});
    drive::press("txtInput_5", Qt::Key_Return);
    ASSERT_EQ(count(), 1U);
    EXPECT_EQ(set(1).T, 300.0);
    EXPECT_EQ(set(1).p, 5000.0);
    EXPECT_EQ(set(1).rhoL, 0.0F);
    EXPECT_EQ(set(1).rhoV, 128.5F);
    EXPECT_EQ(set(1).cp, 40.0F);
    EXPECT_EQ(read("lblStatus"), "line 1");
    EXPECT_EQ(cell(kGrid, 1, 4), "128.5");
    EXPECT_EQ(cell(kGrid, 1, 3), "");
    // The next line can be typed at once.
    EXPECT_EQ(read("txtInput_0"), "");
    EXPECT_EQ(frame.focusWidget()->objectName(), "txtInput_0");
    type("txtInput_0", "310");
    click("OKinput");
    EXPECT_EQ(count(), 2U);
    EXPECT_EQ(read("lblStatus"), "line 2");
    EXPECT_TRUE(drive::offers("mnuData_BatchEdit"));
}

TEST_F(MeasuredDataEditorTest, AnAmbiguousNumberIsMarkedAndNotTaken) {
    choose("mnuData_BatchInput");
    for (const char* text : {"1,234.5", "1.000,5", "3 000"}) {
        typeInput({"300", text});
        EXPECT_EQ(read("txtInput_1"), text);
        click("OKinput");
        EXPECT_EQ(count(), 0U) << text;
        EXPECT_TRUE(drive::get<NumberEdit>("txtInput_1")->isMarked()) << text;
    }
    typeInput({"300", "", "1E39"});
    click("OKinput");
    EXPECT_EQ(count(), 0U);
    EXPECT_TRUE(drive::get<NumberEdit>("txtInput_2")->isMarked());
}

TEST_F(MeasuredDataEditorTest, PastedThousandsSeparatorsAreToldAndTheirLinesAreInactive) {
    openWithData();
    mark(kGrid, 2, 2);
    user.clipboard = "300\t1,234.5\r\n310\t200\r\n320\t1.000,5\r\n330\t3 000\r\n";
    click("cmdClipEinfuegen");
    ASSERT_EQ(count(), 7U);
    EXPECT_EQ(user.lastText(),
              "3 lines do not hold a number in each of their cells and are inactive.\n"
              "Lines 2, 4, 5 of the table.");
    for (const int line : {2, 4, 5}) {
        EXPECT_EQ(lineHead(kGrid, line), QString("(%1)").arg(line));
        EXPECT_EQ(set(line).p, 0.0);
    }
    EXPECT_EQ(set(3).p, 200.0);
}

TEST_F(MeasuredDataEditorTest, ACellWithAnAmbiguousNumberStaysOpenAndIsNotStored) {
    openWithData();
    auto* table = drive::get<QAbstractItemView>(kGrid);
    table->setCurrentIndex(table->model()->index(0, 1));
    table->edit(table->currentIndex());
    auto* field = table->findChild<NumberEdit*>();
    ASSERT_NE(field, nullptr);
    field->clear();
    QTest::keyClicks(field, "1,234.5");
    QTest::keyClick(field, Qt::Key_Return);
    drive::settle();
    EXPECT_TRUE(field->isVisible());
    EXPECT_TRUE(field->isMarked());
    EXPECT_EQ(field->text(), "1,234.5");
    EXPECT_EQ(set(1).p, 300.0);
    drive::get("txtComment")->setFocus();
    drive::settle();
    EXPECT_EQ(set(1).p, 300.0) << "leaving the cell does not store it either";
}

TEST_F(MeasuredDataEditorTest, AddsNoLineWithoutAValue) {
    choose("mnuData_BatchInput");
    click("OKinput");
    EXPECT_EQ(count(), 0U);
    EXPECT_TRUE(drive::get<NumberEdit>("txtInput_0")->isMarked());
    type("txtInput_1", "5e");
    click("OKinput");
    EXPECT_EQ(count(), 0U);
    EXPECT_TRUE(drive::get<NumberEdit>("txtInput_1")->isMarked());
}

TEST_F(MeasuredDataEditorTest, EditsTheMarkedLine) {
    openWithData();
    click("optInputMode_1");
    mark(kGrid, 2, 2);
    EXPECT_EQ(read("lblStatus"), "line 2");
    EXPECT_EQ(read("txtInput_0"), "270");
    EXPECT_EQ(read("txtInput_4"), "10000");
    EXPECT_EQ(read("txtInput_5"), "");
    type("txtInput_1", "205.25");
    type("txtInput_4", "");
    click("OKinput");
    EXPECT_EQ(set(2).p, 205.25);
    EXPECT_EQ(set(2).hLV, 0.0F);
    EXPECT_EQ(set(2).rhoL, 950.0F);
    EXPECT_EQ(count(), 3U);
}

TEST_F(MeasuredDataEditorTest, KeepsTheDigitsThatTheTableDoesNotShow) {
    useData({{0, 280.123456, 300.1234567, 5.5F, 0, 0, 0}});
    choose("mnuData_BatchEdit");
    EXPECT_EQ(cell(kGrid, 1, 1), "280.123");
    EXPECT_EQ(cell(kGrid, 1, 2), "300.12346");
    click("optInputMode_1");
    mark(kGrid, 1, 1);
    type("txtInput_3", "6");
    click("OKinput");
    EXPECT_EQ(set(1).T, 280.123456);
    EXPECT_EQ(set(1).p, 300.1234567);
    EXPECT_EQ(set(1).rhoV, 6.0F);
}

TEST_F(MeasuredDataEditorTest, EditsACellInTheTable) {
    openWithData();
    auto* table = drive::usable<QTableView>(kGrid);
    table->setFocus();
    table->setCurrentIndex(table->model()->index(0, 1));
    drive::press(kGrid, Qt::Key_Return);
    auto* field = table->findChild<NumberEdit*>();
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->text(), "300");
    field->selectAll();
    QTest::keyClicks(field, "3x12,5");
    QTest::keyClick(field, Qt::Key_Return);
    drive::settle();
    EXPECT_EQ(set(1).p, 312.5);
    EXPECT_EQ(count(), 3U);
}

// --------------------------------------------------------------------------------------- units

TEST_F(MeasuredDataEditorTest, StoresInputInKelvinKilopascalAndDensity) {
    choose("mnuData_BatchInput");
    click("opt_T_unit_1");
    click("opt_p_Unit_1");
    EXPECT_EQ(read("lblUnit_0"), "°C");
    EXPECT_EQ(read("lblUnit_1"), "atm");
    typeInput({"25", "2"});
    click("OKinput");
    EXPECT_DOUBLE_EQ(set(1).T, 298.15);
    EXPECT_DOUBLE_EQ(set(1).p, 202.65);
    click("opt_p_Unit_2");
    typeInput({"0", "760"});
    click("OKinput");
    EXPECT_DOUBLE_EQ(set(2).T, 273.15);
    EXPECT_NEAR(set(2).p, 101.325, 1e-12);
    EXPECT_EQ(cell(kGrid, 1, 1), "25");
    EXPECT_EQ(cell(kGrid, 1, 2), "1520");
    click("opt_p_Unit_0");
    click("opt_T_unit_0");
    EXPECT_EQ(cell(kGrid, 1, 1), "298.15");
    EXPECT_EQ(cell(kGrid, 1, 2), "202.65");
}

TEST_F(MeasuredDataEditorTest, TakesVolumesOfAnAmountOfSubstance) {
    choose("mnuData_BatchInput");
    EXPECT_FALSE(isEnabled("txtMol"));
    EXPECT_EQ(read("lblInput_2"), "rho_L");
    click("opt_Rho_Unit_1");
    EXPECT_TRUE(isEnabled("txtMol"));
    EXPECT_EQ(read("lblInput_2"), "v_L");
    EXPECT_EQ(read("lblInput_3"), "v_V");
    EXPECT_EQ(read("lblUnit_3"), "m^3");
    EXPECT_EQ(drive::get("opt_Rho_Unit_1")->toolTip(),
              " applying the input value after re-calculation rho = M n / V (molar mass "
              "M/(kg/kmol)= 44.009");
    type("txtMol", "2");
    typeInput({"300", "5000", "0.1", "0.8"});
    click("OKinput");
    EXPECT_NEAR(static_cast<double>(set(1).rhoL), kM * 2 / 0.1, 1e-4);
    EXPECT_NEAR(static_cast<double>(set(1).rhoV), kM * 2 / 0.8, 1e-5);
    EXPECT_EQ(cell(kGrid, 1, 4), "0.8");
    click("opt_Rho_Unit_0");
    EXPECT_EQ(cell(kGrid, 1, 4), "110.0225");
    click("opt_Rho_Unit_1");
    type("txtMol", "0");
    typeInput({"310", "5000", "", "0.8"});
    click("OKinput");
    EXPECT_TRUE(drive::get<NumberEdit>("txtMol")->isMarked());
    EXPECT_EQ(count(), 1U);
}

TEST_F(MeasuredDataEditorTest, ShowsAndTakesNumbersWithADecimalComma) {
    numbers::set_decimal_mark(',');
    choose("mnuData_BatchInput");
    typeInput({"300,25", "101,325"});
    click("OKinput");
    typeInput({"301.5", "99.5"});
    click("OKinput");
    EXPECT_EQ(set(1).T, 300.25);
    EXPECT_EQ(set(2).T, 301.5);
    EXPECT_EQ(cell(kGrid, 1, 2), "101,325");
    EXPECT_EQ(cell(kGrid, 2, 2), "99,5");
}

TEST_F(MeasuredDataEditorTest, AChangeOfUnitsIsNoChangeOfData) {
    openWithData();
    for (const char* option : {"opt_T_unit_1", "opt_p_Unit_2", "opt_Rho_Unit_1"}) click(option);
    click("cmdClose");
    EXPECT_FALSE(isVisible("frmTpvEdit"));
    EXPECT_TRUE(user.messages.empty()) << user.lastText();
    EXPECT_EQ(set(1).p, 300.0);
}

// ------------------------------------------------------------------------------- lines and order

TEST_F(MeasuredDataEditorTest, SortsByTemperatureAndPressureWithTheActivityOfEachLine) {
    openWithData();
    mark(kGrid, 1, 1);
    click("cmdAus");
    EXPECT_EQ(lineHead(kGrid, 1), "(1)");
    EXPECT_NE(set(1).skip, 0);
    click("TSort");
    EXPECT_EQ(temperatures(), (std::vector<double>{270, 280, 290}));
    EXPECT_EQ(set(1).skip, 0);
    EXPECT_NE(set(2).skip, 0);
    EXPECT_EQ(lineHead(kGrid, 2), "(2)");
    click("pSort");
    EXPECT_EQ(temperatures(), (std::vector<double>{290, 270, 280}));
    EXPECT_NE(set(3).skip, 0);
    mark(kGrid, 2, 3);
    click("cmdAus");
    EXPECT_NE(set(2).skip, 0);
    EXPECT_EQ(set(3).skip, 0);
    EXPECT_EQ(lineHead(kGrid, 3), "3");
}

TEST_F(MeasuredDataEditorTest, RemovesMarkedLinesAfterAQuestion) {
    openWithData();
    mark(kGrid, 1, 2);
    user.answers = {dialogs::Answer::No};
    click("cmdErase");
    EXPECT_EQ(user.lastText(), "lines 1 till 2 really remove?");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_EQ(count(), 3U);
    user.answers = {dialogs::Answer::Yes};
    click("cmdErase");
    EXPECT_EQ(temperatures(), (std::vector<double>{290}));
    EXPECT_EQ(read("lblStatus"), "line 1");
    user.answers = {dialogs::Answer::Yes};
    click("cmdErase");
    EXPECT_EQ(user.lastText(), "line 1 really remove?");
    EXPECT_EQ(read("lblStatus"), "empty list");
}

TEST_F(MeasuredDataEditorTest, RefusesLineCommandsWithoutAMark) {
    openWithData();
    drive::get<QTableView>(kGrid)->clearSelection();
    for (const char* command : {"cmdErase", "cmdAus"}) {
        user.messages.clear();
        click(command);
        ASSERT_EQ(user.messages.size(), 1U) << command;
        EXPECT_EQ(user.lastText(), "No marked item!");
        EXPECT_EQ(user.lastTitle(), "Execution not possible");
    }
    click("optInputMode_1");
    user.messages.clear();
    click("OKinput");
    EXPECT_EQ(user.lastText(), "No marked item!");
    EXPECT_EQ(count(), 3U);
}

TEST_F(MeasuredDataEditorTest, InsertsTheClipboardAtTheMarkedLine) {
    openWithData();
    mark(kGrid, 2, 2);
    user.clipboard = "T\tp\r\n250\t1\t\t2,5\r\n251\t2\r\n";
    click("cmdClipEinfuegen");
    EXPECT_EQ(temperatures(), (std::vector<double>{280, 250, 251, 270, 290}));
    EXPECT_EQ(set(2).rhoV, 2.5F);
    EXPECT_EQ(read("lblStatus"), "line 2");
    user.clipboard = "no numbers";
    user.messages.clear();
    click("cmdClipEinfuegen");
    EXPECT_EQ(user.lastText(), "The clipboard holds no lines of numbers.");
    EXPECT_EQ(count(), 5U);
}

TEST_F(MeasuredDataEditorTest, OffersClipboardAndErasingInItsMenu) {
    openWithData();
    mark(kGrid, 1, 2);
    drive::popupRow("mnuCopy1")->trigger();
    EXPECT_EQ(user.clipboard, "280\t300\t900\t5.5\t\t\r\n270\t200\t950\t4.5\t10000\t\r\n");
    mark(kGrid, 3, 3);
    drive::popupRow("mnuPaste1")->trigger();
    EXPECT_EQ(temperatures(), (std::vector<double>{280, 270, 280, 270, 290}));
    EXPECT_EQ(set(4).hLV, 10000.0F);

    auto* table = drive::get<QTableView>(kGrid);
    table->selectionModel()->select({table->model()->index(0, 1), table->model()->index(1, 2)},
                                    QItemSelectionModel::ClearAndSelect);
    drive::popupRow("mnuSubDelNull1")->trigger();
    EXPECT_EQ(set(1).p, 0.0);
    EXPECT_EQ(set(2).rhoL, 0.0F);
    EXPECT_EQ(set(2).T, 270.0);
    EXPECT_EQ(cell(kGrid, 1, 2), "");
    user.answers = {dialogs::Answer::Yes};
    drive::popupRow("mnuSubDelLine1")->trigger();
    EXPECT_EQ(temperatures(), (std::vector<double>{280, 270, 290}));
    EXPECT_EQ(drive::popupRow("mnuPaste1")->text().section('\t', 0, 0), "paste");
    EXPECT_EQ(drive::popupRow("mnuSubDelNull1")->text().section('\t', 0, 0), "marked cell(s) => 0");
    EXPECT_EQ(drive::popupRow("mnuSubDelLine1")->text(), "remove marked line(s)");
    EXPECT_EQ(drive::get<QMenu>("mnuEdit1")->findChild<QMenu*>("mnuErase1")->title(), "delete");
}

TEST_F(MeasuredDataEditorTest, KnowsTheKeysOfTheClipboard) {
    openWithData();
    drive::usable(kGrid)->setFocus();
    mark(kGrid, 1, 1);
    drive::press(kGrid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(user.clipboard, "280\t300\t900\t5.5\t\t\r\n");
    mark(kGrid, 3, 3);
    drive::press(kGrid, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(temperatures(), (std::vector<double>{280, 270, 280, 290}));
    drive::press(kGrid, Qt::Key_Delete);
    EXPECT_EQ(set(3).T, 0.0);
    EXPECT_EQ(count(), 4U);
}

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
