#pragma once

#include <optional>
#include <string>

#include "calculation/calc_batch.h"
#include "calculation/list_layout.h"
#include "calculation/result_text.h"
#include "models/saturation.h"
#include "models/state_solver.h"

/// Inside of `CalcBatch`: what one call works on, and the steps that its modes share.
namespace quor::calculation {

/// A phase of the calculated state; a volume or density of 0 means that there is none.
struct PhaseState {
    bool exists = false;
    double v = 0;    ///< m^3/kmol
    double rho = 0;  ///< kg/m^3
};

/// One call of `CalcBatch`.
struct Job {
    CalcCall& call;
    calculation::BatchDataSet input;
    ListBuilder list = {};
    calculation::ResultRecord record = {};
    double T = 0;  ///< K, 0 as long as unknown
    double p = 0;  ///< kPa, 0 as long as unknown
    PhaseState L = {}, V = {};
    std::int16_t Roots = 0;
    std::string stateText = {};  ///< what the state solver says
    bool error = false;          ///< the error flag
    bool leave = false;          ///< the routine ends at once, without its common end

    std::int16_t mode() const { return call.Mode; }
    double rho() const { return static_cast<double>(input.rhoV); }  ///< given density, kg/m^3
};

/// Element `index` of the data, an empty set beyond them.
calculation::BatchDataSet data_set(std::int16_t index);

// Input. Each tells in red what is missing, sets the error flag and returns false.

/// T of the data set into the job and `Fu`(0); may remark on T below the triple point.
bool fetch_t(Job& job);
/// p of the data set into the job and `Fu`(1).
bool fetch_p(Job& job);
/// The density of the data set.
bool fetch_rho(Job& job);

// Texts.

std::string temperature_text(double T);  ///< "T = 300.000 K"
std::string pressure_text(double p);     ///< "p = 101.325 kPa"
std::string density_text(double rho);    ///< "rho = 1.25 kg/m^3"
/// " (E-1)" for a solver's status.
std::string error_code(Status status);

/// The error report: the error flag, a red message in the list and the end of the mode's work.
void report_calc_error(Job& job, const std::string& text);

// Results.

/// A finite value into `Fu`, or the fault "Overflow".
void store_fu(Job& job, std::size_t index, double value);
/// Phases, volumes and densities of the job from a solution of `SolveStateTP`.
void take_state(Job& job, const models::StateTP& state);
/// `SolveStateTP` at T and p of the job; a failure goes to the error report.
bool solve_state(Job& job);
/// The volumes of a saturation state; at the critical point those of the model.
struct SaturationVolumes {
    double vL = 0, vV = 0;  ///< m^3/kmol
};
SaturationVolumes volumes_of(const models::Saturation& saturation);
/// A phase with v and the density that belongs to it.
PhaseState phase_at(double v);
/// The L phase by Benson's method or the database equation, as the session chooses, with the
/// heading that says so. Does nothing without a valid second reference point or a V volume.
void add_partial_phases(Job& job, double vV);
/// The record of the last state, for the diagnosis.
void keep_last_state(Job& job);
/// Lines with density and volume of both phases; also `Fu`(9) and `Fu`(19).
void density_lines(Job& job);
/// State, p and densities of the job into its result record; also `Fu`(1).
void store_record(Job& job);

// The work of the modes; each file of modes holds its own.

void given_t_rho(Job& job);               ///< 1, 2, 9, 10
void given_tp(Job& job);                  ///< 3
void given_p_rho(Job& job);               ///< 13
void equilibrium_state(Job& job);         ///< 4, 5
void enthalpy_of_vaporisation(Job& job);  ///< 6, 7
void caloric_functions(Job& job);         ///< 8
void VirialCoefficients(Job& job);        ///< 11
void polytropic_process(Job& job);        ///< 12
void DatabaseFunction(Job& job);          ///< 14 to 22, 24
void no_function(Job& job);               ///< 23

/// Pages of derivatives, residual and caloric functions as the session asks for them.
void ExtendedPages(Job& job);

}  // namespace quor::calculation
