// SPDX-License-Identifier: MIT
#include "lighting.h"

#include <cmath>

namespace Workbench {
namespace {

constexpr QVector3D KeyColor(0.90F, 0.87F, 0.81F);
constexpr QVector3D FillColor(0.15F, 0.18F, 0.23F);
constexpr QVector3D RimColor(0.16F, 0.18F, 0.20F);
constexpr QVector3D SkyColor(0.185F, 0.20F, 0.225F);

float linearOf(float display) {
  return display <= 0.04045F ? display / 12.92F : std::pow((display + 0.055F) / 1.055F, 2.4F);
}

} // namespace

QVector3D toLinear(const QColor& color) {
  return {linearOf(float(color.redF())), linearOf(float(color.greenF())), linearOf(float(color.blueF()))};
}

const DisplayColors& DisplayColors::instance() {
  static const DisplayColors colors;
  return colors;
}

DisplayColors::DisplayColors() {
  for (std::size_t i = 0; i < m_table.size(); ++i) {
    const float light = float(i) / float(Steps - 1);
    const float display = light <= 0.0031308F ? light * 12.92F : 1.055F * std::pow(light, 1 / 2.4F) - 0.055F;
    m_table[i] = std::uint8_t(std::lround(display * 255));
  }
}

Lighting::Lighting(const CameraAxes& axes, const RenderStyle& style)
    : m_materials{toLinear(style.surface), toLinear(style.backSide), toLinear(style.selected),
                  toLinear(style.selectedBackSide)},
      m_edges(toLinear(style.edges)),
      m_backgroundTop(toLinear(style.backgroundTop)),
      m_backgroundBottom(toLinear(style.backgroundBottom)) {
  const auto towards = [&axes](float right, float up, float eye) {
    return (axes.right * right + axes.up * up - axes.forward * eye).normalized();
  };
  const QVector3D key = towards(-0.50F, 0.62F, 0.60F);
  setLight(0, axes.up * 0.5F, 0.5F, SkyColor - GroundColor);
  setLight(1, key, 0, KeyColor);
  setLight(2, towards(0.80F, 0.05F, 0.45F) * 0.75F, 0.25F, FillColor);
  setLight(3, towards(0.35F, 0.45F, -0.80F), 0, RimColor);
  m_highlight = (key - axes.forward).normalized();
}

void Lighting::setLight(std::size_t index, const QVector3D& direction, float offset, const QVector3D& color) {
  m_x[index] = direction.x();
  m_y[index] = direction.y();
  m_z[index] = direction.z();
  m_offset[index] = offset;
  m_red[index] = color.x();
  m_green[index] = color.y();
  m_blue[index] = color.z();
}

QVector3D Lighting::background(float height) const {
  return m_backgroundTop + (m_backgroundBottom - m_backgroundTop) * height;
}

} // namespace Workbench
