#include "common/numbers.h"
#include "models/virial.h"
#include "session/project_session.h"
#include "session/substance_session.h"
#include "support/codes.h"
#include "support/database_builder.h"
#include "support/databases.h"
#include "support/session_test.h"

using namespace quor;

namespace {

namespace fs = std::filesystem;

using session::ProjectResult;

/// The text of a project with settings of its own for every item.
constexpr const char* kProject =
    "15.11.2026\r\n"
    "my comment\r\n"
    "A.Q05\r\n"
    "74-98-6     \r\n"
    "310.25\r\n"   // 5 DiagramT
    "1500.5\r\n"   // 6 DiagramP
    "0.125\r\n"    // 7 DiagramV
    "0.02\r\n"     // 8 CaloricFactor
    "1\r\n"        // 9 UnitMode
    "3\r\n"        // 10 CaloricUnit
    "#FALSE#\r\n"  // 11 CurveRealRangeOnly
    "450\r\n"      // 12 PointsPerCurve
    "\",\"\r\n"    // 13 CsvSeparator
    "3\r\n"        // 14 VPModel
    "5\r\n"        // 15 EOSModel
    "2\r\n"        // 16 CpModel
    "4\r\n"        // 17 HLVModel
    "0.375\r\n"    // 18 WatsonN
    "#FALSE#\r\n"  // 19 PriorityCEOS
    "10\r\n"       // 20 RefMode
    "-100.5\r\n"   // 21 href
    "2.5\r\n"      // 22 sref
    "273.15\r\n"   // 23 T0
    "100\r\n"      // 24 p0
    "288.15\r\n"   // 25 Tenv
    "95.5\r\n"     // 26 penv
    "-1\r\n"       // 27 BatchMode
    "-1\r\n"       // 28 CurveSWithoutTieLine
    "-1\r\n"       // 29 PartialGasCurve
    "2.5\r\n"      // 30 tank V
    "12.5\r\n"     // 31 tank m
    "299.5\r\n";   // 32 tank T

class ProjectSession : public SessionTest {
  protected:
    ProjectSession() {
        builder::WriteFile(folder() / "A.Q05", builder::Database({builder::Plain("Other", "1-1-1"),
                                                                  builder::Propane()}));
    }

    void open_and_choose() {
        session::load_database(session, "A.Q05");
        choose(2);
    }
    void choose(std::int16_t index) {
        (void)session::read_substance(session, index);
        session.change()->substance_number = index;
    }
    ProjectResult load(const std::string& text, const std::string& name = "P.QCF") {
        builder::WriteFile(folder() / name, text);
        return session::load_project(session, (folder() / name).string());
    }
    void expect_settings_of_the_project() {
        EXPECT_EQ(session->diagram_at.T, 310.25);
        EXPECT_EQ(session->diagram_at.p, 1500.5);
        EXPECT_EQ(session->diagram_at.v, 0.125);
        EXPECT_EQ(session->caloric_factor, 0.02);
        EXPECT_EQ(session->units.system, models::UnitSystem::specific);
        EXPECT_EQ(session->units.caloric, models::CaloricUnit::specific);
        EXPECT_FALSE(session->curve_options.real_range_only);
        EXPECT_EQ(session->curve_options.points, 450);
        EXPECT_EQ(session->csv_separator, ',');
        EXPECT_EQ(models::code_of(session->models.vapour_pressure), 3);
        EXPECT_EQ(models::code_of(session->models.eos), 5);
        EXPECT_EQ(models::code_of(session->models.cp_form), 2);
        EXPECT_EQ(models::code_of(session->models.vaporisation), 4);
        EXPECT_EQ(session->models.watson_n, 0.375F);
        EXPECT_FALSE(session->models.eos_has_priority);
        EXPECT_EQ(session->reference.mode, 10);
        EXPECT_EQ(session->reference.href, -100.5);
        EXPECT_EQ(session->reference.sref, 2.5);
        EXPECT_EQ(session->reference.T0, 273.15F);
        EXPECT_EQ(session->reference.p0, 100.0F);
        EXPECT_EQ(session->reference.Tenv, 288.15);
        EXPECT_EQ(session->reference.penv, 95.5);
        EXPECT_TRUE(session->batch_mode);
        EXPECT_TRUE(session->curve_options.s_without_tie_line);
        EXPECT_TRUE(session->curve_options.partial_gas);
        EXPECT_EQ(session->tank.V, 2.5F);
        EXPECT_EQ(session->tank.m, 12.5F);
        EXPECT_EQ(session->tank.T, 299.5F);
    }
};

TEST_F(ProjectSession, EveryItemIsRead) {
    const ProjectResult result = load(kProject);
    EXPECT_TRUE(result.loaded);
    EXPECT_TRUE(result.substance_found);
    EXPECT_TRUE(result.models_complete);
    EXPECT_FALSE(result.no_critical_data);
    expect_settings_of_the_project();
    EXPECT_EQ(session->database_file, "A.Q05");
    EXPECT_EQ(session->substance_number, 2);
    EXPECT_EQ(session->substance.name, "Propane");
    EXPECT_EQ(session->project_comment, "my comment");
    EXPECT_EQ(session->project_file, "P.QCF");
    EXPECT_EQ(session->folder_projects, (folder() / "").string());
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(ProjectSession, WhatFollowsFromTheSettingsIsDerived) {
    load(kProject);
    EXPECT_EQ(models::vp_code(session->models.vapour_pressure), "FRO");
    EXPECT_FALSE(session->models.vapour_only);
    EXPECT_GT(session->eos_parameters.vcrit_calculated, 0.0);
    EXPECT_NE(session->substance.frost_van_der_waals.a[0], 0.0F);
    EXPECT_NE(session->substance.frost_redlich_kwong.a[0], 0.0F);
    EXPECT_NE(session->substance.thompson.A, 0.0F);
    EXPECT_EQ(session::present_units(session).v_label, "m^3/kg  ");
    EXPECT_DOUBLE_EQ(session::present_units(session).v, 1.0 / static_cast<double>(44.096F));
}

TEST_F(ProjectSession, SavingWritesTheItemsInTheirOrder) {
    load(kProject);
    user.fileAnswers.push_back((folder() / "B.QCF").string());
    user.inputAnswers.push_back("my comment");
    EXPECT_TRUE(session::save_project(session));
    EXPECT_EQ(builder::ReadFile(folder() / "B.QCF"), kProject);
    EXPECT_EQ(session->project_file, "B.QCF");
}

TEST_F(ProjectSession, TheDecimalMarkOfTheLocaleDoesNotReachTheFile) {
    load(kProject);
    numbers::set_decimal_mark(',');
    user.fileAnswers.push_back((folder() / "B.QCF").string());
    EXPECT_TRUE(session::save_project(session));
    EXPECT_EQ(builder::ReadFile(folder() / "B.QCF"), kProject);
    session::reset_everything(session);
    session::load_project(session, (folder() / "B.QCF").string());
    expect_settings_of_the_project();
}

TEST_F(ProjectSession, AFileWithDecimalCommasReadsTheSame) {
    std::string text = kProject;
    for (std::size_t i = text.find("310.25"); i < text.size(); ++i)
        if (text[i] == '.') text[i] = ',';
    load(text);
    expect_settings_of_the_project();
}

TEST_F(ProjectSession, LineEndsOfOtherSystemsReadTheSame) {
    std::string text;
    for (const char c : std::string(kProject))
        if (c != '\r') text += c;
    load(text);
    expect_settings_of_the_project();
}

TEST_F(ProjectSession, ValuesComeBackExactly) {
    open_and_choose();
    session.change()->diagram_at.T = 1.0 / 3.0;
    session.change()->diagram_at.p = 123456789.123456789;
    session.change()->reference.href = -1e-7;
    session.change()->models.watson_n = 0.1F;
    session.change()->csv_separator = '\t';
    user.fileAnswers.push_back((folder() / "B.QCF").string());
    ASSERT_TRUE(session::save_project(session));
    session::reset_everything(session);
    EXPECT_TRUE(session::load_project(session, (folder() / "B.QCF").string()).loaded);
    EXPECT_EQ(session->diagram_at.T, 1.0 / 3.0);
    EXPECT_EQ(session->diagram_at.p, 123456789.123456789);
    EXPECT_EQ(session->reference.href, -1e-7);
    EXPECT_EQ(session->models.watson_n, 0.1F);
    EXPECT_EQ(session->csv_separator, '\t');
}

TEST_F(ProjectSession, SavingAsksForNameAndComment) {
    open_and_choose();
    session.change()->project_comment = "earlier";
    session.change()->project_file = "OLD.QCF";
    user.fileAnswers.push_back("B");
    user.inputAnswers.push_back(std::nullopt);
    EXPECT_TRUE(session::save_project(session));
    ASSERT_EQ(user.files.size(), 1U);
    EXPECT_TRUE(user.files[0].save);
    EXPECT_EQ(user.files[0].title, "save actual project as ...");
    EXPECT_EQ(user.files[0].filter, "Project (*.QCF)|*.QCF");
    EXPECT_EQ(user.files[0].default_extension, ".QCF");
    EXPECT_TRUE(user.files[0].overwrite_prompt);
    EXPECT_EQ(user.files[0].folder, (folder() / "").string());
    ASSERT_EQ(user.inputs.size(), 1U);
    EXPECT_EQ(user.inputs[0].title, " File comment (optional) ");
    EXPECT_EQ(user.inputs[0].text, "Input text for comment\n<Cancel> = No Comment");
    EXPECT_EQ(user.inputs[0].proposal, "earlier");
    // A name without a folder goes to the project folder; a cancel of the comment means none.
    const std::string text = builder::ReadFile(folder() / "B.QCF");
    EXPECT_EQ(text.substr(0, 46), "15.11.2026\r\n\r\nA.Q05\r\n74-98-6     \r\n298.15\r\n0\r\n");
}

TEST_F(ProjectSession, CancellingTheDialogWritesNothing) {
    open_and_choose();
    user.fileAnswers.push_back(std::nullopt);
    EXPECT_FALSE(session::save_project(session));
    EXPECT_TRUE(user.inputs.empty());
}

TEST_F(ProjectSession, AFailedSaveIsToldAndLeavesTheOldFile) {
    open_and_choose();
    builder::WriteFile(folder() / "B.QCF", "old");
    fs::permissions(folder() / "B.QCF", fs::perms::owner_read);
    user.fileAnswers.push_back((folder() / "B.QCF").string());
    EXPECT_FALSE(session::save_project(session));
    EXPECT_EQ(user.lastText(),
              "The file B.QCF could not be written (it is write-protected).\n\n"
              "Save it in another place?");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(builder::ReadFile(folder() / "B.QCF"), "old");
}

TEST_F(ProjectSession, TheLastSessionIsSavedWithoutAQuestion) {
    open_and_choose();
    session.change()->project_file = "MINE.QCF";
    session.change()->models.eos = codes::eos(6);
    session.change()->diagram_at.T = 345.5;
    EXPECT_TRUE(session::save_last_session(session));
    EXPECT_TRUE(user.files.empty());
    EXPECT_TRUE(user.inputs.empty());
    EXPECT_TRUE(fs::exists(session->last_session_file));
    EXPECT_EQ(session->project_file, "MINE.QCF");

    session::reset_everything(session);
    const ProjectResult result = session::load_last_session(session);
    EXPECT_TRUE(result.models_complete);
    EXPECT_EQ(session->diagram_at.T, 345.5);
    EXPECT_EQ(models::code_of(session->models.eos), 6);
    EXPECT_EQ(session->substance.name, "Propane");
    EXPECT_EQ(session->project_file, "");
}

TEST_F(ProjectSession, LoadingAsksForAFile) {
    builder::WriteFile(folder() / "P.QCF", kProject);
    user.fileAnswers.push_back("P.QCF");
    EXPECT_TRUE(session::load_project(session).loaded);
    EXPECT_EQ(user.files[0].title, "Load a project (*.QCF)");
    EXPECT_FALSE(user.files[0].save);
    expect_settings_of_the_project();
}

TEST_F(ProjectSession, ACancelOfLoadingChangesNothing) {
    open_and_choose();
    session.change()->diagram_at.T = 111;
    user.fileAnswers.push_back(std::nullopt);
    EXPECT_FALSE(session::load_project(session).loaded);
    EXPECT_EQ(session->diagram_at.T, 111.0);
    EXPECT_EQ(session->substance_number, 2);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(ProjectSession, AMissingOrForeignFileIsToldAndChangesNothing) {
    open_and_choose();
    EXPECT_FALSE(session::load_project(session, "MISSING.QCF").loaded);
    EXPECT_EQ(user.lastText(), "The file MISSING.QCF was not found.");
    for (const std::string text :
         {"", "one line", "a\r\nb\r\nc\r\n", "a\r\nb\r\n\r\n74-98-6\r\n1\r\n",
          "a\r\nb\r\nA.Q05\r\nthis line is no registry number\r\n1\r\n"}) {
        EXPECT_FALSE(load(text).loaded) << text;
        EXPECT_EQ(user.lastText(), "The file P.QCF is no project file.");
        EXPECT_EQ(user.lastTitle(), "Execution not possible");
    }
    EXPECT_EQ(session->substance_number, 2);
    EXPECT_EQ(session->database_file, "A.Q05");
}

TEST_F(ProjectSession, AMissingDatabaseLeavesTheOpenOneInPlace) {
    open_and_choose();
    std::string text = kProject;
    text.replace(text.find("A.Q05"), 5, "B.Q05");
    const ProjectResult result = load(text);
    EXPECT_TRUE(result.loaded);
    EXPECT_TRUE(result.substance_found);
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(),
              "Database of the project B.Q05not found in the QUOR directory or empty resp.\n"
              "The actual database A.Q05 is still activ.");
    EXPECT_EQ(user.lastTitle(), "Hint");
    EXPECT_EQ(session->database_file, "A.Q05");
    expect_settings_of_the_project();
}

TEST_F(ProjectSession, WithoutAnyDatabaseTheLoadEnds) {
    fs::remove(folder() / "A.Q05");
    session.change()->diagram_at.T = 111;
    EXPECT_FALSE(load(kProject).loaded);
    EXPECT_EQ(user.lastText(), "Database of the project A.Q05not found in the QUOR directory ");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(session->diagram_at.T, 111.0);
}

TEST_F(ProjectSession, AProjectWhoseSubstanceIsMissingSaysSoAndChangesNothing) {
    open_and_choose();
    std::string text = kProject;
    text.replace(text.find("74-98-6"), 7, "99-99-9");
    user.answers = {dialogs::Answer::No};
    EXPECT_FALSE(load(text).loaded);
    EXPECT_EQ(user.lastText(),
              "The substance of this project,\nCASRN 99-99-9,\nis not in the database A.Q05.\n\n"
              "Choose another database?");
    EXPECT_TRUE(user.files.empty());
    EXPECT_EQ(session->substance_number, 2);
    EXPECT_EQ(session->substance.name, "Propane");
    EXPECT_NE(session->diagram_at.T, 310.25);
    // Yes, and then no file; Yes, and then a file that is no database.
    user.answers = {dialogs::Answer::Yes};
    user.fileAnswers = {std::nullopt};
    EXPECT_FALSE(load(text).loaded);
    user.answers = {dialogs::Answer::Yes, dialogs::Answer::No};
    user.fileAnswers = {(folder() / "P.QCF").string()};
    EXPECT_FALSE(load(text).loaded);
    EXPECT_EQ(session->database_file, "A.Q05");
    EXPECT_EQ(session->substance.name, "Propane");
}

TEST_F(ProjectSession, AProjectWhoseSubstanceIsMissingTakesAnotherDatabase) {
    open_and_choose();
    std::string text = kProject;
    text.replace(text.find("74-98-6"), 7, "74-82-8");
    builder::Substance methane = builder::Propane();
    methane.casrn = "74-82-8";
    builder::WriteFile(folder() / "OWN.Q05", builder::Database({methane}));
    std::filesystem::copy_file(std::string(QUOR_SOURCE_DATA) + "/SYNOM.TXT",
                               folder() / "SYNOM.TXT");
    user.answers = {dialogs::Answer::Yes};
    user.fileAnswers = {(folder() / "OWN.Q05").string()};
    const ProjectResult result = load(text);
    EXPECT_NE(user.messages.at(0).text.find("CASRN 74-82-8)"), std::string::npos)
        << user.messages.at(0).text;
    EXPECT_TRUE(result.substance_found);
    EXPECT_TRUE(result.models_complete);
    EXPECT_EQ(session->database_file, "OWN.Q05");
    EXPECT_EQ(session->substance_number, 1);
    EXPECT_EQ(session->diagram_at.T, 310.25);
}

TEST_F(ProjectSession, AProjectWithoutASubstanceIsRefused) {
    open_and_choose();
    std::string text = kProject;
    text.replace(text.find("74-98-6"), 7, "       ");
    EXPECT_FALSE(load(text).loaded);
    EXPECT_EQ(user.lastText(), "The project P.QCF names no substance.");
    EXPECT_EQ(session->substance_number, 2);
}

TEST_F(ProjectSession, MissingCriticalDataAreTold) {
    builder::Substance propane = builder::Propane();
    propane.slots[7] = 0;
    builder::WriteFile(folder() / "A.Q05", builder::Database({propane}));
    const ProjectResult result = load(kProject);
    EXPECT_TRUE(result.substance_found);
    EXPECT_TRUE(result.no_critical_data);
    EXPECT_FALSE(result.models_complete);
    EXPECT_EQ(user.lastText(),
              "T(cr) and/or p(cr) not available in the database.\n"
              "(lacking critical data can be completed by the user in data-base editor)\n"
              "For Propane is no calculation possible!");
    EXPECT_EQ(user.lastTitle(), "WARNING");
}

TEST_F(ProjectSession, AnEquationOfStateOfMinusOneReadsAsZero) {
    std::string text = kProject;
    text.replace(text.find("\r\n5\r\n2\r\n4"), 5, "\r\n-1\r\n");
    load(text);
    EXPECT_EQ(models::code_of(session->models.eos), 0);
    EXPECT_TRUE(session->models.vapour_only);
    EXPECT_FALSE(session->models.eos_has_priority);
    EXPECT_EQ(models::code_of(session->models.cp_form), 2);
}

TEST_F(ProjectSession, WithoutAChosenEquationTheSubstancesOwnDefaultStays) {
    std::string text = kProject;
    text.replace(text.find("\r\n3\r\n5\r\n2"), 5, "\r\n0\r\n");
    load(text);
    EXPECT_EQ(models::vp_code(session->models.vapour_pressure), "WAG");
    EXPECT_EQ(models::code_of(session->models.vapour_pressure), 4);
}

TEST_F(ProjectSession, ADamagedItemLeavesItsSettingAndTheOthersAreRead) {
    std::string text = kProject;
    text.replace(text.find("310.25"), 6, "warm!!");
    text.replace(text.find("450"), 3, "999");
    text.replace(text.find("\",\""), 3, "\";;\"");
    load(text);
    EXPECT_EQ(session->diagram_at.T, 298.15);
    EXPECT_EQ(session->curve_options.points, 300);
    EXPECT_EQ(session->csv_separator, ';');
    EXPECT_EQ(session->diagram_at.p, 1500.5);
    EXPECT_EQ(models::code_of(session->models.eos), 5);
}

TEST_F(ProjectSession, ATruncatedFileLeavesTheLaterSettings) {
    const std::string text = kProject;
    load(text.substr(0, text.find("450")));
    EXPECT_EQ(session->diagram_at.T, 310.25);
    EXPECT_EQ(session->units.caloric, models::CaloricUnit::specific);
    EXPECT_FALSE(session->curve_options.real_range_only);
    EXPECT_EQ(session->curve_options.points, 300);
    EXPECT_EQ(models::vp_code(session->models.vapour_pressure), "WAG");
    EXPECT_EQ(session->reference.mode, 1);
    EXPECT_EQ(session->tank.T, 0.0F);
}

TEST_F(ProjectSession, EveryTruncationGivesOldOrNewSettingsButNoOthers) {
    const std::string text = kProject;
    for (std::size_t length = 0; length <= text.size(); ++length) {
        SCOPED_TRACE(length);
        session::reset_everything(session);
        load(text.substr(0, length));
        const auto either = [](auto value, auto before, auto after) {
            return value == before || value == after;
        };
        EXPECT_TRUE(either(session->diagram_at.T, 298.15, 310.25));
        EXPECT_TRUE(either(session->diagram_at.p, 0.0, 1500.5));
        EXPECT_TRUE(either(session->diagram_at.v, 0.0, 0.125));
        EXPECT_TRUE(either(session->caloric_factor, 1.0, 0.02));
        EXPECT_TRUE(either(session->curve_options.points, 300, 450));
        EXPECT_TRUE(either(session->csv_separator, ';', ','));
        EXPECT_TRUE(either(session->reference.href, 0.0, -100.5));
        EXPECT_TRUE(either(session->reference.T0, 298.15F, 273.15F));
        EXPECT_TRUE(either(session->reference.p0, 101.325F, 100.0F));
        EXPECT_TRUE(either(session->tank.m, 0.0F, 12.5F));
        EXPECT_EQ(session->substance_number == 2, session->substance.name == "Propane");
    }
}

/// The told project with the manual virial equation.
std::string manual_virial_project() {
    std::string text = kProject;
    text.replace(text.find("\r\n3\r\n5\r\n2"), 8, "\r\n3\r\n10\r\n");
    return text;
}

TEST_F(ProjectSession, TheManualVirialEquationComesBackWithItsCoefficients) {
    load(manual_virial_project() + "b0=-0.2\r\nb1=15\r\nb2=0.5\r\n");
    ASSERT_EQ(session->models.eos, models::Eos::manualVirial);
    const auto B = [this] { return models::virial(session.fluid(), 400).B; };
    EXPECT_NEAR(B(), -0.2 - 15 / 20.0, 1e-12) << "b0 - b1/T^b2";
    user.fileAnswers.push_back((folder() / "B.QCF").string());
    ASSERT_TRUE(session::save_project(session));

    session::reset_everything(session);
    load(kProject);  // another equation in between
    EXPECT_TRUE(session::load_project(session, (folder() / "B.QCF").string()).models_complete);
    EXPECT_NEAR(B(), -0.2 - 15 / 20.0, 1e-12);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(ProjectSession, ANamedReferenceStateComesBackAndOlderReadersGetItsValues) {
    databases::Write(folder() / "A.Q05", {databases::Row("Propane")});
    load(kProject);
    session.change()->reference.named = models::NamedState::iir;
    const models::ReferenceState before = session::present_reference(session);
    ASSERT_EQ(before.named, models::NamedState::iir);
    user.fileAnswers.push_back((folder() / "B.QCF").string());
    ASSERT_TRUE(session::save_project(session));
    const datafiles::ProjectContent content = session::present_project(session);
    EXPECT_EQ(content.settings.reference_mode, 1);
    EXPECT_EQ(content.settings.href, before.href);
    EXPECT_EQ(content.settings.sref, before.sref);

    session::reset_everything(session);
    EXPECT_TRUE(session::load_project(session, (folder() / "B.QCF").string()).models_complete);
    EXPECT_EQ(session->reference.named, models::NamedState::iir);
    EXPECT_EQ(session::present_reference(session), before);
    load(kProject);
    EXPECT_EQ(session->reference.named, models::NamedState::none) << "of the project before";
}

TEST_F(ProjectSession, AManualVirialEquationWithoutCoefficientsIsAskedForAnew) {
    load(kProject);
    ASSERT_NE(session->eos_parameters.b0, 0.0);
    const ProjectResult result = load(manual_virial_project());
    EXPECT_TRUE(result.substance_found);
    EXPECT_FALSE(result.models_complete) << "the models have to be chosen";
    EXPECT_EQ(session->eos_parameters.b0, 0.0) << "nothing of another equation stays";
    EXPECT_EQ(user.lastText(),
              "The project holds no coefficients b0, b1, b2 of its virial equation.\n"
              "Choose the equation of state again.");
}

TEST_F(ProjectSession, AFileThatIsNoProjectIsRefusedBeforeAnythingChanges) {
    open_and_choose();
    builder::WriteFile(folder() / "X.QCF", "no project");
    EXPECT_FALSE(session::prepare_project(session, (folder() / "X.QCF").string()));
    EXPECT_EQ(user.lastText(), "The file X.QCF is no project file.");
    EXPECT_EQ(session->substance_number, 2);
    builder::WriteFile(folder() / "P.QCF", kProject);
    EXPECT_TRUE(session::prepare_project(session, (folder() / "P.QCF").string()));
    EXPECT_EQ(session->substance_number, 2) << "only looked at";
}

TEST_F(ProjectSession, ADatabaseBesideTheProjectIsFound) {
    fs::create_directories(folder() / "work");
    fs::rename(folder() / "A.Q05", folder() / "work" / "A.Q05");
    EXPECT_TRUE(load(kProject, "work/P.QCF").substance_found);
    EXPECT_EQ(session->database_file, "A.Q05");
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(ProjectSession, CommentsKeepTheirUmlautsAndStayOnOneLine) {
    open_and_choose();
    user.fileAnswers.push_back((folder() / "B.QCF").string());
    user.inputAnswers.push_back("Kälte\r\nzwei");
    session::save_project(session);
    const std::string text = builder::ReadFile(folder() / "B.QCF");
    EXPECT_NE(text.find("\r\nK\xE4lte  zwei\r\n"), std::string::npos);
    session::load_project(session, (folder() / "B.QCF").string());
    EXPECT_EQ(session->project_comment, "Kälte  zwei");
}

TEST_F(ProjectSession, LoadingClosesWhatBelongedToTheSubstance) {
    open_and_choose();
    session.change()->calculation.method.global = false;
    load(kProject);
    EXPECT_TRUE(session->calculation.method.global);
}

}  // namespace
