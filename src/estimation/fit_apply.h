#pragma once

#include <string>
#include <string_view>

#include "common/result.h"
#include "estimation/fit_models.h"

namespace quor::estimation {

/// What came of an application.
struct AppliedFit {
    models::SubstanceRecord substance;  ///< with the set that was written
    std::string message{};              ///< about the set, empty where there is nothing to say
};

/// True when two records are of the same substance, whatever was edited in them.
bool is_same_substance(const models::SubstanceRecord& a, const models::SubstanceRecord& b);

/// Writes the results of a fit into a substance (`cmdApply`): the program's own equation then gives
/// the fitted function. Refused when the fit belongs to another substance.
Result<AppliedFit> apply_fit(const FitState& state, const models::SubstanceRecord& substance);

/// What is told of every application.
inline constexpr std::string_view kNowActive =
    "These parameters are activ now in the resp. database function of QUOR\n"
    "and can be viewed/edited under \"Data/Data editor\".\n"
    "\n"
    "Single value calculations y=f(T) can be carried out\n"
    "under \"Calculation / Database functions\".\n"
    "\n"
    "They live in this session only. To keep them, save a private database\n"
    "under \"Data/Data editor\".";

// Targets of the models in the record.
void apply_antoine(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);
void apply_frost(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);
void apply_frost_thodos(const Parameters& par, const AppliedRange& range,
                        models::SubstanceRecord& s);
void apply_riedel(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);
void apply_wagner(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);
void apply_rackett(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);
void apply_leuna(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);
void apply_density_polynomial(const Parameters& par, const AppliedRange& range,
                              models::SubstanceRecord& s);
void apply_majer(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);
void apply_dippr_vaporisation(const Parameters& par, const AppliedRange& range,
                              models::SubstanceRecord& s);
void apply_cp_polynomial(const Parameters& par, const AppliedRange& range,
                         models::SubstanceRecord& s);
void apply_shomate(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);
void apply_cp_sinh(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);

}  // namespace quor::estimation
