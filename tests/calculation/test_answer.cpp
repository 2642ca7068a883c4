#include <cmath>
#include <thread>

#include "calc_test.h"
#include "calculation/calculate.h"
#include "models/saturation.h"

using namespace quor;

namespace {

using calculation::Answer;
using calculation::Reason;
using calculation::Request;
using calculation::Task;

/// Answers by their names, without any words.
class AnswerTest : public CalcTest {
  protected:
    AnswerTest() {
        use_fluid();
        use_models({});
    }

    static Request request_of(Task task, const calculation::BatchDataSet& given) {
        Request request;
        request.task = task;
        request.given = given;
        return request;
    }
    Answer ask(Task task, const calculation::BatchDataSet& given) const {
        return calculation::calculate(fluid(), reference, request_of(task, given));
    }
};

TEST_F(AnswerTest, AMixtureHasBothPhasesAndItsVapourFraction) {
    const auto sat = models::saturation_pressure(fluid(), 310.0);
    const double M = static_cast<double>(substance.M);
    const double v = 0.25 * sat->v[0] + 0.75 * sat->v[2];
    const Answer a = ask(Task::pressureOfVapour, {.T = 310, .rhoV = static_cast<float>(M / v)});
    ASSERT_TRUE(a.ok());
    EXPECT_TRUE(a.two_phase && a.mixture && a.phases.both());
    EXPECT_NEAR(a.y, 0.75, 1e-6);
    EXPECT_DOUBLE_EQ(a.p, sat->p);
    EXPECT_DOUBLE_EQ(*a.phases.liquid->v, sat->v[0]);
    EXPECT_DOUBLE_EQ(*a.phases.vapour->rho, M / sat->v[2]);
    ASSERT_TRUE(a.functions && a.functions->liquid && a.functions->vapour);
    // Both phases of an equilibrium have one Gibbs function.
    const double gL = a.functions->liquid->z[calculation::kG];
    const double gV = a.functions->vapour->z[calculation::kG];
    EXPECT_NEAR(gL, gV, 1e-3 * std::fabs(gL) + 0.05);
}

TEST_F(AnswerTest, WhatIsMissingHasAReason) {
    EXPECT_EQ(ask(Task::state, {.p = 100}).reason, Reason::noT);
    EXPECT_EQ(ask(Task::state, {.T = 300}).reason, Reason::noP);
    EXPECT_EQ(ask(Task::temperature, {.p = 100}).reason, Reason::noRho);
    EXPECT_EQ(ask(Task::pressureOfLiquid, {.T = 300}).reason, Reason::noLiquidDensity);
    EXPECT_EQ(ask(Task::saturationAtT, {.T = 400}).reason, Reason::aboveCritical);
    EXPECT_EQ(ask(Task::vaporisationAtP, {.p = 5000}).reason, Reason::aboveCritical);
    EXPECT_EQ(ask(Task::solidCp, {.T = 50}).reason, Reason::noDatabaseValue);
    EXPECT_EQ(ask(Task::globalTank, {}).reason, Reason::noTank);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(AnswerTest, ARemarkIsANoteWithItsNumber) {
    selection.vapour_pressure = models::VapourPressureEquation::wagner;
    selection.eos_has_priority = false;
    const double T = static_cast<double>(substance.wagner.T_low) - 25.0;
    const Answer a = ask(Task::saturationAtT, {.T = T});
    ASSERT_FALSE(a.notes.empty());
    EXPECT_EQ(a.notes.back().kind, calculation::Note::Kind::pressureRange);
    EXPECT_EQ(a.notes.back().deviation, -25);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(AnswerTest, TwoFluidsAnswerSideBySide) {
    const calculation::Calculator propane(fluid(), reference);
    use_fluid("Water");
    use_models({});
    const calculation::Calculator water(fluid(), reference);
    const Request request = request_of(Task::saturationAtT, {.T = 350});
    const double pPropane = propane(request).p, pWater = water(request).p;
    EXPECT_GT(pPropane, 10 * pWater);
    int wrong = 0;
    std::thread other([&] {
        for (int i = 0; i < 50; ++i) wrong += water(request).p != pWater;
    });
    int wrongHere = 0;
    for (int i = 0; i < 50; ++i) wrongHere += propane(request).p != pPropane;
    other.join();
    EXPECT_EQ(wrong + wrongHere, 0);
}

// ---- Words for an answer that nobody calculated ------------------------------------------------

using ReportTest = AnswerTest;

TEST_F(ReportTest, WordsFollowFromTheAnswerAlone) {
    const Request request = request_of(Task::state, {.T = 300, .p = 100});
    Answer a;
    a.task = Task::state;
    a.T = 300;
    a.p = 100;
    a.solver = "said by the solver";
    a.phases.vapour = calculation::Phase{25.0, 2.0};
    const report::Report r =
        report::report(report::make_made(fluid(), reference, units), request, a);
    EXPECT_EQ(r.par1.text, "T = 300.000 K");
    EXPECT_EQ(r.par2.text, "p = 100.000 kPa");
    EXPECT_EQ(r.co1.text, "said by the solver");
    EXPECT_EQ(r.phases, " V ");
    ASSERT_EQ(r.lines.size(), 2U);
    EXPECT_EQ(r.lines[0].cells[3], "2");
    EXPECT_EQ(r.lines[1].cells[3], "25");
    EXPECT_FALSE(r.diagnosis.enabled);
}

TEST_F(ReportTest, UnitsChangeWordsAndNumbersButNotTheAnswer) {
    const Request request = request_of(Task::functions, {.T = 300, .p = 500});
    const report::TaskResult molar = report::make_result(fluid(), reference, units, request);
    use_units(1);
    const report::TaskResult specific = report::make_result(fluid(), reference, units, request);
    EXPECT_EQ(molar.answer.functions->vapour->z, specific.answer.functions->vapour->z);
    const double M = static_cast<double>(substance.M);
    EXPECT_NEAR(molar.numbers[10] / specific.numbers[10], M, 1e-9 * M);
    EXPECT_NE(report::list_text(molar.report), report::list_text(specific.report));
}

TEST_F(ReportTest, AResultKnowsWhetherItStillStandsForThePresent) {
    const report::Made made = report::make_made(fluid(), reference, units);
    EXPECT_FALSE(report::is_out_of_date(made, report::make_made(fluid(), reference, units)));
    use_units(1);
    EXPECT_TRUE(report::is_out_of_date(made, report::make_made(fluid(), reference, units)));
    use_units(0);
    substance.Tcrit += 1;
    EXPECT_TRUE(report::is_out_of_date(made, report::make_made(fluid(), reference, units)));
    substance.Tcrit -= 1;
    use_models({.eos = 4});
    EXPECT_TRUE(report::is_out_of_date(made, report::make_made(fluid(), reference, units)));
    use_models({});
    reference.href = 100;
    EXPECT_TRUE(report::is_out_of_date(made, report::make_made(fluid(), reference, units)));
    EXPECT_EQ(report::name_of(made), "Propane, CEOS Peng / Robinson; m^3/kmol, kJ/kmol");
}

}  // namespace
