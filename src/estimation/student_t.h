#pragma once

namespace quor::estimation {

/// Quantile of Student's t distribution: the t that is not exceeded with probability `probability`
/// (0 < probability < 1) at `freedom` >= 1 degrees of freedom.
double student_t_quantile(double probability, double freedom);

}  // namespace quor::estimation
