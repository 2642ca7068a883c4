#include <string>

#include "calculation/calc_modes.h"
#include "calculation/job.h"
#include "calculation/phase_functions.h"
#include "calculation/reference_lines.h"
#include "calculation/tank.h"
#include "common/constants.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "legacy/wrappers.h"
#include "models/cubic_eos.h"
#include "models/saturation.h"
#include "models/virial.h"

/// Modes 1, 2, 9 and 10: p and phases from T and a density.
namespace quor::calculation {

using constants::kPresent;
using constants::R;
using legacy::the_session;

namespace {

constexpr std::int16_t kLiquidMode = 2;
constexpr std::int16_t kGlobalTankMode = 9;
constexpr std::int16_t kPartialTankMode = 10;

/// Where the given volume lies in respect of the two-phase region.
struct Location {
    double v = 0;    ///< given volume, m^3/kmol
    double y = 1;    ///< vapour fraction
    double pLV = 0;  ///< kPa, 0 when there is none
    bool twoPhase = false;
};

/// The density of a liquid stands in its own column; what a user types stands in the first.
bool fetch_liquid_density(Job& job) {
    if (job.input.rhoL < kPresent && job.call.Index == 0) job.input.rhoL = job.input.rhoV;
    if (!(job.input.rhoL >= kPresent)) {
        resultText.par1 = {"no density in this data set", true, false};
        job.error = true;
        return false;
    }
    job.input.rhoV = job.input.rhoL;
    return true;
}

bool fetch_input(Job& job) {
    if (is_tank(job.mode())) return fetch_tank(job);
    if (!fetch_t(job)) return false;
    return job.mode() == kLiquidMode ? fetch_liquid_density(job) : fetch_rho(job);
}

bool vapour_only_pressure(Job& job, const Location& at) {
    const double B = models::SecondVirial(legacy::the_models.EOSModel, job.T);
    if (at.v <= B) {
        resultText.co2 = {" p = , no p-solution (V < B)", true, false};
        job.error = true;
        if (is_tank(job.mode())) job.call.Text = "ERROR3";
        return false;
    }
    job.p = faults::finite(R * job.T / (at.v - B));
    job.V = phase_at(at.v);
    return true;
}

/// p on the isotherm of a cubic EOS at the given volume.
bool pressure_on_isotherm(Job& job, double v) {
    // The covolume that the solver tests against is the one of this temperature.
    models::eval_eos_at_t(job.T);
    const models::PressureResult r = models::pressure_from_tv(job.T, v);
    if (r.status != kSuccess) {
        const bool global = the_session.GlobalCalculation;
        if (global) job.call.Text = "ERROR1";
        report_calc_error(job, global ? " (v <= b) ERROR1" : " (v <= b)");
        return false;
    }
    job.p = r.p;
    return true;
}

/// Below Tcrit of a cubic EOS: p(LV) divides the isotherm into L, L and V, and V.
bool subcritical_pressure(Job& job, Location& at) {
    const models::Saturation saturation = models::SaturationPressure(job.T);
    if (saturation.status != kSuccess || saturation.p < kPresent) {
        report_calc_error(job, error_code(saturation.status));
        return false;
    }
    at.pLV = saturation.p;
    job.Roots = 3;
    const auto [vL, vV] = volumes_of(saturation);
    if (at.v > vV) {
        job.V = phase_at(at.v);
        return pressure_on_isotherm(job, at.v);
    }
    if (at.v < vL) {
        job.L = phase_at(at.v);
        at.y = 0;
        return pressure_on_isotherm(job, at.v);
    }
    job.L = phase_at(vL);
    job.V = phase_at(vV);
    job.p = at.pLV;
    at.twoPhase = vV > vL;
    if (at.twoPhase) at.y = (at.v - vL) / (vV - vL);
    return true;
}

bool find_pressure(Job& job, Location& at) {
    if (legacy::the_models.EOSOnlyV) return vapour_only_pressure(job, at);
    if (job.T < legacy::the_substance.Tcrit) return subcritical_pressure(job, at);
    job.V = phase_at(at.v);
    return pressure_on_isotherm(job, at.v);
}

/// Outside the two-phase region the solver names the phases at T and p; inside it they are known.
bool confirm_phases(Job& job, const Location& at) {
    if (at.twoPhase) return true;
    if (job.p > 0) return solve_state(job);
    report_calc_error(job, error_code(kFailure));
    return false;
}

/// A caloric row of the mean functions.
struct MeanRow {
    Function function;
    const char* label;
    bool perKelvin;
};

constexpr MeanRow kMeanRows[] = {
    {kH, "Enthalpy  h       = ", false},       {kS, "Entropy  s        = ", true},
    {kG, "Gibbs Fu. g       = ", false},       {kU, "Intern. Energy u  = ", false},
    {kA, "Helmholtz Fu. a   = ", false},       {kExergyH, "Exergy of H   e   = ", false},
    {kExergyU, "Exergy of U   e   = ", false}, {kCp, "Heat capacity cp  = ", true},
    {kCv, "Heat capacity cV  = ", true},
};

/// Functions of the two-phase mixture. Caloric rows need an ideal-gas cp.
void mean_functions(Job& job, const Location& at) {
    const bool molar = the_session.CaloricUnit == 0;
    const PhasePair pair = functions_of_phases(job);
    const bool caloric = pair.L && pair.V && !pair.failed();
    ListBuilder& list = job.list;
    list.blank();
    list.underlined(std::string(molar ? "molar global functions" : "specific global functions") +
                    "  z = y(V) z(V) + (1 - y(V) z(L)");
    if (caloric)
        for (std::string& line : reference_lines()) list.add(std::move(line));

    const double v = at.y * job.V.v + (1 - at.y) * job.L.v;
    list.add("Density rho       = " +
             value32(faults::divide(static_cast<double>(legacy::the_substance.M), v)) + "  kg/m^3");
    list.add("Volume  v         = " + value32(v * the_session.VolumeFactor) + "  " +
             text::trim_right(the_session.VolumeLabel));
    if (!caloric) return;
    for (const MeanRow& row : kMeanRows) {
        const double z = at.y * pair.V->z[row.function] + (1 - at.y) * pair.L->z[row.function];
        const char* unit =
            row.perKelvin ? (molar ? "kJ/(kmol K)" : "kJ/(kg K)") : (molar ? "kJ/kmol" : "kJ/kg");
        list.add(row.label + value32(z * the_session.CaloricFactor) + "  " + unit);
    }
}

void tell_pressure(Job& job, bool twoPhase) {
    const std::string label = twoPhase ? "Vapour pressure p/kPa = " : " System pressure p/kPa = ";
    const bool none = job.p == 0.0 && !the_session.GlobalCalculation;
    resultText.co2 = {label + (none ? "(Error)" : PressureValue(job.p, "####0.000")), none, false};
}

void partial_tank(Job& job) {
    if (!PartialTank(job)) {
        if (job.call.Text == "ERROR2") job.p = 0.0;
        tell_pressure(job, false);
        return;
    }
    density_lines(job);
    tell_pressure(job, job.L.exists && job.V.exists);
    store_record(job);
}

/// Content of a tank whose phases the EOS has found.
TankContent content_of_tank(const Job& job, const Location& at) {
    const auto V = static_cast<double>(the_session.tank.V);
    const auto m = static_cast<double>(the_session.tank.m);
    if (at.twoPhase) return divide_tank(V, m, job.L.rho, job.V.rho);
    return at.y > 0 ? divide_tank(V, m, 0.0, m / V) : divide_tank(V, m, m / V, 0.0);
}

}  // namespace

void given_t_rho(Job& job) {
    if (!fetch_input(job)) return;
    resultText.par1.text = temperature_text(job.T);
    resultText.par2.text = density_text(job.rho());
    if (job.mode() == kPartialTankMode) {
        partial_tank(job);
        return;
    }

    Location at{.v = static_cast<double>(legacy::the_substance.M) / job.rho()};
    if (!find_pressure(job, at)) return;
    if (at.twoPhase && !is_tank(job.mode()))
        job.list.add(std::string(22, ' ') +
                     "Vapour fraction y(V) = " + numbers::Format(at.y, "0.0#######"));
    if (at.pLV > kPresent)
        resultText.co1.text =
            "vapour pressure by using CEOS: p(LV )= " + PressureValue(at.pLV, "###0.000", " kPa");
    if (job.mode() == kGlobalTankMode) tank_lines(job, content_of_tank(job, at));
    if (!confirm_phases(job, at)) return;
    if (!legacy::the_models.EOSOnlyV) keep_last_state(job);
    density_lines(job);
    const bool twoPhase = job.L.exists && job.V.exists && job.T < legacy::the_substance.Tcrit &&
                          job.p < legacy::the_substance.pcrit;
    if (twoPhase) mean_functions(job, at);
    tell_pressure(job, twoPhase);
    store_record(job);
}

}  // namespace quor::calculation
