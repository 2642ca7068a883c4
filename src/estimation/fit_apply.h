#pragma once

#include <string>

#include "estimation/fit_models.h"

namespace quor::estimation {

/// What came of an application.
struct AppliedFit {
    bool applied = false;
    std::string message;  ///< of the set that was written, or why nothing was
};

/// Writes the results of a fit into a record: the program's own equation then gives the fitted
/// function. Nothing is changed unless `applied`.
AppliedFit apply_fit(const FitState& state, models::SubstanceRecord& substance);

/// The same for the active substance, with all messages (`cmdApply`).
void ApplyFit(const FitState& state);

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
