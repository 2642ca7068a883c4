#include "diagrams/curve_kinds.h"
#include "diagrams/database_functions.h"

namespace quor::diagrams {

void database_function(CurveFrame& c) {
    Steps loop = Steps::plain(c.xMin, c.xMax, c.dX);
    for (double x; loop.next(x);)
        if (const auto y = database_value(c.diagram, c.basis, x / c.TF)) c.add(x, *y, 0);
}

}  // namespace quor::diagrams
