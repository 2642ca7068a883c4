#include <cmath>
#include <random>

#include "datafiles/csv_table.h"
#include "datafiles/database.h"
#include "datafiles/database_table.h"
#include "datafiles/measured_data.h"
#include "datafiles/preview.h"
#include "datafiles/project_file.h"
#include "datafiles/record_fields.h"
#include "datafiles/synonyms.h"
#include "datafiles/xy_file.h"
#include "support/database_builder.h"
#include "support/temporary_folder.h"

using namespace quor;

/// Truncated, random, mutated and boastful files: no reader crashes, hangs, gives a number that is
/// none, or leaves the session in halves.
namespace {

using datafiles::Database;

class DamagedFiles : public testing::Test {
  protected:
    const std::filesystem::path& folder() const { return folder_.path(); }
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

  private:
    TemporaryFolder folder_;
};

bool is_finite(const datafiles::FieldValue& value) {
    if (const float* single = std::get_if<float>(&value)) return std::isfinite(*single);
    if (const double* wide = std::get_if<double>(&value)) return std::isfinite(*wide);
    return true;
}

void expect_finite(const models::SubstanceRecord& record) {
    for (const datafiles::RecordField& field : datafiles::record_fields())
        for (std::size_t i = 0; i < std::max<std::size_t>(field.count, 1); ++i)
            EXPECT_TRUE(is_finite(datafiles::value_of(record, {&field, i}))) << field.name;
}

void read_all_substances(const Result<Database>& database) {
    if (!database) return;
    for (std::size_t i = 0; i < std::min<std::size_t>(database->size(), 5); ++i)
        if (const auto read = database->read(i)) expect_finite(read->record);
}

TEST_F(DamagedFiles, ADatabaseCutAtAnyLengthIsUnusable) {
    const std::string whole =
        builder::Database({builder::Plain("a", "1"), builder::Plain("b", "2")});
    for (std::size_t length = 0; length < whole.size(); ++length)
        ASSERT_FALSE(Database::open(write("CUT.Q05", whole.substr(0, length)))) << length;
    EXPECT_TRUE(Database::open(write("CUT.Q05", whole)));
}

TEST_F(DamagedFiles, ARandomDatabaseGivesNoWrongNumbers) {
    for (int round = 0; round < 200; ++round) {
        std::string bytes = random_bytes(684 * 6 + random() % 2000);
        // A believable count now and then, so that the records are looked at.
        if (round % 2 == 0) {
            bytes[186] = 5;
            bytes[187] = 0;
        }
        read_all_substances(Database::open(write("R.Q05", bytes)));
    }
}

TEST_F(DamagedFiles, AMutatedDatabaseGivesNoWrongNumbers) {
    const std::string whole = builder::Database({builder::Propane(), builder::Plain("b", "2")});
    for (int round = 0; round < 500; ++round)
        read_all_substances(Database::open(write("M.Q05", mutated(whole))));
}

TEST_F(DamagedFiles, ADatabaseThatBoastsWithItsCountIsUnusable) {
    std::string bytes = builder::Database({builder::Propane()});
    bytes[186] = '\xFF';
    bytes[187] = '\x7F';
    EXPECT_FALSE(Database::open(write("B.Q05", bytes)));
}

TEST_F(DamagedFiles, AFolderIsNoDatabase) {
    std::filesystem::create_directory(folder() / "D.Q05");
    EXPECT_FALSE(Database::open(folder() / "D.Q05"));
}

void expect_in_range(const std::optional<std::int16_t>& code, int lowest, int highest) {
    const int value = code.value_or(static_cast<std::int16_t>(lowest));
    EXPECT_TRUE(value >= lowest && value <= highest) << value;
}

TEST_F(DamagedFiles, DamagedProjectsGiveSettingsWithinTheirRangesOrNone) {
    datafiles::ProjectContent content{.database = "A.Q05", .casrn = "74-98-6"};
    content.settings.diagram_T = 300.0;
    content.settings.points_per_curve = std::int16_t{300};
    content.settings.unit_mode = std::int16_t{1};
    content.settings.eos = models::Eos::soave;
    content.manual_virial = models::ManualVirial{-0.25, 1, 2};
    const std::string whole = datafiles::project_text(content);
    for (int round = 0; round < 600; ++round) {
        const std::string bytes = round % 3 == 0 ? random_bytes(random() % 600)
                                  : round % 3 == 1
                                      ? "d\nc\nA.Q05\n74-98-6\n" + random_text(random() % 400)
                                      : mutated(whole);
        const auto read = datafiles::read_project(bytes, "P.QCF");
        if (!read) continue;
        const datafiles::ProjectSettings& s = read->settings;
        expect_in_range(s.points_per_curve, 50, 800);
        expect_in_range(s.unit_mode, 0, 2);
        expect_in_range(s.caloric_unit, 0, 3);
        EXPECT_TRUE(std::isfinite(s.diagram_T.value_or(0)));
        EXPECT_TRUE(std::isfinite(s.caloric_factor.value_or(0)));
        EXPECT_TRUE(std::isfinite(s.watson_n.value_or(0)));
        EXPECT_TRUE(std::isfinite(s.href.value_or(0)));
        EXPECT_TRUE(std::isfinite(read->manual_virial.value_or(models::ManualVirial{}).b0));
    }
}

void expect_sound_sets(const std::vector<datafiles::MeasuredPoint>& sets) {
    for (const datafiles::MeasuredPoint& s : sets) {
        EXPECT_TRUE(std::isfinite(s.T) && std::isfinite(s.p) && std::isfinite(s.rhoL) &&
                    std::isfinite(s.rhoV));
        EXPECT_TRUE(std::isfinite(s.hLV) && std::isfinite(s.cp));
    }
}

TEST_F(DamagedFiles, DamagedDataFilesGiveSoundSetsOrNone) {
    const std::string whole =
        "d\r\nc\r\n74-98-6     "
        "\r\n3\r\n273.15,474.5,528.6,10.5,16500,98.5\r\n300,1,2,3,4,5\r\n350,6,7,8,9,10\r\n";
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const auto file = datafiles::read_measured_data(whole.substr(0, length), "D.BAQ");
        if (file) expect_sound_sets(file->data.points);
    }
    for (int round = 0; round < 600; ++round) {
        const std::string bytes = round % 3 == 0 ? random_bytes(random() % 600)
                                  : round % 3 == 1
                                      ? "d\nc\n1\n99999999\n" + random_text(random() % 400)
                                      : mutated(whole);
        const auto file = datafiles::read_measured_data(bytes, "D.BAQ");
        if (file) expect_sound_sets(file->data.points);
        datafiles::preview_file(write("D.BAQ", bytes), {}, Places(folder()), {});
        datafiles::preview_file(write("P.QCF", bytes), {}, Places(folder()), {});
    }
}

TEST_F(DamagedFiles, DamagedPointFilesGiveSoundPoints) {
    for (int round = 0; round < 600; ++round) {
        const std::string bytes =
            round % 2 == 0 ? random_bytes(random() % 600) : "c\n" + random_text(random() % 600);
        for (const char delimiter : {';', ',', '\t', '\0'})
            for (const datafiles::FitPoint& p :
                 datafiles::read_xy_text(bytes, delimiter).data.points)
                EXPECT_TRUE(std::isfinite(p.x) && std::isfinite(p.y));
    }
}

TEST_F(DamagedFiles, DamagedSynonymFilesEndTheSearch) {
    const std::string whole =
        "1-1\r\nName_x\r\nONE\r\nTWO\r\n\r\n2-2\r\nOther_y\r\nTHREE\r\n\r\nEND\r\n";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const auto hit = datafiles::Synonyms(whole.substr(0, length)).find("three");
        EXPECT_TRUE(!hit || hit->casrn == "2-2");
    }
    for (int round = 0; round < 300; ++round) {
        (void)datafiles::Synonyms(mutated(whole)).find("three");
        const auto file = datafiles::Synonyms::read(write("SYNOM.TXT", random_bytes(500)));
        ASSERT_TRUE(file);
        EXPECT_FALSE(file->find("no such substance"));
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
    EXPECT_EQ(datafiles::read_xy_text("c\n" + line + ";1\n", ';').data.points.at(0).x, 0.0F);
    EXPECT_EQ(datafiles::split_csv(line)->size(), 1U);
    const auto file =
        datafiles::read_measured_data("d\nc\n1\n1\n" + line + ",1,2,3,4,5\n", "D.BAQ");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->data.points.at(0).T, 0.0);
    EXPECT_EQ(file->data.points.at(0).p, 1.0);
}

}  // namespace
