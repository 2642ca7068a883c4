#include <QMenu>

#include "common/numbers.h"
#include "gui/calc_view_test.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;
using drive::isChecked;
using drive::isEnabled;
using drive::isVisible;
using drive::press;
using drive::read;
using drive::select;
using drive::type;

class ResultViewTest : public CalcViewTest {
  protected:
    /// Three measured states of carbon dioxide, the second of them inactive.
    void startBatch(const char* row = "mnuCalc_2") {
        startProject("Carbon dioxide");
        useData({{0, 250, 100, 2.1F, 0, 0, 0},
                 {-1, 260, 100, 2.0F, 0, 0, 0},
                 {0, 270, 100, 1.9F, 0, 0, 0}});
        session.change()->batch_mode = true;
        choose(row);
    }

    std::filesystem::path protocolFile() const { return folder() / "26151101.CSV"; }
};

// ------------------------------------------------------------------------------------- panels

TEST_F(ResultViewTest, OpensForADirectCalculationWithoutBatchControls) {
    startProject("Carbon dioxide");
    session.change()->csv_separator = '\t';
    chooseTp();
    EXPECT_EQ(read("cmdCalc_OK"), "Close");
    EXPECT_EQ(read("fraBatchVorgabe"), " Specification value from input ");
    for (const char* hidden : {"cmdVor", "cmdRueck", "fraResultOutput"})
        EXPECT_FALSE(isVisible(hidden)) << hidden;
    for (const char* shown : {"fraProtokoll", "fraCalcErweitert", "cmdIsoCalc"})
        EXPECT_TRUE(isVisible(shown)) << shown;
    EXPECT_EQ(drive::entries("cmbSep"), QStringList({"semicolon", "comma", "Tab"}));
    EXPECT_EQ(read("cmbSep"), "Tab");
    EXPECT_EQ(drive::get("fraSep")->toolTip(), "semicolon recommended");
    EXPECT_FALSE(isChecked("ResPlus_1"));
    EXPECT_FALSE(isChecked("ResPlus_2"));
    EXPECT_FALSE(isChecked("chkUHS"));
    EXPECT_EQ(session->calculation.pages,
              (calculation::Pages{.residual = false, .derivatives = false}));
    EXPECT_EQ(read("statusZeile"), "");
    EXPECT_FALSE(isEnabled("cmdOpenNew"));
    EXPECT_TRUE(isEnabled("cmdShowManuInput"));
    EXPECT_TRUE(drive::get<QPlainTextEdit>("Liste")->isReadOnly());
    EXPECT_TRUE(QFontInfo(drive::get("Liste")->font()).fixedPitch());
}

struct PanelCase {
    const char* row;
    const char* caption;
    bool extended, protocol;
};

TEST_F(ResultViewTest, ShowsThePanelsThatBelongToEachRow) {
    startProject("Water");
    const PanelCase cases[] = {
        {"mnuCalc_0", "Result of the Calculation:  T, rho(V)  => p", true, true},
        {"mnuCalc_3", "Result of the Calculation:  p, rho => T", true, true},
        {"mnuCalc_8",
         "Result of the Calculation: T => Enthalpy of Vaporization according to \"Models\"", false,
         true},
        {"mnuCalc_9",
         "Result of the Calculation: p => Enthalpy of Vaporization according to \"Models\"", false,
         true},
        {"mnuCalc_11", "Result of the Calculation:  thermodynamic Fu(T) (global calculation)", true,
         true},
        {"mnuCalc_18", "Result of the Calculation: Comparison of Virial Coefficients", false, true},
        {"mnuCalc_sub_database_1", "Result of the Calculation: L density", false, true},
        {"mnuCalc_sub_database_2", "Result of the Calculation: S density", false, true},
        {"mnuCalc_sub_database_3", "Result of the Calculation: delta(LV)h equation", false, true},
        {"mnuCalc_sub_database_4", "Result of the Calculation: ideal-gas cp", false, true},
        {"mnuCalc_sub_database_5", "Result of the Calculation: cp(L)", false, true},
        {"mnuCalc_sub_database_6", "Result of the Calculation: cp(S)", false, true},
        {"mnuCalc_sub_sub_database_0", "Result of the Calculation: FRO", false, true},
        {"mnuCalc_sub_sub_database_1", "Result of the Calculation: WAG", false, true},
        {"mnuCalc_sub_sub_database_2", "Result of the Calculation: ALP", false, true},
        {"mnuCalc_sub_sub_database_3", "Result of the Calculation: AHP", false, true}};
    for (const PanelCase& c : cases) {
        choose(c.row);
        EXPECT_EQ(read("frmCalcOut").toStdString(), c.caption);
        EXPECT_TRUE(isVisible("frmParinput")) << c.row;
        EXPECT_EQ(isVisible("fraCalcErweitert"), c.extended) << c.row;
        EXPECT_EQ(isVisible("fraProtokoll"), c.protocol) << c.row;
        EXPECT_TRUE(isVisible("cmdIsoCalc")) << c.row;
    }
}

TEST_F(ResultViewTest, HidesTheListOutputForFunctionsOfTheDatabaseInBatchOperation) {
    startProject("Water");
    useData({{0, 300, 100, 0, 0, 0, 0}});
    session.change()->batch_mode = true;
    for (const auto& [row, shown] : {std::pair{"mnuCalc_2", true},
                                     {"mnuCalc_11", true},
                                     {"mnuCalc_18", false},
                                     {"mnuCalc_sub_database_1", false}}) {
        choose(row);
        EXPECT_EQ(isVisible("fraResultOutput"), shown) << row;
        EXPECT_EQ(read("cmdCalc_OK"), "=>Load");
        EXPECT_FALSE(isVisible("frmParinput")) << row;
    }
}

TEST_F(ResultViewTest, DisablesTheExtendedPagesOfAPartialEquilibrium) {
    startProject("Carbon dioxide");
    drive::when("frmCalcIn", [] {
        click("opt_glob_1");
        click("OK");
    });
    choose("mnuCalc_5");
    EXPECT_EQ(read("frmCalcOut"), "Result of the Calculation:  T => p(LV) (partial calculation)");
    for (const char* disabled : {"fraCalcErweitert", "ResPlus_1", "ResPlus_2", "chkUHS"})
        EXPECT_FALSE(isEnabled(disabled)) << disabled;
    type("par_0", "270");
    click("cmdParameter_OK");
    EXPECT_FALSE(isEnabled("cmdCEOSDiagnose"));

    drive::when("frmCalcIn", [] { click("OK"); });
    choose("mnuCalc_5");
    EXPECT_EQ(read("frmCalcOut"), "Result of the Calculation:  T => p(LV) (global calculation)");
    type("par_0", "270");
    click("cmdParameter_OK");
    for (const char* enabled : {"ResPlus_1", "ResPlus_2", "chkUHS", "cmdCEOSDiagnose"})
        EXPECT_TRUE(isEnabled(enabled)) << enabled;
}

// --------------------------------------------------------------------------------- the result

TEST_F(ResultViewTest, MarksRedTextsBySignsAsWell) {
    startProject("Carbon dioxide");
    drive::when("frmCalcIn", [] { click("OK"); });
    choose("mnuCalc_5");
    EXPECT_EQ(read("par1"), "no T in this data set");
    EXPECT_TRUE(isVisible("par1_sign"));
    EXPECT_EQ(read("par1_sign"), "!");
    type("par_0", "310");
    click("cmdParameter_OK");
    EXPECT_EQ(read("par1"), "T = 310.000 K > T(cr) !!!");
    EXPECT_TRUE(isVisible("par1_sign"));
    type("par_0", "300");
    click("cmdParameter_OK");
    EXPECT_EQ(read("par1"), "T = 300.000 K");
    EXPECT_FALSE(isVisible("par1_sign"));
}

TEST_F(ResultViewTest, BeginsEveryRedLineOfTheListWithASign) {
    startProject("Carbon dioxide", [] { click("PriorOpt_1"); });
    drive::when("frmCalcIn", [] { click("OK"); });
    choose("mnuCalc_5");
    type("par_0", "270");
    click("cmdParameter_OK");
    int red = 0;
    const QStringList shown = read("Liste").split('\n');
    const auto& lines = session->results.current.report.lines;
    ASSERT_EQ(static_cast<std::size_t>(shown.size()), lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const QString text = QString::fromStdString(lines[i].text);
        EXPECT_EQ(shown[static_cast<qsizetype>(i)], lines[i].red ? "! " + text : text);
        red += lines[i].red ? 1 : 0;
    }
    EXPECT_EQ(red, 3);
    EXPECT_TRUE(
        lists("!             (Calculation of density not possible by using a vapour pressure "
              "equation!)"));
}

TEST_F(ResultViewTest, SetsTheCaptionsOfThePhasesAboveTheirColumns) {
    startProject("Carbon dioxide");
    chooseTp();
    EXPECT_FALSE(isVisible("lblLphase"));
    calculate("300", "5000");
    auto* liste = drive::get<QPlainTextEdit>("Liste");
    const QString row = read("Liste").section('\n', 0, 0);
    ASSERT_TRUE(row.startsWith("density"));
    // The end of the row of the V column lies where its caption ends.
    QTextCursor cursor(liste->document());
    cursor.movePosition(QTextCursor::EndOfBlock);
    const int end =
        liste->viewport()->mapTo(drive::get("frmCalcOut"), liste->cursorRect(cursor).topLeft()).x();
    const auto* caption = drive::get<QLabel>("lblVphase");
    const int captionEnd =
        caption->mapTo(drive::get("frmCalcOut"), QPoint(caption->width(), 0)).x();
    EXPECT_NEAR(captionEnd, end, 3);
    EXPECT_FALSE(isVisible("lblGleich"));

    calculate("400", "9000");
    EXPECT_TRUE(isVisible("lblGleich"));
    EXPECT_EQ(read("lblGleich"), "identical with");
    EXPECT_EQ(read("co1"), "=> supercritical phase L = V (T > T(cr), p > p(cr))");
    EXPECT_TRUE(drive::get("co1")->font().bold());
    calculate("280", "9000");
    EXPECT_EQ(read("lblVphase"), "L-Phase");
    EXPECT_FALSE(isVisible("lblGleich"));
}

TEST_F(ResultViewTest, AddsPagesAsTheyAreChecked) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("300", "5000");
    EXPECT_FALSE(lists("Mechanical Coefficients"));
    click("ResPlus_1");
    EXPECT_EQ(session->calculation.pages,
              (calculation::Pages{.residual = true, .derivatives = false}));
    EXPECT_TRUE(lists("Mechanical Coefficients"));
    EXPECT_FALSE(lists("derivatives with respect to T, p, v"));
    click("ResPlus_2");
    EXPECT_EQ(session->calculation.pages,
              (calculation::Pages{.residual = true, .derivatives = true}));
    EXPECT_TRUE(lists("derivatives with respect to T, p, v"));
    click("ResPlus_1");
    EXPECT_EQ(session->calculation.pages,
              (calculation::Pages{.residual = false, .derivatives = true}));
    EXPECT_FALSE(lists("Mechanical Coefficients"));
    click("ResPlus_2");
    EXPECT_EQ(session->calculation.pages,
              (calculation::Pages{.residual = false, .derivatives = false}));
    EXPECT_FALSE(lists("thermodynamic Fu(T)"));
    click("chkUHS");
    EXPECT_TRUE(session->calculation.pages.functions);
    EXPECT_TRUE(lists("                               thermodynamic Fu(T)"));
    // A new opening begins without them.
    chooseTp();
    EXPECT_FALSE(isChecked("chkUHS"));
    EXPECT_FALSE(session->calculation.pages.functions);
}

TEST_F(ResultViewTest, RemarksOnAStateBelowTheTriplePointAndGoesOn) {
    startProject("Carbon dioxide");
    chooseTp();
    user.messages.clear();
    calculate("200", "100");
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "T < T(TP) (Triple Point)");
    EXPECT_EQ(user.lastTitle(), "Remark");
    EXPECT_TRUE(lists("density"));
}

// ----------------------------------------------------------------------------------- clipboard

TEST_F(ResultViewTest, CopiesTheWholeResultAsTextAndAsTable) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("300", "5000");
    press("Liste", Qt::Key_C, Qt::ControlModifier);
    const QString text = QString::fromStdString(user.clipboard);
    EXPECT_TRUE(text.startsWith("Substance: Carbon dioxide")) << user.clipboard;
    EXPECT_TRUE(text.contains(read("Liste")));
    EXPECT_FALSE(text.contains('\t'));
    user.clipboard.clear();
    click("cmdCopyText");
    EXPECT_EQ(QString::fromStdString(user.clipboard), text);
    EXPECT_EQ(read("statusZeile"), "Result copied as text");

    press("Liste", Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    const QStringList rows = QString::fromStdString(user.clipboard).split('\n');
    const QString density = rows.filter("density").value(0);
    const QStringList cells = density.split('\t');
    ASSERT_EQ(cells.size(), 4) << density.toStdString();
    EXPECT_EQ(cells[1], "kg/m^3");
    EXPECT_EQ(cells[2], "");
    EXPECT_DOUBLE_EQ(cells[3].toDouble(), numberBehind("Liste", "rho/ (kg/m^3)  ="));
    user.clipboard.clear();
    click("cmdCopyTable");
    EXPECT_EQ(QString::fromStdString(user.clipboard).split('\n'), rows);
}

TEST_F(ResultViewTest, CopiesASelection) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("300", "5000");
    auto* liste = drive::get<QPlainTextEdit>("Liste");
    QTextCursor cursor(liste->document());
    cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    liste->setTextCursor(cursor);
    click("cmdCopyText");
    const QStringList lines = read("Liste").split('\n');
    EXPECT_EQ(QString::fromStdString(user.clipboard), lines[0] + "\n" + lines[1]);
    click("cmdCopyTable");
    const QStringList table = QString::fromStdString(user.clipboard).split('\n');
    EXPECT_TRUE(table.value(0).startsWith("Substance\tCarbon dioxide"));
    EXPECT_EQ(table.filter("L-Phase").size(), 1);
    EXPECT_TRUE(table.filter("density rho\tkg/m^3\t").size() == 1 &&
                table.filter("Volume v\tm^3/kmol\t").size() == 1);
    EXPECT_EQ(table.filter("A\t\t").size(), 0) << "a line that was not selected";
    EXPECT_EQ(read("statusZeile"), "Selection copied as table");
}

TEST_F(ResultViewTest, OffersCopyingInAMenu) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("300", "5000");
    bool seen = false;
    QTimer::singleShot(0, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        seen = menu->objectName() == "ListeMenu";
        menu->findChild<QAction*>("mnuCopyTable")->trigger();
        menu->close();
    });
    auto* liste = drive::get<QPlainTextEdit>("Liste");
    QContextMenuEvent ask(QContextMenuEvent::Keyboard, QPoint(5, 5), QCursor::pos());
    QApplication::sendEvent(liste, &ask);
    EXPECT_TRUE(seen);
    EXPECT_NE(user.clipboard.find('\t'), std::string::npos);
}

TEST_F(ResultViewTest, ShowsAndCopiesNumbersWithADecimalComma) {
    numbers::set_decimal_mark(',');
    startProject("Carbon dioxide");
    chooseTp();
    calculate("300,5", "5000");
    EXPECT_EQ(read("par1"), "T = 300,500 K");
    EXPECT_TRUE(
        QRegularExpression("rho/ \\(kg/m\\^3\\)  = +\\d+,\\d+").match(read("Liste")).hasMatch());
    calculate("300.5", "5e3");
    EXPECT_EQ(read("par1"), "T = 300,500 K");
    EXPECT_EQ(read("par2"), "p = 5000,000 kPa");
}

// --------------------------------------------------------------------------------------- batch

TEST_F(ResultViewTest, StepsThroughTheActiveDataSets) {
    startBatch();
    EXPECT_EQ(read("fraBatchVorgabe"), " Specification value from set #1");
    EXPECT_EQ(read("par1"), "T = 250.000 K");
    click("cmdVor");
    EXPECT_EQ(read("fraBatchVorgabe"), " Specification value from set #3");
    EXPECT_EQ(read("par1"), "T = 270.000 K");
    EXPECT_EQ(user.beeps, 0);
    click("cmdVor");
    EXPECT_EQ(user.beeps, 1);
    EXPECT_EQ(read("fraBatchVorgabe"), " Specification value from set #3");
    click("cmdRueck");
    EXPECT_EQ(read("fraBatchVorgabe"), " Specification value from set #1");
    click("cmdRueck");
    EXPECT_EQ(user.beeps, 2);
    EXPECT_EQ(read("par1"), "T = 250.000 K");
    EXPECT_EQ(session->results.rows.size(), 3U);
    EXPECT_EQ(session->results.rows[2].phases, " V ");
    EXPECT_EQ(session->results.rows[1].phases, "   ");
}

TEST_F(ResultViewTest, BeginsWithTheFirstActiveDataSet) {
    startProject("Carbon dioxide");
    useData({{-1, 250, 100, 0, 0, 0, 0}, {0, 260, 100, 0, 0, 0, 0}});
    session.change()->batch_mode = true;
    choose("mnuCalc_2");
    EXPECT_EQ(read("fraBatchVorgabe"), " Specification value from set #2");
    EXPECT_TRUE(user.messages.empty()) << user.lastText();
}

TEST_F(ResultViewTest, WritesTheListOfResultsToAFileAndCloses) {
    startBatch();
    click("optResultPrint_2");
    user.fileAnswers = {(folder() / "co2.LST").string()};
    click("cmdCalc_OK");
    ASSERT_FALSE(user.files.empty());
    const dialogs::FileChoice& choice = user.files.back();
    EXPECT_TRUE(choice.save);
    EXPECT_EQ(choice.title, "Save QUOR result list as ...");
    EXPECT_EQ(choice.filter, "Result file (*.LST)|*.LST");
    EXPECT_EQ(choice.default_extension, ".LST");
    EXPECT_TRUE(choice.overwrite_prompt);
    EXPECT_FALSE(isVisible("frmCalcOut"));
    const std::string list = content(folder() / "co2.LST");
    EXPECT_EQ(list.rfind("QUOR Results of Calculation\r\n", 0), 0U) << list;
    EXPECT_NE(list.find("arithmet. mean of ABS(%-deviations):"), std::string::npos);
}

TEST_F(ResultViewTest, StaysOpenWhenTheListIsCancelledOrCannotBeWritten) {
    startBatch();
    click("optResultPrint_2");
    user.fileAnswers = {std::nullopt};
    click("cmdCalc_OK");
    EXPECT_TRUE(isVisible("frmCalcOut"));
    EXPECT_TRUE(user.messages.empty());
    user.fileAnswers = {(folder() / "no such folder" / "x.LST").string()};
    click("cmdCalc_OK");
    EXPECT_TRUE(isVisible("frmCalcOut"));
    EXPECT_EQ(user.messages.size(), 1U);
}

TEST_F(ResultViewTest, PrintsTheListWithItsPagesOnDemand) {
    startBatch();
    EXPECT_FALSE(isEnabled("chkFuncPrint"));
    click("ResPlus_2");
    ASSERT_TRUE(isEnabled("chkFuncPrint"));
    click("chkFuncPrint");
    click("optResultPrint_1");
    click("cmdCalc_OK");
    ASSERT_EQ(user.prints.size(), 1U);
    EXPECT_EQ(user.prints[0].font, "COURIER");
    EXPECT_NE(user.prints[0].text.find("QUOR: Results of Calculation"), std::string::npos);
    EXPECT_NE(user.prints[0].text.find("T -, p -, v - derivatives and thermodynamic functions"),
              std::string::npos);
    EXPECT_FALSE(isVisible("frmCalcOut"));
}

TEST_F(ResultViewTest, OffersNoPagesInTheListOfCaloricFunctions) {
    startBatch("mnuCalc_11");
    click("ResPlus_2");
    EXPECT_FALSE(isEnabled("chkFuncPrint"));
}

TEST_F(ResultViewTest, ABatchWithoutDataTellsSoAndEndsInNoT) {
    startProject("Carbon dioxide");
    session.change()->batch_mode = true;
    choose("mnuCalc_2");
    ASSERT_FALSE(user.messages.empty());
    EXPECT_EQ(user.messages.front().title, "Execution not possible");
    EXPECT_EQ(read("par1"), "no T in this data set");
}

// ------------------------------------------------------------------------------------ protocol

TEST_F(ResultViewTest, CollectsResultsInAProtocolAndWritesThem) {
    startProject("Carbon dioxide");
    chooseTp();
    EXPECT_EQ(read("lblProtText2"), "26151101.CSV");
    calculate("300", "5000");
    const double v1 = session->results.current.numbers[9];
    click("cmdProtokoll");
    EXPECT_EQ(read("statusZeile"), "1 result in the protocol");
    calculate("290", "4000");
    const double v2 = session->results.current.numbers[9];
    click("cmdProtokoll");
    EXPECT_TRUE(session->protocol.pending);
    EXPECT_EQ(session->protocol.rows.size(), 2U);
    ASSERT_TRUE(isEnabled("cmdOpenNew"));
    EXPECT_FALSE(std::filesystem::exists(protocolFile()));
    click("cmdOpenNew");
    EXPECT_FALSE(isEnabled("cmdOpenNew"));
    EXPECT_FALSE(session->protocol.pending);
    EXPECT_EQ(read("lblProtText2"), "26151102.CSV");
    const QStringList lines =
        QString::fromStdString(content(protocolFile())).split("\r\n", Qt::SkipEmptyParts);
    ASSERT_GE(lines.size(), 8);
    EXPECT_EQ(lines[0],
              "QUOR-6: p-V-T Calculations of States and Processes - Protocol from 15.11.2026");
    EXPECT_EQ(lines[1], "Carbon dioxide");
    EXPECT_EQ(lines[lines.size() - 3], "T;p;v(V);");
    EXPECT_EQ(lines[lines.size() - 2],
              QString("300;5000;%1;").arg(numbers::general(static_cast<float>(v1)).c_str()));
    EXPECT_EQ(lines[lines.size() - 1],
              QString("290;4000;%1;").arg(numbers::general(static_cast<float>(v2)).c_str()));
    EXPECT_NE(user.clipboard.find("T\tp\tv(V)\t"), std::string::npos) << user.clipboard;
}

TEST_F(ResultViewTest, WritesThePendingProtocolAsTheViewCloses) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("300", "5000");
    click("cmdProtokoll");
    click("cmdCalc_OK");
    EXPECT_FALSE(isVisible("frmCalcOut"));
    EXPECT_FALSE(session->protocol.pending);
    EXPECT_NE(content(protocolFile()).find("300;5000;"), std::string::npos);
    EXPECT_EQ(session->protocol.file, "26151102.CSV");
}

TEST_F(ResultViewTest, WritesThePendingProtocolAsTheProgramEnds) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("300", "5000");
    click("cmdProtokoll");
    choose("mnuData_Exit");
    EXPECT_NE(content(protocolFile()).find("300;5000;"), std::string::npos);
}

TEST_F(ResultViewTest, DeletesAnEmptyProtocolFileAsTheProgramEnds) {
    startProject("Carbon dioxide");
    std::ofstream(protocolFile()).close();
    session.change()->protocol.file = "26151101.CSV";
    choose("mnuData_Exit");
    EXPECT_FALSE(std::filesystem::exists(protocolFile()));
}

TEST_F(ResultViewTest, KeepsThePendingProtocolWhenItCannotBeWritten) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("300", "5000");
    click("cmdProtokoll");
    session.change()->protocol.file = (folder() / "no such folder" / "x.CSV").string();
    user.messages.clear();
    click("cmdCalc_OK");
    EXPECT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_TRUE(session->protocol.pending);
    // The next result view offers it again.
    session.change()->protocol.file = "26151101.CSV";
    chooseTp();
    ASSERT_TRUE(isEnabled("cmdOpenNew"));
    click("cmdOpenNew");
    EXPECT_NE(content(protocolFile()).find("300;5000;"), std::string::npos);
}

TEST_F(ResultViewTest, WarnsOfACommaAsDelimiterWithADecimalComma) {
    numbers::set_decimal_mark(',');
    session.change()->decimal_comma = true;
    startProject("Carbon dioxide");
    session.change()->decimal_comma = true;
    chooseTp();
    calculate("300", "5000");
    select("cmbSep", "comma");
    EXPECT_EQ(session->csv_separator, ',');
    user.messages.clear();
    click("cmdProtokoll");
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(),
              "Bei Computereinstellung \"Deutschland\" (Dezimalzeichen Komma)\n"
              "ist Komma als Dateitrennzeichen nicht sinnvoll; der Clipboard-Inhalt\n"
              "ist nicht mehr Excel-kompatibel.\nsemicolon recommended");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_TRUE(session->protocol.pending);
    select("cmbSep", "semicolon");
    user.messages.clear();
    click("cmdProtokoll");
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(session->protocol.rows.size(), 2U);
}

TEST_F(ResultViewTest, ChangesTheDelimiterOfProtocols) {
    startProject("Carbon dioxide");
    chooseTp();
    for (const auto& [name, delimiter] :
         {std::pair{"comma", ','}, {"Tab", '\t'}, {"semicolon", ';'}}) {
        select("cmbSep", name);
        EXPECT_EQ(session->csv_separator, delimiter);
    }
}

// ----------------------------------------------------------------------------- other commands

TEST_F(ResultViewTest, RefusesTheIsoCalculatorWithoutTAndP) {
    startProject("Carbon dioxide");
    choose("mnuCalc_11");
    EXPECT_FALSE(isEnabled("cmdIsoCalc"));
    EXPECT_EQ(drive::get<QPushButton>("cmdIsoCalc")->toolTip(), "not yet a T|p value available!");
    calculate("350", "4000");
    click("cmdIsoCalc");
    EXPECT_TRUE(isVisible("frmIsoCalc"));
}

// It took the typed values, of which one is missing here, and said "No solution found" from p = 0.
TEST_F(ResultViewTest, TheIsoCalculatorStartsFromTheCalculatedState) {
    startProject("Carbon dioxide");
    drive::when("frmCalcIn", [] { click("OK"); });
    choose("mnuCalc_5");
    type("par_0", "280");
    click("cmdParameter_OK");
    const double p = session->results.current.answer.p;
    ASSERT_GT(p, 4000);
    click("cmdIsoCalc");
    EXPECT_NEAR(read("lblIsoState").section("p = ", 1).section(' ', 0, 0).toDouble(), p, 1e-2);
    click("OptIsoFu_3");
    type("txtTpVorgabe", "5000");
    click("cmdCalc");
    // Compressed from its saturation the vapour gets hotter.
    const double T = read("txtTpCalc").toDouble();
    EXPECT_GT(T, 285);
    EXPECT_LT(T, 310);
}

TEST_F(ResultViewTest, PrintsAResultAndTheStateOfTheIsoCalculator) {
    startProject("Carbon dioxide");
    choose("mnuCalc_11");
    calculate("350", "4000");
    press("Liste", Qt::Key_P, Qt::ControlModifier);
    ASSERT_EQ(user.prints.size(), 1U);
    const QString result = QString::fromStdString(user.prints[0].text);
    EXPECT_TRUE(result.startsWith("Substance: Carbon dioxide"));
    EXPECT_TRUE(result.contains(read("Liste")));
    click("cmdIsoCalc");
    press("txtTpVorgabe", Qt::Key_P, Qt::ControlModifier);
    ASSERT_EQ(user.prints.size(), 2U);
    const QString iso = QString::fromStdString(user.prints[1].text);
    EXPECT_TRUE(iso.startsWith("Substance: Carbon dioxide"));
    EXPECT_TRUE(iso.contains(read("lblIsoState")));
}

TEST_F(ResultViewTest, StaysOpenWhenPrintingIsCancelled) {
    startProject("Carbon dioxide");
    useData({{0, 330, 1000, 0, 0, 0, 0}});
    session.change()->batch_mode = true;
    choose("mnuCalc_11");
    click("optResultPrint_1");
    user.cancelsPrinting = true;
    click("cmdCalc_OK");
    EXPECT_TRUE(isVisible("frmCalcOut"));
    user.cancelsPrinting = false;
    click("cmdCalc_OK");
    EXPECT_FALSE(isVisible("frmCalcOut"));
    EXPECT_EQ(user.prints.size(), 1U);
}

TEST_F(ResultViewTest, PrintsTheDiagnosisWithItsPictureIntoAPdf) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("280", "3000");
    click("cmdCEOSDiagnose");
    const std::filesystem::path file = folder() / "diagnosis.pdf";
    drive::when("PrintDialog", [&] {
        drive::get<QLineEdit>("filename")->setText(QString::fromStdString(file.string()));
        drive::get<QDialog>("PrintDialog")->accept();
    });
    auto* view = frame.findChild<QWidget*>("frmCEOSDiagnose");
    view->findChild<QPushButton*>("cmdPrint")->click();
    QFile pdf(QString::fromStdString(file.string()));
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    const QByteArray content = pdf.readAll();
    EXPECT_TRUE(content.startsWith("%PDF"));
    EXPECT_EQ(content.count("/Type /Page\n"), 1);
    EXPECT_FALSE(content.contains("/Subtype /Image")) << "the isotherm is drawn, not a bitmap";
    EXPECT_GT(content.size(), 8000);
}

TEST_F(ResultViewTest, WriteIsOffWithoutAResult) {
    startProject("Carbon dioxide");
    chooseTp();
    EXPECT_FALSE(isEnabled("cmdProtokoll"));
    EXPECT_EQ(drive::get<QPushButton>("cmdProtokoll")->toolTip(), "There is no result to write");
    calculate("300", "5000");
    EXPECT_TRUE(isEnabled("cmdProtokoll"));
    calculate("300", "");
    EXPECT_FALSE(isEnabled("cmdProtokoll"));
    EXPECT_FALSE(session->protocol.pending);
}

TEST_F(ResultViewTest, MakesItsCloseButtonTheDefaultForCaloricFunctions) {
    startProject("Carbon dioxide");
    choose("mnuCalc_11");
    EXPECT_TRUE(drive::get<QPushButton>("cmdCalc_OK")->isDefault());
    calculate("350", "4000");
    EXPECT_EQ(frame.focusWidget()->objectName(), "Liste");
    press("Liste", Qt::Key_Return);
    EXPECT_FALSE(isVisible("frmCalcOut"));
    EXPECT_FALSE(isVisible("frmParinput"));
    chooseTp();
    EXPECT_FALSE(drive::get<QPushButton>("cmdCalc_OK")->isDefault());
}

TEST_F(ResultViewTest, ClosesWithItsInputByButtonAndByEscape) {
    startProject("Carbon dioxide");
    chooseTp();
    click("cmdCalc_OK");
    EXPECT_FALSE(isVisible("frmCalcOut"));
    EXPECT_FALSE(isVisible("frmParinput"));
    chooseTp();
    press("Liste", Qt::Key_Escape);
    EXPECT_FALSE(isVisible("frmCalcOut"));
    EXPECT_FALSE(isVisible("frmParinput"));
}

TEST_F(ResultViewTest, OpensAgainWhenANewCalculationFindsItClosed) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("300", "5000");
    drive::get("frmCalcOut")->parentWidget()->close();
    drive::settle();
    EXPECT_FALSE(isVisible("frmCalcOut"));
    calculate("310", "5000");
    ASSERT_TRUE(isVisible("frmCalcOut"));
    EXPECT_EQ(read("par1"), "T = 310.000 K");
}

TEST_F(ResultViewTest, OpensTheXYEditorOnceThereIsOne) {
    startProject("Carbon dioxide");
    int opened = 0;
    desk.doors.editXy = [&] { ++opened; };
    chooseTp();
    click("cmdShowManuInput");
    EXPECT_EQ(opened, 1);
}

}  // namespace
