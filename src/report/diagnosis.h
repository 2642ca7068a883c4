#pragma once

#include <string>
#include <vector>

#include "calculation/isotherm.h"

namespace quor::report {

/// A root of the cubic EOS at T and p, as a row of `DiagnosisView` and as a mark on the isotherm.
struct RootRow {
    std::string caption;  ///< "v(1) ="
    std::string value;    ///< general format of the 32-bit value, with its unit
    std::string note;     ///< "(stable, L-phase)" and the like
    double v = 0;         ///< m^3/kmol
    bool stable = false;
};

/// What `DiagnosisView` shows of a state.
struct Diagnosis : calculation::Isotherm {
    std::string title;  ///< of the view
    std::vector<RootRow> roots;
};

/// The diagnosis of a state of a cubic EOS; without roots when there is none.
Diagnosis diagnose(const models::Fluid& fluid, const calculation::LastState& last);

}  // namespace quor::report
