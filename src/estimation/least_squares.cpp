#include "estimation/least_squares.h"

#include <Eigen/QR>
#include <cmath>

namespace quor::estimation {

namespace {

/// Few columns, any number of rows.
using Matrix =
    Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::ColMajor, Eigen::Dynamic, kMaxPar>;
using Square =
    Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::ColMajor, kMaxPar, kMaxPar>;

Square triangle_of(const ReducedProblem& problem) {
    const Eigen::Index n = problem.columns;
    Square r = Square::Zero(n, n);
    for (Eigen::Index i = 0; i < n; ++i)
        for (Eigen::Index j = i; j < n; ++j)
            r(i, j) = problem.r[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
    return r;
}

}  // namespace

ReducedProblem reduce(std::span<const LeastSquaresRow> rows, int columns, double dependent) {
    ReducedProblem problem;
    problem.columns = columns;
    const auto n = static_cast<std::size_t>(columns);
    if (rows.size() < n) return problem;

    const auto count = static_cast<Eigen::Index>(rows.size());
    Matrix coefficients(count, columns);
    Eigen::VectorXd target(count);
    for (Eigen::Index i = 0; i < count; ++i) {
        const LeastSquaresRow& row = rows[static_cast<std::size_t>(i)];
        for (Eigen::Index j = 0; j < columns; ++j)
            coefficients(i, j) = row[static_cast<std::size_t>(j)];
        target(i) = row[kMaxPar];
    }
    for (Eigen::Index j = 0; j < columns; ++j) {
        const double squares = coefficients.col(j).squaredNorm();
        problem.norm[static_cast<std::size_t>(j)] = std::sqrt(squares);
        problem.dependent_column = static_cast<int>(j);
        if (!(squares > 0) || !std::isfinite(squares)) return problem;
        coefficients.col(j) /= std::sqrt(squares);
    }

    // In place: the rows are many.
    const Eigen::HouseholderQR<Eigen::Ref<Matrix>> qr(coefficients);
    target.applyOnTheLeft(qr.householderQ().adjoint());
    for (Eigen::Index i = 0; i < columns; ++i) {
        LeastSquaresRow& row = problem.r[static_cast<std::size_t>(i)];
        for (Eigen::Index j = i; j < columns; ++j)
            row[static_cast<std::size_t>(j)] = qr.matrixQR()(i, j);
        row[kMaxPar] = target(i);
        problem.dependent_column = static_cast<int>(i);
        if (!(std::fabs(row[static_cast<std::size_t>(i)]) > dependent)) return problem;
    }
    problem.dependent_column = -1;
    problem.rest_squares = target.tail(count - columns).squaredNorm();
    problem.regular = true;
    return problem;
}

Parameters solution(const ReducedProblem& problem) {
    const Eigen::Index n = problem.columns;
    Eigen::VectorXd right(n);
    for (Eigen::Index i = 0; i < n; ++i) right(i) = problem.r[static_cast<std::size_t>(i)][kMaxPar];
    const Eigen::VectorXd solved = triangle_of(problem).triangularView<Eigen::Upper>().solve(right);
    Parameters x{};
    for (std::size_t j = 0; j < static_cast<std::size_t>(n); ++j)
        x[j] = solved(static_cast<Eigen::Index>(j)) / problem.norm[j];
    return x;
}

std::array<Parameters, kMaxPar> inverse_normal_matrix(const ReducedProblem& problem) {
    const Eigen::Index n = problem.columns;
    const Square inverse =
        triangle_of(problem).triangularView<Eigen::Upper>().solve(Square::Identity(n, n));
    const Square product = inverse * inverse.transpose();
    std::array<Parameters, kMaxPar> result{};
    for (std::size_t i = 0; i < static_cast<std::size_t>(n); ++i)
        for (std::size_t j = 0; j < static_cast<std::size_t>(n); ++j)
            result[i][j] = product(static_cast<Eigen::Index>(i), static_cast<Eigen::Index>(j)) /
                           (problem.norm[i] * problem.norm[j]);
    return result;
}

}  // namespace quor::estimation
