#include "estimation/fit_start_values.h"
#include "estimation/fit_worth.h"
#include "estimation/synthetic.h"

using namespace quor;

namespace {

using namespace fit_support;
using estimation::kNoStdDev;
using estimation::proposed_start_values;

/// Takes proposed start values over; false when there are none.
bool propose_start_values(FitState& state) {
    const Result<Parameters> proposal = proposed_start_values(state);
    if (proposal) state.start = *proposal;
    return static_cast<bool>(proposal);
}

class SyntheticFit : public testing::Test {};

TEST_F(SyntheticFit, EveryModelIsThere) {
    std::vector<std::int16_t> numbers;
    for (const auto& row : estimation::fit_models()) numbers.push_back(row.number);
    EXPECT_EQ(numbers,
              (std::vector<std::int16_t>{0, 1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 14, 15, 16, 17, 18}));
    for (const std::int16_t number : numbers) {
        const auto sets = AllSynthetic();
        EXPECT_TRUE(std::any_of(sets.begin(), sets.end(), [&](const Synthetic& s) {
            return s.model == number;
        })) << number;
    }
    for (const int placeholder : {2, 12, 13, 19, -1})
        EXPECT_EQ(estimation::find_model(static_cast<std::int16_t>(placeholder)), nullptr);
}

TEST_F(SyntheticFit, KnownParametersComeBackFromProposedStarts) {
    for (const Synthetic& set : AllSynthetic()) {
        for (const bool logarithmic : {false, true}) {
            SCOPED_TRACE(name_of(set) + (logarithmic ? " log" : " plain"));
            FitState state = SyntheticState(set, 40);
            ASSERT_EQ(state.point_count, 40);
            state.logarithmic = logarithmic;
            ASSERT_TRUE(propose_start_values(state));
            ASSERT_TRUE(start_fit(state));
            EXPECT_LT(WorstDeviation(state), 5e-6);
            EXPECT_FALSE(state.report.ended_at_limit);
            EXPECT_EQ(state.report.failed_points, 0);
            for (int i = 0; i < state.parameter_count; ++i) {
                const auto k = static_cast<std::size_t>(i);
                if (estimation::find_model(set.model)->computed == i) continue;
                // Points of 32 bits leave strongly correlated parameters a little room.
                EXPECT_NEAR(state.parameters[k], set.truth[k], 2e-3 * std::fabs(set.truth[k])) << i;
            }
        }
    }
}

TEST_F(SyntheticFit, TheModelsOwnStartsLeadToTheResultOrSayThatTheyDoNot) {
    int lost = 0;
    for (const Synthetic& set : AllSynthetic()) {
        for (const bool logarithmic : {false, true}) {
            SCOPED_TRACE(name_of(set) + (logarithmic ? " log" : " plain"));
            FitState state = SyntheticState(set, 40);
            state.logarithmic = logarithmic;
            ASSERT_TRUE(fit_once(state));
            if (WorstDeviation(state) < 5e-6) continue;
            ++lost;
            // The implicit and the sinh/cosh forms have no value far away from their parameters.
            EXPECT_TRUE(set.model == 5 || set.model == 6 || set.model == 18);
            EXPECT_FALSE(logarithmic);
            EXPECT_TRUE(is_worthless(state));
        }
    }
    EXPECT_LE(lost, 5);
}

TEST_F(SyntheticFit, StandardDeviationsAgreeWithTheStatisticsOfAllPoints) {
    for (const Synthetic& set : AllSynthetic()) {
        if (set.model == 16) continue;  // its E has no influence
        SCOPED_TRACE(name_of(set));
        FitState state = SyntheticState(set, 40);
        // An error that alternates from point to point, 0.1 per cent.
        for (std::size_t i = 0; i < state.points.size(); ++i)
            state.points[i].y *= i % 2 == 0 ? 1.001F : 0.999F;
        state.logarithmic = true;
        ASSERT_TRUE(propose_start_values(state));
        ASSERT_TRUE(start_fit(state));
        ASSERT_TRUE(state.report.has_correlation);
        for (int i = 0; i < state.parameter_count; ++i) {
            const auto k = static_cast<std::size_t>(i);
            if (state.fixed[k]) continue;
            EXPECT_GT(state.std_dev[k], 0) << i;
            EXPECT_NEAR(state.report.std_dev[k] / state.std_dev[k], 1, 0.02) << i;
            EXPECT_EQ(state.report.correlation[k][k], 1);
        }
    }
}

TEST_F(SyntheticFit, ProposalsHonourFixedParameters) {
    FitState state = SyntheticState({4, true, {7.1962, 1730.63, 233.426}, 280, 450}, 30);
    state.fixed = {false, false, true};
    state.start[2] = 230;
    const auto proposal = proposed_start_values(state);
    ASSERT_TRUE(proposal);
    EXPECT_EQ((*proposal)[2], 230);
    EXPECT_NEAR((*proposal)[1], 1730.63, 50);

    state.fixed = {true, false, false};
    state.start = {7.1962, 0, 200};
    const auto second = proposed_start_values(state);
    ASSERT_TRUE(second);
    EXPECT_EQ((*second)[0], 7.1962);
    EXPECT_NEAR((*second)[1], 1730.63, 0.1);
    EXPECT_NEAR((*second)[2], 233.426, 0.01);
}

TEST_F(SyntheticFit, ProposalsHoldWhatThePointsCannotTell) {
    // Two points tell two parameters apart; the third keeps its start value.
    FitState state = State(3, Points({{300, 3.5}, {350, 41.7}}), WaterLike());
    const auto proposal = proposed_start_values(state);
    ASSERT_TRUE(proposal);
    EXPECT_EQ((*proposal)[2], -1);
    for (const auto& p : state.points) {
        const double T = static_cast<double>(p.x);
        EXPECT_NEAR((*proposal)[0] - (*proposal)[1] / T - std::log(T),
                    std::log(static_cast<double>(p.y)), 1e-9);
    }
}

TEST_F(SyntheticFit, AProposalThatCannotBeHadIsTold) {
    FitState state = State(8, Points({{300, -1}, {350, 0}}), WaterLike());
    EXPECT_EQ(proposed_start_values(state).reason(),
              "These points do not suffice for start values of this model.");
}

TEST_F(SyntheticFit, StartFieldsStayAsTheyWere) {
    FitState state = SyntheticState({11, false, {620, 3.2, -0.0072, 3.1e-6}, 280, 450}, 20);
    const Parameters start = state.start;
    ASSERT_TRUE(start_fit(state));
    EXPECT_EQ(state.start, start);
}

}  // namespace
