#include <memory>

#include "common/result.h"

using namespace quor;

namespace {

Result<int> half_of(int n) {
    if (n % 2 != 0) return Failure{std::to_string(n) + " is odd."};
    return n / 2;
}

Result<void> check(int n) {
    const Result<int> half = half_of(n);
    if (!half) return half.failure();
    return {};
}

TEST(Result, HoldsAValue) {
    const Result<int> half = half_of(8);
    ASSERT_TRUE(half);
    EXPECT_EQ(half.value(), 4);
    EXPECT_EQ(*half, 4);
}

TEST(Result, HoldsTheReasonOfAFailure) {
    const Result<int> half = half_of(7);
    ASSERT_FALSE(half);
    EXPECT_EQ(half.reason(), "7 is odd.");
}

TEST(Result, ATextIsAValueAndNoReason) {
    const Result<std::string> text = std::string("fine");
    ASSERT_TRUE(text);
    EXPECT_EQ(text->size(), 4U);
}

TEST(Result, TheValueOfAFailureIsNeverRead) {
    EXPECT_THROW((void)half_of(7).value(), std::bad_variant_access);
    EXPECT_THROW((void)half_of(8).reason(), std::bad_variant_access);
}

TEST(Result, GivesItsValueAway) {
    Result<std::unique_ptr<int>> held = std::make_unique<int>(5);
    const std::unique_ptr<int> taken = *std::move(held);
    EXPECT_EQ(*taken, 5);
}

TEST(Result, AFailureIsPassedOnAsThatOfAnotherType) {
    EXPECT_TRUE(check(2));
    ASSERT_FALSE(check(3));
    EXPECT_EQ(check(3).reason(), "3 is odd.");
    EXPECT_EQ(check(3).failure(), Failure{"3 is odd."});
}

}  // namespace
