#include <algorithm>
#include <limits>

#include "common/numbers.h"
#include "diagrams/active_fluid.h"
#include "diagrams/catalogue.h"
#include "diagrams/drawn.h"
#include "diagrams/equilibrium.h"
#include "diagrams/isoline_search.h"
#include "diagrams/process_line.h"
#include "diagrams/project_state.h"
#include "diagrams/textbook.h"
#include "legacy/current_fluid.h"
#include "legacy/wrappers.h"
#include "models/caloric.h"
#include "models/state_solver.h"
#include "support/codes.h"

using namespace quor;

namespace {

using diagrams::ProcessInput;
using legacy::the_eosParameters;
using legacy::the_processLine;
using legacy::the_session;
using legacy::the_substance;
using models::StateValues;
namespace Kind = diagrams::ProcessKind;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

class ProcessLines : public ActiveFluid {
  protected:
    static double Tc(double share) { return share * the_substance.Tcrit; }
    static double pc(double share) { return share * the_substance.pcrit; }

    /// Runs the line of `processLine` in a diagram with a window that holds all of it.
    static Drawn run(std::int16_t diagram) {
        diagrams::DiagramRequest request;
        request.DiagramType = diagram;
        request.sectionKind = SectionKindOf(diagram);
        request.xMin = request.yMin = -1e9F;
        request.xMax = request.yMax = 1e9F;
        Drawn curve;
        diagrams::with_process_line(request, [&] {
            curve = Draw(request, {.T = the_session.DiagramT, .p = the_session.DiagramP});
        });
        EXPECT_EQ(request.DiagramType, diagram) << "the code is restored";
        return curve;
    }
    static ProcessInput input(std::uint8_t kind, double T1, double p1, bool overT, double end) {
        ProcessInput in;
        in.Kind = kind;
        in.par = {T1, p1, overT ? end : kNone, overT ? kNone : end};
        in.RangeIsT = overT;
        return in;
    }
    static StateValues stable(double T, double p) {
        const models::StateTP state = models::SolveStateTP(T, p);
        if (!state.hasL || !state.hasV)
            return models::StateFunctions(T, p, state.hasL ? state.vL : state.vV);
        // Where the solver calls it an equilibrium the smaller g tells the side of the dome.
        const StateValues L = models::StateFunctions(T, p, state.vL);
        const StateValues V = models::StateFunctions(T, p, state.vV);
        return L.g < V.g ? L : V;
    }
    /// What is remarked on the line as a diagram would draw it.
    static std::string note(std::int16_t diagram) {
        std::vector<float> x, y;
        for (const auto& point : run(diagram).points()) {
            x.push_back(point.x);
            y.push_back(point.y);
        }
        return diagrams::one_point_note(diagram, x, y);
    }
    static double s_of(double T, double p) { return stable(T, p).s; }
    static double h_of(double T, double p) { return stable(T, p).h; }
};

// ---- the lines

TEST_F(ProcessLines, AStraightLineHasFiftyOnePoints) {
    activate("Propane");
    ProcessInput in;
    in.Kind = Kind::kStraightLine;
    for (const std::array<double, 4>& ends :
         {std::array<double, 4>{1, 10, 3, 110}, std::array<double, 4>{2, 10, 2, 110},
          std::array<double, 4>{-5, 7, 5, 7}}) {
        in.par = ends;
        EXPECT_EQ(diagrams::take_process_input(in), "");
        const Drawn curve = run(1);
        EXPECT_EQ(curve.result.status, 0);
        EXPECT_EQ(curve.count(), 51U);
        EXPECT_EQ(curve.mark(), 0);
        for (std::size_t i = 0; i <= 50; ++i) {
            const double t = static_cast<double>(i) / 50;
            EXPECT_FLOAT_EQ(curve.all[i + 1].x,
                            static_cast<float>(ends[0] + t * (ends[2] - ends[0])));
            EXPECT_FLOAT_EQ(curve.all[i + 1].y,
                            static_cast<float>(ends[1] + t * (ends[3] - ends[1])));
        }
    }
    in.par = {1, 2, 1, 2};
    EXPECT_EQ(diagrams::take_process_input(in), "specification of the range is not valid ");
    in.par = {1, 2, kNone, 2};
    EXPECT_EQ(diagrams::take_process_input(in), "Input incomplete or not valid");
}

TEST_F(ProcessLines, AnIsothermHoldsTAndEndsOnTheRange) {
    activate("Propane");
    EXPECT_EQ(diagrams::take_process_input(input(Kind::kIsotherm, 300, 100, false, 900)), "");
    const Drawn curve = run(1);
    EXPECT_EQ(curve.result.status, 0);
    EXPECT_EQ(curve.count(), 301U);
    const Textbook eos(6, the_substance.Tcrit, the_substance.pcrit, the_substance.omega);
    for (const auto& point : curve.points()) {
        EXPECT_NEAR(eos.pressure(300, point.x) / point.y, 1, 1e-5);
        EXPECT_FLOAT_EQ(point.z, 300);
    }
    EXPECT_FLOAT_EQ(curve.first().y, 100);
    EXPECT_FLOAT_EQ(curve.last().y, 900);
    EXPECT_EQ(the_processLine.LastT, 300);
    EXPECT_EQ(the_processLine.LastP, 900);
    EXPECT_NE(the_session.DiagramT, 300) << "the parameter of the diagram is restored";
}

TEST_F(ProcessLines, ThePhaseChoosesTheRoot) {
    activate("Propane");
    ProcessInput in = input(Kind::kIsotherm, 300, 500, false, 900);
    in.Vapour = false;
    EXPECT_EQ(diagrams::take_process_input(in), "");
    const auto e = diagrams::equilibrium_at_T(models::current_fluid(), 300);
    for (const auto& point : run(1).points()) EXPECT_LT(point.x, 1.1 * e.vL);
    in.Vapour = true;
    EXPECT_EQ(diagrams::take_process_input(in), "");
    for (const auto& point : run(1).points()) EXPECT_GT(point.x, 0.9 * e.vV);
}

TEST_F(ProcessLines, AnIsobarHoldsP) {
    activate("Propane");
    EXPECT_EQ(diagrams::take_process_input(input(Kind::kIsobar, 300, 500, true, 420)), "");
    const Drawn curve = run(15);
    EXPECT_EQ(curve.count(), 301U);
    for (const auto& point : curve.points()) {
        EXPECT_NEAR(point.y, h_of(point.x, 500), 0.05);
        EXPECT_FLOAT_EQ(point.z, 500);
    }
    EXPECT_EQ(the_processLine.LastT, 420);
}

TEST_F(ProcessLines, AnIsochoreHoldsItsVolumeOverTAndOverP) {
    activate("Propane");
    for (const bool overT : {true, false}) {
        EXPECT_EQ(diagrams::take_process_input(
                      input(Kind::kIsochore, 300, 500, overT, overT ? 450 : 900)),
                  "");
        const double v = models::SolveStateTP(300, 500).vV;
        const Drawn curve = run(5);
        EXPECT_EQ(curve.result.status, 0);
        EXPECT_EQ(curve.count(), 301U);
        for (const auto& point : curve.points()) {
            EXPECT_NEAR(models::pressure_from_tv(point.x, v).p / point.y, 1, 1e-5);
            EXPECT_FLOAT_EQ(point.z, static_cast<float>(v));
        }
    }
}

TEST_F(ProcessLines, IsentropicsAndIsenthalpicsHoldTheirFunction) {
    for (const char* name : {"Propane", "Water", "Nitrogen"}) {
        activate(name);
        const double T1 = Tc(1.1), p1 = pc(0.2);
        for (const std::uint8_t kind : {Kind::kIsentropic, Kind::kIsenthalpic}) {
            for (const bool overT : {false, true}) {
                // Over T an isenthalpic ends where p is 0, for propane 6.5 K below the start.
                const double end = overT ? Tc(1.09) : pc(0.1);
                EXPECT_EQ(diagrams::take_process_input(input(kind, T1, p1, overT, end)), "");
                const Drawn curve = run(5);  // T and p of every state
                EXPECT_EQ(curve.result.status, 0) << name << int{kind} << overT;
                EXPECT_EQ(curve.count(), overT ? 751U : 376U);
                const StateValues start = stable(T1, p1);
                for (const auto& point : curve.points()) {
                    const StateValues z = stable(point.x, point.y);
                    // The digits of a 32-bit T are worth cp dT.
                    const double seen = 1.5e-7 * z.cp * point.x + 1e-3;
                    if (kind == Kind::kIsentropic)
                        EXPECT_NEAR(z.s, start.s, seen / point.x + 2e-6);
                    else
                        EXPECT_NEAR(z.h, start.h, 2 * seen);
                }
                EXPECT_NEAR(overT ? the_processLine.LastT : the_processLine.LastP, end, 1e-9 * end);
            }
        }
    }
}

TEST_F(ProcessLines, AnIsentropicThatMeetsTheCoexistenceCurveEndsEarly) {
    activate("Propane");
    const double T1 = 320, p1 = 1400;  // a little superheated
    EXPECT_EQ(diagrams::take_process_input(input(Kind::kIsentropic, T1, p1, false, 10)), "");
    // Propane's dew line leans to the right: choose water, whose leans to the left.
    activate("Water");
    EXPECT_EQ(diagrams::take_process_input(input(Kind::kIsentropic, 500, 1000, false, 10)), "");
    const Drawn curve = run(5);
    EXPECT_EQ(curve.result.status, 5);
    EXPECT_GT(curve.count(), 2U);
    const auto e = diagrams::equilibrium_at_p(models::current_fluid(), curve.last().y);
    EXPECT_GT(curve.last().x, e.T) << "still vapour";
    EXPECT_LT(curve.last().x, e.T + 20) << "and close to the dew line";
    EXPECT_EQ(diagrams::TextOf(curve.result).title, "Remark");
}

TEST_F(ProcessLines, AnIsentropicWithoutAnyStateHasNoResult) {
    activate("Propane");
    // The start state cannot be solved with this volume phase: no entropy, no line.
    legacy::the_models.CpModel = codes::cp(0);
    EXPECT_EQ(diagrams::take_process_input(input(Kind::kIsentropic, 300, 500, false, 900)), "");
    const Drawn curve = run(5);
    EXPECT_EQ(curve.result.status, -2);
    EXPECT_EQ(curve.result.message, "no result with these input data");
}

TEST_F(ProcessLines, AnIsentropicWhoseFirstSearchFailsHasNoResult) {
    activate("Water");
    // Wet: the saturated vapour at the start, and all of the range lies inside the dome.
    const auto e = diagrams::equilibrium_at_p(models::current_fluid(), 1000);
    EXPECT_EQ(diagrams::take_process_input(input(Kind::kIsentropic, e.T + 0.5, 1000, false, 900)),
              "");
    the_processLine.RangeStart = 950;
    const Drawn curve = run(5);
    EXPECT_EQ(curve.result.status, -2);
    EXPECT_LE(curve.count(), 1U);
}

TEST_F(ProcessLines, HeterogeneousLinesHoldTheirQuantityOverTheTieLines) {
    activate("Water");
    struct Case {
        std::uint8_t kind;
        bool vapour, overT;
        double start, end;
    };
    for (const Case& c : {Case{Kind::kIsentropic, true, true, 550, 350},
                          Case{Kind::kIsentropic, false, false, 5000, 20},
                          Case{Kind::kIsenthalpic, false, true, 550, 350},
                          Case{Kind::kIsenthalpic, false, false, 5000, 20},
                          Case{Kind::kIsochore, true, true, 550, 350},
                          Case{Kind::kIsochore, false, false, 5000, 20}}) {
        ProcessInput in =
            input(c.kind, c.overT ? c.start : kNone, c.overT ? kNone : c.start, c.overT, c.end);
        in.Vapour = c.vapour;
        in.Heterogeneous = true;
        ASSERT_EQ(diagrams::take_process_input(in), "");
        const std::int16_t diagram = c.kind == Kind::kIsochore     ? 1
                                     : c.kind == Kind::kIsentropic ? 16
                                                                   : 15;
        const Drawn curve = run(diagram);
        EXPECT_EQ(curve.result.status, 0);
        EXPECT_EQ(curve.count(), 301U);
        const float held = diagram == 1 ? curve.first().x : curve.first().y;
        for (const auto& point : curve.points()) {
            EXPECT_NEAR(diagram == 1 ? point.x : point.y, held, 2e-6 * std::fabs(held) + 1e-6);
            // T and p are those of the equilibrium.
            const double T = diagram == 1 ? point.z : point.x;
            const auto e = diagrams::equilibrium_at_T(models::current_fluid(), T);
            EXPECT_NEAR((diagram == 1 ? point.y : point.z) / e.p, 1, 1e-5);
        }
        // The held value is that of the saturated start.
        const auto e = c.overT ? diagrams::equilibrium_at_T(models::current_fluid(), c.start)
                               : diagrams::equilibrium_at_p(models::current_fluid(), c.start);
        const double v = c.vapour ? e.vV : e.vL;
        const StateValues z = models::StateFunctions(e.T, e.p, v);
        const double expected = diagram == 1 ? v : diagram == 16 ? z.s : z.h;
        EXPECT_NEAR(held, expected, 2e-6 * std::fabs(expected));
    }
}

TEST_F(ProcessLines, AHeterogeneousLineThatLeavesTheDomeEndsEarly) {
    activate("Water");
    // Heating the saturated vapour at constant entropy leads out of the dome.
    ProcessInput in = input(Kind::kIsentropic, 400, kNone, true, 500);
    in.Heterogeneous = true;
    EXPECT_EQ(diagrams::take_process_input(in), "");
    EXPECT_EQ(run(16).result.status, -2) << "not one step inside";
    // At constant enthalpy the vapour becomes wet, and dry again beyond the largest h of the dew
    // line: there the line leaves the dome.
    in = input(Kind::kIsenthalpic, 400, kNone, true, 640);
    in.Heterogeneous = true;
    in.Vapour = true;
    EXPECT_EQ(diagrams::take_process_input(in), "");
    const Drawn curve = run(15);
    EXPECT_EQ(curve.result.status, 5);
    const auto last = diagrams::equilibrium_at_T(models::current_fluid(), the_processLine.LastT);
    const auto first = diagrams::equilibrium_at_T(models::current_fluid(), 400);
    const double hFirst = models::StateFunctions(400, first.p, first.vV).h;
    const double hLast = models::StateFunctions(last.T, last.p, last.vV).h;
    EXPECT_GT(hLast, hFirst);
    EXPECT_LT(hLast - hFirst, 150) << "kJ/kmol, within a step of the dew line";
}

TEST_F(ProcessLines, CpHasNoValueInsideTheDome) {
    activate("Water");
    ProcessInput in = input(Kind::kIsentropic, 550, kNone, true, 350);
    in.Heterogeneous = true;
    EXPECT_EQ(diagrams::take_process_input(in), "");
    EXPECT_EQ(run(19).result.status, -2);
    EXPECT_EQ(run(34).result.status, -2);
}

TEST_F(ProcessLines, TheNextLineBeginsWhereTheLastOneEnded) {
    activate("Propane");
    EXPECT_EQ(diagrams::take_process_input(input(Kind::kIsobar, 300, 500, true, 420)), "");
    run(1);
    const ProcessInput next =
        diagrams::continued_from(input(Kind::kIsentropic, kNone, kNone, false, 2000));
    EXPECT_EQ(next.par[0], 420);
    EXPECT_EQ(next.par[1], 500);
    EXPECT_EQ(diagrams::take_process_input(next), "");
    const Drawn curve = run(5);
    EXPECT_EQ(curve.result.status, 0);
    EXPECT_FLOAT_EQ(curve.first().x, 420);
    EXPECT_FLOAT_EQ(curve.first().y, 500);
}

TEST_F(ProcessLines, LinesAreDrawnOnTheAxesOfEveryDiagramOfStates) {
    activate("Propane");
    EXPECT_EQ(diagrams::take_process_input(input(Kind::kIsobar, 300, 500, true, 420)), "");
    for (const Module9::CatalogueRow& row : Module9::Catalogue()) {
        if (row.title.empty()) continue;
        const Drawn curve = run(row.code);
        EXPECT_EQ(curve.count() > 1, diagrams::ShowsStates(row.code)) << row.code;
    }
}

TEST_F(ProcessLines, APolytropicLineHoldsPTimesVToTheN) {
    activate("Propane");
    for (const double n : {0.7, 1.2, 1.4}) {
        for (const bool overT : {false, true}) {
            ProcessInput in = input(Kind::kPolytropic, 400, 500, overT, overT ? 420 : 900);
            in.Exponent = n;
            in.Kappa = 1.13;
            EXPECT_EQ(diagrams::take_process_input(in), "");
            const Drawn curve = run(1);
            ASSERT_GT(curve.count(), 100U) << n << overT;
            const double v1 = models::SolveStateTP(400, 500).vV;
            for (const auto& point : curve.points())
                EXPECT_NEAR(point.y * std::pow(point.x, n) / (500 * std::pow(v1, n)), 1, 1e-5);
        }
    }
}

TEST_F(ProcessLines, APolytropicWithExponentOneOverPIsTheIsothermOfAnIdealGas) {
    activate("Propane", 0);
    ProcessInput in = input(Kind::kPolytropic, 400, 500, false, 900);
    in.Exponent = 1;
    in.Kappa = 1.13;
    EXPECT_EQ(diagrams::take_process_input(in), "");
    const Drawn curve = run(5);
    for (const auto& point : curve.points()) EXPECT_NEAR(point.x, 400, 2e-3);
}

// ---- the search

struct Search {
    const diagrams::Curve& curve;
    diagrams::Function function;

    double temperature(double p, double value, double start) const {
        return diagrams::solve_isoline(curve, function, p, value, start);
    }
    double pressure(double T, double value, double start) const {
        return diagrams::solve_isoline_pressure(curve, function, T, value, start);
    }
};

TEST_F(ProcessLines, TheSearchFindsWhatAFineGridFinds) {
    for (const char* name : {"Water", "Carbon dioxide"}) {
        activate(name);
        diagrams::DiagramRequest request = RequestFor(5);
        diagrams::CurvePointArray points(1);
        diagrams::Curve curve(request, points, 300, 100, 1);
        curve.prepare();
        const Search entropy{curve, &StateValues::s};
        const Search enthalpy{curve, &StateValues::h};
        int found = 0, none = 0;
        for (const double pr : {0.01, 0.5, 0.99, 1.0, 1.01, 3.0}) {
            const double p = pc(pr);
            const auto e = diagrams::equilibrium_at_p(models::current_fluid(), p);
            for (double Tr = 0.55; Tr < 1.6; Tr += 0.013) {
                // Every value of the grid is that of a state: the search must find this one,
                // from starts on either side of it, also close to the dome.
                const double T = Tc(Tr);
                const StateValues z = stable(T, p);
                for (const double start : {0.8 * T, 0.999 * T, 1.3 * T}) {
                    EXPECT_NEAR(entropy.temperature(p, z.s, start) / T, 1, 1e-6) << name << Tr;
                    EXPECT_NEAR(enthalpy.temperature(p, z.h, start) / T, 1, 1e-6) << name << Tr;
                    ++found;
                }
            }
            if (!e.found || e.vL == e.vV) continue;
            // Between both phases there is no state of one phase.
            const double sL = models::StateFunctions(e.T, p, e.vL).s;
            const double sV = models::StateFunctions(e.T, p, e.vV).s;
            for (const double x : {0.02, 0.5, 0.98}) {
                EXPECT_EQ(entropy.temperature(p, sL + x * (sV - sL), 1.01 * e.T), 0);
                ++none;
            }
            // Just beside the dome there is one.
            for (const double dT : {-0.05, 0.05}) {
                const StateValues z = stable(e.T + dT, p);
                EXPECT_NEAR(entropy.temperature(p, z.s, e.T + 10 * dT), e.T + dT, 1e-3);
            }
        }
        EXPECT_GT(found, 1000);
        EXPECT_GT(none, 5);
    }
}

TEST_F(ProcessLines, ThePressureSearchFindsTheNearState) {
    activate("Carbon dioxide");
    diagrams::DiagramRequest request = RequestFor(5);
    diagrams::CurvePointArray points(1);
    diagrams::Curve curve(request, points, 300, 100, 1);
    curve.prepare();
    const Search entropy{curve, &StateValues::s};
    const Search enthalpy{curve, &StateValues::h};
    for (const double Tr : {0.8, 0.99, 1.0, 1.2, 2.0})
        for (double pr = 0.02; pr < 3; pr *= 1.3) {
            const double T = Tc(Tr), p = pc(pr);
            const StateValues z = stable(T, p);
            EXPECT_NEAR(entropy.pressure(T, z.s, 1.1 * p) / p, 1, 1e-5) << Tr << " " << pr;
            const double found = enthalpy.pressure(T, z.h, 1.01 * p);
            EXPECT_NEAR(h_of(T, found), z.h, 1e-4 * std::fabs(z.h) + 0.05) << Tr << " " << pr;
        }
}

// ---- refusals and texts

TEST_F(ProcessLines, IncompleteInputIsRefusedAndLeavesTheSession) {
    activate("Propane");
    EXPECT_EQ(diagrams::take_process_input(input(Kind::kIsobar, 300, 500, true, 420)), "");
    const auto before = the_processLine.RangeEnd;
    const auto refused = [&](const ProcessInput& in, const std::string& text) {
        EXPECT_EQ(diagrams::take_process_input(in), text);
        EXPECT_EQ(the_processLine.RangeEnd, before);
        EXPECT_EQ(the_processLine.Kind, Kind::kIsobar);
    };
    const std::string incomplete = "Input incomplete or not valid";
    refused(input(Kind::kIsotherm, kNone, 500, false, 900), incomplete);
    refused(input(Kind::kIsotherm, 300, kNone, false, 900), incomplete);
    refused(input(Kind::kIsotherm, 300, 500, false, kNone), incomplete);
    refused(input(Kind::kIsotherm, -300, 500, false, 900), incomplete);
    refused(input(Kind::kIsotherm, 300, 500, false, 0), incomplete);
    refused(input(Kind::kIsotherm, 300, 500, false, 500),
            "specification of the range is not valid ");
}

TEST_F(ProcessLines, TheEndsOfAHeterogeneousLineMustHaveAnEquilibrium) {
    activate("Propane");
    const auto text = [](bool overT, double start, double end) {
        ProcessInput in =
            input(Kind::kIsentropic, overT ? start : kNone, overT ? kNone : start, overT, end);
        in.Heterogeneous = true;
        return diagrams::take_process_input(in);
    };
    EXPECT_EQ(text(false, 100, 5000), "pressure for the final tie-line has to be p <= p(cr) = " +
                                          numbers::General(the_substance.pcrit) + " kPa");
    EXPECT_EQ(text(true, 300, 400), "temperature for the final tie-line has to be <= T(cr) = " +
                                        numbers::General(the_substance.Tcrit) + " K");
    EXPECT_EQ(text(true, 400, 300), "temperature for the initial tie-line has to be <= T(cr) = " +
                                        numbers::General(the_substance.Tcrit));
    EXPECT_EQ(text(true, 300, 350), "");
    EXPECT_NEAR(the_processLine.p1, diagrams::equilibrium_at_T(models::current_fluid(), 300).p,
                1e-9);
    EXPECT_EQ(text(false, 100, 500), "");
    EXPECT_NEAR(the_processLine.T1, diagrams::equilibrium_at_p(models::current_fluid(), 100).T,
                1e-9);
    EXPECT_EQ(text(false, 9000, 500), "specificated p and T have to be > 0")
        << "no equilibrium at the start";
}

TEST_F(ProcessLines, PolytropicInputIsChecked) {
    activate("Propane");
    ProcessInput in = input(Kind::kPolytropic, 400, 500, true, 450);
    in.Exponent = 1;
    in.Kappa = 1.2;
    EXPECT_EQ(diagrams::take_process_input(in),
              "The condition polytropic exp. n = 1 (=> isotherm) is in\n"
              "contradiction to your specification of \"T range\" ");
    in.Exponent = 1.3;
    in.Kappa = 0;
    EXPECT_EQ(diagrams::take_process_input(in),
              "not yet a valid kappa available\nInput your value or click on the\n"
              "ComboBox to apply one of the offered values");
    in.Kappa = 1.2;
    EXPECT_EQ(diagrams::take_process_input(in), "");
    EXPECT_EQ(diagrams::polytropic_error_text(300, 500),
              "Error while the polytropic calculation\nT = 300\np = 500");
}

TEST_F(ProcessLines, AVapourFractionLiesBetweenZeroAndOne) {
    ProcessInput in;
    in.Kind = Kind::kVapourFraction;
    in.VapourFraction = 1.1;
    EXPECT_EQ(diagrams::take_process_input(in), "Input not in the valid range");
    in.VapourFraction = kNone;
    EXPECT_EQ(diagrams::take_process_input(in), "Input not in the valid range");
    in.VapourFraction = 0.3;
    EXPECT_EQ(diagrams::take_process_input(in), "");
    EXPECT_EQ(the_session.VapourFraction, 0.3);
}

TEST_F(ProcessLines, CodesAndTitlesFollowTheKind) {
    const std::pair<int, int> codes[] = {{0, 201}, {1, 202}, {2, 204}, {3, 206},
                                         {4, 210}, {5, 210}, {6, 211}, {7, 107}};
    for (const auto& [kind, code] : codes)
        EXPECT_EQ(diagrams::process_code(static_cast<std::uint8_t>(kind), 107), code);
    EXPECT_EQ(diagrams::texts_of_process(3).title, "Adding an Isochore");
    EXPECT_EQ(diagrams::texts_of_process(3).heterogeneousTitle,
              "Adding an Isochore in the Heterogeneous Region V- L");
    EXPECT_EQ(diagrams::texts_of_process(4).title, "Adding an Isentropic (= adiabatic reversible)");
    EXPECT_EQ(diagrams::texts_of_process(4).command, "calc. s");
    EXPECT_EQ(diagrams::texts_of_process(5).commandTip, " fixed value of the enthalpy ");
    EXPECT_EQ(diagrams::texts_of_process(8).title, "Adding a Line of Const. Vapour Fraction y(V)");
}

TEST_F(ProcessLines, ALineOfOnePointIsExplained) {
    activate("Propane", 0);  // h of the ideal gas depends on T alone
    EXPECT_EQ(diagrams::take_process_input(input(Kind::kIsotherm, 300, 100, false, 900)), "");
    EXPECT_EQ(note(15),
              "There is only one point drawn because this function is independent on pressure");
    EXPECT_EQ(note(16), "");
    activate("Propane");
    EXPECT_EQ(note(15), "");
}

TEST_F(ProcessLines, TheStartStateIsDescribed) {
    activate("Propane");
    const auto volume = [](double v) { return numbers::General(static_cast<float>(v)); };
    const double vV = models::SolveStateTP(300, 500).vV;
    EXPECT_EQ(diagrams::start_state_text(Kind::kIsotherm, 300, 500),
              " v = " + volume(vV) + " m^3/kmol V-Phase");
    EXPECT_EQ(diagrams::phase_text(300, 500), "    V-Phase");
    const double vL = models::SolveStateTP(300, 3000).vL;
    EXPECT_EQ(diagrams::start_state_text(Kind::kIsochore, 300, 3000),
              " v = " + volume(vL) + " m^3/kmol L-Phase");
    EXPECT_EQ(diagrams::phase_text(300, 3000), "    L-Phase");
    const auto e = diagrams::equilibrium_at_T(models::current_fluid(), 300);
    EXPECT_EQ(diagrams::phase_text(300, e.p), "    phase equilibr. V-L");
    EXPECT_TRUE(diagrams::start_state_text(Kind::kIsentropic, 300, e.p).starts_with(" v(L) = "));
    EXPECT_NE(diagrams::start_state_text(Kind::kIsentropic, 300, e.p).find(" heterogen. L + V"),
              std::string::npos);
    EXPECT_NE(diagrams::start_state_text(Kind::kIsentropic, 300, e.p).find(" s(V) = "),
              std::string::npos);
    EXPECT_NE(diagrams::start_state_text(Kind::kIsenthalpic, 300, 500).find(" h = "),
              std::string::npos);
    EXPECT_EQ(diagrams::phase_text(the_substance.Tcrit, the_substance.pcrit), "    critical point");
    EXPECT_TRUE(
        diagrams::start_state_text(Kind::kIsotherm, 300, 9000).ends_with("    supercritical (L)"));
    EXPECT_TRUE(
        diagrams::start_state_text(Kind::kIsotherm, 450, 900).ends_with("    supercritical (V)"));
    EXPECT_TRUE(
        diagrams::start_state_text(Kind::kIsotherm, 450, 9000).ends_with("supercritical (L = V)"));
    set_units(3, 1);
    EXPECT_NE(diagrams::start_state_text(Kind::kIsentropic, 300, 500).find(" kJ/(kg K)"),
              std::string::npos);
    EXPECT_NE(diagrams::start_state_text(Kind::kIsenthalpic, 300, 500).find(" m^3/kg"),
              std::string::npos);
}

TEST_F(ProcessLines, KappaIsThatOfTheIdealGas) {
    activate("Argon");
    const auto offers = diagrams::kappa_offers(300);
    EXPECT_NEAR(offers[0].value, 5.0 / 3.0, 1e-3);
    EXPECT_TRUE(offers[0].text.starts_with("aus T1 = "));
    EXPECT_TRUE(offers[1].text.starts_with("aus T(ref) = "));
    EXPECT_TRUE(offers[1].text.ends_with(" calculated"));
}

}  // namespace
