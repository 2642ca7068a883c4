#pragma once

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "estimation/fit_models.h"
#include "estimation/fit_run.h"
#include "estimation/marquardt_nash.h"

using namespace quor;

/// Helpers of the tests of the fitting engines and models.
namespace fit_support {

using estimation::FitProblem;
using estimation::FitState;
using estimation::ModelContext;
using estimation::Parameters;

inline std::vector<datafiles::FitPoint> Points(const std::vector<std::pair<double, double>>& xy) {
    std::vector<datafiles::FitPoint> points;
    for (const auto& [x, y] : xy)
        points.push_back({static_cast<float>(x), static_cast<float>(y), 0.0F});
    return points;
}

inline std::vector<datafiles::FitPoint> Points(const std::vector<double>& x,
                                               const std::vector<double>& y) {
    std::vector<datafiles::FitPoint> points;
    for (std::size_t i = 0; i < x.size(); ++i)
        points.push_back({static_cast<float>(x[i]), static_cast<float>(y[i]), 0.0F});
    return points;
}

/// A problem over points that outlive it.
inline FitProblem Problem(estimation::ModelFunction model, std::int16_t parameter_count,
                          const std::vector<datafiles::FitPoint>& points) {
    FitProblem problem;
    problem.model = model;
    problem.parameter_count = parameter_count;
    problem.points = points;
    for (const auto& point : points)
        if (!estimation::is_active(point)) ++problem.inactive_count;
    return problem;
}

/// A state with a model and points, as the view has it after choosing the model.
inline FitState State(std::int16_t model, std::vector<datafiles::FitPoint> points,
                      const models::SubstanceRecord& substance = {}, bool lg = false) {
    FitState state;
    state.lg = lg;
    state.substance = substance;
    estimation::choose_model(state, model);
    state.points = std::move(points);
    state.point_count = static_cast<std::int16_t>(state.points.size());
    for (const auto& point : state.points)
        if (!estimation::is_active(point)) ++state.inactive_count;
    return state;
}

/// Runs a fit from its start values alone; false, with the state as it was, when it is refused.
inline bool fit_once(FitState& state) {
    Result<FitState> result = estimation::fit_from_start(state);
    if (!result) return false;
    state = *std::move(result);
    return true;
}

/// Runs a fit on a state; false, with the state as it was, when it is refused.
inline bool start_fit(FitState& state) {
    Result<FitState> result = estimation::run_fit(state);
    if (!result) return false;
    state = *std::move(result);
    return true;
}

inline bool Constant(double, const Parameters& par, const ModelContext&, double& y) {
    y = par[0];
    return true;
}

inline bool Line(double x, const Parameters& par, const ModelContext&, double& y) {
    y = par[0] + par[1] * x;
    return true;
}

}  // namespace fit_support
