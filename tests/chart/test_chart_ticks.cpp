#include "chart/ticks.h"

#include <algorithm>
#include <limits>
#include <random>

#include "common/numbers.h"

using namespace quor;

namespace {

using chart::Tick;
using chart::TickRequest;
using chart::Ticks;

std::vector<std::string> texts(const Ticks& ticks) {
    std::vector<std::string> all;
    for (const Tick& tick : ticks.major)
        if (!tick.text.empty()) all.push_back(tick.text);
    return all;
}

double roomOf(const std::string& text) {
    return 7.0 * static_cast<double>(text.size()) + 10;
}

TickRequest request(double min, double max, double length) {
    TickRequest r;
    r.min = min;
    r.max = max;
    r.length = length;
    r.room = roomOf;
    return r;
}

double pixel(const TickRequest& r, double value) {
    const double t = r.logarithmic ? std::log(value / r.min) / std::log(r.max / r.min)
                                   : (value - r.min) / (r.max - r.min);
    return t * r.length;
}

void expectClear(const TickRequest& r, const Ticks& ticks) {
    const Tick* last = nullptr;
    for (const Tick& tick : ticks.major) {
        EXPECT_GE(tick.value, r.min - 1e-5 * (r.max - r.min));
        EXPECT_LE(tick.value, r.max + 1e-5 * (r.max - r.min));
        if (tick.text.empty()) continue;
        if (last) {
            EXPECT_GE(pixel(r, tick.value) - pixel(r, last->value),
                      (roomOf(last->text) + roomOf(tick.text)) / 2 - 1e-6)
                << last->text << " and " << tick.text << " on " << r.length << " pixels from "
                << r.min << " to " << r.max;
        }
        last = &tick;
    }
}

TEST(ChartTicks, StandAtRoundValues) {
    EXPECT_EQ(texts(make_ticks(request(0, 5, 300))),
              (std::vector<std::string>{"0", "1", "2", "3", "4", "5"}));
    EXPECT_EQ(texts(make_ticks(request(0.13, 0.87, 250))),
              (std::vector<std::string>{"0.2", "0.4", "0.6", "0.8"}));
    EXPECT_EQ(texts(make_ticks(request(-40, 160, 250))),
              (std::vector<std::string>{"0", "50", "100", "150"}));
}

TEST(ChartTicks, LargeAndSmallNumbersBecomePowers) {
    EXPECT_EQ(texts(make_ticks(request(0, 2e6, 250))),
              (std::vector<std::string>{"0", "5e5", "1e6", "1.5e6", "2e6"}));
    EXPECT_EQ(chart::axis_number(2e-7, 1e-7, 1e-6, -1), "2e-7");
    EXPECT_EQ(chart::axis_number(0, 1e-7, 1e-6, -1), "0");
    EXPECT_EQ(chart::axis_number(123456, 1000, 200000, -1), "123456");
}

TEST(ChartTicks, DigitsAndSpacingOfTheUserHold) {
    TickRequest r = request(0, 1, 600);
    r.spacing = 0.25;
    r.decimals = 3;
    EXPECT_EQ(texts(make_ticks(r)),
              (std::vector<std::string>{"0.000", "0.250", "0.500", "0.750", "1.000"}));
}

TEST(ChartTicks, ATooDenseSpacingKeepsItsTicksAndThinsItsNumbers) {
    TickRequest r = request(0, 10, 200);
    r.spacing = 0.5;
    const Ticks ticks = make_ticks(r);
    EXPECT_EQ(ticks.major.size(), 21U);
    EXPECT_LT(texts(ticks).size(), 21U);
    EXPECT_GE(texts(ticks).size(), 2U);
    expectClear(r, ticks);
}

TEST(ChartTicks, ASpacingFarTooSmallFallsBackToTheAutomaticOne) {
    TickRequest r = request(0, 1000, 400);
    r.spacing = 1e-9;
    const Ticks ticks = make_ticks(r);
    EXPECT_GT(ticks.major.size(), 2U);
    EXPECT_LT(ticks.major.size(), 30U);
}

TEST(ChartTicks, ALogarithmicAxisShowsPowersOfTen) {
    TickRequest r = request(0.001, 1e5, 500);
    r.logarithmic = true;
    EXPECT_EQ(texts(make_ticks(r)), (std::vector<std::string>{"0.001", "0.01", "0.1", "1", "10",
                                                              "100", "1000", "10000", "100000"}));
    r.min = 1;
    r.max = 1e12;
    const auto powers = texts(make_ticks(r));
    EXPECT_EQ(powers.front(), "1e0");
    EXPECT_EQ(powers.back(), "1e12");
}

TEST(ChartTicks, ALogarithmicAxisBelowADecadeStillHasNumbers) {
    TickRequest r = request(120, 380, 400);
    r.logarithmic = true;
    EXPECT_GE(texts(make_ticks(r)).size(), 3U);
}

TEST(ChartTicks, NumbersNeverOverlapInAnyWindow) {
    std::mt19937 random(42);
    std::uniform_real_distribution<double> unit(0, 1);
    for (int trial = 0; trial < 5000; ++trial) {
        const double size = std::pow(10, -8 + 16 * unit(random));
        TickRequest r = request(size * (2 * unit(random) - 1), 0, 20 + 900 * unit(random));
        r.max = r.min + size * (0.001 + unit(random));
        if (trial % 3 == 1) r.spacing = (r.max - r.min) * (0.005 + unit(random) / 3);
        if (trial % 5 == 1) r.decimals = trial % 7;
        if (trial % 2 == 1) {
            r.logarithmic = true;
            r.min = size * (0.01 + unit(random));
            r.max = r.min * std::pow(10, 0.01 + 9 * unit(random));
        }
        const Ticks ticks = make_ticks(r);
        EXPECT_LE(ticks.major.size(), 202U);
        expectClear(r, ticks);
        EXPECT_TRUE(std::is_sorted(ticks.minor.begin(), ticks.minor.end()));
    }
}

TEST(ChartTicks, AnAxisOfUsualLengthHasAtLeastTwoNumbers) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> unit(0, 1);
    for (int trial = 0; trial < 2000; ++trial) {
        const double size = std::pow(10, -3 + 7 * unit(random));
        TickRequest r = request(size * unit(random), 0, 300);
        r.max = r.min + size;
        EXPECT_GE(texts(make_ticks(r)).size(), 2U) << r.min << " to " << r.max;
    }
}

TEST(ChartTicks, AShortAxisStillHasThreeNumbersWhereTheyFit) {
    // The residuals of a fit on a low chart: a comfortable distance left one number, 0.
    for (const auto& [min, max] : {std::pair{-1.05, 1.9}, {-0.021, 0.035}, {305.0, 447.0}}) {
        for (const double length : {110.0, 145.0, 200.0}) {
            TickRequest r = request(min, max, length);
            r.room = [](const std::string&) { return 14.0; };
            const Ticks ticks = make_ticks(r);
            EXPECT_GE(texts(ticks).size(), 3U) << min << " to " << max << " on " << length;
        }
    }
    TickRequest r = request(-1, 2, 60);
    r.room = [](const std::string&) { return 50.0; };
    EXPECT_LT(texts(make_ticks(r)).size(), 3U) << "numbers never overlap for it";
}

TEST(ChartTicks, WindowsThatCannotBeDrawnHaveNone) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (const auto& [min, max] : {std::pair{1.0, 1.0}, {2.0, 1.0}, {nan, 1.0}, {0.0, inf}})
        EXPECT_TRUE(make_ticks(request(min, max, 300)).major.empty());
    TickRequest r = request(-1, 10, 300);
    r.logarithmic = true;
    EXPECT_TRUE(make_ticks(r).major.empty());
}

TEST(ChartTicks, NoWindowHasTicksWithoutEnd) {
    // The index of a tick beyond 2^53 is the same as the next one.
    constexpr double kTiny = std::numeric_limits<double>::denorm_min();
    for (const auto& [min, max] : {std::pair{9007199254740992.0, 9007199254740994.0},
                                   {1e16, 1.0000000000000002e16},
                                   {-1e308, 1e308},
                                   {-1e300, 1.7e308},
                                   {0.0, kTiny},
                                   {kTiny, 1.0},
                                   {kTiny, 1e308},
                                   {1e-300, 1e300},
                                   {1e300, 1.0000000000000002e300}}) {
        for (const double spacing : {0.0, kTiny, 1e-300, 0.5, 1.0, 1e300}) {
            for (const bool logarithmic : {false, true}) {
                TickRequest r = request(min, max, 400);
                r.logarithmic = logarithmic;
                r.spacing = spacing;
                const Ticks ticks = make_ticks(r);
                EXPECT_LE(ticks.major.size(), 2000U) << min << " to " << max;
                EXPECT_LE(ticks.minor.size(), 4000U) << min << " to " << max;
                for (const Tick& tick : ticks.major) EXPECT_TRUE(std::isfinite(tick.value));
            }
        }
        EXPECT_LE(chart::multiples(min, max, 1).size(), 2000U);
    }
}

TEST(ChartTicks, TheLocalesDecimalMarkIsUsed) {
    numbers::set_decimal_mark(',');
    const auto shown = texts(make_ticks(request(0, 1, 200)));
    numbers::set_decimal_mark('.');
    EXPECT_EQ(shown, (std::vector<std::string>{"0,0", "0,5", "1,0"}));
}

TEST(ChartTicks, NiceStepIsTheNextOfOneTwoFive) {
    EXPECT_DOUBLE_EQ(chart::nice_step(0.11), 0.2);
    EXPECT_DOUBLE_EQ(chart::nice_step(1), 1);
    EXPECT_DOUBLE_EQ(chart::nice_step(2.1), 5);
    EXPECT_DOUBLE_EQ(chart::nice_step(7e8), 1e9);
    EXPECT_DOUBLE_EQ(chart::nice_step(-3), 1);
}

TEST(ChartTicks, NiceWindowsHoldTheDataAndAreNotMuchWider) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> unit(-1, 1);
    for (int trial = 0; trial < 2000; ++trial) {
        const double a = unit(random) * 1000, b = a + std::abs(unit(random)) * 300 + 1e-3;
        const auto window = chart::make_nice_window(a, b, false);
        EXPECT_LE(window.min, a);
        EXPECT_GE(window.max, b);
        EXPECT_LE(window.max - window.min, 1.5 * (b - a));
    }
    const auto flat = chart::make_nice_window(5, 5, false);
    EXPECT_LT(flat.min, 5);
    EXPECT_GT(flat.max, 5);
    const auto decades = chart::make_nice_window(0.02, 3000, true);
    EXPECT_DOUBLE_EQ(decades.min, 0.01);
    EXPECT_DOUBLE_EQ(decades.max, 10000);
}

}  // namespace
