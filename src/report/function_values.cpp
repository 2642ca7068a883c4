#include "report/function_values.h"

#include "common/faults.h"
#include "report/teller.h"

namespace quor::report {

using calculation::Answer;
using calculation::Task;

namespace {

/// Places of single numbers.
enum Place : std::size_t {
    kT = 0,
    kP = 1,
    kRhoL = 4,
    kCpSolid = 5,
    kCpIdealGas = 7,
    kCpLiquid = 27,
    kHLV = 29,
    kSLV = 30,
    kDerivativesV = 31,  ///< alpha, chi, beta and delta
    kDerivativesL = 35,
    kSoundL = 39,
    kSoundV = 40,
    kVirial = 41
};

struct Table {
    const Made& made;
    const calculation::Request& request;
    const Answer& answer;
    ResultNumbers values = {};

    void set(std::size_t place, double value) { values[place] = faults::finite(value); }
    void set(std::size_t place, Dimension dimension, double value) {
        set(place, shown(made.units, dimension, value));
    }
};

void set_vaporisation(Table& t, double h) {
    t.set(kHLV, Dimension::energy, h);
    if (t.answer.T > 0) t.set(kSLV, Dimension::entropy, h / t.answer.T);
}

void set_volumes(Table& t) {
    const calculation::Phases& phases = t.answer.phases;
    if (phases.vapour) t.set(kVapourNumbers, Dimension::volume, phases.vapour->v.value_or(0));
    if (phases.liquid) t.set(kLiquidNumbers, Dimension::volume, phases.liquid->v.value_or(0));
}

void set_functions(Table& t, const std::optional<calculation::FunctionValues>& phase,
                   std::size_t first, std::size_t sound) {
    if (!phase) return;
    for (std::size_t i = calculation::kVolume; i <= calculation::kCv; ++i)
        if (const auto z = scaled(t.made.units, *phase, static_cast<calculation::Function>(i)))
            t.set(first + i, *z);
    if (const auto& w = phase->z[calculation::kSound]) t.set(sound, Dimension::speed, *w);
}

void set_functions(Table& t, const calculation::FunctionPair& pair) {
    set_functions(t, pair.liquid, kLiquidNumbers, kSoundL);
    set_functions(t, pair.vapour, kVapourNumbers, kSoundV);
}

void set_derivatives(Table& t, const std::optional<calculation::PhaseDerivatives>& phase,
                     std::size_t first) {
    if (!phase) return;
    constexpr int kAlpha = 6, kJouleThomson = 21;
    const models::Units units = listed_units(t.made.units);
    for (int i = 0; i < 3; ++i) {
        const auto place = static_cast<std::size_t>(i);
        t.set(first + place, phase->mechanical[place] * factor_of(units, derived_unit(kAlpha + i)));
    }
    t.set(first + 3, phase->table.residual[models::JouleThomson] *
                         factor_of(units, derived_unit(kJouleThomson)));
}

void set_pages(Table& t, const calculation::PageValues& pages) {
    set_derivatives(t, pages.liquid, kDerivativesL);
    set_derivatives(t, pages.vapour, kDerivativesV);
    if (pages.functions) set_functions(t, *pages.functions);
}

void set_database(Table& t) {
    const double value = t.answer.database->value;
    const auto M = static_cast<double>(t.made.fluid.substance().M);
    switch (t.request.task) {
        case Task::liquidDensity:
            t.set(kRhoL, Dimension::density, value);
            t.set(kLiquidNumbers, Dimension::volume, M / value);
            break;
        case Task::solidDensity:
            t.set(kLiquidNumbers, Dimension::volume, M / value);
            break;
        case Task::vaporisationEquation:
            set_vaporisation(t, value);
            break;
        case Task::idealGasCp:
            t.set(kCpIdealGas, Dimension::entropy, value);
            break;
        case Task::liquidCp:
            t.set(kCpLiquid, Dimension::entropy, value);
            break;
        case Task::solidCp:
            t.set(kCpSolid, Dimension::entropy, value);
            break;
        default:
            t.set(kP, computed_pressure(t.made.units, value));
            break;
    }
}

/// The pressure stands there as soon as it was given, and behind a whole answer.
double pressure_of(const Table& t) {
    if (t.answer.ok()) return t.answer.p;
    const bool given = (asks_of(t.request.task) & calculation::kAsksP) != 0;
    return given && t.answer.reason != calculation::Reason::noP ? t.request.given.p : 0.0;
}

void set_answer(Table& t) {
    const Answer& a = t.answer;
    if (a.database) {
        set_database(t);
        return;
    }
    if (!a.ok()) return;
    if (t.request.task != Task::functions) set_volumes(t);
    if (t.request.task == Task::functions) set_functions(t, *a.functions);
    if (a.hLV) set_vaporisation(t, *a.hLV);
    if (a.active_virial)
        t.set(kVirial, shown(listed_units(t.made.units), Dimension::volume, *a.active_virial));
    if (a.pages) set_pages(t, *a.pages);
}

}  // namespace

ResultNumbers function_values(const Made& made, const calculation::Request& request,
                              const Answer& answer) {
    Table t{.made = made, .request = request, .answer = answer};
    if (answer.reason == calculation::Reason::arithmetic) return {};
    // Without one they are those of absolute zero and of the vacuum, whatever the unit.
    // That of a tank has come through 32 bits.
    const double T = is_tank(request.task) && answer.T == static_cast<double>(request.tank.T)
                         ? digits_of(request.tank.T)
                         : answer.T;
    t.set(kT, Dimension::temperature, T);
    t.set(kP, Dimension::pressure, pressure_of(t));
    set_answer(t);
    return t.values;
}

models::Dimension dimension_of(calculation::Function function) {
    switch (function) {
        case calculation::kVolume:
            return Dimension::volume;
        case calculation::kSound:
            return Dimension::speed;
        case calculation::kS:
        case calculation::kCp:
        case calculation::kCv:
            return Dimension::entropy;
        default:
            return Dimension::energy;
    }
}

bool depends_on_reference(std::size_t element) {
    return (element >= 10 && element <= 16) || (element >= 20 && element <= 26);
}

}  // namespace quor::report
