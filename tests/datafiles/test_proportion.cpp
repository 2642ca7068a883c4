#include <gtest/gtest.h>

#include <ctime>
#include <fstream>
#include <functional>

#include "datafiles/database.h"
#include "datafiles/database_table.h"
#include "datafiles/measured_data.h"
#include "datafiles/measured_table.h"
#include "datafiles/xy_file.h"
#include "support/temporary_folder.h"

using namespace quor;

namespace {

/// The least time of the processor that an action takes in three runs, s.
double timeOf(const std::function<void()>& action) {
    double least = 1e9;
    for (int run = 0; run < 3; ++run) {
        const std::clock_t start = std::clock();
        action();
        least = std::min(least, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
    return least;
}

/// Four times the size takes about four times as long. Ten times is more than a cache that becomes
/// too small explains, and far less than the sixteen times of a loop in a loop.
void expectProportion(const std::function<void(std::size_t)>& action, std::size_t size) {
    const double quarter = timeOf([&] { action(size / 4); });
    const double whole = timeOf([&] { action(size); });
    EXPECT_LT(whole, 10 * std::max(quarter, 0.002)) << "a quarter: " << quarter << " s";
}

TEST(Proportion, ReadingPointsTakesAsLongAsThereAreLines) {
    expectProportion(
        [](std::size_t lines) {
            std::string text = "comment\n";
            for (std::size_t i = 0; i < lines; ++i)
                text += std::to_string(i) + ";" + std::to_string(2 * i) + "\n";
            const datafiles::XyFile read = datafiles::read_xy_text(text, ';');
            EXPECT_EQ(read.data.points.size(), lines);
            EXPECT_FALSE(datafiles::xy_text("", read.data.points, ';').empty());
        },
        100000);
}

TEST(Proportion, ReadingMeasuredDataTakesAsLongAsThereAreSets) {
    expectProportion(
        [](std::size_t sets) {
            datafiles::MeasuredData data;
            data.points.resize(sets);
            for (std::size_t i = 0; i < sets; ++i)
                data.points[i].T = static_cast<double>(1 + (i * 7919) % sets);
            const std::string text = datafiles::measured_data_text(data, "01.01.2030");
            auto read = datafiles::read_measured_data(text, "many.BAQ");
            ASSERT_TRUE(read);
            ASSERT_EQ(read->data.points.size(), sets);
            datafiles::sort_points(read->data.points, datafiles::MeasuredColumn::T);
            EXPECT_EQ(read->data.points.front().T, 1);
        },
        datafiles::kMostMeasuredPoints);
}

TEST(Proportion, PastingSetsTakesAsLongAsThereAreLines) {
    expectProportion(
        [](std::size_t lines) {
            std::string text;
            for (std::size_t i = 0; i < lines; ++i) text += "300\t101.3\t5\t6\t7\t8\n";
            EXPECT_EQ(datafiles::sets_from_clipboard(text, {}).points.size(), lines);
        },
        datafiles::kMostMeasuredPoints);
}

TEST(Proportion, OpeningTheLargestDatabaseTakesAsLongAsItHasSubstances) {
    const TemporaryFolder folder;
    expectProportion(
        [&](std::size_t substances) {
            std::vector<datafiles::SubstanceFileRecord> records(substances);
            for (std::size_t i = 0; i < substances; ++i)
                datafiles::set_field_text(records[i].name_english,
                                          "Substance " + std::to_string(i));
            const auto path = folder.path() / "large.Q05";
            std::ofstream(path, std::ios::binary) << datafiles::database_bytes(records);
            const auto opened = datafiles::Database::open(path);
            ASSERT_TRUE(opened) << opened.reason();
            EXPECT_EQ(opened->size(), substances);
            EXPECT_EQ(opened->place_of_name("substance 17"), 17U);
        },
        32767);
}

}  // namespace
