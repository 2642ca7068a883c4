#include "datafiles/substance_slots.h"

#include <cmath>

#include "common/constants.h"
#include "common/numbers.h"
#include "common/text.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/record_fields.h"
#include "models/model_tables.h"
#include "models/vapour_pressure.h"

namespace quor::datafiles {

namespace {

using constants::kPresent;
using models::CpSet;
using models::SubstanceRecord;

constexpr int kSlotSecondTripleT = 94;
constexpr int kSlotSecondWatsonH = 108, kSlotSecondWatsonT = 109;
/// A second Watson point nearer than this to the boiling point replaces the first.
constexpr double kWatsonDistance = 2.0;
constexpr double kReferenceT = 298.15;
/// Stands for a zero C2 of the sinh function, which is in a denominator.
constexpr float kSmallestSinhC2 = 0.1F;

float slot_of(const SubstanceFileRecord& file, int slot) {
    const float value = file.values[static_cast<std::size_t>(slot - 1)];
    return std::isfinite(value) ? value : 0.0F;
}

/// Stores a slot in a field of its kind, and a field in a slot.
struct FromSlot {
    float value;
    void operator()(float* field) const { *field = value; }
    void operator()(double* field) const { *field = static_cast<double>(value); }
    void operator()(std::int16_t* field) const {
        const double kelvin = numbers::round_half_even(static_cast<double>(value));
        *field = std::fabs(kelvin) <= 32767.0 ? static_cast<std::int16_t>(kelvin) : std::int16_t{0};
    }
    void operator()(bool*) const {}
    void operator()(std::string*) const {}
};

struct ToSlot {
    float operator()(float value) const { return single_or_zero(static_cast<double>(value)); }
    float operator()(double value) const { return single_or_zero(value); }
    float operator()(std::int16_t value) const { return static_cast<float>(value); }
    float operator()(bool) const { return 0.0F; }
    float operator()(const std::string&) const { return 0.0F; }
};

template <class Action>
void for_each_slot(const Action& action) {
    for (const RecordField& field : record_fields()) {
        if (field.slot == 0) continue;
        for (std::size_t i = 0; i < std::max<std::size_t>(field.count, 1); ++i)
            action(field, FieldPlace{&field, i});
    }
}

double product(double a, double b, double c) {
    return std::fabs(a * b * c);
}

/// An ideal-gas function exists when its constant term and both bounds do.
bool ideal_cp_exists(const CpSet& s) {
    return product(s.T_low, static_cast<double>(s.c[0]), s.T_high) > kPresent;
}

/// A cp of a condensed phase may begin with either of its first two terms.
bool condensed_cp_exists(const CpSet& s) {
    const bool term = std::fabs(static_cast<double>(s.c[0])) > kPresent ||
                      std::fabs(static_cast<double>(s.c[1])) > kPresent;
    return term && s.T_low > 0 && s.T_high > 0;
}

void choose_watson_point(const SubstanceFileRecord& file, SubstanceRecord& r) {
    const double second_T = static_cast<double>(slot_of(file, kSlotSecondWatsonT));
    if (std::fabs(static_cast<double>(r.Tboil) - second_T) >= kWatsonDistance) return;
    r.watson_hLV = slot_of(file, kSlotSecondWatsonH);
    r.watson_T = slot_of(file, kSlotSecondWatsonT);
}

}  // namespace

void mend_sinh(CpSet& s) {
    s.c[2] = std::fabs(s.c[2]);
    if (std::fabs(static_cast<double>(s.c[0])) > kPresent && static_cast<double>(s.c[2]) < kPresent)
        s.c[2] = kSmallestSinhC2;
}

void form_entropy(SubstanceRecord& r, float former) {
    const double h = static_cast<double>(r.dfh), g = static_cast<double>(r.dfg);
    r.dfs = std::fabs(h * g) > kPresent ? static_cast<float>((h - g) / kReferenceT) : former;
}

std::string best_vapour_pressure_code(const SubstanceRecord& r) {
    // The later of these tests wins.
    std::string code = "000";
    if (r.antoine_high.T_low > 0) code = "AHP";
    if (r.antoine_low.T_low > 0) code = "ALP";
    if (r.frost.T_low > 0) code = "FRO";
    if (r.wagner.T_low > 0) code = "WAG";
    return code;
}

void form_cp_flags(SubstanceRecord& r) {
    r.has_cp_polynomial = ideal_cp_exists(r.cp_polynomial);
    r.has_cp_sinh_cosh = ideal_cp_exists(r.cp_sinh_cosh);
    r.has_cpL = condensed_cp_exists(r.cpL);
    r.has_cpS = condensed_cp_exists(r.cpS);
}

LoadedSubstance record_from_slots(const SubstanceFileRecord& file, bool english,
                                  float former_entropy) {
    LoadedSubstance loaded;
    SubstanceRecord& r = loaded.record;
    r.formula = text::trim_right(field_text(file.formula));
    r.formula_compact = text::remove_blanks(r.formula);
    r.name = first_name(field_text(english ? file.name_english : file.name_german));
    r.casrn = field_text(file.casrn);

    for_each_slot([&](const RecordField& field, const FieldPlace& place) {
        const float value = slot_of(file, field.slot + static_cast<int>(place.element));
        std::visit(FromSlot{value}, locate(r, place));
    });

    r.M = single_or_zero(numbers::round4(static_cast<double>(r.M)));
    r.Tcrit = numbers::round4(r.Tcrit);
    r.pcrit = numbers::round4(r.pcrit);
    loaded.no_critical_data = r.Tcrit < kPresent || r.pcrit < kPresent;
    if (static_cast<double>(r.Ttriple) < kPresent) r.Ttriple = slot_of(file, kSlotSecondTripleT);
    r.vcrit_measured = r.rhocrit > kPresent ? static_cast<double>(r.M) / r.rhocrit : 0.0;

    // AUG goes by the boiling point of the file, also where that is missing.
    models::correlate_august(r);
    loaded.vapour_pressure = best_vapour_pressure_code(r);
    if (!(static_cast<double>(r.Tboil) > kPresent) && loaded.vapour_pressure != "000")
        if (const auto boiling = models::boiling_temperature(
                r, constants::kNormalPressure, models::vp_of_code(loaded.vapour_pressure)))
            r.Tboil = single_or_zero(boiling->T);

    mend_sinh(r.cp_sinh_cosh);
    form_cp_flags(r);
    choose_watson_point(file, r);
    form_entropy(r, former_entropy);
    return loaded;
}

void slots_from_record(const SubstanceRecord& record, bool english, SubstanceFileRecord& file) {
    set_field_text(file.formula, record.formula);
    set_field_text(english ? file.name_english : file.name_german, record.name);
    set_field_text(file.casrn, record.casrn);
    file.number = 1;
    for_each_slot([&](const RecordField& field, const FieldPlace& place) {
        if (!field.in_private_file) return;
        file.values[static_cast<std::size_t>(slot_of(place) - 1)] =
            std::visit(ToSlot{}, value_of(record, place));
    });
}

}  // namespace quor::datafiles
