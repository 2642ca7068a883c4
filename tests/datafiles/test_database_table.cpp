#include <map>

#include "datafiles/csv_table.h"
#include "datafiles/database.h"
#include "datafiles/database_table.h"
#include "datafiles/search.h"
#include "support/database_builder.h"
#include "support/fluids.h"
#include "support/temporary_folder.h"

using namespace quor;

namespace {

using datafiles::DatabaseTable;
using datafiles::name_field;
using datafiles::read_database_table;

constexpr const char* kHead = "formula,name_en,casrn,M,Tcrit,pcrit";

std::string with_head(std::string_view moreColumns, std::string_view rows) {
    std::string csv = kHead;
    csv.append(moreColumns).append("\n").append(rows);
    return csv;
}

DatabaseTable table(std::string_view moreColumns, std::string_view row) {
    return read_database_table(with_head(moreColumns, row));
}

float slot(const DatabaseTable& t, std::size_t record, int k) {
    return t.records.at(record).values[static_cast<std::size_t>(k - 1)];
}

TEST(DatabaseTable, ARowBecomesARecord) {
    const DatabaseTable t =
        table(",WAG_1,cpPoly_0,rhoL_2,hLV_6,WAG_TLo,WAG_THi",
              "C3H8,Propane,74-98-6,44.096,369.89,4251.2,-6.76,30.5,2.5,1.5,145,369");
    ASSERT_TRUE(t.errors.empty()) << t.errors.front();
    ASSERT_EQ(t.records.size(), 1U);
    EXPECT_EQ(slot(t, 0, 1), 44.096F);
    EXPECT_EQ(slot(t, 0, 7), 369.89F);
    EXPECT_EQ(slot(t, 0, 8), 4251.2F);
    EXPECT_EQ(slot(t, 0, 49), -6.76F);
    EXPECT_EQ(slot(t, 0, 62), 30.5F);
    EXPECT_EQ(slot(t, 0, 15), 2.5F);
    EXPECT_EQ(slot(t, 0, 102), 1.5F);
    EXPECT_EQ(slot(t, 0, 59), 145.0F);
    EXPECT_EQ(slot(t, 0, 60), 369.0F);
    EXPECT_EQ(t.records[0].number, 1);
    EXPECT_EQ(datafiles::field_text(t.records[0].formula), "C3H8        ");
}

TEST(DatabaseTable, AnEmptyCellIsNothingAndAZeroIsARealZeroButForBounds) {
    const DatabaseTable t =
        table(",dfh,dfg,rhoLTLo,rhoLTHi,rhoL_2,omega", "He,Helium,1,4,5,228,0,,0,0,-0.0,1e-60");
    ASSERT_TRUE(t.errors.empty()) << t.errors.front();
    EXPECT_EQ(slot(t, 0, 86), 1e-37F);
    EXPECT_EQ(slot(t, 0, 88), 0.0F);
    EXPECT_EQ(slot(t, 0, 22), 0.0F);
    EXPECT_EQ(slot(t, 0, 23), 0.0F);
    EXPECT_EQ(slot(t, 0, 15), 1e-37F);
    EXPECT_EQ(slot(t, 0, 10), 1e-37F);
}

TEST(DatabaseTable, EverySlotCanBeGivenByItsNumber) {
    std::string columns, row = "X,Y,1,1,1,1";
    for (int k = 2; k <= 124; ++k) {
        if (k == 7 || k == 8) continue;
        columns.append(",slot_").append(std::to_string(k));
        row.append(",").append(std::to_string(k));
    }
    const DatabaseTable t = table(columns, row);
    ASSERT_TRUE(t.errors.empty()) << t.errors.front();
    for (int k = 2; k <= 124; ++k) {
        const float expected = k == 7 || k == 8 ? 1.0F : static_cast<float>(k);
        EXPECT_EQ(slot(t, 0, k), expected);
    }
    // Slot 46 is a bound also under its number.
    EXPECT_EQ(slot(table(",slot_46", "X,Y,1,1,1,1,0"), 0, 46), 0.0F);
}

TEST(DatabaseTable, NumbersCountUpOrAreGiven) {
    const DatabaseTable counted = table("", "A,A,1,1,1,1\nB,B,2,1,1,1\n");
    EXPECT_EQ(counted.records.at(1).number, 2);
    const DatabaseTable given = table(",number", "A,A,1,1,1,1,417");
    EXPECT_EQ(given.records.at(0).number, 417);
    EXPECT_EQ(table(",number", "A,A,1,1,1,1,0").errors.at(0),
              "Line 2, column number: \"0\" is no substance number.");
}

TEST(DatabaseTable, SynonymsStandBehindTheNameAsFarAsWholeOnesFit) {
    EXPECT_EQ(name_field("Ethane", ""), "Ethane");
    EXPECT_EQ(name_field("Ethane", "R-170; bimethyl"), "Ethane;R-170;bimethyl");
    // 40 characters exactly, then one too many: the rest is left out even where a shorter one
    // follows.
    EXPECT_EQ(name_field("0123456789012345678", "01234567890123456789"),
              "0123456789012345678;01234567890123456789");
    EXPECT_EQ(name_field("0123456789012345678", "012345678901234567890;x"), "0123456789012345678");
    EXPECT_EQ(name_field("Ameisensäure; Methansäure", "HCOOH"), "Ameisensäure;Methansäure;HCOOH");
    EXPECT_EQ(name_field("ÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜ", "ÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜ"),
              "ÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜ;ÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜ");
}

TEST(DatabaseTable, TextsAreWrittenInTheAnsiCodePage) {
    const DatabaseTable t =
        table(",synonyms_en,name_de,synonyms_de",
              "C2H6O,Ethanol,64-17-5,46,514,6148,alcohol;spirit,Äthanol,Weingeist");
    ASSERT_TRUE(t.errors.empty()) << t.errors.front();
    const auto& r = t.records[0];
    EXPECT_EQ(std::string(r.name_english.begin(), r.name_english.begin() + 23),
              "Ethanol;alcohol;spirit ");
    EXPECT_EQ(std::string(r.name_german.begin(), r.name_german.begin() + 18),
              "\xC4thanol;Weingeist ");
}

TEST(DatabaseTable, BadTablesAreToldWithLineAndColumn) {
    const auto first = [](const std::string& csv) { return read_database_table(csv).errors.at(0); };
    const auto first_row = [&](std::string_view rows) { return first(with_head("", rows)); };
    EXPECT_EQ(first(""), "The table is empty.");
    EXPECT_EQ(first_row(""), "The table has no substances.");
    EXPECT_EQ(first("formula,name_en,casrn,M,Tcrit\n"),
              "Line 1, column pcrit: this column is missing.");
    EXPECT_EQ(first(with_head(",Tkrit", "")), "Line 1, column Tkrit: there is no such column.");
    EXPECT_EQ(first(with_head(",slot_125", "")),
              "Line 1, column slot_125: there is no such column.");
    EXPECT_EQ(first(with_head(",M", "")), "Line 1, column M: this column is there twice.");
    EXPECT_EQ(first_row("\nA,A,1,1,1,1\nB,B,2,1,x,1\n"),
              "Line 4, column Tcrit: \"x\" is not a number.");
    EXPECT_EQ(first_row("A,A,1,1,1.5.2,1\n"), "Line 2, column Tcrit: \"1.5.2\" is not a number.");
    EXPECT_EQ(first_row("A,A,1,1,1e39,1\n"), "Line 2, column Tcrit: 1e39 is too large.");
    EXPECT_EQ(first_row("A,A,1,1,inf,1\n"), "Line 2, column Tcrit: \"inf\" is not a number.");
    EXPECT_EQ(first_row("A,A,1,1,1\n"), "Line 2: it has 5 cells, but there are 6 columns.");
    EXPECT_EQ(first_row("A,,1,1,1,1\n"), "Line 2, column name_en: the name is missing.");
    EXPECT_EQ(first_row("0123456789012,A,1,1,1,1\n"),
              "Line 2, column formula: \"0123456789012\" is longer than 12 characters.");
    EXPECT_EQ(first_row("A,A→B,1,1,1,1\n"),
              "Line 2, column name_en: \"A→B\" has a character that a database cannot hold.");
    EXPECT_EQ(first_row("A,A,1,1,1,1\nB,B,1,1,1,1\n"),
              "Line 3, column casrn: 1 stands in line 2 already.");
    EXPECT_EQ(first_row("A,\"A,1,1,1,1\n"), "Line 2: a quote is opened and never closed.");
    EXPECT_EQ(table(",WAG_TLo,WAG_THi", "A,A,1,1,1,1,300,200").errors.at(0),
              "Line 2, column WAG_TLo: the lower bound is above the upper one.");
    EXPECT_EQ(table(",WAG_TLo", "A,A,1,1,1,1,-5").errors.at(0),
              "Line 2, column WAG_TLo: -5 is no temperature bound.");
}

TEST(DatabaseTable, ABadTableGivesNoRecordsAndNoFloodOfErrors) {
    std::string csv = with_head("", "");
    for (int i = 0; i < 1000; ++i) csv.append("A,A,").append(std::to_string(i)).append(",x,1,1\n");
    const DatabaseTable t = read_database_table(csv);
    EXPECT_TRUE(t.records.empty());
    EXPECT_EQ(t.errors.size(), 20U);
}

TEST(DatabaseTable, MoreSubstancesThanTheCountHoldsAreRefused) {
    std::string csv = with_head("", "");
    for (int i = 0; i < 32768; ++i) csv.append("A,A,").append(std::to_string(i)).append(",1,1,1\n");
    EXPECT_EQ(read_database_table(csv).errors.at(0), "A database holds at most 32767 substances.");
}

TEST(DatabaseTable, QuotedCellsHoldCommasQuotesAndLineEnds) {
    const auto split = datafiles::split_csv(
        "\xEF\xBB\xBF"
        "a,\"b,\"\"c\"\"\nd\"\r\n\r\ne,\r\nf");
    ASSERT_TRUE(split);
    const std::vector<datafiles::CsvRow>& rows = *split;
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].cells, (std::vector<std::string>{"a", "b,\"c\"\nd"}));
    EXPECT_EQ(rows[1].cells, (std::vector<std::string>{"e", ""}));
    EXPECT_EQ(rows[1].line, 4U);
    EXPECT_EQ(rows[2].cells, (std::vector<std::string>{"f"}));
    EXPECT_EQ(rows[2].line, 5U);
}

// The whole way of the system's own table

class StudentDatabase : public testing::Test {
  protected:
    StudentDatabase() {
        const DatabaseTable t = read_database_table(
            builder::ReadFile(std::string(QUOR_SOURCE_DATA) + "/substances.csv"));
        for (const std::string& error : t.errors) ADD_FAILURE() << error;
        const std::filesystem::path file = folder_.path() / "S.Q05";
        builder::WriteFile(file, datafiles::database_bytes(t.records));
        database = *datafiles::Database::open(file);
    }

    datafiles::Database database;

  private:
    TemporaryFolder folder_;
};

void expect_equal(const models::CpSet& a, const models::CpSet& b) {
    EXPECT_EQ(a.c, b.c);
    EXPECT_EQ(a.T_low, b.T_low);
    EXPECT_EQ(a.T_high, b.T_high);
}

TEST_F(StudentDatabase, EverySubstanceReadsAsItsRowSays) {
    const std::vector<std::string> names = fluids::AllNames();
    ASSERT_EQ(database.size(), names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        SCOPED_TRACE(names[i]);
        const auto read = database.read(i);
        ASSERT_TRUE(read);
        EXPECT_FALSE(read->no_critical_data);
        // Read from the table by the tests' own reader.
        const models::SubstanceRecord expected = fluids::Row(names[i]);
        const models::SubstanceRecord& r = read->record;
        EXPECT_EQ(r.name, expected.name);
        EXPECT_EQ(r.formula, expected.formula);
        EXPECT_EQ(r.casrn, expected.casrn);
        EXPECT_EQ(r.M, expected.M);
        EXPECT_EQ(r.Tcrit, expected.Tcrit);
        EXPECT_EQ(r.pcrit, expected.pcrit);
        EXPECT_EQ(r.rhocrit, expected.rhocrit);
        EXPECT_EQ(r.vcrit_measured, expected.vcrit_measured);
        EXPECT_EQ(r.omega, expected.omega);
        EXPECT_EQ(r.Tboil, expected.Tboil);
        EXPECT_EQ(r.Ttriple, expected.Ttriple);
        EXPECT_EQ(r.ptriple, expected.ptriple);
        EXPECT_EQ(r.dfh, expected.dfh);
        EXPECT_EQ(r.dfg, expected.dfg);
        EXPECT_EQ(r.sconv, expected.sconv);
        EXPECT_EQ(r.wagner.a, expected.wagner.a);
        EXPECT_EQ(r.wagner.T_low, expected.wagner.T_low);
        EXPECT_EQ(r.frost.a, expected.frost.a);
        EXPECT_EQ(r.frost.T_high, expected.frost.T_high);
        EXPECT_EQ(r.antoine_low.B, expected.antoine_low.B);
        EXPECT_EQ(r.antoine_high.C, expected.antoine_high.C);
        EXPECT_EQ(r.rhoL_coefficients, expected.rhoL_coefficients);
        EXPECT_EQ(r.rhoL_T_low, expected.rhoL_T_low);
        EXPECT_EQ(r.rhoL_T_high, expected.rhoL_T_high);
        EXPECT_EQ(r.rhoS_coefficients, expected.rhoS_coefficients);
        EXPECT_EQ(r.hLV_coefficients, expected.hLV_coefficients);
        EXPECT_EQ(r.hLV_Tc, expected.hLV_Tc);
        expect_equal(r.cp_polynomial, expected.cp_polynomial);
        expect_equal(r.cp_sinh_cosh, expected.cp_sinh_cosh);
        expect_equal(r.cpL, expected.cpL);
        expect_equal(r.cpS, expected.cpS);
        EXPECT_EQ(r.has_cp_polynomial, expected.has_cp_polynomial);
        EXPECT_EQ(r.has_cp_sinh_cosh, expected.has_cp_sinh_cosh);
        EXPECT_EQ(r.has_cpL, expected.has_cpL);
        EXPECT_EQ(r.has_cpS, expected.has_cpS);
        EXPECT_EQ(r.watson_hLV, expected.watson_hLV);
        EXPECT_EQ(r.watson_T, expected.watson_T);
    }
}

TEST_F(StudentDatabase, KnownFiguresOfCarbonDioxideArrive) {
    const auto place = datafiles::find_by_casrn(database, "124-38-9");
    ASSERT_TRUE(place);
    const models::SubstanceRecord substance = database.read(*place)->record;
    EXPECT_EQ(substance.name, "Carbon dioxide");
    // Span and Wagner (1996): 304.1282 K, 7377.3 kPa, 467.6 kg/m^3; M from the atomic weights.
    EXPECT_NEAR(substance.M, 44.0095, 0.001);
    EXPECT_NEAR(substance.Tcrit, 304.1282, 0.0001);
    EXPECT_NEAR(substance.pcrit, 7377.3, 0.1);
    EXPECT_NEAR(substance.rhocrit, 467.6, 0.01);
    EXPECT_NEAR(substance.omega, 0.224, 0.001);
}

}  // namespace
