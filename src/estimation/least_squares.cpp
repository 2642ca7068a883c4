#include "estimation/least_squares.h"

#include <cmath>

namespace quor::estimation {

namespace {

/// A column of unit length counts as dependent on the others when less than this is left of it.
constexpr double kDependent = 1e-8;

}  // namespace

ReducedProblem reduce(std::vector<LeastSquaresRow>& rows, int columns) {
    ReducedProblem problem;
    problem.columns = columns;
    const auto n = static_cast<std::size_t>(columns);
    if (rows.size() < n) return problem;

    problem.regular = true;
    for (std::size_t j = 0; j < n; ++j) {
        double squares = 0;
        for (const LeastSquaresRow& row : rows) squares += row[j] * row[j];
        problem.norm[j] = std::sqrt(squares);
        if (!(squares > 0) || !std::isfinite(squares)) {
            problem.regular = false;
            return problem;
        }
        for (LeastSquaresRow& row : rows) row[j] /= problem.norm[j];
    }
    for (std::size_t j = 0; j < n; ++j) {
        double squares = 0;
        for (std::size_t i = j; i < rows.size(); ++i) squares += rows[i][j] * rows[i][j];
        const double length = std::sqrt(squares);
        if (!(length > kDependent)) {
            problem.regular = false;
            return problem;
        }
        // Reflection of the column onto its first element, v = column + sign length e1.
        const double diagonal = rows[j][j] > 0 ? -length : length;
        rows[j][j] -= diagonal;
        const double half = -diagonal * rows[j][j];  // v.v / 2
        for (std::size_t c = j + 1; c <= n; ++c) {
            const std::size_t column = c == n ? kMaxPar : c;
            double product = 0;
            for (std::size_t i = j; i < rows.size(); ++i) product += rows[i][j] * rows[i][column];
            const double factor = product / half;
            for (std::size_t i = j; i < rows.size(); ++i) rows[i][column] -= factor * rows[i][j];
        }
        problem.r[j] = rows[j];
        problem.r[j][j] = diagonal;
    }
    for (std::size_t i = n; i < rows.size(); ++i)
        problem.restSquares += rows[i][kMaxPar] * rows[i][kMaxPar];
    return problem;
}

Parameters solution(const ReducedProblem& problem) {
    const auto n = static_cast<std::size_t>(problem.columns);
    Parameters x{};
    for (std::size_t j = n; j-- > 0;) {
        double s = problem.r[j][kMaxPar];
        for (std::size_t k = j + 1; k < n; ++k) s -= problem.r[j][k] * x[k];
        x[j] = s / problem.r[j][j];
    }
    for (std::size_t j = 0; j < n; ++j) x[j] /= problem.norm[j];
    return x;
}

std::array<Parameters, kMaxPar> inverse_normal_matrix(const ReducedProblem& problem) {
    const auto n = static_cast<std::size_t>(problem.columns);
    std::array<Parameters, kMaxPar> inverse{};  // of the triangle, column by column
    for (std::size_t c = 0; c < n; ++c) {
        for (std::size_t j = c + 1; j-- > 0;) {
            double s = j == c ? 1 : 0;
            for (std::size_t k = j + 1; k <= c; ++k) s -= problem.r[j][k] * inverse[k][c];
            inverse[j][c] = s / problem.r[j][j];
        }
    }
    std::array<Parameters, kMaxPar> result{};
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t j = 0; j < n; ++j) {
            double s = 0;
            for (std::size_t k = 0; k < n; ++k) s += inverse[i][k] * inverse[j][k];
            result[i][j] = s / (problem.norm[i] * problem.norm[j]);
        }
    }
    return result;
}

}  // namespace quor::estimation
