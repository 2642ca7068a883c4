#include "report/diagnosis.h"

#include "common/numbers.h"
#include "common/single.h"
#include "report/list_layout.h"

namespace quor::report {

namespace {

constexpr auto kStableL = "(stable, L-phase)", kStableV = "(stable, V-phase)";
constexpr auto kMetastable = "(metastable)", kUnstable = "(unstable)";

/// A volume that 32 bits do not hold stands as it is.
std::string volume_text(double v) {
    return numbers::fits_single(v) ? value32(v) : numbers::general(v);
}

RootRow root_row(int number, double v, const std::string& note) {
    return {"v(" + std::to_string(number) + ") =", volume_text(v) + " m^3/kmol", note, v,
            note.starts_with("(stable")};
}

/// The only root is stable; it has the name that the result gives its state.
RootRow only_root(const calculation::LastState& last) {
    const char* note = last.has_L ? kStableL : kStableV;
    if (last.region == calculation::Region::subcritical) return root_row(1, last.v[0], note);
    return root_row(1, last.v[0], std::string("(stable, ") + region_name(last.region) + ")");
}

std::vector<RootRow> root_rows(const calculation::LastState& last) {
    if (last.root_count < 3) return {only_root(last)};
    return {root_row(1, last.v[0], last.has_L ? kStableL : kMetastable),
            root_row(2, last.v[1], kUnstable),
            root_row(3, last.v[2], last.has_V ? kStableV : kMetastable)};
}

}  // namespace

Diagnosis diagnose(const models::Fluid& fluid, const calculation::LastState& last) {
    Diagnosis d{calculation::isotherm_of(fluid, last), "Cubic Equation of State", {}};
    if (d.T > 0) d.roots = root_rows(last);
    return d;
}

}  // namespace quor::report
