#pragma once

#include "diagrams/curve_frame.h"

/// One function a kind of curve; `calc_curve` finds it by the code of the request.
namespace quor::diagrams {

// Sections p-v-T (curve_sections.cpp).
void isotherm_p_v(CurveFrame& c);
void isotherm_over_p(CurveFrame& c);
void isobar_T_v(CurveFrame& c);
void isochore_p_T(CurveFrame& c);

// Functions along isobars, isochores and isotherms (curve_functions.cpp).
void functions_of_T(CurveFrame& c);
void functions_of_p(CurveFrame& c);
void functions_of_v(CurveFrame& c);
void heat_capacity(CurveFrame& c);
void joule_thomson(CurveFrame& c);
void residual_of_T(CurveFrame& c);
void residual_of_p(CurveFrame& c);
void function_pairs(CurveFrame& c);

// The coexistence curve in p, v, T and rho (curve_coexistence.cpp).
void dome_p_v(CurveFrame& c);
void dome_over_p(CurveFrame& c);
void dome_T_v(CurveFrame& c);
void dome_rho_T(CurveFrame& c);
void rectilinear_diameter(CurveFrame& c);

// The coexistence curve in function diagrams (curve_saturation_functions.cpp).
void saturation_functions_over_p(CurveFrame& c);
void saturation_functions_over_T(CurveFrame& c);
void saturation_functions_over_v(CurveFrame& c);
void saturation_function_pairs(CurveFrame& c);

// Vapour pressure, its slope, the heat of vaporisation (curve_vapour_pressure.cpp).
void vapour_pressure_p_T(CurveFrame& c);
void vapour_pressure_logarithmic(CurveFrame& c);
void vapour_pressure_slope(CurveFrame& c);
void heat_of_vaporisation(CurveFrame& c);

// Inversion of the Joule-Thomson effect (curve_inversion.cpp).
void inversion_pv_p(CurveFrame& c);
void inversion_p_T(CurveFrame& c);

// Functions of the database (curve_database.cpp).
void database_function(CurveFrame& c);

// Process lines (curve_process_lines.cpp).
void straight_line(CurveFrame& c);
void process_isotherm(CurveFrame& c);
void process_isobar(CurveFrame& c);
void process_isochore(CurveFrame& c);
void process_isoline(CurveFrame& c);
void process_polytropic(CurveFrame& c);

// Tie-lines (tie_line.cpp).
void tie_line(CurveFrame& c);

}  // namespace quor::diagrams
