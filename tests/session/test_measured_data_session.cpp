#include "common/numbers.h"
#include "datafiles/measured_table.h"
#include "session/measured_data_session.h"
#include "support/database_builder.h"
#include "support/session_test.h"

using namespace quor;

namespace {

namespace fs = std::filesystem;

using datafiles::MeasuredPoint;
using dialogs::Answer;

constexpr const char* kFile =
    "15.11.2026\r\n"
    "measured by K\xE4the\r\n"
    "74-98-6     \r\n"
    "3\r\n"
    "273.15,474.5,528.6,10.5,16500,98.5\r\n"
    "300,997.7,489.5,21.6,0,0\r\n"
    "350.125,2950,0,0,0,0\r\n";

class MeasuredDataSession : public SessionTest {
  protected:
    MeasuredDataSession() {
        session.change()->database = {
            "TEST.Q05",
            {{1, "C3H8", "Propane", "74-98-6     "}, {2, "CH4", "Methane", "74-82-8     "}}};
        session.change()->substance_number = 1;
        session.change()->substance.casrn = "74-98-6     ";
    }
    bool load(const std::string& bytes, bool append = false) {
        builder::WriteFile(folder() / "D.BAQ", bytes);
        return session::load_measured_data(session, (folder() / "D.BAQ").string(), append);
    }
};

TEST_F(MeasuredDataSession, LoadingFillsTheList) {
    EXPECT_TRUE(load(kFile));
    ASSERT_EQ(session->measured.points.size(), 3U);
    EXPECT_EQ(session->measured.points[0].T, 273.15);
    EXPECT_EQ(session->measured.points[0].p, 474.5);
    EXPECT_EQ(session->measured.points[0].rhoL, 528.6F);
    EXPECT_EQ(session->measured.points[0].rhoV, 10.5F);
    EXPECT_EQ(session->measured.points[0].hLV, 16500.0F);
    EXPECT_EQ(session->measured.points[0].cp, 98.5F);
    EXPECT_EQ(session->measured.points[0].skip, 0);
    EXPECT_EQ(session->measured.points[2].T, 350.125);
    EXPECT_EQ(session->measured.file, "D.BAQ");
    EXPECT_EQ(session->folder_measured, (folder() / "").string());
    EXPECT_EQ(session->measured.comment, "measured by Käthe");
    EXPECT_EQ(session->measured.casrn, "74-98-6     ");
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(MeasuredDataSession, SavingWritesWhatWasLoaded) {
    load(kFile);
    user.fileAnswers.push_back((folder() / "E.BAQ").string());
    EXPECT_TRUE(session::save_measured_data(session));
    EXPECT_EQ(builder::ReadFile(folder() / "E.BAQ"), kFile);
    EXPECT_EQ(session->measured.file, "E.BAQ");
    EXPECT_EQ(user.files[0].title, "Save exper. data as text file *.BAQ");
    EXPECT_EQ(user.files[0].default_extension, ".BAQ");
    EXPECT_EQ(user.files[0].filter, "QUOR-specific file (*.BAQ)|*.BAQ");
    EXPECT_FALSE(user.files[0].overwrite_prompt);
}

TEST_F(MeasuredDataSession, ValuesComeBackExactlyInEitherLocale) {
    for (const char mark : {'.', ','}) {
        numbers::set_decimal_mark(mark);
        const MeasuredPoint set{
            .T = 1.0 / 3.0, .p = 1e-7, .rhoV = 0.1F, .rhoL = 1e6F, .hLV = 12345.678F, .cp = 3e-5F};
        session.change()->measured = {.points = {set}, .casrn = "74-98-6     "};
        user.fileAnswers.push_back((folder() / "E.BAQ").string());
        ASSERT_TRUE(session::save_measured_data(session));
        ASSERT_TRUE(session::load_measured_data(session, (folder() / "E.BAQ").string(), false));
        EXPECT_EQ(session->measured.points[0].T, set.T);
        EXPECT_EQ(session->measured.points[0].p, set.p);
        EXPECT_EQ(session->measured.points[0].rhoV, set.rhoV);
        EXPECT_EQ(session->measured.points[0].rhoL, set.rhoL);
        EXPECT_EQ(session->measured.points[0].hLV, set.hLV);
        EXPECT_EQ(session->measured.points[0].cp, set.cp);
    }
}

TEST_F(MeasuredDataSession, AppendingGoesBehindTheDataAndToAnEmptyListItIsLoading) {
    EXPECT_TRUE(load(kFile, true));
    EXPECT_EQ(session->measured.points.size(), 3U);
    EXPECT_EQ(session->measured.file, "D.BAQ");
    session.change()->measured.points[0].skip = -1;
    EXPECT_TRUE(load("d\r\nother comment\r\n74-98-6\r\n1\r\n400,1,2,3,4,5\r\n", true));
    ASSERT_EQ(session->measured.points.size(), 4U);
    EXPECT_EQ(session->measured.points[0].T, 273.15);
    EXPECT_EQ(session->measured.points[0].skip, -1);
    EXPECT_EQ(session->measured.points[3].T, 400.0);
    EXPECT_EQ(session->measured.comment, "measured by Käthe");
    EXPECT_TRUE(load(kFile, false));
    EXPECT_EQ(session->measured.points.size(), 3U);
    EXPECT_EQ(session->measured.points[0].skip, 0);
}

TEST_F(MeasuredDataSession, LoadingAsksForAFile) {
    builder::WriteFile(folder() / "D.BAQ", kFile);
    user.fileAnswers.push_back("D.BAQ");
    EXPECT_TRUE(session::load_measured_data(session, false));
    EXPECT_EQ(user.files[0].title, "Open a batch-file of experimental data (*.BAQ)");
    EXPECT_FALSE(user.files[0].save);
    EXPECT_NE(user.files[0].filter.find("*.BAQ"), std::string::npos);
    user.fileAnswers.push_back(std::nullopt);
    EXPECT_FALSE(session::load_measured_data(session, false));
    EXPECT_EQ(session->measured.points.size(), 3U);
}

TEST_F(MeasuredDataSession, AnUnknownSubstanceIsAskedAbout) {
    std::string bytes = kFile;
    bytes.replace(bytes.find("74-98-6"), 7, "99-99-9");
    user.answers = {Answer::No, Answer::Yes};
    EXPECT_FALSE(load(bytes));
    EXPECT_EQ(session->measured.points.size(), 0U);
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(
        user.lastText(),
        "99-99-9     substance not found in the actual data base\n    Load data nevertheless?");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_EQ(user.messages[0].buttons, dialogs::Buttons::YesNo);
    EXPECT_TRUE(load(bytes));
    EXPECT_EQ(session->measured.points.size(), 3U);
    EXPECT_EQ(user.messages.size(), 2U);
}

TEST_F(MeasuredDataSession, WithoutAnActiveSubstanceNothingIsLoaded) {
    session.change()->substance_number = 0;
    EXPECT_FALSE(load(kFile));
    EXPECT_EQ(user.lastText(), "Load a substance!");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_EQ(session->measured.points.size(), 0U);
}

TEST_F(MeasuredDataSession, AnotherSubstanceIsAskedAbout) {
    session.change()->substance_number = 2;
    user.answers = {Answer::No, Answer::Yes};
    EXPECT_FALSE(load(kFile));
    EXPECT_EQ(user.lastText(),
              "You are trying to load a data set \nfor different substance!\n\nLoad T-p-rho data "
              "nevertheless?");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_TRUE(load(kFile));
    EXPECT_EQ(session->measured.points.size(), 3U);
}

TEST_F(MeasuredDataSession, SavingOverAFileAsks) {
    load(kFile);
    builder::WriteFile(folder() / "E.BAQ", "old");
    user.answers = {Answer::No, Answer::Yes};
    user.fileAnswers = {(folder() / "E").string(), (folder() / "E").string()};
    EXPECT_FALSE(session::save_measured_data(session));
    EXPECT_EQ(user.lastText(), "such a file is already existing\nOverwright?");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_EQ(builder::ReadFile(folder() / "E.BAQ"), "old");
    EXPECT_TRUE(session::save_measured_data(session));
    EXPECT_EQ(builder::ReadFile(folder() / "E.BAQ"), kFile);
}

TEST_F(MeasuredDataSession, AFailedSaveIsToldAndNothingIsLost) {
    load(kFile);
    user.fileAnswers.push_back((folder() / "missing" / "E.BAQ").string());
    EXPECT_FALSE(session::save_measured_data(session));
    EXPECT_EQ(user.lastText(),
              "The file E.BAQ could not be written (No such file or directory).\n\n"
              "Save it in another place?");
    EXPECT_EQ(session->measured.file, "D.BAQ");
    EXPECT_EQ(session->measured.points.size(), 3U);
}

TEST_F(MeasuredDataSession, ChangedDataAreAskedAboutBeforeTheyAreLeft) {
    load(kFile);
    EXPECT_TRUE(session::may_leave_measured_data(session));
    EXPECT_TRUE(user.messages.empty());
    session.change()->measured_unsaved = true;
    user.answers = {Answer::No};
    EXPECT_TRUE(session::may_leave_measured_data(session));
    EXPECT_EQ(user.lastText(), "Data not yet saved.\nSave now?");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_EQ(user.messages.back().buttons, dialogs::Buttons::YesNoCancel);
    user.answers = {Answer::Cancel};
    EXPECT_FALSE(session::may_leave_measured_data(session));
    // Yes, and then no name: the data may not be left.
    user.answers = {Answer::Yes};
    user.fileAnswers = {std::nullopt};
    EXPECT_FALSE(session::may_leave_measured_data(session));
    user.answers = {Answer::Yes};
    user.fileAnswers = {(folder() / "E.BAQ").string()};
    EXPECT_TRUE(session::may_leave_measured_data(session));
    EXPECT_TRUE(fs::exists(folder() / "E.BAQ"));
    EXPECT_FALSE(session->measured_unsaved);
}

TEST_F(MeasuredDataSession, LinesWithAWrongCellAreInactiveAndCounted) {
    EXPECT_TRUE(
        load("d\r\nc\r\n74-98-6     \r\n9\r\n"
             "300,1,2,3,4,5\r\n"
             "300,abc,2,3,4,5\r\n"
             "300,,2,3,4,5\r\n"
             "300,1,inf,3,4,5\r\n"
             "300,1,2,1e99,4,5\r\n"
             "1e99,1,2,3,4,5\r\n"
             "300,5,101,3,500,2,0,0\r\n"
             "300,1,2,3\r\n"
             "310,1,2,3,4,0\r\n"));
    ASSERT_EQ(session->measured.points.size(), 9U);
    for (std::size_t i = 0; i < 9; ++i)
        EXPECT_EQ(session->measured.points[i].skip != 0, i > 0 && i < 8) << i;
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(),
              "7 lines do not hold a number in each of their cells and are inactive.\n"
              "Lines 2, 3, 4, 5, 6, 7, 8 of the table.");
    // Behind the lines that the table has, the numbers go on.
    user.messages.clear();
    EXPECT_TRUE(load("d\r\nc\r\n74-98-6\r\n2\r\n400,1,2,3,4,5\r\n400,x,2,3,4,5\r\n", true));
    EXPECT_EQ(user.lastText(),
              "1 line does not hold a number in each of its cells and is inactive.\n"
              "Line 11 of the table.");
}

TEST_F(MeasuredDataSession, WhatCanBeReadOfAWrongLineIsKept) {
    EXPECT_TRUE(load("d\r\nc\r\n74-98-6     \r\n2\r\n300,abc,,x,1e99,5\r\nwhat is this\r\n"));
    EXPECT_EQ(session->measured.points[0].skip, datafiles::kInactive);
    EXPECT_EQ(session->measured.points[0].T, 300.0);
    EXPECT_EQ(session->measured.points[0].p, 0.0);
    EXPECT_EQ(session->measured.points[0].rhoL, 0.0F);
    EXPECT_EQ(session->measured.points[0].hLV, 0.0F);
    EXPECT_EQ(session->measured.points[0].cp, 5.0F);
    EXPECT_EQ(session->measured.points[1].T, 0.0);
}

TEST_F(MeasuredDataSession, FilesThatAreNoneAreToldAndChangeNothing) {
    load(kFile);
    for (const std::string bytes : {"", "a\r\nb\r\n74-98-6\r\n", "a\r\nb\r\n74-98-6\r\n12\r\n"}) {
        EXPECT_FALSE(load(bytes));
        EXPECT_EQ(user.lastText(), "The file D.BAQ holds no experimental data.");
        EXPECT_EQ(session->measured.points.size(), 3U);
    }
    EXPECT_FALSE(session::load_measured_data(session, "MISSING.BAQ", false));
    EXPECT_EQ(user.lastText(), "The file MISSING.BAQ was not found.");
}

TEST_F(MeasuredDataSession, AShortenedFileGivesItsWholeSetsAndSaysSo) {
    const std::string bytes = kFile;
    EXPECT_TRUE(load(bytes.substr(0, bytes.find("21.6") + 2)));
    EXPECT_EQ(session->measured.points.size(), 1U);
    EXPECT_EQ(user.lastText(), "The file D.BAQ announces 3 sets of data, but holds only 1.");
    EXPECT_EQ(user.lastTitle(), "WARNING");
}

TEST_F(MeasuredDataSession, ALastLineWithoutAnEndCountsWhenTheFileIsComplete) {
    std::string bytes = kFile;
    bytes.resize(bytes.size() - 2);
    EXPECT_TRUE(load(bytes));
    EXPECT_EQ(session->measured.points.size(), 3U);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(MeasuredDataSession, AHugeCountIsLimitedByWhatIsThere) {
    std::string bytes = kFile;
    bytes.replace(bytes.find("\r\n3\r\n"), 5, "\r\n4000000000\r\n");
    EXPECT_TRUE(load(bytes));
    EXPECT_EQ(session->measured.points.size(), 3U);
    bytes = kFile;
    bytes.replace(bytes.find("\r\n3\r\n"), 5, "\r\n-3\r\n");
    EXPECT_TRUE(load(bytes));
    EXPECT_EQ(session->measured.points.size(), 0U);
}

TEST_F(MeasuredDataSession, MoreSetsThanCanBeCountedAreRefused) {
    std::string bytes = "d\r\nc\r\n74-98-6\r\n20000\r\n";
    for (int i = 0; i < 20000; ++i) bytes += "300,1,2,3,4,5\r\n";
    EXPECT_TRUE(load(bytes));
    EXPECT_FALSE(load(bytes, true));
    EXPECT_EQ(user.lastText(), "There is room for 32767 sets of data only.");
    EXPECT_EQ(session->measured.points.size(), 20000U);
}

TEST_F(MeasuredDataSession, AColumnIsSavedAsXYWithoutInactiveAndEmptySets) {
    load(kFile);
    session.change()->measured.points[1].skip = -1;
    user.fileAnswers = {(folder() / "P.XY").string(), (folder() / "R.XY").string()};
    EXPECT_TRUE(session::save_measured_column(session, 1));
    EXPECT_EQ(builder::ReadFile(folder() / "P.XY"),
              "measured by K\xE4the\r\n.2731500E+03;.4745000E+03\r\n.3501250E+03;.2950000E+04\r\n");
    EXPECT_TRUE(session::save_measured_column(session, 2));
    EXPECT_EQ(builder::ReadFile(folder() / "R.XY"),
              "measured by K\xE4the\r\n.2731500E+03;.5286000E+03\r\n");
}

TEST_F(MeasuredDataSession, DataOfAnotherSubstanceKeepItsMolarMass) {
    builder::WriteFile(folder() / "T.Q05",
                       builder::Database({builder::Propane(), builder::Plain("b", "74-82-8")}));
    session.change()->database = *datafiles::Database::open(folder() / "T.Q05");
    session.change()->substance.M = 18.0F;  // the active substance is another one
    session.change()->substance_number = 2;
    EXPECT_TRUE(load(kFile));
    EXPECT_NEAR(session->measured.M, 44.096, 1e-3) << "propane's, as the database has it";
    EXPECT_EQ(session->measured.casrn, "74-98-6     ");
}

TEST_F(MeasuredDataSession, SavedDataKeepTheirSubstance) {
    load(kFile);
    session.change()->substance.casrn = "7732-18-5   ";
    user.fileAnswers.push_back((folder() / "E.BAQ").string());
    EXPECT_TRUE(session::save_measured_data(session));
    EXPECT_EQ(builder::ReadFile(folder() / "E.BAQ"), kFile);
}

TEST_F(MeasuredDataSession, TheSamplesOfTheDataFolderLoad) {
    int files = 0;
    for (const auto& entry : fs::directory_iterator(std::string(QUOR_SOURCE_DATA) + "/samples")) {
        if (entry.path().extension() != ".BAQ") continue;
        const auto file =
            datafiles::read_measured_data(builder::ReadFile(entry.path()), "sample.BAQ");
        ASSERT_TRUE(file) << entry.path();
        EXPECT_EQ(static_cast<double>(file->data.points.size()), file->announced) << entry.path();
        EXPECT_EQ(file->data.casrn.size(), 12U) << entry.path();
        for (const MeasuredPoint& set : file->data.points) EXPECT_GT(set.T, 0.0) << entry.path();
        ++files;
    }
    EXPECT_GE(files, 3);
}

}  // namespace
