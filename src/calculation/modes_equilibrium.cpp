#include <optional>

#include "calculation/calc_modes.h"
#include "calculation/job.h"
#include "common/constants.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "legacy/wrappers.h"
#include "models/cubic_eos.h"
#include "models/enthalpy_of_vaporisation.h"
#include "models/saturation.h"
#include "models/vapour_pressure.h"
#include "models/virial.h"

/// Modes 4 and 5: the vapour-liquid equilibrium at T or at p.
namespace quor::calculation {

using constants::kPresent;
using constants::R;
using legacy::the_session;

namespace {

constexpr std::int16_t kFromT = 4;

bool given_T(const Job& job) {
    return job.mode() == kFromT;
}

std::string pressure_value(double p) {
    return PressureValue(p, "####0.000", " kPa");
}

/// The given T or p, refused beyond the critical point.
bool fetch_given(Job& job) {
    const models::SubstanceRecord& s = legacy::the_substance;
    job.L.exists = job.V.exists = true;
    if (given_T(job) ? !fetch_t(job) : !fetch_p(job)) return false;
    const std::string given = given_T(job) ? temperature_text(job.T) : pressure_text(job.p);
    if (given_T(job) ? job.T > s.Tcrit : job.p > s.pcrit) {
        resultText.par1 = {given + (given_T(job) ? " > T(cr) !!!" : " > p(cr) !!!"), true, false};
        job.error = true;
        return false;
    }
    resultText.par1.text = given;
    if (given_T(job)) models::eval_eos_at_t(job.T);
    return true;
}

/// p(LV) or T(LV) by the active vapour pressure equation into the job.
bool solve_by_equation(Job& job) {
    const models::VapourPressureEquation code = legacy::the_models.VPModel;
    const bool warn = job.call.Interactive;
    Status status = kFailure;
    if (given_T(job)) {
        const models::VapourPressureResult r = models::VapourPressure(job.T, code, warn);
        job.p = r.p;
        status = r.status;
    } else {
        const models::BoilingTemperatureResult r = models::BoilingTemperature(job.p, code, warn);
        job.T = r.T;
        status = r.status;
    }
    if (status != kSuccess) report_calc_error(job, error_code(status));
    return status == kSuccess;
}

/// Without a vapour pressure equation the other value of the data set stands in.
bool take_from_data_set(Job& job) {
    resultText.co1.text = "No vapour pressur equation available";
    (given_T(job) ? job.p : job.T) = given_T(job) ? job.input.p : job.input.T;
    if (given_T(job) ? job.p >= kPresent : job.T >= kPresent) {
        resultText.co2.text =
            given_T(job) ? " p(LV)(from data set) = " + PressureValue(job.p, "####0.0#", " kPa")
                         : " T(LV) (from data set) = " + numbers::Format(job.T, "####.0# K");
        return true;
    }
    resultText.co2 = {
        given_T(job) ? "  No p(LV) available from data set" : " No T(LV) available/calculable",
        true, false};
    job.error = true;
    return false;
}

bool find_partial_point(Job& job) {
    if (legacy::the_models.VPModel == models::VapourPressureEquation::none)
        return take_from_data_set(job);
    if (!solve_by_equation(job)) return false;
    resultText.co1.text = given_T(job) ? "p(LV) from actual vapour pressure equation:"
                                       : "T(LV) by using actual vapour pressure equation:";
    resultText.co2.text =
        given_T(job) ? pressure_value(job.p) : numbers::Format(job.T, "####.000 K");
    return true;
}

/// The V volume at T and p of the job; p need not be that of the EOS. 0 when there is none.
double partial_vapour_volume(Job& job) {
    if (legacy::the_models.EOSOnlyV)
        return faults::finite(R * job.T / job.p +
                              models::SecondVirial(legacy::the_models.EOSModel, job.T));
    const models::Saturation saturation = models::SaturationPressure(job.T);
    models::eval_eos_at_t(job.T);
    const models::CubicRoots roots = models::SolveCubic(job.T, job.p);
    if (roots.status != kSuccess) return 0.0;
    if (job.p <= saturation.p) return roots.v[static_cast<std::size_t>(roots.count - 1)];
    return roots.count == 3 ? roots.v[2] : 0.0;
}

bool partial_equilibrium(Job& job) {
    if (!find_partial_point(job)) return false;
    const double vV = partial_vapour_volume(job);
    job.Roots = 3;
    if (!legacy::the_models.EOSOnlyV) keep_last_state(job);
    add_partial_phases(job, vV);
    density_lines(job);
    return true;
}

bool equilibrium_of_eos(Job& job) {
    const models::Saturation r =
        given_T(job) ? models::SaturationPressure(job.T) : models::SaturationTemperature(job.p);
    if (r.status != kSuccess) {
        report_calc_error(job, (given_T(job) ? "" : " T(LV) = ") + error_code(r.status));
        return false;
    }
    (given_T(job) ? job.p : job.T) = given_T(job) ? r.p : r.T;
    resultText.co1.text =
        given_T(job) ? "p(LV) by using the cubic EOS: " : "T(LV) by using cubic EOS";
    resultText.co2.text = given_T(job) ? " p(LV) = " + pressure_value(job.p)
                                       : " T(LV) = " + numbers::Format(job.T, "####.000 K");
    const auto [vL, vV] = volumes_of(r);
    job.L = phase_at(vL);
    job.V = phase_at(vV);
    job.Roots = r.nRoots;
    keep_last_state(job);
    job.list.add(std::string(12, ' ') + "by using cubic EOS:");
    density_lines(job);
    return true;
}

/// p(LV) or T(LV) alone; a vapour pressure equation knows no densities.
bool equilibrium_of_equation(Job& job) {
    constexpr std::size_t kRule = 75;
    if (!solve_by_equation(job)) return false;
    resultText.co2.text = given_T(job) ? " p(LV) = " + pressure_value(job.p)
                                       : "T(LV) = " + numbers::Format(job.T, "###0.0# K");
    job.list.add_red(std::string(kRule, '='));
    job.list.add_red(std::string(12, ' ') +
                     "(Calculation of density not possible by using a vapour pressure equation" +
                     (given_T(job) ? "!)" : ")"));
    job.list.add_red(std::string(kRule, '='));
    return true;
}

/// delta(LV)h by the cubic EOS, as a whole number of kJ/kmol.
void add_enthalpy_of_vaporisation(Job& job) {
    const models::VaporisationModel method = legacy::the_models.HLVModel;
    const models::EnthalpyOfVaporisationResult r = models::enthalpy_of_vaporisation(
        models::VaporisationModel::cubicEos, job.T, job.p, legacy::the_models.VPModel,
        method == models::VaporisationModel::databaseDensity ||
            method == models::VaporisationModel::benson);
    const auto h = static_cast<double>(r.h);
    if (r.status != kSuccess) return;
    job.record.hLV = static_cast<float>(h);
    store_fu(job, 29, h * the_session.CaloricFactor);
    if (job.T > 0) store_fu(job, 30, h * the_session.CaloricFactor / job.T);
}

}  // namespace

void equilibrium_state(Job& job) {
    if (!fetch_given(job)) return;
    const bool found = !the_session.GlobalCalculation    ? partial_equilibrium(job)
                       : legacy::the_models.PriorityCEOS ? equilibrium_of_eos(job)
                                                         : equilibrium_of_equation(job);
    if (!found) return;
    store_fu(job, 0, job.T);
    if (the_session.GlobalCalculation) add_enthalpy_of_vaporisation(job);
    store_record(job);
    if (!given_T(job)) job.record.T = numbers::to_single(job.T);
}

}  // namespace quor::calculation
