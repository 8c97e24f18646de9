// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/camera.h>
#include <workbench/render/render_style.h>

#include <QRgb>
#include <QVector3D>

#include <algorithm>
#include <array>
#include <cstdint>

namespace Workbench {

/// The light of a colour of the display; light adds up. Red, green and blue from 0 to 1.
QVector3D toLinear(const QColor& color);

/// Turns light into colours of the display, by a table made once.
class DisplayColors {
public:
  static const DisplayColors& instance();

  /// Light outside 0 to 1 is clipped.
  QRgb operator()(const QVector3D& light) const {
    return qRgb(m_table[indexOf(light.x())], m_table[indexOf(light.y())], m_table[indexOf(light.z())]);
  }

private:
  static constexpr int Steps = 4096;

  DisplayColors();
  static std::size_t indexOf(float light) {
    // Rounding functions are slow, and light is not negative. NOLINTNEXTLINE(bugprone-incorrect-roundings)
    return std::size_t(std::clamp(int(light * float(Steps - 1) + 0.5F), 0, Steps - 1));
  }

  std::array<std::uint8_t, Steps> m_table;
};

/// The materials of a mesh.
enum Material : std::uint8_t { Outside, BackSide, SelectedOutside, SelectedBackSide };

constexpr Material materialOf(bool backSide, bool selected) {
  if (selected)
    return backSide ? SelectedBackSide : SelectedOutside;
  return backSide ? BackSide : Outside;
}

/// Lights that move with the camera: a warm key light from the upper left, a cool fill from the right, a rim
/// from behind and a little light from all around.
class Lighting {
public:
  Lighting(const CameraAxes& axes, const RenderStyle& style);

  /// Light of a surface point. @p normal is a unit vector on the side that is seen.
  QVector3D shade(const QVector3D& normal, Material material) const;
  /// Light of the lines between faces.
  const QVector3D& edges() const noexcept { return m_edges; }
  /// Light of the background at a height from 0 (top) to 1.
  QVector3D background(float height) const;

private:
  static constexpr QVector3D GroundColor{0.065F, 0.06F, 0.058F};
  static constexpr QVector3D HighlightColor{0.085F, 0.085F, 0.08F};
  static constexpr std::size_t LightCount = 4;
  using PerLight = std::array<float, LightCount>; // side by side, for vector instructions

  void setLight(std::size_t index, const QVector3D& direction, float offset, const QVector3D& color);

  // A light of a color falls in with offset + the normal times the direction.
  PerLight m_x{};
  PerLight m_y{};
  PerLight m_z{};
  PerLight m_offset{};
  PerLight m_red{};
  PerLight m_green{};
  PerLight m_blue{};
  QVector3D m_highlight; // half way between the key light and the eye
  std::array<QVector3D, 4> m_materials;
  QVector3D m_edges;
  QVector3D m_backgroundTop;
  QVector3D m_backgroundBottom;
};

// Here, as every sample calls it.
inline QVector3D Lighting::shade(const QVector3D& normal, Material material) const {
  PerLight light;
  for (std::size_t i = 0; i < LightCount; ++i)
    light[i] = std::max(m_offset[i] + m_x[i] * normal.x() + m_y[i] * normal.y() + m_z[i] * normal.z(), 0.0F);
  QVector3D sum = GroundColor;
  for (std::size_t i = 0; i < LightCount; ++i)
    sum += QVector3D(m_red[i], m_green[i], m_blue[i]) * light[i];
  float highlight = std::max(QVector3D::dotProduct(normal, m_highlight), 0.0F);
  for (int i = 0; i < 5; ++i)
    highlight *= highlight;
  return m_materials[material] * sum + HighlightColor * highlight;
}

} // namespace Workbench
