#include <QTableView>
#include <cmath>

#include "common/numbers.h"
#include "gui/measured_data_editor_test.h"
#include "gui/widgets/number_edit.h"
#include "models/unit_text.h"
#include "session/options.h"

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

TEST_F(MeasuredDataEditorTest, FollowsTheUnitsOfTheProgramAndBack) {
    openWithData();
    const auto shown = [](int column) {
        return drive::get<QTableView>(kGrid)->model()->index(0, column).data().toString();
    };
    EXPECT_FALSE(drive::isVisible("opt_T_unit_2"));
    ASSERT_TRUE(session::apply_units(session, *models::read_choice("us")));
    drive::settle();
    EXPECT_TRUE(drive::isVisible("opt_T_unit_2"));
    EXPECT_EQ(drive::read("opt_T_unit_2"), "°F");
    EXPECT_TRUE(drive::isChecked("opt_p_Unit_3"));
    EXPECT_EQ(shown(0), "44.33") << "280 K";
    EXPECT_NEAR(shown(1).toDouble(), 300 / 6.894757, 1e-4);
    ASSERT_TRUE(session::apply_units(session, *models::read_choice("T=degC,p=atm")));
    drive::settle();
    EXPECT_TRUE(drive::isChecked("opt_T_unit_1")) << "the table has this unit itself";
    EXPECT_TRUE(drive::isChecked("opt_p_Unit_1"));
    EXPECT_FALSE(drive::isVisible("opt_T_unit_2"));
    EXPECT_EQ(shown(0), "6.85");
    ASSERT_TRUE(session::apply_units(session, {}));
    drive::settle();
    EXPECT_TRUE(drive::isChecked("opt_T_unit_0"));
    EXPECT_EQ(shown(0), "280");
    EXPECT_EQ(shown(1), "300");
    drive::type("txtInput_0", "27 degC");
    drive::type("txtInput_1", "2 bar");
    click("OKinput");
    EXPECT_NEAR(set(4).T, 300.15, 1e-9);
    EXPECT_NEAR(set(4).p, 200, 1e-9);
}

}  // namespace
