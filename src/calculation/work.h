#pragma once

#include "calculation/calculate.h"
#include "models/saturation.h"
#include "models/state_solver.h"

/// Inside of `Calculator`: what one calculation works on, and the steps that its tasks share.
namespace quor::calculation {

struct Work {
    const Calculator& calculator;
    const Request& request;
    BatchDataSet given = request.given;
    Answer answer = {};
    models::Saturation saturation = {};  ///< of the equilibrium that was found last
    std::array<double, 3> roots = {};    ///< of the last state solved

    const models::Fluid& fluid() const { return calculator.fluid(); }
    const models::SubstanceRecord& substance() const { return fluid().substance(); }
    const models::ModelSelection& models() const { return fluid().models(); }
    double M() const { return static_cast<double>(substance().M); }
    double rho() const { return static_cast<double>(given.rhoV); }  ///< given density, kg/m^3
};

/// Ends the work of the task with a reason. False, so that it can be returned.
bool fail(Work& work, Reason reason);

// Input. Each gives the reason when its value is missing and returns false.

bool fetch_t(Work& work);  ///< may remark on T below the triple point
bool fetch_p(Work& work);
bool fetch_rho(Work& work);

/// A remark on a temperature far outside the range of an equation.
void note_range(Work& work, Note::Kind kind, int deviation);

// Results.

/// Phases and roots from a solution.
void take_state(Work& work, const models::StateTP& state);
/// The state at T and p; nothing after a failure. Its volumes also tell of phases that are not
/// stable.
std::optional<models::StateTP> solve_state(Work& work);
/// The volumes of a saturation state; at the critical point those of the model.
struct SaturationVolumes {
    double vL = 0, vV = 0;  ///< m^3/kmol
};
SaturationVolumes volumes_of(const models::Fluid& fluid, const models::Saturation& saturation);
/// A phase with v and the density that belongs to it.
Phase phase_at(const Work& work, double v);
/// The phases that a solution has, stable or not.
Phase liquid_of(const models::StateTP& state);
Phase vapour_of(const models::StateTP& state);
/// The V phase of that volume, and the L phase by Benson's method or the database equation. Does
/// nothing without a second reference point or a V volume.
void add_partial_phases(Work& work, std::optional<double> vV);
/// The state for the diagnosis.
void keep_last_state(Work& work);
/// Functions of the phases that have a volume.
FunctionPair functions_of(const Work& work, const Phases& phases);

/// Second virial coefficient of the active equation, m^3/kmol.
double active_virial(const Work& work);

// The work of the tasks.

void given_t_rho(Work& work);
void given_tp(Work& work);
void given_p_rho(Work& work);
void equilibrium_state(Work& work);
void enthalpy_of_vaporisation(Work& work);
void caloric_functions(Work& work);
void virial_coefficients(Work& work);
void polytropic_process(Work& work);
void database_function(Work& work);

/// The pages that were asked for.
void add_pages(Work& work);

// The tank.

/// V, m and T of the request as T and a density.
bool fetch_tank(Work& work);
/// The partial method: V density from the EOS, L density by Benson's method or the database
/// equation, p from the vapour pressure equation.
bool partial_tank(Work& work);
/// Content of a tank whose phases the EOS has found.
TankContent content_of_tank(const Work& work);

}  // namespace quor::calculation
