// SPDX-License-Identifier: MIT
#pragma once

#include <qskrccommon/qskrccommon_export.h>

namespace Vela::Common {

/// How far two numbers may lie apart and still count as equal: \c absolute, or \c relative times the larger
/// magnitude of the two, whichever is larger. Values below zero, and NaN, count as zero.
struct Tolerance {
  double absolute = 1e-9;
  double relative = 1e-9;
};

/// \name Comparison of doubles with a tolerance
///
/// For any two numbers exactly one of isLess(), isEqual() and isGreater() holds, except that all three are
/// false when one of them is NaN, which is not even equal to itself. An infinity equals only the infinity of
/// its sign. Equality is not transitive: a chain of near values may drift apart, so do not sort by these
/// functions.
///
/// An application that has a mathematics library of its own may replace this one. Safe on any thread.
///
/// \code
/// if (Vela::Common::isEqual(0.1 + 0.2, 0.3))
///   ...
/// if (Vela::Common::isZero(area, 1e-6)) // the triangle has no area
///   ...
/// \endcode
/// @{

/// Neither less nor greater by more than the tolerance; false when one of them is NaN.
QSKRC_COMMON_EXPORT bool isEqual(double a, double b, const Tolerance& tolerance = {}) noexcept;

/// True when \a value is not further than \a absolute from zero. A relative tolerance would say nothing here.
QSKRC_COMMON_EXPORT bool isZero(double value, double absolute = Tolerance{}.absolute) noexcept;

/// Less by more than the tolerance.
inline bool isLess(double a, double b, const Tolerance& tolerance = {}) noexcept {
  return a < b && !isEqual(a, b, tolerance);
}
inline bool isLessOrEqual(double a, double b, const Tolerance& tolerance = {}) noexcept {
  return a < b || isEqual(a, b, tolerance);
}
/// Greater by more than the tolerance.
inline bool isGreater(double a, double b, const Tolerance& tolerance = {}) noexcept {
  return isLess(b, a, tolerance);
}
inline bool isGreaterOrEqual(double a, double b, const Tolerance& tolerance = {}) noexcept {
  return isLessOrEqual(b, a, tolerance);
}
/// @}

} // namespace Vela::Common
