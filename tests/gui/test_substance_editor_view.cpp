#include <cmath>
#include <set>

#include "common/text.h"
#include "datafiles/substance_editor.h"
#include "gui/data/substance_editor_view.h"
#include "gui/editor_drive.h"
#include "gui/frame_test.h"
#include "session/commands.h"
#include "session/substance_session.h"
#include "support/codes.h"
#include "support/databases.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using datafiles::editor_field_table;
using datafiles::EditorField;
using datafiles::EditorTab;
using drive::click;
using drive::read;
using drive::type;

QString name_of(int index) {
    return QString("DD_%1").arg(index);
}

/// The number in a field of the record, whatever its width.
double number_in(const models::SubstanceRecord& record, const EditorField& field) {
    struct Number {
        double operator()(float v) const { return static_cast<double>(v); }
        double operator()(double v) const { return v; }
        double operator()(std::int16_t v) const { return v; }
        double operator()(bool) const { return NAN; }
        double operator()(const std::string&) const { return NAN; }
    };
    return std::visit(Number{}, datafiles::value_of(record, datafiles::place_of(field)));
}

class BankEdit : public ViewTest {
  protected:
    BankEdit() {
        const std::filesystem::path file = folder() / "ONE.Q05";
        databases::Write(file, {databases::Row("Carbon dioxide")});
        session::load_database(session, file.string());
        session::take_substance(session, 1);
        change([](auto& s) {
            s.models.vapour_pressure = codes::vp(4);
            s.models.eos = codes::eos(6);
            s.models.vaporisation = codes::hlv(2);
        });
    }
    void TearDown() override {
        user.answers.assign(4, dialogs::Answer::Yes);  // what is left open is given up
        if (view) view->close();
        view.reset();
        ViewTest::TearDown();
    }

    void open(bool readOnly = false) {
        view = std::make_unique<SubstanceEditorView>(desk, readOnly);
        view->show();
        drive::settle();
    }
    /// Brings the tab of a field to the front.
    static void reach(const EditorField& field) {
        if (field.tab == EditorTab::Head) return;
        const std::string_view caption = datafiles::editor_tab_caption(field.tab);
        drive::tab("SSTab1",
                   QString::fromUtf8(caption.data(), static_cast<qsizetype>(caption.size())));
    }
    static void typeInto(int index, const QString& text) {
        reach(editor_field_table()[static_cast<std::size_t>(index)]);
        type(name_of(index), text);
    }

    std::unique_ptr<SubstanceEditorView> view;
};

TEST_F(BankEdit, ShowsEveryFieldOfTheRecord) {
    int value = 300;
    models::SubstanceRecord substance;
    substance.name = "Somethane";
    substance.formula = "C2 H9";
    substance.casrn = "12-34-5     ";
    for (const EditorField& field : editor_field_table()) {
        ++value;
        if (field.is_text()) continue;
        ASSERT_TRUE(datafiles::set_field(substance, field.name, std::to_string(value)))
            << field.name;
    }
    change([&](auto& s) { s.substance = substance; });
    open();
    value = 300;
    for (const EditorField& field : editor_field_table()) {
        ++value;
        reach(field);
        ASSERT_TRUE(drive::isVisible(name_of(field.index))) << field.index;
        const bool correlated = field.name.starts_with("KF") || field.name.starts_with("THO");
        if (field.is_text() || correlated) continue;
        EXPECT_EQ(read(name_of(field.index)).toStdString(), " " + std::to_string(value))
            << field.name;
    }
    EXPECT_EQ(read("DD_83"), "Somethane");
    EXPECT_EQ(read("DD_84"), "C2 H9");
    EXPECT_EQ(read("DD_85"), "12-34-5");
}

TEST_F(BankEdit, SaysWhatItShows) {
    change([](auto& s) {
        s.substance.Ttriple = 0;
        s.substance.ptriple = 1e-37F;
    });
    open();
    EXPECT_EQ(read("DD_2"), "<>");
    EXPECT_EQ(read("DD_3"), " 0");
    EXPECT_EQ(read("lblLegend"), "<> = empty");
    EXPECT_EQ(read("lblNote"), " Note: Any changes are lost without \"Apply\" ");
    EXPECT_EQ(read("statusZeile"), "Database loaded:  ONE.Q05");
    EXPECT_TRUE(view->windowTitle().startsWith("View/Edit Data"));
    drive::tab("SSTab1", "Vapour Pressure");
    EXPECT_EQ(read("lblVP"), "actual vapour-pressure equation: Wagner");
    drive::tab("SSTab1", "Heat Capacity");
    EXPECT_EQ(read("lblCpForms"),
              "Polynomial: cp = C0 + C1*T + C2*T^2 + C3*T^3 + C4*T^4 \n"
              "Case C0 = 0:    cp = C1 + C2*T + C3*T^2 + C4*T^(-2) \n"
              "Case C0 <> 0:  cp = C0 + C1*T + C2*T^2 + C3*T^3 + C4*T^4 ");
}

TEST_F(BankEdit, WithoutCriticalDataTheCorrelatedSetsAreEmpty) {
    change([](auto& s) { s.substance.pcrit = 0; });
    open();
    for (const int index : {48, 50, 86, 96, 97, 107}) EXPECT_EQ(read(name_of(index)), "") << index;
}

TEST_F(BankEdit, EveryFieldTakesAValue) {
    open();
    int value = 200;
    for (const EditorField& field : editor_field_table()) {
        reach(field);
        if (!field.editable) {
            EXPECT_TRUE(drive::get<QLineEdit>(name_of(field.index))->isReadOnly()) << field.index;
            continue;
        }
        type(name_of(field.index),
             field.is_text() ? QString("Text%1").arg(field.index) : QString::number(++value));
    }
    click("OK");
    EXPECT_TRUE(user.messages.empty());
    value = 200;
    for (const EditorField& field : editor_field_table()) {
        if (!field.editable || field.is_text()) continue;
        EXPECT_EQ(number_in(session->substance, field), ++value) << field.name;
    }
    EXPECT_EQ(session->substance.name, "Text83");
    EXPECT_EQ(session->substance.formula, "Text84");
    EXPECT_EQ(session->substance.casrn, "Text85      ");
}

TEST_F(BankEdit, NothingReachesTheRecordBeforeApply) {
    const double before = session->substance.Tcrit;
    open();
    type("DD_4", "400");
    EXPECT_EQ(session->substance.Tcrit, before);
    click("OK");
    EXPECT_EQ(session->substance.Tcrit, 400);
}

TEST_F(BankEdit, AZeroAndAnEmptyFieldAreTwoThings) {
    open();
    type("DD_122", "0");
    type("DD_2", "");
    click("OK");
    EXPECT_EQ(session->substance.sconv, 1e-37F);
    EXPECT_EQ(read("DD_122"), " 0");
    EXPECT_EQ(session->substance.Ttriple, 0);
    EXPECT_EQ(read("DD_2"), "<>");
}

TEST_F(BankEdit, TextsNeverBecomeTheStoredZero) {
    open();
    for (const int index : {83, 84, 85}) type(name_of(index), "0");
    click("OK");
    EXPECT_EQ(session->substance.name, "0");
    EXPECT_EQ(session->substance.formula, "0");
    EXPECT_EQ(session->substance.casrn, "0           ");
}

TEST_F(BankEdit, AValueMayBeTypedWithItsUnit) {
    open();
    type("DD_4", "96.67 degC");
    type("DD_5", "41,92 bar");
    EXPECT_EQ(read("DD_5"), "41.92bar");
    type("DD_2", "85 kg");
    EXPECT_EQ(read("DD_2"), "85") << "a mass is no temperature";
    type("DD_2", "85.5");
    click("OK");
    EXPECT_NEAR(session->substance.Tcrit, 369.82, 1e-9);
    EXPECT_NEAR(session->substance.pcrit, 4192, 1e-9);
    EXPECT_EQ(read("DD_4").trimmed(), "369.82");
}

TEST_F(BankEdit, FieldsSwallowWhatIsNoNumber) {
    open();
    type("DD_0", "a4x4,0+1 E-<3>");
    EXPECT_EQ(read("DD_0"), "44.01E-3");
    drive::get<QLineEdit>("DD_0")->selectAll();
    QTest::keyClicks(drive::find("DD_0"), "x");
    EXPECT_EQ(read("DD_0"), "44.01E-3") << "a swallowed key takes nothing away";
    type("DD_2", "");
    click("OK");
    drive::get<QLineEdit>("DD_2")->setFocus();
    drive::get<QLineEdit>("DD_2")->setCursorPosition(2);
    QTest::keyClicks(drive::find("DD_2"), "216");
    EXPECT_EQ(read("DD_2"), "216") << "typing replaces the sign of the empty field";
}

TEST_F(BankEdit, ANameTakesAsMuchAsTheFileHolds) {
    open();
    type("DD_83", QString(50, 'n'));
    type("DD_85", QString(20, '1'));
    EXPECT_EQ(read("DD_83").size(), 40);
    EXPECT_EQ(read("DD_85").size(), 12);
}

TEST_F(BankEdit, UnchangedDataCloseWithoutAQuestion) {
    open();
    click("ESC");
    EXPECT_FALSE(drive::isVisible("frmBankEdit"));
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(BankEdit, ChangedDataAreQuestionedBeforeTheyAreLost) {
    open();
    type("DD_0", "45");
    user.answers = {dialogs::Answer::No, dialogs::Answer::Yes};
    click("ESC");
    EXPECT_EQ(user.lastText(), "Your changes are lost here (use \"Apply\")\n\nClose nevertheless?");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    ASSERT_TRUE(drive::isVisible("frmBankEdit"));
    EXPECT_EQ(read("DD_0"), "45");
    view->close();
    EXPECT_FALSE(drive::isVisible("frmBankEdit"));
    EXPECT_NE(session->substance.M, 45);
    EXPECT_EQ(user.messages.size(), 2U);
}

TEST_F(BankEdit, AppliedDataCloseWithoutAQuestion) {
    open();
    type("DD_0", "45");
    click("OK");
    click("ESC");
    EXPECT_TRUE(user.messages.empty());
    EXPECT_FALSE(drive::isVisible("frmBankEdit"));
}

TEST_F(BankEdit, TheTriplePointPressureFollowsTheEquationOnDemand) {
    change([](auto& s) { s.substance.ptriple = 500; });
    open();
    click("optpSL_1");
    // Span and Wagner (1996): 517.95 kPa at 216.592 K.
    EXPECT_NEAR(read("DD_3").toDouble(), 517.95, 2.0);
    EXPECT_EQ(session->substance.ptriple, 500);
    click("optpSL_0");
    EXPECT_EQ(read("DD_3"), " 500");
}

TEST_F(BankEdit, ATriplePointPressureThatCannotBeHadIsTold) {
    change([](auto& s) { s.substance.Ttriple = 0; });
    open();
    const QString before = read("DD_3");
    click("optpSL_1");
    EXPECT_EQ(user.lastText(), "Error while calculating vapour pressure");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(read("DD_3"), before);
    EXPECT_TRUE(drive::isChecked("optpSL_0"));
}

TEST_F(BankEdit, AugustFollowsTheFieldsAndNotTheRecord) {
    open();
    const models::AugustSet before = session->substance.august;
    type("DD_1", "200");
    type("DD_4", "400");
    type("DD_5", "4000");
    drive::tab("SSTab1", "Vapour Pressure");
    click("cmdCorrelateAugust");
    // The line through ln(101.325) at 200 K and ln(4000) at 400 K over 1/T.
    const double B = (std::log(4000.0) - std::log(101.325)) / (1 / 400.0 - 1 / 200.0);
    const double A = std::log(101.325) - B / 200.0;
    EXPECT_NEAR(read("DD_46").toDouble(), A, 1e-4);
    EXPECT_NEAR(read("DD_47").toDouble(), B, 0.01);
    EXPECT_EQ(session->substance.august.A, before.A);
    EXPECT_EQ(session->substance.august.B, before.B);
}

TEST_F(BankEdit, TheOtherCorrelatedSetsAreRecalculatedEachByItself) {
    open();
    struct Command {
        const char* button;
        std::vector<int> fields;
    };
    const std::vector<Command> commands{{"cmdCorrelateAntoine", {48, 49}},
                                        {"cmdCorrelateKFW", {86, 87}},
                                        {"cmdCorrelateKFR", {97, 98}}};
    const models::SubstanceRecord before = session->substance;
    type("DD_1", "220");
    drive::tab("SSTab1", "Vapour Pressure");
    for (const Command& one : commands) {
        std::vector<QString> texts;
        for (const int index : one.fields) texts.push_back(read(name_of(index)));
        click(one.button);
        for (std::size_t i = 0; i < texts.size(); ++i)
            EXPECT_NE(read(name_of(one.fields[i])), texts[i]) << one.button;
    }
    EXPECT_EQ(session->substance.thompson.A, before.thompson.A);
    EXPECT_EQ(session->substance.frost_van_der_waals.a, before.frost_van_der_waals.a);
    EXPECT_EQ(session->substance.frost_redlich_kwong.a, before.frost_redlich_kwong.a);
}

TEST_F(BankEdit, WithoutItsReferencePointTheWatsonMethodIsLeft) {
    change([](auto& s) { s.models.vaporisation = codes::hlv(4); });
    open();
    typeInto(42, "");
    click("OK");
    EXPECT_EQ(models::code_of(session->models.vaporisation), 2);
    EXPECT_EQ(user.beeps, 1);
}

TEST_F(BankEdit, AMissingBoilingPointIsCalculated) {
    change([](auto& s) { s.substance.Tboil = 0; });
    open();
    EXPECT_EQ(read("DD_1"), "<>");
    click("OK");
    // Carbon dioxide reaches 101.325 kPa, extrapolated over the metastable liquid, near 186 K.
    EXPECT_NEAR(read("DD_1").toDouble(), 186, 3);
    EXPECT_GT(session->substance.Tboil, 180);
}

TEST_F(BankEdit, PrintsAllFieldsOfAllTabs) {
    open();
    type("DD_0", "44.5");
    click("cmdPrint");
    ASSERT_EQ(user.prints.size(), 1U);
    EXPECT_EQ(user.prints[0].font, "COURIER");
    const std::string& text = user.prints[0].text;
    for (const EditorField& field : editor_field_table())
        EXPECT_NE(text.find(text::trim(field.caption)), std::string::npos) << field.caption;
    EXPECT_NE(text.find("44.5"), std::string::npos) << "what is typed is printed";
    EXPECT_NE(text.find("\nVapour Pressure\n"), std::string::npos) << text;
}

TEST_F(BankEdit, WritesAPrivateDatabaseWithWhatIsTyped) {
    open();
    type("DD_83", "My dioxide");
    type("DD_0", "44.5");
    type("DD_122", "0");
    typeInto(18, "12.5");
    user.fileAnswers.push_back((folder() / "MINE.Q05").string());
    click("WriteDataBaseQ05");
    EXPECT_EQ(session->substance.name, "My dioxide") << "writing applies first";
    view->close();

    ASSERT_EQ(session::load_database(session, (folder() / "MINE.Q05").string()),
              session::LoadOutcome::Loaded);
    EXPECT_EQ(session->database.size(), 1U);
    change([](auto& s) { s.substance = {}; });
    const Result<session::SubstanceRead> read = session::read_substance(session, 1);
    ASSERT_TRUE(read);
    EXPECT_FALSE(read->no_critical_data);
    EXPECT_EQ(session->substance.name, "My dioxide");
    EXPECT_EQ(session->substance.M, 44.5F);
    EXPECT_EQ(session->substance.sconv, 213.8F) << "a private file keeps the entropy of its source";
    EXPECT_EQ(session->substance.rhoL_coefficients[0], 12.5F);
}

TEST_F(BankEdit, ACancelledFileKeepsTheChangesInTheSession) {
    open();
    type("DD_0", "44.5");
    user.fileAnswers.push_back(std::nullopt);
    click("WriteDataBaseQ05");
    EXPECT_EQ(session->substance.M, 44.5F);
    EXPECT_FALSE(std::filesystem::exists(folder() / "MINE.Q05"));
}

TEST_F(BankEdit, GroupContributionsFillTheFieldsOfTheirFrame) {
    using datafiles::GroupFrame;
    std::vector<GroupFrame> asked;
    desk.doors.estimate = [&](GroupFrame frame, datafiles::EditorTexts& texts, QWidget*) {
        asked.push_back(frame);
        texts[44] = "-1234";
    };
    open();
    click("cmdJOBACKCrit");
    click("cmdJOBACKBildung");
    EXPECT_EQ(read("DD_44"), "-1234");
    drive::tab("SSTab1", "Heat Capacity");
    click("cmdApplyJOBACKcp");
    EXPECT_EQ(asked, (std::vector<GroupFrame>{GroupFrame::Critical, GroupFrame::Formation,
                                              GroupFrame::HeatCapacity}));
    EXPECT_NE(session->substance.dfh, -1234);
}

TEST_F(BankEdit, ALookChangesNothing) {
    open(true);
    for (const EditorField& field : editor_field_table())
        EXPECT_TRUE(drive::get<QLineEdit>(name_of(field.index))->isReadOnly()) << field.index;
    for (const char* command :
         {"OK", "WriteDataBaseQ05", "cmdJOBACKCrit", "cmdJOBACKBildung", "cmdApplyJOBACKcp",
          "cmdCorrelateAugust", "cmdCorrelateAntoine", "cmdCorrelateKFW", "cmdCorrelateKFR"})
        EXPECT_FALSE(drive::isEnabled(command)) << command;
    EXPECT_EQ(read("lblNote"), "...but not editable from here ");
    click("ESC");
    EXPECT_FALSE(drive::isVisible("frmBankEdit"));
}

TEST_F(BankEdit, HelpButtonsAreOffWithoutHelpAndOpenTheirPages) {
    constexpr std::array kButtons{"Hilfe",     "cmdP0",      "cmdAntCorrHelp", "cmdRhoHelp",
                                  "cmdCpHelp", "cmdHLVHelp", "cmdHLV"};
    open();
    for (const char* button : kButtons) EXPECT_FALSE(drive::isEnabled(button)) << button;
    view->close();
    std::vector<int> pages;
    desk.doors.help = [&pages](int page) { pages.push_back(page); };
    open();
    for (const char* button : kButtons) drive::get<QAbstractButton>(button)->click();
    EXPECT_EQ(pages.size(), kButtons.size());
    EXPECT_EQ(std::set<int>(pages.begin(), pages.end()).size(), kButtons.size());
}

// --------------------------------------------------------------------------- from the main window

class BankEditInFrame : public FrameTest {};

TEST_F(BankEditInFrame, TheMenuOpensIt) {
    start();
    EXPECT_FALSE(drive::offers("mnuData_EditStoffdaten"));
    openSubstance("Carbon dioxide");
    drive::when("frmBankEdit", [] {
        EXPECT_EQ(read("DD_83"), "Carbon dioxide");
        EXPECT_TRUE(drive::isEnabled("OK"));
        type("DD_83", "Dry ice");
        click("OK");
        click("ESC");
    });
    drive::choose("mnuData_EditStoffdaten");
    EXPECT_TRUE(read("StatusBar1_1").contains("Dry ice")) << read("StatusBar1_1").toStdString();
}

TEST_F(BankEditInFrame, TheSubstanceViewOpensItForALook) {
    start();
    openSubstance("Carbon dioxide");
    drive::when("frmStoffWahl", [] {
        drive::select("StoffListe", "Argon");
        drive::when("frmBankEdit", [] {
            EXPECT_EQ(read("DD_83"), "Argon");
            EXPECT_FALSE(drive::isEnabled("OK"));
            click("ESC");
        });
        click("cmdDaten");
        click("ESC");
    });
    drive::choose("mnuStoff");
    EXPECT_EQ(session->substance.name, "Carbon dioxide");
}

TEST_F(BankEditInFrame, TheModelViewFollowsTheDataEditedFromIt) {
    start();
    openSubstance("Carbon dioxide");
    drive::when("frmQModell", [] {
        EXPECT_EQ(drive::entries("EOSKombi").size(), 15);
        drive::when("frmBankEdit", [] {
            type("DD_7", "");
            click("OK");
            click("ESC");
        });
        click("cmdData");
        EXPECT_EQ(drive::entries("EOSKombi").size(), 8) << "without acentric factor";
        EXPECT_EQ(read("EOSKombi"), "CEOS Redlich / Kwong");
        click("OKModell");
    });
    drive::choose("mnuModel");
    EXPECT_EQ(models::code_of(session->models.eos), 4);
}

TEST_F(BankEditInFrame, CompletedCriticalDataOpenTheChoiceOfModels) {
    start();
    user.fileAnswers.push_back((folder() / "STUDENT.Q05").string());
    drive::when("frmStoffWahl", [] {
        type("Text1", "Water");
        click("StoffOK");
        click("ESC");
    });
    click("Toolbar1_2");
    EXPECT_FALSE(drive::offers("mnuModel"));
    drive::when("frmBankEdit", [] {
        EXPECT_EQ(read("DD_4"), "<>");
        type("DD_4", "647.096");
        click("OK");
        click("ESC");
    });
    drive::choose("mnuData_EditStoffdaten");
    EXPECT_TRUE(drive::offers("mnuModel"));
    drive::when("frmQModell", [] { click("OKModell"); });
    drive::choose("mnuModel");
    EXPECT_TRUE(drive::offers("mnuCalc_2") ||
                session::is_enabled(session, session::Command::calculations));
}

TEST_F(BankEdit, ChangesOfFieldsAreTakenBackAndMadeAgain) {
    open();
    const QString M = drive::read("DD_0");
    const QString name = drive::read("DD_83");
    drive::type("DD_83", "My dioxide");
    drive::press("DD_83", Qt::Key_Tab);
    drive::type("DD_0", "44.5");
    drive::press("DD_0", Qt::Key_Tab);
    EXPECT_EQ(view->undoName(), "Change molar mass /(kg/kmol)");
    drive::press("DD_0", Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(drive::read("DD_0"), M);
    EXPECT_EQ(drive::read("DD_83"), "My dioxide");
    drive::press("DD_0", Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(drive::read("DD_83"), name);
    drive::press("DD_0", Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(drive::read("DD_83"), "My dioxide");
    EXPECT_EQ(view->redoName(), "Change molar mass /(kg/kmol)");
}

TEST_F(BankEdit, AnUndoneApplicationShowsTheFormerFields) {
    open();
    const QString before = drive::read("DD_46");  // of the August set, computed by an application
    reach(datafiles::editor_field_table()[4]);
    drive::type("DD_4", "310");
    drive::click("OK");
    EXPECT_EQ(view->undoName(), "Apply");
    EXPECT_NE(drive::read("DD_46"), before);
    drive::press("OK", Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(drive::read("DD_46"), before);
}

}  // namespace
