#include <algorithm>
#include <array>
#include <set>

#include "chart/palette.h"

using namespace quor;

namespace {

using chart::Colour;
using Vector = std::array<double, 3>;
using Matrix = std::array<double, 9>;

double linear(double channel) {
    const double c = channel / 255;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

Vector times(const Matrix& m, const Vector& v) {
    Vector out{};
    for (std::size_t i = 0; i < 3; ++i)
        out[i] = m[3 * i] * v[0] + m[3 * i + 1] * v[1] + m[3 * i + 2] * v[2];
    return out;
}

/// CIELAB under D65 of linear RGB (IEC 61966-2-1, CIE 15).
Vector lab(const Vector& rgb) {
    constexpr Matrix kToXyz{0.4124, 0.3576, 0.1805, 0.2126, 0.7152, 0.0722, 0.0193, 0.1192, 0.9505};
    const Vector xyz = times(kToXyz, rgb);
    const auto f = [](double t) {
        return t > 216.0 / 24389 ? std::cbrt(t) : (24389.0 / 27 * t + 16) / 116;
    };
    const double fx = f(xyz[0] / 0.9505), fy = f(xyz[1]), fz = f(xyz[2] / 1.089);
    return {116 * fy - 16, 500 * (fx - fy), 200 * (fy - fz)};
}

/// Normal vision, protanopia, deuteranopia and tritanopia: Machado, Oliveira and Fernandes, IEEE
/// Trans. Vis. Comput. Graph. 15 (2009) 1291, severity 1.
constexpr std::array<Matrix, 4> kEyes{
    {{1, 0, 0, 0, 1, 0, 0, 0, 1},
     {0.152286, 1.052583, -0.204868, 0.114503, 0.786281, 0.099216, -0.003882, -0.048116, 1.051998},
     {0.367322, 0.860646, -0.227968, 0.280085, 0.672501, 0.047413, -0.011820, 0.042940, 0.968881},
     {1.255528, -0.076749, -0.178779, -0.078411, 0.930809, 0.147602, 0.004733, 0.691367,
      0.303900}}};

Vector seen(Colour colour, const Matrix& eye) {
    Vector rgb = times(eye, {linear(colour.r), linear(colour.g), linear(colour.b)});
    for (double& channel : rgb) channel = std::clamp(channel, 0.0, 1.0);
    return lab(rgb);
}

double distance(const Vector& a, const Vector& b) {
    return std::sqrt((a[0] - b[0]) * (a[0] - b[0]) + (a[1] - b[1]) * (a[1] - b[1]) +
                     (a[2] - b[2]) * (a[2] - b[2]));
}

TEST(ChartPalette, ColoursOfOnePatternStayApartForAllEyes) {
    for (int a = 0; a < chart::kPaletteSize; ++a) {
        for (int b = 0; b < a; ++b) {
            if (chart::default_pattern(a) != chart::default_pattern(b)) continue;
            for (const Matrix& eye : kEyes)
                EXPECT_GT(distance(seen(chart::default_colour(a), eye),
                                   seen(chart::default_colour(b), eye)),
                          20)
                    << a << " and " << b;
        }
    }
}

TEST(ChartPalette, ColoursOfOnePatternDifferInGreyAndStandOutFromPaper) {
    for (int first = 0; first < chart::kPaletteSize; first += 8) {
        std::set<int> steps;
        for (int k = first; k < first + 8; ++k) {
            const double lightness = seen(chart::default_colour(k), kEyes[0])[0];
            EXPECT_NEAR(chart::lightness(chart::default_colour(k)), lightness, 0.1);
            EXPECT_LT(lightness, 72);
            EXPECT_GT(lightness, 20);
            steps.insert(static_cast<int>(std::lround(lightness * 10)));
        }
        ASSERT_EQ(steps.size(), 8U);
        int last = *steps.begin() - 1000;
        for (const int step : steps) {
            EXPECT_GT(step - last, 25) << "in tenths of L*";
            last = step;
        }
    }
}

TEST(ChartPalette, RepeatsAfterTheLastColour) {
    EXPECT_EQ(chart::default_colour(24), chart::default_colour(0));
    EXPECT_EQ(chart::default_colour(-1), chart::default_colour(23));
    EXPECT_EQ(chart::default_pattern(0), chart::LinePattern::Solid);
    EXPECT_EQ(chart::default_pattern(8), chart::LinePattern::Dashed);
    EXPECT_EQ(chart::default_pattern(16), chart::LinePattern::DashDotted);
}

TEST(ChartPalette, TheScaleOfSurfacesGetsLighterAllTheWay) {
    double last = -1;
    for (int k = 0; k <= 100; ++k) {
        const double lightness = chart::lightness(chart::scale_colour(k / 100.0));
        EXPECT_GT(lightness, last) << k;
        last = lightness;
    }
    EXPECT_EQ(chart::scale_colour(-1), chart::scale_colour(0));
    EXPECT_EQ(chart::scale_colour(2), chart::scale_colour(1));
}

TEST(ChartPalette, TwelvePointSetsHaveTwelveSymbols) {
    std::set<chart::SymbolShape> shapes;
    for (int k = 0; k < 12; ++k) shapes.insert(chart::default_symbol(k));
    EXPECT_EQ(shapes.size(), 12U);
    EXPECT_FALSE(shapes.contains(chart::SymbolShape::Hidden));
}

TEST(ChartPalette, TranslucentColoursMixWithThePaper) {
    EXPECT_EQ(chart::over({0, 0, 0, 0}, chart::kWhite), chart::kWhite);
    EXPECT_EQ(chart::over({10, 20, 30, 255}, chart::kWhite), (Colour{10, 20, 30, 255}));
    EXPECT_EQ(chart::over({0, 100, 200, 51}, chart::kWhite), (Colour{204, 224, 244, 255}));
}

}  // namespace
