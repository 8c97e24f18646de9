// SPDX-License-Identifier: MIT
#include "surface_shader.h"

namespace Workbench {
namespace {

constexpr float LineWidth = 1;        // pixels, half of it on either side of the edge
constexpr double FaintestHeight = 2;  // pixels; in lower faces no edge is drawn
constexpr double StrongestHeight = 8; // pixels; in higher faces edges are drawn in full

} // namespace

SurfaceShader::SurfaceShader(const SurfaceScene& scene, const QPoint& origin)
    : m_scene(scene),
      m_direction(scene.projection.directionThrough(float(origin.x()) + 0.5F, float(origin.y()) + 0.5F)),
      m_stepX(Vector3(scene.projection.axes.right) * (1 / double(scene.projection.focalLength))),
      m_stepY(Vector3(scene.projection.axes.up) * (-1 / double(scene.projection.focalLength))) {}

void SurfaceShader::setUp(Face& face, std::uint32_t triangle) const {
  const Mesh& mesh = m_scene.mesh;
  const Mesh::Triangle& t = mesh.triangles()[triangle];
  const Vector3 eye(m_scene.projection.eye);
  std::array<Vector3, 3> points;
  for (std::size_t i = 0; i < 3; ++i)
    points[i] = Vector3(mesh.positions()[t[i]]) - eye;
  const Vector3 area = cross(points[1] - points[0], points[2] - points[0]);
  const double size = length(area);
  const double determinant = dot(area, points[0]);
  const bool backSide = determinant > 0;
  const double towardsEye = backSide ? -1 : 1;

  face.triangle = triangle;
  face.normal = size > 0 ? (area * (towardsEye / size)).toFloat() : QVector3D();
  face.material = materialOf(backSide, m_scene.selection.contains(triangle));
  if (m_scene.shading != SmoothShading)
    face.light = m_scene.lighting.shade(face.normal, face.material);
  if (m_scene.shading == FlatShading)
    return;
  // The plane through the eye and an edge: which side of it a direction is on, and how far, grows linearly
  // over the frame. It also says how much the corner across from the edge counts.
  const double scale = size > 0 ? -towardsEye / size : 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const Vector3& from = points[(i + 1) % 3];
    const Vector3& to = points[(i + 2) % 3];
    face.corners[i] = planeOf(cross(from, to - from), scale);
  }
  if (m_scene.shading == SmoothShading)
    setUpNormals(face, t, backSide);
  else
    setUpEdges(face, points, std::abs(determinant * scale));
}

SurfaceShader::Plane SurfaceShader::planeOf(const Vector3& side, double scale) const {
  return {float(dot(side, m_direction) * scale), float(dot(side, m_stepX) * scale),
          float(dot(side, m_stepY) * scale)};
}

void SurfaceShader::setUpNormals(Face& face, const Mesh::Triangle& corners, bool backSide) const {
  for (std::size_t i = 0; i < 3; ++i) {
    const QVector3D& normal = m_scene.mesh.vertexNormals()[corners[i]];
    face.normals[i] = backSide ? -normal : normal;
  }
}

// Scales the planes to pixels, and finds how high the face is seen over its edges.
void SurfaceShader::setUpEdges(Face& face, const std::array<Vector3, 3>& points, double determinant) const {
  double lowest = StrongestHeight;
  for (std::size_t i = 0; i < 3; ++i) {
    Plane& plane = face.corners[i];
    const double slope = std::hypot(double(plane.slopeX), double(plane.slopeY));
    const double perPixel = slope > 0 ? 1 / (slope * double(m_scene.pixelSize)) : 0;
    plane = {float(plane.base * perPixel), float(plane.slopeX * perPixel), float(plane.slopeY * perPixel)};
    const double depth = dot(points[i], Vector3(m_scene.projection.axes.forward));
    if (depth > 0)
      lowest = std::min(lowest, determinant / depth * perPixel);
  }
  const double strength = (lowest - FaintestHeight) / (StrongestHeight - FaintestHeight);
  face.edgeStrength = float(std::clamp(strength, 0.0, 1.0));
}

QVector3D SurfaceShader::withEdges(const Face& face, int x, int y) const {
  const float distance =
      std::min({face.corners[0].at(x, y), face.corners[1].at(x, y), face.corners[2].at(x, y)});
  const float coverage = std::clamp((LineWidth + 1) / 2 - distance, 0.0F, 1.0F) * face.edgeStrength;
  return face.light + (m_scene.lighting.edges() - face.light) * coverage;
}

} // namespace Workbench
