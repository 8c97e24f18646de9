// SPDX-License-Identifier: MIT
#include "quadric.h"

namespace Workbench {

Quadric Quadric::ofPlane(const Vector3& normal, const Vector3& point, double weight) {
  const double offset = -dot(normal, point);
  const Vector3 n = normal * weight;
  Quadric q;
  q.m_xx = n.x * normal.x;
  q.m_xy = n.x * normal.y;
  q.m_xz = n.x * normal.z;
  q.m_yy = n.y * normal.y;
  q.m_yz = n.y * normal.z;
  q.m_zz = n.z * normal.z;
  q.m_linear = n * offset;
  q.m_constant = weight * offset * offset;
  return q;
}

Quadric Quadric::ofPoint(const Vector3& point, double weight) {
  Quadric q;
  q.m_xx = q.m_yy = q.m_zz = weight;
  q.m_linear = point * -weight;
  q.m_constant = weight * dot(point, point);
  return q;
}

Quadric& Quadric::operator+=(const Quadric& other) {
  m_xx += other.m_xx;
  m_xy += other.m_xy;
  m_xz += other.m_xz;
  m_yy += other.m_yy;
  m_yz += other.m_yz;
  m_zz += other.m_zz;
  m_linear = m_linear + other.m_linear;
  m_constant += other.m_constant;
  return *this;
}

std::optional<Vector3> Quadric::minimum(const Vector3& nearby) const {
  constexpr double LeastDeterminant = 1e-13; // of a matrix with a trace of 1
  // The rows of the adjugate matrix.
  const Vector3 row1(m_yy * m_zz - m_yz * m_yz, m_xz * m_yz - m_xy * m_zz, m_xy * m_yz - m_xz * m_yy);
  const Vector3 row2(row1.y, m_xx * m_zz - m_xz * m_xz, m_xy * m_xz - m_xx * m_yz);
  const Vector3 row3(row1.z, row2.z, m_xx * m_yy - m_xy * m_xy);
  const double determinant = m_xx * row1.x + m_xy * row1.y + m_xz * row1.z;
  const double trace = m_xx + m_yy + m_zz;
  if (!(determinant > LeastDeterminant * trace * trace * trace))
    return std::nullopt;
  const Vector3 gradient = apply(nearby) + m_linear;
  const Vector3 step(dot(row1, gradient), dot(row2, gradient), dot(row3, gradient));
  return nearby - step * (1 / determinant);
}

} // namespace Workbench
