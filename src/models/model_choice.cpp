#include "models/model_choice.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "common/constants.h"
#include "common/numbers.h"
#include "common/single.h"
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
        if (substance.omega != 0.0 || !row->needs_omega)
            entries.push_back({row->eos, text::trim(row->name)});
    return entries;
}

ModelEntries<VapourPressureEquation> vp_entries(const SubstanceRecord& s) {
    using enum VapourPressureEquation;
    const double product = static_cast<double>(s.august.A) * static_cast<double>(s.august.B);
    const bool boils = s.Tboil > 1e-6F;
    const Offer<VapourPressureEquation> offers[] = {{wagner, s.wagner.T_low > 0},
                                                    {frostKalkwarf, s.frost.T_low != 0},
                                                    {antoineLow, s.antoine_low.A > 1e-6F},
                                                    {antoineHigh, s.antoine_high.A > 1e-6F},
                                                    {august, std::fabs(product) > 0.0},
                                                    {frostVanDerWaals, boils},
                                                    {frostRedlichKwong, boils},
                                                    {thompson, boils},
                                                    {none, !has_measured_vapour_pressure(s)}};
    return offered(offers, vp_name);
}

bool has_measured_vapour_pressure(const SubstanceRecord& s) {
    return s.wagner.T_low > 0 || s.frost.T_low != 0 || s.antoine_low.A > 1e-6F ||
           s.antoine_high.A > 1e-6F;
}

VapourPressureEquation default_vapour_pressure(const SubstanceRecord& s) {
    using enum VapourPressureEquation;
    if (s.wagner.T_low > 0) return wagner;
    if (s.frost.T_low > 0) return frostKalkwarf;
    if (s.antoine_low.T_low > 0) return antoineLow;
    if (s.antoine_high.T_low > 0) return antoineHigh;
    return vp_entries(s).front().model;
}

ModelEntries<VaporisationModel> hlv_entries(const SubstanceRecord& s, bool vapour_only) {
    using enum VaporisationModel;
    const double product = static_cast<double>(s.watson_hLV) * static_cast<double>(s.watson_T);
    const Offer<VaporisationModel> offers[] = {{databaseEquation, s.hLV_T_high > kPresent},
                                               {chen, true},
                                               {carruthKobayashi, true},
                                               {watson, product > kPresent},
                                               {databaseDensity, s.rhoL_T_low > kPresent},
                                               {benson, true},
                                               {cubicEos, !vapour_only}};
    return offered(offers, hlv_name);
}

ModelEntries<CpForm> cp_entries(const SubstanceRecord& s) {
    const Offer<CpForm> offers[] = {{CpForm::none, !s.has_cp_polynomial && !s.has_cp_sinh_cosh},
                                    {CpForm::polynomial, s.has_cp_polynomial},
                                    {CpForm::sinhCosh, s.has_cp_sinh_cosh}};
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
    if (s.rhoL_T_low > kPresent)
        return {"Parameters available from data base",
                "Valid for T/K=" + std::to_string(s.rhoL_T_low) + " ..." +
                    std::to_string(s.rhoL_T_high) + " K"};
    return {"Parameters not available", ""};
}

void correlate_for(const ModelSelection& m, SubstanceRecord& s) {
    if (follows_critical_data(m.eos) || is_correlated(m.vapour_pressure))
        correlate_vapour_pressure(s, m.vapour_pressure, s.Tcrit, s.pcrit,
                                  static_cast<double>(s.Tboil));
}

ModelChoice::ModelChoice(const SubstanceRecord& substance, const ModelSelection& models)
    : models_(models) {
    renew(substance);
}

void ModelChoice::renew(const SubstanceRecord& substance) {
    substance_ = substance;
    vp_ = vp_entries(substance_);
    choose_vp(index_of(vp_, models_.vapour_pressure));

    eos_ = eos_entries(substance_);
    if (eos_[eos_index()].model != models_.eos) models_.eos = default_eos(substance_);
    models_.vapour_only = is_v_only(models_.eos);
    if (models_.vapour_only) models_.eos_has_priority = false;

    hlv_ = hlv_entries(substance_, models_.vapour_only);
    choose_hlv(index_of(hlv_, models_.vaporisation));

    watson_ = watson_entries(substance_);
    if (models_.watson_n < 1e-6F) set_watson(watson_.front());

    cp_ = cp_entries(substance_);
    choose_cp(index_of(cp_, models_.cp_form));
}

std::string ModelChoice::watson_text() const {
    return numbers::general_point(models_.watson_n);
}

bool ModelChoice::choose_eos(std::size_t index) {
    if (index >= eos_.size()) return false;
    const bool was_vapour_only = models_.vapour_only;
    models_.eos = eos_[index].model;
    models_.vapour_only = is_v_only(models_.eos);
    if (models_.vapour_only)
        models_.eos_has_priority = false;
    else if (was_vapour_only)
        models_.eos_has_priority = true;
    if (models_.vapour_only != was_vapour_only) {
        hlv_ = hlv_entries(substance_, models_.vapour_only);
        if (models_.vapour_only && models_.vaporisation == VaporisationModel::cubicEos)
            choose_hlv(0);
    }
    return models_.eos == Eos::manualVirial;
}

void ModelChoice::choose_vp(std::size_t index) {
    if (index < vp_.size()) models_.vapour_pressure = vp_[index].model;
}

void ModelChoice::choose_hlv(std::size_t index) {
    if (index < hlv_.size()) models_.vaporisation = hlv_[index].model;
}

void ModelChoice::choose_cp(std::size_t index) {
    if (index < cp_.size()) models_.cp_form = cp_[index].model;
}

void ModelChoice::set_watson(std::string_view typed) {
    const double n = numbers::typed_number(typed).value_or(0);
    models_.watson_n = numbers::fits_single(n) ? static_cast<float>(n) : 0.0F;
}

std::optional<std::string> ModelChoice::warning() const {
    const bool needs_omega = models_.vaporisation == VaporisationModel::carruthKobayashi ||
                             equation_of(models_.eos).needs_omega;
    if (substance_.omega != 0.0 || !needs_omega) return std::nullopt;
    return "No acentric factor available.\nCalculated by using omega = 0\n(Input => data editor)";
}

}  // namespace quor::models
