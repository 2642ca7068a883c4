#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cmath>

#include "datafiles/database.h"
#include "datafiles/measured_data.h"
#include "datafiles/measured_table.h"
#include "datafiles/project_file.h"
#include "datafiles/record_fields.h"
#include "datafiles/substance_editor.h"
#include "datafiles/synonyms.h"
#include "datafiles/xy_file.h"
#include "models/vapour_pressure.h"
#include "support/allocation_counter.h"
#include "support/database_builder.h"
#include "support/temporary_folder.h"

using namespace quor;

/// Files that are well formed and meant to do harm: they cost no more than their size, and what
/// they hold is a number or is not there.
namespace {

std::string repeated(std::string_view part, std::size_t times) {
    std::string all;
    all.reserve(part.size() * times);
    for (std::size_t i = 0; i < times; ++i) all += part;
    return all;
}

/// What an action takes from the heap, in single allocations.
template <class Action>
std::size_t allocations(Action action) {
    const std::size_t before = AllocationCount();
    action();
    return AllocationCount() - before;
}

constexpr std::size_t kMany = 200000, kFew = 200;
const std::string kHead = "15.11.2026\r\na comment\r\n74-98-6     \r\n";

TEST(HostileFiles, SetsBeyondATableAreNotRead) {
    const std::string text = kHead + "1E9\r\n" + repeated("300,1,2,3,4,5\r\n", kMany);
    Result<datafiles::MeasuredDataFile> file = Failure{};
    EXPECT_LT(allocations([&] { file = datafiles::read_measured_data(text, "a.BAQ"); }), kFew);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->data.points.size(), datafiles::kMostMeasuredPoints + 1)
        << "one more, which tells that there are too many";
    EXPECT_EQ(file->data.points.back().cp, 5);
    EXPECT_EQ(file->announced, 1e9);
}

TEST(HostileFiles, EmptyLinesBehindTheHeadOfMeasuredDataAreSetsWithoutValues) {
    const std::string text = kHead + "3\r\n" + repeated("\n", kMany);
    Result<datafiles::MeasuredDataFile> file = Failure{};
    EXPECT_LT(allocations([&] { file = datafiles::read_measured_data(text, "a.BAQ"); }), kFew);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->data.points.size(), 3U);
    EXPECT_EQ(file->wrong.size(), 3U);
}

TEST(HostileFiles, ALineOfVeryManyCellsIsNotCopiedCellByCell) {
    const std::string measured = kHead + "1\r\n" + repeated("7,", kMany) + "\r\n";
    const std::string points = "comment\r\n" + repeated("7;", kMany) + "\r\n";
    const std::string pasted = repeated("7\t", kMany) + "\n";
    EXPECT_LT(allocations([&] {
                  const auto file = datafiles::read_measured_data(measured, "a.BAQ");
                  ASSERT_TRUE(file);
                  ASSERT_EQ(file->data.points.size(), 1U);
                  EXPECT_EQ(file->data.points[0].skip, datafiles::kInactive);
              }),
              kFew);
    EXPECT_LT(allocations([&] {
                  const auto read = datafiles::read_xy_text(points, ';').data.points;
                  EXPECT_EQ(read, (std::vector<datafiles::FitPoint>{{7, 7, 0}}));
              }),
              kFew);
    EXPECT_LT(allocations([&] {
                  EXPECT_EQ(datafiles::xy_from_clipboard(pasted).points.size(), 1U);
                  EXPECT_EQ(datafiles::sets_from_clipboard(pasted, {}).points.size(), 1U);
              }),
              kFew);
}

TEST(HostileFiles, EmptyLinesOfPointsCostNothing) {
    const std::string text = "comment" + repeated("\r\n", kMany) + "1;2\r\n";
    EXPECT_LT(allocations([&] {
                  EXPECT_EQ(datafiles::read_xy_text(text, ';').data.points.size(), 1U);
                  EXPECT_EQ(datafiles::xy_from_clipboard(text).points.size(), 1U);
              }),
              kFew);
}

TEST(HostileFiles, SynonymsOfManyMegabytesAreRefusedInWords) {
    TemporaryFolder folder;
    builder::WriteFile(folder.path() / "SYNOM.TXT", repeated("a\n\n\n", std::size_t{3} << 20U));
    const auto read = datafiles::Synonyms::read(folder.path() / "SYNOM.TXT");
    ASSERT_FALSE(read);
    EXPECT_EQ(read.reason(), "The file SYNOM.TXT is too large (12582912 bytes).");
}

TEST(HostileFiles, ABlankNameOfTheDatabaseBehindTheItemsMakesNoProjectThatCannotBeReadAgain) {
    const std::string items = repeated("\r\n", 28);
    const std::string head = "15.11.2026\r\n\r\nA.Q05\r\n74-98-6     \r\n";
    EXPECT_FALSE(datafiles::read_project(head + items + "database=  \r\n", "a.QCF"));
    const auto read = datafiles::read_project(head + items + "database= \xCE\x94 \r\n", "a.QCF");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->database, "\xCE\x94");
    const auto again = datafiles::read_project(datafiles::project_text(*read), "a.QCF");
    ASSERT_TRUE(again);
    EXPECT_EQ(again->database, "\xCE\x94");
}

TEST(HostileFiles, APipeInPlaceOfADatabaseOrOfSynonymsIsRefusedAtOnce) {
    TemporaryFolder folder;
    const std::filesystem::path pipe = folder.path() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(datafiles::Database::open(pipe));
    EXPECT_FALSE(datafiles::Synonyms::read(pipe));
}

/// True when every number of a record is one.
bool is_finite(const models::SubstanceRecord& record) {
    for (const datafiles::RecordField& field : datafiles::record_fields())
        for (std::size_t i = 0; i < std::max<std::size_t>(field.count, 1); ++i) {
            const auto value = datafiles::value_of(record, {&field, i});
            const float* single = std::get_if<float>(&value);
            const double* wide = std::get_if<double>(&value);
            if (single != nullptr && !std::isfinite(*single)) return false;
            if (wide != nullptr && !std::isfinite(*wide)) return false;
        }
    return true;
}

TEST(HostileFiles, AnAbsurdCriticalOrBoilingPointGivesNoSetInsteadOfInfinities) {
    using enum models::VapourPressureEquation;
    for (const double Tcrit : {1e-30, 400.0, 3e38})
        for (const double pcrit : {1e-30, 4000.0, 3e38})
            for (const double Tboil : {1e-30, 250.0, 400.0, 3e38}) {
                models::SubstanceRecord s;
                s.Tcrit = Tcrit;
                s.pcrit = pcrit;
                s.Tboil = static_cast<float>(Tboil);
                for (const auto equation : {frostVanDerWaals, frostRedlichKwong, thompson})
                    models::correlate_vapour_pressure(s, equation, Tcrit, pcrit, Tboil);
                models::correlate_august(s);
                EXPECT_TRUE(is_finite(s)) << Tcrit << " " << pcrit << " " << Tboil;
            }
    models::SubstanceRecord usual;
    models::correlate_vapour_pressure(usual, frostVanDerWaals, 400, 4000, 250);
    EXPECT_NE(usual.frost_van_der_waals, models::FrostSet{});
}

TEST(HostileFiles, AnAbsurdNumberInEveryFieldOfTheEditorLeavesNumbers) {
    for (const char* typed : {"1E30", "3E38", "1E-37", "-1E30", "1E300"}) {
        datafiles::EditorTexts texts;
        texts.fill(typed);
        models::SubstanceRecord substance;
        models::ModelSelection models;
        datafiles::apply_editor(texts, substance, models);
        EXPECT_TRUE(is_finite(substance)) << typed;
    }
}

}  // namespace
