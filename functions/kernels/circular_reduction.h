// Reduction of angles of any size to the quadrant and its rest.
#pragma once

#include "functions/kernels/circular.h"

namespace plotvane::functions::kernels {

// Method of Payne and Hanek: x · 2/pi is formed from only those bits of 2/pi that can reach the last two bits
// of its whole part and its fraction. For finite |x| of at least 1.
[[nodiscard]] ReducedAngle ReduceLargeAngle(double x) noexcept;

}  // namespace plotvane::functions::kernels
