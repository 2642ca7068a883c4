#include <array>

#include "diagrams/active_fluid.h"
#include "diagrams/catalogue.h"
#include "diagrams/drawn.h"
#include "support/allocation_counter.h"

using namespace quor;

namespace {

using diagrams::TextOf;
using legacy::the_eosParameters;
using legacy::the_session;
using legacy::the_substance;

class CurveStatusTest : public ActiveFluid {
  protected:
    static double Tc(double share) { return share * the_substance.Tcrit; }
    static double pc(double share) { return share * the_substance.pcrit; }

    /// Every code of the table with parameters that suit most of them.
    static std::vector<std::int16_t> all_codes() {
        std::vector<std::int16_t> codes;
        for (std::int16_t code = 1; code <= 310; ++code)
            if (diagrams::has_curve(code)) codes.push_back(code);
        return codes;
    }
    static Parameters middle() {
        return {.T = Tc(0.9), .p = pc(0.5), .v = 1.5 * the_eosParameters.vcritCalc};
    }
    static void set_range(std::int16_t code) {
        const bool overT = code >= 22 && code <= 24;
        legacy::the_processLine.RangeStart = overT ? Tc(0.5) : pc(0.01);
        legacy::the_processLine.RangeEnd = overT ? Tc(1.2) : pc(1.1);
    }
};

TEST_F(CurveStatusTest, AnEmptyWindowGivesNothingAndStatusZero) {
    activate("Propane");
    for (const std::int16_t code : all_codes()) {
        for (const bool emptyX : {true, false}) {
            diagrams::DiagramRequest request = RequestFor(code);
            (emptyX ? request.xMax : request.yMax) = emptyX ? request.xMin : request.yMin;
            const Drawn curve = Draw(request, middle());
            EXPECT_EQ(curve.result.status, 0) << code;
            EXPECT_EQ(curve.result.message, "");
            EXPECT_EQ(curve.count(), 0U) << code;
            EXPECT_TRUE(HeaderIsRight(curve));
        }
    }
}

TEST_F(CurveStatusTest, ACurveOutsideOfTheWindowIsDeliveredWithStatusTen) {
    activate("Propane");
    diagrams::DiagramRequest request = RequestFor(1);
    request.yMin = 1e8F;
    request.yMax = 2e8F;
    const Drawn curve = Draw(request, {.T = 400});
    EXPECT_EQ(curve.result.status, 10);
    EXPECT_GT(curve.count(), 100U);
    EXPECT_TRUE(diagrams::is_drawn(10));
    EXPECT_EQ(TextOf(curve.result).title, "WARNING");
    EXPECT_EQ(TextOf(curve.result).text,
              "Curve outside the actual coordinates\nEnlarge the coordinates");
}

TEST_F(CurveStatusTest, APointOnTheEdgeOfTheWindowIsOutside) {
    activate("Propane");
    diagrams::DiagramRequest request = RequestFor(26);
    request.yMin = 0;
    request.yMax = Draw(request, {.T = 400}).first().y;  // only the lowest density touches it
    EXPECT_EQ(Draw(request, {.T = 400}).result.status, 10);
}

TEST_F(CurveStatusTest, BelowTheTriplePointTheRealRangeDecides) {
    activate("Propane");
    the_substance.Ttriple = 200;
    for (const std::int16_t code : std::initializer_list<std::int16_t>{3, 4, 15, 19, 30, 34}) {
        the_session.CurveRealRangeOnly = true;
        diagrams::DiagramRequest request = RequestFor(code);
        const bool overY = code < 5;
        (overY ? request.yMin : request.xMin) = 120;
        const Drawn real = Draw(request, middle());
        EXPECT_EQ(real.result.status, 0) << code;
        for (const auto& point : real.points()) EXPECT_GE(overY ? point.y : point.x, 200) << code;

        the_session.CurveRealRangeOnly = false;
        const Drawn whole = Draw(request, middle());
        EXPECT_EQ(whole.result.status, 2) << code;
        EXPECT_GT(whole.count(), real.count()) << code;
        EXPECT_EQ(TextOf(whole.result).title, "WARNING");
        EXPECT_EQ(TextOf(whole.result).text, "Partially calculated at T < T(triple)!");
    }
}

TEST_F(CurveStatusTest, TheIsochoreEndsAtTheTriplePoint) {
    activate("Propane");
    the_substance.Ttriple = 380;
    const Drawn curve = Draw(5, {.v = 3 * the_eosParameters.vcritCalc});
    EXPECT_GE(curve.last().x, 380);
    EXPECT_EQ(curve.result.status, 0);
}

TEST_F(CurveStatusTest, AnIdealGasIsDrawnBelowTheTriplePointWithStatusTwo) {
    activate("Propane", 0);
    the_substance.Ttriple = 200;
    diagrams::DiagramRequest request = RequestFor(15);
    request.xMin = 120;
    const Drawn curve = Draw(request, {.p = 100});
    EXPECT_EQ(curve.result.status, 2);
    EXPECT_EQ(TextOf(curve.result).text, "") << "nothing is said of a V-only equation";
}

TEST_F(CurveStatusTest, OutsideReplacesTheHintAtTheTriplePoint) {
    activate("Propane");
    the_substance.Ttriple = 200;
    the_session.CurveRealRangeOnly = false;
    diagrams::DiagramRequest request = RequestFor(15);
    request.xMin = 120;
    request.yMin = 1e7F;
    request.yMax = 2e7F;
    EXPECT_EQ(Draw(request, middle()).result.status, 10);
}

TEST_F(CurveStatusTest, AFaultEndsTheCurveWithItsText) {
    activate("Propane");
    const diagrams::DiagramRequest request = RequestFor(15);
    the_substance.M = 0;
    the_session.CaloricUnit = 3;
    const Drawn curve = Draw(request, middle());
    EXPECT_EQ(curve.result.status, -1);
    EXPECT_EQ(curve.result.message, "Division by zero");
    EXPECT_FALSE(diagrams::is_drawn(-1));
    EXPECT_EQ(TextOf(curve.result).title, "Aborted");
    EXPECT_EQ(TextOf(curve.result).text, "Critical error occured:\nDivision by zero");
    EXPECT_TRUE(HeaderIsRight(curve));
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
    for (const std::int16_t drawn : std::initializer_list<std::int16_t>{0, 2, 5, 10})
        EXPECT_TRUE(diagrams::is_drawn(drawn));
    for (const std::int16_t ended : std::initializer_list<std::int16_t>{-2, -1, 3, 4})
        EXPECT_FALSE(diagrams::is_drawn(ended));
}

TEST_F(CurveStatusTest, EveryDiagramOfTheCatalogueHasACurve) {
    for (const Module9::CatalogueRow& row : Module9::Catalogue())
        EXPECT_TRUE(diagrams::has_curve(row.code)) << row.code;
    EXPECT_FALSE(diagrams::has_curve(14));
    activate("Propane");
    EXPECT_EQ(Draw(static_cast<std::int16_t>(14), middle()).count(), 0U);
}

TEST_F(CurveStatusTest, NoCurveOfAnySubstanceAndModelFaultsOrHoldsANumberThatIsNone) {
    int curves = 0, faults = 0;
    for (const std::string& name : fluids::AllNames()) {
        for (const std::int16_t eos : std::initializer_list<std::int16_t>{2, 4, 6, 15}) {
            activate(name, eos);
            the_session.PointsPerCurve = 50;
            for (const std::int16_t code : all_codes()) {
                if (code == 105 || code == 190 || (code > 200 && code < 300)) continue;
                set_range(code);
                const Drawn curve = Draw(code, middle());
                ++curves;
                EXPECT_TRUE(HeaderIsRight(curve));
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
    for (const std::int16_t code : all_codes()) {
        // Each evaluation of the heat of vaporisation says how it was made, and the slope of the
        // vapour pressure completes the title of its diagram.
        if (code == 13 || code == 11) continue;
        set_range(code);
        diagrams::DiagramRequest request = RequestFor(code);
        Drawn curve = Draw(request, middle());  // the array has its size now
        const std::size_t before = AllocationCount();
        curve.result =
            diagrams::calc_curve(curve.request, curve.all, middle().T, middle().p, middle().v);
        const std::size_t spent = AllocationCount() - before;
        // Database functions write two letters into the request; both fit into the text itself.
        EXPECT_EQ(spent, curve.result.message.empty() ? 0U : spent) << code;
    }
}

}  // namespace
