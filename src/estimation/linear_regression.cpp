#include "estimation/linear_regression.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "common/faults.h"
#include "estimation/least_squares.h"
#include "estimation/model_functions.h"

namespace quor::estimation {

namespace {

/// The first pass solves, the others take rounding errors away.
constexpr int kPasses = 4;

/// Parameters of the combi-expression whose basis needs x > 0.
constexpr std::array<std::size_t, 3> kNeedPositiveX{4, 5, 6};

bool x_must_be_positive(const FitProblem& problem, BasisFunction basis) {
    return basis == combi_basis && std::any_of(kNeedPositiveX.begin(), kNeedPositiveX.end(),
                                               [&](std::size_t i) { return !problem.fixed[i]; });
}

/// A linear problem over its active points.
struct Regression {
    const FitProblem& problem;
    std::vector<Parameters> basis{};      // of every active point
    std::vector<double> x{}, y{};         // of every active point
    std::vector<std::size_t> terms{};     // parameters that are adjusted
    std::vector<LeastSquaresRow> rows{};  // kept for their memory

    Regression(const FitProblem& p, BasisFunction functions) : problem(p) {
        for (const datafiles::FitPoint& point : problem.points) {
            if (!is_active(point)) continue;
            x.push_back(static_cast<double>(point.x));
            y.push_back(static_cast<double>(point.y));
            functions(x.back(), basis.emplace_back());
        }
        for (std::size_t i = 0; i < static_cast<std::size_t>(problem.parameter_count); ++i)
            if (!problem.fixed[i]) terms.push_back(i);
        rows.resize(basis.size());
    }

    /// Sum of squares of the function itself at `par`, infinite where it has no value; the
    /// residuals become the right-hand side of the rows.
    double residuals(const Parameters& par) {
        double sum = 0;
        for (std::size_t k = 0; k < rows.size(); ++k) {
            double calculated = 0;
            if (!evaluate_model(problem, par, x[k], calculated))
                return std::numeric_limits<double>::infinity();
            rows[k][kMaxPar] = y[k] - calculated;
            sum += rows[k][kMaxPar] * rows[k][kMaxPar];
        }
        return sum;
    }

    ReducedProblem reduced() {
        for (std::size_t k = 0; k < rows.size(); ++k)
            for (std::size_t c = 0; c < terms.size(); ++c) rows[k][c] = basis[k][terms[c]];
        return reduce(rows, static_cast<int>(terms.size()), kDependentExact);
    }

    /// Leaves out each term that depends on those before it. False for sums beyond every number.
    bool leave_dependent_terms() {
        for (;;) {
            const ReducedProblem problem_now = reduced();
            if (problem_now.regular || terms.empty()) return true;
            const int column = problem_now.dependent_column;
            if (column < 0) {  // there are more terms than points
                terms.pop_back();
                continue;
            }
            if (!std::isfinite(problem_now.norm[static_cast<std::size_t>(column)])) return false;
            terms.erase(terms.begin() + column);
        }
    }
};

}  // namespace

Result<LinearResult> linear_regression_fit(const FitProblem& problem, BasisFunction basis) {
    if (x_must_be_positive(problem, basis) &&
        std::any_of(problem.points.begin(), problem.points.end(),
                    [](const datafiles::FitPoint& p) { return is_active(p) && !(p.x > 0); }))
        return Failure{"For this fitting model all actíve x-values have to be greater than zero."};
    Regression regression(problem, basis);
    if (!regression.leave_dependent_terms()) return Failure{faults::kOverflow};

    LinearResult best;
    best.sum_squares = regression.residuals(best.par);
    for (int pass = 0; pass < kPasses && !regression.terms.empty(); ++pass) {
        const Parameters step = solution(regression.reduced());
        Parameters next = best.par;
        for (std::size_t c = 0; c < regression.terms.size(); ++c)
            next[regression.terms[c]] += step[c];
        const double sum = regression.residuals(next);
        if (!(sum < best.sum_squares)) break;
        best = {sum, next};
    }
    if (!std::isfinite(best.sum_squares)) return Failure{faults::kOverflow};
    return best;
}

}  // namespace quor::estimation
