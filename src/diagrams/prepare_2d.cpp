#include "diagrams/prepare_2d.h"

#include "common/constants.h"
#include "diagrams/bounded.h"

namespace quor::diagrams {

namespace {

using constants::kPresent;

void begin_at_critical_point(DiagramStart& start, const Basis& basis) {
    const models::SubstanceRecord& s = basis.fluid.substance();
    start.at.T = s.Tcrit;
    start.limits.T_max = bounded_single(s.Tcrit * 1.1 * basis.T_factor());
    start.limits.p_max = bounded_single(s.pcrit * 1.6 * basis.p_factor());
}

double first_volume(const models::Fluid& fluid) {
    constexpr double kWithoutData = 2.0;
    if (fluid.eos().vcrit_calculated >= kPresent) return fluid.eos().vcrit_calculated;
    return fluid.substance().vcrit_measured >= kPresent ? fluid.substance().vcrit_measured
                                                        : kWithoutData;
}

void settle_parameters(DiagramStart& start, const Diagram& diagram, const Basis& basis) {
    const models::SubstanceRecord& s = basis.fluid.substance();
    if (start.new_substance) begin_at_critical_point(start, basis);
    if (start.new_substance || start.at.p == s.pcrit) {
        start.at.v = 0;
        start.at.p = diagram.starts_at_normal_pressure ? constants::kNormalPressure : s.pcrit;
    }
    start.new_substance = false;
    if (start.at.v < kPresent) start.at.v = first_volume(basis.fluid);
}

}  // namespace

PreparedDiagram prepare_diagram(const Diagram& diagram, const Basis& basis, DiagramStart start) {
    settle_parameters(start, diagram, basis);
    const ProposedWindow proposed = proposed_window(diagram, basis, start.limits);
    return {{.diagram = &diagram,
             .proposed = proposed.window,
             .window = proposed.window,
             .texts = texts_of(diagram, basis, proposed.validity),
             .validity = proposed.validity},
            start};
}

DiagramInput input_of(const Diagram& diagram) {
    if (diagram.section == Section::database) return DiagramInput::validity;
    if (diagram.section == Section::projection) return DiagramInput::none;
    return diagram.axis_pair == "yy" ? DiagramInput::range : DiagramInput::parameter;
}

std::string view_caption(const DiagramRequest& request) {
    return " Type of Diagram: " + request.texts.title;
}

}  // namespace quor::diagrams
