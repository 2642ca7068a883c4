#include "calculation/tank.h"

#include "calculation/work.h"
#include "common/constants.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "models/cubic_eos.h"
#include "models/density.h"
#include "models/vapour_pressure.h"

namespace quor::calculation {

using constants::kPresent;

namespace {

/// L density at T for the partial tank, 0 when there is no source for it.
double liquid_density(Work& work, double rhoV) {
    const models::SubstanceRecord& s = work.substance();
    const Method& method = work.request.method;
    if (!method.liquid_by_benson) {
        const models::DensityResult r =
            models::density_liquid(s, static_cast<float>(work.answer.T));
        note_range(work, Note::Kind::densityRange, r.deviation);
        return r.rho;
    }
    if (!models::is_known(method.reference)) return 0.0;
    return faults::finite(
        models::density_l_benson(work.answer.T, s.Tcrit, s.rhocrit, rhoV, method.reference));
}

}  // namespace

TankContent divide_tank(double V, double m, double rhoL, double rhoV) {
    TankContent c{V, m, 0.0, rhoL, rhoV, 0.0};
    if (rhoV <= 0) return c;
    if (rhoL <= 0) {
        c.vapour_volume = V;
        c.y = 1.0;
        return c;
    }
    c.y = faults::divide(V / m - 1.0 / rhoL, 1.0 / rhoV - 1.0 / rhoL);
    c.vapour_volume = faults::divide(rhoL * c.y * V, (rhoL - rhoV) * c.y + rhoV);
    return c;
}

bool fetch_tank(Work& work) {
    const Tank& tank = work.request.tank;
    const auto V = static_cast<double>(tank.V);
    const auto m = static_cast<double>(tank.m);
    const auto T = static_cast<double>(tank.T);
    if (!(V * m * T > kPresent)) return fail(work, Reason::noTank);
    const models::SubstanceRecord& s = work.substance();
    if (work.request.task == Task::partialTank && T >= s.Tcrit)
        return fail(work, Reason::tankAboveCritical);
    if (T < static_cast<double>(s.Ttriple) && !work.models().vapour_only)
        work.answer.notes.push_back({.kind = Note::Kind::tankBelowTriplePoint});
    work.answer.T = T;
    work.given = {};
    work.given.T = T;
    work.given.rhoV = numbers::to_single(m / V);
    return true;
}

TankContent content_of_tank(const Work& work) {
    const Answer& a = work.answer;
    const auto V = static_cast<double>(work.request.tank.V);
    const auto m = static_cast<double>(work.request.tank.m);
    if (a.two_phase) return divide_tank(V, m, a.phases.liquid->rho, a.phases.vapour->rho);
    return a.y > 0 ? divide_tank(V, m, 0.0, m / V) : divide_tank(V, m, m / V, 0.0);
}

bool partial_tank(Work& work) {
    Answer& a = work.answer;
    const auto V = static_cast<double>(work.request.tank.V);
    const auto m = static_cast<double>(work.request.tank.m);
    const double rho = m / V;

    const models::VapourPressureResult saturation =
        models::vapour_pressure(work.substance(), a.T, work.models().vapour_pressure);
    if (saturation.status == kSuccess)
        note_range(work, Note::Kind::pressureRange, saturation.deviation);
    if (!(saturation.p > 0)) return fail(work, Reason::noVapourPressure);
    a.p = saturation.p;
    const auto state = solve_state(work);
    if (!state) return false;
    const double rhoV = state->rhoV;
    const double rhoL = liquid_density(work, rhoV);
    if (!(rhoV > 0)) return fail(work, Reason::noVapourDensity);
    if (!(rhoL > kPresent)) return fail(work, Reason::noTankLiquidDensity);

    const double v = work.M() / rho;
    a.phases = {};
    if (rho >= rhoL) {
        a.phases.liquid = Phase{v, rho};
        a.tank = divide_tank(V, m, rho, 0.0);
    } else if (rho <= rhoV) {
        models::EosState eos = models::eos_at(work.fluid(), a.T);
        const models::PressureResult gas = models::pressure_from_Tv(work.fluid(), a.T, v, eos);
        if (gas.status != kSuccess) return fail(work, Reason::solver, gas.status);
        a.p = gas.p;
        a.phases.vapour = Phase{v, rho};
        a.tank = divide_tank(V, m, 0.0, rho);
    } else {
        a.phases = {Phase{work.M() / rhoL, rhoL}, Phase{work.M() / rhoV, rhoV}};
        a.tank = divide_tank(V, m, rhoL, rhoV);
    }
    return true;
}

}  // namespace quor::calculation
