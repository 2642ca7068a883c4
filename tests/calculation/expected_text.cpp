#include "expected_text.h"

#include <cmath>
#include <cstdio>
#include <functional>
#include <map>
#include <optional>

#include "common/constants.h"
#include "common/numbers.h"
#include "models/caloric.h"
#include "models/cubic_eos.h"
#include "models/density.h"
#include "models/enthalpy_of_vaporisation.h"
#include "models/model_tables.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"
#include "models/virial.h"
#include "support/codes.h"

using namespace quor;

namespace expected {

using constants::R;

namespace {

/// What the C library has printed with the mark of its own locale.
std::string localised(std::string s) {
    for (char& c : s)
        if (c == '.' || c == ',') c = numbers::decimal_mark();
    return s;
}

std::string print(const char* format, double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, format, value);
    return localised(buffer);
}

std::string trimmed(std::string s) {
    while (!s.empty() && s.back() == ' ') s.pop_back();
    return s;
}

std::string right(const std::string& s, std::size_t width) {
    return s.size() < width ? std::string(width - s.size(), ' ') + s : s;
}

std::string left(const std::string& s, std::size_t width) {
    std::size_t characters = 0;
    for (const char c : s)
        if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U) ++characters;
    return s + std::string(characters < width ? width - characters : 0, ' ');
}

/// A phase of the expected state.
struct Phase {
    bool exists = false;
    double v = 0, rho = 0;
};

struct Work {
    const Setting& setting;
    Result r;
    double T = 0, p = 0;
    Phase L, V;

    const models::SubstanceRecord& substance() const { return setting.substance; }
    const models::ModelSelection& selection() const { return setting.selection; }
    const calculation::Method& method() const { return setting.chosen.method; }
};

double M(const Work& w) {
    return static_cast<double>(w.substance().M);
}

bool is_reduced(const Work& w) {
    return w.setting.units.system == models::UnitSystem::reduced &&
           w.setting.eos_parameters.vcrit_calculated > 0;
}

double volume_factor(const Work& w) {
    if (w.setting.units.system == models::UnitSystem::specific) return 1.0 / M(w);
    return is_reduced(w) ? 1.0 / w.setting.eos_parameters.vcrit_calculated : 1.0;
}

std::string volume_label(const Work& w) {
    if (w.setting.units.system == models::UnitSystem::specific) return "m^3/kg  ";
    return is_reduced(w) ? "V(red)" : "m^3/kmol";
}

bool specific(const Work& w) {
    return w.setting.units.caloric == models::CaloricUnit::specific;
}

double caloric_factor(const Work& w) {
    return specific(w) ? 1.0 / M(w) : 1.0;
}

bool cubic(const Work& w) {
    return models::is_cubic(w.selection().eos);
}

double B(const Work& w, double T) {
    models::EosState state;
    return models::second_virial(w.setting.fluid(), T, state);
}

models::Vaporisation vaporisation_by(const Work& w, std::int16_t code) {
    return models::enthalpy_of_vaporisation(w.setting.fluid(),
                                            {.model = codes::hlv(code),
                                             .equation = w.selection().vapour_pressure,
                                             .reference = w.method().reference,
                                             .T = {},
                                             .p = {}},
                                            w.T, w.p);
}

std::string T_text(double T) {
    return "T = " + fix(T, 3) + " K";
}
std::string p_text(double p) {
    return "p = " + pressure(p) + " kPa";
}

void density_lines(Work& w) {
    const auto show = [](bool exists, double value) {
        return exists && value > 0 ? g7(value) : std::string();
    };
    w.r.list.push_back(
        row("density", "rho/ (kg/m^3)  = ", show(w.L.exists, w.L.rho), show(w.V.exists, w.V.rho)));
    w.r.list.push_back(row(
        "Volume", "v/ (" + volume_label(w) + ")  = ", show(w.L.exists, w.L.v * volume_factor(w)),
        show(w.V.exists, w.V.v * volume_factor(w))));
    if (w.V.exists) w.r.numbers[9] = w.V.v * volume_factor(w);
    if (w.L.exists) w.r.numbers[19] = w.L.v * volume_factor(w);
}

void state_of_phases(Work& w) {
    w.r.phases = w.L.exists && w.V.exists ? "V+L" : w.V.exists ? " V " : " L ";
    w.r.numbers[1] = w.p;
}

void fail(Work& w, const std::string& message) {
    w.r.failed = true;
    w.r.list.push_back("Message from Sub CalcBatch" + std::string(25, ' ') + message);
}

models::StateTP solve(Work& w) {
    const auto s = models::solve_state_tp(w.setting.fluid(), w.T, w.p);
    w.L = {s->has_L, s->vL.value_or(0), s->rhoL.value_or(0)};
    w.V = {s->has_V, s->vV.value_or(0), s->rhoV.value_or(0)};
    return *s;
}

std::string at(double T, double p) {
    return g7(T) + " K, " + g7(p) + " kPa";
}

void head_of_functions(Work& w) {
    const models::ReferenceState& ref = w.setting.reference;
    w.r.list.push_back(
        "Model: " + trimmed(std::string(models::eos_name(w.selection().eos))) +
        "; ideal-gas cp: " + trimmed(std::string(models::cp_name(w.selection().cp_form))));
    w.r.list.push_back("Reference state: h = 0, s = 0, ideal gas at " +
                       at(static_cast<double>(ref.T0), static_cast<double>(ref.p0)));
    w.r.list.push_back("Surroundings for exergies: " + at(ref.Tenv, ref.penv));
}

/// v, h, s, g, u, a, e(H), e(U), cp, cV, w.
std::array<double, 11> functions(const Work& w, const Phase& phase) {
    const models::Fluid fluid = w.setting.fluid();
    const models::ReferenceState& ref = w.setting.reference;
    const auto z = models::state_functions(fluid, ref, models::surroundings_state(fluid, ref), w.T,
                                           w.p, phase.v);
    return {phase.v,        z->h,           z->s,  z->g,  z->u, z->a,
            z->exergies->H, z->exergies->U, z->cp, z->cv, z->w};
}

void mean_functions(Work& w, double y) {
    const auto zL = functions(w, w.L), zV = functions(w, w.V);
    const std::string title =
        std::string(specific(w) ? "specific global functions" : "molar global functions") +
        "  z = y(V) z(V) + (1 - y(V) z(L)";
    w.r.list.push_back("");
    w.r.list.push_back(title);
    w.r.list.push_back(std::string(title.size(), '='));
    head_of_functions(w);
    const double v = y * w.V.v + (1 - y) * w.L.v;
    w.r.list.push_back("Density rho       = " + g7(M(w) / v) + "  kg/m^3");
    w.r.list.push_back("Volume  v         = " + g7(v * volume_factor(w)) + "  " +
                       trimmed(volume_label(w)));
    const std::string energy = specific(w) ? "kJ/kg" : "kJ/kmol";
    const std::string capacity = specific(w) ? "kJ/(kg K)" : "kJ/(kmol K)";
    const struct {
        std::size_t index;
        const char* label;
        const std::string& unit;
    } rows[] = {{1, "Enthalpy  h       = ", energy},  {2, "Entropy  s        = ", capacity},
                {3, "Gibbs Fu. g       = ", energy},  {4, "Intern. Energy u  = ", energy},
                {5, "Helmholtz Fu. a   = ", energy},  {6, "Exergy of H   e   = ", energy},
                {7, "Exergy of U   e   = ", energy},  {8, "Heat capacity cp  = ", capacity},
                {9, "Heat capacity cV  = ", capacity}};
    for (const auto& line : rows)
        w.r.list.push_back(line.label +
                           g7((y * zV[line.index] + (1 - y) * zL[line.index]) * caloric_factor(w)) +
                           "  " + line.unit);
}

// ---- Modes ------------------------------------------------------------------------------------

void given_T_rho(Work& w, double rho) {
    const models::SubstanceRecord& s = w.substance();
    w.r.par1 = T_text(w.T);
    w.r.par2 = "rho = " + between(rho, 1, 4) + " kg/m^3";
    const double v = M(w) / rho;
    double y = 1;
    bool two_phase = false;
    if (!cubic(w)) {
        const double b = B(w, w.T);
        if (v <= b) {
            w.r.co2 = " p = , no p-solution (V < B)";
            w.r.failed = true;
            return;
        }
        w.p = R * w.T / (v - b);
    } else {
        const models::EosState eos = models::eos_at(w.setting.fluid(), w.T);
        if (w.T < s.Tcrit) {
            const auto sat = models::saturation_pressure(w.setting.fluid(), w.T);
            w.r.co1 = "vapour pressure by using CEOS: p(LV )= " + pressure(sat->p) + " kPa";
            two_phase = v >= sat->v[0] && v <= sat->v[2];
            if (two_phase) {
                w.p = sat->p;
                y = (v - sat->v[0]) / (sat->v[2] - sat->v[0]);
                w.L = {true, sat->v[0], M(w) / sat->v[0]};
                w.V = {true, sat->v[2], M(w) / sat->v[2]};
                w.r.list.push_back(std::string(22, ' ') +
                                   "Vapour fraction y(V) = " + between(y, 1, 8));
            }
        }
        if (!two_phase) {
            if (v <= eos.b) {
                fail(w, w.method().global ? " (v <= b) ERROR1" : " (v <= b)");
                return;
            }
            w.p = models::cubic_pressure(eos, w.T, v);
        }
    }
    if (!two_phase) solve(w);
    density_lines(w);
    if (two_phase) mean_functions(w, y);
    w.r.co2 =
        (two_phase ? "Vapour pressure p/kPa = " : " System pressure p/kPa = ") + pressure(w.p);
    state_of_phases(w);
}

void given_T_p(Work& w) {
    w.r.par1 = T_text(w.T);
    w.r.par2 = p_text(w.p);
    if (!cubic(w)) w.r.co2 = " Virialcoeff. B = " + g7(B(w, w.T)) + "  m^3/kmol";
    w.r.co1 = std::string(solve(w).text);
    density_lines(w);
    state_of_phases(w);
}

void given_p_rho(Work& w, double rho) {
    w.r.par1 = p_text(w.p);
    w.r.par2 = "rho = " + between(rho, 1, 4) + " kg/m^3";
    w.T = models::temperature_from_p_rho(w.setting.fluid(), w.p, rho, false).value();
    w.r.co2 = " T = " + fix(w.T, 3) + " K";
    solve(w);
    density_lines(w);
    state_of_phases(w);
}

void partial_phases(Work& w, double vV) {
    if (!models::is_known(w.method().reference) || !(vV > 1e-6)) return;
    const models::SubstanceRecord& s = w.substance();
    const models::BensonPoint& ref = w.method().reference;
    w.V = {true, vV, M(w) / vV};
    double rhoL = 0;
    if (w.method().liquid_by_benson) {
        const auto Tref = static_cast<double>(ref.T);
        rhoL = (static_cast<double>(ref.rhoL) + static_cast<double>(ref.rhoV)) * (w.T - s.Tcrit) /
                   (Tref - s.Tcrit) +
               2 * s.rhocrit * (Tref - w.T) / (Tref - s.Tcrit) - w.V.rho;
    } else {
        rhoL = models::density_liquid(s, static_cast<float>(w.T))->rho;
    }
    w.L = {true, M(w) / rhoL, rhoL};
    w.r.list.push_back(std::string(12, ' ') + (w.method().liquid_by_benson
                                                   ? "by BENSON's method:"
                                                   : "with database equation rho(T):"));
}

void hlv_of_eos(Work& w) {
    const auto r = vaporisation_by(w, 7);
    if (!r.h) return;
    w.r.numbers[29] = static_cast<double>(*r.h) * caloric_factor(w);
    w.r.numbers[30] = w.r.numbers[29] / w.T;
}

void equilibrium(Work& w, bool fromT) {
    const models::SubstanceRecord& s = w.substance();
    const models::Fluid fluid = w.setting.fluid();
    const models::VapourPressureEquation code = w.selection().vapour_pressure;
    w.L.exists = w.V.exists = true;
    w.r.par1 = fromT ? T_text(w.T) : p_text(w.p);
    const bool eos = w.method().global && w.selection().eos_has_priority;
    double vL = 0, vV = 0;
    if (eos) {
        const auto sat = fromT ? models::saturation_pressure(fluid, w.T)
                               : models::saturation_temperature(fluid, w.p);
        (fromT ? w.p : w.T) = fromT ? sat->p : sat->T;
        vL = sat->v[0];
        vV = sat->v[2];
    } else if (fromT) {
        w.p = models::vapour_pressure(s, w.T, code)->p;
    } else {
        w.T = models::boiling_temperature(s, w.p, code)->T;
    }
    w.r.numbers[0] = w.T;

    if (!w.method().global) {
        w.r.co1 = fromT ? "p(LV) from actual vapour pressure equation:"
                        : "T(LV) by using actual vapour pressure equation:";
        w.r.co2 = fromT ? pressure(w.p) + " kPa" : fix(w.T, 3) + " K";
        if (!cubic(w)) {
            vV = R * w.T / w.p + B(w, w.T);
        } else {
            const double psat = models::saturation_pressure(fluid, w.T)->p;
            const auto roots = models::solve_cubic(models::eos_at(fluid, w.T), w.T, w.p);
            vV = w.p <= psat ? roots->v[static_cast<std::size_t>(roots->count - 1)]
                             : (roots->count == 3 ? roots->v[2] : 0.0);
        }
        partial_phases(w, vV);
        density_lines(w);
    } else if (eos) {
        w.r.co1 = fromT ? "p(LV) by using the cubic EOS: " : "T(LV) by using cubic EOS";
        w.r.co2 = fromT ? " p(LV) = " + pressure(w.p) + " kPa" : " T(LV) = " + fix(w.T, 3) + " K";
        w.L = {true, vL, M(w) / vL};
        w.V = {true, vV, M(w) / vV};
        w.r.list.push_back("            by using cubic EOS:");
        density_lines(w);
    } else {
        w.r.co2 =
            fromT ? " p(LV) = " + pressure(w.p) + " kPa" : "T(LV) = " + between(w.T, 1, 2) + " K";
        w.r.list.push_back(std::string(75, '='));
        w.r.list.push_back(
            std::string(12, ' ') +
            "(Calculation of density not possible by using a vapour pressure equation" +
            (fromT ? "!)" : ")"));
        w.r.list.push_back(std::string(75, '='));
    }
    if (w.method().global) hlv_of_eos(w);
    state_of_phases(w);
}

void vaporisation(Work& w, bool fromT) {
    const std::int16_t method = models::code_of(w.selection().vaporisation);
    const auto r = vaporisation_by(w, method);
    w.r.par1 = fromT ? T_text(w.T) : p_text(w.p);
    w.T = r.T.value_or(0);
    w.p = r.p.value_or(0);
    w.r.numbers[0] = w.T;
    w.r.co1 = r.explanation;
    if (!fromT) w.r.co2 = " T(LV) = " + fix(w.T, 3) + " K";
    if (fromT && w.p > 1e-6) w.r.co2 = " p(LV) = " + pressure(w.p) + " kPa";
    w.L = {true, r.rhoL ? M(w) / *r.rhoL : 0, r.rhoL.value_or(0)};
    w.V = {true, r.rhoV ? M(w) / *r.rhoV : 0, r.rhoV.value_or(0)};
    density_lines(w);
    state_of_phases(w);

    const double h = static_cast<double>(*r.h) * caloric_factor(w);
    w.r.numbers[29] = h;
    w.r.numbers[30] = h / w.T;
    const std::string hLabel = specific(w) ? "delta(LV)h/(kJ/kg)" : "delta(LV)h/(kJ/kmol)";
    const std::string sLabel = specific(w) ? "delta(LV)s/(kJ/(kg K))" : "delta(LV)s/(kJ/(kmol K))";
    const auto number = [](double value) { return fix(value, value < 1000 ? 2 : 1); };
    static const std::map<int, std::string> names = {
        {1, "equation Fu(T) from database"},
        {2, "Chen-correlation"},
        {3, "Carruth/Kobayashi-correlation"},
        {4, "Watson-correlation"},
        {5, "using vapour press. equ.+ rhoL(T)"},
        {6, "using vapour press. equ. + Benson's method"},
        {7, "by using CEOS ('global calculation')"}};
    auto& list = w.r.list;
    if (!r.obtained.empty()) {
        const std::string words =
            r.obtained.ends_with(':') ? r.obtained.substr(0, r.obtained.size() - 1) : r.obtained;
        list.push_back(words + ": " + (fromT ? g7(w.p) + " kPa" : g7(w.T) + " K"));
    }
    list.push_back("Enthalpy of vaporization from " + names.at(method));
    list.push_back(std::string(70, '-'));
    list.push_back(hLabel + " = " + number(h));
    list.push_back("(enthalpy of vapor. delta(LV)s = delta(LV)h / T: " + sLabel + " = " +
                   number(h / w.T) + ")");
    if (method == 5 || method == 6) {
        list.push_back("Following compressibility factors z were used:");
        list.push_back("z(L) = " + g7(*r.zL));
        list.push_back("z(V) = " + g7(*r.zV));
        list.push_back("z(V) by using " +
                       trimmed(std::string(models::eos_name(w.selection().eos))));
        list.push_back(method == 6 ? "rho_L for z_L-calculation (MATHIAS/CAILLETET/BENSON)"
                                   : "rho_L for z_L by using database function rho_L = Fu(T)");
    }
    if (method != 1) {
        const auto database = vaporisation_by(w, 1);
        list.push_back("(cf. function from data base: " + hLabel + " = " +
                       number(static_cast<double>(*database.h) * caloric_factor(w)));
    }
}

void caloric_functions(Work& w) {
    w.r.par1 = T_text(w.T);
    w.r.par2 = p_text(w.p);
    solve(w);
    head_of_functions(w);
    const bool kg = specific(w);
    const std::string volume = "v/ (" + volume_label(w) + ")  = ";
    const struct {
        const char* name;
        const char* molar;
        const char* specific;
    } rows[] = {{"Volume", volume.c_str(), volume.c_str()},
                {"Enthalpy", "h/ (kJ/kmol)   = ", "h/ (kJ/kg)     = "},
                {"Entropy", "s/ (kJ/kmol/K) = ", "s / (kJ/(kg K))= "},
                {"Gibbs Function", "g/ (kJ/kmol)   = ", "g/ (kJ/kg)     = "},
                {"Internal Energy", "u/ (kJ/kmol)   = ", "u/ (kJ/kg)     = "},
                {"Helmholtz Funct.", "a/ (kJ/kmol)   = ", "a/ (kJ/kg)     = "},
                {"Exergy of H", "e/ (kJ/kmol)   = ", "e/ (kJ/kg)     = "},
                {"Exergy of U", "e/ (kJ/kmol)   = ", "e/ (kJ/kg)     = "},
                {"Heat Capacity", "cp/(kJ/kmol/K) = ", "cp /(kJ/(kg K))= "},
                {"cV", "cV/(kJ/kmol/K) = ", "cV /(kJ/(kg K))= "},
                {"Speed of Sound", "as/ (m/s)      = ", "as/ (m/s)      = "}};
    std::array<double, 11> zL{}, zV{};
    if (w.L.exists) zL = functions(w, w.L);
    if (w.V.exists) zV = functions(w, w.V);
    for (std::size_t i = 0; i < 11; ++i) {
        const double factor = i == 0 ? volume_factor(w) : i == 10 ? 1.0 : caloric_factor(w);
        w.r.list.push_back(row(rows[i].name, kg ? rows[i].specific : rows[i].molar,
                               w.L.exists ? g7(zL[i] * factor) : "",
                               w.V.exists ? g7(zV[i] * factor) : ""));
        if (i < 10 && w.V.exists) w.r.numbers[9 + i] = zV[i] * factor;
        if (i < 10 && w.L.exists) w.r.numbers[19 + i] = zL[i] * factor;
    }
    if (w.L.exists) w.r.numbers[39] = zL[10];
    if (w.V.exists) w.r.numbers[40] = zV[10];
    state_of_phases(w);
}

double virial_of(const Work& w, std::int16_t code) {
    models::EosState state;
    return models::second_virial(w.setting.fluid().with(codes::eos(code)).value(), w.T, state);
}

void virial_coefficients(Work& w) {
    w.r.par1 = T_text(w.T);
    const std::string title = "Comparison of Virial Coefficients, [B] = m^3/kmol";
    w.r.list.push_back(title);
    w.r.list.push_back(std::string(title.size(), '='));
    const std::int16_t active = models::code_of(w.selection().eos);
    for (std::int16_t code = 11; code <= 16; ++code) {
        const double b = virial_of(w, code);
        w.r.list.push_back(left(std::string(models::eos_name(codes::eos(code))), 35) +
                           " {B} = " + right(g7(b), 16));
        if (code == active || (active >= 2 && active <= 6 && code == active + 9))
            w.r.numbers[41] = b;
    }
    if (active == 0 || active == 10) {
        w.r.numbers[41] = B(w, w.T);
        w.r.list.push_back(left(std::string(models::eos_name(codes::eos(active))), 35) +
                           " {B} = " + right(g7(B(w, w.T)), 16));
    }
}

void cubic_block(Work& w) {
    const models::EosState s = models::eos_at(w.setting.fluid(), w.T);
    const std::string title = "Paramet. of the generalized cub. EOS (" +
                              trimmed(std::string(models::eos_name(w.selection().eos))) + "):";
    w.r.list.push_back("");
    w.r.list.push_back(title);
    w.r.list.push_back(std::string(title.size(), '='));
    w.r.list.push_back("  A =" + right(g7(s.a), 16));
    w.r.list.push_back("  B =" + right(g7(s.b), 16));
    w.r.list.push_back("  C =" + right(g7(s.c), 16));
    w.r.list.push_back("  D =" + right(g7(s.d), 16));
}

void common_end(Work& w, int mode) {
    const models::SubstanceRecord& s = w.substance();
    if (cubic(w) && w.T > 0) {
        if (w.T == s.Tcrit && w.p == s.pcrit)
            w.r.co1 = "=> critical point (T = T(cr), p = p(cr))";
        else if (w.p > s.pcrit && w.T > s.Tcrit)
            w.r.co1 = "=> supercritical phase L = V (T > T(cr), p > p(cr))";
        else if (w.p > s.pcrit)
            w.r.co1 = "=> supercritical L-phase (T < T(cr), p > p(cr))";
        else if (w.T > s.Tcrit)
            w.r.co1 = w.p == 0 ? "=> supercritical phase (T > T(cr))"
                               : "=> supercritical V-phase (T > T(cr), p < p(cr))";
    }
    if (w.r.failed) {
        w.r.phases = "   ";
        return;
    }
    if (cubic(w) && ((mode != 6 && mode != 7) || w.selection().vaporisation == codes::hlv(7)))
        cubic_block(w);
    if (!cubic(w) && mode != 11) {
        w.r.list.push_back("");
        w.r.list.push_back("Virial coeffizient:");
        w.r.list.push_back("  B =" + right(g7(B(w, w.T)), 16) + " m^3/kmol");
    }
}

}  // namespace

std::string g7(double value) {
    return print("%.7G", static_cast<double>(static_cast<float>(value)));
}

std::string fix(double value, int decimals) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
    return localised(buffer);
}

std::string between(double value, int least, int most) {
    std::string s = fix(value, most);
    for (int i = most; i > least && s.back() == '0'; --i) s.pop_back();
    return s;
}

std::string signed_exp(double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "% .4E", value);
    return localised(buffer);
}

std::string row(const std::string& name, const std::string& label, const std::string& L,
                const std::string& V) {
    const std::string head = label.empty() ? left(name, 34) : left(name, 17) + left(label, 17);
    return trimmed(head + right(L, 20) + right(V, 20));
}

std::string pressure(double p, int decimals) {
    return p >= 0.01 ? fix(p, decimals) : g7(p);
}

Result Of(const Setting& setting, int mode, const calculation::BatchDataSet& input) {
    Work w{.setting = setting, .r = {}, .L = {}, .V = {}};
    const auto rho = static_cast<double>(mode == 2 ? input.rhoL : input.rhoV);
    const bool needsT = mode != 5 && mode != 7 && mode != 13;
    const bool needsP = mode == 3 || mode == 5 || mode == 7 || mode == 8 || mode == 13;
    if (needsT) w.T = w.r.numbers[0] = input.T;
    if (needsP) w.p = w.r.numbers[1] = input.p;
    switch (mode) {
        case 1:
        case 2:
            given_T_rho(w, rho);
            break;
        case 3:
            given_T_p(w);
            break;
        case 4:
            equilibrium(w, true);
            break;
        case 5:
            equilibrium(w, false);
            break;
        case 6:
            vaporisation(w, true);
            break;
        case 7:
            vaporisation(w, false);
            break;
        case 8:
            caloric_functions(w);
            break;
        case 11:
            virial_coefficients(w);
            break;
        case 13:
            given_p_rho(w, rho);
            w.r.numbers[0] = w.T;
            break;
        default:
            break;
    }
    common_end(w, mode);
    return w.r;
}

}  // namespace expected
