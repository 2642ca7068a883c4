#include "support/reference_cases.h"

#include <fstream>
#include <stdexcept>

#include "support/codes.h"
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
    if (selected.empty()) throw std::runtime_error("no reference case of " + function);
    return selected;
}

models::Fluid fluid(const json& inputs) {
    models::ModelSelection m;
    m.eos = codes::eos(inputs.value("EOSModel", 6));
    m.vapour_pressure = codes::vp(inputs.value("VPCode", std::string("000")));
    m.cp_form = codes::cp(inputs.value("CpModel", 2));
    m.watson_n = inputs.value("WatsonN", 0.38F);
    if (inputs.contains("jt")) {
        const json& jt = inputs.at("jt");
        m.ji_torvik.m = jt.at("M");
        m.ji_torvik.p = jt.at("P");
        m.ji_torvik.q = jt.at("Q");
        m.ji_torvik.zc = jt.at("Zc");
        m.ji_torvik.k = jt.at("K");
    }
    return fluids::fluid(fluids::ReferencePropane(), m);
}

}  // namespace reference
