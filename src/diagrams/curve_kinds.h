#pragma once

#include "diagrams/curve_frame.h"

/// One function a kind of curve; `calc_curve` finds it by the code of the request.
namespace quor::diagrams {

// Sections p-v-T (curve_sections.cpp).
void isotherm_p_v(Curve& c);
void isotherm_over_p(Curve& c);
void isobar_T_v(Curve& c);
void isochore_p_T(Curve& c);

// Functions along isobars, isochores and isotherms (curve_functions.cpp).
void functions_of_T(Curve& c);
void functions_of_p(Curve& c);
void functions_of_v(Curve& c);
void heat_capacity(Curve& c);
void joule_thomson(Curve& c);
void residual_of_T(Curve& c);
void residual_of_p(Curve& c);
void function_pairs(Curve& c);

// The coexistence curve in p, v, T and rho (curve_coexistence.cpp).
void dome_p_v(Curve& c);
void dome_over_p(Curve& c);
void dome_T_v(Curve& c);
void dome_rho_T(Curve& c);
void rectilinear_diameter(Curve& c);

// The coexistence curve in function diagrams (curve_saturation_functions.cpp).
void saturation_functions_over_p(Curve& c);
void saturation_functions_over_T(Curve& c);
void saturation_functions_over_v(Curve& c);
void saturation_function_pairs(Curve& c);

// Vapour pressure, its slope, the heat of vaporisation (curve_vapour_pressure.cpp).
void vapour_pressure_p_T(Curve& c);
void vapour_pressure_logarithmic(Curve& c);
void vapour_pressure_slope(Curve& c);
void heat_of_vaporisation(Curve& c);

// Inversion of the Joule-Thomson effect (curve_inversion.cpp).
void inversion_pv_p(Curve& c);
void inversion_p_T(Curve& c);

// Functions of the database (curve_database.cpp).
void database_function(Curve& c);

// Process lines (curve_process_lines.cpp).
void straight_line(Curve& c);
void process_isotherm(Curve& c);
void process_isobar(Curve& c);
void process_isochore(Curve& c);
void process_isoline(Curve& c);
void process_polytropic(Curve& c);

// Tie-lines (tie_line.cpp).
void tie_line(Curve& c);

}  // namespace quor::diagrams
