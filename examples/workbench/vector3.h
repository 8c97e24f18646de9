// SPDX-License-Identifier: MIT
#pragma once

#include <QVector3D>

#include <cmath>

namespace Workbench {

/// A point or vector in double precision. Products of coordinates are formed in it: they leave the range of
/// float long before the coordinates themselves do.
struct Vector3 {
  double x = 0;
  double y = 0;
  double z = 0;

  Vector3() = default;
  Vector3(double px, double py, double pz) : x(px), y(py), z(pz) {}
  explicit Vector3(const QVector3D& v) : x(double(v.x())), y(double(v.y())), z(double(v.z())) {}

  QVector3D toFloat() const { return {float(x), float(y), float(z)}; }

  friend Vector3 operator+(const Vector3& a, const Vector3& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
  friend Vector3 operator-(const Vector3& a, const Vector3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
  friend Vector3 operator*(const Vector3& a, double s) { return {a.x * s, a.y * s, a.z * s}; }
  friend double dot(const Vector3& a, const Vector3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
  friend Vector3 cross(const Vector3& a, const Vector3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
  }
  friend double length(const Vector3& a) { return std::sqrt(dot(a, a)); }
};

} // namespace Workbench
