#include "support/reference_cases.h"

#include <fstream>

#include "models/cubic_eos.h"
#include "models/ji_torvik.h"
#include "models/model_tables.h"
#include "support/fluids.h"

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

void Activate(const json& inputs) {
    Declare::substance = fluids::ReferencePropane();
    Declare::ModelSelection& m = Declare::models;
    m = {};
    m.EOSModel = inputs.value("EOSModel", std::int16_t{6});
    m.EOSOnlyV = Calc::IsVOnlyEOS(m.EOSModel);
    m.VPCode = inputs.value("VPCode", std::string("000"));
    m.VPModel = Calc::VPIndex(m.VPCode);
    m.CpModel = inputs.value("CpModel", std::int16_t{2});
    m.WatsonN = inputs.value("WatsonN", 0.38F);
    if (inputs.contains("jt")) {
        const json& jt = inputs.at("jt");
        Declare::jiTorvik = {};
        Declare::jiTorvik.jtM = jt.at("M");
        Declare::jiTorvik.jtP = jt.at("P");
        Declare::jiTorvik.jtQ = jt.at("Q");
        Declare::jiTorvik.jtZc = jt.at("Zc");
        Declare::jiTorvik.jtK = jt.at("K");
    }
    Calc::GiveJiTorvikParameters(true);
    Calc::CalcEOSParameters(m.EOSModel);
    Calc::GiveJiTorvikParameters(false);
}

}  // namespace reference
