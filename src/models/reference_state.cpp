#include "models/reference_state.h"

#include <cmath>

#include "common/constants.h"
#include "common/numbers.h"
#include "common/text.h"
#include "models/density.h"
#include "models/equations.h"
#include "models/model_tables.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"
#include "models/virial.h"

namespace quor::models {

using constants::kPresent;
using constants::R;

namespace {

constexpr std::int16_t kConventional = 2;
constexpr std::int16_t kFormation = 10;
constexpr float kStandardTemperature = 298.15F;
constexpr float kStandardPressure = 101.325F;

}  // namespace

void settle_reference(ReferenceState& reference) {
    if (reference.mode == kConventional || reference.mode == kFormation) {
        reference.T0 = kStandardTemperature;
        reference.p0 = kStandardPressure;
    }
    if (reference.p0 == 0.0F) reference.p0 = kStandardPressure;
}

ReferenceBase reference_base(const SubstanceRecord& s, const ReferenceState& reference, double p) {
    ReferenceBase base;
    const auto h = static_cast<double>(s.dfh);
    if (reference.mode == kConventional) base = {h, static_cast<double>(s.sconv)};
    if (reference.mode == kFormation) base = {h, (h - static_cast<double>(s.dfg)) / 298.15};
    if (p > 0.0) base.s -= R * std::log(p / static_cast<double>(reference.p0));
    return base;
}

namespace {

std::string tenths(double value) {
    return numbers::format_point(value, "####.#");
}
std::string thousandths(double value) {
    return numbers::format_point(value, "##.###");
}

std::string rho_liquid_line(double rho, const char* source) {
    return " rho(L)(ref)/kg/m^3 =" + tenths(rho) + source;
}

struct DensitySource {
    double rho = 0;  ///< kg/m^3
    const char* note = "";
};

/// L density at the normal boiling point by the first source that has it.
std::optional<DensitySource> density_at_boiling_point(const SubstanceRecord& s, double T) {
    if (s.rhoL_boil > kPresent)
        return DensitySource{static_cast<double>(s.rhoL_boil), " (from database)"};
    if (s.rhoL_T_low > 0) {
        const auto r = density_liquid(s, s.Tboil);
        if (r) return DensitySource{r->rho, " (from database-equ. rho(T))"};
        // Above its critical temperature the equation ends the search for a source.
        if (r.failure() == NoDensity::notDescribed) return std::nullopt;
    }
    const auto a = [&](std::size_t i) { return static_cast<double>(s.rhoL_coefficients[i]); };
    if (a(0) > kPresent && std::fabs(a(1)) > kPresent && a(2) > kPresent)
        return DensitySource{a(0) + a(1) * T - a(2) * a(1), " (calculated from drho/dT)"};
    return std::nullopt;
}

/// The normal boiling point. Its pressure is rounded to 101.3 kPa, which the text does not show.
bool from_boiling_point(const SubstanceRecord& s, BensonProposal& r) {
    if (!(s.Tboil > kPresent)) return false;
    const auto T = static_cast<double>(s.Tboil);
    const std::optional<DensitySource> liquid = density_at_boiling_point(s, T);
    if (!liquid || !(liquid->rho > 0.0)) return false;
    r.point = {s.Tboil, 101.3F, static_cast<float>(liquid->rho), 0.0F};
    r.text = " T(ref)/K           =" + tenths(T) +
             " (normal boiling T)\n"
             " p(LV)(ref)/kPa     = 101.325 (normal pressure)\n" +
             rho_liquid_line(liquid->rho, liquid->note);
    return true;
}

/// The single measured density at its own temperature.
bool from_single_density(const SubstanceRecord& s, VapourPressureEquation equation,
                         BensonProposal& r) {
    if (!(s.rhoL_coefficients[0] > kPresent) || !(s.rhoL_coefficients[2] > kPresent)) return false;
    const auto T = static_cast<double>(s.rhoL_coefficients[2]);
    const std::optional<VapourPressure> vp = vapour_pressure(s, T, equation);
    if (!vp) return false;
    r.point = {s.rhoL_coefficients[2], static_cast<float>(vp->p), s.rhoL_coefficients[0], 0.0F};
    r.text = "T(ref)/K         =" + tenths(T) + " (data base: single point for density)\n" +
             rho_liquid_line(static_cast<double>(s.rhoL_coefficients[0]),
                             " (data base: single point at T(ref))") +
             "\n pLV(ref)/kPa     =" + thousandths(vp->p) + "  (at T(ref) with  " +
             std::string(vp_code(equation)) + "-equation)";
    return true;
}

/// V density at the reference point: active EOS, else Pitzer/Curl, else ideal gas.
std::string add_vapour_density(const Fluid& fluid, BensonPoint& point) {
    const auto T = static_cast<double>(point.T);
    const auto p = static_cast<double>(point.p);
    const auto M = static_cast<double>(fluid.substance().M);

    const auto state = solve_state_tp(fluid, T, p);
    double rho = state ? state->rhoV.value_or(0) : 0;
    std::string source = "  (from  " + text::trim(fluid.equation().name) + ")";
    if (rho < kPresent) {
        if (fluid.substance().omega != 0.0) {
            EosState eos;
            rho = M / (R * T / p + kPitzerCurl.second_virial(fluid, T, eos));
            source = " (using Virial-EOS, PITZER/CURL)";
        }
        if (!(rho >= kPresent) || !std::isfinite(rho)) {
            rho = M * p / R / T;
            source = " (using ideal-gas EOS)";
        }
    }
    point.rhoV = static_cast<float>(rho);
    return "\n rho(V)(ref)/kg/m^3 =" + thousandths(rho) + source;
}

}  // namespace

BensonProposal propose_benson_reference(const Fluid& fluid) {
    BensonProposal r;
    if (!from_boiling_point(fluid.substance(), r) &&
        !from_single_density(fluid.substance(), fluid.models().vapour_pressure, r))
        return {};
    r.text += add_vapour_density(fluid, r.point);
    return r;
}

}  // namespace quor::models
