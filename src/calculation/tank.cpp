#include "calculation/tank.h"

#include <cmath>

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

/// L density at T for the partial tank; nothing without a source for it.
std::optional<double> liquid_density(Work& work, double rhoV) {
    const models::SubstanceRecord& s = work.substance();
    const Method& method = work.request.method;
    if (!method.liquid_by_benson) {
        const auto r = models::density_liquid(s, static_cast<float>(work.answer.T));
        if (!r) return std::nullopt;
        note_range(work, Note::Kind::densityRange, r->deviation);
        return r->rho;
    }
    if (!models::is_known(method.reference)) return std::nullopt;
    return models::density_l_benson(work.answer.T, s.Tcrit, s.rhocrit, rhoV, method.reference);
}

}  // namespace

TankContent divide_tank(double V, double m, std::optional<double> rhoL,
                        std::optional<double> rhoV) {
    TankContent c{V, m, 0.0, rhoL, rhoV, 0.0};
    if (!rhoV) return c;
    if (!rhoL) {
        c.vapour_volume = V;
        c.y = 1.0;
        return c;
    }
    c.y = faults::divide(V / m - 1.0 / *rhoL, 1.0 / *rhoV - 1.0 / *rhoL);
    c.vapour_volume = faults::divide(*rhoL * c.y * V, (*rhoL - *rhoV) * c.y + *rhoV);
    return c;
}

bool fetch_tank(Work& work) {
    const Tank& tank = work.request.tank;
    const auto V = static_cast<double>(tank.V);
    const auto m = static_cast<double>(tank.m);
    const auto T = static_cast<double>(tank.T);
    const double product = V * m * T;
    if (!(product > kPresent) || !std::isfinite(product)) return fail(work, Reason::noTank);
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
    return a.y > 0 ? divide_tank(V, m, {}, m / V) : divide_tank(V, m, m / V, {});
}

bool partial_tank(Work& work) {
    Answer& a = work.answer;
    const auto V = static_cast<double>(work.request.tank.V);
    const auto m = static_cast<double>(work.request.tank.m);
    const double rho = m / V;

    const auto saturation =
        models::vapour_pressure(work.substance(), a.T, work.models().vapour_pressure);
    if (!saturation) return fail(work, Reason::noVapourPressure);
    note_range(work, Note::Kind::pressureRange, saturation->deviation);
    a.p = saturation->p;
    const auto state = solve_state(work);
    if (!state) return false;
    if (!(state->rhoV > 0.0)) return fail(work, Reason::noVapourDensity);
    const double rhoV = *state->rhoV;
    const std::optional<double> liquid = liquid_density(work, rhoV);
    if (!(liquid > kPresent)) return fail(work, Reason::noTankLiquidDensity);
    const double rhoL = *liquid;

    const double v = work.M() / rho;
    a.phases = {};
    if (rho >= rhoL) {
        a.phases.liquid = Phase{v, rho};
        a.tank = divide_tank(V, m, rho, {});
    } else if (rho <= rhoV) {
        models::EosState eos = models::eos_at(work.fluid(), a.T);
        const auto gas = models::pressure_from_Tv(work.fluid(), a.T, v, eos);
        if (!gas) return fail(work, Reason::solver);
        a.p = *gas;
        a.phases.vapour = Phase{v, rho};
        a.tank = divide_tank(V, m, {}, rho);
    } else {
        a.phases = {Phase{work.M() / rhoL, rhoL}, Phase{work.M() / rhoV, rhoV}};
        a.tank = divide_tank(V, m, rhoL, rhoV);
    }
    return true;
}

}  // namespace quor::calculation
