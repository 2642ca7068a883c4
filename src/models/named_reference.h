#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "common/result.h"
#include "models/fluid.h"
#include "models/reference_record.h"

/// Reference states of the real fluid: refrigeration, boiling point, triple point, any own state.
namespace quor::models {

struct NamedReference {
    NamedState state = NamedState::none;
    std::string_view code;  ///< as files and quorcalc write it: "iir"
    std::string_view name;  ///< "IIR"
    std::string_view text;  ///< what it fixes, in words with units
};
/// All named states but `none`, in the order of `NamedState`.
std::span<const NamedReference> named_references();
/// The row of a state; nullptr for `none`.
const NamedReference* named_reference(NamedState state);
/// The state of a code, in any case of letters; nothing for another text.
std::optional<NamedState> named_state_of(std::string_view code);

/// The reference state of a fluid: for a named one h(ref) and s(ref) of the ideal gas at 298.15 K
/// and 101.325 kPa from which the named state gets its h and s by the fluid's models. One that is
/// not named stays as it is. Refused with a sentence where the fluid has no such state, no molar
/// mass to give it h per kg, or no cp.
Result<ReferenceState> resolved_reference(const Fluid& fluid, const ReferenceState& reference);

/// A named state that the fluid has, to be proposed in the place of one that it lacks: that of the
/// boiling point, ASHRAE, IIR or water; `none` where it has none of them.
NamedState proposed_reference(const Fluid& fluid);

}  // namespace quor::models
