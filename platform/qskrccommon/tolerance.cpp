// SPDX-License-Identifier: MIT
#include "tolerance.h"

#include <cmath>

namespace Vela::Common {

namespace {

bool isNear(double a, double b, const Tolerance& tolerance) noexcept {
  if (std::isinf(a) || std::isinf(b))
    return false; // an infinite magnitude would make the relative bound infinite
  // fmax passes over a NaN.
  const double magnitude = std::fmax(std::fabs(a), std::fabs(b));
  const double bound =
      std::fmax(std::fmax(tolerance.absolute, 0.0), std::fmax(tolerance.relative, 0.0) * magnitude);
  return std::fabs(a - b) <= bound;
}

} // namespace

std::partial_ordering compare(double a, double b, const Tolerance& tolerance) noexcept {
  if (!std::isnan(a) && !std::isnan(b) && isNear(a, b, tolerance))
    return std::partial_ordering::equivalent;
  return a <=> b;
}

bool isZero(double value, double absolute) noexcept { return std::fabs(value) <= std::fmax(absolute, 0.0); }

} // namespace Vela::Common
