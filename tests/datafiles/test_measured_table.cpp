#include "common/numbers.h"
#include "datafiles/measured_table.h"
#include "datafiles/table_text.h"
#include "models/unit_text.h"
#include "support/fluids.h"

using namespace quor;

namespace {

using datafiles::MeasuredColumn;
using datafiles::MeasuredPoint;
using datafiles::MeasuredUnits;
using datafiles::PressureUnit;
using datafiles::store_cell;
using datafiles::TemperatureUnit;

class MeasuredTable : public testing::Test {
  protected:
    ~MeasuredTable() override { numbers::set_decimal_mark('.'); }

    void fill(std::initializer_list<double> temperatures) {
        for (const double T : temperatures) points.push_back({.T = T});
    }
    std::vector<double> temperatures() const {
        std::vector<double> list;
        for (const MeasuredPoint& point : points) list.push_back(point.T);
        return list;
    }
    /// A line, counted from 1.
    MeasuredPoint& line(std::size_t n) { return points.at(n - 1); }

    std::vector<MeasuredPoint> points;
};

TEST(MeasuredUnits, TypedValuesAreStoredInTheSystemsUnits) {
    EXPECT_DOUBLE_EQ(datafiles::stored_temperature(25, TemperatureUnit::Celsius), 298.15);
    EXPECT_EQ(datafiles::stored_temperature(25, TemperatureUnit::K), 25.0);
    EXPECT_DOUBLE_EQ(datafiles::stored_pressure(2, PressureUnit::atm), 202.65);
    EXPECT_DOUBLE_EQ(datafiles::stored_pressure(760, PressureUnit::Torr), 101.325);
    EXPECT_EQ(datafiles::stored_pressure(5, PressureUnit::kPa), 5.0);
    const MeasuredUnits volume{.volume = true, .n = 2, .M = 44};
    EXPECT_DOUBLE_EQ(datafiles::stored_density(0.5, volume), 176.0);
    EXPECT_EQ(datafiles::stored_density(0, volume), 0.0);
    EXPECT_EQ(datafiles::stored_density(500, {}), 500.0);
}

TEST(MeasuredUnits, StoredValuesAreShownRoundedInTheUnitChosen) {
    EXPECT_DOUBLE_EQ(datafiles::shown_temperature(298.15049, TemperatureUnit::K), 298.15);
    EXPECT_DOUBLE_EQ(datafiles::shown_temperature(298.1506, TemperatureUnit::K), 298.151);
    EXPECT_DOUBLE_EQ(datafiles::shown_temperature(298.15, TemperatureUnit::Celsius), 25.0);
    EXPECT_DOUBLE_EQ(datafiles::shown_pressure(101.325, PressureUnit::atm), 1.0);
    EXPECT_DOUBLE_EQ(datafiles::shown_pressure(101.325, PressureUnit::Torr), 760.0);
    EXPECT_DOUBLE_EQ(datafiles::shown_pressure(1.0000049, PressureUnit::kPa), 1.0);
    EXPECT_DOUBLE_EQ(datafiles::shown_pressure(1.000006, PressureUnit::kPa), 1.00001);
    EXPECT_DOUBLE_EQ(datafiles::shown_density(176, {.volume = true, .n = 2, .M = 44}), 0.5);
}

TEST(MeasuredUnits, EveryUnitGoesThereAndBack) {
    for (const auto unit : {TemperatureUnit::K, TemperatureUnit::Celsius})
        EXPECT_NEAR(datafiles::shown_temperature(datafiles::stored_temperature(36.6, unit), unit),
                    36.6, 1e-9);
    for (const auto unit : {PressureUnit::kPa, PressureUnit::atm, PressureUnit::Torr})
        EXPECT_NEAR(datafiles::shown_pressure(datafiles::stored_pressure(12.5, unit), unit), 12.5,
                    1e-9);
}

TEST_F(MeasuredTable, CellsTakePointAndComma) {
    MeasuredPoint set;
    const MeasuredUnits celsius{.T = TemperatureUnit::Celsius};
    store_cell(set, MeasuredColumn::T, "25", celsius);
    EXPECT_DOUBLE_EQ(set.T, 298.15);
    store_cell(set, MeasuredColumn::T, "26,5", celsius);
    EXPECT_DOUBLE_EQ(set.T, 299.65);
    store_cell(set, MeasuredColumn::p, " 101.5 ", {});
    EXPECT_EQ(set.p, 101.5);
    store_cell(set, MeasuredColumn::hLV, "1,5E4", {});
    EXPECT_EQ(set.hLV, 15000.0F);
}

TEST_F(MeasuredTable, ATextThatIsNoNumberIsNotReadInHalf) {
    const MeasuredPoint before{.T = 1, .p = 2, .rhoV = 3, .rhoL = 4, .hLV = 5, .cp = 6};
    for (const char* typed :
         {"n.a.", "1,234.5", "1.000,5", "3 000", "12 K", "-", "inf", "1E", "1E999"})
        for (int c = 0; c < datafiles::kMeasuredColumns; ++c) {
            MeasuredPoint set = before;
            EXPECT_FALSE(store_cell(set, static_cast<MeasuredColumn>(c), typed, {})) << typed;
            EXPECT_EQ(set, before) << typed;
        }
    for (int c = 0; c < datafiles::kMeasuredColumns; ++c) {
        MeasuredPoint set = before;
        EXPECT_FALSE(store_cell(set, static_cast<MeasuredColumn>(c), "1E39", {})) << c;
        EXPECT_EQ(set, before);
    }
}

TEST_F(MeasuredTable, APastedLineWithAWrongCellIsInactive) {
    const auto [sets, wrong] =
        datafiles::sets_from_clipboard("300\t100\n310\t1,234.5\t500\n320\t\t510\n330\tn.a.\n", {});
    ASSERT_EQ(sets.size(), 4U);
    EXPECT_EQ(wrong, (std::vector<std::size_t>{1, 3}));
    EXPECT_EQ(sets[0], (MeasuredPoint{.T = 300, .p = 100}));
    EXPECT_EQ(sets[1], (MeasuredPoint{.skip = datafiles::kInactive, .T = 310, .rhoL = 500}));
    EXPECT_EQ(sets[2], (MeasuredPoint{.T = 320, .rhoL = 510}));
    EXPECT_EQ(sets[3], (MeasuredPoint{.skip = datafiles::kInactive, .T = 330}));
}

TEST_F(MeasuredTable, AnEmptyCellStoresNoValue) {
    const MeasuredUnits celsius{.T = TemperatureUnit::Celsius};
    for (const char* typed : {"", "  "}) {
        MeasuredPoint set{.T = 1, .p = 1, .rhoV = 1, .rhoL = 1, .hLV = 1, .cp = 1};
        for (int c = 0; c < datafiles::kMeasuredColumns; ++c)
            store_cell(set, static_cast<MeasuredColumn>(c), typed, celsius);
        EXPECT_EQ(set.T, 0.0);
        EXPECT_EQ(set.p, 0.0);
        EXPECT_EQ(set.rhoV, 0.0F);
        EXPECT_EQ(set.rhoL, 0.0F);
        EXPECT_EQ(set.hLV, 0.0F);
        EXPECT_EQ(set.cp, 0.0F);
        for (int c = 0; c < datafiles::kMeasuredColumns; ++c)
            EXPECT_EQ(datafiles::cell_text(set, static_cast<MeasuredColumn>(c), celsius), "");
    }
    MeasuredPoint set;
    store_cell(set, MeasuredColumn::T, "0", celsius);
    EXPECT_DOUBLE_EQ(set.T, 273.15);
    EXPECT_EQ(datafiles::cell_text(set, MeasuredColumn::T, celsius), "0");
}

TEST_F(MeasuredTable, CellsShowTheLocalesDecimalMark) {
    const MeasuredPoint set{
        .T = 300.5, .p = 1.5, .rhoV = 2.5F, .rhoL = 500.25F, .hLV = 1.0F, .cp = 75.5F};
    EXPECT_EQ(datafiles::cell_text(set, MeasuredColumn::T, {}), "300.5");
    EXPECT_EQ(datafiles::cell_text(set, MeasuredColumn::rhoL, {}), "500.25");
    numbers::set_decimal_mark(',');
    EXPECT_EQ(datafiles::cell_text(set, MeasuredColumn::T, {}), "300,5");
    EXPECT_EQ(datafiles::cell_text(set, MeasuredColumn::rhoV, {}), "2,5");
    EXPECT_EQ(datafiles::cell_text(set, MeasuredColumn::cp, {}), "75,5");
}

TEST_F(MeasuredTable, AClipboardTableBecomesSetsInTheOrderOfTheScreen) {
    const auto [sets, wrong] = datafiles::sets_from_clipboard(
        "T\tp\trho(L)\r\n25\t1\t500,5\t2.5\t16000\t75\r\n\r\n30\t1,5\r\n",
        {.T = TemperatureUnit::Celsius, .p = PressureUnit::atm});
    EXPECT_TRUE(wrong.empty());
    ASSERT_EQ(sets.size(), 2U);
    EXPECT_DOUBLE_EQ(sets[0].T, 298.15);
    EXPECT_DOUBLE_EQ(sets[0].p, 101.325);
    EXPECT_EQ(sets[0].rhoL, 500.5F);
    EXPECT_EQ(sets[0].rhoV, 2.5F);
    EXPECT_EQ(sets[0].hLV, 16000.0F);
    EXPECT_EQ(sets[0].cp, 75.0F);
    EXPECT_DOUBLE_EQ(sets[1].T, 303.15);
    EXPECT_DOUBLE_EQ(sets[1].p, 151.9875);
    EXPECT_EQ(sets[1].rhoL, 0.0F);
}

TEST_F(MeasuredTable, CopiedLinesPasteAsTheSameSets) {
    for (const char mark : {'.', ','}) {
        numbers::set_decimal_mark(mark);
        datafiles::remove_points(points, 1, 100);
        datafiles::insert_points(
            points, 1,
            std::vector<MeasuredPoint>{{.T = 300.5, .p = 101.25, .rhoL = 500.5F},
                                       {.T = 310, .cp = 1.5F}});
        const auto [sets, wrong] =
            datafiles::sets_from_clipboard(datafiles::sets_for_clipboard(points, 1, 2, {}), {});
        EXPECT_TRUE(wrong.empty());
        ASSERT_EQ(sets.size(), 2U);
        EXPECT_EQ(sets[0].T, 300.5);
        EXPECT_EQ(sets[0].p, 101.25);
        EXPECT_EQ(sets[0].rhoL, 500.5F);
        EXPECT_EQ(sets[1].p, 0.0);
        EXPECT_EQ(sets[1].cp, 1.5F);
    }
}

TEST_F(MeasuredTable, SetsAreInsertedAtTheMarkedPosition) {
    fill({1, 2, 3});
    datafiles::insert_points(points, 2, std::vector<MeasuredPoint>{{.T = 10}, {.T = 11}});
    EXPECT_EQ(temperatures(), (std::vector<double>{1, 10, 11, 2, 3}));
    datafiles::insert_points(points, 99, std::vector<MeasuredPoint>{{.T = 12}});
    datafiles::insert_points(points, -5, std::vector<MeasuredPoint>{{.T = 9}});
    EXPECT_EQ(temperatures(), (std::vector<double>{9, 1, 10, 11, 2, 3, 12}));
}

TEST_F(MeasuredTable, MarkedLinesAreRemoved) {
    fill({1, 2, 3, 4});
    datafiles::remove_points(points, 2, 3);
    EXPECT_EQ(temperatures(), (std::vector<double>{1, 4}));
    datafiles::remove_points(points, 5, 9);
    datafiles::remove_points(points, 3, 1);
    EXPECT_EQ(temperatures(), (std::vector<double>{1, 4}));
    datafiles::remove_points(points, -3, 99);
    EXPECT_TRUE(points.empty());
}

TEST_F(MeasuredTable, SortingKeepsTheMarkWithItsLine) {
    fill({3, 1, 2, 1});
    line(1).skip = -1;
    line(2).p = 5;
    line(3).p = 4;
    datafiles::sort_points(points, MeasuredColumn::T);
    EXPECT_EQ(temperatures(), (std::vector<double>{1, 1, 2, 3}));
    EXPECT_EQ(line(4).skip, -1);
    EXPECT_EQ(line(1).p, 5.0);
    datafiles::sort_points(points, MeasuredColumn::p);
    EXPECT_EQ(temperatures(), (std::vector<double>{1, 3, 2, 1}));
    EXPECT_EQ(line(2).skip, -1);
}

TEST_F(MeasuredTable, ActivityIsToggled) {
    fill({1, 2, 3});
    datafiles::toggle_points(points, 2, 3);
    EXPECT_EQ(line(1).skip, 0);
    EXPECT_EQ(line(2).skip, -1);
    datafiles::toggle_points(points, 3, 7);
    EXPECT_EQ(line(2).skip, -1);
    EXPECT_EQ(line(3).skip, 0);
}

TEST_F(MeasuredTable, ThePrintedTableHasAlignedColumns) {
    fill({300.5, 1000});
    line(2).skip = -1;
    line(2).p = 5;
    EXPECT_EQ(
        datafiles::measured_table_text(points, {}),
        "  #    T/K  p/kPa  rho_L/(kg/m^3)  rho_V/(kg/m^3)  delta(LV)h/(kJ/kmol)  cp/(kJ/kmol/K)\n"
        "  1  300.5\n"
        "(2)   1000      5\n");
    const std::string volumes = datafiles::measured_table_text(
        points, {.T = TemperatureUnit::Celsius, .p = PressureUnit::Torr, .volume = true});
    EXPECT_EQ(volumes.substr(0, volumes.find('\n')),
              "  #    T/°C    p/Torr  v_L/m^3  v_V/m^3  delta(LV)h/(kJ/kmol)  cp/(kJ/kmol/K)");
}

TEST_F(MeasuredTable, FitColumnsAreNumberedFromPressure) {
    const MeasuredPoint set{.T = 9, .p = 1, .rhoV = 3, .rhoL = 2, .hLV = 4, .cp = 5};
    for (int column = 1; column <= 5; ++column)
        EXPECT_EQ(datafiles::fit_column_value(set, column), column);
    EXPECT_EQ(datafiles::fit_column_value(set, 6), 0.0);
}

TEST_F(MeasuredTable, TakesTheUnitsOfTheProgram) {
    const models::Fluid propane = fluids::fluid("Propane", models::Eos::pengRobinson);
    const double M = static_cast<double>(propane.substance().M);
    MeasuredUnits us{.T = TemperatureUnit::chosen, .p = PressureUnit::chosen};
    us.program = models::make_units(models::read_choice("us").value(), propane);
    MeasuredPoint set;
    EXPECT_TRUE(datafiles::store_cell(set, MeasuredColumn::T, "32", us));
    EXPECT_TRUE(datafiles::store_cell(set, MeasuredColumn::p, "100", us));
    EXPECT_TRUE(datafiles::store_cell(set, MeasuredColumn::rhoL, "1", us));
    EXPECT_TRUE(datafiles::store_cell(set, MeasuredColumn::hLV, "100", us));
    EXPECT_TRUE(datafiles::store_cell(set, MeasuredColumn::cp, "0.5", us));
    EXPECT_NEAR(set.T, 273.15, 1e-9);
    EXPECT_NEAR(set.p, 689.4757, 1e-4);
    EXPECT_NEAR(static_cast<double>(set.rhoL), 16.01846, 1e-5);
    EXPECT_NEAR(static_cast<double>(set.hLV), 100 * 2.326 * M, 1e-2);
    EXPECT_NEAR(static_cast<double>(set.cp), 0.5 * 4.1868 * M, 1e-4);
    const auto text = [&](MeasuredColumn column) { return datafiles::cell_text(set, column, us); };
    EXPECT_EQ(text(MeasuredColumn::T), "32");
    EXPECT_EQ(text(MeasuredColumn::p), "100");
    EXPECT_EQ(text(MeasuredColumn::rhoL), "1");
    EXPECT_EQ(text(MeasuredColumn::hLV), "100");
    EXPECT_EQ(text(MeasuredColumn::cp), "0.5");
    EXPECT_EQ(text(MeasuredColumn::rhoV), "") << "no value";
    const std::vector<MeasuredPoint> one = {set};
    const std::string table = datafiles::measured_table_text(one, us);
    for (const char* head :
         {"T/degF", "p/psi", "rho_L/(lb/ft^3)", "delta(LV)h/(BTU/lb)", "cp/(BTU/(lb degR))"})
        EXPECT_NE(table.find(head), std::string::npos) << head << "\n" << table;
    // The table's own units of T and p hold beside those of the program.
    us.T = TemperatureUnit::Celsius;
    us.p = PressureUnit::atm;
    EXPECT_EQ(text(MeasuredColumn::T), "0");
    EXPECT_NEAR(numbers::val(text(MeasuredColumn::p)), 6.80460, 1e-5);
}

}  // namespace
