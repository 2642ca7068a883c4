#include <cstdlib>
#include <new>

#include "estimation/synthetic.h"

namespace {

long allocations = 0;

}  // namespace

// Every allocation of this binary passes here, so that a test can count them.
void* operator new(std::size_t size) {
    ++allocations;
    if (void* p = std::malloc(size == 0 ? 1 : size)) return p;
    throw std::bad_alloc();
}
void operator delete(void* p) noexcept {
    std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
    std::free(p);
}

namespace {

using namespace fit_support;

TEST(Allocation, TheSearchAllocatesNothing) {
    for (const Synthetic& set : AllSynthetic()) {
        const FitState state = SyntheticState(set, 40);
        const estimation::FitModelRow& row = *estimation::FindModel(set.model);
        FitProblem problem = MakeProblem(state, row);
        Parameters par{}, stdDev{};
        for (std::size_t i = 0; i < 7; ++i) par[i] = set.truth[i] / row.scale[i];
        const long before = allocations;
        MarquardtNashFitting(problem, 40, par, stdDev);
        EXPECT_EQ(allocations, before) << NameOf(set);
    }
}

}  // namespace
