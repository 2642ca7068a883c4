#include "estimation/synthetic.h"
#include "support/allocation_counter.h"

using namespace quor;

namespace {

using namespace fit_support;

TEST(Allocation, TheSearchAllocatesNothing) {
    for (const Synthetic& set : AllSynthetic()) {
        const FitState state = SyntheticState(set, 40);
        const estimation::FitModelRow& row = *estimation::find_model(set.model);
        FitProblem problem = make_problem(state, row);
        Parameters par{}, std_dev{};
        for (std::size_t i = 0; i < 7; ++i) par[i] = set.truth[i] / row.scale[i];
        const std::size_t before = AllocationCount();
        marquardt_nash_fitting(problem, 40, par, std_dev);
        EXPECT_EQ(AllocationCount(), before) << name_of(set);
    }
}

}  // namespace
