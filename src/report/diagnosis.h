#pragma once

#include <string>
#include <vector>

#include "calculation/isotherm.h"
#include "models/units.h"

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
    std::string title;   ///< of the view
    std::string state;   ///< the model, T and p; empty without roots
    std::string legend;  ///< of the marks and lines
    std::vector<RootRow> roots;
    models::Scale v_axis{.name = "m^3/kmol"}, p_axis{.name = "kPa"};  ///< units of the plot
};

/// The diagnosis of a state of a cubic EOS in the units of its result; without roots when there is
/// none.
Diagnosis diagnose(const models::Fluid& fluid, const calculation::LastState& last,
                   const models::Units& units = {});

}  // namespace quor::report
