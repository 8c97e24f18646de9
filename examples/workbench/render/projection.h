// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/camera.h>

#include <QSize>

namespace Workbench {

/// The camera of one frame, prepared for many points. Positions are in samples of the frame.
struct Projection {
  Projection() = default;
  Projection(const Camera& camera, const QSize& samples);

  /// A point in the camera's axes, seen from the eye: right, up, and the depth along the direction of view.
  QVector3D toView(const QVector3D& point) const {
    const QVector3D p = point - eye;
    return {QVector3D::dotProduct(p, axes.right), QVector3D::dotProduct(p, axes.up),
            QVector3D::dotProduct(p, axes.forward)};
  }
  /// From the eye to the point at depth 1 that is seen at a position.
  QVector3D directionThrough(float x, float y) const {
    return axes.forward + axes.right * ((x - centerX) / focalLength) +
           axes.up * ((centerY - y) / focalLength);
  }

  QVector3D eye;
  CameraAxes axes;
  float focalLength = 1;
  float centerX = 0;
  float centerY = 0;
  float nearDistance = 1;
};

inline Projection::Projection(const Camera& camera, const QSize& samples)
    : eye(camera.eye()),
      axes(camera.axes()),
      focalLength(float(Camera::focalLength(samples))),
      centerX(float(samples.width()) / 2),
      centerY(float(samples.height()) / 2),
      nearDistance(float(camera.nearDistance())) {}

} // namespace Workbench
