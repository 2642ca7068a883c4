#pragma once

#include <string>

#include "calculation/iso_search.h"
#include "report/quantity_text.h"
#include "report/result.h"

namespace quor::report {

/// Label of `lblFuConst`: "V  = ", "H  = ", ...
const char* iso_label(calculation::IsoFunction function);
/// Element of `ResultNumbers` that holds a function of the L or the V phase.
std::size_t iso_position(calculation::IsoFunction function, bool liquid);

/// What a function is measured in.
Dimension iso_dimension(calculation::IsoFunction function);

/// What a calculation of caloric functions at T/K and p/kPa asks for.
calculation::Request functions_request(double T, double p);

/// What `IsoCalculatorView` shows and keeps: from a calculated state it holds one function of a
/// phase constant, takes a new T or p and finds the other. It belongs to the fluid, the reference
/// state and the units of the state that it was opened with.
class IsoCalculator {
  public:
    IsoCalculator() = default;
    /// Over the state at T/K and p/kPa, of which `state` is the result.
    IsoCalculator(TaskResult state, calculation::IsoFunction function, calculation::IsoGiven given);

    /// Clicks of `OptIsoFu`, `optIsoPhase` and `optIsoTp`.
    void choose_function(calculation::IsoFunction function);
    void choose_phase(bool liquid);
    void choose_given(calculation::IsoGiven given);
    /// `cmdCalc` with the texts of the view's two input fields. False without a solution.
    bool calculate(const std::string& constant, const std::string& given);
    /// `cmdReset`: back to the last successful calculation. False without one.
    bool reset();

    /// Tells the last state in other units; nothing is calculated. What was typed stays as it was
    /// typed: its fields convert it.
    void tell_in(const models::UnitChoice& choice);

    /// "Last state: T = 300 K,  p = 101.325 kPa".
    std::string state_text() const;
    /// What the field of the given value is measured in.
    Dimension given_dimension() const;
    const models::Units& units() const { return last_.made.units; }

    /// The last state that was found.
    const TaskResult& last() const { return last_; }
    double last_T() const { return last_.request.given.T; }
    double last_p() const { return last_.request.given.p; }

    calculation::IsoFunction function = calculation::IsoFunction::V;
    bool liquid = false;                                     ///< `optIsoPhase`
    calculation::IsoGiven given = calculation::IsoGiven::p;  ///< `optIsoTp`
    std::string constant_label;
    std::string given_label, sought_label;  ///< of `txtTpVorgabe` and `txtTpCalc`
    std::string constant_text, given_text, sought_text;

  private:
    void refill();
    void label();
    void seek();

    TaskResult last_;
};

/// The state at T and p where the function of the phase has the target value in the units of
/// `made`; the given of T and p stays, the other is found from its start. Nothing without one.
std::optional<TaskResult> iso_solve(const Made& made, calculation::IsoSearch search);

}  // namespace quor::report
