// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/vector3.h>

#include <optional>

namespace Workbench {

/// A sum of weighted squared distances, as a function of the point they are measured from.
class Quadric {
public:
  Quadric() = default;
  /// The distance to the plane through @p point, at a right angle to the unit vector @p normal.
  static Quadric ofPlane(const Vector3& normal, const Vector3& point, double weight);
  static Quadric ofPoint(const Vector3& point, double weight);

  Quadric& operator+=(const Quadric& other);
  friend Quadric operator+(Quadric a, const Quadric& b) { return a += b; }

  double at(const Vector3& p) const { return dot(p, apply(p)) + 2 * dot(p, m_linear) + m_constant; }
  /// Where the sum is least, found from a point nearby; nothing where that is a line or a plane.
  std::optional<Vector3> minimum(const Vector3& nearby) const;

private:
  // The matrix is symmetric.
  Vector3 apply(const Vector3& p) const {
    return {m_xx * p.x + m_xy * p.y + m_xz * p.z, m_xy * p.x + m_yy * p.y + m_yz * p.z,
            m_xz * p.x + m_yz * p.y + m_zz * p.z};
  }

  double m_xx = 0;
  double m_xy = 0;
  double m_xz = 0;
  double m_yy = 0;
  double m_yz = 0;
  double m_zz = 0;
  Vector3 m_linear;
  double m_constant = 0;
};

} // namespace Workbench
