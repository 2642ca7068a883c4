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
    const double vmax = 7 * eosConstants.vcrit_calculated;
    EXPECT_PRED2(Close, d.v_max, vmax);
    EXPECT_PRED2(Close, d.pv_max, substance.pcrit * vmax);
    EXPECT_PRED2(Close, d.rho_max, 3.5 * substance.rhocrit);
    EXPECT_PRED2(Close, d.v_max_reserve, 1.4 * substance.vcrit_measured);
    EXPECT_PRED2(Close, d.v_min_reserve, 0.01);
    EXPECT_PRED2(Close, d.lnp_max, 1.1 * std::log(substance.pcrit));
    EXPECT_EQ(d.lnp_min, -5);
    EXPECT_PRED2(Close, d.inverse_T_max, 1 / (85.525 - 5));
    EXPECT_PRED2(Close, d.inverse_T_min, 1 / (substance.Tcrit + 10));
    EXPECT_EQ(d.dlnp_max, -500);
    EXPECT_EQ(d.dlnp_min, -6000);
    EXPECT_PRED2(Close, d.p_max, 1.4 * substance.pcrit);
    EXPECT_EQ(d.p_min, 0.001F);
    EXPECT_PRED2(Close, d.T_max, 1.1 * substance.Tcrit);
    EXPECT_PRED2(Close, d.T_min, 85.525);
    EXPECT_EQ(d.func_max, 50000);
    EXPECT_EQ(d.func_min, -50000);
    EXPECT_EQ(d.entropy_max, 250);
    EXPECT_EQ(d.entropy_min, -250);
    EXPECT_EQ(d.cp_min, -10);
    EXPECT_PRED2(Close, d.cp_max,
                 2 * models::ideal_gas_cp(substance, selection.cp_form, substance.Tcrit).value());
    EXPECT_EQ(d.vaporisation_min, 0);
    EXPECT_EQ(d.vaporisation_max, 50000);
    EXPECT_PRED2(Close, d.T_max_residual, 1.1 * substance.Tcrit);
    EXPECT_EQ(d.jt_max, 0.04F);
    EXPECT_EQ(d.jt_min, -0.005F);
    EXPECT_PRED2(Close, d.res_entropy_min, -498.8706);
    EXPECT_EQ(d.res_entropy_max, 20);
    EXPECT_PRED2(Close, d.res_enthalpy_min, -49887.06);
    EXPECT_EQ(d.res_enthalpy_max, 1000);
    EXPECT_EQ(d.pv_min, 0);
    EXPECT_EQ(d.rho_min, 0);
    EXPECT_EQ(d.v_min, 0);
}

TEST_F(Coordinates, SpecificAndReducedLimitsCarryTheirFactors) {
    activate("Water");
    set_units(3, 1);
    EXPECT_PRED2(Close, limits.v_max, 7 * eosConstants.vcrit_calculated / M());
    EXPECT_PRED2(Close, limits.func_max, 50000 / M());
    EXPECT_PRED2(Close, limits.entropy_min, -250 / M());
    EXPECT_PRED2(Close, limits.p_max, 1.4 * substance.pcrit);
    set_units(0, 2);
    EXPECT_PRED2(Close, limits.v_max, 7.0);
    EXPECT_PRED2(Close, limits.p_max, 1.4);
    EXPECT_PRED2(Close, limits.T_max, 1.1);
    EXPECT_PRED2(Close, limits.T_min, 273.16 / substance.Tcrit);
    EXPECT_EQ(limits.lnp_max, 0.5F);
    EXPECT_PRED2(Close, limits.pv_max, 7.0);
    EXPECT_PRED2(Close, limits.inverse_T_min, substance.Tcrit / (substance.Tcrit + 10));
}

TEST_F(Coordinates, PressureAndTemperatureLimitsStayUntilTheUnitsChange) {
    activate("Propane");
    limits.p_max = 77;
    limits.T_max = 500;
    limits.T_min = 100;
    renew();
    EXPECT_EQ(limits.p_max, 77);
    EXPECT_EQ(limits.T_max, 500);
    EXPECT_EQ(limits.T_min, 100);
    set_units(0, 0);
    EXPECT_PRED2(Close, limits.p_max, 1.4 * substance.pcrit);
    EXPECT_PRED2(Close, limits.T_max, 1.1 * substance.Tcrit);
}

TEST_F(Coordinates, ReferenceStatesOfFormationShiftTheFunctions) {
    activate("Propane");
    for (const std::int16_t mode : {std::int16_t{2}, std::int16_t{10}}) {
        reference.mode = mode;
        renew();
        EXPECT_EQ(limits.func_max, 0);
        EXPECT_EQ(limits.func_min, -300000);
        EXPECT_EQ(limits.entropy_max, 200);
        EXPECT_EQ(limits.entropy_min, -250);
    }
    reference.mode = 5;
    limits.func_max = 17;
    renew();
    EXPECT_EQ(limits.func_max, 17) << "any other reference state keeps the limits";
}

TEST_F(Coordinates, WithoutTriplePointTheLimitsComeFromTheCriticalPoint) {
    activate("Propane");
    substance.Ttriple = 0;
    limits = {};
    renew();
    EXPECT_PRED2(Close, limits.inverse_T_max, 2.3 / substance.Tcrit);
    EXPECT_PRED2(Close, limits.T_min, 0.5 * substance.Tcrit);
}

TEST_F(Coordinates, ATriplePointBelowFiveKelvinsGivesAUsableInverseLimit) {
    activate("Helium");
    EXPECT_GT(limits.inverse_T_max, limits.inverse_T_min);
    EXPECT_PRED2(Close, limits.inverse_T_max, 2.3 / substance.Tcrit);
}

TEST_F(Coordinates, VapourOnlyEquationsStartLowerAndUseTheMeasuredVolume) {
    activate_vapour_only("Propane");
    EXPECT_PRED2(Close, limits.v_max, 7 * substance.vcrit_measured);
    EXPECT_PRED2(Close, limits.T_min, 0.3 * 85.525);
    substance.vcrit_measured = 0;
    renew();
    EXPECT_EQ(limits.v_max, 1.5F);
}

TEST_F(Coordinates, WithoutACriticalVolumeReducedModeFallsBackToMolarVolumes) {
    activate_vapour_only("Propane");
    substance.vcrit_measured = 0;
    substance.rhocrit = 0;
    set_units(0, 2);
    EXPECT_EQ(basis().units.choice.system, models::UnitSystem::molar);
    EXPECT_EQ(basis().v_factor(), 1.0);
    EXPECT_EQ(limits.v_max, 1.5F);
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
    const Limits T{d.T_min, d.T_max}, p{d.p_min, d.p_max}, v{d.v_min, d.v_max},
        rho{d.rho_min, d.rho_max}, pv{d.pv_min, d.pv_max}, func{d.func_min, d.func_max},
        ent{d.entropy_min, d.entropy_max}, cp{d.cp_min, d.cp_max},
        invT{d.inverse_T_min, d.inverse_T_max}, TRes{d.T_min, d.T_max_residual},
        pRes{d.T_min, d.p_max}, resS{d.res_entropy_min, d.res_entropy_max},
        resH{d.res_enthalpy_min, d.res_enthalpy_max};
    const std::vector<std::tuple<std::vector<int>, Limits, Limits>> table = {
        {{1, 6}, v, p},
        {{2, 106}, p, pv},
        {{26, 27}, p, rho},
        {{3, 7}, v, T},
        {{4, 12}, rho, T},
        {{5, 9}, T, p},
        {{8}, T, rho},
        {{10}, invT, {d.lnp_min, d.lnp_max}},
        {{11}, invT, {d.dlnp_min, d.dlnp_max}},
        {{13}, T, {d.vaporisation_min, d.vaporisation_max}},
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
        {{34}, TRes, {d.jt_min, d.jt_max}},
        {{40}, pRes, resS},
        {{41, 42}, pRes, resH},
        {{43}, pRes, cp},
        {{107, 24, 120}, ent, func},
        {{109, 23, 21, 22, 121}, func, func},
    };
    for (const auto& [codes, x, y] : table) {
        for (const int code : codes) {
            const DiagramRequest r = window(code);
            EXPECT_EQ(Limits(r.window.x_min, r.window.x_max), x) << code;
            EXPECT_EQ(Limits(r.window.y_min, r.window.y_max), y) << code;
            EXPECT_EQ(Limits(r.proposed.x_min, r.proposed.x_max), x) << code;
            EXPECT_EQ(Limits(r.proposed.y_min, r.proposed.y_max), y) << code;
        }
    }
}

TEST_F(Coordinates, DatabaseWindowsAreTheValidityWidenedByATwentieth) {
    activate("Propane");
    const DiagramRequest r = window(300);
    EXPECT_EQ(r.validity.low, 86);
    EXPECT_EQ(r.validity.high, 369);
    EXPECT_PRED2(Close, r.window.x_min, 86 - 0.05 * (369 - 86));
    EXPECT_PRED2(Close, r.window.x_max, 369 + 0.05 * (369 - 86));
    const double low = models::density_liquid(substance, 369)->rho;
    const double high = models::density_liquid(substance, 86)->rho;
    EXPECT_PRED2(Close, r.window.y_min, low - 0.05 * (high - low));
    EXPECT_PRED2(Close, r.window.y_max, high + 0.05 * (high - low));

    set_units(0, 2);
    EXPECT_PRED2(Close, window(300).window.x_max, (369 + 0.05 * (369 - 86)) / substance.Tcrit);
}

TEST_F(Coordinates, DatabaseWindowsShowTheValuesAtBothEnds) {
    activate("Carbon dioxide");
    set_units(3, 1);
    const auto contains = [&](int code, double atLow, double atHigh) {
        const DiagramRequest r = window(code);
        const double lo = std::min(atLow, atHigh), hi = std::max(atLow, atHigh);
        EXPECT_PRED2(Close, r.window.y_min, lo - 0.05 * (hi - lo));
        EXPECT_PRED2(Close, r.window.y_max, hi + 0.05 * (hi - lo));
    };
    const auto& s = substance;
    contains(301, 1 / models::density_liquid(s, 217)->rho, 1 / models::density_liquid(s, 303)->rho);
    contains(302, models::polynomial_cp(s.cp_polynomial, 50).value() / M(),
             models::polynomial_cp(s.cp_polynomial, 1000).value() / M());
    contains(303, models::polynomial_cp(s.cpL, 217).value() / M(),
             models::polynomial_cp(s.cpL, 273).value() / M());
    contains(304, models::polynomial_cp(s.cpS, 25).value() / M(),
             models::polynomial_cp(s.cpS, 216).value() / M());
    contains(307, models::vapour_pressure(s, 217, codes::vp("WAG"))->p,
             models::vapour_pressure(s, 303, codes::vp("WAG"))->p);
    contains(308, models::vapour_pressure(s, 217, codes::vp("ALP"))->p,
             models::vapour_pressure(s, 273, codes::vp("ALP"))->p);
    contains(310, models::density_solid(s, 144)->rho, models::density_solid(s, 216)->rho);
}

TEST_F(Coordinates, ASinglePointDensityIsShownTenKelvinsOnEitherSide) {
    activate("Mercury", kVanDerWaals);
    const DiagramRequest r = window(300);
    EXPECT_PRED2(Close, r.validity.low, 298.15 - 10);
    EXPECT_PRED2(Close, r.validity.high, 298.15 + 10);
    EXPECT_GT(r.window.y_max, r.window.y_min);
}

TEST_F(Coordinates, EqualDensitiesAtBothEndsOpenAWindowOfTwenty) {
    activate("Hydrogen peroxide", kVanDerWaals);
    const DiagramRequest r = window(300);  // one density, no slope: 1440 kg/m^3
    EXPECT_PRED2(Close, r.window.y_min, 1430 - 0.05 * 20);
    EXPECT_PRED2(Close, r.window.y_max, 1450 + 0.05 * 20);
}

TEST_F(Coordinates, EveryAvailableDatabaseFunctionHasAWindowOfSomeSize) {
    int checked = 0;
    for (const std::string& name : fluids::AllNames()) {
        activate(name, kVanDerWaals);
        for (int code = 300; code <= 310; ++code) {
            if (!diagrams::has_database_function(diagrams::diagram_of(code), fluid())) continue;
            const DiagramRequest r = window(code);
            EXPECT_GT(r.window.x_max, r.window.x_min) << name << " " << code;
            EXPECT_GT(r.window.y_max, r.window.y_min) << name << " " << code;
            ++checked;
        }
    }
    EXPECT_GT(checked, 1000);
}

TEST_F(Coordinates, EveryDiagramOfEverySubstanceHasAWindowOfSomeSize) {
    for (const std::string& name : fluids::AllNames()) {
        activate(name, kVanDerWaals);
        for (const diagrams::Diagram& row : diagrams::all_diagrams()) {
            if (row.x_limits.low == nullptr) continue;
            const DiagramRequest r = window(row.code);
            EXPECT_GT(r.window.x_max, r.window.x_min) << name << " " << row.code;
            // The data of some substances lack the critical density or a cp form.
            if (r.window.y_max == 0 && row.y_limits.high == &diagrams::CoordinateDefaults::rho_max)
                continue;
            EXPECT_GT(r.window.y_max, r.window.y_min) << name << " " << row.code;
        }
    }
}

}  // namespace
