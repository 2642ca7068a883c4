#include <string>

#include "calculation/job.h"
#include "common/constants.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "legacy/wrappers.h"
#include "models/enthalpy_of_vaporisation.h"
#include "models/model_codes.h"
#include "models/model_tables.h"

/// Modes 6 and 7: the enthalpy of vaporisation by the chosen method.
namespace quor::calculation {

using constants::kPresent;
using legacy::the_session;

namespace {

constexpr std::int16_t kFromT = 6;
constexpr std::int16_t kDatabase = 1, kDatabaseDensity = 5, kBenson = 6;

bool given_T(const Job& job) {
    return job.mode() == kFromT;
}

/// Labels by the unit form of the session: kJ/kmol, K, R T, kJ/kg.
struct UnitLabels {
    const char* h;
    const char* s;
};
constexpr UnitLabels kLabels[] = {{"delta(LV)h/(kJ/kmol)", "delta(LV)s/(kJ/(kmol K))"},
                                  {"delta(LV)h/K", "delta(LV)s/R"},
                                  {"delta(LV)h/(R T)", "delta(LV)s/(1/K))"},
                                  {"delta(LV)h/(kJ/kg)", "delta(LV)s/(kJ/(kg K))"}};

const UnitLabels& labels() {
    const std::int16_t unit = the_session.CaloricUnit;
    return kLabels[unit >= 0 && unit < 4 ? unit : 0];
}

std::string caloric_number(double value) {
    constexpr double kLarge = 1000.0;
    return numbers::Format(value, value < kLarge ? "##0.00" : "##########.0");
}

bool fetch_given(Job& job) {
    const models::SubstanceRecord& s = legacy::the_substance;
    if (given_T(job) ? !fetch_t(job) : !fetch_p(job)) return false;
    const std::string given = given_T(job) ? temperature_text(job.T) : pressure_text(job.p);
    if (given_T(job) ? job.T >= s.Tcrit : job.p >= s.pcrit) {
        resultText.par1 = {given + (given_T(job) ? " >= T(cr) !!!" : " >= p(cr) !!!"), true, false};
        job.error = true;
        return false;
    }
    resultText.par1.text = given;
    return true;
}

void compressibility_lines(Job& job, const models::EnthalpyOfVaporisationResult& r) {
    const std::int16_t method = models::code_of(legacy::the_models.HLVModel);
    if (method != kDatabaseDensity && method != kBenson) return;
    job.list.add("Following compressibility factors z were used:");
    job.list.add("z(L) = " + value32(r.zL));
    job.list.add("z(V) = " + value32(r.zV));
    job.list.add("z(V) by using " + text::trim(models::EOSName(legacy::the_models.EOSModel)));
    job.list.add(method == kBenson ? "rho_L for z_L-calculation (MATHIAS/CAILLETET/BENSON)"
                                   : "rho_L for z_L by using database function rho_L = Fu(T)");
}

/// The database equation beside any other method.
void comparison_line(Job& job) {
    if (legacy::the_models.HLVModel == models::VaporisationModel::databaseEquation ||
        legacy::the_substance.hLVTHi <= 0)
        return;
    const models::EnthalpyOfVaporisationResult r =
        models::enthalpy_of_vaporisation(models::VaporisationModel::databaseEquation, job.T, job.p,
                                         legacy::the_models.VPModel, false, job.call.Index);
    if (r.status != kSuccess) return;
    job.list.add(std::string("(cf. function from data base: ") + labels().h + " = " +
                 caloric_number(static_cast<double>(r.h) * the_session.CaloricFactor));
}

void result_lines(Job& job, const models::EnthalpyOfVaporisationResult& r, double h, double s) {
    constexpr std::size_t kRule = 70;
    const std::string method = text::trim(models::hlv_name(legacy::the_models.HLVModel));
    resultText.co1 = {r.explanation, false, false};
    if (given_T(job)) {
        if (job.p > kPresent)
            resultText.co2.text = " p(LV) = " + PressureValue(job.p, "####0.000", " kPa");
    } else {
        resultText.co2.text = " T(LV) = " + numbers::Format(job.T, "####.000 K");
    }
    job.list.add("Enthalpy of vaporization from " + method);
    job.list.rule('-', kRule);
    job.list.add(std::string(labels().h) + " = " + caloric_number(h));
    job.list.add(std::string("(enthalpy of vapor. delta(LV)s = delta(LV)h / T: ") + labels().s +
                 " = " + caloric_number(s) + ")");
    compressibility_lines(job, r);
    comparison_line(job);
}

}  // namespace

void enthalpy_of_vaporisation(Job& job) {
    if (!fetch_given(job)) return;
    const models::EnthalpyOfVaporisationResult r = models::enthalpy_of_vaporisation(
        legacy::the_models.HLVModel, job.T, job.p, legacy::the_models.VPModel, job.call.Interactive,
        job.call.Index);
    if (r.status != kSuccess) {
        resultText.co1 = {r.explanation, true, false};
        job.list.add_red("no Result");
        job.error = true;
        return;
    }
    job.T = r.T;
    job.p = r.p;
    store_fu(job, 0, job.T);
    job.L = {true, r.rhoL > 0 ? static_cast<double>(legacy::the_substance.M) / r.rhoL : 0.0,
             r.rhoL};
    job.V = {true, r.rhoV > 0 ? static_cast<double>(legacy::the_substance.M) / r.rhoV : 0.0,
             r.rhoV};
    job.Roots = 3;
    if (!legacy::the_models.EOSOnlyV) keep_last_state(job);
    density_lines(job);
    store_record(job);

    const double h = static_cast<double>(r.h) * the_session.CaloricFactor;
    const double s = faults::divide(h, job.T);
    job.record.hLV = static_cast<float>(r.h);
    if (!given_T(job)) job.record.T = numbers::to_single(job.T);
    store_fu(job, 29, h);
    store_fu(job, 30, s);
    result_lines(job, r, h, s);
}

}  // namespace quor::calculation
