#include <cmath>

#include "calculation/job.h"
#include "calculation/phase_functions.h"
#include "calculation/reference_lines.h"
#include "common/constants.h"
#include "common/numbers.h"
#include "common/text.h"
#include "legacy/wrappers.h"
#include "models/virial.h"
#include "session/module2.h"

/// Modes 3, 8, 12 and 13: the state at T and p, or at p and a density.
namespace quor::calculation {

using constants::kPresent;
using legacy::the_session;

namespace {

constexpr double kNearTcrit = 0.05;  // K
constexpr double kNearPcrit = 0.02;  // kPa

void tell_given_state(const Job& job) {
    resultText.par1.text = temperature_text(job.T);
    resultText.par2.text = pressure_text(job.p);
}

bool is_critical_point(const Job& job) {
    return std::fabs(job.T - legacy::the_substance.Tcrit) < kNearTcrit &&
           std::fabs(job.p - legacy::the_substance.pcrit) < kNearPcrit;
}

void critical_point_lines(Job& job) {
    const models::EOSParameters& eos = legacy::the_eosParameters;
    job.list.add("Critical point!");
    job.list.add(" T(cr) = " + numbers::Format(legacy::the_substance.Tcrit, "####0.00 K"));
    job.list.add(" p(cr) = " + numbers::Format(legacy::the_substance.pcrit, "#####.00 kPa"));
    if (!(eos.vcritCalc > kPresent)) return;
    job.list.add("rho(cr) = " + numbers::Format(eos.rhocritCalc, "####.0") + " kg/m^3");
    job.list.add("  v(cr) = " + value32(eos.vcritCalc) + " m^3/kmol");
}

/// A given volume well between the outer roots is a mixture of both phases, even when the
/// tolerance of T(LV) puts the state to one side of the phase boundary.
void keep_both_phases(Job& job) {
    constexpr double kMargin = 1e-3;
    if (job.Roots != 3) return;
    const double v = static_cast<double>(legacy::the_substance.M) / job.rho();
    if (v > job.L.v * (1 + kMargin) && v < job.V.v * (1 - kMargin))
        job.L.exists = job.V.exists = true;
}

}  // namespace

void given_tp(Job& job) {
    if (!fetch_t(job) || !fetch_p(job)) return;
    tell_given_state(job);
    if (is_critical_point(job)) critical_point_lines(job);
    if (legacy::the_models.EOSOnlyV)
        resultText.co2.text = " Virialcoeff. B = " +
                              value32(models::SecondVirial(legacy::the_models.EOSModel, job.T)) +
                              "  m^3/kmol";
    if (!solve_state(job)) return;
    keep_last_state(job);
    resultText.co1.text = job.stateText;
    if (the_session.AssumedVle) add_partial_phases(job, job.V.v);
    density_lines(job);
    store_record(job);
}

void given_p_rho(Job& job) {
    if (!fetch_p(job) || !fetch_rho(job)) return;
    resultText.par1.text = pressure_text(job.p);
    resultText.par2.text = density_text(job.rho());
    const models::TemperatureResult r = models::TemperatureFromPRho(job.p, job.rho(), false);
    if (r.status != kSuccess || !(r.T > 0)) {
        resultText.co2 = {" Error", true, false};
        job.error = true;
        return;
    }
    job.T = r.T;
    store_fu(job, 0, job.T);
    resultText.co2.text = " T = " + numbers::Format(job.T, "###0.000 K");
    if (!solve_state(job)) return;
    keep_both_phases(job);
    keep_last_state(job);
    density_lines(job);
    store_record(job);
    job.record.T = numbers::to_single(job.T);
}

void caloric_functions(Job& job) {
    if (!fetch_t(job) || !fetch_p(job)) return;
    tell_given_state(job);
    if (!solve_state(job)) return;
    keep_last_state(job);
    const PhasePair pair = functions_of_phases(job);
    if (pair.failed()) {
        report_calc_error(job, error_code(kFailure));
        return;
    }
    store_functions(job, pair);
    for (std::string& line : reference_lines()) job.list.add(std::move(line));
    function_table(job, pair, TableKind::Mode8);
    store_record(job);
}

namespace {

/// A column of the list of the process, wide enough for the labels of all units.
std::string column(const std::string& text) {
    constexpr std::size_t kWidth = 17;
    return text::pad_left(text, kWidth);
}

std::string value_column(double value) {
    return column(std::isfinite(value) ? numbers::General(numbers::to_single(value)) : "");
}

/// The states of the process, one a line; a value that the program did not give stays empty.
void list_process(Job& job) {
    const diagrams::ProcessLine& process = legacy::the_processLine;
    job.list.add("Polytropic process, n = " + numbers::General(process.polytropicExponent) +
                 ", kappa = " + numbers::General(process.kappa));
    for (std::string& line : reference_lines()) job.list.add(std::move(line));
    job.list.add(column("T/K") + column("p/kPa") + column("v/(" + the_session.VolumeLabel + ")") +
                 column(text::trim(caloric_label(kH))) + column(text::trim(caloric_label(kS))));
    const double factor = the_session.CaloricFactor;
    for (const diagrams::PolytropicPoint& point : legacy::the_processLine.polytropicPoints) {
        the_session.CaloricFactor = session::caloric_factor_of(the_session.CaloricUnit, point.T);
        std::string line = value_column(point.T) + value_column(point.p);
        const models::StateTP state = models::SolveStateTP(point.T, point.p);
        const bool liquid = state.hasL && (!state.hasV || !process.vapour);
        const double v = liquid ? state.vL : state.vV;
        if (state.status == kSuccess && v > 0) {
            const FunctionValues functions = FunctionsAt(point.T, point.p, v);
            line += value_column(v * the_session.VolumeFactor);
            if (functions.status == kSuccess) {
                const auto scaled = Scaled(functions);
                line += value_column(scaled[kH]) + value_column(scaled[kS]);
            }
        }
        job.list.add(std::move(line));
    }
    the_session.CaloricFactor = factor;
}

}  // namespace

void polytropic_process(Job& job) {
    const diagrams::ProcessLine& process = legacy::the_processLine;
    calculation::BatchDataSet& input = legacy::the_BatchData.front();
    input.T = process.T1;
    input.p = process.p1;
    job.input = input;
    resultText.panelsHidden = true;
    if (!fetch_t(job) || !fetch_p(job)) return;
    tell_given_state(job);
    if (!legacy::the_processLine.polytropicPoints.empty()) list_process(job);
}

}  // namespace quor::calculation
