#include "diagrams/coordinates.h"
#include "support/codes.h"

#include <tuple>

#include "common/faults.h"
#include "diagrams/active_fluid.h"
#include "diagrams/database_functions.h"
#include "diagrams/diagram.h"
#include "models/caloric.h"
#include "models/density.h"

using namespace quor;

namespace {

using diagrams::DiagramRequest;

class Coordinates : public ActiveFluid {
  protected:
    DiagramRequest window(int code) const { return RequestFor(code); }
    /// The limits anew, as after a change of anything but the units.
    void renew() { limits = diagrams::coordinate_defaults(basis(), limits); }
    double M() const { return static_cast<double>(substance.M); }
};

TEST_F(Coordinates, MolarLimitsFollowTheSubstance) {
    activate("Propane");
    const auto& d = limits;
    const double vmax = 7 * eosConstants.vcritCalc;
    EXPECT_PRED2(Close, d.vMax, vmax);
    EXPECT_PRED2(Close, d.pvMax, substance.pcrit * vmax);
    EXPECT_PRED2(Close, d.rhoMax, 3.5 * substance.rhocrit);
    EXPECT_PRED2(Close, d.vMaxReserve, 1.4 * substance.vcritExp);
    EXPECT_PRED2(Close, d.vMinReserve, 0.01);
    EXPECT_PRED2(Close, d.lnpMax, 1.1 * std::log(substance.pcrit));
    EXPECT_EQ(d.lnpMin, -5);
    EXPECT_PRED2(Close, d.invTMax, 1 / (85.525 - 5));
    EXPECT_PRED2(Close, d.invTMin, 1 / (substance.Tcrit + 10));
    EXPECT_EQ(d.dlnpMax, -500);
    EXPECT_EQ(d.dlnpMin, -6000);
    EXPECT_PRED2(Close, d.pMax, 1.4 * substance.pcrit);
    EXPECT_EQ(d.pMin, 0.001F);
    EXPECT_PRED2(Close, d.TMax, 1.1 * substance.Tcrit);
    EXPECT_PRED2(Close, d.TMin, 85.525);
    EXPECT_EQ(d.funcMax, 50000);
    EXPECT_EQ(d.funcMin, -50000);
    EXPECT_EQ(d.entropyMax, 250);
    EXPECT_EQ(d.entropyMin, -250);
    EXPECT_EQ(d.cpMin, -10);
    EXPECT_PRED2(Close, d.cpMax,
                 2 * models::ideal_gas_cp(substance, selection.CpModel, substance.Tcrit).cp);
    EXPECT_EQ(d.vaporisationMin, 0);
    EXPECT_EQ(d.vaporisationMax, 50000);
    EXPECT_PRED2(Close, d.TMaxResidual, 1.1 * substance.Tcrit);
    EXPECT_EQ(d.jtMax, 0.04F);
    EXPECT_EQ(d.jtMin, -0.005F);
    EXPECT_PRED2(Close, d.resEntropyMin, -498.8706);
    EXPECT_EQ(d.resEntropyMax, 20);
    EXPECT_PRED2(Close, d.resEnthalpyMin, -49887.06);
    EXPECT_EQ(d.resEnthalpyMax, 1000);
    EXPECT_EQ(d.pvMin, 0);
    EXPECT_EQ(d.rhoMin, 0);
    EXPECT_EQ(d.vMin, 0);
}

TEST_F(Coordinates, SpecificAndReducedLimitsCarryTheirFactors) {
    activate("Water");
    set_units(3, 1);
    EXPECT_PRED2(Close, limits.vMax, 7 * eosConstants.vcritCalc / M());
    EXPECT_PRED2(Close, limits.funcMax, 50000 / M());
    EXPECT_PRED2(Close, limits.entropyMin, -250 / M());
    EXPECT_PRED2(Close, limits.pMax, 1.4 * substance.pcrit);
    set_units(0, 2);
    EXPECT_PRED2(Close, limits.vMax, 7.0);
    EXPECT_PRED2(Close, limits.pMax, 1.4);
    EXPECT_PRED2(Close, limits.TMax, 1.1);
    EXPECT_PRED2(Close, limits.TMin, 273.16 / substance.Tcrit);
    EXPECT_EQ(limits.lnpMax, 0.5F);
    EXPECT_PRED2(Close, limits.pvMax, 7.0);
    EXPECT_PRED2(Close, limits.invTMin, substance.Tcrit / (substance.Tcrit + 10));
}

TEST_F(Coordinates, PressureAndTemperatureLimitsStayUntilTheUnitsChange) {
    activate("Propane");
    limits.pMax = 77;
    limits.TMax = 500;
    limits.TMin = 100;
    renew();
    EXPECT_EQ(limits.pMax, 77);
    EXPECT_EQ(limits.TMax, 500);
    EXPECT_EQ(limits.TMin, 100);
    set_units(0, 0);
    EXPECT_PRED2(Close, limits.pMax, 1.4 * substance.pcrit);
    EXPECT_PRED2(Close, limits.TMax, 1.1 * substance.Tcrit);
}

TEST_F(Coordinates, ReferenceStatesOfFormationShiftTheFunctions) {
    activate("Propane");
    for (const std::int16_t mode : {std::int16_t{2}, std::int16_t{10}}) {
        reference.RefMode = mode;
        renew();
        EXPECT_EQ(limits.funcMax, 0);
        EXPECT_EQ(limits.funcMin, -300000);
        EXPECT_EQ(limits.entropyMax, 200);
        EXPECT_EQ(limits.entropyMin, -250);
    }
    reference.RefMode = 5;
    limits.funcMax = 17;
    renew();
    EXPECT_EQ(limits.funcMax, 17) << "any other reference state keeps the limits";
}

TEST_F(Coordinates, WithoutTriplePointTheLimitsComeFromTheCriticalPoint) {
    activate("Propane");
    substance.Ttriple = 0;
    limits = {};
    renew();
    EXPECT_PRED2(Close, limits.invTMax, 2.3 / substance.Tcrit);
    EXPECT_PRED2(Close, limits.TMin, 0.5 * substance.Tcrit);
}

TEST_F(Coordinates, ATriplePointBelowFiveKelvinsGivesAUsableInverseLimit) {
    activate("Helium");
    EXPECT_GT(limits.invTMax, limits.invTMin);
    EXPECT_PRED2(Close, limits.invTMax, 2.3 / substance.Tcrit);
}

TEST_F(Coordinates, VapourOnlyEquationsStartLowerAndUseTheMeasuredVolume) {
    activate_vapour_only("Propane");
    EXPECT_PRED2(Close, limits.vMax, 7 * substance.vcritExp);
    EXPECT_PRED2(Close, limits.TMin, 0.3 * 85.525);
    substance.vcritExp = 0;
    renew();
    EXPECT_EQ(limits.vMax, 1.5F);
}

TEST_F(Coordinates, WithoutACriticalVolumeReducedModeFallsBackToMolarVolumes) {
    activate_vapour_only("Propane");
    substance.vcritExp = 0;
    substance.rhocrit = 0;
    set_units(0, 2);
    EXPECT_EQ(basis().units.choice.system, models::UnitSystem::molar);
    EXPECT_EQ(basis().VF(), 1.0);
    EXPECT_EQ(limits.vMax, 1.5F);
}

TEST_F(Coordinates, WithoutAMolarMassSpecificUnitsAreAFault) {
    activate("Propane");
    substance.M = 0;
    units.caloric = models::CaloricUnit::specific;
    EXPECT_THROW(renew(), faults::Fault);
}

TEST_F(Coordinates, EachDiagramTakesItsLimits) {
    activate("Propane");
    const auto& d = limits;
    using Limits = std::pair<float, float>;
    const Limits T{d.TMin, d.TMax}, p{d.pMin, d.pMax}, v{d.vMin, d.vMax}, rho{d.rhoMin, d.rhoMax},
        pv{d.pvMin, d.pvMax}, func{d.funcMin, d.funcMax}, ent{d.entropyMin, d.entropyMax},
        cp{d.cpMin, d.cpMax}, invT{d.invTMin, d.invTMax}, TRes{d.TMin, d.TMaxResidual},
        pRes{d.TMin, d.pMax}, resS{d.resEntropyMin, d.resEntropyMax},
        resH{d.resEnthalpyMin, d.resEnthalpyMax};
    const std::vector<std::tuple<std::vector<int>, Limits, Limits>> table = {
        {{1, 6}, v, p},
        {{2, 106}, p, pv},
        {{26, 27}, p, rho},
        {{3, 7}, v, T},
        {{4, 12}, rho, T},
        {{5, 9}, T, p},
        {{8}, T, rho},
        {{10}, invT, {d.lnpMin, d.lnpMax}},
        {{11}, invT, {d.dlnpMin, d.dlnpMax}},
        {{13}, T, {d.vaporisationMin, d.vaporisationMax}},
        {{19, 92, 185}, T, cp},
        {{154}, p, cp},
        {{15, 17, 18, 181, 182, 183, 90, 93, 94, 95}, T, func},
        {{150, 152, 153, 155}, p, func},
        {{156, 157, 160}, v, func},
        {{16, 91, 184}, T, ent},
        {{151}, p, ent},
        {{158}, v, ent},
        {{159}, v, cp},
        {{30}, TRes, resS},
        {{31, 32}, TRes, resH},
        {{33}, TRes, cp},
        {{34}, TRes, {d.jtMin, d.jtMax}},
        {{40}, pRes, resS},
        {{41, 42}, pRes, resH},
        {{43}, pRes, cp},
        {{107, 24, 120}, ent, func},
        {{109, 23, 21, 22, 121}, func, func},
    };
    for (const auto& [codes, x, y] : table) {
        for (const int code : codes) {
            const DiagramRequest r = window(code);
            EXPECT_EQ(Limits(r.window.xMin, r.window.xMax), x) << code;
            EXPECT_EQ(Limits(r.window.yMin, r.window.yMax), y) << code;
            EXPECT_EQ(Limits(r.proposed.xMin, r.proposed.xMax), x) << code;
            EXPECT_EQ(Limits(r.proposed.yMin, r.proposed.yMax), y) << code;
        }
    }
}

TEST_F(Coordinates, DatabaseWindowsAreTheValidityWidenedByATwentieth) {
    activate("Propane");
    const DiagramRequest r = window(300);
    EXPECT_EQ(r.validity.low, 86);
    EXPECT_EQ(r.validity.high, 369);
    EXPECT_PRED2(Close, r.window.xMin, 86 - 0.05 * (369 - 86));
    EXPECT_PRED2(Close, r.window.xMax, 369 + 0.05 * (369 - 86));
    const double low = models::density_liquid(substance, 369).rho;
    const double high = models::density_liquid(substance, 86).rho;
    EXPECT_PRED2(Close, r.window.yMin, low - 0.05 * (high - low));
    EXPECT_PRED2(Close, r.window.yMax, high + 0.05 * (high - low));

    set_units(0, 2);
    EXPECT_PRED2(Close, window(300).window.xMax, (369 + 0.05 * (369 - 86)) / substance.Tcrit);
}

TEST_F(Coordinates, DatabaseWindowsShowTheValuesAtBothEnds) {
    activate("Carbon dioxide");
    set_units(3, 1);
    const auto contains = [&](int code, double atLow, double atHigh) {
        const DiagramRequest r = window(code);
        const double lo = std::min(atLow, atHigh), hi = std::max(atLow, atHigh);
        EXPECT_PRED2(Close, r.window.yMin, lo - 0.05 * (hi - lo));
        EXPECT_PRED2(Close, r.window.yMax, hi + 0.05 * (hi - lo));
    };
    const auto& s = substance;
    contains(301, 1 / models::density_liquid(s, 217).rho, 1 / models::density_liquid(s, 303).rho);
    contains(302, models::polynomial_cp(s.cpPoly, 50).cp / M(),
             models::polynomial_cp(s.cpPoly, 1000).cp / M());
    contains(303, models::polynomial_cp(s.cpL, 217).cp / M(),
             models::polynomial_cp(s.cpL, 273).cp / M());
    contains(304, models::polynomial_cp(s.cpS, 25).cp / M(),
             models::polynomial_cp(s.cpS, 216).cp / M());
    contains(307, models::vapour_pressure(s, 217, codes::vp("WAG")).p,
             models::vapour_pressure(s, 303, codes::vp("WAG")).p);
    contains(308, models::vapour_pressure(s, 217, codes::vp("ALP")).p,
             models::vapour_pressure(s, 273, codes::vp("ALP")).p);
    contains(310, models::density_solid(s, 144).rho, models::density_solid(s, 216).rho);
}

TEST_F(Coordinates, ASinglePointDensityIsShownTenKelvinsOnEitherSide) {
    activate("Mercury", kVanDerWaals);
    const DiagramRequest r = window(300);
    EXPECT_PRED2(Close, r.validity.low, 298.15 - 10);
    EXPECT_PRED2(Close, r.validity.high, 298.15 + 10);
    EXPECT_GT(r.window.yMax, r.window.yMin);
}

TEST_F(Coordinates, EqualDensitiesAtBothEndsOpenAWindowOfTwenty) {
    activate("Hydrogen peroxide", kVanDerWaals);
    const DiagramRequest r = window(300);  // one density, no slope: 1440 kg/m^3
    EXPECT_PRED2(Close, r.window.yMin, 1430 - 0.05 * 20);
    EXPECT_PRED2(Close, r.window.yMax, 1450 + 0.05 * 20);
}

TEST_F(Coordinates, EveryAvailableDatabaseFunctionHasAWindowOfSomeSize) {
    int checked = 0;
    for (const std::string& name : fluids::AllNames()) {
        activate(name, kVanDerWaals);
        for (int code = 300; code <= 310; ++code) {
            if (!diagrams::has_database_function(diagrams::diagram_of(code), fluid())) continue;
            const DiagramRequest r = window(code);
            EXPECT_GT(r.window.xMax, r.window.xMin) << name << " " << code;
            EXPECT_GT(r.window.yMax, r.window.yMin) << name << " " << code;
            ++checked;
        }
    }
    EXPECT_GT(checked, 1000);
}

TEST_F(Coordinates, EveryDiagramOfEverySubstanceHasAWindowOfSomeSize) {
    for (const std::string& name : fluids::AllNames()) {
        activate(name, kVanDerWaals);
        for (const diagrams::Diagram& row : diagrams::all_diagrams()) {
            if (row.xLimits.low == nullptr) continue;
            const DiagramRequest r = window(row.code);
            EXPECT_GT(r.window.xMax, r.window.xMin) << name << " " << row.code;
            // The data of some substances lack the critical density or a cp form.
            if (r.window.yMax == 0 && row.yLimits.high == &diagrams::CoordinateDefaults::rhoMax)
                continue;
            EXPECT_GT(r.window.yMax, r.window.yMin) << name << " " << row.code;
        }
    }
}

}  // namespace
