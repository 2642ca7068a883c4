#include "models/model_grid.h"

#include "models/cubic_eos.h"
#include "models/ji_torvik.h"
#include "models/model_tables.h"
#include "models/vapour_pressure.h"
#include "support/fluids.h"

namespace grid {

void ActivateModel(std::int16_t code) {
    Declare::ModelSelection& m = Declare::models;
    m = {};
    m.EOSModel = code;
    m.EOSOnlyV = Calc::IsVOnlyEOS(code);
    m.VPModel = 7;
    m.VPCode = "KFR";
    m.WatsonN = 0.38F;
    m.CpModel = Declare::substance.hasCpSinh ? 2 : 1;
    Declare::jiTorvik = {.jtK = 0.06, .jtZc = 0.281, .jtM = 0.9, .jtP = 0.55, .jtQ = 0.35};
    Calc::GiveJiTorvikParameters(true);
    Calc::CalcEOSParameters(code);
    Calc::GiveJiTorvikParameters(false);
    if (code != 10) return;
    // A manual virial coefficient of the size of the fluid's own.
    Declare::eosParameters.eosB0 = 0.2;
    Declare::eosParameters.eosNB = 0.3;
    Declare::eosParameters.eosNV = 0.4;
}

void Activate(const std::string& name, std::int16_t code) {
    Declare::SubstanceRecord& s = Declare::substance;
    s = fluids::Row(name);
    constexpr std::int16_t correlated[] = {6, 7, 8};
    for (const std::int16_t index : correlated)
        Calc::CorrelateVapourPressure(index, s.Tcrit, s.pcrit, static_cast<double>(s.Tboil));
    Calc::CorrelateAugust();
    ActivateModel(code);
}

void ForAll(std::span<const std::int16_t> codes,
            const std::function<void(const std::string&)>& test) {
    for (const std::string& name : fluids::AllNames()) {
        if (codes.empty()) continue;
        Activate(name, codes.front());
        for (const std::int16_t code : codes) {
            ActivateModel(code);
            test(name + ", model " + std::to_string(code));
        }
    }
}

}  // namespace grid
