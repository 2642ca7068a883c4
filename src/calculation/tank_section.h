#pragma once

namespace quor::calculation {

/// Height of the liquid in a lying cylinder as a share of its diameter, from the share of its
/// volume that the liquid fills (0 to 1; values beyond are taken as these). The section of the
/// liquid is a segment of a circle: share = (a - sin a)/(2 pi) with its angle a, and its height is
/// (1 - cos(a/2))/2 diameters.
double level_height(double share);

}  // namespace quor::calculation
