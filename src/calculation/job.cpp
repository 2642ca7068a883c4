#include "calculation/job.h"
#include "legacy/wrappers.h"

#include "calculation/calc_modes.h"
#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "models/cubic_eos.h"
#include "models/density.h"
#include "session/module2.h"

namespace quor::calculation {

using constants::kPresent;
using legacy::the_session;

namespace {

bool missing(Job& job, TextField& field, const char* text) {
    field = {text, true, false};
    job.error = true;
    return false;
}

/// The triple point says nothing about the heat capacity of the solid or of the ideal gas, nor
/// about the density of the solid.
bool remarks_on_triple_point(std::int16_t mode) {
    return mode != 16 && mode != 18 && mode != 24;
}

}  // namespace

calculation::BatchDataSet data_set(std::int16_t index) {
    const auto i = static_cast<std::size_t>(index);
    return index >= 0 && i < legacy::the_BatchData.size() ? legacy::the_BatchData[i]
                                                          : calculation::BatchDataSet{};
}

bool fetch_t(Job& job) {
    if (!(job.input.T >= kPresent)) return missing(job, resultText.par1, "no T in this data set");
    job.T = job.input.T;
    store_fu(job, 0, job.T);
    if (job.T < static_cast<double>(legacy::the_substance.Ttriple) && job.call.Interactive &&
        !legacy::the_models.EOSOnlyV && remarks_on_triple_point(job.mode()))
        dialogs::tell("T < T(TP) (Triple Point)", "Remark");
    return true;
}

bool fetch_p(Job& job) {
    if (!(job.input.p >= kPresent)) return missing(job, resultText.par1, "No p in this data set");
    job.p = job.input.p;
    store_fu(job, 1, job.p);
    return true;
}

bool fetch_rho(Job& job) {
    return job.rho() >= kPresent || missing(job, resultText.par1, "no rho in this data set");
}

std::string temperature_text(double T) {
    return "T = " + numbers::Format(T, "###0.000 K");
}

std::string pressure_text(double p) {
    return "p = " + PressureValue(p, "####0.000", " kPa");
}

std::string density_text(double rho) {
    return "rho = " + numbers::Format(rho, "###0.0###") + " kg/m^3";
}

std::string error_code(Status status) {
    return " (E" + std::to_string(status) + ")";
}

void report_calc_error(Job& job, const std::string& text) {
    constexpr std::size_t kIndent = 25;
    job.error = true;
    job.list.add_red("Message from Sub CalcBatch" + std::string(kIndent, ' ') + text);
}

void store_fu(Job& job, std::size_t index, double value) {
    (*job.call.Results)[index] = faults::finite(value);
}

void take_state(Job& job, const models::StateTP& state) {
    job.L = {state.hasL, state.vL, state.rhoL};
    job.V = {state.hasV, state.vV, state.rhoV};
    job.Roots = state.nRoots;
    job.stateText = state.text;
}

bool solve_state(Job& job) {
    const models::StateTP state = models::SolveStateTP(job.T, job.p);
    if (state.status != kSuccess) {
        report_calc_error(job, error_code(state.status));
        return false;
    }
    take_state(job, state);
    return true;
}

SaturationVolumes volumes_of(const models::Saturation& saturation) {
    if (saturation.T == legacy::the_substance.Tcrit)
        return {legacy::the_eosParameters.vcritCalc, legacy::the_eosParameters.vcritCalc};
    return {saturation.v[0], saturation.nRoots == 3 ? saturation.v[2] : saturation.v[0]};
}

PhaseState phase_at(double v) {
    const auto M = static_cast<double>(legacy::the_substance.M);
    return v > kPresent ? PhaseState{true, v, M / v} : PhaseState{true, 0.0, 0.0};
}

void add_partial_phases(Job& job, double vV) {
    constexpr std::size_t kIndent = 12;
    if (!the_session.BensonReferenceValid || !(vV > kPresent)) return;
    const models::SubstanceRecord& s = legacy::the_substance;
    job.V = phase_at(vV);
    job.L = {true, 0.0, 0.0};
    const double rhoL =
        the_session.LiquidByBenson
            ? models::density_l_benson(job.T, s.Tcrit, s.rhocrit, job.V.rho,
                                       the_session.BensonReference)
            : models::density_l(static_cast<float>(job.T), job.call.Interactive).rho;
    if (faults::finite(rhoL) > kPresent) job.L = {true, static_cast<double>(s.M) / rhoL, rhoL};
    job.list.add(std::string(kIndent, ' ') + (the_session.LiquidByBenson
                                                  ? "by BENSON's method:"
                                                  : "with database equation rho(T):"));
}

void keep_last_state(Job& job) {
    calculation::LastState& last = legacy::the_lastState;
    last.T = job.T;
    last.p = job.p;
    last.v = legacy::the_vRoots;
    last.HasL = job.L.exists;
    last.HasV = job.V.exists;
    last.Roots = job.Roots;
    last.messages[0] = last.messages[1];
    last.messages[1] = job.stateText;
}

void density_lines(Job& job) {
    session::refresh_units();
    const auto density = [](const PhaseState& phase) {
        return phase.exists && phase.rho > 0 ? value32(phase.rho) : std::string();
    };
    const auto volume = [](const PhaseState& phase) {
        return phase.exists && phase.v > 0 ? value32(phase.v * the_session.VolumeFactor)
                                           : std::string();
    };
    job.list.row("density", "rho/ (kg/m^3)  = ", {density(job.L), density(job.V)});
    job.list.row("Volume",
                 "v/ (" + the_session.VolumeLabel + ")  = ", {volume(job.L), volume(job.V)});
    store_fu(job, 9, job.V.exists ? job.V.v * the_session.VolumeFactor : 0.0);
    store_fu(job, 19, job.L.exists ? job.L.v * the_session.VolumeFactor : 0.0);
}

void store_record(Job& job) {
    calculation::ResultRecord& r = job.record;
    if (job.L.exists || job.V.exists)
        r.State = job.L.exists && job.V.exists ? "V+L" : job.V.exists ? " V " : " L ";
    if (job.V.exists) r.rhoV = numbers::to_single(job.V.rho);
    if (job.L.exists) r.rhoL = numbers::to_single(job.L.rho);
    r.p = numbers::to_single(job.p);
    store_fu(job, 1, job.p);
}

}  // namespace quor::calculation
