#include <gtest/gtest.h>

#include <set>

#include "datafiles/record_fields.h"

using namespace quor;

namespace {

using datafiles::FieldPlace;
using models::SubstanceRecord;

/// What is told of a stored value, nothing for a success.
std::string set_field(models::SubstanceRecord& record, std::string_view name,
                      std::string_view value) {
    const Result<void> stored = datafiles::set_field(record, name, value);
    return stored ? std::string() : stored.reason();
}

TEST(RecordFields, SingleValuesAreSetByName) {
    SubstanceRecord r;
    EXPECT_EQ(set_field(r, "M", "44.0956"), "");
    EXPECT_EQ(set_field(r, "Tcrit", "369.89"), "");
    EXPECT_EQ(set_field(r, "omega", "-0.0022"), "");
    EXPECT_EQ(set_field(r, "vcritExp", "0.2"), "");
    EXPECT_EQ(set_field(r, "rhoLboil", "580.5"), "");
    EXPECT_EQ(r.M, 44.0956F);
    EXPECT_EQ(r.Tcrit, 369.89);
    EXPECT_EQ(r.omega, -0.0022);
    EXPECT_EQ(r.vcrit_measured, 0.2);
    EXPECT_EQ(r.rhoL_boil, 580.5F);
}

TEST(RecordFields, ElementsCountFromOne) {
    SubstanceRecord r;
    EXPECT_EQ(set_field(r, "WAG.1", "-7.77"), "");
    EXPECT_EQ(set_field(r, "WAG.10", "4251.2"), "");
    EXPECT_EQ(set_field(r, "WAG.TLo", "217"), "");
    EXPECT_EQ(set_field(r, "FRO.9", "2"), "");
    EXPECT_EQ(set_field(r, "cpSinh.5", "1.5"), "");
    EXPECT_EQ(set_field(r, "rhoLPar.7", "3"), "");
    EXPECT_EQ(set_field(r, "rhoSPar.4", "4"), "");
    EXPECT_EQ(set_field(r, "hLVPar.6", "5"), "");
    EXPECT_EQ(set_field(r, "KFW.1", "6"), "");
    EXPECT_EQ(set_field(r, "AUG.2", "-2500"), "");
    EXPECT_EQ(r.wagner.a[0], -7.77F);
    EXPECT_EQ(r.wagner.a[9], 4251.2F);
    EXPECT_EQ(r.wagner.T_low, 217);
    EXPECT_EQ(r.frost.a[8], 2.0F);
    EXPECT_EQ(r.cp_sinh_cosh.c[4], 1.5F);
    EXPECT_EQ(r.rhoL_coefficients[6], 3.0F);
    EXPECT_EQ(r.rhoS_coefficients[3], 4.0F);
    EXPECT_EQ(r.hLV_coefficients[5], 5.0F);
    EXPECT_EQ(r.frost_van_der_waals.a[0], 6.0F);
    EXPECT_EQ(r.august.B, -2500.0F);
}

TEST(RecordFields, AntoineConstantsGoByLetterAndByNumber) {
    SubstanceRecord r;
    EXPECT_EQ(set_field(r, "ALP.A", "5.9"), "");
    EXPECT_EQ(set_field(r, "ALP.2", "803"), "");
    EXPECT_EQ(set_field(r, "AHP.C", "247"), "");
    EXPECT_EQ(set_field(r, "THO.B", "9"), "");
    EXPECT_EQ(r.antoine_low.A, 5.9F);
    EXPECT_EQ(r.antoine_low.B, 803.0F);
    EXPECT_EQ(r.antoine_high.C, 247.0F);
    EXPECT_EQ(r.thompson.B, 9.0F);
}

TEST(RecordFields, TextsAndFlagsAreFieldsToo) {
    SubstanceRecord r;
    EXPECT_EQ(set_field(r, "Name", "Ammonia 3"), "");
    EXPECT_EQ(set_field(r, "Formula", "N H3"), "");
    EXPECT_EQ(set_field(r, "CASRN", "7664-41-7"), "");
    EXPECT_EQ(set_field(r, "hasCpL", "1"), "");
    EXPECT_EQ(r.name, "Ammonia 3");
    EXPECT_EQ(r.formula, "N H3");
    EXPECT_EQ(r.formula_compact, "NH3");
    EXPECT_EQ(r.casrn, "7664-41-7   ");
    EXPECT_TRUE(r.has_cpL);
    EXPECT_EQ(set_field(r, "hasCpL", "false"), "");
    EXPECT_FALSE(r.has_cpL);
}

TEST(RecordFields, AValueIsStoredAsItStands) {
    SubstanceRecord r;
    EXPECT_EQ(set_field(r, "Tcrit", "369.123456"), "");
    EXPECT_EQ(r.Tcrit, 369.123456);
    EXPECT_EQ(set_field(r, "cpSinh.3", "-5"), "");
    EXPECT_EQ(r.cp_sinh_cosh.c[2], -5.0F);
    EXPECT_EQ(set_field(r, "WAG.TLo", "216.5"), "");
    EXPECT_EQ(r.wagner.T_low, 216);
}

TEST(RecordFields, WrongNamesAndValuesAreTold) {
    SubstanceRecord r;
    r.M = 3;
    EXPECT_EQ(set_field(r, "Mass", "1"), "There is no field \"Mass\".");
    EXPECT_EQ(set_field(r, "WAG", "1"), "WAG has 10 elements: name one of them, as WAG.1.");
    EXPECT_EQ(set_field(r, "WAG.11", "1"), "There is no field \"WAG.11\".");
    EXPECT_EQ(set_field(r, "WAG.0", "1"), "There is no field \"WAG.0\".");
    EXPECT_EQ(set_field(r, "WAG.A", "1"), "There is no field \"WAG.A\".");
    EXPECT_EQ(set_field(r, "M", "heavy"), "\"heavy\" is no number for M.");
    EXPECT_EQ(set_field(r, "M", "1e99"), "\"1e99\" is no number for M.");
    EXPECT_EQ(set_field(r, "M", "nan"), "\"nan\" is no number for M.");
    EXPECT_EQ(set_field(r, "Tcrit", "1e39"), "\"1e39\" is no number for Tcrit.");
    EXPECT_EQ(set_field(r, "M", ""), "\"\" is no number for M.");
    EXPECT_EQ(set_field(r, "M", "1,5"), "\"1,5\" is no number for M.");
    EXPECT_EQ(set_field(r, "WAG.TLo", "40000"), "\"40000\" is no whole number for WAG.TLo.");
    EXPECT_EQ(set_field(r, "hasCpL", "perhaps"), "\"perhaps\" is no flag for hasCpL.");
    EXPECT_EQ(r.M, 3.0F);
}

TEST(RecordFields, EveryFieldIsFoundByItsOwnNameAndTakesAValue) {
    std::set<std::string> names;
    int values = 0;
    for (const datafiles::RecordField& field : datafiles::record_fields()) {
        for (std::size_t i = 0; i < std::max<std::size_t>(field.count, 1); ++i) {
            const FieldPlace place{&field, i};
            const std::string name = name_of(place);
            EXPECT_TRUE(names.insert(name).second) << name;
            const auto found = datafiles::find_field(name);
            ASSERT_TRUE(found) << name;
            EXPECT_EQ(found->field, &field);
            EXPECT_EQ(found->element, i);
            SubstanceRecord r;
            EXPECT_EQ(set_field(r, name, "1"), "") << name;
            const auto value = datafiles::get_field(r, name);
            ASSERT_TRUE(value);
            EXPECT_TRUE(*value != datafiles::value_of(SubstanceRecord{}, place)) << name;
            ++values;
        }
    }
    // Three texts, 14 single values, the vapour pressure sets with their bounds (3+2, 3+2, 9+2,
    // 10+2, and 2+11+11+3 correlated), rho(L) 7+3, rho(S) 4+2, delta(LV)h 6+3+2, four cp sets of
    // 5+2, four flags, eight spare slots.
    EXPECT_EQ(values, 3 + 14 + 5 + 5 + 11 + 12 + 27 + 10 + 6 + 11 + 28 + 4 + 8);
}

TEST(RecordFields, ColumnsOfATableHaveTheirSlots) {
    const auto slot = [](const char* column) {
        const auto place = datafiles::find_column(column);
        return place ? datafiles::slot_of(*place) : 0;
    };
    EXPECT_EQ(slot("M"), 1);
    EXPECT_EQ(slot("Ttriple"), 92);
    EXPECT_EQ(slot("ALP_A"), 37);
    EXPECT_EQ(slot("ALP_TLo"), 40);
    EXPECT_EQ(slot("AHP_THi"), 47);
    EXPECT_EQ(slot("FRO_1"), 25);
    EXPECT_EQ(slot("FRO_9"), 33);
    EXPECT_EQ(slot("WAG_10"), 58);
    EXPECT_EQ(slot("rhoL_1"), 14);
    EXPECT_EQ(slot("rhoL_7"), 20);
    EXPECT_EQ(slot("rhoLTc"), 21);
    EXPECT_EQ(slot("rhoS_4"), 122);
    EXPECT_EQ(slot("hLV_6"), 102);
    EXPECT_EQ(slot("cpPoly_0"), 62);
    EXPECT_EQ(slot("cpPoly_4"), 66);
    EXPECT_EQ(slot("cpSinh_THi"), 76);
    EXPECT_EQ(slot("cpS_0"), 111);
    EXPECT_EQ(slot("cpPoly_5"), 0);
    EXPECT_EQ(slot("WAG_0"), 0);
    EXPECT_EQ(slot("KFW_1"), 0);
    EXPECT_EQ(slot("src_WAG"), 0);
}

}  // namespace
