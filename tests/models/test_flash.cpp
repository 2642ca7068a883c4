#include <algorithm>
#include <cmath>
#include <random>
#include <set>

#include "common/constants.h"
#include "models/flash_sweep.h"
#include "models/model_tables.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "models/virial.h"
#include "support/allocation_counter.h"
#include "support/fluids.h"
#include "support/medium.h"

using namespace quor;

namespace {

using constants::R;
using models::Eos;
using models::Flash;
using models::FlashChoice;
using models::FlashPhase;
using models::FlashState;
using models::NoFlashReason;
using models::Property;
using enum models::Property;

constexpr double kExact = 1e-9;

/// Relative to the larger of a value and `least`.
void expect_near(double value, double expected, double least, const std::string& what) {
    EXPECT_NEAR(value, expected, kExact * std::max(std::fabs(expected), least)) << what;
}

FlashState found(const Flash& flash, models::GivenValue a, models::GivenValue b,
                 FlashChoice choice = FlashChoice::first) {
    const auto r = flash(a, b, choice);
    if (!r) throw std::runtime_error(words_of(r.failure()));
    return *r;
}

NoFlashReason refused(const Flash& flash, models::GivenValue a, models::GivenValue b,
                      FlashChoice choice = FlashChoice::first) {
    const auto r = flash(a, b, choice);
    if (r) throw std::runtime_error("there is a state at " + std::to_string(r->T) + " K");
    EXPECT_GT(words_of(r.failure()).size(), 20U);
    return r.failure().reason;
}

Flash flash_of(const Medium& medium) {
    return {medium.fluid, medium.reference};
}

Medium propane(Eos eos = Eos::pengRobinson) {
    return Medium(fluids::fluid(fluids::ReferencePropane(), eos));
}

/// A gas of constant cp, whose states follow by closed forms.
constexpr double kCp = 30;
Medium perfect_gas() {
    models::SubstanceRecord s;
    s.M = 28;
    s.Tcrit = 126;
    s.pcrit = 3400;
    s.cp_polynomial.c = {static_cast<float>(kCp), 0, 0, 0, 0};
    s.has_cp_polynomial = true;
    return Medium(fluids::fluid(s, Eos::idealGas));
}

TEST(Flash, OfAPerfectGasFollowsItsClosedForms) {
    const Medium gas = perfect_gas();
    const Flash flash = flash_of(gas);
    const auto T0 = static_cast<double>(gas.reference.T0),
               p0 = static_cast<double>(gas.reference.p0);
    for (const double T : {90.0, 298.15, 700.0, 1900.0})
        for (const double p : {0.01, 101.325, 20000.0}) {
            const double v = R * T / p;
            const double h_ = kCp * (T - T0), u_ = h_ - R * T;
            const double s_ = kCp * std::log(T / T0) - R * std::log(p / p0);
            const models::GivenValue pairs[][2] = {{{Property::p, p}, {Property::v, v}},
                                                   {{Property::p, p}, {h, h_}},
                                                   {{Property::p, p}, {s, s_}},
                                                   {{Property::p, p}, {u, u_}},
                                                   {{Property::v, v}, {h, h_}},
                                                   {{Property::v, v}, {s, s_}},
                                                   {{Property::v, v}, {u, u_}},
                                                   {{h, h_}, {s, s_}},
                                                   {{s, s_}, {u, u_}},
                                                   {{Property::T, T}, {s, s_}}};
            for (const auto& pair : pairs) {
                const FlashState z = found(flash, pair[0], pair[1]);
                const std::string at = "T " + std::to_string(T) + ", p " + std::to_string(p);
                expect_near(z.T, T, 0, at);
                expect_near(z.p, p, 0, at);
                expect_near(z.v, v, 0, at);
                expect_near(z.values->h, h_, R * T, at);
                expect_near(z.values->s, s_, R, at);
                EXPECT_NEAR(z.single->cp, kCp, 1e-12 * kCp);
                EXPECT_EQ(z.phase, FlashPhase::vapour);
                EXPECT_EQ(z.answers, 1);
            }
        }
}

TEST(Flash, OfTwoPhasesIsTheLeverRuleBetweenTheSaturatedStates) {
    const Medium medium = propane();
    const Flash flash = flash_of(medium);
    for (const double T : {200.0, 300.0, 360.0}) {
        const auto sat = medium.saturation(T);
        ASSERT_TRUE(sat);
        for (const double x_ : {0.0, 0.25, 0.9, 1.0}) {
            const auto mixed = [&](double L, double V) { return L + x_ * (V - L); };
            const double all[] = {T,
                                  sat->p,
                                  mixed(sat->vL, sat->vV),
                                  mixed(sat->L.h, sat->V.h),
                                  mixed(sat->L.s, sat->V.s),
                                  mixed(sat->L.u, sat->V.u),
                                  x_};
            for (const auto& [a, b] : {std::pair{Property::T, x},
                                       {Property::p, x},
                                       {Property::p, h},
                                       {Property::p, s},
                                       {Property::T, Property::v},
                                       {h, s},
                                       {Property::v, u},
                                       {s, u}}) {
                const FlashState z =
                    found(flash, {a, all[static_cast<int>(a)]}, {b, all[static_cast<int>(b)]});
                const std::string at = "T " + std::to_string(T) + " x " + std::to_string(x_);
                expect_near(z.T, T, 0, at);
                expect_near(z.p, sat->p, 0, at);
                expect_near(z.values->h, all[3], R * T, at);
                expect_near(z.values->s, all[4], R, at);
                if (!z.x) continue;  // a saturated state may come back as one phase
                EXPECT_EQ(z.phase, FlashPhase::twoPhases) << at;
                EXPECT_NEAR(*z.x, x_, kExact) << at;
                expect_near(z.L->v, sat->vL, 0, at);
                expect_near(z.V->v, sat->vV, 0, at);
                expect_near(z.L->values->h, sat->L.h, R * T, at);
                expect_near(z.V->values->s, sat->V.s, R, at);
                EXPECT_FALSE(z.single);
            }
        }
    }
}

TEST(Flash, OfOnePhaseIsTheStateByTheFunctionsForTAndP) {
    for (const Eos eos : {Eos::pengRobinson, Eos::soave, Eos::vanDerWaals, Eos::pitzerCurl}) {
        const Medium medium(fluids::fluid("Water", eos));
        const Flash flash = flash_of(medium);
        for (const auto& [T, p] : {std::pair{400.0, 100.0}, {350.0, 2000.0}, {700.0, 30000.0}}) {
            if (eos == Eos::pitzerCurl && T < 390) continue;
            const auto state = models::solve_state_tp(medium.fluid, T, p);
            ASSERT_TRUE(state);
            const double v = state->has_V ? *state->vV : *state->vL;
            const auto z = medium.state(T, p, v);
            ASSERT_TRUE(z);
            const FlashState by_h = found(flash, {Property::p, p}, {h, z->h});
            expect_near(by_h.T, T, 0, "p, h");
            expect_near(by_h.v, v, 0, "p, h");
            EXPECT_NEAR(by_h.single->cp, z->cp, 1e-6 * z->cp);
            EXPECT_NEAR(by_h.single->w, z->w, 1e-6 * z->w);
            EXPECT_EQ(by_h.phase, eos == Eos::pitzerCurl ? FlashPhase::vapour
                                  : T > medium.Tcrit()   ? FlashPhase::supercritical
                                  : p > 1000             ? FlashPhase::liquid
                                                         : FlashPhase::vapour);
            const FlashState by_s = found(flash, {s, z->s}, {Property::T, T});
            EXPECT_NEAR(by_s.v, v, 1e-7 * v);
            const FlashState both = found(flash, {s, z->s}, {h, z->h});
            EXPECT_NEAR(both.T, T, 1e-7 * T);
        }
    }
}

TEST(Flash, TheOrderOfBothValuesDoesNotMatter) {
    const Flash flash = flash_of(propane());
    const FlashState one = found(flash, {h, -2000}, {s, -20}),
                     other = found(flash, {s, -20}, {h, -2000});
    EXPECT_EQ(one.T, other.T);
    EXPECT_EQ(one.v, other.v);
}

TEST(Flash, IsIsentropicThroughTheDomeAsClapeyronSays) {
    // Along an isentrope dh = v dp, in one phase and in two.
    const Flash flash = flash_of(propane());
    for (const double entropy : {-70.0, -40.0, -25.0, -10.0})
        for (const double p : {200.0, 900.0, 3000.0, 9000.0}) {
            constexpr double kStep = 1e-4;
            const FlashState low = found(flash, {Property::p, p * (1 - kStep)}, {s, entropy});
            const FlashState high = found(flash, {Property::p, p * (1 + kStep)}, {s, entropy});
            if (low.phase != high.phase) continue;
            const double slope = (high.values->h - low.values->h) / (2 * kStep * p);
            const double v = found(flash, {Property::p, p}, {s, entropy}).v;
            EXPECT_NEAR(slope, v, 1e-5 * v) << entropy << " " << p;
        }
}

TEST(Flash, AColdLiquidWhosePressureIsLostInHAndUIsFoundByThem) {
    // p v of 1E-15 kJ/kmol beside h of -9E4: both are the same number.
    const Medium medium = propane(Eos::berthelot);
    const Flash flash = flash_of(medium);
    const FlashState cold = found(flash, {Property::T, 101}, {x, 0});
    ASSERT_EQ(cold.values->h, cold.values->u);
    const FlashState z = found(flash, {h, cold.values->h}, {u, cold.values->u});
    EXPECT_NEAR(z.T, 101, 1e-6);
    expect_near(z.values->h, cold.values->h, R * 101, "h");
    expect_near(z.values->u, cold.values->u, R * 101, "u");
}

// ------------------------------------------------------------------------------------ choices

TEST(Flash, TellsAndGivesBothStatesOfTAndH) {
    // h falls along an isotherm to a minimum in the compressed liquid and rises behind it.
    const Medium medium = propane();
    const Flash flash = flash_of(medium);
    const FlashState dense = found(flash, {Property::T, 300}, {h, -15900});
    ASSERT_TRUE(dense.other_answer());
    const FlashState light = found(flash, {Property::T, 300}, {h, -15900}, FlashChoice::second);
    EXPECT_EQ(dense.answers, 2);
    EXPECT_EQ(light.answers, 2);
    EXPECT_EQ(light.answer, 1);
    EXPECT_LT(dense.v, light.v);
    EXPECT_EQ(dense.phase, FlashPhase::liquid);
    EXPECT_GT(dense.p, 5000);
    EXPECT_EQ(light.phase, FlashPhase::twoPhases);
    for (const FlashState& z : {dense, light}) expect_near(z.values->h, -15900, R * 300, "h");
    EXPECT_EQ(refused(flash, {Property::T, 300}, {h, -15900}, FlashChoice::third),
              NoFlashReason::noSuchAnswer);
}

TEST(Flash, TellsBothSaturatedVapoursOfOneEnthalpy) {
    // h of the saturated vapour has a maximum below the critical point.
    const Medium medium = propane();
    const Flash flash = flash_of(medium);
    const double value = medium.saturation(340)->V.h;
    const FlashState warm = found(flash, {h, value}, {x, 1}),
                     cold = found(flash, {h, value}, {x, 1}, FlashChoice::second);
    EXPECT_EQ(warm.answers, 2);
    EXPECT_GT(warm.T, cold.T);
    EXPECT_LT(warm.v, cold.v);
    EXPECT_NEAR(std::min(std::fabs(warm.T - 340), std::fabs(cold.T - 340)), 0, 1e-6);
    for (const FlashState& z : {warm, cold}) expect_near(z.values->h, value, R * 300, "h");
}

TEST(Flash, TellsBothStatesOfASmallVapourFractionAndV) {
    // Of little vapour v first falls along T, as the vapour gets denser, then rises with the
    // liquid.
    const Medium medium = propane();
    const Flash flash = flash_of(medium);
    const auto sat = medium.saturation(330);
    const double v = sat->vL + 0.1 * (sat->vV - sat->vL);
    int here = 0;
    for (const FlashChoice choice : {FlashChoice::first, FlashChoice::second}) {
        const auto z = flash({x, 0.1}, {Property::v, v}, choice);
        if (!z) continue;
        EXPECT_NEAR(z->L->v + 0.1 * (z->V->v - z->L->v), v, kExact * v);
        here += std::fabs(z->T - 330) < 1e-6 ? 1 : 0;
    }
    EXPECT_EQ(here, 1);
}

TEST(Flash, TAndPOfASaturatedStateGiveBothPhases) {
    const Medium medium = propane();
    const Flash flash = flash_of(medium);
    const double p = models::saturation_pressure(medium.fluid, 300)->p;
    const FlashState L = found(flash, {Property::T, 300}, {Property::p, p}),
                     V = found(flash, {Property::T, 300}, {Property::p, p}, FlashChoice::second);
    EXPECT_EQ(L.answers, 2);
    EXPECT_EQ(*L.x, 0);
    EXPECT_EQ(*V.x, 1);
    EXPECT_EQ(L.v, L.L->v);
    EXPECT_EQ(V.v, V.V->v);
}

// ----------------------------------------------------------------------------------- refusals

TEST(Flash, RefusesWhatCannotBeAndSaysWhy) {
    const Medium medium = propane();
    const Flash flash = flash_of(medium);
    using enum NoFlashReason;
    EXPECT_EQ(refused(flash, {Property::T, std::nan("")}, {Property::p, 1}), notANumber);
    EXPECT_EQ(refused(flash, {Property::T, 300}, {h, HUGE_VAL}), notANumber);
    EXPECT_EQ(refused(flash, {h, 1}, {h, 2}), sameProperty);
    EXPECT_EQ(refused(flash, {Property::T, 0}, {Property::p, 1}), notPositive);
    EXPECT_EQ(refused(flash, {Property::T, 300}, {Property::p, -1}), notPositive);
    EXPECT_EQ(refused(flash, {h, 300}, {Property::v, 0}), notPositive);
    EXPECT_EQ(refused(flash, {Property::T, 300}, {x, 1.01}), outsideFraction);
    EXPECT_EQ(refused(flash, {Property::p, 300}, {x, -0.01}), outsideFraction);
    EXPECT_EQ(refused(flash, {Property::T, 370}, {x, 0.5}), aboveCritical);
    EXPECT_EQ(refused(flash, {Property::p, 4300}, {x, 0.5}), aboveCritical);
    EXPECT_EQ(refused(flash, {Property::p, 1e-310}, {x, 0.5}), noSaturation);
    EXPECT_EQ(refused(flash, {Property::T, 300}, {Property::v, 0.01}), belowCovolume);
    EXPECT_EQ(refused(flash, {Property::p, 300}, {Property::v, 0.01}), belowCovolume);
    EXPECT_EQ(refused(flash, {h, 300}, {Property::v, 0.01}), belowCovolume);
    EXPECT_EQ(refused(flash, {Property::p, 100}, {h, 1e7}), noSolution);
    EXPECT_EQ(refused(flash, {Property::p, 100}, {h, -1e7}), noSolution);
    EXPECT_EQ(refused(flash, {h, -1e7}, {s, 0}), noSolution);
    EXPECT_EQ(refused(flash, {h, 0}, {u, 1}), noSolution);  // p v would be negative
    EXPECT_EQ(refused(flash, {Property::p, 100}, {h, 0}, FlashChoice::second), noSuchAnswer);
}

TEST(Flash, TheEndsOfASearchStandInItsRefusal) {
    const Flash flash = flash_of(propane());
    const auto r = flash({Property::p, 100}, {h, 1e7});
    ASSERT_FALSE(r);
    EXPECT_EQ(r.failure().T_low, flash.caloric_range().low);
    EXPECT_EQ(r.failure().T_high, flash.caloric_range().high);
    EXPECT_GT(flash.caloric_range().high, 1500);
    EXPECT_NE(words_of(r.failure()).find(" K."), std::string::npos) << words_of(r.failure());
}

TEST(Flash, WithoutAHeatCapacityHasNoEnthalpyButStates) {
    const Medium medium(fluids::changed(propane().fluid, [](auto& substance, auto& models) {
        substance.cp_polynomial = {};
        substance.cp_sinh_cosh = {};
        models.cp_form = models::CpForm::none;
    }));
    const Flash flash = flash_of(medium);
    EXPECT_EQ(refused(flash, {Property::T, 300}, {h, 0}), NoFlashReason::noHeatCapacity);
    EXPECT_EQ(refused(flash, {s, 300}, {u, 0}), NoFlashReason::noHeatCapacity);
    const FlashState z = found(flash, {Property::T, 300}, {Property::p, 500});
    EXPECT_FALSE(z.values);
    EXPECT_FALSE(z.single);
    EXPECT_NEAR(found(flash, {Property::v, z.v}, {Property::p, 500}).T, 300, 1e-9 * 300);
    const FlashState two = found(flash, {Property::T, 300}, {x, 0.5});
    EXPECT_FALSE(two.values);
    EXPECT_NEAR(found(flash, {Property::v, two.v}, {x, 0.5}).T, 300, 1e-9 * 300);
}

TEST(Flash, OfAnEquationForTheVapourAloneHasNoVapourFraction) {
    for (const Eos eos : {Eos::idealGas, Eos::virialSoave, Eos::pitzerCurl}) {
        const Flash flash = flash_of(propane(eos));
        for (const Property y : {Property::T, Property::p, Property::v, h, s, u})
            EXPECT_EQ(refused(flash, {y, 300}, {x, 0.5}), NoFlashReason::noLiquid);
        EXPECT_EQ(found(flash, {Property::T, 300}, {Property::p, 500}).phase, FlashPhase::vapour);
    }
}

TEST(Flash, OfTheIdealGasTakesNoTwoFunctionsOfTAlone) {
    const Flash flash = flash_of(perfect_gas());
    for (const auto& [a, b] : {std::pair{Property::T, h}, {Property::T, u}, {h, u}})
        EXPECT_EQ(refused(flash, {a, 300}, {b, 200}), NoFlashReason::onlyOfT);
}

TEST(Flash, OfAVirialEquationWithoutCoefficientsIsThatOfTheIdealGas) {
    const Medium medium(fluids::changed(
        fluids::fluid("Argon", Eos::manualVirial),
        [](auto&, auto& models) { models.manual_virial = {.b0 = 0, .b1 = 0, .b2 = 0}; }));
    const Flash flash = flash_of(medium);
    EXPECT_EQ(refused(flash, {Property::T, 300}, {h, 200}), NoFlashReason::onlyOfT);
    EXPECT_NEAR(found(flash, {Property::T, 300}, {Property::p, 100}).v, R * 3, 1e-12 * R * 3);
}

TEST(Flash, WhereTheVirialEquationHasNoVolumeThereIsNoState) {
    const Flash flash = flash_of(propane(Eos::virialPengRobinson));
    EXPECT_EQ(refused(flash, {Property::T, 200}, {Property::p, 10000}), NoFlashReason::noState);
}

TEST(Flash, AStateWhoseCvIsNotPositiveIsNone) {
    // Dense states of the virial form of van der Waals' equation, at volumes below b.
    const Medium argon(fluids::fluid("Argon", Eos::virialVanDerWaals));
    const Flash flash = flash_of(argon);
    int unstable = 0;
    for (double v = 0.002; v < 0.05; v *= 1.2) {
        const auto p = models::pressure_from_Tv(argon.fluid, 100, v);
        ASSERT_TRUE(p);
        const auto z = argon.state(100, *p, v);
        ASSERT_TRUE(z);
        const auto r = flash({Property::T, 100}, {Property::v, v});
        EXPECT_EQ(static_cast<bool>(r), z->cv > 0) << v;
        if (r) continue;
        EXPECT_EQ(r.failure().reason, NoFlashReason::unstable);
        ++unstable;
    }
    EXPECT_GT(unstable, 0);
}

TEST(Flash, WithoutAnEquationOfStateThereIsNone) {
    const Flash flash(models::Fluid(), {});
    EXPECT_EQ(refused(flash, {Property::T, 300}, {Property::p, 100}), NoFlashReason::noEquation);
}

TEST(Flash, EveryRefusalHasItsOwnWords) {
    std::set<std::string> words;
    const int count = static_cast<int>(NoFlashReason::noSuchAnswer) + 1;
    for (int i = 0; i < count; ++i)
        words.insert(models::words_of({static_cast<NoFlashReason>(i), 100, 200}));
    EXPECT_EQ(static_cast<int>(words.size()), count);
    for (const std::string& text : words) EXPECT_TRUE(text.ends_with('.')) << text;
}

// ------------------------------------------------------------------------- what is told beside

TEST(Flash, TellsOfStatesBelowTheTriplePointAndBesideTheRangeOfCp) {
    const Medium medium(fluids::changed(fluids::fluid("Water", Eos::pengRobinson),
                                        [](auto& substance, auto& models) {
                                            substance.cp_polynomial.T_low = 300;
                                            substance.cp_polynomial.T_high = 1000;
                                            models.cp_form = models::CpForm::polynomial;
                                        }));
    const Flash flash = flash_of(medium);
    const FlashState cold = found(flash, {Property::T, 260}, {Property::p, 100});
    EXPECT_TRUE(cold.below_triple);
    EXPECT_EQ(cold.cp_deviation, -40);
    const FlashState hot = found(flash, {Property::T, 1100}, {Property::p, 100});
    EXPECT_FALSE(hot.below_triple);
    EXPECT_EQ(hot.cp_deviation, 100);
    EXPECT_EQ(found(flash, {Property::T, 500}, {Property::p, 100}).cp_deviation, 0);
}

TEST(Flash, HasExergiesWhereSurroundingsAreGiven) {
    const Medium medium = propane();
    const Flash with(medium.fluid, medium.reference, medium.surroundings);
    const FlashState z = found(with, {Property::T, 350}, {Property::p, 900});
    ASSERT_TRUE(z.single->exergies);
    EXPECT_EQ(z.single->exergies->H, medium.state(350, 900, z.v)->exergies->H);
    EXPECT_FALSE(found(flash_of(medium), {Property::T, 350}, {Property::p, 900}).single->exergies);
}

TEST(Flash, MovesWithTheReferenceState) {
    const Medium medium = propane();
    models::ReferenceState other = medium.reference;
    other.href = 12345;
    other.sref = -67;
    const Flash moved(medium.fluid, other);
    const FlashState z = found(flash_of(medium), {Property::p, 900}, {s, -20});
    const FlashState same = found(moved, {Property::p, 900}, {s, -20 - 67});
    expect_near(same.T, z.T, 0, "T");
    expect_near(same.values->h, z.values->h + 12345, R * z.T, "h");
}

TEST(Flash, SearchesAllocateNothing) {
    const Medium medium = propane();
    const Flash flash = flash_of(medium);
    const FlashState z = found(flash, {Property::T, 320}, {x, 0.4});
    const double all[] = {z.T, z.p, z.v, z.values->h, z.values->s, z.values->u, *z.x};
    const std::size_t before = AllocationCount();
    int states = 0;
    for (std::size_t a = 0; a < 7; ++a)
        for (std::size_t b = a + 1; b < 7; ++b)
            states += flash({static_cast<Property>(a), all[a]}, {static_cast<Property>(b), all[b]})
                          ? 1
                          : 0;
    EXPECT_EQ(AllocationCount(), before);
    EXPECT_EQ(states, 21);
}

TEST(Flash, AFunctionForOneStateGivesTheSame) {
    const Medium medium = propane();
    const auto one = models::flash(medium.fluid, medium.reference, {h, -2000}, {Property::p, 900});
    ASSERT_TRUE(one);
    EXPECT_EQ(one->T, found(flash_of(medium), {h, -2000}, {Property::p, 900}).T);
}

TEST(Flash, AtTheCriticalPointBothPhasesAreOne) {
    const Medium medium = propane();
    const Flash flash = flash_of(medium);
    const double vc = medium.fluid.eos().vcrit_calculated, pc = medium.fluid.substance().pcrit;
    const FlashState by_x = found(flash, {Property::T, medium.Tcrit()}, {x, 0.3});
    EXPECT_EQ(by_x.p, pc);
    EXPECT_EQ(by_x.v, vc);
    EXPECT_EQ(by_x.L->v, by_x.V->v);
    const FlashState by_p = found(flash, {Property::T, medium.Tcrit()}, {Property::p, pc});
    EXPECT_EQ(by_p.phase, FlashPhase::supercritical);
    // p(v) is flat there: v follows from p to a third of the digits.
    EXPECT_NEAR(by_p.v, vc, 1e-4 * vc);
    expect_near(found(flash, {Property::T, medium.Tcrit()}, {Property::v, vc}).p, pc, 0, "p");
}

TEST(Flash, ValuesOfAnySizeGiveAStateWithThemOrAReason) {
    std::mt19937 random(4711);
    const auto draw = [&] { return std::generate_canonical<double, 53>(random); };
    const auto wild = [&](Property y) {
        if (y == x) return draw();
        const double size = std::pow(10.0, -300 * std::pow(draw(), 4) + 300 * std::pow(draw(), 4));
        const bool negative = (y == h || y == s || y == u) && draw() < 0.5;
        return negative ? -size : size;
    };
    int states = 0, refusals = 0;
    for (const Eos eos : {Eos::pengRobinson, Eos::vanDerWaals, Eos::jiTorvik2, Eos::virialSoave,
                          Eos::pitzerCurl, Eos::idealGas}) {
        const Flash flash = flash_of(Medium(fluids::fluid("Propane", eos)));
        for (int i = 0; i < 400; ++i) {
            const auto a = static_cast<Property>(7 * draw()), b = static_cast<Property>(7 * draw());
            const models::GivenValue first{a, wild(a)}, second{b, wild(b)};
            const auto r = flash(first, second);
            if (!r) {
                ++refusals;
                continue;
            }
            ++states;
            const double all[] = {r->T,
                                  r->p,
                                  r->v,
                                  r->values ? r->values->h : NAN,
                                  r->values ? r->values->s : NAN,
                                  r->values ? r->values->u : NAN,
                                  r->x.value_or(NAN)};
            EXPECT_TRUE(r->T > 0 && r->p > 0 && r->v > 0);
            EXPECT_TRUE(std::isfinite(r->T + r->p + r->v));
            for (const models::GivenValue g : {first, second}) {
                const double least = g.property == s ? R : g.property >= h ? R * r->T : 0;
                expect_near(all[static_cast<int>(g.property)], g.value, least, "wild");
            }
        }
    }
    EXPECT_GT(states, 100);
    EXPECT_GT(refusals, 100);
}

// A part of the sweep that tools/sweep-flash runs in full.
TEST(Flash, EveryPairOfEveryStateLeadsBackToIt) {
    flash_sweep::Counts counts;
    flash_sweep::sweep_all(5, 0, 23, counts);
    std::fputs(told(counts).c_str(), stdout);
    EXPECT_EQ(counts.failed, 0);
    EXPECT_GT(counts.fluids, 100);
    EXPECT_GT(counts.states, 450);
    EXPECT_GT(counts.two_phases, 60);
    EXPECT_GT(counts.pairs, 7000);
    EXPECT_LT(counts.ill_conditioned, counts.pairs / 1000);
}

}  // namespace
