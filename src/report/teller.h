#pragma once

#include "report/list_layout.h"
#include "report/report.h"

/// Inside of `report`: the report that grows, and the parts that several tasks share.
namespace quor::report {

struct Teller {
    const Made& made;
    const calculation::Request& request;
    const calculation::Answer& answer;
    Report out = {};
    ListBuilder list = {};

    const models::Fluid& fluid() const { return made.fluid; }
    const models::SubstanceRecord& substance() const { return made.fluid.substance(); }
    const models::ModelSelection& models() const { return made.fluid.models(); }
    const models::Units& units() const { return made.units; }
    double M() const { return static_cast<double>(substance().M); }
    bool failed(calculation::Reason reason) const { return answer.reason == reason; }
};

// Texts.

std::string temperature_text(double T);  ///< "T = 300.000 K"
std::string pressure_text(double p);     ///< "p = 101.325 kPa"
std::string density_text(double rho);    ///< "rho = 1.25 kg/m^3"
/// " (E-1)" for a solver's status.
std::string error_code();

/// The message of a failure in the list, in red.
void calculation_error(Teller& t, const std::string& text);
/// Says in red which given value is missing. False when none is.
bool tell_missing(Teller& t);
/// Lines with density and volume of both phases.
void density_lines(Teller& t);

/// The table of eleven functions with a column for each phase.
void function_table(Teller& t, const calculation::FunctionPair& pair);
/// Label of a caloric quantity in a caloric unit: "h/ (kJ/kmol) " and the like.
const char* caloric_label(calculation::Function function, models::CaloricUnit unit);

/// A function in the units of a result.
double scaled(const models::Units& units, const calculation::FunctionValues& values,
              calculation::Function function);

// The words of the tasks.

void tell_given_t_rho(Teller& t);
void tell_tank(Teller& t);
void tell_given_tp(Teller& t);
void tell_given_p_rho(Teller& t);
void tell_equilibrium(Teller& t);
void tell_vaporisation(Teller& t);
void tell_functions(Teller& t);
void tell_virial(Teller& t);
void tell_process(Teller& t);
void tell_database_function(Teller& t);
/// The pages that were asked for.
void tell_pages(Teller& t);
/// Lines of the content of a tank.
void tank_lines(Teller& t, const calculation::TankContent& content);

}  // namespace quor::report
