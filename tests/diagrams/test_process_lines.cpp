#include <algorithm>
#include <limits>

#include "common/numbers.h"
#include "diagrams/active_fluid.h"
#include "diagrams/diagram.h"
#include "diagrams/equilibrium.h"
#include "diagrams/isoline_search.h"
#include "diagrams/process_line.h"
#include "diagrams/project_state.h"
#include "diagrams/textbook.h"
#include "models/caloric.h"
#include "models/state_solver.h"
#include "support/codes.h"

using namespace quor;

namespace {

using diagrams::ProcessInput;
using models::StateValues;
using Kind = diagrams::ProcessKind;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

class ProcessLines : public ActiveFluid {
  protected:
    double Tc(double share) { return share * substance.Tcrit; }
    double pc(double share) { return share * substance.pcrit; }

    /// Runs the line in a diagram with a window that holds all of it, and keeps its last state.
    Drawn run(int code) {
        const diagrams::Diagram& diagram = diagrams::diagram_of(code);
        diagrams::CurveRequest wanted = diagrams::process_request(diagram, process, at);
        wanted.window = {-1e9F, 1e9F, -1e9F, 1e9F};
        wanted.options = options;
        Drawn drawn;
        drawn.request.diagram = &diagram;
        drawn.take(diagrams::curve(basis(), wanted));
        if (drawn.last_state) process.last = *drawn.last_state;
        EXPECT_EQ(drawn.request.diagram->code, code) << "the code stays";
        return drawn;
    }
    /// Takes an input into the line; the text of a refusal.
    std::string take(const ProcessInput& in) {
        const diagrams::ProcessAnswer answer = diagrams::take_process_input(process, fluid(), in);
        process = answer.line;
        return answer.refusal;
    }
    static ProcessInput input(Kind kind, double T1, double p1, bool overT, double end) {
        ProcessInput in;
        in.kind = kind;
        in.par = {T1, p1, overT ? end : kNone, overT ? kNone : end};
        in.range_is_T = overT;
        return in;
    }
    diagrams::StateParameters at{298.15, 0, 0};
    std::optional<models::StateValues> stable(double T, double p) {
        const auto state = solve(T, p);
        if (!state->has_L || !state->has_V)
            return functions(T, p, state->has_L ? *state->vL : *state->vV);
        // Where the solver calls it an equilibrium the smaller g tells the side of the dome.
        const auto L = functions(T, p, *state->vL);
        const auto V = functions(T, p, *state->vV);
        return L->g < V->g ? L : V;
    }
    /// What is remarked on the line as a diagram would draw it.
    std::string note(int diagram) {
        std::vector<float> x, y;
        for (const auto& point : run(diagram).points()) {
            x.push_back(point.x);
            y.push_back(point.y);
        }
        return diagrams::one_point_note(diagrams::diagram_of(diagram), x, y);
    }
    double s_of(double T, double p) { return stable(T, p)->s; }
    double h_of(double T, double p) { return stable(T, p)->h; }
};

// ---- the lines

TEST_F(ProcessLines, AStraightLineHasFiftyOnePoints) {
    activate("Propane");
    ProcessInput in;
    in.kind = Kind::straightLine;
    for (const std::array<double, 4>& ends :
         {std::array<double, 4>{1, 10, 3, 110}, std::array<double, 4>{2, 10, 2, 110},
          std::array<double, 4>{-5, 7, 5, 7}}) {
        in.par = ends;
        EXPECT_EQ(take(in), "");
        const Drawn curve = run(1);
        EXPECT_EQ(curve.result.status, 0);
        EXPECT_EQ(curve.count(), 51U);
        EXPECT_EQ(curve.mark(), 0);
        for (std::size_t i = 0; i <= 50; ++i) {
            const double t = static_cast<double>(i) / 50;
            EXPECT_FLOAT_EQ(curve.nth(i + 1).x,
                            static_cast<float>(ends[0] + t * (ends[2] - ends[0])));
            EXPECT_FLOAT_EQ(curve.nth(i + 1).y,
                            static_cast<float>(ends[1] + t * (ends[3] - ends[1])));
        }
    }
    in.par = {1, 2, 1, 2};
    EXPECT_EQ(take(in), "specification of the range is not valid ");
    in.par = {1, 2, kNone, 2};
    EXPECT_EQ(take(in), "Input incomplete or not valid");
}

TEST_F(ProcessLines, AnIsothermHoldsTAndEndsOnTheRange) {
    activate("Propane");
    EXPECT_EQ(take(input(Kind::isotherm, 300, 100, false, 900)), "");
    const Drawn curve = run(1);
    EXPECT_EQ(curve.result.status, 0);
    EXPECT_EQ(curve.count(), 301U);
    const Textbook textbook(6, substance.Tcrit, substance.pcrit, substance.omega);
    for (const auto& point : curve.points()) {
        EXPECT_NEAR(textbook.pressure(300, point.x) / point.y, 1, 1e-5);
        EXPECT_FLOAT_EQ(point.z, 300);
    }
    EXPECT_FLOAT_EQ(curve.first().y, 100);
    EXPECT_FLOAT_EQ(curve.last().y, 900);
    EXPECT_EQ(process.last.T, 300);
    EXPECT_EQ(process.last.p, 900);
    EXPECT_NE(at.T, 300) << "the parameter of the diagram is restored";
}

TEST_F(ProcessLines, ThePhaseChoosesTheRoot) {
    activate("Propane");
    ProcessInput in = input(Kind::isotherm, 300, 500, false, 900);
    in.vapour = false;
    in.metastable = true;
    EXPECT_EQ(take(in), "");
    const auto e = diagrams::equilibrium_at_T(fluid(), 300).value();
    for (const auto& point : run(1).points()) EXPECT_LT(point.x, 1.1 * e.vL);
    // The liquid is metastable there; without that choice the line has the stable phase.
    in.metastable = false;
    EXPECT_EQ(take(in), "");
    for (const auto& point : run(1).points()) EXPECT_GT(point.x, 0.9 * e.vV);
    in.vapour = true;
    EXPECT_EQ(take(in), "");
    for (const auto& point : run(1).points()) EXPECT_GT(point.x, 0.9 * e.vV);
}

TEST_F(ProcessLines, AnIsobarHoldsP) {
    activate("Propane");
    EXPECT_EQ(take(input(Kind::isobar, 300, 500, true, 420)), "");
    const Drawn curve = run(15);
    EXPECT_EQ(curve.count(), 301U);
    for (const auto& point : curve.points()) {
        EXPECT_NEAR(point.y, h_of(point.x, 500), 0.05);
        EXPECT_FLOAT_EQ(point.z, 500);
    }
    EXPECT_EQ(process.last.T, 420);
}

TEST_F(ProcessLines, AnIsochoreHoldsItsVolumeOverTAndOverP) {
    activate("Propane");
    for (const bool overT : {true, false}) {
        EXPECT_EQ(take(input(Kind::isochore, 300, 500, overT, overT ? 450 : 900)), "");
        const double v = *solve(300, 500)->vV;
        const Drawn curve = run(5);
        EXPECT_EQ(curve.result.status, 0);
        EXPECT_EQ(curve.count(), 301U);
        for (const auto& point : curve.points()) {
            EXPECT_NEAR(pressure(point.x, v) / point.y, 1, 1e-5);
            EXPECT_FLOAT_EQ(point.z, static_cast<float>(v));
        }
    }
}

TEST_F(ProcessLines, IsentropicsAndIsenthalpicsHoldTheirFunction) {
    for (const char* name : {"Propane", "Water", "Nitrogen"}) {
        activate(name);
        const double T1 = Tc(1.1), p1 = pc(0.2);
        for (const Kind kind : {Kind::isentropic, Kind::isenthalpic}) {
            for (const bool overT : {false, true}) {
                // Over T an isenthalpic ends where p is 0, for propane 6.5 K below the start.
                const double end = overT ? Tc(1.09) : pc(0.1);
                EXPECT_EQ(take(input(kind, T1, p1, overT, end)), "");
                const Drawn curve = run(5);  // T and p of every state
                EXPECT_EQ(curve.result.status, 0) << name << static_cast<int>(kind) << overT;
                EXPECT_EQ(curve.count(), overT ? 751U : 376U);
                const auto start = stable(T1, p1);
                for (const auto& point : curve.points()) {
                    const auto z = stable(point.x, point.y);
                    // The digits of a 32-bit T are worth cp dT.
                    const double seen = 1.5e-7 * z->cp * point.x + 1e-3;
                    if (kind == Kind::isentropic)
                        EXPECT_NEAR(z->s, start->s, seen / point.x + 2e-6);
                    else
                        EXPECT_NEAR(z->h, start->h, 2 * seen);
                }
                EXPECT_NEAR(overT ? process.last.T : process.last.p, end, 1e-9 * end);
            }
        }
    }
}

TEST_F(ProcessLines, AnIsentropicThatMeetsTheCoexistenceCurveEndsEarly) {
    activate("Propane");
    const double T1 = 320, p1 = 1400;  // a little superheated
    EXPECT_EQ(take(input(Kind::isentropic, T1, p1, false, 10)), "");
    // Propane's dew line leans to the right: choose water, whose leans to the left.
    activate("Water");
    EXPECT_EQ(take(input(Kind::isentropic, 500, 1000, false, 10)), "");
    const Drawn curve = run(5);
    EXPECT_EQ(curve.result.status, 5);
    EXPECT_GT(curve.count(), 2U);
    const auto e = diagrams::equilibrium_at_p(fluid(), curve.last().y).value();
    EXPECT_NEAR(curve.last().x, e.T, 1e-3) << "on the dew line";
    EXPECT_EQ(TextOf(curve.result).title, "Remark");
}

/// They were refused with "no result with these input data": the first legs of a Rankine cycle.
TEST_F(ProcessLines, LinesStartFromSaturatedStates) {
    struct Leg {
        const char* name;
        bool vapour;
        double T1, p1, p2;
    };
    for (const Leg& leg :
         {Leg{"1,1,1,2-Tetrafluoroethane", true, 263.15, 199.97876438806108, 1016.829},
          Leg{"1,1,1,2-Tetrafluoroethane", false, 313.15, 1016.829, 3000},
          Leg{"Water", false, 321.358, 10, 3000}}) {
        activate(leg.name);
        for (const Kind kind : {Kind::isentropic, Kind::isenthalpic, Kind::isotherm}) {
            // Saturated vapour condenses under pressure at constant T, and at constant h.
            if (kind != Kind::isentropic && leg.vapour) continue;
            ProcessInput in = input(kind, leg.T1, leg.p1, false, leg.p2);
            in.vapour = leg.vapour;
            EXPECT_EQ(take(in), "");
            const Drawn curve = run(5);
            EXPECT_EQ(curve.result.status, 0) << leg.name << static_cast<int>(kind);
            ASSERT_GT(curve.count(), 100U) << leg.name << static_cast<int>(kind);
            EXPECT_NEAR(curve.first().x, leg.T1, 1e-3);
            EXPECT_NEAR(curve.last().y, leg.p2, 1e-2);
            if (kind == Kind::isotherm) continue;
            const auto state = solve(leg.T1, leg.p1);
            const double v1 = leg.vapour ? state->v[2] : state->v[0];
            const auto start = functions(leg.T1, leg.p1, v1);
            const auto end = stable(curve.last().x, curve.last().y);
            const double held =
                kind == Kind::isentropic ? end->s - start->s : (end->h - start->h) / leg.T1;
            EXPECT_NEAR(held, 0, 1e-3) << leg.name << static_cast<int>(kind);
        }
    }
}

/// The isobar of a boiler followed superheated liquid to 602 K without a word.
TEST_F(ProcessLines, AnIsobarBoilsUnlessItIsToStayMetastable) {
    activate("Water");
    ProcessInput in = input(Kind::isobar, 321.5, 3000, true, 673.15);
    in.vapour = false;
    EXPECT_EQ(take(in), "");
    const auto e = diagrams::equilibrium_at_p(fluid(), 3000).value();
    const Drawn boiler = run(3);  // T over v
    int on_edge = 0;
    for (const auto& point : boiler.points()) {
        on_edge += point.y == static_cast<float>(e.T);
        if (point.y < static_cast<float>(e.T)) {
            EXPECT_LE(point.x, static_cast<float>(e.vL));
        }
        if (point.y > static_cast<float>(e.T)) {
            EXPECT_GE(point.x, static_cast<float>(e.vV));
        }
    }
    EXPECT_EQ(on_edge, 2) << "both ends of the tie-line";

    in.metastable = true;
    EXPECT_EQ(take(in), "");
    const Drawn liquid = run(3);
    const auto beyond = std::ranges::count_if(liquid.points(), [&](const auto& point) {
        return point.y > e.T + 10 && point.x < e.vV / 2;
    });
    EXPECT_GT(beyond, 5) << "superheated liquid";
}

TEST_F(ProcessLines, AnIsentropicWithoutAnyStateHasNoResult) {
    activate("Propane");
    // The start state cannot be solved with this volume phase: no entropy, no line.
    selection.cp_form = codes::cp(0);
    EXPECT_EQ(take(input(Kind::isentropic, 300, 500, false, 900)), "");
    const Drawn curve = run(5);
    EXPECT_EQ(curve.result.status, -2);
    EXPECT_EQ(curve.result.message, "no result with these input data");
}

TEST_F(ProcessLines, AnIsentropicWhoseFirstSearchFailsHasNoResult) {
    activate("Water");
    // Wet: the saturated vapour at the start, and all of the range lies inside the dome.
    const auto e = diagrams::equilibrium_at_p(fluid(), 1000).value();
    EXPECT_EQ(take(input(Kind::isentropic, e.T + 0.5, 1000, false, 900)), "");
    process.range_start = 950;
    const Drawn curve = run(5);
    EXPECT_EQ(curve.result.status, -2);
    EXPECT_LE(curve.count(), 1U);
}

TEST_F(ProcessLines, HeterogeneousLinesHoldTheirQuantityOverTheTieLines) {
    activate("Water");
    struct Case {
        Kind kind;
        bool vapour, overT;
        double start, end;
    };
    for (const Case& c : {Case{Kind::isentropic, true, true, 550, 350},
                          Case{Kind::isentropic, false, false, 5000, 20},
                          Case{Kind::isenthalpic, false, true, 550, 350},
                          Case{Kind::isenthalpic, false, false, 5000, 20},
                          Case{Kind::isochore, true, true, 550, 350},
                          Case{Kind::isochore, false, false, 5000, 20}}) {
        ProcessInput in =
            input(c.kind, c.overT ? c.start : kNone, c.overT ? kNone : c.start, c.overT, c.end);
        in.vapour = c.vapour;
        in.heterogeneous = true;
        ASSERT_EQ(take(in), "");
        const std::int16_t diagram = c.kind == Kind::isochore     ? 1
                                     : c.kind == Kind::isentropic ? 16
                                                                  : 15;
        const Drawn curve = run(diagram);
        EXPECT_EQ(curve.result.status, 0);
        EXPECT_EQ(curve.count(), 301U);
        const float held = diagram == 1 ? curve.first().x : curve.first().y;
        for (const auto& point : curve.points()) {
            EXPECT_NEAR(diagram == 1 ? point.x : point.y, held, 2e-6 * std::fabs(held) + 1e-6);
            // T and p are those of the equilibrium.
            const double T = diagram == 1 ? point.z : point.x;
            const auto e = diagrams::equilibrium_at_T(fluid(), T).value();
            EXPECT_NEAR((diagram == 1 ? point.y : point.z) / e.p, 1, 1e-5);
        }
        // The held value is that of the saturated start.
        const auto e = c.overT ? diagrams::equilibrium_at_T(fluid(), c.start).value()
                               : diagrams::equilibrium_at_p(fluid(), c.start).value();
        const double v = c.vapour ? e.vV : e.vL;
        const auto z = functions(e.T, e.p, v);
        const double expected = diagram == 1 ? v : diagram == 16 ? z->s : z->h;
        EXPECT_NEAR(held, expected, 2e-6 * std::fabs(expected));
    }
}

TEST_F(ProcessLines, AHeterogeneousLineThatLeavesTheDomeEndsEarly) {
    activate("Water");
    // Heating the saturated vapour at constant entropy leads out of the dome.
    ProcessInput in = input(Kind::isentropic, 400, kNone, true, 500);
    in.heterogeneous = true;
    EXPECT_EQ(take(in), "");
    EXPECT_EQ(run(16).result.status, -2) << "not one step inside";
    // At constant enthalpy the vapour becomes wet, and dry again beyond the largest h of the dew
    // line: there the line leaves the dome.
    in = input(Kind::isenthalpic, 400, kNone, true, 640);
    in.heterogeneous = true;
    in.vapour = true;
    EXPECT_EQ(take(in), "");
    const Drawn curve = run(15);
    EXPECT_EQ(curve.result.status, 5);
    const auto last = diagrams::equilibrium_at_T(fluid(), process.last.T).value();
    const auto first = diagrams::equilibrium_at_T(fluid(), 400).value();
    const double hFirst = functions(400, first.p, first.vV)->h;
    const double hLast = functions(last.T, last.p, last.vV)->h;
    EXPECT_GT(hLast, hFirst);
    EXPECT_LT(hLast - hFirst, 150) << "kJ/kmol, within a step of the dew line";
}

TEST_F(ProcessLines, CpHasNoValueInsideTheDome) {
    activate("Water");
    ProcessInput in = input(Kind::isentropic, 550, kNone, true, 350);
    in.heterogeneous = true;
    EXPECT_EQ(take(in), "");
    EXPECT_EQ(run(19).result.status, -2);
    EXPECT_EQ(run(34).result.status, -2);
}

TEST_F(ProcessLines, TheNextLineBeginsWhereTheLastOneEnded) {
    activate("Propane");
    EXPECT_EQ(take(input(Kind::isobar, 300, 500, true, 420)), "");
    run(1);
    const ProcessInput next =
        diagrams::continued_from(process, input(Kind::isentropic, kNone, kNone, false, 2000));
    EXPECT_EQ(next.par[0], 420);
    EXPECT_EQ(next.par[1], 500);
    EXPECT_EQ(take(next), "");
    const Drawn curve = run(5);
    EXPECT_EQ(curve.result.status, 0);
    EXPECT_FLOAT_EQ(curve.first().x, 420);
    EXPECT_FLOAT_EQ(curve.first().y, 500);
}

TEST_F(ProcessLines, LinesAreDrawnOnTheAxesOfEveryDiagramOfStates) {
    activate("Propane");
    EXPECT_EQ(take(input(Kind::isobar, 300, 500, true, 420)), "");
    for (const diagrams::Diagram& row : diagrams::all_diagrams()) {
        if (!row.opens()) continue;
        const Drawn curve = run(row.code);
        EXPECT_EQ(curve.count() > 1, diagrams::shows_states(row)) << row.code;
    }
}

TEST_F(ProcessLines, APolytropicLineHoldsPTimesVToTheN) {
    activate("Propane");
    for (const double n : {0.7, 1.2, 1.4}) {
        for (const bool overT : {false, true}) {
            ProcessInput in = input(Kind::polytropic, 400, 500, overT, overT ? 420 : 900);
            in.exponent = n;
            in.kappa = 1.13;
            EXPECT_EQ(take(in), "");
            const Drawn curve = run(1);
            ASSERT_GT(curve.count(), 100U) << n << overT;
            const double v1 = *solve(400, 500)->vV;
            for (const auto& point : curve.points())
                EXPECT_NEAR(point.y * std::pow(point.x, n) / (500 * std::pow(v1, n)), 1, 1e-5);
        }
    }
}

TEST_F(ProcessLines, APolytropicWithExponentOneOverPIsTheIsothermOfAnIdealGas) {
    activate("Propane", 0);
    ProcessInput in = input(Kind::polytropic, 400, 500, false, 900);
    in.exponent = 1;
    in.kappa = 1.13;
    EXPECT_EQ(take(in), "");
    const Drawn curve = run(5);
    for (const auto& point : curve.points()) EXPECT_NEAR(point.x, 400, 2e-3);
}

// ---- the search

struct Search {
    const diagrams::CurveFrame& curve;
    diagrams::Function function;

    double temperature(double p, double value, double start) const {
        return diagrams::solve_isoline(curve, function, p, value, start).value_or(0);
    }
    double pressure(double T, double value, double start) const {
        return diagrams::solve_isoline_pressure(curve, function, T, value, start).value_or(0);
    }
};

TEST_F(ProcessLines, TheSearchFindsWhatAFineGridFinds) {
    for (const char* name : {"Water", "Carbon dioxide"}) {
        activate(name);
        const diagrams::Basis of = basis();
        const diagrams::CurveRequest request{
            .curve = &diagrams::diagram_of(5), .window = {0, 1, 0, 1}, .at = {300, 100, 1}};
        diagrams::CurveFrame curve(of, request, {});
        curve.prepare();
        const Search entropy{curve, diagrams::Function::s};
        const Search enthalpy{curve, diagrams::Function::h};
        int found = 0, none = 0;
        for (const double pr : {0.01, 0.5, 0.99, 1.0, 1.01, 3.0}) {
            const double p = pc(pr);
            const auto e = diagrams::equilibrium_at_p(fluid(), p).value_or(diagrams::Equilibrium{});
            for (double Tr = 0.55; Tr < 1.6; Tr += 0.013) {
                // Every value of the grid is that of a state: the search must find this one,
                // from starts on either side of it, also close to the dome.
                const double T = Tc(Tr);
                const auto z = stable(T, p);
                for (const double start : {0.8 * T, 0.999 * T, 1.3 * T}) {
                    EXPECT_NEAR(entropy.temperature(p, z->s, start) / T, 1, 1e-6) << name << Tr;
                    EXPECT_NEAR(enthalpy.temperature(p, z->h, start) / T, 1, 1e-6) << name << Tr;
                    ++found;
                }
            }
            if (e.vL == e.vV) continue;
            // Between both phases there is no state of one phase.
            const double sL = functions(e.T, p, e.vL)->s;
            const double sV = functions(e.T, p, e.vV)->s;
            for (const double x : {0.02, 0.5, 0.98}) {
                EXPECT_EQ(entropy.temperature(p, sL + x * (sV - sL), 1.01 * e.T), 0);
                ++none;
            }
            // Just beside the dome there is one.
            for (const double dT : {-0.05, 0.05}) {
                const auto z = stable(e.T + dT, p);
                EXPECT_NEAR(entropy.temperature(p, z->s, e.T + 10 * dT), e.T + dT, 1e-3);
            }
        }
        EXPECT_GT(found, 1000);
        EXPECT_GT(none, 5);
    }
}

TEST_F(ProcessLines, ThePressureSearchFindsTheNearState) {
    activate("Carbon dioxide");
    const diagrams::Basis of = basis();
    const diagrams::CurveRequest request{
        .curve = &diagrams::diagram_of(5), .window = {0, 1, 0, 1}, .at = {300, 100, 1}};
    diagrams::CurveFrame curve(of, request, {});
    curve.prepare();
    const Search entropy{curve, diagrams::Function::s};
    const Search enthalpy{curve, diagrams::Function::h};
    for (const double Tr : {0.8, 0.99, 1.0, 1.2, 2.0})
        for (double pr = 0.02; pr < 3; pr *= 1.3) {
            const double T = Tc(Tr), p = pc(pr);
            const auto z = stable(T, p);
            EXPECT_NEAR(entropy.pressure(T, z->s, 1.1 * p) / p, 1, 1e-5) << Tr << " " << pr;
            const double found = enthalpy.pressure(T, z->h, 1.01 * p);
            EXPECT_NEAR(h_of(T, found), z->h, 1e-4 * std::fabs(z->h) + 0.05) << Tr << " " << pr;
        }
}

// ---- refusals and texts

TEST_F(ProcessLines, IncompleteInputIsRefusedAndLeavesTheSession) {
    activate("Propane");
    EXPECT_EQ(take(input(Kind::isobar, 300, 500, true, 420)), "");
    const auto before = process.range_end;
    const auto refused = [&](const ProcessInput& in, const std::string& text) {
        EXPECT_EQ(take(in), text);
        EXPECT_EQ(process.range_end, before);
        EXPECT_EQ(process.kind, Kind::isobar);
    };
    const std::string incomplete = "Input incomplete or not valid";
    refused(input(Kind::isotherm, kNone, 500, false, 900), incomplete);
    refused(input(Kind::isotherm, 300, kNone, false, 900), incomplete);
    refused(input(Kind::isotherm, 300, 500, false, kNone), incomplete);
    refused(input(Kind::isotherm, -300, 500, false, 900), incomplete);
    refused(input(Kind::isotherm, 300, 500, false, 0), incomplete);
    refused(input(Kind::isotherm, 300, 500, false, 500),
            "specification of the range is not valid ");
}

TEST_F(ProcessLines, TheEndsOfAHeterogeneousLineMustHaveAnEquilibrium) {
    activate("Propane");
    const auto text = [this](bool overT, double start, double end) {
        ProcessInput in =
            input(Kind::isentropic, overT ? start : kNone, overT ? kNone : start, overT, end);
        in.heterogeneous = true;
        return take(in);
    };
    EXPECT_EQ(text(false, 100, 5000), "pressure for the final tie-line has to be p <= p(cr) = " +
                                          numbers::general(substance.pcrit) + " kPa");
    EXPECT_EQ(text(true, 300, 400), "temperature for the final tie-line has to be <= T(cr) = " +
                                        numbers::general(substance.Tcrit) + " K");
    EXPECT_EQ(text(true, 400, 300), "temperature for the initial tie-line has to be <= T(cr) = " +
                                        numbers::general(substance.Tcrit));
    EXPECT_EQ(text(true, 300, 350), "");
    EXPECT_NEAR(process.p1, diagrams::equilibrium_at_T(fluid(), 300).value().p, 1e-9);
    EXPECT_EQ(text(false, 100, 500), "");
    EXPECT_NEAR(process.T1, diagrams::equilibrium_at_p(fluid(), 100).value().T, 1e-9);
    EXPECT_EQ(text(false, 9000, 500), "specificated p and T have to be > 0")
        << "no equilibrium at the start";
}

TEST_F(ProcessLines, PolytropicInputIsChecked) {
    activate("Propane");
    ProcessInput in = input(Kind::polytropic, 400, 500, true, 450);
    in.exponent = 1;
    in.kappa = 1.2;
    EXPECT_EQ(take(in),
              "The condition polytropic exp. n = 1 (=> isotherm) is in\n"
              "contradiction to your specification of \"T range\" ");
    in.exponent = 1.3;
    in.kappa = 0;
    EXPECT_EQ(take(in),
              "not yet a valid kappa available\nInput your value or click on the\n"
              "ComboBox to apply one of the offered values");
    in.kappa = 1.2;
    EXPECT_EQ(take(in), "");
    EXPECT_EQ(diagrams::polytropic_error_text(300, 500),
              "Error while the polytropic calculation\nT = 300\np = 500");
}

TEST_F(ProcessLines, AVapourFractionLiesBetweenZeroAndOne) {
    ProcessInput in;
    in.kind = Kind::vapourFraction;
    in.vapour_fraction = 1.1;
    EXPECT_EQ(take(in), "Input not in the valid range");
    in.vapour_fraction = kNone;
    EXPECT_EQ(take(in), "Input not in the valid range");
    in.vapour_fraction = 0.3;
    EXPECT_EQ(take(in), "");
    EXPECT_EQ(process.vapour_fraction, 0.3);
}

TEST_F(ProcessLines, CodesAndTitlesFollowTheKind) {
    const std::pair<int, int> codes[] = {{0, 201}, {1, 202}, {2, 204}, {3, 206},
                                         {4, 210}, {5, 210}, {6, 211}, {7, 107}};
    diagrams::ProcessLine line;
    for (const auto& [kind, code] : codes) {
        line.kind = static_cast<Kind>(kind);
        EXPECT_EQ(diagrams::process_request(diagrams::diagram_of(107), line, {}).curve->code, code);
    }
    EXPECT_EQ(diagrams::texts_of_process(static_cast<Kind>(3)).title, "Adding an Isochore");
    EXPECT_EQ(diagrams::texts_of_process(static_cast<Kind>(3)).heterogeneous_title,
              "Adding an Isochore in the Heterogeneous Region V- L");
    EXPECT_EQ(diagrams::texts_of_process(static_cast<Kind>(4)).title,
              "Adding an Isentropic (= adiabatic reversible)");
    EXPECT_EQ(diagrams::texts_of_process(static_cast<Kind>(4)).command, "calc. s");
    EXPECT_EQ(diagrams::texts_of_process(static_cast<Kind>(5)).command_tip,
              " fixed value of the enthalpy ");
    EXPECT_EQ(diagrams::texts_of_process(static_cast<Kind>(8)).title,
              "Adding a Line of Const. Vapour Fraction y(V)");
}

TEST_F(ProcessLines, ALineOfOnePointIsExplained) {
    activate("Propane", 0);  // h of the ideal gas depends on T alone
    EXPECT_EQ(take(input(Kind::isotherm, 300, 100, false, 900)), "");
    EXPECT_EQ(note(15),
              "There is only one point drawn because this function is independent on pressure");
    EXPECT_EQ(note(16), "");
    activate("Propane");
    EXPECT_EQ(note(15), "");
}

TEST_F(ProcessLines, TheStartStateIsDescribed) {
    activate("Propane");
    const auto volume = [](double v) { return numbers::general(static_cast<float>(v)); };
    const double vV = *solve(300, 500)->vV;
    EXPECT_EQ(diagrams::start_state_text(basis(), Kind::isotherm, 300, 500),
              " v = " + volume(vV) + " m^3/kmol V-Phase");
    EXPECT_EQ(diagrams::phase_text(fluid(), 300, 500), "    V-Phase");
    const double vL = *solve(300, 3000)->vL;
    EXPECT_EQ(diagrams::start_state_text(basis(), Kind::isochore, 300, 3000),
              " v = " + volume(vL) + " m^3/kmol L-Phase");
    EXPECT_EQ(diagrams::phase_text(fluid(), 300, 3000), "    L-Phase");
    const auto e = diagrams::equilibrium_at_T(fluid(), 300).value();
    EXPECT_EQ(diagrams::phase_text(fluid(), 300, e.p), "    phase equilibr. V-L");
    EXPECT_TRUE(
        diagrams::start_state_text(basis(), Kind::isentropic, 300, e.p).starts_with(" v(L) = "));
    EXPECT_NE(
        diagrams::start_state_text(basis(), Kind::isentropic, 300, e.p).find(" heterogen. L + V"),
        std::string::npos);
    EXPECT_NE(diagrams::start_state_text(basis(), Kind::isentropic, 300, e.p).find(" s(V) = "),
              std::string::npos);
    EXPECT_NE(diagrams::start_state_text(basis(), Kind::isenthalpic, 300, 500).find(" h = "),
              std::string::npos);
    EXPECT_EQ(diagrams::phase_text(fluid(), substance.Tcrit, substance.pcrit),
              "    critical point");
    EXPECT_TRUE(diagrams::start_state_text(basis(), Kind::isotherm, 300, 9000)
                    .ends_with("    supercritical (L)"));
    EXPECT_TRUE(diagrams::start_state_text(basis(), Kind::isotherm, 450, 900)
                    .ends_with("    supercritical (V)"));
    EXPECT_TRUE(diagrams::start_state_text(basis(), Kind::isotherm, 450, 9000)
                    .ends_with("supercritical (L = V)"));
    set_units(3, 1);
    EXPECT_NE(diagrams::start_state_text(basis(), Kind::isentropic, 300, 500).find(" kJ/(kg K)"),
              std::string::npos);
    EXPECT_NE(diagrams::start_state_text(basis(), Kind::isenthalpic, 300, 500).find(" m^3/kg"),
              std::string::npos);
}

TEST_F(ProcessLines, KappaIsThatOfTheIdealGas) {
    activate("Argon");
    const auto offers = diagrams::kappa_offers(basis(), 300);
    EXPECT_NEAR(offers[0].value, 5.0 / 3.0, 1e-3);
    EXPECT_TRUE(offers[0].text.starts_with("aus T1 = "));
    EXPECT_TRUE(offers[1].text.starts_with("aus T(ref) = "));
    EXPECT_TRUE(offers[1].text.ends_with(" calculated"));
}

}  // namespace
