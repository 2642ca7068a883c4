#include "models/model_grid.h"
#include "legacy/wrappers.h"
#include "support/codes.h"

#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/parameter_program.h"
#include "models/vapour_pressure.h"
#include "support/fluids.h"

using namespace quor;

namespace grid {

void ActivateModel(std::int16_t code) {
    models::ModelSelection& m = legacy::the_models;
    m = {};
    m.EOSModel = codes::eos(code);
    m.EOSOnlyV = models::is_v_only_eos(code);
    m.VPModel = codes::vp(7);
    m.VPModel = codes::vp("KFR");
    m.WatsonN = 0.38F;
    m.CpModel = codes::cp(legacy::the_substance.hasCpSinh ? 2 : 1);
    legacy::the_jiTorvik = {.jtK = 0.06, .jtZc = 0.281, .jtM = 0.9, .jtP = 0.55, .jtQ = 0.35};
    models::give_ji_torvik_parameters(true);
    models::calc_eos_parameters(code);
    models::give_ji_torvik_parameters(false);
    if (code != 10) return;
    // A manual virial coefficient of the size of the fluid's own.
    legacy::the_eosParameters.eosB0 = 0.2;
    legacy::the_eosParameters.eosNB = 0.3;
    legacy::the_eosParameters.eosNV = 0.4;
}

void activate(const std::string& name, std::int16_t code) {
    models::SubstanceRecord& s = legacy::the_substance;
    s = fluids::Row(name);
    constexpr std::int16_t correlated[] = {6, 7, 8};
    for (const std::int16_t index : correlated)
        models::CorrelateVapourPressure(index, s.Tcrit, s.pcrit, static_cast<double>(s.Tboil));
    models::CorrelateAugust();
    ActivateModel(code);
}

void ForAll(std::span<const std::int16_t> codes,
            const std::function<void(const std::string&)>& test) {
    for (const std::string& name : fluids::AllNames()) {
        if (codes.empty()) continue;
        activate(name, codes.front());
        for (const std::int16_t code : codes) {
            ActivateModel(code);
            test(name + ", model " + std::to_string(code));
        }
    }
}

}  // namespace grid
