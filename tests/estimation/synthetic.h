#pragma once

#include <limits>
#include <vector>

#include "common/constants.h"
#include "estimation/fit_support.h"

using namespace quor;

/// Known parameters of every model, of the size that real fluids have, and points made from them.
namespace fit_support {

struct Synthetic {
    std::int16_t model;
    bool lg;
    Parameters truth;
    double from, to;  ///< range of x
};

/// A water-like fluid: critical data for the models that need them.
inline models::SubstanceRecord WaterLike() {
    models::SubstanceRecord s;
    s.Tcrit = 647.096;
    s.pcrit = 22064;
    s.Tboil = 373.124F;
    s.M = 18.0153F;
    return s;
}

/// Every model, the vapour pressure models in both forms.
inline const std::vector<Synthetic>& AllSynthetic() {
    constexpr double ln10 = constants::kLn10;
    static const std::vector<Synthetic> all{
        {0, false, {3, -2, 0.5, 0.125, 0, 0}, -2, 4},
        {1, false, {3, -2, 0.5, 0.125, 7, 0, 0}, 0.5, 4},
        {3, false, {51.86, 6800, -4.9}, 280, 450},
        {3, true, {51.86 / ln10, 6800 / ln10, -4.9}, 280, 450},
        {4, false, {7.1962 * ln10, 1730.63 * ln10, 233.426}, 280, 450},
        {4, true, {7.1962, 1730.63, 233.426}, 280, 450},
        {5, false, {23.55 * ln10, -2980.0 * ln10, 273.15, -5.62, 3.5 * ln10}, 300, 620},
        {5, true, {23.55, -2980.0, 273.15, -5.62, 3.5}, 300, 620},
        {6, false, {23.55 * ln10, -2980.0 * ln10, 273.15, 0, 3.5 * ln10}, 300, 620},
        {6, true, {23.55, -2980.0, 273.15, 0, 3.5}, 300, 620},
        {7, false, {66.5, -7200, -7.0, 5.2e-6, 2}, 280, 640},
        {7, true, {66.5 / ln10, -7200 / ln10, -7.0, 5.2e-6 / ln10, 2}, 280, 640},
        {8, false, {-7.77, 1.48, -2.77, -1.3}, 280, 640},
        {9, false, {98, 0.3, 0.26}, 280, 600},
        {10, false, {420, -1.1, 0.0022, -1.9e-6, 900}, 280, 600},
        {11, false, {620, 3.2, -0.0072, 3.1e-6}, 280, 450},
        {14, false, {54000, -0.3, 0.31}, 280, 600},
        {15, false, {52053, 0.32, -0.2, 0.22, 0.03}, 280, 600},
        {16, false, {32.2, 0.0019, 1.055e-5, -3.6e-9, 0}, 280, 1000},
        {17, false, {30.1, 0.0068, 6.8e-6, -2.5e-9, 8.2e4}, 300, 1000},
        {18, false, {33363, 26790, 2610.5, 8896, 1169}, 200, 1500},
    };
    return all;
}

/// A name for messages: "5 lg".
inline std::string name_of(const Synthetic& set) {
    return std::to_string(set.model) + (set.lg ? " lg" : " ln");
}

/// Points of the model itself; `count` of them, equally spaced.
inline std::vector<datafiles::FitPoint> SyntheticPoints(const Synthetic& set, int count) {
    FitState state = State(set.model, {}, WaterLike(), set.lg);
    state.parameters = set.truth;
    std::vector<datafiles::FitPoint> points;
    for (int i = 0; i < count; ++i) {
        const double x = static_cast<double>(
            static_cast<float>(set.from + (set.to - set.from) * i / (count - 1)));
        double y = 0;
        if (!evaluate_fit(state, x, y)) continue;
        points.push_back({static_cast<float>(x), static_cast<float>(y), 0.0F});
    }
    return points;
}

/// The view with a model and its points; parameters that the truth needs are free.
inline FitState SyntheticState(const Synthetic& set, int count) {
    FitState state = State(set.model, SyntheticPoints(set, count), WaterLike(), set.lg);
    if (set.model == 0) state.fixed[3] = false;
    return state;
}

/// The largest relative deviation of the fitted function from the points, infinite where it fails.
inline double WorstDeviation(const FitState& state) {
    double worst = 0;
    for (const auto& p : state.points) {
        double y = 0;
        if (!evaluate_fit(state, static_cast<double>(p.x), y))
            return std::numeric_limits<double>::infinity();
        worst = std::max(worst, std::fabs(y / static_cast<double>(p.y) - 1));
    }
    return worst;
}

}  // namespace fit_support
