#include "diagrams/active_fluid.h"

#include "diagrams/caloric_functions.h"
#include "support/codes.h"

using namespace quor;

void ActiveFluid::activate(const std::string& name, int code) {
    models::SubstanceRecord& s = substance;
    s = fluids::Row(name);
    models::correlate_august(s);
    for (const std::int16_t index : {std::int16_t{6}, std::int16_t{7}, std::int16_t{8}})
        models::correlate_vapour_pressure(s, codes::vp(index), s.Tcrit, s.pcrit,
                                          static_cast<double>(s.Tboil));

    models::ModelSelection& m = selection;
    m = {};
    m.eos = codes::eos(code);
    m.vapour_only = models::is_v_only(m.eos);
    m.eos_has_priority = !m.vapour_only;
    m.vapour_pressure = codes::vp("WAG");
    m.cp_form = codes::cp(s.has_cp_polynomial ? 1 : s.has_cp_sinh_cosh ? 2 : 0);
    m.vaporisation = codes::hlv(2);
    const models::EosConstants constants = models::eos_constants(s, m);
    eosConstants = constants.power;
    jt = constants.ji_torvik;
    reference.T0 = 298.15F;
    limits = diagrams::coordinate_defaults(basis());
}

void ActiveFluid::set_units(int caloric, int system) {
    units.caloric = static_cast<models::CaloricUnit>(caloric);
    units.system = static_cast<models::UnitSystem>(system);
    limits = diagrams::coordinate_defaults(basis(), limits, true);
}

std::optional<models::StateValues> ActiveFluid::functions(double T, double p, double v) const {
    return diagrams::CaloricFunctions(basis())(T, p, v);
}

double ActiveFluid::pressure(double T, double v) const {
    models::EosState state = models::eos_at(fluid(), T);
    return models::pressure_from_Tv(fluid(), T, v, state).value();
}

diagrams::DiagramRequest ActiveFluid::RequestFor(int code) const {
    const diagrams::Diagram& diagram = diagrams::diagram_of(code);
    const diagrams::ProposedWindow proposed = diagrams::proposed_window(diagram, basis(), limits);
    return {.diagram = &diagram,
            .proposed = proposed.window,
            .window = proposed.window,
            .texts = diagrams::texts_of(diagram, basis(), proposed.validity),
            .validity = proposed.validity};
}

Drawn ActiveFluid::Draw(const diagrams::DiagramRequest& request,
                        const diagrams::StateParameters& at) const {
    // A basis that cannot be had is the fault of the curve.
    diagrams::Basis of{fluid(), reference, {}, {}};
    try {
        of = basis();
    } catch (const std::exception&) {
        of.units.choice = units;
    }
    Drawn drawn;
    drawn.request = request;
    drawn.take(diagrams::curve(of, {.curve = request.diagram,
                                    .window = request.window,
                                    .at = at,
                                    .branch = branch,
                                    .vapour_fraction = vapour_fraction,
                                    .options = options,
                                    .line = process,
                                    .p_min = limits.p_min,
                                    .p_max = limits.p_max}));
    return drawn;
}
