#include "calc_test.h"
#include "legacy/wrappers.h"
#include "support/codes.h"

#include <algorithm>

#include "calculation/calc_modes.h"
#include "calculation/partial_choice.h"
#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/reference_state.h"
#include "models/vapour_pressure.h"
#include "support/fluids.h"

using namespace quor;

using legacy::the_session;

void CalcTest::use_fluid(std::string_view name) {
    legacy::the_substance = name.empty() ? fluids::ReferencePropane() : fluids::Row(name);
}

void CalcTest::use_models(const Models& m) {
    models::ModelSelection& models = legacy::the_models;
    models.EOSModel = codes::eos(m.eos);
    models.EOSOnlyV = models::is_v_only(codes::eos(m.eos));
    models.VPModel = codes::vp(m.vp);
    models.PriorityCEOS = m.priority && !models.EOSOnlyV;
    models.HLVModel = codes::hlv(m.hlv);
    models.WatsonN = 0.38F;
    models.CpModel = codes::cp(m.cp);
    models::calc_eos_parameters(codes::eos(m.eos));
    if (m.eos == 10) {
        legacy::the_eosParameters.eosB0 = 0.09;
        legacy::the_eosParameters.eosNB = 3.0e4;
        legacy::the_eosParameters.eosNV = 2.0;
    }
}

void CalcTest::use_units(int mode) {
    the_session.UnitMode = static_cast<std::int16_t>(mode);
    the_session.CaloricUnit = mode == 1 ? std::int16_t{3} : std::int16_t{0};
}

void CalcTest::use_benson_reference() {
    the_session.BensonReference = models::propose_benson_reference().point;
    the_session.BensonReferenceValid = calculation::is_benson_reference_given();
}

void CalcTest::use_input(const calculation::BatchDataSet& set, bool batch) {
    the_session.BatchMode = batch;
    the_session.DataSetIndex = batch ? 1 : 0;
    the_session.BatchCount = batch ? 1 : 0;
    legacy::the_BatchData.assign(2, {});
    legacy::the_BatchData[batch ? 1 : 0] = set;
}

calculation::CalcCall CalcTest::calculate(std::int16_t mode, bool quiet, bool interactive) {
    the_session.CalcMode = mode;
    calculation::CalcCall call{.Mode = mode,
                               .Index = the_session.DataSetIndex,
                               .Quiet = quiet,
                               .Interactive = interactive,
                               .Text = calculation::mode_title(mode)};
    calculation::CalcBatch(call);
    return call;
}

std::vector<std::string> CalcTest::lines() {
    std::vector<std::string> all;
    for (const calculation::ListLine& line : calculation::resultText.Liste)
        all.push_back(line.text);
    return all;
}

bool CalcTest::has_line(const std::string& line) {
    const std::vector<std::string> all = lines();
    return std::find(all.begin(), all.end(), line) != all.end();
}
