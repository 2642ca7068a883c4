#include <cstdlib>

#include "calculation/work.h"
#include "common/constants.h"
#include "common/numbers.h"
#include "models/caloric.h"
#include "models/density.h"
#include "models/enthalpy_of_vaporisation.h"
#include "models/vapour_pressure.h"

/// Functions of T from the database alone.
namespace quor::calculation {

using constants::kPresent;
using models::VapourPressureEquation;

namespace {

/// What was found: nothing without a value.
struct Found {
    std::optional<double> value;
    Range range;
};

/// A density without limits was measured at one temperature: it holds 10 K around that.
template <std::size_t N>
Range density_range(const std::array<float, N>& parameters, std::int16_t T_low,
                    std::int16_t T_high) {
    constexpr double kAround = 10;
    if (T_low != 0) return {T_low, T_high};
    if (!(static_cast<double>(parameters[2]) > kPresent)) return {};
    const double point = numbers::round_half_even(static_cast<double>(parameters[2]));
    return {numbers::to_int16(point - kAround), numbers::to_int16(point + kAround)};
}

template <class Set>
Range limits(const Set& set) {
    return {set.T_low, set.T_high};
}

using Density = Result<models::Density, models::NoDensity>;
std::optional<double> if_positive(const Density& density) {
    return density && density->rho > 0 ? std::optional(density->rho) : std::nullopt;
}

Found liquid_density(const models::SubstanceRecord& s, double T) {
    return {if_positive(models::density_liquid(s, static_cast<float>(T))),
            density_range(s.rhoL_coefficients, s.rhoL_T_low, s.rhoL_T_high)};
}

Found solid_density(const models::SubstanceRecord& s, double T) {
    return {if_positive(models::density_solid(s, static_cast<float>(T))),
            density_range(s.rhoS_coefficients, s.rhoS_T_low, s.rhoS_T_high)};
}

Found vaporisation(const models::SubstanceRecord& s, double T) {
    return {models::enthalpy_equation(s, T), {s.hLV_T_low, s.hLV_T_high}};
}

Found heat_capacity(std::optional<double> cp, const models::CpSet& set) {
    return {cp, limits(set)};
}

template <class Set>
Found pressure(const models::SubstanceRecord& s, double T, models::VapourPressureEquation code,
               const Set& set) {
    const auto r = models::vapour_pressure(s, T, code);
    return {r ? std::optional(r->p) : std::nullopt, limits(set)};
}

Found evaluate(const Work& work) {
    const models::SubstanceRecord& s = work.substance();
    const double T = work.answer.T;
    const models::CpForm form = work.models().cp_form;
    switch (work.request.task) {
        case Task::liquidDensity:
            return liquid_density(s, T);
        case Task::solidDensity:
            return solid_density(s, T);
        case Task::vaporisationEquation:
            return vaporisation(s, T);
        case Task::idealGasCp:
            return heat_capacity(
                models::ideal_gas_cp(s, form, T),
                form == models::CpForm::polynomial ? s.cp_polynomial : s.cp_sinh_cosh);
        case Task::liquidCp:
            return heat_capacity(models::polynomial_cp(s.cpL, T), s.cpL);
        case Task::solidCp:
            return heat_capacity(models::polynomial_cp(s.cpS, T), s.cpS);
        case Task::pressureFrost:
            return pressure(s, T, VapourPressureEquation::frostKalkwarf, s.frost);
        case Task::pressureWagner:
            return pressure(s, T, VapourPressureEquation::wagner, s.wagner);
        case Task::pressureAntoineLow:
            return pressure(s, T, VapourPressureEquation::antoineLow, s.antoine_low);
        default:
            return pressure(s, T, VapourPressureEquation::antoineHigh, s.antoine_high);
    }
}

bool is_far_outside(double T, const Range& range) {
    constexpr double kAllowed = 10.0;
    return range.known() && !(T >= range.T_low - kAllowed && T <= range.T_high + kAllowed);
}

/// The density of a solid has a remark of its own beyond 5 K.
void note_solid_range(Work& work, const Range& range) {
    constexpr int kSilent = 5;
    const auto density = models::density_solid(work.substance(), static_cast<float>(work.answer.T));
    if (density && std::abs(density->deviation) > kSilent)
        work.answer.notes.push_back(
            {.kind = Note::Kind::solidRange, .deviation = density->deviation, .range = range});
}

bool is_pressure(Task task) {
    return task >= Task::pressureFrost && task <= Task::pressureAntoineHigh;
}

}  // namespace

void database_function(Work& work) {
    if (!fetch_t(work)) return;
    const Found found = evaluate(work);
    if (work.request.task == Task::solidDensity) {
        note_solid_range(work, found.range);
    } else if (is_far_outside(work.answer.T, found.range))
        work.answer.notes.push_back(
            {.kind = Note::Kind::databaseRange, .deviation = 0, .range = found.range});
    if (!found.value) {
        const bool beyond = work.request.task == Task::vaporisationEquation &&
                            models::is_beyond_enthalpy_equation(work.substance(), work.answer.T);
        fail(work, beyond ? Reason::beyondEquation : Reason::noDatabaseValue);
        return;
    }
    work.answer.database = DatabaseValue{*found.value, found.range};
    if (is_pressure(work.request.task)) work.answer.p = *found.value;
}

}  // namespace quor::calculation
