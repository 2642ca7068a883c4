#include "report/iso_calculator.h"

#include "common/numbers.h"

namespace quor::report {

using calculation::IsoFunction;
using calculation::IsoGiven;

namespace {

constexpr const char* kLabels[] = {
    "V  = ", "H  = ", "S  = ", "G  = ", "U  = ", "A  = ", "E(H)=", "E(U)="};

std::string shown(double value) {
    return numbers::general(static_cast<float>(value));
}

TaskResult result_at(const Made& made, double T, double p) {
    return make_result(made.fluid, made.reference, made.units.choice, functions_request(T, p));
}

}  // namespace

const char* iso_label(IsoFunction function) {
    return kLabels[calculation::function_of(function)];
}

std::size_t iso_position(IsoFunction function, bool liquid) {
    return calculation::function_of(function) + (liquid ? kLiquidNumbers : kVapourNumbers);
}

calculation::Request functions_request(double T, double p) {
    calculation::Request request;
    request.task = calculation::Task::functions;
    request.given.T = T;
    request.given.p = p;
    return request;
}

std::optional<TaskResult> iso_solve(const Made& made, calculation::IsoSearch search) {
    search.target /= search.function == IsoFunction::V ? made.units.v : made.units.caloric;
    const calculation::Calculator calculator(made.fluid, made.reference);
    const std::optional<double> x = calculation::solve_iso(calculator, search);
    if (!x) return std::nullopt;
    (search.given == IsoGiven::T ? search.p : search.T) = *x;
    return result_at(made, search.T, search.p);
}

IsoCalculator::IsoCalculator(TaskResult state, IsoFunction constant, IsoGiven specified)
    : function(constant), given(specified), last_(std::move(state)) {
    const calculation::Phases& phases = last_.answer.phases;
    liquid = phases.liquid && !phases.vapour;
    refill();
    sought_text.clear();
}

void IsoCalculator::refill() {
    const bool given_T = given == IsoGiven::T;
    constant_label = iso_label(function);
    given_label = given_T ? "  T/K =" : "p/kPa =";
    sought_label = given_T ? "p/kPa = " : "T/K =";
    constant_text = shown(last_.numbers[iso_position(function, liquid)]);
    given_text = shown(given_T ? last_T() : last_p());
    sought_text = shown(given_T ? last_p() : last_T());
}

void IsoCalculator::choose_function(IsoFunction constant) {
    function = constant;
    refill();
}

void IsoCalculator::choose_phase(bool of_liquid) {
    liquid = of_liquid;
    refill();
}

void IsoCalculator::choose_given(IsoGiven specified) {
    given = specified;
    refill();
}

bool IsoCalculator::calculate(const std::string& constant, const std::string& typed) {
    constant_text = constant;
    given_text = typed;
    // A text that is no number is no 0.
    const std::optional<double> target = numbers::typed_number(constant);
    const std::optional<double> at = numbers::typed_number(typed);
    std::optional<TaskResult> found;
    if (target && at) {
        calculation::IsoSearch search{.given = given,
                                      .function = function,
                                      .liquid = liquid,
                                      .T = last_T(),
                                      .p = last_p(),
                                      .target = *target};
        (given == IsoGiven::T ? search.T : search.p) = *at;
        found = iso_solve(last_.made, search);
    }
    if (!found || found->failed()) {
        sought_text = "No solution found";
        return false;
    }
    last_ = std::move(*found);
    sought_text = shown(given == IsoGiven::T ? last_p() : last_T());
    return true;
}

bool IsoCalculator::reset() {
    TaskResult again = result_at(last_.made, last_T(), last_p());
    if (again.failed()) {
        sought_text = "No solution";
        return false;
    }
    last_ = std::move(again);
    refill();
    return true;
}

}  // namespace quor::report
