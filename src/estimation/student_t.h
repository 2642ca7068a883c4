#pragma once

namespace quor::estimation {

/// Regularised incomplete beta function I_x(a, b) for a, b > 0 and 0 <= x <= 1, by the continued
/// fraction of W. J. Lentz (M. Abramowitz, I. A. Stegun, Handbook of Mathematical
/// Functions, 26.5.8).
double incomplete_beta(double a, double b, double x);

/// Quantile of Student's t distribution: the t that is not exceeded with probability `probability`
/// (0 < probability < 1) at `freedom` >= 1 degrees of freedom.
double student_t_quantile(double probability, double freedom);

}  // namespace quor::estimation
