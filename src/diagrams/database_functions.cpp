#include "diagrams/database_functions.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "common/constants.h"
#include "common/faults.h"
#include "models/caloric.h"
#include "models/density.h"
#include "models/enthalpy_of_vaporisation.h"
#include "models/vapour_pressure.h"

namespace quor::diagrams {

namespace {

using constants::kPresent;
using models::SubstanceRecord;

std::optional<double> times(std::optional<double> value, double factor) {
    if (value) *value *= factor;
    return value;
}

std::optional<double> if_positive(const Result<models::Density, models::NoDensity>& density) {
    return density && density->rho > 0 ? std::optional(density->rho) : std::nullopt;
}

std::optional<double> liquid_density(const SubstanceRecord& s, double T) {
    return if_positive(models::density_liquid(s, static_cast<float>(T)));
}

std::optional<double> solid_density(const SubstanceRecord& s, double T) {
    return if_positive(models::density_solid(s, static_cast<float>(T)));
}

std::optional<double> caloric(const Basis& basis, double T, std::optional<double> value) {
    return times(value, basis.caloric(T));
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

Validity pressure_range(const SubstanceRecord& s, models::VapourPressureEquation equation) {
    using enum models::VapourPressureEquation;
    if (equation == frostKalkwarf) return range(s.frost.T_low, s.frost.T_high);
    if (equation == wagner) return range(s.wagner.T_low, s.wagner.T_high);
    if (equation == antoineLow) return range(s.antoine_low.T_low, s.antoine_low.T_high);
    return range(s.antoine_high.T_low, s.antoine_high.T_high);
}

Validity cp_range(const models::CpSet& set) {
    return range(set.T_low, set.T_high);
}

/// The value at an end of the validity. A whole kelvin may lie beyond the critical temperature of
/// the equation, which then ends a little below it.
std::optional<double> end_value(const Diagram& diagram, const Basis& basis, double T) {
    constexpr double kBelow = 0.01;  // K
    if (const auto value = database_value(diagram, basis, T)) return value;
    const SubstanceRecord& s = basis.fluid.substance();
    double top = s.Tcrit;
    if (const auto Tset = static_cast<double>(s.wagner.a[8]);
        diagram.equation == models::VapourPressureEquation::wagner && Tset > 0)
        top = std::min(top, Tset);
    return database_value(diagram, basis, std::min(T, top) - kBelow);
}

bool is_density(DatabaseFunction function) {
    return function == DatabaseFunction::densityLiquid ||
           function == DatabaseFunction::densitySolid;
}

}  // namespace

bool liquid_volume_is_specific(const models::UnitChoice& units) {
    using models::UnitSystem;
    return units.system == UnitSystem::specific ||
           (units.system == UnitSystem::reduced && units.caloric == models::CaloricUnit::specific);
}

double liquid_volume_factor(const Basis& basis) {
    return liquid_volume_is_specific(basis.units.choice) ? faults::divide(1.0, basis.M()) : 1.0;
}

std::optional<double> database_value(const Diagram& diagram, const Basis& basis, double T) {
    if (!(T > 0)) return std::nullopt;
    const SubstanceRecord& s = basis.fluid.substance();
    switch (diagram.database) {
        case DatabaseFunction::vapourPressure: {
            const auto r = models::vapour_pressure(s, T, diagram.equation);
            return times(r ? std::optional(r->p) : std::nullopt, basis.p_factor());
        }
        case DatabaseFunction::densityLiquid:
            return liquid_density(s, T);
        case DatabaseFunction::densitySolid:
            return solid_density(s, T);
        case DatabaseFunction::volumeLiquid: {
            const std::optional<double> rho = liquid_density(s, T);
            if (!rho) return rho;
            return basis.M() * liquid_volume_factor(basis) / *rho;
        }
        case DatabaseFunction::cpIdealGas: {
            return caloric(basis, T, models::ideal_gas_cp(s, basis.fluid.models().cp_form, T));
        }
        case DatabaseFunction::cpLiquid: {
            return caloric(basis, T, models::polynomial_cp(s.cpL, T));
        }
        case DatabaseFunction::cpSolid: {
            return caloric(basis, T, models::polynomial_cp(s.cpS, T));
        }
        case DatabaseFunction::vaporisation: {
            return caloric(basis, T, models::enthalpy_equation(s, T));
        }
        case DatabaseFunction::none:
            break;
    }
    return std::nullopt;
}

Validity validity_of(const Diagram& diagram, const models::Fluid& fluid) {
    const SubstanceRecord& s = fluid.substance();
    switch (diagram.database) {
        case DatabaseFunction::vapourPressure:
            return pressure_range(s, diagram.equation);
        case DatabaseFunction::densityLiquid:
        case DatabaseFunction::volumeLiquid:
            return density_range(s.rhoL_T_low, s.rhoL_T_high, s.rhoL_coefficients[0],
                                 s.rhoL_coefficients[2]);
        case DatabaseFunction::densitySolid:
            return density_range(s.rhoS_T_low, s.rhoS_T_high, s.rhoS_coefficients[0],
                                 s.rhoS_coefficients[2]);
        case DatabaseFunction::cpIdealGas:
            return cp_range(fluid.models().cp_form == models::CpForm::sinhCosh ? s.cp_sinh_cosh
                                                                               : s.cp_polynomial);
        case DatabaseFunction::cpLiquid:
            return cp_range(s.cpL);
        case DatabaseFunction::cpSolid:
            return cp_range(s.cpS);
        case DatabaseFunction::vaporisation:
            return range(s.hLV_T_low, s.hLV_T_high);
        case DatabaseFunction::none:
            break;
    }
    return {};
}

bool has_database_function(const Diagram& diagram, const models::Fluid& fluid) {
    // Whether there is a value does not depend on the units.
    const Basis molar{.fluid = fluid};
    const Validity v = validity_of(diagram, fluid);
    return v.high > v.low && end_value(diagram, molar, v.low) && end_value(diagram, molar, v.high);
}

ValueRange value_range_of(const Diagram& diagram, const Basis& basis) {
    const Validity validity = validity_of(diagram, basis.fluid);
    const double at_low = end_value(diagram, basis, validity.low).value_or(0);
    const double at_high = end_value(diagram, basis, validity.high).value_or(0);
    ValueRange r{std::min(at_low, at_high), std::max(at_low, at_high)};
    if (static_cast<float>(r.low) == static_cast<float>(r.high)) {
        const double margin =
            is_density(diagram.database) ? 10.0 : std::max(0.1 * std::fabs(r.high), 1e-6);
        r.low -= margin;
        r.high += margin;
    }
    return r;
}

}  // namespace quor::diagrams
