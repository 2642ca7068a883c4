#include <array>
#include <cmath>

#include "common/constants.h"
#include "diagrams/curve_kinds.h"
#include "diagrams/project_state.h"
#include "models/cubic_eos.h"

namespace quor::diagrams {

using models::StateValues;

namespace {

constexpr int kVolumeSteps = 40000;      // of a metastable branch between v(L) and v(V)
constexpr double kBelowEdge = 0.0001;    // K or kPa: the first step behind the coexistence curve
constexpr double kMetastableMove = 1.5;  // of a step in x, between points of a metastable branch

using Ordinate = std::optional<double>;

// ---- what is drawn over T, p or v

/// Caloric value of the diagram at a state, in displayed units.
struct CaloricOrdinate {
    Function function;
    /// cp grows beyond all limits where p(v) has its extrema.
    bool has_poles() const { return function == Function::cp; }

    Ordinate operator()(const CurveFrame& c, double T, double p, double v) const {
        const auto value = value_of(c.functions(T, p, v), function);
        if (!value) return value;
        return *value * c.caloric(T);
    }
};

/// Column of the residual table, times R: dimensionless for s and cp, in K for h and g.
struct ResidualOrdinate {
    models::Residual column;
    bool has_poles() const { return column == models::ResCp; }

    Ordinate operator()(const CurveFrame& c, double T, double p, double v) const {
        const auto table = models::residual_functions(c.fluid, models::eos_at(c.fluid, T), T, p, v);
        if (!table) return std::nullopt;
        return constants::R * table->residual[column] * c.caloric(T);
    }
};

/// Real heat capacity: the ideal gas and the residual part.
struct HeatCapacityOrdinate {
    static bool has_poles() { return true; }

    Ordinate operator()(const CurveFrame& c, double T, double p, double v) const {
        const auto ideal = models::ideal_gas_cp(c.substance, c.fluid.models().cp_form, T);
        const Ordinate residual = ResidualOrdinate{models::ResCp}(c, T, p, v);
        if (!ideal || !residual) return std::nullopt;
        return *ideal * c.caloric(T) + *residual;
    }
};

struct JouleThomsonOrdinate {
    Ordinate operator()(const CurveFrame& c, double T, double p, double v) const {
        const auto table = models::residual_functions(c.fluid, models::eos_at(c.fluid, T), T, p, v);
        const auto ideal = models::ideal_gas_cp(c.substance, c.fluid.models().cp_form, T);
        if (!table || !(ideal > 0.0)) return std::nullopt;
        return table->residual[models::JouleThomson];
    }
};

/// The poles of an ordinate along the volumes of a line: where p(v) has an extremum.
class Poles {
  public:
    explicit Poles(bool any) : any_(any) {}
    /// True when one lies between the last volume and the one with this slope of p(v).
    bool passed(double slope) {
        const bool changed = any_ && last_ * slope < 0;
        last_ = slope;
        return changed;
    }

  private:
    bool any_;
    double last_ = 0;
};

// ---- the walk along an isobar

double lower_temperature(const CurveFrame& c) {
    const bool ends = c.partial_gas() && c.subcritical_p() && c.TLV_correlated;
    return ends ? *c.TLV_correlated * c.T_factor : c.x_min;
}

template <class Y>
void add_at(CurveFrame& c, Y y, double x, double T, double p, std::optional<double> v, double z) {
    if (!(v > 0.0)) return;
    if (const Ordinate value = y(c, T, p, *v)) c.add_tested_by_y(x, *value, z);
}

/// Both ends of the tie-line, when both can be evaluated.
template <class Y>
bool add_tie_line(CurveFrame& c, Y y, double x, const Equilibrium& e, double z) {
    const Ordinate liquid = y(c, e.T, e.p, e.vL);
    const Ordinate vapour = y(c, e.T, e.p, e.vV);
    if (!liquid || !vapour) return false;
    c.add_tested_by_y(x, *liquid, z);
    c.add_tested_by_y(x, *vapour, z);
    return true;
}

/// The branch between v(L) and v(V) on the isobar, over T.
template <class Y>
void metastable_over_T(CurveFrame& c, Y y, double move) {
    const std::optional<Equilibrium>& e = c.at_p;
    if (!e) return;
    add_at(c, y, e->T * c.T_factor, e->T, e->p, e->vL, c.p);
    double last = e->T * c.T_factor;
    Poles poles(y.has_poles());
    Steps loop = Steps::plain(e->vL, e->vV, (e->vV - e->vL) / kVolumeSteps);
    for (double v; loop.next(v);) {
        const auto T = models::temperature_from_p_rho(c.fluid, c.p, c.M / v, true);
        if (!T) continue;
        if (poles.passed(models::cubic_slope(models::eos_at(c.fluid, *T), *T, v))) c.add_gap();
        if (std::fabs(*T * c.T_factor - last) < move * c.dx) continue;
        add_at(c, y, *T * c.T_factor, *T, c.p, v, c.p);
        last = *T * c.T_factor;
    }
    add_at(c, y, e->T * c.T_factor, e->T, e->p, e->vV, c.p);
}

template <class Y>
void isobar_with_crossing(CurveFrame& c, Y y) {
    if (c.metastable() && c.at_p) return metastable_over_T(c, y, kMetastableMove);
    const std::optional<Equilibrium>& e = c.at_p;
    bool crossed = !e;
    Steps loop = Steps::clamped(c.x_max, lower_temperature(c), -c.dx);
    for (double x; loop.next(x);) {
        double T = x / c.T_factor;
        if (!(T > 0) || !c.is_real_at_T(T)) continue;
        if (!crossed && std::fabs(x - e->T * c.T_factor) < c.dx) {
            crossed = true;
            if (add_tie_line(c, y, e->T * c.T_factor, *e, c.p)) T = e->T - kBelowEdge;
        }
        add_at(c, y, T * c.T_factor, T, c.p, c.stable_volume(T, c.p), c.p);
    }
    c.sort_by_x();
}

/// Isobars that do not place the ends of the tie-line.
template <class Y>
void plain_isobar(CurveFrame& c, Y y) {
    Steps loop = Steps::plain(c.x_max, c.x_min, -c.dx);
    for (double x; loop.next(x);) {
        const double T = x / c.T_factor;
        if (!(T > 0) || !c.is_real_at_T(T)) continue;
        const auto v = c.stable_volume(T, c.p);
        if (!v) continue;
        if (const Ordinate value = y(c, T, c.p, *v)) c.add(x, *value, c.p);
    }
}

/// Along the isochore of the request, until the pressure of the EOS falls to 0.
template <class Y>
void isochore(CurveFrame& c, Y y) {
    Steps loop = Steps::clamped(c.x_max, c.x_min, -c.dx);
    for (double x; loop.next(x);) {
        const double T = x / c.T_factor;
        if (!(T > 0)) break;
        if (!c.is_real_at_T(T)) continue;
        const auto p = c.pressure(T, c.v);
        if (!p) continue;
        if (*p <= 0) break;
        add_at(c, y, x, T, *p, c.v, c.v);
    }
    c.sort_by_x();
}

// ---- the walk along an isotherm over p

template <class Y>
void metastable_over_p(CurveFrame& c, Y y) {
    const std::optional<Equilibrium>& e = c.at_T;
    if (!e) return;
    add_at(c, y, e->p * c.p_factor, c.T, e->p, e->vL, c.T);
    double last = e->p * c.p_factor;
    Poles poles(y.has_poles());
    Steps loop = Steps::plain(e->vL, e->vV, (e->vV - e->vL) / kVolumeSteps);
    for (double v; loop.next(v);) {
        const double p = models::cubic_pressure(e->state, c.T, v);
        if (poles.passed(models::cubic_slope(e->state, c.T, v))) c.add_gap();
        // The caloric functions take ln p: there is no value on the part under tension.
        if (!(p > 0) || std::fabs(p * c.p_factor - last) < kMetastableMove * c.dx) continue;
        add_at(c, y, p * c.p_factor, c.T, p, v, c.T);
        last = p * c.p_factor;
    }
    add_at(c, y, e->p * c.p_factor, c.T, e->p, e->vV, c.T);
}

template <class Y>
void isotherm_with_crossing(CurveFrame& c, Y y) {
    if (c.metastable() && c.at_T) return metastable_over_p(c, y);
    const std::optional<Equilibrium>& e = c.at_T;
    const bool ends = c.partial_gas() && c.subcritical_T() && c.pLV_correlated;
    const double upper = ends ? *c.pLV_correlated * c.p_factor : c.x_max;
    const double lower = c.x_min > 0 ? c.x_min : 0.1 * c.p_factor;
    bool crossed = !e;
    Steps loop = Steps::clamped(upper, lower, -c.dx);
    for (double x; loop.next(x);) {
        double p = x / c.p_factor;
        if (!crossed && std::fabs(x - e->p * c.p_factor) < c.dx) {
            crossed = true;
            if (add_tie_line(c, y, e->p * c.p_factor, *e, c.T))
                p = std::fmax(e->p - kBelowEdge, 0.5 * e->p);
        }
        add_at(c, y, p * c.p_factor, c.T, p, c.stable_volume(c.T, p), c.T);
    }
}

// ---- the walk along an isotherm over v

double positive_pressure(double p) {
    constexpr double kInsteadOfTension = 0.01;
    return p > 0 ? p : kInsteadOfTension;
}

template <class Y>
void add_over_v(CurveFrame& c, Y y, double v) {
    const auto p = c.pressure(c.T, v);
    if (!p) return;
    const double positive = positive_pressure(*p);
    if (const Ordinate value = y(c, c.T, positive, v)) c.add(v * c.v_factor, *value, positive);
}

template <class Y>
void isotherm_over_v(CurveFrame& c, Y y) {
    const std::optional<Equilibrium>& e = c.at_T;
    const double step = 0.5 * c.dx;
    if (c.metastable() && e) {
        const double low = e->vL * c.v_factor, high = e->vV * c.v_factor;
        Steps loop = Steps::clamped(low, high, std::fmax(step, (high - low) / kVolumeSteps));
        for (double x; loop.next(x);) add_over_v(c, y, x / c.v_factor);
        return;
    }
    const double covolume = c.vapour_only() ? 0 : models::eos_at(c.fluid, c.T).b;
    Steps loop = Steps::clamped(c.x_min, c.x_max, step);
    for (double x; loop.next(x);) {
        const double v = x / c.v_factor;
        if (v <= covolume) continue;
        if (e && v > e->vL && v < e->vV) continue;
        add_over_v(c, y, v);
    }
    if (!e) return;
    for (const double v : {e->vL, e->vV})
        if (const Ordinate value = y(c, c.T, e->p, v)) c.add(v * c.v_factor, *value, e->p);
    c.sort_by_x();
}

/// |cV|: the value of a metastable state may be negative.
struct MagnitudeOrdinate {
    CaloricOrdinate inner;

    Ordinate operator()(const CurveFrame& c, double T, double p, double v) const {
        const Ordinate value = inner(c, T, p, v);
        if (!value) return value;
        return std::fabs(*value);
    }
};

}  // namespace

void functions_of_T(CurveFrame& c) {
    const CaloricOrdinate y{function_of(c.axes.y).value()};
    if (c.diagram.section == Section::isochoric) return isochore(c, y);
    isobar_with_crossing(c, y);
}

void functions_of_p(CurveFrame& c) {
    isotherm_with_crossing(c, CaloricOrdinate{function_of(c.axes.y).value()});
}

void functions_of_v(CurveFrame& c) {
    const CaloricOrdinate y{function_of(c.axes.y).value()};
    if (y.function == Function::cv) return isotherm_over_v(c, MagnitudeOrdinate{y});
    isotherm_over_v(c, y);
}

void heat_capacity(CurveFrame& c) {
    const HeatCapacityOrdinate y;
    if (c.metastable() && c.at_p) return metastable_over_T(c, y, 1.0);
    plain_isobar(c, y);
}

void joule_thomson(CurveFrame& c) {
    plain_isobar(c, JouleThomsonOrdinate{});
}

namespace {

ResidualOrdinate residual_ordinate(const CurveFrame& c) {
    return {residual_of(c.axes.y).value_or(models::ResS)};
}

}  // namespace

void residual_of_T(CurveFrame& c) {
    isobar_with_crossing(c, residual_ordinate(c));
}

void residual_of_p(CurveFrame& c) {
    isotherm_with_crossing(c, residual_ordinate(c));
}

}  // namespace quor::diagrams
