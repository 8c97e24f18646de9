// SPDX-License-Identifier: MIT
#include "camera.h"

#include <QtMath>

#include <cmath>

namespace Workbench {
namespace {

constexpr double FirstYaw = 30;
constexpr double FirstPitch = 20;
constexpr double FieldOfView = 35; // degrees, along the shorter side of the picture
constexpr double FitMargin = 1.06;
constexpr double NearestDistance = 1e-3; // in radii of the scene
constexpr double FarthestDistance = 1e3;

double usable(double length) { return std::max(length, 1.0); }

double wrapDegrees(double angle) { return std::remainder(angle, 360.0); }

float dot(const QVector3D& a, const QVector3D& b) { return QVector3D::dotProduct(a, b); }

} // namespace

double Camera::focalLength(const QSizeF& viewport) {
  const double shorter = usable(std::min(viewport.width(), viewport.height()));
  return shorter / 2 / std::tan(qDegreesToRadians(FieldOfView / 2));
}

void Camera::resetAngles() {
  m_yaw = FirstYaw;
  m_pitch = FirstPitch;
}

void Camera::fit(const Bounds& bounds, const QSizeF& viewport) {
  std::vector<QVector3D> corners;
  for (int corner = 0; corner < 8; ++corner)
    corners.emplace_back((corner & 1) != 0 ? bounds.min.x() : bounds.max.x(),
                         (corner & 2) != 0 ? bounds.min.y() : bounds.max.y(),
                         (corner & 4) != 0 ? bounds.min.z() : bounds.max.z());
  m_target = bounds.center();
  m_sceneRadius = double(bounds.size().length()) / 2;
  if (!(m_sceneRadius > 0))
    m_sceneRadius = 1;
  m_distance = distanceShowing(corners, viewport, viewport);
}

void Camera::fit(const Mesh& mesh, const QSizeF& viewport, const QSizeF& clear) {
  fit(mesh.bounds(), viewport);
  if (!mesh.isEmpty())
    m_distance = distanceShowing(mesh.positions(), viewport, clear.isEmpty() ? viewport : clear);
}

double Camera::distanceShowing(const std::vector<QVector3D>& points, const QSizeF& viewport,
                               const QSizeF& clear) const {
  const double focal = focalLength(viewport);
  const double slopeX = usable(clear.width()) / 2 / focal;
  const double slopeY = usable(clear.height()) / 2 / focal;
  const CameraAxes axis = axes();
  double distance = 0;
  for (const QVector3D& point : points) {
    const QVector3D p = point - m_target;
    const double x = std::abs(dot(p, axis.right)) / slopeX;
    const double y = std::abs(dot(p, axis.up)) / slopeY;
    distance = std::max(distance, std::max(x, y) - dot(p, axis.forward));
  }
  // A point alone is seen from some way off.
  return (distance > m_sceneRadius * NearestDistance ? distance : m_sceneRadius * 4) * FitMargin;
}

void Camera::place(const QVector3D& target, double yaw, double pitch, double distance) {
  m_target = target;
  m_yaw = yaw;
  m_pitch = pitch;
  m_distance = distance;
}

void Camera::orbit(double yaw, double pitch) {
  m_yaw = wrapDegrees(m_yaw + yaw);
  m_pitch = std::clamp(m_pitch + pitch, -90.0, 90.0);
}

void Camera::pan(const QPointF& pixels, const QSizeF& viewport) {
  const double unitsPerPixel = m_distance / focalLength(viewport);
  const CameraAxes axis = axes();
  m_target -= axis.right * float(pixels.x() * unitsPerPixel) - axis.up * float(pixels.y() * unitsPerPixel);
}

void Camera::lookAt(const QVector3D& target) {
  const double depth = dot(target - eye(), axes().forward);
  if (depth < nearDistance())
    return;
  m_target = target;
  m_distance = std::max(depth, m_sceneRadius * NearestDistance);
}

void Camera::zoomAt(double factor, const QVector3D& anchor) {
  if (!(factor > 0))
    return;
  const double distance =
      std::clamp(m_distance / factor, m_sceneRadius * NearestDistance, m_sceneRadius * FarthestDistance);
  m_target = anchor + (m_target - anchor) * float(distance / m_distance);
  m_distance = distance;
}

QVector3D Camera::pointInTargetPlane(const QPointF& position, const QSizeF& viewport) const {
  const Ray ray = rayThrough(position, viewport);
  return ray.origin + ray.direction * float(m_distance);
}

Ray Camera::rayThrough(const QPointF& position, const QSizeF& viewport) const {
  const double focal = focalLength(viewport);
  const CameraAxes axis = axes();
  const auto x = float((position.x() - viewport.width() / 2) / focal);
  const auto y = float((viewport.height() / 2 - position.y()) / focal);
  return {eye(), axis.forward + axis.right * x + axis.up * y};
}

std::optional<QPointF> Camera::project(const QVector3D& point, const QSizeF& viewport) const {
  const CameraAxes axis = axes();
  const QVector3D fromEye = point - eye();
  const double depth = dot(fromEye, axis.forward);
  if (depth < nearDistance())
    return std::nullopt;
  const double scale = focalLength(viewport) / depth;
  return QPointF(viewport.width() / 2 + dot(fromEye, axis.right) * scale,
                 viewport.height() / 2 - dot(fromEye, axis.up) * scale);
}

QVector3D Camera::eye() const { return m_target - axes().forward * float(m_distance); }

CameraAxes Camera::axes() const {
  const double yaw = qDegreesToRadians(m_yaw);
  const double pitch = qDegreesToRadians(m_pitch);
  const double cosYaw = std::cos(yaw);
  const double sinYaw = std::sin(yaw);
  const double cosPitch = std::cos(pitch);
  const double sinPitch = std::sin(pitch);
  return {QVector3D(float(cosYaw), 0, float(-sinYaw)),
          QVector3D(float(-sinYaw * sinPitch), float(cosPitch), float(-cosYaw * sinPitch)),
          QVector3D(float(-sinYaw * cosPitch), float(-sinPitch), float(-cosYaw * cosPitch))};
}

} // namespace Workbench
