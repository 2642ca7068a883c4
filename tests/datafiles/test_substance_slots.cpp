#include <cmath>
#include <limits>

#include "datafiles/record_fields.h"
#include "datafiles/substance_slots.h"
#include "models/vapour_pressure.h"
#include "support/codes.h"
#include "support/database_builder.h"

using namespace quor;

namespace {

using datafiles::LoadedSubstance;
using datafiles::SubstanceFileRecord;
using models::SubstanceRecord;

SubstanceFileRecord file_of(const builder::Substance& s) {
    const std::string bytes = builder::Record(s);
    return datafiles::decode_record(std::span<const char, 684>(bytes.data(), 684));
}

LoadedSubstance load(const builder::Substance& s, float formerEntropy = 0) {
    return datafiles::record_from_slots(file_of(s), true, formerEntropy);
}

/// A record in which every value has a distinct content; bounds rise.
builder::Substance numbered() {
    builder::Substance s = builder::Plain("All;every slot", "1-2-3");
    for (int slot = 1; slot <= 124; ++slot) s.slots[slot] = static_cast<float>(slot) + 0.25F;
    return s;
}

TEST(SubstanceSlots, EverySlotReachesItsField) {
    const SubstanceRecord r = load(numbered()).record;
    const auto at = [](int slot) { return static_cast<float>(slot) + 0.25F; };
    EXPECT_EQ(r.M, at(1));
    EXPECT_EQ(r.Tcrit, 7.25);
    EXPECT_EQ(r.pcrit, 8.25);
    EXPECT_EQ(r.rhocrit, 9.25);
    EXPECT_EQ(r.omega, 10.25);
    EXPECT_EQ(r.Tboil, at(11));
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(r.rhoL_coefficients[static_cast<std::size_t>(i)], at(14 + i));
    EXPECT_EQ(r.rhoL_Tc, at(21));
    EXPECT_EQ(r.rhoL_T_low, 22);
    EXPECT_EQ(r.rhoL_T_high, 23);
    for (int i = 0; i < 9; ++i) EXPECT_EQ(r.frost.a[static_cast<std::size_t>(i)], at(25 + i));
    EXPECT_EQ(r.frost.T_low, 34);
    EXPECT_EQ(r.frost.T_high, 35);
    EXPECT_EQ(r.antoine_low.A, at(37));
    EXPECT_EQ(r.antoine_low.B, at(38));
    EXPECT_EQ(r.antoine_low.C, at(39));
    EXPECT_EQ(r.antoine_low.T_low, 40);
    EXPECT_EQ(r.antoine_low.T_high, 41);
    EXPECT_EQ(r.antoine_high.A, at(43));
    EXPECT_EQ(r.antoine_high.B, at(44));
    EXPECT_EQ(r.antoine_high.C, at(45));
    EXPECT_EQ(r.antoine_high.T_low, 46);
    EXPECT_EQ(r.antoine_high.T_high, 47);
    for (int i = 0; i < 10; ++i) EXPECT_EQ(r.wagner.a[static_cast<std::size_t>(i)], at(49 + i));
    EXPECT_EQ(r.wagner.T_low, 59);
    EXPECT_EQ(r.wagner.T_high, 60);
    for (int i = 0; i < 5; ++i) {
        const auto e = static_cast<std::size_t>(i);
        EXPECT_EQ(r.cp_polynomial.c[e], at(62 + i));
        EXPECT_EQ(r.cp_sinh_cosh.c[e], at(70 + i));
        EXPECT_EQ(r.cpL.c[e], at(78 + i));
        EXPECT_EQ(r.cpS.c[e], at(111 + i));
    }
    EXPECT_EQ(r.cp_polynomial.T_low, 67);
    EXPECT_EQ(r.cp_polynomial.T_high, 68);
    EXPECT_EQ(r.cp_sinh_cosh.T_low, 75);
    EXPECT_EQ(r.cp_sinh_cosh.T_high, 76);
    EXPECT_EQ(r.cpL.T_low, 83);
    EXPECT_EQ(r.cpL.T_high, 84);
    EXPECT_EQ(r.cpS.T_low, 116);
    EXPECT_EQ(r.cpS.T_high, 117);
    EXPECT_EQ(r.dfh, at(86));
    EXPECT_EQ(r.dfg, at(88));
    EXPECT_EQ(r.sconv, at(90));
    EXPECT_EQ(r.Ttriple, at(92));
    EXPECT_EQ(r.ptriple, at(93));
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(r.hLV_coefficients[static_cast<std::size_t>(i)], at(97 + i));
    EXPECT_EQ(r.hLV_Tc, at(103));
    EXPECT_EQ(r.hLV_T_low, 104);
    EXPECT_EQ(r.hLV_T_high, 105);
    EXPECT_EQ(r.watson_hLV, at(106));
    EXPECT_EQ(r.watson_T, at(107));
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(r.rhoS_coefficients[static_cast<std::size_t>(i)], at(119 + i));
    EXPECT_EQ(r.rhoS_T_low, 123);
    EXPECT_EQ(r.rhoS_T_high, 124);
    const std::array<float, 8> spare{at(12), at(13), at(24), at(48),
                                     at(89), at(95), at(96), at(118)};
    EXPECT_EQ(r.spare, spare);
}

TEST(SubstanceSlots, TextsAreTrimmedAndTheNameEndsAtTheFirstSemicolon) {
    builder::Substance s = builder::Plain("Carbon dioxide ;R-744", "124-38-9");
    s.formula = " C O2";
    s.name_german = "Kohlens\xE4ure;CO2";
    const SubstanceRecord r = load(s).record;
    EXPECT_EQ(r.name, "Carbon dioxide");
    EXPECT_EQ(r.formula, " C O2");
    EXPECT_EQ(r.formula_compact, "CO2");
    EXPECT_EQ(r.casrn, "124-38-9    ");
    EXPECT_EQ(datafiles::record_from_slots(file_of(s), false).record.name, "Kohlensäure");
}

TEST(SubstanceSlots, MassAndCriticalDataAreRoundedHalfUpAtTheFifthDecimal) {
    builder::Substance s = builder::Plain("A", "1");
    s.slots[1] = 18.01528F;
    // 0.03125 is a float without error, and a tie at the fifth decimal.
    s.slots[7] = 100.03125F;
    s.slots[8] = 4000.0009765625F;
    const SubstanceRecord r = load(s).record;
    EXPECT_EQ(r.M, 18.0153F);
    EXPECT_DOUBLE_EQ(r.Tcrit, 100.0313);
    EXPECT_DOUBLE_EQ(r.pcrit, 4000.001);
}

TEST(SubstanceSlots, MissingCriticalDataAreReportedAndReadingGoesOn) {
    for (const int slot : {7, 8}) {
        builder::Substance s = builder::Plain("A", "1");
        s.slots[slot] = 0;
        s.slots[90] = 200.0F;
        const LoadedSubstance loaded = load(s);
        EXPECT_TRUE(loaded.no_critical_data);
        EXPECT_EQ(loaded.record.sconv, 200.0F);
        EXPECT_EQ(loaded.record.august.A, 0.0F);
        EXPECT_EQ(loaded.record.august.B, 0.0F);
    }
    EXPECT_FALSE(load(builder::Plain("A", "1")).no_critical_data);
}

TEST(SubstanceSlots, ARealZeroIsHandedThroughAndNothingStaysNothing) {
    builder::Substance s = builder::Plain("A", "1");
    s.slots[86] = 1e-37F;
    s.slots[70] = 1e-37F;
    const SubstanceRecord r = load(s).record;
    EXPECT_EQ(r.dfh, 1e-37F);
    EXPECT_EQ(r.dfg, 0.0F);
    EXPECT_EQ(r.cp_sinh_cosh.c[0], 1e-37F);
    EXPECT_EQ(r.watson_hLV, 0.0F);
}

TEST(SubstanceSlots, TheSecondTriplePointStandsInForTheFirst) {
    builder::Substance s = builder::Plain("A", "1");
    s.slots[94] = 91.5F;
    EXPECT_EQ(load(s).record.Ttriple, 91.5F);
    s.slots[92] = 90.5F;
    EXPECT_EQ(load(s).record.Ttriple, 90.5F);
}

TEST(SubstanceSlots, CriticalVolumeComesFromTheDensity) {
    builder::Substance s = builder::Plain("A", "1");
    EXPECT_DOUBLE_EQ(load(s).record.vcrit_measured, 0.25);
    s.slots[9] = 0;
    EXPECT_EQ(load(s).record.vcrit_measured, 0.0);
}

TEST(SubstanceSlots, TheBestVapourPressureSetIsChosen) {
    const auto code = [](std::initializer_list<int> bounds) {
        builder::Substance s = builder::Propane();
        for (const int slot : {34, 40, 46, 59}) s.slots[slot] = 0;
        for (const int slot : bounds) s.slots[slot] = 150.0F;
        return load(s).vapour_pressure;
    };
    constexpr int frost = 34, antoine_low = 40, antoine_high = 46, wagner = 59;
    EXPECT_EQ(code({}), "000");
    EXPECT_EQ(code({antoine_high}), "AHP");
    EXPECT_EQ(code({antoine_low}), "ALP");
    EXPECT_EQ(code({antoine_high, antoine_low}), "ALP");
    EXPECT_EQ(code({frost, antoine_high}), "FRO");
    EXPECT_EQ(code({frost, antoine_high, antoine_low}), "FRO");
    EXPECT_EQ(code({wagner, frost, antoine_high, antoine_low}), "WAG");
}

TEST(SubstanceSlots, AugustConstantsGoThroughBoilingAndCriticalPoint) {
    const SubstanceRecord r = load(builder::Propane()).record;
    const double A = static_cast<double>(r.august.A), B = static_cast<double>(r.august.B);
    EXPECT_NEAR(std::exp(A + B / 369.89), 4251.2, 4251.2 * 1e-5);
    EXPECT_NEAR(std::exp(A + B / 231.036), 101.325, 101.325 * 1e-5);
}

TEST(SubstanceSlots, AMissingBoilingPointComesFromTheEquationAndAugustIsOlder) {
    builder::Substance s = builder::Propane();
    s.slots[11] = 0;
    const SubstanceRecord r = load(s).record;
    const auto p = models::vapour_pressure(r, static_cast<double>(r.Tboil), codes::vp("WAG"));
    EXPECT_TRUE(p);
    EXPECT_NEAR(p->p, 101.325, 0.02);
    EXPECT_NEAR(r.Tboil, 231.0, 0.2);
    EXPECT_EQ(r.august.B, 0.0F);
    EXPECT_FLOAT_EQ(r.august.A, static_cast<float>(std::log(4251.2)));
}

TEST(SubstanceSlots, WithoutAnEquationTheBoilingPointStaysMissing) {
    builder::Substance s = builder::Plain("A", "1");
    s.slots[11] = 0;
    const LoadedSubstance loaded = load(s);
    EXPECT_EQ(loaded.vapour_pressure, "000");
    EXPECT_EQ(loaded.record.Tboil, 0.0F);
    EXPECT_EQ(loaded.record.august.B, 0.0F);
}

TEST(SubstanceSlots, BoundsAreRoundedToTheNearestKelvinATieToTheEvenOne) {
    builder::Substance s = builder::Plain("A", "1");
    s.slots[22] = 100.5F;
    s.slots[23] = 101.5F;
    s.slots[104] = 99.6F;
    s.slots[105] = 40000.0F;
    const SubstanceRecord r = load(s).record;
    EXPECT_EQ(r.rhoL_T_low, 100);
    EXPECT_EQ(r.rhoL_T_high, 102);
    EXPECT_EQ(r.hLV_T_low, 100);
    EXPECT_EQ(r.hLV_T_high, 0);
}

TEST(SubstanceSlots, TheThirdSinhConstantIsNeverAZeroDenominator) {
    const auto third = [](float c0, float c2) {
        builder::Substance s = builder::Plain("A", "1");
        s.slots[70] = c0;
        s.slots[72] = c2;
        return load(s).record.cp_sinh_cosh.c[2];
    };
    EXPECT_EQ(third(500.0F, 0.0F), 0.1F);
    EXPECT_EQ(third(500.0F, 1e-37F), 0.1F);
    EXPECT_EQ(third(500.0F, -700.0F), 700.0F);
    EXPECT_EQ(third(0.0F, 0.0F), 0.0F);
    EXPECT_EQ(third(0.0F, -3.0F), 3.0F);
}

TEST(SubstanceSlots, CpFlagsFollowTheirTwoRules) {
    const auto flags = [](std::map<int, float> slots) {
        builder::Substance s = builder::Plain("A", "1");
        for (const auto& [slot, value] : slots) s.slots[slot] = value;
        const SubstanceRecord r = load(s).record;
        return std::string() + (r.has_cp_polynomial ? 'P' : '-') +
               (r.has_cp_sinh_cosh ? 'I' : '-') + (r.has_cpL ? 'L' : '-') + (r.has_cpS ? 'S' : '-');
    };
    EXPECT_EQ(flags({}), "----");
    EXPECT_EQ(flags({{62, 30.0F}, {67, 200.0F}, {68, 1000.0F}}), "P---");
    EXPECT_EQ(flags({{62, 30.0F}, {68, 1000.0F}}), "----");
    EXPECT_EQ(flags({{63, 30.0F}, {67, 200.0F}, {68, 1000.0F}}), "----");
    EXPECT_EQ(flags({{70, 30.0F}, {75, 200.0F}, {76, 1000.0F}}), "-I--");
    EXPECT_EQ(flags({{78, 30.0F}, {83, 200.0F}, {84, 300.0F}}), "--L-");
    EXPECT_EQ(flags({{79, 30.0F}, {83, 200.0F}, {84, 300.0F}}), "--L-");
    EXPECT_EQ(flags({{80, 30.0F}, {83, 200.0F}, {84, 300.0F}}), "----");
    EXPECT_EQ(flags({{79, 30.0F}, {84, 300.0F}}), "----");
    EXPECT_EQ(flags({{112, -3.0F}, {116, 20.0F}, {117, 30.0F}}), "---S");
    EXPECT_EQ(flags({{111, 1e-37F}, {116, 20.0F}, {117, 30.0F}}), "----");
}

TEST(SubstanceSlots, TheSecondWatsonPointWinsWithinTwoKelvinOfTheBoilingPoint) {
    const auto watson = [](float second) {
        builder::Substance s = builder::Plain("A", "1");
        s.slots[106] = 20000.0F;
        s.slots[107] = 230.0F;
        s.slots[108] = 19000.0F;
        s.slots[109] = second;
        const SubstanceRecord r = load(s).record;
        return std::pair(r.watson_hLV, r.watson_T);
    };
    // The boiling point is 250 K.
    EXPECT_EQ(watson(251.99F), std::pair(19000.0F, 251.99F));
    EXPECT_EQ(watson(248.01F), std::pair(19000.0F, 248.01F));
    EXPECT_EQ(watson(252.0F), std::pair(20000.0F, 230.0F));
    EXPECT_EQ(watson(248.0F), std::pair(20000.0F, 230.0F));
    EXPECT_EQ(watson(0.0F), std::pair(20000.0F, 230.0F));
}

TEST(SubstanceSlots, TheEntropyOfFormationIsFormedFromBothOrKept) {
    builder::Substance s = builder::Plain("A", "1");
    s.slots[86] = -104700.0F;
    EXPECT_EQ(load(s, 7.5F).record.dfs, 7.5F);
    s.slots[88] = -24300.0F;
    EXPECT_FLOAT_EQ(load(s, 7.5F).record.dfs, static_cast<float>((-104700.0 + 24300.0) / 298.15));
    s.slots[88] = 1e-37F;
    EXPECT_EQ(load(s, 7.5F).record.dfs, 7.5F);
}

TEST(SubstanceSlots, CorrelatedSetsOfAnEarlierSubstanceDoNotStay) {
    const SubstanceRecord r = load(builder::Propane()).record;
    EXPECT_EQ(r.frost_van_der_waals.a[0], 0.0F);
    EXPECT_EQ(r.frost_redlich_kwong.a[0], 0.0F);
    EXPECT_EQ(r.thompson.A, 0.0F);
    EXPECT_EQ(r.rhoL_boil, 0.0F);
}

TEST(SubstanceSlots, ADamagedValueCountsAsAbsent) {
    builder::Substance s = builder::Plain("A", "1");
    s.slots[9] = std::numeric_limits<float>::infinity();
    s.slots[10] = std::numeric_limits<float>::quiet_NaN();
    s.slots[67] = -std::numeric_limits<float>::infinity();
    const SubstanceRecord r = load(s).record;
    EXPECT_EQ(r.rhocrit, 0.0);
    EXPECT_EQ(r.omega, 0.0);
    EXPECT_EQ(r.cp_polynomial.T_low, 0);
}

TEST(SubstanceSlots, APrivateRecordSetsItsSlotsAndKeepsTheOthers) {
    builder::Substance source = numbered();
    source.text5 = "kept";
    source.name_german = "Alles";
    SubstanceFileRecord file = file_of(source);
    SubstanceRecord r;
    for (const datafiles::RecordField& field : datafiles::record_fields()) {
        if (field.slot == 0) continue;
        for (std::size_t i = 0; i < std::max<std::size_t>(field.count, 1); ++i)
            ASSERT_TRUE(datafiles::set_field(r, datafiles::name_of({&field, i}), "7"));
    }
    r.name = "Everything";
    r.formula = "XY";
    r.casrn = "9-9-9";
    datafiles::slots_from_record(r, true, file);

    const auto is_set = [](int slot) {
        const std::pair<int, int> ranges[] = {{1, 1},   {7, 11},  {14, 23}, {25, 35},  {37, 41},
                                              {43, 47}, {49, 60}, {62, 68}, {70, 76},  {78, 84},
                                              {86, 86}, {88, 88}, {92, 92}, {97, 107}, {111, 117}};
        for (const auto& [first, last] : ranges)
            if (slot >= first && slot <= last) return true;
        return false;
    };
    for (int slot = 1; slot <= 124; ++slot)
        EXPECT_EQ(file.values[static_cast<std::size_t>(slot - 1)],
                  is_set(slot) ? 7.0F : static_cast<float>(slot) + 0.25F)
            << slot;
    EXPECT_EQ(datafiles::field_text(file.name_english).substr(0, 11), "Everything ");
    EXPECT_EQ(datafiles::field_text(file.name_german).substr(0, 6), "Alles ");
    EXPECT_EQ(datafiles::field_text(file.formula), "XY          ");
    EXPECT_EQ(datafiles::field_text(file.casrn), "9-9-9       ");
    EXPECT_EQ(std::string(file.text5.begin(), file.text5.begin() + 5), "kept ");
    EXPECT_EQ(file.number, 1);
}

TEST(SubstanceSlots, AValueBeyond32BitsIsNotWrittenAsInfinity) {
    SubstanceRecord r;
    r.Tcrit = 1e300;
    SubstanceFileRecord file;
    datafiles::slots_from_record(r, true, file);
    EXPECT_EQ(file.values[6], 0.0F);
}

}  // namespace
