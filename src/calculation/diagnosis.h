#pragma once

#include <string>
#include <vector>

namespace quor::calculation {

/// A point of the p-v isotherm: m^3/kmol and kPa.
struct IsothermPoint {
    double v = 0, p = 0;
};

/// A root of the cubic EOS at T and p, as a row of `DiagnosisView` and as a mark on the isotherm.
struct RootRow {
    std::string caption;  ///< "v(1) ="
    std::string value;    ///< general format of the 32-bit value, with its unit
    std::string note;     ///< "(stable, L-phase)" and the like
    double v = 0;         ///< m^3/kmol
    bool stable = false;
};

/// What `DiagnosisView` shows of the last state.
struct Diagnosis {
    std::string title;    ///< of the view
    double T = 0, p = 0;  ///< K, kPa
    std::vector<RootRow> roots;

    /// The isotherm at T, ascending in v and evenly spaced in log(v); one curve without gaps.
    std::vector<IsothermPoint> isotherm;
    /// Below Tcrit: p(LV) and the two areas between isotherm and p(LV), each a closed polygon;
    /// equal by Maxwell's rule. Empty above Tcrit.
    double saturationPressure = 0;
    std::vector<IsothermPoint> areaBelow;  ///< between the L and the middle volume
    std::vector<IsothermPoint> areaAbove;  ///< between the middle and the V volume
    /// Limits of p that show the loop and the given p well, kPa.
    double pMin = 0, pMax = 0;
};

/// The diagnosis of `legacy::the_lastState` with the active cubic EOS; empty without a state.
Diagnosis diagnose_last_state();

}  // namespace quor::calculation
