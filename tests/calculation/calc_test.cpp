#include "calc_test.h"

#include <algorithm>

#include "calculation/calc_modes.h"
#include "calculation/partial_choice.h"
#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/reference_state.h"
#include "models/vapour_pressure.h"
#include "support/fluids.h"

using Declare::session;

void CalcTest::use_fluid(std::string_view name) {
    Declare::substance = name.empty() ? fluids::ReferencePropane() : fluids::Row(name);
}

void CalcTest::use_models(const Models& m) {
    Declare::ModelSelection& models = Declare::models;
    models.EOSModel = m.eos;
    models.EOSOnlyV = Calc::IsVOnlyEOS(m.eos);
    models.VPCode = m.vp;
    models.VPModel = Calc::VPIndex(m.vp);
    models.PriorityCEOS = m.priority && !models.EOSOnlyV;
    models.HLVModel = m.hlv;
    models.WatsonN = 0.38F;
    models.CpModel = m.cp;
    Calc::CalcEOSParameters(m.eos);
    if (m.eos == 10) {
        Declare::eosParameters.eosB0 = 0.09;
        Declare::eosParameters.eosNB = 3.0e4;
        Declare::eosParameters.eosNV = 2.0;
    }
}

void CalcTest::use_units(int mode) {
    session.UnitMode = static_cast<std::int16_t>(mode);
    session.CaloricUnit = mode == 1 ? std::int16_t{3} : std::int16_t{0};
}

void CalcTest::use_benson_reference() {
    session.BensonReference = thermo::ProposeBensonReference().point;
    session.BensonReferenceValid = Zentrale::IsBensonReferenceGiven();
}

void CalcTest::use_input(const Declare::BatchDataSet& set, bool batch) {
    session.BatchMode = batch;
    session.DataSetIndex = batch ? 1 : 0;
    session.BatchCount = batch ? 1 : 0;
    Declare::BatchData.assign(2, {});
    Declare::BatchData[batch ? 1 : 0] = set;
}

Zentrale::CalcCall CalcTest::calculate(std::int16_t mode, bool quiet, bool interactive) {
    session.CalcMode = mode;
    Zentrale::CalcCall call{.Mode = mode,
                            .Index = session.DataSetIndex,
                            .Quiet = quiet,
                            .Interactive = interactive,
                            .Text = Zentrale::ModeTitle(mode)};
    Zentrale::CalcBatch(call);
    return call;
}

std::vector<std::string> CalcTest::lines() {
    std::vector<std::string> all;
    for (const Zentrale::ListLine& line : Zentrale::resultText.Liste) all.push_back(line.text);
    return all;
}

bool CalcTest::has_line(const std::string& line) {
    const std::vector<std::string> all = lines();
    return std::find(all.begin(), all.end(), line) != all.end();
}
