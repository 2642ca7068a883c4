#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "models/unit_text.h"
#include "report/reference_lines.h"
#include "report/teller.h"

/// p and phases from T and a density, of a state or of a tank.
namespace quor::report {

using calculation::Function;
using calculation::FunctionValues;
using calculation::Reason;

namespace {

/// A caloric row of the mean functions.
struct MeanRow {
    Function function;
    const char* label;
    bool per_kelvin;
};

constexpr MeanRow kMeanRows[] = {
    {calculation::kH, "Enthalpy  h       = ", false},
    {calculation::kS, "Entropy  s        = ", true},
    {calculation::kG, "Gibbs Fu. g       = ", false},
    {calculation::kU, "Intern. Energy u  = ", false},
    {calculation::kA, "Helmholtz Fu. a   = ", false},
    {calculation::kExergyH, "Exergy of H   e   = ", false},
    {calculation::kExergyU, "Exergy of U   e   = ", false},
    {calculation::kCp, "Heat capacity cp  = ", true},
    {calculation::kCv, "Heat capacity cV  = ", true},
};

/// Functions of the two-phase mixture. Caloric rows need an ideal-gas cp.
void mean_functions(Teller& t) {
    const models::Units& units = t.units();
    const bool molar = units.choice.caloric == models::CaloricUnit::molar;
    const calculation::FunctionPair& pair = *t.answer.functions;
    const bool caloric = pair.liquid && pair.vapour && pair.caloric();
    ListBuilder& list = t.list;
    list.blank();
    list.underlined(std::string(molar ? "molar global functions" : "specific global functions") +
                    "  z = y(V) z(V) + (1 - y(V) z(L)");
    if (caloric)
        for (std::string& line : reference_lines(t.made)) list.add(std::move(line));

    const double y = t.answer.y;
    const double v = y * *t.answer.phases.vapour->v + (1 - y) * *t.answer.phases.liquid->v;
    list.value("Density rho       = ", value32(units, Dimension::density, faults::divide(t.M(), v)),
               "  " + unit_name(units, Dimension::density));
    list.value("Volume  v         = ", value32(units, Dimension::volume, v),
               "  " + unit_name(units, Dimension::volume, text::trim_right(units.v_label)));
    tell_missing_functions(t, pair);
    if (!caloric) return;
    for (const MeanRow& row : kMeanRows) {
        const auto &V = pair.vapour->z[row.function], &L = pair.liquid->z[row.function];
        if (!V || !L) continue;
        const double z = y * *V + (1 - y) * *L;
        const Dimension dimension = dimension_of(row.function);
        const char* told =
            row.per_kelvin ? (molar ? "kJ/(kmol K)" : "kJ/(kg K)") : (molar ? "kJ/kmol" : "kJ/kg");
        list.value(row.label, value32(units, dimension, z),
                   "  " + unit_name(units, dimension, told));
    }
}

void tell_pressure(Teller& t, double p, bool two_phase) {
    const std::string label = (two_phase ? "Vapour pressure p/" : " System pressure p/") +
                              unit_name(t.units(), Dimension::pressure) + " = ";
    const bool none = p == 0.0 && !t.request.method.global;
    t.out.co2 = {label + (none ? "(Error)" : pressure_by_mask(t.units(), p, "####0.000")), none,
                 false};
}

/// What the state solvers say of a failure.
void tell_failure(Teller& t) {
    switch (t.answer.reason) {
        case Reason::belowVirial:
            t.out.co2 = {" p = , no p-solution (V < B)", true, false};
            break;
        case Reason::belowCovolume:
            calculation_error(t, t.request.method.global ? " (v <= b) ERROR1" : " (v <= b)");
            break;
        case Reason::noVapourDensity:
            calculation_error(t, " (no rho_V)");
            break;
        case Reason::noTankLiquidDensity:
            calculation_error(t, " (no rho_L)");
            break;
        case Reason::solver:
            calculation_error(t, error_code());
            break;
        default:
            break;
    }
}

void tell_given(Teller& t, double rho) {
    t.out.par1.text = temperature_text(t, t.answer.T);
    t.out.par2.text = density_text(t, rho);
}

void tell_state(Teller& t) {
    const calculation::Answer& a = t.answer;
    if (a.two_phase && !is_tank(t.request.task))
        t.list.value(std::string(22, ' ') + "Vapour fraction y(V) = ",
                     numbers::format(a.y, "0.0#######"));
    if (a.pLV > 0)
        t.out.co1.text =
            "vapour pressure by using CEOS: p(LV )= " + pressure_with_unit(t, a.pLV, "###0.000");
    if (!a.ok()) {
        tell_failure(t);
        return;
    }
    if (a.tank) tank_lines(t, *a.tank);
    density_lines(t);
    if (a.mixture) mean_functions(t);
    tell_pressure(t, a.p, a.mixture);
}

void tell_partial_tank(Teller& t) {
    const calculation::Answer& a = t.answer;
    if (!a.ok()) {
        tell_failure(t);
        tell_pressure(t, 0.0, false);
        return;
    }
    tank_lines(t, *a.tank);
    density_lines(t);
    tell_pressure(t, a.p, a.phases.both());
}

}  // namespace

void tell_given_t_rho(Teller& t) {
    if (tell_missing(t)) return;
    const calculation::BatchDataSet& given = t.request.given;
    tell_given(t, digits_of(t.request.task == calculation::Task::pressureOfLiquid ? given.rhoL
                                                                                  : given.rhoV));
    tell_state(t);
}

void tell_tank(Teller& t) {
    if (t.failed(Reason::noTank) || t.failed(Reason::tankAboveCritical)) return;
    const calculation::Tank& tank = t.request.tank;
    tell_given(t, digits_of(numbers::to_single(static_cast<double>(tank.m) /
                                               static_cast<double>(tank.V))));
    if (t.request.task == calculation::Task::partialTank)
        tell_partial_tank(t);
    else
        tell_state(t);
}

void tank_lines(Teller& t, const calculation::TankContent& c) {
    constexpr auto kAmount = "##0.0000##";
    const double mL = (c.V - c.vapour_volume) * c.rhoL.value_or(0);
    const double mV = c.vapour_volume * c.rhoV.value_or(0);
    ListBuilder& list = t.list;
    list.value("Vapour fraction y(V) = ", numbers::format(c.y, "0.0#######"));
    list.value("volume fraction V-phase phi(V),% = ",
               numbers::format(c.vapour_volume / c.V * 100.0, "0.0###"), " %");
    list.value("Mass fraction = Mole fract. V-Phase y(V),% = ",
               numbers::format(mV / c.m * 100.0, "0.0###"), " %");
    // A value stands only in the column of a phase that exists.
    const auto row = [&](std::string_view name, Dimension dimension, double L, double V,
                         const char* mask) {
        constexpr std::size_t kName = 25, kSymbol = 5, kSign = 32;
        const std::string symbol =
            std::string(models::key_of(dimension)) + "/" + unit_name(t.units(), dimension);
        list.row(
            text::pad_right(text::pad_right(name, kName) + text::pad_left(symbol, kSymbol), kSign) +
                "=  ",
            "",
            {c.rhoL ? by_mask(t.units(), dimension, L, mask) : "",
             c.rhoV ? by_mask(t.units(), dimension, V, mask) : ""});
    };
    row("Volume", Dimension::tankVolume, c.V - c.vapour_volume, c.vapour_volume, kAmount);
    row("Mass", Dimension::mass, mL, mV, kAmount);
    row("amount of substance", Dimension::amount, faults::divide(mL, t.M()),
        faults::divide(mV, t.M()), "##0.0000");
}

}  // namespace quor::report
