#include <gtest/gtest.h>

#include <cmath>

#include "diagrams/polytropic_exchange.h"

using namespace quor;

namespace {

/// An answer whose 22 values of the process all are the same word, and with these points.
std::string answer(const std::string& value, const std::vector<std::string>& points) {
    std::string text = "1 2 " + std::to_string(points.size()) + "\r\n";
    for (int i = 0; i < 22; ++i) text += value + "\r\n";
    for (const std::string& point : points) text += point + "\r\n";
    return text;
}

TEST(PolytropicAnswer, InfinityAndNotANumberStandForAValueThatIsMissing) {
    for (const char* word : {"inf", "-INF", "nan", "1E999", "-1E999"}) {
        const auto line = diagrams::take_polytropic_answer(
            answer(word, {"300;" + std::string(word) + ";5"}), {}, ';');
        ASSERT_TRUE(line) << word;
        for (const double value : line->polytropic_values) EXPECT_GT(value, 1e37) << word;
        for (const double value : line->polytropic_values) EXPECT_TRUE(std::isfinite(value));
        EXPECT_TRUE(std::isnan(line->polytropic_points[0].p)) << word;
        EXPECT_EQ(line->polytropic_points[0].columns, std::vector<double>{5});
    }
}

TEST(PolytropicAnswer, APointOfVeryManyColumnsIsGarbled) {
    std::string point = "300";
    for (int i = 0; i < 200; ++i) point += ";1";
    EXPECT_FALSE(diagrams::take_polytropic_answer(answer("1", {point}), {}, ';'));
}

}  // namespace
