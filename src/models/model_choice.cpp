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
    return {code, text::Trim(name)};
}

bool has_measured_vp(const SubstanceRecord& s) {
    return s.WAG.TLo > 0 || s.FRO.TLo != 0 || s.ALP.A > 1e-6F || s.AHP.A > 1e-6F;
}

bool warns_of_missing_omega(const models::ModelSelection& m) {
    return m.HLVModel == kCarruthKobayashi || (m.EOSModel >= 5 && m.EOSModel <= 8) ||
           m.EOSModel >= 14;
}

}  // namespace

ModelEntries EOSEntries(const SubstanceRecord& substance) {
    ModelEntries entries;
    for (const std::int16_t code : kEOSOrder)
        if (substance.omega != 0.0 || !EOSNeedsOmega(code))
            entries.push_back(entry(code, EOSName(code)));
    return entries;
}

ModelEntries VPEntries(const SubstanceRecord& s) {
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
        if (o.offered) entries.push_back(entry(o.index, VPName(o.index)));
    return entries;
}

ModelEntries HLVEntries(const SubstanceRecord& s, bool onlyV) {
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
        if (o.offered) entries.push_back(entry(o.method, HLVName(o.method)));
    return entries;
}

ModelEntries CpEntries(const SubstanceRecord& s) {
    ModelEntries entries;
    if (!s.hasCpPoly && !s.hasCpSinh) entries.push_back(entry(0, CpName(0)));
    if (s.hasCpPoly) entries.push_back(entry(1, CpName(1)));
    if (s.hasCpSinh) entries.push_back(entry(2, CpName(2)));
    return entries;
}

std::vector<std::string> WatsonEntries(const SubstanceRecord& s) {
    std::vector<std::string> entries = {"0.38"};
    if (s.Tcrit > kPresent) {
        const double Tr = static_cast<double>(s.Tboil) / s.Tcrit;
        if (Tr <= 0.57)
            entries.emplace_back("0.30");
        else if (Tr < 0.71)
            entries.push_back(numbers::GeneralPoint(static_cast<float>(0.74 * Tr - 0.116)));
        else
            entries.emplace_back("0.41");
    }
    return entries;
}

std::int16_t DefaultEOS(const SubstanceRecord& substance) {
    return substance.omega == 0.0 ? kRedlichKwong : kPengRobinson;
}

std::size_t IndexOf(const ModelEntries& entries, std::int16_t code) {
    const auto it = std::find_if(entries.begin(), entries.end(),
                                 [&](const ModelEntry& e) { return e.code == code; });
    return it == entries.end() ? 0 : static_cast<std::size_t>(it - entries.begin());
}

DensityNote LiquidDensityNote(const SubstanceRecord& s) {
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
    Renew();
}

void ModelChoice::Renew() {
    const SubstanceRecord& s = legacy::the_substance;
    models::ModelSelection& m = legacy::the_models;
    if (m.EOSModel == kManualVirial) manual_ = legacy::the_eosParameters;

    vp_ = VPEntries(s);
    ChooseVP(IndexOf(vp_, m.VPModel));

    eos_ = EOSEntries(s);
    const std::size_t offered = IndexOf(eos_, m.EOSModel);
    if (eos_[offered].code != m.EOSModel) m.EOSModel = DefaultEOS(s);
    m.EOSOnlyV = IsVOnlyEOS(m.EOSModel);
    if (m.EOSOnlyV) m.PriorityCEOS = false;

    hlv_ = HLVEntries(s, m.EOSOnlyV);
    ChooseHLV(IndexOf(hlv_, m.HLVModel));

    watson_ = WatsonEntries(s);
    if (m.WatsonN < 1e-6F) SetWatson(watson_.front());

    cp_ = CpEntries(s);
    ChooseCp(IndexOf(cp_, m.CpModel));
}

std::size_t ModelChoice::eosIndex() const {
    return IndexOf(eos_, legacy::the_models.EOSModel);
}
std::size_t ModelChoice::vpIndex() const {
    return IndexOf(vp_, legacy::the_models.VPModel);
}
std::size_t ModelChoice::hlvIndex() const {
    return IndexOf(hlv_, legacy::the_models.HLVModel);
}
std::size_t ModelChoice::cpIndex() const {
    return IndexOf(cp_, legacy::the_models.CpModel);
}
std::string ModelChoice::watsonText() const {
    return numbers::GeneralPoint(legacy::the_models.WatsonN);
}
bool ModelChoice::watsonVisible() const {
    return legacy::the_models.HLVModel == kWatson;
}
bool ModelChoice::priorityEnabled() const {
    return !legacy::the_models.EOSOnlyV;
}

bool ModelChoice::ChooseEOS(std::size_t index) {
    models::ModelSelection& m = legacy::the_models;
    if (index >= eos_.size()) return false;
    const bool wasOnlyV = m.EOSOnlyV;
    m.EOSModel = eos_[index].code;
    m.EOSOnlyV = IsVOnlyEOS(m.EOSModel);
    if (m.EOSOnlyV)
        m.PriorityCEOS = false;
    else if (wasOnlyV)
        m.PriorityCEOS = true;
    if (m.EOSOnlyV != wasOnlyV) {
        hlv_ = HLVEntries(legacy::the_substance, m.EOSOnlyV);
        if (m.EOSOnlyV && m.HLVModel == kByCEOS) ChooseHLV(0);
    }
    if (m.EOSModel != kManualVirial) return false;
    // The constants of the former equation go; the coefficients typed before stay proposed.
    CalcEOSParameters(kManualVirial);
    SetManualVirial(manual_.eosB0, manual_.eosNB, manual_.eosNV);
    return true;
}

void ModelChoice::ChooseVP(std::size_t index) {
    if (index >= vp_.size()) return;
    legacy::the_models.VPModel = vp_[index].code;
    legacy::the_models.VPCode = VPCode(vp_[index].code);
}

void ModelChoice::ChooseHLV(std::size_t index) {
    if (index < hlv_.size()) legacy::the_models.HLVModel = hlv_[index].code;
}

void ModelChoice::ChooseCp(std::size_t index) {
    if (index < cp_.size()) legacy::the_models.CpModel = cp_[index].code;
}

void ModelChoice::SetWatson(std::string_view typed) {
    const double n = numbers::ValInput(typed);
    constexpr double kLargest = std::numeric_limits<float>::max();
    legacy::the_models.WatsonN = std::fabs(n) <= kLargest ? static_cast<float>(n) : 0.0F;
}

void ModelChoice::SetPriorityCEOS(bool ceos) {
    legacy::the_models.PriorityCEOS = ceos;
}

void ModelChoice::SetManualVirial(double b0, double b1, double b2) {
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
        dialogs::Tell(
            "No acentric factor available.\nCalculated by using omega = 0\n(Input => data editor)",
            "WARNING");
    // Correlated sets follow the critical data, whatever the equation of state.
    if (m.EOSModel > 5 || m.VPModel > kLastMeasuredOrAugust)
        CorrelateVapourPressure(m.VPModel, s.Tcrit, s.pcrit, static_cast<double>(s.Tboil));
    if (m.EOSModel != kManualVirial && CalcEOSParameters(m.EOSModel) > 0) return false;
    EnableModelCommands();
    actions::Run("CalcCoordinateDefaults");
    return true;
}

void ModelChoice::Cancel() {
    legacy::the_models = keptModels_;
    legacy::the_eosParameters = keptParameters_;
    legacy::the_jiTorvik = keptJiTorvik_;
}

void EnableModelCommands() {
    using session::Command;
    session::SetCommands({Command::mnuCalcMain, Command::mnuOptions, Command::mnuFitting,
                          Command::mnu2D, Command::mnu3D, Command::mnuData_SaveProject,
                          Command::toolSave, Command::toolReference, Command::toolTank},
                         true);
    session::SetCommands({Command::needsLPhase}, !legacy::the_models.EOSOnlyV);
}

}  // namespace quor::models
