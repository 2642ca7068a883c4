#include <array>

#include "diagrams/active_fluid.h"
#include "diagrams/diagram.h"
#include "support/allocation_counter.h"

using namespace quor;

namespace {

class CurveStatusTest : public ActiveFluid {
  protected:
    double Tc(double share) { return share * substance.Tcrit; }
    double pc(double share) { return share * substance.pcrit; }

    /// Every code of the table with parameters that suit most of them.
    static bool is_drawn(int status) {
        return diagrams::is_drawn(static_cast<diagrams::CurveStatus>(status));
    }
    static std::vector<int> all_codes() {
        std::vector<int> codes;
        for (const diagrams::Diagram& row : diagrams::all_diagrams()) codes.push_back(row.code);
        return codes;
    }
    diagrams::StateParameters middle() {
        return {.T = Tc(0.9), .p = pc(0.5), .v = 1.5 * eosConstants.vcrit_calculated};
    }
    void set_range(int code) {
        const bool overT = code >= 22 && code <= 24;
        process.range_start = overT ? Tc(0.5) : pc(0.01);
        process.range_end = overT ? Tc(1.2) : pc(1.1);
    }
};

TEST_F(CurveStatusTest, AnEmptyWindowGivesNothingAndStatusZero) {
    activate("Propane");
    for (const int code : all_codes()) {
        for (const bool emptyX : {true, false}) {
            diagrams::DiagramRequest request = RequestFor(code);
            (emptyX ? request.window.x_max : request.window.y_max) =
                emptyX ? request.window.x_min : request.window.y_min;
            const Drawn curve = Draw(request, middle());
            EXPECT_EQ(curve.result.status, 0) << code;
            EXPECT_EQ(curve.result.message, "");
            EXPECT_EQ(curve.count(), 0U) << code;
        }
    }
}

TEST_F(CurveStatusTest, ACurveOutsideOfTheWindowIsDeliveredWithStatusTen) {
    activate("Propane");
    diagrams::DiagramRequest request = RequestFor(1);
    request.window.y_min = -2e8F;
    request.window.y_max = -1e8F;
    const Drawn curve = Draw(request, {.T = 400});
    EXPECT_EQ(curve.result.status, 10);
    EXPECT_GT(curve.count(), 100U);
    EXPECT_TRUE(is_drawn(10));
    EXPECT_EQ(TextOf(curve.result).title, "WARNING");
    EXPECT_EQ(TextOf(curve.result).text,
              "Curve outside the actual coordinates\nEnlarge the coordinates");
}

TEST_F(CurveStatusTest, APointOnTheEdgeOfTheWindowIsOutside) {
    activate("Propane");
    diagrams::DiagramRequest request = RequestFor(26);
    request.window.y_min = 0;
    request.window.y_max =
        Draw(request, {.T = 400}).first().y;  // only the lowest density touches it
    EXPECT_EQ(Draw(request, {.T = 400}).result.status, 10);
}

TEST_F(CurveStatusTest, BelowTheTriplePointTheRealRangeDecides) {
    activate("Propane");
    substance.Ttriple = 200;
    for (const int code : {3, 4, 15, 19, 30, 34}) {
        options.real_range_only = true;
        diagrams::DiagramRequest request = RequestFor(code);
        const bool overY = code < 5;
        (overY ? request.window.y_min : request.window.x_min) = 120;
        const Drawn real = Draw(request, middle());
        EXPECT_EQ(real.result.status, 0) << code;
        for (const auto& point : real.points()) EXPECT_GE(overY ? point.y : point.x, 200) << code;

        options.real_range_only = false;
        const Drawn whole = Draw(request, middle());
        EXPECT_EQ(whole.result.status, 2) << code;
        EXPECT_GT(whole.count(), real.count()) << code;
        EXPECT_EQ(TextOf(whole.result).title, "WARNING");
        EXPECT_EQ(TextOf(whole.result).text, "Partially calculated at T < T(triple)!");
    }
}

TEST_F(CurveStatusTest, TheIsochoreEndsAtTheTriplePoint) {
    activate("Propane");
    substance.Ttriple = 380;
    const Drawn curve = Draw(5, {.v = 3 * eosConstants.vcrit_calculated});
    EXPECT_GE(curve.last().x, 380);
    EXPECT_EQ(curve.result.status, 0);
}

TEST_F(CurveStatusTest, AnIdealGasIsDrawnBelowTheTriplePointWithStatusTwo) {
    activate("Propane", 0);
    substance.Ttriple = 200;
    diagrams::DiagramRequest request = RequestFor(15);
    request.window.x_min = 120;
    const Drawn curve = Draw(request, {.p = 100});
    EXPECT_EQ(curve.result.status, 2);
    EXPECT_EQ(TextOf(curve.result).text, "") << "nothing is said of a V-only equation";
}

TEST_F(CurveStatusTest, OutsideReplacesTheHintAtTheTriplePoint) {
    activate("Propane");
    substance.Ttriple = 200;
    options.real_range_only = false;
    diagrams::DiagramRequest request = RequestFor(15);
    request.window.x_min = 120;
    request.window.y_min = 1e7F;
    request.window.y_max = 2e7F;
    EXPECT_EQ(Draw(request, middle()).result.status, 10);
}

TEST_F(CurveStatusTest, AFaultEndsTheCurveWithItsText) {
    activate("Propane");
    const diagrams::DiagramRequest request = RequestFor(15);
    substance.M = 0;
    units.caloric = models::CaloricUnit::specific;
    const Drawn curve = Draw(request, middle());
    EXPECT_EQ(curve.result.status, -1);
    EXPECT_EQ(curve.result.message, "Division by zero");
    EXPECT_FALSE(is_drawn(-1));
    EXPECT_EQ(TextOf(curve.result).title, "Aborted");
    EXPECT_EQ(TextOf(curve.result).text, "Critical error occured:\nDivision by zero");
}

TEST_F(CurveStatusTest, EveryStatusHasItsText) {
    activate("Propane");
    EXPECT_EQ(TextOf({0, ""}).text, "");
    EXPECT_EQ(TextOf({-2, "no result with these input data"}).title, "Aborted");
    EXPECT_EQ(TextOf({-2, "no result with these input data"}).text,
              "no result with these input data");
    EXPECT_EQ(TextOf({5, ""}).title, "Remark");
    EXPECT_EQ(TextOf({5, ""}).text,
              "The calculation of the curve was aborted.\n"
              "possibly the V-L coexistence curve was reached\n"
              "Check it by adding the coexistence curve.");
    for (const int drawn : {0, 2, 5, 10}) EXPECT_TRUE(is_drawn(drawn));
    for (const int ended : {-2, -1, 3, 4}) EXPECT_FALSE(is_drawn(ended));
}

TEST_F(CurveStatusTest, EveryDiagramOfTheCatalogueHasACurve) {
    for (const diagrams::Diagram& row : diagrams::all_diagrams())
        EXPECT_NE(row.compute, nullptr) << row.code;
    EXPECT_EQ(diagrams::find_diagram(14), nullptr);
}

TEST_F(CurveStatusTest, NoCurveOfAnySubstanceAndModelFaultsOrHoldsANumberThatIsNone) {
    int curves = 0, faults = 0;
    for (const std::string& name : fluids::AllNames()) {
        for (const int eos : {2, 4, 6, 15}) {
            activate(name, eos);
            options.points = 50;
            for (const int code : all_codes()) {
                if (code == 105 || code == 190 || (code > 200 && code < 300)) continue;
                set_range(code);
                const Drawn curve = Draw(code, middle());
                ++curves;
                if (curve.result.status == -1) {
                    ++faults;
                    ADD_FAILURE() << name << " " << eos << " " << code << " "
                                  << curve.result.message;
                }
                for (const auto& point : curve.points()) {
                    const bool finite =
                        std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
                    ASSERT_TRUE(finite) << name << " " << eos << " " << code;
                }
            }
        }
    }
    std::printf("%d curves, %d faults\n", curves, faults);
    EXPECT_EQ(faults, 0);
}

TEST_F(CurveStatusTest, NothingAllocatesButThePointArray) {
    activate("Propane");
    for (const int code : all_codes()) {
        // Each evaluation of the heat of vaporisation says how it was made, and the slope of the
        // vapour pressure completes the title of its diagram.
        if (code == 13 || code == 11) continue;
        set_range(code);
        diagrams::DiagramRequest request = RequestFor(code);
        Drawn curve = Draw(request, middle());  // the array has its size now
        const diagrams::Basis of = basis();
        const diagrams::CurveRequest wanted{.curve = request.diagram,
                                            .window = request.window,
                                            .at = middle(),
                                            .line = process,
                                            .p_min = limits.p_min,
                                            .p_max = limits.p_max};
        const std::size_t before = AllocationCount();
        curve.take(diagrams::curve(of, wanted, std::move(curve.all)));
        const std::size_t spent = AllocationCount() - before;
        EXPECT_EQ(spent, curve.result.message.empty() ? 0U : spent) << code;
    }
}

}  // namespace
