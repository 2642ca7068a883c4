#include "estimation/fit_apply.h"

#include <algorithm>
#include <cmath>

#include "common/constants.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "datafiles/substance_slots.h"

namespace quor::estimation {

namespace {

using models::CpSet;
using models::SubstanceRecord;
using numbers::to_single;

constexpr std::string_view kNoAugust =
    "AUGUST/DUPRÉ-RANKINE are equations not used by QUOR.\n"
    "If you want to use AUGUST, chooce ANTOINE C-fixed = 273.15";
constexpr std::string_view kOnlyIdealGas =
    "The DIPPR function for cp is only available for cp(IdGas)";
constexpr std::string_view kNotIdealGas =
    "The SHOMATE function for cp is only available for cp(L) and cp(S)";
constexpr std::string_view kNoResults = "No fitted parameters available.";
constexpr std::string_view kNoPlace = "The data of a substance have no place for these parameters.";
constexpr std::int16_t kAugust = 3;
/// The forms of heat capacity and density tell each other apart by a first coefficient of 0; one
/// that is really zero takes a value too small to be seen.
constexpr double kLeastCoefficient = 1e-5;
/// |C4| below this means C4 T^4 to the heat capacity forms, above it C4/T^2.
constexpr double kLeastInverseSquare = 1;

template <std::size_t N>
void fill(std::array<float, N>& target, std::initializer_list<double> values) {
    target.fill(0);
    std::size_t i = 0;
    for (const double v : values) target[i++] = to_single(v);
}

template <class Set>
void set_range(Set& set, const AppliedRange& range) {
    set.T_low = range.T_low;
    set.T_high = range.T_high;
}

void set_density(SubstanceRecord& s, std::initializer_list<double> values, double Tcr,
                 const AppliedRange& range) {
    fill(s.rhoL_coefficients, values);
    s.rhoL_Tc = to_single(Tcr);
    s.rhoL_T_low = range.T_low;
    s.rhoL_T_high = range.T_high;
}

void set_vaporisation(SubstanceRecord& s, std::initializer_list<double> values,
                      const AppliedRange& range) {
    fill(s.hLV_coefficients, values);
    s.hLV_Tc = to_single(range.Tcr);
    s.hLV_T_low = range.T_low;
    s.hLV_T_high = range.T_high;
}

CpSet& cp_of(SubstanceRecord& s, CpPhase phase) {
    switch (phase) {
        case CpPhase::Liquid:
            return s.cpL;
        case CpPhase::Solid:
            return s.cpS;
        default:
            return s.cp_polynomial;
    }
}

/// A first coefficient that keeps the forms that begin with it.
double present(double first) {
    return std::fabs(first) < kLeastCoefficient ? kLeastCoefficient : first;
}

void set_cp(SubstanceRecord& s, CpSet& set, std::initializer_list<double> values,
            const AppliedRange& range) {
    fill(set.c, values);
    set_range(set, range);
    datafiles::form_cp_flags(s);
}

/// Why the results of a model have no place for the chosen phase, empty when they have one.
std::string_view refusal(const FitState& state) {
    switch (state.model) {
        case kAugust:
            return kNoAugust;
        case 17:
            return state.cp_phase == CpPhase::IdealGas ? kNotIdealGas : "";
        case 18:
            return state.cp_phase != CpPhase::IdealGas ? kOnlyIdealGas : "";
        default:
            return "";
    }
}

Parameters decadic_parameters(const FitState& state, const FitModelRow& row) {
    Parameters par = state.parameters;
    if (state.lg) return par;
    for (std::size_t i = 0; i < par.size(); ++i)
        if (row.logarithmic[i]) par[i] /= constants::kLn10;
    return par;
}

std::string set_message(const FitState& state, const FitModelRow& row) {
    if (row.applied_to.empty()) return {};
    std::string text = "These parameters are";
    if (!state.lg) text += " (after re-calculation to lg)";
    text.append("\n").append(row.extended).append("\n").append(row.applied_to);
    return text;
}

Failure another_substance(const FitState& state, const SubstanceRecord& substance) {
    const std::string& now = substance.name;
    return {"This fit belongs to " + state.substance.name + ",\nbut " +
            (now.empty() ? std::string("no substance") : now) +
            " is loaded now. Nothing was applied."};
}

}  // namespace

void apply_antoine(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    s.antoine_low = {to_single(par[0]), to_single(par[1]), to_single(par[2]), range.T_low,
                     range.T_high};
}

void apply_frost(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    fill(s.frost.a, {par[0], par[1], par[2], par[3], par[4]});
    set_range(s.frost, range);
}

void apply_frost_thodos(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    Parameters all = par;
    all[3] = 1.8 * par[1] / range.Tcr + 2.67;
    apply_frost(all, range, s);
}

void apply_riedel(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    fill(s.frost.a, {par[0], par[1], constants::kZeroCelsius, par[2], 0, 0, 0, par[3], par[4]});
    set_range(s.frost, range);
}

void apply_wagner(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    fill(s.wagner.a, {par[0], par[1], par[2], 3, par[3], 6, 0, 0, range.Tcr, range.pcr});
    set_range(s.wagner, range);
}

void apply_rackett(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    set_density(s, {0, par[0], par[1], par[2]}, range.Tcr, range);
}

void apply_leuna(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    set_density(s, {present(par[0]), par[1], par[2], par[3], 0, 0, par[4]}, range.Tcr, range);
}

void apply_density_polynomial(const Parameters& par, const AppliedRange& range,
                              SubstanceRecord& s) {
    set_density(s, {present(par[0]), par[1], par[2], par[3]}, 0, range);
}

void apply_majer(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    set_vaporisation(s, {par[0], par[1], par[2]}, range);
}

void apply_dippr_vaporisation(const Parameters& par, const AppliedRange& range,
                              SubstanceRecord& s) {
    set_vaporisation(s, {par[0], 0, par[1], par[2], par[3], par[4]}, range);
}

void apply_cp_polynomial(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    // The fitted function ends with D T^3: E has no part in it, and a C4 would have one.
    set_cp(s, cp_of(s, range.phase), {present(par[0]), par[1], par[2], par[3], 0}, range);
}

void apply_shomate(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    // The form with C0 and an inverse square is the fitted function; an E so small that the form
    // would be another one is not seen in a heat capacity.
    const double E = std::fabs(par[4]) < kLeastInverseSquare ? 0 : par[4];
    set_cp(s, cp_of(s, range.phase), {present(par[0]), par[1], par[2], par[3], E}, range);
}

void apply_cp_sinh(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    // u/sinh(u) is even: the record holds |C2|.
    set_cp(s, s.cp_sinh_cosh, {par[0], par[1], std::fabs(par[2]), par[3], par[4]}, range);
}

bool is_same_substance(const SubstanceRecord& a, const SubstanceRecord& b) {
    const std::string casrn = text::trim(a.casrn);
    if (!casrn.empty()) return casrn == text::trim(b.casrn);
    return text::trim(b.casrn).empty() && a.name == b.name;
}

Result<AppliedFit> apply_fit(const FitState& state, const SubstanceRecord& substance) {
    const FitModelRow* row = find_model(state.model);
    if (const std::string_view reason = refusal(state); !reason.empty())
        return Failure{std::string(reason)};
    if (row == nullptr || row->apply == nullptr) return Failure{std::string(kNoPlace)};
    const auto& points = state.points;
    const auto first = std::find_if(points.begin(), points.end(), is_active);
    const auto last = std::find_if(points.rbegin(), points.rend(), is_active);
    if (!state.fitted || first == points.end()) return Failure{std::string(kNoResults)};
    if (!is_same_substance(state.substance, substance)) return another_substance(state, substance);
    try {
        AppliedRange range;
        range.T_low = numbers::to_int16(static_cast<double>(first->x));
        range.T_high = numbers::to_int16(static_cast<double>(last->x));
        range.Tcr = state.Tcr;
        range.pcr = state.pcr;
        range.phase = state.cp_phase;
        AppliedFit applied{.substance = substance};
        row->apply(decadic_parameters(state, *row), range, applied.substance);
        applied.message = set_message(state, *row);
        return applied;
    } catch (const faults::Fault& fault) {
        return Failure{fault.what()};
    }
}

}  // namespace quor::estimation
