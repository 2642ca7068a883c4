#include "estimation/student_t.h"

#include <boost/math/distributions/students_t.hpp>

namespace quor::estimation {

double student_t_quantile(double probability, double freedom) {
    return boost::math::quantile(boost::math::students_t(freedom), probability);
}

}  // namespace quor::estimation
