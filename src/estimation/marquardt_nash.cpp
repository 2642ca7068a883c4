#include "estimation/marquardt_nash.h"

#include <cmath>
#include <limits>

#include "common/progress.h"

namespace quor::estimation {

namespace {

constexpr double kLambdaStart = 1e-4;
constexpr double kIncrease = 10;  // after a failed step
constexpr double kDecrease = 4;   // dec / inc = four tenths after an accepted step
constexpr double kPhi = 1;        // additive damping
constexpr double kRelTest = 10;   // offset of the test of equality
constexpr double kEps = 3e-16;    // machine precision as taken by the method

bool is_free(Mask m) {
    return m == Mask::Free;
}

/// All that one run of the search works on.
struct Search {
    FitProblem& problem;
    std::size_t n;
    int evaluation_limit;
    std::array<Mask, kMaxPar> mask{};
    int masked = 0;      // fixed parameters
    Parameters B{};      // present parameters
    Parameters X{};      // best so far
    Parameters g{};      // gradient
    Parameters delta{};  // step
    PackedMatrix A{};    // damped and factorised
    PackedMatrix C{};    // undamped
    double lambda = kLambdaStart;
    double sum = 0;       // at the last parameters evaluated
    double best = 0;      // at X
    double residual = 0;  // of the last point evaluated
    MarquardtResult result{};
    progress::Work work{"Fitting"};

    explicit Search(FitProblem& p)
        : problem(p),
          n(static_cast<std::size_t>(p.parameter_count)),
          evaluation_limit(kEvaluationsPerParameter * p.parameter_count) {}

    /// Masks from the fixed marks; starts outside of the bounds move to them.
    void place_start(const Parameters& start) {
        B = start;
        masked = static_cast<int>(n);
        for (std::size_t i = 0; i < n; ++i) {
            mask[i] = problem.fixed[i] ? Mask::Fixed : Mask::Free;
            if (is_free(mask[i])) {
                --masked;
                place_within_bounds(i);
            }
            X[i] = B[i];
        }
    }

    void place_within_bounds(std::size_t i) {
        if (B[i] < kBounds[i].lower) {
            B[i] = kBounds[i].lower;
            mask[i] = Mask::AtLower;
        }
        if (B[i] > kBounds[i].upper) {
            if (mask[i] == Mask::AtLower) {  // the bounds contradict each other
                mask[i] = Mask::Fixed;
                ++masked;
            } else {
                B[i] = kBounds[i].upper;
                mask[i] = Mask::AtUpper;
            }
        }
    }

    /// Sum of squares at B; false when the limit of evaluations is passed.
    bool evaluate() {
        work.at(static_cast<double>(result.evaluations) / evaluation_limit);
        calc_fqs_marquardt(problem, B, sum, result.evaluations);
        return result.evaluations <= evaluation_limit;
    }

    /// Normal matrix and gradient at B; false when the limit of matrices is passed. The loop ends
    /// before the last points of the list when some are inactive, while the sum takes in all.
    bool build_matrix() {
        work.at(static_cast<double>(result.evaluations) / evaluation_limit);
        lambda = kDecrease * lambda / kIncrease;
        best = sum;
        C.fill(0);
        g.fill(0);
        Parameters d{};
        const int count = static_cast<int>(problem.points.size()) - problem.inactive_count;
        for (int i = 0; i < count; ++i) {
            if (!is_active(problem.points[static_cast<std::size_t>(i)])) continue;
            calc_ableitungen(problem, B, i, residual, d);
            for (std::size_t j = 0; j < n; ++j) {
                g[j] += residual * d[j];
                for (std::size_t k = 0; k <= j; ++k) C[packed_index(j, k)] += d[j] * d[k];
            }
        }
        if (++result.matrices > kMatrixLimit) return false;
        X = B;
        return true;
    }

    /// A parameter on a bound is set free when the gradient leads back into the range.
    void release_bounds() {
        for (std::size_t i = 0; i < n; ++i) {
            if (mask[i] != Mask::AtUpper && mask[i] != Mask::AtLower) continue;
            if ((static_cast<double>(mask[i]) + 1.5) * g[i] > 0) {
                mask[i] = Mask::Free;
            } else {
                g[i] = 0;
            }
        }
    }

    /// The damped step into `delta`; false when the matrix is singular or the step leads uphill.
    bool find_step() {
        for (std::size_t j = 0; j < n; ++j) {
            for (std::size_t k = 0; k < j; ++k) A[packed_index(j, k)] = C[packed_index(j, k)];
            const std::size_t q = packed_index(j, j);
            A[q] = (1 + lambda) * C[q] + kPhi * lambda;
            delta[j] = -g[j];
        }
        if (!factorise_packed(A, static_cast<int>(n), mask)) return false;
        solve_packed(A, static_cast<int>(n), mask, delta);
        double gradproj = 0;
        for (std::size_t i = 0; i < n; ++i) {
            if (!is_free(mask[i])) delta[i] = 0;
            if (!std::isfinite(delta[i])) return false;
            gradproj += g[i] * delta[i];
        }
        return !(gradproj > 0);
    }

    /// The share of the step that the bounds allow.
    double step_length() const {
        double alpha = 1;
        for (std::size_t i = 0; i < n; ++i) {
            if (delta[i] == 0) continue;
            const double bound = delta[i] > 0 ? kBounds[i].upper : kBounds[i].lower;
            const double t = (bound - X[i]) / delta[i];
            if (!(t > alpha)) alpha = t;
        }
        return alpha;
    }

    /// B = X + alpha delta; true when no parameter changed: the search has converged.
    bool take_step(double alpha) {
        int equal = 0;
        for (std::size_t i = 0; i < n; ++i) {
            if (mask[i] == Mask::Fixed) continue;
            B[i] = X[i] + alpha * delta[i];
            if (kRelTest + B[i] == kRelTest + X[i]) {
                B[i] = X[i];
                ++equal;
            }
        }
        return equal == static_cast<int>(n) - masked;
    }

    /// Parameters that an accepted step has brought onto a bound rest there.
    void mark_bounds() {
        for (std::size_t i = 0; i < n; ++i) {
            if (!is_free(mask[i])) continue;
            const auto [lower, upper] = kBounds[i];
            if (B[i] - lower <= (std::fabs(lower) + kEps) * kEps) {
                mask[i] = Mask::AtLower;
            } else if (upper - B[i] <= (std::fabs(upper) + kEps) * kEps) {
                mask[i] = Mask::AtUpper;
            }
        }
    }

    enum class Try { Accepted, Converged, Limit };

    /// Damps more and more until a step lowers the sum or none changes the parameters any more.
    Try improve() {
        for (;;) {
            if (find_step()) {
                if (take_step(step_length())) return Try::Converged;
                if (!evaluate()) return Try::Limit;
                if (sum < best) return Try::Accepted;
            }
            lambda *= kIncrease;
            if (!(lambda > 0)) lambda = kEps;
            // Only sums beyond every number let the damping grow without end.
            if (!std::isfinite(lambda)) return Try::Limit;
        }
    }

    void statistics(int active_count, Parameters& std_dev) {
        result.has_std_dev = true;
        const int freedom = active_count - (static_cast<int>(n) - masked);
        A = C;
        const bool regular = factorise_packed(A, static_cast<int>(n), mask);
        result.singular = !regular;
        if (freedom <= 0 || !regular) {
            for (std::size_t j = 0; j < n; ++j) std_dev[j] = kNoStdDev;
            return;
        }
        const double variance = best / freedom;
        for (std::size_t j = 0; j < n; ++j) {
            Parameters unit{};
            unit[j] = 1;
            solve_packed(A, static_cast<int>(n), mask, unit);
            const double s = std::sqrt(std::fabs(variance) * unit[j]);
            std_dev[j] = std::isfinite(s) ? s : kNoStdDev;
        }
    }

    /// One pass of small probes round the result; false when the limit of evaluations is passed.
    bool post_analysis() {
        const double h0 = 10 * std::sqrt(kEps);
        for (std::size_t i = 0; i < n; ++i) {
            if (mask[i] == Mask::Fixed) continue;
            const double h = (std::fabs(X[i]) + h0) * h0;
            for (const double step : {-h, h}) {
                B[i] = X[i] + step;
                if (B[i] < kBounds[i].lower || B[i] > kBounds[i].upper) {
                    sum = 0;
                    continue;
                }
                if (!evaluate()) return false;
                if (sum < best) X = B;
            }
            B[i] = X[i];
        }
        return true;
    }

    MarquardtResult leave(bool failed, Parameters& par) {
        par = B;
        result.failed = failed || !std::isfinite(sum);
        // A sum beyond every number is shown as the largest one.
        const double largest = std::numeric_limits<double>::max();
        result.sum_squares = std::fmin(sum, largest);
        result.minimum = std::fmin(best, largest);
        result.mask = mask;
        return result;
    }
};

}  // namespace

bool factorise_packed(PackedMatrix& a, int n, const std::array<Mask, kMaxPar>& mask) {
    const auto size = static_cast<std::size_t>(n);
    for (std::size_t j = 0; j < size; ++j) {
        for (std::size_t i = j; i < size; ++i) {
            double s = a[packed_index(i, j)];
            for (std::size_t k = 0; k < j; ++k) s -= a[packed_index(i, k)] * a[packed_index(j, k)];
            a[packed_index(i, j)] = s;
        }
        double f = 0;
        if (is_free(mask[j])) {
            const double pivot = a[packed_index(j, j)];
            if (!(pivot > 0) || !std::isfinite(pivot)) return false;
            f = 1 / std::sqrt(pivot);
        }
        for (std::size_t i = j; i < size; ++i)
            a[packed_index(i, j)] = f == 0 ? 0 : f * a[packed_index(i, j)];
    }
    return true;
}

void solve_packed(const PackedMatrix& factor, int n, const std::array<Mask, kMaxPar>& mask,
                  Parameters& rhs) {
    const auto size = static_cast<std::size_t>(n);
    for (std::size_t i = 0; i < size; ++i) {
        for (std::size_t k = 0; k < i; ++k) rhs[i] -= factor[packed_index(i, k)] * rhs[k];
        rhs[i] = is_free(mask[i]) ? rhs[i] / factor[packed_index(i, i)] : 0;
    }
    for (std::size_t i = size; i-- > 0;) {
        for (std::size_t k = i + 1; k < size; ++k) rhs[i] -= factor[packed_index(k, i)] * rhs[k];
        rhs[i] = is_free(mask[i]) ? rhs[i] / factor[packed_index(i, i)] : 0;
    }
}

MarquardtResult marquardt_nash_fitting(FitProblem& problem, std::int16_t active_count,
                                       Parameters& par, Parameters& std_dev) {
    Search search(problem);
    search.place_start(par);
    if (!search.evaluate()) return search.leave(true, par);
    for (bool converged = false; !converged;) {
        if (!search.build_matrix()) return search.leave(true, par);
        search.release_bounds();
        switch (search.improve()) {
            case Search::Try::Limit:
                return search.leave(true, par);
            case Search::Try::Converged:
                converged = true;
                break;
            case Search::Try::Accepted:
                ++search.result.accepted;
                search.mark_bounds();
                break;
        }
    }
    search.statistics(active_count, std_dev);
    if (!search.post_analysis()) return search.leave(true, par);
    search.B = search.X;
    return search.leave(false, par);
}

}  // namespace quor::estimation
