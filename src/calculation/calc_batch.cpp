#include "calculation/calc_batch.h"
#include "legacy/wrappers.h"

#include <array>
#include <exception>

#include "calculation/calc_modes.h"
#include "calculation/job.h"
#include "common/constants.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/text.h"
#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/virial.h"
#include "session/module2.h"

namespace quor::calculation {

using constants::kPresent;
using legacy::the_session;

namespace {

using ModeFunction = void (*)(Job&);

/// The work of each mode, by its code.
constexpr std::array<ModeFunction, 25> kModeFunctions = {
    nullptr,                   // 0: none
    given_t_rho,               // 1
    given_t_rho,               // 2
    given_tp,                  // 3
    equilibrium_state,         // 4
    equilibrium_state,         // 5
    enthalpy_of_vaporisation,  // 6
    enthalpy_of_vaporisation,  // 7
    caloric_functions,         // 8
    given_t_rho,               // 9
    given_t_rho,               // 10
    VirialCoefficients,        // 11
    polytropic_process,        // 12
    given_p_rho,               // 13
    DatabaseFunction,          // 14
    DatabaseFunction,          // 15
    DatabaseFunction,          // 16
    DatabaseFunction,          // 17
    DatabaseFunction,          // 18
    DatabaseFunction,          // 19
    DatabaseFunction,          // 20
    DatabaseFunction,          // 21
    DatabaseFunction,          // 22
    no_function,               // 23
    DatabaseFunction,          // 24
};

constexpr std::int16_t kVirialMode = 11, kPolytropicMode = 12;

bool is_cubic() {
    return models::is_cubic(legacy::the_models.EOSModel) && !legacy::the_models.EOSOnlyV;
}

/// Everything that a call leaves behind starts empty.
void begin(Job& job) {
    legacy::the_vRoots = {};
    legacy::the_lastState = {};
    const std::string title = resultText.title;
    resultText = {};
    resultText.title = job.call.Text.empty() ? title : job.call.Text;
    *job.call.Results = {};
    legacy::the_currentResult = {};
    session::refresh_units();
    the_session.CaloricFactor =
        session::caloric_factor_of(the_session.CaloricUnit, the_session.DiagramT);
}

// ---- Common end -------------------------------------------------------------------------------

/// What the result view says of a region of the phase diagram, where it says anything.
struct RegionText {
    std::int16_t region;
    const char* text;
};

/// Region of T and p; nothing on a boundary that no rule names.
std::optional<RegionText> region_of(double T, double p) {
    const double Tc = legacy::the_substance.Tcrit, pc = legacy::the_substance.pcrit;
    if (T == Tc && p == pc) return {{4, "=> critical point (T = T(cr), p = p(cr))"}};
    if (p < pc && T < Tc) return {{0, ""}};
    if (p > pc && T > Tc) return {{2, "=> supercritical phase L = V (T > T(cr), p > p(cr))"}};
    if (p > pc && T <= Tc) return {{1, "=> supercritical L-phase (T < T(cr), p > p(cr))"}};
    if (T > Tc)
        return {{3, p == 0 ? "=> supercritical phase (T > T(cr))"
                           : "=> supercritical V-phase (T > T(cr), p < p(cr))"}};
    return std::nullopt;
}

/// Captions of the columns and the words on the region. A function of the database belongs to no
/// state, so that it has no region.
void tell_region(const Job& job) {
    if (legacy::the_models.EOSOnlyV || is_database_function(job.mode()) || job.T < kPresent) return;
    if (const auto region = region_of(job.T, job.p)) {
        legacy::the_PhaseRegion = region->region;
        if (region->region == 1) resultText.lblVphase = "L-Phase";
        if (region->region == 3 && job.p > 0) resultText.lblLphase = "V-Phase";
        if (region->region != 0) resultText.co1 = {region->text, true, true};
    }
    resultText.lblGleich = legacy::the_PhaseRegion == 2 || legacy::the_PhaseRegion == 4;
}

bool shows_cubic_parameters(const Job& job) {
    if (!is_cubic() || !(job.T > kPresent)) return false;
    if (job.mode() == kPolytropicMode || is_database_function(job.mode())) return false;
    return !is_vaporisation(job.mode()) ||
           legacy::the_models.HLVModel == models::VaporisationModel::cubicEos;
}

void add_cubic_parameters(Job& job) {
    constexpr std::size_t kNumberWidth = 16;
    models::eval_eos_at_t(job.T);
    const models::EOSState& s = legacy::the_eosState;
    job.list.blank();
    job.list.underlined("Paramet. of the generalized cub. EOS (" +
                        text::trim(models::EOSName(legacy::the_models.EOSModel)) + "):");
    const auto line = [&](const char* name, double value) {
        job.list.add(name + text::pad_left(value32(value), kNumberWidth));
    };
    line("  A =", s.eosA);
    line("  B =", s.eosB);
    line("  C =", s.eosC);
    line("  D =", s.eosD);
}

bool shows_virial_coefficient(const Job& job) {
    return legacy::the_models.EOSOnlyV && job.T > kPresent && job.mode() != 0 &&
           job.mode() != kVirialMode && job.mode() != kPolytropicMode &&
           !is_database_function(job.mode());
}

void add_virial_coefficient(Job& job) {
    constexpr std::size_t kNumberWidth = 16;
    const double B = models::SecondVirial(legacy::the_models.EOSModel, job.T);
    job.list.blank();
    job.list.add("Virial coeffizient:");
    job.list.add("  B =" + text::pad_left(value32(B), kNumberWidth) + " m^3/kmol");
}

/// The diagnosis needs a state that the cubic EOS itself has found.
bool can_diagnose(const Job& job) {
    const std::int16_t mode = job.mode();
    if (job.error || !is_cubic() || !the_session.GlobalCalculation) return false;
    if (mode == kVirialMode || mode == kPolytropicMode || is_database_function(mode)) return false;
    if (is_equilibrium(mode)) return legacy::the_models.PriorityCEOS;
    return !is_vaporisation(mode) ||
           legacy::the_models.HLVModel == models::VaporisationModel::cubicEos;
}

void keep_record(Job& job) {
    if (job.error) job.record = {};
    legacy::the_currentResult = job.record;
    resultText.State = job.record.State;
    const auto i = static_cast<std::size_t>(job.call.Index);
    if (job.call.Index >= 0 && i < legacy::the_ResultRecords.size())
        legacy::the_ResultRecords[i] = job.record;
}

void set_fraction(Job& job) {
    if (is_tank(job.mode())) return;
    if (!job.V.exists) {
        job.call.FractionV = 0;
    } else if (!job.L.exists) {
        job.call.FractionV = 100;
    }
}

void common_end(Job& job) {
    tell_region(job);
    if (!job.error) {
        ExtendedPages(job);
        if (shows_cubic_parameters(job)) add_cubic_parameters(job);
        if (shows_virial_coefficient(job)) add_virial_coefficient(job);
    }
    keep_record(job);
    set_fraction(job);
    if (can_diagnose(job)) resultText.cmdCEOSDiagnose = {true, kDiagnoseColour};
    if (!job.call.Quiet) resultText.Liste = job.list.take();
}

/// Text of the list as far as it has grown.
std::string text_so_far(const Job& job) {
    std::string all;
    for (const ListLine& line : job.list.lines()) all += '\n' + line.text;
    return all;
}

void tell_fault(Job& job, const char* reason) {
    job.error = true;
    keep_record(job);
    dialogs::tell(reason + text_so_far(job), "WARNING");
}

}  // namespace

void CalcBatch(CalcCall& call) {
    call.Pressure = 0;
    call.HasL = call.HasV = call.Failed = false;
    call.Roots = 0;
    Job job{.call = call, .input = data_set(call.Index)};
    try {
        begin(job);
        const auto i = static_cast<std::size_t>(call.Mode);
        if (call.Mode > 0 && i < kModeFunctions.size()) kModeFunctions[i](job);
        if (job.leave) {
            job.error = true;
            keep_record(job);
        } else {
            common_end(job);
        }
    } catch (const std::exception& fault) {
        tell_fault(job, fault.what());
    }
    call.Pressure = job.p;
    call.HasL = job.L.exists;
    call.HasV = job.V.exists;
    call.Roots = job.Roots;
    call.Failed = job.error;
}

}  // namespace quor::calculation
