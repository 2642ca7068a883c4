#include "calculation/tank.h"
#include "legacy/wrappers.h"

#include <algorithm>
#include <cmath>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "models/density.h"
#include "models/vapour_pressure.h"

namespace quor::calculation {

using constants::kPresent;
using legacy::the_session;

namespace {

constexpr std::int16_t kPartialTankMode = 10;

/// L density at T for the partial tank, 0 when the session has no source for it.
double liquid_density(const Job& job, double rhoV) {
    const models::SubstanceRecord& s = legacy::the_substance;
    if (!the_session.LiquidByBenson)
        return models::density_l(static_cast<float>(job.T), job.call.Interactive).rho;
    if (!the_session.BensonReferenceValid) return 0.0;
    return faults::finite(
        models::density_l_benson(job.T, s.Tcrit, s.rhocrit, rhoV, the_session.BensonReference));
}

}  // namespace

TankContent divide_tank(double V, double m, double rhoL, double rhoV) {
    TankContent c{V, m, 0.0, rhoL, rhoV, 0.0};
    if (rhoV <= 0) return c;
    if (rhoL <= 0) {
        c.VV = V;
        c.y = 1.0;
        return c;
    }
    c.y = faults::divide(V / m - 1.0 / rhoL, 1.0 / rhoV - 1.0 / rhoL);
    c.VV = faults::divide(rhoL * c.y * V, (rhoL - rhoV) * c.y + rhoV);
    return c;
}

bool fetch_tank(Job& job) {
    const calculation::Tank& tank = the_session.tank;
    const auto V = static_cast<double>(tank.V);
    const auto m = static_cast<double>(tank.m);
    const auto T = static_cast<double>(tank.T);
    if (!(V * m * T > kPresent)) {
        job.leave = true;
        return false;
    }
    const models::SubstanceRecord& s = legacy::the_substance;
    if (job.mode() == kPartialTankMode && T >= s.Tcrit) {
        dialogs::tell(
            "\"Partial Calculation\" - usable only for phase equilibria (T < T(cr))\n"
            "(T(cr)/K =" +
                numbers::General(s.Tcrit) + ")",
            "Execution not possible");
        job.call.Text = "EXIT";
        job.leave = true;
        return false;
    }
    if (T < static_cast<double>(s.Ttriple) && !job.call.Interactive && !legacy::the_models.EOSOnlyV)
        dialogs::tell("T < T(TP) (Triple Point)", "WARNING");
    job.T = T;
    store_fu(job, 0, T);
    job.input = {};
    job.input.T = T;
    job.input.rhoV = numbers::to_single(m / V);
    return true;
}

bool PartialTank(Job& job) {
    const auto V = static_cast<double>(the_session.tank.V);
    const auto m = static_cast<double>(the_session.tank.m);
    const double rho = m / V;

    const models::VapourPressureResult saturation =
        models::VapourPressure(job.T, legacy::the_models.VPModel, job.call.Interactive);
    if (!(saturation.p > 0)) {
        job.call.Text = "ERROR2";
        job.error = true;
        return false;
    }
    job.p = saturation.p;
    if (!solve_state(job)) return false;
    const double rhoV = job.V.rho > 0 ? job.V.rho : 0.0;
    const double rhoL = liquid_density(job, rhoV);
    if (!(rhoV > 0) || !(rhoL > kPresent)) {
        report_calc_error(job, rhoV > 0 ? " (no rho_L)" : " (no rho_V)");
        return false;
    }

    const auto M = static_cast<double>(legacy::the_substance.M);
    const double v = M / rho;
    job.L = job.V = {};
    TankContent content{V, m, 0.0, 0.0, 0.0, 0.0};
    if (rho >= rhoL) {
        job.L = {true, v, rho};
        content = divide_tank(V, m, rho, 0.0);
    } else if (rho <= rhoV) {
        const models::PressureResult gas = models::pressure_from_tv(job.T, v);
        if (gas.status != kSuccess) {
            report_calc_error(job, error_code(gas.status));
            return false;
        }
        job.p = gas.p;
        job.V = {true, v, rho};
        content = divide_tank(V, m, 0.0, rho);
    } else {
        job.L = {true, M / rhoL, rhoL};
        job.V = {true, M / rhoV, rhoV};
        content = divide_tank(V, m, rhoL, rhoV);
    }
    tank_lines(job, content);
    return true;
}

void tank_lines(Job& job, const TankContent& c) {
    constexpr auto kAmount = "##0.0000##";
    const auto M = static_cast<double>(legacy::the_substance.M);
    const double mL = (c.V - c.VV) * c.rhoL;
    const double mV = c.VV * c.rhoV;
    ListBuilder& list = job.list;
    list.add("Vapour fraction y(V) = " + numbers::Format(c.y, "0.0#######"));
    list.add("volume fraction V-phase phi(V),% = " + numbers::Format(c.VV / c.V, "0.0### %"));
    list.add("Mass fraction = Mole fract. V-Phase y(V),% = " +
             numbers::Format(c.VV * c.rhoV / c.m * 100.0, "0.0###") + " %");
    // A value stands only in the column of a phase that exists.
    const auto row = [&](const char* label, double L, double V, const char* mask) {
        list.row(label, "",
                 {c.rhoL > 0 ? numbers::Format(L, mask) : "",
                  c.rhoV > 0 ? numbers::Format(V, mask) : ""});
    };
    row("Volume                   V/m^3  =  ", c.V - c.VV, c.VV, kAmount);
    row("Mass                      m/kg  =  ", mL, mV, kAmount);
    row("amount of substance      n/kmol =  ", faults::divide(mL, M), faults::divide(mV, M),
        "##0.0000");
    job.call.FractionV = numbers::to_single(c.level());
}

TankPicture describe_tank(const std::string& answer) {
    constexpr double kHalf = 50.0, kLargestMirrored = 99.85, kLargest = 49.8, kSmallest = 1e-6;
    constexpr double kLargePressure = 10000.0;
    const calculation::Tank& tank = the_session.tank;
    TankPicture picture;
    picture.title = the_session.GlobalCalculation ? "Tank Calculation (global method) "
                                                  : "Tank Calculation (partial method)";
    picture.caption = "Cylinder shaped tank";
    picture.error = answer == "ERROR3";
    const bool full = answer == "ERROR1" || answer == "ERROR2";
    picture.level = full ? 100.0 : std::clamp(tank.level, 0.0, 100.0);
    picture.supercritical = static_cast<double>(tank.T) >= legacy::the_substance.Tcrit;

    if (picture.error) {
        picture.levelText = "Error";
    } else {
        picture.levelText =
            "Filling level " + numbers::format_point(picture.level, "##0.0#") + "vol.-%";
        picture.lowerText = picture.supercritical ? " supercritical" : "  L-phase";
        picture.upperText = picture.supercritical ? "" : "  V-phase";
    }

    const auto p = static_cast<double>(tank.p);
    if (picture.error) {
        picture.pText = " Error: v < B";
        picture.hint = "cf. help \"Tank\"";
    } else if (!full) {
        picture.pText =
            "p = " + numbers::Format(p, p < kLargePressure ? "###0.0## kPa" : "######0.0# kPa");
    }

    picture.mirrored = picture.level > kHalf && picture.level <= kLargestMirrored;
    picture.section =
        std::clamp(picture.mirrored ? 100.0 - picture.level : picture.level, kSmallest, kLargest);
    return picture;
}

}  // namespace quor::calculation
