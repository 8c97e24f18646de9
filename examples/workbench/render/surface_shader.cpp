// SPDX-License-Identifier: MIT
#include "surface_shader.h"

#include <workbench/render/tile.h>

namespace Workbench {
namespace {

float dot(const QVector3D& a, const QVector3D& b) { return QVector3D::dotProduct(a, b); }

} // namespace

SurfaceShader::SurfaceShader(const Mesh& mesh, const Projection& projection, const Lighting& lighting,
                             const TriangleSelection& selection, EShading shading)
    : m_mesh(mesh),
      m_projection(projection),
      m_lighting(lighting),
      m_selection(selection),
      m_shading(shading),
      m_triangle(Tile::NoTriangle) {}

QVector3D SurfaceShader::shade(std::uint32_t triangle, float x, float y, float inverseDepth) {
  if (triangle != m_triangle)
    select(triangle);
  if (m_shading != SmoothShading)
    return m_flatLight;
  const QVector3D fromEye = m_projection.directionThrough(x, y) / inverseDepth;
  return m_lighting.shade(normalAt(fromEye - m_corner), m_backSide);
}

void SurfaceShader::select(std::uint32_t triangle) {
  m_triangle = triangle;
  const Mesh::Triangle& t = m_mesh.triangles()[triangle];
  const QVector3D& a = m_mesh.positions()[t[0]];
  const QVector3D ab = m_mesh.positions()[t[1]] - a;
  const QVector3D ac = m_mesh.positions()[t[2]] - a;
  m_corner = a - m_projection.eye;
  m_faceNormal = m_mesh.faceNormal(triangle);
  m_backSide = dot(m_faceNormal, m_corner) > 0;
  if (m_backSide)
    m_faceNormal = -m_faceNormal;
  if (m_shading != SmoothShading) {
    m_flatLight = m_lighting.shade(m_faceNormal, m_backSide);
    return;
  }
  // The weights of the corners are linear in the position within the triangle's plane.
  const float bb = dot(ab, ab);
  const float bc = dot(ab, ac);
  const float cc = dot(ac, ac);
  const float determinant = bb * cc - bc * bc;
  const float scale = determinant > 0 ? 1 / determinant : 0;
  m_gradientB = (ab * cc - ac * bc) * scale;
  m_gradientC = (ac * bb - ab * bc) * scale;
  for (std::size_t i = 0; i < 3; ++i) {
    const QVector3D& normal = m_mesh.vertexNormals()[t[i]];
    m_normals[i] = m_backSide ? -normal : normal;
  }
}

QVector3D SurfaceShader::normalAt(const QVector3D& fromCorner) const {
  const float b = std::clamp(dot(fromCorner, m_gradientB), 0.0F, 1.0F);
  const float c = std::clamp(dot(fromCorner, m_gradientC), 0.0F, 1.0F - b);
  const QVector3D normal = m_normals[0] * (1 - b - c) + m_normals[1] * b + m_normals[2] * c;
  const float square = dot(normal, normal);
  return square > 0 ? normal / std::sqrt(square) : m_faceNormal;
}

} // namespace Workbench
