#pragma once

namespace quor::diagrams {

/// Default limits of each quantity, in units of the computation.
struct CoordinateDefaults {
    float pv_max = 0, pv_min = 0;
    float rho_max = 0, rho_min = 0;
    float v_max_reserve = 0, v_min_reserve = 0;
    float lnp_max = 0, lnp_min = 0;
    float inverse_T_max = 0, inverse_T_min = 0;
    float dlnp_max = 0, dlnp_min = 0;
    float p_max = 0, p_min = 0.001F;
    float v_max = 0, v_min = 0;
    float T_max = 0, T_min = 0;
    float func_max = 0, func_min = 0;
    float entropy_max = 0, entropy_min = 0;
    float cp_min = 0, cp_max = 0;
    float vaporisation_min = 0, vaporisation_max = 0;
    float T_max_residual = 0;
    float jt_max = 0, jt_min = 0;
    float res_entropy_min = 0, res_entropy_max = 0;
    float res_enthalpy_min = 0, res_enthalpy_max = 0;

    bool operator==(const CoordinateDefaults&) const = default;
};

/// A window of a diagram in displayed units.
struct CurveWindow {
    float x_min = 0, x_max = 0, y_min = 0, y_max = 0;

    bool operator==(const CurveWindow&) const = default;
};

}  // namespace quor::diagrams
