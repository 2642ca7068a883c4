#include "diagrams/database_functions.h"
#include "legacy/wrappers.h"
#include "models/model_tables.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "common/constants.h"
#include "common/faults.h"
#include "models/caloric.h"
#include "models/density.h"
#include "models/enthalpy_of_vaporisation.h"
#include "models/vapour_pressure.h"
#include "session/module2.h"

namespace quor::Module9 {

namespace {

using constants::kPresent;
using legacy::the_models;
using legacy::the_session;
using models::SubstanceRecord;

constexpr std::int16_t kDensityL = 300, kVolumeL = 301, kCpIdeal = 302, kCpL = 303, kCpS = 304,
                       kVaporisation = 305, kDensityS = 310;

constexpr std::int16_t kFirstPressure = 306;
constexpr std::array<std::string_view, 4> kPressureEquations = {"FRO", "WAG", "ALP", "AHP"};

std::optional<double> if_present(double value, Status status) {
    if (status != kSuccess || !std::isfinite(value)) return std::nullopt;
    return value;
}

std::optional<double> times(std::optional<double> value, double factor) {
    if (value) *value *= factor;
    return value;
}

std::optional<double> liquid_density(double T) {
    const models::DensityResult r =
        models::density_liquid(legacy::the_substance, static_cast<float>(T));
    return r.rho > 0 ? if_present(r.rho, r.status) : std::nullopt;
}

std::optional<double> solid_density(double T) {
    const models::DensityResult r =
        models::density_solid(legacy::the_substance, static_cast<float>(T));
    return r.rho > 0 ? if_present(r.rho, r.status) : std::nullopt;
}

std::optional<double> caloric(double T, double value, Status status) {
    return times(if_present(value, status), session::caloric_factor_of(the_session.CaloricUnit, T));
}

Validity range(std::int16_t low, std::int16_t high) {
    if (low <= 0 || high <= 0) return {};
    return {static_cast<double>(low), static_cast<double>(high)};
}

/// A density correlation without a range is a single point: 10 K on either side of it.
Validity density_range(std::int16_t low, std::int16_t high, float value, float temperature) {
    constexpr double kMissing = 1e-37;
    constexpr double kHalfWidth = 10;
    const Validity told = range(low, high);
    if (told.high > 0) return told;
    const auto T = static_cast<double>(temperature);
    if (!(std::fabs(static_cast<double>(value)) > kMissing) || !(T > kPresent)) return {};
    return {T - kHalfWidth, T + kHalfWidth};
}

Validity pressure_range(std::string_view equation) {
    const SubstanceRecord& s = legacy::the_substance;
    if (equation == "FRO") return range(s.FRO.TLo, s.FRO.THi);
    if (equation == "WAG") return range(s.WAG.TLo, s.WAG.THi);
    if (equation == "ALP") return range(s.ALP.TLo, s.ALP.THi);
    return range(s.AHP.TLo, s.AHP.THi);
}

Validity cp_range(const models::CpSet& set) {
    return range(set.TLo, set.THi);
}

/// The value at an end of the validity. A whole kelvin may lie beyond the critical temperature of
/// the equation, which then ends a little below it.
std::optional<double> end_value(std::int16_t code, double T) {
    constexpr double kBelow = 0.01;  // K
    if (const auto value = database_value(code, T)) return value;
    const SubstanceRecord& s = legacy::the_substance;
    double top = s.Tcrit;
    if (const auto Tset = static_cast<double>(s.WAG.a[8]);
        pressure_equation_of(code) == "WAG" && Tset > 0)
        top = std::min(top, Tset);
    return database_value(code, std::min(T, top) - kBelow);
}

bool is_density(std::int16_t code) {
    return code == kDensityL || code == kDensityS;
}

}  // namespace

std::string_view pressure_equation_of(std::int16_t code) {
    const int index = code - kFirstPressure;
    if (index < 0 || index >= static_cast<int>(kPressureEquations.size())) return {};
    return kPressureEquations[static_cast<std::size_t>(index)];
}

bool liquid_volume_is_specific() {
    constexpr std::int16_t kSpecificMode = 1, kReducedMode = 2, kSpecificUnit = 3;
    return the_session.UnitMode == kSpecificMode ||
           (the_session.UnitMode == kReducedMode && the_session.CaloricUnit == kSpecificUnit);
}

double liquid_volume_factor() {
    return liquid_volume_is_specific()
               ? faults::divide(1.0, static_cast<double>(legacy::the_substance.M))
               : 1.0;
}

std::optional<double> database_value(std::int16_t code, double T) {
    if (!(T > 0)) return std::nullopt;
    if (const std::string_view equation = pressure_equation_of(code); !equation.empty()) {
        const auto r =
            models::vapour_pressure(legacy::the_substance, T, models::vp_of_code(equation));
        return times(if_present(r.p, r.status), static_cast<double>(the_session.PressureFactor));
    }
    switch (code) {
        case kDensityL:
            return liquid_density(T);
        case kDensityS:
            return solid_density(T);
        case kVolumeL: {
            const std::optional<double> rho = liquid_density(T);
            if (!rho) return rho;
            return static_cast<double>(legacy::the_substance.M) * liquid_volume_factor() / *rho;
        }
        case kCpIdeal: {
            const models::CpResult r = models::IdealGasCp(T);
            return caloric(T, r.cp, r.status);
        }
        case kCpL: {
            const models::CpResult r = models::cp_liquid(T);
            return caloric(T, r.cp, r.status);
        }
        case kCpS: {
            const models::CpResult r = models::cp_solid(T);
            return caloric(T, r.cp, r.status);
        }
        case kVaporisation: {
            const models::EnthalpyEquationResult r = models::EnthalpyEquationValue(T);
            return caloric(T, r.h, r.status);
        }
        default:
            return std::nullopt;
    }
}

Validity validity_of(std::int16_t code) {
    const SubstanceRecord& s = legacy::the_substance;
    if (const std::string_view equation = pressure_equation_of(code); !equation.empty())
        return pressure_range(equation);
    switch (code) {
        case kDensityL:
        case kVolumeL:
            return density_range(s.rhoLTLo, s.rhoLTHi, s.rhoLPar[0], s.rhoLPar[2]);
        case kDensityS:
            return density_range(s.rhoSTLo, s.rhoSTHi, s.rhoSPar[0], s.rhoSPar[2]);
        case kCpIdeal:
            return cp_range(the_models.CpModel == models::CpForm::sinhCosh ? s.cpSinh : s.cpPoly);
        case kCpL:
            return cp_range(s.cpL);
        case kCpS:
            return cp_range(s.cpS);
        case kVaporisation:
            return range(s.hLVTLo, s.hLVTHi);
        default:
            return {};
    }
}

bool HasDatabaseFunction(std::int16_t code) {
    const Validity v = validity_of(code);
    return v.high > v.low && end_value(code, v.low) && end_value(code, v.high);
}

ValueRange value_range_of(std::int16_t code) {
    const Validity validity = validity_of(code);
    const double atLow = end_value(code, validity.low).value_or(0);
    const double atHigh = end_value(code, validity.high).value_or(0);
    ValueRange r{std::min(atLow, atHigh), std::max(atLow, atHigh)};
    if (static_cast<float>(r.low) == static_cast<float>(r.high)) {
        const double margin = is_density(code) ? 10.0 : std::max(0.1 * std::fabs(r.high), 1e-6);
        r.low -= margin;
        r.high += margin;
    }
    return r;
}

}  // namespace quor::Module9
