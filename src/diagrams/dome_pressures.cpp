#include "diagrams/dome_pressures.h"

#include <cmath>

namespace kurve {

DomeFoot foot_of_dome(const Curve& c, double lowest, double next) {
    const auto triple = static_cast<double>(c.substance.ptriple);
    const bool endsAtTriple = Declare::session.CurveRealRangeOnly && c.fluid.models.EOSModel > 0;
    double foot = lowest;
    if (endsAtTriple && triple > lowest && triple < next) foot = triple;
    DomeFoot pressures{};
    const double ratio = std::log(next / foot) / static_cast<double>(kFootPoints);
    for (std::size_t i = 0; i < kFootPoints; ++i)
        pressures[i] = i == 0 ? foot : foot * std::exp(ratio * static_cast<double>(i));
    return pressures;
}

}  // namespace kurve
