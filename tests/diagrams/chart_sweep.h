#pragma once

#include <map>
#include <string>
#include <vector>

#include "diagrams/state_chart.h"
#include "models/fluid.h"

using namespace quor;

/// All charts of fluids, checked vertex by vertex against the functions of states and saturation,
/// which know nothing of charts.
namespace chart_sweep {

/// What came out, in numbers.
struct Counts {
    long fluids = 0, charts = 0, lines = 0, vertices = 0, crossings = 0, probes = 0;
    std::map<std::string, long> refused;    ///< charts that a fluid cannot have, by the reason told
    std::map<std::string, long> skipped;    ///< by the reason told
    std::map<std::string, long> failed_by;  ///< by what is wrong
    std::vector<std::string> failures;      ///< the first of them in words
    long failed = 0;
    double worst_probe = 0;     ///< largest distance of a line from its chord, px
    double worst_property = 0;  ///< largest difference of a property from its line's
    double narrowest_dome = 1, widest_dome = 0;  ///< shares of the width, where x is h or s

    void fail(const std::string& kind, const std::string& where);
};

/// All charts of one fluid in these units.
void sweep(const models::Fluid& fluid, const std::string& name, const models::UnitChoice& units,
           Counts& counts);

/// All substances of the table by van der Waals, Redlich/Kwong, Soave and Peng/Robinson; every
/// `stride`-th substance from `first`.
void sweep_all(std::size_t first, std::size_t stride, Counts& counts);

/// Counts as lines for a reader.
std::string told(const Counts& counts);

}  // namespace chart_sweep
