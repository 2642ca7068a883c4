#pragma once

#include "diagrams/curve_frame.h"

namespace kurve {

/// Finds states of a given entropy or enthalpy. The functions are those of the stable phase.
class IsolineSearch {
  public:
    IsolineSearch(const Curve& curve, Function function) : c_(curve), function_(function) {}

    /// T/K at p/kPa where the function has a molar value, near a start; 0 when there is none: the
    /// value may lie between those of both phases.
    double temperature(double p, double value, double startT) const;

    /// p/kPa at T/K, the solution nearest to a start; 0 when there is none.
    double pressure(double T, double value, double startP) const;

  private:
    std::optional<double> at(double T, double p) const;

    const Curve& c_;
    Function function_;
};

}  // namespace kurve
