#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "models/reference_record.h"
#include "models/units.h"

/// What the view of the caloric reference state shows and stores.
namespace quor::models {

/// Its three options, by their index.
enum class ReferenceOption { Values, Formation, Conventional };

/// `mode` of an option (1, 10, 2), and the option of a mode; other modes are values of the view.
std::int16_t reference_mode_of(ReferenceOption option);
ReferenceOption reference_option_of(std::int16_t mode);

struct ReferenceCaptions {
    std::string_view h, s;
};
/// Captions of h and s for a caloric unit.
ReferenceCaptions captions_of(CaloricUnit unit);

/// The fields of the view in their order: h(ref) and s(ref) in the unit of the session, T0/K,
/// p0/kPa, Tenv/K, penv/kPa.
enum ReferenceField { FieldH, FieldS, FieldT0, FieldP0, FieldTenv, FieldPenv, kReferenceFields };
using ReferenceFields = std::array<double, kReferenceFields>;

/// The fields as they stand in a record; h and s times the caloric factor, a p0 of 0 as 101.325.
ReferenceFields fields_of(const ReferenceState& reference, double caloric_factor);

/// The fields after an option was chosen: that of the quantities of formation sets h(ref) and
/// s(ref) to 0, T0 to 298.15 and p0 to 101.325.
ReferenceFields after_choice(ReferenceOption option, ReferenceFields fields);

/// True when the user may edit a field: h(ref), s(ref), T0 and p0 only with the values of the view.
bool is_editable(ReferenceOption option, ReferenceField field);

/// What OK stores: the fields, h and s divided by the caloric factor, a Tenv of 0 as 1E-6, and the
/// mode of the option. False, and nothing stored, when that is not a number: a caloric factor of 0,
/// or a T0 or p0 beyond 32 bits.
bool store_reference(ReferenceOption option, const ReferenceFields& fields, double caloric_factor,
                     ReferenceState& reference);

}  // namespace quor::models
