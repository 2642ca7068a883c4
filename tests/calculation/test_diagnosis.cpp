#include <cmath>

#include "calc_test.h"
#include "expected_text.h"
#include "models/cubic_eos.h"
#include "models/saturation.h"
#include "report/diagnosis.h"

using namespace quor;

namespace {

using report::Diagnosis;

/// The explanation of the roots of the cubic EOS.
class DiagnosisTest : public CalcTest {
  protected:
    DiagnosisTest() {
        use_fluid();
        use_models({});
    }

    Diagnosis of_last() const { return report::diagnose(fluid(), last.answer.last); }

    Diagnosis of_state(double T, double p) {
        use_input({.T = T, .p = p});
        calculate(3);
        return of_last();
    }

    static std::vector<std::string> notes(const Diagnosis& d) {
        std::vector<std::string> all;
        for (const auto& root : d.roots) all.push_back(root.note);
        return all;
    }

    /// Area between isotherm and p(LV) by the trapezoidal rule.
    static double area(const std::vector<calculation::IsothermPoint>& points, double p) {
        double sum = 0;
        for (std::size_t i = 1; i < points.size(); ++i)
            sum += 0.5 * (points[i].p + points[i - 1].p - 2 * p) * (points[i].v - points[i - 1].v);
        return sum;
    }

    using Notes = std::vector<std::string>;
};

TEST_F(DiagnosisTest, ThreeRootsAreNamedByTheirStability) {
    Diagnosis d = of_state(300, 500);
    EXPECT_EQ(d.title, "Cubic Equation of State");
    ASSERT_EQ(d.roots.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(d.roots[i].caption, "v(" + std::to_string(i + 1) + ") =");
        EXPECT_EQ(d.roots[i].value, expected::g7(last.answer.last.v[i]) + " m^3/kmol");
        EXPECT_NEAR(models::cubic_pressure(models::eos_at(fluid(), 300), 300, d.roots[i].v), 500,
                    1e-3);
    }
    EXPECT_EQ(notes(d), (Notes{"(metastable)", "(unstable)", "(stable, V-phase)"}));
    EXPECT_EQ(notes(of_state(300, 1200)),
              (Notes{"(stable, L-phase)", "(unstable)", "(metastable)"}));
    use_input({.T = 300});
    calculate(4);
    EXPECT_EQ(notes(of_last()), (Notes{"(stable, L-phase)", "(unstable)", "(stable, V-phase)"}));
}

TEST_F(DiagnosisTest, OneRootIsOneLine) {
    EXPECT_EQ(notes(of_state(366, 300)), (Notes{"(stable, V-phase)"}));
    EXPECT_EQ(notes(of_state(300, 4000)), (Notes{"(stable, L-phase)"}));
    const Diagnosis d = of_state(420, 3000);
    EXPECT_EQ(d.roots.size(), 1U);
    EXPECT_EQ(d.saturation_pressure, 0);
    EXPECT_TRUE(d.area_above.empty() && d.area_below.empty());
}

TEST_F(DiagnosisTest, NamesAStateBeyondTheCriticalPointAsTheResultDoes) {
    const struct {
        double T, p;
        const char* name;
    } cases[] = {{400, 100, "supercritical V-phase"},
                 {400, 9000, "supercritical phase L = V"},
                 {300, 9000, "supercritical L-phase"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const Diagnosis d = of_state(c.T, c.p);
        EXPECT_EQ(notes(d), (Notes{std::string("(stable, ") + c.name + ")"}));
        EXPECT_TRUE(d.roots.at(0).stable);
        EXPECT_TRUE(resultText.co1.text.starts_with(std::string("=> ") + c.name + " ("));
    }
}

TEST_F(DiagnosisTest, AreasAreEqual) {
    for (const int eos : Codes{2, 3, 4, 5, 6})
        for (const double T : {260.0, 300.0, 350.0, 366.0}) {
            SCOPED_TRACE(testing::Message() << eos << " " << T);
            use_models({.eos = eos});
            const Diagnosis d = of_state(T, 600);
            const auto sat = models::saturation_pressure(fluid(), T);
            EXPECT_DOUBLE_EQ(d.saturation_pressure, sat->p);
            const double below = area(d.area_below, sat->p), above = area(d.area_above, sat->p);
            EXPECT_LT(below, 0);
            EXPECT_GT(above, 0);
            EXPECT_NEAR(-below, above, 0.02 * above);
            EXPECT_DOUBLE_EQ(d.area_below.back().v, d.area_above.front().v);
        }
}

TEST_F(DiagnosisTest, IsothermCoversTheRootsAndStaysInTheWindow) {
    for (const double T : {150.0, 260.0, 300.0, 366.0, 400.0})
        for (const double p : {20.0, 900.0, 6000.0}) {
            SCOPED_TRACE(testing::Message() << T << " " << p);
            const Diagnosis d = of_state(T, p);
            ASSERT_GT(d.isotherm.size(), 100U);
            EXPECT_LT(d.isotherm.front().v, d.roots.front().v * 1.0000001);
            EXPECT_GT(d.isotherm.back().v, d.roots.back().v);
            EXPECT_LT(d.p_min, d.p_max);
            EXPECT_LE(d.p_min, p);
            EXPECT_GE(d.p_max, p);
            for (std::size_t i = 1; i < d.isotherm.size(); ++i)
                ASSERT_GT(d.isotherm[i].v, d.isotherm[i - 1].v);
            for (const auto& point : d.isotherm) ASSERT_TRUE(std::isfinite(point.p));
            EXPECT_LE(d.isotherm.front().p, d.p_max * 1.001);
        }
}

TEST_F(DiagnosisTest, WithoutAStateThereIsNothingToShow) {
    use_input({});
    calculate(3);
    const Diagnosis d = of_last();
    EXPECT_TRUE(d.roots.empty() && d.isotherm.empty());
    use_models({.eos = 16});
    EXPECT_TRUE(of_state(300, 100).roots.empty());
}

}  // namespace
