#include "report/calculation_state.h"

namespace quor::report {

using calculation::Request;

namespace {

Request request_of(const CalculationState& state) {
    Request request;
    request.task = state.task;
    request.method = state.method;
    request.pages = state.pages;
    return request;
}

}  // namespace

std::string substance_key(const models::Fluid& fluid) {
    return fluid.substance().casrn + fluid.substance().name;
}

Request direct_request(const CalculationState& state, const calculation::Tank& tank) {
    Request request = request_of(state);
    const DirectValues& typed = state.direct;
    // What a user types for a liquid stands in the one field of a density.
    request.given = {.skip = 0,
                     .T = typed.T,
                     .p = typed.p,
                     .rhoV = typed.rho,
                     .rhoL = typed.rho,
                     .hLV = 0,
                     .cp = 0};
    request.tank = tank;
    return request;
}

Request measured_request(const CalculationState& state, const calculation::BatchDataSet& set) {
    Request request = request_of(state);
    request.given = set;
    request.measured = true;
    return request;
}

}  // namespace quor::report
