#include "diagrams/curve_kinds.h"
#include "diagrams/database_functions.h"

namespace quor::diagrams {

void database_function(CurveFrame& c) {
    Steps loop = Steps::plain(c.x_min, c.x_max, c.dx);
    for (double x; loop.next(x);)
        if (const auto y = database_value(c.diagram, c.basis, x / c.T_factor)) c.add(x, *y, 0);
}

}  // namespace quor::diagrams
