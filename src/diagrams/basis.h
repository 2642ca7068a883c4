#pragma once

#include "models/fluid.h"
#include "models/reference_record.h"
#include "models/units.h"

namespace quor::diagrams {

/// What the values of a diagram rest on: a fluid, the zero of h and s with the surroundings of the
/// exergies, and the units in which they are shown. Kept by value with everything that is drawn.
struct Basis {
    models::Fluid fluid{};
    models::ReferenceState reference{};
    models::Units units{};
    models::BensonPoint benson{};  ///< for the heat of vaporisation by Benson's method; zeros: none

    /// Factor of caloric values at T/K. Throws `faults::Fault` where the unit cannot be had.
    double caloric(double T) const {
        return models::caloric_factor(units.choice.caloric, T, fluid.substance());
    }
    double T_factor() const { return static_cast<double>(units.T); }
    double p_factor() const { return static_cast<double>(units.p); }
    double v_factor() const { return units.v; }
    double M() const { return static_cast<double>(fluid.substance().M); }
};

/// T/K, p/kPa and v in m^3/kmol of a curve, of which its kind uses those that it holds constant.
struct StateParameters {
    double T = 0, p = 0, v = 0;

    bool operator==(const StateParameters&) const = default;
};

}  // namespace quor::diagrams
