#pragma once

#include "report/function_values.h"
#include "report/list_layout.h"
#include "report/quantity_text.h"
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

/// A value by a mask with its unit behind it: "300.000 K".
std::string with_unit(const Teller& t, Dimension dimension, double value, std::string_view mask);
std::string temperature_text(const Teller& t, double T);  ///< "T = 300.000 K"
std::string pressure_text(const Teller& t, double p);     ///< "p = 101.325 kPa"
std::string density_text(const Teller& t, double rho);    ///< "rho = 1.25 kg/m^3"
/// "1.25 kPa": by a mask, a small one as a 32-bit value.
std::string pressure_with_unit(const Teller& t, double p, std::string_view mask);
/// Label of a density and a volume in the list: "v/ (m^3/kmol)  = ".
std::string density_label(const Teller& t);
std::string volume_label(const Teller& t);
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
/// Label of a caloric quantity in its unit: "h/ (kJ/kmol) " and the like.
std::string caloric_label(const models::Units& units, calculation::Function function);

/// Tells which functions are missing and why.
void tell_missing_functions(Teller& t, const calculation::FunctionPair& pair);
/// A vapour pressure of the database in the unit of a result, in reduced units divided by the
/// critical one.
double computed_pressure(const models::Units& units, double p);
/// A function in the units of a result, if it is known.
std::optional<double> scaled(const models::Units& units, const calculation::FunctionValues& values,
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
