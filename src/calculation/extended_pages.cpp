#include <cmath>

#include "calculation/calc_modes.h"
#include "calculation/job.h"
#include "calculation/phase_functions.h"
#include "calculation/reference_lines.h"
#include "common/constants.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "legacy/wrappers.h"
#include "models/caloric.h"
#include "models/model_tables.h"
#include "models/state_solver.h"

/// The pages behind the check boxes of the result view.
namespace quor::calculation {

using legacy::the_session;

namespace {

constexpr std::size_t kRule = 74, kMechanicalRule = 68;
constexpr auto kSigned = " 0.0000E+00;-0.0000E+00";

/// Derivatives and residual functions of one phase, in molar units.
struct PhaseDerivatives {
    double v = 0;
    models::PhaseTable table;
    std::array<double, 3> mechanical{};  ///< alpha, chi, beta
    bool exists = false;
};

PhaseDerivatives derivatives_of(const PhaseState& phase, double T, double p) {
    PhaseDerivatives d;
    if (!phase.exists || !(phase.v > 0)) return d;
    d.v = phase.v;
    d.table = models::ResidualFunctions(T, p, phase.v);
    d.exists = d.table.filled;
    if (!d.exists) return d;
    // Expansion (1/v)(dv/dT)p, compressibility -(1/v)(dv/dp)T and tension (1/p)(dp/dT)v.
    d.mechanical = {faults::divide(d.table.first[4], d.v), -faults::divide(d.table.first[3], d.v),
                    faults::divide(d.table.first[2], p)};
    return d;
}

bool has_heat_capacity(double T) {
    return models::IdealGasCp(T).status == kSuccess;
}

/// Values in the order of `FunctionLabels`.
std::array<double, 24> in_label_order(const PhaseDerivatives& d) {
    std::array<double, 24> z{};
    for (std::size_t i = 0; i < 6; ++i) z[i] = d.table.first[i + 1];
    for (std::size_t i = 0; i < 3; ++i) z[6 + i] = d.mechanical[i];
    z[9] = d.table.second[1];
    z[12] = d.table.second[2];
    z[13] = d.table.second[3];
    for (std::size_t i = 0; i < 7; ++i) z[14 + i] = d.table.residual[i];
    z[21] = d.table.residual[models::JouleThomson];
    z[22] = d.table.residual[models::Cv];
    z[23] = d.table.residual[models::Cp];
    return z;
}

void store(Job& job, const PhaseDerivatives& d, std::size_t joule_thomson,
           calculation::PhaseFunctions& record) {
    if (!d.exists) return;
    record.extended = in_label_order(d);
    store_fu(job, joule_thomson, d.table.residual[models::JouleThomson]);
    for (std::size_t i = 0; i < 3; ++i) store_fu(job, 35 + i, d.mechanical[i]);
}

/// A label of 14 characters and a colon.
std::string label(int index) {
    constexpr std::size_t kWidth = 14;
    return text::pad_right(models::FunctionLabel(index), kWidth) + " : ";
}

/// The row of a value of both phases; `of` takes it from a phase.
template <class Of>
void value_row(Job& job, const std::string& name, const PhaseDerivatives& L,
               const PhaseDerivatives& V, const char* mask, Of of) {
    const auto value = [&](const PhaseDerivatives& d) {
        return d.exists ? numbers::Format(faults::finite(of(d)), mask) : std::string();
    };
    job.list.row(name, "", {value(L), value(V)});
}

void residual_page(Job& job, const PhaseDerivatives& L, const PhaseDerivatives& V) {
    ListBuilder& list = job.list;
    list.blank();
    list.rule('*', kRule);
    list.add("diff. Joule-Thomson coefficients; fugacity coeff.; residual functions");
    list.rule('*', kRule);
    for (std::string& line : reference_lines(false)) list.add(std::move(line));
    list.add(std::string(models::FunctionLabel(21)) + " (Joule-Thomson coefficient [K/kPa]):");
    if (has_heat_capacity(job.T))
        value_row(job, "", L, V, kSigned,
                  [](const PhaseDerivatives& d) { return d.table.residual[models::JouleThomson]; });
    for (int i = 0; i <= 6; ++i) {
        if (i == 3) list.add("Residual Functions:");
        value_row(job, label(14 + i), L, V, kSigned, [&](const PhaseDerivatives& d) {
            return d.table.residual[static_cast<std::size_t>(i)];
        });
    }
    list.rule('*', kMechanicalRule);
    list.add(std::string(20, ' ') + "Mechanical Coefficients");
    list.rule('*', kMechanicalRule);
    for (int i = 1; i <= 3; ++i)
        value_row(job, label(5 + i), L, V, "0.0000E+00", [&](const PhaseDerivatives& d) {
            return d.mechanical[static_cast<std::size_t>(i - 1)];
        });
}

/// A row of the page of derivatives: its label, and the powers of v that a change to another unit
/// of volume multiplies: dp/dV has -1, d2p/dV2 has -2.
struct DerivativeRow {
    int label;
    bool second;
    std::size_t column;
    int powerOfVolume;
};

constexpr DerivativeRow kDerivativeRows[] = {
    {0, false, 1, -1}, {1, false, 2, 0}, {2, false, 3, 1}, {3, false, 4, 1}, {4, false, 5, -1},
    {5, false, 6, 0},  {9, true, 1, -2}, {12, true, 2, 1}, {13, true, 3, -2}};

/// Volume unit of the page: m^3/kg in specific units, else m^3/kmol.
double volume_unit() {
    return the_session.UnitMode == 1
               ? faults::divide(1.0, static_cast<double>(legacy::the_substance.M))
               : 1.0;
}

void inflexion_lines(Job& job) {
    const models::Inflexion points = models::InflexionPoints(job.T);
    const double unit = volume_unit();
    const char* mask = the_session.UnitMode == 1 ? "#0.0000# m^3/kg" : "#0.0000# m^3/kmol";
    if (points.count == 0) job.list.add("Inflection point of p-v isoth.: No solution found");
    for (int i = 0; i < points.count; ++i) {
        const auto k = static_cast<std::size_t>(i);
        job.list.add(std::string(i == 0 ? "1st" : "2nd") + " point of inflexion p-v isoth.: v = " +
                     numbers::Format(points.v[k] * unit, mask) +
                     ", p = " + numbers::Format(points.p[k], "#####0 kPa") + " (cf. 2nd deriv.=" +
                     numbers::Format(points.secondDerivative[k] / (unit * unit), "0.0E+00") + ")");
    }
}

void derivative_page(Job& job, const PhaseDerivatives& L, const PhaseDerivatives& V) {
    ListBuilder& list = job.list;
    const double unit = volume_unit();
    list.rule('*', kRule);
    list.add(std::string(20, ' ') + "derivatives with respect to T, p, v" +
             (the_session.UnitMode == 1 ? " (specif.)" : " (molar)"));
    list.rule('*', kRule);
    for (const DerivativeRow& row : kDerivativeRows)
        value_row(job, label(row.label), L, V, kSigned, [&](const PhaseDerivatives& d) {
            const double z = row.second ? d.table.second[row.column] : d.table.first[row.column];
            return z * std::pow(unit, row.powerOfVolume);
        });
    inflexion_lines(job);
}

void show_functions(Job& job, const PhasePair& pair) {
    ListBuilder& list = job.list;
    list.rule('*', kRule);
    list.add(std::string(31, ' ') + "thermodynamic Fu(T)");
    list.rule('*', kRule);
    if (pair.failed()) {
        list.add_red("no Result");
        return;
    }
    for (std::string& line : reference_lines()) list.add(std::move(line));
    function_table(job, pair, TableKind::Page);
}

void function_page(Job& job) {
    const PhasePair pair = functions_of_phases(job);
    if (!job.call.Quiet) show_functions(job, pair);
    if (pair.failed()) return;
    store_functions(job, pair);
    const auto replace_a = [&](std::size_t first, const std::optional<FunctionValues>& phase) {
        if (phase)
            store_fu(job, first + kA,
                     the_session.CaloricFactor * (phase->z[kU] - job.p * phase->z[kVolume]));
    };
    replace_a(kFuL, pair.L);
    replace_a(kFuV, pair.V);
}

/// The phases for the pages, from a fresh solution. An equilibrium keeps both of its phases even
/// when the rounding of p(LV) puts the state to one side of the phase boundary.
bool solve_again(Job& job) {
    const models::StateTP state = models::SolveStateTP(job.T, job.p);
    if (state.status != kSuccess) return false;
    const bool equilibrium = job.L.exists && job.V.exists && state.nRoots == 3;
    take_state(job, state);
    if (equilibrium) job.L.exists = job.V.exists = true;
    return true;
}

bool ends_in_a_state(std::int16_t mode) {
    return mode >= 1 && mode != 11 && mode != 12 && !is_vaporisation(mode) &&
           !is_database_function(mode);
}

}  // namespace

void ExtendedPages(Job& job) {
    const std::int16_t page = the_session.OutputPage;
    if (page <= 1 && !the_session.EquilibriumFunctions) return;
    if (!ends_in_a_state(job.mode()) || !(job.T > 0) || !(job.p > 0)) return;
    const PhaseState calculatedL = job.L, calculatedV = job.V;
    const std::int16_t calculatedRoots = job.Roots;
    if (!solve_again(job)) return;
    if (page > 1) {
        const PhaseDerivatives L = derivatives_of(job.L, job.T, job.p);
        const PhaseDerivatives V = derivatives_of(job.V, job.T, job.p);
        store(job, L, 38, job.record.FuL);
        store(job, V, 34, job.record.FuV);
        // A quiet call has no list: it is spared the texts.
        const bool shown = !job.call.Quiet;
        if (shown && (page == 2 || page == 4)) residual_page(job, L, V);
        if (shown && (page == 3 || page == 4)) derivative_page(job, L, V);
    }
    if (the_session.EquilibriumFunctions) function_page(job);
    job.L = calculatedL;
    job.V = calculatedV;
    job.Roots = calculatedRoots;
}

}  // namespace quor::calculation
