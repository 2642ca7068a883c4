#pragma once

#include <optional>

#include "diagrams/curve.h"
#include "diagrams/equilibrium.h"
#include "diagrams/steps.h"
#include "models/caloric.h"
#include "models/state_solver.h"

namespace quor::diagrams {

/// What all kinds of curves share: the request, the units, the window test, the real-range check.
/// All of it is in the units of the computation.
/// A kind of curve adds its points through it.
class CurveFrame {
  public:
    CurveFrame(const Basis& basis_of_curve, const CurveRequest& request_of_curve, CurvePoints room);

    const Basis& basis;
    const CurveRequest& request;
    const Diagram& diagram;  ///< the row that is computed
    const Diagram& axes;     ///< the row whose axes it has
    const models::Fluid& fluid;
    const models::SubstanceRecord& substance;
    const CurveOptions& options;

    Curve result;
    CurvePoints& points;  ///< of the result

    const double T, p, v;  ///< state parameters, K, kPa, m^3/kmol
    const double x_min, x_max, y_min, y_max;
    int steps = 0;                                         ///< points per curve
    double dx = 0, dy = 0;                                 ///< a step in the window
    double T_factor = 1, p_factor = 1, v_factor = 1;       ///< factors of the displayed units
    double M = 0;                                          ///< kg/kmol
    std::optional<double> pLV_correlated, TLV_correlated;  ///< by the vapour pressure equation
    std::optional<Equilibrium> at_T, at_p;                 ///< of the EOS at T and at p

    /// Evaluates what the state parameters fix. May throw `faults::Fault`.
    void prepare();

    /// Adds a point; it clears `outside` when it lies strictly inside the
    /// window, or inside it in one direction only.
    void add(double x, double y, double z);
    void add_tested_by_x(double x, double y, double z);
    void add_tested_by_y(double x, double y, double z);
    /// Interrupts the line behind the last point.
    void add_gap();
    bool outside() const { return outside_; }
    void set_status(CurveStatus status) { result.status = status; }

    /// Real-range check of a step: false when it is to be skipped; a step that is computed below
    /// the triple point sets its status.
    bool is_real_at_T(double temperature);
    bool is_real_at_p(double pressure);
    /// True when nothing below the triple point is drawn.
    bool real_range_only() const {
        return options.real_range_only && models::is_real_gas(fluid.models().eos);
    }

    bool subcritical_T() const { return T < substance.Tcrit; }
    bool subcritical_p() const { return p < substance.pcrit; }
    bool vapour_only() const { return fluid.models().vapour_only; }
    /// The gas part of a V-only curve is all that is wanted.
    bool partial_gas() const { return options.partial_gas && vapour_only(); }
    /// The unstable and metastable branch is wanted.
    bool metastable() const { return request.branch == Branch::metastable; }

    /// Factor of caloric values at T/K.
    double caloric(double temperature) const { return basis.caloric(temperature); }
    /// p of the EOS; nothing where it has none.
    std::optional<double> pressure(double temperature, double volume) const;
    /// Volume of the stable phase at T and p; nothing where the EOS has none.
    std::optional<double> stable_volume(double temperature, double pressure) const;
    /// Caloric values; nothing without a cp form or a state.
    std::optional<models::StateValues> functions(double temperature, double pressure,
                                                 double volume) const;

    /// Ascending in x or y; points with equal values keep their order.
    void sort_by_x();
    void sort_by_y();

  private:
    void push(double x, double y, double z);
    bool below_triple();

    models::ReferenceState reference_;  // settled
    std::optional<models::Surroundings> surroundings_;
    bool outside_ = true;
};

/// The caloric values that axes show.
enum class Function { h, u, s, g, a, eH, eU, cp, cv };

/// A caloric value, or nothing where the state has none: no cp form, no surroundings for an
/// exergy, the pole of cp at the critical point.
std::optional<double> value_of(const std::optional<models::StateValues>& state, Function function);

/// The caloric value that an axis shows, if it shows one.
std::optional<Function> function_of(Axis axis);
/// The column of the residual table that an axis shows.
std::optional<models::Residual> residual_of(Axis axis);

/// f at a vapour fraction between liquid and vapour.
inline double at_fraction(double liquid, double vapour, double fraction) {
    return (vapour - liquid) * fraction + liquid;
}

/// The stable one of the volumes of a state; nothing without a state.
std::optional<double> stable_volume_of(const Result<models::StateTP, models::NoState>& state);

}  // namespace quor::diagrams
