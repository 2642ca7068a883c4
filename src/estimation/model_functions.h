#pragma once

#include <array>

#include "estimation/fit_problem.h"

/// The correlations that can be fitted, y = f(x; A, B, ...), as plain functions. x is T/K but for
/// the two general models. They return false on a failure (see `ModelFunction`).
namespace quor::estimation {

struct PressureResult {
    double p = 0;  ///< kPa
    bool failed = false;
};
/// Pressure of the implicit Frost-Kalkwarf equation at T/K: A + B/(C + T - 273.15) + D ln(T)/L +
/// E p/T^2 = ln(p)/L. With `thodos` D follows from B and Tcr (G. Thodos).
PressureResult frost_pressure(double T, const Parameters& par, const ModelContext& context,
                              bool thodos);
/// Pressure of the Wagner equation with exponents 1, 1.5, 3 and 6 at T/K below Tcr.
PressureResult wagner_pressure(double T, const Parameters& par, double Tcr, double pcr);

struct CpSinhResult {
    double cp = 0;  ///< kJ/(kmol K)
    bool failed = false;
};
/// Heat capacity A + B (u/sinh u)^2 + D (v/cosh v)^2 with u = C/T, v = E/T.
CpSinhResult cp_sinh_cosh(double T, const Parameters& par);
double sinh(double x);  ///< (exp(x) - exp(-x)) 0.5; may be infinite
double cosh(double x);  ///< (exp(x) + exp(-x)) 0.5; may be infinite

/// Parameter D of the Thodos correlation that belongs to B in the form of L.
double thodos_d(double B, const ModelContext& context);

/// Basis functions of the two linear models at x.
void polynomial_basis(double x, Parameters& basis);  ///< 1, x, ..., x^5
void combi_basis(double x, Parameters& basis);       ///< 1, x, x^2, x^3, 1/x, 1/x^2, ln x

bool polynomial(double x, const Parameters& par, const ModelContext&, double& y);
/// Terms with a zero parameter are left out, so that x may be 0 or negative where they allow it.
bool combi_expression(double x, const Parameters& par, const ModelContext&, double& y);
bool august(double T, const Parameters& par, const ModelContext& c, double& p);
bool antoine(double T, const Parameters& par, const ModelContext& c, double& p);
bool frost_kalkwarf(double T, const Parameters& par, const ModelContext& c, double& p);
bool frost_kalkwarf_thodos(double T, const Parameters& par, const ModelContext& c, double& p);
bool riedel_plank_miller(double T, const Parameters& par, const ModelContext& c, double& p);
bool wagner(double T, const Parameters& par, const ModelContext& c, double& p);
bool rackett(double T, const Parameters& par, const ModelContext& c, double& rho);
bool leuna(double T, const Parameters& par, const ModelContext& c, double& rho);
/// A + B T + C T^2 + D T^3, for L density and heat capacity.
bool cubic(double T, const Parameters& par, const ModelContext&, double& y);
bool majer(double T, const Parameters& par, const ModelContext& c, double& h);
bool dippr_vaporisation(double T, const Parameters& par, const ModelContext& c, double& h);
bool shomate(double T, const Parameters& par, const ModelContext&, double& cp);
bool dippr_heat_capacity(double T, const Parameters& par, const ModelContext&, double& cp);

}  // namespace quor::estimation
