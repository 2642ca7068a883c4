#include "diagrams/coordinates.h"

#include <algorithm>
#include <cmath>

#include "common/constants.h"
#include "diagrams/axis_units.h"
#include "diagrams/bounded.h"
#include "diagrams/database_functions.h"
#include "models/caloric.h"

namespace quor::diagrams {

namespace {

using constants::kPresent;

float single(double value) {
    return bounded_single(value);
}

void set_function_limits(CoordinateDefaults& d, std::int16_t mode, double factor) {
    // Values of view, of conventional states and of formation lie in different regions.
    if (mode == 1) {
        d.func_max = single(50000 * factor);
        d.func_min = single(-50000 * factor);
        d.entropy_max = single(250 * factor);
        d.entropy_min = single(-250 * factor);
    } else if (mode == 2 || mode == 10) {
        d.func_max = 0;
        d.func_min = single(-300000 * factor);
        d.entropy_max = single(200 * factor);
        d.entropy_min = single(-250 * factor);
    }
}

void set_temperature_limits(CoordinateDefaults& d, const models::Fluid& fluid, double T_factor,
                            bool renewed) {
    const double Tcrit = fluid.substance().Tcrit;
    const auto Ttriple = static_cast<double>(fluid.substance().Ttriple);
    if (d.T_max == 0 || renewed) d.T_max = single(T_factor * Tcrit * 1.1);
    if (d.T_min == 0 || renewed)
        d.T_min = single(T_factor * Ttriple * (fluid.models().vapour_only ? 0.3 : 1.0));
    if (static_cast<double>(d.T_min) < kPresent) d.T_min = single(0.5 * Tcrit * T_factor);
    d.T_max_residual = std::max(d.T_max, single(300 * T_factor));

    // 5 K below the triple point; below 5 K there is nothing left of it.
    const double low = Ttriple - 5;
    d.inverse_T_max =
        single(Ttriple > kPresent && low > 0 ? 1 / (T_factor * low) : 2.3 / (T_factor * Tcrit));
    d.inverse_T_min = single(1 / (T_factor * (Tcrit + 10)));
}

double molar_cp_limit(const models::Fluid& fluid) {
    constexpr double kWithoutForm = 50;  // kJ/(kmol K)
    const models::SubstanceRecord& s = fluid.substance();
    return models::ideal_gas_cp(s, fluid.models().cp_form, s.Tcrit).value_or(kWithoutForm);
}

void widen(double& low, double& high) {
    constexpr double kMargin = 0.05;
    const double margin = kMargin * (high - low);
    low -= margin;
    high += margin;
}

ProposedWindow database_window(const Diagram& diagram, const Basis& basis) {
    const Validity validity = validity_of(diagram, basis.fluid);
    const ValueRange values = value_range_of(diagram, basis);
    double x_low = validity.low, x_high = validity.high;
    double y_low = values.low, y_high = values.high;
    widen(x_low, x_high);
    widen(y_low, y_high);
    const double T_factor = basis.T_factor();
    return {{single(x_low * T_factor), single(x_high * T_factor), single(y_low), single(y_high)},
            validity};
}

}  // namespace

CoordinateDefaults coordinate_defaults(const Basis& basis, const CoordinateDefaults& previous,
                                       bool renewed) {
    CoordinateDefaults d = previous;
    const models::Fluid& fluid = basis.fluid;
    const models::SubstanceRecord& s = fluid.substance();
    const double p_factor = basis.p_factor(), T_factor = basis.T_factor(),
                 v_factor = basis.v_factor();
    const double caloric = basis.units.caloric;
    if (!(s.Tcrit > 0) || !(s.pcrit > 0)) return d;

    const double vcrit =
        fluid.models().vapour_only ? s.vcrit_measured : fluid.eos().vcrit_calculated;
    d.v_min = 0;
    d.v_max = single(v_factor * 7 * vcrit);
    if (d.v_max == 0) d.v_max = 1.5F;
    d.v_max_reserve = single(v_factor * s.vcrit_measured * 1.4);
    d.v_min_reserve = single(v_factor * 0.01);
    d.rho_min = 0;
    d.rho_max = single(3.5 * s.rhocrit);

    if (d.p_max == 0 || renewed) d.p_max = single(p_factor * s.pcrit * 1.4);
    d.p_min = 0.001F;
    d.pv_min = 0;
    d.pv_max = single(p_factor * s.pcrit * static_cast<double>(d.v_max));
    d.lnp_min = -5;
    const bool reduced = basis.units.choice.system == models::UnitSystem::reduced;
    d.lnp_max = single(reduced ? 0.5 : 1.1 * std::log(p_factor * s.pcrit));
    d.dlnp_max = -500;
    d.dlnp_min = -6000;

    set_temperature_limits(d, fluid, T_factor, renewed);
    set_function_limits(d, basis.reference.mode, caloric);
    d.cp_min = -10;
    d.cp_max = single(2 * molar_cp_limit(fluid) * caloric);
    d.vaporisation_min = 0;
    d.vaporisation_max = single(50000 * caloric);
    d.jt_min = -0.005F;
    d.jt_max = 0.04F;
    d.res_entropy_min = single(-498.8706 * caloric);  // -60 R
    d.res_entropy_max = single(20 * caloric);
    d.res_enthalpy_min = single(-49887.06 * caloric);  // -6000 R
    d.res_enthalpy_max = single(1000 * caloric);
    return d;
}

namespace {

ProposedWindow computed_window(const Diagram& row, const Basis& basis,
                               const CoordinateDefaults& d) {
    if (row.database != DatabaseFunction::none) return database_window(row, basis);
    if (row.x_limits.low == nullptr) return {{d.T_min, d.T_max, 0, 0}, {}};
    return {{d.*row.x_limits.low, d.*row.x_limits.high, d.*row.y_limits.low, d.*row.y_limits.high},
            {}};
}

}  // namespace

ProposedWindow proposed_window(const Diagram& diagram, const Basis& basis,
                               const CoordinateDefaults& d) {
    const Diagram& row = diagram.x_limits.low == nullptr ? home_of(diagram) : diagram;
    ProposedWindow proposed = computed_window(row, basis, d);
    proposed.window = shown_scales(row, basis).shown(proposed.window);
    return proposed;
}

}  // namespace quor::diagrams
