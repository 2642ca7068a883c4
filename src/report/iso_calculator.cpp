#include "report/iso_calculator.h"

#include "common/numbers.h"
#include "common/text.h"
#include "report/teller.h"

namespace quor::report {

using calculation::IsoFunction;
using calculation::IsoGiven;

namespace {

constexpr const char* kLabels[] = {
    "V  = ", "H  = ", "S  = ", "G  = ", "U  = ", "A  = ", "E(H)=", "E(U)="};

std::string text_of(double value) {
    return numbers::general(static_cast<float>(value));
}

std::string text_of(const models::Units& units, Dimension dimension, double value) {
    return text_of(shown(units, dimension, value));
}

/// What is given, or sought.
Dimension of_T(bool T) {
    return T ? Dimension::temperature : Dimension::pressure;
}

/// The told labels stand on their own as long as the unit is none of the user's choice.
std::string label_of(const models::Units& units, bool T, const char* told) {
    if (!units.has_own(of_T(T))) return told;
    return (T ? "T/" : "p/") + unit_name(units, of_T(T)) + " =";
}

constexpr auto kNotFound = "No solution found";

TaskResult result_at(const Made& made, double T, double p) {
    return make_result(made.fluid, made.reference, made.units.choice, functions_request(T, p));
}

}  // namespace

Dimension iso_dimension(IsoFunction function) {
    return dimension_of(calculation::function_of(function));
}

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
    search.target = made.units.of(iso_dimension(search.function)).value(search.target);
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
    constant_text = text_of(last_.numbers[iso_position(function, liquid)]);
    given_text = text_of(units(), of_T(given_T), given_T ? last_T() : last_p());
    label();
    seek();
}

void IsoCalculator::label() {
    const bool given_T = given == IsoGiven::T;
    constant_label = iso_label(function);
    if (has_own_units(units()))
        constant_label = text::trim(constant_label.substr(0, constant_label.find('='))) + "/(" +
                         unit_name(units(), iso_dimension(function)) + ") =";
    given_label = label_of(units(), given_T, given_T ? "  T/K =" : "p/kPa =");
    sought_label = label_of(units(), !given_T, given_T ? "p/kPa = " : "T/K =");
}

void IsoCalculator::seek() {
    const bool given_T = given == IsoGiven::T;
    sought_text = text_of(units(), of_T(!given_T), given_T ? last_p() : last_T());
}

Dimension IsoCalculator::given_dimension() const {
    return of_T(given == IsoGiven::T);
}

std::string IsoCalculator::state_text() const {
    return "Last state: T = " + text_of(units(), Dimension::temperature, last_T()) + " " +
           unit_name(units(), Dimension::temperature) +
           ",  p = " + text_of(units(), Dimension::pressure, last_p()) + " " +
           unit_name(units(), Dimension::pressure);
}

void IsoCalculator::tell_in(const models::UnitChoice& choice) {
    const std::string constant = constant_text, typed = given_text, sought = sought_text;
    refill();
    const bool own_constant = constant != constant_text, own_given = typed != given_text,
               no_state = sought != sought_text;
    last_ = told_in(last_, choice);
    refill();
    if (own_constant) constant_text = constant;
    if (own_given) given_text = typed;
    if (no_state) sought_text = sought;
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
        (given == IsoGiven::T ? search.T : search.p) = units().of(given_dimension()).value(*at);
        found = iso_solve(last_.made, search);
    }
    if (!found || found->failed()) {
        sought_text = kNotFound;
        return false;
    }
    last_ = std::move(*found);
    seek();
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
