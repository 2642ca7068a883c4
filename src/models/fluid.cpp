#include "models/fluid.h"

#include "common/constants.h"
#include "common/faults.h"

namespace quor::models {

namespace {

/// Critical volume and density of a cubic equation, from its critical compressibility.
void set_critical_volume(EosConstants& k, const EquationOfState& row, const SubstanceRecord& s) {
    if (row.family != EosFamily::cubic) return;
    const double zcrit = row.zcrit > 0 ? row.zcrit : k.ji_torvik.zc;
    if (!(zcrit > 0)) return;
    k.power.vcrit_calculated = faults::divide(zcrit * constants::R * s.Tcrit, s.pcrit);
    if (k.power.vcrit_calculated > constants::kPresent)
        k.power.rhocrit_calculated = static_cast<double>(s.M) / k.power.vcrit_calculated;
}

}  // namespace

EosConstants eos_constants(const SubstanceRecord& substance, const ModelSelection& models) {
    return eos_constants(substance, models, equation_of(models.eos));
}

EosConstants eos_constants(const SubstanceRecord& substance, const ModelSelection& models,
                           const EquationOfState& row) {
    EosConstants k = row.constants(substance, models);
    set_critical_volume(k, row, substance);
    return k;
}

Fluid::Fluid() : Fluid({}, {}, {}, {}) {}

Fluid::Fluid(SubstanceRecord substance, const ModelSelection& models, const EosParameters& eos,
             const JiTorvikParameters& jt)
    : Fluid(Parts{std::move(substance), models, eos, jt, &equation_of(models.eos)}) {}

Result<Fluid> Fluid::make(SubstanceRecord substance, const ModelSelection& models) {
    return make(std::move(substance), models, equation_of(models.eos));
}

Result<Fluid> Fluid::make(SubstanceRecord substance, const ModelSelection& models,
                          const EquationOfState& equation) {
    try {
        const EosConstants k = eos_constants(substance, models, equation);
        ModelSelection chosen = models;
        chosen.vapour_only = is_v_only(equation);
        return Fluid(Parts{std::move(substance), chosen, k.power, k.ji_torvik, &equation});
    } catch (const faults::Fault& fault) {
        return Failure{fault.what()};
    }
}

Result<Fluid> Fluid::with(Eos eos) const {
    ModelSelection models = parts_->models;
    models.eos = eos;
    return make(parts_->substance, models);
}

}  // namespace quor::models
