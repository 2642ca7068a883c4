#include "tools/quorcalc/options.h"

namespace quor::quorcalc {

namespace {

using A = Arguments;

constexpr std::string_view kPriorities[] = {"ceos", "vp"};
constexpr std::string_view kUnits[] = {"molar", "specific", "reduced"};
constexpr std::string_view kReferences[] = {"1", "2", "10"};
constexpr std::string_view kChoices[] = {"first", "second", "third"};

constexpr Option kCommon[] = {
    {"db", &A::db, "database file (default: STUDENT.Q05 in the program's folder)"},
    {"substance", &A::substance, "name, CASRN, or #number in the database"},
    {"eos", &A::eos, "equation of state, 0 to 16"},
    {"vp", &A::vp, "vapour pressure equation, three letters"},
    {"hlv", &A::hlv, "method of the enthalpy of vaporisation, 1 to 7"},
    {"cp", &A::cp, "ideal-gas cp: 1 polynomial, 2 sinh/cosh"},
    {"watson", &A::watson, "Watson exponent"},
    {"priority", &A::priority, "p(LV), T(LV) from: ceos or vp", kPriorities},
    {"units", &A::units, "units of the results", kUnits},
    {"in-units", &A::in_units,
     "units of the numbers of the call: molar, specific, metric, chemistry, us, or T=degC,p=bar,.. "
     "(also v, rho, h, s, w, V, m, n); not of --window, --from, --to"},
    {"out-units", &A::out_units,
     "the same for all that is told; without it JSON is in K, kPa, m^3/kmol, kJ/kmol"},
    {"refmode", &A::refmode, "reference state: 1, 2 or 10", kReferences},
    {"refstate", &A::refstate,
     "zero of h and s: iir, ashrae, nbp, water, conventional, formation, or own:T,p,V|L,h,s "
     "(K, kPa, kJ/kmol, kJ/(kmol K))"},
    {"href", &A::href, "h(ref), kJ/kmol"},
    {"sref", &A::sref, "s(ref), kJ/(kmol K)"},
    {"T0", &A::T0, "reference temperature, K"},
    {"p0", &A::p0, "reference pressure, kPa"},
    {"Tenv", &A::Tenv, "temperature of the surroundings, K"},
    {"penv", &A::penv, "pressure of the surroundings, kPa"},
    {"benson", &A::benson, "second reference point T,p,rhoL,rhoV"},
    {"set", &A::set, "FIELD=VALUE of the substance record, any number of times"},
    {"json", &A::json, "one JSON object on standard output"},
};

constexpr Option kOwn[] = {
    {"T", &A::T, "temperature, K"},
    {"p", &A::p, "pressure, kPa"},
    {"v", &A::v, "molar volume, m^3/kmol"},
    {"rho", &A::rho, "density, kg/m^3"},
    {"V", &A::V, "volume of a tank, m^3"},
    {"m", &A::m, "mass in a tank, kg"},
    {"Tcr", &A::Tcr, "critical temperature of a fit, K"},
    {"pcr", &A::pcr, "critical pressure of a fit, kPa"},
    {"Tb", &A::Tb, "normal boiling temperature, K"},
    {"fraction", &A::fraction, "vapour fraction"},
    {"mode", &A::mode, "kind of calculation"},
    {"page", &A::page, "extended result page, 1 to 4"},
    {"kind", &A::kind,
     "kind of surface, 1 to 9; of a chart logph, ts, hs, pv, logpv, tv, pt, th, zp or eh"},
    {"families", &A::families, "lines of a chart, as T,s,v"},
    {"nx", &A::nx, "mesh lines in x"},
    {"ny", &A::ny, "mesh lines in y"},
    {"points", &A::points, "points per curve"},
    {"model", &A::model, "fit model"},
    {"code", &A::code, "vapour pressure equation, three letters"},
    {"row", &A::row, "phase of the volume, V or L"},
    {"type", &A::type, "code of the curve"},
    {"window", &A::window, "xmin,xmax,ymin,ymax"},
    {"file", &A::file, "data file"},
    {"lst", &A::lst, "result list to write"},
    {"start", &A::start, "start values a,b,.."},
    {"fix", &A::fix, "numbers of fixed parameters i,j, or none"},
    {"propose", &A::propose, "start values proposed from the points"},
    {"groups", &A::groups, "\"-CH3=2,>CH-=1\""},
    {"given", &A::given,
     "two of T, p, v, rho, h, s, u, x (vapour fraction) with their values: h=-2000,s=-90 (K, kPa, "
     "m^3/kmol, kg/m^3, kJ/kmol, kJ/(kmol K))"},
    {"choice", &A::choice, "which of several states, from the densest on", kChoices},
    {"liquid", &A::liquid, "benson or rhoT"},
    {"from", &A::from, "begin of the range of p/kPa or T/K of two functions over each other"},
    {"to", &A::to, "its end"},
    {"points-out", &A::points_out, "points on standard output beside a picture"},
    {"png", &A::png, "picture to write"},
    {"svg", &A::svg, "picture to write"},
    {"pdf", &A::pdf, "picture to write"},
    {"global", &A::global, "both phases from the cubic EOS"},
    {"partial", &A::partial, "L phase by Benson's method or rho(T)"},
    {"uhs", &A::uhs, "u, h, s, g ... for the equilibrium"},
    {"scurve", &A::scurve, "metastable branch"},
    {"tieline", &A::tieline, "tie-line"},
    {"log", &A::log, "differences of logarithms"},
    {"lg", &A::lg, "decadic form of the equation"},
};

}  // namespace

std::span<const Option> common_options() {
    return kCommon;
}

const Option* find_option(std::string_view name) {
    for (const Option& option : kOwn)
        if (option.name == name) return &option;
    return nullptr;
}

}  // namespace quor::quorcalc
