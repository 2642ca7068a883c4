// Certified results of the Statistical Reference Datasets of the National Institute of Standards
// and Technology (https://www.itl.nist.gov/div898/strd/), linear and nonlinear least squares
// regression. Points are held in 32 bits here, which limits the agreement to about six digits.

#include "estimation/fit_support.h"
#include "estimation/linear_regression.h"
#include "estimation/model_functions.h"

using namespace quor;

namespace {

using namespace fit_support;

bool Misra1a(double x, const Parameters& b, const ModelContext&, double& y) {
    y = b[0] * (1 - std::exp(-b[1] * x));
    return true;
}

bool DanWood(double x, const Parameters& b, const ModelContext&, double& y) {
    y = b[0] * std::pow(x, b[1]);
    return true;
}

bool Mgh09(double x, const Parameters& b, const ModelContext&, double& y) {
    y = b[0] * (x * x + x * b[1]) / (x * x + x * b[2] + b[3]);
    return true;
}

bool Thurber(double x, const Parameters& b, const ModelContext&, double& y) {
    y = (b[0] + x * (b[1] + x * (b[2] + x * b[3]))) / (1 + x * (b[4] + x * (b[5] + x * b[6])));
    return true;
}

struct Certified {
    const char* name;
    estimation::ModelFunction model;
    std::int16_t parameter_count;
    Parameters scale;
    std::vector<double> x, y;
    std::vector<Parameters> starts;
    Parameters value, deviation;
    double squares;
    double tolerance;  // relative, of the parameters
};

const std::vector<Certified>& NonlinearSets() {
    static const std::vector<Certified> sets{
        {"Misra1a",
         Misra1a,
         2,
         {100, 1e-4, 1, 1, 1, 1, 1},
         {77.6, 114.9, 141.1, 190.8, 239.9, 289.0, 332.8, 378.4, 434.8, 477.3, 536.8, 593.1, 689.1,
          760.0},
         {10.07, 14.73, 17.94, 23.93, 29.61, 35.18, 40.02, 44.82, 50.76, 55.05, 61.01, 66.40, 75.47,
          81.78},
         {{500, 1e-4}, {250, 5e-4}},
         {2.3894212918E+02, 5.5015643181E-04},
         {2.7070075241E+00, 7.2668688436E-06},
         1.2455138894E-01,
         2e-5},
        {"DanWood",
         DanWood,
         2,
         {1, 1, 1, 1, 1, 1, 1},
         {1.309, 1.471, 1.490, 1.565, 1.611, 1.680},
         {2.138, 3.421, 3.597, 4.340, 4.882, 5.660},
         {{1, 5}, {0.7, 4}},
         {7.6886226176E-01, 3.8604055871E+00},
         {1.8281973860E-02, 5.1726610913E-02},
         4.3173084083E-03,
         2e-5},
        {"Thurber",
         Thurber,
         7,
         {1000, 1000, 1000, 100, 1, 1, 0.1},
         {-3.067, -2.981, -2.921, -2.912, -2.840, -2.797, -2.702, -2.699, -2.633, -2.481,
          -2.363, -2.322, -1.501, -1.460, -1.274, -1.212, -1.100, -1.046, -0.915, -0.714,
          -0.566, -0.545, -0.400, -0.309, -0.109, -0.103, 0.010,  0.119,  0.377,  0.790,
          0.963,  1.006,  1.115,  1.572,  1.841,  2.047,  2.200},
         {80.574,   84.248,   87.264,   87.195,   89.076,   89.608,   89.868,   90.101,
          92.405,   95.854,   100.696,  101.060,  401.672,  390.724,  567.534,  635.316,
          733.054,  759.087,  894.206,  990.785,  1090.109, 1080.914, 1122.643, 1178.351,
          1260.531, 1273.514, 1288.339, 1327.543, 1353.863, 1414.509, 1425.208, 1421.384,
          1442.962, 1464.350, 1468.705, 1447.894, 1457.628},
         {{1000, 1000, 400, 40, 0.7, 0.3, 0.03}, {1300, 1500, 500, 75, 1, 0.4, 0.05}},
         {1.2881396800E+03, 1.4910792535E+03, 5.8323836877E+02, 7.5416644291E+01, 9.6629502864E-01,
          3.9797285797E-01, 4.9727297349E-02},
         {4.6647963344E+00, 3.9571156086E+01, 2.8698696102E+01, 5.5675370270E+00, 3.1333340687E-02,
          1.4984928198E-02, 6.5842344623E-03},
         5.6427082397E+03,
         2e-4},
        {"MGH09",
         Mgh09,
         4,
         {1, 1, 1, 1, 1, 1, 1},
         {4.0, 2.0, 1.0, 0.5, 0.25, 0.167, 0.125, 0.1, 0.0833, 0.0714, 0.0625},
         {0.1957, 0.1947, 0.1735, 0.1600, 0.0844, 0.0627, 0.0456, 0.0342, 0.0323, 0.0235, 0.0246},
         {{0.25, 0.39, 0.415, 0.39}},
         {1.9280693458E-01, 1.9128232873E-01, 1.2305650693E-01, 1.3606233068E-01},
         {1.1435312227E-02, 1.9633220911E-01, 8.0842031232E-02, 9.0025542308E-02},
         3.0750560385E-04,
         2e-4},
    };
    return sets;
}

TEST(Nist, NonlinearSetsGiveTheirCertifiedResults) {
    for (const Certified& set : NonlinearSets()) {
        const auto points = Points(set.x, set.y);
        for (const Parameters& start : set.starts) {
            SCOPED_TRACE(std::string(set.name) + " from " + std::to_string(start[0]));
            FitProblem problem = Problem(set.model, set.parameter_count, points);
            problem.scale = set.scale;
            const auto n = static_cast<std::size_t>(set.parameter_count);
            Parameters par{}, std_dev{};
            for (std::size_t i = 0; i < n; ++i) par[i] = start[i] / set.scale[i];
            const auto r = marquardt_nash_fitting(problem, static_cast<std::int16_t>(points.size()),
                                                  par, std_dev);
            EXPECT_FALSE(r.failed);
            EXPECT_NEAR(r.minimum / set.squares, 1, 1e-5);
            for (std::size_t i = 0; i < n; ++i) {
                EXPECT_NEAR(par[i] * set.scale[i] / set.value[i], 1, set.tolerance) << i;
                EXPECT_NEAR(std_dev[i] * set.scale[i] / set.deviation[i], 1, 1e-3) << i;
            }
        }
    }
}

TEST(Nist, TwoHundredPointsWithSevenParametersTakeBelowFiftyMilliseconds) {
    const Certified& thurber = NonlinearSets()[2];
    std::vector<double> x, y;
    for (int i = 0; i < 200; ++i) {
        x.push_back(-3 + 5.2 * i / 199);
        double value = 0;
        Thurber(x.back(), thurber.value, {}, value);
        y.push_back(value * (i % 2 == 0 ? 1.001 : 0.999));
    }
    const auto points = Points(x, y);
    FitProblem problem = Problem(Thurber, 7, points);
    problem.scale = thurber.scale;
    Parameters par{}, std_dev{};
    for (std::size_t i = 0; i < 7; ++i) par[i] = thurber.starts[0][i] / thurber.scale[i];
    const auto r = marquardt_nash_fitting(problem, 200, par, std_dev);
    EXPECT_FALSE(r.failed);
    for (std::size_t i = 0; i < 7; ++i)
        EXPECT_NEAR(par[i] * thurber.scale[i] / thurber.value[i], 1, 0.05) << i;
}

TEST(Nist, Mgh10IsAnAntoineEquation) {
    // y = b1 exp(b2/(x + b3)): A = ln b1, B = -b2, C = b3 + 273.15.
    std::vector<double> x, y{34780, 28610, 23650, 19630, 16370, 13720, 11540, 9744,
                             8261,  7030,  6005,  5147,  4427,  3820,  3307,  2872};
    for (int i = 0; i < 16; ++i) x.push_back(50 + 5 * i);
    FitState state = State(4, Points(x, y));
    state.start = {std::log(0.02), -4000, 250 + 273.15};
    state.logarithmic = true;  // the logarithmic sum leads close to the other one
    ASSERT_TRUE(start_fit(state));
    take_all_results_as_start(state);
    state.logarithmic = false;
    ASSERT_TRUE(start_fit(state));
    EXPECT_NEAR(std::exp(state.parameters[0]) / 5.6096364710E-03, 1, 1e-5);
    EXPECT_NEAR(state.parameters[1] / -6.1813463463E+03, 1, 1e-6);
    EXPECT_NEAR((state.parameters[2] - 273.15) / 3.4522363462E+02, 1, 1e-6);
    // The sum shown is the one of the last probe round the result.
    EXPECT_NEAR(state.sum_of_squares / 8.7945855171E+01, 1, 1e-3);
    EXPECT_NEAR(state.std_dev[1] / 2.3309021107E+01, 1, 1e-3);
    EXPECT_NEAR(state.std_dev[2] / 7.8486103508E-01, 1, 1e-3);
}

TEST(Nist, NorrisIsTheLinearModelWithTwoParameters) {
    const auto points =
        Points({{0.2, 0.1},     {337.4, 338.8}, {118.2, 118.1}, {884.6, 888.0}, {10.1, 9.2},
                {226.5, 228.1}, {666.3, 668.5}, {996.3, 998.5}, {448.6, 449.1}, {777.0, 778.9},
                {558.2, 559.2}, {0.4, 0.3},     {0.6, 0.1},     {775.5, 778.1}, {666.9, 668.8},
                {338.0, 339.3}, {447.5, 448.9}, {11.6, 10.8},   {556.0, 557.7}, {228.1, 228.3},
                {995.8, 998.0}, {887.6, 888.8}, {120.2, 119.6}, {0.3, 0.3},     {0.3, 0.6},
                {556.8, 557.6}, {339.1, 339.3}, {887.2, 888.0}, {999.0, 998.5}, {779.0, 778.9},
                {11.1, 10.2},   {118.3, 117.6}, {229.2, 228.9}, {669.1, 668.4}, {448.9, 449.2},
                {0.5, 0.2}});
    FitState state = State(0, points);
    state.fixed = {false, false, true, true, true, true};
    ASSERT_TRUE(start_fit(state));
    EXPECT_NEAR(state.parameters[0] / -0.262323073774029, 1, 1e-5);
    EXPECT_NEAR(state.parameters[1] / 1.00211681802045, 1, 3e-8);
    EXPECT_NEAR(state.std_dev[0] / 0.232818234301152, 1, 1e-5);
    EXPECT_NEAR(state.std_dev[1] / 0.429796848199937E-03, 1, 1e-5);
    EXPECT_NEAR(std::sqrt(state.sum_of_squares / 34) / 0.884796396144373, 1, 1e-5);
}

TEST(Nist, WamplerPolynomialsHaveTheirCoefficients) {
    std::vector<double> x, y1, y2, y3;
    const double error[] = {759,   -2048, 2048,  -2048, 2523,  -2048, 2048,
                            -2048, 1838,  -2048, 2048,  -2048, 1838,  -2048,
                            2048,  -2048, 2523,  -2048, 2048,  -2048, 759};
    for (int i = 0; i <= 20; ++i) {
        const double v = i;
        x.push_back(v);
        y1.push_back(1 + v * (1 + v * (1 + v * (1 + v * (1 + v)))));
        y2.push_back(1 + v * (0.1 + v * (0.01 + v * (1e-3 + v * (1e-4 + v * 1e-5)))));
        y3.push_back(y1.back() + error[i]);
    }
    // The normal equations of a fifth degree lose about half of the digits.
    FitState state = State(0, Points(x, y1));
    state.fixed = {};
    ASSERT_TRUE(start_fit(state));
    for (std::size_t i = 0; i < 6; ++i) EXPECT_NEAR(state.parameters[i], 1, 2e-4) << i;

    state.points = Points(x, y2);
    ASSERT_TRUE(start_fit(state));
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_NEAR(state.parameters[i] * std::pow(10, i), 1, 1e-3) << i;

    state.points = Points(x, y3);
    ASSERT_TRUE(start_fit(state));
    const double deviation[] = {2152.32624678170, 2363.55173469681, 779.343524331583,
                                101.475507550350, 5.64566512170752, 0.112324854679312};
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_NEAR(state.parameters[i], 1, 2e-4) << i;
        EXPECT_NEAR(state.std_dev[i] / deviation[i], 1, 1e-7) << i;
    }
    EXPECT_NEAR(std::sqrt(state.sum_of_squares / 15) / 2360.14502379268, 1, 1e-9);
}

}  // namespace
