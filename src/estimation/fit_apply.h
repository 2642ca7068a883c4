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
void ApplyAntoine(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);
void ApplyFrost(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);
void ApplyFrostThodos(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);
void ApplyRiedel(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);
void ApplyWagner(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);
void ApplyRackett(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);
void ApplyLeuna(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);
void ApplyDensityPolynomial(const Parameters& par, const AppliedRange& range,
                            models::SubstanceRecord& s);
void ApplyMajer(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);
void ApplyDipprVaporisation(const Parameters& par, const AppliedRange& range,
                            models::SubstanceRecord& s);
void ApplyCpPolynomial(const Parameters& par, const AppliedRange& range,
                       models::SubstanceRecord& s);
void ApplyShomate(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);
void ApplyCpSinh(const Parameters& par, const AppliedRange& range, models::SubstanceRecord& s);

}  // namespace quor::estimation
