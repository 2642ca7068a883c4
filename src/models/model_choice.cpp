#include "models/model_choice.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

#include "common/constants.h"
#include "common/numbers.h"
#include "common/text.h"
#include "models/model_tables.h"
#include "models/vapour_pressure.h"

namespace quor::models {

namespace {

using constants::kPresent;

/// A model with the condition under which it is offered.
template <class Model>
struct Offer {
    Model model;
    bool offered;
};

template <class Model, std::size_t n, class Name>
ModelEntries<Model> offered(const Offer<Model> (&offers)[n], Name name) {
    ModelEntries<Model> entries;
    for (const Offer<Model>& o : offers)
        if (o.offered) entries.push_back({o.model, text::trim(name(o.model))});
    return entries;
}

bool has_measured_vp(const SubstanceRecord& s) {
    return s.WAG.TLo > 0 || s.FRO.TLo != 0 || s.ALP.A > 1e-6F || s.AHP.A > 1e-6F;
}

/// Sets that are not measured but follow from critical point and boiling point.
bool is_correlated(VapourPressureEquation equation) {
    using enum VapourPressureEquation;
    return equation == frostVanDerWaals || equation == frostRedlichKwong || equation == thompson;
}

/// All equations but the cubic ones up to Soave's: their users expect the correlated sets to
/// follow.
bool follows_critical_data(Eos eos) {
    constexpr Eos kOthers[] = {Eos::none,      Eos::idealGas,     Eos::vanDerWaals,
                               Eos::berthelot, Eos::redlichKwong, Eos::soave};
    return std::find(std::begin(kOthers), std::end(kOthers), eos) == std::end(kOthers);
}

}  // namespace

ModelEntries<Eos> eos_entries(const SubstanceRecord& substance) {
    ModelEntries<Eos> entries;
    for (const EquationOfState* row : equations())
        if (substance.omega != 0.0 || !row->needsOmega)
            entries.push_back({row->eos, text::trim(row->name)});
    return entries;
}

ModelEntries<VapourPressureEquation> vp_entries(const SubstanceRecord& s) {
    using enum VapourPressureEquation;
    const double product = static_cast<double>(s.AUG.A) * static_cast<double>(s.AUG.B);
    const bool boils = s.Tboil > 1e-6F;
    const Offer<VapourPressureEquation> offers[] = {{wagner, s.WAG.TLo > 0},
                                                    {frostKalkwarf, s.FRO.TLo != 0},
                                                    {antoineLow, s.ALP.A > 1e-6F},
                                                    {antoineHigh, s.AHP.A > 1e-6F},
                                                    {august, std::fabs(product) > 0.0},
                                                    {frostVanDerWaals, boils},
                                                    {frostRedlichKwong, boils},
                                                    {thompson, boils},
                                                    {none, !has_measured_vp(s)}};
    return offered(offers, vp_name);
}

ModelEntries<VaporisationModel> hlv_entries(const SubstanceRecord& s, bool onlyV) {
    using enum VaporisationModel;
    const double product = static_cast<double>(s.WatsonH) * static_cast<double>(s.WatsonT);
    const Offer<VaporisationModel> offers[] = {{databaseEquation, s.hLVTHi > kPresent},
                                               {chen, true},
                                               {carruthKobayashi, true},
                                               {watson, product > kPresent},
                                               {databaseDensity, s.rhoLTLo > kPresent},
                                               {benson, true},
                                               {cubicEos, !onlyV}};
    return offered(offers, hlv_name);
}

ModelEntries<CpForm> cp_entries(const SubstanceRecord& s) {
    const Offer<CpForm> offers[] = {{CpForm::none, !s.hasCpPoly && !s.hasCpSinh},
                                    {CpForm::polynomial, s.hasCpPoly},
                                    {CpForm::sinhCosh, s.hasCpSinh}};
    return offered(offers, cp_name);
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

Eos default_eos(const SubstanceRecord& substance) {
    return substance.omega == 0.0 ? Eos::redlichKwong : Eos::pengRobinson;
}

DensityNote liquid_density_note(const SubstanceRecord& s) {
    if (s.rhoLTLo > kPresent)
        return {"Parameters available from data base",
                "Valid for T/K=" + std::to_string(s.rhoLTLo) + " ..." + std::to_string(s.rhoLTHi) +
                    " K"};
    return {"Parameters not available", ""};
}

void correlate_for(const ModelSelection& m, SubstanceRecord& s) {
    if (follows_critical_data(m.EOSModel) || is_correlated(m.VPModel))
        correlate_vapour_pressure(s, m.VPModel, s.Tcrit, s.pcrit, static_cast<double>(s.Tboil));
}

ModelChoice::ModelChoice(const SubstanceRecord& substance, const ModelSelection& models)
    : models_(models) {
    renew(substance);
}

void ModelChoice::renew(const SubstanceRecord& substance) {
    substance_ = substance;
    vp_ = vp_entries(substance_);
    choose_vp(index_of(vp_, models_.VPModel));

    eos_ = eos_entries(substance_);
    if (eos_[eos_index()].model != models_.EOSModel) models_.EOSModel = default_eos(substance_);
    models_.EOSOnlyV = is_v_only(models_.EOSModel);
    if (models_.EOSOnlyV) models_.PriorityCEOS = false;

    hlv_ = hlv_entries(substance_, models_.EOSOnlyV);
    choose_hlv(index_of(hlv_, models_.HLVModel));

    watson_ = watson_entries(substance_);
    if (models_.WatsonN < 1e-6F) set_watson(watson_.front());

    cp_ = cp_entries(substance_);
    choose_cp(index_of(cp_, models_.CpModel));
}

std::string ModelChoice::watson_text() const {
    return numbers::general_point(models_.WatsonN);
}

bool ModelChoice::choose_eos(std::size_t index) {
    if (index >= eos_.size()) return false;
    const bool wasOnlyV = models_.EOSOnlyV;
    models_.EOSModel = eos_[index].model;
    models_.EOSOnlyV = is_v_only(models_.EOSModel);
    if (models_.EOSOnlyV)
        models_.PriorityCEOS = false;
    else if (wasOnlyV)
        models_.PriorityCEOS = true;
    if (models_.EOSOnlyV != wasOnlyV) {
        hlv_ = hlv_entries(substance_, models_.EOSOnlyV);
        if (models_.EOSOnlyV && models_.HLVModel == VaporisationModel::cubicEos) choose_hlv(0);
    }
    return models_.EOSModel == Eos::manualVirial;
}

void ModelChoice::choose_vp(std::size_t index) {
    if (index < vp_.size()) models_.VPModel = vp_[index].model;
}

void ModelChoice::choose_hlv(std::size_t index) {
    if (index < hlv_.size()) models_.HLVModel = hlv_[index].model;
}

void ModelChoice::choose_cp(std::size_t index) {
    if (index < cp_.size()) models_.CpModel = cp_[index].model;
}

void ModelChoice::set_watson(std::string_view typed) {
    const double n = numbers::val_input(typed);
    constexpr double kLargest = std::numeric_limits<float>::max();
    models_.WatsonN = std::fabs(n) <= kLargest ? static_cast<float>(n) : 0.0F;
}

std::optional<std::string> ModelChoice::warning() const {
    const bool needsOmega = models_.HLVModel == VaporisationModel::carruthKobayashi ||
                            equation_of(models_.EOSModel).needsOmega;
    if (substance_.omega != 0.0 || !needsOmega) return std::nullopt;
    return "No acentric factor available.\nCalculated by using omega = 0\n(Input => data editor)";
}

}  // namespace quor::models
