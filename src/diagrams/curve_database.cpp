#include "diagrams/catalogue.h"
#include "diagrams/curve_kinds.h"
#include "diagrams/database_functions.h"

namespace quor::diagrams {

void database_function(Curve& c) {
    const std::int16_t code = c.request.DiagramType;
    c.request.sectionKind = Module9::kDatabase;
    c.request.axisPair = Module9::pressure_equation_of(code).empty() ? "yT" : "pT";
    if (code == 300 || code == 301 || code == 310) {
        const Module9::Validity validity = Module9::validity_of(code);
        c.request.validityLow = static_cast<float>(validity.low);
        c.request.validityHigh = static_cast<float>(validity.high);
    }
    Steps loop = Steps::plain(c.xMin, c.xMax, c.dX);
    for (double x; loop.next(x);)
        if (const auto y = Module9::database_value(code, x / c.TF)) c.add(x, *y, 0);
}

}  // namespace quor::diagrams
