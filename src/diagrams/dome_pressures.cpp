#include "diagrams/dome_pressures.h"

#include <cmath>

namespace quor::diagrams {

double end_of_dome(const CurveFrame& c) {
    const auto triple = static_cast<double>(c.substance.ptriple);
    const bool real_only = c.real_range_only();
    return real_only && triple < c.substance.pcrit ? triple : 0;
}

DomeFoot foot_of_dome(const CurveFrame& c, double lowest, double next) {
    const double end = end_of_dome(c);
    const double foot = end > lowest && end < next ? end : lowest;
    DomeFoot pressures{};
    const double ratio = std::log(next / foot) / static_cast<double>(kFootPoints);
    for (std::size_t i = 0; i < kFootPoints; ++i)
        pressures[i] = i == 0 ? foot : foot * std::exp(ratio * static_cast<double>(i));
    return pressures;
}

}  // namespace quor::diagrams
