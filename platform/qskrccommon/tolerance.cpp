// SPDX-License-Identifier: MIT
#include "tolerance.h"

#include <cmath>

namespace Vela::Common {

bool isEqual(double a, double b, const Tolerance& tolerance) noexcept {
  if (std::isnan(a) || std::isnan(b))
    return false;
  if (std::isinf(a) || std::isinf(b))
    return a == b; // an infinite magnitude would make the relative bound infinite
  // fmax passes over a NaN.
  const double magnitude = std::fmax(std::fabs(a), std::fabs(b));
  const double bound =
      std::fmax(std::fmax(tolerance.absolute, 0.0), std::fmax(tolerance.relative, 0.0) * magnitude);
  return std::fabs(a - b) <= bound;
}

bool isZero(double value, double absolute) noexcept { return std::fabs(value) <= std::fmax(absolute, 0.0); }

} // namespace Vela::Common
