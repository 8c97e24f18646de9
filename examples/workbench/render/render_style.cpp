// SPDX-License-Identifier: MIT
#include "render_style.h"

#include <QPalette>

namespace Workbench {

RenderStyle RenderStyle::forPalette(const QPalette& palette) {
  RenderStyle style;
  const bool dark = palette.color(QPalette::Window).lightness() < 128;
  style.surface = dark ? QColor(0xd2, 0xcd, 0xc4) : QColor(0xd8, 0xd3, 0xca);
  style.backSide = dark ? QColor(0x8c, 0x6f, 0x66) : QColor(0xb0, 0x8c, 0x80);
  style.backgroundTop = dark ? QColor(0x3b, 0x42, 0x4c) : QColor(0xf6, 0xf8, 0xfa);
  style.backgroundBottom = dark ? QColor(0x1c, 0x1f, 0x24) : QColor(0xbf, 0xc9, 0xd5);
  return style;
}

} // namespace Workbench
