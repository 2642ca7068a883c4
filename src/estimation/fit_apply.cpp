#include "estimation/fit_apply.h"

#include <cmath>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "datafiles/substance_slots.h"
#include "legacy/declare.h"

namespace quor::estimation {

namespace {

using models::CpSet;
using models::SubstanceRecord;
using numbers::ToSingle;

constexpr const char* kRefused = "Execution not possible";
constexpr std::string_view kNoAugust =
    "AUGUST/DUPRÉ-RANKINE are equations not used by QUOR.\n"
    "If you want to use AUGUST, chooce ANTOINE C-fixed = 273.15";
constexpr std::string_view kOnlyIdealGas =
    "The DIPPR function for cp is only available for cp(IdGas)";
constexpr std::string_view kNotIdealGas =
    "The SHOMATE function for cp is only available for cp(L) and cp(S)";
constexpr std::string_view kNoResults = "No fitted parameters available.";
constexpr const char* kNowActive =
    "These parameters are activ now in the resp. database function of QUOR\n"
    "and can be viewed/edited under \"Data/Data editor\".\n"
    "\n"
    "Single value calculations y=f(T) can be carried out\n"
    "under \"Calculation / Database functions\".";
constexpr const char* kSuccess = "Parameters succuessfully applied";

/// The forms of heat capacity and density tell each other apart by a first coefficient of 0; one
/// that is really zero takes a value too small to be seen.
constexpr double kLeastCoefficient = 1e-5;
/// |C4| below this means C4 T^4 to the heat capacity forms, above it C4/T^2.
constexpr double kLeastInverseSquare = 1;

template <std::size_t N>
void Fill(std::array<float, N>& target, std::initializer_list<double> values) {
    target.fill(0);
    std::size_t i = 0;
    for (const double v : values) target[i++] = ToSingle(v);
}

template <class Set>
void SetRange(Set& set, const AppliedRange& range) {
    set.TLo = range.TLo;
    set.THi = range.THi;
}

void SetDensity(SubstanceRecord& s, std::initializer_list<double> values, double Tcr,
                const AppliedRange& range) {
    Fill(s.rhoLPar, values);
    s.rhoLTc = ToSingle(Tcr);
    s.rhoLTLo = range.TLo;
    s.rhoLTHi = range.THi;
}

void SetVaporisation(SubstanceRecord& s, std::initializer_list<double> values,
                     const AppliedRange& range) {
    Fill(s.hLVPar, values);
    s.hLVTc = ToSingle(range.Tcr);
    s.hLVTLo = range.TLo;
    s.hLVTHi = range.THi;
}

CpSet& CpOf(SubstanceRecord& s, CpPhase phase) {
    switch (phase) {
        case CpPhase::Liquid:
            return s.cpL;
        case CpPhase::Solid:
            return s.cpS;
        default:
            return s.cpPoly;
    }
}

/// A first coefficient that keeps the forms that begin with it.
double Present(double first) {
    return std::fabs(first) < kLeastCoefficient ? kLeastCoefficient : first;
}

void SetCp(SubstanceRecord& s, CpSet& set, std::initializer_list<double> values,
           const AppliedRange& range) {
    Fill(set.c, values);
    SetRange(set, range);
    datafiles::form_cp_flags(s);
}

/// Why the results of a model have no place for the chosen phase, empty when they have one.
std::string_view Refusal(const FitState& state) {
    switch (state.FitModel) {
        case 3:
            return kNoAugust;
        case 17:
            return state.cpPhase == CpPhase::IdealGas ? kNotIdealGas : "";
        case 18:
            return state.cpPhase != CpPhase::IdealGas ? kOnlyIdealGas : "";
        default:
            return "";
    }
}

Parameters DecadicParameters(const FitState& state, const FitModelRow& row) {
    Parameters par = state.FitPar;
    if (state.lg) return par;
    for (std::size_t i = 0; i < par.size(); ++i)
        if (row.logarithmic[i]) par[i] /= constants::kLn10;
    return par;
}

std::string SetMessage(const FitState& state, const FitModelRow& row) {
    if (row.appliedTo.empty()) return {};
    std::string text = "These parameters are";
    if (!state.lg) text += " (after re-calculation to lg)";
    text.append("\n").append(row.extended).append("\n").append(row.appliedTo);
    return text;
}

}  // namespace

void ApplyAntoine(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    s.ALP = {ToSingle(par[0]), ToSingle(par[1]), ToSingle(par[2]), range.TLo, range.THi};
}

void ApplyFrost(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    Fill(s.FRO.a, {par[0], par[1], par[2], par[3], par[4]});
    SetRange(s.FRO, range);
}

void ApplyFrostThodos(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    Parameters all = par;
    all[3] = 1.8 * par[1] / range.Tcr + 2.67;
    ApplyFrost(all, range, s);
}

void ApplyRiedel(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    Fill(s.FRO.a, {par[0], par[1], constants::kZeroCelsius, par[2], 0, 0, 0, par[3], par[4]});
    SetRange(s.FRO, range);
}

void ApplyWagner(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    Fill(s.WAG.a, {par[0], par[1], par[2], 3, par[3], 6, 0, 0, range.Tcr, range.pcr});
    SetRange(s.WAG, range);
}

void ApplyRackett(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    SetDensity(s, {0, par[0], par[1], par[2]}, range.Tcr, range);
}

void ApplyLeuna(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    SetDensity(s, {Present(par[0]), par[1], par[2], par[3], 0, 0, par[4]}, range.Tcr, range);
}

void ApplyDensityPolynomial(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    SetDensity(s, {Present(par[0]), par[1], par[2], par[3]}, 0, range);
}

void ApplyMajer(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    SetVaporisation(s, {par[0], par[1], par[2]}, range);
}

void ApplyDipprVaporisation(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    SetVaporisation(s, {par[0], 0, par[1], par[2], par[3], par[4]}, range);
}

void ApplyCpPolynomial(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    // The fitted function ends with D T^3: E has no part in it, and a C4 would have one.
    SetCp(s, CpOf(s, range.phase), {Present(par[0]), par[1], par[2], par[3], 0}, range);
}

void ApplyShomate(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    // The form with C0 and an inverse square is the fitted function; an E so small that the form
    // would be another one is not seen in a heat capacity.
    const double E = std::fabs(par[4]) < kLeastInverseSquare ? 0 : par[4];
    SetCp(s, CpOf(s, range.phase), {Present(par[0]), par[1], par[2], par[3], E}, range);
}

void ApplyCpSinh(const Parameters& par, const AppliedRange& range, SubstanceRecord& s) {
    // u/sinh(u) is even: the record holds |C2|.
    SetCp(s, s.cpSinh, {par[0], par[1], std::fabs(par[2]), par[3], par[4]}, range);
}

AppliedFit apply_fit(const FitState& state, SubstanceRecord& substance) {
    const FitModelRow* row = FindModel(state.FitModel);
    if (row == nullptr) return {};
    if (const std::string_view refusal = Refusal(state); !refusal.empty())
        return {false, std::string(refusal)};
    if (row->apply == nullptr) return {};
    if (!state.fitted || state.FitPoints.empty()) return {false, std::string(kNoResults)};
    try {
        AppliedRange range;
        range.TLo = numbers::ToInt16(static_cast<double>(state.FitPoints.front().x));
        range.THi = numbers::ToInt16(static_cast<double>(state.FitPoints.back().x));
        range.Tcr = state.Tcr;
        range.pcr = state.pcr;
        range.phase = state.cpPhase;
        SubstanceRecord changed = substance;
        row->apply(DecadicParameters(state, *row), range, changed);
        substance = changed;
    } catch (const faults::Fault& fault) {
        return {false, fault.what()};
    }
    return {true, SetMessage(state, *row)};
}

void ApplyFit(const FitState& state) {
    const AppliedFit result = apply_fit(state, legacy::the_substance);
    if (!result.applied) {
        if (!result.message.empty()) dialogs::Tell(result.message, kRefused, dialogs::Icon::Stop);
        return;
    }
    legacy::the_session.ResultsOutdated = true;
    if (!result.message.empty())
        dialogs::Tell(result.message, kSuccess, dialogs::Icon::Information);
    dialogs::Tell(kNowActive, kSuccess, dialogs::Icon::Information);
}

}  // namespace quor::estimation
