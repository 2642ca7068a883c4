#include "calculation/iso_search.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "common/constants.h"
#include "models/state_solver.h"

namespace quor::calculation {

namespace {

/// A search that varies one of T and p.
class Search {
  public:
    Search(const Calculator& calculator, const IsoSearch& asked)
        : calculator_(calculator),
          asked_(asked),
          start_(asked.given == IsoGiven::T ? asked.p : asked.T),
          relative_step_(asked.given == IsoGiven::T ? 0.0005 : 0.0001),
          grid_range_(asked.given == IsoGiven::T ? 50.0 : 4.0) {}

    /// Newton steps with a numerical slope. Where they fail, or where the phase does not exist at
    /// the start, as for saturated vapour that is compressed, a search for a change of sign.
    std::optional<double> solve() {
        if (!difference_at(start_)) return bracketed();
        const std::optional<double> x = newton();
        return x ? x : bracketed();
    }

  private:
    static constexpr double kUpperBound = 1e9;
    static constexpr double kTolerance = 1.5e-6;
    static constexpr double kSmallestStep = 0.0001;

    /// Function less target; nothing where the phase does not exist.
    std::optional<double> difference_at(double x) const {
        const double T = asked_.given == IsoGiven::T ? asked_.T : x;
        const double p = asked_.given == IsoGiven::T ? x : asked_.p;
        if (!(T >= constants::kPresent) || !(p >= constants::kPresent)) return std::nullopt;
        const auto state = models::solve_state_tp(calculator_.fluid(), T, p);
        if (!state || !(asked_.liquid ? state->has_L : state->has_V)) return std::nullopt;
        const auto value = calculator_.functions_at(T, p, asked_.liquid ? *state->vL : *state->vV)
                               .z[function_of(asked_.function)];
        if (!value) return std::nullopt;
        return *value - asked_.target;
    }

    /// Slope at x from the neighbour on the side where the phase exists.
    std::optional<double> slope_at(double x, double f, double step) {
        if (const auto ahead = difference_at(x + step)) return (*ahead - f) / step;
        if (const auto behind = difference_at(x - step)) return (f - *behind) / step;
        return std::nullopt;
    }

    std::optional<double> newton() {
        constexpr int kRounds = 500;
        constexpr double kWiden = 50.0;
        double x = start_;
        double step = std::max(kSmallestStep, relative_step_ * x);
        bool widened = false;
        for (int round = 0; round < kRounds; ++round) {
            const auto f = difference_at(x);
            if (!f) return std::nullopt;
            const auto slope = slope_at(x, *f, step);
            if (!slope || (*slope == 0.0 && widened)) return std::nullopt;
            if (*slope == 0.0) {
                step *= kWiden;
                widened = true;
                continue;
            }
            const double dx = *f / *slope;
            x -= dx;
            if (x < 0) x *= -2.0;
            if (!(x > 0) || !(x < kUpperBound)) return std::nullopt;
            if (std::fabs(dx / x) <= kTolerance)
                return difference_at(x) ? std::optional(x) : std::nullopt;
            step = std::max(kSmallestStep, std::min(relative_step_ * x, std::fabs(dx)));
            widened = false;
        }
        return std::nullopt;
    }

    /// Neighbours of a logarithmic grid, from the start outwards, with a change of sign.
    std::optional<double> bracketed() {
        constexpr int kPoints = 150;
        const double ratio = std::pow(grid_range_, 1.0 / kPoints);
        double up = start_, down = start_;
        auto f_up = difference_at(start_), f_down = f_up;
        for (int i = 0; i < kPoints; ++i) {
            if (const auto x = advance(up, f_up, up * ratio)) return x;
            if (const auto x = advance(down, f_down, down / ratio)) return x;
        }
        return std::nullopt;
    }

    /// One step of the grid: the root between x and the next point, if there is one.
    std::optional<double> advance(double& x, std::optional<double>& f, double next) {
        const auto f_next = difference_at(next);
        const double from = std::exchange(x, next);
        const auto f_from = std::exchange(f, f_next);
        if (f_from && f_next) return root_between(from, *f_from, next, *f_next);
        if (f_from) return root_before_end(from, *f_from, next);
        if (f_next) return root_before_end(next, *f_next, from);
        return std::nullopt;
    }

    /// The root between x and the place towards `beyond` where the phase ends.
    std::optional<double> root_before_end(double x, double f, double beyond) {
        constexpr int kHalvings = 50;
        double inside = x, f_inside = f, outside = beyond;
        for (int i = 0; i < kHalvings; ++i) {
            const double mid = 0.5 * (inside + outside);
            if (const auto f_mid = difference_at(mid)) {
                inside = mid;
                f_inside = *f_mid;
            } else {
                outside = mid;
            }
        }
        return root_between(x, f, inside, f_inside);
    }

    std::optional<double> root_between(double a, double fa, double b, double fb) {
        return (fa > 0) == (fb > 0) ? std::nullopt : bisect(a, fa, b, fb);
    }

    std::optional<double> bisect(double a, double fa, double b, double fb) {
        constexpr int kHalvings = 60;
        const double jump = std::fabs(fa - fb);
        double f_mid = jump;
        for (int i = 0; i < kHalvings && std::fabs(b - a) > 1e-12 * b; ++i) {
            const double mid = 0.5 * (a + b);
            const auto f = difference_at(mid);
            if (!f) return std::nullopt;
            f_mid = *f;
            if ((f_mid > 0) == (fa > 0)) {
                a = mid;
                fa = f_mid;
            } else {
                b = mid;
                fb = f_mid;
            }
        }
        // A jump from one phase to the other is no root.
        return std::fabs(f_mid) <= 1e-6 * jump ? std::optional(0.5 * (a + b)) : std::nullopt;
    }

    const Calculator& calculator_;
    const IsoSearch& asked_;
    double start_;
    double relative_step_;
    double grid_range_;
};

}  // namespace

std::optional<double> solve_iso(const Calculator& calculator, const IsoSearch& search) {
    return Search(calculator, search).solve();
}

}  // namespace quor::calculation
