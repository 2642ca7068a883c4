#include <cmath>
#include <random>

#include "datafiles/batch_file.h"
#include "datafiles/csv_table.h"
#include "datafiles/database.h"
#include "datafiles/database_builder.h"
#include "datafiles/database_table.h"
#include "datafiles/preview.h"
#include "datafiles/project.h"
#include "datafiles/record_fields.h"
#include "datafiles/synonyms.h"
#include "datafiles/xy_file.h"
#include "session/module2.h"
#include "support/codes.h"
#include "support/session_test.h"

using namespace quor;

/// Truncated, random, mutated and boastful files: no reader crashes, hangs, gives a number that is
/// none, or leaves the session in halves.
namespace {

using legacy::the_session;

class DamagedFiles : public SessionTest {
  protected:
    DamagedFiles() { datafiles::close_database(); }
    ~DamagedFiles() override { datafiles::close_database(); }

    std::string write(const std::string& name, const std::string& bytes) {
        builder::WriteFile(folder() / name, bytes);
        return (folder() / name).string();
    }
    std::string random_bytes(std::size_t size) {
        std::string bytes(size, '\0');
        for (char& c : bytes) c = static_cast<char>(random());
        return bytes;
    }
    /// Text of the characters that such files are made of.
    std::string random_text(std::size_t size) {
        static const std::string letters = "0123456789.,;-+eE\r\n\t\"# aA_\xC4";
        std::string text(size, '\0');
        for (char& c : text) c = letters[random() % letters.size()];
        return text;
    }
    std::string mutated(std::string bytes) {
        for (int i = 0; i < 3 && !bytes.empty(); ++i) {
            const std::size_t at = random() % bytes.size();
            switch (random() % 3) {
                case 0:
                    bytes[at] = static_cast<char>(random());
                    break;
                case 1:
                    bytes.erase(at, 1 + random() % 20);
                    break;
                default:
                    bytes.insert(at, bytes.substr(random() % bytes.size(), 30));
                    break;
            }
        }
        return bytes;
    }
    std::mt19937 random{20261115};
};

bool is_finite(const datafiles::FieldValue& value) {
    if (const float* single = std::get_if<float>(&value)) return std::isfinite(*single);
    if (const double* wide = std::get_if<double>(&value)) return std::isfinite(*wide);
    return true;
}

void expect_finite(const models::SubstanceRecord& record) {
    for (const datafiles::RecordField& field : datafiles::record_fields())
        for (std::size_t i = 0; i < std::max<std::size_t>(field.count, 1); ++i)
            EXPECT_TRUE(is_finite(datafiles::ValueOf(record, {&field, i}))) << field.name;
}

void expect_consistent_lists() {
    const std::size_t entries =
        the_session.DatabaseLoaded ? static_cast<std::size_t>(the_session.SubstanceCount) + 1 : 0;
    EXPECT_EQ(legacy::the_substances.Names.size(), entries);
    EXPECT_EQ(legacy::the_substances.Numbers.size(), entries);
    EXPECT_EQ(legacy::the_substances.Casrn.size(), entries);
    EXPECT_EQ(legacy::the_substances.Formulas.size(), entries);
}

void read_all_substances() {
    for (std::int16_t i = 1; i <= std::min<std::int16_t>(the_session.SubstanceCount, 5); ++i) {
        bool noCriticalData = false;
        datafiles::ReadSubstance(i, noCriticalData);
        expect_finite(legacy::the_substance);
    }
}

TEST_F(DamagedFiles, ADatabaseCutAtAnyLengthIsUnusableAndTheOldOneServes) {
    const std::string good = write("GOOD.Q05", builder::Database({builder::Propane()}));
    datafiles::open_database_file(good);
    const std::string whole =
        builder::Database({builder::Plain("a", "1"), builder::Plain("b", "2")});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        ASSERT_TRUE(
            datafiles::open_database_file(write("CUT.Q05", whole.substr(0, length))).notUsable)
            << length;
        ASSERT_EQ(the_session.SubstanceCount, 1);
    }
    expect_consistent_lists();
    bool noCriticalData = true;
    EXPECT_TRUE(datafiles::ReadSubstance(1, noCriticalData));
    EXPECT_EQ(legacy::the_substance.Name, "Propane");
    EXPECT_FALSE(datafiles::open_database_file(write("CUT.Q05", whole)).notUsable);
}

TEST_F(DamagedFiles, ARandomDatabaseGivesNoWrongNumbers) {
    for (int round = 0; round < 200; ++round) {
        std::string bytes = random_bytes(684 * 6 + random() % 2000);
        // A believable count now and then, so that the records are looked at.
        if (round % 2 == 0) {
            bytes[186] = 5;
            bytes[187] = 0;
        }
        datafiles::open_database_file(write("R.Q05", bytes));
        expect_consistent_lists();
        read_all_substances();
    }
}

TEST_F(DamagedFiles, AMutatedDatabaseGivesNoWrongNumbers) {
    const std::string whole = builder::Database({builder::Propane(), builder::Plain("b", "2")});
    for (int round = 0; round < 500; ++round) {
        datafiles::open_database_file(write("M.Q05", mutated(whole)));
        expect_consistent_lists();
        read_all_substances();
    }
}

TEST_F(DamagedFiles, ADatabaseThatBoastsWithItsCountIsUnusable) {
    std::string bytes = builder::Database({builder::Propane()});
    bytes[186] = '\xFF';
    bytes[187] = '\x7F';
    EXPECT_TRUE(datafiles::open_database_file(write("B.Q05", bytes)).notUsable);
    EXPECT_FALSE(datafiles::read_database_lists(folder() / "B.Q05"));
}

TEST_F(DamagedFiles, AFolderIsNoDatabase) {
    std::filesystem::create_directory(folder() / "D.Q05");
    EXPECT_TRUE(datafiles::open_database_file("D.Q05").notUsable);
    EXPECT_FALSE(datafiles::read_database_lists(folder() / "D.Q05"));
}

TEST_F(DamagedFiles, DamagedProjectsLeaveSettingsWithinTheirRanges) {
    write("A.Q05", builder::Database({builder::Propane()}));
    datafiles::load_database("A.Q05");
    bool noCriticalData = false;
    datafiles::ReadSubstance(1, noCriticalData);
    the_session.CurrentSubstance = 1;
    ASSERT_TRUE(datafiles::save_project(false));
    const std::string whole = builder::ReadFile(the_session.LastSessionFile);
    for (int round = 0; round < 600; ++round) {
        const std::string bytes = round % 3 == 0 ? random_bytes(random() % 600)
                                  : round % 3 == 1
                                      ? "d\nc\nA.Q05\n74-98-6\n" + random_text(random() % 400)
                                      : mutated(whole);
        const std::string path = write("P.QCF", bytes);
        datafiles::LoadProject(path);
        datafiles::preview_file(path);
        EXPECT_GE(the_session.PointsPerCurve, 50);
        EXPECT_LE(the_session.PointsPerCurve, 800);
        EXPECT_TRUE(the_session.UnitMode >= 0 && the_session.UnitMode <= 2);
        EXPECT_TRUE(the_session.CaloricUnit >= 0 && the_session.CaloricUnit <= 3);
        EXPECT_TRUE(models::vapour_pressure_of_code(models::code_of(legacy::the_models.VPModel)));
        EXPECT_TRUE(models::eos_of_code(models::code_of(legacy::the_models.EOSModel)));
        EXPECT_TRUE(models::vaporisation_of_code(models::code_of(legacy::the_models.HLVModel)));
        EXPECT_TRUE(std::isfinite(the_session.DiagramT) &&
                    std::isfinite(the_session.CaloricFactor));
        EXPECT_TRUE(std::isfinite(legacy::the_models.WatsonN) &&
                    std::isfinite(legacy::the_reference.href));
        EXPECT_EQ(the_session.CurrentSubstance == 1, legacy::the_substance.Name == "Propane");
        expect_consistent_lists();
    }
}

void expect_sound_sets(const std::vector<calculation::BatchDataSet>& sets) {
    for (const calculation::BatchDataSet& s : sets) {
        EXPECT_TRUE(std::isfinite(s.T) && std::isfinite(s.p) && std::isfinite(s.rhoL) &&
                    std::isfinite(s.rhoV));
        EXPECT_TRUE(std::isfinite(s.hLV) && std::isfinite(s.cp));
    }
}

TEST_F(DamagedFiles, DamagedDataFilesGiveSoundSetsOrNone) {
    the_session.CurrentSubstance = 1;
    const std::string whole =
        "d\r\nc\r\n74-98-6     "
        "\r\n3\r\n273.15,474.5,528.6,10.5,16500,98.5\r\n300,1,2,3,4,5\r\n350,6,7,8,9,10\r\n";
    datafiles::batch_load(write("D.BAQ", whole), false);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::int16_t before = the_session.BatchCount;
        const bool loaded = datafiles::batch_load(write("D.BAQ", whole.substr(0, length)), false);
        EXPECT_TRUE(loaded || the_session.BatchCount == before);
        EXPECT_GE(legacy::the_BatchData.size(),
                  static_cast<std::size_t>(the_session.BatchCount) + 1);
    }
    for (int round = 0; round < 600; ++round) {
        const std::string bytes = round % 3 == 0 ? random_bytes(random() % 600)
                                  : round % 3 == 1
                                      ? "d\nc\n1\n99999999\n" + random_text(random() % 400)
                                      : mutated(whole);
        const std::string path = write("D.BAQ", bytes);
        datafiles::batch_load(path, round % 2 == 0);
        datafiles::preview_file(path);
        EXPECT_EQ(legacy::the_BatchData.size(),
                  std::max<std::size_t>(2, static_cast<std::size_t>(the_session.BatchCount) + 1));
        expect_sound_sets(legacy::the_BatchData);
    }
}

TEST_F(DamagedFiles, DamagedPointFilesGiveSoundPoints) {
    for (int round = 0; round < 600; ++round) {
        const std::string bytes =
            round % 2 == 0 ? random_bytes(random() % 600) : "c\n" + random_text(random() % 600);
        for (const char delimiter : {';', ',', '\t', '\0'})
            for (const datafiles::FitPoint& p : datafiles::read_xy_text(bytes, delimiter).points)
                EXPECT_TRUE(std::isfinite(p.x) && std::isfinite(p.y));
    }
}

TEST_F(DamagedFiles, DamagedSynonymFilesEndTheSearch) {
    const std::string whole =
        "1-1\r\nName_x\r\nONE\r\nTWO\r\n\r\n2-2\r\nOther_y\r\nTHREE\r\n\r\nEND\r\n";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const datafiles::SynonymHit hit =
            datafiles::find_in_synonyms(whole.substr(0, length), "three");
        EXPECT_TRUE(!hit.found || hit.casrn == "2-2");
    }
    for (int round = 0; round < 300; ++round) {
        datafiles::find_in_synonyms(mutated(whole), "three");
        write("SYNOM.TXT", random_bytes(500));
        EXPECT_FALSE(datafiles::search_synonyms("no such substance").found);
    }
}

TEST_F(DamagedFiles, DamagedTablesGiveErrorsOrRecords) {
    const std::string whole =
        "formula,name_en,casrn,M,Tcrit,pcrit,WAG_1\nA,\"B\",1,2,3,4,5\nC,D,2,3,4,5,\n";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const datafiles::DatabaseTable table =
            datafiles::read_database_table(whole.substr(0, length));
        EXPECT_NE(table.errors.empty(), table.records.empty()) << length;
    }
    for (int round = 0; round < 1000; ++round) {
        const std::string bytes = round % 2 == 0 ? random_bytes(300) : mutated(whole);
        const datafiles::DatabaseTable table = datafiles::read_database_table(bytes);
        EXPECT_NE(table.errors.empty(), table.records.empty());
    }
}

TEST_F(DamagedFiles, AVeryLongLineIsRead) {
    const std::string line(5'000'000, '7');
    EXPECT_EQ(datafiles::read_xy_text("c\n" + line + ";1\n", ';').points.at(0).x, 0.0F);
    EXPECT_EQ(datafiles::split_csv(line).rows.size(), 1U);
    const auto file = datafiles::read_batch_text("d\nc\n1\n1\n" + line + ",1,2,3,4,5\n");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->sets.at(0).T, 0.0);
    EXPECT_EQ(file->sets.at(0).p, 1.0);
}

}  // namespace
