#include "support/reference_cases.h"
#include "legacy/wrappers.h"
#include "support/codes.h"

#include <fstream>

#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/parameter_program.h"
#include "support/fluids.h"

using namespace quor;

namespace reference {

using nlohmann::json;

std::vector<json> Cases(const std::string& function) {
    static const json all = [] {
        std::ifstream in(std::string(QUOR_TEST_DATA) + "/reference_propane.json");
        return json::parse(in).at("cases");
    }();
    std::vector<json> selected;
    for (const json& c : all)
        if (c.at("function") == function) selected.push_back(c);
    return selected;
}

void activate(const json& inputs) {
    legacy::the_substance = fluids::ReferencePropane();
    models::ModelSelection& m = legacy::the_models;
    m = {};
    m.EOSModel = codes::eos(inputs.value("EOSModel", std::int16_t{6}));
    m.EOSOnlyV = models::is_v_only(m.EOSModel);
    m.VPModel = codes::vp(inputs.value("VPCode", std::string("000")));
    m.CpModel = codes::cp(inputs.value("CpModel", std::int16_t{2}));
    m.WatsonN = inputs.value("WatsonN", 0.38F);
    if (inputs.contains("jt")) {
        const json& jt = inputs.at("jt");
        legacy::the_jiTorvik = {};
        legacy::the_jiTorvik.jtM = jt.at("M");
        legacy::the_jiTorvik.jtP = jt.at("P");
        legacy::the_jiTorvik.jtQ = jt.at("Q");
        legacy::the_jiTorvik.jtZc = jt.at("Zc");
        legacy::the_jiTorvik.jtK = jt.at("K");
    }
    models::give_ji_torvik_parameters(true);
    models::calc_eos_parameters(m.EOSModel);
    models::give_ji_torvik_parameters(false);
}

}  // namespace reference
