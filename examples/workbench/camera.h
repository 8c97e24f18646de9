// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/mesh.h>

#include <QPointF>
#include <QSizeF>
#include <QVector3D>

#include <optional>

namespace Workbench {

/// The three axes of a camera in the scene, unit vectors at right angles.
struct CameraAxes {
  QVector3D right;
  QVector3D up;
  QVector3D forward; ///< The direction of view.
};

/// A half-line from the eye through a point of the picture.
struct Ray {
  QVector3D origin;
  QVector3D direction; ///< Its part along the camera's forward axis has length 1.
};

/// A perspective camera that looks at a target and orbits around it; the scene's y axis points up.
///
/// A value: a tool copies the camera at the start of an operation and derives from that copy. Angles are in
/// degrees. Picture positions and sizes are in pixels, (0, 0) at the top left corner; logical and device
/// pixels serve alike, so long as position and size agree.
///
/// @code
/// Camera camera;
/// camera.fit(mesh.bounds(), view.size());
/// camera.orbit(30, -10);
/// @endcode
class Camera {
public:
  Camera() = default;

  /// Looks at the middle of a box from where all of it fills the picture; the angles stay as they are.
  void fit(const Bounds& bounds, const QSizeF& viewport);
  /// The same for a mesh, as near as its vertices allow; its bounds are turned around the middle.
  /// @param clear  the part in the middle of the picture that it fills; all of it when empty
  void fit(const Mesh& mesh, const QSizeF& viewport, const QSizeF& clear = {});
  /// Turns to the first angles: from the front, a little to the right and from above.
  void resetAngles();

  /// Turns around the target: to the right by @p yaw and up by @p pitch degrees. The pitch ends at the
  /// poles.
  void orbit(double yaw, double pitch);
  /// Shifts the picture by @p pixels: what lies in the plane of the target follows exactly.
  void pan(const QPointF& pixels, const QSizeF& viewport);
  /// Looks at another target from the same direction, the eye at the same distance from the target's plane:
  /// the picture is only shifted. Ignores a target that is not in front of the eye.
  void lookAt(const QVector3D& target);
  /// Moves towards @p anchor (a factor greater than 1) or away from it; the anchor keeps its place in the
  /// picture. Ignores a factor that is not positive; the distance stays within the limits of the scene.
  void zoomAt(double factor, const QVector3D& anchor);

  /// Stands where another one did, by its target(), yaw(), pitch() and distance().
  void place(const QVector3D& target, double yaw, double pitch, double distance);

  /// The point of the plane through the target, facing the camera, that is seen at @p position.
  QVector3D pointInTargetPlane(const QPointF& position, const QSizeF& viewport) const;
  Ray rayThrough(const QPointF& position, const QSizeF& viewport) const;
  /// Where a point of the scene is seen; nothing for a point nearer than nearDistance() or behind the eye.
  std::optional<QPointF> project(const QVector3D& point, const QSizeF& viewport) const;

  QVector3D eye() const;
  QVector3D target() const noexcept { return m_target; }
  CameraAxes axes() const;
  double yaw() const noexcept { return m_yaw; }     ///< -180 to 180.
  double pitch() const noexcept { return m_pitch; } ///< -90 (from below) to 90.
  double distance() const noexcept { return m_distance; }
  /// Nothing nearer than this, along the direction of view, is seen.
  double nearDistance() const noexcept { return m_distance * 1e-3; }
  /// Pixels in the picture that one unit covers at distance 1.
  static double focalLength(const QSizeF& viewport);

  friend bool operator==(const Camera&, const Camera&) = default;

private:
  double distanceShowing(const std::vector<QVector3D>& points, const QSizeF& viewport,
                         const QSizeF& clear) const;

  QVector3D m_target;
  double m_yaw = 30;
  double m_pitch = 20;
  double m_distance = 5;
  double m_sceneRadius = 1;
};

} // namespace Workbench
