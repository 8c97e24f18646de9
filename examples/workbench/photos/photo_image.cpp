// SPDX-License-Identifier: MIT
#include "photo_image.h"

#include <workbench/photos/photo_viewport.h>

#include <QColorSpace>
#include <QPainter>

#include <cmath>

namespace Workbench {
namespace {

constexpr int SmallestLevel = 256; // px, the longer side
constexpr double PixelSize = 4;    // px, from here on pixels are shown as such

// In the form that is drawn fastest, and in the colours of the screen.
QImage forScreen(const QImage& image) {
  QImage converted = image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                                   : QImage::Format_RGB32);
  const QColorSpace screen(QColorSpace::SRgb);
  if (converted.colorSpace().isValid() && converted.colorSpace() != screen)
    converted.convertToColorSpace(screen);
  converted.setDevicePixelRatio(1);
  return converted;
}

} // namespace

PhotoImage::PhotoImage(const QImage& image, const Vela::UiBase::RunProgress& progress) {
  if (image.isNull())
    return;
  progress.report(0);
  m_levels.append(forScreen(image));
  progress.report(0.4);
  for (QSize size = image.size(); std::max(size.width(), size.height()) > SmallestLevel;) {
    size = {(size.width() + 1) / 2, (size.height() + 1) / 2};
    m_levels.append(m_levels.constLast().scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    progress.report(0.9);
  }
  progress.report(1);
}

const QImage& PhotoImage::levelFor(double zoom) const {
  const double halvings = zoom > 0 ? std::floor(std::log2(1 / zoom)) : 0;
  return m_levels[qsizetype(std::clamp(halvings, 0.0, double(m_levels.size() - 1)))];
}

void PhotoImage::paint(QPainter& painter, const PhotoViewport& viewport) const {
  const QRectF whole = viewport.photoRect();
  const QRectF seen = whole & QRectF(QPointF(), viewport.canvas());
  if (isNull() || seen.isEmpty())
    return;
  const QImage& level = levelFor(viewport.zoom());
  const double scaleX = level.width() / whole.width();
  const double scaleY = level.height() / whole.height();
  const QPointF from = seen.topLeft() - whole.topLeft();
  const bool asPixels = viewport.zoom() == 1 || viewport.zoom() >= PixelSize * viewport.devicePixelRatio();
  painter.setRenderHint(QPainter::SmoothPixmapTransform, !asPixels);
  painter.drawImage(seen, level,
                    {from.x() * scaleX, from.y() * scaleY, seen.width() * scaleX, seen.height() * scaleY});
}

} // namespace Workbench
