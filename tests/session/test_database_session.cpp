#include <cstring>

#include "session/substance_session.h"
#include "support/codes.h"
#include "support/database_builder.h"
#include "support/machine_faults.h"
#include "support/session_test.h"

using namespace quor;

namespace {

using dialogs::Icon;
using session::LoadOutcome;

class Database : public SessionTest {
  protected:
    std::string write(const std::string& name, const std::vector<builder::Substance>& list) {
        return write_bytes(name, builder::Database(list));
    }
    std::string write_bytes(const std::string& name, const std::string& bytes) {
        builder::WriteFile(folder() / name, bytes);
        return (folder() / name).string();
    }
    static std::vector<builder::Substance> two() {
        builder::Substance ether = builder::Plain("Di\xE4thyl ether;ether", "60-29-7");
        ether.number = 417;
        ether.name_german = "Ether";
        return {builder::Propane(), ether};
    }
    /// An entry of the open database, counted from 1.
    const datafiles::DatabaseEntry& entry(std::size_t n) const {
        return session->database.entries()[n - 1];
    }
    std::string name_after_reading(std::int16_t index) {
        EXPECT_TRUE(session::read_substance(session, index));
        return session->substance.name;
    }
};

TEST_F(Database, OpeningBuildsTheLists) {
    EXPECT_TRUE(session::open_database(session, write("A.Q05", two())));
    EXPECT_TRUE(session->database.is_open());
    ASSERT_EQ(session->database.size(), 2U);
    EXPECT_EQ(entry(1).number, 1);
    EXPECT_EQ(entry(2).number, 417);
    EXPECT_EQ(entry(2).name, "Diäthyl ether;ether                     ");
    EXPECT_EQ(entry(1).formula, "C3H8        ");
    EXPECT_EQ(entry(2).casrn, "60-29-7     ");
}

TEST_F(Database, AnotherLanguageListsTheOtherNames) {
    session.change()->english = false;
    EXPECT_TRUE(session::open_database(session, write("A.Q05", two())));
    EXPECT_EQ(entry(2).name.substr(0, 6), "Ether ");
}

TEST_F(Database, ANameWithoutFolderIsLookedUpInTheProgramsFolder) {
    write("A.Q05", two());
    EXPECT_TRUE(session::open_database(session, "A.Q05"));
    EXPECT_TRUE(session.places().file_exists("A.Q05"));
    EXPECT_FALSE(session.places().file_exists(""));
    EXPECT_FALSE(session.places().file_exists("B.Q05"));
}

TEST_F(Database, AMissingFileChangesNothing) {
    const std::string path = write("A.Q05", two());
    EXPECT_TRUE(session::open_database(session, path));
    EXPECT_FALSE(session::open_database(session, "MISSING.Q05"));
    EXPECT_EQ(session->database.size(), 2U);
    EXPECT_EQ(session->database.path(), path);
    EXPECT_EQ(name_after_reading(1), "Propane");
}

TEST_F(Database, AnUnusableFileLeavesTheOpenOneInPlace) {
    EXPECT_TRUE(session::open_database(session, write("A.Q05", two())));
    const std::string empty = write("EMPTY.Q05", {});
    EXPECT_FALSE(session::open_database(session, empty));
    EXPECT_EQ(session->database.path(), folder() / "A.Q05");
    EXPECT_EQ(session->database.size(), 2U);
    EXPECT_EQ(session->database.entries().size(), 2U);
    EXPECT_EQ(name_after_reading(2), "Diäthyl ether");
}

TEST_F(Database, ANegativeCountIsUnusable) {
    std::string bytes = builder::Database(two());
    bytes[186] = bytes[187] = '\xFF';
    EXPECT_FALSE(session::open_database(session, write_bytes("A.Q05", bytes)));
    EXPECT_FALSE(session->database.is_open());
}

TEST_F(Database, LoadingAsksForAFileAndRemembersItsTitle) {
    session.change()->database_file = "OLD.Q05";
    user.fileAnswers.push_back(write("A.Q05", two()));
    EXPECT_EQ(session::load_database(session), LoadOutcome::Loaded);
    EXPECT_EQ(session->database_file, "A.Q05");
    ASSERT_EQ(user.files.size(), 1U);
    EXPECT_FALSE(user.files[0].save);
    EXPECT_EQ(user.files[0].title, "Select and load a database");
    EXPECT_EQ(user.files[0].filter, "Database (*.Q05)|*.Q05");
    EXPECT_EQ(user.files[0].folder, (folder() / "").string());
    EXPECT_EQ(user.files[0].name, "OLD.Q05");
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(Database, ACancelChangesNothingAndSaysNothing) {
    session.change()->database_file = "OLD.Q05";
    user.fileAnswers.push_back(std::nullopt);
    EXPECT_EQ(session::load_database(session), LoadOutcome::Cancelled);
    user.fileAnswers.push_back("");
    EXPECT_EQ(session::load_database(session), LoadOutcome::Cancelled);
    EXPECT_EQ(session->database_file, "OLD.Q05");
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(Database, AFailureWithoutADatabaseIsARefusal) {
    user.fileAnswers.push_back(write("EMPTY.Q05", {}));
    EXPECT_EQ(session::load_database(session), LoadOutcome::Failed);
    EXPECT_EQ(user.lastText(), "Database EMPTY.Q05 not found or empty resp.");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(user.messages.back().icon, Icon::Stop);
    EXPECT_FALSE(session->database.is_open());
    EXPECT_EQ(session->database_file, "");
}

TEST_F(Database, AFailureWithADatabaseSaysWhichOneIsActive) {
    session::load_database(session, write("A.Q05", two()));
    user.fileAnswers.push_back((folder() / "MISSING.Q05").string());
    EXPECT_EQ(session::load_database(session), LoadOutcome::Failed);
    EXPECT_EQ(user.lastText(),
              "Database MISSING.Q05not found in the QUOR directory or empty resp.\n"
              "Database already loaded A.Q05 is still activ.");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_EQ(user.messages.back().icon, Icon::Exclamation);
    EXPECT_EQ(session->database_file, "A.Q05");
}

TEST_F(Database, ReadingFillsTheActiveSubstance) {
    EXPECT_TRUE(session::open_database(session, write("A.Q05", two())));
    const Result<session::SubstanceRead> read = session::read_substance(session, 1);
    ASSERT_TRUE(read);
    EXPECT_FALSE(read->no_critical_data);
    EXPECT_EQ(session->substance.name, "Propane");
    EXPECT_EQ(session->substance.casrn, "74-98-6     ");
    EXPECT_DOUBLE_EQ(session->substance.Tcrit, 369.89);
    EXPECT_EQ(models::vp_code(session->models.vapour_pressure), "WAG");
    EXPECT_EQ(name_after_reading(2), "Diäthyl ether");
    // Without a measured set it starts with the first entry.
    EXPECT_EQ(models::vp_code(session->models.vapour_pressure), "AUG");
}

TEST_F(Database, SubstanceZeroIsLeftAlone) {
    EXPECT_TRUE(session::open_database(session, write("A.Q05", two())));
    session.change()->substance.name = "as it was";
    EXPECT_FALSE(session::read_substance(session, 0));
    EXPECT_EQ(session->substance.name, "as it was");
}

TEST_F(Database, AnUnreadableRecordIsRefusedAndLeavesTheSubstance) {
    const std::string path = write("A.Q05", two());
    EXPECT_TRUE(session::open_database(session, path));
    session.change()->substance.name = "as it was";
    for (const std::int16_t index : {std::int16_t{3}, std::int16_t{-1}, std::int16_t{32767}})
        EXPECT_FALSE(session::read_substance(session, index)) << index;
    // The file is cut short behind the program's back.
    std::filesystem::resize_file(path, 684 * 2);
    EXPECT_FALSE(session::read_substance(session, 2));
    EXPECT_EQ(session->substance.name, "as it was");
    EXPECT_EQ(name_after_reading(1), "Propane");
}

TEST_F(Database, ASubstanceWithoutCriticalDataIsLoadedAllTheSame) {
    std::vector<builder::Substance> list = two();
    list[1].slots[8] = 0;
    EXPECT_TRUE(session::open_database(session, write("A.Q05", list)));
    const Result<session::SubstanceRead> read = session::read_substance(session, 2);
    ASSERT_TRUE(read);
    EXPECT_TRUE(read->no_critical_data);
    EXPECT_EQ(session->substance.name, "Diäthyl ether");
}

TEST_F(Database, FiveThousandSubstancesOpen) {
    std::vector<builder::Substance> list;
    for (int i = 1; i <= 5000; ++i) {
        builder::Substance s =
            builder::Plain("Stoff \xC4 " + std::to_string(i), std::to_string(i) + "-00-0");
        s.number = static_cast<std::int16_t>(i);
        list.push_back(s);
    }
    const std::string path = write("BIG.Q05", list);
    EXPECT_TRUE(session::open_database(session, path));
    EXPECT_EQ(session->database.size(), 5000U);
    EXPECT_EQ(entry(5000).name.substr(0, 13), "Stoff Ä 5000");
    EXPECT_EQ(name_after_reading(4321), "Stoff Ä 4321");
}

TEST_F(Database, TheCountHas16Bits) {
    std::string bytes =
        builder::Database(std::vector<builder::Substance>(32767, builder::Propane()));
    EXPECT_TRUE(session::open_database(session, write_bytes("A.Q05", bytes)));
    EXPECT_EQ(session->database.size(), 32767U);
    EXPECT_EQ(name_after_reading(32767), "Propane");
}

TEST_F(Database, OpeningShowsTheBusyPointer) {
    EXPECT_TRUE(session::open_database(session, write("A.Q05", two())));
    EXPECT_EQ(user.pointer, (std::vector<bool>{true, false}));
}

// The private database

class PrivateDatabase : public Database {
  protected:
    PrivateDatabase() {
        std::vector<builder::Substance> list = two();
        list[0].name_german = "Propan;Fl\xFCssiggas";
        list[0].text5 = "fifth";
        list[0].text6 = "sixth";
        list[0].number = 33;
        list[0].slots[2] = 2.5F;
        list[0].slots[90] = 270.0F;
        list[0].slots[93] = 0.5F;
        list[0].slots[86] = 1e-37F;
        session::load_database(session, write("A.Q05", list));
        (void)session::read_substance(session, 1);
        session.change()->substance_number = 1;
    }
    std::string save(const std::string& name) {
        user.fileAnswers.push_back((folder() / name).string());
        EXPECT_TRUE(session::save_private_database(session));
        return builder::ReadFile(folder() / name);
    }
    static float slot(const std::string& bytes, std::size_t record, int k) {
        float value = 0;
        std::memcpy(&value,
                    bytes.data() + (record - 1) * 684 + 188 + 4 * static_cast<std::size_t>(k - 1),
                    4);
        return value;
    }
};

TEST_F(PrivateDatabase, ItsHeaderHoldsTheDateAndACountOfOne) {
    const std::string bytes = save("P.Q05");
    ASSERT_EQ(bytes.size(), 2U * 684U);
    EXPECT_EQ(bytes.substr(0, 12), "15.11.2026  ");
    EXPECT_EQ(bytes.substr(12, 40), "Propane                                 ");
    EXPECT_EQ(bytes.substr(52, 40), std::string(40, ' '));
    EXPECT_EQ(bytes.substr(186, 2), std::string("\x01\x00", 2));
    EXPECT_EQ(slot(bytes, 1, 2), 2.5F);
}

TEST_F(PrivateDatabase, ItTakesOverTheRecordAndKeepsTheRest) {
    session.change()->substance.Tcrit = 370.5;
    session.change()->substance.sconv = 999.0F;
    session.change()->substance.ptriple = 888.0F;
    session.change()->substance.wagner.T_low = 150;
    const std::string bytes = save("P.Q05");
    EXPECT_EQ(bytes.substr(684, 12), "C3H8        ");
    EXPECT_EQ(bytes.substr(684 + 12, 8), "Propane ");
    EXPECT_EQ(bytes.substr(684 + 52, 17), "Propan;Fl\xFCssiggas");
    EXPECT_EQ(bytes.substr(684 + 92, 12), "74-98-6     ");
    EXPECT_EQ(bytes.substr(684 + 104, 6), "fifth ");
    EXPECT_EQ(bytes.substr(684 + 145, 6), "sixth ");
    EXPECT_EQ(bytes.substr(684 + 186, 2), std::string("\x01\x00", 2));
    EXPECT_EQ(slot(bytes, 2, 2), 2.5F);
    EXPECT_EQ(slot(bytes, 2, 7), 370.5F);
    EXPECT_EQ(slot(bytes, 2, 59), 150.0F);
    EXPECT_EQ(slot(bytes, 2, 86), 1e-37F);
    EXPECT_EQ(slot(bytes, 2, 90), 270.0F);
    EXPECT_EQ(slot(bytes, 2, 93), 0.5F);
}

TEST_F(PrivateDatabase, ItOpensAsADatabaseOfOneSubstanceWithNumberOne) {
    save("P.Q05");
    EXPECT_EQ(session::load_database(session, (folder() / "P.Q05").string()), LoadOutcome::Loaded);
    EXPECT_EQ(session->database.size(), 1U);
    EXPECT_EQ(entry(1).number, 1);
    EXPECT_EQ(name_after_reading(1), "Propane");
    EXPECT_EQ(session->substance.sconv, 270.0F);
}

TEST_F(PrivateDatabase, ALongerOlderFileKeepsItsTail) {
    const std::string old = builder::Database(
        {builder::Plain("a", "1"), builder::Plain("b", "2"), builder::Plain("c", "3")});
    builder::WriteFile(folder() / "P.Q05", old);
    const std::string bytes = save("P.Q05");
    ASSERT_EQ(bytes.size(), old.size());
    EXPECT_EQ(bytes.substr(2 * 684), old.substr(2 * 684));
    EXPECT_EQ(bytes.substr(186, 2), std::string("\x01\x00", 2));
}

TEST_F(PrivateDatabase, TheDialogIsTheOneForPrivateFiles) {
    user.fileAnswers.push_back(std::nullopt);
    EXPECT_FALSE(session::save_private_database(session));
    const dialogs::FileChoice& choice = user.files.back();
    EXPECT_TRUE(choice.save);
    EXPECT_EQ(choice.title, "Saving a Private Database File *.Q05 for the actual substance ");
    EXPECT_EQ(choice.filter, "Database (*.Q05)|*.Q05");
    EXPECT_EQ(choice.default_extension, ".Q05");
    EXPECT_TRUE(choice.overwrite_prompt);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(PrivateDatabase, AFailureIsToldAndAnotherPlaceTaken) {
    user.fileAnswers = {(folder() / "missing" / "P.Q05").string(), (folder() / "P.Q05").string()};
    EXPECT_TRUE(session::save_private_database(session));
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(),
              "The file P.Q05 could not be written (No such file or directory).\n\n"
              "Save it in another place?");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(builder::ReadFile(folder() / "P.Q05").size(), 2U * 684U);
}

TEST_F(PrivateDatabase, AFullDiskOrAReadOnlyFolderIsNotPassedOverInSilence) {
    session.change()->applied_unsaved = true;
    std::filesystem::create_directory(folder() / "disk");
    const FaultyDisk disk = FaultyDisk::small(folder() / "disk", 4096);
    if (!disk.is_made()) GTEST_SKIP() << "no disks can be made here";
    disk.fill();
    user.fileAnswers = {(folder() / "disk" / "P.Q05").string()};
    user.answers = {dialogs::Answer::No};
    EXPECT_FALSE(session::save_private_database(session));
    EXPECT_TRUE(user.lastText().starts_with(
        "The file P.Q05 could not be written (No space left on device)."))
        << user.lastText();
    const FaultyDisk locked = FaultyDisk::read_only(folder() / "disk");
    ASSERT_TRUE(locked.is_made());
    user.fileAnswers = {(folder() / "disk" / "P.Q05").string()};
    user.answers = {dialogs::Answer::No};
    EXPECT_FALSE(session::save_private_database(session));
    EXPECT_TRUE(
        user.lastText().starts_with("The file P.Q05 could not be written (Read-only file system)."))
        << user.lastText();
    EXPECT_TRUE(session->applied_unsaved) << "the program still asks about it";
}

TEST_F(PrivateDatabase, WithoutASubstanceNothingIsWritten) {
    session.change()->substance_number = 0;
    user.fileAnswers = {(folder() / "P.Q05").string()};
    EXPECT_FALSE(session::save_private_database(session));
    EXPECT_EQ(user.messages.size(), 1U);
    EXPECT_FALSE(std::filesystem::exists(folder() / "P.Q05"));
}

TEST_F(PrivateDatabase, TheOpenDatabaseIsNeverOverwritten) {
    const std::string before = builder::ReadFile(folder() / "A.Q05");
    user.fileAnswers.push_back((folder() / "A.Q05").string());
    EXPECT_FALSE(session::save_private_database(session));
    EXPECT_EQ(builder::ReadFile(folder() / "A.Q05"), before);
    EXPECT_EQ(user.lastText(),
              "This file is the database that is open. Choose another name.\n\n"
              "Save it in another place?");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
}

TEST_F(PrivateDatabase, TheNameGoesIntoTheFieldOfTheLanguage) {
    session.change()->english = false;
    session.change()->substance.name = "Propan rein";
    save("P");
    EXPECT_FALSE(std::filesystem::exists(folder() / "P"));
    const std::string file = builder::ReadFile(folder() / "P.Q05");
    EXPECT_EQ(file.substr(684 + 12, 8), "Propane ");
    EXPECT_EQ(file.substr(684 + 52, 12), "Propan rein ");
}

TEST_F(Database, AProjectsDatabaseIsFoundBesideItAndWhereOthersWere) {
    const auto found = [this](const std::string& title, const std::filesystem::path& beside) {
        return datafiles::find_database(title, beside, session.places(), session->database_folders);
    };
    std::filesystem::create_directories(folder() / "elsewhere");
    builder::WriteFile(folder() / "elsewhere" / "X.Q05", builder::Database(two()));
    EXPECT_EQ(found("X.Q05", {}), "X.Q05");
    EXPECT_EQ(found("X.Q05", folder() / "elsewhere"), (folder() / "elsewhere" / "X.Q05").string());
    EXPECT_EQ(session::load_database(session, (folder() / "elsewhere" / "X.Q05").string()),
              LoadOutcome::Loaded);
    EXPECT_EQ(found("X.Q05", {}), (folder() / "elsewhere" / "X.Q05").string());
    write("X.Q05", two());
    EXPECT_EQ(found("X.Q05", folder() / "elsewhere"), "X.Q05");
}

}  // namespace
