// SPDX-License-Identifier: MIT
#include "render_style.h"

#include <QPalette>

namespace Workbench {
namespace {

// The palette's own colour of selections, neither so light nor so dark that its shades could not be told
// apart.
QColor selectionMaterial(const QPalette& palette) {
  const QColor color = palette.color(QPalette::Active, QPalette::Highlight);
  return QColor::fromHslF(std::max(color.hslHueF(), 0.0F), color.hslSaturationF(),
                          std::clamp(color.lightnessF(), 0.45F, 0.65F));
}

} // namespace

RenderStyle RenderStyle::forPalette(const QPalette& palette) {
  RenderStyle style;
  const bool dark = palette.color(QPalette::Window).lightness() < 128;
  style.surface = dark ? QColor(0xd2, 0xcd, 0xc4) : QColor(0xd8, 0xd3, 0xca);
  style.backSide = dark ? QColor(0x8c, 0x6f, 0x66) : QColor(0xb0, 0x8c, 0x80);
  style.selected = selectionMaterial(palette);
  style.selectedBackSide = style.selected.darker(150);
  style.edges = dark ? QColor(0x20, 0x22, 0x26) : QColor(0x45, 0x48, 0x4e);
  style.backgroundTop = dark ? QColor(0x3b, 0x42, 0x4c) : QColor(0xf6, 0xf8, 0xfa);
  style.backgroundBottom = dark ? QColor(0x1c, 0x1f, 0x24) : QColor(0xbf, 0xc9, 0xd5);
  return style;
}

} // namespace Workbench
