#include "models/model_choice.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/text.h"
#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/vapour_pressure.h"
#include "session/actions.h"
#include "session/commands.h"

namespace quor::models {

namespace {

using constants::kPresent;
using models::SubstanceRecord;

constexpr std::int16_t kPengRobinson = 6, kRedlichKwong = 4, kManualVirial = 10;
constexpr std::int16_t kCarruthKobayashi = 3, kWatson = 4, kByCEOS = 7;
constexpr std::int16_t kLastMeasuredOrAugust = 5;  // the correlated sets have higher indices

ModelEntry entry(std::int16_t code, std::string_view name) {
    return {code, text::trim(name)};
}

bool has_measured_vp(const SubstanceRecord& s) {
    return s.WAG.TLo > 0 || s.FRO.TLo != 0 || s.ALP.A > 1e-6F || s.AHP.A > 1e-6F;
}

bool warns_of_missing_omega(const models::ModelSelection& m) {
    return m.HLVModel == kCarruthKobayashi || (m.EOSModel >= 5 && m.EOSModel <= 8) ||
           m.EOSModel >= 14;
}

}  // namespace

ModelEntries eos_entries(const SubstanceRecord& substance) {
    ModelEntries entries;
    for (const std::int16_t code : kEOSOrder)
        if (substance.omega != 0.0 || !eos_needs_omega(code))
            entries.push_back(entry(code, EOSName(code)));
    return entries;
}

ModelEntries vp_entries(const SubstanceRecord& s) {
    struct Offer {
        std::int16_t index;
        bool offered;
    };
    const double august = static_cast<double>(s.AUG.A) * static_cast<double>(s.AUG.B);
    const bool boils = s.Tboil > 1e-6F;
    const Offer offers[] = {{4, s.WAG.TLo > 0},
                            {3, s.FRO.TLo != 0},
                            {1, s.ALP.A > 1e-6F},
                            {2, s.AHP.A > 1e-6F},
                            {5, std::fabs(august) > 0.0},
                            {6, boils},
                            {7, boils},
                            {8, boils},
                            {0, !has_measured_vp(s)}};
    ModelEntries entries;
    for (const Offer& o : offers)
        if (o.offered) entries.push_back(entry(o.index, vp_name(o.index)));
    return entries;
}

ModelEntries hlv_entries(const SubstanceRecord& s, bool onlyV) {
    struct Offer {
        std::int16_t method;
        bool offered;
    };
    const double watson = static_cast<double>(s.WatsonH) * static_cast<double>(s.WatsonT);
    const Offer offers[] = {
        {1, s.hLVTHi > kPresent},  {2, true}, {3, true},  {4, watson > kPresent},
        {5, s.rhoLTLo > kPresent}, {6, true}, {7, !onlyV}};
    ModelEntries entries;
    for (const Offer& o : offers)
        if (o.offered) entries.push_back(entry(o.method, hlv_name(o.method)));
    return entries;
}

ModelEntries cp_entries(const SubstanceRecord& s) {
    ModelEntries entries;
    if (!s.hasCpPoly && !s.hasCpSinh) entries.push_back(entry(0, cp_name(0)));
    if (s.hasCpPoly) entries.push_back(entry(1, cp_name(1)));
    if (s.hasCpSinh) entries.push_back(entry(2, cp_name(2)));
    return entries;
}

std::vector<std::string> watson_entries(const SubstanceRecord& s) {
    std::vector<std::string> entries = {"0.38"};
    if (s.Tcrit > kPresent) {
        const double Tr = static_cast<double>(s.Tboil) / s.Tcrit;
        if (Tr <= 0.57)
            entries.emplace_back("0.30");
        else if (Tr < 0.71)
            entries.push_back(numbers::general_point(static_cast<float>(0.74 * Tr - 0.116)));
        else
            entries.emplace_back("0.41");
    }
    return entries;
}

std::int16_t default_eos(const SubstanceRecord& substance) {
    return substance.omega == 0.0 ? kRedlichKwong : kPengRobinson;
}

std::size_t index_of(const ModelEntries& entries, std::int16_t code) {
    const auto it = std::find_if(entries.begin(), entries.end(),
                                 [&](const ModelEntry& e) { return e.code == code; });
    return it == entries.end() ? 0 : static_cast<std::size_t>(it - entries.begin());
}

DensityNote liquid_density_note(const SubstanceRecord& s) {
    if (s.rhoLTLo > kPresent)
        return {"Parameters available from data base",
                "Valid for T/K=" + std::to_string(s.rhoLTLo) + " ..." + std::to_string(s.rhoLTHi) +
                    " K"};
    return {"Parameters not available", ""};
}

ModelChoice::ModelChoice()
    : keptModels_(legacy::the_models),
      keptParameters_(legacy::the_eosParameters),
      keptJiTorvik_(legacy::the_jiTorvik) {
    renew();
}

void ModelChoice::renew() {
    const SubstanceRecord& s = legacy::the_substance;
    models::ModelSelection& m = legacy::the_models;
    if (m.EOSModel == kManualVirial) manual_ = legacy::the_eosParameters;

    vp_ = vp_entries(s);
    choose_vp(index_of(vp_, m.VPModel));

    eos_ = eos_entries(s);
    const std::size_t offered = index_of(eos_, m.EOSModel);
    if (eos_[offered].code != m.EOSModel) m.EOSModel = default_eos(s);
    m.EOSOnlyV = is_v_only_eos(m.EOSModel);
    if (m.EOSOnlyV) m.PriorityCEOS = false;

    hlv_ = hlv_entries(s, m.EOSOnlyV);
    choose_hlv(index_of(hlv_, m.HLVModel));

    watson_ = watson_entries(s);
    if (m.WatsonN < 1e-6F) set_watson(watson_.front());

    cp_ = cp_entries(s);
    choose_cp(index_of(cp_, m.CpModel));
}

std::size_t ModelChoice::eos_index() const {
    return index_of(eos_, legacy::the_models.EOSModel);
}
std::size_t ModelChoice::vpIndex() const {
    return index_of(vp_, legacy::the_models.VPModel);
}
std::size_t ModelChoice::hlv_index() const {
    return index_of(hlv_, legacy::the_models.HLVModel);
}
std::size_t ModelChoice::cp_index() const {
    return index_of(cp_, legacy::the_models.CpModel);
}
std::string ModelChoice::watson_text() const {
    return numbers::general_point(legacy::the_models.WatsonN);
}
bool ModelChoice::watson_visible() const {
    return legacy::the_models.HLVModel == kWatson;
}
bool ModelChoice::priority_enabled() const {
    return !legacy::the_models.EOSOnlyV;
}

bool ModelChoice::choose_eos(std::size_t index) {
    models::ModelSelection& m = legacy::the_models;
    if (index >= eos_.size()) return false;
    const bool wasOnlyV = m.EOSOnlyV;
    m.EOSModel = eos_[index].code;
    m.EOSOnlyV = is_v_only_eos(m.EOSModel);
    if (m.EOSOnlyV)
        m.PriorityCEOS = false;
    else if (wasOnlyV)
        m.PriorityCEOS = true;
    if (m.EOSOnlyV != wasOnlyV) {
        hlv_ = hlv_entries(legacy::the_substance, m.EOSOnlyV);
        if (m.EOSOnlyV && m.HLVModel == kByCEOS) choose_hlv(0);
    }
    if (m.EOSModel != kManualVirial) return false;
    // The constants of the former equation go; the coefficients typed before stay proposed.
    calc_eos_parameters(kManualVirial);
    set_manual_virial(manual_.eosB0, manual_.eosNB, manual_.eosNV);
    return true;
}

void ModelChoice::choose_vp(std::size_t index) {
    if (index >= vp_.size()) return;
    legacy::the_models.VPModel = vp_[index].code;
    legacy::the_models.VPCode = VPCode(vp_[index].code);
}

void ModelChoice::choose_hlv(std::size_t index) {
    if (index < hlv_.size()) legacy::the_models.HLVModel = hlv_[index].code;
}

void ModelChoice::choose_cp(std::size_t index) {
    if (index < cp_.size()) legacy::the_models.CpModel = cp_[index].code;
}

void ModelChoice::set_watson(std::string_view typed) {
    const double n = numbers::val_input(typed);
    constexpr double kLargest = std::numeric_limits<float>::max();
    legacy::the_models.WatsonN = std::fabs(n) <= kLargest ? static_cast<float>(n) : 0.0F;
}

void ModelChoice::set_priority_ceos(bool ceos) {
    legacy::the_models.PriorityCEOS = ceos;
}

void ModelChoice::set_manual_virial(double b0, double b1, double b2) {
    models::EOSParameters& p = legacy::the_eosParameters;
    p.eosB0 = b0;
    p.eosNB = b1;
    p.eosNV = b2;
    manual_ = p;
}

bool ModelChoice::Confirm() {
    const models::ModelSelection& m = legacy::the_models;
    const SubstanceRecord& s = legacy::the_substance;
    if (s.omega == 0.0 && warns_of_missing_omega(m))
        dialogs::tell(
            "No acentric factor available.\nCalculated by using omega = 0\n(Input => data editor)",
            "WARNING");
    // Correlated sets follow the critical data, whatever the equation of state.
    if (m.EOSModel > 5 || m.VPModel > kLastMeasuredOrAugust)
        CorrelateVapourPressure(m.VPModel, s.Tcrit, s.pcrit, static_cast<double>(s.Tboil));
    if (m.EOSModel != kManualVirial && calc_eos_parameters(m.EOSModel) > 0) return false;
    enable_model_commands();
    actions::Run("CalcCoordinateDefaults");
    return true;
}

void ModelChoice::Cancel() {
    legacy::the_models = keptModels_;
    legacy::the_eosParameters = keptParameters_;
    legacy::the_jiTorvik = keptJiTorvik_;
}

void enable_model_commands() {
    using session::Command;
    session::set_commands({Command::mnuCalcMain, Command::mnuOptions, Command::mnuFitting,
                           Command::mnu2D, Command::mnu3D, Command::mnuData_SaveProject,
                           Command::toolSave, Command::toolReference, Command::toolTank},
                          true);
    session::set_commands({Command::needsLPhase}, !legacy::the_models.EOSOnlyV);
}

}  // namespace quor::models
