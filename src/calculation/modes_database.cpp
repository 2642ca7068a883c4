#include <array>
#include <cmath>
#include <optional>

#include "calculation/calc_modes.h"
#include "calculation/job.h"
#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "legacy/wrappers.h"
#include "models/caloric.h"
#include "models/density.h"
#include "models/enthalpy_of_vaporisation.h"
#include "models/model_tables.h"
#include "models/vapour_pressure.h"
#include "session/module2.h"

/// Modes 14 to 24: functions of T from the database alone.
namespace quor::calculation {

using constants::kPresent;
using legacy::the_session;

namespace {

/// Range of validity in K; both 0 when nothing is known of it.
struct Range {
    std::int16_t TLo = 0, THi = 0;
    bool known() const { return TLo != 0 || THi != 0; }
};

/// A function is evaluated at the job's T: value, status and where it holds.
struct Value {
    double value = 0;
    Status status = kFailure;
    Range range;
};

// The units by unit form: kJ/kmol, K, R T, kJ/kg.
using Units = std::array<const char*, 4>;
constexpr Units kEnergyUnits = {" kJ/kmol", " K", " ", " kJ/kg"};
constexpr Units kCapacityUnits = {" kJ/(kmol/)", " ", " 1/K", " kJ/(kg K)"};

const char* unit_of(const Units& units) {
    const std::int16_t unit = the_session.CaloricUnit;
    return units[unit >= 0 && unit < 4 ? static_cast<std::size_t>(unit) : 0];
}

/// A density without limits was measured at one temperature: it holds 10 K around that.
template <std::size_t N>
Range density_range(const std::array<float, N>& parameters, std::int16_t TLo, std::int16_t THi) {
    constexpr int kAround = 10;
    if (TLo != 0) return {TLo, THi};
    if (!(static_cast<double>(parameters[2]) > kPresent)) return {};
    const int point = numbers::to_int16(static_cast<double>(parameters[2]));
    return {static_cast<std::int16_t>(point - kAround), static_cast<std::int16_t>(point + kAround)};
}

template <class Set>
Range limits(const Set& set) {
    return {set.TLo, set.THi};
}

Value density(Job& job) {
    const models::SubstanceRecord& s = legacy::the_substance;
    const bool liquid = job.mode() == 14;
    const auto T = static_cast<float>(job.T);
    const models::DensityResult r =
        liquid ? models::density_l(T, false) : models::density_s(T, false);
    const Range range = liquid ? density_range(s.rhoLPar, s.rhoLTLo, s.rhoLTHi)
                               : density_range(s.rhoSPar, s.rhoSTLo, s.rhoSTHi);
    if (r.status != kSuccess || !(r.rho > 0)) return {0.0, kFailure, range};
    const auto M = static_cast<double>(s.M);
    job.list.add((liquid ? " rho(L) = " : " rho(S) = ") + value32(r.rho) + " kg/m^3");
    job.list.add("v  /m^3/kmol = " + numbers::Format(M / r.rho, "##0.000###"));
    job.list.add("v  /m^3/kg   = " + numbers::Format(1.0 / r.rho, "##0.000###"));
    if (liquid) store_fu(job, 4, r.rho);
    store_fu(job, 19, M / r.rho * the_session.VolumeFactor);
    return {r.rho, kSuccess, range};
}

Value vaporisation(Job& job) {
    const Range range{legacy::the_substance.hLVTLo, legacy::the_substance.hLVTHi};
    const models::EnthalpyEquationResult r = models::EnthalpyEquationValue(job.T);
    if (r.status != kSuccess) return {0.0, kFailure, range};
    const double h = r.h * the_session.CaloricFactor;
    job.list.add(" delta(LV)h = " + value32(h) + unit_of(kEnergyUnits));
    store_fu(job, 29, h);
    store_fu(job, 30, h / job.T);
    return {h, kSuccess, range};
}

/// A heat capacity of the modes 16 to 18.
struct CapacityRow {
    std::int16_t mode;
    const char* label;
    std::size_t fu;
};
constexpr CapacityRow kCapacities[] = {
    {16, " cp_IdGas = ", 7}, {17, " cp(L) = ", 27}, {18, " cp(S) = ", 5}};

Value heat_capacity(Job& job) {
    const models::SubstanceRecord& s = legacy::the_substance;
    const CapacityRow& row = kCapacities[job.mode() - 16];
    const models::CpResult r = job.mode() == 16   ? models::IdealGasCp(job.T)
                               : job.mode() == 17 ? models::cp_liquid(job.T)
                                                  : models::cp_solid(job.T);
    const Range range =
        limits(job.mode() == 17                                           ? s.cpL
               : job.mode() == 18                                         ? s.cpS
               : legacy::the_models.CpModel == models::CpForm::polynomial ? s.cpPoly
                                                                          : s.cpSinh);
    if (r.status != kSuccess) return {0.0, kFailure, range};
    const double cp = r.cp * the_session.CaloricFactor;
    job.list.add(row.label + value32(cp) + unit_of(kCapacityUnits));
    store_fu(job, row.fu, cp);
    return {cp, kSuccess, range};
}

/// A vapour pressure equation of the modes 19 to 22.
struct PressureRow {
    const char* code;
    const char* label;
};
constexpr PressureRow kPressures[] = {{"FRO", " p(LV), ext. Frost-Kalkwarf = "},
                                      {"WAG", " p(LV), Wagner = "},
                                      {"ALP", " p(LV), Antoine (Lo-p) = "},
                                      {"AHP", " p(LV), Antoine (Hi-p) = "}};

Range pressure_range(std::int16_t mode) {
    const models::SubstanceRecord& s = legacy::the_substance;
    switch (mode) {
        case 19:
            return limits(s.FRO);
        case 20:
            return limits(s.WAG);
        case 21:
            return limits(s.ALP);
        default:
            return limits(s.AHP);
    }
}

Value vapour_pressure(Job& job) {
    const PressureRow& row = kPressures[job.mode() - 19];
    const models::VapourPressureResult r =
        models::VapourPressure(job.T, models::vp_of_code(row.code), false);
    const Range range = pressure_range(job.mode());
    if (r.status != kSuccess) return {0.0, kFailure, range};
    const double p = r.p * static_cast<double>(the_session.PressureFactor);
    job.p = r.p;
    job.list.add(row.label + value32(p) + " kPa");
    store_fu(job, 1, p);
    return {p, kSuccess, range};
}

Value evaluate(Job& job) {
    if (job.mode() == 14 || job.mode() == 24) return density(job);
    if (job.mode() == 15) return vaporisation(job);
    return job.mode() <= 18 ? heat_capacity(job) : vapour_pressure(job);
}

void warn_outside(const Job& job, const Range& range) {
    constexpr double kAllowed = 10.0;
    if (!range.known()) return;
    if (job.T >= range.TLo - kAllowed && job.T <= range.THi + kAllowed) return;
    dialogs::tell("T more than 10 K outside the T-limits of the equation\n(T/K = " +
                      std::to_string(range.TLo) + "..." + std::to_string(range.THi) + ")",
                  "WARNING");
}

}  // namespace

void DatabaseFunction(Job& job) {
    if (!fetch_t(job)) return;
    session::refresh_units();
    const Value result = evaluate(job);
    warn_outside(job, result.range);
    if (result.status != kSuccess) {
        job.error = true;
        dialogs::tell("calculation error occured", "Execution not possible");
        return;
    }
    resultText.par1.text = temperature_text(job.T);
    resultText.co1.text = std::string(" Calculation by using the Database Function ") +
                          mode_of(job.mode()).title + " Fu(T)";
    resultText.co2.text = temperature_text(job.T);
    if (!result.range.known()) return;
    job.list.add("The function is valid within the following temperature limits:");
    job.list.add(" T(Lo)/K = " + std::to_string(result.range.TLo));
    job.list.add(" T(Hi)/K = " + std::to_string(result.range.THi));
}

void no_function(Job& job) {
    if (fetch_t(job)) resultText.par1.text = temperature_text(job.T);
}

}  // namespace quor::calculation
