#include "models/reference_choice.h"

#include <cmath>

#include "common/faults.h"
#include "common/numbers.h"

namespace quor::models {

namespace {

/// The default record holds the standard temperature and pressure.
constexpr float kStandardTemperature = 298.15F;
constexpr float kStandardPressure = 101.325F;

/// Lowest temperature of the surroundings: it may stand in a denominator.
constexpr double kLowestTenv = 1e-6;

constexpr std::array<std::int16_t, 3> kModes = {1, 10, 2};

constexpr std::array<ReferenceCaptions, 4> kCaptions = {{{"h /(kJ/kmol)", "s /(kJ/kmol/K)"},
                                                         {"h /K", "s /R"},
                                                         {"h /(R T)", "s /(1/K) "},
                                                         {"h /(kJ/kg)", "s /(kJ/(kg K))"}}};

/// A 32-bit value as its user typed it, without the digits that widening adds.
double shown(float value) {
    return numbers::val(numbers::general_point(value));
}

}  // namespace

std::int16_t reference_mode_of(ReferenceOption option) {
    return kModes[static_cast<std::size_t>(option)];
}

ReferenceOption reference_option_of(std::int16_t mode) {
    if (mode == 10) return ReferenceOption::Formation;
    if (mode == 2) return ReferenceOption::Conventional;
    return ReferenceOption::Values;
}

ReferenceCaptions captions_of(CaloricUnit unit) {
    return kCaptions[static_cast<std::size_t>(unit)];
}

ReferenceFields fields_of(const ReferenceState& r, double caloric_factor) {
    const float p0 = r.p0 == 0.0F ? kStandardPressure : r.p0;
    return {
        r.href * caloric_factor, r.sref * caloric_factor, shown(r.T0), shown(p0), r.Tenv, r.penv};
}

ReferenceFields after_choice(ReferenceOption option, ReferenceFields fields) {
    if (option != ReferenceOption::Formation) return fields;
    fields[FieldH] = fields[FieldS] = 0.0;
    fields[FieldT0] = shown(kStandardTemperature);
    fields[FieldP0] = shown(kStandardPressure);
    return fields;
}

bool is_editable(ReferenceOption option, ReferenceField field) {
    return option == ReferenceOption::Values || field == FieldTenv || field == FieldPenv;
}

bool store_reference(ReferenceOption option, const ReferenceFields& fields, double caloric_factor,
                     ReferenceState& reference) {
    try {
        ReferenceState r;
        r.mode = reference_mode_of(option);
        r.href = faults::divide(fields[FieldH], caloric_factor);
        r.sref = faults::divide(fields[FieldS], caloric_factor);
        r.T0 = numbers::to_single(fields[FieldT0]);
        r.p0 = numbers::to_single(fields[FieldP0]);
        r.Tenv = fields[FieldTenv] == 0.0 ? kLowestTenv : faults::finite(fields[FieldTenv]);
        r.penv = faults::finite(fields[FieldPenv]);
        reference = r;
        return true;
    } catch (const faults::Fault&) {
        return false;
    }
}

}  // namespace quor::models
