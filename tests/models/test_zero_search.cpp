#include "models/zero_search.h"

#include <cmath>

using namespace quor;
using models::Sample;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Zeros over eleven samples from 0 to 10.
template <class F>
models::Zeros zeros_of(F f) {
    models::Samples<11> samples;
    for (int i = 0; i <= 10; ++i) samples.add(f, i);
    return samples.zeros(f, 1e-12, 1e-9);
}

TEST(ZeroSearch, FindsTheZeroOfAChangeOfSignToTheLastDigits) {
    const auto f = [](double x) { return std::exp(x) - 5; };
    const Sample zero = models::zero_between(f, {0, f(0)}, {4, f(4)});
    EXPECT_NEAR(zero.x, std::log(5), 1e-15);
    const auto steep = [](double x) { return std::pow(x, 15) - 1e-10; };
    EXPECT_NEAR(models::zero_between(steep, {0, steep(0)}, {3, steep(3)}).x,
                std::pow(1e-10, 1 / 15.0), 1e-14);
}

TEST(ZeroSearch, TakesInfiniteValuesForTheirSign) {
    const auto f = [](double x) { return x < 1 ? -HUGE_VAL : x > 3 ? HUGE_VAL : x - 2; };
    EXPECT_NEAR(models::zero_between(f, {-100, f(-100)}, {50, f(50)}).x, 2, 1e-15);
}

TEST(ZeroSearch, NewtonsMethodStaysInItsBracket) {
    int calls = 0;
    const auto f = [&](double x) -> models::ValueAndSlope {
        ++calls;
        return {std::atan(x - 3), 1 / (1 + (x - 3) * (x - 3))};
    };
    const Sample zero = models::newton_zero(f, -50, 100, 90, 1e-15);
    EXPECT_NEAR(zero.x, 3, 1e-14);
    EXPECT_LT(calls, 30);
    const auto flat = [](double x) -> models::ValueAndSlope { return {x - 2, 0}; };
    EXPECT_NEAR(models::newton_zero(flat, 0, 10, 9, 1e-13).x, 2, 1e-12);
}

TEST(ZeroSearch, NewtonsMethodTellsThatThereIsNoZero) {
    int calls = 0;
    const auto f = [&](double x) -> models::ValueAndSlope {
        ++calls;
        return {x + 1, 1};
    };
    const Sample end = models::newton_zero(f, 0, 10, 5, 1e-12);
    EXPECT_EQ(end.x, 0);
    EXPECT_EQ(end.f, 1);
    EXPECT_LT(calls, 5);
}

TEST(ZeroSearch, FindsEveryZeroOfAWave) {
    const models::Zeros zeros = zeros_of([](double x) { return std::sin(1.3 * x); });
    ASSERT_EQ(zeros.count, 5U);
    for (std::size_t i = 0; i < zeros.count; ++i)
        EXPECT_NEAR(zeros.x[i], static_cast<double>(i) * 3.141592653589793 / 1.3, 1e-14);
}

TEST(ZeroSearch, FindsBothZerosOfAnExtremumBetweenTwoSamples) {
    for (const double at : {0.2, 4.49, 5.0, 9.7}) {
        const models::Zeros zeros = zeros_of([at](double x) { return (x - at) * (x - at) - 1e-4; });
        ASSERT_EQ(zeros.count, 2U) << at;
        EXPECT_NEAR(zeros.x[0] + zeros.x[1], 2 * at, 1e-12);
        EXPECT_NEAR(std::fabs(zeros.x[0] - zeros.x[1]), 0.02, 1e-12);
    }
    EXPECT_EQ(zeros_of([](double x) { return (x - 4.4) * (x - 4.4) + 1e-4; }).count, 0U);
}

TEST(ZeroSearch, AnExtremumThatTouchesZeroIsOne) {
    const models::Zeros zeros = zeros_of([](double x) { return (x - 4.4) * (x - 4.4); });
    ASSERT_EQ(zeros.count, 1U);
    EXPECT_NEAR(zeros.x[0], 4.4, 1e-6);
}

TEST(ZeroSearch, TakesSamplesFromAboveDownAsWell) {
    const auto f = [](double x) { return (x - 4.4) * (x - 4.4) - 1e-4; };
    models::Samples<11> samples;
    for (int i = 10; i >= 0; --i) samples.add(f, i);
    EXPECT_EQ(samples.zeros(f, 1e-12, 1e-9).count, 2U);
}

TEST(ZeroSearch, LosesNoZeroNextToTheEndOfTheDomain) {
    const auto f = [](double x) { return x < 2.5 || x > 7.5 ? kNaN : (x - 2.5001) * (7.4999 - x); };
    const models::Zeros zeros = zeros_of(f);
    ASSERT_EQ(zeros.count, 2U);
    EXPECT_NEAR(zeros.x[0], 2.5001, 1e-12);
    EXPECT_NEAR(zeros.x[1], 7.4999, 1e-12);
}

TEST(ZeroSearch, AJumpIsNoZero) {
    EXPECT_EQ(zeros_of([](double x) { return x < 4.4 ? -1.0 : 1.0; }).count, 0U);
}

TEST(ZeroSearch, AKinkIsAnEndOfBothItsSides) {
    // The minimum at the kink touches zero; only a sample there tells of it.
    const auto f = [](double x) { return x < 4.4 ? 4.4 - x : 2 * (x - 4.4); };
    models::Samples<12> samples;
    for (const double x : {0.0, 2.0, 4.0, 4.4, 6.0, 8.0, 10.0}) {
        samples.add(f, x);
        if (x == 4.4) samples.turn();
    }
    const models::Zeros zeros = samples.zeros(f, 1e-12, 1e-9);
    ASSERT_GE(zeros.count, 1U);
    for (std::size_t i = 0; i < zeros.count; ++i) EXPECT_EQ(zeros.x[i], 4.4);
}

}  // namespace
